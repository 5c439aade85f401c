#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "widgets/row_editor.h"
#include "stock/stock_tree_fixture.h"
#include "support/contrast.h"
#include "support/message_script.h"
#include "support/tool_button.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

using namespace tarnwick;

class tst_stock_tree_label : public StockTreeTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    void tab_keys_end_the_edit_and_open_no_other_data();
    void tab_keys_end_the_edit_and_open_no_other();
    void click_that_brings_the_focus_does_not_edit();
    void click_on_the_scroll_bar_is_not_the_click_that_brings_the_focus();
    void second_click_edits();
    void floating_button_calls_the_second_click_off();
    void toolbar_calls_the_second_click_off();
    void popup_calls_the_second_click_off();
    void label_edit_takes_another_type_size();
    void every_selected_label_is_filled();

private:
    QLineEdit* editor() { return tree().findChild<QLineEdit*>(); }
    void click_label(const QTreeWidgetItem* on) { click(on, tree().text_rect(on).left() + 4); }
    static void wait_for_second_click() { QTest::qWait(QApplication::doubleClickInterval() + 100); }

    /// Milk is selected by one click and its label clicked again; the edit is about to begin.
    void click_milk_twice()
    {
        click_label(node(milk_));
        wait_for_second_click();
        QVERIFY(!editor());
        click_label(node(milk_));
        QVERIFY(!editor());
    }
};

void tst_stock_tree_label::label_edit_takes_another_type_size()
{
    load();
    click(node(milk_));
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(editor());
    QCOMPARE(editor()->font().pointSize(), 9);
    editor()->setText(QStringLiteral("Cream"));
    const int top = editor()->y();
    auto* size = window_->find<QToolButton>(tool_button(ToolButton::size));
    for (int i = 0; i < 2; ++i)
        QTest::mouseClick(size, Qt::LeftButton, {}, QPoint(5, size->height() / 2));
    QCOMPARE(tree().font().pointSize(), 12);
    QVERIFY(editor());
    QCOMPARE(editor()->font().pointSize(), 12);
    QCOMPARE(editor()->text(), QStringLiteral("Cream"));
    QTRY_VERIFY(editor()->y() > top);
    QCOMPARE(editor()->height(), tree().row_height());
}

/// Also that of a folder with a colour of its own.
void tst_stock_tree_label::every_selected_label_is_filled()
{
    window_->add_item(QStringLiteral("Glue"), 0);
    load();
    QTreeWidgetItem* other = tree().node(QStringLiteral("cat0000"));
    QVERIFY(other->foreground(0).color() == QColor(Qt::red));
    for (QTreeWidgetItem* one : {node(milk_), tree().topLevelItem(1), other}) {
        tree().select(one);
        tree().setFocus();
        const QRect label = tree().text_rect(one);
        const QImage picture = tree().viewport()->grab().toImage();
        QCOMPARE(picture.pixelColor(label.left(), label.top() + 2), tree().palette().color(QPalette::Highlight));
        int letters = 0;
        for (int y = label.top(); y < label.bottom(); ++y)
            for (int x = label.left(); x < label.left() + 20; ++x)
                letters += contrast(picture.pixelColor(x, y), tree().palette().color(QPalette::Highlight)) >= 2;
        QVERIFY(letters > 0);
    }
}

void tst_stock_tree_label::tab_keys_end_the_edit_and_open_no_other_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("forward to OTHER") << Qt::Key_Tab;
    QTest::newRow("back to an item") << Qt::Key_Backtab;
}

void tst_stock_tree_label::tab_keys_end_the_edit_and_open_no_other()
{
    QFETCH(Qt::Key, key);
    load();
    QTreeWidgetItem* produce = tree().topLevelItem(1);
    QCOMPARE(tree().itemBelow(produce), tree().node(QStringLiteral("cat0000")));
    click(produce);
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(editor());
    QStringList texts;
    connect(&tree(), &TreeView::after_label_edit, this,
            [&texts](QTreeWidgetItem*, const QString& text) { texts << text; });
    editor()->setText(QStringLiteral("Fruit"));
    QTest::keyClick(editor(), key);
    QTRY_VERIFY(!editor());
    QCOMPARE(texts, QStringList{QStringLiteral("Fruit")});
    QCOMPARE(tree().selected(), produce);
    QCOMPARE(tree().currentItem(), produce);
    QVERIFY(tree().hasFocus());
}

void tst_stock_tree_label::click_that_brings_the_focus_does_not_edit()
{
    window_->add_row(butter_, home_, true);
    load();
    click_label(node(milk_));
    wait_for_second_click();
    ListGrid& grid = window_->main().list_pane().grid();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(100, grid.viewport()->height() - 5));
    QVERIFY(grid.hasFocus());
    QCOMPARE(tree().selected(), node(milk_));
    click_label(node(milk_));
    QVERIFY(tree().hasFocus());
    wait_for_second_click();
    QVERIFY(!editor());
    click_label(node(milk_));
    QTRY_VERIFY(editor());
}

void tst_stock_tree_label::click_on_the_scroll_bar_is_not_the_click_that_brings_the_focus()
{
    for (int i = 0; i < 100; ++i)
        window_->add_item(QStringLiteral("Oil %1").arg(i), dairy_);
    load();
    click_label(node(milk_));
    window_->main().list_pane().grid().setFocus();
    QVERIFY(tree().verticalScrollBar()->isVisible());
    QTest::mouseClick(tree().verticalScrollBar(), Qt::LeftButton, {}, QPoint(3, 3));
    QVERIFY(tree().hasFocus());
    QTest::qWait(1);
    click_label(node(milk_));
    QTRY_VERIFY(editor());
}

void tst_stock_tree_label::second_click_edits()
{
    load();
    click_milk_twice();
    QTRY_VERIFY(editor());
}

void tst_stock_tree_label::floating_button_calls_the_second_click_off()
{
    load();
    click_milk_twice();
    QVERIFY(button(0).isVisible());
    QTest::mouseClick(&button(0), Qt::LeftButton);
    QVERIFY(window_->main().row_editor().is_open());
    QVERIFY(tree().hasFocus());
    wait_for_second_click();
    QVERIFY(!editor());
    QVERIFY(window_->main().row_editor().is_open());
}

void tst_stock_tree_label::toolbar_calls_the_second_click_off()
{
    load();
    click_milk_twice();
    auto* size = window_->find<QToolButton>(tool_button(ToolButton::size));
    QVERIFY(size && size->isVisible());
    QTest::mouseClick(size, Qt::LeftButton, {}, QPoint(10, 10));
    QCOMPARE(shared().type_size, 10);
    QVERIFY(tree().hasFocus());
    wait_for_second_click();
    QVERIFY(!editor());
}

void tst_stock_tree_label::popup_calls_the_second_click_off()
{
    load();
    click_milk_twice();
    QMenu& menu = commands().menu(QStringLiteral("mnu_edit"));
    menu.popup(window_->main().mapToGlobal(QPoint(20, 20)));
    QVERIFY(menu.isVisible());
    wait_for_second_click();
    QVERIFY(!editor());
    menu.close();
    wait_for_second_click();
    QVERIFY(!editor());
}

QTEST_MAIN(tst_stock_tree_label)
#include "tst_stock_tree_label.moc"
