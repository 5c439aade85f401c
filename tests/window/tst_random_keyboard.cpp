#include "random/acts.h"
#include "random/random_run.h"

#include "recipes/line_fixture.h"

using namespace tarnwick;
using namespace tarnwick::random_use;

namespace {

constexpr int steps = 1200;
constexpr int few_steps = 300; ///< in a window that shows next to nothing

constexpr Act acts[] = {
    {"go_round", 20, go_round},
    {"go_aside", 6, go_aside},
    {"open_a_menu", 10, open_a_menu},
    {"type_a_letter", 15, type_a_letter},
    {"press_any_key", 50, press_any_key},
    {"type_text", 8, type_text},
    {"choose_command", 3, choose_command},
    {"scroll", 5, scroll},
    {"resize_window", 2, resize_window},
};

} // namespace

/// A user without a mouse: there is always somebody in sight who has the keyboard, and letters land there.
class tst_random_keyboard : public QObject {
    Q_OBJECT
private slots:
    void a_user_without_a_mouse_always_has_the_keyboard_data();
    void a_user_without_a_mouse_always_has_the_keyboard();
};

void tst_random_keyboard::a_user_without_a_mouse_always_has_the_keyboard_data()
{
    QTest::addColumn<bool>("filled");
    QTest::addColumn<bool>("list");
    QTest::addColumn<quint32>("seed");
    QTest::newRow("a list") << true << true << quint32(31);
    QTest::newRow("a recipe") << true << false << quint32(32);
    QTest::newRow("nothing, list side") << false << true << quint32(33);
    QTest::newRow("nothing, recipe side") << false << false << quint32(34);
}

void tst_random_keyboard::a_user_without_a_mouse_always_has_the_keyboard()
{
    QFETCH(bool, filled);
    QFETCH(bool, list);
    QFETCH(quint32, seed);
    RecipeWindow window;
    window.set_pref(QStringLiteral("lv_view"), list ? QStringLiteral("1") : QStringLiteral("0"));
    window.set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    if (filled) {
        const Key dairy = window.add_category(QStringLiteral("Dairy"), true);
        const Key weekly = window.add_list(QStringLiteral("Weekly"));
        window.add_list(QStringLiteral("Party"));
        const Key soup = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
        window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
        for (int i = 0; i < 40; ++i) {
            const Key item = window.add_item(QStringLiteral("Item %1").arg(i), dairy, 7);
            window.add_row(item, weekly, true);
            window.add_line(soup, QStringLiteral("Item %1").arg(i), item);
        }
        window.set_pref(QStringLiteral("alist"), QString::number(weekly));
        window.set_pref(QStringLiteral("arcp"), QString::number(soup));
        for (const char* group : {"cpn", "aisle"})
            window.set_pref(QLatin1String(group), QStringLiteral("1"));
    } else {
        window.set_pref(QStringLiteral("arcp"), QStringLiteral("-1"));
    }
    window.load();
    run(window, acts, seed, filled ? steps : few_steps);
}

QTEST_MAIN(tst_random_keyboard)
#include "tst_random_keyboard.moc"
