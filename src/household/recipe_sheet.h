#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// A recipe as its page shows it, for paper, word processor and mail.
struct RecipeSheet {
    QString title;
    QStringList lines; ///< the ingredient lines
    QString body; ///< the instructions, line ends as CR LF
};

/// A recipe as its page would show it; nothing when there is no such recipe. Throws SQLite::Exception.
std::optional<RecipeSheet> read_recipe_sheet(Connection& connection, Key recipe);

} // namespace tarnwick
