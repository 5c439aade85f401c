#include "window/status_words.h"

#include "widgets/shared_values.h"
#include "household/status.h"
#include "window/status_panels.h"

namespace tarnwick {

StatusWords::StatusWords(Connection& connection, StatusPanels& panels, const SharedValues& shared,
                         std::function<bool(Key item)> is_selected)
    : connection_(connection)
    , panels_(panels)
    , shared_(shared)
    , is_selected_(std::move(is_selected))
{
}

void StatusWords::item_changed(const ItemChange& change)
{
    for (const ItemCodes& codes : change.items)
        if (tells(change, codes.item))
            panels_.set_text(get_status(connection_, codes.item));
}

bool StatusWords::tells(const ItemChange& change, Key item) const
{
    switch (treatment_of(change.cause).words) {
    case PanelWords::always:
        return true;
    case PanelWords::in_stock_view:
        return (shared_.stock_view && !change.quiet) || is_selected_(item);
    case PanelWords::if_selected:
        break;
    }
    return is_selected_(item);
}

} // namespace tarnwick
