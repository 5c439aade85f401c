#include "support/message_script.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace tarnwick {
namespace {

QMessageBox::StandardButton button_of(Answer answer)
{
    switch (answer) {
    case Answer::yes:
        return QMessageBox::Yes;
    case Answer::no:
        return QMessageBox::No;
    case Answer::retry:
        return QMessageBox::Retry;
    case Answer::cancel:
        return QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

void fail(const QString& text)
{
    QTest::qFail(qPrintable(text), __FILE__, __LINE__);
}

} // namespace

MessageScript::MessageScript()
{
    qApp->installEventFilter(this);
}

// A question that waits for the end of a focus change comes with the next events.
MessageScript::~MessageScript()
{
    if (!QTest::qWaitFor([this] { return steps_.empty(); }, 1000))
        fail(QStringLiteral("%1 scripted dialog(s) never came").arg(steps_.size()));
}

void MessageScript::expect(const QString& title, const QString& text, Answer answer)
{
    expect(title, text, answer, [](QDialog&) {});
}

void MessageScript::expect(const QString& title, const QString& text, Answer answer,
                           std::function<void(QDialog&)> look)
{
    drive([title, text, answer, look = std::move(look)](QDialog& dialog) {
        auto* message = qobject_cast<QMessageBox*>(&dialog);
        if (!message) {
            fail(QStringLiteral("a message box was expected, not %1").arg(dialog.objectName()));
            dialog.reject();
            return;
        }
        if (message->windowTitle() != title)
            fail(QStringLiteral("title '%1' instead of '%2'").arg(message->windowTitle(), title));
        if (message->text() != text)
            fail(QStringLiteral("text '%1' instead of '%2'").arg(message->text(), text));
        look(dialog);
        QPushButton* button = qobject_cast<QPushButton*>(message->button(button_of(answer)));
        if (!button) {
            fail(QStringLiteral("the box '%1' lacks the scripted button").arg(message->text()));
            dialog.reject();
            return;
        }
        QTest::mouseClick(button, Qt::LeftButton);
    });
}

void MessageScript::drive(std::function<void(QDialog&)> driver)
{
    steps_.push_back(std::move(driver));
}

bool MessageScript::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (auto* dialog = qobject_cast<QDialog*>(watched); dialog && dialog->isModal()) {
            QPointer<QDialog> shown(dialog);
            QTimer::singleShot(0, this, [this, shown] {
                if (shown && shown->isVisible())
                    play(*shown);
            });
        }
    }
    return QObject::eventFilter(watched, event);
}

void MessageScript::play(QDialog& dialog)
{
    if (steps_.empty()) {
        const auto* message = qobject_cast<QMessageBox*>(&dialog);
        fail(QStringLiteral("unexpected dialog '%1': %2")
                 .arg(dialog.windowTitle(), message ? message->text() : dialog.objectName()));
        dialog.reject();
        return;
    }
    auto step = std::move(steps_.front());
    steps_.pop_front();
    const QPointer<QDialog> driven(&dialog);
    step(dialog);
    // A driver that failed on its way has not closed it.
    if (driven && driven->isVisible() && QTest::currentTestFailed())
        driven->reject();
}

} // namespace tarnwick
