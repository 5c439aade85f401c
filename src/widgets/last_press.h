#pragma once

#include <QObject>
#include <QPointer>

class QWidget;
class QWindow;

namespace tarnwick {

/// Which widget of the program got the last press of a mouse button. The second press of a double click may
/// land on another one: on what the first click uncovered or laid over it. In another window it is always lost: a
/// dialog is not answered by the second press of the double click that opened it.
class LastPress : public QObject {
    Q_OBJECT
public:
    /// Begins to follow the presses; further calls do nothing.
    static void follow();

    /// Whether the last press that was not itself the second of a double click went to this widget.
    static bool was_on(const QWidget& widget);

    /// From now on the second press of a double click is lost over this widget, with its release and
    /// without a change of the focus, unless the first went to it.
    static void require_on(QWidget& widget);

    /// The widget shows other things now: what got the last press is no longer there.
    static void forget(const QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit LastPress(QObject* application);
    static LastPress* follower();
    bool is_in_another_window(const QWidget& widget) const;
    bool is_lost(const QWindow& window, const QEvent& event);

    QPointer<QObject> pressed_;
    bool loses_release_ = false; ///< its press was lost
};

} // namespace tarnwick
