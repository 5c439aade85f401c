#include "random/acts.h"
#include "random/random_run.h"

#include "recipes/recipe_fixture.h"

using namespace tarnwick;
using namespace tarnwick::random_use;

namespace {

constexpr quint32 seed = 20260315;
constexpr int enough_to_scroll = 30; ///< items, though the user deletes some of them
constexpr int steps = 1200;

constexpr Act acts[] = {
    {"click_node", 10, click_node},
    {"click_node_box", 5, click_node_box},
    {"right_click_node", 6, right_click_node},
    {"open_node", 3, open_node},
    {"press_tree_key", 5, press_tree_key},
    {"rename_node", 3, rename_node},
    {"click_floating_button", 6, click_floating_button},
    {"click_line", 16, click_line},
    {"click_line_box", 10, click_line_box},
    {"click_title", 5, click_title},
    {"click_instructions", 6, click_instructions},
    {"pick_from_list", 10, pick_from_list},
    {"click_row_box", 3, click_row_box},
    {"type_text", 25, type_text},
    {"press_any_key", 15, press_any_key},
    {"click_edit_button", 4, click_edit_button},
    {"choose_command", 10, choose_command},
    {"click_toolbar", 5, click_toolbar},
    {"click_tab", 4, click_tab},
    {"resize_window", 2, resize_window},
    {"scroll", 6, scroll},
};

} // namespace

class tst_random_recipes : public QObject {
    Q_OBJECT
private slots:
    void a_random_user_of_recipes_finds_window_and_database_agree();
};

void tst_random_recipes::a_random_user_of_recipes_finds_window_and_database_agree()
{
    RecipeWindow window;
    const Key category = window.add_category(QStringLiteral("Baking"), true);
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    const Key party = window.add_list(QStringLiteral("Party"));
    const Key flour = window.add_item(QStringLiteral("Flour"), category, 7);
    const Key eggs = window.add_item(QStringLiteral("Eggs"), category, 8);
    const Key sugar = window.add_item(QStringLiteral("Sugar"), 0);
    window.add_item(QStringLiteral("Tomato"), 0);
    window.add_row(flour, weekly, true);
    window.add_row(eggs, weekly, true);
    window.add_row(eggs, party, true);
    for (const char* name : {"Pancakes", "Crème brûlée", "100% rye"}) {
        const Key recipe = window.add_recipe(QString::fromUtf8(name), QStringLiteral("01"));
        window.add_line(recipe, QStringLiteral("Flour"), flour);
        window.add_line(recipe, QStringLiteral("Eggs"), eggs, -1, QStringLiteral("2"));
        window.add_line(recipe, QStringLiteral("Sugar"), sugar);
        window.add_line(recipe, QStringLiteral("Love"));
    }
    window.add_recipe(QStringLiteral("Soup"), QStringLiteral("15"));
    const Key spices = window.add_category(QStringLiteral("Spices"), true);
    for (int i = 1; i <= enough_to_scroll; ++i)
        window.add_item(QStringLiteral("Spice %1").arg(i), spices);
    window.load();
    run(window, acts, seed, steps);
}

QTEST_MAIN(tst_random_recipes)
#include "tst_random_recipes.moc"
