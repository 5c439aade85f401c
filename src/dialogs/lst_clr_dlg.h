#pragma once

#include <QDialog>

#include <array>

class QRadioButton;

namespace tarnwick {

enum class ClearMode;

/// The choice of how a list is cleared after shopping. It asks what is to be asked before rows are deleted; what is
/// wanted then is said by a signal while the dialog is still up.
class lst_clr_dlg : public QDialog {
    Q_OBJECT
public:
    /// `type_size` of the main window in points.
    lst_clr_dlg(QString list_name, int type_size, QWidget* owner);

signals:
    void clear_wanted(ClearMode mode);
    void delete_wanted(); ///< the list itself; nothing has been asked yet

private:
    void make_controls();
    void ok();
    bool is_sure(const QString& what);
    QString delete_caption() const;

    static constexpr int options = 4;

    const QString list_name_;
    std::array<QRadioButton*, options> Option1_{};
};

} // namespace tarnwick
