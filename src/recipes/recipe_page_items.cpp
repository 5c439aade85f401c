#include "recipes/recipe_page.h"

#include "widgets/program.h"
#include "household/household.h"
#include "recipes/line_widgets.h"
#include "recipes/page_text.h"
#include "household/recipe_store.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"

#include <QLabel>
#include <QLineEdit>
#include <QSet>

#include <algorithm>

namespace tarnwick {
namespace {

// What a check box is clicked for.
constexpr int clear_state = 0;
constexpr int buy_state = 1;
constexpr int refresh_state = 2;

/// The mark of a state; none for one that only refreshes.
std::optional<bool> mark_of(int to_state)
{
    return to_state == refresh_state ? std::nullopt : std::optional(to_state == buy_state);
}

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
    recipe_chck(wanted_state(lite_status(program_.connection, line.item_ref)), line.key);
}

void RecipePage::recipe_chck(int to_state, Key line_key)
{
    const auto link = line_link(program_.connection, line_key);
    if (!link)
        return;
    if (link->item_ref < 1) {
        if (to_state == buy_state)
            edit_item(EditMode::non_stock_to_stock, -1, line_key);
    } else if (!program_.household.check_line(link->item_ref, mark_of(to_state))) {
        edit_item(EditMode::recipe_item, link->item_ref, line_key);
    }
}

void RecipePage::edit_item(EditMode mode, Key item, Key line)
{
    EditRequest request{mode, item, line};
    request.name = rcp_item_in_work();
    show_item_editor(program_, request);
}

bool RecipePage::shows_item(Key item) const
{
    const auto& all = recipe_lines_->lines();
    return item > 0 && std::any_of(all.begin(), all.end(), [&](const auto& line) { return line.item_ref == item; });
}

void RecipePage::item_changed(const ItemChange& change)
{
    const LineTip tip = treatment_of(change.cause).tool_tip;
    for (const ItemCodes& codes : change.items) {
        if (tip == LineTip::line_and_words)
            follow_links(codes, change.record->linked_by_name ? QStringLiteral(": ") : QStringLiteral(" - "));
        else if (tip == LineTip::by_name)
            follow_name(codes);
        else if (shows_item(codes.item))
            show_item(codes, tip);
    }
}

void RecipePage::show_item(const ItemCodes& codes, LineTip tip)
{
    Connection& connection = program_.connection;
    const QString text
        = tip == LineTip::words ? get_status(connection, codes.item) : get_ttt(connection, codes.item);
    for (int i = 0; i < recipe_lines_->count(); ++i) {
        IngredientLine& line = lines()[static_cast<size_t>(i)];
        if (line.item_ref != codes.item)
            continue;
        line.tool_tip = text;
        set_lites(i, codes.page);
        refresh_line(i);
    }
}

/// Takes the lines' links to a stock item over from the file. A line that is linked there shows its stored name,
/// the joint and the status; one that was linked and is no more becomes non-stock.
void RecipePage::follow_links(const ItemCodes& codes, const QString& joint)
{
    const QString status = get_status(program_.connection, codes.item);
    for (int i = 0; i < recipe_lines_->count(); ++i) {
        const IngredientLine& line = lines()[static_cast<size_t>(i)];
        const auto link = line_link(program_.connection, line.key);
        if (!link || (link->item_ref != codes.item && line.item_ref != codes.item))
            continue;
        if (link->item_ref == codes.item)
            show_line(i, codes.item, codes.page, link->item + joint + status);
        else
            show_line(i, -1, status_code::non_stock, QStringLiteral("Non-stock item"));
    }
}

/// The same after a rename in the tree, with its own words; that those of a line that was found begin with the
/// joint is kept.
void RecipePage::follow_name(const ItemCodes& codes)
{
    const QString status = get_status(program_.connection, codes.item);
    for (int i = 0; i < recipe_lines_->count(); ++i) {
        const IngredientLine& line = lines()[static_cast<size_t>(i)];
        const auto link = line_link(program_.connection, line.key);
        if (link && link->item_ref == codes.item)
            show_line(i, codes.item, codes.page, QStringLiteral(" - ") + status);
        else if (line.item_ref == codes.item)
            show_line(i, -1, status_code::non_stock, line.text + QStringLiteral(" :: Not listed"));
    }
}

void RecipePage::show_line(int index, Key item, int code, const QString& tool_tip)
{
    IngredientLine& line = lines()[static_cast<size_t>(index)];
    line.item_ref = item;
    line.tool_tip = tool_tip;
    set_lites(index, code);
    refresh_line(index);
}

void RecipePage::items_gone(const ItemsGone& gone)
{
    const QSet<Key> items(gone.items.begin(), gone.items.end());
    for (int i = 0; i < recipe_lines_->count(); ++i)
        if (items.contains(lines()[static_cast<size_t>(i)].item_ref))
            show_line(i, -1, status_code::non_stock, QStringLiteral("Non-stock item"));
}

void RecipePage::category_changed(const CategoryChange& change)
{
    if (change.kind != CategoryChange::Kind::renamed)
        return;
    for (int i = 0; i < recipe_lines_->count(); ++i) {
        IngredientLine& line = lines()[static_cast<size_t>(i)];
        if (line.item_ref < 1 || category_of(program_.connection, line.item_ref) != change.category)
            continue;
        line.tool_tip = line.item + QStringLiteral(" - ") + get_status(program_.connection, line.item_ref);
        refresh_line(i);
    }
}

void RecipePage::line_moved(const LineMove& move)
{
    const int from = recipe_lines_->index_of(move.line);
    if (move.recipe != page_key() || from < 0 || move.place >= recipe_lines_->count() || move.place == from)
        return;
    const bool had_focus = lines()[static_cast<size_t>(from)].ingred->hasFocus();
    recipe_lines_->move(from, move.place);
    for (int i = std::min(from, move.place); i <= std::max(from, move.place); ++i) {
        const IngredientLine& line = lines()[static_cast<size_t>(i)];
        refresh_line(i);
        set_lites(i,
                  line.item.isEmpty() ? status_code::non_stock : lite_status(program_.connection, line.item_ref));
    }
    layout_page();
    // A key that is meant for the line that was moved must not reach the one that took its place.
    if (had_focus)
        lines()[static_cast<size_t>(move.place)].ingred->setFocus(Qt::OtherFocusReason);
}

void RecipePage::lists_changed(const ListsChange& change)
{
    if (change.kind == ListsChange::Kind::deleted && has_recipe())
        set_recipe(page_key());
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
