#pragma once

#include <QObject>
#include <QPoint>

namespace tarnwick {

class frmmain;
class ListGrid;
class RowEditor;

/// Mouse and keys of the main window's grid, and what its row menu and the buttons at a row's end do.
class ListMouse : public QObject {
    Q_OBJECT
public:
    explicit ListMouse(frmmain& main);

    /// Key handling of the grid: Delete, up and down (`key_code`); other keys pass.
    void lv1_keyhandler(int key);

    /// Opens the item editor for a grid row.
    void edit_row(int row);

    /// Removes a grid row from its list, without a question.
    void remove_row(int row);

signals:
    void menu_wanted(QPoint place); ///< right click on the grid; place on the screen

private:
    void mouse_down(Qt::MouseButton button);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void row_clicked(Qt::MouseButton button);
    void move_to(int row);
    ListGrid& grid();

    frmmain& main_;
};

} // namespace tarnwick
