#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace tarnwick {

/// Which widget of the program got the last press of a mouse button. The second press of a double click may
/// land on another one: on what the first click uncovered or laid over it.
class LastPress : public QObject {
    Q_OBJECT
public:
    /// Begins to follow the presses; further calls do nothing.
    static void follow();

    /// Whether the last press that was not itself the second of a double click went to this widget.
    static bool was_on(const QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit LastPress(QObject* application);
    static LastPress* follower();

    QPointer<QObject> pressed_;
};

} // namespace tarnwick
