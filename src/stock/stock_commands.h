#pragma once

#include "data/text.h"
#include "stock/stock_tidying.h"
#include "widgets/focus_question.h"

#include <QObject>
#include <QString>

#include <functional>

class QTreeWidgetItem;

namespace tarnwick {

class StockTree;
struct Program;

/// The commands on stock items and categories.
class StockCommands : public QObject {
    Q_OBJECT
public:
    /// `finish_recipe_line` finishes an open edit of an ingredient line; false when it stays open.
    StockCommands(Program& program, StockTree& tree, std::function<bool()> finish_recipe_line);

    void new_cat(); ///< asks for the name of a new category

    // Each first finishes what is being edited on the recipe page; nothing happens while that cannot be finished.
    void tv_del_cat(Key category); ///< asks; nothing in the flat view, which has no folders
    void tv_del_item(Key item); ///< asks when it stands on lists
    void mv_item(Key category, Key item); ///< to its own category: nothing
    void rename_category(); ///< opens the label editor on the selected folder
    void rename_item(); ///< opens it on the selected node

    void new_stock_item(); ///< opens the item editor on a new item

    /// Opens the item editor on the selected item; nothing without one. Throws SQLite::Exception.
    void edit_stock_item();
    void item_to_recipe(); ///< adds the selected item to the recipe on the page

    /// The end of a label edit in the stock tree: renames what the node stands for, unless nothing is left of the
    /// name or nothing new. A message about it waits for the end of a focus change.
    void after_label_edit(const QTreeWidgetItem& node, const QString& text, Qt::FocusReason left_by);

signals:
    void item_moving(); ///< an item is about to be moved to another category
    void adding_wanted(tarnwick::Key item, const QString& name); ///< as a line of the recipe on the page

private:
    bool leave_page();

    Program& program_;
    StockTree& tree_;
    std::function<bool()> finish_recipe_line_;
    StockTidying tidying_;
    FocusQuestion question_;
};

} // namespace tarnwick
