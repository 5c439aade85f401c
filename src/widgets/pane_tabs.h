#pragma once

#include <QTabBar>

namespace tarnwick {

/// A strip of tabs as high as the strip itself, so that the tab in front reaches the pane under it.
class PaneTabs : public QTabBar {
public:
    using QTabBar::QTabBar;

protected:
    QSize tabSizeHint(int index) const override { return {QTabBar::tabSizeHint(index).width(), height()}; }
};

} // namespace tarnwick
