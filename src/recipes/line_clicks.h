#pragma once

#include <QObject>
#include <QPoint>

namespace tarnwick {

class Connection;
class Ingredients;
class LineEditor;
class RecipePage;

/// What mouse and keys do on the ingredient lines themselves: open the editor, ask for the menu, delete.
class LineClicks : public QObject {
    Q_OBJECT
public:
    LineClicks(Connection& connection, RecipePage& page, LineEditor& editor, Ingredients& ingredients);

    bool lines_greyed() const { return lines_greyed_; } ///< a press on a greyed line is under way

    void open_line(int index); ///< opens the editor; a line that has gone is not opened

private:
    void mouse_down(int index, Qt::MouseButton button);
    void mouse_up(int index, Qt::MouseButton button, QPoint position);
    void show_menu(int index, QPoint position);

    Connection& connection_;
    RecipePage& page_;
    LineEditor& editor_;
    bool lines_greyed_ = false;
};

} // namespace tarnwick
