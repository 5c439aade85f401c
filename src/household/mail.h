#pragma once

#include "household/list_sheet.h"
#include "household/recipe_sheet.h"

#include <QDate>
#include <QString>
#include <QUrl>

namespace tarnwick {

/// A mail as the user's mail program is to open it, without a recipient.
struct Mail {
    QString subject;
    QString body; ///< plain text, line ends as CR LF

    /// The `mailto` address that opens it, percent-encoded UTF-8 throughout.
    QUrl url() const;
};

/// A text of just this width: followed by blanks, or cut. No character is cut in half.
QString pad_text(const QString& text, int width);

Mail recipe_mail(const RecipeSheet& recipe);

/// A shopping list in columns of fixed width. A coupon that expired before today stands in brackets.
Mail list_mail(const ListSheet& list, QDate today);

} // namespace tarnwick
