#pragma once

#include <QObject>

namespace tarnwick {

class RecipePage;
struct Program;

/// Ctrl+Z in the main window: brings back the list row or the ingredient line that was removed last. A text box
/// whose own typing can be undone keeps the key.
class UndoKey : public QObject {
    Q_OBJECT
public:
    UndoKey(Program& program, const RecipePage& page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool can_bring_back() const;

    Program& program_;
    const RecipePage& page_;
};

} // namespace tarnwick
