#include "window/output_commands.h"

#include "data/settings.h"
#include "data/text.h"
#include "output/pic_frm.h"
#include "output/printing.h"
#include "output/sending.h"
#include "recipes/recipe_page.h"
#include "widgets/message_box.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "window/panes.h"

namespace tarnwick {
namespace {

Paper paper_of(const Environment& environment)
{
    return {environment.printer, environment.documents_folder};
}

} // namespace

OutputCommands::OutputCommands(Program& program, const Panes& panes)
    : program_(program)
    , panes_(panes)
{
}

void OutputCommands::read_reports()
{
    const auto number = [this](const char* key, const char* standard) {
        return to_int16(program_.settings.read(QLatin1String(settings_app::main), QStringLiteral("reports"),
                                               QLatin1String(key), QLatin1String(standard)));
    };
    reports_.sort = report_sort_of(number("sort", "1"));
    reports_.col_ct = number("col_ct", "2");
    reports_.active = number("active", "1");
    reports_.size = number("size", "0");
}

/// The recipe on the page. A start on the list leaves the page unread: then the one it would show. Tells the user
/// when there is none.
std::optional<RecipeSheet> OutputCommands::open_recipe()
{
    auto sheet = panes_.recipe_page.sheet();
    if (!sheet)
        sheet = read_recipe_sheet(program_.connection, program_.shared.cur_recipe);
    if (!sheet)
        msg_box(&program_.window, QStringLiteral("No recipe found"), box::information, QStringLiteral("Tarnwick"));
    return sheet;
}

void OutputCommands::send(bool is_recipe, void (Sending::*how)(const std::optional<RecipeSheet>&))
{
    if (!panes_.leave_editors())
        return;
    std::optional<RecipeSheet> recipe;
    if (is_recipe) {
        recipe = open_recipe();
        if (!recipe)
            return;
    }
    const Environment& environment = program_.environment;
    Sending sending({program_.window, program_.connection, program_.settings, environment.program_folder,
                     program_.today(), environment.open_url, environment.longest_url, program_.shared.current_list,
                     program_.shared.type_size});
    (sending.*how)(recipe);
}

void OutputCommands::put_out_list(QWidget& owner, bool preview)
{
    if (!panes_.leave_editors())
        return;
    const SharedValues& shared = program_.shared;
    Key page = 1;
    print_list_pages({program_.connection, shared.current_list, reports_, shared.type_size, program_.today(),
                      paper_of(program_.environment)},
                     owner, page, preview);
}

void OutputCommands::put_out_recipe(bool preview)
{
    if (!panes_.leave_editors())
        return;
    if (const auto recipe = open_recipe())
        tarnwick::print_recipe(paper_of(program_.environment), program_.window, program_.shared.type_size, *recipe,
                               preview);
}

void OutputCommands::print_list()
{
    put_out_list(program_.window, false);
}

void OutputCommands::print_recipe()
{
    put_out_recipe(false);
}

void OutputCommands::preview_pane()
{
    if (program_.shared.list_pane_shown)
        put_out_list(program_.window, true);
    else
        put_out_recipe(true);
}

void OutputCommands::send_to_rtf(bool is_recipe)
{
    send(is_recipe, &Sending::send_to_rtf);
}

void OutputCommands::send_to_email(bool is_recipe)
{
    send(is_recipe, &Sending::send_to_email);
}

void OutputCommands::show_print_setup()
{
    pic_frm setup(reports_, program_.settings, program_.shared.type_size, &program_.window);
    connect(&setup, &pic_frm::print_wanted, &setup, [&](bool preview) { put_out_list(setup, preview); });
    setup.exec();
}

} // namespace tarnwick
