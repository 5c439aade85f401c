#pragma once

#include <QKeyEvent>

namespace tarnwick {

/// Whether a key asks for the pop-up menu of what has the keyboard.
inline bool is_menu_key(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Menu
        || (event.key() == Qt::Key_F10 && event.modifiers().testFlag(Qt::ShiftModifier));
}

/// The character that a key types without a command's modifiers; a null text for any other key.
inline QString typed_text(const QKeyEvent& event)
{
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return (event.modifiers() & commands) || text.isEmpty() || !text[0].isPrint() ? QString() : text;
}

/// Whether the keyboard comes to a control by itself: by a key or a command, not by a press and not with the
/// window.
inline bool comes_by_key(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason
        || reason == Qt::OtherFocusReason;
}

} // namespace tarnwick
