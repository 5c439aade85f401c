#pragma once

#include "support/message_script.h"

#include <QDialog>
#include <QTest>

#include <functional>

namespace tarnwick {

/// Opens a window by the name of a command or toolbar button, which may go on after a blank, and lets `use` work
/// it. A dialog that waits for its answer is cancelled afterwards; of another window `use` gets null and finds it
/// itself.
template <typename TestedWindow>
void use_opened_window(TestedWindow& w, const QString& command, const std::function<void(QDialog*)>& use)
{
    MessageScript script;
    const bool stays_open
        = command == QLatin1String("mnu_tools_listlist") || command.startsWith(QLatin1String("mnu_tools_find"));
    if (!stays_open)
        script.drive([&use](QDialog& dialog) {
            use(&dialog);
            dialog.reject();
        });
    if (command.startsWith(QLatin1String("Toolbar1")))
        QTest::mouseClick(&w.control(command.section(u' ', 0, 0)), Qt::LeftButton);
    else
        w.trigger(command);
    if (stays_open)
        use(nullptr);
}

} // namespace tarnwick
