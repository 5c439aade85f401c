#include "widgets/row_boxes.h"

#include "widgets/drawn_controls.h"
#include "widgets/list_grid.h"
#include "widgets/pictures.h"
#include "widgets/row_editor.h"
#include "widgets/row_editor_controls.h"

#include <QCalendarWidget>
#include <QColor>
#include <QGuiApplication>

#include <algorithm>

namespace tarnwick {
namespace {

/// Numbers of the pictures on the buttons.
namespace button_picture {
constexpr int calendar = 163;
constexpr int step_up = 150; // the three type sizes, then the same three as held
constexpr int step_down = 156;
constexpr int held = 3;
constexpr int edit = 101;
constexpr int remove = 111;
constexpr int edit_large = 189;
constexpr int remove_large = 190;
} // namespace button_picture

/// 0, 1, 2 for 9, 10, 12 points; any other size looks like 9.
int size_step(int points)
{
    return points == 10 ? 1 : points == 12 ? 2 : 0;
}

/// Points of a column's text. Dates would not fit their column at the largest size.
int points_of(int size, GridColumn column)
{
    constexpr std::array points = {9, 10, 12};
    const int step = size_step(size);
    return step == 2 && column == GridColumn::date ? 10 : points[static_cast<size_t>(step)];
}

} // namespace

RowBoxes::RowBoxes(ListGrid& grid, const RowEditorHost& host, QWidget* parent)
    : desc(new CellBox(QStringLiteral("desc_brdr"), parent))
    , qty(new CellBox(QStringLiteral("qty_brdr"), parent))
    , cpn_brdr(new CellBox(QStringLiteral("cpn_brdr"), parent))
    , dp_frame(new QWidget(parent))
    , date(new CellBox(QStringLiteral("dp_brdr"), dp_frame))
    , aisle(new CellBox(QStringLiteral("aisle_brdr"), parent))
    , cpn_bkgrnd(new QWidget(parent))
    , chck_box(new PictureButton(QStringLiteral("chck_box"), parent))
    , dtp_btn(new PictureButton(QStringLiteral("dtp_btn"), parent))
    , qty_btn{new PictureButton(QStringLiteral("qty_btn(0)"), parent),
              new PictureButton(QStringLiteral("qty_btn(1)"), parent)}
    , aisle_btn{new PictureButton(QStringLiteral("aisle_btn(0)"), parent),
                new PictureButton(QStringLiteral("aisle_btn(1)"), parent)}
    , frmEditDel(new EndFrame(QStringLiteral("frmEditDel"), parent))
    , imgedit(new PictureButton(QStringLiteral("imgedit"), frmEditDel))
    , imgScratch(new PictureButton(QStringLiteral("imgScratch"), frmEditDel))
    , month_view(new MonthView(parent))
    , chain{RowBox{desc, GridColumn::desc}, RowBox{qty, GridColumn::qty}, RowBox{date, GridColumn::date},
            RowBox{aisle, GridColumn::aisle}}
    , grid_(grid)
    , host_(host)
{
    dp_frame->setObjectName(QStringLiteral("dp_frame"));
    cpn_bkgrnd->setObjectName(QStringLiteral("cpn_bkgrnd"));
    for (QWidget* ground : {cpn_bkgrnd, dp_frame})
        ground->setAutoFillBackground(true);
    name_for_the_ear();
    cpn_brdr->setReadOnly(true);
    cpn_brdr->setFocusPolicy(Qt::NoFocus);
    date->setReadOnly(true);
    for (const RowBox& box : chain)
        box.edit->setFocusPolicy(Qt::ClickFocus);
    for (CellBox* box : {qty, date, aisle})
        box->keep_number_whole();
    for (QWidget* control : all())
        control->hide();
}

void RowBoxes::name_for_the_ear()
{
    desc->setAccessibleName(QStringLiteral("Description"));
    qty->setAccessibleName(QStringLiteral("Quantity"));
    cpn_brdr->setAccessibleName(QStringLiteral("Coupon expiry date"));
    date->setAccessibleName(QStringLiteral("Coupon expiry date"));
    date->setAccessibleDescription(QStringLiteral("Space switches the coupon, Down opens the calendar"));
    aisle->setAccessibleName(QStringLiteral("Aisle"));
    chck_box->setAccessibleName(QStringLiteral("Coupon"));
    set_drawn_control(*chck_box, DrawnControl::check_box);
    dtp_btn->setAccessibleName(QStringLiteral("Choose the expiry date"));
    for (const auto* buttons : {&qty_btn, &aisle_btn}) {
        (*buttons)[0]->setAccessibleName(QStringLiteral("One more"));
        (*buttons)[1]->setAccessibleName(QStringLiteral("One less"));
    }
}

std::array<QWidget*, 16> RowBoxes::all() const
{
    return {desc,       qty,        cpn_brdr,     dp_frame,     aisle,      cpn_bkgrnd, chck_box,   dtp_btn,
            qty_btn[0], qty_btn[1], aisle_btn[0], aisle_btn[1], frmEditDel, imgedit,    imgScratch, month_view};
}

bool RowBoxes::owns(const QWidget* widget) const
{
    const auto controls = all();
    return widget && std::any_of(controls.begin(), controls.end(), [widget](const QWidget* control) {
               return control == widget || control->isAncestorOf(widget);
           });
}

int RowBoxes::place_in_chain(const QWidget* widget) const
{
    const auto box
        = std::find_if(chain.begin(), chain.end(), [widget](const RowBox& b) { return b.edit == widget; });
    return box == chain.end() ? -1 : static_cast<int>(box - chain.begin());
}

/// The keyboard goes back to the grid before its control hides, which would hand it to any neighbour. Behind a
/// dialog the window keeps the control for its return.
void RowBoxes::give_up_focus(const QWidget& control)
{
    const QWidget* focus = grid_.window()->focusWidget();
    if (focus && (focus == &control || control.isAncestorOf(focus)))
        grid_.setFocus(Qt::OtherFocusReason);
}

void RowBoxes::hide()
{
    for (QWidget* control : all())
        give_up_focus(*control);
    for (QWidget* control : all())
        control->hide();
}

/// Puts a control over a stretch of the row; none hides it. What was typed is written already.
void RowBoxes::show_at(QWidget& control, const QRect& rect)
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
QRect RowBoxes::box_rect(int row, GridColumn column, int less_wide) const
{
    if (grid_.col_width(column) == 0)
        return {};
    const QWidget* form = grid_.parentWidget();
    const QRect view(grid_.viewport()->mapTo(form, QPoint()), grid_.viewport()->size());
    const QRect box = grid_.cell_rect(row, column).adjusted(-1, 0, -less_wide, 0) & view;
    const QPoint shift = desc->parentWidget()->mapFromGlobal(form->mapToGlobal(QPoint()));
    return box.translated(shift);
}

void RowBoxes::place(int row)
{
    show_at(*desc, box_rect(row, GridColumn::desc));
    const bool is_last
        = !host_.column_group_shown(ColumnGroup::coupon) && !host_.column_group_shown(ColumnGroup::aisle);
    show_number_at(*qty, box_rect(row, GridColumn::qty, is_last ? 1 : 0));
    place_steppers(*qty, qty_btn);
    place_coupon_and_date(row);
    if (cpn_brdr->isHidden())
        close_calendar();
    show_number_at(*aisle,
                   host_.column_group_shown(ColumnGroup::aisle) ? box_rect(row, GridColumn::aisle) : QRect());
    place_steppers(*aisle, aisle_btn);
    place_end_frame(row);
}

/// A long text that is being typed covers the boxes to the left of its own, the description's at most.
void RowBoxes::show_number_at(CellBox& box, const QRect& rect)
{
    box.set_cell({}, 0);
    show_at(box, rect);
    box.set_cell(rect, desc->isHidden() ? rect.left() : desc->x());
}

void RowBoxes::place_steppers(const QWidget& box, const std::array<PictureButton*, 2>& buttons)
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

void RowBoxes::place_coupon_and_date(int row)
{
    const bool shown = host_.column_group_shown(ColumnGroup::coupon);
    const QRect coupon = shown ? box_rect(row, GridColumn::coupon) : QRect();
    show_at(*cpn_bkgrnd, coupon.adjusted(1, 0, 0, 0));
    show_at(*chck_box, coupon.adjusted(1, 0, 0, 0));

    const QRect expiry = shown ? box_rect(row, GridColumn::date) : QRect();
    show_at(*cpn_brdr, expiry);
    show_at(*dp_frame, expiry);
    date->setGeometry(dp_frame->rect());
    if (expiry.isEmpty())
        give_up_focus(*date);
    date->setVisible(!expiry.isEmpty());
    const int width = dtp_btn->sizeHint().width() + 2;
    const bool has_button = chck_box->property("Tag").toString() == QLatin1String("ON");
    const QRect button(expiry.right() - width, expiry.top() + 1, width, expiry.height() - 2);
    show_at(*dtp_btn, has_button && expiry.width() > width ? button : QRect());
}

/// The frame takes the end of the name cell. Where little of the name would be left it shrinks to the small
/// pictures, and where nothing would it stays away: the row's menu does the same.
void RowBoxes::place_end_frame(int row)
{
    constexpr int gap = 3; // between the frame and the description
    constexpr int between = 1;
    constexpr int readable = 32;
    constexpr int least = 16;

    const QRect name = box_rect(row, GridColumn::item);
    const auto frame_width = [](bool large, int fade) {
        return fade + 2 * picture_size(large ? button_picture::edit_large : button_picture::edit).width() + between;
    };
    const bool is_large = size_step(type_size_) == 2;
    const bool is_wide = name.width() >= frame_width(is_large, EndFrame::wide_fade) + gap + readable;
    const int fade = is_wide ? EndFrame::wide_fade : 0;
    const int width = frame_width(is_wide && is_large, fade);
    imgedit->set_picture(is_wide && is_large ? button_picture::edit_large : button_picture::edit);
    imgScratch->set_picture(is_wide && is_large ? button_picture::remove_large : button_picture::remove);

    frmEditDel->set_fade(fade);

    const QRect frame(desc->x() - gap - width, name.top(), width, name.height());
    const bool fits = host_.has_edit_buttons() && !desc->isHidden() && name.width() >= width + gap + least;
    show_at(*frmEditDel, fits ? frame : QRect());
    grid_.set_name_end(!fits ? 0 : is_wide ? gap : width + 2 * gap); // in a wide frame the name fades out
    const int picture = imgedit->sizeHint().width();
    imgedit->setGeometry(fade, 0, picture, frame.height());
    imgScratch->setGeometry(fade + picture + between, 0, picture, frame.height());
    imgedit->show();
    imgScratch->show();
}

void RowBoxes::set_type_size(int points)
{
    type_size_ = points;
    const int step = size_step(type_size_);
    const auto set_font = [this](QWidget* box, GridColumn column) {
        QFont font = QGuiApplication::font();
        font.setPointSize(points_of(type_size_, column));
        box->setFont(font);
    };
    for (const RowBox& box : chain)
        set_font(box.edit, box.column);
    for (const auto* buttons : {&qty_btn, &aisle_btn}) {
        const int up = button_picture::step_up + step;
        const int down = button_picture::step_down + step;
        (*buttons)[0]->set_pictures(up, up + button_picture::held);
        (*buttons)[1]->set_pictures(down, down + button_picture::held);
    }
    dtp_btn->set_picture(button_picture::calendar);
    set_margins();
}

/// The text of a box stands where the grid draws it, and ends before the buttons.
void RowBoxes::set_margins()
{
    constexpr int left = 2; // with the box's own 2 and the line, the grid's 3 from the cell's edge
    constexpr int gap = 1;
    const auto set = [](QLineEdit& box, const QWidget& button) {
        box.setTextMargins(left, 0, button.sizeHint().width() + gap, 0);
    };
    desc->setTextMargins(left, 0, 0, 0);
    set(*qty, *qty_btn[0]);
    set(*aisle, *aisle_btn[0]);
    set(*date, *dtp_btn);
}

void RowBoxes::set_page_color(const QColor& color)
{
    cpn_brdr->set_page_color(color);
    for (const RowBox& box : chain)
        box.edit->set_page_color(color);
    for (QWidget* ground : {cpn_bkgrnd, dp_frame}) {
        QPalette colors = ground->palette();
        colors.setColor(QPalette::Window, color);
        ground->setPalette(colors);
    }
    frmEditDel->set_colors(color, grid_.palette().color(QPalette::Highlight));
}

void RowBoxes::open_calendar(QDate shown)
{
    from_date_box_ = date->hasFocus();
    month_view->setSelectedDate(shown);
    month_view->setCurrentPage(shown.year(), shown.month());
    place_calendar();
    month_view->setFocus(Qt::OtherFocusReason);
}

/// Under the date box; above it where the grid's foot is too near, and always inside the form.
void RowBoxes::place_calendar()
{
    QCalendarWidget& calendar = *month_view;
    const QWidget* form = calendar.parentWidget();
    const QRect box = cpn_brdr->geometry();
    const QPoint foot = form->mapFromGlobal(grid_.mapToGlobal(grid_.rect().bottomLeft()));
    const QSize size = calendar.sizeHint();
    int top = box.bottom() + 1;
    if (top + size.height() > foot.y() + 1)
        top = box.top() - size.height();
    top = std::clamp(top, 0, std::max(0, form->height() - size.height()));
    const int left = std::clamp(box.left(), 0, std::max(0, form->width() - size.width()));
    show_at(calendar, QRect(QPoint(left, top), size));
}

void RowBoxes::close_calendar()
{
    if (month_view->isAncestorOf(grid_.window()->focusWidget()))
        (from_date_box_ ? date : static_cast<QWidget*>(&grid_))->setFocus(Qt::OtherFocusReason);
    from_date_box_ = false;
    month_view->hide();
}

} // namespace tarnwick
