#pragma once

#include "household/household.h"
#include "household/lists_store.h"

#include <QObject>

namespace tarnwick {

class Clearing;
class ListPane;
class Placing;
struct Program;

/// The life of shopping lists: made, chosen, renamed, deleted, and the menu of them.
class Lists : public QObject {
    Q_OBJECT
public:
    Lists(Program& program, ListPane& pane, Placing& placing, Clearing& clearing);

    void new_list(); ///< opens the naming dialog
    void clear(); ///< opens the clearing dialog on the current list and does what is chosen there
    void list_del(); ///< deletes the current list after asking
    void rename_list(); ///< asks for a new name for the current list

    /// Rebuilds the entries of the list menu, then loads the grid.
    void set_mnu_lists();

    /// A click on an entry of the list menu: its caption, and its tag with the list's key.
    void choose(const QString& caption, const QString& tag);

    /// Brings up the first list row of an item, on its list when another one is on show; its name is marked.
    void locate(Key item);

    /// A list that was made becomes the current one; one that was deleted is followed by the first that remains.
    void lists_changed(const ListsChange& change);

signals:
    void lists_read(const std::vector<ShoppingList>& lists); ///< all of them by name, for the menu
    void list_renamed(Key list, const QString& name);

private:
    void read_lists(Key chosen);
    void list_made(Key list);
    void list_deleted(std::optional<Key> first_left);
    void choose_list(const QString& caption, const QString& tag);
    void hide_column_groups();

    Program& program_;
    ListPane& pane_;
    Placing& placing_;
    Clearing& clearing_;
};

} // namespace tarnwick
