#pragma once

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QToolButton;
class QWidget;

namespace tarnwick {

class Toolbar;

/// The parts of the window beside the round of the keyboard: F10 goes to the toolbar, F8 to the separator. They
/// keep in mind where the keyboard came from, also where a press brought it to the separator.
class KeyboardAsides : public QObject {
    Q_OBJECT
public:
    KeyboardAsides(Toolbar& toolbar, QWidget& separator, QWidget& window);

    bool have_keyboard() const;

    /// Where the keyboard was before it came here; null where that has gone or the keyboard has moved on.
    QWidget* place_before() const;

signals:
    void back_wanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool is_aside(const QWidget* widget) const;
    void go_to_toolbar();
    void follow(QWidget* old, QWidget* now);
    bool toolbar_key(QToolButton& button, const QKeyEvent& event);
    bool go_along(const QToolButton& button, int key);

    Toolbar& toolbar_;
    QWidget& separator_;
    QWidget& window_;
    QPointer<QWidget> before_;
};

} // namespace tarnwick
