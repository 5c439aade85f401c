#include "window/pane_links.h"

#include "lists/list_mouse.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "lists/placing.h"
#include "recipes/page_texts.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/floating_buttons.h"
#include "stock/stock_commands.h"
#include "stock/stock_clicks.h"
#include "stock/stock_tree.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"
#include "widgets/separator.h"
#include "window/commands.h"
#include "window/frmmain.h"
#include "window/layout.h"
#include "window/toolbar.h"
#include "window/view_state.h"

#include <QAction>

#include <utility>

namespace tarnwick {
namespace {

/// Calls `act` at each signal of `sender`, as long as the window lives.
template <typename Sender, typename Signal, typename Act>
void on(frmmain& main, Sender& sender, Signal signal, Act act)
{
    QObject::connect(&sender, signal, &main, std::move(act));
}

void connect_stock(frmmain& main)
{
    const auto place = [&main](Key item) { main.placing().stock_to_list(item); };
    on(main, main.stock_tree().clicks(), &StockClicks::node_pressed,
       [&main] { main.list_pane().leave_for_tree(); });
    on(main, main.stock_tree().clicks(), &StockClicks::placing_wanted, place);
    on(main, main.floating_buttons(), &FloatingButtons::placing_wanted, place);
    on(main, main.floating_buttons(), &FloatingButtons::adding_wanted, [&main] {
        main.view_state().show_list_pane(false);
        main.stock_commands().item_to_recipe();
    });
    on(main, main.floating_buttons(), &FloatingButtons::locating_wanted,
       [&main](Key item) { main.lists().locate(item); });
    on(main, main.stock_commands(), &StockCommands::item_moving, [&main] { main.floating_buttons().hide_all(); });
    on(main, main.stock_commands(), &StockCommands::adding_wanted,
       [&main](Key item, const QString& name) { main.recipe_page().drag_ingred(item, name); });
}

void connect_lists(frmmain& main)
{
    on(main, main.list_pane(), &ListPane::list_loaded, [&main] { main.toolbar().toolbar_fit(); });
    on(main, main.commands(), &Commands::list_chosen, [&main](int entry) {
        const QAction& action = main.commands().list_entry(entry);
        main.lists().choose(trim(Commands::plain_caption(action)), trim(Commands::list_entry_tag(action)));
    });
    const auto current_row = [&main] { return main.list_pane().grid().current_row(); };
    on(main, main.commands(), &Commands::edit_row_wanted,
       [&main, current_row] { main.list_mouse().edit_row(current_row()); });
    on(main, main.commands(), &Commands::remove_row_wanted,
       [&main, current_row] { main.list_mouse().remove_row(current_row()); });
}

void connect_recipes(frmmain& main)
{
    RecipePage& page = main.recipe_page();
    QObject::connect(&page.texts(), &PageTexts::name_typed, &main.recipe_tree(), &RecipeTree::rename);
    QObject::connect(&page.texts(), &PageTexts::name_typed, &main.view_state(), &ViewState::refresh_commands);
    QObject::connect(&page.texts(), &PageTexts::name_left, &main.recipe_tree(), &RecipeTree::sort_renamed);
    on(main, main.recipe_tree(), &RecipeTree::node_pressed, [&main] { main.list_pane().leave_for_tree(); });
    on(main, page.texts(), &PageTexts::name_marked,
       [&main](const QString& mark) { main.layout_manager().Frame1().setProperty("Tag", mark); });
    on(main, page, &RecipePage::ingredient_wanted, [&main] {
        const QString command = QStringLiteral("mnu_recipe_add_ingred");
        if (main.commands().action(command).isEnabled())
            main.commands().run(command);
    });
    on(main, page, &RecipePage::adding_line, [&main] { main.floating_buttons().hide_recipe_button(); });
    on(main, page, &RecipePage::editors_closing, [&main] { main.row_editor().hide_line(); });
}

} // namespace

void connect_panes(frmmain& main)
{
    connect_stock(main);
    connect_lists(main);
    connect_recipes(main);
}

} // namespace tarnwick
