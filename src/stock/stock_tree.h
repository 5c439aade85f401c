#pragma once

#include "data/text.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <vector>

class QTreeWidgetItem;

namespace tarnwick {

struct Program;
class TreeView;
struct DragPayload;
struct CatalogueFolder;
struct CategoryChange;
struct ItemChange;
struct ItemsGone;

/// The stock tree `TreeView1(0)`: its load, its events and the pictures of its items.
class StockTree : public QObject {
    Q_OBJECT
public:
    /// `leave_line_editor` finishes an open edit of an ingredient line; false when none was open.
    StockTree(Program& program, TreeView& tree, std::function<bool()> leave_line_editor);

    TreeView& view() { return tree_; }

    /// Rebuilds the tree: folders with their items, or one flat list when `alpha`.
    void tv_load(bool alpha);

    /// Sets one item's picture and Tag from its list rows: 5, 6 or 7. Throws error 35601 when the tree has no such
    /// item.
    void tv_refresh(Key item);

    /// Closes every folder and stores that.
    void close_folders();

    /// The node of a stock item or a category; none when the tree does not hold it.
    QTreeWidgetItem* item_node(Key item) const;
    QTreeWidgetItem* category_node(Key category) const;

    /// Sets picture and Tag of an item's node to a status code. No node, or `code_untouched`: nothing.
    void set_item_code(Key item, int code);

    // Each shows in the tree what an operation did to stock items or a category.
    void item_changed(const ItemChange& change);
    void items_gone(const ItemsGone& gone);
    void category_changed(const CategoryChange& change);

    /// The category of the selected folder, or of the one that the selected item lies in; 0 without one.
    Key selected_category() const;

    /// Whether an item's node is the selected one.
    bool is_selected(Key item) const;

    /// Adds a node for a category whose row was just made, behind the folder of the row before it in name order;
    /// selects and shows it. Category view only. Throws error 35601 when that folder is missing.
    void add_category_node(Key category, const QString& name);

    /// Adds a node for a stock item under its category, or at root level in the flat view, sorts these nodes
    /// by name, selects and shows the new one. Throws error 35601 when the category has no folder.
    QTreeWidgetItem* add_item_node(Key item, Key category, const QString& name, int code);

    /// Moves an item's node to another folder, which is sorted by name; keeps picture and Tag. No node, or
    /// the flat view: nothing. Throws error 35601 when the category has no folder.
    void move_item_node(Key item, Key category);

    /// Left and top of the selected row's text, pixels in the window's central area; 0 without one.
    int get_indent() const;
    int get_topdent() const;

    /// The press on the tree that is not released yet, and where the last one happened (viewport).
    bool tree_mouse_down() const { return tree_mouse_down_; }
    void clear_mouse_down() { tree_mouse_down_ = false; }
    QPoint tree_down() const { return tree_down_; }

signals:
    void menu_wanted(QPoint place); ///< a click with another button than the left; place on the screen
    void drag_wanted(const DragPayload& payload, QPoint global); ///< a stock item is dragged out of the tree
    void loading(bool alpha); ///< the tree is about to be filled, by name or by category
    void node_pressed(); ///< the user comes to the tree
    void item_clicked(QTreeWidgetItem* node); ///< a left click on an item, after what its box did
    void item_left(); ///< an arrow key was released, or a click met no item
    void placing_wanted(tarnwick::Key item); ///< the box of an item on no list
    void item_deletion_wanted(tarnwick::Key item);
    void category_deletion_wanted(tarnwick::Key category);

private:
    void connect_events();
    void load_folders();
    QTreeWidgetItem* make_folder(const CatalogueFolder& category);
    void load_items(bool alpha);
    void open_folders();
    void expanded(QTreeWidgetItem* node, bool open);
    void show_closed(QTreeWidgetItem& folder); ///< its picture alone
    void mouse_down(Qt::MouseButton button, QPoint position);
    void start_drag(const QTreeWidgetItem& node, QPoint global);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void key_down(int key);
    void key_up(int key);
    void show_status_of_selection();

    void remove_item_node(QTreeWidgetItem& node);
    void select_neighbour(QTreeWidgetItem& node);
    void tell_after_deletion();
    bool tells_status() const;

    /// The click on an item's check box. False ends the handling of the release.
    bool click_box(QTreeWidgetItem& node);
    bool hits_box(int x) const;
    void activate(Key item);
    void inactivate(Key item);

    Program& program_;
    TreeView& tree_;
    std::function<bool()> leave_line_editor_;
    bool tree_mouse_down_ = false;
    QPoint tree_down_;
    std::vector<QString> open_at_load_; ///< keys of folders that a load opens once they hold their items
    bool quiet_ = false; ///< folders open and close without being stored
};

} // namespace tarnwick
