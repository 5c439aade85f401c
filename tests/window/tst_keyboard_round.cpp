#include "recipes/line_fixture.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"
#include "lists/list_pane.h"

#include <QDialog>
#include <QPushButton>
#include <QWindow>

using namespace tarnwick;

namespace {

/// A list of two rows and a recipe of three lines.
class Window : public LineWindow {
public:
    Window()
    {
        const Key list = add_list(QStringLiteral("Home"));
        for (const char* name : {"Butter", "Cream"})
            add_row(add_item(QString::fromLatin1(name), 0, 7), list, true);
        for (const char* name : {"Salt", "Oil", "Rice"})
            add_line(recipe, QString::fromLatin1(name));
        set_pref(QStringLiteral("alist"), QString::number(list));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    }

    void open_on(bool list)
    {
        set_pref(QStringLiteral("lv_view"), list ? QStringLiteral("1") : QStringLiteral("0"));
        load();
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
    }

    static void key(Qt::Key code, Qt::KeyboardModifiers held = {})
    {
        QVERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), code, held);
    }
    static void onward() { key(Qt::Key_F6); }
    static void back() { key(Qt::Key_F6, Qt::ShiftModifier); }
    static QString keyboard()
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus ? focus->objectName() : QString();
    }
    ListGrid& grid() { return main().list_pane().grid(); }
};

} // namespace

class tst_keyboard_round : public QObject {
    Q_OBJECT
private slots:
    void f6_goes_round_tree_list_and_open_row();
    void f6_goes_round_tree_page_and_open_line();
    void f6_lands_on_the_instructions_of_a_recipe_without_lines();
    void f6_passes_by_a_page_that_shows_nothing();
    void f6_from_a_tab_strip_begins_the_round();
    void a_change_of_the_right_pane_gives_the_keyboard_to_what_it_shows();
    void a_new_recipe_has_the_keyboard_in_its_instructions_and_still_shows_its_help();
    void the_last_line_deleted_leaves_the_keyboard_in_the_instructions();
    void a_removed_row_leaves_the_keyboard_in_the_grid();
    void the_second_press_of_a_double_click_does_not_answer_the_dialog_of_the_first();
};

void tst_keyboard_round::f6_goes_round_tree_list_and_open_row()
{
    Window w;
    w.open_on(true);
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("Listview1"));
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
    w.back();
    QCOMPARE(w.keyboard(), QStringLiteral("Listview1"));
    w.key(Qt::Key_Down);
    QVERIFY(w.main().row_editor().is_open());
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("desc_brdr"));
    w.back();
    QCOMPARE(w.keyboard(), QStringLiteral("Listview1"));
    QVERIFY(w.main().row_editor().is_open());
    w.back();
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
    QVERIFY(!w.main().row_editor().is_open());
}

void tst_keyboard_round::f6_goes_round_tree_page_and_open_line()
{
    Window w;
    w.open_on(false);
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("ingred(0)"));
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
    w.open_line(1);
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
    QVERIFY(!w.editor().is_open());
    w.back();
    QCOMPARE(w.keyboard(), QStringLiteral("ingred(1)"));
}

void tst_keyboard_round::f6_lands_on_the_instructions_of_a_recipe_without_lines()
{
    Window w;
    Query(w.db(), "DELETE FROM recipe_2").run();
    w.open_on(false);
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("Text1"));
}

void tst_keyboard_round::f6_passes_by_a_page_that_shows_nothing()
{
    Window w;
    w.set_pref(QStringLiteral("arcp"), QStringLiteral("-1"));
    w.open_on(false);
    QVERIFY(!w.Text1().isVisible());
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
}

void tst_keyboard_round::f6_from_a_tab_strip_begins_the_round()
{
    Window w;
    w.open_on(true);
    w.control(QStringLiteral("TabStrip1(1)")).setFocus();
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
    w.control(QStringLiteral("TabStrip1(1)")).setFocus();
    w.back();
    QCOMPARE(w.keyboard(), QStringLiteral("Listview1"));
}

void tst_keyboard_round::a_change_of_the_right_pane_gives_the_keyboard_to_what_it_shows()
{
    Window w;
    w.open_on(true);
    w.onward();
    w.trigger(QStringLiteral("mnu_view_rcpepages"));
    QCOMPARE(w.keyboard(), QStringLiteral("ingred(0)"));
    w.trigger(QStringLiteral("mnu_view_shoplist"));
    QCOMPARE(w.keyboard(), QStringLiteral("Listview1"));
    w.main().shared.cur_recipe = -1;
    w.page().set_recipe(-1);
    w.trigger(QStringLiteral("mnu_view_rcpepages"));
    QVERIFY(!w.Text1().isVisible());
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
}

void tst_keyboard_round::a_new_recipe_has_the_keyboard_in_its_instructions_and_still_shows_its_help()
{
    Window w;
    w.open_on(true);
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("Text1")), QStringLiteral("Stew"));
        QTest::mouseClick(dialog.findChild<QAbstractButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
    });
    w.trigger(QStringLiteral("mnu_recipe_new"));
    QCOMPARE(w.title().text(), QStringLiteral("Stew"));
    QCOMPARE(w.focused_after_message(), &w.Text1());
    QVERIFY(w.Text1().placeholderText().startsWith(QStringLiteral("Enter your recipe instructions here.")));
    QTest::keyClicks(&w.Text1(), QStringLiteral("Stir"));
    QCOMPARE(w.Text1().text(), QStringLiteral("Stir"));
}

void tst_keyboard_round::the_last_line_deleted_leaves_the_keyboard_in_the_instructions()
{
    Window w;
    Query(w.db(), "DELETE FROM recipe_2 WHERE item <> 'Oil'").run();
    w.open_on(false);
    w.onward();
    w.key(Qt::Key_Delete);
    QCOMPARE(w.lines(), 0);
    QCOMPARE(w.keyboard(), QStringLiteral("Text1"));
}

void tst_keyboard_round::a_removed_row_leaves_the_keyboard_in_the_grid()
{
    Window w;
    w.open_on(true);
    w.onward();
    w.key(Qt::Key_Down);
    w.onward();
    QCOMPARE(w.keyboard(), QStringLiteral("desc_brdr"));
    QTest::mouseClick(&w.control(QStringLiteral("imgScratch")), Qt::LeftButton);
    QCOMPARE(w.grid().rows().rows(), 1);
    QCOMPARE(w.keyboard(), QStringLiteral("Listview1"));
    w.key(Qt::Key_Delete);
    QCOMPARE(w.grid().rows().rows(), 0);
    QCOMPARE(w.keyboard(), QStringLiteral("Listview1"));
}

void tst_keyboard_round::the_second_press_of_a_double_click_does_not_answer_the_dialog_of_the_first()
{
    Window w;
    w.open_on(true);
    QDialog dialog(&w.main());
    dialog.setModal(true);
    auto* yes = new QPushButton(QStringLiteral("Yes"), &dialog);
    dialog.resize(200, 100);
    const QPoint middle = yes->rect().center();
    int answers = 0;
    connect(yes, &QPushButton::clicked, this, [&answers] { ++answers; });
    QTest::mouseClick(w.main().windowHandle(), Qt::LeftButton, {},
                      w.grid().mapTo(&w.main(), w.grid().rect().center()));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const auto second_press = [&](QEvent::Type type) {
        const QPoint screen = dialog.mapToGlobal(middle);
        QMouseEvent event(type, middle, screen, Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(dialog.windowHandle(), &event);
    };
    second_press(QEvent::MouseButtonDblClick);
    second_press(QEvent::MouseButtonRelease);
    QCOMPARE(answers, 0);
    second_press(QEvent::MouseButtonPress);
    second_press(QEvent::MouseButtonRelease);
    QCOMPARE(answers, 1);
}

QTEST_MAIN(tst_keyboard_round)
#include "tst_keyboard_round.moc"
