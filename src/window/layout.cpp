#include "window/layout.h"

#include "window/frmmain.h"
#include "widgets/update_lock.h"
#include "widgets/frame_lines.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "widgets/row_editor.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "widgets/separator.h"
#include "window/status_panels.h"
#include "window/toolbar.h"
#include "widgets/tree_view.h"
#include "window/view_state.h"
#include "stock/floating_buttons.h"
#include "stock/stock_tree.h"

#include <QApplication>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>

#include <algorithm>
#include <optional>

namespace tarnwick {
namespace {

constexpr int tree_left = 4;
constexpr int grid_offset = 5; ///< from the separator's left edge to the grid's
constexpr int grid_less = 20; ///< what window width keeps from tree and grid
constexpr int least_grid = 400; ///< a narrower right pane pushes the separator left
constexpr int fix_offset = 6; ///< from the separator's to the grid's left edge after such a push
constexpr int least_separator = 64;
constexpr int least_pane = 24;
constexpr int least_window_width = least_separator + least_grid + grid_less;
constexpr int least_window_height = 280;
constexpr int bottom_margin = 6;
constexpr int limit_from_right = 390;
constexpr int dead_zone = 13;
constexpr int toolbar_base = 46;
constexpr int tab_base = 25;
constexpr int header_base = 23;

/// What the rows over the panes grow by at a type size; sizes other than 10 and 12 stay at the base.
struct RowOffsets {
    int tab;
    int header;
};

RowOffsets row_offsets(int type_size)
{
    if (type_size == 12)
        return {8, 6};
    if (type_size == 10)
        return {4, 3};
    return {2, 0};
}

int usable_points(int type_size)
{
    return type_size == 10 || type_size == 12 ? type_size : 9;
}

void set_points(QWidget& widget, int points)
{
    QFont font = widget.font();
    font.setPointSize(points);
    widget.setFont(font);
}

} // namespace

/// What lies behind the panes: a line around each, from the same height to the same foot, and the page's colour
/// beside the recipe page, where its scroll bar stands when the page is long.
class Layout::Ground : public QWidget {
public:
    using QWidget::QWidget;

    /// Panes with their lines, and the page's colour in the right one; none for the list. Parent's coordinates.
    void set(const QRect& left, const QRect& right, std::optional<QColor> page)
    {
        left_ = left.translated(-pos());
        right_ = right.translated(-pos());
        page_ = page;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (page_)
            painter.fillRect(right_, *page_);
        for (const QRect& pane : {left_, right_})
            draw_frame(painter, pane, line_color(palette()));
    }

private:
    QRect left_;
    QRect right_;
    std::optional<QColor> page_;
};

Layout::Layout(frmmain& main, QWidget& area, QTabBar& left_tabs, QTabBar& right_tabs)
    : main_(main)
    , area_(area)
    , left_tabs_(left_tabs)
    , right_tabs_(right_tabs)
    , separator_(new Separator(&area))
    , ground_(new Ground(&area))
{
    for (QFrame* tree :
         {static_cast<QFrame*>(&main.stock_tree().view()), static_cast<QFrame*>(&main.recipe_tree().view())})
        tree->setFrameShape(QFrame::NoFrame);
    ground_->lower();
    static const char* const names[] = {"freize_top", "freize_lft", "freize_rt", "freize_btm"};
    for (int i = 0; i < 4; ++i) {
        freize_[i] = new QFrame(&area);
        freize_[i]->setObjectName(QLatin1String(names[i]));
        freize_[i]->lower();
    }
    set_own_fonts(main_.shared.type_size);
    main_.setMinimumSize(std::max(main_.toolbar().least_width(), least_window_width), least_window_height);
    connect(separator_, &Separator::moved, this, &Layout::drag_done);
    connect(separator_, &Separator::limit_reached, this, &Layout::drag_to_limit);
    connect(separator_, &Separator::stepped, this,
            [this](int pixels) { separator_moved(bounded(separator() + pixels)); });
}

QFrame& Layout::Frame1()
{
    return *separator_;
}

int Layout::separator() const
{
    return separator_->x();
}

void Layout::set_separator(int left)
{
    stored_separator_ = left;
    separator_->move(left, separator_->y());
}

void Layout::write_separator()
{
    main_.settings().set_pref(QStringLiteral("seprtr"), QString::number(separator() * twips_per_pixel));
}

int Layout::grid_width(int separator_left) const
{
    return area_.width() - (separator_left - tree_left) - grid_less;
}

/// Where a drag or a key may bring the separator. In a narrow window the right limit comes first, and one that was
/// pushed beyond the left limit need not come back.
int Layout::bounded(int separator_left) const
{
    const int most = std::max(least_separator, area_.width() - limit_from_right);
    const int least = std::min({Separator::left_limit, most, std::max(separator(), least_separator)});
    return std::clamp(separator_left, least, most);
}

int Layout::pane_bottom() const
{
    return std::max(area_.height() - bottom_margin, right_.top() + least_pane);
}

void Layout::place_rows()
{
    const RowOffsets offsets = row_offsets(main_.shared.type_size);
    const int bar = std::max(toolbar_base, main_.toolbar().height());
    main_.toolbar().widget().setGeometry(0, 0, area_.width(), bar);
    tabs_row_ = QRect(0, bar, area_.width(), tab_base + offsets.tab);
    header_.setTop(tabs_row_.bottom() + 2);
    header_.setHeight(header_base + offsets.header);
    right_.setTop(header_.bottom() + 1);
    right_.setBottom(pane_bottom() - 1);
}

void Layout::place_left()
{
    const int width = std::max(separator() - tree_left, least_pane);
    const int top = tabs_row_.bottom() + 2;
    left_tabs_.setGeometry(tree_left - 1, tabs_row_.top() + 1, width + 1, tabs_row_.height());
    const QRect pane(tree_left, top, width, pane_bottom() - top);
    main_.stock_tree().view().setGeometry(pane);
    main_.recipe_tree().view().setGeometry(pane);
    separator_->setGeometry(separator(), top, Separator::bar_width, pane.height());
}

void Layout::frm_refresh()
{
    if (in_refresh_)
        return;
    const QScopedValueRollback<bool> busy(in_refresh_, true);
    const UpdateLock lock(main_);
    main_.toolbar().toolbar_fit();
    place_rows();
    if (!settled_)
        separator_->move(fitted(stored_separator_), separator_->y());
    separator_fix();
    frame_refresh(grid_width(separator()));
    main_.row_editor().interrupt();
    main_.list_pane().set_col_widths();
    main_.list_pane().set_headers();
}

/// The place of a separator that leaves both panes their least width, the left one first.
int Layout::fitted(int separator_left) const
{
    if (grid_width(separator_left) >= least_grid)
        return std::max(separator_left, least_separator);
    const int grid_left = area_.width() - (grid_less - tree_left - grid_offset) - least_grid;
    return std::max(grid_left - fix_offset, least_separator);
}

void Layout::separator_fix()
{
    const int left = fitted(separator());
    if (!settled_ || left >= separator())
        return;
    set_separator(left);
    write_separator();
    if (!in_refresh_)
        frame_refresh(grid_width(left));
}

/// What lies in the right pane.
void Layout::frame_refresh(int right_pane_width)
{
    const int width = std::max(right_pane_width, least_pane);
    const int left = area_.width() - (grid_less - tree_left - grid_offset) - right_pane_width;
    place_left();
    right_.setLeft(left);
    right_.setWidth(width);
    right_.setBottom(pane_bottom() - 1);
    header_.setLeft(left);
    header_.setWidth(width);
    right_tabs_.setGeometry(left - 1, tabs_row_.top() + 1, width + 1, tabs_row_.height());
    main_.list_pane().grid().setGeometry(right_);

    place_page();
    main_.view_state().caption_refresh();
    freize_refresh();
}

void Layout::place_page()
{
    RecipePage& page = main_.recipe_page();
    QScrollBar& bar = page.scroll_bar();
    const int bar_width = bar.sizeHint().width();
    const int height = pane_bottom() - header_.top();
    page.frame4().setGeometry(right_.left(), header_.top(), std::max(right_.width() - bar_width, least_pane),
                              height);
    bar.setGeometry(right_.right() + 1 - bar_width, header_.top(), bar_width, height);
    if (!main_.shared.list_pane_shown)
        page.layout_page();
}

void Layout::freize_refresh()
{
    const int top = tabs_row_.bottom() + 1;
    const int left = right_.left() - 1;
    const int width = right_.width() + 2;
    const int height = pane_bottom() - top;
    freize_[0]->setGeometry(left, top, width, 1);
    freize_[1]->setGeometry(left, top, 1, height);
    freize_[2]->setGeometry(left + width - 1, top, 1, height);
    freize_[3]->setGeometry(left, pane_bottom(), width, 1);
    ground_->setGeometry(area_.rect());
    join_panes(QRect(left, top, width, height + 1));
}

/// Draws the panes' lines, and gives the tabs in front the colours of what lies under them.
void Layout::join_panes(const QRect& right)
{
    const QPalette& page = main_.recipe_page().frame4().palette();
    const bool list = main_.shared.list_pane_shown;
    const QRect tree = left_pane();
    const QRect left(tree.left() - 1, right.top(), tree.width() + 2, right.height());
    ground_->set(left, right, list ? std::nullopt : std::optional(page.color(QPalette::Window)));
    const auto join = [](QTabBar& tabs, const QColor& pane, const QColor& text) {
        QPalette colors = tabs.palette();
        if (colors.color(QPalette::Base) == pane && colors.color(QPalette::Text) == text)
            return;
        colors.setColor(QPalette::Base, pane);
        colors.setColor(QPalette::Text, text);
        tabs.setPalette(colors);
    };
    const QPalette own = main_.palette(); // the first to know of a change of the desktop
    join(left_tabs_, own.color(QPalette::Base), own.color(QPalette::Text));
    join(right_tabs_, list ? own.color(QPalette::Button) : page.color(QPalette::Window),
         list ? own.color(QPalette::ButtonText) : page.color(QPalette::Text));
}

void Layout::lv_resize()
{
    main_.list_pane().grid().setGeometry(right_);
    main_.list_pane().set_col_widths();
    main_.list_pane().set_headers();
    main_.row_editor().place_again();
    if (main_.list_pane().notice_shown())
        main_.list_pane().set_CreateList(true);
}

void Layout::drag_done(int moved)
{
    if (moved > -dead_zone && moved <= 0)
        return;
    separator_moved(bounded(separator() + moved));
}

void Layout::drag_to_limit()
{
    separator_moved(std::max(area_.width() - limit_from_right, least_separator));
}

void Layout::separator_moved(int left)
{
    const UpdateLock lock(main_);
    set_separator(left);
    frame_refresh(grid_width(left));
    write_separator();
    lv_resize();
}

void Layout::set_own_fonts(int type_size)
{
    const int points = usable_points(type_size);
    set_points(left_tabs_, points);
    set_points(right_tabs_, points);
    set_points(main_.stock_tree().view(), points);
    set_points(main_.recipe_tree().view(), points);
    set_command_fonts(std::max(points, QApplication::font().pointSize()));
}

/// Menus, toolbar, status bar and messages; the desktop's own size is their least.
void Layout::set_command_fonts(int points)
{
    QFont of_messages = QApplication::font();
    of_messages.setPointSize(points);
    for (const char* message : {"QMessageBox", "QInputDialog"})
        QApplication::setFont(of_messages, message);
    set_points(*main_.menuBar(), points);
    for (QMenu* menu : main_.findChildren<QMenu*>())
        set_points(*menu, points);
    main_.toolbar().set_type_size(points);
    main_.status_panels().set_type_size(points);
}

void Layout::font_reset(int type_size)
{
    const UpdateLock lock(main_);
    const int points = usable_points(type_size);
    const int beside_item = main_.floating_buttons().shown();
    set_own_fonts(type_size);
    // Menu bar and status bar take their new heights now, not when their messages come.
    QCoreApplication::sendPostedEvents(main_.statusBar(), QEvent::LayoutRequest);
    main_.layout()->activate();
    main_.list_pane().set_type_size();
    main_.list_pane().header().set_type_size(points);
    main_.row_editor().set_type_size(points);
    main_.recipe_page().set_type_size();
    frm_refresh();
    main_.floating_buttons().place_again(beside_item);
}

QRect Layout::left_pane() const
{
    return main_.stock_tree().view().geometry();
}

QRect Layout::header_row() const
{
    return header_;
}

} // namespace tarnwick
