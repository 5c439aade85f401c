#include "recipes/line_name.h"

#include "household/ingredient_store.h"
#include "household/line_draft.h"
#include "household/status.h"
#include "recipes/line_boxes.h"
#include "recipes/line_picks.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "widgets/row_editor_controls.h"
#include "widgets/tool_tip.h"

#include <utility>

namespace tarnwick {

using enum IngredientField;

LineName::LineName(Connection& connection, RecipePage& page, LineBoxes& boxes, LinePicks& picks, LineDraft& draft,
                   std::function<int()> index)
    : connection_(connection)
    , page_(page)
    , boxes_(boxes)
    , picks_(picks)
    , draft_(draft)
    , index_(std::move(index))
{
}

void LineName::typed(const QString& name)
{
    if (!boxes_.edit(item).hasFocus()) {
        draft_.set_text(item, name, stock_item_named(connection_, name));
        show_link(true);
        return;
    }
    std::vector<StockName> names = picks_.names_like(name);
    draft_.set_text(item, name, stock_item_among(connection_, names, name));
    show_link(true);
    if (name != draft_.settled.name)
        picks_.show_names(std::move(names));
}

void LineName::show_link(bool while_typing)
{
    const int index = index_();
    if (index < 0)
        return;
    IngredientLine& shown = page_.lines().at(static_cast<size_t>(index));
    shown.item_ref = draft_.edited.item_ref;
    shown.Check1->setProperty("Tag", QString::number(shown.item_ref));
    const StatusCode code = lite_status(connection_, shown.item_ref);
    if (!while_typing || code != StatusCode::buy_it_plus)
        page_.set_lites(index, code);
}

void LineName::settle()
{
    const QString& name = draft_.edited.item;
    const int index = index_();
    if (name.isEmpty() || index < 0)
        return;
    const bool another = name != draft_.settled.name;
    draft_.settle();
    show_link(false);
    const Key stock = draft_.edited.item_ref;
    if (another)
        show_tool_tip(
            index, stock > 0 ? get_status(connection_, stock) : u'\'' + name + QStringLiteral("': Non-stock item"));
}

void LineName::show_tool_tip(int index, const QString& text)
{
    IngredientLine& shown = page_.lines().at(static_cast<size_t>(index));
    shown.tool_tip = text;
    shown.ingred->setToolTip(plain_tool_tip(text));
}

void LineName::choose(const QString& name, Key chosen)
{
    boxes_.show_text(item, name);
    boxes_.set_tag(item, name);
    draft_.choose({name, chosen});
}

void LineName::show_chosen()
{
    show_link(false);
    show_tool_tip(index_(), get_status(connection_, draft_.edited.item_ref));
}

void LineName::restore()
{
    draft_.restore_name();
    boxes_.show_text(item, draft_.edited.item);
    show_link(false);
}

bool LineName::has_apostrophe() const
{
    const QString name = boxes_.edit(item).text();
    return name.contains(u'\'') && trim(name) != draft_.settled.name;
}

void LineName::drop_apostrophes()
{
    QString name = boxes_.edit(item).text();
    strip_apostrophes(name);
    draft_.set_text(item, name, stock_item_named(connection_, name));
    boxes_.show_text(item, draft_.edited.item);
}

} // namespace tarnwick
