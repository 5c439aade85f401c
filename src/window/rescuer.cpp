#include "window/rescuer.h"

#include "household/rescue.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "widgets/list_grid.h"
#include "widgets/message_box.h"
#include "widgets/row_editor.h"
#include "window/frmmain.h"
#include "window/view_state.h"

#include <QDir>
#include <QFile>

namespace tarnwick {
namespace {

RowField field_of(int column)
{
    if (column == grid_column::qty)
        return RowField::qty;
    return column == grid_column::aisle ? RowField::aisle : RowField::desc;
}

std::optional<RescuedField> unstored_field(frmmain& main)
{
    const RowEditor& editor = main.row_editor();
    if (!editor.is_open() || editor.unstored_column() < 0)
        return std::nullopt;
    const GridModel& rows = main.list_pane().grid().rows();
    const GridRow& row = rows.row(editor.edit_row());
    return RescuedField{row.groc_key, row.item, field_of(editor.unstored_column()),
                        rows.cell_text(editor.edit_row(), editor.unstored_column())};
}

/// Lists and recipes on show take over what was put back.
void show_put_back(frmmain& main)
{
    main.recipe_tree().recip_load(main.shared.recipe_alpha);
    main.recipe_page().restore_recipe(main.shared.cur_recipe);
    main.lists().set_mnu_lists();
    main.l_r_refresh();
}

void offer(frmmain& main, const QString& file, const Rescue& rescue)
{
    const QString text = QStringLiteral("TarnWick was ended by an error before this was stored:\n\n%1\n\n"
                                        "Put it back now?\n"
                                        "No keeps it in a file in the folder\n%2")
                             .arg(rescue_contents(rescue), QFileInfo(file).absolutePath());
    if (msg_box(&main, text, box::yes_no | box::question, QStringLiteral("TarnWick")) != Answer::yes) {
        set_rescue_aside(file);
        return;
    }
    const bool complete = put_back(main.connection(), rescue);
    show_put_back(main);
    if (complete) {
        QFile::remove(file);
        return;
    }
    msg_box(&main, QStringLiteral("The list row is gone. Its text is kept in the file\n") + set_rescue_aside(file),
            box::information, QStringLiteral("TarnWick"));
}

} // namespace

void rescue_typed(frmmain& main) noexcept
{
    try {
        Rescue rescue;
        main.recipe_page().add_unstored(rescue);
        rescue.field = unstored_field(main);
        if (!rescue.is_empty())
            write_rescue(rescue, main.environment().database_file());
    } catch (...) {
        // The error that is about to be told is the one to tell.
    }
}

void offer_rescued(frmmain& main)
{
    for (const QString& file : rescue_files(main.environment().database_file())) {
        if (const auto rescue = read_rescue(file))
            offer(main, file, *rescue);
        else
            set_rescue_aside(file);
    }
}

} // namespace tarnwick
