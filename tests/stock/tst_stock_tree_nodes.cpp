#include "data/runtime_error.h"
#include "household/category_store.h"
#include "household/household.h"
#include "stock/stock_tree_fixture.h"
#include "support/error_number.h"
#include "support/message_script.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

using namespace tarnwick;

class tst_stock_tree_nodes : public StockTreeTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    void category_before_is_the_row_before_without_other();
    void new_category_stands_behind_the_row_before_it_in_the_table_data();
    void new_category_stands_behind_the_row_before_it_in_the_table();
    void new_category_stands_right_beside_a_renamed_folder();

    void new_category_leaves_no_button_at_a_stale_place();
    void new_item_leaves_no_button_at_a_stale_place();
    void moved_item_leaves_no_button_at_a_stale_place();
    void folder_that_a_move_empties_shows_itself_closed();
    void new_item_on_no_list_gets_the_recipe_button_beside_it();

    void buttons_stay_beside_their_item_at_every_type_size_data();
    void buttons_stay_beside_their_item_at_every_type_size();
    void button_of_a_row_that_leaves_the_view_with_the_type_size_hides();

    void failed_load_of_the_folders_keeps_no_node();

private:
    /// Presses a command and answers the dialog that it opens.
    void run(const char* command, const std::function<void(QDialog&)>& answer)
    {
        QVERIFY2(enabled(command), command);
        MessageScript script;
        script.drive(answer);
        commands().action(QLatin1String(command)).trigger();
        QCOMPARE(script.left(), 0);
    }

    static void press_ok(QDialog& dialog)
    {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
    }

    void new_category(const QString& name)
    {
        run("mnu_edit_add_cat", [&name](QDialog& dialog) {
            QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("Text1")), name);
            press_ok(dialog);
        });
    }

    QString folders()
    {
        QStringList names;
        for (int i = 0; i < tree().topLevelItemCount(); ++i)
            names += tree().topLevelItem(i)->text(0);
        return names.join(u' ');
    }

    void set_type_size(const char* command)
    {
        QVERIFY(enabled(command));
        commands().action(QLatin1String(command)).trigger();
        QApplication::processEvents();
    }

    void add_many_items()
    {
        for (int i = 0; i < 100; ++i)
            window_->add_item(QStringLiteral("Sort %1").arg(i, 3, 10, QLatin1Char('0')), dairy_);
    }

    bool any_button() { return button(0).isVisible() || button(1).isVisible() || button(2).isVisible(); }
};

void tst_stock_tree_nodes::category_before_is_the_row_before_without_other()
{
    Connection& db = window_->db();
    QCOMPARE(category_before(db, dairy_), std::nullopt);
    QCOMPARE(category_before(db, produce_), std::optional(dairy_));
    const Key other_after = window_->add_category(QStringLiteral("other things"));
    QCOMPARE(category_before(db, other_after), std::optional(dairy_));
    QCOMPARE(category_before(db, produce_), std::optional(other_after));
    QCOMPARE(category_before(db, 99), std::nullopt);
}

void tst_stock_tree_nodes::new_category_stands_behind_the_row_before_it_in_the_table_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no folder") << QStringList() << QStringLiteral("Pears") << QStringLiteral("Pears OTHER");
    QTest::newRow("first") << QStringList{QStringLiteral("bakery")} << QStringLiteral("Apples")
                           << QStringLiteral("Apples bakery OTHER");
    QTest::newRow("the row before is OTHER")
        << QStringList{QStringLiteral("bakery")} << QStringLiteral("Pears") << QStringLiteral("bakery Pears OTHER");
    QTest::newRow("the row before is OTHER, a folder behind")
        << QStringList{QStringLiteral("bakery"), QStringLiteral("Zest")} << QStringLiteral("Pears")
        << QStringLiteral("bakery Pears Zest OTHER");
    QTest::newRow("last") << QStringList{QStringLiteral("bakery"), QStringLiteral("Pears")}
                          << QStringLiteral("zest") << QStringLiteral("bakery Pears zest OTHER");
}

void tst_stock_tree_nodes::new_category_stands_behind_the_row_before_it_in_the_table()
{
    QFETCH(QStringList, present);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    Query(window_->db(), "DELETE FROM items_1").run();
    Query(window_->db(), "DELETE FROM cat WHERE key_id > 0").run();
    for (const QString& folder : present)
        window_->add_category(folder);
    load();
    new_category(name);
    QCOMPARE(folders(), expected);
    QCOMPARE(tree().selected()->text(0), name);
    window_->main().stock_tree().tv_load(false);
    QCOMPARE(folders(), expected);
}

void tst_stock_tree_nodes::new_category_stands_right_beside_a_renamed_folder()
{
    const Key eggs = window_->add_category(QStringLiteral("Eggs"));
    load();
    QCOMPARE(folders(), QStringLiteral("Dairy Eggs Produce OTHER"));
    // A rename leaves the folder where it is until the next load.
    QVERIFY(window_->main().household().rename_category(eggs, QStringLiteral("Zoo")));
    new_category(QStringLiteral("Quark"));
    QCOMPARE(folders(), QStringLiteral("Dairy Zoo Produce Quark OTHER"));
    new_category(QStringLiteral("Zucchini"));
    QCOMPARE(folders(), QStringLiteral("Dairy Zoo Zucchini Produce Quark OTHER"));
}

void tst_stock_tree_nodes::new_category_leaves_no_button_at_a_stale_place()
{
    load();
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    new_category(QStringLiteral("Aaa"));
    QCOMPARE(tree().topLevelItem(0)->text(0), QStringLiteral("Aaa"));
    QVERIFY(!any_button());
}

void tst_stock_tree_nodes::new_item_leaves_no_button_at_a_stale_place()
{
    load();
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    add_item(QStringLiteral("Cheese"));
    QVERIFY(!any_button());
}

void tst_stock_tree_nodes::moved_item_leaves_no_button_at_a_stale_place()
{
    load();
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    run("mnu_tv_edit", [](QDialog& dialog) {
        auto* category = dialog.findChild<QComboBox*>(QStringLiteral("Combo1"));
        category->setCurrentIndex(category->findText(QStringLiteral("Produce")));
        press_ok(dialog);
    });
    QCOMPARE(node(milk_)->parent()->text(0), QStringLiteral("Produce"));
    QVERIFY(!any_button());
}

void tst_stock_tree_nodes::folder_that_a_move_empties_shows_itself_closed()
{
    const Key spices = window_->add_category(QStringLiteral("Spices"), true);
    const Key pepper = window_->add_item(QStringLiteral("Pepper"), spices);
    load();
    QTreeWidgetItem* const folder = window_->main().stock_tree().category_node(spices);
    QVERIFY(folder->isExpanded());
    QCOMPARE(TreeView::picture(folder), 2);
    window_->main().household().move_item(pepper, dairy_);
    QCOMPARE(folder->childCount(), 0);
    QCOMPARE(TreeView::picture(folder), 1);
}

void tst_stock_tree_nodes::new_item_on_no_list_gets_the_recipe_button_beside_it()
{
    load_recipe_of(butter_);
    click(node(milk_));
    run("mnu_edit_add_stck", [](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("txt_item"));
        name->setFocus();
        QTest::keyClicks(name, QStringLiteral("Cheese"));
        press_ok(dialog);
    });
    const QTreeWidgetItem* made = tree().selected();
    QCOMPARE(made->text(0), QStringLiteral("Cheese"));
    QVERIFY(!button(0).isVisible() && button(1).isVisible() && !button(2).isVisible());
    const QRect row = tree().visualItemRect(made).translated(tree().pos());
    QVERIFY(row.top() <= button(1).y() && button(1).y() < row.bottom());
}

void tst_stock_tree_nodes::buttons_stay_beside_their_item_at_every_type_size_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("scrolled");
    for (const int index : {0, 1, 2})
        for (const bool scrolled : {false, true})
            QTest::addRow("button %d%s", index, scrolled ? ", scrolled" : "") << index << scrolled;
}

void tst_stock_tree_nodes::buttons_stay_beside_their_item_at_every_type_size()
{
    QFETCH(int, index);
    QFETCH(bool, scrolled);
    add_many_items();
    if (index == 2)
        Query(window_->db(), "UPDATE items_1 SET status = 7").run();
    if (index == 1)
        load_recipe_of(butter_);
    else
        load();
    set_type_size("mnu_more_lrg");
    if (scrolled)
        tree().verticalScrollBar()->setValue(tree().verticalScrollBar()->maximum());
    const QTreeWidgetItem* chosen
        = scrolled ? tree().node(QStringLiteral("cat") + key_str(dairy_))->child(100) : node(milk_);
    click(chosen);
    QVERIFY(button(index).isVisible());
    const QString tool_tip = button(index).toolTip();
    for (const char* size : {"mnu_more_sml", "mnu_more_mdm", "mnu_more_lrg"}) {
        set_type_size(size);
        if (scrolled && size == QByteArrayView("mnu_more_lrg"))
            continue; // fewer rows have room: this one may have left the view
        const QRect row = tree().visualItemRect(chosen).translated(tree().pos());
        QVERIFY2(button(index).isVisible(), size);
        QVERIFY2(row.top() < button(index).y() && button(index).geometry().center().y() <= row.bottom(), size);
        QCOMPARE(button(index).x(), tree().x() + tree().text_rect(chosen).left() - 60);
        QCOMPARE(button(index).toolTip(), tool_tip);
        for (const int other : {0, 1, 2})
            QCOMPARE(button(other).isVisible(), other == index);
    }
}

void tst_stock_tree_nodes::button_of_a_row_that_leaves_the_view_with_the_type_size_hides()
{
    add_many_items();
    load();
    const QTreeWidgetItem* lowest
        = tree().hit_test({200, (tree().get_visible_count() - 1) * tree().row_height() + 3});
    click(lowest);
    QVERIFY(button(0).isVisible());
    set_type_size("mnu_more_lrg");
    QVERIFY(tree().visualItemRect(lowest).bottom() > tree().viewport()->height());
    QVERIFY(!any_button());
    set_type_size("mnu_more_sml");
    QVERIFY(!any_button());
}

void tst_stock_tree_nodes::failed_load_of_the_folders_keeps_no_node()
{
    load();
    Query(window_->db(),
          "INSERT INTO cat (key_id, cat_desc, expand) VALUES (10000, 'Far', 0), (10001, 'Farther', 0)")
        .run();
    QCOMPARE(error_number([this] { window_->main().stock_tree().tv_load(false); }), 35602);
    QCOMPARE(tree().topLevelItemCount(), 0);
    QVERIFY(!tree().node(QStringLiteral("cat") + key_str(dairy_)));
    QVERIFY(!QApplication::overrideCursor());
}

QTEST_MAIN(tst_stock_tree_nodes)
#include "tst_stock_tree_nodes.moc"
