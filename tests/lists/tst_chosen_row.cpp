#include "lists/editing_window.h"
#include "lists/list_menu.h"
#include "stock/item_editor_fixture.h"
#include "window/commands.h"

#include <QDialog>
#include <QMenu>

using namespace tarnwick;

/// The row that looks chosen is the row that is chosen, and what is hidden takes no keys.
class tst_chosen_row : public QObject {
    Q_OBJECT
private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    void a_tick_on_another_row_takes_the_open_boxes_along();
    void a_row_chosen_by_the_program_takes_the_open_boxes_along();
    void a_press_that_ends_beside_the_columns_leaves_one_row_chosen();
    void a_tick_after_a_right_click_leaves_no_other_row_bold();
    void a_held_delete_key_removes_one_row();
    void hiding_a_column_group_sends_the_keyboard_to_the_grid_data();
    void hiding_a_column_group_sends_the_keyboard_to_the_grid();
    void hiding_a_column_group_in_the_item_editor_leaves_the_name_alone();
    void rename_box_opens_with_the_old_name_marked();

private:
    EditingWindow& w() { return *window_; }
    void check_chosen(int row);

    std::unique_ptr<EditingWindow> window_;
};

/// Current row, boxes and bold are on this row alone.
void tst_chosen_row::check_chosen(int row)
{
    QCOMPARE(w().grid().current_row(), row);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().edit_row(), row);
    QCOMPARE(w().in_form("desc_brdr").top(), w().cell_in_form(GridColumn::desc).top());
    for (int i = 0; i < w().grid().rows().rows(); ++i)
        QCOMPARE(w().grid().rows().row(i).bold, i == row);
}

void tst_chosen_row::a_tick_on_another_row_takes_the_open_boxes_along()
{
    w().rows(4);
    w().open();
    w().open_row(1);
    w().click_cell(3, GridColumn::check);
    QVERIFY(!w().grid().rows().row(3).to_get);
    QVERIFY(w().grid().rows().row(1).to_get);
    check_chosen(3);
    QTest::keyClick(&w().grid(), Qt::Key_Delete);
    QCOMPARE(w().text("SELECT group_concat(item) FROM groc_1"), QStringLiteral("Item 000,Item 001,Item 002"));
}

void tst_chosen_row::a_row_chosen_by_the_program_takes_the_open_boxes_along()
{
    w().rows(4);
    w().open();
    w().open_row(1);
    QVERIFY(w().main().list_pane().set_row(w().grid().rows().row(2).groc_key));
    check_chosen(2);
}

void tst_chosen_row::a_press_that_ends_beside_the_columns_leaves_one_row_chosen()
{
    w().rows(4);
    w().open();
    w().open_row(1);
    QTest::mousePress(w().grid().viewport(), Qt::LeftButton, {}, w().middle_of(2, GridColumn::desc));
    QTest::mouseRelease(w().grid().viewport(), Qt::LeftButton, {},
                        QPoint(w().grid().viewport()->width() - 1, w().middle_of(2, GridColumn::desc).y()));
    check_chosen(2);
}

void tst_chosen_row::a_tick_after_a_right_click_leaves_no_other_row_bold()
{
    w().rows(3);
    w().open();
    w().click_cell(0, GridColumn::item, Qt::RightButton);
    QVERIFY(w().grid().rows().row(0).bold);
    w().main().commands().menu(QStringLiteral("mnu_lv")).close();
    w().click_cell(2, GridColumn::check);
    QCOMPARE(w().grid().current_row(), 2);
    QVERIFY(!w().grid().rows().row(0).bold);
}

void tst_chosen_row::a_held_delete_key_removes_one_row()
{
    w().rows(4);
    w().open();
    w().open_row(1);
    for (const bool repeated : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, repeated);
        QApplication::sendEvent(&w().grid(), &press);
    }
    QCOMPARE(w().text("SELECT group_concat(item) FROM groc_1"), QStringLiteral("Item 000,Item 002,Item 003"));
}

void tst_chosen_row::hiding_a_column_group_sends_the_keyboard_to_the_grid_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("command");
    QTest::newRow("aisle") << QStringLiteral("aisle_brdr") << QStringLiteral("mnu_view_aisle");
    QTest::newRow("date") << QStringLiteral("dp_brdr") << QStringLiteral("mnu_view_cpn");
}

void tst_chosen_row::hiding_a_column_group_sends_the_keyboard_to_the_grid()
{
    QFETCH(QString, box);
    QFETCH(QString, command);
    w().rows(3);
    w().open();
    w().open_row(1);
    auto* edit = w().main().findChild<QLineEdit*>(box);
    QVERIFY(edit && edit->isVisible());
    edit->setFocus();
    QVERIFY(edit->hasFocus());
    if (!edit->isReadOnly()) {
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("7"));
    }
    QAction& action = w().main().commands().action(command);
    QVERIFY(action.isEnabled());
    action.trigger();
    QVERIFY(!edit->isVisible());
    QVERIFY(w().grid().hasFocus());
    QVERIFY(w().editor().is_open());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("99"));
    if (!edit->isReadOnly())
        QCOMPARE(w().text("SELECT group_concat(aisle) FROM groc_1"), QStringLiteral("5,7,5"));
}

void tst_chosen_row::hiding_a_column_group_in_the_item_editor_leaves_the_name_alone()
{
    w().rows(2);
    w().open();
    w().open_row(0);
    MessageScript script;
    script.drive([&script](QDialog& dialog) {
        dialog.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &dialog);
        EditorHands hands(dialog, script);
        hands.click_cell(0, GridColumn::desc);
        auto* aisle = dialog.findChild<QLineEdit*>(QStringLiteral("aisle_brdr"));
        auto* shown = dialog.findChild<QCheckBox*>(QStringLiteral("Cmd_ShowCol(1)"));
        if (!shown->isChecked())
            QTest::mouseClick(shown, Qt::LeftButton);
        QVERIFY(aisle->isVisible());
        aisle->setFocus();
        QTest::keyClicks(aisle, QStringLiteral("3"));
        QTest::mouseClick(shown, Qt::LeftButton);
        QVERIFY(!aisle->isVisible());
        QVERIFY(hands.grid().hasFocus());
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("xyz"));
        QCOMPARE(hands.name().text(), QStringLiteral("Item 000"));
        hands.press_ok();
    });
    w().press("imgedit");
    QCOMPARE(w().text("SELECT item || aisle FROM groc_1 WHERE key_id = 1"), QStringLiteral("Item 00035"));
}

void tst_chosen_row::rename_box_opens_with_the_old_name_marked()
{
    w().rows(1);
    w().open();
    MessageScript script;
    script.drive([](QDialog& form) {
        auto* box = form.findChild<QLineEdit*>();
        QCOMPARE(box->text(), QStringLiteral("Corner shop"));
        QCOMPARE(box->selectedText(), QStringLiteral("Corner shop"));
        QTest::keyClicks(box, QStringLiteral("Market"));
        form.accept();
    });
    trigger(w(), "mnu_list_RenameList");
    QCOMPARE(w().text("SELECT list_name FROM list_name"), QStringLiteral("Market"));
}

QTEST_MAIN(tst_chosen_row)
#include "tst_chosen_row.moc"
