#include "recipes/line_stock.h"

#include "dialogs/l_item_edit.h"
#include "household/category_store.h"
#include "household/household.h"
#include "household/recipe_store.h"
#include "household/status.h"
#include "recipes/recipe_page.h"
#include "widgets/program.h"

#include <QSet>

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

int wanted_state(StatusCode code)
{
    switch (code) {
    case StatusCode::buy_it:
        return clear_state;
    case StatusCode::buy_it_plus:
        return refresh_state;
    default:
        return buy_state;
    }
}

} // namespace

LineStock::LineStock(Program& program, RecipePage& page)
    : QObject(&page)
    , program_(program)
    , page_(page)
{
    connect(&page_.recipe_lines(), &RecipeLines::check_clicked, this, &LineStock::check_clicked);
}

int LineStock::count() const
{
    return page_.recipe_lines().count();
}

IngredientLine& LineStock::line(int index)
{
    return page_.lines()[static_cast<size_t>(index)];
}

void LineStock::check_clicked(int index)
{
    page_.leave_line_editor();
    if (page_.editor_open() || index >= count())
        return;
    const IngredientLine clicked = line(index);
    page_.set_rcp_item_in_work(clicked.item);
    page_.state.cur_line = index;
    page_.state.sel_line = index;
    recipe_chck(wanted_state(lite_status(program_.connection, clicked.item_ref)), clicked.key);
}

void LineStock::recipe_chck(int to_state, Key line_key)
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

void LineStock::edit_item(EditMode mode, Key item, Key line_key)
{
    EditRequest request{mode, item, line_key};
    request.name = page_.rcp_item_in_work();
    show_item_editor(program_, request);
}

void LineStock::item_changed(const ItemChange& change)
{
    const LineTip tip = treatment_of(change.cause).tool_tip;
    for (const ItemCodes& codes : change.items) {
        if (tip == LineTip::line_and_words)
            follow_links(codes, change.record->linked_by_name ? QStringLiteral(": ") : QStringLiteral(" - "));
        else if (tip == LineTip::by_name)
            follow_name(codes);
        else if (page_.shows_item(codes.item))
            show_item(codes, tip);
    }
}

void LineStock::show_item(const ItemCodes& codes, LineTip tip)
{
    Connection& connection = program_.connection;
    const QString text
        = tip == LineTip::words ? get_status(connection, codes.item) : get_ttt(connection, codes.item);
    for (int i = 0; i < count(); ++i) {
        IngredientLine& shown = line(i);
        if (shown.item_ref != codes.item)
            continue;
        shown.tool_tip = text;
        if (codes.page)
            page_.set_lites(i, *codes.page);
        page_.refresh_line(i);
    }
}

/// Takes the lines' links to a stock item over from the file. A line that is linked there shows its stored name,
/// the joint and the status; one that was linked and is no more becomes non-stock.
void LineStock::follow_links(const ItemCodes& codes, const QString& joint)
{
    const QString status = get_status(program_.connection, codes.item);
    for (int i = 0; i < count(); ++i) {
        const IngredientLine& shown = line(i);
        const auto link = line_link(program_.connection, shown.key);
        if (!link || (link->item_ref != codes.item && shown.item_ref != codes.item))
            continue;
        if (link->item_ref == codes.item)
            show_line(i, codes.item, codes.page, link->item + joint + status);
        else
            show_line(i, -1, StatusCode::non_stock, QStringLiteral("Non-stock item"));
    }
}

/// The same after a rename in the tree, with its own words; that those of a line that was found begin with the
/// joint is kept.
void LineStock::follow_name(const ItemCodes& codes)
{
    const QString status = get_status(program_.connection, codes.item);
    for (int i = 0; i < count(); ++i) {
        const IngredientLine& shown = line(i);
        const auto link = line_link(program_.connection, shown.key);
        if (link && link->item_ref == codes.item)
            show_line(i, codes.item, codes.page, QStringLiteral(" - ") + status);
        else if (shown.item_ref == codes.item)
            show_line(i, -1, StatusCode::non_stock, shown.text + QStringLiteral(" :: Not listed"));
    }
}

void LineStock::show_line(int index, Key item, std::optional<StatusCode> code, const QString& tool_tip)
{
    IngredientLine& shown = line(index);
    shown.item_ref = item;
    shown.tool_tip = tool_tip;
    if (code)
        page_.set_lites(index, *code);
    page_.refresh_line(index);
}

void LineStock::items_gone(const ItemsGone& gone)
{
    const QSet<Key> items(gone.items.begin(), gone.items.end());
    for (int i = 0; i < count(); ++i)
        if (items.contains(line(i).item_ref))
            show_line(i, -1, StatusCode::non_stock, QStringLiteral("Non-stock item"));
}

void LineStock::category_changed(const CategoryChange& change)
{
    if (change.kind != CategoryChange::Kind::renamed)
        return;
    for (int i = 0; i < count(); ++i) {
        IngredientLine& shown = line(i);
        if (shown.item_ref < 1 || category_of(program_.connection, shown.item_ref) != change.category)
            continue;
        shown.tool_tip = shown.item + QStringLiteral(" - ") + get_status(program_.connection, shown.item_ref);
        page_.refresh_line(i);
    }
}

} // namespace tarnwick
