#pragma once

#include "data/text.h"

#include <QObject>
#include <QPoint>

#include <vector>

class QTreeWidgetItem;

namespace tarnwick {

class frmmain;
class FloatingButtons;
class TreeView;
struct CatalogueFolder;
struct ItemChange;

/// The stock tree `TreeView1(0)`: its load, its events and the pictures of its items.
class StockTree : public QObject {
    Q_OBJECT
public:
    StockTree(frmmain& main, TreeView& tree, FloatingButtons& buttons);

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

    /// Sets picture and Tag of an item's node to a status code. No node: nothing.
    void set_item_code(Key item, int code);

    /// Shows in the tree what an operation did to stock items.
    void item_changed(const ItemChange& change);

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

private:
    void connect_events();
    void load_folders();
    QTreeWidgetItem* make_folder(const CatalogueFolder& category);
    void load_items(bool alpha);
    void open_folders();
    void expanded(QTreeWidgetItem* node, bool open);
    void node_click(QTreeWidgetItem* node);
    void mouse_down(Qt::MouseButton button, QPoint position);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void key_down(int key);
    void key_up(int key);
    void show_status_of_selection();

    /// The click on an item's check box. False ends the handling of the release.
    bool click_box(QTreeWidgetItem& node);
    bool hits_box(int x) const;
    void activate(Key item);
    void inactivate(Key item);

    frmmain& main_;
    TreeView& tree_;
    FloatingButtons& buttons_;
    bool tree_mouse_down_ = false;
    QPoint tree_down_;
    std::vector<QString> open_at_load_; ///< keys of folders that a load opens once they hold their items
    bool quiet_ = false; ///< folders open and close without being stored
};

} // namespace tarnwick
