#pragma once

#include "household/ingredient_store.h"

#include <QObject>
#include <QString>

#include <vector>

namespace tarnwick {

class Connection;
class LineBoxes;
class PickList;
class RecipePage;
struct SharedValues;

/// The pick list under the boxes of an ingredient line: what it offers for each of them, and where it stands.
class LinePicks : public QObject {
    Q_OBJECT
public:
    LinePicks(Connection& connection, const SharedValues& shared, RecipePage& page, LineBoxes& boxes);

    PickList& list() { return *list_; }

    /// Offers what belongs into a box, under it; nothing for the comment.
    void fill(IngredientField field);

    /// Stock items whose names begin like a text; none for an empty one. Throws SQLite::Exception.
    std::vector<StockName> names_like(const QString& text) const;

    void show_names(std::vector<StockName> names); ///< under the item box

    void place(); ///< again under its box, if it is open

signals:
    void out_of_sight(IngredientField field); ///< hidden while it had the focus; the box it belongs to

private:
    void show_at_box();

    Connection& connection_;
    const SharedValues& shared_;
    RecipePage& page_;
    LineBoxes& boxes_;
    PickList* list_;
    IngredientField field_ = IngredientField::qty; ///< the box that the list belongs to
};

} // namespace tarnwick
