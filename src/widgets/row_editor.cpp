#include "widgets/row_editor.h"

#include "widgets/update_lock.h"
#include "widgets/drawn_controls.h"
#include "widgets/last_press.h"
#include "widgets/list_grid.h"
#include "widgets/pictures.h"
#include "household/list_store.h"
#include "widgets/row_editor_controls.h"
#include "household/row_store.h"
#include "widgets/separator.h"
#include "widgets/tool_tip.h"
#include "household/status.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCalendarWidget>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

constexpr QStringView box_date = u"M/d/yy";
constexpr const char* tag = "Tag";
constexpr const char* text_before = "text_before"; ///< of a box: its text when the keyboard came

namespace number_of {
constexpr int calendar = 163;
constexpr int step_up = 150; // the three type sizes, then the same three as held
constexpr int step_down = 156;
constexpr int held = 3;
constexpr int edit = 101;
constexpr int remove = 111;
constexpr int edit_large = 189;
constexpr int remove_large = 190;
} // namespace number_of

/// 0, 1, 2 for 9, 10, 12 points; any other size looks like 9.
int size_step(int points)
{
    return points == 10 ? 1 : points == 12 ? 2 : 0;
}

/// Points of a column's text. Dates would not fit their column at the largest size.
int points_of(int size, int column)
{
    constexpr std::array points = {9, 10, 12};
    const int step = size_step(size);
    return step == 2 && column == grid_column::date ? 10 : points[static_cast<size_t>(step)];
}

} // namespace

RowEditor::RowEditor(ListGrid& grid, RowEditorHost& host, QWidget* parent)
    : grid_(grid)
    , host_(host)
    , controls_(std::make_unique<Controls>(parent))
{
    connect_controls();
    grid_.installEventFilter(this);
    connect(&grid_, &ListGrid::scrolled, this, &RowEditor::rows_scrolled);
    connect(&grid_, &ListGrid::lost_focus, this, &RowEditor::focus_left);
    connect(&grid_, &ListGrid::mouse_done, this, &RowEditor::follow_current_row);
    connect(&grid_, &ListGrid::current_set, this, [this] {
        if (!grid_.is_pressed())
            follow_current_row();
    });
    connect(&grid_.rows(), &QAbstractItemModel::modelReset, this, &RowEditor::hide_line);
    connect(&grid_, &ListGrid::edit_wanted, this, [this] { enter_box(grid_column::desc); });
    connect(&grid_, &ListGrid::typed, this, [this](const QString& text) {
        enter_box(text[0].isDigit() ? grid_column::qty : grid_column::desc, text);
    });
    for (auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&grid_.rows(), change, this, &RowEditor::place_again);
    connect(&grid_.rows(), &QAbstractItemModel::layoutChanged, this, &RowEditor::place_again);
}

RowEditor::~RowEditor() = default;

void RowEditor::connect_controls()
{
    for (const Box& box : controls_->chain) {
        box.edit->installEventFilter(this);
        if (box.edit != controls_->date)
            connect(box.edit, &QLineEdit::textChanged, this, [this, box] { write_text(box); });
    }
    for (QWidget* control : controls_->all())
        control->installEventFilter(this);
    // The calendar hands its focus to a view inside.
    for (QWidget* part : controls_->month_view->findChildren<QWidget*>())
        part->installEventFilter(this);
    const auto connect_steppers = [this](const std::array<PictureButton*, 2>& buttons, const Box& box) {
        connect(buttons[0], &QAbstractButton::clicked, this, [this, box] { step(box, true); });
        connect(buttons[1], &QAbstractButton::clicked, this, [this, box] { step(box, false); });
    };
    connect_steppers(controls_->qty_btn, controls_->chain[1]);
    connect_steppers(controls_->aisle_btn, controls_->chain[3]);
    connect(controls_->chck_box, &QAbstractButton::clicked, this, [this] {
        switch_coupon(edit_row(), controls_->chck_box->property(tag).toString() == QLatin1String("OFF"));
    });
    connect(controls_->dtp_btn, &QAbstractButton::pressed, this, &RowEditor::show_calendar);
    connect(controls_->month_view, &QCalendarWidget::clicked, this, &RowEditor::choose_date);
    connect(controls_->month_view, &QCalendarWidget::activated, this, &RowEditor::choose_date);
    connect(controls_->imgedit, &QAbstractButton::clicked, this, &RowEditor::edit_clicked);
    connect(controls_->imgScratch, &QAbstractButton::clicked, this, [this] { host_.remove_row(edit_row()); });
}

bool RowEditor::is_open() const
{
    return !controls_->desc->isHidden();
}

QWidget* RowEditor::first_box() const
{
    const auto& chain = controls_->chain;
    const auto box = std::find_if(chain.begin(), chain.end(), [](const Box& b) { return b.edit->isVisible(); });
    return is_open() && box != chain.end() ? box->edit : nullptr;
}

int RowEditor::edit_row() const
{
    return edit_row_.isValid() ? edit_row_.row() : -1;
}

bool RowEditor::owns(const QWidget* widget) const
{
    const auto all = controls_->all();
    return widget && std::any_of(all.begin(), all.end(), [widget](const QWidget* control) {
               return control == widget || control->isAncestorOf(widget);
           });
}

void RowEditor::show_l_line()
{
    const int row = grid_.current_row();
    if (row < 0)
        return;
    hide_line();
    const UpdateLock lock(*grid_.window());
    const QScopedValueRollback grid_moves(writing_, true);
    bring_into_view(row);
    edit_row_ = grid_.rows().index(row, grid_column::light);
    type_size_ = host_.type_size();
    apply_type_size();
    set_page_color(grid_.palette().color(QPalette::Base));
    fill();
    place();
    grid_.rows().change_row(row, [](GridRow& opened) { opened.bold = true; });
    grid_.set_current(row, grid_column::item);
}

void RowEditor::bring_into_view(int row)
{
    if (grid_.row_is_visible(row))
        return;
    if (row <= grid_.top_row())
        grid_.set_top_row(row);
    else
        grid_.set_top_row(std::max(0, row - grid_.rows_in_view() + 1));
}

void RowEditor::hide_line()
{
    hide_controls();
    clear_bold();
    edit_row_ = QPersistentModelIndex();
}

void RowEditor::lv_edit_off()
{
    hide_line();
}

/// What looks chosen is the current row: the boxes go to it, and no other row stays bold.
void RowEditor::follow_current_row()
{
    const int row = grid_.current_row();
    if (writing_ || row < 0 || row == edit_row())
        return;
    if (is_open()) {
        show_l_line();
        return;
    }
    const std::vector<GridRow>& rows = grid_.rows().list_rows();
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].bold && static_cast<int>(i) != row)
            grid_.rows().change_row(static_cast<int>(i), [](GridRow& other) { other.bold = false; });
}

/// The keyboard goes back to the grid before its control hides, which would hand it to any neighbour. Behind a
/// dialog the window keeps the control for its return.
void RowEditor::give_up_focus(const QWidget& control)
{
    const QWidget* focus = grid_.window()->focusWidget();
    if (focus && (focus == &control || control.isAncestorOf(focus)))
        grid_.setFocus(Qt::OtherFocusReason);
}

void RowEditor::hide_controls()
{
    for (QWidget* control : controls_->all())
        give_up_focus(*control);
    for (QWidget* control : controls_->all())
        control->hide();
}

void RowEditor::clear_bold()
{
    const std::vector<GridRow>& rows = grid_.rows().list_rows();
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].bold)
            grid_.rows().change_row(static_cast<int>(i), [](GridRow& row) { row.bold = false; });
}

void RowEditor::mark_row(int row)
{
    clear_bold();
    grid_.rows().change_row(row, [](GridRow& changed) { changed.bold = true; });
}

void RowEditor::fill()
{
    const QScopedValueRollback shown_not_typed(filling_, true);
    const int row = edit_row();
    for (const Box& box : controls_->chain) {
        if (box.edit == controls_->date)
            continue;
        const QString cell = grid_.rows().cell_text(row, box.column);
        const QString text = cell.isNull() ? QStringLiteral(" ") : cell;
        box.edit->setText(text);
        box.edit->setProperty(tag, text);
        box.edit->home(false);
    }
    fill_coupon();
    const int key = grid_.rows().row(row).groc_key;
    controls_->imgedit->setProperty(tag, key);
    for (PictureButton* button : controls_->qty_btn)
        button->setProperty(tag, key);
    if (host_.has_edit_buttons())
        fill_end_frame();
}

void RowEditor::fill_coupon()
{
    const int row = edit_row();
    const bool on = host_.coupon_on(row);
    // The cell's own picture carries the page colour.
    const QModelIndex cell = grid_.rows().index(row, grid_column::coupon);
    set_drawn_check(*controls_->chck_box, on);
    controls_->chck_box->setProperty(tag, on ? QStringLiteral("ON") : QStringLiteral("OFF"));
    controls_->chck_box->set_picture(grid_.rows().data(cell, GridModel::PictureRole).toInt());
    const QString text = grid_.rows().cell_text(row, grid_column::date);
    const QDate date = QDate::fromString(trim(text), screen_date_format);
    controls_->date->setText(date.isValid() ? date.toString(box_date) : text);
    controls_->date->setProperty(tag, controls_->date->text());
    controls_->date->home(false);
    if (!on)
        close_calendar();
}

void RowEditor::fill_end_frame()
{
    const int row = edit_row();
    controls_->imgedit->setToolTip(plain_tool_tip(host_.edit_tool_tip(row)));
    controls_->imgScratch->setToolTip(plain_tool_tip(host_.remove_tool_tip(row)));
    controls_->imgScratch->setProperty(tag, QStringLiteral("edit"));
}

void RowEditor::write_text(const Box& box)
{
    const int row = edit_row();
    if (filling_ || row < 0)
        return;
    const QScopedValueRollback grid_moves(writing_, true);
    if (grid_.current_row() != row || grid_.current_col() != box.column)
        grid_.set_current(row, box.column);
    const QString text = trim(box.edit->text());
    grid_.rows().set_cell_text(row, box.column, text);
    unstored_column_ = box.column;
    host_.text_edited(row, box.column, text);
    unstored_column_ = -1;
}

void RowEditor::step(const Box& box, bool up)
{
    close_calendar();
    const QScopedValueRollback grid_moves(writing_, true);
    grid_.set_current(edit_row(), box.column);
    box.edit->setText(up ? stepped_up(box.edit->text()) : stepped_down(box.edit->text()));
}

void RowEditor::switch_coupon(int row, bool on)
{
    const QString date = host_.set_coupon(row, on);
    grid_.rows().change_row(row,
                            [on, &date](GridRow& changed) { list_store::set_coupon_cells(changed, on, date); });
    if (!is_open() || edit_row() != row)
        return;
    fill_coupon();
    place_coupon_and_date();
}

void RowEditor::choose_date(QDate date)
{
    const int row = edit_row();
    if (row < 0 || controls_->month_view->isHidden())
        return;
    grid_.rows().set_cell_text(row, grid_column::date, date.toString(screen_date_format));
    controls_->date->setText(date.toString(box_date));
    close_calendar();
    host_.date_chosen(row, date);
}

void RowEditor::edit_clicked()
{
    host_.edit_row(edit_row());
    refresh();
}

void RowEditor::refresh()
{
    if (!is_open() || edit_row() < 0)
        return;
    fill();
    place_again();
}

bool RowEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &grid_) {
        if (event->type() == QEvent::Hide && !event->spontaneous())
            lv_edit_off();
        // From the grid the chain of boxes is entered as from a box before its first.
        const bool enter = event->type() == QEvent::KeyPress && is_open()
            && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Right;
        return enter && go_to_box(-1, 1);
    }
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers held = key->modifiers() & ~Qt::KeypadModifier;
        return held == Qt::NoModifier && key_in_box(widget, key->key());
    }
    case QEvent::MouseButtonDblClick:
        // A button that the first click brought up under the pointer was not what the user meant.
        return qobject_cast<QAbstractButton*>(widget) && !LastPress::was_on(*widget);
    case QEvent::FocusIn:
        if (const auto reason = static_cast<QFocusEvent*>(event)->reason();
            reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            if (const auto* box = qobject_cast<QLineEdit*>(widget))
                widget->setProperty(text_before, box->text());
        return false;
    case QEvent::FocusOut:
        focus_left();
        return false;
    case QEvent::Wheel:
        if (widget == controls_->month_view || controls_->month_view->isAncestorOf(widget))
            return false;
        QCoreApplication::sendEvent(grid_.viewport(), event);
        return true;
    default:
        return false;
    }
}

bool RowEditor::key_in_box(const QWidget* widget, int key)
{
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (widget == controls_->month_view) {
        if (key == Qt::Key_Escape)
            close_calendar();
        // An Enter that the calendar has no use for is not meant for the form around it either.
        return enter || key == Qt::Key_Escape;
    }
    if (enter && qobject_cast<const QAbstractSpinBox*>(widget)) {
        // The year is taken when its box is left; by itself that would pass the focus on to any neighbour.
        controls_->month_view->setFocus(Qt::OtherFocusReason);
        return true;
    }
    const auto& chain = controls_->chain;
    const auto box = std::find_if(chain.begin(), chain.end(), [widget](const Box& b) { return b.edit == widget; });
    if (box == chain.end())
        return false;
    const int place = static_cast<int>(box - chain.begin());
    if (enter || key == Qt::Key_Escape) {
        if (!enter)
            give_back(*box);
        lv_edit_off();
        grid_.setFocus(Qt::OtherFocusReason);
        return true;
    }
    switch (key) {
    case Qt::Key_Right:
        return box->edit->caret_at_end() && go_to_box(place, 1);
    case Qt::Key_Left:
        return box->edit->caret_at_start() && go_to_box(place, -1);
    default:
        return false;
    }
}

void RowEditor::give_back(const Box& box)
{
    const QVariant before = box.edit->property(text_before);
    if (before.isValid() && !box.edit->isReadOnly())
        box.edit->setText(before.toString());
}

/// The box of a column of the current row, with the keyboard; null where there is none.
CellBox* RowEditor::open_box(int column)
{
    if (grid_.current_row() < 0)
        return nullptr;
    if (!is_open() || edit_row() != grid_.current_row())
        show_l_line();
    const auto& chain = controls_->chain;
    const auto box
        = std::find_if(chain.begin(), chain.end(), [column](const Box& b) { return b.column == column; });
    if (box == chain.end() || box->edit->isReadOnly() || !box->edit->isVisible())
        return nullptr;
    box->edit->setFocus(Qt::OtherFocusReason);
    return box->edit;
}

void RowEditor::enter_box(int column, const QString& typed)
{
    CellBox* box = open_box(column);
    if (!box)
        return;
    box->end(false);
    if (typed.isEmpty())
        return;
    box->selectAll();
    box->insert(typed);
}

void RowEditor::enter_box_at(int column, int x)
{
    CellBox* box = open_box(column);
    if (!box)
        return;
    const QPoint place = box->mapFromGlobal(grid_.viewport()->mapToGlobal(QPoint(x, 0)));
    const bool is_blank = trim(box->text()).isEmpty();
    box->setCursorPosition(is_blank ? 0 : box->cursorPositionAt({place.x(), box->height() / 2}));
}

bool RowEditor::go_to_box(int from, int step)
{
    const auto& chain = controls_->chain;
    for (int i = from + step; i >= 0 && i < static_cast<int>(chain.size()); i += step) {
        CellBox* box = chain[static_cast<size_t>(i)].edit;
        if (!box->isVisible())
            continue;
        box->setFocus(Qt::OtherFocusReason);
        if (box->isReadOnly())
            box->selectAll();
        else if (step > 0)
            box->home(false);
        else
            box->end(false);
        return true;
    }
    return false;
}

void RowEditor::focus_left()
{
    const QWidget* now = QApplication::focusWidget();
    const bool elsewhere = now && now->window() == grid_.window() && now != &grid_ && !grid_.isAncestorOf(now)
        && !owns(now) && !qobject_cast<const QMenuBar*>(now) && !qobject_cast<const Separator*>(now);
    if (elsewhere && is_open() && !controls_->qty->isHidden())
        lv_edit_off();
}

void RowEditor::rows_scrolled()
{
    if (is_open() && !writing_)
        hide_line();
}

/// Puts a control over a stretch of the row; none hides it. What was typed is written already.
void RowEditor::show_at(QWidget& control, const QRect& rect)
{
    if (rect.isEmpty())
        give_up_focus(control);
    control.setVisible(!rect.isEmpty());
    if (rect.isEmpty())
        return;
    control.setGeometry(rect);
    control.raise();
}

/// What a cell's box covers: the cell and the last pixel of its left neighbour, so that boxes side by side
/// share their line. It is cut at the grid's edge.
QRect RowEditor::box_rect(int column, int less_wide) const
{
    if (grid_.col_width(column) == 0)
        return {};
    const QWidget* form = grid_.parentWidget();
    const QRect view(grid_.viewport()->mapTo(form, QPoint()), grid_.viewport()->size());
    const QRect box = grid_.cell_rect(edit_row(), column).adjusted(-1, 0, -less_wide, 0) & view;
    const QPoint shift = controls_->desc->parentWidget()->mapFromGlobal(form->mapToGlobal(QPoint()));
    return box.translated(shift);
}

void RowEditor::place()
{
    show_at(*controls_->desc, box_rect(grid_column::desc));
    const bool is_last = !host_.column_group_shown(0) && !host_.column_group_shown(1);
    show_at(*controls_->qty, box_rect(grid_column::qty, is_last ? 1 : 0));
    place_coupon_and_date();
    if (controls_->cpn_brdr->isHidden())
        close_calendar();
    show_at(*controls_->aisle, host_.column_group_shown(1) ? box_rect(grid_column::aisle) : QRect());
    place_steppers(*controls_->qty, controls_->qty_btn);
    place_steppers(*controls_->aisle, controls_->aisle_btn);
    place_end_frame();
}

void RowEditor::place_steppers(const QWidget& box, const std::array<PictureButton*, 2>& buttons)
{
    const QRect over = box.isHidden() ? QRect() : box.geometry();
    int top = over.top();
    for (PictureButton* button : buttons) {
        const QSize size = button->sizeHint();
        const QRect place(QPoint(over.left() + over.width() - size.width(), top), size);
        show_at(*button, over.width() < size.width() ? QRect() : place);
        top += size.height() - 1;
    }
}

void RowEditor::place_coupon_and_date()
{
    const bool shown = host_.column_group_shown(0);
    const QRect coupon = shown ? box_rect(grid_column::coupon) : QRect();
    show_at(*controls_->cpn_bkgrnd, coupon.adjusted(1, 0, 0, 0));
    show_at(*controls_->chck_box, coupon.adjusted(1, 0, 0, 0));

    const QRect date = shown ? box_rect(grid_column::date) : QRect();
    show_at(*controls_->cpn_brdr, date);
    show_at(*controls_->dp_frame, date);
    controls_->date->setGeometry(controls_->dp_frame->rect());
    if (date.isEmpty())
        give_up_focus(*controls_->date);
    controls_->date->setVisible(!date.isEmpty());
    const int width = controls_->dtp_btn->sizeHint().width() + 2;
    const bool has_button = controls_->chck_box->property("Tag").toString() == QLatin1String("ON");
    const QRect button(date.right() - width, date.top() + 1, width, date.height() - 2);
    show_at(*controls_->dtp_btn, has_button && date.width() > width ? button : QRect());
}

/// The frame takes the end of the name cell. Where little of the name would be left it shrinks to the small
/// pictures, and where nothing would it stays away: the row's menu does the same.
void RowEditor::place_end_frame()
{
    constexpr int gap = 3; // between the frame and the description
    constexpr int between = 1;
    constexpr int readable = 32;
    constexpr int least = 16;

    const QRect name = box_rect(grid_column::item);
    const auto frame_width = [](bool large, int fade) {
        return fade + 2 * picture_size(large ? number_of::edit_large : number_of::edit).width() + between;
    };
    const bool is_large = size_step(type_size_) == 2;
    const bool is_wide = name.width() >= frame_width(is_large, EndFrame::wide_fade) + gap + readable;
    const int fade = is_wide ? EndFrame::wide_fade : 0;
    const int width = frame_width(is_wide && is_large, fade);
    controls_->imgedit->set_picture(is_wide && is_large ? number_of::edit_large : number_of::edit);
    controls_->imgScratch->set_picture(is_wide && is_large ? number_of::remove_large : number_of::remove);

    controls_->frmEditDel->set_fade(fade);

    const QRect frame(controls_->desc->x() - gap - width, name.top(), width, name.height());
    const bool fits
        = host_.has_edit_buttons() && !controls_->desc->isHidden() && name.width() >= width + gap + least;
    show_at(*controls_->frmEditDel, fits ? frame : QRect());
    grid_.set_name_end(fits ? gap : 0);
    const int picture = controls_->imgedit->sizeHint().width();
    controls_->imgedit->setGeometry(fade, 0, picture, frame.height());
    controls_->imgScratch->setGeometry(fade + picture + between, 0, picture, frame.height());
    controls_->imgedit->show();
    controls_->imgScratch->show();
}

void RowEditor::place_again()
{
    if (!is_open())
        return;
    if (edit_row() < 0 || !grid_.row_is_visible(edit_row())) {
        hide_line();
        return;
    }
    place();
    if (!controls_->month_view->isHidden())
        place_calendar();
}

void RowEditor::set_type_size(int points)
{
    type_size_ = points;
    apply_type_size();
    place_again();
}

void RowEditor::apply_type_size()
{
    const int step = size_step(type_size_);
    const auto set_font = [this](QWidget* box, int column) {
        QFont font = QGuiApplication::font();
        font.setPointSize(points_of(type_size_, column));
        box->setFont(font);
    };
    for (const Box& box : controls_->chain)
        set_font(box.edit, box.column);
    for (const auto* buttons : {&controls_->qty_btn, &controls_->aisle_btn}) {
        const int up = number_of::step_up + step;
        const int down = number_of::step_down + step;
        (*buttons)[0]->set_pictures(up, up + number_of::held);
        (*buttons)[1]->set_pictures(down, down + number_of::held);
    }
    controls_->dtp_btn->set_picture(number_of::calendar);
    set_margins();
}

/// The text of a box stands where the grid draws it, and ends before the buttons.
void RowEditor::set_margins()
{
    constexpr int left = 2; // with the box's own 2 and the line, the grid's 3 from the cell's edge
    constexpr int gap = 1;
    const auto set = [](QLineEdit& box, const QWidget& button) {
        box.setTextMargins(left, 0, button.sizeHint().width() + gap, 0);
    };
    controls_->desc->setTextMargins(left, 0, 0, 0);
    set(*controls_->qty, *controls_->qty_btn[0]);
    set(*controls_->aisle, *controls_->aisle_btn[0]);
    set(*controls_->date, *controls_->dtp_btn);
}

void RowEditor::set_page_color(const QColor& color)
{
    page_color_ = color;
    apply_page_color();
}

void RowEditor::apply_page_color()
{
    controls_->cpn_brdr->set_page_color(page_color_);
    for (const Box& box : controls_->chain)
        box.edit->set_page_color(page_color_);
    for (QWidget* ground : {controls_->cpn_bkgrnd, controls_->dp_frame}) {
        QPalette colors = ground->palette();
        colors.setColor(QPalette::Window, page_color_);
        ground->setPalette(colors);
    }
    controls_->frmEditDel->set_colors(page_color_, grid_.palette().color(QPalette::Highlight));
}

void RowEditor::show_calendar()
{
    const QDate shown
        = QDate::fromString(trim(grid_.rows().cell_text(edit_row(), grid_column::date)), screen_date_format);
    QCalendarWidget& calendar = *controls_->month_view;
    calendar.setSelectedDate(shown.isValid() ? shown : host_.today());
    calendar.setCurrentPage(calendar.selectedDate().year(), calendar.selectedDate().month());
    place_calendar();
    calendar.setFocus(Qt::OtherFocusReason);
}

/// Under the date box; above it where the grid's foot is too near, and always inside the form.
void RowEditor::place_calendar()
{
    QCalendarWidget& calendar = *controls_->month_view;
    const QWidget* form = calendar.parentWidget();
    const QRect box = controls_->cpn_brdr->geometry();
    const QPoint foot = form->mapFromGlobal(grid_.mapToGlobal(grid_.rect().bottomLeft()));
    const QSize size = calendar.sizeHint();
    int top = box.bottom() + 1;
    if (top + size.height() > foot.y() + 1)
        top = box.top() - size.height();
    top = std::clamp(top, 0, std::max(0, form->height() - size.height()));
    const int left = std::clamp(box.left(), 0, std::max(0, form->width() - size.width()));
    show_at(calendar, QRect(QPoint(left, top), size));
}

void RowEditor::close_calendar()
{
    if (controls_->month_view->isAncestorOf(grid_.window()->focusWidget()))
        grid_.setFocus(Qt::OtherFocusReason);
    controls_->month_view->hide();
}

} // namespace tarnwick
