#include "stock/floating_buttons.h"

#include "widgets/last_press.h"
#include "widgets/node_key.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/pictures.h"
#include "widgets/tree_view.h"
#include "household/item_change.h"
#include "household/recipe_store.h"
#include "household/status.h"
#include "stock/stock_clicks.h"
#include "stock/stock_tree.h"
#include "widgets/tool_tip.h"

#include <QApplication>
#include <QScrollBar>
#include <QToolButton>

#include <cmath>
#include <utility>

namespace tarnwick {
namespace {

constexpr int add_to_list = 0;
constexpr int add_to_page = 1;
constexpr int locate_row = 2;

constexpr int first_picture = 147;
constexpr int side = 18; // pixels
constexpr int twips_per_pixel = 15;
constexpr int left_of_text = 60; // pixels
constexpr int least_indent = 60; // pixels: 900 twips; further left the button would leave the pane
constexpr int full_view_margin = 100; // twips

/// Pixels from the top of a row to its button.
int button_offset(int type_size)
{
    const int twips = type_size == 12 ? 90 : type_size == 10 ? 70 : 40;
    return static_cast<int>(std::lround(static_cast<double>(twips) / twips_per_pixel));
}

bool is_unlisted(const QTreeWidgetItem& node)
{
    return TreeView::tag(&node) == QString::number(code_number(StatusCode::unlisted));
}

} // namespace

FloatingButtons::FloatingButtons(Program& program, StockTree& tree, QWidget* parent, Asks asks)
    : program_(program)
    , tree_(tree)
    , asks_(std::move(asks))
{
    for (size_t i = 0; i < buttons_.size(); ++i) {
        const int index = static_cast<int>(i);
        auto* button = new QToolButton(parent);
        buttons_[i] = button;
        button->setObjectName(QStringLiteral("flt_btn(%1)").arg(i));
        button->setIcon(picture_icon(first_picture + index));
        button->setIconSize(picture_size(first_picture + index));
        button->setFixedSize(side, side);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setCursor(Qt::ArrowCursor);
        button->hide();
        connect(button, &QToolButton::clicked, this, [this, index] { clicked(index); });
    }
    follow_tree();
}

void FloatingButtons::follow_tree()
{
    connect(&tree_, &StockTree::loading, this, &FloatingButtons::rest);
    connect(&tree_.clicks(), &StockClicks::item_clicked, this, [this](QTreeWidgetItem* node) { show_for(*node); });
    connect(&tree_.clicks(), &StockClicks::item_left, this, [this] {
        hide(add_to_list);
        hide(add_to_page);
    });
    TreeView& tree = tree_.view();
    LastPress::require_on(*tree.viewport()); // under a button that goes with the first press of a double click
    connect(&tree, &TreeView::selection_changed, this, &FloatingButtons::follow_selection);
    connect(&tree, &TreeView::indentation_changed, this, &FloatingButtons::follow_selection);
    for (auto moved : {&QTreeWidget::itemExpanded, &QTreeWidget::itemCollapsed})
        connect(&tree, moved, this, &FloatingButtons::follow_selection);
    for (auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(tree.model(), change, this, &FloatingButtons::hide_all);
    connect(&tree, &TreeView::got_focus, this, &FloatingButtons::hide_all);
    connect(&tree, &TreeView::lost_focus, this, &FloatingButtons::tree_lost_focus);
    connect(tree.verticalScrollBar(), &QScrollBar::valueChanged, this, &FloatingButtons::hide_all);
}

const TreeView& FloatingButtons::view() const
{
    return tree_.view();
}

void FloatingButtons::hide_all()
{
    for (QToolButton* button : buttons_)
        button->hide();
}

void FloatingButtons::hide_recipe_button()
{
    hide(add_to_page);
}

void FloatingButtons::hide(int index)
{
    button(index).hide();
}

void FloatingButtons::rest(bool by_name)
{
    constexpr int rest_by_category = 47; // pixels: 700 twips
    constexpr int rest_by_name = 10; // pixels: 150 twips
    const int left = by_name ? rest_by_name : rest_by_category;
    for (const int index : {add_to_list, add_to_page})
        button(index).move(left, button(index).y());
}

void FloatingButtons::tree_lost_focus()
{
    const QWidget* now = QApplication::focusWidget();
    for (const QToolButton* button : buttons_) {
        if (now == button)
            return;
    }
    hide(add_to_list);
    hide(add_to_page);
}

void FloatingButtons::show_for(QTreeWidgetItem& node)
{
    const int indent = tree_.get_indent();
    const int topdent = tree_.get_topdent();
    if (!row_in_view(topdent - tree_.view().y())) {
        hide(add_to_list);
        hide(add_to_page);
        return;
    }
    const int top = topdent + button_offset(program_.shared.type_size);
    if (!program_.shared.list_pane_shown)
        show_recipe_button(node, indent, top);
    else if (is_unlisted(node))
        show_list_button(node, indent, top);
    else
        show_locate_button(node, indent, top);
}

/// Whether a row whose text begins this far down in the tree does not reach beyond its lower edge.
bool FloatingButtons::row_in_view(int top) const
{
    const TreeView& tree = view();
    const int rows_height = tree.get_visible_count() * tree.row_height();
    return top * twips_per_pixel + full_view_margin < rows_height * twips_per_pixel;
}

/// Whether there is a recipe to add to, on show or behind the lists.
bool FloatingButtons::recipe_open() const
{
    return recipe_name(program_.connection, program_.shared.cur_recipe).has_value();
}

int FloatingButtons::shown() const
{
    for (size_t i = 0; i < buttons_.size(); ++i) {
        if (!buttons_[i]->isHidden())
            return static_cast<int>(i);
    }
    return -1;
}

void FloatingButtons::place_again(int index)
{
    if (index < 0)
        return;
    const TreeView& tree = view();
    const QTreeWidgetItem* node = tree.node(beside_);
    const QRect text = node ? tree.text_rect(node) : QRect();
    if (text.isNull() || text.top() < 0 || !row_in_view(text.top())) {
        hide(index);
        return;
    }
    const int top = tree.y() + text.top() + button_offset(program_.shared.type_size);
    button(index).move(tree.x() + text.left() - left_of_text, top);
    button(index).show();
}

void FloatingButtons::follow_selection()
{
    const QTreeWidgetItem* node = view().selected();
    if (!node || TreeView::key(node) != beside_)
        hide_all();
    else
        place_again(shown());
}

void FloatingButtons::show_recipe_button(QTreeWidgetItem& node, int indent, int top)
{
    hide(add_to_list);
    hide(locate_row);
    const Key item = NodeKey::of(&node).record;
    if (indent <= least_indent || !recipe_open() || asks_.page_shows(item)) {
        hide(add_to_page);
        return;
    }
    show_at(add_to_page, node, indent, top,
            QStringLiteral("Add ") + node.text(0) + QStringLiteral(" to ") + program_.shared.cur_recipe_name
                + QStringLiteral(" recipe"));
}

void FloatingButtons::show_locate_button(QTreeWidgetItem& node, int indent, int top)
{
    hide(add_to_list);
    hide(add_to_page);
    if (indent <= least_indent) {
        hide(locate_row);
        return;
    }
    if (asks_.row_editor_open())
        return;
    show_at(locate_row, node, indent, top,
            QStringLiteral("Locate ") + node.text(0) + QStringLiteral(" on shopping lists"));
}

void FloatingButtons::show_list_button(QTreeWidgetItem& node, int indent, int top)
{
    hide(locate_row);
    hide(add_to_page);
    const auto list = list_name_of(program_.connection, program_.shared.current_list);
    if (indent <= least_indent || !list) {
        hide(add_to_list);
        return;
    }
    show_at(add_to_list, node, indent, top,
            QStringLiteral("Add ") + node.text(0) + QStringLiteral(" to ") + *list + QStringLiteral(" list"));
}

void FloatingButtons::show_for_recipe(QTreeWidgetItem& node)
{
    hide_all();
    if (!recipe_open())
        return;
    const StockTree& tree = tree_;
    show_at(add_to_page, node, tree.get_indent(), tree.get_topdent() + button_offset(program_.shared.type_size),
            QStringLiteral("Add ") + node.text(0) + QStringLiteral(" to recipe"));
}

void FloatingButtons::item_changed(const ItemChange& change)
{
    bool placed = false;
    for (const WrittenRow& written : change.written) {
        if (written.kind != WrittenRow::Kind::placed)
            continue;
        placed = true;
        if (program_.shared.all_lists_view || written.row.list_key == program_.shared.current_list)
            hide_all();
    }
    if (change.record && change.record->renamed)
        hide_all(); // their tool tips name the item
    if (placed || !change.record || !change.record->is_new || !program_.shared.stock_view)
        return;
    if (QTreeWidgetItem* node = tree_.item_node(change.items.front().item))
        show_for_recipe(*node);
}

void FloatingButtons::show_at(int index, const QTreeWidgetItem& node, int indent, int top, const QString& tool_tip)
{
    beside_ = TreeView::key(&node);
    QToolButton& shown = button(index);
    shown.setToolTip(plain_tool_tip(tool_tip));
    shown.move(indent - left_of_text, top);
    shown.raise();
    shown.show();
}

QTreeWidgetItem* FloatingButtons::selected_item() const
{
    QTreeWidgetItem* node = view().selected();
    return NodeKey::of(node).is_item() ? node : nullptr;
}

void FloatingButtons::clicked(int index)
{
    if (index == add_to_list)
        place_on_list();
    else if (index == add_to_page)
        add_to_recipe();
    else
        locate();
}

void FloatingButtons::place_on_list()
{
    hide(add_to_list);
    const QTreeWidgetItem* node = selected_item();
    if (!node || !is_unlisted(*node))
        return;
    emit placing_wanted(NodeKey::of(node).record);
    hide_all();
}

void FloatingButtons::add_to_recipe()
{
    hide(add_to_page);
    TreeView& tree = tree_.view();
    if (QTreeWidgetItem* node = tree.node(beside_)) {
        tree.select(node);
        emit adding_wanted();
    }
}

void FloatingButtons::locate()
{
    hide(locate_row);
    if (const QTreeWidgetItem* node = selected_item())
        emit locating_wanted(NodeKey::of(node).record);
}

} // namespace tarnwick
