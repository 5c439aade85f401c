#include "stock/tidying_fixture.h"
#include "household/status.h"

#include "widgets/row_editor.h"
#include "support/shown_things.h"
#include "support/tool_button.h"

#include <QApplication>
#include <QMessageBox>
#include <QScreen>

using namespace tarnwick;

/// Deleting and renaming stock items in the tree.
class tst_item_tidying : public TidyingTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    void deleting_an_item_that_is_on_no_list_asks_nothing_data();
    void deleting_an_item_that_is_on_no_list_asks_nothing();
    void an_item_on_one_list_is_deleted_after_a_question();
    void an_item_on_several_lists_is_deleted_after_a_question();
    void cancel_deletes_nothing();
    void deleting_the_only_item_of_a_folder_closes_its_picture_and_selects_it_data();
    void deleting_the_only_item_of_a_folder_closes_its_picture_and_selects_it();
    void a_folder_that_keeps_items_stays_open_and_is_selected();
    void in_the_alphabetic_view_the_item_before_is_selected_or_else_the_next();
    void in_the_alphabetic_view_the_last_item_deleted_leaves_a_blank_in_the_panel();
    void lines_of_a_deleted_item_become_non_stock_lines_of_the_same_text_data();
    void lines_of_a_deleted_item_become_non_stock_lines_of_the_same_text();
    void the_open_row_of_a_deleted_item_goes_and_other_rows_keep_what_was_typed();
    void a_line_that_is_being_edited_is_stored_before_its_item_is_deleted();
    void an_item_that_is_gone_already_is_not_asked_about();
    void links_that_point_at_nothing_raise_no_question();

    void an_item_is_renamed_in_place_data();
    void an_item_is_renamed_in_place();
    void renaming_an_item_turns_its_lines_into_non_stock_lines_and_links_lines_of_the_new_name();
    void after_a_cancel_in_the_rename_notice_the_tree_shows_the_old_name();
    void a_renamed_item_carries_its_name_to_every_list_after_the_notice();
    void rows_of_all_lists_take_the_new_name();
    void an_in_place_rename_to_the_name_of_another_stock_item_is_accepted();
    void an_apostrophe_in_an_item_name_is_refused();
    void an_item_name_is_trimmed_once_and_an_empty_one_keeps_the_old();
    void odd_item_names_are_kept_whole_data();
    void odd_item_names_are_kept_whole();
    void signs_of_patterns_in_an_item_name_stand_for_themselves();
    void an_item_that_is_gone_is_not_renamed();
    void the_button_that_names_the_old_name_goes_with_a_rename();
    void nodes_of_keys_beyond_four_digits_change_no_other_record();
    void a_name_left_by_a_click_elsewhere_is_stored_and_the_click_acts();
    void the_notice_after_a_click_elsewhere_comes_once_and_the_click_is_lost();
    void a_command_chosen_during_an_edit_acts_under_the_new_name();
    void a_sort_stores_the_name_that_is_being_typed();
    void the_window_that_is_closed_stores_the_name_that_is_being_typed();

private:
    void expect_deletion(MessageScript& script, const QString& text, Answer answer = Answer::ok)
    {
        script.expect(QStringLiteral("Warning"), text, answer, [](QDialog& dialog) {
            QCOMPARE(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::Information);
        });
    }
    static QString notice(const QString& old_name, const QString& lists, const QString& name)
    {
        return u'\'' + old_name + QStringLiteral("' appears on the following list(s):\n") + lists
            + QStringLiteral("\n\nChanging the item to '") + name
            + QStringLiteral("'\nwill change it on the list(s) too");
    }
    QString item_name(Key item)
    {
        Query query(window_->db(), "SELECT item FROM items_1 WHERE key_id = ?", item);
        return query.next() ? query.text(0) : QString();
    }
    QString refs()
    {
        return text("SELECT group_concat(item_ref, ' ') FROM (SELECT item_ref FROM recipe_2 ORDER BY key_id)");
    }
    void begin_edit(QTreeWidgetItem* of, const QString& name)
    {
        click(of);
        QTest::keyClick(&tree(), Qt::Key_F2);
        QVERIFY(editor());
        editor()->selectAll();
        editor()->insert(name);
    }
};

void tst_item_tidying::deleting_an_item_that_is_on_no_list_asks_nothing_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("flat");
    for (const bool flat : {false, true})
        for (const char* way : {"key", "mnu_tv_di"})
            QTest::addRow("%s, %s", way, flat ? "by name" : "by category") << QString::fromLatin1(way) << flat;
}

void tst_item_tidying::deleting_an_item_that_is_on_no_list_asks_nothing()
{
    QFETCH(QString, way);
    QFETCH(bool, flat);
    window_->add_row(butter_, home_, true);
    flat ? load_flat() : load();
    const MessageScript no_question;
    click(node(milk_));
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item Milk"));
    if (way == QLatin1String("key"))
        press_delete();
    else
        choose(qPrintable(way));
    QVERIFY(!node(milk_));
    QCOMPARE(text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Butter"));
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Butter")});
}

void tst_item_tidying::an_item_on_one_list_is_deleted_after_a_question()
{
    window_->add_row(milk_, home_, true);
    window_->add_row(butter_, home_, true);
    load();
    click(node(milk_));
    MessageScript script;
    expect_deletion(script,
                    QStringLiteral("Milk appears on the Home list -\nDeleting it will remove it from the list"));
    press_delete();
    QCOMPARE(script.left(), 0);
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Butter")});
    QCOMPARE(number("SELECT count(*) FROM groc_1"), 1);
    QCOMPARE(number("SELECT count(*) FROM tie"), 1);
    QVERIFY(!node(milk_));
    QCOMPARE(lite_status(window_->db(), milk_), StatusCode::non_stock);
    QCOMPARE(get_status(window_->db(), milk_), QStringLiteral("Non-stock item"));
}

void tst_item_tidying::an_item_on_several_lists_is_deleted_after_a_question()
{
    window_->add_row(milk_, party_, true);
    window_->add_row(milk_, home_, false);
    window_->add_row(milk_, home_, true); // twice on one list
    load();
    click(node(milk_));
    MessageScript script;
    expect_deletion(script,
                    QStringLiteral("Milk appears on the following lists:\n* Party\n* Home\n* Home\n"
                                   "\n\nDeleting it will remove it from those lists"));
    choose("mnu_tv_di");
    QCOMPARE(script.left(), 0);
    QCOMPARE(rows().rows(), 0);
    for (const char* table : {"SELECT count(*) FROM groc_1", "SELECT count(*) FROM tie"})
        QCOMPARE(number(table), 0);
    QCOMPARE(number("SELECT count(*) FROM items_1"), 1);
}

void tst_item_tidying::cancel_deletes_nothing()
{
    window_->add_row(milk_, home_, true);
    load();
    const QStringList before = table_dump(window_->db());
    click(node(milk_));
    MessageScript script;
    expect_deletion(script,
                    QStringLiteral("Milk appears on the Home list -\nDeleting it will remove it from the list"),
                    Answer::cancel);
    press_delete();
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(tree().selected(), node(milk_));
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Milk")});
}

void tst_item_tidying::deleting_the_only_item_of_a_folder_closes_its_picture_and_selects_it_data()
{
    QTest::addColumn<bool>("other");
    QTest::newRow("a category") << false;
    QTest::newRow("OTHER") << true;
}

void tst_item_tidying::deleting_the_only_item_of_a_folder_closes_its_picture_and_selects_it()
{
    QFETCH(bool, other);
    const Key category = other ? Key(0) : produce_;
    const Key apple = window_->add_item(QStringLiteral("Apple"), category);
    load();
    folder(category)->setExpanded(true);
    QCOMPARE(TreeView::picture(folder(category)), other ? 4 : 2);
    click(node(apple));
    press_delete();
    QVERIFY(!node(apple));
    QCOMPARE(tree().selected(), folder(category));
    QCOMPARE(TreeView::picture(folder(category)), other ? 3 : 1);
    QVERIFY(!folder(category)->isExpanded());
    QCOMPARE(status(), other ? QStringLiteral("OTHER category") : QStringLiteral("Produce category"));
    QVERIFY(!enabled("mnu_tv_di"));
    QCOMPARE(enabled("mnu_edit_del_cat"), !other);
}

void tst_item_tidying::a_folder_that_keeps_items_stays_open_and_is_selected()
{
    load();
    click(node(milk_));
    press_delete();
    QCOMPARE(tree().selected(), folder(dairy_));
    QCOMPARE(TreeView::picture(folder(dairy_)), 2);
    QVERIFY(folder(dairy_)->isExpanded());
    QCOMPARE(status(), QStringLiteral("Dairy category"));
    QCOMPARE(caption("mnu_edit_del_cat"), QStringLiteral("Delete Dairy category"));
}

void tst_item_tidying::in_the_alphabetic_view_the_item_before_is_selected_or_else_the_next()
{
    const Key apple = window_->add_item(QStringLiteral("Apple"), produce_);
    load_flat();
    click(node(milk_));
    press_delete();
    QCOMPARE(tree().selected(), node(butter_));
    QCOMPARE(status(), QStringLiteral("Not listed :: Dairy category"));
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item Butter"));
    click(node(apple));
    press_delete();
    QCOMPARE(tree().selected(), node(butter_));
    QCOMPARE(status(), QStringLiteral("Not listed :: Dairy category"));
}

void tst_item_tidying::in_the_alphabetic_view_the_last_item_deleted_leaves_a_blank_in_the_panel()
{
    load_flat();
    click(node(milk_));
    press_delete();
    press_delete();
    QCOMPARE(tree().topLevelItemCount(), 0);
    QCOMPARE(number("SELECT count(*) FROM items_1"), 0);
    QCOMPARE(status(), QStringLiteral(" "));
    QVERIFY(!enabled("mnu_tv_di"));
    press_delete();
}

void tst_item_tidying::lines_of_a_deleted_item_become_non_stock_lines_of_the_same_text_data()
{
    QTest::addColumn<bool>("listed");
    QTest::newRow("unlisted") << false;
    QTest::newRow("listed") << true;
}

void tst_item_tidying::lines_of_a_deleted_item_become_non_stock_lines_of_the_same_text()
{
    QFETCH(bool, listed);
    if (listed)
        window_->add_row(milk_, home_, true);
    add_line(2, QStringLiteral("Butter"), butter_);
    add_line(3, QStringLiteral("Whole milk"), milk_);
    load_recipe_of(milk_);
    click(node(milk_));
    MessageScript script;
    if (listed)
        expect_deletion(
            script, QStringLiteral("Milk appears on the Home list -\nDeleting it will remove it from the list"));
    press_delete();
    QCOMPARE(refs(), QStringLiteral("-1 %1 -1").arg(butter_));
    for (const int index : {0, 2}) {
        QCOMPARE(light(index), int(picture_base::light_non_stock));
        QCOMPARE(picture_of(*line(index).Check1) - shared().color_index, int(picture_base::check_off));
        QCOMPARE(line(index).Check1->property("Tag").toString(), QStringLiteral("-1"));
        QCOMPARE(line(index).ingred->toolTip(), QStringLiteral("Non-stock item"));
    }
    QCOMPARE(line(2).ingred->text(), QStringLiteral("2 cups Whole milk"));
    QCOMPARE(light(1), int(picture_base::light_unlisted));
}

void tst_item_tidying::the_open_row_of_a_deleted_item_goes_and_other_rows_keep_what_was_typed()
{
    window_->add_row(milk_, home_, true);
    window_->add_row(butter_, home_, true);
    const Key soap = window_->add_item(QStringLiteral("Soap"), 0);
    load();
    window_->main().list_pane().set_row(1);
    RowEditor& row_editor = window_->main().row_editor();
    row_editor.show_l_line();
    auto* desc = window_->find<QLineEdit>(QStringLiteral("desc_brdr"));
    QVERIFY(desc && desc->isVisible());
    QTest::keyClicks(desc, QStringLiteral("cold"));
    tree().select(node(milk_));
    MessageScript script;
    expect_deletion(script,
                    QStringLiteral("Milk appears on the Home list -\nDeleting it will remove it from the list"));
    choose("mnu_tv_di");
    QCOMPARE(script.left(), 0);
    QVERIFY(!row_editor.is_open());
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Butter")});
    row_editor.show_l_line();
    QTest::keyClicks(desc, QStringLiteral("salted"));
    tree().select(node(soap));
    choose("mnu_tv_di");
    QVERIFY(!node(soap));
    QVERIFY(row_editor.is_open());
    QCOMPARE(trim(desc->text()), QStringLiteral("salted"));
    QCOMPARE(text("SELECT desc FROM groc_1"), QStringLiteral("salted"));
}

void tst_item_tidying::a_line_that_is_being_edited_is_stored_before_its_item_is_deleted()
{
    load_recipe_of(milk_);
    QTest::mouseClick(line(0).ingred, Qt::LeftButton);
    QVERIFY(window_->main().recipe_page().editor_open());
    auto* quantity = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(quantity);
    quantity->selectAll();
    QTest::keyClicks(quantity, QStringLiteral("3"));
    tree().select(node(milk_));
    choose("mnu_tv_di");
    QVERIFY(!window_->main().recipe_page().editor_open());
    QVERIFY(!node(milk_));
    QCOMPARE(text("SELECT qty || item || item_ref FROM recipe_2"), QStringLiteral("3Milk-1"));
    QCOMPARE(light(0), int(picture_base::light_non_stock));
    QCOMPARE(line(0).ingred->text(), QStringLiteral("3 Milk"));
    QVERIFY(tree().hasFocus());
}

void tst_item_tidying::an_item_that_is_gone_already_is_not_asked_about()
{
    window_->add_row(milk_, home_, true);
    load();
    click(node(milk_));
    Query(window_->db(), "DELETE FROM items_1 WHERE key_id = ?", milk_).run();
    const QStringList before = table_dump(window_->db());
    const MessageScript no_question;
    press_delete();
    QCOMPARE(table_dump(window_->db()), before);
}

void tst_item_tidying::links_that_point_at_nothing_raise_no_question()
{
    load();
    Query(window_->db(), "INSERT INTO tie (key_id, groc_id, list, item_id) VALUES (50, 99, ?, ?)", home_, milk_)
        .run();
    Query(window_->db(), "INSERT INTO tie (key_id, groc_id, list, item_id) VALUES (51, 98, ?, ?)", home_, butter_)
        .run();
    const MessageScript no_question;
    rename(node(milk_), QStringLiteral("Cream"));
    QTRY_COMPARE(item_name(milk_), QStringLiteral("Cream"));
    press_delete();
    QVERIFY(!node(milk_));
    QCOMPARE(number("SELECT count(*) FROM tie WHERE key_id = 50"), 0);
    QCOMPARE(item_name(butter_), QStringLiteral("Butter"));
}

void tst_item_tidying::an_item_is_renamed_in_place_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("flat");
    for (const bool flat : {false, true})
        for (const char* way : {"F2", "mnu_tv_rename", "two clicks"})
            QTest::addRow("%s, %s", way, flat ? "by name" : "by category") << QString::fromLatin1(way) << flat;
}

void tst_item_tidying::an_item_is_renamed_in_place()
{
    QFETCH(QString, way);
    QFETCH(bool, flat);
    flat ? load_flat() : load();
    const MessageScript no_notice;
    const int on_label = tree().text_rect(node(milk_)).left() + 4;
    click(node(milk_), on_label);
    if (way == QLatin1String("F2")) {
        QTest::keyClick(&tree(), Qt::Key_F2);
    } else if (way == QLatin1String("two clicks")) {
        QTest::qWait(QApplication::doubleClickInterval() + 100);
        click(node(milk_), on_label);
        QTRY_VERIFY(editor());
    } else {
        choose(qPrintable(way));
    }
    QVERIFY(QByteArray(editor()->metaObject()->className()).contains("Edit"));
    QCOMPARE(editor()->text(), QStringLiteral("Milk"));
    type_name(QStringLiteral("Almond milk"));
    QTRY_COMPARE(node(milk_)->text(0), QStringLiteral("Almond milk"));
    QCOMPARE(item_name(milk_), QStringLiteral("Almond milk"));
    QCOMPARE(tree().selected(), node(milk_));
    QVERIFY(tree().itemAbove(node(milk_)) == node(butter_)); // in its old place until the next load
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item Almond milk"));
    QCOMPARE(status(), QStringLiteral("Not listed :: Dairy category"));
    QTest::keyClick(&tree(), Qt::Key_F2);
    type_name(QStringLiteral("Dropped"), Qt::Key_Escape);
    QCoreApplication::processEvents();
    QCOMPARE(item_name(milk_), QStringLiteral("Almond milk"));
}

void tst_item_tidying::renaming_an_item_turns_its_lines_into_non_stock_lines_and_links_lines_of_the_new_name()
{
    add_line(2, QStringLiteral("oat drink"), -1);
    add_line(3, QStringLiteral("Oat drinks"), -1);
    add_line(4, QStringLiteral("Oat Drink"), milk_);
    add_line(5, QStringLiteral("Oat drink"), butter_);
    load_recipe_of(milk_);
    rename(node(milk_), QStringLiteral("Oat drink"));
    QTRY_COMPARE(item_name(milk_), QStringLiteral("Oat drink"));
    QCOMPARE(refs(), QStringLiteral("-1 %1 -1 %1 %2").arg(milk_).arg(butter_));
    QCOMPARE(text("SELECT item FROM recipe_2 WHERE key_id = 1"), QStringLiteral("Milk"));
    QCOMPARE(light(0), int(picture_base::light_non_stock));
    QCOMPARE(line(0).ingred->toolTip(), QStringLiteral("Milk :: Not listed"));
    QCOMPARE(line(0).Check1->property("Tag").toString(), QStringLiteral("-1"));
    for (const int index : {1, 3}) {
        QCOMPARE(light(index), int(picture_base::light_unlisted));
        QCOMPARE(line(index).ingred->toolTip(), QStringLiteral(" - Not listed :: Dairy category"));
        QCOMPARE(line(index).Check1->property("Tag").toString(), QString::number(milk_));
    }
    QCOMPARE(light(2), int(picture_base::light_non_stock));
    QCOMPARE(line(2).ingred->toolTip(), QStringLiteral("Non-stock item"));
    QCOMPARE(line(4).Check1->property("Tag").toString(), QString::number(butter_));
}

void tst_item_tidying::after_a_cancel_in_the_rename_notice_the_tree_shows_the_old_name()
{
    window_->add_row(milk_, home_, true);
    load();
    const QStringList before = table_dump(window_->db());
    MessageScript script;
    script.expect(
        QStringLiteral("Quendary notice"),
        notice(QStringLiteral("Milk"), QStringLiteral("Home"), QStringLiteral("Cream")), Answer::cancel,
        [](QDialog& dialog) { QCOMPARE(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::Information); });
    rename(node(milk_), QStringLiteral("Cream"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(node(milk_)->text(0), QStringLiteral("Milk"));
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Milk")});
    QCOMPARE(table_dump(window_->db()), before);
}

void tst_item_tidying::a_renamed_item_carries_its_name_to_every_list_after_the_notice()
{
    window_->add_row(milk_, party_, true);
    window_->add_row(milk_, home_, false, QStringLiteral("cold"));
    window_->add_row(butter_, home_, true);
    load();
    MessageScript script;
    script.expect(QStringLiteral("Quendary notice"),
                  notice(QStringLiteral("Milk"), QStringLiteral("Party\nHome"), QStringLiteral("Cream")));
    rename(node(milk_), QStringLiteral("Cream"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(node(milk_)->text(0), QStringLiteral("Cream"));
    QCOMPARE(grid_names(), (QStringList{QStringLiteral("Butter"), QStringLiteral("Cream")}));
    QCOMPARE(rows().row(1).desc, QStringLiteral("cold"));
    QCOMPARE(number("SELECT count(*) FROM groc_1 WHERE item = 'Cream'"), 2);
    QCOMPARE(number("SELECT count(*) FROM groc_1 WHERE item = 'Butter'"), 1);
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Cream'"), 5); // as stored: a rename sets no status
    QCOMPARE(status(), QStringLiteral("Active On Party list :: Inactive On Home list :: Dairy category"));
}

void tst_item_tidying::rows_of_all_lists_take_the_new_name()
{
    window_->add_row(milk_, party_, true);
    window_->add_row(milk_, home_, false);
    window_->set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    window_->set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    load();
    QCOMPARE(rows().rows(), 2);
    MessageScript script;
    script.expect(QStringLiteral("Quendary notice"),
                  notice(QStringLiteral("Milk"), QStringLiteral("Party\nHome"), QStringLiteral("Cream")));
    rename(node(milk_), QStringLiteral("Cream"));
    QTRY_COMPARE(grid_names(), (QStringList{QStringLiteral("Cream"), QStringLiteral("Cream")}));
}

void tst_item_tidying::an_in_place_rename_to_the_name_of_another_stock_item_is_accepted()
{
    load();
    const MessageScript no_message;
    rename(node(milk_), QStringLiteral("Butter"));
    QTRY_COMPARE(node(milk_)->text(0), QStringLiteral("Butter"));
    QCOMPARE(number("SELECT count(*) FROM items_1 WHERE item = 'Butter'"), 2);
    rename(node(milk_), QStringLiteral("BUTTER"));
    QTRY_COMPARE(item_name(milk_), QStringLiteral("BUTTER"));
    QCOMPARE(item_name(butter_), QStringLiteral("Butter"));
}

void tst_item_tidying::an_apostrophe_in_an_item_name_is_refused()
{
    window_->add_row(milk_, home_, true);
    load();
    MessageScript script;
    script.expect(
        QStringLiteral("Valora info"), QStringLiteral("Sorry - you can't put an \napostrophe in an Item name"),
        Answer::ok,
        [](QDialog& dialog) { QCOMPARE(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::Information); });
    rename(node(milk_), QStringLiteral("Cow's milk"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(node(milk_)->text(0), QStringLiteral("Milk"));
    QCOMPARE(item_name(milk_), QStringLiteral("Milk"));
}

void tst_item_tidying::an_item_name_is_trimmed_once_and_an_empty_one_keeps_the_old()
{
    window_->add_row(milk_, home_, true);
    load();
    const QStringList before = table_dump(window_->db());
    MessageScript script;
    for (const char* same : {"  Milk ", "Milk", "", "   "})
        rename(node(milk_), QLatin1String(same));
    QCoreApplication::processEvents();
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(node(milk_)->text(0), QStringLiteral("Milk"));
    script.expect(QStringLiteral("Quendary notice"),
                  notice(QStringLiteral("Milk"), QStringLiteral("Home"), QStringLiteral("Sour  cream")));
    rename(node(milk_), QStringLiteral("   Sour  cream "));
    QTRY_COMPARE(item_name(milk_), QStringLiteral("Sour  cream"));
    QCOMPARE(node(milk_)->text(0), QStringLiteral("Sour  cream"));
    QCOMPARE(text("SELECT item FROM groc_1"), QStringLiteral("Sour  cream"));
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Sour  cream")});
}

void tst_item_tidying::odd_item_names_are_kept_whole_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("10,000 characters") << QString(10000, u'w');
    QTest::newRow("quotes and signs") << QStringLiteral("\"best\" 50%_ \\ ; --");
    QTest::newRow("emoji and accents") << QStringLiteral("\U0001F955 Crème & <b>brûlée</b>");
}

void tst_item_tidying::odd_item_names_are_kept_whole()
{
    QFETCH(QString, name);
    window_->add_row(milk_, home_, true);
    load();
    MessageScript script;
    const auto cut
        = [](const QString& line) { return line.size() > 500 ? line.left(500) + QStringLiteral("...") : line; };
    const QString told = cut(QStringLiteral("Changing the item to '") + name + u'\'');
    script.expect(QStringLiteral("Quendary notice"),
                  QStringLiteral("'Milk' appears on the following list(s):\nHome\n\n") + told
                      + QStringLiteral("\nwill change it on the list(s) too"),
                  Answer::ok, [](QDialog& dialog) {
                      const QSize screen = dialog.screen()->size();
                      QVERIFY2(dialog.width() <= screen.width() && dialog.height() <= screen.height(),
                               qPrintable(QStringLiteral("%1 x %2").arg(dialog.width()).arg(dialog.height())));
                  });
    rename(node(milk_), name);
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(node(milk_)->text(0), name);
    QCOMPARE(item_name(milk_), name);
    QCOMPARE(grid_names(), QStringList{name});
    expect_deletion(script,
                    cut(name + QStringLiteral(" appears on the Home list -"))
                        + QStringLiteral("\nDeleting it will remove it from the list"));
    window_->main().activateWindow();
    press_delete();
    QCOMPARE(script.left(), 0);
    QVERIFY(!node(milk_));
}

void tst_item_tidying::signs_of_patterns_in_an_item_name_stand_for_themselves()
{
    add_line(2, QStringLiteral("500 juice"), -1);
    add_line(3, QStringLiteral("50% juice"), -1);
    load_recipe_of(milk_);
    const MessageScript no_message;
    rename(node(butter_), QStringLiteral("50% juice"));
    QTRY_COMPARE(item_name(butter_), QStringLiteral("50% juice"));
    QCOMPARE(refs(), QStringLiteral("%1 -1 %2").arg(milk_).arg(butter_));
    QCOMPARE(light(1), int(picture_base::light_non_stock));
    QCOMPARE(light(2), int(picture_base::light_unlisted));
}

void tst_item_tidying::an_item_that_is_gone_is_not_renamed()
{
    load();
    Query(window_->db(), "DELETE FROM items_1 WHERE key_id = ?", milk_).run();
    const QStringList before = table_dump(window_->db());
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Stock item not found"));
    rename(node(milk_), QStringLiteral("Cream"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
}

void tst_item_tidying::the_button_that_names_the_old_name_goes_with_a_rename()
{
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_));
    QVERIFY(button(2).isVisible());
    QCOMPARE(button(2).toolTip(), QStringLiteral("Locate Milk on shopping lists"));
    window_->main().household().rename_item(milk_, QStringLiteral("Cream"));
    QVERIFY(!button(2).isVisible());
}

/// Such nodes have no number in their key: what is done to them finds no record, or says so.
void tst_item_tidying::nodes_of_keys_beyond_four_digits_change_no_other_record()
{
    Query(window_->db(), "UPDATE items_1 SET key_id = 10000 WHERE key_id = ?", milk_).run();
    Query(window_->db(), "UPDATE cat SET key_id = 10000 WHERE key_id = ?", produce_).run();
    load();
    const QStringList before = table_dump(window_->db());
    QTreeWidgetItem* item = folder(dairy_)->child(1);
    QTreeWidgetItem* category = tree().topLevelItem(1);
    QCOMPARE(item->text(0) + category->text(0), QStringLiteral("MilkProduce"));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Stock item not found"));
    rename(item, QStringLiteral("Cream"));
    QTRY_COMPARE(script.left(), 0);
    press_delete();
    script.expect(QStringLiteral("Warning"), QStringLiteral("Stock category not found"));
    rename(category, QStringLiteral("Fruit"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
}

void tst_item_tidying::a_name_left_by_a_click_elsewhere_is_stored_and_the_click_acts()
{
    load();
    const MessageScript no_message;
    begin_edit(node(milk_), QStringLiteral("Cream"));
    click(folder(produce_));
    QCOMPARE(item_name(milk_), QStringLiteral("Cream"));
    QCOMPARE(node(milk_)->text(0), QStringLiteral("Cream"));
    QCOMPARE(tree().selected(), folder(produce_));
    QTRY_VERIFY(!editor());
}

void tst_item_tidying::the_notice_after_a_click_elsewhere_comes_once_and_the_click_is_lost()
{
    window_->add_row(milk_, home_, true);
    load();
    begin_edit(node(milk_), QStringLiteral("Cream"));
    MessageScript script;
    script.expect(QStringLiteral("Quendary notice"),
                  notice(QStringLiteral("Milk"), QStringLiteral("Home"), QStringLiteral("Cream")));
    ListGrid& grid = window_->main().list_pane().grid();
    const QRect box = grid.cell_rect(0, GridColumn::check);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.viewport()->mapFrom(grid.parentWidget(), box.center()));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(item_name(milk_), QStringLiteral("Cream"));
    QCOMPARE(number("SELECT to_get FROM groc_1"), 1);
    QTRY_VERIFY(!editor());
}

void tst_item_tidying::a_command_chosen_during_an_edit_acts_under_the_new_name()
{
    window_->add_row(milk_, home_, true);
    load();
    begin_edit(node(milk_), QStringLiteral("Cream"));
    MessageScript script;
    script.expect(QStringLiteral("Quendary notice"),
                  notice(QStringLiteral("Milk"), QStringLiteral("Home"), QStringLiteral("Cream")));
    expect_deletion(script,
                    QStringLiteral("Cream appears on the Home list -\nDeleting it will remove it from the list"),
                    Answer::cancel);
    choose("mnu_tv_di");
    QCOMPARE(script.left(), 0);
    QCOMPARE(item_name(milk_), QStringLiteral("Cream"));
    QTRY_VERIFY(!editor());
}

void tst_item_tidying::a_sort_stores_the_name_that_is_being_typed()
{
    load();
    const MessageScript no_message;
    begin_edit(node(milk_), QStringLiteral("Almond milk"));
    auto* sort = window_->find<QToolButton>(tool_button(ToolButton::sort));
    QVERIFY(sort->isVisible() && sort->isEnabled());
    QTest::mouseClick(sort, Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(shared().stock_alpha);
    QCOMPARE(item_name(milk_), QStringLiteral("Almond milk"));
    QCOMPARE(texts_under(tree().invisibleRootItem()),
             (QStringList{QStringLiteral("Almond milk"), QStringLiteral("Butter")}));
    QTRY_VERIFY(!editor());
}

void tst_item_tidying::the_window_that_is_closed_stores_the_name_that_is_being_typed()
{
    load();
    const MessageScript no_message;
    begin_edit(node(milk_), QStringLiteral("Cream"));
    window_->main().close();
    QCOMPARE(window_->ends, 1);
    QCOMPARE(window_->exit_code, 0);
    QCOMPARE(item_name(milk_), QStringLiteral("Cream"));
}

QTEST_MAIN(tst_item_tidying)
#include "tst_item_tidying.moc"
