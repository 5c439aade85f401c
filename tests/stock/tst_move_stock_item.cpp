#include "stock/tidying_fixture.h"
#include "household/status.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

using namespace tarnwick;

/// Moving a stock item to another category with the dialog.
class tst_move_stock_item : public TidyingTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    void it_offers_every_category_but_the_items_own_with_other_on_top_data();
    void it_offers_every_category_but_the_items_own_with_other_on_top();
    void ok_waits_for_a_choice_and_cancel_moves_nothing_data();
    void ok_waits_for_a_choice_and_cancel_moves_nothing();
    void ok_moves_the_item_and_shows_it_in_its_folder_data();
    void ok_moves_the_item_and_shows_it_in_its_folder();
    void the_folder_that_falls_empty_is_closed();
    void a_move_into_other_shows_it_open();
    void rows_and_marks_stay_and_the_tree_shows_the_true_status();
    void a_move_with_all_lists_on_show_keeps_every_row();
    void tool_tips_on_the_recipe_page_name_the_new_category();
    void a_move_to_the_items_own_category_changes_nothing_and_no_status_bar_text();
    void a_category_or_an_item_that_is_gone_is_told();
    void no_command_moves_in_the_alphabetic_view_or_a_folder();
    void a_line_that_is_being_edited_is_stored_before_the_dialog();
    void long_names_leave_the_dialog_on_the_screen();

private:
    static QComboBox* combo(QDialog& dialog) { return dialog.findChild<QComboBox*>(QStringLiteral("Combo1")); }
    static QPushButton* button(QDialog& dialog, int index)
    {
        return dialog.findChild<QPushButton*>(QStringLiteral("Command1(%1)").arg(index));
    }
    static QStringList offered(QDialog& dialog)
    {
        QStringList texts;
        for (int i = 0; i < combo(dialog)->count(); ++i)
            texts += combo(dialog)->itemText(i);
        return texts;
    }
    static void choose_category(QDialog& dialog, const QString& name)
    {
        const auto names = offered(dialog);
        combo(dialog)->setFocus();
        for (qsizetype i = 0; i <= names.indexOf(name); ++i)
            QTest::keyClick(combo(dialog), Qt::Key_Down);
        QCOMPARE(combo(dialog)->currentText(), name);
    }

    /// Opens the dialog on an item by a command and moves it by keyboard and mouse.
    void move(Key item, const QString& category, const char* command = "mnu_edit_move")
    {
        click(node(item));
        MessageScript script;
        script.drive([&](QDialog& dialog) {
            choose_category(dialog, category);
            QTest::mouseClick(button(dialog, 0), Qt::LeftButton);
        });
        choose(command);
        QCOMPARE(script.left(), 0);
    }
    int category_of_item(Key item)
    {
        Query query(window_->db(), "SELECT cat FROM items_1 WHERE key_id = ?", item);
        return query.next() ? query.number(0) : -1;
    }
};

void tst_move_stock_item::it_offers_every_category_but_the_items_own_with_other_on_top_data()
{
    QTest::addColumn<bool>("in_other");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("in a category") << false
                                   << (QStringList{QStringLiteral("OTHER"), QStringLiteral("Bakery"),
                                                   QStringLiteral("Produce")});
    QTest::newRow("in OTHER") << true
                              << (QStringList{QStringLiteral("Bakery"), QStringLiteral("Dairy"),
                                              QStringLiteral("Produce")});
}

void tst_move_stock_item::it_offers_every_category_but_the_items_own_with_other_on_top()
{
    QFETCH(bool, in_other);
    QFETCH(QStringList, names);
    window_->add_category(QStringLiteral("Bakery"));
    const Key soap = window_->add_item(QStringLiteral("Soap"), 0);
    load();
    folder(0)->setExpanded(true);
    click(node(in_other ? soap : milk_));
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("move_item"));
        QCOMPARE(dialog.windowTitle(), in_other ? QStringLiteral("Move Soap") : QStringLiteral("Move Milk"));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("Label1"))->text(),
                 in_other ? QStringLiteral("Move Soap from OTHER category to:")
                          : QStringLiteral("Move Milk from Dairy category to:"));
        QCOMPARE(offered(dialog), names);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    choose("mnu_edit_move");
    QCOMPARE(script.left(), 0);
}

void tst_move_stock_item::ok_waits_for_a_choice_and_cancel_moves_nothing_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("CANCEL") << false;
    QTest::newRow("Escape") << true;
}

void tst_move_stock_item::ok_waits_for_a_choice_and_cancel_moves_nothing()
{
    QFETCH(bool, escape);
    load();
    const QStringList before = table_dump(window_->db());
    click(node(milk_));
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(combo(dialog)->currentIndex(), -1);
        QVERIFY(!button(dialog, 0)->isEnabled());
        QTest::keyClick(combo(dialog), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        choose_category(dialog, QStringLiteral("Produce"));
        QVERIFY(button(dialog, 0)->isEnabled());
        if (escape)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            QTest::mouseClick(button(dialog, 1), Qt::LeftButton);
    });
    choose("mnu_tv_move");
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(tree().selected(), node(milk_));
}

void tst_move_stock_item::ok_moves_the_item_and_shows_it_in_its_folder_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("menu bar") << QStringLiteral("mnu_edit_move");
    QTest::newRow("pop-up") << QStringLiteral("mnu_tv_move");
}

void tst_move_stock_item::ok_moves_the_item_and_shows_it_in_its_folder()
{
    QFETCH(QString, command);
    window_->add_item(QStringLiteral("Apple"), produce_);
    window_->add_item(QStringLiteral("Nuts"), produce_);
    load();
    QVERIFY(!folder(produce_)->isExpanded());
    click(node(milk_));
    QCOMPARE(caption("mnu_edit_move"), QStringLiteral("Move Milk to a different category"));
    move(milk_, QStringLiteral("Produce"), qPrintable(command));
    QCOMPARE(category_of_item(milk_), int(produce_));
    QCOMPARE(node(milk_)->parent(), folder(produce_));
    QCOMPARE(texts_under(folder(produce_)).join(u' '), QStringLiteral("Apple Milk Nuts"));
    QVERIFY(folder(produce_)->isExpanded());
    QCOMPARE(TreeView::picture(folder(produce_)), 2);
    QCOMPARE(tree().selected(), node(milk_));
    QCOMPARE(status(), QStringLiteral("Not listed :: Produce category"));
    QCOMPARE(texts_under(folder(dairy_)), QStringList{QStringLiteral("Butter")});
    for (const int index : {0, 1, 2})
        QVERIFY(!StockTreeTest::button(index).isVisible());
}

void tst_move_stock_item::the_folder_that_falls_empty_is_closed()
{
    const Key apple = window_->add_item(QStringLiteral("Apple"), produce_);
    load();
    folder(produce_)->setExpanded(true);
    move(apple, QStringLiteral("Dairy"));
    QCOMPARE(TreeView::picture(folder(produce_)), 1);
    QVERIFY(!folder(produce_)->isExpanded());
    QCOMPARE(texts_under(folder(dairy_)).join(u' '), QStringLiteral("Apple Butter Milk"));
}

void tst_move_stock_item::a_move_into_other_shows_it_open()
{
    load();
    move(milk_, QStringLiteral("OTHER"));
    QCOMPARE(category_of_item(milk_), 0);
    QCOMPARE(node(milk_)->parent(), folder(0));
    QCOMPARE(TreeView::picture(folder(0)), 4);
    QCOMPARE(status(), QStringLiteral("Not listed :: OTHER category"));
}

void tst_move_stock_item::rows_and_marks_stay_and_the_tree_shows_the_true_status()
{
    const Key row = window_->add_row(milk_, home_, true, QStringLiteral("cold"));
    window_->add_row(milk_, party_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7, to_get = 1 WHERE key_id = ?", milk_).run();
    load();
    QCOMPARE(TreeView::picture(node(milk_)), 7);
    const QString lists = text("SELECT group_concat(item || desc || to_get || qty) FROM groc_1");
    move(milk_, QStringLiteral("Produce"));
    QCOMPARE(text("SELECT group_concat(item || desc || to_get || qty) FROM groc_1"), lists);
    QCOMPARE(number("SELECT status * 10 + to_get FROM items_1 WHERE item = 'Milk'"), 71);
    QCOMPARE(TreeView::picture(node(milk_)), 8);
    QCOMPARE(TreeView::tag(node(milk_)), QStringLiteral("8"));
    QCOMPARE(rows().rows(), 1);
    QCOMPARE(rows().row(0).groc_key, row);
    QCOMPARE(rows().row(0).desc, QStringLiteral("cold"));
    QCOMPARE(status(), QStringLiteral("Active On Home list :: Active On Party list :: Produce category"));
}

void tst_move_stock_item::a_move_with_all_lists_on_show_keeps_every_row()
{
    window_->add_row(milk_, home_, true, QStringLiteral("cold"));
    window_->add_row(milk_, party_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 8, to_get = 1 WHERE key_id = ?", milk_).run();
    window_->set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    window_->set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    load();
    QVERIFY(window_->main().shared.all_lists_view);
    move(milk_, QStringLiteral("Produce"));
    QCOMPARE(rows().rows(), 2);
    QCOMPARE(rows().row(0).item, QStringLiteral("Milk"));
    QCOMPARE(text("SELECT group_concat(item || to_get) FROM groc_1"), QStringLiteral("Milk1,Milk0"));
    QCOMPARE(text("SELECT cat_desc FROM cat JOIN items_1 ON cat = cat.key_id WHERE item = 'Milk'"),
             QStringLiteral("Produce"));
    QCOMPARE(node(milk_)->parent()->text(0), QStringLiteral("Produce"));
}

void tst_move_stock_item::tool_tips_on_the_recipe_page_name_the_new_category()
{
    add_line(2, QStringLiteral("Butter"), butter_);
    add_line(3, QStringLiteral("Whole milk"), milk_);
    load_recipe_of(milk_);
    const QString butter_tip = line(1).ingred->toolTip();
    move(milk_, QStringLiteral("Produce"));
    for (const int index : {0, 2}) {
        QCOMPARE(line(index).ingred->toolTip(), QStringLiteral("Milk - Not listed :: Produce category"));
        QCOMPARE(light(index), int(picture_base::light_unlisted));
    }
    QCOMPARE(line(1).ingred->toolTip(), butter_tip);
}

void tst_move_stock_item::a_move_to_the_items_own_category_changes_nothing_and_no_status_bar_text()
{
    load();
    const QStringList before = table_dump(window_->db());
    click(node(milk_));
    QVERIFY(StockTreeTest::button(0).isVisible());
    window_->main().set_status(QStringLiteral("untouched"));
    const MessageScript no_message;
    window_->main().stock_commands().mv_item(dairy_, milk_);
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(status(), QStringLiteral("untouched"));
    QVERIFY(!StockTreeTest::button(0).isVisible());
    QCOMPARE(node(milk_)->parent(), folder(dairy_));
}

void tst_move_stock_item::a_category_or_an_item_that_is_gone_is_told()
{
    load();
    Query(window_->db(), "DELETE FROM cat WHERE key_id = ?", produce_).run();
    Query(window_->db(), "DELETE FROM items_1 WHERE key_id = ?", butter_).run();
    const QStringList before = table_dump(window_->db());
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Stock category not found"));
    window_->main().stock_commands().mv_item(produce_, milk_);
    script.expect(QStringLiteral("Warning"), QStringLiteral("Stock item not found"));
    window_->main().stock_commands().mv_item(0, butter_);
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(node(milk_)->parent(), folder(dairy_));
}

void tst_move_stock_item::no_command_moves_in_the_alphabetic_view_or_a_folder()
{
    load_flat();
    click(node(milk_));
    QVERIFY(!enabled("mnu_edit_move"));
    QVERIFY(!visible("mnu_tv_move"));
    tear_down();
    set_up();
    load();
    click(folder(dairy_));
    QVERIFY(!enabled("mnu_edit_move"));
    QVERIFY(!enabled("mnu_tv_move"));
}

void tst_move_stock_item::a_line_that_is_being_edited_is_stored_before_the_dialog()
{
    load_recipe_of(milk_);
    tree().select(node(milk_));
    QTest::mouseClick(line(0).ingred, Qt::LeftButton);
    QVERIFY(window_->main().recipe_page().editor_open());
    auto* quantity = window_->find<QLineEdit>(QStringLiteral("ing_flt_txtQty"));
    QVERIFY(quantity && quantity->isVisible());
    quantity->selectAll();
    QTest::keyClicks(quantity, QStringLiteral("3"));
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(text("SELECT qty FROM recipe_2"), QStringLiteral("3"));
        choose_category(dialog, QStringLiteral("Produce"));
        QTest::mouseClick(button(dialog, 0), Qt::LeftButton);
    });
    choose("mnu_edit_move");
    QCOMPARE(script.left(), 0);
    QCOMPARE(category_of_item(milk_), int(produce_));
    QCOMPARE(line(0).ingred->toolTip(), QStringLiteral("Milk - Not listed :: Produce category"));
}

void tst_move_stock_item::long_names_leave_the_dialog_on_the_screen()
{
    const QString name(10000, u'w');
    window_->add_category(name);
    const Key item = window_->add_item(name, dairy_);
    load();
    click(node(item));
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        if (dialog.width() > 1200 || dialog.height() > 600)
            QTest::qFail(qPrintable(QStringLiteral("%1 x %2").arg(dialog.width()).arg(dialog.height())), __FILE__,
                         __LINE__);
        choose_category(dialog, name);
        QTest::mouseClick(button(dialog, 0), Qt::LeftButton);
    });
    choose("mnu_edit_move");
    QCOMPARE(script.left(), 0);
    QCOMPARE(node(item)->parent()->text(0), name);
}

QTEST_MAIN(tst_move_stock_item)
#include "tst_move_stock_item.moc"
