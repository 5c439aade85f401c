#include "widgets/tree_view.h"

#include "data/collation.h"
#include "data/runtime_error.h"
#include "widgets/key_kinds.h"
#include "widgets/second_click.h"
#include "widgets/tree_delegate.h"
#include "widgets/tree_node.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr int level_indent = 18; // pixels, with the arrow of a folder in the first

/// Popups and other windows take the keyboard for a while; the tree stays the control in use.
bool is_passing(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason
        || reason == Qt::ActiveWindowFocusReason;
}

bool by_name(const QTreeWidgetItem* left, const QTreeWidgetItem* right)
{
    return compare_names(left->text(0), right->text(0)) < 0;
}

} // namespace

TreeView::TreeView(ImageList pictures, QWidget* parent)
    : QTreeWidget(parent)
    , delegate_(new TreeDelegate(pictures, *this))
    , second_click_(new SecondClick(this))
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(level_indent);
    setItemDelegate(delegate_);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    connect(second_click_, &SecondClick::came, this, [this] {
        if (hasFocus())
            start_label_edit();
    });
    connect(this, &QTreeWidget::itemCollapsed, this, &TreeView::follow_collapse);
    connect(this, &QTreeWidget::currentItemChanged, second_click_, &SecondClick::stop);
    connect(this, &QTreeWidget::itemSelectionChanged, this, &TreeView::announce_selection);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* node) {
        if (node->isSelected() && node->text(0) != announced_text_)
            announce_selection();
    });
    // A selected folder has another number of children now.
    const auto children_changed = [this](const QModelIndex& folder) {
        if (folder.isValid() && selectionModel()->isSelected(folder))
            announce_selection();
    };
    connect(model(), &QAbstractItemModel::rowsInserted, this, children_changed);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, children_changed);
}

// An open label editor tells the delegate when it goes, which must not find half a tree.
TreeView::~TreeView()
{
    delete delegate_;
}

void TreeView::set_flat(bool flat)
{
    flat_ = flat;
    setRootIsDecorated(!flat);
    fit_names();
    scheduleDelayedItemsLayout();
}

QTreeWidgetItem* TreeView::make_node(const QString& key, const QString& text, int picture, const QString& tag)
{
    QTreeWidgetItem*& place = nodes_[key];
    if (place)
        throw runtime_error(runtime_error::key_not_unique, QStringLiteral("Key is not unique in collection"));
    place = new TreeNode(text, key, tag, picture);
    return place;
}

QTreeWidgetItem* TreeView::add_node(QTreeWidgetItem* folder, const QString& key, const QString& text, int picture,
                                    const QString& tag)
{
    const int end = folder ? folder->childCount() : topLevelItemCount();
    return insert_node(folder, end, key, text, picture, tag);
}

QTreeWidgetItem* TreeView::insert_node(QTreeWidgetItem* folder, int position, const QString& key,
                                       const QString& text, int picture, const QString& tag)
{
    QTreeWidgetItem* node = make_node(key, text, picture, tag);
    if (folder)
        folder->insertChild(position, node);
    else
        insertTopLevelItem(position, node);
    return node;
}

int TreeView::place_of(QTreeWidgetItem* folder, const QString& text, int count) const
{
    const QTreeWidgetItem* parent = folder ? folder : invisibleRootItem();
    int low = 0;
    int high = count;
    while (low < high) {
        const int middle = (low + high) / 2;
        if (compare_names(text, parent->child(middle)->text(0)) < 0)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

QTreeWidgetItem& TreeView::require_node(const QString& key) const
{
    QTreeWidgetItem* found = node(key);
    if (!found)
        throw runtime_error(runtime_error::element_not_found, QStringLiteral("Element not found"));
    return *found;
}

void TreeView::remove_node(QTreeWidgetItem* node)
{
    for (int i = 0; i < node->childCount(); ++i)
        nodes_.remove(key(node->child(i)));
    nodes_.remove(key(node));
    QTreeWidgetItem* folder = node->parent();
    delete node;
    close_if_empty(folder);
}

/// An emptied folder is closed, or it would come up open under a closed picture with its next node.
void TreeView::close_if_empty(QTreeWidgetItem* folder)
{
    if (!folder || folder->childCount() > 0)
        return;
    const QSignalBlocker quiet(this);
    folder->setExpanded(false);
}

void TreeView::clear_nodes()
{
    pressed_ = false;
    second_click_->stop();
    nodes_.clear();
    clear();
}

void TreeView::drop_unplaced(const QList<QTreeWidgetItem*>& nodes)
{
    clear_nodes();
    qDeleteAll(nodes);
}

void TreeView::move_node(QTreeWidgetItem* node, QTreeWidgetItem* folder)
{
    QTreeWidgetItem* from = node->parent();
    (from ? from : invisibleRootItem())->removeChild(node);
    close_if_empty(from);
    QTreeWidgetItem* to = folder ? folder : invisibleRootItem();
    to->insertChild(place_of(folder, node->text(0), to->childCount()), node);
}

void TreeView::sort_children(QTreeWidgetItem* folder)
{
    QTreeWidgetItem* parent = folder ? folder : invisibleRootItem();
    QList<QTreeWidgetItem*> order;
    order.reserve(parent->childCount());
    for (int i = 0; i < parent->childCount(); ++i)
        order.append(parent->child(i));
    if (std::is_sorted(order.begin(), order.end(), by_name))
        return;
    std::stable_sort(order.begin(), order.end(), by_name);
    place_again(parent, order);
}

/// Nodes taken out of the tree forget that they were open or selected; both are given back without events.
void TreeView::place_again(QTreeWidgetItem* folder, const QList<QTreeWidgetItem*>& order)
{
    QList<QTreeWidgetItem*> open;
    for (QTreeWidgetItem* node : order) {
        if (node->isExpanded())
            open.append(node);
    }
    QTreeWidgetItem* chosen = selected();
    const int scrolled = verticalScrollBar()->value();
    const QSignalBlocker quiet(this);
    setUpdatesEnabled(false);
    folder->takeChildren();
    folder->addChildren(order);
    for (QTreeWidgetItem* node : open)
        node->setExpanded(true);
    setAutoScroll(false);
    if (chosen)
        select(chosen);
    setAutoScroll(true);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(scrolled);
    setUpdatesEnabled(true);
}

void TreeView::set_picture(QTreeWidgetItem* node, int picture)
{
    node->setData(0, PictureRole, picture);
}

QTreeWidgetItem* TreeView::selected() const
{
    const auto nodes = selectedItems();
    return nodes.isEmpty() ? nullptr : nodes.first();
}

void TreeView::select(QTreeWidgetItem* node)
{
    if (node) {
        setCurrentItem(node);
    } else {
        clearSelection();
        setCurrentIndex({});
    }
}

void TreeView::ensure_visible(QTreeWidgetItem* node)
{
    scrollToItem(node);
}

QRect TreeView::text_rect(const QTreeWidgetItem* node) const
{
    const QRect row = visualItemRect(node);
    return row.isNull() ? row : row.adjusted(delegate_->text_left(node->parent() != nullptr), 0, 0, 0);
}

QPoint TreeView::menu_place()
{
    ensure_visible(selected());
    return viewport()->mapToGlobal(text_rect(selected()).bottomLeft());
}

int TreeView::row_height() const
{
    return delegate_->row_height();
}

int TreeView::get_visible_count() const
{
    return viewport()->height() / row_height();
}

void TreeView::start_label_edit()
{
    second_click_->stop();
    QTreeWidgetItem* node = selected();
    if (!node)
        return;
    bool cancel = false;
    emit before_label_edit(node, cancel);
    if (cancel)
        return;
    ensure_visible(node);
    editItem(node);
}

void TreeView::finish_label_edit()
{
    second_click_->stop();
    QWidget* editor = state() == EditingState ? delegate_->editor() : nullptr;
    if (!editor)
        return;
    label_left_by_ = Qt::NoFocusReason;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void TreeView::end_label_edit(const QModelIndex& index, const QString& text)
{
    const QTreeWidgetItem* edited = itemFromIndex(index);
    if (!edited || edited->text(0) == text)
        return;
    edited_key_ = key(edited);
    edited_text_ = text;
}

/// The tab keys end an edit like any other; the label of another node is not opened past its gate.
void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool onward
        = hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    QTreeWidget::closeEditor(editor, onward ? QAbstractItemDelegate::NoHint : hint);
    tell_label_edit();
}

/// Told when the editor is gone: what is done about it may ask questions and sort the nodes.
void TreeView::tell_label_edit()
{
    const Qt::FocusReason left_by = std::exchange(label_left_by_, Qt::NoFocusReason);
    const QString edited = std::exchange(edited_key_, {});
    const QString text = std::exchange(edited_text_, {});
    if (QTreeWidgetItem* left = edited.isEmpty() ? nullptr : node(edited))
        emit after_label_edit(left, text, left_by);
}

/// A node that vanishes inside a closed folder leaves the selection to the folder.
void TreeView::follow_collapse(QTreeWidgetItem* folder)
{
    const QTreeWidgetItem* chosen = selected();
    for (const QTreeWidgetItem* up = chosen ? chosen->parent() : nullptr; up; up = up->parent()) {
        if (up == folder) {
            select(folder);
            return;
        }
    }
}

void TreeView::announce_selection()
{
    const QTreeWidgetItem* node = selected();
    announced_text_ = node ? node->text(0) : QString();
    emit selection_changed();
}

bool TreeView::on_label(QTreeWidgetItem* node, QPoint position) const
{
    QRect label = text_rect(node);
    label.setWidth(std::min(label.width(), fontMetrics().horizontalAdvance(node->text(0))));
    return label.contains(position);
}

void TreeView::press(QMouseEvent* event)
{
    QTreeWidgetItem* node = hit_test(event->pos());
    if (std::exchange(spent_until_press_, false))
        click_spent_ = release_spent_ = false;
    press_place_ = event->pos();
    pressed_ = node != nullptr;
    pressed_key_ = node ? key(node) : QString();
    emit mouse_down(event->button(), event->pos());
}

void TreeView::mousePressEvent(QMouseEvent* event)
{
    QTreeWidgetItem* node = hit_test(event->pos());
    edit_on_release_ = event->button() == Qt::LeftButton && hasFocus() && !press_brought_focus_ && node
        && node == selected() && on_label(node, event->pos());
    QTreeWidget::mousePressEvent(event);
    press(event);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    edit_on_release_ = false;
    press(event);
    QTreeWidget::mouseDoubleClickEvent(event);
}

void TreeView::mouseMoveEvent(QMouseEvent* event)
{
    // The control's own tracking would drag the selection along with a pressed button.
    if (event->buttons() == Qt::NoButton)
        QTreeWidget::mouseMoveEvent(event);
    if (!pressed_ || event->buttons() != Qt::LeftButton || !Drag::is_drag(event->pos() - press_place_))
        return;
    if (QTreeWidgetItem* pressed_node = node(pressed_key_))
        emit drag_wanted(pressed_node, event->globalPosition().toPoint());
}

void TreeView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeWidget::mouseReleaseEvent(event);
    QTreeWidgetItem* pressed_node = pressed_ ? node(pressed_key_) : nullptr;
    const bool edit = edit_on_release_ && pressed_node && hit_test(event->pos()) == pressed_node;
    pressed_ = false;
    edit_on_release_ = false;
    if (pressed_node && !std::exchange(click_spent_, false)) {
        emit node_click(pressed_node);
        emit selection_changed(); // a click shows the node anew where others have spoken since
    }
    if (std::exchange(release_spent_, false)) {
        emit release_spent();
        return;
    }
    emit mouse_up(event->button(), event->pos());
    if (edit)
        second_click_->start();
}

void TreeView::drag_begun()
{
    edit_on_release_ = false;
    click_spent_ = release_spent_ = true;
    spent_until_press_ = false;
}

void TreeView::drag_ended(DragEnd end)
{
    spent_until_press_ = end == DragEnd::cancelled;
}

void TreeView::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState)
        return; // what the label's editor left over
    const int code = event->key();
    if (code == Qt::Key_Space && is_searching()) {
        keyboardSearch(event->text());
        return;
    }
    if (code != Qt::Key_Shift)
        since_letter_.invalidate();
    if ((code == Qt::Key_Delete || code == Qt::Key_Space) && event->isAutoRepeat())
        return; // one press acts on one node
    if (is_menu_key(*event)) {
        emit key_down(Qt::Key_Menu);
        return;
    }
    emit key_down(code);
    if (code == Qt::Key_Space)
        return; // the control would only select what is selected
    if (code == Qt::Key_Return || code == Qt::Key_Enter) {
        event->ignore(); // nothing for the tree; the form closes an open row editor with it
        return;
    }
    if (code == Qt::Key_F2) {
        start_label_edit();
        return;
    }
    const QTreeWidgetItem* chosen = selected();
    const bool empty = !chosen || chosen->childCount() == 0;
    if (empty && (code == Qt::Key_Plus || code == Qt::Key_Asterisk))
        return; // a folder without children cannot open
    if (code == Qt::Key_Asterisk) {
        // The control would open the nodes under the folder along with it, which are none.
        expandItem(selected());
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void TreeView::keyboardSearch(const QString& text)
{
    since_letter_.start();
    QTreeWidget::keyboardSearch(text);
}

/// The control adds a letter to those before it for as long.
bool TreeView::is_searching() const
{
    return since_letter_.isValid() && !since_letter_.hasExpired(QApplication::keyboardInputInterval());
}

void TreeView::keyReleaseEvent(QKeyEvent* event)
{
    QTreeWidget::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && state() != EditingState)
        emit key_up(event->key());
}

void TreeView::focusInEvent(QFocusEvent* event)
{
    QTreeWidget::focusInEvent(event);
    // The control makes the first node current without selecting it, and the next key would pass it over.
    if (!selected())
        setCurrentIndex({});
    // The focus comes just before the press that brings it; the flag is gone before the user's next one.
    press_brought_focus_ = event->reason() == Qt::MouseFocusReason;
    if (press_brought_focus_)
        QMetaObject::invokeMethod(
            this, [this] { press_brought_focus_ = false; }, Qt::QueuedConnection);
    if (!is_passing(event->reason()))
        emit got_focus();
}

void TreeView::focusOutEvent(QFocusEvent* event)
{
    QTreeWidget::focusOutEvent(event);
    second_click_->stop();
    if (!is_passing(event->reason()))
        emit lost_focus();
}

/// The control would mark the whole row of the selection; here only the text is marked.
void TreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const
{
    QStyleOptionViewItem row = options;
    row.rect = visualRect(index);
    if (rootIsDecorated() && model()->hasChildren(index)) {
        QStyleOption branch;
        branch.initFrom(viewport());
        branch.rect = QRect(row.rect.left() - indentation(), row.rect.top(), indentation(), row.rect.height());
        branch.state |= QStyle::State_Item | QStyle::State_Children;
        branch.state.setFlag(QStyle::State_Open, isExpanded(index));
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &branch, painter, this);
    }
    row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    delegate_->paint(painter, row, index);
}

/// Where no node shows that the tree has the keyboard.
bool TreeView::shows_focus_frame() const
{
    return hasFocus() && selectionModel() && !selectionModel()->hasSelection();
}

void TreeView::paintEvent(QPaintEvent* event)
{
    QTreeWidget::paintEvent(event);
    if (!shows_focus_frame())
        return;
    QPainter painter(viewport());
    QStyleOptionFocusRect frame;
    frame.initFrom(viewport());
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void TreeView::scrollContentsBy(int dx, int dy)
{
    QTreeWidget::scrollContentsBy(dx, dy);
    if (shows_focus_frame())
        viewport()->update(); // the frame would move along
}

void TreeView::selectionChanged(const QItemSelection& chosen, const QItemSelection& left)
{
    QTreeWidget::selectionChanged(chosen, left);
    if (chosen.isEmpty() || left.isEmpty())
        viewport()->update();
}

void TreeView::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    if (QWidget* editor = state() == EditingState ? delegate_->editor() : nullptr)
        editor->setFont(font());
    fit_names();
    scheduleDelayedItemsLayout();
}

void TreeView::fit_names()
{
    if (!testAttribute(Qt::WA_Resized))
        return; // a width that nobody gave it is not shown in
    if (delegate_->fit(viewport()->width()))
        emit indentation_changed();
}

void TreeView::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    fit_names();
}

} // namespace tarnwick
