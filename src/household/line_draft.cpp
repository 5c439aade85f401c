#include "household/line_draft.h"

#include "data/query.h"
#include "household/status.h"

#include <array>

namespace tarnwick {
namespace {

constexpr std::array plain_fields{IngredientField::qty, IngredientField::measure, IngredientField::comment};

/// The text of a line, constant or not.
auto& text_of(auto& line, IngredientField field)
{
    switch (field) {
    case IngredientField::qty:
        return line.qty;
    case IngredientField::measure:
        return line.measure;
    case IngredientField::item:
        return line.item;
    default:
        return line.comment;
    }
}

std::string_view update_of(IngredientField field)
{
    switch (field) {
    case IngredientField::qty:
        return "UPDATE recipe_2 SET qty = ? WHERE key_id = ?";
    case IngredientField::measure:
        return "UPDATE recipe_2 SET measure = ? WHERE key_id = ?";
    default:
        return "UPDATE recipe_2 SET comment = ? WHERE key_id = ?";
    }
}

} // namespace

LineDraft LineDraft::of(const IngredientRow& line)
{
    LineDraft draft;
    draft.stored = draft.edited = line;
    draft.opened = draft.settled = {line.item, line.item_ref};
    return draft;
}

LineDraft LineDraft::added(Key recipe, int place)
{
    LineDraft draft;
    draft.recipe = recipe;
    draft.place = place;
    return draft;
}

LineDraft LineDraft::added_item(Key recipe, int place, const LinkedName& stock_item)
{
    LineDraft draft = added(recipe, place);
    draft.placed_item = stock_item.item_ref;
    draft.choose(stock_item);
    draft.opened = draft.settled;
    return draft;
}

bool LineDraft::has_new_name() const
{
    return !edited.item.isEmpty() && (edited.item != stored.item || edited.item_ref != stored.item_ref);
}

bool LineDraft::is_changed() const
{
    return edited.qty != stored.qty || edited.measure != stored.measure || edited.comment != stored.comment
        || has_new_name();
}

const QString& LineDraft::text(IngredientField field) const
{
    return text_of(edited, field);
}

void LineDraft::set_text(IngredientField field, const QString& text, Key match)
{
    text_of(edited, field) = trim(one_line(text));
    if (field != IngredientField::item)
        return;
    if (edited.item == settled.name)
        edited.item_ref = settled.item_ref;
    else if (edited.item == opened.name)
        edited.item_ref = opened.item_ref;
    else
        edited.item_ref = match > 0 ? match : placed_item;
}

void LineDraft::choose(const LinkedName& stock_item)
{
    edited.item = trim(one_line(stock_item.name));
    edited.item_ref = stock_item.item_ref;
    settle();
}

void LineDraft::settle()
{
    settled = {edited.item, edited.item_ref};
}

void LineDraft::restore_name()
{
    edited.item = settled.name;
    edited.item_ref = settled.item_ref;
}

void LineDraft::stored_as(const std::optional<IngredientRow>& line)
{
    const Key key = stored.key;
    const bool named = !edited.item.isEmpty();
    stored = line.value_or(edited);
    stored.key = line ? line->key : key;
    if (!named)
        return;
    edited.item_ref = stored.item_ref;
    if (settled.name == edited.item)
        settled.item_ref = stored.item_ref;
}

std::optional<IngredientRow> save_line(Connection& connection, const LineDraft& draft)
{
    if (draft.is_new())
        return insert_line(connection, draft.recipe, draft.edited, draft.place);
    Transaction transaction(connection);
    const Key line = draft.stored.key;
    for (const IngredientField field : plain_fields) {
        if (const QString& text = draft.text(field); text != text_of(draft.stored, field))
            Query(connection, update_of(field), or_blank(text), line).run();
    }
    if (draft.has_new_name()) {
        const Key item = draft.edited.item_ref;
        const bool exists = item > 0 && stock_item_name(connection, item);
        Query(connection, "UPDATE recipe_2 SET item_ref = ?, item = ? WHERE key_id = ?", exists ? item : Key(-1),
              draft.edited.item, line)
            .run();
    }
    auto stored = read_line(connection, line);
    transaction.commit();
    return stored;
}

} // namespace tarnwick
