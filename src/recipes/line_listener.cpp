#include "recipes/line_listener.h"

#include "household/household.h"
#include "household/ingredient_store.h"
#include "household/status.h"
#include "recipes/line_editor.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "widgets/program.h"

#include <QFrame>

#include <algorithm>

namespace tarnwick {

LineListener::LineListener(Program& program, RecipePage& page)
    : program_(program)
    , page_(page)
{
}

void LineListener::line_added(Key recipe, const IngredientRow& row)
{
    if (recipe != page_.page_key())
        return;
    if (!page_.recipe_lines().has_new_line())
        page_.new_line(row.key, row.item_ref, row.display_text(), row.item);
    const int index = page_.next_index() - 1;
    IngredientLine& line = page_.lines().at(static_cast<size_t>(index));
    line.key = row.key;
    line.item_ref = row.item_ref;
    line.item = row.item;
    line.text = row.display_text();
    line.tool_tip = get_ttt(program_.connection, row.item_ref);
    line.count_capitals();
    page_.refresh_line(index);
    page_.set_lites(index, lite_status(program_.connection, row.item_ref));
    page_.layout_page();
    page_.state.cur_line = index;
}

// Under the line editor the page stands still until it closes.
void LineListener::line_changed(const IngredientRow& row)
{
    const int index = page_.recipe_lines().index_of(row.key);
    if (index < 0)
        return;
    show(index, row);
    if (!page_.editor_open())
        page_.layout_page();
}

void LineListener::show_stored(int index, const IngredientRow& gone)
{
    const Key line = page_.lines().at(static_cast<size_t>(index)).key;
    show(index, read_line(program_.connection, line).value_or(gone));
    page_.layout_page();
}

// A line that got another name is known by the name of its stock item from now on.
void LineListener::show(int index, const IngredientRow& row)
{
    IngredientLine& line = page_.lines().at(static_cast<size_t>(index));
    line.text = row.display_text();
    line.item_ref = row.item_ref;
    if (row.item != line.item)
        line.item = stock_item_name(program_.connection, row.item_ref).value_or(row.item);
    page_.refresh_line(index);
    page_.set_lites(index, lite_status(program_.connection, row.item_ref));
}

void LineListener::line_moved(const LineMove& move)
{
    RecipeLines& lines = page_.recipe_lines();
    const int from = lines.index_of(move.line);
    if (move.recipe != page_.page_key() || from < 0 || move.place >= lines.count() || move.place == from)
        return;
    const bool had_focus = page_.lines()[static_cast<size_t>(from)].ingred->hasFocus();
    lines.move(from, move.place);
    for (int i = std::min(from, move.place); i <= std::max(from, move.place); ++i) {
        page_.refresh_line(i);
        show_light(i);
    }
    page_.layout_page();
    // A key that is meant for the line that was moved must not reach the one that took its place.
    if (had_focus)
        page_.lines()[static_cast<size_t>(move.place)].ingred->setFocus(Qt::OtherFocusReason);
}

void LineListener::show_light(int index)
{
    const IngredientLine& line = page_.lines()[static_cast<size_t>(index)];
    page_.set_lites(index,
                    line.item.isEmpty() ? StatusCode::non_stock : lite_status(program_.connection, line.item_ref));
}

void LineListener::line_gone(Key line)
{
    const int index = page_.recipe_lines().index_of(line);
    if (index < 0)
        return;
    PageState& state = page_.state;
    if (state.sel_line > 0 && state.sel_line == page_.recipe_lines().upper_bound())
        --state.sel_line;
    const QWidget* focus = program_.window.focusWidget();
    const bool goes_on = page_.line_editor().is_part(focus) || qobject_cast<const IngredientText*>(focus);
    page_.line_editor().hide_line();
    page_.set_recipe(page_.page_key());
    state.cur_line = std::min(index, page_.recipe_lines().upper_bound());
    if (QWidget* place = goes_on ? page_.keyboard_place() : nullptr)
        place->setFocus(Qt::OtherFocusReason);
}

void LineListener::line_returned(Key recipe, int place)
{
    if (recipe != page_.page_key())
        return;
    page_.set_recipe(recipe);
    if (!page_.frame4().isHidden())
        page_.go_to_line(place);
}

} // namespace tarnwick
