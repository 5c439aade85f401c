#include "random/acts.h"

#include "stock/stock_tree.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTreeWidgetItemIterator>

namespace tarnwick::random_use {
namespace {

/// A node that is laid out, scrolled into view; none in an empty tree.
QTreeWidgetItem* some_node(User& user)
{
    TreeView& tree = user.main().visible_tree();
    QList<QTreeWidgetItem*> nodes;
    for (QTreeWidgetItemIterator it(&tree); *it; ++it)
        if (!(*it)->parent() || (*it)->parent()->isExpanded())
            nodes += *it;
    if (nodes.isEmpty())
        return nullptr;
    QTreeWidgetItem* const node = nodes[user.below(static_cast<int>(nodes.size()))];
    tree.scrollToItem(node);
    return node;
}

bool click_some_node(User& user, Qt::MouseButton button)
{
    TreeView& tree = user.main().visible_tree();
    const QTreeWidgetItem* const node = some_node(user);
    if (!node)
        return false;
    user.note(QStringLiteral("node %1 '%2'").arg(TreeView::key(node), node->text(0)));
    user.click(*tree.viewport(), tree.text_rect(node).center(), button);
    return true;
}

} // namespace

bool click_node(User& user)
{
    return click_some_node(user, Qt::LeftButton);
}

bool right_click_node(User& user)
{
    return click_some_node(user, Qt::RightButton);
}

bool click_node_box(User& user)
{
    constexpr int middle_in_folder = 79;
    constexpr int middle_in_flat = 74;
    constexpr int standard_indent = 109;
    StockTree& stock = user.main().stock_tree();
    if (!user.main().shared.stock_view)
        return false;
    QTreeWidgetItem* const node = some_node(user);
    if (!node || !TreeView::key(node).startsWith(QLatin1String("item")))
        return false;
    const QRect text = stock.view().text_rect(node);
    const int shift = std::abs(stock.view().x() + text.left() - standard_indent);
    const int middle = stock.view().is_flat() ? middle_in_flat : middle_in_folder;
    user.note(QStringLiteral("box of %1 '%2'").arg(TreeView::key(node), node->text(0)));
    user.click(*stock.view().viewport(), {middle - shift, text.center().y()});
    return true;
}

bool open_node(User& user)
{
    TreeView& tree = user.main().visible_tree();
    const QTreeWidgetItem* const node = some_node(user);
    if (!node)
        return false;
    user.note(QStringLiteral("node %1 '%2'").arg(TreeView::key(node), node->text(0)));
    user.double_click(*tree.viewport(), tree.text_rect(node).center());
    return true;
}

bool press_tree_key(User& user)
{
    static const QList<int> keys{Qt::Key_Up,   Qt::Key_Down, Qt::Key_PageUp,   Qt::Key_PageDown, Qt::Key_Home,
                                 Qt::Key_End,  Qt::Key_Left, Qt::Key_Right,    Qt::Key_Plus,     Qt::Key_Minus,
                                 Qt::Key_Plus, Qt::Key_C,    Qt::Key_Asterisk, Qt::Key_Delete,   Qt::Key_F2};
    if (!user.main().visible_tree().hasFocus())
        return false;
    user.press_key(user.any_of(keys));
    return true;
}

bool rename_node(User& user)
{
    TreeView& tree = user.main().visible_tree();
    auto* const editor = tree.findChild<QLineEdit*>(QStringLiteral("label_edit"));
    if (!editor || !editor->isVisible()) {
        if (!tree.hasFocus())
            return false;
        user.press_key(Qt::Key_F2);
        return true;
    }
    user.type(user.text());
    if (user.chance(80))
        user.press_key(user.chance(80) ? Qt::Key_Return : Qt::Key_Escape);
    return true;
}

bool click_floating_button(User& user)
{
    QList<QWidget*> shown;
    for (int i = 0; i < 4; ++i)
        if (auto* const button = user.main().findChild<QWidget*>(QStringLiteral("flt_btn(%1)").arg(i));
            button && button->isVisible())
            shown += button;
    if (shown.isEmpty())
        return false;
    QWidget* const button = user.any_of(shown);
    user.click(*button, button->rect().center());
    return true;
}

} // namespace tarnwick::random_use
