#include "lists/editing_window.h"

#include "widgets/shared_values.h"
#include "support/contrast.h"
#include "widgets/frame_lines.h"
#include "widgets/plain_style.h"
#include "widgets/row_editor_controls.h"
#include "widgets/tree_view.h"
#include "window/view_state.h"

#include <QImage>
#include <QHelpEvent>
#include <QLabel>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include <functional>

using namespace tarnwick;

/// What the list looks like, measured from its rendered pictures.
class tst_grid_looks : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    void every_second_row_is_a_shade_darker_data() { page_colors(); }
    void every_second_row_is_a_shade_darker();
    void the_current_row_stands_out_with_and_without_the_keyboard_data() { page_colors(); }
    void the_current_row_stands_out_with_and_without_the_keyboard();
    void a_box_with_the_keyboard_stands_out_data() { page_colors(); }
    void a_box_with_the_keyboard_stands_out();
    void a_quantity_stands_clear_of_its_steppers_data() { type_sizes(); }
    void a_quantity_stands_clear_of_its_steppers();
    void a_long_quantity_is_told_whole();
    void a_quantity_that_just_fits_is_seen_whole();
    void a_long_quantity_is_seen_whole_while_it_is_typed_data() { type_sizes(); }
    void a_long_quantity_is_seen_whole_while_it_is_typed();
    void captions_and_boxes_of_the_header_have_one_type_size_data() { type_sizes(); }
    void captions_and_boxes_of_the_header_have_one_type_size();
    void no_quantity_touches_the_box_of_the_coupon_data() { type_sizes(); }
    void no_quantity_touches_the_box_of_the_coupon();
    void no_caption_touches_its_box_data() { type_sizes(); }
    void no_caption_touches_its_box();
    void no_name_looks_out_behind_the_buttons_of_its_row_data() { type_sizes(); }
    void no_name_looks_out_behind_the_buttons_of_its_row();
    void the_frame_of_an_open_row_goes_on_under_its_buttons();
    void the_scroll_bar_stands_out_on_a_dark_desktop_data() { page_colors(); }
    void the_scroll_bar_stands_out_on_a_dark_desktop();
    void lines_of_the_header_are_equally_thick_data();
    void lines_of_the_header_are_equally_thick();

private:
    static void page_colors()
    {
        QTest::addColumn<int>("color");
        for (int color = 0; color < 4; ++color)
            QTest::addRow("page %d", color) << color;
    }

    static void type_sizes()
    {
        QTest::addColumn<int>("points");
        for (const int points : {9, 10, 12})
            QTest::addRow("%d points", points) << points;
    }

    void open(int color)
    {
        window_->rows(6);
        window_->open();
        window_->main().view_state().set_color(color);
        window_->grid().set_current(2, GridColumn::item);
    }

    QImage picture() { return window_->grid().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    /// A place of a row where nothing is written: right of the description's text.
    QPoint empty_place(int row)
    {
        const ListGrid& grid = window_->grid();
        const QRect cell = grid.cell_rect(row, GridColumn::desc).translated(-grid.pos());
        return {cell.right() - 4, cell.center().y()};
    }

    std::unique_ptr<EditingWindow> window_;
};

void tst_grid_looks::every_second_row_is_a_shade_darker()
{
    QFETCH(int, color);
    open(color);
    const QImage image = picture();
    const auto lightness = [&](int row) { return qGray(image.pixel(empty_place(row))); };
    QCOMPARE(image.pixelColor(empty_place(0)), *page_color_of(color));
    QCOMPARE(lightness(4), lightness(0));
    QCOMPARE(lightness(3), lightness(1));
    const double darker = 100.0 * (lightness(0) - lightness(1)) / lightness(0);
    QVERIFY2(darker >= 2 && darker <= 6, qPrintable(QString::number(darker)));
}

void tst_grid_looks::the_current_row_stands_out_with_and_without_the_keyboard()
{
    QFETCH(int, color);
    open(color);
    const QColor page = *page_color_of(color);
    const ListGrid& grid = window_->grid();
    const QRect row(0, 2 * grid.row_height(), grid.viewport()->width(), grid.row_height());
    const QRect bar(1, row.top() + 3, 1, row.height() - 6);
    const QRect upper_line(row.width() / 2, row.top(), 40, 1);
    window_->main().visible_tree().setFocus();
    const QImage without = picture();
    QVERIFY(contrast(without.pixelColor(empty_place(2)), page) >= 1.2);
    QVERIFY(best_contrast(without, bar, page) >= 3);
    QVERIFY(best_contrast(without, upper_line, page) < 2);
    window_->grid().setFocus();
    const QImage with = picture();
    QVERIFY(best_contrast(with, bar, page) >= 3);
    for (int x = 0; x < row.width(); ++x)
        for (const int y : {row.top(), row.bottom()})
            QVERIFY(contrast(with.pixelColor(x, y), page) >= 3);
    for (int y = row.top(); y <= row.bottom(); ++y)
        QVERIFY(contrast(with.pixelColor(row.right(), y), page) >= 3);
}

void tst_grid_looks::a_box_with_the_keyboard_stands_out()
{
    QFETCH(int, color);
    open(color);
    window_->click_cell(2, GridColumn::desc);
    auto* box = window_->find<QLineEdit>(QStringLiteral("desc_brdr"));
    QVERIFY(box->isVisible());
    window_->grid().setFocus();
    const QImage without = box->grab().toImage();
    box->setFocus();
    const QImage with = box->grab().toImage();
    QVERIFY(without != with);
    const QColor page = *page_color_of(color);
    for (const QImage& image : {without, with})
        for (const QPoint edge :
             {QPoint(40, 0), QPoint(40, image.height() - 1), QPoint(0, 5), QPoint(image.width() - 1, 5)})
            QVERIFY(contrast(image.pixelColor(edge), page) >= 3);
    for (const QPoint second : {QPoint(40, 1), QPoint(40, with.height() - 2), QPoint(1, 5)})
        QVERIFY(contrast(with.pixelColor(second), without.pixelColor(second)) >= 3);
}

void tst_grid_looks::a_quantity_stands_clear_of_its_steppers()
{
    QFETCH(int, points);
    window_->row(QStringLiteral("Flour"), QStringLiteral(" "), QStringLiteral("500 grams"), QStringLiteral("12A"));
    window_->open();
    window_->main().view_state().set_type_size(points);
    window_->click_cell(0, GridColumn::desc);
    window_->find<QLineEdit>(QStringLiteral("desc_brdr"))->setFocus();
    for (const QString& name : {QStringLiteral("qty"), QStringLiteral("aisle")}) {
        auto* box = window_->find<QLineEdit>(name + QStringLiteral("_brdr"));
        auto* stepper = window_->find<QAbstractButton>(name + QStringLiteral("_btn(0)"));
        const QImage image = box->grab().toImage();
        const int steppers = box->mapFrom(stepper->parentWidget(), stepper->pos()).x();
        const QColor page = box->palette().color(QPalette::Base);
        QVERIFY(best_contrast(image, QRect(4, 3, steppers - 4, image.height() - 6), page) > 3);
        const QRect beside(steppers, 2, image.width() - 2 - steppers, image.height() - 4);
        QCOMPARE(best_contrast(image, beside, page), 1.0);
    }
}

void tst_grid_looks::a_long_quantity_is_told_whole()
{
    window_->row(QStringLiteral("Flour"), QStringLiteral(" "), QStringLiteral("500 grams of it"));
    window_->open();
    const auto tip_at = [](QWidget* widget, QPoint place) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, place, widget->mapToGlobal(place));
        QApplication::sendEvent(widget, &event);
        return QToolTip::text();
    };
    ListGrid& grid = window_->grid();
    const QPoint cell = grid.cell_rect(0, GridColumn::qty).translated(-grid.pos()).center();
    QVERIFY(tip_at(grid.viewport(), cell).contains(QStringLiteral("500 grams of it")));
    window_->click_cell(0, GridColumn::desc);
    auto* box = window_->find<QLineEdit>(QStringLiteral("qty_brdr"));
    QVERIFY(tip_at(box, box->rect().center()).contains(QStringLiteral("500 grams of it")));
    box->setText(QStringLiteral("2"));
    QVERIFY(!tip_at(box, box->rect().center()).contains(QStringLiteral("2")));
}

void tst_grid_looks::a_quantity_that_just_fits_is_seen_whole()
{
    constexpr int beside_text = 4;
    for (const char* typed : {"12", "1 kg", "Produce"}) {
        const QString text = QString::fromLatin1(typed);
        CellBox box(QStringLiteral("box"), nullptr);
        box.keep_number_whole();
        box.setText(text);
        const int advance = box.fontMetrics().horizontalAdvance(text);
        const auto drawn = [&](int room) {
            box.resize(room + beside_text, 24);
            return box.grab(QRect(2, 2, advance, 20)).toImage();
        };
        const QImage with_room = drawn(advance + 30);
        QCOMPARE(drawn(advance), with_room);
        QCOMPARE(box.fontMetrics().horizontalAdvance(text), advance);
    }
}

void tst_grid_looks::a_long_quantity_is_seen_whole_while_it_is_typed()
{
    QFETCH(int, points);
    window_->rows(3);
    window_->open();
    window_->main().view_state().set_type_size(points);
    window_->open_row(1);
    const auto no_coupons = [&] { window_->set_group(ColumnGroup::coupon, false); };
    for (const auto& hide : {std::function<void()>([] {}), std::function<void()>(no_coupons)}) {
        hide();
        for (const char* name : {"qty", "aisle"}) {
            const QByteArray box_name = QByteArray(name) + "_brdr";
            QLineEdit& box = window_->box(box_name.constData());
            const QRect cell = window_->in_form(box_name.constData());
            for (const char* typed : {"1/2", "12A", "A-14", "12A-14", "1234567", "2 packs of 500 g"}) {
                const QString text = QString::fromLatin1(typed);
                window_->type_into(box_name.constData(), text);
                box.grab(); // scrolls the text to its caret
                const QRect now = window_->in_form(box_name.constData());
                QCOMPARE(now.right(), cell.right());
                QVERIFY(now.left() <= cell.left());
                auto* stepper
                    = window_->find<QAbstractButton>(QString::fromLatin1(name) + QStringLiteral("_btn(0)"));
                const int steppers = box.mapFrom(stepper->parentWidget(), stepper->pos()).x();
                // Begin and end of the text as the box itself finds them.
                box.setCursorPosition(0);
                const QImage from_begin = box.grab().toImage();
                const int first = box.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
                box.setCursorPosition(static_cast<int>(text.size()));
                const QImage from_end = box.grab().toImage();
                const int last = box.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
                QVERIFY2(first >= 2 && last <= steppers, qPrintable(text));
                QVERIFY2(last - first >= box.fontMetrics().horizontalAdvance(text) - 1, qPrintable(text));
                const QColor page = box.palette().color(QPalette::Base);
                QCOMPARE(best_contrast(from_end, QRect(2, 3, 1, box.height() - 6), page), 1.0);
                QCOMPARE(best_contrast(from_begin, QRect(steppers, 3, 1, box.height() - 6), page), 1.0);
                // Nothing lies over it.
                for (const QPoint place : {QPoint(3, 5), QPoint(steppers - 3, 5)})
                    QCOMPARE(box.parentWidget()->childAt(box.mapToParent(place)), &box);
            }
            window_->box("desc_brdr").setFocus();
            QCOMPARE(window_->in_form(box_name.constData()), cell);
        }
    }
}

void tst_grid_looks::captions_and_boxes_of_the_header_have_one_type_size()
{
    QFETCH(int, points);
    window_->rows(2);
    window_->open({560, 480});
    window_->main().view_state().set_type_size(points);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(window_->find<QLabel>(QStringLiteral("listheader_lbl(%1)").arg(i))->font().pointSize(), points);
    for (int i = 0; i < 2; ++i) {
        const auto* box = window_->find<QCheckBox>(QStringLiteral("Cmd_ShowCol(%1)").arg(i));
        const auto* label = window_->find<QLabel>(QStringLiteral("listheader_lbl(%1)").arg(3 + i));
        const auto* grip = window_->find<QWidget>(QStringLiteral("listheader_sprtr(%1)").arg(i));
        QCOMPARE(box->font().pointSize(), points);
        QVERIFY(label->geometry().right() < box->x() + box->width() - 14); // where its tick begins
        // The grip's lines end at the column's border, where the next caption has not begun.
        const auto* before = window_->find<QLabel>(QStringLiteral("listheader_lbl(%1)").arg(i == 0 ? 0 : 2));
        QVERIFY(before->geometry().right() < grip->x() + 17 - 4);
        const auto* after = window_->find<QLabel>(QStringLiteral("listheader_lbl(%1)").arg(i == 0 ? 1 : 3));
        QVERIFY(after->x() >= grip->x() + 17 + 2);
    }
}

void tst_grid_looks::no_quantity_touches_the_box_of_the_coupon()
{
    QFETCH(int, points);
    const QStringList quantities{QStringLiteral("1 kg"), QStringLiteral("200 g"), QStringLiteral("8 oz"),
                                 QStringLiteral("1 1/2"), QStringLiteral("1 pack")};
    for (int i = 0; i < quantities.size(); ++i)
        window_->row(QStringLiteral("Item %1").arg(i), QStringLiteral("some"), quantities[i]);
    window_->open();
    window_->main().view_state().set_type_size(points);
    window_->main().visible_tree().setFocus();
    const ListGrid& grid = window_->grid();
    const QImage image = picture();
    for (int row = 0; row < quantities.size(); ++row) {
        const QRect cell = grid.cell_rect(row, GridColumn::qty).translated(-grid.pos());
        const QColor ground = image.pixelColor(empty_place(row));
        const QRect end(cell.right() - 1, cell.top() + 1, 2, cell.height() - 2);
        QVERIFY(best_contrast(image, cell.adjusted(3, 1, -4, -1), ground) >= 4.5);
        QCOMPARE(best_contrast(image, end, ground), 1.0);
    }
}

/// The narrowest place is the aisle's, where no scroll bar makes its head wider.
void tst_grid_looks::no_caption_touches_its_box()
{
    QFETCH(int, points);
    window_->rows(2);
    window_->open();
    window_->main().view_state().set_type_size(points);
    const auto* cell = window_->find<QWidget>(QStringLiteral("listheader(3)"));
    const auto* box = window_->find<QWidget>(QStringLiteral("Cmd_ShowCol(1)"));
    const QImage image
        = window_->main().grab(QRect(cell->mapTo(&window_->main(), QPoint()), cell->size())).toImage();
    const QColor ground = cell->palette().color(QPalette::Button);
    const int tick_begins = box->geometry().right() - 13 - cell->x();
    for (const int x : {tick_begins - 2, tick_begins - 1})
        QVERIFY(best_contrast(image, QRect(x, 2, 1, image.height() - 6), ground) < 1.2);
    QVERIFY(best_contrast(image, QRect(2, 2, tick_begins - 4, image.height() - 6), ground) >= 4.5);
}

void tst_grid_looks::no_name_looks_out_behind_the_buttons_of_its_row()
{
    QFETCH(int, points);
    window_->row(QStringLiteral("Mmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmmm"), QStringLiteral("some"));
    window_->row(QStringLiteral("Nnnnnnnnnnnnnnnnn"), QStringLiteral("some"));
    window_->open();
    window_->main().view_state().set_type_size(points);
    for (const int width : {60, 75, 90, 120, 180}) {
        for (const int row : {0, 1}) {
            window_->grid().set_col_width(GridColumn::item, width);
            window_->click_cell(row, GridColumn::desc);
            const auto* buttons = window_->find<QWidget>(QStringLiteral("frmEditDel"));
            const auto* box = window_->find<QWidget>(QStringLiteral("desc_brdr"));
            QVERIFY(buttons->isVisible() && box->isVisible());
            const QRect gap(buttons->geometry().right() + 1, box->y() + 2,
                            box->x() - buttons->geometry().right() - 1, box->height() - 4);
            QVERIFY(gap.width() > 0);
            const QWidget* area = box->parentWidget();
            const QImage image
                = window_->main().grab(gap.translated(area->mapTo(&window_->main(), QPoint()))).toImage();
            QCOMPARE(best_contrast(image, image.rect(), image.pixelColor(0, 0)), 1.0);
        }
    }
}

void tst_grid_looks::the_frame_of_an_open_row_goes_on_under_its_buttons()
{
    open(3);
    window_->click_cell(2, GridColumn::desc);
    window_->grid().setFocus();
    const auto* buttons = window_->find<QWidget>(QStringLiteral("frmEditDel"));
    QVERIFY(buttons->isVisible() && window_->grid().hasFocus());
    const QRect place(buttons->mapTo(&window_->main(), QPoint()), buttons->size());
    const QImage image = window_->main().grab(place).toImage();
    for (int x = 0; x < image.width(); ++x)
        for (const int y : {0, image.height() - 1})
            QVERIFY2(contrast(image.pixelColor(x, y), *page_color_of(3)) >= 3, qPrintable(QString::number(x)));
}

/// The page has one of its four light colours there too.
void tst_grid_looks::the_scroll_bar_stands_out_on_a_dark_desktop()
{
    QFETCH(int, color);
    const QPalette before = QApplication::palette();
    const auto back = qScopeGuard([before] { QApplication::setPalette(before); });
    QApplication::setPalette(QPalette(QColor(48, 52, 56), QColor(42, 46, 50)));
    window_->rows(60);
    window_->open();
    window_->main().view_state().set_color(color);
    QScrollBar& bar = *window_->grid().verticalScrollBar();
    const QImage image = bar.grab().toImage();
    const QColor groove = image.pixelColor(bar.width() / 2, bar.height() - bar.width() - 4);
    const QRect slider(2, bar.width() + 4, bar.width() - 4, 8);
    const QRect arrow(0, 0, bar.width(), bar.width() - 4);
    QVERIFY(luminance(groove) > 0.5);
    QVERIFY(best_contrast(image, slider, groove) >= 3);
    QVERIFY(best_contrast(image, arrow, groove) >= 3);
}

void tst_grid_looks::lines_of_the_header_are_equally_thick_data()
{
    QTest::addColumn<qreal>("scale");
    for (const char* scale : {"1", "1.25", "1.5", "1.75", "2"})
        QTest::newRow(scale) << QByteArray(scale).toDouble();
}

void tst_grid_looks::lines_of_the_header_are_equally_thick()
{
    QFETCH(qreal, scale);
    window_->rows(2);
    window_->open();
    auto* form = window_->find<QWidget>(QStringLiteral("listheader(0)"))->parentWidget();
    QImage image((QSizeF(form->size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    form->render(&image);
    for (const int i : {0, 2, 3}) { // the grip stands over the line of the quantity
        const auto* cell = window_->find<QWidget>(QStringLiteral("listheader(%1)").arg(i));
        QVERIFY(cell->isVisible());
        const QColor line = line_color(cell->palette());
        const int y = qRound((cell->y() + 4) * scale); // above captions and boxes
        const int end = qRound((cell->geometry().right() + 1) * scale);
        int thickness = 0;
        for (int x = end - 5; x < std::min(end + 3, image.width()); ++x)
            thickness += image.pixelColor(x, y) == line ? 1 : 0;
        QCOMPARE(thickness, static_cast<int>(scale));
    }
}

QTEST_MAIN(tst_grid_looks)
#include "tst_grid_looks.moc"
