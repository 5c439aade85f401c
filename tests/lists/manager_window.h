#pragma once

#include "lists/list_list.h"
#include "lists/list_menu.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"

#include <QScrollBar>
#include <QToolButton>

namespace tarnwick {

/// The main window with the list manager beside it, and the hands of a user on its rows.
class ManagerWindow : public TestWindow {
public:
    /// Starts with these lists and opens the list manager by its menu entry.
    void open(const QStringList& names, Key current = 1)
    {
        for (const QString& name : names)
            add_list(name);
        set_pref(QStringLiteral("alist"), QString::number(current));
        load();
        toggle();
        QVERIFY(manager() && manager()->isVisible());
    }

    void toggle() { trigger(*this, "mnu_tools_listlist"); }
    bool ticked() { return main().commands().action(QStringLiteral("mnu_tools_listlist")).isChecked(); }

    list_list* manager() { return main().findChild<list_list*>(QStringLiteral("list_list")); }
    template <typename Widget> Widget* part(const QString& name) { return manager()->findChild<Widget*>(name); }
    template <typename Widget> Widget* part(const char* name, int i)
    {
        return part<Widget>(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i));
    }
    QLabel* label(int i) { return part<QLabel>("lbl_list", i); }
    QScrollBar& bar() { return *part<QScrollBar>(QStringLiteral("VScroll1")); }
    int row_picture(int i) { return part<QLabel>("pct_list", i)->property("picture").toInt(); }

    /// Each row as "name|tag", the chosen one with a star.
    QStringList rows()
    {
        constexpr int chosen = 2;
        QStringList texts;
        for (int i = 0; label(i); ++i)
            texts += label(i)->text() + u'|' + label(i)->property("Tag").toString()
                + (row_picture(i) == chosen ? QStringLiteral("*") : QString());
        return texts;
    }

    void click_row(int i) { QTest::mouseClick(label(i), Qt::LeftButton); }
    bool notice_shown() { return part<QFrame>(QStringLiteral("frmCreateList"))->isVisible(); }
    QString velora(const char* key) { return pref(QLatin1String(key), QStringLiteral("velora")); }
};

} // namespace tarnwick
