#include "output/print_fixture.h"
#include "recipes/recipe_fixture.h"

#include "recipes/line_editor.h"

using namespace tarnwick;

namespace {

QString too_many()
{
    return QStringLiteral("Recipes with more than 26 ingredients \nwill print only the first 26 ingredients\n\n"
                          "you may prefer to Cancel and open this recipe in your \nword processing application\n\n"
                          "Click OK to continue anyway");
}

QString prose(int words)
{
    QString text;
    for (int i = 0; i < words; ++i)
        text += QStringLiteral("word%1 ").arg(i, 4, 10, QLatin1Char('0'));
    return text.trimmed();
}

QString printed_text(const TestPrinter& printer)
{
    QString text;
    for (const PdfPage& page : printer.job(0))
        text += page.text() + QLatin1Char(' ');
    return text;
}

/// Chooses a recipe in the tree.
void show_recipe(RecipeWindow& w, Key recipe)
{
    w.click_node(rcp(recipe));
    QCOMPARE(w.page().page_key(), recipe);
}

void open_recipe(RecipeWindow& w, const QString& name, const QString& body = QStringLiteral("Stir."))
{
    const Key recipe = w.add_recipe(name, QStringLiteral("r_cat4"), body);
    w.load();
    show_recipe(w, recipe);
}

} // namespace

class tst_recipe_printing : public QObject {
    Q_OBJECT
private slots:
    void the_menu_prints_what_stands_on_the_page();
    void the_print_button_prints_the_recipe_page();
    void an_edit_not_yet_saved_is_printed();
    void an_open_line_is_written_before_it_is_printed();
    void a_line_without_a_name_keeps_the_user();
    void with_26_lines_there_is_no_question();
    void with_27_lines_there_is_a_question();
    void cancel_at_the_question_prints_nothing();
    void the_question_comes_before_the_preview_too();
    void nothing_of_a_long_body_is_lost_on_paper();
    void nothing_of_many_short_lines_is_lost_on_paper();
    void without_a_printer_a_pdf_takes_the_recipes_name();
    void the_recipe_of_the_tree_is_printed_from_the_list_side();
    void print_and_preview_are_disabled_without_a_recipe();
    // The preview
    void the_preview_shows_one_page_without_neighbours();
    void next_and_previous_turn_between_two_pages();
    void print_sends_all_pages_and_ends();
    void close_ends_without_printing();
    void escape_ends_without_printing();
};

void tst_recipe_printing::the_menu_prints_what_stands_on_the_page()
{
    RecipeWindow w;
    TestPrinter printer(w);
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"),
                                    QStringLiteral("Cook long.\r\nFill in jars."));
    w.add_line(recipe, QStringLiteral("Plums"), -1, -1, QStringLiteral("2"), QStringLiteral("pounds"));
    w.load();
    show_recipe(w, recipe);
    trigger(w, "mnu_recipe_prnt");
    QCOMPARE(printer.jobs, 1);
    QCOMPARE(printer.job(0).size(), 1);
    const QString text = printed_text(printer);
    QVERIFY2(text.contains(QLatin1String("Plum jam")), qPrintable(text));
    QVERIFY2(text.contains(w.ingred(0).simplified()), qPrintable(text));
    QVERIFY(text.contains(QLatin1String("Cook long. Fill in jars.")));
    QVERIFY(text.contains(QLatin1String("page 1 of 1")));
}

void tst_recipe_printing::the_print_button_prints_the_recipe_page()
{
    RecipeWindow w;
    TestPrinter printer(w);
    open_recipe(w, QStringLiteral("Plum jam"));
    click_button(w, ToolButton::print);
    QVERIFY(printed_text(printer).contains(QLatin1String("Plum jam Stir.")));
}

void tst_recipe_printing::an_edit_not_yet_saved_is_printed()
{
    RecipeWindow w;
    TestPrinter printer(w);
    open_recipe(w, QStringLiteral("Plum jam"));
    w.focus(w.Text1());
    QTest::keyClick(&w.Text1(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&w.Text1(), QStringLiteral(" Cool."));
    click_button(w, ToolButton::print);
    QVERIFY(printed_text(printer).contains(QLatin1String("Stir. Cool.")));
}

void tst_recipe_printing::an_open_line_is_written_before_it_is_printed()
{
    RecipeWindow w;
    TestPrinter printer(w);
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_line(recipe, QStringLiteral("Plums"));
    w.load();
    show_recipe(w, recipe);
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    QTest::mouseClick(w.page().lines()[0].ingred, Qt::LeftButton);
    QVERIFY(w.page().editor_open());
    auto* item = w.find<QLineEdit>(QStringLiteral("ing_flt_txtItem"));
    QTest::mouseClick(item, Qt::LeftButton);
    item->selectAll();
    QTest::keyClicks(item, QStringLiteral("Damsons"));
    click_button(w, ToolButton::print);
    QVERIFY(!w.page().editor_open());
    QVERIFY(printed_text(printer).contains(QLatin1String("Damsons")));
    QCOMPARE(w.text("SELECT item FROM recipe_2"), QStringLiteral("Damsons"));
}

void tst_recipe_printing::a_line_without_a_name_keeps_the_user()
{
    RecipeWindow w;
    TestPrinter printer(w);
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_line(recipe, QStringLiteral("Plums"));
    w.load();
    show_recipe(w, recipe);
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    QTest::mouseClick(w.page().lines()[0].ingred, Qt::LeftButton);
    auto* item = w.find<QLineEdit>(QStringLiteral("ing_flt_txtItem"));
    QTest::mouseClick(item, Qt::LeftButton);
    item->selectAll();
    QTest::keyClick(item, Qt::Key_Delete);
    MessageScript script;
    script.drive([](QDialog& message) { message.reject(); });
    click_button(w, ToolButton::print);
    QCOMPARE(printer.jobs, w.page().editor_open() ? 0 : 1);
}

void tst_recipe_printing::with_26_lines_there_is_no_question()
{
    RecipeWindow w;
    TestPrinter printer(w);
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_lines(recipe, 26);
    w.load();
    show_recipe(w, recipe);
    const MessageScript script;
    click_button(w, ToolButton::print);
    QCOMPARE(printed_text(printer).count(QLatin1String("Salt")), 26);
}

void tst_recipe_printing::with_27_lines_there_is_a_question()
{
    RecipeWindow w;
    TestPrinter printer(w);
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_lines(recipe, 27);
    w.load();
    show_recipe(w, recipe);
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"), too_many(), Answer::ok);
    click_button(w, ToolButton::print);
    QCOMPARE(printer.jobs, 1);
    QCOMPARE(printed_text(printer).count(QLatin1String("Salt")), 26);
}

void tst_recipe_printing::cancel_at_the_question_prints_nothing()
{
    RecipeWindow w;
    TestPrinter printer(w);
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_lines(recipe, 27);
    w.load();
    show_recipe(w, recipe);
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"), too_many(), Answer::cancel);
    click_button(w, ToolButton::print);
    QCOMPARE(printer.jobs, 0);
}

void tst_recipe_printing::the_question_comes_before_the_preview_too()
{
    RecipeWindow w;
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_lines(recipe, 27);
    w.load();
    show_recipe(w, recipe);
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"), too_many(), Answer::ok);
    script.drive([](QDialog& window) {
        QCOMPARE(window.objectName(), QStringLiteral("prev_rcp"));
        click(window, 1);
    });
    click_button(w, ToolButton::preview);
}

void tst_recipe_printing::nothing_of_a_long_body_is_lost_on_paper()
{
    RecipeWindow w;
    TestPrinter printer(w);
    open_recipe(w, QStringLiteral("Plum jam"), prose(1500));
    click_button(w, ToolButton::print);
    const QString text = printed_text(printer);
    for (int i = 0; i < 1500; ++i)
        QVERIFY2(text.contains(QStringLiteral("word%1").arg(i, 4, 10, QLatin1Char('0'))),
                 qPrintable(QString::number(i)));
    for (const PdfPage& page : printer.job(0))
        for (const PdfWord& word : page.words)
            QVERIFY(QRectF({}, page.size).contains(word.box));
}

void tst_recipe_printing::nothing_of_many_short_lines_is_lost_on_paper()
{
    QString body;
    for (int i = 0; i < 120; ++i)
        body += QStringLiteral("step%1\r\n").arg(i, 4, 10, QLatin1Char('0'));
    RecipeWindow w;
    TestPrinter printer(w);
    open_recipe(w, QStringLiteral("Plum jam"), body);
    click_button(w, ToolButton::print);
    const auto pages = printer.job(0);
    for (int i = 0; i < 120; ++i) {
        const QString step = QStringLiteral("step%1").arg(i, 4, 10, QLatin1Char('0'));
        bool above_the_foot = false;
        for (const PdfPage& page : pages) {
            const QRectF box = page.box_of(step);
            above_the_foot |= !box.isEmpty() && box.bottom() < page.box_of(QStringLiteral("page")).top();
        }
        QVERIFY2(above_the_foot, qPrintable(step));
    }
}

void tst_recipe_printing::without_a_printer_a_pdf_takes_the_recipes_name()
{
    RecipeWindow w;
    QTemporaryDir documents;
    w.environment().documents_folder = documents.path();
    open_recipe(w, QStringLiteral("Half/half"));
    MessageScript script;
    script.drive([](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QCOMPARE(name->text(), QStringLiteral("Half-half.pdf"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    click_button(w, ToolButton::print);
    QCOMPARE(read_pdf(documents.filePath(QStringLiteral("Half-half.pdf"))).size(), 1);
}

void tst_recipe_printing::the_recipe_of_the_tree_is_printed_from_the_list_side()
{
    RecipeWindow w;
    TestPrinter printer(w);
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_list(QStringLiteral("Weekly"));
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    w.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    w.load();
    QVERIFY(w.main().shared.list_pane_shown);
    w.main().commands().run(QStringLiteral("mnu_recipe_prnt"));
    QVERIFY(printed_text(printer).contains(QLatin1String("Plum jam")));
}

void tst_recipe_printing::print_and_preview_are_disabled_without_a_recipe()
{
    RecipeWindow w;
    TestPrinter printer(w);
    w.load();
    QVERIFY(!w.main().commands().action(QStringLiteral("mnu_recipe_prnt")).isEnabled());
    QVERIFY(w.page_buttons_enabled(false));
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"), QStringLiteral("No recipe found"));
    w.main().commands().run(QStringLiteral("mnu_recipe_prnt"));
    QCOMPARE(printer.jobs, 0);
}

void tst_recipe_printing::the_preview_shows_one_page_without_neighbours()
{
    RecipeWindow w;
    const Key recipe = w.add_recipe(QStringLiteral("Plum jam"), QStringLiteral("r_cat4"));
    w.add_line(recipe, QStringLiteral("Plums"));
    w.load();
    show_recipe(w, recipe);
    MessageScript script;
    script.drive([&](QDialog& window) {
        QCOMPARE(window.objectName(), QStringLiteral("prev_rcp"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Preview recipe"));
        QVERIFY(window.isModal());
        const QStringList captions = {QStringLiteral("Print"), QStringLiteral("Close"), QStringLiteral("< Prev"),
                                      QStringLiteral("Next >")};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(Command1(window, i).text(), captions[i]);
        QVERIFY(!Command1(window, 2).isEnabled());
        QVERIFY(!Command1(window, 3).isEnabled());
        QCOMPARE(shown_text(window, "txtTitle"), QStringLiteral("Plum jam"));
        QCOMPARE(shown_text(window, "txtIngred(0)"), w.ingred(0));
        QCOMPARE(shown_text(window, "txtBody"), QStringLiteral("Stir."));
        QCOMPARE(part(window, "Frame1").size(), QSize(page_form::width, page_form::height));
        click(window, 1);
    });
    click_button(w, ToolButton::preview);
}

void tst_recipe_printing::next_and_previous_turn_between_two_pages()
{
    RecipeWindow w;
    const QString body = prose(900);
    open_recipe(w, QStringLiteral("Plum jam"), body);
    MessageScript script;
    QString head;
    script.drive([&](QDialog& window) {
        QVERIFY(!Command1(window, 2).isEnabled());
        head = shown_text(window, "txtBody");
        window.move(30, 40);
        window.resize(600, 500);
        click(window, 3);
    });
    script.drive([&](QDialog& window) {
        QCOMPARE(head + shown_text(window, "txtBody"), body);
        QCOMPARE(shown(window, QStringLiteral("txtBody")).value(QStringLiteral("y")).toInt(), 100);
        QCOMPARE(window.property("page_no").toInt(), 2);
        QCOMPARE(window.property("page_count").toInt(), 2);
        QCOMPARE(window.size(), QSize(600, 500));
        QVERIFY(!Command1(window, 3).isEnabled());
        click(window, 2);
    });
    script.drive([&](QDialog& window) {
        QCOMPARE(shown_text(window, "txtBody"), head);
        click(window, 1);
    });
    click_button(w, ToolButton::preview);
}

void tst_recipe_printing::print_sends_all_pages_and_ends()
{
    RecipeWindow w;
    TestPrinter printer(w);
    open_recipe(w, QStringLiteral("Plum jam"), prose(900));
    MessageScript script;
    script.drive([](QDialog& window) { click(window, 3); });
    script.drive([](QDialog& window) { click(window, 0); });
    click_button(w, ToolButton::preview);
    QCOMPARE(printer.jobs, 1);
    QCOMPARE(printer.job(0).size(), 2);
}

void tst_recipe_printing::close_ends_without_printing()
{
    RecipeWindow w;
    TestPrinter printer(w);
    open_recipe(w, QStringLiteral("Plum jam"));
    MessageScript script;
    script.drive([](QDialog& window) { click(window, 1); });
    click_button(w, ToolButton::preview);
    QCOMPARE(printer.jobs, 0);
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
}

void tst_recipe_printing::escape_ends_without_printing()
{
    RecipeWindow w;
    TestPrinter printer(w);
    open_recipe(w, QStringLiteral("Plum jam"), prose(900));
    MessageScript script;
    script.drive([](QDialog& window) { click(window, 3); });
    script.drive([](QDialog& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    click_button(w, ToolButton::preview);
    QCOMPARE(printer.jobs, 0);
}

QTEST_MAIN(tst_recipe_printing)
#include "tst_recipe_printing.moc"
