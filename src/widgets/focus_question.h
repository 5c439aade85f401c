#pragma once

#include <QObject>

#include <functional>

namespace tarnwick {

class LostClick;

/// The question that a box has when it loses the focus. It comes after the focus change: a message in the middle of
/// one runs while the control that takes the focus, a label editor for one, is still being made.
class FocusQuestion : public QObject {
    Q_OBJECT
public:
    explicit FocusQuestion(QObject* parent);

    /// Asks as soon as the focus change is done. One that waits already stays. The click of a focus change by mouse
    /// is lost: neither its press nor its release acts on what was clicked.
    void ask_later(Qt::FocusReason reason, std::function<void()> question);

    bool waits() const { return question_ != nullptr; }
    void drop() { question_ = nullptr; } ///< there is nothing to ask any more

private:
    void ask();

    std::function<void()> question_;
    LostClick* lost_click_;
};

} // namespace tarnwick
