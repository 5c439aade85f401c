#pragma once

#include "household/ingredient_store.h"

#include <QObject>

namespace tarnwick {

class LineBoxes;
class PickList;

/// What the keys do in the boxes over an ingredient line while and without a list under them.
class LineKeys : public QObject {
    Q_OBJECT
public:
    LineKeys(LineBoxes& boxes, PickList& list)
        : boxes_(boxes)
        , list_(list)
    {
    }

    /// A Qt::Key in a box; true when it is used up. `name_untouched`: the name is the one that was there, so that
    /// no row of the list is meant by it.
    bool key_in_box(IngredientField field, int key, Qt::KeyboardModifiers held, bool name_untouched);

signals:
    void box_wanted(IngredientField field);
    void edit_ended();
    void given_up(); ///< Escape
    void row_picked(int row);

private:
    bool pick_key_handler(IngredientField field, int key, bool name_untouched);
    int row_meant(const QString& name) const;

    LineBoxes& boxes_;
    PickList& list_;
};

} // namespace tarnwick
