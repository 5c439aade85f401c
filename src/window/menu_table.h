#pragma once

#include <QString>

#include <span>

namespace tarnwick {

class frmmain;

enum class MenuKind {
    bar_menu, ///< a menu of the menu bar, or a menu inside another one
    popup, ///< a menu of its own, shown under the pointer
    command,
    check, ///< a command that shows a tick while its state holds
    separator,
    list_array, ///< the place of the entries `mnu_list_list`
};

/// One row of the command table. A menu's rows stand in the order in which they are shown.
struct MenuRow {
    MenuKind kind;
    const char* parent; ///< name of the menu that holds it; empty on the bar and for pop-ups
    const char* name;
    const char* caption; ///< of a menu of the bar with '&' before the letter that opens it with Alt; of a pop-up
                         ///< its name to a screen reader
    void (*run)(frmmain&) = nullptr; ///< none: the command has no effect
};

/// A text of these tables as the program shows it.
inline QString text_of(const char* text)
{
    return QString::fromUtf8(text);
}

/// All commands of the main window.
std::span<const MenuRow> menu_table();

} // namespace tarnwick
