#include "recipes/ingredients.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "data/runtime_error.h"
#include "household/household.h"
#include "household/ingredient_store.h"
#include "recipes/line_editor.h"
#include "recipes/recipe_page.h"
#include "household/status.h"

#include <QScrollBar>

namespace tarnwick {
Ingredients::Ingredients(Program& program, RecipePage& page, LineEditor& editor)
    : program_(program)
    , page_(page)
    , editor_(editor)
{
}

// False when there is no page for a new line, or the line under the editor is not finished yet.
bool Ingredients::begin_line()
{
    if (!page_.has_recipe() || program_.shared.list_pane_shown)
        return false;
    if (editor_.is_open())
        editor_.end_edit();
    if (editor_.is_open())
        return false;
    if (page_.has_room(QStringLiteral(" ")))
        return true;
    msg_box(&program_.window, QStringLiteral("This page is full: there is no room\nfor another ingredient"),
            box::information, QStringLiteral("Recipe page is full"));
    return false;
}

int Ingredients::new_place() const
{
    return page_.next_index() - (page_.recipe_lines().has_new_line() ? 1 : 0);
}

// False when an error left no line to edit.
bool Ingredients::open(const LineDraft& draft)
{
    try {
        editor_.show_r_line(draft);
    } catch (...) {
        end_after_error(current_error());
    }
    return editor_.is_open();
}

void Ingredients::add_ns_ingred()
{
    if (!begin_line())
        return;
    page_.scroll_bar().setValue(0);
    emit page_.adding_line();
    open(LineDraft::added(page_.page_key(), new_place()));
}

void Ingredients::drag_ingred(Key item, const QString& name)
{
    if (!begin_line())
        return;
    const QString question
        = name + QStringLiteral(" already appears on this recipe\nWould you like to add it again?");
    if (check_exist(item)
        && msg_box(&program_.window, question, box::yes_no + box::question,
                   QStringLiteral("Item already on recipe"))
            != Answer::yes)
        return;
    if (const auto stock_name = stock_item_name(program_.connection, item))
        open(LineDraft::added_item(page_.page_key(), new_place(), {*stock_name, item}));
}

bool Ingredients::check_exist(Key item) const
{
    return item_on_recipe(program_.connection, page_.page_key(), item);
}

bool Ingredients::add_ingred(const LineDraft& draft)
{
    if (draft.edited.item.isEmpty()) {
        msg_box(&program_.window, QStringLiteral("Please provide a name for \nyour non-stock item"), box::ok,
                QStringLiteral("Please provide"));
        return false;
    }
    try {
        if (!program_.household.save_line(draft))
            drop_new_line();
    } catch (...) {
        end_after_error(current_error());
    }
    return true;
}

void Ingredients::ingred_del(int index)
{
    if (index >= 0 && index < page_.next_index())
        program_.household.remove_line(page_.lines()[static_cast<size_t>(index)].key);
}

void Ingredients::cancel()
{
    if (!editor_.draft().is_new()) {
        ingred_del(editor_.index());
        return;
    }
    editor_.hide_line();
    drop_new_line();
}

void Ingredients::drop_new_line()
{
    if (page_.recipe_lines().has_new_line())
        page_.drop_last_line();
}

// The message comes first: what made the operation fail may fail the tidying up as well.
void Ingredients::end_after_error(const runtime_error& error)
{
    if (!error.is(runtime_error::type_mismatch))
        program_.shut_down(error);
    editor_.hide_line();
    drop_new_line();
}

} // namespace tarnwick
