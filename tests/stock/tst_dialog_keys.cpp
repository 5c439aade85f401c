#include "window/move_window.h"
#include "dialogs/new_item_rcp.h"
#include "recipes/recipe_tree.h"
#include "stock/item_editor_fixture.h"
#include "support/table_dump.h"

using namespace tarnwick;

namespace {

/// Goes by the Tab key until a control has the focus.
void tab_to(QDialog& dialog, const QString& name)
{
    constexpr int most = 12;
    for (int i = 0; i < most && dialog.focusWidget()->objectName() != name; ++i)
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QCOMPARE(dialog.focusWidget()->objectName(), name);
}

void press_enter(QDialog& dialog, const QString& name)
{
    tab_to(dialog, name);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
}

QPushButton& button(QDialog& dialog, int index)
{
    return *dialog.findChild<QPushButton*>(QStringLiteral("Command1(%1)").arg(index));
}

} // namespace

/// Enter and Tab on the buttons of the dialogs.
class tst_dialog_keys : public QObject {
    Q_OBJECT
private slots:
    void enter_on_cancel_writes_nothing_in_the_item_editor();
    void enter_elsewhere_in_the_item_editor_is_ok();
    void enter_on_cancel_makes_nothing_in_the_naming_dialog_data();
    void enter_on_cancel_makes_nothing_in_the_naming_dialog();
    void enter_on_cancel_moves_nothing();
};

void tst_dialog_keys::enter_on_cancel_writes_nothing_in_the_item_editor()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    test.window.load();
    const QStringList before = table_dump(test.window.db());
    for (const int mode : {0, 2}) {
        test.open(mode, mode == 0 ? Key(-1) : test.milk, [&](EditorHands& hands) {
            hands.choose_category(QStringLiteral("Bakery"));
            hands.click_cell(1, GridColumn::light);
            hands.type_name(QStringLiteral("Cream"));
            press_enter(hands.dialog, QStringLiteral("Command1(1)"));
            QVERIFY(!hands.dialog.isVisible());
            QCOMPARE(hands.dialog.result(), int(QDialog::Rejected));
        });
        QCOMPARE(table_dump(test.window.db()), before);
    }
}

void tst_dialog_keys::enter_elsewhere_in_the_item_editor_is_ok()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    for (const char* control : {"txt_item", "Listview1", "Command1(0)"}) {
        test.open(2, test.milk, [&](EditorHands& hands) {
            tab_to(hands.dialog, QStringLiteral("Command1(1)"));
            QVERIFY(hands.cancel().isDefault());
            tab_to(hands.dialog, QLatin1String(control));
            QVERIFY(hands.ok().isDefault());
            QTest::keyClick(hands.dialog.focusWidget(), Qt::Key_Return);
            QVERIFY(!hands.dialog.isVisible());
            QCOMPARE(hands.dialog.result(), int(QDialog::Accepted));
        });
    }
}

void tst_dialog_keys::enter_on_cancel_makes_nothing_in_the_naming_dialog_data()
{
    QTest::addColumn<NamingKind>("kind");
    QTest::newRow("list") << NamingKind::list;
    QTest::newRow("recipe") << NamingKind::recipe;
    QTest::newRow("category") << NamingKind::category;
}

void tst_dialog_keys::enter_on_cancel_makes_nothing_in_the_naming_dialog()
{
    QFETCH(NamingKind, kind);
    EditorCase test;
    frmmain& main = test.window.load();
    const QStringList before = table_dump(test.window.db());
    MessageScript messages;
    messages.drive([&](QDialog& dialog) {
        dialog.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &dialog);
        QTest::keyClicks(dialog.focusWidget(), QStringLiteral("Garden"));
        QVERIFY(button(dialog, 0).isEnabled());
        press_enter(dialog, QStringLiteral("Command1(1)"));
        QVERIFY(!dialog.isVisible());
    });
    new_item_rcp dialog(main.program(), &main, {kind});
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(messages.left(), 0);
    QCOMPARE(table_dump(test.window.db()), before);
}

void tst_dialog_keys::enter_on_cancel_moves_nothing()
{
    EditorCase test;
    Query(test.window.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Pie', ' ', '09')")
        .run();
    frmmain& main = test.window.load();
    const QStringList before = table_dump(test.window.db());
    QTreeWidgetItem* node = main.recipe_tree().view().node(QStringLiteral("rcp0001"));
    QVERIFY(node);
    main.recipe_tree().view().select(node);
    MessageScript messages;
    messages.drive([&](QDialog& dialog) {
        dialog.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &dialog);
        tab_to(dialog, QStringLiteral("Combo1"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        QVERIFY(button(dialog, 0).isEnabled());
        press_enter(dialog, QStringLiteral("Command1(1)"));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    });
    show_move_item(main.program(), main.panes(), false);
    QCOMPARE(messages.left(), 0);
    QCOMPARE(table_dump(test.window.db()), before);
}

QTEST_MAIN(tst_dialog_keys)
#include "tst_dialog_keys.moc"
