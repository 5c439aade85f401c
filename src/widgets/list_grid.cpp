#include "widgets/list_grid.h"

#include "widgets/contrast.h"
#include "widgets/fitted_text.h"
#include "widgets/frame_lines.h"
#include "widgets/key_kinds.h"
#include "widgets/last_press.h"
#include "widgets/pictures.h"
#include "widgets/tool_tip.h"

#include <QHash>
#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

constexpr int first_row_height = 19;
constexpr int scroll_bar_width = 17;
constexpr int cell_margin = 3;
constexpr int picture_margin = 1;
constexpr std::array full_widths = {18, 18, 120, 120, 36, 18, 80, 36};

constexpr int bar_width = 3; ///< of the mark at the left end of the current row; the lights begin right of it

/// Pixels for the text of a cell.
int room_in_cell(const QModelIndex& index, int cell_width)
{
    constexpr int before_box = 3; // the box of the coupon follows the quantity
    return cell_width - cell_margin - (index.column() == column_number(GridColumn::qty) ? before_box : 1);
}

/// The name of the open row, which shares its cell with pencil and cross.
bool is_open_name(const QModelIndex& index, const QFont& font)
{
    return index.column() == column_number(GridColumn::item) && font.bold();
}

/// A cell's text as it stands in its room. Only names and descriptions may be cut anywhere.
FittedText text_in_cell(const QModelIndex& index, int cell_width)
{
    const QString text = index.data(Qt::DisplayRole).toString();
    const QFont font = index.data(Qt::FontRole).value<QFont>();
    const int room = room_in_cell(index, cell_width);
    if (is_open_name(index, font))
        return fit_text(text, font, room);
    if (index.column() != column_number(GridColumn::item) && index.column() != column_number(GridColumn::desc))
        return fit_number(text, font, room);
    const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, room);
    return {shown, font, shown != text};
}

/// Draws the cells from the model's plain texts and picture numbers, every second row a shade darker. The current
/// row is tinted as a whole; no cell of it is framed.
class GridDelegate : public QStyledItemDelegate {
public:
    explicit GridDelegate(ListGrid& grid)
        : QStyledItemDelegate(&grid)
        , grid_(grid)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (option.rect.width() <= 0)
            return;
        if (option.state.testFlag(QStyle::State_Selected))
            painter->fillRect(option.rect, option.palette.highlight());
        else if (index.row() % 2 == 1)
            painter->fillRect(option.rect, option.palette.alternateBase());
        const QVariant number = index.data(GridModel::PictureRole);
        if (number.isValid()) {
            const QPixmap image = picture(number.toInt(), painter->device()->devicePixelRatio());
            const QSize size = picture_size(number.toInt());
            painter->drawPixmap(option.rect.x() + picture_margin,
                                option.rect.y() + (option.rect.height() - size.height()) / 2, image);
            return;
        }
        paint_text(*painter, option.rect, index);
    }

    /// Tells the whole text of a cell that shows only a part of it.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        if (event->type() != QEvent::ToolTip)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const QString text = index.data(Qt::ToolTipRole).toString().trimmed();
        const bool cut_off = text_in_cell(index, width_for_text(option.rect.width(), index)).cut;
        QToolTip::showText(event->globalPos(), cut_off ? plain_tool_tip(text) : QString(), view);
        return true;
    }

private:
    /// Pixels of a cell that are there for its text.
    int width_for_text(int cell_width, const QModelIndex& index) const
    {
        return cell_width - (is_open_name(index, index.data(Qt::FontRole).value<QFont>()) ? grid_.name_end() : 0);
    }

    void paint_text(QPainter& painter, const QRect& cell, const QModelIndex& index) const
    {
        const QString text = index.data(Qt::DisplayRole).toString();
        if (text.isEmpty())
            return;
        const QFont font = index.data(Qt::FontRole).value<QFont>();
        const int width = width_for_text(cell.width(), index);
        const QRect room = cell.adjusted(cell_margin, 0, width - cell.width() - 1, 0);
        painter.setPen(index.data(Qt::ForegroundRole).value<QColor>());
        const LaidOutText whole(text, font);
        if (whole.width() <= room_in_cell(index, width)) {
            whole.draw(painter, room);
            return;
        }
        const FittedText& shown = fitted(index, text, font, width);
        painter.setFont(shown.font);
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown.text);
    }

    /// A text that has not room enough is fitted once: most of them are numbers, of which there are few.
    const FittedText& fitted(const QModelIndex& index, const QString& text, const QFont& font, int cell_width) const
    {
        constexpr qsizetype most_kept = 1000;
        const QString kept_as
            = QStringLiteral("%1|%2|%3|%4").arg(index.column()).arg(cell_width).arg(font.key(), text);
        const auto found = fitted_.constFind(kept_as);
        if (found != fitted_.cend())
            return *found;
        if (fitted_.size() >= most_kept)
            fitted_.clear();
        return *fitted_.insert(kept_as, text_in_cell(index, cell_width));
    }

    ListGrid& grid_;
    mutable QHash<QString, FittedText> fitted_;
};

/// The column widths allow for a bar of this width whatever the style draws.
class GridScrollBar : public QScrollBar {
public:
    using QScrollBar::QScrollBar;
    QSize sizeHint() const override { return {scroll_bar_width, QScrollBar::sizeHint().height()}; }
};

} // namespace

ListGrid::ListGrid(QWidget* parent)
    : QTableView(parent)
    , model_(new GridModel(this))
{
    LastPress::follow();
    setModel(model_);
    setItemDelegate(new GridDelegate(*this));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setFocusPolicy(Qt::StrongFocus);
    setAutoScroll(false);
    setVerticalScrollBar(new GridScrollBar(Qt::Vertical, this));
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (QHeaderView* lines : {horizontalHeader(), verticalHeader()}) {
        lines->hide();
        lines->setMinimumSectionSize(1);
        lines->setSectionResizeMode(QHeaderView::Fixed);
    }
    verticalHeader()->setDefaultSectionSize(first_row_height);
    for (int column = 0; column < grid_column_count; ++column)
        setColumnWidth(column, full_widths[static_cast<size_t>(column)]);
    set_page_color(Qt::white, 0);

    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ListGrid::scrolled);
    // The mark of the current row goes over the whole width, also where no cell is.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, viewport(), qOverload<>(&QWidget::update));
    connect(model_, &GridModel::modelReset, this, &ListGrid::follow_scroll_test);
    connect(model_, &GridModel::rowsInserted, this, &ListGrid::follow_scroll_test);
    connect(model_, &GridModel::rowsRemoved, this, &ListGrid::follow_scroll_test);
}

int ListGrid::current_row() const
{
    return currentIndex().row();
}

GridColumn ListGrid::current_col() const
{
    return static_cast<GridColumn>(std::max(currentIndex().column(), 0));
}

void ListGrid::set_current(int row, GridColumn column)
{
    setCurrentIndex(model_->cell(row, column));
    emit current_set();
}

int ListGrid::col_width(GridColumn column) const
{
    return columnWidth(column_number(column));
}

void ListGrid::set_col_width(GridColumn column, int pixels)
{
    setColumnWidth(column_number(column), pixels);
}

int ListGrid::col_left(GridColumn column) const
{
    return columnViewportPosition(column_number(column));
}

int ListGrid::all_cols_width() const
{
    return horizontalHeader()->length();
}

TextRatio ListGrid::text_ratio() const
{
    constexpr int narrowest = 3;
    const int item = col_width(GridColumn::item);
    const int desc = col_width(GridColumn::desc);
    if (item < narrowest || desc < narrowest)
        return {};
    if (item == ratio_item_ && desc == ratio_desc_)
        return ratio_;
    return {item, desc};
}

void ListGrid::set_text_widths(int item, int desc, TextRatio ratio)
{
    set_col_width(GridColumn::item, item);
    set_col_width(GridColumn::desc, desc);
    ratio_ = ratio;
    ratio_item_ = item;
    ratio_desc_ = desc;
}

int ListGrid::row_height() const
{
    return verticalHeader()->defaultSectionSize();
}

void ListGrid::set_type_size(int points)
{
    model_->set_type_size(points);
    const int height = points == 9 ? 19 : points == 10 ? 24 : points == 12 ? 28 : row_height();
    verticalHeader()->setDefaultSectionSize(height);
    follow_scroll_test();
}

void ListGrid::set_page_color(const QColor& color, int color_index)
{
    constexpr int mid_lightness = 128;
    const bool is_light = qGray(color.rgb()) >= mid_lightness;
    const QColor text = is_light ? QColor(Qt::black) : QColor(Qt::white);
    QPalette colors = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        colors.setColor(group, QPalette::Base, color);
        colors.setColor(group, QPalette::Window, color);
        colors.setColor(group, QPalette::AlternateBase, blend(color, text, 0.04));
        colors.setColor(group, QPalette::Text, text);
        colors.setColor(group, QPalette::WindowText, text);
        colors.setColor(group, QPalette::Highlight, blend(color, QColor(60, 110, 170), 0.28));
        colors.setColor(group, QPalette::HighlightedText, text);
    }
    setPalette(colors);
    mark_color_ = is_light ? QColor(31, 78, 140) : QColor(170, 205, 245);
    model_->set_text_color(text);
    model_->set_color_index(color_index);
}

bool ListGrid::scroll_bar_shown() const
{
    return model_->rows() > 0 && model_->rows() > static_cast<double>(height()) / row_height() - 0.2;
}

int ListGrid::top_row() const
{
    return verticalScrollBar()->value();
}

void ListGrid::set_top_row(int row)
{
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(row);
}

int ListGrid::rows_in_view() const
{
    return viewport()->height() / row_height();
}

bool ListGrid::row_is_visible(int row) const
{
    if (row < 0 || row >= model_->rows())
        return false;
    const int top = rowViewportPosition(row);
    return top >= 0 && top + row_height() <= viewport()->height();
}

int ListGrid::first_row_top() const
{
    return -verticalHeader()->offset();
}

QRect ListGrid::cell_rect(int row, GridColumn column) const
{
    // At its end the view stands on the last row, with a part of a row above the top row.
    const QRect cell(col_left(column), first_row_top() + row * row_height(), col_width(column), row_height());
    return cell.translated(viewport()->pos() + pos());
}

int ListGrid::row_at(int y) const
{
    if (y < 0 || model_->rows() == 0)
        return -1;
    const int row = (y - first_row_top()) / row_height();
    return row < model_->rows() ? row : -1;
}

void ListGrid::set_empty_hint(const QString& hint)
{
    empty_hint_ = hint;
    viewport()->update();
}

void ListGrid::paint_hint(QPainter& painter)
{
    constexpr int margin = 24;
    constexpr double softer = 0.3;
    const QPalette colors = palette();
    const QRect all = viewport()->rect();
    painter.setFont(model_->plain_font());
    painter.setPen(blend(colors.color(QPalette::Text), colors.color(QPalette::Base), softer));
    painter.drawText(all.adjusted(margin, margin, -margin, 0), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     empty_hint_);
}

/// The current row has a bar at its left end; while the keyboard is in the grid the whole row is framed, or the
/// grid where no row is current.
void ListGrid::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    const bool marked = selectionModel()->isRowSelected(std::max(current_row(), 0));
    const QRect all = viewport()->rect();
    const QRect row(0, first_row_top() + current_row() * row_height(), all.width(), row_height());
    QPainter painter(viewport());
    if (model_->rows() == 0)
        paint_hint(painter);
    if (marked)
        painter.fillRect(QRect(row.topLeft(), QSize(bar_width, row.height())), mark_color_);
    if (hasFocus())
        draw_frame(painter, marked ? row : all, mark_color_);
}

/// The bar stands exactly when the scroll test says so, because the column widths go by that test.
void ListGrid::follow_scroll_test()
{
    setVerticalScrollBarPolicy(scroll_bar_shown() ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

void ListGrid::updateGeometries()
{
    QTableView::updateGeometries();
    horizontalScrollBar()->setRange(0, 0);
}

void ListGrid::resizeEvent(QResizeEvent* event)
{
    follow_scroll_test();
    QTableView::resizeEvent(event);
}

void ListGrid::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    pressed_row_ = row_at(position.y());
    const int column = columnAt(position.x());
    pressed_column_ = column < 0 ? std::nullopt : std::optional(static_cast<GridColumn>(column));
    pressed_ = model_->cell(pressed_row_, GridColumn::light);
    skips_release_ = false;
    is_pressed_ = true;
    if (event->button() == Qt::LeftButton && pressed_row_ >= 0)
        set_current(pressed_row_, pressed_column_.value_or(GridColumn::light));
    emit mouse_down(event->button(), position);
    event->accept();
}

void ListGrid::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
}

void ListGrid::mouseReleaseEvent(QMouseEvent* event)
{
    if (!skips_release_)
        emit mouse_up(event->button(), event->position().toPoint());
    skips_release_ = false;
    is_pressed_ = false;
    emit mouse_done();
    event->accept();
}

/// Whether the press before this one went to this grid, and to the row that lies there now.
bool ListGrid::has_first_press(QPoint position) const
{
    return LastPress::was_on(*viewport()) && row_at(position.y()) == (pressed_.isValid() ? pressed_.row() : -1);
}

/// The second press of a quick pair counts as a press of its own where the first went to the same row.
void ListGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (has_first_press(event->position().toPoint())) {
        mousePressEvent(event);
        return;
    }
    skips_release_ = true;
    event->accept();
}

void ListGrid::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->key() == Qt::Key_Up)
        emit key_down(GridKey::up);
    else if (event->key() == Qt::Key_Down)
        emit key_down(GridKey::down);
    else if (current_row() < 0 || !act_on_row(*event))
        event->ignore();
}

/// The row that a key leads to from the current one; -1 for another key.
int ListGrid::row_of_key(int key) const
{
    const int last = model_->rows() - 1;
    const int page = std::max(1, rows_in_view() - 1);
    switch (key) {
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    case Qt::Key_PageUp:
        return std::max(0, current_row() - page);
    case Qt::Key_PageDown:
        return std::min(last, current_row() + page);
    default:
        return -1;
    }
}

/// False for a key that is none of the grid's. One press removes or ticks one row.
bool ListGrid::act_on_row(const QKeyEvent& event)
{
    const int key = event.key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (const int row = row_of_key(key); row >= 0) {
        if (row != current_row())
            emit row_wanted(row);
    } else if (key == Qt::Key_Delete || key == Qt::Key_Space) {
        if (!event.isAutoRepeat())
            emit key_down(key == Qt::Key_Space ? GridKey::check : GridKey::remove);
    } else if (is_menu_key(event)) {
        emit key_down(GridKey::menu);
    } else if (key == Qt::Key_F2 || (enter && enter_edits_)) {
        emit edit_wanted();
    } else if (const QString text = typed_text(event); !text.isEmpty()) {
        emit typed(text);
    } else {
        return false;
    }
    return true;
}

void ListGrid::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    viewport()->update();
}

void ListGrid::focusOutEvent(QFocusEvent* event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        emit lost_focus();
}

} // namespace tarnwick
