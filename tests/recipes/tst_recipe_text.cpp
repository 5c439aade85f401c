#include "recipes/recipe_fixture.h"

using namespace tarnwick;

namespace {

const QString words = QStringLiteral("peeled, seeded and cut into small cubes with a sharp knife ");

} // namespace

class tst_recipe_text : public QObject {
    Q_OBJECT

private slots:
    void the_help_text_has_a_border_and_goes_at_the_first_click();
    void leaving_the_emptied_box_untouched_keeps_the_help_text_stored();
    void an_emptied_body_is_stored_as_the_help_text_letter_by_letter();
    void a_help_text_with_bare_line_feeds_is_known_as_well();
    void typing_an_oven_temperature_adds_the_degree_sign_data();
    void typing_an_oven_temperature_adds_the_degree_sign();
    void one_backspace_takes_degree_sign_and_digit_data();
    void one_backspace_takes_degree_sign_and_digit();
    void backspace_in_the_middle_takes_one_character();
    void border_follows_the_text_at_key_up();
    void cursor_keys_mark_the_body_as_edited();
    void line_ends_are_stored_as_crlf_and_shown_as_lines();
    void right_to_left_text_emoji_and_hard_blanks_survive_a_save();
    void a_body_of_a_hundred_thousand_characters_is_edited();
    void leaving_the_body_saves();
    void leaving_the_title_saves_and_the_tree_followed_each_key();
    void an_empty_name_gives_the_message_and_keeps_the_focus();
    void the_click_that_left_an_empty_name_selects_nothing();
    void a_name_of_blanks_is_stored_as_an_empty_name();
    void an_apostrophe_typed_into_the_title_stays();
    void deactivating_the_window_saves();
    void closing_the_window_saves();
    void a_change_of_the_view_saves();
    void an_unedited_page_writes_nothing();
    void loading_another_recipe_keeps_what_was_typed();
    void typing_a_name_never_renames_a_category();
    void a_vanished_recipe_is_not_written();
};

void tst_recipe_text::the_help_text_has_a_border_and_goes_at_the_first_click()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"), help_text());
    window.open_recipe(QStringLiteral("Stew"), QStringLiteral("11"));
    QCOMPARE(window.Text1().property("BorderStyle").toInt(), 0);
    window.page().set_recipe(recipe);
    QCOMPARE(window.Text1().property("BorderStyle").toInt(), 1);
    QVERIFY(!window.Text1().toPlainText().isEmpty());
    QTest::mouseClick(window.Text1().viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QVERIFY(window.Text1().hasFocus());
    QCOMPARE(window.Text1().toPlainText(), QString());
    QCOMPARE(window.Text1().property("BorderStyle").toInt(), 1);
    QTest::mouseClick(&window.title(), Qt::LeftButton);
    QCOMPARE(window.Text1().placeholderText(), help_text());
    QCOMPARE(window.Text1().property("BorderStyle").toInt(), 1);
}

void tst_recipe_text::leaving_the_emptied_box_untouched_keeps_the_help_text_stored()
{
    RecipeWindow window;
    const Key recipe = window.open_recipe(QStringLiteral("Soup"), QStringLiteral("11"), help_text());
    window.focus(window.Text1());
    window.focus(window.title());
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), help_text());
    QCOMPARE(window.Text1().toPlainText(), QString());
    window.page().set_recipe(recipe);
    QVERIFY(window.Text1().is_help_text());
}

void tst_recipe_text::an_emptied_body_is_stored_as_the_help_text_letter_by_letter()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&window.Text1(), Qt::Key_Delete);
    window.focus(window.title());
    QCOMPARE(
        window.text("SELECT r_body FROM recipe_1"),
        QStringLiteral("Enter your recipe instructions here. \r\n\r\nTo add to the list of ingredients, click the "
                       "ingredient button on the toolbar (fork and knife icon labeled INGRDNT) or select the "
                       "stock item you want to add from the stock list: Drag and drop your item anywhere on the "
                       "recipe page. \r\n\r\nTip: add ingredients quickly with the shortcut key: (CTRL + i)"));
}

void tst_recipe_text::a_help_text_with_bare_line_feeds_is_known_as_well()
{
    RecipeWindow window;
    QString bare = help_text();
    bare.remove(u'\r');
    window.open_recipe(QStringLiteral("Soup"), QStringLiteral("11"), bare);
    QCOMPARE(window.Text1().property("BorderStyle").toInt(), 1);
}

void tst_recipe_text::typing_an_oven_temperature_adds_the_degree_sign_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    for (const char* degrees : {"300", "325", "350", "375", "400", "425", "450"})
        QTest::newRow(degrees) << QString::fromLatin1(degrees) << QString::fromLatin1(degrees) + QChar(186);
    QTest::newRow("310") << QStringLiteral("310") << QStringLiteral("310");
    QTest::newRow("in a sentence") << QStringLiteral("Bake at 350 for an hour")
                                   << QStringLiteral("Bake at 350\u00ba for an hour");
}

void tst_recipe_text::typing_an_oven_temperature_adds_the_degree_sign()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), typed);
    QCOMPARE(window.Text1().toPlainText(), shown);
    QVERIFY(window.Text1().textCursor().atEnd());
}

void tst_recipe_text::one_backspace_takes_degree_sign_and_digit_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("plain") << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("with Shift") << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void tst_recipe_text::one_backspace_takes_degree_sign_and_digit()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("350"));
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350\u00ba"));
    QTest::keyClick(&window.Text1(), Qt::Key_Backspace, modifiers);
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("35"));
    QVERIFY(window.Text1().textCursor().atEnd());
}

void tst_recipe_text::backspace_in_the_middle_takes_one_character()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("350 min"));
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&window.Text1(), Qt::Key_Left);
    QTest::keyClick(&window.Text1(), Qt::Key_Backspace);
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350 min"));
}

void tst_recipe_text::border_follows_the_text_at_key_up()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyPress(&window.Text1(), 'a');
    QCOMPARE(window.Text1().border_style(), 1);
    QTest::keyRelease(&window.Text1(), 'a');
    QCOMPARE(window.Text1().border_style(), 0);
    QTest::keyClick(&window.Text1(), Qt::Key_Backspace);
    QCOMPARE(window.Text1().border_style(), 1);
}

void tst_recipe_text::cursor_keys_mark_the_body_as_edited()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    QCOMPARE(window.tag(QStringLiteral("Text1")), QStringLiteral("clean"));
    QCOMPARE(window.tag(QStringLiteral("Frame1")), QStringLiteral("clean"));
    window.focus(window.Text1());
    QCOMPARE(window.tag(QStringLiteral("Text1")), QStringLiteral("clean"));
    QTest::keyClick(&window.Text1(), Qt::Key_Left);
    QCOMPARE(window.tag(QStringLiteral("Text1")), QStringLiteral("edited"));
}

void tst_recipe_text::line_ends_are_stored_as_crlf_and_shown_as_lines()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), QStringLiteral("a\nb\r\nc"));
    QCOMPARE(window.Text1().document()->blockCount(), 3);
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), QStringLiteral("a\nb\r\nc"));
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&window.Text1(), Qt::Key_Return);
    QTest::keyClicks(&window.Text1(), QStringLiteral("d"));
    window.focus(window.title());
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), QStringLiteral("a\r\nb\r\nc\r\nd"));
}

void tst_recipe_text::right_to_left_text_emoji_and_hard_blanks_survive_a_save()
{
    const QString body = QStringLiteral("\u05e9\u05dc\u05d5\u05dd 2\u00a0cups \U0001F35D caf\u00e9");
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"), body);
    window.add_line(recipe, QStringLiteral("\u05de\u05dc\u05d7 \U0001F9C2"));
    window.load();
    window.page().set_recipe(recipe);
    QCOMPARE(window.ingred(0), QStringLiteral("\u05de\u05dc\u05d7 \U0001F9C2"));
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&window.Text1(), QStringLiteral("!"));
    window.focus(window.title());
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), body + u'!');
}

void tst_recipe_text::a_body_of_a_hundred_thousand_characters_is_edited()
{
    RecipeWindow window;
    QString body = words.repeated(100'000 / static_cast<int>(words.size()) + 1).left(99'999) + u'.';
    for (qsizetype i = 400; i < body.size(); i += 401)
        body[i] = u'\n';
    window.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    window.open_recipe(QStringLiteral("Saga"), QStringLiteral("15"), body);
    QVERIFY(window.page().get_scroll_scale() <= 32767);
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&window.Text1(), QStringLiteral("end"));
    window.focus(window.title());
    const QString stored = window.text("SELECT r_body FROM recipe_1");
    QVERIFY(stored == with_crlf(body + QStringLiteral("end")));
}

void tst_recipe_text::leaving_the_body_saves()
{
    RecipeWindow window;
    const Key recipe = window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&window.Text1(), QStringLiteral(" Then don't stop."));
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), QStringLiteral("Stir."));
    window.focus(window.tree());
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), QStringLiteral("Stir. Then don't stop."));
    QVERIFY(!window.edited());
    QCOMPARE(window.main().shared.cur_recipe, recipe);
}

void tst_recipe_text::leaving_the_title_saves_and_the_tree_followed_each_key()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    window.load();
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_End);
    QTest::keyClicks(&window.title(), QStringLiteral("s"));
    QCOMPARE(window.tag(QStringLiteral("Frame1")), QStringLiteral("edited"));
    QCOMPARE(window.main().recipe_tree().recipe_node(recipe)->text(0), QStringLiteral("Pies"));
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Pie"));
    window.focus(window.Text1());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Pies"));
    QCOMPARE(window.tag(QStringLiteral("Frame1")), QStringLiteral("clean"));
}

void tst_recipe_text::an_empty_name_gives_the_message_and_keeps_the_focus()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    window.load();
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&window.title(), Qt::Key_Delete);
    {
        MessageScript script;
        script.expect(QStringLiteral("Recipe name"),
                      QStringLiteral("Recipe must have a name\n(Cannot leave it blank)"));
        QTest::mouseClick(window.Text1().viewport(), Qt::LeftButton);
        QTRY_COMPARE(script.left(), 0);
    }
    QCOMPARE(window.title().text(), QStringLiteral("Recipe"));
    window.main().activateWindow();
    QTRY_VERIFY(window.title().hasFocus());
    window.focus(window.Text1());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Recipe"));
}

void tst_recipe_text::the_click_that_left_an_empty_name_selects_nothing()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    const Key cake = window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(pie));
    window.load();
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&window.title(), Qt::Key_Delete);
    {
        MessageScript script;
        script.expect(QStringLiteral("Recipe name"),
                      QStringLiteral("Recipe must have a name\n(Cannot leave it blank)"));
        window.click_node(QStringLiteral("rcp") + key_str(cake));
        QTRY_COMPARE(script.left(), 0);
    }
    QCOMPARE(window.tag(QStringLiteral("title")), QString::number(pie));
    window.click_node(QStringLiteral("rcp") + key_str(cake));
    QCOMPARE(window.tag(QStringLiteral("title")), QString::number(cake));
    QCOMPARE(window.text("SELECT r_name FROM recipe_1 WHERE key_id = 1"), QStringLiteral("Recipe"));
}

void tst_recipe_text::a_name_of_blanks_is_stored_as_an_empty_name()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    window.load();
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&window.title(), QStringLiteral("  "));
    const MessageScript no_message;
    window.focus(window.Text1());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QString());
    QVERIFY(!window.title().hasFocus());
}

void tst_recipe_text::an_apostrophe_typed_into_the_title_stays()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    window.load();
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&window.title(), QStringLiteral("Gran's pie"));
    window.focus(window.Text1());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Gran's pie"));
}

void tst_recipe_text::deactivating_the_window_saves()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("x"));
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(window.text("SELECT r_body FROM recipe_1").contains(u'x'));
    QVERIFY(!window.edited());
}

void tst_recipe_text::closing_the_window_saves()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("x"));
    window.main().close();
    QCOMPARE(window.ends, 1);
    QVERIFY(window.text("SELECT r_body FROM recipe_1").contains(u'x'));
}

void tst_recipe_text::a_change_of_the_view_saves()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("x"));
    window.trigger(QStringLiteral("mnu_view_shoplist"));
    QVERIFY(window.text("SELECT r_body FROM recipe_1").contains(u'x'));
    QVERIFY(!window.page().frame4().isVisible());
}

void tst_recipe_text::an_unedited_page_writes_nothing()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), QStringLiteral("Old."));
    Query(window.db(), "UPDATE recipe_1 SET r_body = 'New.'").run();
    window.focus(window.Text1());
    window.focus(window.title());
    window.main().l_r_refresh();
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), QStringLiteral("New."));
}

void tst_recipe_text::loading_another_recipe_keeps_what_was_typed()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    const Key cake = window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("x"));
    window.click_node(rcp(cake));
    QVERIFY(window.text("SELECT r_body FROM recipe_1 WHERE r_name = 'Pie'").contains(u'x'));
    QCOMPARE(window.text("SELECT r_body FROM recipe_1 WHERE r_name = 'Cake'"), QStringLiteral("Stir."));
    QCOMPARE(window.main().shared.cur_recipe, cake);
}

void tst_recipe_text::typing_a_name_never_renames_a_category()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(pie));
    window.load();
    window.click_node(QStringLiteral("rcat13"));
    window.focus(window.title());
    QTest::keyClicks(&window.title(), QStringLiteral("s"));
    QCOMPARE(window.tree().node(QStringLiteral("rcat13"))->text(0), QStringLiteral("desserts"));
}

void tst_recipe_text::a_vanished_recipe_is_not_written()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("x"));
    Query(window.db(), "DELETE FROM recipe_1").run();
    window.focus(window.title());
    QVERIFY(window.edited());
    QCOMPARE(window.number("SELECT count(*) FROM recipe_1"), 0);
}

QTEST_MAIN(tst_recipe_text)
#include "tst_recipe_text.moc"
