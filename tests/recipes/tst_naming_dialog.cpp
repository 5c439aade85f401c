#include "data/query.h"
#include "dialogs/new_item_rcp.h"
#include "recipes/recipe_tree.h"
#include "window/commands.h"
#include "widgets/tree_view.h"
#include "household/category_store.h"
#include "household/recipe_store.h"
#include "stock/stock_commands.h"
#include "stock/stock_tree.h"
#include "support/menu_hands.h"
#include "support/message_script.h"
#include "support/table_dump.h"
#include "support/test_window.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace tarnwick;

namespace {

/// The controls of an open naming dialog.
struct Naming {
    explicit Naming(QDialog& form)
        : dialog(form)
        , text(form.findChild<QLineEdit*>(QStringLiteral("Text1")))
        , combo(form.findChild<QComboBox*>(QStringLiteral("Combo1")))
    {
        for (int i = 0; i < 2; ++i) {
            label[i] = form.findChild<QLabel*>(QStringLiteral("Label1(%1)").arg(i));
            picture[i] = form.findChild<QLabel*>(QStringLiteral("Picture1(%1)").arg(i));
            command[i] = form.findChild<QPushButton*>(QStringLiteral("Command1(%1)").arg(i));
        }
    }

    void type(const QString& name)
    {
        text->clear();
        QTest::keyClicks(text, name);
    }
    void ok()
    {
        QVERIFY(command[0]->isEnabled());
        QTest::mouseClick(command[0], Qt::LeftButton);
    }
    void cancel() { QTest::mouseClick(command[1], Qt::LeftButton); }

    QDialog& dialog;
    QLineEdit* text;
    QComboBox* combo;
    QLabel* label[2];
    QLabel* picture[2];
    QPushButton* command[2];
};

void make_icon(TestWindow& window, const QString& name)
{
    QDir(window.environment().program_folder).mkpath(QStringLiteral("ico"));
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::darkGreen);
    QVERIFY(image.save(window.environment().icon_file(name), "PNG"));
}

Key open_dialog(TestWindow& window, NamingKind kind)
{
    frmmain& main = window.main();
    new_item_rcp dialog(main.program(), &main, {kind, main.recipe_tree().proposed_category()});
    dialog.exec();
    return dialog.made();
}

} // namespace

class tst_naming_dialog : public QObject {
    Q_OBJECT
private slots:
    void each_kind_has_its_captions_data();
    void each_kind_has_its_captions();
    void icon_shows_only_when_its_file_exists_data();
    void icon_shows_only_when_its_file_exists();
    void ok_stays_disabled_while_the_box_holds_only_blanks();
    void enter_is_ok_and_escape_is_cancel();
    void cancel_changes_nothing();
    void type_size_is_9_or_10_data();
    void type_size_is_9_or_10();
    void recipe_categories_stand_in_their_order();
    void category_of_the_selected_recipe_is_proposed();
    void made_holds_the_key_and_the_record_is_complete();
    void new_category_through_the_menu_gets_its_record_and_node();
    void new_category_in_the_alphabetic_view_is_written_without_a_node();
    void category_name_that_differs_only_in_case_is_taken();
    void category_name_is_no_pattern_in_the_duplicate_test();
    void category_name_loses_its_apostrophes();
    void unusual_names_are_stored_as_typed_data();
    void unusual_names_are_stored_as_typed();
    void new_category_lands_in_name_order_and_other_stays_last();
};

void tst_naming_dialog::each_kind_has_its_captions_data()
{
    QTest::addColumn<NamingKind>("kind");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("prompt");
    QTest::newRow("list") << NamingKind::list << QStringLiteral("New shopping list")
                          << QStringLiteral("Enter a name for your shopping list");
    QTest::newRow("recipe") << NamingKind::recipe << QStringLiteral("New recipe")
                            << QStringLiteral("Enter a name for your recipe");
    QTest::newRow("category") << NamingKind::category << QStringLiteral("New stock category")
                              << QStringLiteral("Enter a name for your stock category");
}

void tst_naming_dialog::each_kind_has_its_captions()
{
    QFETCH(NamingKind, kind);
    QFETCH(QString, caption);
    QFETCH(QString, prompt);
    TestWindow window;
    window.load();
    MessageScript script;
    script.drive([&](QDialog& form) {
        const Naming dialog(form);
        QCOMPARE(form.objectName(), QStringLiteral("new_item_rcp"));
        QCOMPARE(form.windowTitle(), caption);
        QCOMPARE(dialog.label[0]->text(), prompt);
        QCOMPARE(dialog.label[1]->text(), QStringLiteral("Select a recipe category:"));
        QCOMPARE(dialog.command[0]->text(), QStringLiteral("OK"));
        QCOMPARE(dialog.command[1]->text(), QStringLiteral("CANCEL"));
        const bool recipe = kind == NamingKind::recipe;
        QCOMPARE(dialog.combo->isVisible(), recipe);
        QCOMPARE(dialog.label[1]->isVisible(), recipe);
        QCOMPARE(dialog.picture[1]->isVisible(), recipe);
        QVERIFY(!dialog.picture[0]->isVisible());
        const QRect ok = dialog.command[0]->geometry();
        const QRect cancel = dialog.command[1]->geometry();
        QCOMPARE(ok.center().y(), cancel.center().y());
        QVERIFY(ok.right() < cancel.left());
        if (recipe) {
            QVERIFY(ok.left() > dialog.text->geometry().right());
        } else {
            QVERIFY(ok.top() > dialog.text->geometry().bottom());
            QVERIFY(qAbs((ok.left() + cancel.right()) / 2 - form.rect().center().x()) <= 1);
        }
        form.reject();
    });
    QCOMPARE(int(open_dialog(window, kind)), 0);
}

void tst_naming_dialog::icon_shows_only_when_its_file_exists_data()
{
    QTest::addColumn<NamingKind>("kind");
    QTest::addColumn<QString>("file");
    QTest::newRow("list") << NamingKind::list << QStringLiteral("list.ico");
    QTest::newRow("recipe") << NamingKind::recipe << QStringLiteral("recipe.ico");
    QTest::newRow("category") << NamingKind::category << QStringLiteral("fldr_1.ico");
}

void tst_naming_dialog::icon_shows_only_when_its_file_exists()
{
    QFETCH(NamingKind, kind);
    QFETCH(QString, file);
    TestWindow window;
    window.load();
    for (const bool exists : {false, true}) {
        if (exists)
            make_icon(window, file);
        MessageScript script;
        script.drive([&](QDialog& form) {
            const Naming dialog(form);
            QCOMPARE(dialog.picture[0]->isVisible(), exists);
            QCOMPARE(!dialog.picture[0]->pixmap(Qt::ReturnByValue).isNull(), exists);
            form.reject();
        });
        open_dialog(window, kind);
    }
}

void tst_naming_dialog::ok_stays_disabled_while_the_box_holds_only_blanks()
{
    TestWindow window;
    window.load();
    MessageScript script;
    script.drive([&](QDialog& form) {
        Naming dialog(form);
        QVERIFY(!dialog.command[0]->isEnabled());
        dialog.type(QStringLiteral("   "));
        QVERIFY(!dialog.command[0]->isEnabled());
        QTest::keyClick(dialog.text, Qt::Key_Return);
        QVERIFY(form.isVisible());
        dialog.type(QStringLiteral("  a"));
        QVERIFY(dialog.command[0]->isEnabled());
        QTest::keyClick(dialog.text, Qt::Key_Backspace);
        QVERIFY(!dialog.command[0]->isEnabled());
        form.reject();
    });
    QCOMPARE(int(open_dialog(window, NamingKind::category)), 0);
    QCOMPARE(window.number("SELECT count(*) FROM cat"), 1);
}

void tst_naming_dialog::enter_is_ok_and_escape_is_cancel()
{
    TestWindow window;
    window.load();
    MessageScript script;
    script.drive([](QDialog& form) {
        Naming dialog(form);
        dialog.type(QStringLiteral("Never"));
        QTest::keyClick(dialog.text, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(open_dialog(window, NamingKind::category)), 0);
    script.drive([](QDialog& form) {
        Naming dialog(form);
        dialog.type(QStringLiteral("Bakery"));
        QTest::keyClick(dialog.text, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QVERIFY(open_dialog(window, NamingKind::category) > 0);
    QCOMPARE(window.text("SELECT cat_desc FROM cat WHERE key_id > 0"), QStringLiteral("Bakery"));
}

void tst_naming_dialog::cancel_changes_nothing()
{
    TestWindow window;
    window.load();
    const QStringList before = table_dump(window.db());
    for (const NamingKind kind : {NamingKind::list, NamingKind::category}) {
        MessageScript script;
        script.drive([](QDialog& form) {
            Naming dialog(form);
            dialog.type(QStringLiteral("Thrown away"));
            dialog.cancel();
        });
        QCOMPARE(int(open_dialog(window, kind)), 0);
    }
    QCOMPARE(table_dump(window.db()), before);
    QCOMPARE(window.pref(QStringLiteral("alist"), QStringLiteral("velora")), QStringLiteral("(none)"));
}

void tst_naming_dialog::type_size_is_9_or_10_data()
{
    QTest::addColumn<int>("window_size");
    QTest::addColumn<int>("dialog_size");
    QTest::newRow("9") << 9 << 9;
    QTest::newRow("10") << 10 << 10;
    QTest::newRow("12") << 12 << 10;
}

void tst_naming_dialog::type_size_is_9_or_10()
{
    QFETCH(int, window_size);
    QFETCH(int, dialog_size);
    TestWindow window;
    window.set_pref(QStringLiteral("font"), QString::number(window_size));
    window.load();
    MessageScript script;
    script.drive([&](QDialog& form) {
        const Naming dialog(form);
        const QList<QWidget*> sized
            = {dialog.text, dialog.combo, dialog.label[0], dialog.label[1], dialog.command[0], dialog.command[1]};
        for (const QWidget* control : sized)
            QCOMPARE(control->font().pointSize(), dialog_size);
        form.reject();
    });
    open_dialog(window, NamingKind::recipe);
}

void tst_naming_dialog::recipe_categories_stand_in_their_order()
{
    TestWindow window;
    window.load();
    MessageScript script;
    script.drive([](QDialog& form) {
        const Naming dialog(form);
        QStringList captions;
        for (int i = 0; i < dialog.combo->count(); ++i)
            captions += dialog.combo->itemText(i);
        QCOMPARE(captions.join(u' '),
                 QStringLiteral("poultry meat seafood vegetarian pasta rice dairy vegetables sides salads soups"
                                " breads desserts favorites others"));
        QCOMPARE(dialog.combo->currentIndex(), 0);
        form.reject();
    });
    open_dialog(window, NamingKind::recipe);
}

void tst_naming_dialog::category_of_the_selected_recipe_is_proposed()
{
    TestWindow window;
    const Key broth = insert_recipe(window.db(), QStringLiteral("Broth"), QStringLiteral("11"));
    RecipeTree& recipes = window.load().recipe_tree();
    TreeView& tree = recipes.view();
    QTreeWidgetItem* soups = tree.node(QStringLiteral("rcat11"));
    QTreeWidgetItem* recipe = recipes.recipe_node(broth);
    const auto proposed = [&](QTreeWidgetItem* node, bool stock_view) {
        trigger(window, "mnu_view_rcp");
        tree.ensure_visible(node);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(node).center());
        if (stock_view)
            trigger(window, "mnu_view_stock");
        int index = -1;
        MessageScript script;
        script.drive([&index](QDialog& form) {
            index = Naming(form).combo->currentIndex();
            form.reject();
        });
        open_dialog(window, NamingKind::recipe);
        return index;
    };
    QCOMPARE(proposed(soups, false), 10);
    QCOMPARE(proposed(recipe, false), 10);
    QCOMPARE(proposed(recipe, true), 0);
}

void tst_naming_dialog::made_holds_the_key_and_the_record_is_complete()
{
    TestWindow window;
    window.load();
    MessageScript script;
    script.drive([](QDialog& form) {
        Naming dialog(form);
        dialog.type(QStringLiteral("  Camping  "));
        dialog.ok();
    });
    const Key key = open_dialog(window, NamingKind::list);
    QCOMPARE(int(key), 1);
    QCOMPARE(window.text("SELECT key_id || list_name || active || modified FROM list_name"),
             QStringLiteral("1Camping12026-03-14"));
}

void tst_naming_dialog::new_category_through_the_menu_gets_its_record_and_node()
{
    TestWindow window;
    window.add_category(QStringLiteral("Bakery"));
    frmmain& main = window.load();
    QAction& command = main.commands().action(QStringLiteral("mnu_tv_nc"));
    QVERIFY(command.isEnabled());
    MessageScript script;
    script.drive([](QDialog& form) {
        Naming dialog(form);
        QCOMPARE(form.parentWidget()->objectName(), QStringLiteral("frmmain"));
        dialog.type(QStringLiteral("Dairy"));
        dialog.ok();
    });
    command.trigger();
    QCOMPARE(window.text("SELECT cat_desc || expand FROM cat WHERE key_id = 2"), QStringLiteral("Dairy0"));
    const TreeView& tree = main.stock_tree().view();
    const QTreeWidgetItem* node = tree.node(QStringLiteral("cat0002"));
    QVERIFY(node);
    QCOMPARE(node->text(0), QStringLiteral("Dairy"));
    QCOMPARE(TreeView::picture(node), 1);
    QCOMPARE(TreeView::tag(node), QStringLiteral("1"));
    QCOMPARE(tree.selected(), node);
}

void tst_naming_dialog::new_category_in_the_alphabetic_view_is_written_without_a_node()
{
    TestWindow window;
    const Key milk = window.add_item(QStringLiteral("Milk"), 0);
    window.set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    frmmain& main = window.load();
    TreeView& tree = main.stock_tree().view();
    tree.select(main.stock_tree().item_node(milk));
    QAction& command = main.commands().action(QStringLiteral("mnu_edit_add_cat"));
    QVERIFY(command.isEnabled() && command.isVisible());
    MessageScript script;
    script.drive([](QDialog& form) {
        Naming dialog(form);
        dialog.type(QStringLiteral("Dairy"));
        dialog.ok();
        QVERIFY(!form.isVisible());
    });
    command.trigger();
    QCOMPARE(window.text("SELECT key_id || cat_desc || expand FROM cat WHERE key_id > 0"),
             QStringLiteral("1Dairy0"));
    QCOMPARE(tree.topLevelItemCount(), 1);
    QVERIFY(!tree.node(QStringLiteral("cat0001")));
    QCOMPARE(tree.selected(), main.stock_tree().item_node(milk));

    QAction& by_category = main.commands().action(QStringLiteral("mnu_view_sort_cat"));
    QVERIFY(by_category.isEnabled());
    by_category.trigger();
    QVERIFY(tree.node(QStringLiteral("cat0001")));
}

void tst_naming_dialog::category_name_that_differs_only_in_case_is_taken()
{
    TestWindow window;
    window.add_category(QStringLiteral("Bakery"));
    window.load();
    MessageScript script;
    script.drive([&](QDialog& form) {
        Naming dialog(form);
        dialog.type(QStringLiteral("bAKERY"));
        script.expect(QStringLiteral("Stock category"),
                      QStringLiteral("There is already a stock \ncategory named bAKERY"));
        dialog.ok();
        QVERIFY(form.isVisible());
        dialog.cancel();
    });
    QCOMPARE(int(open_dialog(window, NamingKind::category)), 0);
    QCOMPARE(window.number("SELECT count(*) FROM cat"), 2);
}

void tst_naming_dialog::category_name_is_no_pattern_in_the_duplicate_test()
{
    TestWindow window;
    window.add_category(QStringLiteral("Bakery"));
    window.add_category(QStringLiteral("50% off\\_"));
    for (const char* other : {"B%", "_akery", "_bakery", "Bak", "50% off%", "50% off\\x"})
        QVERIFY2(!category_name_taken(window.db(), QLatin1String(other)), other);
    for (const char* same : {"bakery", "BAKERY", "50% OFF\\_"})
        QVERIFY2(category_name_taken(window.db(), QLatin1String(same)), same);
}

void tst_naming_dialog::category_name_loses_its_apostrophes()
{
    TestWindow window;
    window.load();
    MessageScript script;
    script.drive([](QDialog& form) {
        Naming dialog(form);
        dialog.type(QStringLiteral("''"));
        dialog.ok();
        QVERIFY(form.isVisible()); // nothing would be left
        dialog.type(QStringLiteral("Baker's 'best"));
        dialog.ok();
    });
    open_dialog(window, NamingKind::category);
    QCOMPARE(window.text("SELECT cat_desc FROM cat WHERE key_id = 1"), QStringLiteral("Bakers best"));
}

void tst_naming_dialog::unusual_names_are_stored_as_typed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("10,000 characters") << QString(10000, u'x');
    QTest::newRow("emoji") << QStringLiteral("Käse \U0001F9C0 & Wurst");
    QTest::newRow("quotes and patterns") << QStringLiteral("100% \"fresh\"_; DROP TABLE cat");
    QTest::newRow("markup") << QStringLiteral("<b>bold</b>");
}

void tst_naming_dialog::unusual_names_are_stored_as_typed()
{
    QFETCH(QString, name);
    TestWindow window;
    window.load();
    for (const NamingKind kind : {NamingKind::list, NamingKind::category}) {
        MessageScript script;
        script.drive([&name](QDialog& form) {
            Naming dialog(form);
            dialog.text->setText(name);
            dialog.ok();
        });
        QVERIFY(open_dialog(window, kind) > 0);
    }
    QCOMPARE(window.text("SELECT list_name FROM list_name"), name);
    QCOMPARE(window.text("SELECT cat_desc FROM cat WHERE key_id = 1"), name);
}

void tst_naming_dialog::new_category_lands_in_name_order_and_other_stays_last()
{
    TestWindow window;
    window.add_category(QStringLiteral("bakery"));
    window.add_category(QStringLiteral("Snacks"));
    frmmain& main = window.load();
    for (const char* name : {"Zest", "Apples", "Meat"}) {
        MessageScript script;
        script.drive([name](QDialog& form) {
            Naming dialog(form);
            dialog.type(QString::fromLatin1(name));
            dialog.ok();
        });
        main.stock_commands().new_cat();
    }
    QStringList folders;
    const TreeView& tree = main.stock_tree().view();
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        folders += tree.topLevelItem(i)->text(0);
    QCOMPARE(folders.join(u' '), QStringLiteral("Apples bakery Meat Snacks Zest OTHER"));
}

QTEST_MAIN(tst_naming_dialog)
#include "tst_naming_dialog.moc"
