#pragma once

#include "data/runtime_error.h"

#include <QApplication>

namespace tarnwick {

class frmmain;

/// The application. A run-time error that no procedure traps shows its message and ends the process; errors
/// that come up behind this message, or behind the one of a trapped error, are not told.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);

    /// The main form is loaded: from here on an untrapped error is the run-time's to report. The form must
    /// live as long as events come.
    void set_started(frmmain& main) { main_ = &main; }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    frmmain* main_ = nullptr;
    bool ending_ = false;
};

/// The message of a failed start, then the end of the process; nothing is saved.
[[noreturn]] void end_with_start_message(const runtime_error& error);

/// The run-time's own message for an untrapped error, then the end of the process.
[[noreturn]] void end_with_runtime_message(const runtime_error& error);

} // namespace tarnwick
