#pragma once

#include "data/database_file.h"
#include "household/stock_store.h"

#include <future>
#include <optional>
#include <thread>
#include <vector>

namespace tarnwick {

/// Checks a database file and reads its stock in a thread of its own, while the window is made. It changes nothing,
/// waits for no lock and tells no error: whatever does not go well is left to whoever opens the file.
class EarlyReading {
public:
    explicit EarlyReading(const QString& path);
    ~EarlyReading(); ///< waits for the thread
    EarlyReading(const EarlyReading&) = delete;
    EarlyReading& operator=(const EarlyReading&) = delete;

    /// The state in which the file was found sound; nothing when it was not. Waits until the file is let go.
    std::optional<FileState> sound_state();

    /// The items in name order, once; nothing when they were not read or the file is in another state now.
    std::optional<std::vector<CatalogueItem>> take_items();

private:
    void read();

    QString path_;
    std::promise<std::optional<FileState>> found_;
    std::shared_future<std::optional<FileState>> state_;
    std::vector<CatalogueItem> items_; ///< the thread's own until it has ended
    bool items_are_read_ = false;
    std::thread thread_;
};

} // namespace tarnwick
