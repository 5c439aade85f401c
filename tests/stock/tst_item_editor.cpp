#include "stock/item_editor_fixture.h"

#include "window/move_window.h"
#include "window/commands.h"
#include "household/status.h"

#include <QAction>
#include <QTextBrowser>
#include <QWindow>

using namespace tarnwick;

/// What the dialog shows when it opens, and the commands that open it.
class tst_item_editor : public QObject {
    Q_OBJECT
private slots:
    void captions_data();
    void captions();
    void titles_show_a_name_letter_by_letter();
    void new_item_is_empty_and_lists_all_lists();
    void new_item_in_the_all_lists_view_has_rows_for_all_lists_none_pre_marked();
    void placing_pre_marks_the_list_it_came_to();
    void placing_in_the_all_lists_view_pre_marks_nothing();
    void placing_leaves_a_row_already_on_the_list_alone();
    void placing_from_all_lists_of_the_manager_pre_marks_nothing();
    void placing_a_vanished_item_shows_a_blank_name();
    void editing_selects_the_row_it_came_from();
    void row_far_down_is_brought_into_view();
    void item_twice_on_a_list_shows_two_rows_with_an_asterisk_and_the_note();
    void rows_show_texts_pictures_and_dates();
    void lists_stand_in_the_order_of_the_table();
    void no_lists_shows_the_notice_instead_of_the_grid();
    void light_at_load_data();
    void light_at_load();
    void light_follows_each_change();
    void categories_are_other_first_then_by_name();
    void selected_folder_is_proposed_for_a_new_item();
    void folder_of_the_selected_item_is_proposed();
    void recipe_modes_take_the_name_of_the_line();
    void new_stock_item_command_opens_mode_0();
    void edit_command_hands_over_the_row_of_the_current_list();
    void sizes_and_colours_follow_the_main_window();
};

void tst_item_editor::captions_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::newRow("0") << 0 << QStringLiteral("Adding New Item to Stock");
    QTest::newRow("1") << 1 << QStringLiteral("Adding Milk");
    QTest::newRow("2") << 2 << QStringLiteral("Editing Milk");
    QTest::newRow("3") << 3 << QStringLiteral("Editing Milk");
    QTest::newRow("4") << 4 << QStringLiteral("Editing Milk, warm");
    QTest::newRow("5") << 5 << QStringLiteral("Adding Milk, warm to stock");
}

void tst_item_editor::captions()
{
    QFETCH(int, mode);
    QFETCH(QString, caption);
    EditorCase test;
    test.add_lists();
    const Key line = test.add_line(QStringLiteral("Milk, warm"), test.milk);
    test.window.load();
    test.open(
        mode, test.milk,
        [&](EditorHands& hands) {
            QCOMPARE(hands.dialog.windowTitle(), caption);
            QCOMPARE(int(hands.request().item), mode == 0 || mode == 5 ? -1 : int(test.milk));
        },
        line);
}

void tst_item_editor::titles_show_a_name_letter_by_letter()
{
    EditorCase test;
    const QString name = QStringLiteral("[*] A[*][*]b");
    const Key item = test.window.add_item(name, test.dairy);
    test.window.add_list(name);
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    const Key line = test.add_line(name, -1);
    frmmain& main = test.window.load();
    const auto title = [](const QWidget& window) { return window.windowHandle()->title(); };
    QCOMPARE(title(main), QStringLiteral("Tarnwick (") + name + QStringLiteral(" list)"));
    test.open(1, item,
              [&](EditorHands& hands) { QCOMPARE(title(hands.dialog), QStringLiteral("Adding ") + name); });
    test.open(2, item,
              [&](EditorHands& hands) { QCOMPARE(title(hands.dialog), QStringLiteral("Editing ") + name); });
    test.open(
        5, -1,
        [&](EditorHands& hands) {
            QCOMPARE(title(hands.dialog), QStringLiteral("Adding ") + name + QStringLiteral(" to stock"));
        },
        line);
    main.stock_tree().view().select(main.stock_tree().item_node(item));
    MessageScript messages;
    messages.drive([&](QDialog& dialog) {
        QCOMPARE(title(dialog), QStringLiteral("Move ") + name);
        dialog.reject();
    });
    show_move_item(main.program(), main.panes(), true);
}

void tst_item_editor::new_item_is_empty_and_lists_all_lists()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(0, test.milk, [&](EditorHands& hands) {
        QCOMPARE(hands.name().text(), QString());
        QVERIFY(hands.name().hasFocus());
        QCOMPARE(hands.category().currentText(), QStringLiteral("[OTHER]"));
        QCOMPARE(hands.grid().rows().rows(), 3);
        QCOMPARE(hands.state(), QStringLiteral("New item"));
        QCOMPARE(hands.state_picture(), 134);
    });
}

void tst_item_editor::new_item_in_the_all_lists_view_has_rows_for_all_lists_none_pre_marked()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    choose_list(test.window, 0);
    test.open(0, -1, [&](EditorHands& hands) {
        QCOMPARE(hands.grid().rows().rows(), 3);
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(hands.row(row).light, picture_base::light_unlisted);
            QCOMPARE(hands.row(row).check, picture_base::check_off);
        }
    });
}

void tst_item_editor::placing_pre_marks_the_list_it_came_to()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    choose_list(test.window, test.market);
    test.open(1, test.milk, [&](EditorHands& hands) {
        QCOMPARE(hands.name().text(), QStringLiteral("Milk"));
        QCOMPARE(hands.category().currentText(), QStringLiteral("Dairy"));
        QCOMPARE(hands.row(0).light, picture_base::light_unlisted);
        QCOMPARE(hands.row(1).light, picture_base::light_on);
        QCOMPARE(hands.row(1).check, picture_base::check_on);
        QCOMPARE(hands.row(1).desc, QStringLiteral(" "));
        QCOMPARE(hands.row(1).qty, QStringLiteral(" "));
        QCOMPARE(hands.row(1).date, QStringLiteral(" "));
        QCOMPARE(hands.row(1).aisle, QStringLiteral(" "));
        QCOMPARE(hands.row(1).coupon, 0);
        QCOMPARE(hands.row(2).light, picture_base::light_unlisted);
        QCOMPARE(hands.state(), QStringLiteral("Active on one list"));
    });
}

void tst_item_editor::placing_in_the_all_lists_view_pre_marks_nothing()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    choose_list(test.window, 0);
    test.open(1, test.milk, [&](EditorHands& hands) {
        for (int row = 0; row < 3; ++row)
            QCOMPARE(hands.row(row).light, picture_base::light_unlisted);
        QCOMPARE(hands.state(), QStringLiteral("Unlisted item"));
    });
}

void tst_item_editor::placing_leaves_a_row_already_on_the_list_alone()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.market, false, QStringLiteral("fresh"));
    test.window.load();
    choose_list(test.window, test.market);
    test.open(1, test.milk, [&](EditorHands& hands) {
        QCOMPARE(hands.row(1).light, picture_base::light_off);
        QCOMPARE(hands.row(1).desc, QStringLiteral("fresh"));
    });
}

void tst_item_editor::placing_from_all_lists_of_the_manager_pre_marks_nothing()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    choose_list(test.window, test.market);
    test.marked_list = 0;
    test.open(1, test.milk,
              [&](EditorHands& hands) { QCOMPARE(hands.row(1).light, picture_base::light_unlisted); });
}

void tst_item_editor::placing_a_vanished_item_shows_a_blank_name()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(1, 99, [&](EditorHands& hands) {
        QCOMPARE(hands.name().text(), QStringLiteral(" "));
        hands.messages.expect(QStringLiteral("Warning"), QStringLiteral("Stock item not found"));
        hands.press_ok();
        QVERIFY(hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 0);
}

void tst_item_editor::editing_selects_the_row_it_came_from()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    const Key second = test.window.add_row(test.milk, test.market, false);
    test.window.load();
    test.open(
        2, test.milk, [&](EditorHands& hands) { QCOMPARE(hands.grid().current_row(), 1); }, -1, second);
    test.open(
        2, test.milk, [&](EditorHands& hands) { QCOMPARE(hands.grid().current_row(), 0); }, -1, 0);
    test.open(
        2, test.milk, [&](EditorHands& hands) { QCOMPARE(hands.grid().current_row(), 0); }, -1, -1);
}

void tst_item_editor::row_far_down_is_brought_into_view()
{
    EditorCase test;
    for (int i = 0; i < 60; ++i)
        test.window.add_list(QStringLiteral("List %1").arg(i));
    const Key row = test.window.add_row(test.milk, 50, true);
    test.window.load();
    test.open(
        2, test.milk,
        [&](EditorHands& hands) {
            QCOMPARE(hands.grid().current_row(), 49);
            QVERIFY(hands.grid().row_is_visible(49));
        },
        -1, row);
    choose_list(test.window, 59);
    test.open(1, test.milk, [&](EditorHands& hands) {
        QCOMPARE(hands.grid().current_row(), 58);
        QVERIFY(hands.grid().row_is_visible(58));
    });
}

void tst_item_editor::item_twice_on_a_list_shows_two_rows_with_an_asterisk_and_the_note()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.market, true, QStringLiteral("first"));
    test.window.add_row(test.milk, test.market, false, QStringLiteral("second"));
    test.window.add_row(test.milk, test.weekly, false);
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        QCOMPARE(hands.grid().rows().rows(), 4);
        QCOMPARE(hands.row(0).item, QStringLiteral("Weekly"));
        QCOMPARE(hands.row(1).item, QStringLiteral("Market*"));
        QCOMPARE(hands.row(1).desc, QStringLiteral("first"));
        QCOMPARE(hands.row(2).item, QStringLiteral("Market*"));
        QCOMPARE(hands.row(2).desc, QStringLiteral("second"));
        QCOMPARE(hands.row(3).item, QStringLiteral("Party"));
        QVERIFY(hands.note_shown());
        QCOMPARE(hands.label("lblNote").text(), QStringLiteral("*Appears on a same list more than once"));
    });
    test.open(2, test.bread, [&](EditorHands& hands) { QVERIFY(!hands.note_shown()); });
}

void tst_item_editor::rows_show_texts_pictures_and_dates()
{
    EditorCase test;
    test.add_lists();
    const Key with_coupon = test.window.add_row(test.milk, test.weekly, true, QStringLiteral("cold"),
                                                QStringLiteral("  2 "), QStringLiteral("12"));
    const Key without = test.window.add_row(test.milk, test.market, false, QStringLiteral(" "), QString());
    Query(test.window.db(), "UPDATE groc_1 SET cpn = 1, created = '2026-04-05' WHERE key_id = ?", with_coupon)
        .run();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        const GridRow on = hands.row(0);
        QCOMPARE(on.groc_key, with_coupon);
        QCOMPARE(on.light, picture_base::light_on);
        QCOMPARE(on.check, picture_base::check_on);
        QCOMPARE(on.desc, QStringLiteral("cold"));
        QCOMPARE(on.qty, QStringLiteral("2"));
        QCOMPARE(on.coupon, picture_base::coupon_on);
        QCOMPARE(on.date, QStringLiteral("4/5/2026"));
        QCOMPARE(on.aisle, QStringLiteral("12"));
        const GridRow off = hands.row(1);
        QCOMPARE(off.groc_key, without);
        QCOMPARE(off.light, picture_base::light_off);
        QCOMPARE(off.check, picture_base::check_off);
        QCOMPARE(off.qty, QStringLiteral(" "));
        QCOMPARE(off.coupon, picture_base::coupon_off);
        QCOMPARE(off.date, QStringLiteral(" "));
        const GridRow none = hands.row(2);
        QCOMPARE(none.light, picture_base::light_unlisted);
        QCOMPARE(none.check, picture_base::check_off);
        QCOMPARE(none.desc, QStringLiteral(" "));
        QCOMPARE(none.qty, QStringLiteral(" "));
        QCOMPARE(none.aisle, QStringLiteral(" "));
        QCOMPARE(none.coupon, 0);
        QCOMPARE(none.date, QStringLiteral(" "));
    });
}

void tst_item_editor::lists_stand_in_the_order_of_the_table()
{
    EditorCase test;
    for (const char* name : {"Zebra", "apple", "Mango"})
        test.window.add_list(QLatin1String(name));
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        QCOMPARE(hands.row(0).item, QStringLiteral("Zebra"));
        QCOMPARE(hands.row(1).item, QStringLiteral("apple"));
        QCOMPARE(hands.row(2).item, QStringLiteral("Mango"));
    });
}

void tst_item_editor::no_lists_shows_the_notice_instead_of_the_grid()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        QVERIFY(!hands.grid().isVisible());
        QVERIFY(!hands.label("listheaderlbl(0)").isVisible());
        auto* frame = hands.dialog.findChild<QWidget*>(QStringLiteral("frmCreateList"));
        auto* text = hands.dialog.findChild<QTextBrowser*>(QStringLiteral("txtCreateList"));
        QVERIFY(frame && text);
        QVERIFY(frame->isVisible() && text->isVisible());
        QCOMPARE(text->toPlainText(),
                 QStringLiteral("There are no shopping lists to add this item to - \n\n"
                                "To start a new shopping list, hit CANCEL then:\n"
                                "click the 'New' list button on the toolbar\n"
                                "(The first button on the left)\n"
                                "or click 'Shopping list/New list' on the menu bar"));
    });
}

void tst_item_editor::light_at_load_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("inactive_rows");
    QTest::addColumn<int>("active_rows");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("new item") << 0 << 0 << 0 << QStringLiteral("New item") << 134;
    QTest::newRow("new item from a recipe") << 5 << 0 << 0 << QStringLiteral("New item") << 134;
    QTest::newRow("unlisted") << 2 << 0 << 0 << QStringLiteral("Unlisted item") << 134;
    QTest::newRow("inactive") << 2 << 1 << 0 << QStringLiteral("Inactive Item") << 136;
    QTest::newRow("inactive twice") << 2 << 2 << 0 << QStringLiteral("Inactive Item") << 136;
    QTest::newRow("one active") << 2 << 1 << 1 << QStringLiteral("Active on one list") << 137;
    QTest::newRow("two active") << 2 << 0 << 2 << QStringLiteral("Active on multiple lists") << 144;
}

void tst_item_editor::light_at_load()
{
    QFETCH(int, mode);
    QFETCH(int, inactive_rows);
    QFETCH(int, active_rows);
    EditorCase test;
    test.add_lists();
    for (int i = 0; i < inactive_rows; ++i)
        test.window.add_row(test.milk, test.weekly, false);
    for (int i = 0; i < active_rows; ++i)
        test.window.add_row(test.milk, test.market, true);
    test.window.load();
    test.open(mode, test.milk, [&](EditorHands& hands) {
        QTEST(hands.state(), "text");
        QTEST(hands.state_picture(), "number");
        QVERIFY(!hands.label("lite").pixmap(Qt::ReturnByValue).isNull());
    });
}

void tst_item_editor::light_follows_each_change()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::light);
        QCOMPARE(hands.state(), QStringLiteral("Inactive item"));
        QCOMPARE(hands.state_picture(), 136);
        hands.click_cell(0, GridColumn::check);
        QCOMPARE(hands.state(), QStringLiteral("Active on one list"));
        QCOMPARE(hands.state_picture(), 137);
        hands.click_cell(1, GridColumn::light);
        hands.click_cell(1, GridColumn::check);
        QCOMPARE(hands.state(), QStringLiteral("Active on multiple lists"));
        QCOMPARE(hands.state_picture(), 144);
        hands.click_cell(0, GridColumn::light);
        hands.click_cell(1, GridColumn::light);
        QCOMPARE(hands.state(), QStringLiteral("Unlisted item"));
        QCOMPARE(hands.state_picture(), 134);
        QVERIFY(hands.ok().isDefault());
    });
}

void tst_item_editor::categories_are_other_first_then_by_name()
{
    EditorCase test;
    test.window.add_category(QStringLiteral("apples"));
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        QStringList shown;
        QList<int> keys;
        for (int i = 0; i < hands.category().count(); ++i) {
            shown << hands.category().itemText(i);
            keys << hands.category().itemData(i).toInt();
        }
        QCOMPARE(shown,
                 QStringList({QStringLiteral("[OTHER]"), QStringLiteral("apples"), QStringLiteral("Bakery"),
                              QStringLiteral("Dairy")}));
        QCOMPARE(keys, QList<int>({0, 3, test.bakery, test.dairy}));
        QCOMPARE(hands.category().currentText(), QStringLiteral("Dairy"));
    });
}

void tst_item_editor::selected_folder_is_proposed_for_a_new_item()
{
    EditorCase test;
    frmmain& main = test.window.load();
    QTreeWidgetItem* folder = main.stock_tree().category_node(test.bakery);
    QVERIFY(folder);
    main.stock_tree().view().select(folder);
    test.open(0, -1,
              [&](EditorHands& hands) { QCOMPARE(hands.category().currentText(), QStringLiteral("Bakery")); });
}

void tst_item_editor::folder_of_the_selected_item_is_proposed()
{
    EditorCase test;
    frmmain& main = test.window.load();
    QTreeWidgetItem* node = main.stock_tree().item_node(test.milk);
    QVERIFY(node);
    main.stock_tree().view().select(node);
    test.open(0, -1,
              [&](EditorHands& hands) { QCOMPARE(hands.category().currentText(), QStringLiteral("Dairy")); });
}

void tst_item_editor::recipe_modes_take_the_name_of_the_line()
{
    EditorCase test;
    const Key line = test.add_line(QStringLiteral("Warm milk"), test.milk);
    const Key plain = test.add_line(QStringLiteral("Salt"), -1);
    test.window.load();
    test.open(
        3, -1,
        [&](EditorHands& hands) {
            QCOMPARE(hands.name().text(), QStringLiteral("Milk"));
            QCOMPARE(hands.category().currentText(), QStringLiteral("Dairy"));
            QCOMPARE(hands.request().item, test.milk);
        },
        line);
    test.open(
        4, test.milk,
        [&](EditorHands& hands) {
            QCOMPARE(hands.name().text(), QStringLiteral("Warm milk"));
            QCOMPARE(hands.name().property("Tag").toString(), QStringLiteral("Warm milk"));
            QCOMPARE(hands.category().currentText(), QStringLiteral("Dairy"));
        },
        line);
    test.open(
        4, test.milk, [&](EditorHands& hands) { QCOMPARE(hands.name().text(), QStringLiteral("Milk")); }, -1);
    test.open(
        5, -1,
        [&](EditorHands& hands) {
            QCOMPARE(hands.name().text(), QStringLiteral("Salt"));
            QCOMPARE(hands.category().currentText(), QStringLiteral("[OTHER]"));
        },
        plain);
}

void tst_item_editor::new_stock_item_command_opens_mode_0()
{
    EditorCase test;
    frmmain& main = test.window.load();
    QAction& command = main.commands().action(QStringLiteral("mnu_edit_add_stck"));
    QVERIFY(command.isEnabled());
    MessageScript messages;
    messages.drive([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding New Item to Stock"));
        QCOMPARE(request_of(dialog).mode, EditMode::new_item);
        QCOMPARE(int(request_of(dialog).item), -1);
        dialog.reject();
    });
    command.trigger();
}

void tst_item_editor::edit_command_hands_over_the_row_of_the_current_list()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    const Key row = test.window.add_row(test.milk, test.market, true);
    frmmain& main = test.window.load();
    choose_list(test.window, test.market);
    QTreeWidgetItem* node = main.stock_tree().item_node(test.milk);
    QVERIFY(node);
    node->parent()->setExpanded(true);
    QTest::mouseClick(main.stock_tree().view().viewport(), Qt::LeftButton, {},
                      main.stock_tree().view().text_rect(node).center());
    QAction& command = main.commands().action(QStringLiteral("mnu_tv_edit"));
    QVERIFY(command.isEnabled());
    for (const Key list : {test.market, test.party}) {
        choose_list(test.window, list);
        MessageScript messages;
        messages.drive([&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Editing Milk"));
            QCOMPARE(int(request_of(dialog).row), list == test.market ? int(row) : -1);
            QCOMPARE(request_of(dialog).item, test.milk);
            dialog.reject();
        });
        command.trigger();
    }
}

void tst_item_editor::sizes_and_colours_follow_the_main_window()
{
    for (const int size : {9, 10, 12}) {
        EditorCase test;
        test.add_lists();
        test.window.set_pref(QStringLiteral("font"), QString::number(size));
        test.window.set_pref(QStringLiteral("color"), QStringLiteral("1"));
        test.window.load();
        test.open(2, test.milk, [&](EditorHands& hands) {
            QCOMPARE(hands.name().font().pointSize(), size);
            QCOMPARE(hands.grid().row_height(), size == 9 ? 19 : size == 10 ? 24 : 28);
            QCOMPARE(hands.grid().palette().color(QPalette::Base), QColor(255, 204, 204));
            const int before = hands.grid().height();
            hands.dialog.resize(hands.dialog.width(), hands.dialog.height() + 100);
            QTest::qWait(1);
            QCOMPARE(hands.grid().height(), before + 100);
        });
    }
}

QTEST_MAIN(tst_item_editor)
#include "tst_item_editor.moc"
