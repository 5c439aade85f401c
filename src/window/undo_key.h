#pragma once

#include <QObject>

namespace tarnwick {

class frmmain;

/// Ctrl+Z in the main window: brings back the list row or the ingredient line that was removed last. A text box
/// whose own typing can be undone keeps the key.
class UndoKey : public QObject {
    Q_OBJECT
public:
    explicit UndoKey(frmmain& main);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool can_bring_back() const;

    frmmain& main_;
};

} // namespace tarnwick
