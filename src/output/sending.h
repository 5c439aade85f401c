#pragma once

#include "household/list_sheet.h"
#include "household/recipe_sheet.h"

#include <optional>

class QByteArray;
class QWidget;

namespace tarnwick {

class Connection;
class Settings;
struct Environment;
struct SharedValues;

/// Opens lists and recipes in the word processor and in the mail program. What goes wrong outside of the database
/// is told in a message.
class Sending {
public:
    /// `window` owns the dialogs and messages.
    Sending(QWidget& window, Connection& connection, Settings& settings, const Environment& environment,
            const SharedValues& shared);

    /// Writes a recipe, or the list in use when there is none, to an RTF file in the program folder and has the
    /// desktop open it. An export that the user cancels, or that finds no row, leaves no file. Throws
    /// SQLite::Exception and what the settings throw.
    void send_to_rtf(const std::optional<RecipeSheet>& recipe);

    /// Opens a mail with a recipe, or with the list in use. Throws as `send_to_rtf`.
    void send_to_email(const std::optional<RecipeSheet>& recipe);

private:
    void warn_of_scanners();
    std::optional<ListSheet> list_wanted();
    bool write_file(const QString& path, const QByteArray& bytes);
    void remove_file(const QString& path);
    void say(const QString& text, int flags);

    QWidget& window_;
    Connection& connection_;
    Settings& settings_;
    const Environment& environment_;
    const SharedValues& shared_;
};

} // namespace tarnwick
