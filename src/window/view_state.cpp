#include "window/view_state.h"

#include "window/frmmain.h"
#include "widgets/update_lock.h"
#include "widgets/header_bar.h"
#include "lists/list_pane.h"
#include "widgets/row_editor.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "window/commands.h"
#include "window/layout.h"
#include "widgets/pictures.h"
#include "window/status_panels.h"
#include "widgets/tool_tip.h"
#include "window/toolbar.h"
#include "widgets/tree_view.h"
#include "widgets/window_title.h"
#include "stock/floating_buttons.h"
#include "household/status.h"
#include "stock/stock_tree.h"

#include <QEvent>
#include <QSignalBlocker>
#include <QTabBar>

namespace tarnwick {
namespace {

constexpr int non_stock_panel = 6;

QString text_of(const char* text)
{
    return QString::fromUtf8(text);
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

} // namespace

/// What the commands on the list in the right pane read, and whether there is something to act on.
struct ViewState::ListTexts {
    QString del, print_item;
    QString clear, print, preview, word_processor, email;
    bool single;
    bool any;
};

ViewState::ViewState(frmmain& main, QTabBar& left_tabs, QTabBar& right_tabs)
    : main_(main)
    , left_tabs_(left_tabs)
    , right_tabs_(right_tabs)
{
    left_tabs_.addTab(list_icon(ImageList::tabs, 1), QStringLiteral("Stock"));
    left_tabs_.addTab(list_icon(ImageList::tabs, 2), QStringLiteral("Recipes"));
    right_tabs_.addTab(list_icon(ImageList::tabs, 3), QStringLiteral("Shopping lists"));
    right_tabs_.addTab(list_icon(ImageList::tabs, 4), QStringLiteral("Recipe"));
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

ViewState::ListState ViewState::list_state() const
{
    if (main_.shared.current_list > 0)
        return list_name_of(main_.connection(), main_.shared.current_list) ? ListState::single : ListState::missing;
    return main_.shared.all_lists_view ? ListState::all : ListState::none;
}

QString ViewState::list_name() const
{
    return trim(get_list_name(main_.connection(), main_.shared.current_list));
}

void ViewState::l_r_refresh()
{
    refresh_all();
    take_keyboard_from_hidden();
}

void ViewState::refresh_all()
{
    const UpdateLock lock(main_);
    Commands& commands = main_.commands();
    if (main_.shared.stock_view) {
        commands.set_caption(QStringLiteral("mnu_tv_ai"), QStringLiteral("Add to list"));
        commands.set_caption(QStringLiteral("mnu_tv_air"), QStringLiteral("Add to recipe"));
        commands.set(QStringLiteral("mnu_list_del"), QStringLiteral("Delete list"), false);
        view_stock();
    } else {
        view_rcps();
    }
    if (main_.shared.list_pane_shown)
        refresh_list_side();
    else
        refresh_recipe_side();

    const ListState state = list_state();
    const bool single = state == ListState::single;
    commands.set_caption(QStringLiteral("mnu_list_RenameList"), QStringLiteral("Rename list"));
    commands.set_visible(QStringLiteral("mnu_list_RenameList"), single);
    commands.set_enabled(QStringLiteral("mnu_tv_ai"), state != ListState::none);
    commands.set_enabled(QStringLiteral("mnu_list_clear"), single || state == ListState::all);
    if (main_.recipe_page().is_edited())
        main_.recipe_page().edit_updt();
    set_mnu_recipe();
    set_mnu_stock();
    caption_refresh();
}

/// A control that got hidden would go on taking the keys. A tree hands them to the tree in its place; a control
/// of the right pane to nobody, for the user has not chosen one there yet.
void ViewState::take_keyboard_from_hidden()
{
    QWidget* focus = main_.focusWidget();
    if (!focus || focus->isVisibleTo(&main_))
        return;
    const TreeView& hidden = main_.shared.stock_view ? main_.recipe_tree().view() : main_.stock_tree().view();
    if (focus == &hidden || hidden.isAncestorOf(focus))
        main_.visible_tree().setFocus(Qt::OtherFocusReason);
    else
        focus->clearFocus();
}

ViewState::ListTexts ViewState::list_texts() const
{
    const auto text = [](const char* literal) { return text_of(literal); };
    switch (list_state()) {
    case ListState::single: {
        const QString name = list_name();
        const QString name_list = name + text(" list");
        return {text("Delete ") + name_list,
                text("Print ") + name_list,
                text("Clear ") + name_list,
                text("Print ") + name_list,
                text("Preview ") + name_list,
                text("Open ") + name_list + text(" in word processor"),
                text("Send ") + name + text("list by email"),
                true,
                true};
    }
    case ListState::all:
        return {text("Delete list"),
                text("Print all lists"),
                text("Clear lists"),
                text("Print all shopping lists"),
                text("Preview all shopping lists"),
                text("Open all shopping lists in word processor"),
                text("Send all lists by email"),
                false,
                true};
    case ListState::missing:
    case ListState::none:
        break;
    }
    return {text("Delete list"),
            text("Print lists"),
            text("Clear lists"),
            text("Print list"),
            text("Preview list"),
            text("Open list in word processor"),
            text("Send recipe by email"),
            false,
            false};
}

void ViewState::refresh_list_commands(const ListTexts& texts)
{
    Commands& commands = main_.commands();
    commands.set(QStringLiteral("mnu_list_Print"), texts.print_item, texts.any);
    commands.set(QStringLiteral("mnu_list_clear"), texts.clear, true);
    main_.toolbar().set_tool_tip(2, texts.clear);
    main_.toolbar().set_enabled(2, texts.single);
}

void ViewState::refresh_list_side()
{
    Commands& commands = main_.commands();
    Toolbar& toolbar = main_.toolbar();
    commands.set_checked(QStringLiteral("mnu_view_shoplist"), true);
    commands.set_checked(QStringLiteral("mnu_view_rcpepages"), false);
    toolbar.set_enabled(6, false);
    main_.status_panels().set_visible(non_stock_panel, false);
    main_.recipe_page().show_pane(false);
    main_.list_pane().show_pane(true);
    set_edit_tool_tips(QStringLiteral("Edit item"), QStringLiteral("Delete item"));
    commands.set_enabled(QStringLiteral("mnu_recipe_add_ingred"), false);

    const ListTexts texts = list_texts();
    commands.set(QStringLiteral("mnu_list_del"), texts.del, texts.single);
    refresh_list_commands(texts);
    const QString tool_tips[] = {texts.print, texts.preview, texts.word_processor, texts.email};
    for (int i = 0; i < 4; ++i) {
        toolbar.set_tool_tip(10 + i, tool_tips[i]);
        toolbar.set_enabled(10 + i, texts.any);
    }
    main_.list_pane().set_CreateList(list_state() == ListState::none);
    select_tab(right_tabs_, 0);
    toolbar.set_tag(13, QStringLiteral("list"));
    commands.set_enabled(QStringLiteral("mnu_view_cpn"), true);
    commands.set_enabled(QStringLiteral("mnu_view_aisle"), true);
}

void ViewState::refresh_recipe_side()
{
    Commands& commands = main_.commands();
    Toolbar& toolbar = main_.toolbar();
    RecipePage& page = main_.recipe_page();
    if (!page.has_recipe() && main_.shared.cur_recipe != 0)
        page.set_recipe(main_.shared.cur_recipe);
    commands.set_checked(QStringLiteral("mnu_view_shoplist"), false);
    commands.set_checked(QStringLiteral("mnu_view_rcpepages"), true);
    commands.set_enabled(QStringLiteral("mnu_recipe_add_ingred"), true);
    main_.status_panels().set_visible(non_stock_panel, true);
    toolbar.set_enabled(6, true);
    main_.list_pane().set_CreateList(false);
    main_.list_pane().show_pane(false);
    page.show_pane(true);
    page.layout_page();
    set_edit_tool_tips(QStringLiteral("Edit ingredient"), QStringLiteral("Delete ingredient"));

    refresh_list_commands(list_texts());
    static const char* const tool_tips[]
        = {"Print recipe", "Preview recipe", "Open recipe in word processor", "Send recipe by email"};
    for (int i = 0; i < 4; ++i) {
        toolbar.set_tool_tip(10 + i, text_of(tool_tips[i]));
        toolbar.set_enabled(10 + i, page.has_recipe());
    }
    select_tab(right_tabs_, 1);
    toolbar.set_tag(13, QStringLiteral("rcp"));
    commands.set_enabled(QStringLiteral("mnu_view_cpn"), false);
    commands.set_enabled(QStringLiteral("mnu_view_aisle"), false);
}

void ViewState::set_edit_tool_tips(const QString& edit, const QString& remove)
{
    for (QWidget* button : main_.findChildren<QWidget*>(QStringLiteral("imgedit")))
        button->setToolTip(edit);
    for (QWidget* button : main_.findChildren<QWidget*>(QStringLiteral("imgScratch")))
        button->setToolTip(remove);
}

void ViewState::view_stock()
{
    show_tree(true);
}

void ViewState::view_rcps()
{
    main_.floating_buttons().hide_all();
    show_tree(false);
}

void ViewState::show_tree(bool stock)
{
    main_.stock_tree().view().setVisible(stock);
    main_.recipe_tree().view().setVisible(!stock);
    main_.shared.stock_view = stock;
    if (!main_.shared.form_loading)
        main_.settings().set_pref(QStringLiteral("tv_view"), stock ? QStringLiteral("1") : QStringLiteral("0"));
    Commands& commands = main_.commands();
    for (const char* name : {"mnu_view_sort", "mnu_view_sort_alpha", "mnu_view_sort_cat"})
        commands.set_enabled(text_of(name), stock);
    for (const char* name : {"mnu_view_sort_r", "mnu_view_sort_alpha_r", "mnu_view_sort_cat_r"})
        commands.set_enabled(text_of(name), !stock);
    commands.set_checked(QStringLiteral("mnu_view_stock"), stock);
    commands.set_checked(QStringLiteral("mnu_view_rcp"), !stock);
    main_.toolbar().sort_btn_refresh();
    select_tab(left_tabs_, stock ? 0 : 1);
}

void ViewState::show_list_pane(bool list)
{
    Commands& commands = main_.commands();
    const QString wanted = list ? QStringLiteral("mnu_view_shoplist") : QStringLiteral("mnu_view_rcpepages");
    const QString other = list ? QStringLiteral("mnu_view_rcpepages") : QStringLiteral("mnu_view_shoplist");
    if (!commands.action(other).isChecked())
        return;
    commands.set_checked(wanted, true);
    commands.set_checked(other, false);
    main_.shared.list_pane_shown = list;
    // The reverse of what start and close use; only a run that ends by Exit leaves it standing.
    main_.settings().set_pref(QStringLiteral("lv_view"), list ? QStringLiteral("0") : QStringLiteral("1"));
    l_r_refresh();
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
    const bool stock = index == 0;
    main_.shared.stock_view = stock;
    main_.settings().set_pref(QStringLiteral("tv_view"), stock ? QStringLiteral("1") : QStringLiteral("0"));
    l_r_refresh();
}

void ViewState::right_tab_clicked(int index)
{
    if (index < 0)
        return;
    main_.row_editor().lv_edit_off();
    const bool list = index == 0;
    main_.shared.list_pane_shown = list;
    main_.settings().set_pref(QStringLiteral("lv_view"), list ? QStringLiteral("0") : QStringLiteral("1"));
    l_r_refresh();
}

void ViewState::sort_by_cat()
{
    sort_tree(false);
}

void ViewState::sort_by_alpha()
{
    sort_tree(true);
}

void ViewState::sort_tree(bool by_name)
{
    const bool stock = main_.shared.stock_view;
    bool& order = stock ? main_.shared.stock_alpha : main_.shared.recipe_alpha;
    if (order == by_name)
        return;
    if (!stock && main_.recipe_page().is_edited())
        main_.recipe_page().edit_updt(); // the tree is read from the table
    if (stock)
        main_.stock_tree().tv_load(by_name);
    else
        main_.recipe_tree().recip_load(by_name);
    const QString suffix = stock ? QString() : QStringLiteral("_r");
    main_.commands().set_checked(QStringLiteral("mnu_view_sort_cat") + suffix, !by_name);
    main_.commands().set_checked(QStringLiteral("mnu_view_sort_alpha") + suffix, by_name);
    order = by_name;
    main_.settings().set_pref(stock ? QStringLiteral("sort") : QStringLiteral("sort_r"),
                              by_name ? QStringLiteral("alpha") : QStringLiteral("cat"));
    main_.toolbar().sort_btn_refresh();
    set_mnu_recipe();
    set_mnu_stock();
}

void ViewState::close_folders()
{
    if (main_.shared.stock_view) {
        main_.stock_tree().close_folders();
        set_mnu_stock();
    } else {
        main_.recipe_tree().close_folders();
        set_mnu_recipe();
    }
}

void ViewState::set_mnu_recipe()
{
    Commands& commands = main_.commands();
    const QTreeWidgetItem* node = main_.shared.stock_view ? nullptr : main_.recipe_tree().view().selected();
    const bool recipe = node && TreeView::key(node).startsWith(QLatin1String("rcp"));
    const QString rest
        = recipe ? QLatin1Char(' ') + trim(node->text(0)) + QStringLiteral(" recipe") : QStringLiteral(" recipe");
    commands.set(QStringLiteral("mnu_recipe_prnt"), QStringLiteral("Print") + rest, recipe);
    commands.set(QStringLiteral("mnu_recipe_del"), QStringLiteral("Delete") + rest, recipe);
    commands.set(QStringLiteral("mnu_recipe_move"), QStringLiteral("Move") + rest,
                 recipe && !main_.shared.recipe_alpha);
}

void ViewState::set_mnu_stock()
{
    const QTreeWidgetItem* node = main_.shared.stock_view ? main_.stock_tree().view().selected() : nullptr;
    Commands& commands = main_.commands();
    commands.set(QStringLiteral("mnu_edit_move"), QStringLiteral("Move item to a different category"), false);
    commands.set(QStringLiteral("mnu_edit_stock_to_list"), QStringLiteral("Add item to shopping list"), false);
    commands.set(QStringLiteral("mnu_edit_del_cat"), QStringLiteral("Delete Category"), false);
    commands.set(QStringLiteral("mnu_edit_rn_cat"), QStringLiteral("Rename Category"), false);
    if (node && TreeView::key(node).startsWith(QLatin1String("item")))
        set_mnu_stock_item(*node);
    else if (node && TreeView::key(node).startsWith(QLatin1String("cat")))
        set_mnu_stock_category(*node);
}

void ViewState::set_mnu_stock_item(const QTreeWidgetItem& node)
{
    const QString name = trim(node.text(0));
    main_.commands().set(QStringLiteral("mnu_edit_move"),
                         QStringLiteral("Move ") + name + QStringLiteral(" to a different category"),
                         !main_.shared.stock_alpha);
    main_.commands().set(QStringLiteral("mnu_edit_stock_to_list"),
                         QStringLiteral("Add ") + name + QStringLiteral(" to shopping list"), true);
}

void ViewState::set_mnu_stock_category(const QTreeWidgetItem& node)
{
    const bool fixed = TreeView::key(&node) == QLatin1String("cat0000");
    const QString rest = fixed ? QStringLiteral("category") : trim(node.text(0)) + QStringLiteral(" category");
    main_.commands().set(QStringLiteral("mnu_edit_del_cat"), QStringLiteral("Delete ") + rest, !fixed);
    main_.commands().set(QStringLiteral("mnu_edit_rn_cat"), QStringLiteral("Rename ") + rest, !fixed);
}

void ViewState::caption_refresh()
{
    const ListState state = list_state();
    const QString name = state == ListState::single ? list_name() : QString();
    QString form = QStringLiteral("Tarnwick");
    QString list = QStringLiteral("No shopping lists");
    if (state == ListState::single) {
        form = QStringLiteral("Tarnwick (") + name + QStringLiteral(" list)");
        list = QStringLiteral("Shopping list: ") + name;
    } else if (state == ListState::all) {
        form = QStringLiteral("Tarnwick (viewing all lists)");
        list = QStringLiteral("All shopping lists");
    } else if (state == ListState::missing) {
        list = QStringLiteral("Shopping lists");
    }
    set_window_title(main_, form);
    const QString recipe_name = trim(main_.shared.cur_recipe_name);
    const bool named = main_.shared.cur_recipe > 0 && !recipe_name.isEmpty();
    const QString recipe = named ? QStringLiteral("Recipe: ") + recipe_name : QStringLiteral("Recipe");

    right_captions(list, recipe);
    if (!long_captions_fit(name))
        right_captions(QStringLiteral("Shopping lists"), QStringLiteral("Recipes"));
    right_tabs_.setTabToolTip(0, plain_tool_tip(list));
    right_tabs_.setTabToolTip(1, plain_tool_tip(recipe));
}

void ViewState::recipe_renamed()
{
    set_mnu_recipe();
    caption_refresh();
}

void ViewState::right_captions(const QString& list, const QString& recipe)
{
    if (right_tabs_.tabText(0) != shown_on_tab(list))
        right_tabs_.setTabText(0, shown_on_tab(list));
    if (right_tabs_.tabText(1) != shown_on_tab(recipe))
        right_tabs_.setTabText(1, shown_on_tab(recipe));
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
    int image;
    const char* tag;
    const char* tool_tip;
};

SizeStep size_step(int size, const QString& tag)
{
    constexpr SizeStep to_small{9, 17, "UP", "Make size larger"};
    constexpr SizeStep to_medium_going_up{10, 17, "UP", "Make size larger"};
    constexpr SizeStep to_medium_going_down{10, 16, "DN", "Make size smaller"};
    constexpr SizeStep to_large{12, 16, "DN", "Make size smaller"};
    if (size == 12)
        return to_medium_going_down;
    if (size == 10)
        return tag == QLatin1String("UP") ? to_large : to_small;
    return to_medium_going_up;
}

} // namespace

void ViewState::size_cycle()
{
    const SizeStep step = size_step(main_.shared.type_size, main_.toolbar().tag(14));
    change_type_size(step.size, step.image, text_of(step.tag), text_of(step.tool_tip));
}

void ViewState::set_type_size(int size)
{
    const SizeStep away = size_step(size, main_.toolbar().tag(14));
    change_type_size(size, away.image, text_of(away.tag), text_of(away.tool_tip));
}

void ViewState::change_type_size(int size, int image, const QString& tag, const QString& tool_tip)
{
    const UpdateLock lock(main_);
    main_.recipe_page().close_line_editor();
    main_.row_editor().hide_line();
    main_.shared.type_size = size;
    main_.toolbar().set_size_button(image, tag, tool_tip);
    main_.toolbar().toolbar_fit();
    main_.layout_manager().font_reset(size);
    main_.layout_manager().lv_resize();
    main_.settings().set_pref(QStringLiteral("font"), QString::number(size));
    main_.toolbar().set_tag(18, QString::number(size));
}

} // namespace tarnwick
