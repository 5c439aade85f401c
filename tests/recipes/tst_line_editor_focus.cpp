#include "recipes/line_fixture.h"
#include "household/status.h"
#include "support/shown_things.h"

#include <QMessageBox>

using namespace tarnwick;

namespace {

const QString missing_title = QStringLiteral("Ingredient name missing");
const QString missing_text = QStringLiteral("Please provide a name for your ingredient");
const QString missing_new = QStringLiteral("Please provide a name for your ingredient\n"
                                           "(or hit CANCEL to cancel adding ingredient)");
const QColor grey(164, 164, 164);

/// Gives the keyboard to the pick list under the quantity box, as Down there does.
void go_into_the_list(LineWindow& w)
{
    QTest::mouseClick(&w.qty(), Qt::LeftButton);
    QVERIFY(w.list().isVisible());
    QTest::keyClick(&w.qty(), Qt::Key_Down);
    QVERIFY(w.list().hasFocus());
}

void clear_the_name(LineWindow& w)
{
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.item().selectAll();
    QTest::keyClick(&w.item(), Qt::Key_Delete);
}

} // namespace

class tst_line_editor_focus : public QObject {
    Q_OBJECT
private slots:
    void a_press_on_the_tree_from_the_list_only_finishes_the_edit();
    void a_press_on_the_tree_from_the_list_asks_for_a_missing_name_once();
    void a_refused_press_on_another_line_from_the_list_goes_nowhere();
    void a_refused_press_on_the_instructions_from_the_list_keeps_the_help_text();
    void a_press_on_another_line_from_the_list_closes_and_opens_there();
    void leaving_the_list_writes_the_box_it_belongs_to();
    void the_open_list_stays_at_its_box_while_the_page_scrolls();
    void a_list_that_scrolls_out_of_view_gives_the_keyboard_back();
    void after_the_message_the_item_box_is_entered_data();
    void after_the_message_the_item_box_is_entered();
    void after_the_message_the_empty_item_box_of_a_new_line_is_entered();
    void after_a_refused_apostrophe_the_item_box_is_entered();
    void cancel_in_the_item_editor_enters_the_comment();
    void another_box_is_entered_when_the_window_comes_back_to_it();
    void the_same_box_keeps_its_caret_when_the_window_comes_back();
    void a_click_on_another_line_closes_and_opens_there();
    void a_click_on_a_greyed_line_only_blackens_the_page();
    void a_refused_click_on_another_line_goes_nowhere();
    void a_press_on_the_tree_only_finishes_the_edit();
    void clearing_the_item_box_brings_the_old_name_back_after_the_message();
    void right_arrow_at_the_end_goes_on_and_ends_in_the_instructions();
    void left_arrow_at_the_start_moves_back_and_right_arrow_in_the_middle_does_not();
    void left_arrow_moves_back_from_the_comment_to_the_quantity();
    void a_label_editor_opens_before_the_question_of_a_nameless_line_comes_data();
    void a_label_editor_opens_before_the_question_of_a_nameless_line_comes();
    void no_question_comes_once_the_box_has_the_focus_again();
};

void tst_line_editor_focus::a_press_on_the_tree_from_the_list_only_finishes_the_edit()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("8"));
    go_into_the_list(w);
    w.click_item(milk);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("8"));
    QCOMPARE(w.ingred(0), QStringLiteral("8 Salt"));
    QVERIFY(!w.control(QStringLiteral("flt_btn(1)")).isVisible());
    w.click_item(milk);
    QVERIFY(w.control(QStringLiteral("flt_btn(1)")).isVisible());
}

void tst_line_editor_focus::a_press_on_the_tree_from_the_list_asks_for_a_missing_name_once()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    go_into_the_list(w);
    {
        MessageScript script;
        script.expect(missing_title, missing_new, Answer::ok);
        w.click_item(milk);
        QCoreApplication::processEvents();
    }
    QVERIFY(w.editor().is_open());
    QVERIFY(!w.list().isVisible());
    QVERIFY(!w.control(QStringLiteral("flt_btn(1)")).isVisible());
    QCOMPARE(w.focused_after_message(), &w.item());
}

void tst_line_editor_focus::a_refused_press_on_another_line_from_the_list_goes_nowhere()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.add_line(w.recipe, QStringLiteral("Oil"));
    w.open();
    w.open_line(1);
    clear_the_name(w);
    go_into_the_list(w);
    {
        MessageScript script;
        script.expect(missing_title, missing_text);
        QTest::mousePress(w.line(0).ingred, Qt::LeftButton, {}, QPoint(5, 5)); // the message takes the release
    }
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.editor().index(), 1);
    QVERIFY(!w.editor().lines_greyed());
    QCOMPARE(w.focused_after_message(), &w.item());
    QCOMPARE(w.line(0).ingred->text_color(), grey);
    w.click_line(0);
    QCOMPARE(w.editor().index(), 0);
}

void tst_line_editor_focus::a_refused_press_on_the_instructions_from_the_list_keeps_the_help_text()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    Query(w.db(), "UPDATE recipe_1 SET r_body = ?", help_text()).run();
    w.open();
    QVERIFY(w.Text1().is_help_text());
    w.open_line(0);
    clear_the_name(w);
    go_into_the_list(w);
    {
        MessageScript script;
        script.expect(missing_title, missing_text);
        w.click_text();
    }
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.focused_after_message(), &w.item());
    QVERIFY(w.Text1().is_help_text());
}

void tst_line_editor_focus::a_press_on_another_line_from_the_list_closes_and_opens_there()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.add_line(w.recipe, QStringLiteral("Oil"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("6"));
    go_into_the_list(w);
    w.open_line(1);
    QCOMPARE(w.ingred(0), QStringLiteral("6 Salt"));
    QCOMPARE(w.item().text(), QStringLiteral("Oil"));
}

void tst_line_editor_focus::leaving_the_list_writes_the_box_it_belongs_to()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("6"));
    go_into_the_list(w);
    QCOMPARE(w.stored(key, "qty"), QStringLiteral(" "));
    QTest::mousePress(&w.button("imgedit"), Qt::LeftButton);
    QVERIFY(w.button("imgedit").hasFocus());
    QTest::mouseRelease(&w.button("imgedit"), Qt::LeftButton, {}, QPoint(-50, -50));
    QVERIFY(w.editor().is_open());
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("6"));
}

namespace {

/// A page so long that it scrolls by one row at a step of its bar.
void open_long_page(LineWindow& w)
{
    w.add_lines(w.recipe, 40);
    w.open({1000, 500});
    QVERIFY(w.page().scroll_bar().isVisible());
}

bool stands_at_its_box(LineWindow& w, const QLineEdit& box)
{
    const QRect list = w.list().geometry();
    const QRect around(box.mapTo(w.list().parentWidget(), QPoint(0, 0)), box.size());
    return list.top() == around.bottom() + 1 || list.bottom() + 1 == around.top();
}

} // namespace

void tst_line_editor_focus::the_open_list_stays_at_its_box_while_the_page_scrolls()
{
    LineWindow w;
    open_long_page(w);
    w.open_line(5);
    QVERIFY(w.list().isVisible());
    QVERIFY(stands_at_its_box(w, w.qty()));
    const int y = w.list().y();
    w.page().scroll_bar().setValue(w.page().scroll_bar().value() + 10);
    QVERIFY(w.list().isVisible());
    QVERIFY(w.list().y() != y);
    QVERIFY(stands_at_its_box(w, w.qty()));
}

void tst_line_editor_focus::a_list_that_scrolls_out_of_view_gives_the_keyboard_back()
{
    LineWindow w;
    open_long_page(w);
    w.open_line(0);
    go_into_the_list(w);
    w.page().scroll_bar().setValue(100);
    QVERIFY(!w.list().isVisible());
    QVERIFY(w.editor().is_open());
    QVERIFY(w.qty().hasFocus());
    QTest::keyClicks(&w.qty(), QStringLiteral("3"));
    w.page().scroll_bar().setValue(0);
    QCOMPARE(w.qty().text(), QStringLiteral("3"));
}

void tst_line_editor_focus::after_the_message_the_item_box_is_entered_data()
{
    QTest::addColumn<bool>("from_comment");
    QTest::newRow("left directly") << false;
    QTest::newRow("left from the comment") << true;
}

void tst_line_editor_focus::after_the_message_the_item_box_is_entered()
{
    QFETCH(bool, from_comment);
    LineWindow w;
    w.add_item(QStringLiteral("Salted butter"), 0);
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    clear_the_name(w);
    QVERIFY(!w.list().isVisible());
    if (from_comment) {
        w.tab(w.item());
        QVERIFY(w.desc().hasFocus());
    }
    {
        MessageScript script;
        script.expect(missing_title, missing_text);
        if (from_comment)
            w.tab(w.desc());
        else
            w.click_text();
    }
    QCOMPARE(w.focused_after_message(), &w.item());
    QCOMPARE(w.item().text(), QStringLiteral("Salt"));
    QCOMPARE(w.item().cursorPosition(), 4);
    QVERIFY(!w.item().hasSelectedText());
    QVERIFY(w.list().isVisible());
    QCOMPARE(w.list().content(), PickList::Content::stock_items);
    QCOMPARE(w.list().text(0), QStringLiteral("Salted butter"));
    QVERIFY(stands_at_its_box(w, w.item()));
    QCOMPARE(w.list().x(), w.item().mapTo(w.list().parentWidget(), QPoint(0, 0)).x() - 1);
}

void tst_line_editor_focus::after_the_message_the_empty_item_box_of_a_new_line_is_entered()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(w.list().isVisible());
    {
        MessageScript script;
        script.expect(missing_title, missing_new, Answer::ok);
        w.click_text();
    }
    QCOMPARE(w.focused_after_message(), &w.item());
    QVERIFY(w.item().text().isEmpty());
    QVERIFY(LineWindow::is_black_upright(w.item()));
    QVERIFY(!w.list().isVisible());
    QTest::keyClicks(&w.item(), QStringLiteral("Eggs"));
    w.click_text();
    QCOMPARE(w.ingred(0), QStringLiteral("Eggs"));
}

void tst_line_editor_focus::after_a_refused_apostrophe_the_item_box_is_entered()
{
    LineWindow w;
    w.add_item(QStringLiteral("Bakers yeast"), 0);
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Bakers"));
    QTest::keyClick(&w.item(), Qt::Key_Home);
    {
        MessageScript script;
        script.expect(QStringLiteral("Valora info"),
                      QStringLiteral("Sorry - you can't put an apostrophe\nin the item name"));
        QTest::keyClicks(&w.item(), QStringLiteral("'"));
    }
    QCOMPARE(w.focused_after_message(), &w.item());
    QCOMPARE(w.item().text(), QStringLiteral("Bakers"));
    QCOMPARE(w.item().cursorPosition(), 6);
    QVERIFY(w.list().isVisible());
    QCOMPARE(w.list().text(0), QStringLiteral("Bakers yeast"));
}

void tst_line_editor_focus::cancel_in_the_item_editor_enters_the_comment()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("2"), QStringLiteral(" "),
               QStringLiteral("fine"));
    w.open();
    w.open_line(0);
    QVERIFY(w.list().isVisible());
    {
        MessageScript script;
        script.drive([](QDialog& dialog) { dialog.reject(); });
        w.trigger(QStringLiteral("mnu_edit_add_stck"));
    }
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.focused_after_message(), &w.desc());
    QCOMPARE(w.desc().cursorPosition(), 4);
    QVERIFY(!w.list().isVisible());
    QCOMPARE(w.list().count(), 0);
}

void tst_line_editor_focus::another_box_is_entered_when_the_window_comes_back_to_it()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("2"), QStringLiteral(" "),
               QStringLiteral("fine"));
    w.open();
    w.open_line(0);
    w.desc().setFocus(Qt::ActiveWindowFocusReason);
    QVERIFY(w.desc().hasFocus());
    QCOMPARE(w.desc().cursorPosition(), 4);
    QVERIFY(!w.list().isVisible());
}

void tst_line_editor_focus::the_same_box_keeps_its_caret_when_the_window_comes_back()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("12"));
    w.open();
    w.open_line(0);
    QTest::keyClick(&w.qty(), Qt::Key_Home);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(!w.qty().hasFocus());
    QCOMPARE(w.focused_after_message(), &w.qty());
    QCOMPARE(w.qty().cursorPosition(), 0);
    QVERIFY(w.list().isVisible());
}

void tst_line_editor_focus::a_click_on_another_line_closes_and_opens_there()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.add_line(w.recipe, QStringLiteral("Oil"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("6"));
    w.open_line(1);
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("6"));
    QCOMPARE(w.ingred(0), QStringLiteral("6 Salt"));
    QCOMPARE(w.item().text(), QStringLiteral("Oil"));
    QVERIFY(w.line(0).ingred->isVisible());
}

void tst_line_editor_focus::a_click_on_a_greyed_line_only_blackens_the_page()
{
    LineWindow w;
    const Key oil = w.add_line(w.recipe, QStringLiteral("Oil"));
    const Key salt = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(1);
    QTest::keyClicks(&w.qty(), QStringLiteral("5"));
    // The click reaches the page before its window gets the keyboard back.
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QCOMPARE(w.line(0).ingred->text_color(), grey);
    w.click_line(0);
    QVERIFY(!w.editor().is_open());
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(w.line(i).ingred->text_color(), QColor(Qt::black));
        QCOMPARE(w.line(i).ingred->toolTip(), QStringLiteral("Non-stock item"));
    }
    QCOMPARE(w.stored(salt, "qty"), QStringLiteral("5"));
    QCOMPARE(w.stored(oil, "qty"), QStringLiteral(" "));
    w.focused_after_message();
    w.open_line(0);
}

void tst_line_editor_focus::a_refused_click_on_another_line_goes_nowhere()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.add_line(w.recipe, QStringLiteral("Oil"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.item().clear();
    {
        MessageScript script;
        script.expect(missing_title, missing_text);
        w.click_line(1);
    }
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.editor().index(), 0);
    QCOMPARE(w.focused_after_message(), &w.item());
    QCOMPARE(w.line(1).ingred->text_color(), grey);
    w.click_line(1);
    QCOMPARE(w.editor().index(), 1);
}

void tst_line_editor_focus::a_press_on_the_tree_only_finishes_the_edit()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("8"));
    TreeView& tree = w.main().stock_tree().view();
    QTreeWidgetItem* node = tree.node(QStringLiteral("item") + key_str(milk));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(node).center());
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("8"));
    QCOMPARE(w.ingred(0), QStringLiteral("8 Salt"));
    QVERIFY(!w.control(QStringLiteral("flt_btn(1)")).isVisible());
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(node).center());
    QVERIFY(w.control(QStringLiteral("flt_btn(1)")).isVisible());
}

void tst_line_editor_focus::clearing_the_item_box_brings_the_old_name_back_after_the_message()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_item(QStringLiteral("Whole milk powder"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Whole milk"), milk);
    w.open();
    w.open_line(0);
    clear_the_name(w);
    {
        MessageScript script;
        script.expect(missing_title, missing_text, Answer::ok, [](QDialog& dialog) {
            auto& message = dynamic_cast<QMessageBox&>(dialog);
            QCOMPARE(message.icon(), QMessageBox::Information);
            QCOMPARE(message.standardButtons(), QMessageBox::Ok);
        });
        w.click_text();
    }
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.focused_after_message(), &w.item());
    QCOMPARE(w.item().text(), QStringLiteral("Whole milk"));
    QCOMPARE(w.item().cursorPosition(), 10);
    QVERIFY(LineWindow::is_black_upright(w.item()));
    QVERIFY(w.list().isVisible());
    QCOMPARE(w.list().text(0), QStringLiteral("Whole milk powder"));
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.ingred(0), QStringLiteral("Whole milk"));
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Whole milk"));
    QCOMPARE(w.stored(key, "item_ref"), QString::number(milk));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
}

void tst_line_editor_focus::right_arrow_at_the_end_goes_on_and_ends_in_the_instructions()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    const std::array<QLineEdit*, 4> chain{&w.qty(), &w.measure(), &w.item(), &w.desc()};
    for (size_t i = 0; i < chain.size(); ++i) {
        QVERIFY(chain[i]->hasFocus());
        QTest::keyClick(chain[i], Qt::Key_End);
        QTest::keyClick(chain[i], Qt::Key_Right);
    }
    QVERIFY(w.Text1().hasFocus());
    QVERIFY(!w.editor().is_open());
}

void tst_line_editor_focus::left_arrow_at_the_start_moves_back_and_right_arrow_in_the_middle_does_not()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("12"));
    w.open();
    w.open_line(0);
    w.tab(w.qty());
    QTest::keyClick(&w.measure(), Qt::Key_Left);
    QVERIFY(w.qty().hasFocus());
    QCOMPARE(w.qty().cursorPosition(), 2);
    QTest::keyClick(&w.qty(), Qt::Key_Left);
    QVERIFY(w.qty().hasFocus());
    QTest::keyClick(&w.qty(), Qt::Key_Right);
    QVERIFY(w.qty().hasFocus());
    QCOMPARE(w.qty().cursorPosition(), 2);
    QTest::keyClick(&w.qty(), Qt::Key_Right);
    QVERIFY(w.measure().hasFocus());
    QTest::keyClick(&w.measure(), Qt::Key_Left);
    QTest::keyClick(&w.qty(), Qt::Key_Home);
    QTest::keyClick(&w.qty(), Qt::Key_Left);
    QVERIFY(w.qty().hasFocus());
}

void tst_line_editor_focus::left_arrow_moves_back_from_the_comment_to_the_quantity()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("12"), QStringLiteral("cup"),
               QStringLiteral("fine"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.desc(), Qt::LeftButton);
    const std::array<QLineEdit*, 4> chain{&w.desc(), &w.item(), &w.measure(), &w.qty()};
    for (size_t i = 0; i + 1 < chain.size(); ++i) {
        QVERIFY(chain[i]->hasFocus());
        QCOMPARE(chain[i]->cursorPosition(), int(chain[i]->text().size()));
        QTest::keyClick(chain[i], Qt::Key_Left);
        QVERIFY(chain[i]->hasFocus());
        QTest::keyClick(chain[i], Qt::Key_Home);
        QTest::keyClick(chain[i], Qt::Key_Left);
        QVERIFY(chain[i + 1]->hasFocus());
    }
    QVERIFY(w.editor().is_open());
}

void tst_line_editor_focus::a_label_editor_opens_before_the_question_of_a_nameless_line_comes_data()
{
    QTest::addColumn<bool>("by_category");
    QTest::addColumn<Answer>("answer");
    for (const bool by_category : {false, true}) {
        const char* node = by_category ? "category" : "item";
        QTest::addRow("%s, OK", node) << by_category << Answer::ok;
        QTest::addRow("%s, Cancel", node) << by_category << Answer::cancel;
    }
}

void tst_line_editor_focus::a_label_editor_opens_before_the_question_of_a_nameless_line_comes()
{
    QFETCH(bool, by_category);
    QFETCH(Answer, answer);
    StockBesidePage w;
    if (by_category)
        w.set_pref(QStringLiteral("sort"), QStringLiteral("cat"));
    const Key produce = w.add_category(QStringLiteral("Produce"));
    const Key milk = w.add_item(QStringLiteral("Milk"), produce);
    w.open();
    TreeView& stock = w.main().stock_tree().view();
    QTreeWidgetItem* node = by_category ? stock.node(QStringLiteral("cat") + key_str(produce))
                                        : stock.node(QStringLiteral("item") + key_str(milk));
    QVERIFY(node);
    stock.select(node);
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::keyClicks(&w.qty(), QStringLiteral("2"));
    {
        MessageScript script;
        script.expect(missing_title, missing_new, answer);
        QTest::keyClick(&stock, Qt::Key_F2);
        QCOMPARE(script.left(), 1);
        auto* label = stock.findChild<QLineEdit*>();
        QVERIFY(label);
        QVERIFY(label->isVisible());
    }
    QCOMPARE(w.editor().is_open(), answer == Answer::ok);
    QCOMPARE(w.lines(), answer == Answer::ok ? 1 : 0);
    if (answer == Answer::ok) {
        QCOMPARE(w.focused_after_message(), &w.item());
        QCOMPARE(w.qty().text(), QStringLiteral("2"));
    }
    QCOMPARE(node->text(0), by_category ? QStringLiteral("Produce") : QStringLiteral("Milk"));
}

void tst_line_editor_focus::no_question_comes_once_the_box_has_the_focus_again()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    const MessageScript no_question;
    w.Text1().setFocus();
    w.measure().setFocus();
    QCoreApplication::processEvents();
    QVERIFY(w.editor().is_open());
    QVERIFY(w.measure().hasFocus());
}

QTEST_MAIN(tst_line_editor_focus)
#include "tst_line_editor_focus.moc"
