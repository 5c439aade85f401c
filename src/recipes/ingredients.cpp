#include "recipes/ingredients.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "data/runtime_error.h"
#include "household/ingredient_store.h"
#include "recipes/line_editor.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "household/status.h"

#include <QScrollBar>

#include <algorithm>

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

bool Ingredients::has_new_line() const
{
    return page_.next_index() > 0 && page_.lines().back().is_new();
}

int Ingredients::new_place() const
{
    return page_.next_index() - (has_new_line() ? 1 : 0);
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
        insert(draft);
    } catch (...) {
        end_after_error(current_error());
    }
    return true;
}

void Ingredients::insert(const LineDraft& draft)
{
    Transaction transaction(program_.connection);
    if (const auto inserted = save_line(program_.connection, draft)) {
        show_inserted(*inserted);
        transaction.commit();
    } else {
        drop_new_line();
    }
}

void Ingredients::show_inserted(const IngredientRow& row)
{
    if (!has_new_line())
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

// A line that got another name is known by the name of its stock item from now on.
void Ingredients::ingred_updt(int index, const LineDraft& draft)
{
    // The stock item may have gone, or got another name, while the line was open.
    const IngredientRow row = read_line(program_.connection, draft.stored.key).value_or(draft.edited);
    IngredientLine& line = page_.lines().at(static_cast<size_t>(index));
    line.text = row.display_text();
    line.item_ref = row.item_ref;
    if (row.item != draft.opened.name)
        line.item = stock_item_name(program_.connection, line.item_ref).value_or(row.item);
    page_.refresh_line(index);
    page_.set_lites(index, lite_status(program_.connection, line.item_ref));
    page_.layout_page();
}

void Ingredients::ingred_del(int index)
{
    if (index < 0 || index >= page_.next_index())
        return;
    PageState& state = page_.state;
    if (state.sel_line > 0 && state.sel_line == page_.recipe_lines().upper_bound())
        --state.sel_line;
    delete_line(program_.connection, page_.lines()[static_cast<size_t>(index)].key);
    const QWidget* focus = program_.window.focusWidget();
    const bool goes_on = editor_.is_part(focus) || qobject_cast<const IngredientText*>(focus);
    editor_.hide_line();
    page_.set_recipe(page_.page_key());
    page_.state.cur_line = std::min(index, page_.recipe_lines().upper_bound());
    if (QWidget* place = goes_on ? page_.keyboard_place() : nullptr)
        place->setFocus(Qt::OtherFocusReason);
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
    if (has_new_line())
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
