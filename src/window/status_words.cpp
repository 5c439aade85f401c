#include "window/status_words.h"

#include "widgets/shared_values.h"
#include "household/status.h"
#include "window/status_panels.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

StatusWords::StatusWords(Connection& connection, StatusPanels& panels, const SharedValues& shared,
                         std::function<bool(Key item)> is_selected, std::function<void()> tell_current)
    : connection_(connection)
    , panels_(panels)
    , shared_(shared)
    , is_selected_(std::move(is_selected))
    , tell_current_(std::move(tell_current))
{
}

void StatusWords::item_changed(const ItemChange& change)
{
    const auto told = [&](const ItemCodes& codes) { return tells(change, codes.item); };
    if (treatment_of(change.cause).words == PanelWords::current
        && std::none_of(change.items.begin(), change.items.end(), told)) {
        tell_current_();
        return;
    }
    for (const ItemCodes& codes : change.items)
        if (told(codes))
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
    case PanelWords::current:
        break;
    }
    return is_selected_(item);
}

} // namespace tarnwick
