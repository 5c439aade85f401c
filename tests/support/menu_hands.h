#pragma once

#include "window/commands.h"
#include "support/test_window.h"

#include <QAction>
#include <QTest>

// The hands of a user on the menus.
namespace tarnwick {

/// Triggers a command, which must be offered.
inline void trigger(TestWindow& window, const char* name)
{
    QAction& action = window.main().commands().action(QString::fromLatin1(name));
    QVERIFY2(action.isEnabled(), name);
    QVERIFY2(action.isVisible(), name);
    action.trigger();
}

/// Chooses an entry of the list menu by its index.
inline void choose(TestWindow& window, int entry)
{
    QAction& action = window.main().commands().list_entry(entry);
    QVERIFY(action.isEnabled());
    QVERIFY(action.isVisible());
    action.trigger();
}

/// Chooses a list in the list menu by its key; 0 is the entry of all lists, which there is with two lists or more.
inline void choose_list(TestWindow& window, Key list)
{
    const Commands& commands = window.main().commands();
    int entry = 0;
    while (entry < commands.list_entries()
           && Commands::list_entry_tag(commands.list_entry(entry)) != QString::number(list))
        ++entry;
    QVERIFY2(entry < commands.list_entries(), qPrintable(QString::number(list)));
    choose(window, entry);
}

} // namespace tarnwick
