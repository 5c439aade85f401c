#include "recipes/line_keys.h"

#include "recipes/line_boxes.h"
#include "recipes/pick_list.h"
#include "widgets/row_editor_controls.h"

#include <algorithm>

namespace tarnwick {
namespace {

bool is_enter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

IngredientField before(IngredientField field)
{
    return ingredient_fields[std::max<size_t>(static_cast<size_t>(field), 1) - 1];
}

IngredientField after(IngredientField field)
{
    return ingredient_fields[std::min(static_cast<size_t>(field) + 1, ingredient_fields.size() - 1)];
}

} // namespace

bool LineKeys::key_in_box(IngredientField field, int key, Qt::KeyboardModifiers held, bool name_untouched)
{
    using enum IngredientField;
    const bool plain = (held & ~Qt::KeypadModifier) == Qt::NoModifier;
    const CellBox& edit = boxes_.edit(field);
    const bool list_open = !list_.isHidden() && field != comment;
    if (key == Qt::Key_Backtab) {
        emit box_wanted(before(field));
        return true;
    }
    if (!plain)
        return false;
    if (key == Qt::Key_Escape) {
        emit given_up();
        return true;
    }
    if (key == Qt::Key_Tab && list_open && (field == item || list_.list_index() >= 0))
        return pick_key_handler(field, key, name_untouched);
    if (key == Qt::Key_Tab || (key == Qt::Key_Right && edit.caret_at_end())
        || (is_enter(key) && field == comment)) {
        if (field == comment)
            emit edit_ended();
        else
            emit box_wanted(after(field));
        return true;
    }
    if (key == Qt::Key_Left && edit.caret_at_start() && field != qty) {
        emit box_wanted(before(field));
        return true;
    }
    if (list_open && (key == Qt::Key_Down || key == Qt::Key_Up || is_enter(key)))
        return pick_key_handler(field, key, name_untouched);
    return is_enter(key);
}

bool LineKeys::pick_key_handler(IngredientField field, int key, bool name_untouched)
{
    const int row = list_.list_index();
    if (key == Qt::Key_Down || key == Qt::Key_Up) {
        if (row < 0)
            list_.select_row(0);
        list_.setFocus(Qt::OtherFocusReason);
    } else if (row >= 0) {
        emit row_picked(row);
    } else if (field != IngredientField::item) {
        emit edit_ended();
    } else if (const int meant = name_untouched ? -1 : row_meant(boxes_.text(field)); meant >= 0) {
        emit row_picked(meant);
    } else {
        list_.hide();
        emit box_wanted(IngredientField::comment);
    }
    return true;
}

// The row of a typed name: its own, else the first row when that is its singular or plural; -1 none.
int LineKeys::row_meant(const QString& name) const
{
    const QString typed = name.toUpper();
    if (typed.isEmpty())
        return -1;
    for (int row = 0; row < list_.count(); ++row) {
        if (list_.text(row).toUpper() == typed)
            return row;
    }
    const QString first = list_.text(0).toUpper();
    return typed == first + u'S' || first == typed + u'S' ? 0 : -1;
}

} // namespace tarnwick
