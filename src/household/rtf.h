#pragma once

#include "household/list_sheet.h"
#include "household/recipe_sheet.h"

#include <QByteArray>
#include <QDate>
#include <QStringView>

namespace tarnwick {

/// A text as it stands in an RTF file. RTF's own signs are escaped; what code page 1252 holds is written as its
/// byte, any other character as `\uN?`, one outside 16 bits as its two surrogates; line ends as `\line`.
QByteArray rtf_text(QStringView text);

/// The whole RTF file of a recipe.
QByteArray recipe_rtf(const RecipeSheet& recipe);

/// The whole RTF file of a shopping list. The word CPN is struck through when the coupon expired before today.
QByteArray list_rtf(const ListSheet& list, QDate today);

} // namespace tarnwick
