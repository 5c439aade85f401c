#pragma once

#include "household/ingredient_store.h"

namespace tarnwick {

/// A name on an ingredient line and the stock item that it stands for, -1 none.
struct LinkedName {
    QString name;
    Key item_ref = -1;
};

/// The ingredient line under edit: what the file holds of it, and what is to take its place.
struct LineDraft {
    /// A line that stands in the file.
    static LineDraft of(const IngredientRow& line);

    /// A line that is to be added at a place of a recipe, counted from 0; it begins without a name.
    static LineDraft added(Key recipe, int place);

    /// The same of a stock item, which keeps the line whatever it is called there.
    static LineDraft added_item(Key recipe, int place, const LinkedName& stock_item);

    bool is_new() const { return stored.key < 0; } ///< not in the file yet
    bool is_changed() const; ///< there is something to store; a missing name never is
    bool has_new_name() const; ///< name or stock item differ from the stored ones; false without a name

    const QString& text(IngredientField field) const;

    /// Takes a text, trimmed and of one line. A name also takes the stock item that it stands for: the one that it
    /// had when the edit began or when it was settled last, else `match`, the stock item of that name, 0 for none.
    void set_text(IngredientField field, const QString& text, Key match = 0);

    void choose(const LinkedName& stock_item); ///< a name that the user gave a stock item
    void settle(); ///< the name is finished for now
    void restore_name(); ///< the settled name returns

    /// The line is in the file as `line`; nothing: it has gone, and nothing of it is left to store.
    void stored_as(const std::optional<IngredientRow>& line);

    Key recipe = -1; ///< of a new line
    int place = 0; ///< of a new line
    Key placed_item = -1; ///< stock item that a new line was begun with; -1 none
    IngredientRow stored; ///< as the file holds it
    IngredientRow edited; ///< as it is to be
    LinkedName opened; ///< when the edit began
    LinkedName settled; ///< when its box was left last, or an item chosen
};

/// Writes what a draft changes of its line, or a whole new line, in one transaction; name and stock item go
/// together. A stock item that has gone becomes -1, an empty name is not written. Returns the line as it is stored;
/// nothing when line or recipe have gone. Throws SQLite::Exception on a database error, error 6 past key 32767.
std::optional<IngredientRow> save_line(Connection& connection, const LineDraft& draft);

} // namespace tarnwick
