#include "window/output_commands.h"

#include "output/pic_frm.h"
#include "output/printing.h"
#include "output/sending.h"
#include "recipes/recipe_page.h"
#include "widgets/message_box.h"
#include "widgets/row_editor.h"
#include "window/frmmain.h"

namespace tarnwick {
namespace {

/// The recipe on the page. A start on the list leaves the page unread: then the one it would show. Tells the user
/// when there is none.
std::optional<RecipeSheet> open_recipe(frmmain& main)
{
    auto sheet = main.recipe_page().sheet();
    if (!sheet)
        sheet = read_recipe_sheet(main.connection(), main.shared.cur_recipe);
    if (!sheet)
        msg_box(&main, QStringLiteral("No recipe found"), box::information, QStringLiteral("Tarnwick"));
    return sheet;
}

void send(frmmain& main, bool is_recipe, void (Sending::*how)(const std::optional<RecipeSheet>&))
{
    if (!leave_editors(main))
        return;
    std::optional<RecipeSheet> recipe;
    if (is_recipe) {
        recipe = open_recipe(main);
        if (!recipe)
            return;
    }
    const Environment& environment = main.environment();
    Sending sending({main, main.connection(), main.settings(), environment.program_folder, main.today(),
                     environment.open_url, environment.longest_url, main.shared.current_list,
                     main.shared.type_size});
    (sending.*how)(recipe);
}

Paper paper_of(const frmmain& main)
{
    return {main.environment().printer, main.environment().documents_folder};
}

void put_out_list(frmmain& main, QWidget& owner, bool preview)
{
    if (!leave_editors(main))
        return;
    Key page = 1;
    print_list_pages({main.connection(), main.shared.current_list, main.shared.reports, main.shared.type_size,
                      main.today(), paper_of(main)},
                     owner, page, preview);
}

void put_out_recipe(frmmain& main, bool preview)
{
    if (!leave_editors(main))
        return;
    if (const auto recipe = open_recipe(main))
        print_recipe(paper_of(main), main, main.shared.type_size, *recipe, preview);
}

} // namespace

bool leave_editors(frmmain& main)
{
    main.row_editor().lv_edit_off();
    return main.recipe_page().leave_editors();
}

void print_list(frmmain& main)
{
    put_out_list(main, main, false);
}

void print_recipe(frmmain& main)
{
    put_out_recipe(main, false);
}

void preview_pane(frmmain& main)
{
    if (main.shared.list_pane_shown)
        put_out_list(main, main, true);
    else
        put_out_recipe(main, true);
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
    pic_frm setup(main.shared.reports, main.settings(), main.shared.type_size, &main);
    QObject::connect(&setup, &pic_frm::print_wanted, &setup,
                     [&](bool preview) { put_out_list(main, setup, preview); });
    setup.exec();
}

} // namespace tarnwick
