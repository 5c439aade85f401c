#include "window/menu_table.h"

#include "window/frmmain.h"
#include "data/keys.h"
#include "widgets/node_key.h"
#include "widgets/header_bar.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "lists/placing.h"
#include "dialogs/frmColor.h"
#include "recipes/ingredients.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "window/commands.h"
#include "window/find_window.h"
#include "window/help.h"
#include "window/list_manager.h"
#include "window/move_window.h"
#include "window/output_commands.h"
#include "window/panes.h"
#include "widgets/program.h"
#include "widgets/tree_view.h"
#include "window/view_state.h"
#include "stock/stock_commands.h"
#include "stock/stock_tree.h"

#include <QCheckBox>

namespace tarnwick {
namespace {

void with_selected_item(frmmain& main, void (*act)(frmmain&, Key))
{
    const NodeKey node = NodeKey::of(main.stock_tree().view().selected());
    if (node.is_item())
        act(main, node.record);
}

void delete_category(frmmain& main)
{
    const NodeKey node = NodeKey::of(main.stock_tree().view().selected());
    if (node.is_category())
        main.stock_commands().tv_del_cat(node.record);
}

void delete_item(frmmain& main)
{
    with_selected_item(main, [](frmmain& m, Key item) { m.stock_commands().tv_del_item(item); });
}

void item_to_list(frmmain& main)
{
    with_selected_item(main, [](frmmain& m, Key item) { m.placing().stock_to_list(item); });
}

void item_to_recipe(frmmain& main)
{
    main.stock_commands().item_to_recipe();
}

void delete_recipe(frmmain& main)
{
    const NodeKey node = NodeKey::of(main.recipe_tree().view().selected());
    if (node.is_recipe())
        main.recipe_tree().recip_del(node.record);
}

void toggle_columns(frmmain& main, ColumnGroup group)
{
    main.list_pane().header().show_box(group).toggle();
    main.list_pane().show_column_group(group);
}

void new_list(frmmain& main)
{
    main.lists().new_list();
}
void clear_list(frmmain& main)
{
    if (main.panes().leave_editors())
        main.lists().clear();
}
void delete_list(frmmain& main)
{
    if (main.panes().leave_editors())
        main.lists().list_del();
}
void new_recipe(frmmain& main)
{
    main.recipe_tree().new_rcp();
}
void add_ingredient(frmmain& main)
{
    main.recipe_page().add_ns_ingred();
}
void delete_ingredient(frmmain& main)
{
    main.recipe_page().ingredients().ingred_del(main.recipe_page().state.cur_line);
}
void new_item(frmmain& main)
{
    main.stock_commands().new_stock_item();
}
void new_category(frmmain& main)
{
    main.stock_commands().new_cat();
}
void rename_category(frmmain& main)
{
    main.stock_commands().rename_category();
}
void by_category(frmmain& main)
{
    main.view_state().sort(false);
}
void by_name(frmmain& main)
{
    main.view_state().sort(true);
}
void choose_color(frmmain& main)
{
    frmColor(&main, main.shared.color_index, main.shared.type_size, [&main](int index) {
        main.view_state().set_color(index);
    }).exec();
}
void close_folders(frmmain& main)
{
    main.view_state().close_folders();
}

using enum MenuKind;

constexpr MenuRow rows[] = {
    {bar_menu, "", "mnu_list", "&Shopping lists"},
    {command, "mnu_list", "mnu_list_new", "New", new_list},
    {separator, "mnu_list", "mnu_list_sep", ""},
    {list_array, "mnu_list", "mnu_list_list", "list"},
    {separator, "mnu_list", "mnu_list_sep_2", ""},
    {command, "mnu_list", "mnu_list_Print", "Print", [](frmmain& m) { m.output().print_list(); }},
    {command, "mnu_list", "mnu_list_prntsetup", "Print setup", [](frmmain& m) { m.output().show_print_setup(); }},
    {separator, "mnu_list", "mnu_list_sep_3", ""},
    {command, "mnu_list", "mnu_list_clear", "Clear shopping list", clear_list},
    {command, "mnu_list", "mnu_list_del", "Delete shopping list", delete_list},
    {command, "mnu_list", "mnu_list_RenameList", "Rename shopping list",
     [](frmmain& m) { m.lists().rename_list(); }},
    {separator, "mnu_list", "mnu_list_sep_4", ""},
    {command, "mnu_list", "mnu_list_exit", "Exit", [](frmmain& m) { m.exit_at_once(); }},

    {bar_menu, "", "mnu_recipe", "&Recipes"},
    {command, "mnu_recipe", "mnu_recipe_add_ingred", "Add ingredient", add_ingredient},
    {command, "mnu_recipe", "mnu_recipe_new", "New recipe", new_recipe},
    {separator, "mnu_recipe", "mnu_recipe_sep_1", ""},
    {command, "mnu_recipe", "mnu_recipe_prnt", "Print recipe", [](frmmain& m) { m.output().print_recipe(); }},
    {command, "mnu_recipe", "mnu_recipe_del", "Delete recipe", delete_recipe},
    {command, "mnu_recipe", "mnu_recipe_move", "Move recipe",
     [](frmmain& m) { show_move_item(m.program(), m.panes(), false); }},

    {bar_menu, "", "mnu_edit", "Stoc&k"},
    {command, "mnu_edit", "mnu_edit_add_stck", "New stock item", new_item},
    {command, "mnu_edit", "mnu_edit_move", "Move stock item",
     [](frmmain& m) { show_move_item(m.program(), m.panes(), true); }},
    {command, "mnu_edit", "mnu_edit_stock_to_list", "Add stock item to list", item_to_list},
    {separator, "mnu_edit", "mnu_edit_sep_1", ""},
    {command, "mnu_edit", "mnu_edit_add_cat", "New stock category", new_category},
    {command, "mnu_edit", "mnu_edit_rn_cat", "Rename stock category", rename_category},
    {command, "mnu_edit", "mnu_edit_del_cat", "Delete stock category", delete_category},

    {bar_menu, "", "mnu_tools", "&Tools"},
    {check, "mnu_tools", "mnu_tools_listlist", "List manager", [](frmmain& m) { m.list_manager().toggle(); }},
    {bar_menu, "mnu_tools", "mnu_tools_find", "Find"},
    {command, "mnu_tools_find", "mnu_tools_find_item", "Stock item(s)",
     [](frmmain& m) { show_find(m.program(), m.panes(), m.view_state(), FindKind::stock); }},
    {command, "mnu_tools_find", "mnu_tools_find_recipe", "Recipe(s)",
     [](frmmain& m) { show_find(m.program(), m.panes(), m.view_state(), FindKind::recipes); }},
    {bar_menu, "mnu_tools", "mnu_tools_wp", "Word processor"},
    {command, "mnu_tools_wp", "mnu_tools_wp_rcp", "Open recipe in word processor",
     [](frmmain& m) { m.output().send_to_rtf(true); }},
    {command, "mnu_tools_wp", "mnu_tools_wp_list", "Open shopping list in word processor",
     [](frmmain& m) { m.output().send_to_rtf(false); }},
    {bar_menu, "mnu_tools", "mnu_tool_email", "Email"},
    {command, "mnu_tool_email", "mnu_tools_email_rcp", "Recipe",
     [](frmmain& m) { m.output().send_to_email(true); }},
    {command, "mnu_tool_email", "mnu_tools_email_list", "Shopping list",
     [](frmmain& m) { m.output().send_to_email(false); }},

    {bar_menu, "", "mnu_view", "&View"},
    {check, "mnu_view", "mnu_view_stock", "Stock list", [](frmmain& m) { m.program().show_stock(true); }},
    {check, "mnu_view", "mnu_view_rcp", "Recipes list", [](frmmain& m) { m.program().show_stock(false); }},
    {separator, "mnu_view", "mnu_view_sep_1", ""},
    {check, "mnu_view", "mnu_view_shoplist", "Shopping list",
     [](frmmain& m) { m.view_state().show_list_pane(true); }},
    {check, "mnu_view", "mnu_view_rcpepages", "Recipe pages",
     [](frmmain& m) { m.view_state().show_list_pane(false); }},
    {separator, "mnu_view", "mnu_view_sep_2", ""},
    {bar_menu, "mnu_view", "mnu_view_sort", "Sort stock"},
    {check, "mnu_view_sort", "mnu_view_sort_cat", "By category", by_category},
    {check, "mnu_view_sort", "mnu_view_sort_alpha", "Alphabetic", by_name},
    {bar_menu, "mnu_view", "mnu_view_sort_r", "Sort recipes"},
    {check, "mnu_view_sort_r", "mnu_view_sort_cat_r", "By category", by_category},
    {check, "mnu_view_sort_r", "mnu_view_sort_alpha_r", "Alphabetic", by_name},
    {separator, "mnu_view", "mnu_view_sep_3", ""},
    {command, "mnu_view", "mnu_view_cpn", "Hide coupon-expiry column",
     [](frmmain& m) { toggle_columns(m, ColumnGroup::coupon); }},
    {command, "mnu_view", "mnu_view_aisle", "Hide aisle column",
     [](frmmain& m) { toggle_columns(m, ColumnGroup::aisle); }},
    {separator, "mnu_view", "mnu_view_sep_4", ""},
    {command, "mnu_view", "mnu_view_cntrct_all", "Close all folders", close_folders},
    {command, "mnu_view", "mnu_view_color", "page view color...", choose_color},

    {bar_menu, "", "mnu_help", "&Help"},
    {command, "mnu_help", "mnu_help_launch", "Tarnwick help topics", [](frmmain& m) { launch_help(m.program()); }},
    {command, "mnu_help", "mnu_help_about", "About TarnWick", [](frmmain& m) { show_about(m.program()); }},

    {popup, "", "mnu_lv", "List row"},
    {command, "mnu_lv", "mnu_lv_ed", "Edit item", [](frmmain& m) { emit m.commands().edit_row_wanted(); }},
    {command, "mnu_lv", "mnu_lv_di", "Remove item", [](frmmain& m) { emit m.commands().remove_row_wanted(); }},

    {popup, "", "mnu_tv", "Stock"},
    {command, "mnu_tv", "mnu_tv_ni", "New stock item", new_item},
    {command, "mnu_tv", "mnu_tv_edit", "Edit stock item", [](frmmain& m) { m.stock_commands().edit_stock_item(); }},
    {command, "mnu_tv", "mnu_tv_di", "Delete item", delete_item},
    {command, "mnu_tv", "mnu_tv_rename", "Rename item", [](frmmain& m) { m.stock_commands().rename_item(); }},
    {command, "mnu_tv", "mnu_tv_move", "Move item",
     [](frmmain& m) { show_move_item(m.program(), m.panes(), true); }},
    {separator, "mnu_tv", "mnu_tv_sep_1", ""},
    {command, "mnu_tv", "mnu_tv_nc", "New category", new_category},
    {command, "mnu_tv", "mnu_tv_rn", "Rename category", rename_category},
    {command, "mnu_tv", "mnu_tv_dc", "Delete category", delete_category},
    {separator, "mnu_tv", "mnu_tv_sep_2", ""},
    {command, "mnu_tv", "mnu_tv_ai", "Add item to list", item_to_list},
    {command, "mnu_tv", "mnu_tv_air", "Add item to recipe", item_to_recipe},

    {popup, "", "mnu_tv_r", "Recipes"},
    {command, "mnu_tv_r", "mnu_tv_r_del", "Delete recipe", delete_recipe},
    {command, "mnu_tv_r", "mnu_tv_r_move", "Move recipe",
     [](frmmain& m) { show_move_item(m.program(), m.panes(), false); }},
    {command, "mnu_tv_r", "mnu_tv_r_new", "New recipe", new_recipe},

    {popup, "", "mnu_ingred", "Ingredient"},
    {command, "mnu_ingred", "mnu_ingred_del", "Delete ingredient", delete_ingredient},

    {popup, "", "mnu_more", "More"},
    {command, "mnu_more", "mnu_more_find", "Find",
     [](frmmain& m) {
         show_find(m.program(), m.panes(), m.view_state(),
                   m.shared.stock_view ? FindKind::stock : FindKind::recipes);
     }},
    {bar_menu, "mnu_more", "mnu_more_sort", "Sort"},
    {check, "mnu_more_sort", "mnu_more_sort_alpha", "Alphabetically", by_name},
    {check, "mnu_more_sort", "mnu_more_sort_cat", "By category", by_category},
    {command, "mnu_more", "mnu_more_close_folders", "Snap closed all folders", close_folders},
    {bar_menu, "mnu_more", "mnu_more_size", "Size"},
    {command, "mnu_more_size", "mnu_more_sml", "Small", [](frmmain& m) { m.view_state().set_type_size(9); }},
    {command, "mnu_more_size", "mnu_more_mdm", "Medium", [](frmmain& m) { m.view_state().set_type_size(10); }},
    {command, "mnu_more_size", "mnu_more_lrg", "Large", [](frmmain& m) { m.view_state().set_type_size(12); }},
};

} // namespace

std::span<const MenuRow> menu_table()
{
    return rows;
}

} // namespace tarnwick
