#pragma once

#include "data/text.h"

#include <QObject>

#include <functional>
#include <vector>

class QTreeWidgetItem;

namespace tarnwick {

struct Program;
class EarlyReading;
class StockClicks;
class TreeView;
enum class StatusCode;
struct CatalogueFolder;
struct CategoryChange;
struct ItemChange;
struct ItemsGone;

/// The stock tree `TreeView1(0)`: its load, its nodes and what operations do to them.
class StockTree : public QObject {
    Q_OBJECT
public:
    /// `leave_line_editor` finishes an open edit of an ingredient line; false when none was open.
    StockTree(Program& program, TreeView& tree, std::function<bool()> leave_line_editor);

    TreeView& view() { return tree_; }

    /// Rebuilds the tree: folders with their items, or one flat list when `alpha`. Items that were read early are
    /// taken from there.
    void tv_load(bool alpha, EarlyReading* early = nullptr);

    /// Closes every folder and stores that.
    void close_folders();

    /// The node of a stock item or a category; none when the tree does not hold it.
    QTreeWidgetItem* item_node(Key item) const;
    QTreeWidgetItem* category_node(Key category) const;

    // Each shows in the tree what an operation did to stock items or a category. A node that is new or was moved is
    // selected and shown. Each throws error 35601 when the tree lacks a folder that it needs.
    void item_changed(const ItemChange& change);
    void items_gone(const ItemsGone& gone);
    void category_changed(const CategoryChange& change);

    /// The category of the selected folder, or of the one that the selected item lies in; 0 without one.
    Key selected_category() const;

    /// Whether an item's node is the selected one.
    bool is_selected(Key item) const;

    /// Left and top of the selected row's text, pixels in the window's central area; 0 without one.
    int get_indent() const;
    int get_topdent() const;

    /// Tells the selected node's status in the first panel, while the tree is the one on show.
    void show_status_of_selection();

    StockClicks& clicks() { return *clicks_; }

signals:
    void loading(bool alpha); ///< the tree is about to be filled, by name or by category

private:
    void connect_events();
    void load_folders();
    QTreeWidgetItem* make_folder(const CatalogueFolder& category);
    void load_items(bool alpha, EarlyReading* early);
    void open_folders();
    void expanded(QTreeWidgetItem* node, bool open);
    void show_closed(QTreeWidgetItem& folder); ///< its picture alone

    void set_item_code(Key item, StatusCode code);
    void add_category_node(Key category, const QString& name);
    void add_item_node(Key item, Key category, const QString& name, StatusCode code);
    void move_item_node(Key item, Key category);
    void remove_item_node(QTreeWidgetItem& node);
    void select_neighbour(QTreeWidgetItem& node);
    void tell_after_deletion();
    bool tells_status() const;

    Program& program_;
    TreeView& tree_;
    StockClicks* clicks_ = nullptr;
    std::vector<QString> open_at_load_; ///< keys of folders that a load opens once they hold their items
    bool quiet_ = false; ///< folders open and close without being stored
};

} // namespace tarnwick
