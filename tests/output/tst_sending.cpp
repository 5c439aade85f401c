#include "output/sending_steps.h"
#include "support/file_bytes.h"
#include "support/full_disk.h"
#include "support/rtf_reader.h"
#include "support/tool_button.h"

#include <QFile>
#include <QLabel>
#include <QMessageBox>

using namespace tarnwick;
using namespace tarnwick::sending_steps;

/// Lists and recipes on their way to the word processor, and what comes before any sending.
class tst_sending : public QObject {
    Q_OBJECT
private slots:
    void the_notice_comes_first_with_its_texts_data();
    void the_notice_comes_first_with_its_texts();
    void the_notice_comes_again_after_a_tick_since_another_key_is_read();
    void leaving_the_notice_by_the_close_box_keeps_the_tick();
    void no_notice_where_the_main_store_says_so();
    void list_to_get_has_its_captions();

    void a_list_goes_to_the_word_processor_as_one_file_url();
    void all_lists_go_in_one_table();
    void a_recipe_goes_to_the_word_processor_as_one_file_url();
    void the_text_on_the_page_goes_out_even_if_it_is_not_saved_yet();
    void the_remembered_recipe_goes_out_when_only_the_list_was_on_show();
    void without_a_recipe_a_message_says_so();
    void only_buy_it_rows_without_any_gives_the_message_and_no_file_data();
    void only_buy_it_rows_without_any_gives_the_message_and_no_file();
    void no_list_at_all_gives_the_message();
    void a_cancelled_export_leaves_no_file_data();
    void a_cancelled_export_leaves_no_file();
    void a_new_export_takes_the_place_of_the_old_file();
    void no_word_processor_gives_its_message();
    void a_file_that_cannot_be_written_gives_a_message_and_opens_nothing();
    void a_full_disk_gives_a_message_keeps_the_old_file_and_leaves_no_half_one();
    void a_file_that_cannot_be_removed_gives_a_message();

    void an_open_row_is_written_and_closed_before_its_list_goes_out();
    void an_open_line_is_written_before_its_recipe_goes_out();
    void a_refused_name_of_the_recipe_sends_nothing();
};

void tst_sending::the_notice_comes_first_with_its_texts_data()
{
    QTest::addColumn<QString>("command");
    for (const char* name :
         {"mnu_tools_wp_rcp", "mnu_tools_wp_list", "mnu_tools_email_rcp", "mnu_tools_email_list"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_sending::the_notice_comes_first_with_its_texts()
{
    QFETCH(QString, command);
    LineWindow window;
    window.open();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        const auto label = [&dialog](const char* name) { return dialog.findChild<QLabel*>(QLatin1String(name)); };
        QCOMPARE(dialog.objectName(), QStringLiteral("anti_vrs"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Anti-virus messages"));
        QCOMPARE(label("Label1(0)")->text(),
                 QStringLiteral("When you open a recipe or a shopping list in you word processing program (or your "
                                "email application) your anti-virus appliction may interrupt with a warning."));
        QCOMPARE(label("Label1(1)")->text(),
                 QStringLiteral("If your anti-virus interrupts to tell you it has detected a 'suspicious script' "
                                "then it is working as it should. You may safely choose the 'continue entire "
                                "script' or similar option."));
        QCOMPARE(check(dialog).text(), QStringLiteral("Do not show this warning in the future"));
        QVERIFY(!check(dialog).isChecked());
        QCOMPARE(button(dialog, "OKButton").text(), QStringLiteral("OK"));
        QTest::mouseClick(&button(dialog, "OKButton"), Qt::LeftButton);
    });
    if (command.endsWith(QLatin1String("list")))
        choose(script, Choice::cancel);
    run(window, qPrintable(command));
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.pref(QStringLiteral("av_warn"), QStringLiteral("velora")), QStringLiteral("(none)"));
}

void tst_sending::the_notice_comes_again_after_a_tick_since_another_key_is_read()
{
    LineWindow window;
    window.open();
    MessageScript script;
    for (int i = 0; i < 2; ++i) {
        script.drive([](QDialog& dialog) {
            QCOMPARE(dialog.objectName(), QStringLiteral("anti_vrs"));
            check(dialog).click();
            button(dialog, "OKButton").click();
        });
        run(window, "mnu_tools_wp_rcp");
    }
    QCOMPARE(window.pref(QStringLiteral("av_warn"), QStringLiteral("velora")), QStringLiteral("1"));
    QCOMPARE(window.pref(QStringLiteral("av_warn")), QStringLiteral("0"));
    QCOMPARE(window.opened.size(), size_t{2});
}

void tst_sending::leaving_the_notice_by_the_close_box_keeps_the_tick()
{
    LineWindow window;
    window.open();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        check(dialog).click();
        dialog.close();
    });
    run(window, "mnu_tools_wp_rcp");
    QCOMPARE(window.pref(QStringLiteral("av_warn"), QStringLiteral("velora")), QStringLiteral("1"));
    QCOMPARE(window.opened.size(), size_t{1});
}

void tst_sending::no_notice_where_the_main_store_says_so()
{
    LineWindow window;
    quiet(window);
    window.open();
    const MessageScript script;
    run(window, "mnu_tools_wp_rcp");
    QCOMPARE(window.opened.size(), size_t{1});
}

void tst_sending::list_to_get_has_its_captions()
{
    EditingWindow window;
    quiet(window);
    window.load();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Send list to word processor"));
        QCOMPARE(button(dialog, "Command1(0)").text(), QStringLiteral("OK"));
        QCOMPARE(button(dialog, "Command1(1)").text(), QStringLiteral("CANCEL"));
        QCOMPARE(check(dialog).text(), QStringLiteral("List 'buy-it' (active) items only"));
        dialog.reject();
    });
    run(window, "mnu_tools_wp_list");
    QCOMPARE(script.left(), 0);
}

void tst_sending::a_list_goes_to_the_word_processor_as_one_file_url()
{
    EditingWindow window;
    quiet(window);
    window.row(QStringLiteral("Milk"), QStringLiteral("fresh"), QStringLiteral("2"), QStringLiteral("7"));
    window.load();
    MessageScript script;
    choose(script, Choice::all);
    QTest::mouseClick(window.find<QWidget>(tool_button(ToolButton::word_processor)), Qt::LeftButton);
    QCOMPARE(window.opened, std::vector<QUrl>{QUrl::fromLocalFile(file(window, "list.rtf"))});
    const RtfDocument document = read_rtf(bytes_of(file(window, "list.rtf")));
    QVERIFY(document.whole);
    QVERIFY(document.paragraphs.contains(QStringLiteral("Corner shop")));
    QVERIFY(document.paragraphs.contains(QStringLiteral("Milk\tfresh\t2\t7\t")));
    QCOMPARE(exports(window), QStringList{QStringLiteral("list.rtf")});
}

void tst_sending::all_lists_go_in_one_table()
{
    EditingWindow window;
    quiet(window);
    const Key milk = window.add_item(QStringLiteral("Milk"), 0);
    window.add_row(milk, window.list, true, QStringLiteral("fresh"));
    window.add_row(milk, window.add_list(QStringLiteral("Party")), true, QStringLiteral("soured"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    window.set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    window.load();
    MessageScript script;
    choose(script, Choice::all);
    run(window, "mnu_tools_wp_list");
    const RtfDocument document = read_rtf(bytes_of(file(window, "list.rtf")));
    QVERIFY(document.paragraphs.contains(QStringLiteral("All")));
    QCOMPARE(document.text().count(QStringLiteral("Milk\t")), 2);
}

void tst_sending::a_recipe_goes_to_the_word_processor_as_one_file_url()
{
    LineWindow window;
    quiet(window);
    window.add_line(window.recipe, QStringLiteral("onions"), -1, -1, QStringLiteral("2"));
    window.add_line(window.recipe, QStringLiteral("salt"));
    window.open();
    const MessageScript script;
    QTest::mouseClick(window.find<QWidget>(tool_button(ToolButton::word_processor)), Qt::LeftButton);
    QCOMPARE(window.opened, std::vector<QUrl>{QUrl::fromLocalFile(file(window, "recipe.rtf"))});
    const RtfDocument document = read_rtf(bytes_of(file(window, "recipe.rtf")));
    QVERIFY(document.whole);
    const auto lines = document.paragraphs.indexOf(QStringLiteral("2 onions"));
    QVERIFY(lines > document.paragraphs.indexOf(QStringLiteral("Soup")));
    QCOMPARE(document.paragraphs.value(lines + 1), QStringLiteral("salt"));
    QVERIFY(document.paragraphs.indexOf(QStringLiteral("Stir.")) > lines);
}

void tst_sending::the_text_on_the_page_goes_out_even_if_it_is_not_saved_yet()
{
    LineWindow window;
    quiet(window);
    window.open();
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&window.Text1(), QStringLiteral(" Serve."));
    QVERIFY(window.edited());
    const MessageScript script;
    run(window, "mnu_tools_wp_rcp");
    QVERIFY(read_rtf(bytes_of(file(window, "recipe.rtf"))).paragraphs.contains(QStringLiteral("Stir. Serve.")));
    QVERIFY(!window.edited());
}

void tst_sending::the_remembered_recipe_goes_out_when_only_the_list_was_on_show()
{
    LineWindow window;
    quiet(window);
    window.add_line(window.recipe, QStringLiteral("salt"));
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.load();
    QVERIFY(!window.page().has_recipe());
    const MessageScript script;
    run(window, "mnu_tools_wp_rcp");
    const RtfDocument document = read_rtf(bytes_of(file(window, "recipe.rtf")));
    QVERIFY(document.paragraphs.contains(QStringLiteral("Soup")));
    QVERIFY(document.paragraphs.contains(QStringLiteral("salt")));
    QVERIFY(document.paragraphs.contains(QStringLiteral("Stir.")));
}

void tst_sending::without_a_recipe_a_message_says_so()
{
    TestWindow window;
    window.load();
    MessageScript script;
    for (const char* command : {"mnu_tools_wp_rcp", "mnu_tools_email_rcp"}) {
        script.expect(QStringLiteral("Tarnwick"), QStringLiteral("No recipe found"));
        run(window, command);
    }
    QVERIFY(window.opened.empty());
    QVERIFY(exports(window).isEmpty());
}

void tst_sending::only_buy_it_rows_without_any_gives_the_message_and_no_file_data()
{
    QTest::addColumn<bool>("old_file");
    QTest::newRow("no file before") << false;
    QTest::newRow("a file before") << true;
}

void tst_sending::only_buy_it_rows_without_any_gives_the_message_and_no_file()
{
    QFETCH(bool, old_file);
    EditingWindow window;
    quiet(window);
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), window.list, false);
    window.load();
    if (old_file)
        QVERIFY(QFile::copy(window.database(), file(window, "list.rtf")));
    MessageScript script;
    choose(script, Choice::buy_it);
    script.expect(QStringLiteral("Tarnwick"), QStringLiteral("No shopping list items found"), Answer::ok,
                  [](QDialog& box) { QCOMPARE(dynamic_cast<QMessageBox&>(box).icon(), QMessageBox::Information); });
    run(window, "mnu_tools_wp_list");
    QVERIFY(window.opened.empty());
    QVERIFY(exports(window).isEmpty());
}

void tst_sending::no_list_at_all_gives_the_message()
{
    TestWindow window;
    quiet(window);
    window.set_pref(QStringLiteral("alist"), QStringLiteral("-1"));
    window.load();
    MessageScript script;
    choose(script, Choice::all);
    script.expect(QStringLiteral("Tarnwick"), QStringLiteral("No shopping list items found"));
    run(window, "mnu_tools_wp_list");
    QVERIFY(window.opened.empty());
}

void tst_sending::a_cancelled_export_leaves_no_file_data()
{
    QTest::addColumn<bool>("by_close_box");
    QTest::newRow("CANCEL") << false;
    QTest::newRow("close box") << true;
}

void tst_sending::a_cancelled_export_leaves_no_file()
{
    QFETCH(bool, by_close_box);
    EditingWindow window;
    quiet(window);
    window.row(QStringLiteral("Milk"));
    window.load();
    MessageScript script;
    choose(script, Choice::all);
    run(window, "mnu_tools_wp_list");
    QCOMPARE(exports(window), QStringList{QStringLiteral("list.rtf")});
    choose(script, by_close_box ? Choice::close : Choice::cancel);
    run(window, "mnu_tools_wp_list");
    QVERIFY(exports(window).isEmpty());
    QCOMPARE(window.opened.size(), size_t{1});
}

void tst_sending::a_new_export_takes_the_place_of_the_old_file()
{
    LineWindow window;
    quiet(window);
    window.open();
    const QString path = file(window, "recipe.rtf");
    {
        QFile old(path);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(100000, 'x'));
    }
    const MessageScript script;
    run(window, "mnu_tools_wp_rcp");
    QVERIFY(bytes_of(path).startsWith("{\\rtf1"));
    QVERIFY(read_rtf(bytes_of(path)).whole);
    QCOMPARE(exports(window), QStringList{QStringLiteral("recipe.rtf")});
}

void tst_sending::no_word_processor_gives_its_message()
{
    LineWindow window;
    quiet(window);
    window.environment().open_url = [](const QUrl&) { return false; };
    window.open();
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"),
                  QStringLiteral("There was a problem opening the\ncurrent word processing application"));
    run(window, "mnu_tools_wp_rcp");
    QVERIFY(read_rtf(bytes_of(file(window, "recipe.rtf"))).whole);
}

void tst_sending::a_file_that_cannot_be_written_gives_a_message_and_opens_nothing()
{
    LineWindow window;
    quiet(window);
    window.open();
    const QString path = file(window, "recipe.rtf");
    QVERIFY(QDir().mkpath(path)); // holds against root as well
    MessageScript script;
    script.drive([&path](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        QCOMPARE(box.windowTitle(), QStringLiteral("Tarnwick"));
        QVERIFY(box.text().startsWith(QStringLiteral("The file\n%1\ncould not be written.\n\n").arg(path)));
        QCOMPARE(box.icon(), QMessageBox::Warning);
        box.accept();
    });
    run(window, "mnu_tools_wp_rcp");
    QCOMPARE(script.left(), 0);
    QVERIFY(window.opened.empty());
}

void tst_sending::a_full_disk_gives_a_message_keeps_the_old_file_and_leaves_no_half_one()
{
    LineWindow window;
    quiet(window);
    window.open();
    const MessageScript none;
    run(window, "mnu_tools_wp_rcp");
    const QString path = file(window, "recipe.rtf");
    const QByteArray former = bytes_of(path);
    QVERIFY(former.size() > 512);
    bool told = false;
    MessageScript script;
    script.drive([&told](QDialog& dialog) {
        told = dynamic_cast<QMessageBox&>(dialog).text().contains(QStringLiteral("could not be written"));
        dynamic_cast<QMessageBox&>(dialog).accept();
    });
    window.opened.clear();
    {
        const FullDisk full(512);
        run(window, "mnu_tools_wp_rcp");
    }
    QVERIFY(told);
    QVERIFY(window.opened.empty());
    QCOMPARE(bytes_of(path), former);
    QCOMPARE(exports(window), QStringList{QStringLiteral("recipe.rtf")});
}

void tst_sending::a_file_that_cannot_be_removed_gives_a_message()
{
    EditingWindow window;
    quiet(window);
    window.load();
    const QString path = file(window, "list.rtf");
    QVERIFY(QDir().mkpath(path));
    MessageScript script;
    choose(script, Choice::cancel);
    script.drive([&path](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        QVERIFY(box.text().startsWith(QStringLiteral("The file\n%1\ncould not be removed.\n\n").arg(path)));
        box.accept();
    });
    run(window, "mnu_tools_wp_list");
    QCOMPARE(script.left(), 0);
}

void tst_sending::an_open_row_is_written_and_closed_before_its_list_goes_out()
{
    EditingWindow window;
    quiet(window);
    window.row(QStringLiteral("Milk"));
    window.open();
    window.open_row(0);
    QTest::keyClicks(window.find<QLineEdit>(QStringLiteral("desc_brdr")), QStringLiteral("fresh"));
    MessageScript script;
    choose(script, Choice::all);
    run(window, "mnu_tools_wp_list");
    QVERIFY(!window.editor().is_open());
    QVERIFY(
        read_rtf(bytes_of(file(window, "list.rtf"))).paragraphs.contains(QStringLiteral("Milk\tfresh\t \t \t")));
}

void tst_sending::an_open_line_is_written_before_its_recipe_goes_out()
{
    LineWindow window;
    quiet(window);
    window.add_line(window.recipe, QStringLiteral("salt"));
    window.open();
    window.open_line(0);
    QTest::keyClicks(&window.qty(), QStringLiteral("3"));
    const MessageScript script;
    run(window, "mnu_tools_wp_rcp");
    QVERIFY(!window.editor().is_open());
    QVERIFY(read_rtf(bytes_of(file(window, "recipe.rtf"))).paragraphs.contains(QStringLiteral("3 salt")));
    QCOMPARE(window.text("SELECT qty FROM recipe_2"), QStringLiteral("3"));
}

void tst_sending::a_refused_name_of_the_recipe_sends_nothing()
{
    LineWindow window;
    quiet(window);
    window.open();
    window.focus(window.title());
    window.title().selectAll();
    QTest::keyClick(&window.title(), Qt::Key_Delete);
    MessageScript script;
    script.expect(QStringLiteral("Recipe name"),
                  QStringLiteral("Recipe must have a name\n(Cannot leave it blank)"));
    run(window, "mnu_tools_wp_rcp");
    QVERIFY(window.opened.empty());
    QCOMPARE(window.title().text(), QStringLiteral("Recipe"));
}

QTEST_MAIN(tst_sending)
#include "tst_sending.moc"
