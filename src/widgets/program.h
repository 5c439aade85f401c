#pragma once

#include "widgets/environment.h"

#include <QDate>
#include <QString>

#include <functional>

class QWidget;

namespace tarnwick {

class Connection;
class Household;
class Settings;
class runtime_error;
struct SharedValues;

/// What every pane and dialog gets of the running program.
struct Program {
    QWidget& window; ///< the main window, which owns message boxes and dialogs
    Connection& connection;
    Household& household;
    Settings& settings;
    const Environment& environment;
    SharedValues& shared;

    // What the main window does for all of them.
    std::function<void(const QString&)> set_status; ///< first status panel, text and tool tip
    std::function<void()> l_r_refresh; ///< the whole window in the state of its view switches

    /// The message of an error that a procedure has trapped, then the end of the program; nothing is saved.
    std::function<void(const runtime_error&)> shut_down;

    // The views that the whole window is then shown in: the left pane's tree, and list or page on the right.
    void show_stock(bool stock) const;
    void show_list_pane(bool list) const;

    QDate today() const { return environment.today(); }

    /// What an error in a placing leads to, once nothing is held open: error 9 ends the placing silently, any other
    /// the program. True when the program goes on.
    bool end_after_error(const runtime_error& error) const;
};

} // namespace tarnwick
