#pragma once

#include "data/text.h"
#include "household/status.h"

#include <array>
#include <optional>

namespace tarnwick {

/// What changed the status of a stock item.
enum class Cause {
    placing,
    grid_box,
    tree_box,
    row_removal,
    clearing,
    page_box,
    item_editor,
    item_rename, ///< in place in the tree
    item_move
};

/// What becomes of `groc_1.to_get`.
enum class RowMark { given, flipped, row_gone, gone_or_cleared, by_page, as_edited, untouched };

/// What becomes of `items_1.to_get`, the flag of the item's last placing.
enum class ItemFlag { given, untouched, cleared, cleared_if_new };

/// A status code: computed from all list rows, plain 7 and 6 for a mark set and cleared, whatever stands on other
/// lists, or the one that was there.
enum class Code { computed, plain, untouched };

/// When the first status panel tells the item's status, beside the case that its node is the selected one;
/// `current` tells of what is current now instead, since the panel may tell of a row that is gone or cleared.
enum class PanelWords { always, in_stock_view, if_selected, current };

/// The tool tip that the item's lines on the recipe page get; `by_name` one each for lines found and lost by a
/// rename.
enum class LineTip { words, name_and_words, line_and_words, by_name };

/// Which of the rows whose mark changed the grid shows so, and whether it makes the row current. `whole_list` takes
/// in the rows of the list that keep their mark, too: those that were placed since the last load may be lit.
enum class GridMarks { in_place, whole_list, go_to_row, go_to_first };

/// How one cause treats all that shows or stores a status.
struct Treatment {
    Cause cause;
    RowMark row_mark;
    ItemFlag item_flag;
    Code stored; ///< `items_1.status`
    Code node; ///< picture and Tag of the node, which always move together
    bool node_shown; ///< the node is brought into view
    PanelWords words;
    Code page; ///< light and box of every line of the item
    LineTip tool_tip;
    GridMarks grid;
};

// The plain codes may lag behind other lists until the next computed one is written: kept as it is. So is that
// the recipe page marks all rows of an item and the grid shows the first of them only.
inline constexpr std::array treatments{
    Treatment{Cause::placing, RowMark::given, ItemFlag::given, Code::computed, Code::computed, false,
              PanelWords::in_stock_view, Code::computed, LineTip::name_and_words, GridMarks::in_place},
    Treatment{Cause::grid_box, RowMark::flipped, ItemFlag::untouched, Code::plain, Code::computed, false,
              PanelWords::always, Code::computed, LineTip::name_and_words, GridMarks::in_place},
    Treatment{Cause::tree_box, RowMark::flipped, ItemFlag::untouched, Code::plain, Code::plain, false,
              PanelWords::always, Code::plain, LineTip::name_and_words, GridMarks::go_to_row},
    Treatment{Cause::row_removal, RowMark::row_gone, ItemFlag::untouched, Code::computed, Code::computed, false,
              PanelWords::current, Code::computed, LineTip::words, GridMarks::in_place},
    Treatment{Cause::clearing, RowMark::gone_or_cleared, ItemFlag::cleared, Code::computed, Code::computed, false,
              PanelWords::current, Code::computed, LineTip::words, GridMarks::whole_list},
    Treatment{Cause::page_box, RowMark::by_page, ItemFlag::untouched, Code::computed, Code::computed, true,
              PanelWords::always, Code::plain, LineTip::words, GridMarks::go_to_first},
    Treatment{Cause::item_editor, RowMark::as_edited, ItemFlag::cleared_if_new, Code::computed, Code::computed,
              false, PanelWords::always, Code::computed, LineTip::line_and_words, GridMarks::in_place},
    Treatment{Cause::item_rename, RowMark::untouched, ItemFlag::untouched, Code::untouched, Code::untouched, false,
              PanelWords::if_selected, Code::computed, LineTip::by_name, GridMarks::in_place},
    Treatment{Cause::item_move, RowMark::untouched, ItemFlag::untouched, Code::untouched, Code::computed, true,
              PanelWords::always, Code::untouched, LineTip::name_and_words, GridMarks::in_place},
};

constexpr const Treatment& treatment_of(Cause cause)
{
    return treatments[static_cast<size_t>(cause)];
}

/// The plain code of a row's mark.
constexpr StatusCode plain_code(bool to_get)
{
    return to_get ? StatusCode::buy_it : StatusCode::inactive;
}

/// A code as a column of the table has it; nothing for one that stays. `computed` is the item's true code, `to_get`
/// the mark just written.
constexpr std::optional<StatusCode> code_of(Code kind, StatusCode computed, bool to_get)
{
    if (kind == Code::untouched)
        return std::nullopt;
    return kind == Code::plain ? plain_code(to_get) : computed;
}

/// A stock item and its true status code.
struct ItemStatus {
    Key item;
    StatusCode status;
};

/// Stores flag and status of an item as the cause has it; joins the caller's transaction. `to_get` is the mark
/// just written. Returns the item's true code, nothing when there is no such item. Throws SQLite::Exception.
std::optional<StatusCode> store_status(Connection& connection, Cause cause, Key item, bool to_get);

} // namespace tarnwick
