#pragma once

#include <QObject>

namespace tarnwick {

class LineBoxes;
class LineEditor;
class RecipePage;
struct Program;

/// Pencil and cross beside the line under edit: the item editor, and the line's end.
class LineButtons : public QObject {
    Q_OBJECT
public:
    LineButtons(Program& program, RecipePage& page, LineEditor& editor, LineBoxes& boxes);

    /// A key on the cross, which acts on the line as in the shopping list. False for a key without a meaning there.
    bool scratch_key(int key);

signals:
    void line_wanted(int index); ///< by arrow key; the line that was edited is closed

private:
    void edit_clicked();
    void scratch_clicked();

    Program& program_;
    RecipePage& page_;
    LineEditor& editor_;
};

} // namespace tarnwick
