#pragma once

#include "widgets/message_box.h"

#include <QObject>
#include <QString>

#include <deque>
#include <functional>

class QDialog;

namespace tarnwick {

/// Answers the dialogs that an operation under test will show, in their order. A dialog that was not
/// scripted, or a scripted one that never came, fails the test.
class MessageScript : public QObject {
    Q_OBJECT
public:
    MessageScript();
    ~MessageScript() override;

    /// The next message box must have this title and text, and is closed with this answer.
    void expect(const QString& title, const QString& text, Answer answer = Answer::ok);

    /// The same, and `look` may assert more about the box (icon, default button).
    void expect(const QString& title, const QString& text, Answer answer, std::function<void(QDialog&)> look);

    /// The next dialog is driven by the function, which has to close it.
    void drive(std::function<void(QDialog&)> driver);

    /// How many scripted dialogs have not come yet.
    int left() const { return static_cast<int>(steps_.size()); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void play(QDialog& dialog);

    std::deque<std::function<void(QDialog&)>> steps_;
};

} // namespace tarnwick
