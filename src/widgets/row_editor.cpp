#include "widgets/row_editor.h"

#include "widgets/update_lock.h"
#include "widgets/drawn_controls.h"
#include "widgets/key_kinds.h"
#include "widgets/last_press.h"
#include "widgets/list_grid.h"
#include "household/list_store.h"
#include "widgets/row_boxes.h"
#include "widgets/row_editor_controls.h"
#include "household/row_store.h"
#include "widgets/separator.h"
#include "widgets/tool_tip.h"
#include "household/status.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr QStringView box_date = u"M/d/yy";
constexpr const char* tag = "Tag";
constexpr const char* text_before = "text_before"; ///< of a box: its text when the keyboard came
constexpr const char* coupon_before = "coupon_before"; ///< of the date box, as above

/// Whether a key writes in a text or moves the caret along it.
bool is_key_of_text(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return !typed_text(key).isEmpty();
    }
}

} // namespace

RowEditor::RowEditor(ListGrid& grid, RowEditorHost& host, QWidget* parent)
    : grid_(grid)
    , host_(host)
    , boxes_(std::make_unique<RowBoxes>(grid, host, parent))
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
    connect(&grid_, &ListGrid::edit_wanted, this, [this] { enter_box(GridColumn::desc); });
    connect(&grid_, &ListGrid::typed, this, [this](const QString& text) {
        enter_box(text[0].isDigit() ? GridColumn::qty : GridColumn::desc, text);
    });
    for (auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&grid_.rows(), change, this, &RowEditor::place_again);
    connect(&grid_.rows(), &QAbstractItemModel::layoutChanged, this, &RowEditor::place_again);
}

RowEditor::~RowEditor() = default;

void RowEditor::connect_controls()
{
    for (const RowBox& box : boxes_->chain) {
        box.edit->installEventFilter(this);
        if (box.edit != boxes_->date)
            connect(box.edit, &QLineEdit::textChanged, this, [this, box] { write_text(box); });
    }
    for (QWidget* control : boxes_->all())
        control->installEventFilter(this);
    // The calendar hands its focus to a view inside.
    for (QWidget* part : boxes_->month_view->findChildren<QWidget*>())
        part->installEventFilter(this);
    const auto connect_steppers = [this](const std::array<PictureButton*, 2>& buttons, const RowBox& box) {
        connect(buttons[0], &QAbstractButton::clicked, this, [this, box] { step(box, true); });
        connect(buttons[1], &QAbstractButton::clicked, this, [this, box] { step(box, false); });
    };
    connect_steppers(boxes_->qty_btn, boxes_->chain[1]);
    connect_steppers(boxes_->aisle_btn, boxes_->chain[3]);
    connect(boxes_->chck_box, &QAbstractButton::clicked, this, [this] {
        switch_coupon(edit_row(), boxes_->chck_box->property(tag).toString() == QLatin1String("OFF"));
    });
    connect(boxes_->dtp_btn, &QAbstractButton::pressed, this, &RowEditor::show_calendar);
    connect(boxes_->month_view, &QCalendarWidget::clicked, this, &RowEditor::choose_date);
    connect(boxes_->month_view, &QCalendarWidget::activated, this, &RowEditor::choose_date);
    connect(boxes_->imgedit, &QAbstractButton::clicked, this, &RowEditor::edit_clicked);
    connect(boxes_->imgScratch, &QAbstractButton::clicked, this, [this] { host_.remove_row(edit_row()); });
}

bool RowEditor::is_open() const
{
    return !boxes_->desc->isHidden();
}

QWidget* RowEditor::first_box() const
{
    const auto& chain = boxes_->chain;
    const auto box = std::find_if(chain.begin(), chain.end(), [](const RowBox& b) { return b.edit->isVisible(); });
    return is_open() && box != chain.end() ? box->edit : nullptr;
}

int RowEditor::edit_row() const
{
    return edit_row_.isValid() ? edit_row_.row() : -1;
}

bool RowEditor::owns(const QWidget* widget) const
{
    return boxes_->owns(widget);
}

void RowEditor::show_l_line()
{
    const int row = grid_.current_row();
    if (row < 0)
        return;
    hide_line();
    interrupted_.reset();
    const UpdateLock lock(*grid_.window());
    const QScopedValueRollback grid_moves(writing_, true);
    bring_into_view(row);
    edit_row_ = grid_.rows().cell(row, GridColumn::light);
    boxes_->set_type_size(host_.type_size());
    boxes_->set_page_color(grid_.palette().color(QPalette::Base));
    fill();
    boxes_->place(row);
    grid_.rows().change_row(row, [](GridRow& opened) { opened.bold = true; });
    grid_.set_current(row, GridColumn::item);
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
    boxes_->hide();
    clear_bold();
    edit_row_ = QPersistentModelIndex();
}

void RowEditor::interrupt()
{
    if (!is_open())
        return;
    const int place = boxes_->place_in_chain(grid_.window()->focusWidget());
    CellBox* box = place < 0 ? nullptr : boxes_->chain[static_cast<size_t>(place)].edit;
    if (box)
        interrupted_ = {edit_row_, box, box->cursorPosition()};
    hide_line();
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
    for (const RowBox& box : boxes_->chain) {
        if (box.edit == boxes_->date)
            continue;
        const QString cell = grid_.rows().cell_text(row, box.column);
        const QString text = cell.isNull() ? QStringLiteral(" ") : cell;
        box.edit->setText(text);
        box.edit->setProperty(tag, text);
        box.edit->home(false);
    }
    fill_coupon();
    const int key = grid_.rows().row(row).groc_key;
    boxes_->imgedit->setProperty(tag, key);
    for (PictureButton* button : boxes_->qty_btn)
        button->setProperty(tag, key);
    if (host_.has_edit_buttons())
        fill_end_frame();
}

void RowEditor::fill_coupon()
{
    const int row = edit_row();
    const bool on = host_.coupon_on(row);
    // The cell's own picture carries the page colour.
    const QModelIndex cell = grid_.rows().cell(row, GridColumn::coupon);
    set_drawn_check(*boxes_->chck_box, on);
    boxes_->chck_box->setProperty(tag, on ? QStringLiteral("ON") : QStringLiteral("OFF"));
    boxes_->chck_box->set_picture(grid_.rows().data(cell, GridModel::PictureRole).toInt());
    const QString text = grid_.rows().cell_text(row, GridColumn::date);
    const QDate date = QDate::fromString(trim(text), screen_date_format);
    show_date(date.isValid() ? date.toString(box_date) : text);
    boxes_->date->setProperty(tag, boxes_->date->text());
    boxes_->date->setAccessibleName(QStringLiteral("Coupon expiry date")
                                    + (on ? QString() : QStringLiteral(", no coupon")));
    if (!on)
        boxes_->close_calendar();
}

/// A box that takes no typing is marked while it has the keyboard, and left by one arrow key.
void RowEditor::show_date(const QString& text)
{
    boxes_->date->setText(text);
    if (boxes_->date->hasFocus() || boxes_->calendar_is_of_date_box())
        boxes_->date->selectAll();
    else
        boxes_->date->home(false);
}

void RowEditor::fill_end_frame()
{
    const int row = edit_row();
    boxes_->imgedit->setToolTip(plain_tool_tip(host_.edit_tool_tip(row)));
    boxes_->imgScratch->setToolTip(plain_tool_tip(host_.remove_tool_tip(row)));
    boxes_->imgScratch->setProperty(tag, QStringLiteral("edit"));
}

void RowEditor::write_text(const RowBox& box)
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
    unstored_column_.reset();
}

void RowEditor::step(const RowBox& box, bool up)
{
    boxes_->close_calendar();
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
    boxes_->place_coupon_and_date(row);
}

void RowEditor::choose_date(QDate date)
{
    const int row = edit_row();
    if (row < 0 || boxes_->month_view->isHidden())
        return;
    grid_.rows().set_cell_text(row, GridColumn::date, date.toString(screen_date_format));
    show_date(date.toString(box_date));
    boxes_->close_calendar();
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
        return event->type() == QEvent::KeyPress && key_in_grid(*static_cast<QKeyEvent*>(event));
    }
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress: {
        auto* key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers held = key->modifiers() & ~Qt::KeypadModifier;
        return tab_along(*widget, *key) || (held == Qt::NoModifier && key_in_box(widget, key->key()));
    }
    case QEvent::MouseButtonDblClick:
        // A button that the first click brought up under the pointer was not what the user meant.
        return qobject_cast<QAbstractButton*>(widget) && !LastPress::was_on(*widget);
    case QEvent::FocusIn:
        if (const auto reason = static_cast<QFocusEvent*>(event)->reason(); reason != Qt::PopupFocusReason
            && reason != Qt::ActiveWindowFocusReason && !boxes_->calendar_is_of_date_box())
            note_before(*widget);
        return false;
    case QEvent::FocusOut:
        focus_left();
        return false;
    case QEvent::Wheel:
        if (widget == boxes_->month_view || boxes_->month_view->isAncestorOf(widget))
            return false;
        QCoreApplication::sendEvent(grid_.viewport(), event);
        return true;
    default:
        return false;
    }
}

void RowEditor::note_before(QWidget& box) const
{
    const bool is_date = &box == boxes_->date;
    if (const auto* edit = qobject_cast<QLineEdit*>(&box))
        box.setProperty(text_before, is_date ? grid_.rows().cell_text(edit_row(), GridColumn::date) : edit->text());
    if (is_date)
        box.setProperty(coupon_before, host_.coupon_on(edit_row()));
}

/// The date box takes no typing: its keys are those of the coupon box and of the calendar's button.
bool RowEditor::key_on_coupon(int key)
{
    if (key == Qt::Key_Space)
        boxes_->chck_box->click();
    else if (key == Qt::Key_Down && boxes_->dtp_btn->isVisible())
        show_calendar();
    return key == Qt::Key_Space || key == Qt::Key_Down;
}

bool RowEditor::key_in_grid(QKeyEvent& key)
{
    if (interrupted_ && is_key_of_text(key) && go_on(key))
        return true;
    if (key.key() == Qt::Key_Escape && (is_open() || interrupted_)) {
        interrupted_.reset();
        lv_edit_off();
        return true;
    }
    // The chain of boxes is entered as from a box before its first.
    return is_open() && key.key() == Qt::Key_Right && go_to_box(-1, 1);
}

/// Goes on with the interrupted edit; false when another row is current by now.
bool RowEditor::go_on(QKeyEvent& key)
{
    const Interrupted edit = *interrupted_;
    if (!edit.row.isValid() || edit.row.row() != grid_.current_row()) {
        interrupted_.reset();
        return false;
    }
    show_l_line();
    if (!edit.box->isVisible())
        return true;
    // As with a window that comes back: what the box had before the edit stays what Escape gives back.
    edit.box->setFocus(Qt::ActiveWindowFocusReason);
    if (edit.box->isReadOnly())
        edit.box->selectAll();
    else
        edit.box->setCursorPosition(edit.caret);
    QCoreApplication::sendEvent(edit.box, &key);
    return true;
}

/// Where the grid is one of the controls that Tab goes round, its boxes are too.
bool RowEditor::tab_along(const QWidget& widget, QKeyEvent& key)
{
    const bool back = key.key() == Qt::Key_Backtab;
    if ((!back && key.key() != Qt::Key_Tab) || !(grid_.focusPolicy() & Qt::TabFocus))
        return false;
    if (boxes_->month_view == &widget || boxes_->month_view->isAncestorOf(&widget))
        boxes_->close_calendar();
    const int place = boxes_->place_in_chain(QApplication::focusWidget());
    if (place >= 0 && go_to_box(place, back ? -1 : 1))
        return true;
    grid_.setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    QCoreApplication::sendEvent(&grid_, &key);
    return true;
}

bool RowEditor::key_in_box(const QWidget* widget, int key)
{
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (widget == boxes_->month_view) {
        if (key == Qt::Key_Escape)
            boxes_->close_calendar();
        // An Enter that the calendar has no use for is not meant for the form around it either.
        return enter || key == Qt::Key_Escape;
    }
    if (enter && qobject_cast<const QAbstractSpinBox*>(widget)) {
        // The year is taken when its box is left; by itself that would pass the focus on to any neighbour.
        boxes_->month_view->setFocus(Qt::OtherFocusReason);
        return true;
    }
    const int place = boxes_->place_in_chain(widget);
    if (place < 0)
        return false;
    const RowBox& box = boxes_->chain[static_cast<size_t>(place)];
    if (enter || key == Qt::Key_Escape) {
        if (!enter)
            give_back(box);
        lv_edit_off();
        grid_.setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (box.edit == boxes_->date && key_on_coupon(key))
        return true;
    switch (key) {
    case Qt::Key_Right:
        return box.edit->caret_at_end() && go_to_box(place, 1);
    case Qt::Key_Left:
        return box.edit->caret_at_start() && go_to_box(place, -1);
    default:
        return false;
    }
}

void RowEditor::give_back(const RowBox& box)
{
    const QVariant before = box.edit->property(text_before);
    if (box.edit == boxes_->date)
        give_coupon_back();
    else if (before.isValid())
        box.edit->setText(before.toString());
}

void RowEditor::give_coupon_back()
{
    const QVariant was_on = boxes_->date->property(coupon_before);
    const int row = edit_row();
    if (!was_on.isValid() || row < 0)
        return;
    if (host_.coupon_on(row) != was_on.toBool())
        switch_coupon(row, was_on.toBool());
    const QString text = boxes_->date->property(text_before).toString();
    const QDate date = QDate::fromString(trim(text), screen_date_format);
    if (!date.isValid() || text == grid_.rows().cell_text(row, GridColumn::date))
        return;
    grid_.rows().set_cell_text(row, GridColumn::date, text);
    host_.date_chosen(row, date);
}

/// The box of a column of the current row, with the keyboard; null where there is none.
CellBox* RowEditor::open_box(GridColumn column)
{
    if (grid_.current_row() < 0)
        return nullptr;
    if (!is_open() || edit_row() != grid_.current_row())
        show_l_line();
    const auto& chain = boxes_->chain;
    const auto box
        = std::find_if(chain.begin(), chain.end(), [column](const RowBox& b) { return b.column == column; });
    if (box == chain.end() || box->edit->isReadOnly() || !box->edit->isVisible())
        return nullptr;
    box->edit->setFocus(Qt::OtherFocusReason);
    return box->edit;
}

void RowEditor::enter_box(GridColumn column, const QString& typed)
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

void RowEditor::enter_box_at(GridColumn column, int x)
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
    const auto& chain = boxes_->chain;
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
    if (elsewhere && is_open() && !boxes_->qty->isHidden())
        lv_edit_off();
    else if (elsewhere)
        interrupted_.reset();
}

void RowEditor::rows_scrolled()
{
    if (!writing_)
        interrupt();
}

void RowEditor::place_again()
{
    if (!is_open())
        return;
    if (edit_row() < 0 || !grid_.row_is_visible(edit_row())) {
        interrupt();
        return;
    }
    boxes_->place(edit_row());
    if (!boxes_->month_view->isHidden())
        boxes_->place_calendar();
}

void RowEditor::set_type_size(int points)
{
    boxes_->set_type_size(points);
    place_again();
}

void RowEditor::set_page_color(const QColor& color)
{
    boxes_->set_page_color(color);
}

void RowEditor::show_calendar()
{
    const QDate shown
        = QDate::fromString(trim(grid_.rows().cell_text(edit_row(), GridColumn::date)), screen_date_format);
    boxes_->open_calendar(shown.isValid() ? shown : host_.today());
}

} // namespace tarnwick
