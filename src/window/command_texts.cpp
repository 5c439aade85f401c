#include "window/command_texts.h"

#include "window/commands.h"
#include "window/menu_table.h"
#include "window/toolbar.h"

#include <QAction>

namespace tarnwick {
namespace {

using Node = CommandInputs::Node;

QString numbered(int index, const QString& name)
{
    return QStringLiteral("%1: ").arg(index + 1) + name;
}

void fill_entry(QAction& entry, const QString& caption, const QString& tag)
{
    Commands::set_plain_caption(entry, caption);
    Commands::set_list_entry_tag(entry, tag);
    entry.setVisible(true);
}

/// A name for a menu caption, followed by a blank; long ones are cut.
QString short_name(const QString& text)
{
    constexpr int longest = 30;
    return trim(QStringView(text).left(longest)) + QLatin1String(text.size() > longest ? "... " : " ");
}

/// What `mnu_tv_ai` reads for a stock item.
QString add_to_list_caption(const CommandInputs& inputs)
{
    const QString add = QStringLiteral("Add ") + short_name(inputs.stock_node.text);
    switch (list_state(inputs)) {
    case ListState::single:
        return add + QStringLiteral("to ") + *inputs.list_name + QStringLiteral(" list");
    case ListState::all:
    case ListState::lost:
        return add + QStringLiteral("to a shopping list");
    case ListState::none:
        break;
    }
    return QStringLiteral("Add to shopping list");
}

} // namespace

ListState list_state(const CommandInputs& inputs)
{
    if (inputs.current_list > 0)
        return inputs.list_name ? ListState::single : ListState::lost;
    return inputs.all_lists_view || inputs.current_list == 0 ? ListState::all : ListState::none;
}

/// What the commands on the list in use read.
struct CommandTexts::ListTexts {
    QString del, print_item;
    QString clear, print, preview, word_processor, email;
};

CommandTexts::CommandTexts(Commands& commands, Toolbar& toolbar)
    : commands_(commands)
    , toolbar_(toolbar)
{
}

void CommandTexts::show(const CommandInputs& inputs)
{
    show_views(inputs);
    show_list_commands(inputs);
    if (inputs.list_pane_shown)
        show_list_side(inputs);
    else
        show_recipe_side(inputs);
    tick_list(inputs);
    show_recipe_menus(inputs);
    show_stock_menu(inputs);
    show_stock_pop_up(inputs);
}

void CommandTexts::show_views(const CommandInputs& inputs)
{
    for (const char* name : {"mnu_view_sort", "mnu_view_sort_alpha", "mnu_view_sort_cat"})
        commands_.set_enabled(text_of(name), inputs.stock_view);
    for (const char* name : {"mnu_view_sort_r", "mnu_view_sort_alpha_r", "mnu_view_sort_cat_r"})
        commands_.set_enabled(text_of(name), !inputs.stock_view);
    commands_.set_checked(QStringLiteral("mnu_view_stock"), inputs.stock_view);
    commands_.set_checked(QStringLiteral("mnu_view_rcp"), !inputs.stock_view);
    commands_.set_checked(QStringLiteral("mnu_view_sort_cat"), !inputs.stock_alpha);
    commands_.set_checked(QStringLiteral("mnu_view_sort_alpha"), inputs.stock_alpha);
    commands_.set_checked(QStringLiteral("mnu_view_sort_cat_r"), !inputs.recipe_alpha);
    commands_.set_checked(QStringLiteral("mnu_view_sort_alpha_r"), inputs.recipe_alpha);
    commands_.set_checked(QStringLiteral("mnu_view_shoplist"), inputs.list_pane_shown);
    commands_.set_checked(QStringLiteral("mnu_view_rcpepages"), !inputs.list_pane_shown);

    const bool by_name = inputs.stock_view ? inputs.stock_alpha : inputs.recipe_alpha;
    commands_.set_checked(QStringLiteral("mnu_more_sort_alpha"), by_name);
    commands_.set_checked(QStringLiteral("mnu_more_sort_cat"), !by_name);
    toolbar_.show_sort(inputs.stock_view, by_name);

    const auto verb
        = [&inputs](size_t group) { return text_of(inputs.columns_shown.at(group) ? "Hide " : "Show "); };
    commands_.set(QStringLiteral("mnu_view_cpn"), verb(0) + QStringLiteral("coupon-expiry column"),
                  inputs.list_pane_shown);
    commands_.set(QStringLiteral("mnu_view_aisle"), verb(1) + QStringLiteral("aisle column"),
                  inputs.list_pane_shown);
}

CommandTexts::ListTexts CommandTexts::list_texts(const CommandInputs& inputs)
{
    switch (list_state(inputs)) {
    case ListState::single: {
        const QString& name = *inputs.list_name;
        const QString name_list = name + QStringLiteral(" list");
        return {QStringLiteral("Delete ") + name_list, QStringLiteral("Print ") + name_list,
                QStringLiteral("Clear ") + name_list, QStringLiteral("Print ") + name_list,
                QStringLiteral("Preview ") + name_list,
                QStringLiteral("Open ") + name_list + QStringLiteral(" in word processor"),
                // The missing blank is kept.
                QStringLiteral("Send ") + name + QStringLiteral("list by email")};
    }
    case ListState::all:
        return {QStringLiteral("Delete list"),
                QStringLiteral("Print all lists"),
                QStringLiteral("Clear lists"),
                QStringLiteral("Print all shopping lists"),
                QStringLiteral("Preview all shopping lists"),
                QStringLiteral("Open all shopping lists in word processor"),
                QStringLiteral("Send all lists by email")};
    case ListState::lost:
    case ListState::none:
        break;
    }
    return {QStringLiteral("Delete list"), QStringLiteral("Print lists"), QStringLiteral("Clear lists"),
            QStringLiteral("Print list"), QStringLiteral("Preview list"),
            QStringLiteral("Open list in word processor"),
            // Kept, though it is the list's button.
            QStringLiteral("Send recipe by email")};
}

/// The menu of lists and the button that clears one.
void CommandTexts::show_list_commands(const CommandInputs& inputs)
{
    const ListState state = list_state(inputs);
    const ListTexts texts = list_texts(inputs);
    const bool is_single = state == ListState::single;
    const bool is_shown = is_single || state == ListState::all;
    QString del = texts.del;
    bool may_delete = is_single;
    if (inputs.stock_view && !inputs.list_pane_shown) {
        del = QStringLiteral("Delete list");
        may_delete = false;
    }
    if (state == ListState::none && inputs.stock_node.kind == Node::item)
        del = QStringLiteral("Delete shopping list");
    commands_.set(QStringLiteral("mnu_list_del"), del, may_delete);
    commands_.set(QStringLiteral("mnu_list_Print"), texts.print_item, is_shown);
    commands_.set(QStringLiteral("mnu_list_clear"), texts.clear, is_single);
    commands_.set_caption(QStringLiteral("mnu_list_RenameList"), QStringLiteral("Rename list"));
    commands_.set_visible(QStringLiteral("mnu_list_RenameList"), is_single);
    toolbar_.set_tool_tip(ToolButton::clear, texts.clear);
    toolbar_.set_enabled(ToolButton::clear, is_single);
}

void CommandTexts::show_list_side(const CommandInputs& inputs)
{
    const ListState state = list_state(inputs);
    const ListTexts texts = list_texts(inputs);
    const bool is_shown = state == ListState::single || state == ListState::all;
    toolbar_.set(ToolButton::print, texts.print, is_shown);
    toolbar_.set(ToolButton::preview, texts.preview, is_shown);
    toolbar_.set(ToolButton::word_processor, texts.word_processor, is_shown);
    toolbar_.set(ToolButton::email, texts.email, is_shown);
    toolbar_.set_tag(ToolButton::email, QStringLiteral("list"));
    toolbar_.set_enabled(ToolButton::ingredient, false);
    commands_.set_enabled(QStringLiteral("mnu_recipe_add_ingred"), false);
}

void CommandTexts::show_recipe_side(const CommandInputs& inputs)
{
    const bool recipe = inputs.page_has_recipe;
    const QString name = recipe ? inputs.page_title + QLatin1Char(' ') : QString();
    toolbar_.set(ToolButton::print, QStringLiteral("Print ") + name + QStringLiteral("recipe"), recipe);
    toolbar_.set(ToolButton::preview, QStringLiteral("Preview ") + name + QStringLiteral("recipe"), recipe);
    toolbar_.set(ToolButton::word_processor, QStringLiteral("Open recipe in word processor"), recipe);
    toolbar_.set(ToolButton::email, QStringLiteral("Send recipe by email"), recipe);
    toolbar_.set_tag(ToolButton::email, QStringLiteral("rcp"));
    toolbar_.set_enabled(ToolButton::ingredient, true);
    commands_.set_enabled(QStringLiteral("mnu_recipe_add_ingred"), true);
}

void CommandTexts::show_lists(const std::vector<ShoppingList>& lists)
{
    const int count = static_cast<int>(lists.size());
    const bool with_all_entry = count > 1;
    commands_.set_list_entry_count(with_all_entry ? count + 1 : 1);
    commands_.set_visible(QStringLiteral("mnu_list_sep"), count > 0);
    for (int i = 0; i < count; ++i) {
        const ShoppingList& list = lists[static_cast<size_t>(i)];
        fill_entry(commands_.list_entry(i), numbered(i, list.name), QString::number(list.key));
    }
    if (with_all_entry)
        fill_entry(commands_.list_entry(count), numbered(count, QStringLiteral("All")), QStringLiteral("0"));
    if (count > 0)
        return;
    QAction& entry = commands_.list_entry(0);
    fill_entry(entry, QStringLiteral("list"), QStringLiteral("-1"));
    entry.setChecked(false);
    entry.setVisible(false);
}

void CommandTexts::rename_list(Key list, const QString& name)
{
    const QString tag = QString::number(list);
    for (int i = 0; i < commands_.list_entries(); ++i) {
        QAction& entry = commands_.list_entry(i);
        if (trim(Commands::list_entry_tag(entry)) == tag)
            Commands::set_plain_caption(entry, numbered(i, name));
    }
}

void CommandTexts::tick_list(const CommandInputs& inputs)
{
    const ListState state = list_state(inputs);
    const QString tag = QString::number(state == ListState::all ? 0 : inputs.current_list);
    for (int i = 0; i < commands_.list_entries(); ++i) {
        QAction& entry = commands_.list_entry(i);
        entry.setChecked(state != ListState::none && trim(Commands::list_entry_tag(entry)) == tag);
    }
}

void CommandTexts::show_line(const QString& item, const QString& recipe)
{
    commands_.set_caption(QStringLiteral("mnu_ingred_del"),
                          QStringLiteral("Delete '") + item + QStringLiteral("' from ") + trim(recipe));
}

/// The menu bar speaks of the recipe only while the tree of recipes is on show; the pop-up opens on it alone.
void CommandTexts::show_recipe_menus(const CommandInputs& inputs)
{
    const bool selected = inputs.recipe_node.kind == Node::recipe;
    const bool recipe = selected && !inputs.stock_view;
    const QString name = trim(inputs.recipe_node.text);
    const QString rest = recipe ? QLatin1Char(' ') + name + QStringLiteral(" recipe") : QStringLiteral(" recipe");
    commands_.set(QStringLiteral("mnu_recipe_prnt"), QStringLiteral("Print") + rest, recipe);
    commands_.set(QStringLiteral("mnu_recipe_del"), QStringLiteral("Delete") + rest, recipe);
    commands_.set(QStringLiteral("mnu_recipe_move"), QStringLiteral("Move") + rest, recipe && !inputs.recipe_alpha);

    const bool movable = selected && !inputs.recipe_alpha;
    commands_.set(QStringLiteral("mnu_tv_r_del"),
                  QStringLiteral("Delete ") + (selected ? name : QStringLiteral("recipe")), selected);
    commands_.set(QStringLiteral("mnu_tv_r_move"),
                  movable ? QStringLiteral("Move ") + name + QStringLiteral(" recipe")
                          : QStringLiteral("Move recipe"),
                  movable);
}

void CommandTexts::show_stock_menu(const CommandInputs& inputs)
{
    const Node kind = inputs.stock_view ? inputs.stock_node.kind : Node::none;
    const QString name = trim(inputs.stock_node.text);
    const bool item = kind == Node::item;
    commands_.set(QStringLiteral("mnu_edit_move"),
                  QStringLiteral("Move ") + (item ? name : QStringLiteral("item"))
                      + QStringLiteral(" to a different category"),
                  item && !inputs.stock_alpha);
    commands_.set(QStringLiteral("mnu_edit_stock_to_list"),
                  QStringLiteral("Add ") + (item ? name : QStringLiteral("item"))
                      + QStringLiteral(" to shopping list"),
                  item);
    QString rest = QStringLiteral("Category");
    if (kind == Node::category)
        rest = name + QStringLiteral(" category");
    else if (kind == Node::other)
        rest = QStringLiteral("category");
    commands_.set(QStringLiteral("mnu_edit_del_cat"), QStringLiteral("Delete ") + rest, kind == Node::category);
    commands_.set(QStringLiteral("mnu_edit_rn_cat"), QStringLiteral("Rename ") + rest, kind == Node::category);
}

void CommandTexts::show_stock_pop_up(const CommandInputs& inputs)
{
    const Node kind = inputs.stock_node.kind;
    if (kind == Node::item)
        show_item_pop_up(inputs);
    else if (kind == Node::category || kind == Node::other)
        show_category_pop_up(inputs);
    else
        show_pop_up_at_rest(inputs);
}

/// Which of the commands on a node are offered. New categories and moves belong to the tree with folders.
void CommandTexts::show_node_commands(bool item, bool category, bool with_folders)
{
    commands_.set_visible(QStringLiteral("mnu_tv_rename"), !category);
    commands_.set_enabled(QStringLiteral("mnu_tv_rename"), item);
    for (const char* name : {"mnu_tv_dc", "mnu_tv_rn"})
        commands_.set_visible(text_of(name), !item);
    for (const char* name : {"mnu_tv_nc", "mnu_tv_sep_1", "mnu_tv_move"})
        commands_.set_visible(text_of(name), with_folders);
    commands_.set_enabled(QStringLiteral("mnu_tv_move"), item);
    commands_.set_enabled(QStringLiteral("mnu_tv_ni"), true);
}

void CommandTexts::show_item_pop_up(const CommandInputs& inputs)
{
    const QString& text = inputs.stock_node.text;
    show_node_commands(true, false, !inputs.stock_alpha);
    for (const char* name : {"mnu_tv_dc", "mnu_tv_rn"})
        commands_.set_enabled(text_of(name), true);
    commands_.set(QStringLiteral("mnu_tv_di"), QStringLiteral("Delete stock item ") + text, true);
    commands_.set(QStringLiteral("mnu_tv_edit"), QStringLiteral("Edit stock item ") + text, true);
    commands_.set(QStringLiteral("mnu_tv_ai"), add_to_list_caption(inputs),
                  inputs.stock_node.has_light && list_state(inputs) != ListState::none);
    const bool recipe = inputs.page_has_recipe || !inputs.recipe_name.isEmpty();
    if (text.isEmpty())
        commands_.set(QStringLiteral("mnu_tv_air"), QStringLiteral("Add  to recipe"), false);
    else if (!recipe)
        commands_.set(QStringLiteral("mnu_tv_air"), QStringLiteral("Add to recipe"), false);
    else
        commands_.set(QStringLiteral("mnu_tv_air"),
                      QStringLiteral("Add item to ") + inputs.recipe_name + QStringLiteral(" recipe"),
                      !inputs.list_pane_shown);
}

void CommandTexts::show_category_pop_up(const CommandInputs& inputs)
{
    const bool own = inputs.stock_node.kind == Node::category;
    const QString name = own ? inputs.stock_node.text + u' ' : QString();
    show_node_commands(false, true, true);
    commands_.set(QStringLiteral("mnu_tv_di"), QStringLiteral("Delete stock item"), false);
    commands_.set(QStringLiteral("mnu_tv_edit"), QStringLiteral("Edit stock item"), false);
    // The two blanks are kept.
    commands_.set(QStringLiteral("mnu_tv_dc"), QStringLiteral("Delete ") + name + QStringLiteral(" category"), own);
    commands_.set(QStringLiteral("mnu_tv_rn"), QStringLiteral("Rename ") + name + QStringLiteral(" category"), own);
    commands_.set(QStringLiteral("mnu_tv_ai"), QStringLiteral("Add to shopping list"), false);
    commands_.set(QStringLiteral("mnu_tv_air"), QStringLiteral("Add to recipe"), false);
}

void CommandTexts::show_pop_up_at_rest(const CommandInputs& inputs)
{
    show_node_commands(false, false, !inputs.stock_alpha);
    commands_.set(QStringLiteral("mnu_tv_di"), QStringLiteral("Delete item"), false);
    commands_.set(QStringLiteral("mnu_tv_edit"), QStringLiteral("Edit stock item"), false);
    commands_.set(QStringLiteral("mnu_tv_dc"), QStringLiteral("Delete category"), false);
    commands_.set(QStringLiteral("mnu_tv_rn"), QStringLiteral("Rename category"), false);
    commands_.set(QStringLiteral("mnu_tv_ai"), QStringLiteral("Add to list"),
                  list_state(inputs) != ListState::none);
    commands_.set(QStringLiteral("mnu_tv_air"), QStringLiteral("Add to recipe"), false);
}

} // namespace tarnwick
