#include "data/query.h"
#include "household/category_store.h"
#include "household/line_draft.h"
#include "household/item_store.h"
#include "household/lists_store.h"
#include "household/recipe_store.h"
#include "household/row_store.h"
#include "lists/list_menu.h"
#include "stock/item_editor_fixture.h"
#include "widgets/one_line_box.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace tarnwick;

namespace {

const QString pasted = QStringLiteral("\ufeffOat\r\nmilk\tof%1the\nmill").arg(QChar(0x1b));
const QString kept = QStringLiteral("Oat milk of the mill");

void paste_into(QLineEdit& box)
{
    box.setFocus();
    box.selectAll();
    QGuiApplication::clipboard()->setText(pasted);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
}

void paste_name(QDialog& form)
{
    paste_into(*form.findChild<QLineEdit*>(QStringLiteral("Text1")));
    QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
}

} // namespace

/// Names and other one-line texts, however they get in.
class tst_one_line_box : public QObject {
    Q_OBJECT
private slots:
    void a_box_cleans_what_is_pasted_and_keeps_the_caret_behind_it();
    void names_pasted_into_the_naming_dialog_are_one_line_data();
    void names_pasted_into_the_naming_dialog_are_one_line();
    void a_name_pasted_into_the_rename_box_of_a_list_is_one_line();
    void a_name_pasted_into_the_item_editor_is_one_line();
    void a_name_pasted_into_a_label_of_the_stock_tree_is_one_line_data();
    void a_name_pasted_into_a_label_of_the_stock_tree_is_one_line();
    void every_operation_that_writes_a_one_line_text_cleans_it();
};

void tst_one_line_box::a_box_cleans_what_is_pasted_and_keeps_the_caret_behind_it()
{
    QLineEdit box;
    keep_one_line(box);
    box.setText(QStringLiteral("ab"));
    box.setCursorPosition(1);
    QGuiApplication::clipboard()->setText(QStringLiteral("1\r\n2"));
    box.paste();
    QCOMPARE(box.text(), QStringLiteral("a1 2b"));
    QCOMPARE(box.cursorPosition(), 4);
    box.setText(pasted);
    QCOMPARE(box.text(), kept);
}

void tst_one_line_box::names_pasted_into_the_naming_dialog_are_one_line_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("sql");
    QTest::newRow("list") << QByteArray("mnu_list_new") << QByteArray("SELECT list_name FROM list_name");
    QTest::newRow("recipe") << QByteArray("mnu_recipe_new") << QByteArray("SELECT r_name FROM recipe_1");
    QTest::newRow("category") << QByteArray("mnu_tv_nc") << QByteArray("SELECT cat_desc FROM cat WHERE key_id > 0");
}

void tst_one_line_box::names_pasted_into_the_naming_dialog_are_one_line()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, sql);
    TestWindow window;
    window.load();
    {
        MessageScript script;
        script.drive(paste_name);
        trigger(window, command.constData());
    }
    QCOMPARE(window.text(sql.constData()), kept);
}

void tst_one_line_box::a_name_pasted_into_the_rename_box_of_a_list_is_one_line()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QString::number(weekly));
    window.load();
    {
        MessageScript script;
        script.drive([](QDialog& form) {
            auto* edit = form.findChild<QLineEdit*>();
            paste_into(*edit);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        trigger(window, "mnu_list_RenameList");
    }
    QCOMPARE(window.text("SELECT list_name FROM list_name"), kept);
}

void tst_one_line_box::a_name_pasted_into_the_item_editor_is_one_line()
{
    EditorCase c;
    c.add_lists();
    c.window.load();
    c.open(int(EditMode::edit_item), c.milk, [](EditorHands& hands) {
        paste_into(hands.name());
        QCOMPARE(hands.name().text(), kept);
        hands.press_ok();
    });
    QCOMPARE(c.window.text("SELECT item FROM items_1 WHERE key_id = 1"), kept);
}

void tst_one_line_box::a_name_pasted_into_a_label_of_the_stock_tree_is_one_line_data()
{
    QTest::addColumn<bool>("category");
    QTest::newRow("item") << false;
    QTest::newRow("category") << true;
}

void tst_one_line_box::a_name_pasted_into_a_label_of_the_stock_tree_is_one_line()
{
    QFETCH(bool, category);
    TestWindow window;
    const Key dairy = window.add_category(QStringLiteral("Dairy"), true);
    const Key milk = window.add_item(QStringLiteral("Milk"), dairy);
    window.set_pref(QStringLiteral("sort"), QStringLiteral("cat"));
    TreeView& tree = window.load().stock_tree().view();
    QTreeWidgetItem* node
        = tree.node(category ? QStringLiteral("cat") + key_str(dairy) : QStringLiteral("item") + key_str(milk));
    QVERIFY(node);
    QString handed_over;
    connect(&tree, &TreeView::after_label_edit, this,
            [&handed_over](QTreeWidgetItem*, const QString& text) { handed_over = text; });
    tree.setFocus();
    tree.select(node);
    QTest::keyClick(&tree, Qt::Key_F2);
    auto* label = tree.findChild<QLineEdit*>(QStringLiteral("label_edit"));
    QVERIFY(label);
    paste_into(*label);
    QCOMPARE(label->text(), kept);
    QTest::keyClick(label, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(handed_over, kept);
}

void tst_one_line_box::every_operation_that_writes_a_one_line_text_cleans_it()
{
    TestWindow window;
    Connection& db = window.db();
    ItemStore items(db);
    const auto check = [&window](const char* sql) { QVERIFY2(window.text(sql) == kept, sql); };

    const Key list = insert_list(db, pasted, window.date);
    check("SELECT list_name FROM list_name");
    rename_list_record(db, list, QStringLiteral("Weekly"));
    rename_list_record(db, list, pasted);
    check("SELECT list_name FROM list_name");
    insert_category(db, pasted);
    check("SELECT cat_desc FROM cat WHERE key_id > 0");

    const Key item = items.add_item(pasted, 0, window.date);
    check("SELECT item FROM items_1");
    items.rename_item(item, QStringLiteral("Milk"), window.date);
    const Key row = window.add_row(item, list, true);
    items.rename_item(item, pasted, window.date);
    check("SELECT item FROM items_1");
    check("SELECT item FROM groc_1");
    for (const RowField field : {RowField::desc, RowField::qty, RowField::aisle})
        QVERIFY(write_row_field(db, row, field, pasted));
    for (const char* sql : {"SELECT desc FROM groc_1", "SELECT qty FROM groc_1", "SELECT aisle FROM groc_1"})
        check(sql);

    const Key recipe = insert_recipe(db, pasted, QStringLiteral("01"));
    check("SELECT r_name FROM recipe_1");
    QVERIFY(save_recipe(db, recipe, QStringLiteral("Soup"), QStringLiteral("Stir.")));
    QVERIFY(save_recipe(db, recipe, pasted, QStringLiteral("Stir.\nServe.")));
    check("SELECT r_name FROM recipe_1");
    QCOMPARE(window.text("SELECT r_body FROM recipe_1"), QStringLiteral("Stir.\r\nServe."));
    const auto line = insert_line(db, recipe, {-1, -1, pasted, QStringLiteral("a\nb"), pasted, pasted}, 0);
    QVERIFY(line);
    const char* lines = "SELECT qty || measure || item || comment FROM recipe_2";
    QCOMPARE(window.text(lines), kept + QStringLiteral("a b") + kept + kept);
    LineDraft draft = LineDraft::of(*line);
    draft.edited = {line->key, item, QStringLiteral("1 2"), QStringLiteral("cup"), QStringLiteral("x"), QString()};
    draft.set_text(IngredientField::item, pasted, item);
    draft.set_text(IngredientField::comment, pasted);
    QVERIFY(save_line(db, draft));
    QCOMPARE(window.text(lines), QStringLiteral("1 2cup") + kept + kept);
}

QTEST_MAIN(tst_one_line_box)
#include "tst_one_line_box.moc"
