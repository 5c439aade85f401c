#include "widgets/list_grid.h"
#include "lists/list_menu.h"
#include "lists/list_pane.h"
#include "support/tool_button.h"

#include <QToolButton>

using namespace tarnwick;

class tst_list_restart : public QObject {
    Q_OBJECT
private slots:
    void list_made_in_the_dialog_is_shown_again_only_when_chosen();
    void chosen_list_is_shown_after_a_restart();
    void no_list_in_the_setting_while_one_exists_shows_all_lists();
};

void tst_list_restart::list_made_in_the_dialog_is_shown_again_only_when_chosen()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), weekly, true);
    window.set_pref(QStringLiteral("alist"), QString::number(weekly));
    window.load();
    make_list(window, QStringLiteral("Camping"));
    QCOMPARE(window.main().list_pane().grid().rows().rows(), 0);

    frmmain& again = window.load();
    QCOMPARE(again.windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
    QCOMPARE(again.list_pane().grid().rows().rows(), 1);
    QCOMPARE(entries(window),
             (QStringList{QStringLiteral("1: Camping|2"), QStringLiteral("2: Weekly|1|ticked"),
                          QStringLiteral("3: All|0")}));

    choose(window, 0);
    frmmain& chosen = window.load();
    QCOMPARE(chosen.windowTitle(), QStringLiteral("Tarnwick (Camping list)"));
    QCOMPARE(chosen.list_pane().grid().rows().rows(), 0);
}

void tst_list_restart::chosen_list_is_shown_after_a_restart()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    const Key camping = window.add_list(QStringLiteral("Camping"));
    const Key row = window.add_row(window.add_item(QStringLiteral("Gas"), 0), camping, false);
    window.set_pref(QStringLiteral("alist"), QString::number(weekly));
    window.load();
    choose(window, 0);
    frmmain& again = window.load();
    QCOMPARE(again.shared.current_list, camping);
    QVERIFY(!again.shared.all_lists_view);
    QCOMPARE(again.list_pane().grid().rows().rows(), 1);
    QCOMPARE(again.list_pane().grid().rows().row(0).groc_key, row);
    QCOMPARE(entries(window).first(), QStringLiteral("1: Camping|2|ticked"));
}

void tst_list_restart::no_list_in_the_setting_while_one_exists_shows_all_lists()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), weekly, true);
    window.set_pref(QStringLiteral("alist"), QStringLiteral("-1"));
    frmmain& main = window.load();
    const auto check = [&] {
        QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (viewing all lists)"));
        QVERIFY(main.list_pane().grid().isVisible());
        QCOMPARE(main.list_pane().grid().rows().rows(), 1);
        QVERIFY(!notice(window)->isVisible());
        QAction& print = main.commands().action(QStringLiteral("mnu_list_Print"));
        QVERIFY(print.isEnabled());
        QCOMPARE(Commands::plain_caption(print), QStringLiteral("Print all lists"));
        auto* button = window.find<QToolButton>(tool_button(ToolButton::print));
        QVERIFY(button && button->isEnabled());
        QCOMPARE(button->toolTip(), QStringLiteral("Print all shopping lists"));
    };
    check();
    main.resize(880, 560);
    QCoreApplication::processEvents();
    check();
    trigger(window, "mnu_view_rcpepages");
    trigger(window, "mnu_view_shoplist");
    check();
}

QTEST_MAIN(tst_list_restart)
#include "tst_list_restart.moc"
