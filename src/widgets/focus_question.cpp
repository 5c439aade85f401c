#include "widgets/focus_question.h"

#include "widgets/lost_click.h"

#include <utility>

namespace tarnwick {

FocusQuestion::FocusQuestion(QObject* parent)
    : QObject(parent)
    , lost_click_(new LostClick(this))
{
}

void FocusQuestion::ask_later(Qt::FocusReason reason, std::function<void()> question)
{
    if (reason == Qt::MouseFocusReason)
        lost_click_->start();
    if (waits())
        return;
    question_ = std::move(question);
    QMetaObject::invokeMethod(this, &FocusQuestion::ask, Qt::QueuedConnection);
}

void FocusQuestion::ask()
{
    if (const auto question = std::exchange(question_, nullptr))
        question();
}

} // namespace tarnwick
