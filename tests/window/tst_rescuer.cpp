#include "household/rescue.h"
#include "recipes/line_fixture.h"
#include "window/rescuer.h"

using namespace tarnwick;

/// What of the page would be rescued at any moment while a user types.
class tst_rescuer : public QObject {
    Q_OBJECT
private slots:
    void a_box_of_a_line_that_is_not_left_yet_is_rescued();
    void a_nameless_new_line_is_rescued();
    void nothing_typed_is_no_rescue_data();
    void nothing_typed_is_no_rescue();
};

namespace {

std::optional<Rescue> rescued(LineWindow& window)
{
    rescue_typed(window.main().recipe_page(), window.main().list_pane(), window.database());
    const QStringList files = rescue_files(window.database());
    return files.isEmpty() ? std::nullopt : read_rescue(files.first());
}

} // namespace

void tst_rescuer::a_box_of_a_line_that_is_not_left_yet_is_rescued()
{
    LineWindow window;
    const Key key = window.add_line(window.recipe, QStringLiteral("Salt"));
    window.open();
    window.open_line(0);
    QTest::keyClicks(&window.qty(), QStringLiteral("8"));
    QCOMPARE(window.stored(key, "qty"), QStringLiteral(" "));
    const auto rescue = rescued(window);
    QVERIFY(rescue && rescue->line);
    QVERIFY(!rescue->typed && !rescue->field);
    QCOMPARE(rescue->recipe, window.recipe);
    QCOMPARE(rescue->line->before.key, key);
    QCOMPARE(rescue->line->before.display_text(), QStringLiteral("Salt"));
    QCOMPARE(rescue->line->typed.display_text(), QStringLiteral("8 Salt"));
    QVERIFY(put_back(window.db(), *rescue));
    QCOMPARE(window.stored(key, "qty"), QStringLiteral("8"));
}

void tst_rescuer::a_nameless_new_line_is_rescued()
{
    LineWindow window;
    window.open();
    window.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::keyClicks(&window.qty(), QStringLiteral("2"));
    const auto rescue = rescued(window);
    QVERIFY(rescue && rescue->line);
    QCOMPARE(rescue->line->typed.qty, QStringLiteral("2"));
    QVERIFY(put_back(window.db(), *rescue));
    QCOMPARE(window.number("SELECT count(*) FROM recipe_2 WHERE qty = '2'"), 1);
}

void tst_rescuer::nothing_typed_is_no_rescue_data()
{
    QTest::addColumn<int>("open");
    QTest::newRow("no line open") << 0;
    QTest::newRow("an untouched line open") << 1;
    QTest::newRow("an untouched new line open") << 2;
}

void tst_rescuer::nothing_typed_is_no_rescue()
{
    QFETCH(int, open);
    LineWindow window;
    window.add_line(window.recipe, QStringLiteral("Salt"));
    window.open();
    if (open == 1)
        window.open_line(0);
    else if (open == 2)
        window.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QCOMPARE(window.editor().is_open(), open > 0);
    rescue_typed(window.main().recipe_page(), window.main().list_pane(), window.database());
    QVERIFY(rescue_files(window.database()).isEmpty());
}

QTEST_MAIN(tst_rescuer)
#include "tst_rescuer.moc"
