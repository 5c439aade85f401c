#pragma once

#include <future>
#include <thread>

namespace tarnwick {

/// Finds the system's fonts in a thread of its own, while the main thread comes up: first what the system has, and,
/// as soon as there is an application, what that makes of it. Made before the application, and waited for before
/// that ends.
class FontLoading {
public:
    FontLoading();
    ~FontLoading();
    FontLoading(const FontLoading&) = delete;
    FontLoading& operator=(const FontLoading&) = delete;

    void application_made();

    /// Waits for the end. Who shows a text before that has to wait, or finds the fonts a second time.
    void wait();

private:
    std::promise<bool> has_application_;
    bool told_ = false;
    std::thread thread_;
};

} // namespace tarnwick
