#include "random/oracle.h"

#include "data/query.h"
#include "household/recipe_store.h"
#include "household/status.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_tree.h"
#include "widgets/tool_tip.h"
#include "widgets/tree_view.h"
#include "window/commands.h"
#include "window/frmmain.h"
#include "support/tool_button.h"

#include <QAction>
#include <QLineEdit>
#include <QRegularExpression>

#include <optional>

// What commands that name an item, category, list or recipe read, and when they are enabled.
namespace tarnwick::random_use {
namespace {

/// A caption or tool tip, and whether the control is enabled.
struct Shown {
    QString text;
    bool enabled = false;

    bool operator==(const Shown&) const = default;
};

class Captions {
public:
    Captions(frmmain& main, Connection& connection)
        : main_(main)
        , db_(connection)
        , list_(list_name_of(connection, main.shared.current_list))
    {
    }

    QStringList faults();

private:
    void check_list();
    void check_list_entries();
    void check_recipe();
    void check_stock();
    Shown adding_to_recipe(bool item);
    void check_views();
    void command(const char* name, const Shown& wanted);
    void button(ToolButton which, const Shown& wanted);
    const QWidget& shown_button(ToolButton which) { return *main_.findChild<QWidget*>(tool_button(which)); }
    void same(const QString& what, const QString& is, const QString& wanted)
    {
        if (is != wanted)
            faults_ += QStringLiteral("%1 reads '%2' instead of '%3'").arg(what, is, wanted);
    }
    void ticked(const char* name, bool wanted)
    {
        if (main_.commands().action(QLatin1String(name)).isChecked() != wanted)
            faults_ += QStringLiteral("%1 is not %2").arg(QLatin1String(name)).arg(wanted);
    }

    frmmain& main_;
    Connection& db_;
    std::optional<QString> list_; ///< name of the single list, when there is one
    QStringList faults_;
};

void Captions::command(const char* name, const Shown& wanted)
{
    const QString is = main_.commands().caption(QLatin1String(name));
    const bool enabled = main_.commands().action(QLatin1String(name)).isEnabled();
    if (Shown{is, enabled} != wanted)
        faults_ += QStringLiteral("%1 reads '%2' (%3) instead of '%4' (%5)")
                       .arg(QLatin1String(name), is)
                       .arg(enabled)
                       .arg(wanted.text)
                       .arg(wanted.enabled);
}

void Captions::button(ToolButton which, const Shown& wanted)
{
    const QWidget& shown = shown_button(which);
    if (Shown{shown.toolTip(), shown.isEnabled()} != Shown{plain_tool_tip(wanted.text), wanted.enabled})
        faults_ += QStringLiteral("button %1 says '%2' (%3) instead of '%4' (%5)")
                       .arg(static_cast<int>(which))
                       .arg(shown.toolTip())
                       .arg(shown.isEnabled())
                       .arg(wanted.text)
                       .arg(wanted.enabled);
}

/// What the commands of the list say with a single list, with all lists and without one.
void Captions::check_list()
{
    const bool all = main_.shared.all_lists_view;
    const bool any = list_ || all;
    const QString name = trim(list_.value_or(QString()));
    const auto by_state = [&](const char* before, const char* behind, const char* for_all, const char* for_none) {
        return list_ ? QLatin1String(before) + name + QLatin1String(behind)
                     : QLatin1String(all ? for_all : for_none);
    };
    same(QStringLiteral("the window"), main_.windowTitle(),
         by_state("Tarnwick (", " list)", "Tarnwick (viewing all lists)", "Tarnwick"));
    command("mnu_list_Print", {by_state("Print ", " list", "Print all lists", "Print lists"), any});
    command("mnu_list_clear", {by_state("Clear ", " list", "Clear lists", "Clear lists"), list_.has_value()});
    button(ToolButton::clear, {by_state("Clear ", " list", "Clear lists", "Clear lists"), list_.has_value()});
    const QAction& rename = main_.commands().action(QStringLiteral("mnu_list_RenameList"));
    if (rename.isVisible() != list_.has_value())
        faults_ += QStringLiteral("mnu_list_RenameList is not %1").arg(list_.has_value());
    if (!main_.shared.list_pane_shown)
        return;
    const QTreeWidgetItem* node = main_.stock_tree().view().selected();
    const bool item = node && TreeView::key(node).startsWith(QLatin1String("item"));
    const char* no_list = main_.shared.current_list < 0 && item ? "Delete shopping list" : "Delete list";
    command("mnu_list_del", {by_state("Delete ", " list", "Delete list", no_list), list_.has_value()});
    button(ToolButton::print, {by_state("Print ", " list", "Print all shopping lists", "Print list"), any});
    button(ToolButton::preview, {by_state("Preview ", " list", "Preview all shopping lists", "Preview list"), any});
    button(ToolButton::word_processor,
           {by_state("Open ", " list in word processor", "Open all shopping lists in word processor",
                     "Open list in word processor"),
            any});
    button(ToolButton::email,
           {by_state("Send ", "list by email", "Send all lists by email", "Send recipe by email"), any});
}

void Captions::check_list_entries()
{
    struct Entry {
        Key key;
        QString name;
    };
    QList<Entry> lists;
    Query read(db_, "SELECT key_id, list_name FROM list_name ORDER BY list_name, key_id");
    while (read.next())
        lists.append({read.key(0), trim(read.text(1))});
    const Commands& commands = main_.commands();
    QStringList is, wanted;
    for (int i = 0; i < commands.list_entries(); ++i) {
        QAction& entry = commands.list_entry(i);
        if (entry.isVisible())
            is += Commands::plain_caption(entry) + (entry.isChecked() ? QStringLiteral(" ticked") : QString());
    }
    is.replaceInStrings(QRegularExpression(QStringLiteral("^\\d+: ")), QString());
    for (const Entry& list : lists)
        wanted += list.name
            + (lists.size() == 1 || list.key == main_.shared.current_list ? QStringLiteral(" ticked") : QString());
    if (lists.size() > 1)
        wanted += QStringLiteral("All") + (main_.shared.all_lists_view ? QStringLiteral(" ticked") : QString());
    is.sort();
    wanted.sort();
    same(QStringLiteral("the list menu"), is.join(u'|'), wanted.join(u'|'));
}

void Captions::check_recipe()
{
    const QTreeWidgetItem* const node = main_.shared.stock_view ? nullptr : main_.recipe_tree().view().selected();
    const bool recipe = node && TreeView::key(node).startsWith(QLatin1String("rcp"));
    const QString named
        = recipe ? u' ' + trim(node->text(0)) + QStringLiteral(" recipe") : QStringLiteral(" recipe");
    command("mnu_recipe_prnt", {QStringLiteral("Print") + named, recipe});
    command("mnu_recipe_del", {QStringLiteral("Delete") + named, recipe});
    command("mnu_recipe_move", {QStringLiteral("Move") + named, recipe && !main_.shared.recipe_alpha});
}

void Captions::check_stock()
{
    const QTreeWidgetItem* const node = main_.shared.stock_view ? main_.stock_tree().view().selected() : nullptr;
    const QString key = node ? TreeView::key(node) : QString();
    const QString name = node ? trim(node->text(0)) : QString();
    Shown move{QStringLiteral("Move item to a different category")};
    Shown add{QStringLiteral("Add item to shopping list")};
    Shown remove{QStringLiteral("Delete Category")};
    Shown rename{QStringLiteral("Rename Category")};
    if (key.startsWith(QLatin1String("item"))) {
        move = {QStringLiteral("Move ") + name + QStringLiteral(" to a different category"),
                !main_.shared.stock_alpha};
        add = {QStringLiteral("Add ") + name + QStringLiteral(" to shopping list"), true};
    } else if (key == QLatin1String("cat0000")) {
        remove.text = QStringLiteral("Delete category");
        rename.text = QStringLiteral("Rename category");
    } else if (!key.isEmpty()) {
        remove = {QStringLiteral("Delete ") + name + QStringLiteral(" category"), true};
        rename = {QStringLiteral("Rename ") + name + QStringLiteral(" category"), true};
    }
    command("mnu_edit_move", move);
    command("mnu_edit_stock_to_list", add);
    command("mnu_edit_del_cat", remove);
    command("mnu_edit_rn_cat", rename);
    if (main_.shared.stock_view)
        command("mnu_tv_air", adding_to_recipe(key.startsWith(QLatin1String("item"))));
}

/// What the pop-up of the stock tree says of the open recipe.
Shown Captions::adding_to_recipe(bool item)
{
    RecipePage& page = main_.recipe_page();
    const auto name
        = page.has_recipe() ? std::optional(page.title().text()) : recipe_name(db_, main_.shared.cur_recipe);
    if (!item || !name)
        return {QStringLiteral("Add to recipe")};
    return {QStringLiteral("Add item to ") + trim(*name) + QStringLiteral(" recipe"),
            !main_.shared.list_pane_shown};
}

void Captions::check_views()
{
    const SharedValues& shared = main_.shared;
    ticked("mnu_view_stock", shared.stock_view);
    ticked("mnu_view_rcp", !shared.stock_view);
    ticked("mnu_view_shoplist", shared.list_pane_shown);
    ticked("mnu_view_rcpepages", !shared.list_pane_shown);
    const bool page = main_.recipe_page().has_recipe();
    if (shared.list_pane_shown)
        return;
    for (const auto which : {ToolButton::print, ToolButton::preview, ToolButton::word_processor, ToolButton::email})
        if (shown_button(which).isEnabled() != page)
            faults_ += QStringLiteral("button %1 is not %2 with the page").arg(static_cast<int>(which)).arg(page);
}

QStringList Captions::faults()
{
    check_list();
    check_list_entries();
    check_recipe();
    check_stock();
    check_views();
    return faults_;
}

} // namespace

QStringList caption_faults(frmmain& main, Connection& connection)
{
    return Captions(main, connection).faults();
}

} // namespace tarnwick::random_use
