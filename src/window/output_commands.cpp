#include "window/output_commands.h"

#include "output/pic_frm.h"
#include "output/sending.h"
#include "recipes/recipe_page.h"
#include "widgets/message_box.h"
#include "widgets/row_editor.h"
#include "window/frmmain.h"

namespace tarnwick {
namespace {

/// The recipe on the page. A start on the list leaves the page unread: then the one it would show.
std::optional<RecipeSheet> open_recipe(frmmain& main)
{
    auto sheet = main.recipe_page().sheet();
    return sheet ? sheet : read_recipe_sheet(main.connection(), main.shared.cur_recipe);
}

void send(frmmain& main, bool is_recipe, void (Sending::*how)(const std::optional<RecipeSheet>&))
{
    if (!leave_editors(main))
        return;
    std::optional<RecipeSheet> recipe;
    if (is_recipe) {
        recipe = open_recipe(main);
        if (!recipe) {
            msg_box(&main, QStringLiteral("No recipe found"), box::information, QStringLiteral("Tarnwick"));
            return;
        }
    }
    const Environment& environment = main.environment();
    Sending sending({main, main.connection(), main.settings(), environment.program_folder, main.today(),
                     environment.open_url, environment.longest_url, main.shared.current_list,
                     main.shared.type_size});
    (sending.*how)(recipe);
}

} // namespace

bool leave_editors(frmmain& main)
{
    main.row_editor().lv_edit_off();
    return main.recipe_page().leave_editors();
}

void send_to_rtf(frmmain& main, bool is_recipe)
{
    send(main, is_recipe, &Sending::send_to_rtf);
}

void send_to_email(frmmain& main, bool is_recipe)
{
    send(main, is_recipe, &Sending::send_to_email);
}

void show_print_setup(frmmain& main)
{
    pic_frm(main.shared.reports, main.settings(), main.shared.type_size, &main).exec();
}

} // namespace tarnwick
