#include "widgets/list_grid.h"
#include "widgets/row_editor.h"
#include "widgets/row_editor_controls.h"
#include "household/row_store.h"
#include "widgets/pictures.h"

#include <QCalendarWidget>
#include <QGuiApplication>

#include <algorithm>

namespace tarnwick {
namespace {

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
