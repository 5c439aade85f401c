#include "window/find_window.h"

#include "household/status.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_tree.h"
#include "widgets/program.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"
#include "window/output_commands.h"
#include "window/view_state.h"

namespace tarnwick {
namespace {

bool show_item(frmmain& main, Key item)
{
    TreeView& tree = main.stock_tree().view();
    QTreeWidgetItem* node = main.stock_tree().item_node(item);
    if (!node)
        return false;
    tree.select(node);
    tree.ensure_visible(node);
    main.set_status(get_status(main.connection(), item));
    return true;
}

find_item* make_dialog(frmmain& main)
{
    auto* dialog = new find_item(main.connection(), main.shared.type_size, &main);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &find_item::leaving, &main, [&main](bool& allowed) { allowed = leave_editors(main); });
    QObject::connect(dialog, &find_item::kind_found, &main,
                     [&main](FindKind kind) { main.program().show_stock(kind == FindKind::stock); });
    QObject::connect(dialog, &find_item::match, &main, [&main](FindKind kind, Key key, bool& shown) {
        shown = kind == FindKind::stock ? show_item(main, key) : main.recipe_tree().choose(key);
    });
    QObject::connect(&main.view_state(), &ViewState::looks_changed, dialog,
                     [&main, dialog] { dialog->set_type_size(main.shared.type_size); });
    return dialog;
}

} // namespace

void show_find(frmmain& main, FindKind kind)
{
    auto* dialog = main.findChild<find_item*>(QStringLiteral("find_item"), Qt::FindDirectChildrenOnly);
    if (!dialog)
        dialog = make_dialog(main);
    dialog->search(kind);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

} // namespace tarnwick
