#include "household/list_pages.h"
#include "lists/editing_window.h"
#include "output/page_painter.h"
#include "output/paper.h"
#include "output/print_fixture.h"
#include "output/printing.h"
#include "window/view_state.h"
#include "support/tool_button.h"
#include "window/output_commands.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>

using namespace tarnwick;

namespace {

/// A printer that refuses to begin.
class DeadPrinter : public QPdfWriter {
public:
    DeadPrinter()
        : QPdfWriter(QStringLiteral("/nowhere/at/all.pdf"))
    {
    }
};

/// A printer that has paper for one page.
class ShortPrinter : public QPdfWriter {
public:
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return false; }
};

QString refusal()
{
    return QStringLiteral("The printer does not take the pages.\nNothing more is printed.");
}

/// What the window prints its list from.
PrintSource source_of(TestWindow& w)
{
    frmmain& main = w.main();
    return {main.connection(),
            main.shared.current_list,
            main.output().reports(),
            main.shared.type_size,
            main.today(),
            {main.environment().printer, main.environment().documents_folder}};
}

/// Types a path into the file dialog and saves.
std::function<void(QDialog&)> save_as(const QString& path)
{
    return [path](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QVERIFY(name);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    };
}

} // namespace

class tst_list_printing : public QObject {
    Q_OBJECT
private slots:
    // The query
    void rows_come_in_the_order_of_the_options_data();
    void rows_come_in_the_order_of_the_options();
    void one_list_has_its_own_rows_and_all_lists_have_all();
    void buy_it_rows_alone_when_the_option_says_so();
    // Paper
    void the_menu_prints_the_list_on_the_printer_in_one_job();
    void the_print_button_prints_the_list_on_show();
    void all_lists_print_under_their_title();
    void the_form_fills_the_printable_width_of_the_paper_data();
    void the_form_fills_the_printable_width_of_the_paper();
    void a_paper_that_is_too_low_takes_the_whole_form();
    void texts_stand_where_the_page_has_them();
    void a_text_too_long_is_cut_at_its_box();
    void a_narrow_box_shows_three_digits_whole();
    void printing_begins_at_the_page_and_leaves_the_next();
    void the_preview_leaves_no_more_pages();
    void a_refusing_printer_is_told();
    void a_printer_that_stops_is_told();
    // Without a printer
    void without_a_printer_a_pdf_is_saved();
    void cancel_saves_nothing();
    void a_path_that_cannot_be_written_is_told();
    void the_proposed_name_holds_no_slash_and_ends_in_pdf_data();
    void the_proposed_name_holds_no_slash_and_ends_in_pdf();
    // Nothing to print
    void an_empty_list_is_told();
    void no_buy_it_rows_are_told_with_a_tip();
    void an_empty_list_with_the_buy_it_option_is_told_as_empty();
    void without_a_list_print_and_preview_are_disabled();
    // Editors
    void an_open_row_is_written_before_it_is_printed();
    // The print setup
    void the_print_setup_prints_and_previews_and_stays_open();
    void the_print_setup_without_rows_ends_in_no_items_to_print_data();
    void the_print_setup_without_rows_ends_in_no_items_to_print();
};

void tst_list_printing::rows_come_in_the_order_of_the_options_data()
{
    QTest::addColumn<int>("sort");
    QTest::addColumn<QString>("order");
    QTest::newRow("by item") << 0 << QStringLiteral("apple Bread Milk Zest");
    QTest::newRow("by category") << 1 << QStringLiteral("Bread Zest Milk apple");
    QTest::newRow("by aisle") << 2 << QStringLiteral("Zest Milk apple Bread");
}

void tst_list_printing::rows_come_in_the_order_of_the_options()
{
    QFETCH(int, sort);
    TestWindow w;
    const Key list = w.add_list(QStringLiteral("Weekly"));
    const Key bakery = w.add_category(QStringLiteral("Bakery"));
    const Key dairy = w.add_category(QStringLiteral("Dairy"));
    const QString none = QStringLiteral(" ");
    w.add_row(w.add_item(QStringLiteral("Zest"), bakery), list, true, none, none, none);
    w.add_row(w.add_item(QStringLiteral("Milk"), dairy), list, true, none, none, QStringLiteral("1"));
    w.add_row(w.add_item(QStringLiteral("apple"), 0), list, true, none, none, QStringLiteral("2"));
    w.add_row(w.add_item(QStringLiteral("Bread"), bakery), list, true, none, none, QStringLiteral("2"));
    QStringList items;
    for (const ListRow& row : read_list_rows(w.db(), list, {static_cast<ReportSort>(sort), 1, 1, 0}))
        items.append(row.item);
    QTEST(items.join(QLatin1Char(' ')), "order");
}

void tst_list_printing::one_list_has_its_own_rows_and_all_lists_have_all()
{
    TestWindow w;
    const Key first = w.add_list(QStringLiteral("Weekly"));
    const Key second = w.add_list(QStringLiteral("Party"));
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_row(milk, first, true);
    w.add_row(milk, second, true);
    w.add_row(w.add_item(QStringLiteral("Wine"), 0), second, true);
    QCOMPARE(read_list_rows(w.db(), first, {}).size(), size_t(1));
    QCOMPARE(read_list_rows(w.db(), second, {}).size(), size_t(2));
    QCOMPARE(read_list_rows(w.db(), 0, {}).size(), size_t(3));
    QCOMPARE(read_list_rows(w.db(), -1, {}).size(), size_t(3));
}

void tst_list_printing::buy_it_rows_alone_when_the_option_says_so()
{
    TestWindow w;
    const Key list = w.add_list(QStringLiteral("Weekly"));
    w.add_row(w.add_item(QStringLiteral("Milk"), 0), list, true, QStringLiteral("skimmed"), QStringLiteral("2"),
              QStringLiteral("7"));
    w.add_row(w.add_item(QStringLiteral("Wine"), 0), list, false);
    const auto bought = read_list_rows(w.db(), list, {ReportSort::by_item, 1, 1, 0});
    QCOMPARE(bought.size(), size_t(1));
    QCOMPARE(bought[0].item, QStringLiteral("Milk"));
    QCOMPARE(bought[0].desc, QStringLiteral("skimmed"));
    QCOMPARE(bought[0].qty, QStringLiteral("2"));
    QCOMPARE(bought[0].aisle, QStringLiteral("7"));
    QCOMPARE(bought[0].category, QStringLiteral("OTHER"));
    QVERIFY(bought[0].to_get);
    QCOMPARE(bought[0].created, w.date);
    QCOMPARE(read_list_rows(w.db(), list, {ReportSort::by_item, 1, 0, 0}).size(), size_t(2));
}

void tst_list_printing::the_menu_prints_the_list_on_the_printer_in_one_job()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(150);
    w.open();
    trigger(w, "mnu_list_Print");
    QCOMPARE(printer.jobs, 1);
    const auto pages = printer.job(0);
    QCOMPARE(pages.size(), 3);
    QVERIFY(pages[0].text().contains(QLatin1String("Corner shop list")));
    QVERIFY(pages[0].text().contains(QLatin1String("OTHER")));
    QVERIFY(pages[2].text().contains(QLatin1String("page 3 of 3")));
    for (int i = 0; i < 150; ++i) {
        int found = 0;
        for (const PdfPage& page : pages)
            found
                += static_cast<int>(page.text().count(QStringLiteral("Item %1:").arg(i, 3, 10, QLatin1Char('0'))));
        QCOMPARE(found, 1);
    }
}

void tst_list_printing::the_print_button_prints_the_list_on_show()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(3);
    w.open();
    click_button(w, ToolButton::print);
    QCOMPARE(printer.jobs, 1);
    QVERIFY(printer.job(0).value(0).text().contains(QLatin1String("Corner shop list")));
}

void tst_list_printing::all_lists_print_under_their_title()
{
    EditingWindow w;
    TestPrinter printer(w);
    set_report(w, "sort", 0);
    set_report(w, "active", 0);
    w.row(QStringLiteral("Milk"));
    w.add_row(w.add_item(QStringLiteral("Wine"), 0), w.add_list(QStringLiteral("Party")), false);
    w.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    w.set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    w.open();
    trigger(w, "mnu_list_Print");
    const QString text = printer.job(0).value(0).text();
    QVERIFY2(text.contains(QLatin1String("All lists")), qPrintable(text));
    QVERIFY(text.contains(QLatin1String("Milk")) && text.contains(QLatin1String("Wine")));
}

void tst_list_printing::the_form_fills_the_printable_width_of_the_paper_data()
{
    QTest::addColumn<int>("paper");
    QTest::newRow("A4") << int(QPageSize::A4);
    QTest::newRow("letter") << int(QPageSize::Letter);
}

void tst_list_printing::the_form_fills_the_printable_width_of_the_paper()
{
    QFETCH(int, paper);
    EditingWindow w;
    TestPrinter printer(w);
    printer.paper = static_cast<QPageSize::PageSizeId>(paper);
    set_report(w, "col_ct", 1);
    set_report(w, "sort", 0);
    w.rows(3);
    w.open();
    trigger(w, "mnu_list_Print");
    const auto pages = printer.job(0);
    QCOMPARE(pages.size(), 1);
    const QSizeF size = QPageSize(printer.paper).size(QPageSize::Point);
    QVERIFY(std::abs(pages[0].size.width() - size.width()) < 1);
    QVERIFY(std::abs(pages[0].size.height() - size.height()) < 1);
    const double margin = 10 / 25.4 * 72;
    const double scale = (size.width() - 2 * margin) / page_form::width;
    const QRectF caption = pages[0].box_of(QStringLiteral("ITEM"));
    QVERIFY(std::abs(caption.left() - (margin + 61 * scale)) < 2);
    const QRectF aisle = pages[0].box_of(QStringLiteral("ASL"));
    QVERIFY(std::abs(aisle.left() - (margin + 678 * scale)) < 2);
    const QRectF foot = pages[0].box_of(QStringLiteral("page"));
    QVERIFY(foot.bottom() < size.height() - margin);
}

void tst_list_printing::a_paper_that_is_too_low_takes_the_whole_form()
{
    EditingWindow w;
    w.rows(100);
    w.open();
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("low.pdf"));
    {
        PrintSource low = source_of(w);
        low.paper.printer = [&]() -> std::unique_ptr<QPagedPaintDevice> {
            auto device = std::make_unique<QPdfWriter>(file);
            device->setPageLayout(
                {QPageSize(QPageSize::A4), QPageLayout::Landscape, {10, 10, 10, 10}, QPageLayout::Millimeter});
            return device;
        };
        Key page = 1;
        print_list_pages(low, w.main(), page, false);
    }
    const auto pages = read_pdf(file);
    QVERIFY(!pages.isEmpty());
    for (const PdfPage& page : pages) {
        QVERIFY(page.text().contains(QLatin1String("page")));
        for (const PdfWord& word : page.words)
            QVERIFY2(QRectF({}, page.size).contains(word.box), qPrintable(word.text));
    }
}

void tst_list_printing::texts_stand_where_the_page_has_them()
{
    EditingWindow w;
    TestPrinter printer(w);
    set_report(w, "col_ct", 1);
    set_report(w, "sort", 0);
    w.row(QStringLiteral("Apples"), QStringLiteral(" "), QStringLiteral("12"), QStringLiteral("7"));
    w.row(QStringLiteral("Bread"), QStringLiteral(" "), QStringLiteral("34"), QStringLiteral("8"));
    w.open();
    trigger(w, "mnu_list_Print");
    const PdfPage page = printer.job(0).value(0);
    const double margin = 10 / 25.4 * 72;
    const double scale = (page.size.width() - 2 * margin) / page_form::width;
    QVERIFY(std::abs(page.box_of(QStringLiteral("12")).left() - (margin + 626 * scale)) < 2);
    QVERIFY(std::abs(page.box_of(QStringLiteral("7")).left() - (margin + 682 * scale)) < 2);
    const double pitch = page.box_of(QStringLiteral("Bread")).top() - page.box_of(QStringLiteral("Apples")).top();
    QVERIFY(std::abs(pitch - 20 * scale) < 0.5);
}

void tst_list_printing::a_text_too_long_is_cut_at_its_box()
{
    EditingWindow w;
    TestPrinter printer(w);
    set_report(w, "sort", 0);
    QString name;
    for (int i = 0; i < 12; ++i)
        name += QStringLiteral("word%1 ").arg(i);
    w.row(name.trimmed(), QStringLiteral("end"));
    w.open();
    trigger(w, "mnu_list_Print");
    const PdfPage page = printer.job(0).value(0);
    QVERIFY(page.text().contains(QChar(0x2026)));
    QVERIFY(!page.text().contains(QLatin1String("end")));
    const double margin = 10 / 25.4 * 72;
    const double scale = (page.size.width() - 2 * margin) / page_form::width;
    for (const PdfWord& word : page.words)
        if (word.text.startsWith(QLatin1String("word")) || word.text.contains(QChar(0x2026)))
            QVERIFY2(word.box.right() < margin + 283 * scale, qPrintable(word.text));
}

void tst_list_printing::a_narrow_box_shows_three_digits_whole()
{
    EditingWindow w;
    TestPrinter printer(w);
    set_report(w, "size", 2);
    w.row(QStringLiteral("Apples"), QStringLiteral(" "), QStringLiteral("888"), QStringLiteral("12A"));
    w.open();
    trigger(w, "mnu_list_Print");
    const PdfPage page = printer.job(0).value(0);
    QVERIFY(!page.box_of(QStringLiteral("888")).isEmpty());
    QVERIFY(!page.box_of(QStringLiteral("12A")).isEmpty());
    QVERIFY(!page.text().contains(QChar(0x2026)));
}

void tst_list_printing::printing_begins_at_the_page_and_leaves_the_next()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(150);
    w.open();
    Key page = 2;
    const PrintSource source = source_of(w);
    print_list_pages(source, w.main(), page, false);
    QCOMPARE(page, Key(4));
    const auto pages = printer.job(0);
    QCOMPARE(pages.size(), 2);
    QVERIFY(pages[0].text().contains(QLatin1String("page 2 of 3")));
    print_list_pages(source, w.main(), page, false);
    QCOMPARE(printer.jobs, 1);
    QCOMPARE(page, Key(4));
}

void tst_list_printing::the_preview_leaves_no_more_pages()
{
    EditingWindow w;
    w.rows(150);
    w.open();
    MessageScript script;
    script.drive([](QDialog& window) {
        QCOMPARE(window.property("page_no").toInt(), 2);
        window.reject();
    });
    Key page = 2;
    print_list_pages(source_of(w), w.main(), page, true);
    QCOMPARE(page, Key(10000));
}

void tst_list_printing::a_refusing_printer_is_told()
{
    EditingWindow w;
    w.environment().printer = [] { return std::make_unique<DeadPrinter>(); };
    w.rows(3);
    w.open();
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"), refusal());
    trigger(w, "mnu_list_Print");
}

void tst_list_printing::a_printer_that_stops_is_told()
{
    EditingWindow w;
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("short.pdf"));
    w.environment().printer = [&] { return std::make_unique<ShortPrinter>(file); };
    w.rows(150);
    w.open();
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"), refusal());
    trigger(w, "mnu_list_Print");
}

void tst_list_printing::without_a_printer_a_pdf_is_saved()
{
    EditingWindow w;
    w.rows(150);
    QTemporaryDir documents;
    w.environment().documents_folder = documents.path();
    w.open();
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        QCOMPARE(files.acceptMode(), QFileDialog::AcceptSave);
        QVERIFY(files.testOption(QFileDialog::DontUseNativeDialog));
        QCOMPARE(files.directory().canonicalPath(), QFileInfo(documents.path()).canonicalFilePath());
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        QCOMPARE(name->text(), QStringLiteral("Corner shop list.pdf"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    trigger(w, "mnu_list_Print");
    const QString path = documents.filePath(QStringLiteral("Corner shop list.pdf"));
    QCOMPARE(read_pdf(path).size(), 3);
    const QString info = pdf_tool(QStringLiteral("pdfinfo"), {path});
    QVERIFY(info.contains(QLatin1String("Corner shop list")));
    const QString fonts = pdf_tool(QStringLiteral("pdffonts"), {path});
    const QStringList lines = fonts.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QVERIFY(lines.size() > 2);
    for (int i = 2; i < lines.size(); ++i)
        QVERIFY2(lines[i].contains(QRegularExpression(QStringLiteral("\\byes +(yes|no) +yes\\b"))),
                 qPrintable(lines[i]));
}

void tst_list_printing::cancel_saves_nothing()
{
    EditingWindow w;
    w.rows(3);
    QTemporaryDir documents;
    w.environment().documents_folder = documents.path();
    w.open();
    MessageScript script;
    script.drive([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    trigger(w, "mnu_list_Print");
    QCOMPARE(QDir(documents.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::Hidden),
             QStringList());
}

void tst_list_printing::a_path_that_cannot_be_written_is_told()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    MessageScript script;
    script.drive(save_as(QStringLiteral("/proc/list.pdf")));
    script.expect(QStringLiteral("Tarnwick"), QStringLiteral("The file cannot be written:\n/proc/list.pdf"));
    trigger(w, "mnu_list_Print");
}

void tst_list_printing::the_proposed_name_holds_no_slash_and_ends_in_pdf_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("plain") << QStringLiteral("Weekly list") << QStringLiteral("Weekly list.pdf");
    QTest::newRow("slash") << QStringLiteral("Fish/meat list") << QStringLiteral("Fish-meat list.pdf");
    QTest::newRow("only slashes") << QStringLiteral("//") << QStringLiteral("--.pdf");
    QTest::newRow("dots") << QStringLiteral("../up") << QStringLiteral("-up.pdf");
    QTest::newRow("nothing") << QStringLiteral("  ") << QStringLiteral("Tarnwick.pdf");
    QTest::newRow("accents") << QStringLiteral("Crème brûlée") << QStringLiteral("Crème brûlée.pdf");
    QTest::newRow("long") << QString(300, QLatin1Char('x'))
                          << QString(80, QLatin1Char('x')) + QStringLiteral(".pdf");
}

void tst_list_printing::the_proposed_name_holds_no_slash_and_ends_in_pdf()
{
    QFETCH(QString, name);
    QTEST(pdf_file_name(name), "file");
}

void tst_list_printing::an_empty_list_is_told()
{
    for (const ToolButton which : {ToolButton::print, ToolButton::preview}) {
        EditingWindow w;
        TestPrinter printer(w);
        set_report(w, "active", 0);
        w.load();
        MessageScript script;
        script.expect(QStringLiteral("Valora info"), QStringLiteral("No items to print"));
        click_button(w, which);
        QCOMPARE(printer.jobs, 0);
    }
}

void tst_list_printing::no_buy_it_rows_are_told_with_a_tip()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.add_row(w.add_item(QStringLiteral("Milk"), 0), w.list, false);
    w.load();
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"),
                  QStringLiteral("There are no 'buy-it' items to print\n\nTip: To print ALL items, go to \n"
                                 "       'Shopping lists / Print setup'\n       on the menu bar and deselect\n"
                                 "       the option marked 'buy-it' only"));
    trigger(w, "mnu_list_Print");
    QCOMPARE(printer.jobs, 0);
}

void tst_list_printing::an_empty_list_with_the_buy_it_option_is_told_as_empty()
{
    EditingWindow w;
    w.load();
    MessageScript script;
    script.expect(QStringLiteral("Valora info"), QStringLiteral("No items to print"));
    trigger(w, "mnu_list_Print");
}

void tst_list_printing::without_a_list_print_and_preview_are_disabled()
{
    TestWindow w;
    w.set_pref(QStringLiteral("alist"), QStringLiteral("-1"));
    w.load();
    QVERIFY(!w.main().commands().action(QStringLiteral("mnu_list_Print")).isEnabled());
    for (const ToolButton which : {ToolButton::print, ToolButton::preview})
        QVERIFY(!w.find<QWidget>(tool_button(which))->isEnabled());
}

void tst_list_printing::an_open_row_is_written_before_it_is_printed()
{
    EditingWindow w;
    TestPrinter printer(w);
    set_report(w, "sort", 0);
    w.rows(3);
    w.open();
    w.open_row(1);
    w.type_into("desc_brdr", QStringLiteral("ripe"));
    click_button(w, ToolButton::print);
    QVERIFY(!w.editor().is_open());
    QVERIFY(printer.job(0).value(0).text().contains(QLatin1String("Item 001: ripe")));
}

void tst_list_printing::the_print_setup_prints_and_previews_and_stays_open()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(3);
    w.open();
    MessageScript script;
    script.drive([&](QDialog& setup) {
        QCOMPARE(setup.objectName(), QStringLiteral("pic_frm"));
        click(setup, 0);
        QCOMPARE(printer.jobs, 1);
        QVERIFY(setup.isVisible());
        click(setup, 1);
        QVERIFY(setup.isVisible());
        click(setup, 2);
        QVERIFY(!setup.isVisible());
    });
    script.drive([&](QDialog& preview) {
        QCOMPARE(preview.objectName(), QStringLiteral("prev_frm"));
        QCOMPARE(preview.parentWidget()->objectName(), QStringLiteral("pic_frm"));
        click(preview, 4);
    });
    trigger(w, "mnu_list_prntsetup");
    QCOMPARE(printer.jobs, 1);
}

void tst_list_printing::the_print_setup_without_rows_ends_in_no_items_to_print_data()
{
    QTest::addColumn<bool>("has_list");
    QTest::addColumn<int>("active");
    for (const int active : {0, 1}) {
        QTest::addRow("empty list, active %d", active) << true << active;
        QTest::addRow("no list, active %d", active) << false << active;
    }
}

void tst_list_printing::the_print_setup_without_rows_ends_in_no_items_to_print()
{
    QFETCH(bool, has_list);
    QFETCH(int, active);
    TestWindow w;
    const Key list = has_list ? w.add_list(QStringLiteral("Corner shop")) : -1;
    w.set_pref(QStringLiteral("alist"), QString::number(list));
    TestPrinter printer(w);
    set_report(w, "active", active == 1 ? 1 : 0);
    w.load();
    QCOMPARE(w.main().shared.current_list > 0, has_list);
    MessageScript script;
    script.drive([](QDialog& setup) {
        click(setup, 0);
        click(setup, 1);
        QVERIFY(setup.isVisible());
        click(setup, 2);
    });
    for (int i = 0; i < 2; ++i)
        script.expect(QStringLiteral("Valora info"), QStringLiteral("No items to print"));
    trigger(w, "mnu_list_prntsetup");
    QCOMPARE(script.left(), 0);
    QCOMPARE(printer.jobs, 0);
}

QTEST_MAIN(tst_list_printing)
#include "tst_list_printing.moc"
