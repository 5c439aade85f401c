#pragma once

#include "household/clearing_store.h"
#include "household/item_change.h"
#include "household/last_removal.h"
#include "household/item_saving.h"
#include "household/placing_store.h"
#include "household/stock_keeping.h"
#include "household/stock_store.h"

#include <QObject>

#include <functional>

namespace tarnwick {

/// Why an operation wrote nothing.
enum class Refusal { none, no_list, no_item };

/// What became of a shopping list.
struct ListsChange {
    enum class Kind { made, renamed, deleted };
    Kind kind = Kind::made;
    Key list = 0;
    QString name; ///< as made or renamed
    std::optional<Key> first_left; ///< after a deletion the first list that remains
};

/// What became of a category of stock that is there.
struct CategoryChange {
    enum class Kind { made, renamed };
    Kind kind = Kind::made;
    Key category = 0;
    QString name;
};

/// A recipe that was made, in a category of two digits.
struct MadeRecord {
    Key key = 0;
    QString name;
    QString category;
};

/// An ingredient line that was moved to another place of its recipe, counted from 0.
struct LineMove {
    Key recipe = 0;
    Key line = 0;
    int place = 0;
};

struct IngredientRow;
struct LineDraft;

/// The user's operations on lists and stock. Each is one transaction, and is announced when it is in the file.
/// Everything throws SQLite::Exception; nothing is written or announced then.
class Household : public QObject {
    Q_OBJECT
public:
    explicit Household(Connection& connection);

    /// What stands against writing to a list: a key above 0 without a record takes no items.
    Refusal refusal_of(Key list);

    /// Puts an item on a list. Throws error 6 when the keys are used up.
    Refusal place(const Placement& placement);

    /// The box in the grid: writes the buy-it mark of a row. A row that is not on the list: nothing.
    void tick(Key groc_key, Key list, bool to_get);

    /// The box in the stock tree: the same for the row that a click on an item stands for.
    void tick_in_tree(Key item, const TiedRow& row, bool to_get);

    /// The box on the recipe page: marks all rows of an item; without a mark its status alone is written.
    /// Returns the item's first row; nothing, and no change, when it is on no list.
    std::optional<Key> check_line(Key item, std::optional<bool> to_get);

    /// Deletes a list row with its link and repairs `tie`.
    void remove_row(Key groc_key);

    /// Writes what a draft changes of its line, or a whole new line, as `save_line` of `line_draft` does. Returns
    /// the line as it is stored; nothing, and nothing is announced, when line or recipe have gone.
    std::optional<IngredientRow> save_line(const LineDraft& draft);

    /// Gives a line all its texts and its link back, -1 for a stock item that has gone. A line that has gone:
    /// nothing.
    void restore_line(const IngredientRow& line);

    /// Deletes an ingredient line and moves up those behind it.
    void remove_line(Key line);

    /// Where `bring_back` would bring something back to: a list or a recipe. Nothing when the last change was no
    /// removal.
    struct RemovedFrom {
        Key list = -1;
        Key recipe = -1;
    };
    std::optional<RemovedFrom> removed_from();

    /// Writes what is no change of the user's: how things are shown, such as an open folder, or a text as it was.
    /// What was removed last can still be brought back.
    void write_aside(const std::function<void(Connection&)>& write) { removal_.pass_by(write); }

    /// Puts back what the last removal of a row or a line took, as it was. A row is announced as a removal is, with
    /// the row written in place of gone. After any other change: nothing.
    void bring_back();

    /// Clears a list. Without rows nothing is written or announced.
    Refusal clear_list(Key list, ClearMode mode);

    /// The item editor's OK. Returns the item's key. Throws placing_error as well.
    Key save_item(const ItemEdit& edit);

    /// Deletes a stock item with its list rows; its recipe lines become non-stock lines of the same text.
    Refusal delete_item(Key item);

    /// The tree's rename: gives an item and its list rows another name. Its recipe lines lose their link, and
    /// non-stock lines of the new name are linked to it.
    Refusal rename_item(Key item, const QString& name);

    /// Moves an item to a category. To the one where it is: nothing.
    Moved move_item(Key item, Key category);

    /// Deletes a category with all its items, as `delete_item` does each. False for OTHER and no such category.
    bool delete_category(Key category);

    /// Gives a category another name. False as above.
    bool rename_category(Key category, const QString& name);

    /// Deletes a list with all its rows.
    Refusal delete_list(Key list);

    /// Gives a list another name. No such list: nothing.
    void rename_list(Key list, const QString& name);

    /// Makes a list and returns its key. Throws error 6 when the keys are used up.
    Key make_list(const QString& name, QDate today);

    /// Makes a closed category of stock and returns its key. Throws error 6 as above.
    Key make_category(const QString& name);

    /// Makes a recipe in a category of two digits and returns its key. Throws error 6 as above.
    Key make_recipe(const QString& name, const QString& category);

    /// Puts an ingredient line of a recipe behind another one, or first with `after` below 1. Nothing happens when
    /// either has gone, or the line stands there.
    void move_line(Key recipe, Key line, Key after);

signals:
    void item_changed(const ItemChange& change);
    void lists_changed(const ListsChange& change);
    void items_gone(const ItemsGone& gone);
    void category_changed(const CategoryChange& change);
    void line_added(Key recipe, const IngredientRow& line); ///< at the recipe's end
    void line_changed(const IngredientRow& line); ///< as it is stored now
    void line_gone(Key line);
    void line_returned(Key recipe, int place); ///< counted from 0
    void recipe_changed(const MadeRecord& made);
    void line_moved(const LineMove& move);

private:
    void announce_mark(Cause cause, const ItemStatus& item, const std::vector<TiedRow>& rows, bool to_get);
    void announce_record(Cause cause, Key item, const std::function<void(ItemRecord&)>& tell);
    void announce_cleared(Key list, const ClearedRows& cleared, ClearMode mode);

    Connection& connection_;
    LastRemoval removal_;
};

} // namespace tarnwick
