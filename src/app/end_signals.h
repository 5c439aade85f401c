#pragma once

#include <array>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace tarnwick {

/// Has the program end in its own way when the system asks it to: at a log-out, or from a terminal. The
/// second time it is asked it ends at once, as without this. One object of it at a time.
class EndSignals {
public:
    /// The function is called from the event loop, at most once for each of the signals.
    explicit EndSignals(const std::function<void()>& end);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::array<int, 2> pipe_{-1, -1}; ///< a handler of signals may do no more than write into it
    std::unique_ptr<QSocketNotifier> told_;
};

} // namespace tarnwick
