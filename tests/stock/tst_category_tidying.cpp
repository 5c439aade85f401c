#include "stock/tidying_fixture.h"
#include "household/status.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>

using namespace tarnwick;

namespace {

const QString tips = QStringLiteral("\nAre you sure you want to delete the category?\n\n"
                                    "Tip: you can rename the category by double-\n"
                                    "       clicking on it and entering a new name\n\n"
                                    "Tip: you can move items to other categories-\n"
                                    "       by dragging them where you want them\n"
                                    "       or right-click an item and choose 'move'\n");

QString in_use(const QString& name)
{
    return name
        + QStringLiteral(" category already exists\n\nTip: You can move stock items to other categories\n"
                         "       by dragging them where you want them -\n"
                         "       or right-click an item and choose 'move'");
}

} // namespace

class tst_category_tidying : public TidyingTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    void a_category_with_no_items_is_deleted_without_any_question_data();
    void a_category_with_no_items_is_deleted_without_any_question();
    void the_question_counts_the_items_and_those_on_lists_data();
    void the_question_counts_the_items_and_those_on_lists();
    void no_deletes_nothing();
    void deleting_a_category_with_items_on_lists_also_removes_those_rows_from_the_grid();
    void ingredients_of_deleted_items_stay_on_their_recipes_as_non_stock_lines();
    void deleting_is_silently_refused_in_the_alphabetic_view();
    void the_delete_key_on_other_says_that_it_cannot_be_deleted();
    void no_command_deletes_or_renames_other();
    void the_folder_before_or_else_the_next_is_selected_after_a_deletion_and_commands_speak_of_it();
    void the_place_in_the_list_stays_when_a_category_goes();
    void a_category_that_is_gone_already_is_not_asked_about();
    void nothing_is_written_when_a_deletion_fails_in_the_middle();

    void a_new_category_lands_in_name_order_among_the_folders_and_other_stays_last();
    void renaming_a_category_to_the_name_of_another_in_another_case_is_refused();
    void its_own_name_in_another_case_is_refused_too();
    void a_category_is_renamed_in_place_data();
    void a_category_is_renamed_in_place();
    void an_apostrophe_in_a_category_name_is_refused();
    void a_category_name_is_trimmed_once_before_every_test();
    void a_name_that_is_odd_is_kept_whole_data();
    void a_name_that_is_odd_is_kept_whole();
    void signs_of_patterns_do_not_collide();
    void commands_and_panel_follow_a_rename();
    void tool_tips_on_the_recipe_page_follow_a_rename();
    void renaming_a_category_that_is_gone_says_so();
    void the_rename_commands_of_categories_open_no_editor_on_an_item();

private:
    void expect_question(MessageScript& script, const QString& text, Answer answer = Answer::yes)
    {
        script.expect(QStringLiteral("Warning"), text + tips, answer, [](QDialog& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            QCOMPARE(box.icon(), QMessageBox::Warning);
            QCOMPARE(box.defaultButton(), box.button(QMessageBox::Yes));
        });
    }
    QString folder_name(Key key)
    {
        Query query(window_->db(), "SELECT cat_desc FROM cat WHERE key_id = ?", key);
        return query.next() ? query.text(0) : QString();
    }
};

void tst_category_tidying::a_category_with_no_items_is_deleted_without_any_question_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"key", "mnu_edit_del_cat", "mnu_tv_dc"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_category_tidying::a_category_with_no_items_is_deleted_without_any_question()
{
    QFETCH(QString, way);
    load();
    const MessageScript no_question;
    const bool pop_up = way == QLatin1String("mnu_tv_dc");
    click(folder(produce_), 200, pop_up ? Qt::RightButton : Qt::LeftButton);
    if (pop_up) {
        QTRY_VERIFY(commands().menu(QStringLiteral("mnu_tv")).isVisible());
        commands().menu(QStringLiteral("mnu_tv")).close();
    }
    QCOMPARE(caption("mnu_tv_dc"), QStringLiteral("Delete Produce  category"));
    QCOMPARE(caption("mnu_edit_del_cat"), QStringLiteral("Delete Produce category"));
    if (way == QLatin1String("key"))
        press_delete();
    else
        choose(qPrintable(way));
    QCOMPARE(folders(), (QStringList{QStringLiteral("Dairy"), QStringLiteral("OTHER")}));
    QCOMPARE(number("SELECT count(*) FROM cat WHERE cat_desc = 'Produce'"), 0);
    QCOMPARE(number("SELECT count(*) FROM items_1"), 2);
}

void tst_category_tidying::the_question_counts_the_items_and_those_on_lists_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("listed");
    QTest::addColumn<QString>("question");
    QTest::newRow("one, not listed") << 1 << 0 << "There is 1 stock item \n in the Produce category -\n";
    QTest::newRow("one, listed")
        << 1 << 1
        << "There is 1 stock item \n in the Produce category -\n\n- one of these is on a shopping list \n";
    QTest::newRow("several, none listed") << 3 << 0 << "There are 3 stock items \n in the Produce category -\n";
    QTest::newRow("several, one listed")
        << 3 << 1
        << "There are 3 stock items \n in the Produce category -\n\n- one of these is on a shopping list \n";
    QTest::newRow("several, two listed")
        << 3 << 2
        << "There are 3 stock items \n in the Produce category -\n\n- 2 of these are on shopping lists \n";
}

void tst_category_tidying::the_question_counts_the_items_and_those_on_lists()
{
    QFETCH(int, items);
    QFETCH(int, listed);
    QFETCH(QString, question);
    for (int i = 0; i < items; ++i) {
        const Key item = window_->add_item(QStringLiteral("Apple %1").arg(i), produce_);
        if (i >= listed)
            continue;
        window_->add_row(item, home_, true);
        window_->add_row(item, party_, false); // on two lists, counted once
    }
    load();
    click(folder(produce_));
    MessageScript script;
    expect_question(script, question);
    press_delete();
    QCOMPARE(script.left(), 0);
    QCOMPARE(number("SELECT count(*) FROM items_1"), 2);
    QCOMPARE(number("SELECT count(*) FROM cat"), 2);
    for (const char* table : {"SELECT count(*) FROM groc_1", "SELECT count(*) FROM tie"})
        QCOMPARE(number(table), 0);
    QCOMPARE(folders(), (QStringList{QStringLiteral("Dairy"), QStringLiteral("OTHER")}));
}

void tst_category_tidying::no_deletes_nothing()
{
    window_->add_row(milk_, home_, true);
    load();
    const QStringList before = table_dump(window_->db());
    click(folder(dairy_));
    MessageScript script;
    expect_question(script,
                    QStringLiteral("There are 2 stock items \n in the Dairy category -\n"
                                   "\n- one of these is on a shopping list \n"),
                    Answer::no);
    press_delete();
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
    QVERIFY(node(milk_) && node(butter_));
    QCOMPARE(tree().selected(), folder(dairy_));
}

void tst_category_tidying::deleting_a_category_with_items_on_lists_also_removes_those_rows_from_the_grid()
{
    const Key apple = window_->add_item(QStringLiteral("Apple"), produce_, 7);
    window_->add_row(milk_, home_, true);
    window_->add_row(milk_, party_, true);
    window_->add_row(apple, home_, true);
    window_->add_row(butter_, home_, false);
    load();
    QCOMPARE(grid_names(),
             (QStringList{QStringLiteral("Apple"), QStringLiteral("Butter"), QStringLiteral("Milk")}));
    click(folder(dairy_));
    MessageScript script;
    expect_question(script,
                    QStringLiteral("There are 2 stock items \n in the Dairy category -\n"
                                   "\n- 2 of these are on shopping lists \n"));
    choose("mnu_edit_del_cat");
    QCOMPARE(script.left(), 0);
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Apple")});
    QCOMPARE(text("SELECT group_concat(item) FROM groc_1"), QStringLiteral("Apple"));
    QCOMPARE(number("SELECT count(*) FROM tie"), 1);
    QCOMPARE(TreeView::picture(node(apple)), 7);
}

void tst_category_tidying::ingredients_of_deleted_items_stay_on_their_recipes_as_non_stock_lines()
{
    window_->add_row(milk_, home_, true);
    const Key apple = window_->add_item(QStringLiteral("Apple"), produce_);
    add_line(2, QStringLiteral("Butter"), butter_);
    add_line(3, QStringLiteral("Apple"), apple);
    load_recipe_of(milk_);
    click(folder(dairy_));
    MessageScript script;
    expect_question(script,
                    QStringLiteral("There are 2 stock items \n in the Dairy category -\n"
                                   "\n- one of these is on a shopping list \n"));
    press_delete();
    QCOMPARE(script.left(), 0);
    QCOMPARE(text("SELECT group_concat(item || item_ref, ' ') FROM (SELECT * FROM recipe_2 ORDER BY key_id)"),
             QStringLiteral("Milk-1 Butter-1 Apple%1").arg(apple));
    for (const int index : {0, 1}) {
        QCOMPARE(light(index), int(picture_base::light_non_stock));
        QCOMPARE(line(index).item_ref, Key(-1));
        QCOMPARE(line(index).ingred->toolTip(), QStringLiteral("Non-stock item"));
        QCOMPARE(line(index).Check1->property("Tag").toString(), QStringLiteral("-1"));
    }
    QCOMPARE(line(1).ingred->text(), QStringLiteral("2 cups Butter"));
    QCOMPARE(light(2), int(picture_base::light_unlisted));
}

void tst_category_tidying::deleting_is_silently_refused_in_the_alphabetic_view()
{
    load_flat();
    const QStringList before = table_dump(window_->db());
    const MessageScript no_question;
    click(node(milk_));
    QVERIFY(!enabled("mnu_edit_del_cat"));
    QVERIFY(!visible("mnu_tv_dc"));
    window_->main().stock_commands().tv_del_cat(dairy_);
    window_->main().stock_commands().tv_del_cat(0);
    QCOMPARE(table_dump(window_->db()), before);
    QVERIFY(node(milk_));
}

void tst_category_tidying::the_delete_key_on_other_says_that_it_cannot_be_deleted()
{
    window_->add_item(QStringLiteral("Soap"), 0);
    load();
    const QStringList before = table_dump(window_->db());
    click(folder(0));
    MessageScript script;
    script.expect(QStringLiteral("Warning"),
                  QStringLiteral("You cannot Delete the 'OTHER' Category - \n\n"
                                 "Tip: you can move stock items to other categories-\n"
                                 "       by dragging them where you want them -\n"
                                 "       or right-click an item and choose 'move'\n"),
                  Answer::ok, [](QDialog& dialog) {
                      QCOMPARE(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::Warning);
                  });
    press_delete();
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
}

void tst_category_tidying::no_command_deletes_or_renames_other()
{
    load();
    click(folder(0));
    for (const char* command : {"mnu_edit_del_cat", "mnu_edit_rn_cat", "mnu_tv_dc", "mnu_tv_rn"})
        QVERIFY2(!enabled(command), command);
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(!editor());
    window_->main().stock_commands().rename_category();
    QVERIFY(!editor());
}

void tst_category_tidying::
    the_folder_before_or_else_the_next_is_selected_after_a_deletion_and_commands_speak_of_it()
{
    const Key bakery = window_->add_category(QStringLiteral("Bakery"));
    const Key sweets = window_->add_category(QStringLiteral("Sweets"));
    load();
    click(folder(produce_));
    press_delete();
    QCOMPARE(tree().selected(), folder(dairy_));
    QCOMPARE(caption("mnu_edit_del_cat"), QStringLiteral("Delete Dairy category"));
    QCOMPARE(caption("mnu_tv_rn"), QStringLiteral("Rename Dairy  category"));
    QCOMPARE(status(), QStringLiteral("Dairy category: 2 stock items"));
    click(folder(bakery));
    press_delete();
    QVERIFY(!folder(bakery));
    QCOMPARE(tree().selected(), folder(dairy_));
    QVERIFY(folder(sweets));
}

void tst_category_tidying::the_place_in_the_list_stays_when_a_category_goes()
{
    const Key apple = window_->add_item(QStringLiteral("Apple"), produce_);
    const Key nuts = window_->add_item(QStringLiteral("Nuts"), produce_);
    for (const Key item : {milk_, butter_, apple, nuts})
        window_->add_row(item, home_, true);
    load();
    ListGrid& grid = window_->main().list_pane().grid();
    const auto current = [&] { return rows().row(grid.current_row()).item; };
    grid.set_current(2, GridColumn::item);
    QCOMPARE(current(), QStringLiteral("Milk"));
    MessageScript script;
    const QString question = QStringLiteral("There are 2 stock items \n in the %1 category -\n"
                                            "\n- 2 of these are on shopping lists \n");
    expect_question(script, question.arg(QStringLiteral("Dairy")));
    click(folder(dairy_));
    press_delete();
    QCOMPARE(grid_names(), (QStringList{QStringLiteral("Apple"), QStringLiteral("Nuts")}));
    QCOMPARE(current(), QStringLiteral("Nuts"));
    expect_question(script, question.arg(QStringLiteral("Produce")));
    click(folder(produce_));
    press_delete();
    QCOMPARE(rows().rows(), 0);
}

void tst_category_tidying::a_category_that_is_gone_already_is_not_asked_about()
{
    load();
    click(folder(dairy_));
    Query(window_->db(), "DELETE FROM cat WHERE key_id = ?", dairy_).run();
    const QStringList before = table_dump(window_->db());
    const MessageScript no_question;
    press_delete();
    QCOMPARE(table_dump(window_->db()), before);
}

void tst_category_tidying::nothing_is_written_when_a_deletion_fails_in_the_middle()
{
    window_->add_row(milk_, home_, true);
    load();
    Query(window_->db(), "CREATE TRIGGER stop BEFORE DELETE ON items_1 BEGIN SELECT raise(ABORT, 'no'); END").run();
    const QStringList before = table_dump(window_->db());
    QVERIFY_EXCEPTION_THROWN(window_->main().household().delete_category(dairy_), std::exception);
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(grid_names(), QStringList{QStringLiteral("Milk")});
    QVERIFY(folder(dairy_));
}

void tst_category_tidying::a_new_category_lands_in_name_order_among_the_folders_and_other_stays_last()
{
    load();
    const auto add = [this](const QString& name) {
        MessageScript script;
        script.drive([&name](QDialog& dialog) {
            dialog.findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(name);
            QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
        });
        choose("mnu_edit_add_cat");
        QCOMPARE(tree().selected()->text(0), name);
        QCOMPARE(TreeView::picture(tree().selected()), 1);
        QCOMPARE(TreeView::tag(tree().selected()), QStringLiteral("1"));
    };
    for (const char* name : {"Zest", "Bakery", "Eggs", "Pasta"})
        add(QLatin1String(name));
    QCOMPARE(folders().join(u' '), QStringLiteral("Bakery Dairy Eggs Pasta Produce Zest OTHER"));
    // A folder that was renamed stays where it is until the next load; the new one goes by the names all the same.
    rename(folder(produce_), QStringLiteral("Able"));
    add(QStringLiteral("Quince"));
    QCOMPARE(folders().join(u' '), QStringLiteral("Bakery Dairy Eggs Pasta Quince Able Zest OTHER"));
}

void tst_category_tidying::renaming_a_category_to_the_name_of_another_in_another_case_is_refused()
{
    load();
    MessageScript script;
    script.expect(
        QStringLiteral("Stock category"), in_use(QStringLiteral("pRODUCE")), Answer::ok,
        [](QDialog& dialog) { QCOMPARE(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::Warning); });
    rename(folder(dairy_), QStringLiteral("pRODUCE"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(folder(dairy_)->text(0), QStringLiteral("Dairy"));
    QCOMPARE(folder_name(dairy_), QStringLiteral("Dairy"));
    script.expect(QStringLiteral("Stock category"), in_use(QStringLiteral("other")));
    rename(folder(dairy_), QStringLiteral("other"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(folder_name(dairy_), QStringLiteral("Dairy"));
}

void tst_category_tidying::its_own_name_in_another_case_is_refused_too()
{
    load();
    MessageScript script;
    script.expect(QStringLiteral("Stock category"), in_use(QStringLiteral("DAIRY")));
    rename(folder(dairy_), QStringLiteral("DAIRY"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(folder_name(dairy_), QStringLiteral("Dairy"));
}

void tst_category_tidying::a_category_is_renamed_in_place_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"F2", "mnu_tv_rn", "mnu_edit_rn_cat", "two clicks"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_category_tidying::a_category_is_renamed_in_place()
{
    QFETCH(QString, way);
    load();
    const MessageScript no_message;
    const int on_label = tree().text_rect(folder(dairy_)).left() + 4;
    click(folder(dairy_), on_label);
    if (way == QLatin1String("F2")) {
        QTest::keyClick(&tree(), Qt::Key_F2);
    } else if (way == QLatin1String("two clicks")) {
        QTest::qWait(QApplication::doubleClickInterval() + 100);
        click(folder(dairy_), on_label);
        QTRY_VERIFY(editor());
    } else {
        choose(qPrintable(way));
    }
    type_name(QStringLiteral("Cool things"));
    QTRY_COMPARE(folder(dairy_)->text(0), QStringLiteral("Cool things"));
    QCOMPARE(folder_name(dairy_), QStringLiteral("Cool things"));
    QCOMPARE(tree().indexOfTopLevelItem(folder(dairy_)), 0);
    QCOMPARE(tree().selected(), folder(dairy_));
    QCOMPARE(texts_under(folder(dairy_)), (QStringList{QStringLiteral("Butter"), QStringLiteral("Milk")}));
    QVERIFY(folder(dairy_)->isExpanded());
    QTest::keyClick(&tree(), Qt::Key_F2);
    type_name(QStringLiteral("Dropped"), Qt::Key_Escape);
    QCoreApplication::processEvents();
    QCOMPARE(folder_name(dairy_), QStringLiteral("Cool things"));
}

void tst_category_tidying::an_apostrophe_in_a_category_name_is_refused()
{
    load();
    MessageScript script;
    script.expect(
        QStringLiteral("Valora info"), QStringLiteral("Sorry - you can't put an \napostrophe in a Category name"),
        Answer::ok,
        [](QDialog& dialog) { QCOMPARE(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::Information); });
    rename(folder(dairy_), QStringLiteral("Cow's"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(folder(dairy_)->text(0), QStringLiteral("Dairy"));
    QCOMPARE(folder_name(dairy_), QStringLiteral("Dairy"));
}

void tst_category_tidying::a_category_name_is_trimmed_once_before_every_test()
{
    load();
    const QStringList before = table_dump(window_->db());
    MessageScript script;
    for (const char* same : {"  Dairy ", "Dairy", "", "   "})
        rename(folder(dairy_), QLatin1String(same));
    QCoreApplication::processEvents();
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(folder(dairy_)->text(0), QStringLiteral("Dairy"));
    script.expect(QStringLiteral("Stock category"), in_use(QStringLiteral("Produce")));
    rename(folder(dairy_), QStringLiteral("  Produce  "));
    QTRY_COMPARE(script.left(), 0);
    rename(folder(dairy_), QStringLiteral("   Cool  things "));
    QTRY_COMPARE(folder_name(dairy_), QStringLiteral("Cool  things"));
    QCOMPARE(folder(dairy_)->text(0), QStringLiteral("Cool  things"));
}

void tst_category_tidying::a_name_that_is_odd_is_kept_whole_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("10,000 characters") << QString(10000, u'w');
    QTest::newRow("quotes and signs") << QStringLiteral("\"best\" 50%_ \\ ; --");
    QTest::newRow("emoji and accents") << QStringLiteral("\U0001F955 Crème & <b>brûlée</b>");
}

void tst_category_tidying::a_name_that_is_odd_is_kept_whole()
{
    QFETCH(QString, name);
    load();
    const MessageScript no_message;
    rename(folder(dairy_), name);
    QTRY_COMPARE(folder(dairy_)->text(0), name);
    QCOMPARE(folder_name(dairy_), name);
    QCOMPARE(caption("mnu_edit_del_cat"), QStringLiteral("Delete ") + name + QStringLiteral(" category"));
}

void tst_category_tidying::signs_of_patterns_do_not_collide()
{
    window_->add_category(QStringLiteral("500 things"));
    load();
    const MessageScript no_message;
    rename(folder(dairy_), QStringLiteral("50% things"));
    QTRY_COMPARE(folder_name(dairy_), QStringLiteral("50% things"));
    rename(folder(produce_), QStringLiteral("50_ things"));
    QTRY_COMPARE(folder_name(produce_), QStringLiteral("50_ things"));
}

void tst_category_tidying::commands_and_panel_follow_a_rename()
{
    load();
    rename(folder(dairy_), QStringLiteral("Cool"));
    QTRY_COMPARE(caption("mnu_edit_del_cat"), QStringLiteral("Delete Cool category"));
    QCOMPARE(caption("mnu_edit_rn_cat"), QStringLiteral("Rename Cool category"));
    QCOMPARE(caption("mnu_tv_dc"), QStringLiteral("Delete Cool  category"));
    QCOMPARE(status(), QStringLiteral("Cool category: 2 stock items"));
    click(node(milk_));
    QCOMPARE(status(), QStringLiteral("Not listed :: Cool category"));
}

void tst_category_tidying::tool_tips_on_the_recipe_page_follow_a_rename()
{
    window_->add_row(milk_, home_, true);
    const Key apple = window_->add_item(QStringLiteral("Apple"), produce_);
    add_line(2, QStringLiteral("Whole milk"), milk_);
    add_line(3, QStringLiteral("Apple"), apple);
    add_line(4, QStringLiteral("Salt"), -1);
    load_recipe_of(milk_);
    const QString apple_tip = line(2).ingred->toolTip();
    rename(folder(dairy_), QStringLiteral("Cool"));
    QTRY_COMPARE(line(0).ingred->toolTip(), QStringLiteral("Milk - Active On Home list :: Cool category"));
    QCOMPARE(line(1).ingred->toolTip(), QStringLiteral("Whole milk - Active On Home list :: Cool category"));
    QCOMPARE(line(2).ingred->toolTip(), apple_tip);
    QCOMPARE(line(3).ingred->toolTip(), QStringLiteral("Non-stock item"));
    QCOMPARE(light(0), int(picture_base::light_on));
}

void tst_category_tidying::renaming_a_category_that_is_gone_says_so()
{
    load();
    Query(window_->db(), "DELETE FROM cat WHERE key_id = ?", produce_).run();
    const QStringList before = table_dump(window_->db());
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Stock category not found"));
    rename(folder(produce_), QStringLiteral("Fruit"));
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(table_dump(window_->db()), before);
    QCOMPARE(folder(produce_)->text(0), QStringLiteral("Produce"));
}

void tst_category_tidying::the_rename_commands_of_categories_open_no_editor_on_an_item()
{
    load();
    click(node(milk_));
    QVERIFY(!enabled("mnu_edit_rn_cat"));
    QVERIFY(!visible("mnu_tv_rn"));
    window_->main().stock_commands().rename_category();
    QVERIFY(!editor());
}

QTEST_MAIN(tst_category_tidying)
#include "tst_category_tidying.moc"
