#include "household/early_reading.h"

#include "data/connection.h"

#include <new>
#include <system_error>
#include <utility>

namespace tarnwick {
namespace {

struct Reading {
    FileState state;
    std::vector<NamedItem> items;
};

/// Reads a sound file that nobody changes meanwhile.
std::optional<Reading> read_sound(const QString& path)
{
    const std::optional<FileState> before = file_state(path);
    if (!before)
        return std::nullopt;
    Reading reading{*before, {}};
    {
        Connection connection;
        connection.open_to_read(path);
        reading.items = read_named_items(connection);
    }
    return file_state(path) == before ? std::optional(std::move(reading)) : std::nullopt;
}

} // namespace

EarlyReading::EarlyReading(const QString& path)
    : path_(path)
    , state_(found_.get_future().share())
{
    try {
        thread_ = std::thread([this] { read(); });
    } catch (const std::system_error&) {
        found_.set_value(std::nullopt);
    }
}

EarlyReading::~EarlyReading()
{
    if (thread_.joinable())
        thread_.join();
}

void EarlyReading::read()
{
    std::optional<Reading> reading;
    try {
        reading = read_sound(path_);
    } catch (...) {
        // Told, with its message, by whoever opens the file.
    }
    found_.set_value(reading ? std::optional(reading->state) : std::nullopt);
    if (!reading)
        return;
    try {
        items_ = in_name_order(reading->items);
        items_are_read_ = true;
    } catch (const std::bad_alloc&) {
        // Whoever opens the file reads them.
    }
}

std::optional<FileState> EarlyReading::sound_state()
{
    return state_.get();
}

std::optional<std::vector<CatalogueItem>> EarlyReading::take_items()
{
    if (thread_.joinable())
        thread_.join();
    if (!std::exchange(items_are_read_, false) || file_state(path_) != state_.get())
        return std::nullopt;
    return std::move(items_);
}

} // namespace tarnwick
