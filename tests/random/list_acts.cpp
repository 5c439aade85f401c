#include "random/acts.h"

#include "lists/list_pane.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "window/commands.h"
#include "window/frmmain.h"

#include <QAction>
#include <QCheckBox>

namespace tarnwick::random_use {
namespace {

ListGrid& grid_of(User& user)
{
    return user.main().list_pane().grid();
}

/// A row that is scrolled into view; -1 when no list or no row is on show.
int some_row(User& user)
{
    ListGrid& grid = grid_of(user);
    if (!grid.isVisible() || grid.rows().rows() == 0)
        return -1;
    const int row = user.below(grid.rows().rows());
    if (!grid.row_is_visible(row))
        grid.set_top_row(row);
    return row;
}

bool click_some_cell(User& user, GridColumn column, Qt::MouseButton button)
{
    ListGrid& grid = grid_of(user);
    const int row = some_row(user);
    if (row < 0)
        return false;
    const QRect cell = grid.cell_rect(row, column);
    if (cell.width() < 2)
        return false;
    user.note(QStringLiteral("row %1 '%2'").arg(grid.rows().row(row).groc_key).arg(grid.rows().row(row).item));
    user.click(*grid.viewport(), grid.viewport()->mapFrom(grid.parentWidget(), cell.center()), button);
    return true;
}

} // namespace

bool click_cell(User& user)
{
    return click_some_cell(user, static_cast<GridColumn>(user.below(grid_column_count)), Qt::LeftButton);
}

bool click_row_box(User& user)
{
    return click_some_cell(user, GridColumn::check, Qt::LeftButton);
}

bool right_click_row(User& user)
{
    return click_some_cell(user, GridColumn::item, Qt::RightButton);
}

bool press_grid_key(User& user)
{
    static const QList<int> keys{Qt::Key_Up,   Qt::Key_Down,   Qt::Key_Up,
                                 Qt::Key_Down, Qt::Key_Delete, Qt::Key_Return};
    if (!grid_of(user).hasFocus())
        return false;
    user.press_key(user.any_of(keys));
    return true;
}

bool click_header(User& user)
{
    if (!grid_of(user).isVisible())
        return false;
    QWidget& box = user.main().list_pane().header().show_box(column_groups[static_cast<size_t>(user.below(2))]);
    if (!box.isVisible())
        return false;
    user.click(box, {box.height() / 2, box.height() / 2});
    return true;
}

bool choose_list(User& user)
{
    Commands& commands = user.main().commands();
    QAction& entry = commands.list_entry(user.below(commands.list_entries()));
    if (!entry.isVisible() || !entry.isEnabled())
        return false;
    user.note(QStringLiteral("list ") + entry.text());
    entry.trigger();
    return true;
}

} // namespace tarnwick::random_use
