#include "widgets/column_layout.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "household/list_store.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QHelpEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

using namespace tarnwick;

namespace {

GridRow make_row(Key key, const QString& name)
{
    GridRow row;
    row.groc_key = key;
    row.item = name;
    row.qty = QStringLiteral(" ");
    row.date = QStringLiteral(" ");
    list_store::set_to_get(row, false);
    list_store::set_coupon(row, false, {});
    return row;
}

std::vector<GridRow> make_rows(int count)
{
    std::vector<GridRow> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back(
            make_row(static_cast<Key>(i + 1), QStringLiteral("Item %1").arg(i, 5, 10, QLatin1Char('0'))));
    return rows;
}

} // namespace

class tst_grid : public QObject {
    Q_OBJECT

private slots:
    void init();
    void row_heights_follow_the_type_size_and_others_leave_them();
    void date_column_is_smaller_at_12_points();
    void edited_row_is_bold_in_the_item_cell_alone();
    void pictures_follow_the_page_colour();
    void text_is_readable_whatever_the_palette();
    void located_row_is_red();
    void bold_text_fits_its_row();
    void placed_row_stands_by_name_then_key();
    void set_row_finds_the_first_match();
    void row_is_found_after_a_removal();
    void scroll_bar_counts_by_the_scroll_test();
    void scroll_bar_appears_with_the_scroll_test();
    void rows_scroll_one_by_one();
    void rows_at_the_end_are_hit_where_they_are_drawn_data();
    void rows_at_the_end_are_hit_where_they_are_drawn();
    void cell_rectangle_is_in_the_parent();
    void left_press_makes_the_row_current_and_right_does_not();
    void arrows_and_delete_are_told_and_do_not_move();
    void page_keys_ask_for_a_row_and_do_not_move();
    void nothing_can_be_typed_into_a_cell();
    void text_columns_share_what_is_left();
    void both_groups_hidden_give_134_pixels_by_ratio();
    void grid_narrower_than_206_keeps_the_widths();
    void ratio_survives_any_number_of_resizes();
    void text_column_under_3_pixels_starts_anew_at_half();
    void separator_drag_moves_the_border_and_sets_the_ratio();
    void separator_drag_keeps_the_narrowest_width();
    void header_stands_over_its_columns();
    void boxes_stand_23_pixels_in_and_stay_when_hidden();
    void header_hides_as_a_whole();
    void box_reacts_to_the_left_button_alone();
    void hidden_columns_paint_nothing();
    void cut_off_text_is_told_whole();
    void ten_thousand_rows_stay_usable();

private:
    void fill(int count) { grid->rows().set_rows(make_rows(count)); }
    void lay_out() { header->set_headers(20, 20); }
    QWidget* part(const char* name) { return host->findChild<QWidget*>(QLatin1String(name)); }
    void drag_separator(int by);

    std::unique_ptr<QWidget> host;
    ListGrid* grid = nullptr;
    HeaderBar* header = nullptr;
};

void tst_grid::init()
{
    host = std::make_unique<QWidget>();
    host->resize(700, 500);
    grid = new ListGrid(host.get());
    grid->setGeometry(10, 40, 500, 190);
    header = new HeaderBar(*grid, host.get());
    static_cast<QObject*>(header)->setParent(host.get());
    host->show();
    QVERIFY(QTest::qWaitForWindowExposed(host.get()));
}

void tst_grid::row_heights_follow_the_type_size_and_others_leave_them()
{
    fill(3);
    QCOMPARE(grid->row_height(), 19);
    const std::pair<int, int> heights[] = {{9, 19}, {10, 24}, {12, 28}, {11, 28}, {9, 19}, {0, 19}};
    for (const auto& [size, height] : heights) {
        grid->set_type_size(size);
        QCOMPARE(grid->row_height(), height);
        QCOMPARE(grid->cell_rect(2, GridColumn::item).height(), height);
    }
}

void tst_grid::date_column_is_smaller_at_12_points()
{
    fill(1);
    const auto size = [this](GridColumn column) {
        return grid->rows().cell(0, column).data(Qt::FontRole).value<QFont>().pointSize();
    };
    for (const int points : {9, 10, 12}) {
        grid->set_type_size(points);
        QCOMPARE(size(GridColumn::item), points);
        QCOMPARE(size(GridColumn::aisle), points);
        QCOMPARE(size(GridColumn::date), points == 12 ? 10 : points);
    }
}

void tst_grid::edited_row_is_bold_in_the_item_cell_alone()
{
    fill(2);
    grid->rows().change_row(1, [](GridRow& row) { row.bold = true; });
    const auto bold = [this](int row, GridColumn column) {
        return grid->rows().cell(row, column).data(Qt::FontRole).value<QFont>().bold();
    };
    QVERIFY(bold(1, GridColumn::item));
    QVERIFY(!bold(1, GridColumn::desc));
    QVERIFY(!bold(0, GridColumn::item));
}

void tst_grid::pictures_follow_the_page_colour()
{
    fill(2);
    grid->rows().change_row(1, [](GridRow& row) {
        list_store::set_to_get(row, true);
        list_store::set_coupon(row, true, QStringLiteral("2026-03-04"));
    });
    const auto number = [this](int row, GridColumn column) {
        return grid->rows().cell(row, column).data(GridModel::PictureRole);
    };
    for (int color = 0; color < 4; ++color) {
        grid->set_page_color(Qt::white, color);
        QCOMPARE(number(0, GridColumn::light).toInt(), 183 + color);
        QCOMPARE(number(0, GridColumn::check).toInt(), 113 + color);
        QCOMPARE(number(0, GridColumn::coupon).toInt(), 117 + color);
        QCOMPARE(number(1, GridColumn::light).toInt(), 179 + color);
        QCOMPARE(number(1, GridColumn::check).toInt(), 122 + color);
        QCOMPARE(number(1, GridColumn::coupon).toInt(), 126 + color);
        QVERIFY(!number(0, GridColumn::item).isValid());
    }
    QCOMPARE(grid->rows().cell(1, GridColumn::light).data(GridModel::RowDataRole).toInt(), 2);
    QCOMPARE(grid->rows().cell(1, GridColumn::date).data().toString(), QStringLiteral("3/4/2026"));
}

void tst_grid::text_is_readable_whatever_the_palette()
{
    fill(1);
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Base, Qt::black);
    QApplication::setPalette(dark);
    grid->set_page_color(QColor(204, 255, 204), 2);
    QCOMPARE(grid->palette().color(QPalette::Base), QColor(204, 255, 204));
    QCOMPARE(grid->rows().cell(0, GridColumn::item).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
    const QImage image = grid->grab().toImage();
    QCOMPARE(image.pixelColor(image.width() - 5, image.height() - 5), QColor(204, 255, 204));
    QApplication::setPalette(before);
}

void tst_grid::located_row_is_red()
{
    fill(2);
    grid->rows().change_row(0, [](GridRow& row) { row.located = true; });
    const auto ink = [this](int row, GridColumn column) {
        return grid->rows().cell(row, column).data(Qt::ForegroundRole).value<QColor>();
    };
    QVERIFY(ink(0, GridColumn::item).red() > 150 && ink(0, GridColumn::item).green() == 0);
    QCOMPARE(ink(0, GridColumn::desc), QColor(Qt::black));
    QCOMPARE(ink(1, GridColumn::item), QColor(Qt::black));
}

void tst_grid::bold_text_fits_its_row()
{
    fill(1);
    grid->rows().change_row(0, [](GridRow& row) { row.bold = true; });
    for (const int points : {9, 10, 12}) {
        grid->set_type_size(points);
        const QFontMetrics metrics(grid->rows().cell(0, GridColumn::item).data(Qt::FontRole).value<QFont>());
        QVERIFY2(metrics.height() <= grid->row_height(), qPrintable(QString::number(metrics.height())));
    }
}

void tst_grid::placed_row_stands_by_name_then_key()
{
    const auto place = [this](Key key, const char* name) {
        return grid->rows().insert_sorted(make_row(key, QLatin1String(name)));
    };
    QCOMPARE(place(5, "milk"), 0);
    QCOMPARE(place(2, "Apple"), 0);
    QCOMPARE(place(9, "ZEST"), 2);
    QCOMPARE(place(7, "MILK"), 2);
    QCOMPARE(place(3, "Milk"), 1);
    QCOMPARE(place(1, "bread"), 1);
    std::vector<Key> keys;
    for (const GridRow& row : grid->rows().list_rows())
        keys.push_back(row.groc_key);
    QCOMPARE(keys, (std::vector<Key>{2, 1, 3, 5, 7, 9}));
}

void tst_grid::set_row_finds_the_first_match()
{
    grid->rows().set_rows(
        {make_row(4, QStringLiteral("A")), make_row(8, QStringLiteral("B")), make_row(8, QStringLiteral("C"))});
    QCOMPARE(grid->rows().find_row(8), 1);
    QCOMPARE(grid->rows().find_row(5), -1);
}

void tst_grid::row_is_found_after_a_removal()
{
    fill(5);
    grid->rows().remove_row(1);
    QCOMPARE(grid->rows().rows(), 4);
    QCOMPARE(grid->rows().find_row(2), -1);
    QCOMPARE(grid->rows().find_row(3), 1);
    QCOMPARE(grid->rows().cell(1, GridColumn::light).data(GridModel::RowDataRole).toInt(), 3);
    grid->rows().remove_row(9);
    QCOMPARE(grid->rows().rows(), 4);
}

void tst_grid::scroll_bar_counts_by_the_scroll_test()
{
    QVERIFY(!grid->scroll_bar_shown());
    grid->resize(500, 190); // ten rows of 19: shown above 9.8
    fill(9);
    QVERIFY(!grid->scroll_bar_shown());
    fill(10);
    QVERIFY(grid->scroll_bar_shown());
    grid->resize(500, 194); // 10.21 - 0.2
    QVERIFY(!grid->scroll_bar_shown());
    grid->set_type_size(12);
    QVERIFY(grid->scroll_bar_shown());
    grid->resize(500, 1);
    grid->rows().set_rows({});
    QVERIFY(!grid->scroll_bar_shown());
}

void tst_grid::scroll_bar_appears_with_the_scroll_test()
{
    fill(9);
    QCoreApplication::processEvents();
    QVERIFY(!grid->verticalScrollBar()->isVisible());
    grid->rows().insert_sorted(make_row(50, QStringLiteral("A")));
    QCoreApplication::processEvents();
    QVERIFY(grid->verticalScrollBar()->isVisible());
    QCOMPARE(grid->viewport()->width(), grid->width() - 17);
    QVERIFY(!grid->horizontalScrollBar()->isVisible());
}

void tst_grid::rows_scroll_one_by_one()
{
    fill(100);
    QSignalSpy scrolled(grid, &ListGrid::scrolled);
    grid->set_top_row(37);
    QCOMPARE(grid->top_row(), 37);
    QCOMPARE(scrolled.count(), 1);
    QCOMPARE(grid->cell_rect(37, GridColumn::light).top(), grid->y());
    QCOMPARE(grid->rows_in_view(), 10);
    QVERIFY(grid->row_is_visible(37));
    QVERIFY(grid->row_is_visible(46));
    QVERIFY(!grid->row_is_visible(47));
    QVERIFY(!grid->row_is_visible(36));
    grid->set_top_row(1000);
    QCOMPARE(grid->top_row(), 90);
    QVERIFY(grid->row_is_visible(99));
}

void tst_grid::rows_at_the_end_are_hit_where_they_are_drawn_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {9, 10, 12})
        QTest::addRow("%d points", size) << size;
}

void tst_grid::rows_at_the_end_are_hit_where_they_are_drawn()
{
    QFETCH(int, size);
    fill(100);
    grid->set_type_size(size);
    grid->set_top_row(100);
    QVERIFY(grid->row_is_visible(99));
    QVERIFY(!grid->row_is_visible(grid->top_row() - 1));
    const int cut = grid->rowViewportPosition(grid->top_row()) > 0 ? grid->top_row() - 1 : grid->top_row();
    QCOMPARE(cut < grid->top_row(), size != 9); // 190 pixels hold ten whole rows at 9 points
    for (int row = cut; row < 100; ++row) {
        const QRect drawn = grid->visualRect(grid->rows().cell(row, GridColumn::item));
        QCOMPARE(grid->cell_rect(row, GridColumn::item), drawn.translated(grid->viewport()->pos() + grid->pos()));
        QCOMPARE(grid->row_at(std::max(drawn.top(), 0)), row);
        QCOMPARE(grid->row_at(drawn.bottom()), row);
    }
}

void tst_grid::cell_rectangle_is_in_the_parent()
{
    fill(20);
    grid->set_top_row(2);
    const QRect cell = grid->cell_rect(4, GridColumn::desc);
    QCOMPARE(cell,
             QRect(10 + 18 + 18 + grid->col_width(GridColumn::item), 40 + 2 * 19, grid->col_width(GridColumn::desc),
                   19));
    QCOMPARE(grid->row_at(2 * 19), 4);
    QCOMPARE(grid->row_at(2 * 19 - 1), 3);
    const QPoint middle = cell.center() - grid->pos();
    QCOMPARE(grid->indexAt(middle), grid->rows().cell(4, GridColumn::desc));
    fill(2);
    QCOMPARE(grid->row_at(2 * 19), -1);
    QCOMPARE(grid->row_at(-1), -1);
}

void tst_grid::left_press_makes_the_row_current_and_right_does_not()
{
    fill(5);
    grid->set_current(0, GridColumn::item);
    QSignalSpy down(grid, &ListGrid::mouse_down);
    QSignalSpy up(grid, &ListGrid::mouse_up);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, {60, 3 * 19 + 5});
    QCOMPARE(grid->current_row(), 3);
    QCOMPARE(grid->current_col(), GridColumn::item);
    QTest::mouseClick(grid->viewport(), Qt::RightButton, {}, {60, 19 + 5});
    QCOMPARE(grid->current_row(), 3);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, {60, 5 * 19 + 5});
    QCOMPARE(grid->current_row(), 3);
    QCOMPARE(down.count(), 3);
    QCOMPARE(up.count(), 3);
    QCOMPARE(down[1][0].value<Qt::MouseButton>(), Qt::RightButton);
    QCOMPARE(up[0][1].toPoint(), QPoint(60, 3 * 19 + 5));
}

void tst_grid::arrows_and_delete_are_told_and_do_not_move()
{
    fill(5);
    grid->set_current(2, GridColumn::item);
    QSignalSpy keys(grid, &ListGrid::key_down);
    QTest::keyClick(grid, Qt::Key_Up);
    QTest::keyClick(grid, Qt::Key_Down);
    QTest::keyClick(grid, Qt::Key_Delete);
    QTest::keyClick(grid, Qt::Key_Left);
    QTest::keyClick(grid, Qt::Key_I);
    QCOMPARE(keys.count(), 3);
    QCOMPARE(keys[0][0].value<GridKey>(), GridKey::up);
    QCOMPARE(keys[1][0].value<GridKey>(), GridKey::down);
    QCOMPARE(keys[2][0].value<GridKey>(), GridKey::remove);
    QCOMPARE(grid->current_row(), 2);
    QCOMPARE(grid->rows().rows(), 5);
}

void tst_grid::page_keys_ask_for_a_row_and_do_not_move()
{
    fill(100);
    grid->set_current(50, GridColumn::item);
    QSignalSpy rows(grid, &ListGrid::row_wanted);
    const int page = grid->rows_in_view() - 1;
    for (const auto key : {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End})
        QTest::keyClick(grid, key);
    QCOMPARE(rows.count(), 4);
    QCOMPARE(rows[0][0].toInt(), 50 + page);
    QCOMPARE(rows[1][0].toInt(), 50 - page);
    QCOMPARE(rows[2][0].toInt(), 0);
    QCOMPARE(rows[3][0].toInt(), 99);
    QCOMPARE(grid->current_row(), 50);
}

void tst_grid::nothing_can_be_typed_into_a_cell()
{
    fill(3);
    grid->set_current(1, GridColumn::desc);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, {200, 25});
    QTest::keyClick(grid, Qt::Key_F2);
    QTest::keyClicks(grid, QStringLiteral("abc"));
    QCOMPARE(grid->viewport()->findChildren<QWidget*>().size(), 0);
    QCOMPARE(grid->rows().cell_text(1, GridColumn::desc), QString());
}

void tst_grid::text_columns_share_what_is_left()
{
    // 500 - 206 = 294 in the ratio of 100 to 300.
    grid->set_col_width(GridColumn::item, 100);
    grid->set_col_width(GridColumn::desc, 300);
    QVERIFY(column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item), 73 + 1);
    QCOMPARE(grid->col_width(GridColumn::desc), 221 + 1);

    // 17 less with the scroll bar.
    grid->set_col_width(GridColumn::item, 100);
    grid->set_col_width(GridColumn::desc, 300);
    fill(10);
    QVERIFY(column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item), 69 + 1);
    QCOMPARE(grid->col_width(GridColumn::desc), 208 + 1);
}

void tst_grid::both_groups_hidden_give_134_pixels_by_ratio()
{
    header->show_box(ColumnGroup::coupon).setChecked(false);
    header->show_box(ColumnGroup::aisle).setChecked(false);
    grid->set_col_width(GridColumn::item, 100);
    grid->set_col_width(GridColumn::desc, 300);
    QVERIFY(column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item) + grid->col_width(GridColumn::desc) - 2, 294 + 134);
    QCOMPARE(grid->col_width(GridColumn::item), 107 + 1);
    QCOMPARE(grid->col_width(GridColumn::desc), 321 + 1);
    header->show_box(ColumnGroup::coupon).setChecked(true);
    QVERIFY(column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item) + grid->col_width(GridColumn::desc) - 2, 294 + 36);
}

void tst_grid::grid_narrower_than_206_keeps_the_widths()
{
    grid->set_col_width(GridColumn::item, 100);
    grid->set_col_width(GridColumn::desc, 300);
    grid->resize(205, 190);
    QVERIFY(!column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item), 100);
    QCOMPARE(grid->col_width(GridColumn::desc), 300);
    grid->resize(206, 190);
    QVERIFY(column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item), 3 + 1);
}

void tst_grid::ratio_survives_any_number_of_resizes()
{
    grid->set_col_width(GridColumn::item, 200);
    grid->set_col_width(GridColumn::desc, 96);
    for (int round = 0; round < 50; ++round) {
        for (const int width : {501, 640, 555, 333, 500}) {
            grid->resize(width, 190);
            QVERIFY(column_layout::share_text_columns(*grid, *header));
        }
    }
    QCOMPARE(grid->col_width(GridColumn::item), 294 * 200 / 296 + 1);
    QCOMPARE(grid->col_width(GridColumn::item) + grid->col_width(GridColumn::desc), 294 + 2);
}

void tst_grid::text_column_under_3_pixels_starts_anew_at_half()
{
    grid->set_col_width(GridColumn::item, 2);
    grid->set_col_width(GridColumn::desc, 300);
    QVERIFY(column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item), 147 + 1);
    QCOMPARE(grid->col_width(GridColumn::desc), 147 + 1);
}

void tst_grid::drag_separator(int by)
{
    QWidget* grip = part("listheader_sprtr(0)");
    const QPoint start = grip->rect().center();
    QTest::mousePress(grip, Qt::LeftButton, {}, start);
    const QPoint global = grip->mapToGlobal(start) + QPoint(by, 0);
    QMouseEvent move(QEvent::MouseMove, grip->mapFromGlobal(global), global, Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(grip, &move);
    QTest::mouseRelease(grip, Qt::LeftButton, {}, grip->mapFromGlobal(global));
}

void tst_grid::separator_drag_moves_the_border_and_sets_the_ratio()
{
    connect(header, &HeaderBar::separator_moved, this, [this] { lay_out(); });
    column_layout::share_text_columns(*grid, *header);
    lay_out();
    QCOMPARE(grid->col_width(GridColumn::item), 148);
    drag_separator(50);
    QCOMPARE(grid->col_width(GridColumn::item), 198);
    QCOMPARE(grid->col_width(GridColumn::desc), 98);
    QCOMPARE(part("listheader_sprtr(0)")->geometry().left(), 10 + 36 + 198 - 17);
    grid->resize(500 + 148, 190);
    QVERIFY(column_layout::share_text_columns(*grid, *header));
    QCOMPARE(grid->col_width(GridColumn::item), 442 * 198 / 296 + 1);
}

void tst_grid::separator_drag_keeps_the_narrowest_width()
{
    column_layout::share_text_columns(*grid, *header);
    lay_out();
    drag_separator(-900);
    QCOMPARE(grid->col_width(GridColumn::item), 3);
    QCOMPARE(grid->col_width(GridColumn::desc), 293);
    drag_separator(900);
    QCOMPARE(grid->col_width(GridColumn::item), 293);
    QCOMPARE(grid->col_width(GridColumn::desc), 3);
}

void tst_grid::header_stands_over_its_columns()
{
    column_layout::share_text_columns(*grid, *header);
    lay_out();
    const char* captions[] = {"Buy-it    Item", "Description", "Qty", "Cpn  Expry", "Asl"};
    for (int i = 0; i < 5; ++i) {
        auto* label = host->findChild<QLabel*>(QStringLiteral("listheader_lbl(%1)").arg(i));
        QCOMPARE(label->text(), QLatin1String(captions[i]));
        QVERIFY(label->isVisible());
    }
    QCOMPARE(part("listheader(0)")->geometry().left(), 10);
    QCOMPARE(part("listheader(0)")->geometry().right() + 1, 10 + 36 + 148 + 148);
    QCOMPARE(part("listheader(1)")->x(), grid->cell_rect(0, GridColumn::qty).x());
    QCOMPARE(part("listheader(1)")->width(), 36);
    QCOMPARE(part("listheader(2)")->x(), grid->cell_rect(0, GridColumn::coupon).x());
    QCOMPARE(part("listheader(2)")->width(), 98);
    QCOMPARE(part("listheader(3)")->geometry().right(), grid->geometry().right());
    QCOMPARE(part("listheader_lbl(1)")->x(), grid->cell_rect(0, GridColumn::desc).x() + 3);
    QCOMPARE(part("listheader_sprtr(1)")->x(), part("listheader(1)")->geometry().right() + 1 - 17);
    QCOMPARE(part("listheader(0)")->y(), 20);
    QCOMPARE(part("listheader(0)")->height(), 20);
}

void tst_grid::boxes_stand_23_pixels_in_and_stay_when_hidden()
{
    lay_out();
    for (const ColumnGroup group : column_groups) {
        QCheckBox& box = header->show_box(group);
        const QWidget* cell = part(group == ColumnGroup::coupon ? "listheader(2)" : "listheader(3)");
        QCOMPARE(box.x(), cell->geometry().right() + 1 - 23);
        box.setChecked(false);
        column_layout::set_group_widths(*grid, *header, group);
        column_layout::share_text_columns(*grid, *header);
        lay_out();
        QVERIFY(box.isVisible());
        QVERIFY(!cell->isVisible());
        QVERIFY(box.geometry().right() < grid->geometry().right());
        QVERIFY(box.x() >= grid->x());
    }
    QCOMPARE(header->show_box(ColumnGroup::coupon).text(), QStringLiteral("Cpn"));
    QCOMPARE(header->show_box(ColumnGroup::aisle).text(), QStringLiteral("Asl"));
    QCOMPARE(header->show_box(ColumnGroup::coupon).toolTip(), QStringLiteral("Hide/show coupon-and-expiry column"));
    QCOMPARE(header->show_box(ColumnGroup::aisle).toolTip(), QStringLiteral("Hide/show aisle column"));
    QVERIFY(!header->show_box(ColumnGroup::coupon)
                 .geometry()
                 .intersects(header->show_box(ColumnGroup::aisle).geometry()));
}

void tst_grid::header_hides_as_a_whole()
{
    lay_out();
    header->set_visible(false);
    lay_out();
    for (const char* name : {"listheader(0)", "listheader(3)", "listheader_lbl(4)", "listheader_sprtr(0)",
                             "Cmd_ShowCol(0)", "Cmd_ShowCol(1)"})
        QVERIFY2(!part(name)->isVisible(), name);
    header->set_visible(true);
    QVERIFY(part("Cmd_ShowCol(1)")->isVisible());
    QVERIFY(part("listheader(3)")->isVisible());
}

void tst_grid::box_reacts_to_the_left_button_alone()
{
    lay_out();
    QSignalSpy toggled(header, &HeaderBar::group_toggled);
    QCheckBox& box = header->show_box(ColumnGroup::aisle);
    QTest::mouseClick(&box, Qt::RightButton);
    QTest::mouseClick(&box, Qt::MiddleButton);
    QTest::mousePress(&box, Qt::LeftButton);
    QCOMPARE(toggled.count(), 0);
    QVERIFY(box.isChecked());
    QTest::mouseRelease(&box, Qt::LeftButton);
    QCOMPARE(toggled.count(), 1);
    QCOMPARE(toggled[0][0].value<ColumnGroup>(), ColumnGroup::aisle);
    QVERIFY(!header->group_shown(ColumnGroup::aisle));
    QVERIFY(header->group_shown(ColumnGroup::coupon));
}

void tst_grid::hidden_columns_paint_nothing()
{
    for (const ColumnGroup group : column_groups) {
        header->show_box(group).setChecked(false);
        column_layout::set_group_widths(*grid, *header, group);
    }
    fill(1);
    const QImage image = grid->grab().toImage();
    const int end = grid->col_left(GridColumn::qty) + grid->col_width(GridColumn::qty);
    for (int x = end; x < end + 30; ++x)
        QCOMPARE(image.pixelColor(x, 9), QColor(Qt::white));
}

void tst_grid::cut_off_text_is_told_whole()
{
    const QString name
        = QStringLiteral("Salt & <b>pepper</b>, freshly ground, in the big blue tin from the market");
    grid->rows().set_rows({make_row(1, name), make_row(2, QStringLiteral("Tea"))});
    const auto hover = [this](int y) {
        const QPoint point(60, y);
        QHelpEvent event(QEvent::ToolTip, point, grid->viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(grid->viewport(), &event);
        return QToolTip::text();
    };
    QCOMPARE(hover(5), QStringLiteral("<qt>%1</qt>").arg(name.toHtmlEscaped()));
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
    QCOMPARE(hover(25), QString());
}

void tst_grid::ten_thousand_rows_stay_usable()
{
    fill(10000);
    QCOMPARE(grid->rows().rows(), 10000);
    grid->set_top_row(9990);
    QCOMPARE(grid->top_row(), 9990);
    QVERIFY(grid->row_is_visible(9999));
    const int placed = grid->rows().insert_sorted(make_row(20000, QStringLiteral("item 05000")));
    QCOMPARE(placed, 5001);
    QVERIFY(!grid->grab().isNull());
}

QTEST_MAIN(tst_grid)
#include "tst_grid.moc"
