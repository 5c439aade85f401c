#include "window/view_state.h"

#include "window/frmmain.h"
#include "widgets/node_key.h"
#include "widgets/program.h"
#include "widgets/update_lock.h"
#include "widgets/header_bar.h"
#include "lists/list_mouse.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "widgets/row_editor.h"
#include "recipes/page_texts.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "window/commands.h"
#include "window/keyboard_round.h"
#include "window/layout.h"
#include "window/menu_table.h"
#include "widgets/pictures.h"
#include "window/status_panels.h"
#include "widgets/tool_tip.h"
#include "window/toolbar.h"
#include "widgets/tree_view.h"
#include "widgets/window_title.h"
#include "stock/floating_buttons.h"
#include "household/status.h"
#include "stock/stock_clicks.h"
#include "stock/stock_tree.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabBar>

#include <utility>

namespace tarnwick {
namespace {

constexpr int non_stock_panel = 6;

enum LeftTab { stock_tab, recipes_tab };
enum RightTab { list_tab, page_tab };

/// Pictures of the tabs in their image list.
constexpr int stock_tab_picture = 1;
constexpr int recipes_tab_picture = 2;
constexpr int list_tab_picture = 3;
constexpr int page_tab_picture = 4;

CommandInputs::Selection selection_of(const TreeView& tree)
{
    CommandInputs::Selection selection;
    const QTreeWidgetItem* node = tree.selected();
    if (!node)
        return selection;
    const NodeKey key = NodeKey::of(node);
    if (key.is_item())
        selection.kind = CommandInputs::Node::item;
    else if (key.is_recipe())
        selection.kind = CommandInputs::Node::recipe;
    else if (key.is_category())
        selection.kind = key.is_other() ? CommandInputs::Node::other : CommandInputs::Node::category;
    selection.text = node->text(0);
    selection.has_light = TreeView::picture(node) >= code_number(StatusCode::unlisted);
    return selection;
}

QString shown_on_tab(QString caption)
{
    return caption.replace(QLatin1Char('&'), QLatin1String("&&"));
}

void select_tab(QTabBar& tabs, int index)
{
    const QSignalBlocker quiet(tabs);
    tabs.setCurrentIndex(index);
}

void close_item_editor()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("l_item_edit") && window->isVisible())
            static_cast<QDialog*>(window)->reject();
    }
}

} // namespace

ViewState::ViewState(frmmain& main, QTabBar& left_tabs, QTabBar& right_tabs)
    : main_(main)
    , texts_(main.commands(), main.toolbar())
    , left_tabs_(left_tabs)
    , right_tabs_(right_tabs)
{
    connect_tabs();
    connect_panes();
}

void ViewState::connect_tabs()
{
    left_tabs_.addTab(list_icon(ImageList::tabs, stock_tab_picture), QStringLiteral("Stock"));
    left_tabs_.addTab(list_icon(ImageList::tabs, recipes_tab_picture), QStringLiteral("Recipes"));
    right_tabs_.addTab(list_icon(ImageList::tabs, list_tab_picture), QStringLiteral("Shopping lists"));
    right_tabs_.addTab(list_icon(ImageList::tabs, page_tab_picture), QStringLiteral("Recipe"));
    connect(&left_tabs_, &QTabBar::currentChanged, this, &ViewState::left_tab_clicked);
    connect(&right_tabs_, &QTabBar::currentChanged, this, &ViewState::right_tab_clicked);
    // A click on the tab in front changes nothing in the strip, but is a click all the same.
    connect(&left_tabs_, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index == left_tabs_.currentIndex())
            left_tab_clicked(index);
    });
    connect(&right_tabs_, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index == right_tabs_.currentIndex())
            right_tab_clicked(index);
    });
    left_tabs_.installEventFilter(this);
    right_tabs_.installEventFilter(this);
}

void ViewState::connect_panes()
{
    const auto pop_up = [this](const char* menu) {
        return [this, name = text_of(menu)](QPoint place) { main_.commands().menu(name).popup(place); };
    };
    for (const TreeView* tree : {&main_.stock_tree().view(), &main_.recipe_tree().view()})
        connect(tree, &TreeView::selection_changed, this, &ViewState::refresh_commands);
    // A command acts on the node under its new name, and no question comes in the middle of it. Exit saves nothing.
    connect(&main_.commands(), &Commands::ran, this, [this](const QString& command) {
        if (command != QLatin1String("mnu_list_exit"))
            main_.stock_tree().view().finish_label_edit();
    });
    connect(&main_.stock_tree().clicks(), &StockClicks::menu_wanted, this, pop_up("mnu_tv"));
    connect(&main_.recipe_tree(), &RecipeTree::menu_wanted, this, pop_up("mnu_tv_r"));
    connect(&main_.recipe_page(), &RecipePage::recipe_shown, this, &ViewState::refresh_commands);
    connect(&main_.recipe_page(), &RecipePage::line_menu_wanted, this,
            [this, pop_up](const QString& item, QPoint at) {
                texts_.show_line(item, main_.shared.cur_recipe_name);
                pop_up("mnu_ingred")(at);
            });
    connect(&main_.list_pane(), &ListPane::column_groups_changed, this, &ViewState::refresh_commands);
    connect(&main_.list_mouse(), &ListMouse::menu_wanted, this, pop_up("mnu_lv"));
    connect(&main_.lists(), &Lists::lists_read, this, [this](const std::vector<ShoppingList>& lists) {
        texts_.show_lists(lists);
        refresh_commands();
    });
    connect(&main_.lists(), &Lists::list_renamed, this, [this](Key list, const QString& name) {
        texts_.rename_list(list, name);
        refresh_commands();
    });
}

CommandInputs ViewState::inputs() const
{
    const SharedValues& shared = main_.shared;
    CommandInputs inputs;
    inputs.stock_view = shared.stock_view;
    inputs.list_pane_shown = shared.list_pane_shown;
    inputs.stock_alpha = shared.stock_alpha;
    inputs.recipe_alpha = shared.recipe_alpha;
    inputs.all_lists_view = shared.all_lists_view;
    inputs.current_list = shared.current_list;
    if (shared.current_list > 0) {
        inputs.list_name = list_name_of(main_.connection(), shared.current_list);
        if (inputs.list_name)
            inputs.list_name = trim(*inputs.list_name);
    }
    inputs.stock_node = selection_of(main_.stock_tree().view());
    inputs.recipe_node = selection_of(main_.recipe_tree().view());
    inputs.page_has_recipe = main_.recipe_page().has_recipe();
    inputs.page_title = main_.recipe_page().title().text();
    inputs.recipe_name = shared.cur_recipe_name;
    for (const ColumnGroup group : column_groups)
        inputs.columns_shown.at(static_cast<size_t>(group)) = main_.list_pane().column_group_shown(group);
    return inputs;
}

void ViewState::refresh_commands()
{
    if (main_.shared.form_loading || main_.shared.ending)
        return;
    texts_.show(inputs());
    caption_refresh();
}

void ViewState::l_r_refresh()
{
    refresh_all();
    take_keyboard_from_hidden();
}

void ViewState::refresh_all()
{
    const UpdateLock lock(main_);
    show_tree(main_.shared.stock_view);
    if (main_.shared.list_pane_shown)
        refresh_list_side();
    else
        refresh_recipe_side();
    main_.layout_manager().freize_refresh();
    if (main_.recipe_page().texts().is_edited())
        main_.recipe_page().texts().edit_updt();
    refresh_commands();
    const std::pair shown(main_.shared.stock_view, main_.shared.list_pane_shown);
    if (std::exchange(told_view_, shown) != shown)
        emit view_changed();
}

/// A control that got hidden would go on taking the keys, or has lost them by closing. A tree hands them to the
/// tree in its place, a control of the right pane to what the pane now shows.
void ViewState::take_keyboard_from_hidden()
{
    const QWidget* focus = main_.focusWidget();
    if (!main_.shared.started || (focus && focus->isVisibleTo(&main_)))
        return;
    const TreeView& hidden = main_.shared.stock_view ? main_.recipe_tree().view() : main_.stock_tree().view();
    if (focus && (focus == &hidden || hidden.isAncestorOf(focus)))
        main_.visible_tree().setFocus(Qt::OtherFocusReason);
    else
        main_.keyboard_round().go_to_right_pane();
}

void ViewState::refresh_list_side()
{
    main_.status_panels().set_visible(non_stock_panel, false);
    main_.recipe_page().show_pane(false);
    main_.list_pane().show_pane(true);
    set_edit_tool_tips(QStringLiteral("Edit item"), QStringLiteral("Delete item"));
    main_.list_pane().set_CreateList(list_state(inputs()) == ListState::none);
    select_tab(right_tabs_, list_tab);
}

void ViewState::refresh_recipe_side()
{
    RecipePage& page = main_.recipe_page();
    if (!page.has_recipe() && main_.shared.cur_recipe != 0)
        page.set_recipe(main_.shared.cur_recipe);
    main_.status_panels().set_visible(non_stock_panel, true);
    main_.list_pane().set_CreateList(false);
    main_.list_pane().show_pane(false);
    page.show_pane(true);
    page.layout_page();
    set_edit_tool_tips(QStringLiteral("Edit ingredient"), QStringLiteral("Delete ingredient"));
    select_tab(right_tabs_, page_tab);
}

void ViewState::set_edit_tool_tips(const QString& edit, const QString& remove)
{
    for (QWidget* button : main_.findChildren<QWidget*>(QStringLiteral("imgedit")))
        button->setToolTip(edit);
    for (QWidget* button : main_.findChildren<QWidget*>(QStringLiteral("imgScratch")))
        button->setToolTip(remove);
}

void ViewState::view_rcps()
{
    show_tree(false);
    refresh_commands();
}

void ViewState::show_tree(bool stock)
{
    if (!stock)
        main_.floating_buttons().hide_all();
    main_.stock_tree().view().setVisible(stock);
    main_.recipe_tree().view().setVisible(!stock);
    if (!main_.shared.form_loading)
        main_.settings().set_pref(QStringLiteral("tv_view"), stock ? QStringLiteral("1") : QStringLiteral("0"));
    select_tab(left_tabs_, stock ? stock_tab : recipes_tab);
}

void ViewState::show_list_pane(bool list)
{
    if (main_.shared.list_pane_shown == list)
        return;
    choose_pane(list);
}

void ViewState::choose_pane(bool list)
{
    // The reverse of what start and close use; only a run that ends by Exit leaves it standing.
    main_.settings().set_pref(QStringLiteral("lv_view"), list ? QStringLiteral("0") : QStringLiteral("1"));
    main_.program().show_list_pane(list);
}

/// The wheel does not turn tabs.
bool ViewState::eventFilter(QObject* watched, QEvent* event)
{
    return event->type() == QEvent::Wheel || QObject::eventFilter(watched, event);
}

void ViewState::left_tab_clicked(int index)
{
    if (index < 0)
        return;
    main_.row_editor().lv_edit_off();
    main_.program().show_stock(index == stock_tab); // which stores the choice
    main_.visible_tree().setFocus(Qt::OtherFocusReason);
}

void ViewState::right_tab_clicked(int index)
{
    if (index < 0)
        return;
    main_.row_editor().lv_edit_off();
    choose_pane(index == list_tab);
    main_.keyboard_round().go_to_right_pane();
}

void ViewState::sort(bool by_name)
{
    const bool stock = main_.shared.stock_view;
    bool& order = stock ? main_.shared.stock_alpha : main_.shared.recipe_alpha;
    if (order == by_name)
        return;
    if (!stock && main_.recipe_page().texts().is_edited())
        main_.recipe_page().texts().edit_updt(); // the tree is read from the table
    if (stock)
        main_.stock_tree().tv_load(by_name);
    else
        main_.recipe_tree().recip_load(by_name);
    order = by_name;
    main_.settings().set_pref(stock ? QStringLiteral("sort") : QStringLiteral("sort_r"),
                              by_name ? QStringLiteral("alpha") : QStringLiteral("cat"));
    refresh_commands();
}

void ViewState::close_folders()
{
    if (main_.shared.stock_view)
        main_.stock_tree().close_folders();
    else
        main_.recipe_tree().close_folders();
}

void ViewState::caption_refresh()
{
    const CommandInputs now = inputs();
    const QString name = now.list_name.value_or(QString());
    QString form = QStringLiteral("Tarnwick");
    QString list;
    switch (list_state(now)) {
    case ListState::single:
        form = QStringLiteral("Tarnwick (") + name + QStringLiteral(" list)");
        list = QStringLiteral("Shopping list: ") + name;
        break;
    case ListState::all:
        form = QStringLiteral("Tarnwick (viewing all lists)");
        list = QStringLiteral("All shopping lists");
        break;
    case ListState::lost:
        list = QStringLiteral("Shopping lists");
        break;
    case ListState::none:
        list = QStringLiteral("No shopping lists");
        break;
    }
    set_window_title(main_, form);
    const QString recipe_name = trim(main_.shared.cur_recipe_name);
    const bool named = main_.shared.cur_recipe > 0 && !recipe_name.isEmpty();
    const QString recipe = named ? QStringLiteral("Recipe: ") + recipe_name : QStringLiteral("Recipe");

    right_captions(list, recipe);
    if (!long_captions_fit(name))
        right_captions(QStringLiteral("Shopping lists"), QStringLiteral("Recipes"));
    right_tabs_.setTabToolTip(list_tab, plain_tool_tip(list));
    right_tabs_.setTabToolTip(page_tab, plain_tool_tip(recipe));
}

void ViewState::right_captions(const QString& list, const QString& recipe)
{
    if (right_tabs_.tabText(list_tab) != shown_on_tab(list))
        right_tabs_.setTabText(list_tab, shown_on_tab(list));
    if (right_tabs_.tabText(page_tab) != shown_on_tab(recipe))
        right_tabs_.setTabText(page_tab, shown_on_tab(recipe));
}

bool ViewState::long_captions_fit(const QString& list_name) const
{
    struct Widths {
        int base;
        double per_character;
    };
    const int size = main_.shared.type_size;
    const Widths widths = size == 12 ? Widths{360, 7} : size == 10 ? Widths{340, 4.5} : Widths{330, 3};
    const double least = widths.base + widths.per_character * static_cast<double>(list_name.size());
    return right_tabs_.width() >= least && right_tabs_.width() >= right_tabs_.sizeHint().width();
}

void ViewState::set_tab_stops()
{
    for (QWidget* control : main_.findChildren<QWidget*>()) {
        // A policy set on a viewport would go on to the view that it stands for.
        if (control->window() != &main_ || control->focusProxy())
            continue;
        const int policy = control->focusPolicy() & ~Qt::TabFocus;
        control->setFocusPolicy(static_cast<Qt::FocusPolicy>(policy));
    }
}

namespace {

/// One row of the size cycle: where a click leads, and how button 18 looks afterwards.
struct SizeStep {
    int size;
    const char* tag;
    const char* tool_tip;
};

SizeStep size_step(int size, const QString& tag)
{
    constexpr SizeStep to_small{9, "UP", "Make size larger"};
    constexpr SizeStep to_medium_going_up{10, "UP", "Make size larger"};
    constexpr SizeStep to_medium_going_down{10, "DN", "Make size smaller"};
    constexpr SizeStep to_large{12, "DN", "Make size smaller"};
    if (size == 12)
        return to_medium_going_down;
    if (size == 10)
        return tag == QLatin1String("UP") ? to_large : to_small;
    return to_medium_going_up;
}

} // namespace

void ViewState::size_cycle()
{
    const SizeStep step = size_step(main_.shared.type_size, main_.toolbar().tag(ToolButton::size_direction));
    change_type_size(step.size, text_of(step.tag), text_of(step.tool_tip));
}

void ViewState::set_type_size(int size)
{
    const SizeStep away = size_step(size, main_.toolbar().tag(ToolButton::size_direction));
    change_type_size(size, text_of(away.tag), text_of(away.tool_tip));
}

void ViewState::change_type_size(int size, const QString& tag, const QString& tool_tip)
{
    const UpdateLock lock(main_);
    main_.row_editor().interrupt();
    main_.recipe_page().close_line_editor();
    main_.shared.type_size = size;
    main_.toolbar().set_size_button(tag, tool_tip);
    main_.toolbar().toolbar_fit();
    main_.layout_manager().font_reset(size);
    main_.layout_manager().lv_resize();
    main_.settings().set_pref(QStringLiteral("font"), QString::number(size));
    main_.toolbar().set_tag(ToolButton::size, QString::number(size));
    emit looks_changed();
}

void ViewState::set_color(int index)
{
    {
        const UpdateLock lock(main_);
        if (page_color_of(index))
            main_.shared.color_index = index;
        redraw_list();
        redraw_recipe();
        l_r_refresh();
    }
    emit looks_changed();
    close_item_editor();
    main_.settings().set_pref(QStringLiteral("color"), QString::number(index));
}

void ViewState::redraw_list()
{
    if (main_.row_editor().is_open())
        main_.row_editor().lv_edit_off();
    main_.list_pane().set_page_color();
}

/// The lights of the lines are drawn on the page colour: the recipe is set again, at the place where it stood.
void ViewState::redraw_recipe()
{
    RecipePage& page = main_.recipe_page();
    page.set_page_color();
    if (!page.has_recipe())
        return;
    const int scrolled = page.scroll_bar().value();
    page.set_recipe(page.page_key());
    if (!main_.shared.list_pane_shown)
        page.layout_page();
    page.scroll_bar().setValue(scrolled);
}

} // namespace tarnwick
