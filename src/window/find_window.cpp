#include "window/find_window.h"

#include "household/status.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_tree.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/tree_view.h"
#include "window/panes.h"
#include "window/view_state.h"

namespace tarnwick {
namespace {

bool show_item(Program& program, const Panes& panes, Key item)
{
    TreeView& tree = panes.stock_tree.view();
    QTreeWidgetItem* node = panes.stock_tree.item_node(item);
    if (!node)
        return false;
    tree.select(node);
    tree.ensure_visible(node);
    program.set_status(get_status(program.connection, item));
    return true;
}

find_item* make_dialog(Program& program, const Panes& panes, const ViewState& view_state)
{
    auto* dialog = new find_item(program.connection, program.shared.type_size, &program.window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &find_item::leaving, &program.window,
                     [&panes](bool& allowed) { allowed = panes.leave_editors(); });
    QObject::connect(dialog, &find_item::kind_found, &program.window,
                     [&program](FindKind kind) { program.show_stock(kind == FindKind::stock); });
    QObject::connect(
        dialog, &find_item::match, &program.window, [&program, &panes](FindKind kind, Key key, bool& shown) {
            shown = kind == FindKind::stock ? show_item(program, panes, key) : panes.recipe_tree.choose(key);
            if (shown) // the keys that follow the dialog mean what it has found
                panes.tree(kind == FindKind::stock).setFocus(Qt::OtherFocusReason);
        });
    QObject::connect(&view_state, &ViewState::looks_changed, dialog,
                     [&program, dialog] { dialog->set_type_size(program.shared.type_size); });
    return dialog;
}

} // namespace

void show_find(Program& program, const Panes& panes, const ViewState& view_state, FindKind kind)
{
    auto* dialog = program.window.findChild<find_item*>(QStringLiteral("find_item"), Qt::FindDirectChildrenOnly);
    if (!dialog)
        dialog = make_dialog(program, panes, view_state);
    dialog->search(kind);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

} // namespace tarnwick
