#pragma once

#include "household/lists_store.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace tarnwick {

class Commands;
class Toolbar;

/// All that captions, ticks and enabling of the commands depend on, apart from the menu of lists.
struct CommandInputs {
    enum class Node { none, item, category, other, recipe };

    /// The selected node of a tree.
    struct Selection {
        Node kind = Node::none;
        QString text;
        bool has_light = false; ///< an item's picture is on it
    };

    bool stock_view = true;
    bool list_pane_shown = true;
    bool stock_alpha = false;
    bool recipe_alpha = false;
    bool all_lists_view = false;
    Key current_list = 0;
    std::optional<QString> list_name; ///< trimmed; nothing when `current_list` is no list's key
    Selection stock_node;
    Selection recipe_node;
    bool page_has_recipe = false;
    QString page_title; ///< the name in the page's title box
    QString recipe_name; ///< the name of the recipe in use
    std::array<bool, 2> columns_shown{}; ///< coupon and expiry, aisle
};

/// The list in use, as captions and enabling tell lists apart.
enum class ListState {
    single,
    all,
    lost, ///< lists exist, but not the one in use
    none, ///< no list exists
};

ListState list_state(const CommandInputs& inputs);

/// Writes what menus and toolbar say, tick, show and enable. Nothing else does.
class CommandTexts {
public:
    CommandTexts(Commands& commands, Toolbar& toolbar);

    /// Everything that follows from the state of the window.
    void show(const CommandInputs& inputs);

    /// The entries of the list menu; their ticks follow with the next `show`.
    void show_lists(const std::vector<ShoppingList>& lists);
    void rename_list(Key list, const QString& name); ///< the entry keeps its place

    /// The entry of the pop-up menu of an ingredient line.
    void show_line(const QString& item, const QString& recipe);

private:
    struct ListTexts;
    static ListTexts list_texts(const CommandInputs& inputs);

    void show_views(const CommandInputs& inputs);
    void show_list_commands(const CommandInputs& inputs);
    void show_list_side(const CommandInputs& inputs);
    void show_recipe_side(const CommandInputs& inputs);
    void tick_list(const CommandInputs& inputs);
    void show_recipe_menus(const CommandInputs& inputs);
    void show_stock_menu(const CommandInputs& inputs);
    void show_stock_pop_up(const CommandInputs& inputs);
    void show_item_pop_up(const CommandInputs& inputs);
    void show_category_pop_up(const CommandInputs& inputs);
    void show_pop_up_at_rest(const CommandInputs& inputs);
    void show_node_commands(bool item, bool category, bool with_folders);

    Commands& commands_;
    Toolbar& toolbar_;
};

} // namespace tarnwick
