#pragma once

#include "household/household.h"

#include <QObject>

namespace tarnwick {

/// Knows the list row that was announced as placed last.
class LastPlaced : public QObject {
public:
    explicit LastPlaced(Household& household)
    {
        connect(&household, &Household::item_changed, this, [this](const ItemChange& change) {
            for (const WrittenRow& written : change.written)
                if (written.kind == WrittenRow::Kind::placed)
                    key_ = written.row.groc_key;
        });
    }

    Key key() const { return key_; } ///< -1 before the first

private:
    Key key_ = -1;
};

} // namespace tarnwick
