#include "stock/stock_commands.h"

#include "window/frmmain.h"
#include "widgets/program.h"
#include "dialogs/new_item_rcp.h"
#include "recipes/recipe_page.h"
#include "widgets/tree_view.h"
#include "household/item_store.h"
#include "dialogs/l_item_edit.h"
#include "stock/floating_buttons.h"
#include "stock/stock_tree.h"

namespace tarnwick {

StockCommands::StockCommands(frmmain& main)
    : main_(main)
    , tidying_(main.connection(), main.household(), main)
    , question_(nullptr)
{
}

void StockCommands::new_cat()
{
    new_item_rcp(main_.program(), &main_, {NamingKind::category}).exec();
}

bool StockCommands::leave_recipe_line()
{
    main_.recipe_page().finish_line_editor();
    return !main_.recipe_page().editor_open();
}

void StockCommands::tv_del_cat(Key category)
{
    if (!main_.shared.stock_alpha && leave_recipe_line())
        tidying_.delete_category(category);
}

void StockCommands::tv_del_item(Key item)
{
    if (leave_recipe_line())
        tidying_.delete_item(item);
}

void StockCommands::mv_item(Key category, Key item)
{
    main_.floating_buttons().hide_all();
    if (leave_recipe_line())
        tidying_.move_item(item, category);
}

void StockCommands::rename_category()
{
    TreeView& tree = main_.stock_tree().view();
    const QTreeWidgetItem* node = tree.selected();
    if (node && !node->parent() && TreeView::key(node) != QLatin1String("cat0000") && leave_recipe_line())
        tree.start_label_edit();
}

void StockCommands::rename_item()
{
    if (leave_recipe_line())
        main_.stock_tree().view().start_label_edit();
}

void StockCommands::new_stock_item()
{
    EditRequest request;
    request.category = main_.stock_tree().selected_category();
    show_item_editor(main_.program(), request);
}

void StockCommands::edit_stock_item()
{
    const QTreeWidgetItem* node = main_.stock_tree().view().selected();
    if (!node || !TreeView::key(node).startsWith(QLatin1String("item")))
        return;
    EditRequest request{EditMode::edit_item, record_key(TreeView::key(node))};
    request.row = ItemStore(main_.connection()).row_on_list(request.item, main_.shared.current_list);
    show_item_editor(main_.program(), request);
}

void StockCommands::item_to_recipe()
{
    const QTreeWidgetItem* node = main_.stock_tree().view().selected();
    if (!node || !TreeView::key(node).startsWith(QLatin1String("item")))
        return;
    main_.recipe_page().drag_ingred(record_key(TreeView::key(node)), node->text(0));
}

void StockCommands::after_label_edit(const QTreeWidgetItem& node, const QString& text, Qt::FocusReason left_by)
{
    const QString old_name = trim(node.text(0));
    const QString name = trim(text);
    if (name.isEmpty() || name == old_name)
        return;
    const QString key = TreeView::key(&node);
    const Key record = record_key(key);
    const bool item = key.startsWith(QLatin1String("item"));
    const auto rename = [this, item, record, old_name, name] {
        if (item)
            tidying_.rename_item(record, old_name, name);
        else
            tidying_.rename_category(record, name);
    };
    const bool asks = item ? tidying_.asks_for_item(record, name) : tidying_.asks_for_category(name);
    if (asks && left_by != Qt::NoFocusReason)
        question_.ask_later(left_by, rename);
    else
        rename();
}

} // namespace tarnwick
