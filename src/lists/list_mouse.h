#pragma once

#include <QObject>
#include <QPoint>

namespace tarnwick {

struct Program;
class Clearing;
class ListGrid;
class ListPane;
class Placing;
enum class GridKey;

/// Mouse and keys of the main window's grid, and what its row menu and the buttons at a row's end do.
class ListMouse : public QObject {
    Q_OBJECT
public:
    ListMouse(Program& program, ListPane& pane, Placing& placing, Clearing& clearing);

    /// Key handling of the grid: what a key does on the current row.
    void lv1_keyhandler(GridKey key);

    /// Opens the item editor for a grid row; below 0 nothing.
    void edit_row(int row);

    /// Removes a grid row from its list, without a question; below 0 nothing.
    void remove_row(int row);

signals:
    void menu_wanted(QPoint place); ///< right click on the grid; place on the screen

private:
    void mouse_down(Qt::MouseButton button);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void row_clicked(Qt::MouseButton button, int x);
    void move_to(int row);
    void mark_for_menu(int row);
    void show_menu(int row);
    ListGrid& grid();

    Program& program_;
    ListPane& pane_;
    Placing& placing_;
    Clearing& clearing_;
};

} // namespace tarnwick
