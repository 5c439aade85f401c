#include "recipes/line_buttons.h"

#include "dialogs/l_item_edit.h"
#include "household/recipe_store.h"
#include "household/status.h"
#include "recipes/ingredients.h"
#include "recipes/line_boxes.h"
#include "recipes/line_editor.h"
#include "recipes/line_stock.h"
#include "recipes/recipe_page.h"
#include "widgets/busy_pointer.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"

namespace tarnwick {

LineButtons::LineButtons(Program& program, RecipePage& page, LineEditor& editor, LineBoxes& boxes)
    : program_(program)
    , page_(page)
    , editor_(editor)
{
    connect(&boxes, &LineBoxes::edit_clicked, this, &LineButtons::edit_clicked);
    connect(&boxes, &LineBoxes::scratch_clicked, this, &LineButtons::scratch_clicked);
}

void LineButtons::edit_clicked()
{
    if (editor_.index() < 0 || program_.shared.list_pane_shown)
        return;
    page_.state.cur_line = editor_.index();
    editor_.end_edit();
    const Key edited = editor_.draft().stored.key;
    const auto link = line_link(program_.connection, edited);
    if (editor_.is_open() || !link)
        return;
    const bool stock = lite_status(program_.connection, link->item_ref) != StatusCode::non_stock;
    page_.set_rcp_item_in_work(trim(link->item));
    if (stock)
        page_.line_stock().edit_item(EditMode::recipe_item, link->item_ref, edited);
    else
        page_.line_stock().edit_item(EditMode::non_stock_to_stock, -1, edited);
}

void LineButtons::scratch_clicked()
{
    const BusyPointer pointer;
    if (editor_.index() >= 0)
        editor_.ingredients().cancel();
}

bool LineButtons::scratch_key(int key)
{
    if (key == Qt::Key_Delete) {
        scratch_clicked();
        return true;
    }
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    const int wanted = editor_.index() + (key == Qt::Key_Down ? 1 : -1);
    if (wanted < 0 || wanted >= page_.recipe_lines().count())
        return true;
    editor_.end_edit();
    if (!editor_.is_open() && wanted < page_.recipe_lines().count())
        emit line_wanted(wanted);
    return true;
}

} // namespace tarnwick
