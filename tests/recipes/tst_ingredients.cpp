#include "recipes/line_fixture.h"

#include "window/toolbar.h"
#include "stock/floating_buttons.h"
#include "household/status.h"
#include "support/tool_button.h"

#include <QMenu>
#include <QMessageBox>
#include <QToolButton>

using namespace tarnwick;

namespace {

const QString missing_title = QStringLiteral("Ingredient name missing");
const QString missing_new = QStringLiteral("Please provide a name for your ingredient\n"
                                           "(or hit CANCEL to cancel adding ingredient)");

/// Remembers the pointer that the program shows when a box is hidden.
class PointerWatch : public QObject {
public:
    explicit PointerWatch(QWidget& box) { box.installEventFilter(this); }

    std::optional<Qt::CursorShape> at_hide;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && QApplication::overrideCursor())
            at_hide = QApplication::overrideCursor()->shape();
        return false;
    }
};

} // namespace

class tst_ingredients : public QObject {
    Q_OBJECT
private slots:
    void a_new_line_opens_empty_with_red_placeholders();
    void a_new_line_is_written_with_blanks_for_what_is_not_given();
    void a_new_line_takes_the_next_place();
    void a_new_line_keeps_the_simple_height_until_the_next_load();
    void ctrl_i_adds_an_ingredient_from_anywhere_on_the_page();
    void ctrl_i_does_nothing_on_the_list_pane();
    void adding_again_finishes_the_line_under_work();
    void adding_again_stops_when_the_name_is_missing();
    void a_missing_name_asks_and_ok_returns_to_the_item_box();
    void a_missing_name_asks_and_cancel_drops_the_line();
    void cancelling_a_new_line_restores_the_position_of_the_body_data();
    void cancelling_a_new_line_restores_the_position_of_the_body();
    void cancelling_the_first_line_leaves_the_page_empty();
    void a_measure_of_25_characters_is_cut_on_insert_and_whole_on_a_later_edit();
    void deleting_the_last_line_selects_the_new_last_line_data();
    void deleting_the_last_line_selects_the_new_last_line();
    void deleting_another_line_than_the_last_keeps_the_selected_index_data();
    void deleting_another_line_than_the_last_keeps_the_selected_index();
    void deleting_the_only_line_empties_the_page();
    void a_key_held_down_deletes_one_line_data();
    void a_key_held_down_deletes_one_line();
    void after_a_deletion_the_line_in_its_place_has_the_focus_data();
    void after_a_deletion_the_line_in_its_place_has_the_focus();
    void the_pointer_is_an_hourglass_while_the_cross_works_data();
    void the_pointer_is_an_hourglass_while_the_cross_works();
    void a_deleted_line_closes_the_gap_in_the_order();
    void an_error_while_inserting_ends_the_program_with_the_message();
    void a_recipe_that_has_gone_takes_no_line();
    void a_line_added_without_the_editor_stands_on_the_page();
    void the_last_of_a_hundred_lines_can_be_added_and_deleted();
    void no_recipe_no_line();
};

void tst_ingredients::a_new_line_opens_empty_with_red_placeholders()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    const int text_top = w.Text1().y();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.page().state.cur_line, 1);
    QVERIFY(w.editor().draft().is_new());
    QCOMPARE(w.editor().draft().edited.item_ref, Key(-1));
    QVERIFY(w.qty().hasFocus());
    QVERIFY(w.qty().text().isEmpty());
    QVERIFY(LineWindow::is_black_upright(w.qty()));
    QCOMPARE(w.measure().text(), QStringLiteral("(Measure)"));
    QCOMPARE(w.item().text(), QStringLiteral("(Item)"));
    QCOMPARE(w.desc().text(), QStringLiteral("(Comment)"));
    for (QLineEdit* box : {&w.measure(), &w.item(), &w.desc()}) {
        QVERIFY(box->isVisible());
        QVERIFY(LineWindow::is_red_italic(*box));
        QCOMPARE(box->property("Tag").toString(), QStringLiteral(" "));
    }
    QVERIFY(w.item().font().bold());
    QVERIFY(!w.desc().font().bold());
    QCOMPARE(w.button("imgScratch").toolTip(), QStringLiteral("Cancel adding ingredient"));
    QCOMPARE(w.button("imgScratch").property("Tag").toString(), QStringLiteral("ns"));
    QVERIFY(w.button("imgScratch").isVisible());
    QVERIFY(!w.button("imgedit").isVisible());
    QCOMPARE(w.Text1().y(), text_top + 20);
    QVERIFY(w.control(QStringLiteral("lite(1)")).isVisible());
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 1);
}

void tst_ingredients::a_new_line_is_written_with_blanks_for_what_is_not_given()
{
    LineWindow w;
    w.open();
    QTest::mouseClick(w.find<QToolButton>(tool_button(ToolButton::ingredient)), Qt::LeftButton);
    QVERIFY(w.editor().is_open());
    w.tab(w.qty());
    w.tab(w.measure());
    w.type(w.item(), QStringLiteral("Rock salt"));
    w.tab(w.item());
    w.tab(w.desc());
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.Text1().hasFocus());
    QCOMPARE(w.text("SELECT '[' || qty || '][' || measure || '][' || item || '][' || comment || ']' FROM recipe_2"),
             QStringLiteral("[ ][ ][Rock salt][ ]"));
    QCOMPARE(w.text("SELECT item_ref || ' ' || r_ref || ' ' || \"order\" FROM recipe_2"),
             QStringLiteral("-1 %1 0").arg(w.recipe));
    QCOMPARE(w.ingred(0), QStringLiteral("Rock salt"));
    QVERIFY(w.line(0).ingred->isVisible());
    QCOMPARE(w.line(0).ingred->text_color(), QColor(Qt::black));
    QCOMPARE(w.line(0).ingred->toolTip(), QStringLiteral("Non-stock item"));
    QCOMPARE(w.light(0), picture_base::light_non_stock);
    QCOMPARE(w.tag(QStringLiteral("lite(0)")), w.text("SELECT key_id FROM recipe_2"));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QStringLiteral("-1"));
    QCOMPARE(w.tag(QStringLiteral("ingred(0)")), QStringLiteral("8^1^Rock salt"));
}

void tst_ingredients::a_new_line_keeps_the_simple_height_until_the_next_load()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.set_pref(QStringLiteral("font"), QStringLiteral("10"));
    w.open();
    const int body = w.Text1().y();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    w.tab(w.qty());
    w.tab(w.measure());
    w.type(w.item(), QStringLiteral("Thyme"));
    w.tab(w.item());
    w.tab(w.desc());
    QWidget& line = w.control(QStringLiteral("ingred(1)"));
    QVERIFY(line.isVisible());
    QCOMPARE(line.height(), std::max(16, line.fontMetrics().height()));
    QCOMPARE(w.Text1().y(), body + 20);
    QCOMPARE(w.tag(QStringLiteral("lite(1)")), w.text("SELECT key_id FROM recipe_2 WHERE item = 'Thyme'"));
    w.page().set_recipe(w.recipe);
    QCOMPARE(line.height(), 20);
}

void tst_ingredients::a_new_line_takes_the_next_place()
{
    LineWindow w;
    for (int i = 0; i < 3; ++i)
        w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Pepper"));
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.number("SELECT \"order\" FROM recipe_2 WHERE item = 'Pepper'"), 3);
    QCOMPARE(w.page().state.cur_line, 3);
    w.page().set_recipe(w.recipe);
    QCOMPARE(w.ingred(3), QStringLiteral("Pepper"));
}

void tst_ingredients::ctrl_i_adds_an_ingredient_from_anywhere_on_the_page()
{
    LineWindow w;
    w.open();
    w.click_text();
    QTest::keyClick(&w.Text1(), Qt::Key_I, Qt::ControlModifier);
    QVERIFY(w.editor().is_open());
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Salt"));
    QTest::keyClick(&w.item(), Qt::Key_I, Qt::ControlModifier);
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.editor().index(), 1);
    QCOMPARE(w.text("SELECT item FROM recipe_2"), QStringLiteral("Salt"));
    QVERIFY(w.qty().hasFocus());
}

void tst_ingredients::ctrl_i_does_nothing_on_the_list_pane()
{
    LineWindow w;
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    w.load();
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    QTest::keyClick(&w.main(), Qt::Key_I, Qt::ControlModifier);
    QVERIFY(!w.editor().is_open());
}

void tst_ingredients::adding_again_finishes_the_line_under_work()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    w.type(w.qty(), QStringLiteral("3"));
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("3"));
    QCOMPARE(w.ingred(0), QStringLiteral("3 Salt"));
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.editor().index(), 1);
    QVERIFY(w.line(0).ingred->isVisible());
    QVERIFY(!w.line(1).ingred->isVisible());
}

void tst_ingredients::adding_again_stops_when_the_name_is_missing()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    {
        MessageScript script;
        script.expect(missing_title, missing_new, Answer::ok);
        w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    }
    QCOMPARE(w.lines(), 1);
    QCOMPARE(w.focused_after_message(), &w.item());
}

void tst_ingredients::a_missing_name_asks_and_ok_returns_to_the_item_box()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::keyClicks(&w.qty(), QStringLiteral("7"));
    {
        MessageScript script;
        script.expect(missing_title, missing_new, Answer::ok, [](QDialog& dialog) {
            auto& message = dynamic_cast<QMessageBox&>(dialog);
            QCOMPARE(message.icon(), QMessageBox::Information);
            QCOMPARE(message.standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        });
        w.click_text();
    }
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.focused_after_message(), &w.item());
    QVERIFY(w.item().text().isEmpty());
    QCOMPARE(w.qty().text(), QStringLiteral("7"));
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
    QTest::keyClicks(&w.item(), QStringLiteral("Eggs"));
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.ingred(0), QStringLiteral("7 Eggs"));
}

void tst_ingredients::a_missing_name_asks_and_cancel_drops_the_line()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    const QRect text = w.Text1().geometry();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    {
        MessageScript script;
        script.expect(missing_title, missing_new, Answer::cancel);
        w.click_text();
    }
    QVERIFY(!w.editor().is_open());
    QVERIFY(!w.qty().isVisible());
    QCOMPARE(w.lines(), 1);
    QCOMPARE(w.Text1().geometry(), text);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 1);
    QCOMPARE(w.line(0).ingred->text_color(), QColor(Qt::black));
}

void tst_ingredients::cancelling_a_new_line_restores_the_position_of_the_body_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("pitch");
    QTest::newRow("9") << 9 << 20;
    QTest::newRow("10") << 10 << 20;
    QTest::newRow("12") << 12 << 27;
}

void tst_ingredients::cancelling_a_new_line_restores_the_position_of_the_body()
{
    QFETCH(int, size);
    QFETCH(int, pitch);
    LineWindow w;
    w.set_pref(QStringLiteral("font"), QString::number(size));
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.add_line(w.recipe, QStringLiteral("Oil"));
    w.open();
    const QRect text = w.Text1().geometry();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(qAbs(w.Text1().y() - text.y() - pitch) <= 1);
    QTest::keyClicks(&w.qty(), QStringLiteral("2"));
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.Text1().geometry(), text);
    QCOMPARE(w.lines(), 2);
    QVERIFY(!w.control(QStringLiteral("lite(2)")).isVisible());
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 2);
    QCOMPARE(w.qty().text(), QStringLiteral(" "));
    QCOMPARE(w.qty().property("Tag").toString(), QStringLiteral(" "));
    QCOMPARE(w.button("imgScratch").property("Tag").toString(), QStringLiteral("edit"));
    QVERIFY(!QApplication::overrideCursor());
}

void tst_ingredients::cancelling_the_first_line_leaves_the_page_empty()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QCOMPARE(w.lines(), 0);
    QVERIFY(!w.control(QStringLiteral("lite(0)")).isVisible());
    QVERIFY(!w.control(QStringLiteral("ingred(0)")).isVisible());
    QCOMPARE(w.tag(QStringLiteral("lite(0)")), QStringLiteral("-1"));
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QCOMPARE(w.editor().index(), 0);
}

void tst_ingredients::a_measure_of_25_characters_is_cut_on_insert_and_whole_on_a_later_edit()
{
    const QString measure = QStringLiteral("1234567890123456789012345");
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    w.tab(w.qty());
    w.type(w.measure(), measure);
    w.tab(w.measure());
    w.type(w.item(), QStringLiteral("Salt"));
    w.click_text();
    QCOMPARE(w.text("SELECT measure FROM recipe_2"), measure.left(20));
    QCOMPARE(w.ingred(0), measure.left(20) + QStringLiteral(" Salt"));
    w.open_line(0);
    w.tab(w.qty());
    w.type(w.measure(), measure);
    w.click_text();
    QCOMPARE(w.text("SELECT measure FROM recipe_2"), measure);
    QCOMPARE(w.ingred(0), measure + QStringLiteral(" Salt"));
}

void tst_ingredients::deleting_the_last_line_selects_the_new_last_line_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"cross", "menu", "key"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_ingredients::deleting_the_last_line_selects_the_new_last_line()
{
    QFETCH(QString, way);
    LineWindow w;
    for (int i = 0; i < 3; ++i)
        w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
    w.open();
    if (way == QLatin1String("cross")) {
        w.open_line(2);
        QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    } else {
        w.click_line(2, Qt::RightButton);
        QMenu& menu = w.main().commands().menu(QStringLiteral("mnu_ingred"));
        QVERIFY(menu.isVisible());
        QCOMPARE(w.main().commands().caption(QStringLiteral("mnu_ingred_del")),
                 QStringLiteral("Delete 'Line 2' from Soup"));
        menu.close();
        if (way == QLatin1String("menu"))
            w.trigger(QStringLiteral("mnu_ingred_del"));
        else
            QTest::keyClick(w.line(2).ingred, Qt::Key_Delete);
    }
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.page().state.sel_line, 1);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2 WHERE item = 'Line 2'"), 0);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 2);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_ingredients::deleting_another_line_than_the_last_keeps_the_selected_index_data()
{
    QTest::addColumn<int>("deleted");
    QTest::addColumn<int>("selected");
    QTest::newRow("first, selected") << 0 << 0;
    QTest::newRow("middle, selected") << 1 << 1;
    QTest::newRow("middle, first selected") << 1 << 0;
}

void tst_ingredients::deleting_another_line_than_the_last_keeps_the_selected_index()
{
    QFETCH(int, deleted);
    QFETCH(int, selected);
    LineWindow w;
    for (int i = 0; i < 3; ++i)
        w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
    w.open();
    w.open_line(selected);
    w.click_text();
    QCOMPARE(w.page().state.sel_line, selected);
    w.line(deleted).ingred->setFocus();
    QTest::keyClick(w.line(deleted).ingred, Qt::Key_Delete);
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.page().state.sel_line, selected);
}

void tst_ingredients::deleting_the_only_line_empties_the_page()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QCOMPARE(w.lines(), 0);
    QVERIFY(!w.control(QStringLiteral("ingred(0)")).isVisible());
    QVERIFY(!w.button("imgScratch").isVisible());
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
}

namespace {

/// Holds Delete down in a control, as a keyboard repeats it, until `presses` have come.
void hold_delete(QWidget& control, int presses)
{
    const auto send = [](QWidget& to, QEvent::Type type, bool repeated) {
        QKeyEvent event(type, Qt::Key_Delete, Qt::NoModifier, QString(), repeated);
        QCoreApplication::sendEvent(&to, &event);
    };
    const auto keyboard = [&control] {
        QWidget* focus = QApplication::focusWidget();
        return focus ? focus : control.window();
    };
    send(control, QEvent::KeyPress, false);
    for (int i = 1; i < presses; ++i) {
        send(*keyboard(), QEvent::KeyRelease, true);
        send(*keyboard(), QEvent::KeyPress, true);
    }
    send(*keyboard(), QEvent::KeyRelease, false);
}

} // namespace

void tst_ingredients::a_key_held_down_deletes_one_line_data()
{
    QTest::addColumn<bool>("focus_kept");
    QTest::newRow("as a user does") << false;
    QTest::newRow("repeats that come to the next line") << true;
}

void tst_ingredients::a_key_held_down_deletes_one_line()
{
    QFETCH(bool, focus_kept);
    LineWindow w;
    w.add_lines(w.recipe, 10);
    w.open();
    w.line(2).ingred->setFocus();
    hold_delete(*w.line(2).ingred, 5);
    QCOMPARE(w.lines(), 9);
    if (focus_kept) {
        for (int i = 0; i < 5; ++i) {
            QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(w.line(2).ingred, &repeat);
        }
    }
    QCOMPARE(w.lines(), 9);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 9);
}

void tst_ingredients::after_a_deletion_the_line_in_its_place_has_the_focus_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("deleted");
    for (const char* way : {"cross", "key of the cross", "menu", "key"}) {
        QTest::addRow("%s, first", way) << QString::fromLatin1(way) << 0;
        QTest::addRow("%s, last", way) << QString::fromLatin1(way) << 2;
    }
}

void tst_ingredients::after_a_deletion_the_line_in_its_place_has_the_focus()
{
    QFETCH(QString, way);
    QFETCH(int, deleted);
    LineWindow w;
    for (int i = 0; i < 3; ++i)
        w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
    w.open();
    if (way.endsWith(QLatin1String("cross"))) {
        w.open_line(deleted);
        if (way == QLatin1String("cross")) {
            QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
        } else {
            w.button("imgScratch").setFocus();
            QKeyEvent repeat(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(&w.button("imgScratch"), &repeat);
            QCOMPARE(w.lines(), 3);
            QTest::keyRelease(&w.button("imgScratch"), Qt::Key_Delete);
        }
    } else {
        w.click_line(deleted, Qt::RightButton);
        w.main().commands().menu(QStringLiteral("mnu_ingred")).close();
        w.line(deleted).ingred->setFocus();
        if (way == QLatin1String("menu"))
            w.trigger(QStringLiteral("mnu_ingred_del"));
        else
            QTest::keyClick(w.line(deleted).ingred, Qt::Key_Delete);
    }
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.main().focusWidget(), w.line(deleted == 0 ? 0 : 1).ingred);
}

void tst_ingredients::the_pointer_is_an_hourglass_while_the_cross_works_data()
{
    QTest::addColumn<bool>("is_new");
    QTest::newRow("a new line is dropped") << true;
    QTest::newRow("a line is deleted") << false;
}

void tst_ingredients::the_pointer_is_an_hourglass_while_the_cross_works()
{
    QFETCH(bool, is_new);
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    if (is_new)
        w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    else
        w.open_line(0);
    PointerWatch watch(w.qty());
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QCOMPARE(watch.at_hide, std::optional(Qt::WaitCursor));
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(w.lines(), is_new ? 1 : 0);
}

void tst_ingredients::a_deleted_line_closes_the_gap_in_the_order()
{
    LineWindow w;
    for (int i = 0; i < 3; ++i)
        w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
    w.open();
    w.open_line(1);
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QCOMPARE(w.ingred(1), QStringLiteral("Line 2"));
    QCOMPARE(w.number("SELECT \"order\" FROM recipe_2 WHERE item = 'Line 2'"), 1);
}

void tst_ingredients::an_error_while_inserting_ends_the_program_with_the_message()
{
    LineWindow w;
    Query(w.db(), "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item) VALUES (32767, 99, -1, 'x')").run();
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Salt"));
    {
        MessageScript script;
        script.expect(QStringLiteral("TarnWick"),
                      QStringLiteral("TarnWick has encountered an error\nand must shut down"));
        w.click_text();
    }
    QCOMPARE(w.ends, 1);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 0);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 1);
}

void tst_ingredients::a_line_added_without_the_editor_stands_on_the_page()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    LineDraft draft = LineDraft::added(w.recipe, 1);
    {
        MessageScript script;
        script.expect(QStringLiteral("Please provide"),
                      QStringLiteral("Please provide a name for \nyour non-stock item"));
        QVERIFY(!w.page().ingredients().add_ingred(draft));
    }
    QCOMPARE(w.lines(), 1);
    draft.set_text(IngredientField::item, QStringLiteral("Oil"));
    draft.set_text(IngredientField::qty, QStringLiteral("1"));
    QVERIFY(w.page().ingredients().add_ingred(draft));
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.ingred(1), QStringLiteral("1 Oil"));
    QCOMPARE(w.number("SELECT \"order\" FROM recipe_2 WHERE item = 'Oil'"), 1);
    QVERIFY(w.line(1).ingred->isVisible());
}

void tst_ingredients::a_recipe_that_has_gone_takes_no_line()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Salt"));
    Query(w.db(), "DELETE FROM recipe_1").run();
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
    QCOMPARE(w.lines(), 0);
}

void tst_ingredients::the_last_of_a_hundred_lines_can_be_added_and_deleted()
{
    LineWindow w;
    {
        Transaction transaction(w.db());
        for (int i = 0; i < 99; ++i)
            w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
        transaction.commit();
    }
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    const auto in_viewport = [&](QWidget& widget) {
        return w.page().frame4().rect().contains(
            QRect(widget.mapTo(&w.page().frame4(), QPoint(0, 0)), widget.size()));
    };
    QVERIFY(in_viewport(w.qty()));
    QVERIFY(w.page().frame4().geometry().contains(w.list().geometry()));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Hundredth"));
    QTest::keyClick(&w.item(), Qt::Key_Tab);
    QTest::keyClick(&w.desc(), Qt::Key_Tab);
    QCOMPARE(w.lines(), 100);
    QCOMPARE(w.number("SELECT \"order\" FROM recipe_2 WHERE item = 'Hundredth'"), 99);
    w.open_line(99);
    QVERIFY(in_viewport(w.qty()));
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QCOMPARE(w.lines(), 99);
    QCOMPARE(w.page().state.sel_line, 98);
}

void tst_ingredients::no_recipe_no_line()
{
    LineWindow w;
    Query(w.db(), "DELETE FROM recipe_1").run();
    w.load();
    w.page().add_ns_ingred();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 0);
}

QTEST_MAIN(tst_ingredients)
#include "tst_ingredients.moc"
