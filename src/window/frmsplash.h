#pragma once

#include <QLabel>
#include <QWidget>

#include <array>

class QProgressBar;

namespace tarnwick {

/// What the user sees while both trees are loaded.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    frmSplash();

    void show_warnings(); ///< makes the three `lblWarning` visible
    void refresh(); ///< paints at once, without waiting for the event loop

private:
    void centre();

    std::array<QLabel*, 3> lblWarning_{};
};

} // namespace tarnwick
