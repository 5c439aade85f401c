#pragma once

#include <QStyleOption>
#include <QTabBar>

namespace tarnwick {

/// A strip of tabs as high as the strip itself, so that the tab in front reaches the pane under it. In a narrow
/// strip the tabs are narrower; the style sees to their captions.
class PaneTabs : public QTabBar {
public:
    using QTabBar::QTabBar;

protected:
    QSize tabSizeHint(int index) const override { return {QTabBar::tabSizeHint(index).width(), height()}; }

    /// Where one caption is short of room, all do without their pictures.
    void initStyleOption(QStyleOptionTab* option, int index) const override
    {
        QTabBar::initStyleOption(option, index);
        for (int i = 0; i < count(); ++i)
            if (tabRect(i).width() < tabSizeHint(i).width())
                option->icon = QIcon();
    }

    QSize minimumTabSizeHint(int) const override
    {
        constexpr int least_width = 40;
        return {least_width, height()};
    }
};

} // namespace tarnwick
