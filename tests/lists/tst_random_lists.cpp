#include "random/acts.h"
#include "random/random_run.h"

#include "support/test_window.h"

#include <QTest>

using namespace tarnwick;
using namespace tarnwick::random_use;

namespace {

constexpr quint32 seed = 20260314;
constexpr int enough_to_scroll = 30; ///< items, though the user deletes some of them
constexpr int steps = 1200;

constexpr Act acts[] = {
    {"click_node", 12, click_node},
    {"click_node_box", 12, click_node_box},
    {"right_click_node", 8, right_click_node},
    {"open_node", 4, open_node},
    {"press_tree_key", 8, press_tree_key},
    {"rename_node", 5, rename_node},
    {"click_floating_button", 8, click_floating_button},
    {"click_cell", 10, click_cell},
    {"click_row_box", 8, click_row_box},
    {"right_click_row", 6, right_click_row},
    {"press_grid_key", 6, press_grid_key},
    {"click_header", 2, click_header},
    {"choose_list", 6, choose_list},
    {"click_manager", 4, click_manager},
    {"type_text", 10, type_text},
    {"press_any_key", 6, press_any_key},
    {"click_edit_button", 5, click_edit_button},
    {"choose_command", 10, choose_command},
    {"click_toolbar", 6, click_toolbar},
    {"click_tab", 3, click_tab},
    {"resize_window", 2, resize_window},
    {"scroll", 2, scroll},
};

} // namespace

class tst_random_lists : public QObject {
    Q_OBJECT
private slots:
    void a_random_user_of_lists_finds_window_and_database_agree();
};

void tst_random_lists::a_random_user_of_lists_finds_window_and_database_agree()
{
    TestWindow window;
    const Key dairy = window.add_category(QStringLiteral("Dairy"), true);
    const Key bakery = window.add_category(QStringLiteral("Bakery & more"));
    window.add_category(QStringLiteral("Empty"));
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    const Key party = window.add_list(QStringLiteral("Party's 100%"));
    for (const char* name : {"Milk", "Butter", "Crème fraîche", "Eggs", "Yoghurt"})
        window.add_row(window.add_item(QString::fromUtf8(name), dairy, 7), weekly, true);
    for (const char* name : {"Bread", "Roll_s", "Éclairs"})
        window.add_row(window.add_item(QString::fromUtf8(name), bakery, 6), party, false);
    for (const char* name : {"Candles", "Batteries", "Soap"})
        window.add_item(QString::fromUtf8(name), 0);
    const Key spices = window.add_category(QStringLiteral("Spices"), true);
    for (int i = 1; i <= enough_to_scroll; ++i)
        window.add_item(QStringLiteral("Spice %1").arg(i), spices);
    window.load();
    run(window, acts, seed, steps);
}

QTEST_MAIN(tst_random_lists)
#include "tst_random_lists.moc"
