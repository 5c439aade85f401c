#pragma once

#include "dialogs/l_item_edit.h"

namespace tarnwick {

/// What an open item editor works on. Throws std::bad_cast for another dialog.
inline const EditRequest& request_of(const QDialog& dialog)
{
    return dynamic_cast<const l_item_edit&>(dialog).request();
}

} // namespace tarnwick
