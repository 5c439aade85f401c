#include "recipes/line_fixture.h"
#include "widgets/list_grid.h"
#include "widgets/plain_style.h"
#include "widgets/row_editor.h"
#include "lists/list_pane.h"
#include "support/contrast.h"
#include "support/tool_button.h"
#include "window/commands.h"
#include "window/toolbar.h"

#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
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
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void f6_goes_round_tree_list_and_open_row();
    void f6_goes_round_tree_page_and_open_line();
    void shift_f6_goes_from_the_boxes_of_a_line_to_the_line();
    void shift_f6_from_a_line_without_a_name_asks_for_it();
    void f6_lands_on_the_instructions_of_a_recipe_without_lines();
    void f6_passes_by_a_page_that_shows_nothing();
    void f6_from_a_tab_strip_begins_the_round();
    void a_change_of_the_right_pane_gives_the_keyboard_to_what_it_shows();
    void a_new_recipe_has_the_keyboard_in_its_instructions_and_still_shows_its_help();
    void the_last_line_deleted_leaves_the_keyboard_in_the_instructions();
    void a_removed_row_leaves_the_keyboard_in_the_grid();
    void f10_goes_along_the_usable_buttons_of_the_toolbar();
    void f10_reaches_the_button_for_more_in_a_narrow_window();
    void a_button_pressed_by_key_does_as_a_click_and_keeps_the_keyboard();
    void a_button_that_shows_the_keyboard_stands_out();
    void f6_and_escape_go_back_from_the_toolbar_data();
    void f6_and_escape_go_back_from_the_toolbar();
    void a_button_that_turns_grey_gives_the_keyboard_to_the_grid();
    void a_click_on_a_button_leaves_the_keyboard_in_the_box_that_is_typed_in();
    void f10_from_a_label_that_is_typed_goes_back_to_the_tree();
    void f8_goes_to_the_separator_and_arrows_move_it();
    void a_separator_that_was_clicked_gives_the_keyboard_back();
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

void tst_keyboard_round::shift_f6_goes_from_the_boxes_of_a_line_to_the_line()
{
    Window w;
    w.open_on(false);
    w.open_line(1);
    LineWindow::type(w.qty(), QStringLiteral("7"));
    w.back();
    QCOMPARE(w.keyboard(), QStringLiteral("ingred(1)"));
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.text("SELECT qty FROM recipe_2 WHERE \"order\" = 1"), QStringLiteral("7"));
    w.back();
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
}

void tst_keyboard_round::shift_f6_from_a_line_without_a_name_asks_for_it()
{
    Window w;
    w.open_on(false);
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    LineWindow::type(w.qty(), QStringLiteral("7"));
    MessageScript script;
    script.expect(
        QStringLiteral("Ingredient name missing"),
        QStringLiteral("Please provide a name for your ingredient\n(or hit CANCEL to cancel adding ingredient)"));
    w.back();
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(w.main().focusWidget(), &w.item());
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
    w.trigger(QStringLiteral("mnu_view_rcp"));
    w.click_node(rcp(w.recipe));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Soup")), Answer::yes);
    w.trigger(QStringLiteral("mnu_recipe_del"));
    QVERIFY(w.focused_after_message());
    w.trigger(QStringLiteral("mnu_view_stock"));
    w.trigger(QStringLiteral("mnu_view_shoplist"));
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

void tst_keyboard_round::f10_goes_along_the_usable_buttons_of_the_toolbar()
{
    Window w;
    w.open_on(true);
    w.main().resize(1200, 600);
    const auto buttons = w.main().toolbar().usable_buttons();
    QVERIFY(buttons.size() > 5);
    QVERIFY(!w.main().toolbar().button(ToolButton::ingredient).isEnabled());
    w.key(Qt::Key_F10);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::new_list));
    for (const ToolButton next :
         {ToolButton::clear, ToolButton::lists, ToolButton::new_recipe, ToolButton::stock}) {
        w.key(Qt::Key_Right);
        QCOMPARE(w.keyboard(), tool_button(next));
    }
    for (int i = 0; i < 5; ++i)
        w.key(Qt::Key_Left);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::size));
    w.key(Qt::Key_Right);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::new_list));
    w.key(Qt::Key_End);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::size));
    w.key(Qt::Key_Down);
    QVERIFY(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::size));
    w.key(Qt::Key_Home);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::new_list));
}

void tst_keyboard_round::f10_reaches_the_button_for_more_in_a_narrow_window()
{
    Window w;
    w.open_on(true);
    w.main().resize(w.main().minimumWidth(), 500);
    QTRY_COMPARE(w.main().toolbar().tag(ToolButton::folders), QStringLiteral("MORE"));
    w.key(Qt::Key_F10);
    w.key(Qt::Key_End);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::folders));
    w.key(Qt::Key_Return);
    QCOMPARE(QApplication::activePopupWidget(), &w.main().commands().menu(QStringLiteral("mnu_more")));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

void tst_keyboard_round::a_button_pressed_by_key_does_as_a_click_and_keeps_the_keyboard()
{
    Window w;
    w.open_on(true);
    w.main().resize(1200, 600);
    for (const Qt::Key press : {Qt::Key_Space, Qt::Key_Return}) {
        const int size = w.main().shared.type_size;
        w.key(Qt::Key_F10);
        w.key(Qt::Key_End);
        w.key(press);
        QVERIFY(w.main().shared.type_size != size);
        QCOMPARE(w.keyboard(), tool_button(ToolButton::size));
    }
}

void tst_keyboard_round::a_button_that_shows_the_keyboard_stands_out()
{
    Window w;
    w.open_on(true);
    QWidget& button = w.main().toolbar().button(ToolButton::new_list);
    const QImage before = button.grab().toImage();
    w.key(Qt::Key_F10);
    QVERIFY(button.hasFocus());
    const QImage after = button.grab().toImage();
    QCOMPARE(after.size(), before.size());
    int outstanding = 0;
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            outstanding += contrast(after.pixelColor(x, y), before.pixelColor(x, y)) >= 3 ? 1 : 0;
    QVERIFY2(outstanding > after.width(), qPrintable(QString::number(outstanding)));
}

void tst_keyboard_round::f6_and_escape_go_back_from_the_toolbar_data()
{
    QTest::addColumn<Qt::Key>("aside");
    QTest::addColumn<Qt::Key>("back");
    QTest::addColumn<bool>("list");
    for (const bool list : {true, false})
        for (const Qt::Key aside : {Qt::Key_F10, Qt::Key_F8})
            for (const Qt::Key back : {Qt::Key_F6, Qt::Key_Escape})
                QTest::addRow("%s, %s, %s", list ? "list" : "page", aside == Qt::Key_F10 ? "toolbar" : "separator",
                              back == Qt::Key_F6 ? "F6" : "Escape")
                    << aside << back << list;
}

void tst_keyboard_round::f6_and_escape_go_back_from_the_toolbar()
{
    QFETCH(Qt::Key, aside);
    QFETCH(Qt::Key, back);
    QFETCH(bool, list);
    Window w;
    w.open_on(list);
    for (int stop = 0; stop < 2; ++stop) {
        const QString before = w.keyboard();
        w.key(aside);
        QVERIFY(w.keyboard() != before);
        if (aside == Qt::Key_F10)
            w.key(Qt::Key_Right);
        w.key(back);
        QCOMPARE(w.keyboard(), before);
        w.onward();
        QVERIFY(w.keyboard() != before);
    }
}

void tst_keyboard_round::a_button_that_turns_grey_gives_the_keyboard_to_the_grid()
{
    Window w;
    w.open_on(true);
    w.main().resize(1200, 600);
    w.key(Qt::Key_F10);
    while (w.keyboard() != tool_button(ToolButton::print)) {
        const QString before = w.keyboard();
        w.key(Qt::Key_Right);
        QVERIFY(w.keyboard() != before);
    }
    MessageScript script;
    script.expect(QStringLiteral("Warning"),
                  QStringLiteral("The Home list has 2 items on it\nAre you sure you want to delete it?"),
                  Answer::yes);
    w.trigger(QStringLiteral("mnu_list_del"));
    QVERIFY(!w.main().toolbar().button(ToolButton::print).isEnabled());
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    QTRY_COMPARE(w.keyboard(), QStringLiteral("Listview1"));
}

void tst_keyboard_round::a_click_on_a_button_leaves_the_keyboard_in_the_box_that_is_typed_in()
{
    Window w;
    w.open_on(true);
    w.main().resize(1200, 600);
    w.onward();
    w.key(Qt::Key_Down);
    w.onward();
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("ripe"));
    QTest::mouseClick(&w.main().toolbar().button(ToolButton::folders), Qt::LeftButton);
    QCOMPARE(w.keyboard(), QStringLiteral("desc_brdr"));
    QVERIFY(w.main().row_editor().is_open());
}

void tst_keyboard_round::f10_from_a_label_that_is_typed_goes_back_to_the_tree()
{
    Window w;
    w.open_on(true);
    w.key(Qt::Key_Down);
    w.key(Qt::Key_Right);
    w.key(Qt::Key_Down);
    w.key(Qt::Key_F2);
    QCOMPARE(w.keyboard(), QStringLiteral("label_edit"));
    w.key(Qt::Key_F10);
    QCOMPARE(w.keyboard(), tool_button(ToolButton::new_list));
    w.key(Qt::Key_Escape);
    QCOMPARE(w.keyboard(), QStringLiteral("TreeView1(0)"));
}

void tst_keyboard_round::f8_goes_to_the_separator_and_arrows_move_it()
{
    Window w;
    w.open_on(true);
    w.main().resize(1200, 600);
    QWidget& bar = w.control(QStringLiteral("Frame1"));
    const int left = bar.x();
    const QImage before = bar.grab().toImage();
    w.key(Qt::Key_F8);
    QCOMPARE(w.keyboard(), QStringLiteral("Frame1"));
    const QImage after = bar.grab().toImage();
    QVERIFY(contrast(after.pixelColor(0, after.height() / 4), before.pixelColor(0, before.height() / 4)) >= 3);
    w.key(Qt::Key_Right);
    QVERIFY(bar.x() > left);
    w.key(Qt::Key_Left);
    QCOMPARE(bar.x(), left);
}

void tst_keyboard_round::a_separator_that_was_clicked_gives_the_keyboard_back()
{
    Window w;
    w.open_on(true);
    w.onward();
    QTest::mouseClick(&w.control(QStringLiteral("Frame1")), Qt::LeftButton);
    QCOMPARE(w.keyboard(), QStringLiteral("Frame1"));
    w.key(Qt::Key_Escape);
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
