#pragma once

#include "data/text.h"

#include <QObject>
#include <QString>

class QTreeWidgetItem;

namespace tarnwick {

class StockTree;
struct Program;

/// The commands on stock items and categories.
class StockCommands : public QObject {
    Q_OBJECT
public:
    StockCommands(Program& program, StockTree& tree);

    void new_cat(); ///< asks for the name of a new category

    // Deleting, moving and renaming are not written yet: these five do nothing.
    void tv_del_cat(Key category);
    void tv_del_item(Key item);
    void mv_item(Key category, Key item);
    void rename_category();
    void rename_item();

    void new_stock_item(); ///< opens the item editor on a new item

    /// Opens the item editor on the selected item; nothing without one. Throws SQLite::Exception.
    void edit_stock_item();
    void item_to_recipe(); ///< adds the selected item to the recipe on the page

    /// The end of a label edit in the stock tree. False keeps the old text, which is all it does yet.
    bool after_label_edit(QTreeWidgetItem& node, const QString& text);

signals:
    void adding_wanted(tarnwick::Key item, const QString& name); ///< as a line of the recipe on the page

private:
    Program& program_;
    StockTree& tree_;
};

} // namespace tarnwick
