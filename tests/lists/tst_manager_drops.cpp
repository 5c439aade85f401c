#include "lists/manager_window.h"

#include "data/query.h"

#include "stock/stock_tree.h"
#include "widgets/drag.h"
#include "widgets/row_editor.h"
#include "widgets/tree_view.h"

#include <QMessageBox>
#include <QtTest>

using namespace tarnwick;

namespace {

/// The list manager with a stock item that is dragged out of the tree, by the mouse, onto its rows.
struct DropWindow : ManagerWindow, DragSource {
    Key dairy = add_category(QStringLiteral("Dairy"), true);
    Key eggs = add_item(QStringLiteral("Eggs"), dairy);
    Key baker = add_list(QStringLiteral("Baker"));
    Key market = add_list(QStringLiteral("Market"));

    void begin(DragKind kind = DragKind::stock_item)
    {
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
        QTest::mousePress(&tree(), Qt::LeftButton, {}, QPoint(20, 200));
        main().drag().begin(*this, {kind, eggs, QStringLiteral("Eggs")}, tree().mapToGlobal(QPoint(26, 200)));
        QVERIFY(main().drag().running());
    }
    void drag_ended(DragEnd) override { }

    QWidget& tree() { return *main().stock_tree().view().viewport(); }
    QPoint over(const QWidget& widget) { return tree().mapFromGlobal(widget.mapToGlobal(widget.rect().center())); }
    void move(const QWidget& widget) { QTest::mouseMove(&tree(), over(widget)); }
    void release(const QWidget& widget) { QTest::mouseRelease(&tree(), Qt::LeftButton, {}, over(widget)); }
    void drop(const QWidget& widget)
    {
        begin();
        move(widget);
        release(widget);
    }
    int placed(Key list)
    {
        Query query(db(), "SELECT count(*) FROM tie WHERE item_id = ? AND list = ?", eggs, list);
        query.next();
        return query.number(0);
    }
    QList<int> marked()
    {
        QList<int> rows;
        for (int i = 0; label(i); ++i)
            if (label(i)->palette().color(QPalette::Window) == manager()->palette().color(QPalette::Highlight))
                rows += i;
        return rows;
    }
};

/// The desktop turns dark, until the guard ends.
auto turn_dark()
{
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(48, 52, 56), QColor(42, 46, 50));
    dark.setColor(QPalette::Highlight, QColor(160, 60, 20));
    QApplication::setPalette(dark);
    QGuiApplication::sendPostedEvents();
    return qScopeGuard([before] { QApplication::setPalette(before); });
}

} // namespace

class tst_manager_drops : public QObject {
    Q_OBJECT
private slots:
    void the_row_under_the_drag_is_marked_and_the_mark_goes();
    void the_mark_takes_the_colour_of_a_desktop_that_turns_dark();
    void a_drop_on_another_list_places_there_and_the_list_in_view_stays();
    void a_drop_on_the_list_in_view_shows_the_row_and_opens_it_not();
    void a_drop_on_all_opens_the_editor_with_no_list_chosen_and_places_nothing_before_its_ok();
    void a_second_placing_is_asked_for();
    void a_recipe_is_refused();
    void a_drop_beside_the_rows_or_on_the_row_without_lists_does_nothing();
    void a_list_that_vanishes_while_dragged_takes_nothing();
    void an_item_that_vanishes_while_dragged_is_put_nowhere();
    void a_row_half_out_of_sight_takes_a_drop();
};

void tst_manager_drops::the_row_under_the_drag_is_marked_and_the_mark_goes()
{
    DropWindow w;
    w.open({});
    w.begin();
    QCOMPARE(w.marked(), QList<int>{});
    w.move(*w.label(1));
    QCOMPARE(w.marked(), QList<int>{1});
    QVERIFY(w.label(1)->palette().color(QPalette::WindowText) != w.label(0)->palette().color(QPalette::WindowText));
    w.move(*w.part<QLabel>("pct_list", 2));
    QCOMPARE(w.marked(), QList<int>{2});
    w.move(w.tree());
    QCOMPARE(w.marked(), QList<int>{});
    w.move(*w.label(0));
    w.release(*w.label(0));
    QCOMPARE(w.marked(), QList<int>{});
    QCOMPARE(w.placed(w.baker), 1);
}

void tst_manager_drops::the_mark_takes_the_colour_of_a_desktop_that_turns_dark()
{
    DropWindow w;
    w.open({});
    w.begin();
    w.move(*w.label(1));
    const QColor light = w.label(1)->palette().color(QPalette::Window);
    {
        const auto back = turn_dark();
        QCOMPARE(w.marked(), QList<int>{1});
        QVERIFY(w.label(1)->palette().color(QPalette::Window) != light);
    }
    QGuiApplication::sendPostedEvents();
    QCOMPARE(w.label(1)->palette().color(QPalette::Window), light);
    w.release(*w.label(1));
    QCOMPARE(w.marked(), QList<int>{});
}

void tst_manager_drops::a_drop_on_another_list_places_there_and_the_list_in_view_stays()
{
    DropWindow w;
    w.open({});
    w.drop(*w.label(1));
    QCOMPARE(w.placed(w.market), 1);
    QCOMPARE(w.placed(w.baker), 0);
    QCOMPARE(w.text("SELECT desc || '|' || qty || '|' || to_get FROM groc_1"), QStringLiteral(" |0|1"));
    QCOMPARE(w.main().shared.current_list, w.baker);
    QCOMPARE(w.main().windowTitle(), QStringLiteral("Tarnwick (Baker list)"));
    QCOMPARE(w.main().list_pane().grid().rows().rows(), 0);
    QCOMPARE(w.rows().filter(QStringLiteral("*")), QStringList{QStringLiteral("Baker|1*")});
}

void tst_manager_drops::a_drop_on_the_list_in_view_shows_the_row_and_opens_it_not()
{
    DropWindow w;
    w.open({});
    w.drop(*w.label(0));
    QCOMPARE(w.main().list_pane().grid().rows().rows(), 1);
    QCOMPARE(w.main().list_pane().grid().current_row(), 0);
    QVERIFY(!w.main().row_editor().is_open());
}

void tst_manager_drops::a_drop_on_all_opens_the_editor_with_no_list_chosen_and_places_nothing_before_its_ok()
{
    for (const bool ok : {false, true}) {
        DropWindow w;
        w.open({});
        MessageScript script;
        script.drive([&w, ok](QDialog& dialog) {
            QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding Eggs"));
            QCOMPARE(w.number("SELECT count(*) FROM tie"), 0);
            QTest::mouseClick(
                dialog.findChild<QPushButton*>(ok ? QStringLiteral("Command1(0)") : QStringLiteral("Command1(1)")),
                Qt::LeftButton);
        });
        if (ok) // no list has been chosen
            script.expect(QStringLiteral("Add to list"), QStringLiteral("Eggs was not added to any list"));
        w.drop(*w.label(2));
        QCOMPARE(w.number("SELECT count(*) FROM tie"), 0);
    }
}

void tst_manager_drops::a_second_placing_is_asked_for()
{
    DropWindow w;
    w.add_row(w.eggs, w.market, true);
    w.open({});
    const QString question
        = QStringLiteral("There is already an active Eggs\n stock item on the Market list -\n\n"
                         "Do you want to add another?\n\nChoose YES to add another, NO to Cancel:");
    MessageScript script;
    script.expect(QStringLiteral("Question"), question, Answer::no);
    w.drop(*w.label(1));
    QCOMPARE(script.left(), 0);
    QCOMPARE(w.placed(w.market), 1);
    script.expect(QStringLiteral("Question"), question, Answer::yes);
    w.drop(*w.label(1));
    QCOMPARE(w.placed(w.market), 2);
}

void tst_manager_drops::a_recipe_is_refused()
{
    DropWindow w;
    w.open({});
    w.begin(DragKind::recipe);
    w.move(*w.label(1));
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ForbiddenCursor);
    QCOMPARE(w.marked(), QList<int>{});
    w.release(*w.label(1));
    QCOMPARE(w.number("SELECT count(*) FROM tie"), 0);
}

void tst_manager_drops::a_drop_beside_the_rows_or_on_the_row_without_lists_does_nothing()
{
    DropWindow w;
    w.open({});
    QWidget& statusbar = *w.part<QWidget>(QStringLiteral("StatusBar1"));
    w.drop(statusbar);
    QCOMPARE(w.number("SELECT count(*) FROM tie"), 0);
    for (int i = 0; i < 2; ++i) {
        MessageScript script;
        script.drive([](QDialog& dialog) {
            QTest::mouseClick(static_cast<QMessageBox&>(dialog).button(QMessageBox::Yes), Qt::LeftButton);
        });
        trigger(w, "mnu_list_del");
    }
    QCOMPARE(w.label(0)->property("Tag").toString(), QStringLiteral("-1"));
    w.begin();
    w.move(*w.label(0));
    QCOMPARE(w.marked(), QList<int>{});
    w.release(*w.label(0));
    QCOMPARE(w.number("SELECT count(*) FROM tie"), 0);
    QVERIFY(w.manager()->isVisible());
}

void tst_manager_drops::a_list_that_vanishes_while_dragged_takes_nothing()
{
    DropWindow w;
    w.open({});
    Query(w.db(), "DELETE FROM list_name WHERE key_id = ?", w.market).run();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QVERIFY(static_cast<QMessageBox&>(dialog).text().startsWith(QStringLiteral("This list no longer exists.")));
        QTest::mouseClick(static_cast<QMessageBox&>(dialog).button(QMessageBox::Ok), Qt::LeftButton);
    });
    w.drop(*w.label(1));
    QCOMPARE(w.number("SELECT count(*) FROM tie"), 0);
}

void tst_manager_drops::an_item_that_vanishes_while_dragged_is_put_nowhere()
{
    DropWindow w;
    w.open({});
    const MessageScript script; // neither a question nor the editor comes up
    for (const int row : {0, 2}) {
        Query(w.db(), "DELETE FROM items_1 WHERE key_id = ?", w.eggs).run();
        w.drop(*w.label(row));
    }
    QCOMPARE(w.number("SELECT count(*) FROM tie"), 0);
}

void tst_manager_drops::a_row_half_out_of_sight_takes_a_drop()
{
    DropWindow w;
    w.open({});
    w.manager()->resize(240, w.manager()->minimumHeight());
    QFrame* rows = w.part<QFrame>(QStringLiteral("Frame1"));
    QFrame* row = w.part<QFrame>("frm_list", 1);
    w.manager()->resize(240, w.manager()->height() - rows->height() + row->geometry().center().y());
    w.begin();
    const QPoint in_tree = w.tree().mapFromGlobal(rows->mapToGlobal(QPoint(60, row->y() + 2)));
    QTest::mouseMove(&w.tree(), in_tree);
    QCOMPARE(w.marked(), QList<int>{1});
    QTest::mouseRelease(&w.tree(), Qt::LeftButton, {}, in_tree);
    QCOMPARE(w.placed(w.market), 1);
}

QTEST_MAIN(tst_manager_drops)
#include "tst_manager_drops.moc"
