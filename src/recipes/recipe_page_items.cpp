#include "recipes/recipe_page.h"

#include "window/frmmain.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "household/list_store.h"
#include "recipes/line_widgets.h"
#include "recipes/page_text.h"
#include "household/recipe_store.h"
#include "widgets/tree_view.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"
#include "stock/stock_tree.h"

#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace tarnwick {
namespace {

// What a check box is clicked for.
constexpr int clear_state = 0;
constexpr int buy_state = 1;
constexpr int refresh_state = 2;

int wanted_state(int code)
{
    switch (code) {
    case status_code::buy_it:
        return clear_state;
    case status_code::buy_it_plus:
        return refresh_state;
    default:
        return buy_state;
    }
}

} // namespace

QString RecipePage::rcp_item(int index) const
{
    const auto& all = recipe_lines_->lines();
    return index >= 0 && index < recipe_lines_->count() ? all[static_cast<size_t>(index)].item : QString();
}

QString RecipePage::rcp_item_in_work() const
{
    return label1_->text();
}

void RecipePage::set_rcp_item_in_work(const QString& name)
{
    label1_->setText(name);
}

void RecipePage::check_clicked(int index)
{
    if (editor_open())
        finish_line_editor();
    if (editor_open() || index >= recipe_lines_->count())
        return;
    const IngredientLine line = lines()[static_cast<size_t>(index)];
    set_rcp_item_in_work(line.item);
    state.cur_line = index;
    state.sel_line = index;
    main_.shared.item_in_work = line.item_ref;
    main_.shared.ingredient_in_work = line.key;
    const auto link = line_link(main_.connection(), line.key);
    if (!link)
        return;
    main_.shared.editor_mode = lite_status(main_.connection(), link->item_ref) == status_code::non_stock
        ? edit_mode::non_stock_to_stock
        : edit_mode::recipe_item;
    recipe_chck(wanted_state(lite_status(main_.connection(), line.item_ref)), line.key);
}

void RecipePage::recipe_chck(int to_state, Key line_key)
{
    if (state.cur_line >= recipe_lines_->count())
        return;
    main_.shared.item_in_work = lines()[static_cast<size_t>(state.cur_line)].item_ref;
    const auto link = line_link(main_.connection(), line_key);
    if (!link)
        return;
    if (link->item_ref < 1) {
        if (to_state == buy_state) {
            main_.shared.last_groc_key = -1;
            show_item_editor(main_);
        }
    } else if (const auto placed = first_placed_row(main_.connection(), link->item_ref)) {
        main_.shared.last_groc_key = placed->groc_key;
        mark_to_buy(to_state, link->item_ref);
        const bool in_grid = placed->list == main_.shared.current_list || main_.shared.all_lists_view;
        if (to_state != refresh_state && in_grid && main_.list_pane().set_row(placed->groc_key))
            show_in_grid(to_state == buy_state);
    } else {
        main_.shared.last_groc_key = -1;
        main_.shared.item_in_work = link->item_ref;
        main_.shared.editor_mode = edit_mode::recipe_item;
        show_item_editor(main_);
    }
}

void RecipePage::mark_to_buy(int to_state, Key item)
{
    Connection& connection = main_.connection();
    const int code = to_state == refresh_state ? lite_status(connection, item)
                                               : mark_item(connection, item, to_state == buy_state);
    IngredientLine& line = lines()[static_cast<size_t>(state.cur_line)];
    const int marked = to_state == buy_state ? status_code::buy_it : status_code::inactive;
    set_lites(state.cur_line, to_state == refresh_state ? code : marked);
    line.tool_tip = get_status(connection, item);
    refresh_line(state.cur_line);
    main_.set_status(line.tool_tip);
    main_.stock_tree().set_item_picture(item, code, false);
    if (auto* node = main_.stock_tree().item_node(item))
        main_.stock_tree().view().ensure_visible(node);
}

void RecipePage::show_in_grid(bool to_get)
{
    ListGrid& grid = main_.list_pane().grid();
    grid.rows().change_row(grid.current_row(), [to_get](GridRow& row) { list_store::set_to_get(row, to_get); });
}

bool RecipePage::shows_item(Key item) const
{
    const auto& all = recipe_lines_->lines();
    return item > 0 && std::any_of(all.begin(), all.end(), [&](const auto& line) { return line.item_ref == item; });
}

void RecipePage::change_lines(Key item, const std::function<void(IngredientLine&, int)>& change)
{
    for (int i = 0; i < recipe_lines_->count(); ++i) {
        IngredientLine& line = lines()[static_cast<size_t>(i)];
        if (line.item_ref != item || item < 1)
            continue;
        change(line, i);
        refresh_line(i);
    }
}

void RecipePage::set_item_status(Key item, int code)
{
    change_lines(item, [&](IngredientLine&, int index) { set_lites(index, code); });
}

void RecipePage::set_item_tool_tip(Key item, const QString& text)
{
    change_lines(item, [&](IngredientLine& line, int) { line.tool_tip = text; });
}

void RecipePage::unlink_item(Key item, const QString& tool_tip)
{
    change_lines(item, [&](IngredientLine& line, int index) {
        line.item_ref = -1;
        line.tool_tip = tool_tip;
        set_lites(index, status_code::non_stock);
    });
}

void RecipePage::follow_links(Key item, int code, const QString& joint, const QString& status,
                              const QString& unlinked_tool_tip)
{
    for (int i = 0; i < recipe_lines_->count(); ++i) {
        IngredientLine& line = lines()[static_cast<size_t>(i)];
        const auto link = line_link(main_.connection(), line.key);
        if (!link || (link->item_ref != item && line.item_ref != item))
            continue;
        const bool linked = link->item_ref == item;
        line.item_ref = linked ? item : Key(-1);
        line.tool_tip = linked ? link->item + joint + status : unlinked_tool_tip;
        set_lites(i, linked ? code : status_code::non_stock);
        refresh_line(i);
    }
}

std::optional<RecipeSheet> RecipePage::sheet() const
{
    if (!has_recipe())
        return std::nullopt;
    RecipeSheet sheet{title_->text(), {}, text1_->text()};
    for (const IngredientLine& line : recipe_lines_->lines())
        sheet.lines.append(line.text);
    return sheet;
}

} // namespace tarnwick
