#include "household/household.h"

#include "household/category_store.h"
#include "household/ingredient_store.h"
#include "household/line_draft.h"
#include "household/list_store.h"
#include "household/lists_store.h"
#include "household/recipe_store.h"

#include <algorithm>

namespace tarnwick {
namespace {

ItemCodes codes_of(Cause cause, const ItemStatus& item, bool to_get)
{
    const Treatment& treatment = treatment_of(cause);
    return {item.item, item.status, code_of(treatment.node, item.status, to_get),
            code_of(treatment.page, item.status, to_get)};
}

WrittenRow marked_row(const TiedRow& row, Key item, bool to_get)
{
    WrittenRow marked;
    marked.row.groc_key = row.groc_key;
    marked.row.list_key = row.list_key;
    marked.row.item_key = item;
    list_store::set_to_get(marked.row, to_get);
    return marked;
}

/// The new row as the grid shows it until its next load: lit by the item's status and not by its own mark, a
/// quantity of 0 blank. Both are kept as they are.
GridRow cells_of(const Placement& placement, const PlacedRow& placed)
{
    const bool active = placed.status == StatusCode::buy_it || placed.status == StatusCode::buy_it_plus;
    GridRow row;
    list_store::set_to_get(row, active);
    row.groc_key = placed.groc_key;
    row.list_key = placement.list_key;
    row.item_key = placement.item_key;
    row.to_get = placement.to_get;
    row.item = placed.item;
    row.desc = placement.desc.isEmpty() ? QStringLiteral(" ") : trim(placement.desc);
    row.qty = placement.qty > 0 ? QString::number(placement.qty) : QStringLiteral(" ");
    list_store::set_coupon_cells(row, false, QStringLiteral(" "));
    row.aisle = trim(placement.aisle);
    return row;
}

} // namespace

Household::Household(Connection& connection)
    : connection_(connection)
    , removal_(connection)
{
}

Refusal Household::refusal_of(Key list)
{
    return list_name_of(connection_, list) ? Refusal::none : Refusal::no_list;
}

Refusal Household::place(const Placement& placement)
{
    if (refusal_of(placement.list_key) == Refusal::no_list)
        return Refusal::no_list;
    const auto placed = insert_list_row(connection_, placement);
    if (!placed)
        return Refusal::no_item;
    ItemChange change;
    change.cause = Cause::placing;
    change.items.push_back(codes_of(change.cause, {placement.item_key, placed->status}, placement.to_get));
    change.written.push_back({WrittenRow::Kind::placed, cells_of(placement, *placed)});
    change.quiet = placement.quiet;
    change.opened = placement.opened;
    emit item_changed(change);
    return Refusal::none;
}

void Household::tick(Key groc_key, Key list, bool to_get)
{
    if (const auto item = write_buy_it(connection_, groc_key, list, to_get))
        announce_mark(Cause::grid_box, *item, {{groc_key, list}}, to_get);
}

void Household::tick_in_tree(Key item, const TiedRow& row, bool to_get)
{
    const StatusCode status = store_box_click(connection_, item, row.groc_key, to_get);
    announce_mark(Cause::tree_box, {item, status}, {row}, to_get);
}

std::optional<Key> Household::check_line(Key item, std::optional<bool> to_get)
{
    const std::vector<TiedRow> rows = clickable_rows(connection_, item);
    if (rows.empty())
        return std::nullopt;
    if (to_get) {
        announce_mark(Cause::page_box, {item, mark_item(connection_, item, *to_get)}, rows, *to_get);
    } else {
        const StatusCode status
            = store_status(connection_, Cause::page_box, item, false).value_or(StatusCode::non_stock);
        ItemChange change;
        change.cause = Cause::page_box;
        change.items.push_back({item, status, status, status});
        emit item_changed(change);
    }
    return rows.front().groc_key;
}

void Household::announce_mark(Cause cause, const ItemStatus& item, const std::vector<TiedRow>& rows, bool to_get)
{
    ItemChange change;
    change.cause = cause;
    change.items.push_back(codes_of(cause, item, to_get));
    for (const TiedRow& row : rows)
        change.written.push_back(marked_row(row, item.item, to_get));
    emit item_changed(change);
}

void Household::remove_row(Key groc_key)
{
    const auto item = removal_.remove_row(groc_key);
    ItemChange change;
    change.cause = Cause::row_removal;
    if (item)
        change.items.push_back(codes_of(change.cause, *item, false));
    change.gone.push_back(groc_key);
    emit item_changed(change);
}

std::optional<IngredientRow> Household::save_line(const LineDraft& draft)
{
    auto stored = tarnwick::save_line(connection_, draft);
    if (stored && draft.is_new())
        emit line_added(draft.recipe, *stored);
    else if (stored)
        emit line_changed(*stored);
    return stored;
}

void Household::restore_line(const IngredientRow& line)
{
    tarnwick::restore_line(connection_, line);
    if (const auto stored = read_line(connection_, line.key))
        emit line_changed(*stored);
}

void Household::remove_line(Key line)
{
    removal_.remove_line(line);
    emit line_gone(line);
}

std::optional<Household::RemovedFrom> Household::removed_from()
{
    switch (removal_.kind()) {
    case LastRemoval::Kind::row:
        return RemovedFrom{.list = removal_.list()};
    case LastRemoval::Kind::line:
        return RemovedFrom{.recipe = removal_.recipe()};
    default:
        return std::nullopt;
    }
}

void Household::bring_back()
{
    if (const auto place = removal_.bring_back_line())
        emit line_returned(removal_.recipe(), *place);
    const auto returned = removal_.bring_back_row();
    if (!returned)
        return;
    const std::vector<GridRow> rows = list_store::read_rows(connection_, returned->list);
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const GridRow& one) { return one.groc_key == returned->groc_key; });
    ItemChange change;
    change.cause = Cause::row_removal;
    change.items.push_back(codes_of(change.cause, returned->item, false));
    if (row != rows.end())
        change.written.push_back({WrittenRow::Kind::placed, *row});
    change.opened = false;
    emit item_changed(change);
}

Refusal Household::clear_list(Key list, ClearMode mode)
{
    if (refusal_of(list) == Refusal::no_list)
        return Refusal::no_list;
    announce_cleared(list, clear_rows(connection_, list, mode), mode);
    return Refusal::none;
}

void Household::announce_cleared(Key list, const ClearedRows& cleared, ClearMode mode)
{
    if (cleared.rows.empty())
        return;
    ItemChange change;
    change.cause = Cause::clearing;
    for (const ItemStatus& item : cleared.items)
        change.items.push_back(codes_of(change.cause, item, false));
    for (const LinkedRow& row : cleared.rows) {
        if (mode == ClearMode::uncheck)
            change.written.push_back(marked_row({row.groc_key, list}, row.item, false));
        else
            change.gone.push_back(row.groc_key);
    }
    emit item_changed(change);
}

Key Household::save_item(const ItemEdit& edit)
{
    const ItemChange change = write_item_edit(connection_, edit);
    emit item_changed(change);
    return change.items.front().item;
}

Refusal Household::delete_item(Key item)
{
    const auto gone = delete_item_record(connection_, item);
    if (!gone)
        return Refusal::no_item;
    emit items_gone(*gone);
    return Refusal::none;
}

Refusal Household::rename_item(Key item, const QString& name)
{
    if (!rename_item_record(connection_, item, name))
        return Refusal::no_item;
    announce_record(Cause::item_rename, item, [](ItemRecord& record) { record.renamed = true; });
    return Refusal::none;
}

Moved Household::move_item(Key item, Key category)
{
    const Moved moved = move_item_record(connection_, item, category);
    if (moved == Moved::yes)
        announce_record(Cause::item_move, item, [category](ItemRecord& record) {
            record.category = category;
            record.moved = true;
        });
    return moved;
}

/// Announces what an operation did to a stock item's record and to none of its rows; `tell` says what it was.
void Household::announce_record(Cause cause, Key item, const std::function<void(ItemRecord&)>& tell)
{
    ItemChange change;
    change.cause = cause;
    change.items.push_back(codes_of(cause, {item, lite_status(connection_, item)}, false));
    change.record.emplace();
    change.record->name = trim(get_ingred_name(connection_, item));
    tell(*change.record);
    emit item_changed(change);
}

bool Household::delete_category(Key category)
{
    const auto gone = delete_category_record(connection_, category);
    if (gone)
        emit items_gone(*gone);
    return gone.has_value();
}

bool Household::rename_category(Key category, const QString& name)
{
    if (!rename_category_record(connection_, category, name))
        return false;
    emit category_changed({CategoryChange::Kind::renamed, category, trim(one_line(name))});
    return true;
}

Refusal Household::delete_list(Key list)
{
    if (refusal_of(list) == Refusal::no_list)
        return Refusal::no_list;
    const ListDeletion deletion = tarnwick::delete_list(connection_, list);
    announce_cleared(list, deletion.cleared, ClearMode::delete_all);
    emit lists_changed({ListsChange::Kind::deleted, list, {}, deletion.first_list});
    return Refusal::none;
}

void Household::rename_list(Key list, const QString& name)
{
    rename_list_record(connection_, list, name);
    emit lists_changed({ListsChange::Kind::renamed, list, get_list_name(connection_, list), std::nullopt});
}

Key Household::make_list(const QString& name, QDate today)
{
    const Key list = insert_list(connection_, name, today);
    emit lists_changed({ListsChange::Kind::made, list, name, std::nullopt});
    return list;
}

Key Household::make_category(const QString& name)
{
    const Key category = insert_category(connection_, name);
    emit category_changed({CategoryChange::Kind::made, category, name});
    return category;
}

Key Household::make_recipe(const QString& name, const QString& category)
{
    const Key recipe = insert_recipe(connection_, name, category);
    emit recipe_changed({recipe, name, category});
    return recipe;
}

void Household::move_line(Key recipe, Key line, Key after)
{
    if (const auto place = tarnwick::move_line(connection_, recipe, line, after))
        emit line_moved({recipe, line, *place});
}

} // namespace tarnwick
