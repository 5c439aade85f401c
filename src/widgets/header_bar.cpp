#include "widgets/header_bar.h"

#include "widgets/update_lock.h"
#include "widgets/column_layout.h"
#include "widgets/fitted_label.h"
#include "widgets/frame_lines.h"
#include "widgets/list_grid.h"
#include "widgets/pictures.h"
#include "widgets/type_size.h"

#include <QCheckBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace tarnwick {
namespace {

constexpr int grip_picture = 162;
constexpr std::array spoken_heads = {"Item and description", "Quantity", "Coupon and expiry", "Aisle"};
constexpr int grip_width = 17; ///< the mouse finds the grip in this width, left of the border
constexpr int grip_beyond = 4; ///< and in this width right of it
constexpr int box_inset = 23;
constexpr int tick_size = 12;
constexpr int tick_margin = 2;
constexpr int text_margin = 3;
constexpr int narrowest_caption = 65; ///< percent
constexpr int grip_room = 6; ///< what a caption leaves to the grip at its right

/// A flat cell of the bar. It is a button that does nothing, so it shows no press.
class HeaderCell : public QPushButton {
public:
    using QPushButton::QPushButton;

    /// The last cell ends at the line around the pane and needs none of its own.
    void set_last(bool last)
    {
        last_ = last;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Button));
        draw_lower_line(painter, rect(), line_color(palette()));
        if (!last_)
            draw_right_line(painter, rect().adjusted(0, 3, 0, -3), line_color(palette()));
    }

private:
    bool last_ = false;
};

/// The grip at the border of two columns, its lines left of the border, so that they touch no caption.
class HeaderGrip : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const QSize size = picture_size(grip_picture);
        painter.drawPixmap(grip_width - size.width(), (height() - size.height()) / 2,
                           picture(grip_picture, devicePixelRatioF()));
    }
};

QString numbered(const char* name, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

} // namespace

/// A box that shows or hides a column group. While the group is on show its header carries the caption
/// and the box is a tick alone; otherwise the box carries the caption itself.
class HeaderBar::ShowBox : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

    int wanted_width() const
    {
        return isChecked() ? box_inset : tick_size + 2 * text_margin + fontMetrics().horizontalAdvance(text()) + 2;
    }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (!isChecked()) {
            painter.fillRect(rect().adjusted(0, 0, 0, -1), palette().color(QPalette::Button));
            painter.setPen(palette().color(QPalette::ButtonText));
            painter.drawText(rect().adjusted(tick_size + 2 * text_margin, 0, 0, 0),
                             Qt::AlignLeft | Qt::AlignVCenter, text());
        }
        QStyleOption box;
        box.initFrom(this);
        box.rect = QRect(isChecked() ? width() - tick_size - tick_margin : text_margin, (height() - tick_size) / 2,
                         tick_size, tick_size);
        box.state |= isChecked() ? QStyle::State_On : QStyle::State_Off;
        style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, this);
    }
};

HeaderBar::HeaderBar(ListGrid& grid, QWidget* parent)
    : grid_(grid)
{
    for (int i = 0; i < 4; ++i) {
        headers_[i] = new HeaderCell(parent);
        headers_[i]->setObjectName(numbered("listheader", i));
        headers_[i]->setAccessibleName(QLatin1String(spoken_heads.at(static_cast<size_t>(i))));
        headers_[i]->setFocusPolicy(Qt::NoFocus);
    }
    const QString captions[] = {QStringLiteral("Buy-it    Item"), QStringLiteral("Description"),
                                QStringLiteral("Qty"), QStringLiteral("Cpn  Expry"), QStringLiteral("Asl")};
    for (int i = 0; i < 5; ++i) {
        auto* label = new FittedLabel(parent);
        label->set_narrowest(narrowest_caption);
        labels_[i] = label;
        labels_[i]->setObjectName(numbered("listheader_lbl", i));
        labels_[i]->setTextFormat(Qt::PlainText);
        labels_[i]->setText(captions[i]);
        labels_[i]->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    for (int i = 0; i < 2; ++i) {
        separators_[i] = new HeaderGrip(parent);
        separators_[i]->setObjectName(numbered("listheader_sprtr", i));
    }
    separators_[0]->setCursor(Qt::SplitHCursor);
    separators_[0]->installEventFilter(this);
    make_boxes(parent);
    set_type_size(first_type_size);
}

void HeaderBar::make_boxes(QWidget* parent)
{
    const QString captions[] = {QStringLiteral("Cpn"), QStringLiteral("Asl")};
    const QString tool_tips[]
        = {QStringLiteral("Hide/show coupon-and-expiry column"), QStringLiteral("Hide/show aisle column")};
    for (const ColumnGroup group : column_groups) {
        const int i = static_cast<int>(group);
        boxes_[i] = new ShowBox(captions[i], parent);
        boxes_[i]->setObjectName(numbered("Cmd_ShowCol", i));
        boxes_[i]->setToolTip(tool_tips[i]);
        boxes_[i]->setAccessibleName(tool_tips[i]);
        boxes_[i]->setFocusPolicy(Qt::NoFocus);
        boxes_[i]->setAttribute(Qt::WA_Hover);
        boxes_[i]->setChecked(true);
        connect(boxes_[i], &QCheckBox::clicked, this, [this, group] { emit group_toggled(group); });
    }
}

QCheckBox& HeaderBar::show_box(ColumnGroup group)
{
    return box(group);
}

bool HeaderBar::group_shown(ColumnGroup group) const
{
    return box(group).isChecked();
}

void HeaderBar::set_headers(int top, int height)
{
    const UpdateLock lock(*grid_.parentWidget());
    const QRect bar(grid_.x(), top, grid_.width(), height);
    place_cells(bar);
    place_boxes(bar);
    show_parts();
}

int HeaderBar::column_left(GridColumn column) const
{
    return grid_.x() + grid_.col_left(column);
}

int HeaderBar::column_right(GridColumn column) const
{
    return column_left(column) + grid_.col_width(column);
}

void HeaderBar::place_cells(const QRect& bar)
{
    using enum GridColumn;
    const int bar_end = bar.right() + 1;
    const GridColumn last_column = group_shown(ColumnGroup::aisle) ? aisle
        : group_shown(ColumnGroup::coupon)                         ? date
                                                                   : qty;
    // The last cell goes on over the scroll bar to the end of the grid.
    const auto end_of = [&](GridColumn column) {
        return column == last_column ? bar_end : std::min(column_right(column), bar_end);
    };
    const auto place = [&bar](QWidget* part, int left, int right) {
        part->setGeometry(left, bar.top(), std::max(right - left, 0), bar.height());
    };
    place(headers_[0], bar.left(), end_of(desc));
    place(headers_[1], column_left(qty), end_of(qty));
    place(headers_[2], column_left(coupon), end_of(date));
    place(headers_[3], column_left(aisle), end_of(aisle));
    for (QAbstractButton* header : headers_)
        static_cast<HeaderCell*>(header)->set_last(header->geometry().right() >= bar.right());
    place(separators_[0], column_right(item) - grip_width, column_right(item) + grip_beyond);
    place(separators_[1], column_right(qty) - grip_width, column_right(qty) + grip_beyond);

    place_label(0, bar.left(), column_right(item) - grip_room, bar);
    place_label(1, column_left(desc), end_of(desc) - waiting_boxes_width(), bar);
    place_label(2, column_left(qty), end_of(qty) - grip_room, bar);
    place_label(3, column_left(coupon), end_of(date), bar);
    place_label(4, column_left(aisle), end_of(aisle), bar);
}

/// A caption stands over the texts of its column.
void HeaderBar::place_label(int index, int left, int right, const QRect& bar)
{
    QLabel& label = *labels_[index];
    constexpr int narrowest_column = 4;
    const int margin = index == narrowest_column ? 1 : text_margin;
    int room = right - left - margin;
    if (index >= 3)
        room -= tick_size + 2 * tick_margin;
    label.setGeometry(left + margin, bar.top(), std::max(room, 0), bar.height() - 1);
}

HeaderBar::ShowBox& HeaderBar::box(ColumnGroup group) const
{
    return *boxes_[static_cast<size_t>(group)];
}

int HeaderBar::waiting_boxes_width() const
{
    int width = 0;
    for (const ColumnGroup group : column_groups)
        width += group_shown(group) ? 0 : box(group).wanted_width();
    return width;
}

void HeaderBar::place_boxes(const QRect& bar)
{
    // Boxes of hidden groups wait at the end of the description, where a group takes its room from.
    int free_end = headers_[0]->geometry().right() - 1;
    for (const ColumnGroup group : {ColumnGroup::aisle, ColumnGroup::coupon}) {
        const QAbstractButton& header = *headers_[group == ColumnGroup::coupon ? 2 : 3];
        const int width = box(group).wanted_width();
        const int header_end = header.geometry().right() + 1;
        const int left = group_shown(group) ? header_end - box_inset : free_end - width;
        box(group).setGeometry(left, bar.top(), width, bar.height());
        if (!group_shown(group))
            free_end = left;
        box(group).raise();
    }
}

void HeaderBar::show_parts()
{
    const bool parts_of_group[]
        = {shown_ && group_shown(ColumnGroup::coupon), shown_ && group_shown(ColumnGroup::aisle)};
    for (int i = 0; i < 4; ++i)
        headers_[i]->setVisible(i < 2 ? shown_ : parts_of_group[i - 2]);
    for (int i = 0; i < 5; ++i)
        labels_[i]->setVisible(i < 3 ? shown_ : parts_of_group[i - 3]);
    for (QWidget* separator : separators_)
        separator->setVisible(shown_);
    for (QCheckBox* box : boxes_)
        box->setVisible(shown_);
}

void HeaderBar::set_type_size(int points)
{
    if (points < 1)
        return;
    const auto set_points = [points](QWidget& caption) {
        QFont font = caption.font();
        font.setPointSize(points);
        caption.setFont(font);
    };
    for (QLabel* label : labels_)
        set_points(*label);
    for (QCheckBox* box : boxes_)
        set_points(*box);
}

void HeaderBar::set_visible(bool visible)
{
    shown_ = visible;
    show_parts();
}

int HeaderBar::wanted_height() const
{
    constexpr int air = 6;
    return labels_[0]->fontMetrics().height() + air;
}

bool HeaderBar::eventFilter(QObject* watched, QEvent* event)
{
    const bool mouse_event = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove;
    if (watched != separators_[0] || !mouse_event)
        return QObject::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        drag_from_ = mouse->globalPosition().toPoint().x();
        drag_item_width_ = grid_.col_width(GridColumn::item);
        return true;
    }
    if (event->type() == QEvent::MouseMove && mouse->buttons().testFlag(Qt::LeftButton)) {
        column_layout::move_text_border(grid_,
                                        drag_item_width_ + mouse->globalPosition().toPoint().x() - drag_from_);
        emit separator_moved();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tarnwick
