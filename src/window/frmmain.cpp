#include "window/frmmain.h"

#include "window/frmsplash.h"
#include "data/runtime_error.h"
#include "widgets/message_box.h"
#include "widgets/program.h"
#include "widgets/update_lock.h"
#include "household/early_reading.h"
#include "household/household.h"
#include "lists/clearing.h"
#include "lists/grid_listener.h"
#include "widgets/drag.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "lists/list_mouse.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "lists/placing.h"
#include "widgets/row_editor.h"
#include "recipes/line_editor.h"
#include "recipes/line_listener.h"
#include "recipes/line_stock.h"
#include "recipes/page_texts.h"
#include "recipes/recipe_page.h"
#include "household/recipe_store.h"
#include "recipes/recipe_tree.h"
#include "window/commands.h"
#include "window/drags.h"
#include "window/keyboard_round.h"
#include "window/layout.h"
#include "window/list_manager.h"
#include "window/output_commands.h"
#include "window/pane_links.h"
#include "window/panes.h"
#include "window/rescuer.h"
#include "window/status_panels.h"
#include "window/status_words.h"
#include "window/toolbar.h"
#include "widgets/pane_tabs.h"
#include "widgets/tree_view.h"
#include "window/undo_key.h"
#include "window/view_state.h"
#include "stock/floating_buttons.h"
#include "stock/stock_commands.h"
#include "stock/stock_tree.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMenuBar>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QWindow>
#include <QWindowStateChangeEvent>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tarnwick {
namespace {

constexpr int default_separator_px = 267;
constexpr int default_height_px = 414;
constexpr int default_width_px = 600;

QString twips_text(int pixels)
{
    return QString::number(pixels * Layout::twips_per_pixel);
}

/// Pixels of a setting in twips. Stored numbers beyond any screen are cut to what a window can be.
int pixels_of(const QString& twips)
{
    constexpr double widest = 16384;
    return static_cast<int>(std::clamp(val(twips) / Layout::twips_per_pixel, -widest, widest));
}

QTabBar* make_tabs(const QString& name, QWidget* parent)
{
    auto* tabs = new PaneTabs(parent);
    tabs->setObjectName(name);
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    tabs->setUsesScrollButtons(false);
    tabs->setElideMode(Qt::ElideNone);
    // A click takes the keyboard first: what is edited elsewhere is left by its own rules before the view changes.
    tabs->setFocusPolicy(Qt::ClickFocus);
    return tabs;
}

} // namespace

frmmain::frmmain(Environment environment)
    : environment_(std::move(environment))
    , settings_(environment_.settings_file)
    , early_reading_(std::make_unique<EarlyReading>(environment_.database_file()))
{
    setObjectName(QStringLiteral("frmmain"));
    setWindowTitle(QStringLiteral("Tarnwick"));
    make_panes();
    settings_.set_before_write([this] {
        if (shared.started && !shared.ending)
            recipe_page_->texts().edit_updt();
    });
    connection_.set_locked_file(locked_file());
}

frmmain::~frmmain() = default;

LockedFile frmmain::locked_file()
{
    LockedFile locked;
    locked.show_waiting = [](bool waits) {
        if (waits)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    };
    locked.ask_to_wait = [this](const QString& path) {
        return msg_box(isVisible() ? this : nullptr,
                       QStringLiteral("Another program is using the database\n(") + path
                           + QStringLiteral(")\n\nClose it there and choose Retry.\n"
                                            "Cancel ends TarnWick."),
                       box::retry_cancel | box::exclamation, QStringLiteral("TarnWick"))
            == Answer::retry;
    };
    return locked;
}

/// What every part of the window works with.
void frmmain::make_program()
{
    drag_ = std::make_unique<Drag>(*this);
    household_ = std::make_unique<Household>(connection_);
    program_ = std::make_unique<Program>(Program{*this, connection_, *household_, settings_, environment_, shared,
                                                 [this](const QString& text) { set_status(text); },
                                                 [this] { l_r_refresh(); },
                                                 [this](const runtime_error& error) { shut_down(error); }});
}

void frmmain::make_commands()
{
    commands_ = std::make_unique<Commands>(*this, *menuBar());
    environment_.wait_for_fonts();
    status_panels_ = std::make_unique<StatusPanels>(*statusBar());
    toolbar_ = std::make_unique<Toolbar>(
        shared, *commands_,
        Toolbar::Acts{[this] { output_->preview_pane(); }, [this](bool by_name) { view_state_->sort(by_name); },
                      [this](int points) { view_state_->set_type_size(points); },
                      [this] { view_state_->size_cycle(); }, [this] { layout_->place_rows(); }},
        area_);
}

void frmmain::make_panes()
{
    area_ = new QWidget(this);
    area_->setObjectName(QStringLiteral("area"));
    setCentralWidget(area_);
    auto* left_tabs = make_tabs(QStringLiteral("TabStrip1(0)"), area_);
    auto* right_tabs = make_tabs(QStringLiteral("TabStrip1(1)"), area_);

    make_program();
    make_commands();
    auto* stock_view = new TreeView(ImageList::stock_tree, area_);
    stock_view->setObjectName(QStringLiteral("TreeView1(0)"));
    stock_view->setAccessibleName(QStringLiteral("Stock"));
    auto* recipe_view = new TreeView(ImageList::recipe_tree, area_);
    recipe_view->setObjectName(QStringLiteral("TreeView1(1)"));
    recipe_view->setAccessibleName(QStringLiteral("Recipes"));
    stock_tree_
        = std::make_unique<StockTree>(*program_, *stock_view, [this] { return recipe_page_->leave_line_editor(); });
    floating_buttons_ = std::make_unique<FloatingButtons>(
        *program_, *stock_tree_, area_,
        FloatingButtons::Asks{[this](Key item) { return recipe_page_->shows_item(item); },
                              [this] { return row_editor().is_open(); }});
    stock_commands_ = std::make_unique<StockCommands>(*program_, *stock_tree_,
                                                      [this] { return recipe_page_->finish_line_editor(); });
    recipe_page_ = std::make_unique<RecipePage>(*program_, area_);
    recipe_tree_ = std::make_unique<RecipeTree>(*program_, *recipe_view, *recipe_page_);
    list_pane_ = std::make_unique<ListPane>(*program_, area_,
                                            ListPane::Surroundings{[this] { return layout_->header_row(); },
                                                                   [this] { return layout_->left_pane(); },
                                                                   [this] { layout_->separator_fix(); }});
    placing_ = std::make_unique<Placing>(*program_, *list_pane_);
    clearing_ = std::make_unique<Clearing>(*program_, *placing_);
    lists_ = std::make_unique<Lists>(*program_, *list_pane_, *placing_, *clearing_);
    list_mouse_ = std::make_unique<ListMouse>(*program_, *list_pane_, *placing_, *clearing_);
    panes_ = std::make_unique<Panes>(
        Panes{*stock_tree_, *stock_commands_, *recipe_tree_, *recipe_page_, *list_pane_, *lists_, *placing_});
    output_ = std::make_unique<OutputCommands>(*program_, *panes_);
    layout_ = std::make_unique<Layout>(*this, *area_, *left_tabs, *right_tabs);
    view_state_ = std::make_unique<ViewState>(*this, *left_tabs, *right_tabs);
    list_manager_ = std::make_unique<ListManager>(*program_, *panes_, *drag_, *commands_, *view_state_);
    new Drags(*program_, *panes_, *drag_, {left_tabs, right_tabs, &layout_->Frame1()});
    keyboard_round_ = new KeyboardRound(*program_, *panes_, *toolbar_, layout_->Frame1());
    new UndoKey(*program_, *recipe_page_);
    connect_panes(*this);
    // The status panel would go on telling of what is no longer on show.
    connect(view_state_.get(), &ViewState::view_changed, this, [this] { panes_->tell_selection(); });
    connect_household();
}

/// Who shows what operations announce, in the order of showing.
void frmmain::connect_household()
{
    grid_listener_ = std::make_unique<GridListener>(*list_pane_, row_editor(), shared);
    status_words_ = std::make_unique<StatusWords>(
        connection_, *status_panels_, shared, [this](Key item) { return stock_tree_->is_selected(item); },
        [this] { panes_->tell_current(); });
    const auto listen = [this](auto signal, auto& listener, auto slot) {
        connect(household_.get(), signal, this,
                [&listener, slot](const auto& change) { (listener.*slot)(change); });
    };
    listen(&Household::item_changed, *grid_listener_, &GridListener::item_changed);
    listen(&Household::item_changed, *stock_tree_, &StockTree::item_changed);
    listen(&Household::item_changed, *floating_buttons_, &FloatingButtons::item_changed);
    listen(&Household::item_changed, recipe_page_->line_stock(), &LineStock::item_changed);
    listen(&Household::item_changed, *status_words_, &StatusWords::item_changed);
    listen(&Household::line_changed, recipe_page_->line_listener(), &LineListener::line_changed);
    listen(&Household::line_moved, recipe_page_->line_listener(), &LineListener::line_moved);
    listen(&Household::line_gone, recipe_page_->line_listener(), &LineListener::line_gone);
    listen(&Household::lists_changed, *recipe_page_, &RecipePage::lists_changed);
    listen(&Household::lists_changed, *lists_, &Lists::lists_changed);
    listen(&Household::items_gone, *grid_listener_, &GridListener::items_gone);
    listen(&Household::items_gone, *stock_tree_, &StockTree::items_gone);
    listen(&Household::items_gone, recipe_page_->line_stock(), &LineStock::items_gone);
    connect(household_.get(), &Household::line_added, this, [this](Key recipe, const IngredientRow& line) {
        recipe_page_->line_listener().line_added(recipe, line);
    });
    connect(household_.get(), &Household::line_returned, this,
            [this](Key recipe, int place) { recipe_page_->line_listener().line_returned(recipe, place); });
    listen(&Household::category_changed, *stock_tree_, &StockTree::category_changed);
    listen(&Household::category_changed, recipe_page_->line_stock(), &LineStock::category_changed);
    connect(household_.get(), &Household::recipe_changed, this,
            [this](const MadeRecord& made) { recipe_tree_->recipe_made(made.key, made.name, made.category); });
}

void frmmain::load()
{
    if (const QString& old = settings_.set_aside(); !old.isEmpty())
        msg_box(nullptr,
                QStringLiteral("The settings file could not be read and was set aside as\n(%1)\n\n"
                               "TarnWick starts with the default settings.")
                    .arg(old),
                box::ok | box::exclamation, QStringLiteral("TarnWick"));
    const bool failed_last_time = val(settings_.pref(QStringLiteral("clean"), QStringLiteral("0"))) == 1;
    frmSplash splash;
    splash.show();
    if (failed_last_time)
        splash.show_warnings();
    splash.refresh();

    read_page_color();
    if (settings_.pref(QStringLiteral("load"), QStringLiteral("fail")) == QLatin1String("fail"))
        settings_.set_reg();
    shared.type_size = to_int16(settings_.pref(QStringLiteral("font"), QStringLiteral("9")));
    toolbar_->set_size_button_at_start(shared.type_size);
    toolbar_->toolbar_fit();

    connection_.open(environment_.database_file(), early_reading_->sound_state());
    offer_rescued(connection_, environment_.database_file());
    shared.current_list = to_int16(settings_.pref(QStringLiteral("alist"), QStringLiteral("0")));
    shared.all_lists_view = settings_.pref(QStringLiteral("s_all"), QStringLiteral("0")) == QLatin1String("1");
    shared.cur_recipe = to_int16(settings_.pref(QStringLiteral("arcp"), QStringLiteral("0")));
    lists_->set_mnu_lists();
    load_trees();
    shared.form_loading = false;

    read_views();
    l_r_refresh();
    if (!shared.stock_view)
        view_state_->view_rcps();
    restore_window();
    restore_panes();
    appear();
    splash.hide();
}

void frmmain::read_page_color()
{
    shared.color_index = to_int16(settings_.pref(QStringLiteral("color"), QStringLiteral("3")));
    list_pane_->set_page_color();
    recipe_page_->set_page_color();
}

void frmmain::load_trees()
{
    if (shared.cur_recipe > 0)
        shared.cur_recipe_name = recipe_name(connection_, shared.cur_recipe).value_or(QString());
    const auto by_name = [this](const char* key) {
        return settings_.pref(QLatin1String(key), QStringLiteral("cat")) == QLatin1String("alpha");
    };
    shared.stock_alpha = by_name("sort");
    shared.recipe_alpha = by_name("sort_r");
    stock_tree_->tv_load(shared.stock_alpha, early_reading_.get());
    early_reading_.reset();
    recipe_tree_->recip_load(shared.recipe_alpha);
}

void frmmain::read_views()
{
    const auto is_one
        = [this](const char* key) { return val(settings_.pref(QLatin1String(key), QStringLiteral("1"))) == 1; };
    shared.list_pane_shown = is_one("lv_view");
    shared.stock_view = is_one("tv_view");
}

void frmmain::restore_window()
{
    output_->read_reports();
    layout_->set_separator(pixels_of(settings_.pref(QStringLiteral("seprtr"), twips_text(default_separator_px))));
    const int height = pixels_of(settings_.pref(QStringLiteral("fheight"), twips_text(default_height_px)));
    const int width = pixels_of(settings_.pref(QStringLiteral("fwidth"), twips_text(default_width_px)));
    resize(width, height);
    ensurePolished();
    layout()->activate();
}

void frmmain::restore_panes()
{
    list_pane_->restore_column_groups();
    shared.started = true;
    if (shared.type_size != 9)
        layout_->font_reset(shared.type_size);
    layout_->frm_refresh();
    layout_->lv_resize();
    if (shared.list_pane_shown) {
        recipe_page_->scroll_bar().setEnabled(false);
    } else {
        recipe_page_->set_recipe(shared.cur_recipe);
        list_pane_->show_pane(false);
        layout_->freize_refresh();
    }
}

/// Shows the window, once and in its final state. A window manager has the last word on its size, which is known
/// when the window is first exposed.
void frmmain::appear()
{
    constexpr int maximised = 2;
    constexpr int minimised = 1;
    winId();
    windowHandle()->installEventFilter(this);
    const double state = val(settings_.pref(QStringLiteral("wstate"), QStringLiteral("0")));
    if (state == maximised)
        showMaximized();
    else if (state == minimised)
        showMinimized();
    else
        show();
    list_pane_->set_col_widths();
    list_pane_->set_headers();
    toolbar_->toolbar_fit();
    view_state_->set_tab_stops();
    visible_tree().setFocus(Qt::OtherFocusReason); // no key would lead there
}

bool frmmain::eventFilter(QObject* watched, QEvent* event)
{
    if (!appeared_ && watched == windowHandle() && event->type() == QEvent::Expose && windowHandle()->isExposed()
        && !isMinimized()) {
        refresh_after_resize();
        layout_->set_settled();
        appeared_ = true;
        write_size();
        watched->removeEventFilter(this);
    }
    return QMainWindow::eventFilter(watched, event);
}

TreeView& frmmain::visible_tree()
{
    return panes_->tree(shared.stock_view);
}

RowEditor& frmmain::row_editor()
{
    return list_pane_->row_editor();
}

void frmmain::l_r_refresh()
{
    view_state_->l_r_refresh();
}

void frmmain::set_status(const QString& text)
{
    status_panels_->set_text(text);
}

void frmmain::exit_at_once()
{
    environment_.end_program(EXIT_SUCCESS);
}

bool frmmain::begin_ending() noexcept
{
    if (std::exchange(shared.ending, true))
        return false;
    rescue_typed(*recipe_page_, *list_pane_, environment_.database_file());
    return true;
}

void frmmain::shut_down(const runtime_error& error)
{
    if (!begin_ending())
        return;
    print_cause(error);
    msg_box(this, QStringLiteral("TarnWick has encountered an error\nand must shut down"), box::ok,
            QStringLiteral("TarnWick"));
    environment_.end_program(EXIT_FAILURE);
}

void frmmain::closeEvent(QCloseEvent* event)
{
    stock_tree_->view().finish_label_edit();
    recipe_page_->close_line_editor();
    store_window();
    event->accept();
    environment_.end_program(EXIT_SUCCESS);
}

void frmmain::end_for_system()
{
    if (shared.ending) {
        environment_.end_program(EXIT_FAILURE);
        return;
    }
    stock_tree_->view().finish_label_edit();
    recipe_page_->line_editor().store_quietly();
    store_window();
    begin_ending();
    environment_.end_program(EXIT_SUCCESS);
}

void frmmain::store_window()
{
    if (recipe_page_->texts().is_edited())
        recipe_page_->texts().edit_updt();
    const int state = isMinimized() ? 1 : isMaximized() ? 2 : 0;
    write_size();
    settings_.set_pref(QStringLiteral("wstate"), QString::number(state));
    const auto one_or_zero = [](bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); };
    settings_.set_pref(QStringLiteral("tv_view"), one_or_zero(shared.stock_view));
    settings_.set_pref(QStringLiteral("lv_view"), one_or_zero(shared.list_pane_shown));
    connection_.close();
}

void frmmain::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (shared.started && !shared.ending && !isMinimized())
        refresh_after_resize();
}

void frmmain::refresh_after_resize()
{
    {
        const UpdateLock lock(*this);
        layout_->frm_refresh();
        if (!shared.list_pane_shown)
            recipe_page_->layout_page();
        layout_->lv_resize();
        layout_->frm_refresh();
        list_pane_->set_col_widths();
        list_pane_->set_headers();
    }
    toolbar_->toolbar_fit();
    if (appeared_)
        write_size();
}

void frmmain::write_size()
{
    settings_.set_pref(QStringLiteral("fheight"), twips_text(height()));
    settings_.set_pref(QStringLiteral("fwidth"), twips_text(width()));
}

void frmmain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (shared.ending)
        return;
    if (event->type() == QEvent::WindowStateChange && shared.started && !isMinimized()
        && static_cast<QWindowStateChangeEvent*>(event)->oldState().testFlag(Qt::WindowMinimized))
        refresh_after_resize();
    if (event->type() == QEvent::PaletteChange && shared.started)
        layout_manager().freize_refresh();
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && shared.started
        && recipe_page_->texts().is_edited() && !connection_.is_asking())
        recipe_page_->texts().edit_updt();
}

void frmmain::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && row_editor().is_open()) {
        row_editor().lv_edit_off();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

} // namespace tarnwick
