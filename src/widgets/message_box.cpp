#include "widgets/message_box.h"

#include "widgets/one_line_box.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace tarnwick {
namespace {

constexpr int buttons_mask = 0xf;
constexpr int icon_mask = 0xf0;

QMessageBox::Icon icon_of(int flags)
{
    switch (flags & icon_mask) {
    case box::stop:
        return QMessageBox::Critical;
    case box::question:
        return QMessageBox::Question;
    case box::exclamation:
        return QMessageBox::Warning;
    case box::information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// What the picture of a box says.
QString icon_name(QMessageBox::Icon icon)
{
    switch (icon) {
    case QMessageBox::Critical:
        return QStringLiteral("Error");
    case QMessageBox::Question:
        return QStringLiteral("Question");
    case QMessageBox::Warning:
        return QStringLiteral("Warning");
    default:
        return QStringLiteral("Information");
    }
}

/// The text with its endless lines cut: a name of many thousand characters would carry the buttons off the screen.
QString readable(const QString& text)
{
    constexpr int longest_line = 500;
    QStringList lines = text.split(u'\n');
    for (QString& line : lines)
        if (line.size() > longest_line)
            line = line.left(longest_line) + QStringLiteral("...");
    return lines.join(u'\n');
}

} // namespace

Answer msg_box(QWidget* owner, const QString& text, int flags, const QString& title)
{
    QWidget* const front = QApplication::activeModalWidget();
    QMessageBox message(front ? front : owner);
    message.setObjectName(QStringLiteral("message_box"));
    message.setWindowTitle(title);
    message.setTextFormat(Qt::PlainText);
    message.setText(readable(text));
    message.setIcon(icon_of(flags));
    if (auto* picture = message.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label")))
        picture->setAccessibleName(icon_name(message.icon()));
    const bool second = (flags & box::second_default) != 0;
    const auto use = [&message, second](QMessageBox::StandardButton first, QMessageBox::StandardButton other) {
        message.setStandardButtons(first | other);
        message.setDefaultButton(second ? other : first);
        message.setEscapeButton(other);
    };
    switch (flags & buttons_mask) {
    case box::ok_cancel:
        use(QMessageBox::Ok, QMessageBox::Cancel);
        break;
    case box::yes_no:
        use(QMessageBox::Yes, QMessageBox::No);
        break;
    case box::retry_cancel:
        use(QMessageBox::Retry, QMessageBox::Cancel);
        break;
    default:
        message.setStandardButtons(QMessageBox::Ok);
        break;
    }
    const int button = message.exec();
    switch (button != 0 ? button : message.standardButton(message.escapeButton())) {
    case QMessageBox::Yes:
        return Answer::yes;
    case QMessageBox::No:
        return Answer::no;
    case QMessageBox::Cancel:
        return Answer::cancel;
    case QMessageBox::Retry:
        return Answer::retry;
    default:
        return Answer::ok;
    }
}

QString input_box(QWidget* owner, const QString& prompt, const QString& title, const QString& initial)
{
    QInputDialog dialog(owner);
    dialog.setObjectName(QStringLiteral("input_box"));
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    dialog.setTextValue(initial);
    for (QLineEdit* box : dialog.findChildren<QLineEdit*>())
        keep_one_line(*box);
    for (QLabel* label : dialog.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    if (auto* box = dialog.findChild<QLineEdit*>()) // made with the first text value
        box->selectAll();
    return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
}

} // namespace tarnwick
