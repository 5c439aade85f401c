#include "lists/list_mouse.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/update_lock.h"
#include "lists/clearing.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "lists/placing.h"
#include "widgets/row_editor.h"
#include "dialogs/l_item_edit.h"

namespace tarnwick {

ListMouse::ListMouse(Program& program, ListPane& pane, Placing& placing, Clearing& clearing)
    : program_(program)
    , pane_(pane)
    , placing_(placing)
    , clearing_(clearing)
{
    connect(&grid(), &ListGrid::mouse_down, this, &ListMouse::mouse_down);
    connect(&grid(), &ListGrid::mouse_up, this, &ListMouse::mouse_up);
    connect(&grid(), &ListGrid::key_down, this, &ListMouse::lv1_keyhandler);
    connect(&grid(), &ListGrid::row_wanted, this, &ListMouse::move_to);
    grid().set_enter_edits(true);
    connect(&pane_, &ListPane::edit_wanted, this, &ListMouse::edit_row);
    connect(&pane_, &ListPane::removal_wanted, this, &ListMouse::remove_row);
}

ListGrid& ListMouse::grid()
{
    return pane_.grid();
}

void ListMouse::mouse_down(Qt::MouseButton button)
{
    const int row = grid().pressed_row();
    if (row < 0 || button != Qt::RightButton)
        return;
    mark_for_menu(row);
}

void ListMouse::mark_for_menu(int row)
{
    grid().set_current(row, GridColumn::item);
    pane_.row_editor().lv_edit_off();
    pane_.row_editor().mark_row(row);
}

/// What a right click on the row does, for the keyboard.
void ListMouse::show_menu(int row)
{
    mark_for_menu(row);
    grid().scrollTo(grid().currentIndex());
    placing_.show_row_status(row);
    const QRect cell = grid().visualRect(grid().currentIndex());
    emit menu_wanted(grid().viewport()->mapToGlobal(cell.bottomLeft()));
}

void ListMouse::mouse_up(Qt::MouseButton button, QPoint position)
{
    if (grid().current_row() < 0)
        return;
    if (button == Qt::RightButton) {
        if (grid().row_at(position.y()) >= 0)
            placing_.show_row_status(grid().current_row());
        emit menu_wanted(grid().viewport()->mapToGlobal(position));
        return;
    }
    if (grid().row_at(position.y()) < 0 || grid().pressed_row() < 0) {
        pane_.row_editor().lv_edit_off();
        return;
    }
    if (position.x() > grid().all_cols_width() - 2 || !grid().pressed_column())
        return;
    row_clicked(button, position.x());
}

void ListMouse::row_clicked(Qt::MouseButton button, int x)
{
    const UpdateLock lock(program_.window);
    const int row = grid().current_row();
    const GridColumn column = grid().current_col();
    const bool left = button == Qt::LeftButton;
    RowEditor& editor = pane_.row_editor();
    if (left && column == GridColumn::coupon)
        editor.switch_coupon(row, trim(grid().rows().row(row).date).isEmpty());
    placing_.show_row_status(row);
    if (left && column == GridColumn::check)
        placing_.toggle_buy_it(row);
    if (left && column >= GridColumn::item)
        editor.show_l_line();
    grid().set_current(row, GridColumn::item);
    if (left && column >= GridColumn::item)
        editor.enter_box_at(column, x);
}

void ListMouse::lv1_keyhandler(GridKey key)
{
    const int row = grid().current_row();
    if (row < 0 || !program_.shared.list_pane_shown)
        return;
    if (key == GridKey::remove)
        remove_row(row);
    else if (key == GridKey::check)
        placing_.toggle_buy_it(row);
    else if (key == GridKey::menu)
        show_menu(row);
    else if (key == GridKey::up && row > 0)
        move_to(row - 1);
    else if (key == GridKey::down && row < grid().rows().rows() - 1)
        move_to(row + 1);
}

void ListMouse::move_to(int row)
{
    grid().set_current(row, GridColumn::item);
    placing_.show_row_status(row);
    pane_.row_editor().show_l_line();
}

void ListMouse::edit_row(int row)
{
    if (row < 0)
        return;
    const GridRow& chosen = grid().rows().row(row);
    EditRequest request{EditMode::edit_item, chosen.item_key};
    request.row = chosen.groc_key;
    show_item_editor(program_, request);
    if (!pane_.row_editor().is_open())
        pane_.row_editor().hide_line(); // the mark of the row menu goes with the dialog
}

void ListMouse::remove_row(int row)
{
    if (row < 0)
        return;
    clearing_.groc_del(grid().rows().row(row).groc_key);
}

} // namespace tarnwick
