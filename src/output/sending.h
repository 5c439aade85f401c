#pragma once

#include "data/text.h"
#include "household/list_sheet.h"
#include "household/recipe_sheet.h"

#include <QDate>
#include <QString>

#include <functional>
#include <optional>

class QByteArray;
class QUrl;
class QWidget;

namespace tarnwick {

class Connection;
class Settings;

/// What sending takes from the main window and the desktop.
struct SendingContext {
    QWidget& window; ///< owner of dialogs and messages
    Connection& connection;
    Settings& settings;
    QString folder; ///< takes the RTF files
    QDate today;
    std::function<bool(const QUrl&)> open_url; ///< false when nothing could be opened
    qsizetype longest_url; ///< bytes that `open_url` hands over whole
    Key current_list; ///< below 1 all lists
    int type_size; ///< of the main window, points
};

/// Opens lists and recipes in the word processor and in the mail program. What goes wrong outside of database and
/// settings is told in a message; their errors are thrown.
class Sending {
public:
    explicit Sending(SendingContext context);

    /// Writes a recipe, or the list in use when there is none, to an RTF file and has the desktop open it. An
    /// export that the user cancels, or that finds no row, leaves no file.
    void send_to_rtf(const std::optional<RecipeSheet>& recipe);

    /// Opens a mail with a recipe, or with the list in use.
    void send_to_email(const std::optional<RecipeSheet>& recipe);

private:
    void warn_of_scanners();
    std::optional<ListSheet> list_wanted();
    bool write_file(const QString& path, const QByteArray& bytes);
    void remove_file(const QString& path);
    void say(const QString& text, int flags);

    SendingContext context_;
};

} // namespace tarnwick
