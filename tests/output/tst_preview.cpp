#include "lists/editing_window.h"
#include "output/page_painter.h"
#include "output/preview_window.h"
#include "output/print_fixture.h"
#include "output/sample_page.h"

#include <QPainter>
#include <QScrollBar>
#include <QSet>

using namespace tarnwick;

namespace {

/// All print options: order, columns, rows to buy alone, type size.
void set_reports(TestWindow& w, int sort, int columns, int active, int size)
{
    set_report(w, "sort", sort);
    set_report(w, "col_ct", columns);
    set_report(w, "active", active);
    set_report(w, "size", size);
}

/// Opens the preview of the list by its button and hands it to the function, which closes it.
void preview(EditingWindow& w, const std::function<void(QDialog&)>& look)
{
    MessageScript script;
    script.drive([&look](QDialog& window) {
        look(window);
        window.reject(); // where a failed check left it open
    });
    click_button(w, ToolButton::preview);
}

QString shown_number(QDialog& window)
{
    return dynamic_cast<QLabel&>(part(window, "txt_pg")).text();
}

/// The page buttons that are enabled, of "first previous next last".
QString enabled_buttons(QDialog& window)
{
    QString enabled;
    const char letters[] = "fpnl";
    for (int i = 0; i < 4; ++i)
        if (Command1(window, i).isEnabled())
            enabled += QLatin1Char(letters[i]);
    return enabled;
}

QScrollBar& bar(QDialog& window, const char* name)
{
    return dynamic_cast<QScrollBar&>(part(window, name));
}

bool has_ink(const QImage& image, QRect box)
{
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x)
            if (qGray(image.pixel(x, y)) < 200)
                return true;
    return false;
}

/// A page of a PDF file from A4 with margins of 10 mm, as large as the page form.
QImage paper_page(const QString& file, int number)
{
    constexpr double dots_per_mm = 2 * page_form::width / 190.0; // the printable width is 190 mm
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("page"));
    pdf_tool(QStringLiteral("pdftoppm"),
             {QStringLiteral("-png"), QStringLiteral("-singlefile"), QStringLiteral("-r"),
              QString::number(dots_per_mm * 25.4), QStringLiteral("-f"), QString::number(number),
              QStringLiteral("-l"), QString::number(number), file, target});
    const QPoint corner(qRound(10 * dots_per_mm), qRound(10 * dots_per_mm));
    return QImage(target + QStringLiteral(".png"))
        .copy(QRect(corner, 2 * QSize(page_form::width, page_form::height)))
        .scaled(page_form::width, page_form::height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// The largest difference in lightness, 0 to 255, of two pictures seen through squares of 24 pixels.
int difference(const QImage& one, const QImage& other)
{
    constexpr int square = 24;
    const auto coarse = [](const QImage& image) {
        return image.convertToFormat(QImage::Format_RGB32)
            .scaled(image.width() / square, image.height() / square, Qt::IgnoreAspectRatio,
                    Qt::SmoothTransformation);
    };
    const QImage a = coarse(one);
    const QImage b = coarse(other);
    int most = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            most = std::max(most, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
    return most;
}

} // namespace

class tst_preview : public QObject {
    Q_OBJECT
private slots:
    void the_preview_is_a_modal_window_with_the_lists_title();
    void the_preview_of_all_lists_is_titled_all_lists();
    void a_one_page_preview_has_all_four_page_buttons_disabled();
    void the_page_buttons_turn_the_pages();
    void after_the_last_page_next_is_disabled_and_the_number_stays();
    void the_frame_carries_what_is_painted();
    void the_frame_is_as_large_as_the_page_form();
    void what_the_frame_carries_is_renewed_at_each_page();
    void every_text_of_the_page_has_ink_in_its_box();
    void preview_and_paper_have_the_same_texts();
    void preview_and_paper_look_the_same_data();
    void preview_and_paper_look_the_same();
    void print_prints_all_pages_and_closes();
    void close_prints_nothing();
    void the_main_window_is_active_again_after_the_preview();
    void the_window_narrower_than_the_page_shows_its_bars_at_once();
    void a_large_window_has_no_bars_and_the_page_stands_at_0();
    void the_page_moves_by_16_pixels_a_step();
    void the_bars_reach_the_far_corner_of_the_page();
    void a_turned_page_is_seen_from_its_top();
    void the_wheel_and_the_keys_scroll();
    void an_open_row_is_closed_before_the_preview();
    void escape_closes_the_preview();
    // The sample pictures
    void the_sample_follows_the_options();
    void there_are_four_samples_and_all_differ();
};

void tst_preview::the_preview_is_a_modal_window_with_the_lists_title()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        QCOMPARE(window.objectName(), QStringLiteral("prev_frm"));
        QVERIFY(window.isModal());
        QCOMPARE(window.windowTitle(), QStringLiteral("Preview: Corner shop list"));
        for (const char* name : {"Frame1", "frame2", "HScroll1", "VScroll1", "fill_box", "txt_pg"})
            QVERIFY2(window.findChild<QWidget*>(QLatin1String(name)), name);
        QCOMPARE(Command1(window, 4).text(), QStringLiteral("Close"));
        QCOMPARE(Command1(window, 5).text(), QStringLiteral("Print"));
        click(window, 4);
    });
}

void tst_preview::the_preview_of_all_lists_is_titled_all_lists()
{
    EditingWindow w;
    w.rows(3);
    w.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    w.set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    w.open();
    preview(w, [](QDialog& window) {
        QCOMPARE(window.windowTitle(), QStringLiteral("Preview: All lists"));
        QCOMPARE(shown_text(window, "LblColTitle(0)"), QStringLiteral("All lists"));
        click(window, 4);
    });
}

void tst_preview::a_one_page_preview_has_all_four_page_buttons_disabled()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        QCOMPARE(enabled_buttons(window), QString());
        QCOMPARE(window.property("page_count").toInt(), 1);
        QCOMPARE(shown_number(window), QStringLiteral("1"));
        click(window, 4);
    });
}

void tst_preview::the_page_buttons_turn_the_pages()
{
    EditingWindow w;
    w.rows(150);
    w.open();
    preview(w, [](QDialog& window) {
        const auto at = [&](int page_no, const char* enabled) {
            QCOMPARE(shown_number(window), QString::number(page_no));
            QCOMPARE(window.property("page_no").toInt(), page_no);
            QCOMPARE(enabled_buttons(window), QLatin1String(enabled));
            QCOMPARE(shown_text(window, "page_foot"), QStringLiteral("page %1 of 3").arg(page_no));
        };
        QCOMPARE(window.property("page_count").toInt(), 3);
        at(1, "nl");
        click(window, 2);
        at(2, "fpnl");
        click(window, 1);
        at(1, "nl");
        click(window, 3);
        at(3, "fp");
        click(window, 0);
        at(1, "nl");
        click(window, 4);
    });
}

void tst_preview::after_the_last_page_next_is_disabled_and_the_number_stays()
{
    EditingWindow w;
    w.rows(100);
    w.open();
    preview(w, [](QDialog& window) {
        click(window, 2);
        QCOMPARE(shown_number(window), QStringLiteral("2"));
        QVERIFY(!Command1(window, 2).isEnabled());
        QTest::mouseClick(&Command1(window, 2), Qt::LeftButton);
        QCOMPARE(shown_number(window), QStringLiteral("2"));
        QCOMPARE(window.property("page_no").toInt(), 2);
        click(window, 4);
    });
}

void tst_preview::the_frame_carries_what_is_painted()
{
    EditingWindow w;
    w.coupon(w.row(QStringLiteral("Apples"), QStringLiteral("red"), QStringLiteral("2"), QStringLiteral("7")),
             QStringLiteral("2026-03-01"), true);
    set_reports(w, 0, 1, 0, 1);
    w.open();
    preview(w, [](QDialog& window) {
        const QVariantMap item = shown(window, QStringLiteral("txtItem(0)"));
        QCOMPARE(item.value(QStringLiteral("text")).toString(), QStringLiteral("Apples: red"));
        QCOMPARE(item.value(QStringLiteral("w")).toInt(), 488);
        QCOMPARE(item.value(QStringLiteral("h")).toInt(), 16);
        QCOMPARE(item.value(QStringLiteral("size")).toInt(), 10);
        QCOMPARE(item.value(QStringLiteral("align")).toInt(), 0);
        QCOMPARE(item.value(QStringLiteral("bold")).toBool(), false);
        QCOMPARE(shown(window, QStringLiteral("txtQty(0)")).value(QStringLiteral("x")).toInt(), 626);
        QCOMPARE(shown(window, QStringLiteral("txtCpn(0)")).value(QStringLiteral("strike")).toBool(), true);
        QCOMPARE(shown(window, QStringLiteral("Checkbox(0)")).value(QStringLiteral("checked")).toBool(), true);
        QCOMPARE(shown(window, QStringLiteral("Line3(0)")).value(QStringLiteral("x1")).toInt(), 647);
        QVERIFY(!shown(window, QStringLiteral("Picture1(0)")).isEmpty());
        click(window, 4);
    });
}

void tst_preview::the_frame_is_as_large_as_the_page_form()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        QCOMPARE(part(window, "Frame1").size(), QSize(page_form::width, page_form::height));
        QCOMPARE(part(window, "Frame1").parentWidget(), &part(window, "frame2"));
        click(window, 4);
    });
}

void tst_preview::what_the_frame_carries_is_renewed_at_each_page()
{
    EditingWindow w;
    w.rows(100);
    set_reports(w, 0, 1, 1, 0);
    w.open();
    preview(w, [](QDialog& window) {
        QCOMPARE(shown_text(window, "txtItem(0)"), QStringLiteral("Item 000: some"));
        click(window, 3);
        QCOMPARE(shown_text(window, "txtItem(0)"), QStringLiteral("Item 070: some"));
        QCOMPARE(shown_text(window, "txtItem(29)"), QStringLiteral("Item 099: some"));
        QCOMPARE(shown_text(window, "txtItem(30)"), QStringLiteral("(none)"));
        click(window, 4);
    });
}

void tst_preview::every_text_of_the_page_has_ink_in_its_box()
{
    EditingWindow w;
    w.rows(100);
    w.open();
    preview(w, [](QDialog& window) {
        QWidget& frame = part(window, "Frame1");
        const QImage image = frame.grab().toImage();
        const qreal scale = image.devicePixelRatio();
        int texts = 0;
        for (const QVariant& each : shown_page(window)) {
            const QVariantMap map = each.toMap();
            if (map.value(QStringLiteral("text")).toString().trimmed().isEmpty())
                continue;
            ++texts;
            const QRect box(map.value(QStringLiteral("x")).toInt(), map.value(QStringLiteral("y")).toInt(),
                            map.value(QStringLiteral("w")).toInt(), map.value(QStringLiteral("h")).toInt());
            QVERIFY2(has_ink(image, QRect(box.topLeft() * scale, box.size() * scale)),
                     qPrintable(map.value(QStringLiteral("name")).toString()));
        }
        QVERIFY(texts > 100);
        click(window, 4);
    });
}

void tst_preview::preview_and_paper_have_the_same_texts()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(100);
    w.open();
    QSet<QString> previewed;
    preview(w, [&](QDialog& window) {
        for (const QVariant& each : shown_page(window))
            for (const QString& word :
                 each.toMap().value(QStringLiteral("text")).toString().split(u' ', Qt::SkipEmptyParts))
                previewed.insert(word);
        click(window, 5);
    });
    QSet<QString> printed;
    for (const PdfWord& word : printer.job(0).value(0).words)
        printed.insert(word.text);
    QCOMPARE(printed, previewed);
}

void tst_preview::preview_and_paper_look_the_same_data()
{
    QTest::addColumn<Key>("columns");
    QTest::addColumn<Key>("sort");
    for (Key columns = 1; columns <= 2; ++columns)
        for (Key sort = 0; sort <= 2; ++sort)
            QTest::addRow("%d columns, sort %d", static_cast<int>(columns), static_cast<int>(sort))
                << columns << sort;
}

void tst_preview::preview_and_paper_look_the_same()
{
    QFETCH(Key, columns);
    QFETCH(Key, sort);
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(150);
    set_reports(w, sort, columns, 0, 1);
    w.open();
    QList<QImage> previewed;
    preview(w, [&](QDialog& window) {
        for (;;) {
            previewed.append(part(window, "Frame1").grab().toImage().scaled(page_form::width, page_form::height));
            if (!Command1(window, 2).isEnabled())
                break;
            click(window, 2);
        }
        click(window, 5);
    });
    QVERIFY(previewed.size() > 1);
    QCOMPARE(printer.job(0).size(), previewed.size());
    const QImage first = paper_page(printer.file(0), 1);
    QVERIFY2(difference(first, previewed.last()) > 30, "pages that differ are not told apart");
    for (int page = 0; page < previewed.size(); ++page) {
        const int differs = difference(paper_page(printer.file(0), page + 1), previewed.at(page));
        QVERIFY2(differs < 12, qPrintable(QStringLiteral("page %1 differs by %2").arg(page + 1).arg(differs)));
    }
}

void tst_preview::print_prints_all_pages_and_closes()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(150);
    w.open();
    preview(w, [](QDialog& window) {
        click(window, 2);
        click(window, 5);
        QVERIFY(!window.isVisible());
    });
    QCOMPARE(printer.jobs, 1);
    QCOMPARE(printer.job(0).size(), 3);
}

void tst_preview::close_prints_nothing()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) { click(window, 4); });
    QCOMPARE(printer.jobs, 0);
}

void tst_preview::the_main_window_is_active_again_after_the_preview()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        QCOMPARE(QApplication::activeModalWidget(), &window);
        click(window, 4);
    });
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    QVERIFY(w.main().isEnabled());
}

void tst_preview::the_window_narrower_than_the_page_shows_its_bars_at_once()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        window.resize(500, 400);
        QVERIFY(bar(window, "HScroll1").isVisible());
        QVERIFY(bar(window, "VScroll1").isVisible());
        QVERIFY(part(window, "fill_box").isVisible());
        const QRect across = bar(window, "HScroll1").geometry();
        const QRect down = bar(window, "VScroll1").geometry();
        const QRect frame = part(window, "frame2").rect();
        QCOMPARE(across.bottom(), frame.bottom());
        QCOMPARE(down.right(), frame.right());
        QCOMPARE(part(window, "fill_box").geometry(),
                 QRect(down.left(), across.top(), down.width(), across.height()));
        click(window, 4);
    });
}

void tst_preview::a_large_window_has_no_bars_and_the_page_stands_at_0()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        window.resize(500, 400);
        bar(window, "VScroll1").setValue(5);
        bar(window, "HScroll1").setValue(5);
        window.resize(page_form::width + 40, page_form::height + 100);
        QVERIFY(!bar(window, "HScroll1").isVisible());
        QVERIFY(!bar(window, "VScroll1").isVisible());
        QVERIFY(!part(window, "fill_box").isVisible());
        QCOMPARE(part(window, "Frame1").pos(), QPoint(0, 0));
        click(window, 4);
    });
}

void tst_preview::the_page_moves_by_16_pixels_a_step()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        window.resize(500, 400);
        QCOMPARE(part(window, "Frame1").pos(), QPoint(0, 0));
        bar(window, "HScroll1").setValue(3);
        bar(window, "VScroll1").setValue(7);
        QCOMPARE(part(window, "Frame1").pos(), QPoint(-48, -112));
        click(window, 4);
    });
}

void tst_preview::the_bars_reach_the_far_corner_of_the_page()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        for (const QSize size : {QSize(500, 400), QSize(741, 903), QSize(770, 600)}) {
            window.resize(size);
            for (const char* name : {"HScroll1", "VScroll1"})
                bar(window, name).setValue(bar(window, name).maximum());
            const QRect page = part(window, "Frame1").geometry();
            const QScrollBar& down = bar(window, "VScroll1");
            const QScrollBar& across = bar(window, "HScroll1");
            const QRect frame = part(window, "frame2").rect();
            const int right = down.isVisible() ? down.x() : frame.width();
            const int bottom = across.isVisible() ? across.y() : frame.height();
            QVERIFY(page.right() < right && page.right() + 1 > right - 16);
            QVERIFY(page.bottom() < bottom && page.bottom() + 1 > bottom - 16);
        }
        click(window, 4);
    });
}

void tst_preview::a_turned_page_is_seen_from_its_top()
{
    EditingWindow w;
    w.rows(100);
    w.open();
    preview(w, [](QDialog& window) {
        window.resize(500, 400);
        bar(window, "VScroll1").setValue(9);
        click(window, 2);
        QCOMPARE(part(window, "Frame1").y(), -16 * bar(window, "VScroll1").value());
        QCOMPARE(bar(window, "VScroll1").value(), 0);
        click(window, 4);
    });
}

void tst_preview::the_wheel_and_the_keys_scroll()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        window.resize(500, 400);
        QTest::keyClick(&window, Qt::Key_Down);
        QCOMPARE(bar(window, "VScroll1").value(), 1);
        QTest::keyClick(&window, Qt::Key_PageDown);
        QVERIFY(bar(window, "VScroll1").value() > 5);
        QTest::keyClick(&window, Qt::Key_PageUp);
        QTest::keyClick(&window, Qt::Key_Up);
        QCOMPARE(bar(window, "VScroll1").value(), 0);
        QWidget& frame = part(window, "Frame1");
        const QPointF at(50, 50);
        QWheelEvent down(at, frame.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&window, &down);
        QCOMPARE(bar(window, "VScroll1").value(), 3);
        click(window, 4);
    });
}

void tst_preview::an_open_row_is_closed_before_the_preview()
{
    EditingWindow w;
    w.rows(3);
    set_report(w, "sort", 0);
    w.open();
    w.open_row(1);
    w.type_into("desc_brdr", QStringLiteral("ripe"));
    preview(w, [&](QDialog& window) {
        QVERIFY(!w.editor().is_open());
        QCOMPARE(shown_text(window, "txtItem(1)"), QStringLiteral("Item 001: ripe"));
        click(window, 4);
    });
}

void tst_preview::escape_closes_the_preview()
{
    EditingWindow w;
    TestPrinter printer(w);
    w.rows(3);
    w.open();
    preview(w, [](QDialog& window) {
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    });
    QCOMPARE(printer.jobs, 0);
}

void tst_preview::the_sample_follows_the_options()
{
    QCOMPARE(sample_number({ReportSort::by_item, 1, 1, 0}), 138);
    QCOMPARE(sample_number({ReportSort::by_category, 1, 1, 0}), 139);
    QCOMPARE(sample_number({ReportSort::by_aisle, 1, 1, 0}), 138);
    QCOMPARE(sample_number({ReportSort::by_item, 2, 1, 0}), 140);
    QCOMPARE(sample_number({ReportSort::by_category, 2, 1, 0}), 141);
    QCOMPARE(sample_number({ReportSort::by_aisle, 2, 1, 0}), 140);
}

void tst_preview::there_are_four_samples_and_all_differ()
{
    QList<QImage> images;
    for (int number = 138; number <= 141; ++number) {
        const QPixmap pixmap = sample_picture(number);
        QVERIFY(!pixmap.isNull());
        QCOMPARE(sample_picture(number, 2.0).width(), 2 * pixmap.width());
        QVERIFY(!images.contains(pixmap.toImage()));
        images.append(pixmap.toImage());
    }
    QVERIFY(sample_picture(137).isNull());
    QVERIFY(sample_picture(142).isNull());
}

QTEST_MAIN(tst_preview)
#include "tst_preview.moc"
