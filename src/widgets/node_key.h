#pragma once

#include "data/text.h"

#include <QString>

class QTreeWidgetItem;

namespace tarnwick {

/// What a node of the trees stands for.
enum class NodeKind { none, item, category, recipe, recipe_category };

/// The key of a tree node, taken apart.
struct NodeKey {
    NodeKind kind = NodeKind::none;
    Key record = 0; ///< key of the record, 1 to 15 for a category of recipes; -1 for a key of more than four digits

    static NodeKey of(const QTreeWidgetItem* node); ///< kind none without a node
    static NodeKey parse(const QString& text); ///< kind none for a text of another form
    QString text() const; ///< as the node carries it; empty for kind none

    bool is_item() const { return kind == NodeKind::item; }
    bool is_category() const { return kind == NodeKind::category; } ///< of stock, with OTHER
    bool is_other() const { return is_category() && record == 0; } ///< OTHER
    bool is_recipe() const { return kind == NodeKind::recipe; }
    bool is_recipe_category() const { return kind == NodeKind::recipe_category; }
};

} // namespace tarnwick
