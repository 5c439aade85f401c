#include "window/output_commands.h"

#include "recipes/page_text.h"
#include "recipes/recipe_page.h"
#include "widgets/row_editor.h"
#include "window/frmmain.h"

#include <QLineEdit>

namespace tarnwick {
namespace {

void put_out_list(frmmain& main, bool preview)
{
    if (!leave_editors(main))
        return;
    Key page = 1;
    print_list_pages(print_source(main), main, page, preview);
}

void put_out_recipe(frmmain& main, bool preview)
{
    if (!leave_editors(main))
        return;
    // A list may have been on show since the start; the recipe of the tree is then not on its page yet.
    RecipePage& page = main.recipe_page();
    if (!page.has_recipe() && main.shared.cur_recipe > 0)
        page.set_recipe(main.shared.cur_recipe);
    if (page.has_recipe())
        print_recipe(print_source(main), main, recipe_text(main), preview);
}

} // namespace

PrintSource print_source(frmmain& main)
{
    return {main.connection(), main.shared, main.environment()};
}

PrintedRecipe recipe_text(frmmain& main)
{
    RecipePage& page = main.recipe_page();
    PrintedRecipe recipe{page.title().text(), {}, page.Text1().toPlainText()};
    for (const IngredientLine& line : page.lines())
        recipe.lines.append(line.text);
    return recipe;
}

bool leave_editors(frmmain& main)
{
    if (main.row_editor().is_open())
        main.row_editor().lv_edit_off();
    main.recipe_page().finish_line_editor();
    return !main.recipe_page().editor_open();
}

void print_current_list(frmmain& main)
{
    put_out_list(main, false);
}

void print_open_recipe(frmmain& main)
{
    put_out_recipe(main, false);
}

void preview_pane(frmmain& main)
{
    if (main.shared.list_pane_shown)
        put_out_list(main, true);
    else
        put_out_recipe(main, true);
}

} // namespace tarnwick
