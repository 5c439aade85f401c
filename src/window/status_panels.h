#pragma once

#include <QObject>
#include <QString>

#include <array>

class QLabel;
class QStatusBar;

namespace tarnwick {

/// The status bar `StatusBar1`: what is selected, and the legend of the status codes.
class StatusPanels : public QObject {
    Q_OBJECT
public:
    explicit StatusPanels(QStatusBar& bar);

    /// Text and tool tip of the first panel.
    void set_text(const QString& text);

    void set_visible(int panel, bool visible); ///< panel 1 to 6
    void set_type_size(int points);

private:
    std::array<QLabel*, 7> panels_{};
};

} // namespace tarnwick
