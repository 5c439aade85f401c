#pragma once

#include <QDialog>

class QCheckBox;

namespace tarnwick {

/// Which rows of a list are to be sent.
enum class RtfRows { cancelled = 0, buy_it = 1, all = 2 };

/// The dialog that asks which rows of a list are to be sent.
class list_to_get : public QDialog {
    Q_OBJECT
public:
    /// `type_size` of the main window in points.
    list_to_get(int type_size, QWidget* owner);

    /// Shows the dialog and waits.
    RtfRows ask();

private:
    QCheckBox* Check1_;
};

} // namespace tarnwick
