#pragma once

#include <QDialog>

class QCheckBox;

namespace tarnwick {

/// The notice that a virus scanner may speak up when a list or a recipe is sent.
class anti_vrs : public QDialog {
    Q_OBJECT
public:
    /// `type_size` of the main window in points.
    anti_vrs(int type_size, QWidget* owner);

    /// Shows the notice and waits. True when it is not to be shown any more.
    bool show_notice();

private:
    QCheckBox* Check1_;
};

} // namespace tarnwick
