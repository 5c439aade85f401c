#include "widgets/drag.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

using namespace tarnwick;

namespace {

/// Notes what happens to it.
struct Box : DragTarget {
    DragSign sign = DragSign::plain;
    int over = 0;
    int left = 0;
    int scrolled = 0;
    QStringList drops;
    std::function<void()> on_drop = [] {};
    QPoint at;

    DragSign drag_over(const DragPayload&, QPoint position) override
    {
        ++over;
        at = position;
        return sign;
    }
    void drag_left(const DragPayload&) override { ++left; }
    void drop(const DragPayload& payload, QPoint position) override
    {
        drops.append(payload.caption);
        at = position;
        on_drop();
    }
    void scroll_towards(int direction) override { scrolled += direction; }
};

struct Source : DragSource {
    int released = 0;
    int cancelled = 0;
    QFont drag_font() const override { return QFont(QStringLiteral("Sans"), 17); }
    void drag_ended(DragEnd end) override { ++(end == DragEnd::released ? released : cancelled); }
};

/// A form with a source on the left and a target on the right, which has a button in it.
struct Form {
    QWidget window;
    QWidget* source = new QWidget(&window);
    QWidget* place = new QWidget(&window);
    QPushButton* inner = new QPushButton(place);
    Box box;
    Drag drag{window};
    Source origin;

    Form()
    {
        window.resize(400, 300);
        source->setGeometry(0, 0, 190, 300);
        place->setGeometry(200, 0, 200, 300);
        inner->setGeometry(50, 100, 80, 30);
        drag.add_target(*place, box);
        window.show();
        window.activateWindow();
    }

    QPoint screen(int x, int y) { return window.mapToGlobal(QPoint(x, y)); }
    QLabel& label() { return *window.findChild<QLabel*>(QStringLiteral("drag_label_tree")); }

    void begin(DragKind kind = DragKind::stock_item)
    {
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::mousePress(source, Qt::LeftButton, {}, QPoint(20, 20));
        drag.begin(origin, {kind, 7, QStringLiteral("Eggs")}, screen(26, 20));
    }
    void move(int x, int y) { QTest::mouseMove(source, QPoint(x, y)); }
    void release(int x, int y) { QTest::mouseRelease(source, Qt::LeftButton, {}, QPoint(x, y)); }
};

} // namespace

class tst_drag : public QObject {
    Q_OBJECT
private slots:
    void a_drag_starts_at_4_pixels_and_not_at_3();
    void label_bears_the_caption_and_is_shown_only_while_dragged();
    void release_over_a_target_drops_there_and_takes_its_mark_first();
    void release_elsewhere_drops_nothing();
    void a_child_of_a_target_counts_as_the_target();
    void a_target_that_refuses_shows_the_no_drop_pointer_until_it_is_left();
    void escape_ends_the_drag_without_a_drop();
    void a_button_released_outside_ends_the_drag();
    void losing_the_window_ends_the_drag();
    void a_dialog_that_comes_up_ends_the_drag();
    void a_window_above_the_form_hides_the_targets_under_it();
    void the_edge_of_a_target_scrolls_it();
    void a_pointer_that_passes_an_edge_scrolls_nothing();
    void a_target_that_goes_while_it_is_pointed_at_is_forgotten();
    void a_place_that_refuses_takes_no_drop();
    void an_ingredient_line_is_refused_where_there_is_no_target_and_a_stock_item_is_not();
    void a_place_that_the_drag_may_not_come_to_ends_it();
    void another_button_changes_nothing_while_dragged();
    void a_second_drag_does_not_begin_while_one_runs();
    void a_drop_that_asks_runs_after_the_drag_is_over();
};

void tst_drag::a_drag_starts_at_4_pixels_and_not_at_3()
{
    QVERIFY(!Drag::is_drag({3, -3}));
    QVERIFY(Drag::is_drag({4, 0}));
    QVERIFY(Drag::is_drag({0, -4}));
}

void tst_drag::label_bears_the_caption_and_is_shown_only_while_dragged()
{
    Form form;
    QVERIFY(form.label().isHidden());
    form.begin();
    QCOMPARE(form.label().text(), QStringLiteral("Eggs"));
    QVERIFY(form.label().isVisible());
    QCOMPARE(form.label().font().pointSize(), 17);
    form.move(100, 150);
    QVERIFY(!form.label().geometry().contains(form.screen(100, 150)));
    QVERIFY((form.label().pos() - form.screen(100, 150)).manhattanLength() < 60);
    form.release(100, 150);
    QVERIFY(form.label().isHidden());
}

void tst_drag::release_over_a_target_drops_there_and_takes_its_mark_first()
{
    Form form;
    form.begin();
    form.move(250, 40);
    QVERIFY(form.box.over > 0);
    QCOMPARE(form.box.at, QPoint(50, 40));
    form.release(260, 60);
    QCOMPARE(form.box.drops, QStringList{QStringLiteral("Eggs")});
    QCOMPARE(form.box.at, QPoint(60, 60));
    QCOMPARE(form.box.left, 1);
    QCOMPARE(form.origin.released, 1);
    QVERIFY(!form.drag.running());
}

void tst_drag::release_elsewhere_drops_nothing()
{
    Form form;
    form.begin();
    form.move(250, 40);
    form.move(195, 40);
    QCOMPARE(form.box.left, 1);
    form.release(195, 40);
    QVERIFY(form.box.drops.isEmpty());
    QCOMPARE(form.origin.released, 1);
}

void tst_drag::a_child_of_a_target_counts_as_the_target()
{
    Form form;
    form.begin();
    form.release(200 + 60, 110);
    QCOMPARE(form.box.drops.size(), 1);
    QCOMPARE(form.box.at, QPoint(60, 110));
}

void tst_drag::a_target_that_refuses_shows_the_no_drop_pointer_until_it_is_left()
{
    Form form;
    form.box.sign = DragSign::refused;
    form.begin();
    form.move(250, 40);
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ForbiddenCursor);
    form.move(250, 50);
    form.move(100, 50);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    form.move(250, 40);
    form.release(250, 40);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_drag::escape_ends_the_drag_without_a_drop()
{
    Form form;
    form.begin();
    form.move(250, 40);
    QTest::keyClick(&form.window, Qt::Key_Escape);
    QVERIFY(!form.drag.running());
    QCOMPARE(form.origin.cancelled, 1);
    form.release(250, 40);
    QVERIFY(form.box.drops.isEmpty());
    QVERIFY(form.label().isHidden());
}

void tst_drag::a_button_released_outside_ends_the_drag()
{
    Form form;
    form.begin();
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 40), form.screen(260, 40), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(form.place, &move);
    QVERIFY(!form.drag.running());
    QCOMPARE(form.origin.cancelled, 1);
    QTest::mouseRelease(form.source, Qt::LeftButton);
}

void tst_drag::losing_the_window_ends_the_drag()
{
    Form form;
    form.begin();
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(!form.drag.running());
    QTest::mouseRelease(form.source, Qt::LeftButton);
}

void tst_drag::a_dialog_that_comes_up_ends_the_drag()
{
    Form form;
    form.begin();
    bool running = true;
    QTimer::singleShot(0, &form.window, [&] {
        running = form.drag.running();
        QApplication::activeModalWidget()->close();
    });
    QDialog(&form.window).exec();
    QVERIFY(!running);
    QTest::mouseRelease(form.source, Qt::LeftButton);
}

void tst_drag::a_window_above_the_form_hides_the_targets_under_it()
{
    Form form;
    QDialog above(&form.window);
    QWidget row(&above);
    Box list;
    above.setGeometry(QRect(form.screen(220, 20), QSize(120, 200)));
    row.setGeometry(0, 0, 120, 40);
    form.drag.add_target(row, list);
    above.show();
    form.window.activateWindow();
    form.begin();
    form.move(240, 40);
    QVERIFY(list.over > 0);
    QCOMPARE(form.box.over, 0);
    form.release(240, 150);
    QVERIFY(list.drops.isEmpty());
    QVERIFY(form.box.drops.isEmpty());
}

void tst_drag::the_edge_of_a_target_scrolls_it()
{
    Form form;
    form.begin();
    form.move(250, 295);
    QTRY_VERIFY(form.box.scrolled > 1);
    form.move(250, 150);
    const int scrolled = form.box.scrolled;
    QTest::qWait(200);
    QCOMPARE(form.box.scrolled, scrolled);
    form.move(250, 3);
    QTRY_VERIFY(form.box.scrolled < scrolled);
    form.release(250, 150);
}

void tst_drag::a_target_that_goes_while_it_is_pointed_at_is_forgotten()
{
    Form form;
    form.begin();
    form.move(250, 40);
    delete form.place;
    form.release(250, 40);
    QVERIFY(form.box.drops.isEmpty());
    QCOMPARE(form.origin.released, 1);
}

void tst_drag::a_pointer_that_passes_an_edge_scrolls_nothing()
{
    Form form;
    form.begin();
    form.move(250, 295);
    QTest::qWait(100);
    form.move(250, 150);
    QTest::qWait(200);
    QCOMPARE(form.box.scrolled, 0);
    form.release(250, 150);
}

void tst_drag::a_place_that_refuses_takes_no_drop()
{
    Form form;
    form.box.sign = DragSign::refused;
    form.begin();
    form.release(250, 40);
    QVERIFY(form.box.drops.isEmpty());
    QCOMPARE(form.origin.released, 1);
    QCOMPARE(form.box.left, 1);
}

void tst_drag::an_ingredient_line_is_refused_where_there_is_no_target_and_a_stock_item_is_not()
{
    Form form;
    form.begin(DragKind::ingredient_line);
    form.move(100, 150);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ForbiddenCursor);
    form.move(250, 40);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
    form.release(250, 40);
    QVERIFY(!QApplication::overrideCursor());
    form.begin();
    form.move(100, 150);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    form.release(100, 150);
}

void tst_drag::a_place_that_the_drag_may_not_come_to_ends_it()
{
    Form form;
    form.box.sign = DragSign::given_up;
    form.begin();
    form.move(250, 40);
    QVERIFY(!form.drag.running());
    QVERIFY(form.label().isHidden());
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(form.origin.cancelled, 1);
    form.release(250, 40);
    QVERIFY(form.box.drops.isEmpty());
}

void tst_drag::another_button_changes_nothing_while_dragged()
{
    Form form;
    form.begin();
    form.move(250, 40);
    QTest::mouseClick(form.inner, Qt::RightButton);
    QVERIFY(form.drag.running());
    form.release(250, 40);
    QCOMPARE(form.box.drops.size(), 1);
}

void tst_drag::a_second_drag_does_not_begin_while_one_runs()
{
    Form form;
    form.begin();
    Source other;
    form.drag.begin(other, {DragKind::recipe, 8, QStringLiteral("Soup")}, form.screen(30, 30));
    QCOMPARE(form.label().text(), QStringLiteral("Eggs"));
    form.release(250, 40);
    QCOMPARE(form.box.drops, QStringList{QStringLiteral("Eggs")});
    QCOMPARE(other.released + other.cancelled, 0);
}

void tst_drag::a_drop_that_asks_runs_after_the_drag_is_over()
{
    Form form;
    bool running = true;
    form.box.on_drop = [&] {
        QTimer::singleShot(0, &form.window, [&] {
            running = form.drag.running() || form.label().isVisible() || QApplication::overrideCursor();
            QApplication::activeModalWidget()->close();
        });
        QDialog(&form.window).exec();
    };
    form.begin();
    form.release(250, 40);
    QVERIFY(!running);
    QCOMPARE(form.origin.released, 1);
    QCOMPARE(form.origin.cancelled, 0);
}

QTEST_MAIN(tst_drag)
#include "tst_drag.moc"
