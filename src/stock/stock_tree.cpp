#include "stock/stock_tree.h"

#include "stock/stock_clicks.h"
#include "household/household.h"
#include "widgets/node_key.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/busy_pointer.h"
#include "widgets/tree_view.h"
#include "household/category_store.h"
#include "household/early_reading.h"
#include "household/item_change.h"
#include "household/status.h"
#include "household/stock_store.h"

#include <QHash>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr int category_closed = 1;
constexpr int category_open = 2;
constexpr int other_closed = 3;
constexpr int other_open = 4;
const QColor other_color(255, 0, 0);

QString item_key(Key item)
{
    return NodeKey{NodeKind::item, item}.text();
}
QString category_key(Key category)
{
    return NodeKey{NodeKind::category, category}.text();
}

/// A picture or status as Tag. There are few, and each is one text for all nodes.
QString tag_of(int number)
{
    static QHash<int, QString> tags;
    QString& tag = tags[number];
    if (tag.isEmpty())
        tag = QString::number(number);
    return tag;
}

int folder_picture(bool other, bool open)
{
    if (other)
        return open ? other_open : other_closed;
    return open ? category_open : category_closed;
}

} // namespace

StockTree::StockTree(Program& program, TreeView& tree, std::function<bool()> leave_line_editor)
    : program_(program)
    , tree_(tree)
{
    clicks_ = new StockClicks(program_, *this, std::move(leave_line_editor));
    connect_events();
}

void StockTree::connect_events()
{
    connect(&tree_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* node) { expanded(node, true); });
    connect(&tree_, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* node) { expanded(node, false); });
    connect(&tree_, &TreeView::selection_changed, this, &StockTree::show_status_of_selection);
    connect(&tree_, &TreeView::before_label_edit, this,
            [](QTreeWidgetItem* node, bool& cancel) { cancel = NodeKey::of(node).is_other(); });
}

void StockTree::tv_load(bool alpha, EarlyReading* early)
{
    tree_.finish_label_edit();
    const BusyPointer busy;
    const QScopedValueRollback quiet(quiet_, true);
    const bool had_focus = tree_.hasFocus();
    tree_.hide();
    tree_.clear_nodes();
    tree_.set_flat(alpha);
    emit loading(alpha);
    if (!alpha)
        load_folders();
    load_items(alpha, early);
    open_folders();
    tree_.show();
    if (had_focus)
        tree_.setFocus();
}

/// Adds the folders. What holds an item is marked open as stored; it opens when the items are there.
void StockTree::load_folders()
{
    open_at_load_.clear();
    program_.household.write_aside(prepare_folders);
    QList<QTreeWidgetItem*> folders;
    const auto categories = read_categories(program_.connection);
    int nodes = static_cast<int>(categories.size());
    for (const CatalogueFolder& category : categories)
        nodes += category.items;
    tree_.reserve_nodes(nodes);
    try {
        for (const CatalogueFolder& category : categories)
            folders.append(make_folder(category));
    } catch (...) {
        tree_.drop_unplaced(folders);
        throw;
    }
    tree_.addTopLevelItems(folders);
}

QTreeWidgetItem* StockTree::make_folder(const CatalogueFolder& category)
{
    const bool other = category.key == 0;
    const bool open = category.expand && category.items > 0;
    const int picture = other && category.items == 0 ? 0 : folder_picture(other, open);
    const QString key = category_key(category.key);
    QTreeWidgetItem* node = tree_.make_node(key, other ? QStringLiteral("OTHER") : category.name, picture,
                                            picture > 0 ? tag_of(picture) : QString());
    if (other && category.items > 0)
        node->setForeground(0, other_color);
    if (open && !other)
        open_at_load_.push_back(key);
    return node;
}

/// Adds the items folder by folder in one piece each; they are in name order already.
void StockTree::load_items(bool alpha, EarlyReading* early)
{
    struct Folder {
        QTreeWidgetItem* node;
        QList<QTreeWidgetItem*> items;
    };
    QList<QTreeWidgetItem*> flat;
    QHash<Key, Folder> folders;
    const auto folder_of = [&](Key category) -> Folder& {
        const auto known = folders.find(category);
        return known != folders.end() ? *known : *folders.insert(category, {category_node(category), {}});
    };
    const auto take = [&](const CatalogueItem& item) {
        Folder* folder = alpha ? nullptr : &folder_of(item.category);
        if (folder && !folder->node)
            return;
        QTreeWidgetItem* node = tree_.make_node(item_key(item.key), item.name, item.status, tag_of(item.status));
        (folder ? folder->items : flat).append(node);
    };
    try {
        std::optional<std::vector<CatalogueItem>> items = early ? early->take_items() : std::nullopt;
        if (!items)
            items = in_name_order(read_named_items(program_.connection));
        for (const CatalogueItem& item : *items)
            take(item);
    } catch (...) {
        for (const Folder& folder : std::as_const(folders))
            flat.append(folder.items);
        tree_.drop_unplaced(flat);
        throw;
    }
    tree_.addTopLevelItems(flat);
    for (const Folder& folder : std::as_const(folders))
        if (folder.node)
            folder.node->addChildren(folder.items);
}

void StockTree::open_folders()
{
    for (const QString& key : open_at_load_) {
        QTreeWidgetItem& folder = tree_.require_node(key);
        if (folder.childCount() > 0)
            folder.setExpanded(true);
    }
    open_at_load_.clear();
}

void StockTree::close_folders()
{
    {
        const QScopedValueRollback quiet(quiet_, true);
        for (int i = 0; i < tree_.topLevelItemCount(); ++i) {
            QTreeWidgetItem* folder = tree_.topLevelItem(i);
            if (folder->isExpanded()) {
                folder->setExpanded(false);
                show_closed(*folder);
            }
        }
    }
    program_.household.write_aside(store_all_closed);
}

void StockTree::expanded(QTreeWidgetItem* node, bool open)
{
    const NodeKey key = NodeKey::of(node);
    if (program_.shared.form_loading || quiet_ || !key.is_category())
        return;
    tree_.set_picture(node, folder_picture(key.is_other(), open));
    program_.household.write_aside(
        [&key, open](Connection& connection) { store_expand(connection, key.record, open); });
}

void StockTree::show_closed(QTreeWidgetItem& folder)
{
    tree_.set_picture(&folder, folder_picture(&folder == category_node(0), false));
}

QTreeWidgetItem* StockTree::item_node(Key item) const
{
    return tree_.node(item_key(item));
}

QTreeWidgetItem* StockTree::category_node(Key category) const
{
    return tree_.node(category_key(category));
}

/// Picture and Tag of an item's node.
void StockTree::set_item_code(Key item, StatusCode code)
{
    QTreeWidgetItem* node = item_node(item);
    if (!node)
        return;
    tree_.set_picture(node, code_number(code));
    TreeView::set_tag(node, tag_of(code_number(code)));
}

void StockTree::item_changed(const ItemChange& change)
{
    if (change.record) {
        const ItemCodes& codes = change.items.front();
        if (change.record->is_new)
            add_item_node(codes.item, change.record->category, change.record->name, codes.status);
        else if (QTreeWidgetItem* node = item_node(codes.item))
            node->setText(0, change.record->name);
        // The node's new place goes by its new name.
        if (change.record->moved)
            move_item_node(codes.item, change.record->category);
    }
    for (const ItemCodes& codes : change.items) {
        if (codes.node)
            set_item_code(codes.item, *codes.node);
        QTreeWidgetItem* node = treatment_of(change.cause).node_shown ? item_node(codes.item) : nullptr;
        if (node)
            tree_.ensure_visible(node);
    }
}

bool StockTree::is_selected(Key item) const
{
    const QTreeWidgetItem* node = tree_.selected();
    return node && node == item_node(item);
}

Key StockTree::selected_category() const
{
    const QTreeWidgetItem* node = tree_.selected();
    if (node && !NodeKey::of(node).is_category())
        node = node->parent();
    return NodeKey::of(node).record;
}

/// Behind the folder of the row before it in name order; in the category view only.
void StockTree::add_category_node(Key category, const QString& name)
{
    if (program_.shared.stock_alpha)
        return;
    // The table tells the place: a folder that was renamed may stand out of order in the tree.
    const auto before = category_before(program_.connection, category);
    const int place = before ? tree_.indexOfTopLevelItem(&tree_.require_node(category_key(*before))) + 1 : 0;
    QTreeWidgetItem* node
        = tree_.insert_node(nullptr, place, category_key(category), name, category_closed, tag_of(category_closed));
    tree_.select(node);
    tree_.ensure_visible(node);
}

/// Under its category, or at root level in the flat view; these nodes are sorted by name.
void StockTree::add_item_node(Key item, Key category, const QString& name, StatusCode code)
{
    QTreeWidgetItem* folder = tree_.is_flat() ? nullptr : &tree_.require_node(category_key(category));
    const int count = folder ? folder->childCount() : tree_.topLevelItemCount();
    QTreeWidgetItem* node = tree_.insert_node(folder, tree_.place_of(folder, name, count), item_key(item), name,
                                              code_number(code), tag_of(code_number(code)));
    tree_.sort_children(folder);
    tree_.select(node);
    tree_.ensure_visible(node);
}

/// Keeps picture and Tag. In the flat view nothing moves.
void StockTree::move_item_node(Key item, Key category)
{
    QTreeWidgetItem* node = item_node(item);
    if (!node || tree_.is_flat())
        return;
    QTreeWidgetItem& folder = tree_.require_node(category_key(category));
    QTreeWidgetItem* const left = node->parent();
    tree_.move_node(node, &folder);
    if (left && left->childCount() == 0)
        show_closed(*left);
    tree_.sort_children(&folder);
    tree_.ensure_visible(node);
    tree_.select(node);
}

int StockTree::get_indent() const
{
    const QTreeWidgetItem* node = tree_.selected();
    const QRect text = node ? tree_.text_rect(node) : QRect();
    return text.isNull() ? 0 : tree_.x() + text.left();
}

int StockTree::get_topdent() const
{
    const QTreeWidgetItem* node = tree_.selected();
    const QRect text = node ? tree_.text_rect(node) : QRect();
    return text.isNull() ? 0 : tree_.y() + text.top();
}

bool StockTree::tells_status() const
{
    return program_.shared.stock_view && !program_.shared.form_loading;
}

/// First status panel, while the tree is the one on show.
void StockTree::show_status_of_selection()
{
    if (!tells_status())
        return;
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        program_.set_status({});
    else if (NodeKey::of(node).is_item())
        program_.set_status(get_status(program_.connection, NodeKey::of(node).record));
    else
        program_.set_status(node->text(0) + QStringLiteral(" category: ") + QString::number(node->childCount())
                            + QStringLiteral(" stock items"));
}

void StockTree::category_changed(const CategoryChange& change)
{
    if (change.kind == CategoryChange::Kind::made)
        add_category_node(change.category, change.name);
    else if (QTreeWidgetItem* folder = category_node(change.category))
        folder->setText(0, change.name); // it keeps its place until the next load
}

void StockTree::items_gone(const ItemsGone& gone)
{
    QTreeWidgetItem* folder = gone.category ? category_node(*gone.category) : nullptr;
    for (const Key item : gone.items)
        if (QTreeWidgetItem* node = item_node(item); node && (!folder || node->parent() != folder))
            remove_item_node(*node);
    if (!folder)
        return;
    const QTreeWidgetItem* chosen = tree_.selected();
    if (chosen && (chosen == folder || chosen->parent() == folder))
        select_neighbour(*folder);
    tree_.remove_node(folder);
}

/// The selection moves on before the node goes: to the folder, in the flat view to the node before it.
void StockTree::remove_item_node(QTreeWidgetItem& node)
{
    const bool was_selected = tree_.selected() == &node;
    QTreeWidgetItem* folder = node.parent();
    if (was_selected && folder)
        tree_.select(folder);
    else if (was_selected)
        select_neighbour(node);
    if (folder && folder->childCount() < 2)
        show_closed(*folder);
    tree_.remove_node(&node);
    if (was_selected)
        tell_after_deletion();
}

/// The root node before this one, or without one the next; none is selected when there is no other.
void StockTree::select_neighbour(QTreeWidgetItem& node)
{
    const int place = tree_.indexOfTopLevelItem(&node);
    tree_.select(tree_.topLevelItem(place > 0 ? place - 1 : place + 1));
}

void StockTree::tell_after_deletion()
{
    if (!tells_status())
        return;
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        program_.set_status(QStringLiteral(" "));
    else if (tree_.is_flat())
        program_.set_status(get_status(program_.connection, NodeKey::of(node).record));
    else
        program_.set_status(node->text(0) + QStringLiteral(" category"));
}

} // namespace tarnwick
