#include "recipes/line_fixture.h"

#include "household/household.h"
#include "household/status.h"
#include "household/status_names.h"
#include "recipes/line_widgets.h"

using namespace tarnwick;

namespace {

/// What the household announces about ingredient lines.
class Announced : public QObject {
public:
    explicit Announced(Household& household)
    {
        connect(&household, &Household::line_added, this, [this](Key recipe, const IngredientRow& line) {
            told.append(QStringLiteral("%1 added to %2").arg(line.item).arg(recipe));
        });
        connect(&household, &Household::line_changed, this, [this](const IngredientRow& line) {
            told.append(line.display_text() + QStringLiteral(" changed"));
        });
        connect(&household, &Household::line_gone, this,
                [this](Key line) { told.append(QStringLiteral("%1 gone").arg(line)); });
    }

    QStringList told;
};

class Lines : public LineWindow {
public:
    Lines()
        : milk(insert_stock_item(QStringLiteral("Milk")))
        , salt(add_line(recipe, QStringLiteral("Salt")))
        , oil(add_line(recipe, QStringLiteral("Oil")))
    {
        open();
    }

    Household& household() { return main().household(); }
    LineDraft draft_of(Key key) { return LineDraft::of(*read_line(db(), key)); }
    static LineDraft new_draft(Key of, const QString& item)
    {
        LineDraft draft = LineDraft::added(of, 2);
        draft.set_text(IngredientField::item, item);
        return draft;
    }

    Key milk;
    Key salt;
    Key oil;

private:
    Key insert_stock_item(const QString& name)
    {
        const Key key = get_node(db(), Table::items_1);
        Query(db(), "INSERT INTO items_1 (key_id, item, cat) VALUES (?, ?, 0)", key, name).run();
        return key;
    }
};

} // namespace

class tst_line_listener : public QObject {
    Q_OBJECT
private slots:
    void a_saved_line_is_announced_once_and_shown();
    void a_line_of_another_recipe_leaves_the_page_as_it_is();
    void a_changed_line_shows_text_link_light_and_tool_tip();
    void what_writes_nothing_announces_nothing();
    void a_box_that_is_left_is_announced_and_the_page_stands_still();
    void an_edit_that_is_given_up_is_announced_as_it_was();
    void a_removed_line_leaves_the_page_whoever_removes_it();
};

void tst_line_listener::a_saved_line_is_announced_once_and_shown()
{
    Lines w;
    const Announced announced(w.household());
    const auto stored = w.household().save_line(Lines::new_draft(w.recipe, QStringLiteral("Peas")));
    QVERIFY(stored);
    QCOMPARE(announced.told, QStringList(QStringLiteral("Peas added to %1").arg(w.recipe)));
    QCOMPARE(w.lines(), 3);
    QCOMPARE(w.ingred(2), QStringLiteral("Peas"));
    QCOMPARE(int(w.line(2).key), int(stored->key));
    QVERIFY(w.line(2).ingred->isVisible());
    QCOMPARE(w.line(2).ingred->toolTip(), QStringLiteral("Non-stock item"));
    QCOMPARE(w.page().state.cur_line, 2);
}

void tst_line_listener::a_line_of_another_recipe_leaves_the_page_as_it_is()
{
    Lines w;
    const Key other = w.add_recipe(QStringLiteral("Stew"), QStringLiteral("11"));
    const Key elsewhere = w.add_line(other, QStringLiteral("Leek"));
    QVERIFY(w.household().save_line(Lines::new_draft(other, QStringLiteral("Peas"))));
    LineDraft draft = w.draft_of(elsewhere);
    draft.set_text(IngredientField::qty, QStringLiteral("2"));
    QVERIFY(w.household().save_line(draft));
    w.household().remove_line(elsewhere);
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.ingred(0), QStringLiteral("Salt"));
    QCOMPARE(w.ingred(1), QStringLiteral("Oil"));
}

void tst_line_listener::a_changed_line_shows_text_link_light_and_tool_tip()
{
    Lines w;
    const Announced announced(w.household());
    LineDraft draft = w.draft_of(w.salt);
    draft.set_text(IngredientField::qty, QStringLiteral("2"));
    draft.choose({QStringLiteral("Milk"), w.milk});
    QVERIFY(w.household().save_line(draft));
    QCOMPARE(announced.told, QStringList(QStringLiteral("2 Milk changed")));
    QCOMPARE(w.ingred(0), QStringLiteral("2 Milk"));
    QCOMPARE(int(w.line(0).item_ref), int(w.milk));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(w.milk));
    QCOMPARE(w.line(0).lite->accessibleName(), status_name(lite_status(w.db(), w.milk)));
    QVERIFY(w.line(0).lite->accessibleName() != w.line(1).lite->accessibleName());
}

void tst_line_listener::what_writes_nothing_announces_nothing()
{
    Lines w;
    const Announced announced(w.household());
    QVERIFY(!w.household().save_line(Lines::new_draft(w.recipe + 1, QStringLiteral("Peas"))));
    LineDraft draft = w.draft_of(w.salt);
    const IngredientRow before = draft.stored;
    Query(w.db(), "DELETE FROM recipe_2 WHERE key_id = ?", w.salt).run();
    draft.set_text(IngredientField::qty, QStringLiteral("2"));
    QVERIFY(!w.household().save_line(draft));
    w.household().restore_line(before);
    QVERIFY2(announced.told.isEmpty(), qPrintable(announced.told.join(u'\n')));
    QCOMPARE(w.ingred(0), QStringLiteral("Salt"));
}

void tst_line_listener::a_box_that_is_left_is_announced_and_the_page_stands_still()
{
    Lines w;
    w.open_line(0);
    const Announced announced(w.household());
    const QRect second = w.line(1).ingred->geometry();
    LineWindow::type(w.qty(), QString(200, u'7') + u' ' + QString(200, u'7'));
    LineWindow::tab(w.qty());
    QCOMPARE(announced.told.size(), 1);
    QVERIFY(w.line(0).text.startsWith(QStringLiteral("777")));
    QCOMPARE(w.line(1).ingred->geometry(), second);
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(announced.told.size(), 1);
    QVERIFY(w.line(1).ingred->y() > second.y());
}

void tst_line_listener::an_edit_that_is_given_up_is_announced_as_it_was()
{
    Lines w;
    w.open_line(0);
    const Announced announced(w.household());
    LineWindow::type(w.qty(), QStringLiteral("2"));
    LineWindow::tab(w.qty());
    QTest::keyClick(&w.measure(), Qt::Key_Escape);
    QTest::keyClick(&w.measure(), Qt::Key_Escape);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(announced.told, (QStringList{QStringLiteral("2 Salt changed"), QStringLiteral("Salt changed")}));
    QCOMPARE(w.ingred(0), QStringLiteral("Salt"));
}

void tst_line_listener::a_removed_line_leaves_the_page_whoever_removes_it()
{
    Lines w;
    const Announced announced(w.household());
    w.open_line(1);
    w.household().remove_line(w.salt);
    QCOMPARE(announced.told, QStringList(QStringLiteral("%1 gone").arg(w.salt)));
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 1);
    QCOMPARE(w.ingred(0), QStringLiteral("Oil"));
}

QTEST_MAIN(tst_line_listener)
#include "tst_line_listener.moc"
