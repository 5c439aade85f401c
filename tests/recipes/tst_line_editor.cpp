#include "support/edit_request.h"
#include "recipes/line_fixture.h"

#include "household/status.h"

#include <QMessageBox>
#include <QPushButton>

using namespace tarnwick;

namespace {

const QString apostrophe_title = QStringLiteral("Valora info");
const QString apostrophe_text = QStringLiteral("Sorry - you can't put an apostrophe\nin the item name");
const QString missing_title = QStringLiteral("Ingredient name missing");
const QString missing_text = QStringLiteral("Please provide a name for your ingredient");
const QColor grey(164, 164, 164);

} // namespace

class tst_line_editor : public QObject {
    Q_OBJECT
private slots:
    void a_click_opens_the_boxes_over_the_line();
    void a_line_without_a_field_shows_its_placeholder();
    void a_placeholder_is_whole_in_a_narrow_window_data();
    void a_placeholder_is_whole_in_a_narrow_window();
    void the_page_greys_while_a_line_is_edited_and_blackens_after();
    void tab_through_all_boxes_ends_in_the_instructions_and_shows_the_joined_text();
    void tab_through_untouched_boxes_changes_nothing();
    void enter_in_the_comment_ends_the_edit();
    void a_changed_name_leaves_the_line_without_stock();
    void an_apostrophe_in_the_name_is_refused_and_removed();
    void an_apostrophe_in_the_other_boxes_is_kept();
    void a_stored_name_with_an_apostrophe_is_left_alone();
    void emptied_fields_are_stored_as_one_blank();
    void leaving_to_imgedit_does_not_close_the_editor();
    void imgedit_opens_the_stock_item();
    void imgedit_offers_a_non_stock_line_to_stock();
    void another_recipe_keeps_what_was_typed();
    void another_view_keeps_what_was_typed();
    void closing_the_window_keeps_what_was_typed();
    void another_type_size_keeps_what_was_typed();
    void a_check_box_acts_on_its_own_line_after_the_edit();
    void a_line_that_has_gone_is_not_opened();
    void a_line_that_goes_during_its_edit_is_passed_over();
    void long_and_foreign_texts_are_kept_data();
    void long_and_foreign_texts_are_kept();
    void a_pasted_text_becomes_one_line();
    void the_boxes_have_their_widths_data();
    void the_boxes_have_their_widths();
    void the_keys_of_the_cross_act_on_the_line();
};

void tst_line_editor::a_click_opens_the_boxes_over_the_line()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Oil"));
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk, -1, QStringLiteral("2"),
                               QStringLiteral("cup"), QStringLiteral("cold"));
    w.open();
    const QRect line = w.line(1).ingred->geometry();
    w.open_line(1);
    QCOMPARE(w.qty().text(), QStringLiteral("2"));
    QCOMPARE(w.measure().text(), QStringLiteral("cup"));
    QCOMPARE(w.item().text(), QStringLiteral("Milk"));
    QCOMPARE(w.desc().text(), QStringLiteral("cold"));
    QCOMPARE(w.desc().property("Tag").toString(), QStringLiteral("cold"));
    QCOMPARE(w.qty().x(), line.x());
    QCOMPARE(w.qty().y(), line.y());
    QCOMPARE(w.measure().x(), w.qty().geometry().right() + 1);
    QCOMPARE(w.item().x(), w.measure().geometry().right() + 1);
    QCOMPARE(w.desc().x(), w.item().geometry().right() + 1);
    QVERIFY(!w.line(1).ingred->isVisible());
    QVERIFY(w.line(0).ingred->isVisible());
    QVERIFY(w.button("imgedit").isVisible());
    QCOMPARE(w.button("imgedit").toolTip(), QStringLiteral("Edit stock item Milk"));
    QCOMPARE(w.button("imgScratch").property("Tag").toString(), QStringLiteral("edit"));
    QCOMPARE(w.page().frame3().property("Tag").toString(), QStringLiteral("1"));
    QCOMPARE(w.page().state.sel_line, 1);
    QCOMPARE(w.page().state.cur_line, 1);
    QVERIFY(!w.editor().draft().is_new());
    QCOMPARE(w.editor().draft().stored.key, key);
    QCOMPARE(w.editor().draft().edited.item_ref, milk);
}

void tst_line_editor::a_line_without_a_field_shows_its_placeholder()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QVERIFY(w.qty().text().isEmpty());
    QVERIFY(LineWindow::is_black_upright(w.qty()));
    QCOMPARE(w.measure().text(), QStringLiteral("(Measure)"));
    QVERIFY(LineWindow::is_red_italic(w.measure()));
    QCOMPARE(w.desc().text(), QStringLiteral("(Comment)"));
    QCOMPARE(w.desc().property("Tag").toString(), QStringLiteral("(Comment)"));
    QVERIFY(LineWindow::is_black_upright(w.item()));
    QCOMPARE(w.button("imgedit").toolTip(), QStringLiteral("Edit stock item"));
    w.tab(w.qty());
    QCOMPARE(w.qty().text(), QStringLiteral("(Qty)"));
    QVERIFY(LineWindow::is_red_italic(w.qty()));
    QVERIFY(w.measure().text().isEmpty());
    QVERIFY(LineWindow::is_black_upright(w.measure()));
}

void tst_line_editor::a_placeholder_is_whole_in_a_narrow_window_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {9, 10, 12})
        QTest::addRow("%d points", points) << points;
}

void tst_line_editor::a_placeholder_is_whole_in_a_narrow_window()
{
    QFETCH(int, points);
    LineWindow w;
    w.set_pref(QStringLiteral("font"), QString::number(points));
    w.add_line(w.recipe, QStringLiteral(" "));
    w.open({560, 480});
    w.open_line(0);
    w.tab(w.qty());
    w.tab(w.measure());
    for (const QLineEdit* box : {&w.qty(), &w.measure(), &w.desc()}) {
        QVERIFY(box == &w.desc() || !box->hasFocus());
        QVERIFY(box->text().endsWith(u')'));
        QVERIFY2(box->fontMetrics().horizontalAdvance(box->text()) + 6 <= box->width(), qPrintable(box->text()));
    }
}

void tst_line_editor::the_page_greys_while_a_line_is_edited_and_blackens_after()
{
    LineWindow w;
    for (int i = 0; i < 3; ++i)
        w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
    w.open();
    w.open_line(1);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(w.line(i).ingred->text_color(), grey);
        QVERIFY(w.line(i).ingred->toolTip().isEmpty());
    }
    w.click_text();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(w.line(i).ingred->text_color(), QColor(Qt::black));
        QCOMPARE(w.line(i).ingred->toolTip(), QStringLiteral("Non-stock item"));
        QVERIFY(w.line(i).ingred->isVisible());
    }
    QVERIFY(!w.qty().isVisible() && !w.measure().isVisible() && !w.item().isVisible() && !w.desc().isVisible());
    QVERIFY(!w.list().isVisible());
    QVERIFY(!w.button("imgScratch").isVisible());
}

void tst_line_editor::tab_through_all_boxes_ends_in_the_instructions_and_shows_the_joined_text()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    w.type(w.qty(), QStringLiteral("2"));
    w.tab(w.qty());
    QVERIFY(w.measure().hasFocus());
    w.type(w.measure(), QStringLiteral("pinches"));
    w.tab(w.measure());
    QVERIFY(w.item().hasFocus());
    w.tab(w.item());
    QVERIFY(w.desc().hasFocus());
    w.type(w.desc(), QStringLiteral("fine"));
    w.tab(w.desc());
    QVERIFY(w.Text1().hasFocus());
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.line(0).ingred->isVisible());
    QCOMPARE(w.ingred(0), QStringLiteral("2 pinches Salt fine"));
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("2"));
    QCOMPARE(w.stored(key, "measure"), QStringLiteral("pinches"));
    QCOMPARE(w.stored(key, "comment"), QStringLiteral("fine"));
}

void tst_line_editor::tab_through_untouched_boxes_changes_nothing()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Whole milk"), milk, -1, QStringLiteral("2"));
    w.open();
    w.open_line(0);
    for (QLineEdit* box : {&w.qty(), &w.measure(), &w.item(), &w.desc()})
        w.tab(*box);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.ingred(0), QStringLiteral("2 Whole milk"));
    QCOMPARE(w.stored(key, "item_ref"), QString::number(milk));
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Whole milk"));
    QCOMPARE(w.stored(key, "measure"), QStringLiteral(" "));
    QCOMPARE(w.page().rcp_item(0), QStringLiteral("Whole milk"));
    QCOMPARE(w.line(0).lite->picture_number(), 175 + 3);
}

void tst_line_editor::enter_in_the_comment_ends_the_edit()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.desc(), Qt::LeftButton);
    QTest::keyClicks(&w.desc(), QStringLiteral("coarse"));
    QTest::keyClick(&w.desc(), Qt::Key_Return);
    QVERIFY(w.Text1().hasFocus());
    QCOMPARE(w.ingred(0), QStringLiteral("Salt coarse"));
}

void tst_line_editor::a_changed_name_leaves_the_line_without_stock()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Oat drink"));
    w.tab(w.item());
    QCOMPARE(w.line(0).ingred->toolTip(), QStringLiteral("'Oat drink': Non-stock item"));
    QCOMPARE(w.line(0).lite->picture_number(), 171 + 3);
    w.tab(w.desc());
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Oat drink"));
    QCOMPARE(w.stored(key, "item_ref"), QStringLiteral("-1"));
    QCOMPARE(w.page().rcp_item(0), QStringLiteral("Oat drink"));
}

void tst_line_editor::an_apostrophe_in_the_name_is_refused_and_removed()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Bakers"));
    {
        MessageScript script;
        script.expect(apostrophe_title, apostrophe_text);
        QTest::keyClicks(&w.item(), QStringLiteral("'"));
    }
    QCOMPARE(w.item().text(), QStringLiteral("Bakers"));
    QCOMPARE(w.focused_after_message(), &w.item());
    {
        MessageScript script;
        script.expect(apostrophe_title, apostrophe_text);
        w.item().insert(QStringLiteral("' y'east"));
    }
    QCOMPARE(w.item().text(), QStringLiteral("Bakers yeast"));
    QCOMPARE(w.focused_after_message(), &w.item());
    w.click_text();
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Bakers yeast"));
}

void tst_line_editor::an_apostrophe_in_the_other_boxes_is_kept()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    const QString text = QStringLiteral("a'b''c");
    w.type(w.qty(), text);
    w.tab(w.qty());
    w.type(w.measure(), text);
    QTest::mouseClick(&w.desc(), Qt::LeftButton);
    w.type(w.desc(), text);
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "qty || measure || comment"), text + text + text);
}

void tst_line_editor::a_stored_name_with_an_apostrophe_is_left_alone()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Baker's yeast"));
    w.open();
    w.open_line(0);
    for (QLineEdit* box : {&w.qty(), &w.measure(), &w.item(), &w.desc()})
        w.tab(*box);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Baker's yeast"));
}

void tst_line_editor::emptied_fields_are_stored_as_one_blank()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("2"), QStringLiteral("cup"),
                               QStringLiteral("fine"));
    w.open();
    w.open_line(0);
    for (QLineEdit* box : {&w.qty(), &w.measure(), &w.desc()}) {
        QTest::mouseClick(box, Qt::LeftButton);
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
    }
    w.click_text();
    QCOMPARE(w.stored(key, "'[' || qty || '][' || measure || '][' || comment || ']'"), QStringLiteral("[ ][ ][ ]"));
    QCOMPARE(w.ingred(0), QStringLiteral("Salt"));
}

void tst_line_editor::leaving_to_imgedit_does_not_close_the_editor()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("5"));
    QTest::mousePress(&w.button("imgedit"), Qt::LeftButton);
    QVERIFY(w.button("imgedit").hasFocus());
    QVERIFY(w.editor().is_open());
    QVERIFY(w.qty().isVisible());
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("5"));
    QTest::mouseRelease(&w.button("imgedit"), Qt::LeftButton, {}, QPoint(-50, -50));
    QVERIFY(w.editor().is_open());
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.ingred(0), QStringLiteral("5 Salt"));
}

void tst_line_editor::imgedit_opens_the_stock_item()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("5"));
    {
        MessageScript script;
        script.drive([&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Editing Milk"));
            const EditRequest& request = request_of(dialog);
            QCOMPARE(request.mode, EditMode::recipe_item);
            QCOMPARE(request.line, key);
            QCOMPARE(request.item, milk);
            QVERIFY(!w.editor().is_open());
            dialog.reject();
        });
        QTest::mouseClick(&w.button("imgedit"), Qt::LeftButton);
    }
    QCOMPARE(w.ingred(0), QStringLiteral("5 Milk"));
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 1);
}

void tst_line_editor::imgedit_offers_a_non_stock_line_to_stock()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Saffron"));
    w.open();
    w.open_line(0);
    {
        MessageScript script;
        script.drive([&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding Saffron to stock"));
            auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)"));
            QVERIFY(ok);
            QTest::mouseClick(ok, Qt::LeftButton);
        });
        script.expect(QStringLiteral("Stock category"),
                      QStringLiteral("Are you sure you want to place\nSaffron in the 'OTHER' category?"),
                      Answer::yes);
        QTest::mouseClick(&w.button("imgedit"), Qt::LeftButton);
    }
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 1);
    QCOMPARE(w.stored(key, "item_ref"), w.text("SELECT key_id FROM items_1 WHERE item = 'Saffron'"));
    QCOMPARE(w.line(0).lite->picture_number(), 175 + 3);
}

void tst_line_editor::another_recipe_keeps_what_was_typed()
{
    LineWindow w;
    const Key other = w.add_recipe(QStringLiteral("Stew"), QStringLiteral("02"));
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Pepper"));
    w.click_node(rcp(other));
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 0);
    QCOMPARE(w.text("SELECT item || ' ' || r_ref || ' ' || \"order\" FROM recipe_2 WHERE item = 'Pepper'"),
             QStringLiteral("Pepper %1 1").arg(w.recipe));
    // A new line without a name is no line.
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::keyClicks(&w.qty(), QStringLiteral("2"));
    w.click_node(rcp(w.recipe));
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 2);
}

void tst_line_editor::another_view_keeps_what_was_typed()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("9"));
    QVERIFY(w.list().isVisible());
    w.trigger(QStringLiteral("mnu_view_shoplist"));
    QVERIFY(!w.editor().is_open());
    QVERIFY(!w.list().isVisible());
    QVERIFY(!w.qty().isVisible());
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("9"));
    w.trigger(QStringLiteral("mnu_view_rcpepages"));
    QCOMPARE(w.ingred(0), QStringLiteral("9 Salt"));
    QCOMPARE(w.line(0).ingred->text_color(), QColor(Qt::black));
}

void tst_line_editor::closing_the_window_keeps_what_was_typed()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.item().clear();
    QTest::mouseClick(&w.desc(), Qt::LeftButton);
    w.type(w.desc(), QStringLiteral("fine"));
    w.main().close();
    QCOMPARE(w.ends, 1);
    QCOMPARE(w.stored(key, "item || comment"), QStringLiteral("Saltfine"));
}

void tst_line_editor::another_type_size_keeps_what_was_typed()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("9"));
    w.trigger(QStringLiteral("mnu_more_lrg"));
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "qty"), QStringLiteral("9"));
    QCOMPARE(w.ingred(0), QStringLiteral("9 Salt"));
    w.open_line(0);
    QCOMPARE(w.qty().font().pointSize(), 12);
    QCOMPARE(w.list().font().pointSize(), 12);
}

void tst_line_editor::a_check_box_acts_on_its_own_line_after_the_edit()
{
    LineWindow w;
    const Key list = w.add_list(QStringLiteral("Shop"));
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_row(milk, list, false);
    const Key salt = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("1"));
    QTest::mouseClick(w.line(1).Check1, Qt::LeftButton);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(salt, "qty"), QStringLiteral("1"));
    QCOMPARE(w.ingred(0), QStringLiteral("1 Salt"));
    QCOMPARE(w.number("SELECT to_get FROM groc_1"), 1);
}

void tst_line_editor::a_line_that_has_gone_is_not_opened()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    Query(w.db(), "DELETE FROM recipe_2").run();
    w.click_line(0);
    QVERIFY(!w.editor().is_open());
    QVERIFY(!w.qty().isVisible());
    QVERIFY(w.line(0).ingred->isVisible());
    QCOMPARE(w.line(0).ingred->text_color(), QColor(Qt::black));
}

void tst_line_editor::a_line_that_goes_during_its_edit_is_passed_over()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    Query(w.db(), "DELETE FROM recipe_2").run();
    QTest::keyClicks(&w.qty(), QStringLiteral("9"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Oil"));
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
    w.page().set_recipe(w.recipe);
    QCOMPARE(w.lines(), 0);
}

void tst_line_editor::long_and_foreign_texts_are_kept_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("2,000 characters") << QString(2000, u'x');
    QTest::newRow("right to left") << QStringLiteral("מלח גס");
    QTest::newRow("emoji") << QStringLiteral("🧂🧂🧂🧂🧂🧂🧂🧂🧂🧂🧂");
    QTest::newRow("pattern signs") << QStringLiteral("100% _dark_");
}

void tst_line_editor::long_and_foreign_texts_are_kept()
{
    QFETCH(QString, text);
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    for (QLineEdit* box : {&w.qty(), &w.measure(), &w.item(), &w.desc()}) {
        QTest::mouseClick(box, Qt::LeftButton);
        box->selectAll();
        box->insert(text);
    }
    w.click_text();
    QVERIFY(!w.editor().is_open());
    const QString joined = QStringList(QList<QString>(4, text)).join(u' ');
    QCOMPARE(w.ingred(0), joined);
    for (const char* field : {"qty", "measure", "item", "comment"})
        QCOMPARE(w.stored(key, field), text);
    QVERIFY(w.Text1().y() > w.line(0).ingred->geometry().bottom());
    w.page().set_recipe(w.recipe);
    QCOMPARE(w.ingred(0), joined);
}

void tst_line_editor::a_pasted_text_becomes_one_line()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.desc(), Qt::LeftButton);
    w.desc().insert(QStringLiteral("one\r\ntwo\nthree"));
    w.click_text();
    QCOMPARE(w.ingred(0), QStringLiteral("Salt one two three"));
}

void tst_line_editor::the_boxes_have_their_widths_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("total");
    QTest::newRow("9") << 9 << 259;
    QTest::newRow("10") << 10 << 440;
    QTest::newRow("12") << 12 << 500;
}

void tst_line_editor::the_boxes_have_their_widths()
{
    QFETCH(int, size);
    QFETCH(int, total);
    LineWindow w;
    w.set_pref(QStringLiteral("font"), QString::number(size));
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open({1200, 700});
    w.open_line(0);
    const auto check_width = [&](const QLineEdit& box, const char* placeholder, int design) {
        constexpr int margin = 10;
        QFont italic = box.font();
        italic.setItalic(true);
        const int needed = QFontMetrics(italic).horizontalAdvance(QLatin1String(placeholder)) + margin;
        QCOMPARE(box.width(), std::max(total * design / 259, needed));
    };
    check_width(w.qty(), "(Qty)", 38);
    check_width(w.measure(), "(Measure)", 38);
    check_width(w.item(), "(Item)", 81);
    check_width(w.desc(), "(Comment)", 102);
    for (QLineEdit* box : {&w.qty(), &w.measure(), &w.item(), &w.desc()}) {
        QVERIFY(box->height() >= 19);
        QVERIFY(box->height() <= (size == 12 ? 27 : 20));
    }
    QVERIFY(w.measure().width() >= w.measure().fontMetrics().horizontalAdvance(w.measure().text()) + 4);
    QVERIFY(w.button("imgScratch").parentWidget()->x() > w.desc().geometry().right());
    QCOMPARE(w.button("imgedit").property("picture").toInt(), size == 12 ? 109 : 101);
}

void tst_line_editor::the_keys_of_the_cross_act_on_the_line()
{
    LineWindow w;
    for (int i = 0; i < 3; ++i)
        w.add_line(w.recipe, QStringLiteral("Line %1").arg(i));
    w.open();
    w.open_line(0);
    w.button("imgScratch").setFocus();
    QVERIFY(w.editor().is_open());
    QTest::keyClick(&w.button("imgScratch"), Qt::Key_Down);
    QCOMPARE(w.editor().index(), 1);
    w.button("imgScratch").setFocus();
    QTest::keyClick(&w.button("imgScratch"), Qt::Key_Delete);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2 WHERE item = 'Line 1'"), 0);
    QCOMPARE(w.lines(), 2);
}

QTEST_MAIN(tst_line_editor)
#include "tst_line_editor.moc"
