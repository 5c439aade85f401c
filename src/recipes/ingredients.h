#pragma once

#include "data/text.h"
#include "household/recipe_store.h"

#include <QString>

#include <array>

namespace tarnwick {

class LineEditor;
class RecipePage;
class frmmain;
class runtime_error;

/// What `PageState::line_mode` says of the line under work.
namespace line_mode {
inline constexpr int stock = 1; ///< a stock item is added
inline constexpr int non_stock = 4; ///< a line without a stock item is added
inline constexpr int existing = 5;
} // namespace line_mode

/// What adding and editing a line hand to each other, beside the state of the page.
struct LineWork {
    /// Changed: quantity, measure, item, comment, and any of them. A line that is added is a change.
    std::array<bool, 5> ing_flags{};
    static constexpr size_t any_field = 4;

    bool item_changed = false; ///< the name was changed at any time since the editor opened
    bool lines_greyed = false; ///< a press on a greyed line is under way
    bool is_new = false; ///< the line is not in the database yet
    bool non_stock = false; ///< a new line that began without a stock item
    Key adding_item = -1; ///< stock item of a line that is added; -1 none
};

/// The operations that add, change and delete ingredient lines.
class Ingredients {
public:
    Ingredients(frmmain& main, RecipePage& page, LineEditor& editor);

    void add_ns_ingred(); ///< opens the line editor on a new empty line

    /// Starts a line of the stock item in work, after a question when the recipe has it already.
    void drag_ingred(const QString& name);

    /// Inserts the line at the recipe's end and shows it. False when the name is missing: the editor stays.
    bool add_ingred(const QString& item, const QString& qty, const QString& measure, const QString& comment);

    /// False, after a message, for a new line that the page has no room for.
    bool fits_on_page() const;

    /// Writes the changed fields of an edited line and rebuilds its text. Does nothing when its name is
    /// missing, after the message.
    void ingred_updt(int index);

    void ingred_del(int index); ///< at once, without a question

    /// The cross: drops a new line, deletes an existing one.
    void cancel();

    /// Whether a stock item is on the page's recipe.
    bool check_exist(Key item) const;

    /// Points the line under the editor to a stock item, 0 to none, in the database and on the page.
    void link(Key item);

    /// The same while a name is typed; the pictures of an item wanted on several lists stay.
    void link_by_name(Key item);

    /// What an error while a line is added leads to: error 13 drops the line silently, any other ends the
    /// program after a message.
    void end_after_error(const runtime_error& error);

    LineWork work;

private:
    bool begin_line();
    bool has_new_line() const;
    void insert(const QString& item, const QString& qty, const QString& measure, const QString& comment);
    void show_inserted(const IngredientRow& row);
    void drop_new_line();

    frmmain& main_;
    RecipePage& page_;
    LineEditor& editor_;
};

} // namespace tarnwick
