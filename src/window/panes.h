#pragma once

namespace tarnwick {

class ListPane;
class Lists;
class Placing;
class RecipePage;
class RecipeTree;
class StockCommands;
class StockTree;
class TreeView;

/// The panes of the main window and what acts on them, for those parts of the window that have to do with several.
struct Panes {
    StockTree& stock_tree;
    StockCommands& stock_commands;
    RecipeTree& recipe_tree;
    RecipePage& recipe_page;
    ListPane& list_pane;
    Lists& lists;
    Placing& placing;

    TreeView& tree(bool stock) const; ///< of stock, else of recipes

    void tell_selection() const; ///< in the first status panel: the selected node of the tree on show

    /// In the first status panel: the item of the list's current row, or without one the selected node.
    void tell_current() const;

    /// Writes what is being typed into a list row or the recipe page, as leaving its boxes does. False when a name
    /// was refused; the user has to mend it first.
    bool leave_editors() const;
};

} // namespace tarnwick
