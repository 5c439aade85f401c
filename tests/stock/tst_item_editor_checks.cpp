#include "stock/item_editor_fixture.h"

#include <QAbstractItemView>
#include <QMessageBox>

using namespace tarnwick;

namespace {

const QString no_apostrophe = QStringLiteral("Sorry - you can't put an apostrophe\nin the item name");
const QString duplicate_title = QStringLiteral("Duplicate stock item name");

QString duplicate_text(const QString& name)
{
    return QStringLiteral("Stock item ") + name
        + QStringLiteral(" already exists -\nYou can't create two stock\nitems with the same name");
}

QString other_question(const QString& name)
{
    return QStringLiteral("Are you sure you want to place\n") + name + QStringLiteral(" in the 'OTHER' category?");
}

} // namespace

/// The checks and questions of the dialog, its keys, and what CANCEL leaves alone.
class tst_item_editor_checks : public QObject {
    Q_OBJECT
private slots:
    void duplicate_differing_in_case_is_refused_for_a_new_item();
    void duplicate_on_renaming_goes_back_to_the_old_name();
    void duplicate_in_mode_5_adds_the_tip();
    void own_name_in_other_case_is_no_duplicate();
    void percent_sign_is_a_pattern_in_the_name_check();
    void apostrophe_is_refused_when_the_name_loses_the_focus();
    void apostrophe_is_refused_by_ok();
    void old_name_with_an_apostrophe_may_stay();
    void unchanged_name_is_not_checked();
    void blank_rename_goes_back_to_the_old_name();
    void empty_or_blank_new_name_asks_for_one();
    void other_needs_one_confirmation_and_no_drops_the_list_down();
    void cancel_writes_nothing();
    void escape_and_close_box_cancel_without_the_name_check();
    void enter_is_ok();
    void enter_in_a_floating_editor_only_closes_it();
    void tab_goes_name_category_new_grid_ok_cancel();
    void new_category_button_makes_and_selects_one();
    void name_is_checked_on_the_way_to_the_new_category_button();
    void new_category_button_is_pressed_by_its_keys();
};

void tst_item_editor_checks::duplicate_differing_in_case_is_refused_for_a_new_item()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("  mILK "));
        hands.messages.expect(
            duplicate_title, duplicate_text(QStringLiteral("mILK")), Answer::ok,
            [](QDialog& box) { QCOMPARE(static_cast<QMessageBox&>(box).icon(), QMessageBox::Information); });
        hands.leave_name();
        QCOMPARE(hands.messages.left(), 0);
        QCOMPARE(hands.name().text(), QString());
    });
    test.open(0, -1, [&](EditorHands& hands) {
        hands.choose_category(QStringLiteral("Dairy"));
        hands.type_name(QStringLiteral("milk"));
        hands.messages.expect(duplicate_title, duplicate_text(QStringLiteral("milk")));
        hands.press_ok();
        QCOMPARE(hands.messages.left(), 0);
        QVERIFY(hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT count(*) FROM items_1"), 2);
}

void tst_item_editor_checks::duplicate_on_renaming_goes_back_to_the_old_name()
{
    EditorCase test;
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("BREAD"));
        hands.messages.expect(duplicate_title, duplicate_text(QStringLiteral("BREAD")));
        hands.leave_name();
        QCOMPARE(hands.name().text(), QStringLiteral("Milk"));
        hands.type_name(QStringLiteral("bread"));
        hands.messages.expect(duplicate_title, duplicate_text(QStringLiteral("bread")));
        hands.press_ok();
        QVERIFY(hands.dialog.isVisible());
        QCOMPARE(hands.name().text(), QStringLiteral("Milk"));
    });
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Milk"));
}

void tst_item_editor_checks::duplicate_in_mode_5_adds_the_tip()
{
    EditorCase test;
    const Key line = test.add_line(QStringLiteral("Salt"), -1);
    test.window.load();
    test.open(
        5, -1,
        [&](EditorHands& hands) {
            hands.type_name(QStringLiteral("Milk"));
            hands.messages.expect(duplicate_title,
                                  duplicate_text(QStringLiteral("Milk"))
                                      + QStringLiteral("\nTIP: To change the name of an\n       ingredient to "
                                                       "'Milk' hit CANCEL\n       then edit the ingredient "
                                                       "directly."));
            hands.leave_name();
            QCOMPARE(hands.name().text(), QString());
        },
        line);
}

void tst_item_editor_checks::own_name_in_other_case_is_no_duplicate()
{
    EditorCase test;
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("MILK"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("MILK"));
}

void tst_item_editor_checks::percent_sign_is_a_pattern_in_the_name_check()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Mi%"));
        hands.messages.expect(duplicate_title, duplicate_text(QStringLiteral("Mi%")));
        hands.leave_name();
        QCOMPARE(hands.messages.left(), 0);
    });
}

void tst_item_editor_checks::apostrophe_is_refused_when_the_name_loses_the_focus()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Ben's"));
        hands.messages.expect(QStringLiteral("Valora info"), no_apostrophe);
        hands.leave_name();
        QCOMPARE(hands.messages.left(), 0);
        QTRY_COMPARE(hands.dialog.focusWidget(), &hands.name());
    });
}

void tst_item_editor_checks::apostrophe_is_refused_by_ok()
{
    EditorCase test;
    test.window.load();
    for (const int mode : {0, 2}) {
        test.open(mode, mode == 0 ? Key(-1) : test.milk, [&](EditorHands& hands) {
            hands.type_name(QStringLiteral("Ben's"));
            hands.messages.expect(QStringLiteral("Valora info"), no_apostrophe);
            QTest::keyClick(&hands.name(), Qt::Key_Return);
            QCOMPARE(hands.messages.left(), 0);
            QVERIFY(hands.dialog.isVisible());
        });
    }
    QCOMPARE(test.count("SELECT count(*) FROM items_1 WHERE item LIKE 'Ben%'"), 0);
}

void tst_item_editor_checks::old_name_with_an_apostrophe_may_stay()
{
    EditorCase test;
    const Key item = test.window.add_item(QStringLiteral("Ben's"), test.dairy);
    test.window.load();
    test.open(2, item, [&](EditorHands& hands) {
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT cat FROM items_1 WHERE item = 'Ben''s'"), int(test.bakery));
}

void tst_item_editor_checks::unchanged_name_is_not_checked()
{
    EditorCase test;
    test.window.add_item(QStringLiteral("milk"), test.bakery); // the tree lets duplicates through
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.name().setFocus();
        hands.leave_name();
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
}

void tst_item_editor_checks::blank_rename_goes_back_to_the_old_name()
{
    EditorCase test;
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("   "));
        hands.leave_name();
        QCOMPARE(hands.name().text(), QStringLiteral("Milk"));
        hands.type_name(QStringLiteral(" "));
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Milk"));
}

void tst_item_editor_checks::empty_or_blank_new_name_asks_for_one()
{
    EditorCase test;
    test.window.load();
    for (const char* typed : {"", "    "}) {
        test.open(0, -1, [&](EditorHands& hands) {
            hands.type_name(QLatin1String(typed));
            hands.messages.expect(QStringLiteral("Please provide item"),
                                  QStringLiteral("Please provide a name for your new stock item\n"
                                                 "- fill in the 'item' box or choose 'CANCEL'"));
            hands.press_ok();
            QCOMPARE(hands.messages.left(), 0);
            QVERIFY(hands.dialog.isVisible());
        });
    }
    QCOMPARE(test.count("SELECT count(*) FROM items_1"), 2);
}

void tst_item_editor_checks::other_needs_one_confirmation_and_no_drops_the_list_down()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.messages.expect(QStringLiteral("Stock category"), other_question(QStringLiteral("Soap")), Answer::no,
                              [](QDialog& box) {
                                  const auto& message = static_cast<QMessageBox&>(box);
                                  QCOMPARE(message.icon(), QMessageBox::Question);
                                  QVERIFY(message.standardButtons() == (QMessageBox::Yes | QMessageBox::No));
                                  QCOMPARE(message.defaultButton(), message.button(QMessageBox::Yes));
                              });
        hands.press_ok();
        QVERIFY(hands.dialog.isVisible());
        QVERIFY(hands.category().view()->isVisible());
        hands.category().hidePopup();
        QCOMPARE(test.count("SELECT count(*) FROM items_1"), 2);
        hands.messages.expect(QStringLiteral("Stock category"), other_question(QStringLiteral("Soap")),
                              Answer::yes);
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT cat FROM items_1 WHERE item = 'Soap'"), 0);
}

void tst_item_editor_checks::cancel_writes_nothing()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true, QStringLiteral("cold"));
    const Key line = test.add_line(QStringLiteral("Milk"), test.milk);
    test.window.load();
    const int changes = test.count("SELECT sum(status) FROM items_1");
    const int version = test.count("PRAGMA data_version");
    test.open(
        2, test.milk,
        [&](EditorHands& hands) {
            hands.type_name(QStringLiteral("Cream"));
            hands.choose_category(QStringLiteral("Bakery"));
            hands.click_cell(0, GridColumn::check);
            hands.type_cell(0, "desc_brdr", QStringLiteral("warm"));
            hands.click_cell(1, GridColumn::light);
            hands.press_cancel();
            QVERIFY(!hands.dialog.isVisible());
        },
        line);
    QCOMPARE(test.count("PRAGMA data_version"), version);
    QCOMPARE(test.count("SELECT sum(status) FROM items_1"), changes);
}

void tst_item_editor_checks::escape_and_close_box_cancel_without_the_name_check()
{
    EditorCase test;
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Bread"));
        QTest::keyClick(&hands.name(), Qt::Key_Escape);
        QVERIFY(!hands.dialog.isVisible());
    });
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Bread"));
        hands.dialog.close();
        QVERIFY(!hands.dialog.isVisible());
    });
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Bread's"));
        hands.press_cancel();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Milk"));
}

void tst_item_editor_checks::enter_is_ok()
{
    EditorCase test;
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Cream"));
        QTest::keyClick(&hands.name(), Qt::Key_Return);
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Cream"));
}

void tst_item_editor_checks::enter_in_a_floating_editor_only_closes_it()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_cell(1, "desc_brdr", QStringLiteral("cold"));
        QVERIFY(hands.dialog.isVisible());
        QCOMPARE(hands.row(1).desc, QStringLiteral("cold"));
    });
}

void tst_item_editor_checks::tab_goes_name_category_new_grid_ok_cancel()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.name().setFocus();
        QStringList order;
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(order,
                 QStringList({QStringLiteral("Combo1"), QStringLiteral("CmdNewCat"), QStringLiteral("Listview1"),
                              QStringLiteral("Command1(0)"), QStringLiteral("Command1(1)"),
                              QStringLiteral("txt_item")}));
    });
}

void tst_item_editor_checks::new_category_button_makes_and_selects_one()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.messages.drive([](QDialog& dialog) {
            QCOMPARE(dialog.objectName(), QStringLiteral("new_item_rcp"));
            QCOMPARE(dialog.windowTitle(), QStringLiteral("New stock category"));
            QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("Text1")), QStringLiteral("Household"));
            QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
        });
        QTest::mouseClick(hands.dialog.findChild<QPushButton*>(QStringLiteral("CmdNewCat")), Qt::LeftButton);
        QCOMPARE(hands.messages.left(), 0);
        QCOMPARE(hands.category().currentText(), QStringLiteral("Household"));
        hands.messages.drive([](QDialog& dialog) { dialog.reject(); });
        QTest::mouseClick(hands.dialog.findChild<QPushButton*>(QStringLiteral("CmdNewCat")), Qt::LeftButton);
        QCOMPARE(hands.category().currentText(), QStringLiteral("Household"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.window.text("SELECT c.cat_desc FROM cat c, items_1 i WHERE i.cat = c.key_id AND i.item = 'Soap'"),
             QStringLiteral("Household"));
}

void tst_item_editor_checks::name_is_checked_on_the_way_to_the_new_category_button()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        auto* button = hands.dialog.findChild<QPushButton*>(QStringLiteral("CmdNewCat"));
        hands.type_name(QStringLiteral("Milk"));
        hands.messages.expect(duplicate_title, duplicate_text(QStringLiteral("Milk")));
        QTest::mousePress(button, Qt::LeftButton); // the message takes the release
        QCOMPARE(hands.messages.left(), 0);
        QCOMPARE(hands.name().text(), QString());
        QTRY_VERIFY(!button->isDown());
        for (const bool by_key : {false, true}) {
            hands.dialog.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &hands.dialog);
            hands.type_name(QStringLiteral("Ben's"));
            hands.messages.expect(QStringLiteral("Valora info"), no_apostrophe);
            if (by_key)
                QTest::keyClick(&hands.name(), Qt::Key_N, Qt::AltModifier);
            else
                QTest::mousePress(button, Qt::LeftButton);
            QTRY_COMPARE(hands.messages.left(), 0);
            QTRY_COMPARE(hands.dialog.focusWidget(), &hands.name());
        }
    });
}

void tst_item_editor_checks::new_category_button_is_pressed_by_its_keys()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        const auto cancel_naming = [](QDialog& dialog) {
            QCOMPARE(dialog.objectName(), QStringLiteral("new_item_rcp"));
            dialog.reject();
        };
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_N}) {
            hands.dialog.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &hands.dialog);
            hands.type_name(QStringLiteral("Soap"));
            hands.messages.drive(cancel_naming);
            if (key == Qt::Key_N) {
                QTest::keyClick(&hands.name(), key, Qt::AltModifier);
            } else {
                hands.leave_name();
                QTest::keyClick(&hands.category(), Qt::Key_Tab);
                QCOMPARE(hands.dialog.focusWidget()->objectName(), QStringLiteral("CmdNewCat"));
                QTest::keyClick(hands.dialog.focusWidget(), key);
            }
            QTRY_COMPARE(hands.messages.left(), 0);
            QVERIFY(hands.dialog.isVisible());
            QCOMPARE(hands.name().text(), QStringLiteral("Soap"));
        }
    });
    QCOMPARE(test.count("SELECT count(*) FROM items_1"), 2);
}

QTEST_MAIN(tst_item_editor_checks)
#include "tst_item_editor_checks.moc"
