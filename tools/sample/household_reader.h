#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tarnwick::sample {

/// Category index of an item that belongs to the permanent category OTHER.
inline constexpr int other_category = -1;
/// Item index of an ingredient line without a stock item behind it.
inline constexpr int no_stock_item = -1;

struct Category {
    QString name;
    bool expanded = false;
};

struct Item {
    QString name;
    int category = other_category; ///< index in Household::categories, or other_category
};

struct ListRow {
    int item = 0; ///< index in Household::items
    QString qty;
    QString desc;
    QString aisle;
    bool to_get = false;
    std::optional<int> coupon_days; ///< days from today to the expiry of the row's coupon; none without a coupon
};

struct ShoppingList {
    QString name;
    std::vector<ListRow> rows;
};

struct Ingredient {
    QString qty;
    QString measure; ///< at most 20 characters
    QString name;
    QString comment;
    int item = no_stock_item; ///< index in Household::items, or no_stock_item
};

struct Recipe {
    QString name;
    QString category; ///< two digits, "01" to "15"
    QString body; ///< paragraphs with an empty line ("\n\n") between them
    std::vector<Ingredient> ingredients;
};

struct Household {
    std::vector<Category> categories;
    std::vector<Item> items;
    std::vector<ShoppingList> lists;
    std::vector<Recipe> recipes;
};

/// The fifteen recipe categories by name; the two-digit text of one is its place here, counted from "01".
const QStringList& recipe_categories();

/// Reads categories.txt, items.txt, lists.txt and recipes.txt of `folder` (format: household/README.md).
/// Every index in the result is valid. Throws std::runtime_error "file:line: message" at the first fault.
Household read_household(const QString& folder);

} // namespace tarnwick::sample
