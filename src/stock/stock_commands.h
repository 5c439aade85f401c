#pragma once

#include "data/text.h"

#include <QString>

class QTreeWidgetItem;

namespace tarnwick {

class frmmain;

/// The commands on stock items and categories.
class StockCommands {
public:
    explicit StockCommands(frmmain& main);

    void new_cat();
    void tv_del_cat(Key category);
    void tv_del_item(Key item);
    void mv_item(Key category, Key item);
    void rename_category(); ///< starts a label edit on the selected category
    void rename_item(); ///< starts a label edit on the selected item
    void new_stock_item();
    void edit_stock_item();
    void item_to_recipe(); ///< adds the selected item to the recipe on the page

    /// The end of a label edit in the stock tree. False keeps the old text.
    bool after_label_edit(QTreeWidgetItem& node, const QString& text);

private:
    frmmain& main_;
};

} // namespace tarnwick
