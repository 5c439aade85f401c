#pragma once

#include "data/runtime_error.h"

#include <QApplication>

namespace tarnwick {

/// The application. A run-time error that no procedure traps shows its message and ends the process.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);

    /// The main form is loaded: from here on an untrapped error is the run-time's to report.
    void set_started() { started_ = true; }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    bool started_ = false;
};

/// The message of a failed start, then the end of the process; nothing is saved.
[[noreturn]] void end_with_start_message(const runtime_error& error);

/// The run-time's own message for an untrapped error, then the end of the process.
[[noreturn]] void end_with_runtime_message(const runtime_error& error);

} // namespace tarnwick
