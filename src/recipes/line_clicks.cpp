#include "recipes/line_clicks.h"

#include "recipes/ingredients.h"
#include "recipes/line_editor.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"

#include <QMenu>

#include <utility>

namespace tarnwick {

LineClicks::LineClicks(Connection& connection, RecipePage& page, LineEditor& editor, Ingredients& ingredients)
    : connection_(connection)
    , page_(page)
    , editor_(editor)
{
    RecipeLines& lines = page_.recipe_lines();
    connect(&lines, &RecipeLines::mouse_down, this, &LineClicks::mouse_down);
    connect(&lines, &RecipeLines::mouse_up, this, &LineClicks::mouse_up);
    connect(&lines, &RecipeLines::key_down, this, [&ingredients](int index, int key) {
        if (key == Qt::Key_Delete)
            ingredients.ingred_del(index);
    });
}

void LineClicks::mouse_down(int index, Qt::MouseButton button)
{
    if (index >= page_.recipe_lines().count())
        return;
    const IngredientText& first = *page_.lines().front().ingred;
    if (button == Qt::LeftButton)
        lines_greyed_ = !first.isHidden() && first.text_color() == LineEditor::grey;
    else
        page_.state.cur_line = page_.state.sel_line = index;
}

void LineClicks::mouse_up(int index, Qt::MouseButton button, QPoint position)
{
    if (index >= page_.recipe_lines().count())
        return;
    if (button == Qt::RightButton) {
        show_menu(index, position);
    } else if (button == Qt::LeftButton && std::exchange(lines_greyed_, false)) {
        if (editor_.is_open())
            editor_.leave();
        else
            editor_.blacken_lines();
    } else if (button == Qt::LeftButton) {
        editor_.leave();
        if (!editor_.is_open() && index < page_.recipe_lines().count())
            open_line(index);
    }
}

void LineClicks::show_menu(int index, QPoint position)
{
    emit page_.line_menu_wanted(page_.rcp_item(index),
                                page_.lines()[static_cast<size_t>(index)].ingred->mapToGlobal(position));
}

void LineClicks::open_line(int index)
{
    const IngredientLine& opened = page_.lines()[static_cast<size_t>(index)];
    page_.state.sel_line = page_.state.cur_line = index;
    const auto stored = read_line(connection_, opened.key);
    if (!stored)
        return;
    opened.ingred->set_selected(true);
    editor_.show_r_line(LineDraft::of(*stored), index);
    opened.ingred->set_selected(editor_.is_open());
}

} // namespace tarnwick
