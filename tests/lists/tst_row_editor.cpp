#include "lists/editing_window.h"
#include "window/commands.h"
#include "widgets/pictures.h"
#include "widgets/tree_view.h"

#include <QClipboard>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>

using namespace tarnwick;

namespace {

struct TextBox {
    const char* name;
    const char* field;
    GridColumn column;
};
constexpr TextBox text_boxes[] = {{"desc_brdr", "desc", GridColumn::desc},
                                  {"qty_brdr", "qty", GridColumn::qty},
                                  {"aisle_brdr", "aisle", GridColumn::aisle}};

} // namespace

class tst_row_editor : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    // opening and placing
    void nothing_is_shown_before_a_row_is_opened();
    void boxes_cover_their_cells_data() { sizes_and_groups(); }
    void boxes_cover_their_cells();
    void steppers_stand_one_above_the_other_data() { sizes_and_groups(); }
    void steppers_stand_one_above_the_other();
    void pencil_and_cross_stand_at_the_end_of_the_name();
    void a_name_ends_before_pencil_and_cross_in_a_narrow_column();
    void boxes_open_with_the_text_of_their_cells();
    void texts_take_the_type_size_data();
    void texts_take_the_type_size();
    void a_text_stands_where_the_grid_draws_it_data();
    void a_text_stands_where_the_grid_draws_it();
    void opening_without_a_row_does_nothing();
    void opening_writes_nothing();
    void a_row_out_of_view_is_scrolled_in();
    void controls_end_at_the_grids_edge();

    // write-through
    void each_key_is_written_at_once_data() { boxes(); }
    void each_key_is_written_at_once();
    void blanking_a_description_stores_one_blank_and_the_cell_stays_empty();
    void blanking_any_box_stores_one_blank_data() { boxes(); }
    void blanking_any_box_stores_one_blank();
    void any_text_is_taken_data();
    void any_text_is_taken();
    void pasted_line_ends_become_blanks();
    void the_box_keeps_what_was_typed();
    void typing_in_a_row_that_has_gone_is_skipped();
    void a_key_changes_one_cell_and_loads_nothing();
    void a_description_longer_than_a_box_usually_takes_is_not_cut();

    // steppers
    void a_quantity_of_letters_alone_steps_to_1_followed_by_those_letters();
    void a_quantity_of_1_stepped_down_shows_an_empty_box_and_stores_one_blank();
    void steppers_write_quantity_and_aisle();
    void a_number_of_many_digits_steps();
    void a_held_stepper_shows_its_pressed_picture_data();
    void a_held_stepper_shows_its_pressed_picture();

private:
    static void sizes_and_groups();
    static void boxes();
    void open_at(int size, bool coupon_group, bool aisle_group);
    EditingWindow& w() { return *window_; }

    std::unique_ptr<EditingWindow> window_;
};

void tst_row_editor::sizes_and_groups()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("coupon");
    QTest::addColumn<bool>("aisle");
    for (const int size : {9, 10, 12})
        for (const bool coupon : {true, false})
            for (const bool aisle : {true, false})
                QTest::addRow("%d points, coupon %s, aisle %s", size, coupon ? "on" : "off", aisle ? "on" : "off")
                    << size << coupon << aisle;
}

void tst_row_editor::boxes()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<GridColumn>("column");
    for (const TextBox& box : text_boxes)
        QTest::newRow(box.field) << QByteArray(box.name) << QByteArray(box.field) << box.column;
}

void tst_row_editor::open_at(int size, bool coupon_group, bool aisle_group)
{
    w().set_pref(QStringLiteral("font"), QString::number(size));
    w().rows(4);
    w().coupon(2, QStringLiteral("2026-12-31"), true);
    w().open();
    QCOMPARE(w().grid().row_height(), size == 9 ? 19 : size == 10 ? 24 : 28);
    w().set_group(ColumnGroup::coupon, coupon_group);
    w().set_group(ColumnGroup::aisle, aisle_group);
    w().open_row(1);
}

void tst_row_editor::nothing_is_shown_before_a_row_is_opened()
{
    w().rows(2);
    w().open();
    for (const char* name : all_controls)
        QVERIFY2(!w().shown(name), name);
    QCOMPARE(w().editor().edit_row(), -1);
}

void tst_row_editor::boxes_cover_their_cells()
{
    QFETCH(int, size);
    QFETCH(bool, coupon);
    QFETCH(bool, aisle);
    open_at(size, coupon, aisle);

    const auto covers = [this](const char* name, GridColumn column, bool expected) {
        QVERIFY2(w().shown(name) == expected, name);
        if (!expected)
            return;
        // The columns are two pixels wider than the grid, so the last cell ends beyond it.
        const QRect cell = w().cell_in_form(column) & w().grid().geometry();
        const QRect box = w().in_form(name);
        const QString what = QStringLiteral("%1: box %2..%3 over cell %4..%5")
                                 .arg(QLatin1String(name))
                                 .arg(box.left())
                                 .arg(box.right())
                                 .arg(cell.left())
                                 .arg(cell.right());
        QCOMPARE(box.top(), cell.top());
        QCOMPARE(box.height(), cell.height());
        QVERIFY2(qAbs(box.left() - cell.left()) <= 1 && qAbs(box.right() - cell.right()) <= 1, qPrintable(what));
    };
    covers("desc_brdr", GridColumn::desc, true);
    covers("qty_brdr", GridColumn::qty, true);
    covers("cpn_bkgrnd", GridColumn::coupon, coupon);
    covers("chck_box", GridColumn::coupon, coupon);
    covers("dp_frame", GridColumn::date, coupon);
    covers("dp_brdr", GridColumn::date, coupon);
    covers("cpn_brdr", GridColumn::date, coupon);
    covers("aisle_brdr", GridColumn::aisle, aisle);
    QCOMPARE(w().shown("dtp_btn"), coupon);
    QVERIFY(!w().shown("MonthView1"));
}

void tst_row_editor::steppers_stand_one_above_the_other()
{
    QFETCH(int, size);
    QFETCH(bool, coupon);
    QFETCH(bool, aisle);
    open_at(size, coupon, aisle);

    const QSize up = size == 9 ? QSize(9, 10) : size == 10 ? QSize(11, 13) : QSize(13, 15);
    const QSize down = size == 9 ? QSize(9, 10) : size == 10 ? QSize(11, 12) : QSize(13, 14);
    const auto stand = [&](const char* box, const char* first, const char* second) {
        const QRect over = w().in_form(box);
        QCOMPARE(w().in_form(first), QRect(QPoint(over.right() + 1 - up.width(), over.top()), up));
        QCOMPARE(w().in_form(second),
                 QRect(QPoint(over.right() + 1 - down.width(), over.top() + up.height() - 1), down));
        QCOMPARE(w().in_form(second).bottom(), over.bottom());
    };
    stand("qty_brdr", "qty_btn(0)", "qty_btn(1)");
    QCOMPARE(w().shown("aisle_btn(0)"), aisle);
    QCOMPARE(w().shown("aisle_btn(1)"), aisle);
    if (aisle)
        stand("aisle_brdr", "aisle_btn(0)", "aisle_btn(1)");
}

void tst_row_editor::pencil_and_cross_stand_at_the_end_of_the_name()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    const QRect frame = w().in_form("frmEditDel");
    const QRect desc = w().in_form("desc_brdr");
    QCOMPARE(frame.left(), desc.left() - 44);
    QCOMPARE(frame.width(), 41);
    QCOMPARE(frame.top(), desc.top());
    QCOMPARE(w().widget("imgedit").x(), 8);
    QCOMPARE(w().widget("imgScratch").x(), 25);
    QCOMPARE(w().widget("imgedit").property("picture").toInt(), 101);
    QCOMPARE(w().widget("imgScratch").property("picture").toInt(), 111);
    QVERIFY(w().shown("imgedit") && w().shown("imgScratch"));

    // Where the name is short of room they come closer together, and then go.
    w().editor().lv_edit_off();
    w().grid().set_col_width(GridColumn::item, 60);
    w().open_row(1);
    QVERIFY(w().shown("frmEditDel"));
    QCOMPARE(w().in_form("frmEditDel").width(), 33);
    QVERIFY(w().in_form("frmEditDel").left() > w().cell_in_form(GridColumn::item).left() + 20);
    w().editor().lv_edit_off();
    w().grid().set_col_width(GridColumn::item, 40);
    w().open_row(1);
    QVERIFY(!w().shown("frmEditDel"));
}

void tst_row_editor::a_name_ends_before_pencil_and_cross_in_a_narrow_column()
{
    w().row(QStringLiteral("Mmmmmmmmmmmmmmmm"));
    w().open();
    w().grid().set_col_width(GridColumn::item, 70);
    w().open_row(0);
    QVERIFY(w().shown("frmEditDel"));
    const QRect cell = w().cell_in_form(GridColumn::item);
    const QImage picture = w().grid().parentWidget()->grab().toImage();
    const auto has_ink = [&](int x) {
        const QColor ground = picture.pixelColor(x, cell.top() + 1);
        for (int y = cell.top() + 2; y < cell.bottom() - 1; ++y)
            if (qAbs(picture.pixelColor(x, y).lightness() - ground.lightness()) > 40)
                return true;
        return false;
    };
    const int frame = w().in_form("frmEditDel").left();
    bool name_is_seen = false;
    for (int x = cell.left() + 6; x < frame - 3; ++x)
        name_is_seen = name_is_seen || has_ink(x);
    QVERIFY(name_is_seen);
    for (int x = frame - 3; x < frame; ++x)
        QVERIFY2(!has_ink(x), qPrintable(QStringLiteral("%1 pixels before the frame").arg(frame - x)));
}

void tst_row_editor::boxes_open_with_the_text_of_their_cells()
{
    const Key key = w().row(QStringLiteral("Milk"), QStringLiteral("skimmed"), QStringLiteral("2 l"));
    w().coupon(key, QStringLiteral("2027-01-05"), true);
    w().row(QStringLiteral("Salt"));
    w().open();
    w().open_row(0);
    for (const TextBox& box : text_boxes) {
        QCOMPARE(w().box(box.name).text(), w().cell(0, box.column));
        QCOMPARE(w().box(box.name).property("Tag").toString(), w().cell(0, box.column));
    }
    QCOMPARE(w().box("desc_brdr").text(), QStringLiteral("skimmed"));
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("1/5/27"));
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("1/5/2027"));
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("ON"));
    w().open_row(1);
    QCOMPARE(trim(w().box("desc_brdr").text()), QString());
    QCOMPARE(trim(w().box("dp_brdr").text()), QString());
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("OFF"));
    QVERIFY(!w().shown("dtp_btn"));
}

void tst_row_editor::texts_take_the_type_size_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("date_points");
    QTest::newRow("9") << 9 << 9 << 9;
    QTest::newRow("10") << 10 << 10 << 10;
    QTest::newRow("12, the date smaller") << 12 << 12 << 10;
}

void tst_row_editor::texts_take_the_type_size()
{
    QFETCH(int, size);
    QFETCH(int, points);
    QFETCH(int, date_points);
    open_at(size, true, true);
    for (const char* name : {"desc_brdr", "qty_brdr", "aisle_brdr"})
        QCOMPARE(w().box(name).font().pointSize(), points);
    QCOMPARE(w().box("dp_brdr").font().pointSize(), date_points);
    QCOMPARE(w().widget("imgedit").property("picture").toInt(), size == 12 ? 189 : 101);
    QCOMPARE(w().widget("imgScratch").property("picture").toInt(), size == 12 ? 190 : 111);
}

void tst_row_editor::a_text_stands_where_the_grid_draws_it_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {9, 10, 12})
        QTest::addRow("%d points", size) << size;
}

/// Compares the ink of the box with the ink of the cell under it.
void tst_row_editor::a_text_stands_where_the_grid_draws_it()
{
    QFETCH(int, size);
    open_at(size, true, true);
    const auto ink = [](const QImage& image) {
        QRect bounds;
        for (int y = 2; y < image.height() - 2; ++y)
            for (int x = 2; x < 22; ++x)
                if (qGray(image.pixel(x, y)) < 110)
                    bounds |= QRect(x, y, 1, 1);
        return bounds;
    };
    for (const TextBox& box : text_boxes) {
        const QRect cell = w().cell_in_form(box.column);
        const QImage with_box = w().grid().parentWidget()->grab(cell).toImage();
        w().box(box.name).hide();
        for (const char* button : {"qty_btn(0)", "qty_btn(1)", "aisle_btn(0)", "aisle_btn(1)"})
            w().widget(button).hide();
        const QImage without = w().grid().parentWidget()->grab(cell).toImage();
        const QRect in_box = ink(with_box);
        const QRect in_cell = ink(without);
        QVERIFY(in_cell.width() > 3);
        QCOMPARE(in_box.top(), in_cell.top());
        QCOMPARE(in_box.bottom(), in_cell.bottom());
        // The faint side of a letter may count on the row's ground and not on the box's white.
        QVERIFY2(qAbs(in_box.left() - in_cell.left()) <= 1, box.name);
        QVERIFY2(qAbs(in_box.right() - in_cell.right()) <= 1, box.name);
    }
}

void tst_row_editor::opening_without_a_row_does_nothing()
{
    w().load();
    w().editor().show_l_line();
    QVERIFY(!w().editor().is_open());
    w().editor().place_again();
    w().editor().hide_line();
    w().editor().lv_edit_off();
    QVERIFY(!w().editor().is_open());
}

void tst_row_editor::opening_writes_nothing()
{
    w().rows(3);
    w().open();
    Query(w().db(), "UPDATE groc_1 SET desc = 'elsewhere', qty = 'x', aisle = 'y', created = '2000-01-01'").run();
    w().open_row(0);
    w().open_row(1);
    w().open_row(2);
    w().editor().place_again();
    w().editor().set_type_size(12);
    QTest::mouseClick(&w().box("desc_brdr"), Qt::LeftButton);
    w().editor().lv_edit_off();
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE desc = 'elsewhere' AND qty = 'x' AND aisle = 'y'"
                        " AND created = '2000-01-01' AND cpn = 0"),
             3);
}

void tst_row_editor::a_row_out_of_view_is_scrolled_in()
{
    w().rows(80);
    w().open();
    const int in_view = w().grid().rows_in_view();
    w().grid().set_current(70, GridColumn::item);
    w().editor().show_l_line();
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().grid().top_row(), 70 - in_view + 1);
    QCOMPARE(w().in_form("desc_brdr").top(), w().cell_in_form(GridColumn::desc).top());
    w().grid().set_current(5, GridColumn::item);
    w().editor().show_l_line();
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().grid().top_row(), 5);
    w().grid().set_current(79, GridColumn::item);
    w().editor().show_l_line();
    QVERIFY(w().grid().row_is_visible(79));
    QVERIFY(w().in_form("desc_brdr").bottom() <= w().grid().geometry().bottom());
}

void tst_row_editor::controls_end_at_the_grids_edge()
{
    w().rows(3);
    w().coupon(1, QStringLiteral("2027-01-05"), true);
    w().open();
    w().grid().set_col_width(GridColumn::desc, w().grid().width() - 230);
    w().open_row(0);
    const QRect view(w().grid().viewport()->mapTo(w().grid().parentWidget(), QPoint()),
                     w().grid().viewport()->size());
    for (const char* name : all_controls)
        if (w().shown(name))
            QVERIFY2(view.contains(w().in_form(name)), name);
    QVERIFY(!w().shown("aisle_brdr"));
}

void tst_row_editor::each_key_is_written_at_once()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, field);
    QFETCH(GridColumn, column);
    w().rows(3);
    w().open();
    w().open_row(1);
    w().type_into(name, QString());
    QString typed;
    for (const char letter : {'a', '3', '/', 'b'}) {
        QTest::keyClick(&w().box(name), letter);
        typed += QLatin1Char(letter);
        QCOMPARE(w().field(2, field), u'[' + typed + u']');
        QCOMPARE(w().cell(1, column), typed);
        QCOMPARE(w().grid().current_row(), 1);
        QCOMPARE(w().grid().current_col(), column);
    }
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE desc = 'some' AND qty = '2' AND aisle = '5'"), 2);
    QVERIFY(w().editor().is_open());
    QVERIFY(w().box(name).hasFocus());
}

void tst_row_editor::blanking_a_description_stores_one_blank_and_the_cell_stays_empty()
{
    const Key key = w().row(QStringLiteral("Milk"), QStringLiteral("skimmed"));
    w().open();
    w().open_row(0);
    w().type_into("desc_brdr", QString());
    QCOMPARE(w().field(key, "desc"), QStringLiteral("[ ]"));
    QCOMPARE(trim(w().cell(0, GridColumn::desc)), QString());
}

void tst_row_editor::blanking_any_box_stores_one_blank()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, field);
    QFETCH(GridColumn, column);
    w().rows(2);
    w().open();
    w().open_row(1);
    w().type_into(name, QString());
    QCOMPARE(w().field(2, field), QStringLiteral("[ ]"));
    w().type_into(name, QStringLiteral("    "));
    QCOMPARE(w().field(2, field), QStringLiteral("[ ]"));
    QCOMPARE(trim(w().cell(1, column)), QString());
}

void tst_row_editor::any_text_is_taken_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("apostrophes") << QStringLiteral("baker's '; DROP TABLE groc_1; --");
    QTest::newRow("quotes and pattern signs") << QStringLiteral("\"50 %\" off_ *");
    QTest::newRow("emoji") << QStringLiteral("\U0001F9C0\U0001F468\u200D\U0001F469\u200D\U0001F467");
    QTest::newRow("right to left") << QStringLiteral("\u05D7\u05DC\u05D1 3%");
    QTest::newRow("10,000 characters") << QString(10'000, u'w');
}

void tst_row_editor::any_text_is_taken()
{
    QFETCH(QString, text);
    w().rows(2);
    w().open();
    w().open_row(1);
    for (const TextBox& box : text_boxes) {
        w().type_into(box.name, QString());
        QApplication::clipboard()->setText(text);
        QTest::keySequence(&w().box(box.name), QKeySequence::Paste);
        QCOMPARE(w().field(2, box.field), u'[' + text + u']');
        QCOMPARE(w().cell(1, box.column), text);
        QCOMPARE(w().box(box.name).text(), text);
    }
    w().editor().lv_edit_off();
    w().open_row(1);
    QCOMPARE(w().box("desc_brdr").text(), text);
    QCOMPARE(w().number("SELECT count(*) FROM groc_1"), 2);
}

void tst_row_editor::pasted_line_ends_become_blanks()
{
    w().rows(1);
    w().open();
    w().open_row(0);
    w().type_into("desc_brdr", QString());
    QApplication::clipboard()->setText(QStringLiteral("one\r\ntwo\nthree\rfour\u2028five"));
    QTest::keySequence(&w().box("desc_brdr"), QKeySequence::Paste);
    QCOMPARE(w().field(1, "desc"), QStringLiteral("[one two three four five]"));
    QCOMPARE(w().cell(0, GridColumn::desc), QStringLiteral("one two three four five"));
    QCOMPARE(w().box("desc_brdr").cursorPosition(), w().box("desc_brdr").text().size());
    QApplication::clipboard()->setText(QStringLiteral("\n\n"));
    w().type_into("desc_brdr", QString());
    QTest::keySequence(&w().box("desc_brdr"), QKeySequence::Paste);
    QCOMPARE(w().field(1, "desc"), QStringLiteral("[ ]"));
}

void tst_row_editor::the_box_keeps_what_was_typed()
{
    w().rows(1);
    w().open();
    w().open_row(0);
    w().type_into("desc_brdr", QStringLiteral(" two "));
    QCOMPARE(w().box("desc_brdr").text(), QStringLiteral(" two "));
    QCOMPARE(w().field(1, "desc"), QStringLiteral("[two]"));
    QCOMPARE(w().cell(0, GridColumn::desc), QStringLiteral("two"));
    QTest::keyClicks(&w().box("desc_brdr"), QStringLiteral("words"));
    QCOMPARE(w().field(1, "desc"), QStringLiteral("[two words]"));
}

void tst_row_editor::typing_in_a_row_that_has_gone_is_skipped()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    Query(w().db(), "DELETE FROM groc_1 WHERE key_id = 2").run();
    w().type_into("qty_brdr", QStringLiteral("9"));
    QCOMPARE(w().cell(1, GridColumn::qty), QStringLiteral("9"));
    w().press("qty_btn(0)");
    w().press("chck_box");
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("ON"));
    QCOMPARE(trim(w().cell(1, GridColumn::date)), QString());
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE desc = 'some' AND qty = '2' AND cpn = 0"), 1);
    QVERIFY(w().editor().is_open());
}

void tst_row_editor::a_key_changes_one_cell_and_loads_nothing()
{
    w().rows(30);
    w().open();
    w().open_row(3);
    w().type_into("desc_brdr", QStringLiteral("a"));
    QSignalSpy changed(&w().grid().rows(), &QAbstractItemModel::dataChanged);
    QSignalSpy reset(&w().grid().rows(), &QAbstractItemModel::modelReset);
    QSignalSpy scrolled(&w().grid(), &ListGrid::scrolled);
    QTest::keyClick(&w().box("desc_brdr"), 'b');
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0][0].toModelIndex(), w().grid().rows().cell(3, GridColumn::desc));
    QCOMPARE(changed[0][1].toModelIndex(), w().grid().rows().cell(3, GridColumn::desc));
    QCOMPARE(reset.size(), 0);
    QCOMPARE(scrolled.size(), 0);
}

void tst_row_editor::a_description_longer_than_a_box_usually_takes_is_not_cut()
{
    const QString text(40'000, u'q');
    const Key key = w().row(QStringLiteral("Milk"), text);
    w().open();
    w().open_row(0);
    QCOMPARE(w().box("desc_brdr").text(), text);
    QTest::mouseClick(&w().box("desc_brdr"), Qt::LeftButton);
    QTest::keyClick(&w().box("desc_brdr"), Qt::Key_End);
    QTest::keyClick(&w().box("desc_brdr"), 'x');
    QCOMPARE(w().field(key, "desc"), u'[' + text + QStringLiteral("x]"));
}

void tst_row_editor::a_quantity_of_letters_alone_steps_to_1_followed_by_those_letters()
{
    const Key key = w().row(QStringLiteral("Milk"), QStringLiteral(" "), QStringLiteral("lb"));
    w().open();
    w().open_row(0);
    w().press("qty_btn(0)");
    QCOMPARE(w().box("qty_brdr").text(), QStringLiteral("1lb"));
    QCOMPARE(w().cell(0, GridColumn::qty), QStringLiteral("1lb"));
    QCOMPARE(w().field(key, "qty"), QStringLiteral("[1lb]"));
    w().press("qty_btn(0)");
    QCOMPARE(w().field(key, "qty"), QStringLiteral("[2lb]"));
    w().press("qty_btn(1)");
    w().press("qty_btn(1)");
    QCOMPARE(w().field(key, "qty"), QStringLiteral("[lb]"));
    w().press("qty_btn(1)");
    QCOMPARE(w().field(key, "qty"), QStringLiteral("[lb]"));
}

void tst_row_editor::a_quantity_of_1_stepped_down_shows_an_empty_box_and_stores_one_blank()
{
    const Key key = w().row(QStringLiteral("Milk"), QStringLiteral(" "), QStringLiteral("1"));
    w().open();
    w().open_row(0);
    w().press("qty_btn(1)");
    QCOMPARE(w().box("qty_brdr").text(), QString());
    QCOMPARE(trim(w().cell(0, GridColumn::qty)), QString());
    QCOMPARE(w().field(key, "qty"), QStringLiteral("[ ]"));
}

void tst_row_editor::steppers_write_quantity_and_aisle()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    w().press("qty_btn(0)");
    QCOMPARE(w().field(2, "qty"), QStringLiteral("[3]"));
    QCOMPARE(w().grid().current_col(), GridColumn::qty);
    w().press("aisle_btn(1)");
    QCOMPARE(w().field(2, "aisle"), QStringLiteral("[4]"));
    QCOMPARE(w().cell(1, GridColumn::aisle), QStringLiteral("4"));
    QCOMPARE(w().grid().current_col(), GridColumn::aisle);
    QCOMPARE(w().grid().current_row(), 1);
    w().press("aisle_btn(0)");
    w().double_click(w().widget("aisle_btn(0)"), QPoint(3, 3));
    QCOMPARE(w().field(2, "aisle"), QStringLiteral("[7]"));
    QCOMPARE(w().field(1, "aisle"), QStringLiteral("[5]"));
    // An empty quantity counts as none.
    w().type_into("qty_brdr", QString());
    w().press("qty_btn(0)");
    QCOMPARE(w().field(2, "qty"), QStringLiteral("[1]"));
    QVERIFY(w().box("qty_brdr").hasFocus());
}

void tst_row_editor::a_number_of_many_digits_steps()
{
    w().rows(1);
    w().open();
    w().open_row(0);
    w().type_into("qty_brdr", QString(70, u'9') + QStringLiteral(" g"));
    w().press("qty_btn(0)");
    QCOMPARE(w().field(1, "qty"), QStringLiteral("[1") + QString(70, u'0') + QStringLiteral(" g]"));
    w().press("qty_btn(1)");
    QCOMPARE(w().field(1, "qty"), u'[' + QString(70, u'9') + QStringLiteral(" g]"));
}

void tst_row_editor::a_held_stepper_shows_its_pressed_picture_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("step");
    QTest::newRow("9") << 9 << 0;
    QTest::newRow("10") << 10 << 1;
    QTest::newRow("12") << 12 << 2;
}

void tst_row_editor::a_held_stepper_shows_its_pressed_picture()
{
    QFETCH(int, size);
    QFETCH(int, step);
    open_at(size, true, true);
    const std::pair<const char*, int> buttons[]
        = {{"qty_btn(0)", 150}, {"qty_btn(1)", 156}, {"aisle_btn(0)", 150}, {"aisle_btn(1)", 156}};
    for (const auto& [name, base] : buttons) {
        const auto shown_picture = [this, name = name] { return w().widget(name).property("picture").toInt(); };
        QCOMPARE(shown_picture(), base + step);
        QTest::mousePress(&w().widget(name), Qt::LeftButton);
        QCOMPARE(shown_picture(), base + 3 + step);
        QTest::mouseRelease(&w().widget(name), Qt::LeftButton);
        QCOMPARE(shown_picture(), base + step);
    }
}

QTEST_MAIN(tst_row_editor)
#include "tst_row_editor.moc"
