#include "household/line_draft.h"

#include <QTest>

using namespace tarnwick;

/// What a draft makes of the names that a line gets.
class tst_line_draft : public QObject {
    Q_OBJECT
private slots:
    void a_name_stands_for_its_match_and_else_for_nothing();
    void the_opened_name_keeps_its_link_whatever_it_matches();
    void a_settled_name_keeps_its_link_until_another_is_settled();
    void a_placed_item_keeps_its_line_under_any_name_but_another_items();
    void a_missing_name_changes_nothing();
    void a_line_that_has_gone_has_nothing_left_to_store();

private:
    static LineDraft milk()
    {
        IngredientRow row;
        row.key = 5;
        row.item = QStringLiteral("Milk");
        row.item_ref = 3;
        row.qty = QStringLiteral("2");
        return LineDraft::of(row);
    }
    static void name(LineDraft& draft, const char* text, Key match = 0)
    {
        draft.set_text(IngredientField::item, QString::fromLatin1(text), match);
    }
};

void tst_line_draft::a_name_stands_for_its_match_and_else_for_nothing()
{
    LineDraft draft = milk();
    QVERIFY(!draft.is_changed());
    name(draft, " Oats ", 8);
    QCOMPARE(draft.edited.item, QStringLiteral("Oats"));
    QCOMPARE(draft.edited.item_ref, Key(8));
    QVERIFY(draft.has_new_name());
    name(draft, "Oatss");
    QCOMPARE(draft.edited.item_ref, Key(-1));
    QVERIFY(draft.is_changed());
}

void tst_line_draft::the_opened_name_keeps_its_link_whatever_it_matches()
{
    LineDraft draft = milk();
    name(draft, "Milky");
    draft.settle();
    draft.stored_as(draft.edited);
    name(draft, "Milk", 9);
    QCOMPARE(draft.edited.item_ref, Key(3));
    QVERIFY(draft.has_new_name());
    name(draft, "milk", 9);
    QCOMPARE(draft.edited.item_ref, Key(9));
}

void tst_line_draft::a_settled_name_keeps_its_link_until_another_is_settled()
{
    LineDraft draft = milk();
    draft.choose({QStringLiteral("Apples"), 7});
    name(draft, "Apple");
    name(draft, "Apples", 9);
    QCOMPARE(draft.edited.item_ref, Key(7));
    name(draft, "Pears", 4);
    draft.settle();
    name(draft, "Apples", 9);
    QCOMPARE(draft.edited.item_ref, Key(9));
    draft.restore_name();
    QCOMPARE(draft.edited.item, QStringLiteral("Pears"));
    QCOMPARE(draft.edited.item_ref, Key(4));
}

void tst_line_draft::a_placed_item_keeps_its_line_under_any_name_but_another_items()
{
    LineDraft draft = LineDraft::added_item(2, 0, {QStringLiteral("Milk"), 3});
    QVERIFY(draft.is_new());
    name(draft, "Whole milk");
    QCOMPARE(draft.edited.item_ref, Key(3));
    name(draft, "Oats", 8);
    QCOMPARE(draft.edited.item_ref, Key(8));
    name(draft, "");
    QCOMPARE(draft.edited.item_ref, Key(3));
}

void tst_line_draft::a_missing_name_changes_nothing()
{
    LineDraft draft = milk();
    name(draft, "  ");
    QVERIFY(!draft.is_changed());
    draft.set_text(IngredientField::qty, QStringLiteral("3"));
    QVERIFY(draft.is_changed());
    IngredientRow stored = draft.stored;
    stored.qty = QStringLiteral("3");
    draft.stored_as(stored);
    QVERIFY(!draft.is_changed());
    QVERIFY(draft.edited.item.isEmpty());
    draft.restore_name();
    QCOMPARE(draft.edited.item, QStringLiteral("Milk"));
    QCOMPARE(draft.edited.item_ref, Key(3));
}

void tst_line_draft::a_line_that_has_gone_has_nothing_left_to_store()
{
    LineDraft draft = milk();
    name(draft, "Oats");
    draft.stored_as(std::nullopt);
    QVERIFY(!draft.is_changed());
    QVERIFY(!draft.is_new());
}

QTEST_GUILESS_MAIN(tst_line_draft)
#include "tst_line_draft.moc"
