#pragma once

#include <QApplication>

namespace tarnwick {

/// The hourglass for as long as an operation takes.
class BusyPointer {
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

} // namespace tarnwick
