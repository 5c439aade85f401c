#pragma once

#include "data/text.h"

#include <QObject>
#include <QPoint>

#include <functional>

class QTreeWidgetItem;

namespace tarnwick {

class StockTree;
class TreeView;
struct DragPayload;
struct Program;

/// What mouse and keys do in the stock tree: select a node, tick an item's box, ask for the menu, begin a drag, ask
/// for a deletion.
class StockClicks : public QObject {
    Q_OBJECT
public:
    /// `leave_line_editor` finishes an open edit of an ingredient line; false when none was open.
    StockClicks(Program& program, StockTree& tree, std::function<bool()> leave_line_editor);

signals:
    void menu_wanted(QPoint place); ///< a click with another button than the left; place on the screen
    void drag_wanted(const DragPayload& payload, QPoint global); ///< a stock item is dragged out of the tree
    void node_pressed(); ///< the user comes to the tree
    void item_clicked(QTreeWidgetItem* node); ///< a left click on an item, after what its box did
    void item_left(); ///< an arrow key was released, or a click met no item
    void placing_wanted(tarnwick::Key item); ///< the box of an item on no list
    void item_deletion_wanted(tarnwick::Key item);
    void category_deletion_wanted(tarnwick::Key category);

private:
    void mouse_down(Qt::MouseButton button, QPoint position);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void start_drag(const QTreeWidgetItem& node, QPoint global);
    void key_down(int key);
    void key_up(int key);

    /// The click on an item's check box. False ends the handling of the release.
    bool click_box(QTreeWidgetItem& node);
    bool hits_box(int x) const;
    void activate(Key item);
    void inactivate(Key item);

    Program& program_;
    StockTree& stock_;
    TreeView& tree_;
    std::function<bool()> leave_line_editor_;
    bool tree_mouse_down_ = false; ///< a press on the tree is not released yet
    QPoint tree_down_; ///< where the last press happened, in the viewport
};

} // namespace tarnwick
