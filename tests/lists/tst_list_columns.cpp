#include "lists/editing_window.h"
#include "window/layout.h"

#include <QFrame>
#include <QMouseEvent>

using namespace tarnwick;

/// The columns of the main window's grid, by its boxes and its borders.
class tst_list_columns : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    void both_groups_hidden_give_134_pixels_to_the_text_columns();
    void with_both_groups_hidden_the_text_columns_keep_their_ratio();
    void a_grid_narrower_than_206_pixels_keeps_its_widths();
    void a_toggle_beside_a_wide_tree_moves_the_separator_and_stores_it();

private:
    EditingWindow& w() { return *window_; }
    int item_width() { return w().grid().col_width(GridColumn::item); }
    int desc_width() { return w().grid().col_width(GridColumn::desc); }

    static void drag(QWidget& grip, int by)
    {
        const QPoint from = grip.rect().center();
        QTest::mousePress(&grip, Qt::LeftButton, {}, from);
        const QPoint to = grip.mapToGlobal(from) + QPoint(by, 0);
        QMouseEvent move(QEvent::MouseMove, grip.mapFromGlobal(to), to, Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&grip, &move);
        QTest::mouseRelease(&grip, Qt::LeftButton, {}, grip.mapFromGlobal(to));
    }

    std::unique_ptr<EditingWindow> window_;
};

void tst_list_columns::both_groups_hidden_give_134_pixels_to_the_text_columns()
{
    w().rows(3);
    w().open();
    w().main().list_pane().set_col_widths();
    QCOMPARE(item_width() + desc_width() - 2, w().grid().width() - 206);
    w().set_group(ColumnGroup::coupon, false);
    w().main().list_pane().set_col_widths();
    QCOMPARE(item_width() + desc_width() - 2, w().grid().width() - 206 + 98);
    w().set_group(ColumnGroup::aisle, false);
    w().main().list_pane().set_col_widths();
    QCOMPARE(item_width() + desc_width() - 2, w().grid().width() - 206 + 134);
}

void tst_list_columns::with_both_groups_hidden_the_text_columns_keep_their_ratio()
{
    w().rows(3);
    w().open();
    w().set_group(ColumnGroup::coupon, false);
    w().set_group(ColumnGroup::aisle, false);
    drag(w().widget("listheader_sprtr(0)"), -60);
    const int item = item_width();
    const int desc = desc_width();
    QVERIFY(item + 100 < desc);
    w().main().resize(1200, 700);
    QCoreApplication::processEvents();
    const int available = w().grid().width() - 206 + 134;
    QCOMPARE(item_width(), available * item / (item + desc) + 1);
    QCOMPARE(desc_width(), available - available * item / (item + desc) + 1);
}

void tst_list_columns::a_grid_narrower_than_206_pixels_keeps_its_widths()
{
    w().rows(3);
    w().open();
    const int item = item_width();
    const int desc = desc_width();
    const int height = w().grid().height();
    w().grid().resize(205, height);
    w().main().list_pane().set_col_widths();
    QCOMPARE(item_width(), item);
    QCOMPARE(desc_width(), desc);
    w().grid().resize(206, height);
    w().main().list_pane().set_col_widths();
    QCOMPARE(item_width(), 3 + 1);
}

void tst_list_columns::a_toggle_beside_a_wide_tree_moves_the_separator_and_stores_it()
{
    w().rows(3);
    w().open();
    const Layout& layout = w().main().layout_manager();
    drag(*w().find<QFrame>(QStringLiteral("Frame1")), 600);
    const int dragged = layout.separator();
    QVERIFY(w().grid().width() < 400);
    QCOMPARE(w().pref(QStringLiteral("seprtr")), QString::number(dragged * 15));
    w().set_group(ColumnGroup::aisle, false);
    QVERIFY(layout.separator() < dragged);
    QVERIFY(w().grid().width() >= 400);
    QVERIFY(w().grid().geometry().right() < w().grid().parentWidget()->width());
    QCOMPARE(w().pref(QStringLiteral("seprtr")), QString::number(layout.separator() * 15));
    QCOMPARE(item_width(), 115);
    QCOMPARE(desc_width(), 115);
}

QTEST_MAIN(tst_list_columns)
#include "tst_list_columns.moc"
