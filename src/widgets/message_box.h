#pragma once

#include <QString>

class QWidget;

namespace tarnwick {

/// Flags of a message box, added up: buttons, icon, default button.
namespace box {
inline constexpr int ok = 0;
inline constexpr int ok_cancel = 1;
inline constexpr int yes_no = 4;
inline constexpr int retry_cancel = 5;
inline constexpr int stop = 16;
inline constexpr int question = 32;
inline constexpr int exclamation = 48;
inline constexpr int information = 64;
inline constexpr int second_default = 256;
} // namespace box

/// The button that closed a message box. Escape, the close box and a rejection count as Cancel, or No.
enum class Answer { ok = 1, cancel = 2, retry = 4, yes = 6, no = 7 };

/// Shows a message and waits. It belongs to the modal window on top, or to `owner` when there is none. Text and
/// title are plain text, line feeds break lines; of a line beyond 500 characters the start is shown.
Answer msg_box(QWidget* owner, const QString& text, int flags, const QString& title);

/// Asks for a line of text. Empty when the user cancels.
QString input_box(QWidget* owner, const QString& prompt, const QString& title, const QString& initial = {});

} // namespace tarnwick
