#pragma once

#include "data/text.h"

#include <QString>

#include <functional>

namespace tarnwick {

class Connection;
class LineBoxes;
class LinePicks;
class RecipePage;
struct LineDraft;

/// The item name of the line under edit: which stock item it means, and what the page shows of that. All that it
/// is given must outlive it. What reads throws SQLite::Exception.
class LineName {
public:
    /// `index` tells the line under edit, -1 without one.
    LineName(Connection& connection, RecipePage& page, LineBoxes& boxes, LinePicks& picks, LineDraft& draft,
             std::function<int()> index);

    void typed(const QString& name); ///< another name is in the box

    /// Shows the stock item that the draft means. While the name is being typed, the pictures of one that is wanted
    /// on several lists stay.
    void show_link(bool while_typing);

    /// The box was left: the name that is in it is the one it is compared with from now on.
    void settle();

    /// Takes a stock item of the list for the name, in the box and in the draft.
    void choose(const QString& name, Key item);

    void show_chosen(); ///< the tool tip of the line after `choose`

    void restore(); ///< the last name that could stay

    /// Whether the box holds an apostrophe. A name that was stored with one stays as it is until it is changed.
    bool has_apostrophe() const;

    /// Takes the apostrophes out of draft and box, without a message.
    void drop_apostrophes();

private:
    void show_tool_tip(int index, const QString& text);

    Connection& connection_;
    RecipePage& page_;
    LineBoxes& boxes_;
    LinePicks& picks_;
    LineDraft& draft_;
    std::function<int()> index_;
};

} // namespace tarnwick
