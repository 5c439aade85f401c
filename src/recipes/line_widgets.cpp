#include "recipes/line_widgets.h"

#include "widgets/key_kinds.h"
#include "widgets/last_press.h"
#include "widgets/pictures.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <utility>

namespace tarnwick {

int widest_text(const QFont& font)
{
    constexpr int characters = 100;
    return characters * QFontMetrics(font).averageCharWidth();
}

IngredientText::IngredientText(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFocusPolicy(Qt::ClickFocus);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(true);
    LastPress::require_on(*this);
}

void IngredientText::set_text(const QString& text)
{
    setText(text);
    QString rows = text;
    rows.remove(u'\r').replace(u'\n', QChar::LineSeparator);
    layout_.setText(rows);
    laid_out_width_ = -1;
}

void IngredientText::set_pitch(int row, int first_row)
{
    row_pitch_ = row;
    first_row_ = first_row;
}

void IngredientText::lay_out(int width)
{
    if (laid_out_width_ == width)
        return;
    laid_out_width_ = width;
    layout_.setFont(font());
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine())
        line.setLineWidth(std::min(width, widest_text(font())));
    layout_.endLayout();
}

int IngredientText::rows_in(int width)
{
    lay_out(width);
    return std::max(1, layout_.lineCount());
}

void IngredientText::set_text_color(const QColor& color)
{
    if (color_ == color)
        return;
    color_ = color;
    update();
}

void IngredientText::set_selected(bool selected)
{
    if (selected_ == selected)
        return;
    selected_ = selected;
    update();
}

void IngredientText::paintEvent(QPaintEvent*)
{
    lay_out(width());
    const int text_height = fontMetrics().height();
    const qreal first = (first_row_ - text_height) / 2.0;
    // A row that the lower edge of the page would cut is left out.
    const int foot = parentWidget()->height() - y();
    int whole_rows = 0;
    for (int row = 0; row < layout_.lineCount(); ++row) {
        const qreal top = first + row * row_pitch_;
        layout_.lineAt(row).setPosition({0, top});
        whole_rows += top + text_height <= foot;
    }
    QPainter painter(this);
    if (whole_rows < layout_.lineCount())
        painter.setClipRect(QRectF(0, 0, width(), first + whole_rows * row_pitch_));
    painter.setPen(color_);
    QList<QTextLayout::FormatRange> marks;
    if (selected_) {
        QTextLayout::FormatRange mark;
        mark.length = static_cast<int>(layout_.text().size());
        mark.format.setBackground(palette().highlight());
        mark.format.setForeground(palette().highlightedText());
        marks.append(mark);
    }
    layout_.draw(&painter, {}, marks, rect());
}

void IngredientText::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    parentWidget()->update();
    if (comes_by_key(event->reason()))
        emit keyboard_came();
}

void IngredientText::focusOutEvent(QFocusEvent* event)
{
    QLabel::focusOutEvent(event);
    parentWidget()->update();
}

/// Around the line that has the keyboard, clear of its text.
void PageGround::paintEvent(QPaintEvent* event)
{
    constexpr int gap = 4;
    QFrame::paintEvent(event);
    const auto* line = qobject_cast<const IngredientText*>(focusWidget());
    if (!line || !line->hasFocus() || line->parentWidget() != this)
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    frame.rect = line->geometry().adjusted(-gap, 0, gap, 0);
    frame.state |= QStyle::State_KeyboardFocusChange;
    frame.backgroundColor = palette().color(QPalette::Window);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void IngredientText::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        laid_out_width_ = -1;
}

void IngredientText::mousePressEvent(QMouseEvent* event)
{
    press_place_ = event->pos();
    pressed_ = event->button() == Qt::LeftButton;
    dragged_ = false;
    emit mouse_down(event->button(), event->pos());
}

void IngredientText::mouseMoveEvent(QMouseEvent* event)
{
    if (!pressed_ || event->buttons() != Qt::LeftButton || !Drag::is_drag(event->pos() - press_place_))
        return;
    pressed_ = false;
    emit drag_wanted(event->globalPosition().toPoint());
}

void IngredientText::mouseReleaseEvent(QMouseEvent* event)
{
    pressed_ = false;
    if (std::exchange(dragged_, false))
        return;
    emit mouse_up(event->button(), event->pos());
}

void IngredientText::keyPressEvent(QKeyEvent* event)
{
    const bool moves = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (moves || !event->isAutoRepeat())
        emit key_down(is_menu_key(*event) ? int(Qt::Key_Menu) : event->key());
}

PagePicture::PagePicture(QWidget* parent)
    : QLabel(parent)
{
    setFixedSize(16, 16);
}

void PagePicture::set_picture(int resource_number)
{
    if (picture_ == resource_number)
        return;
    picture_ = resource_number;
    setProperty("picture", resource_number);
    update();
}

void PagePicture::paintEvent(QPaintEvent*)
{
    constexpr int text_below = 2; // how much lower the text beside it may end
    if (geometry().bottom() + text_below >= parentWidget()->height())
        return; // left out with the row of its text
    QPainter painter(this);
    painter.drawPixmap(0, 0, tarnwick::picture(picture_, devicePixelRatioF()));
}

void PagePicture::mousePressEvent(QMouseEvent* event)
{
    pressed_ = pressed_ || event->button() == Qt::LeftButton;
    event->accept(); // the release then comes here too
}

void PagePicture::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && std::exchange(pressed_, false) && rect().contains(event->pos()))
        emit clicked();
}

} // namespace tarnwick
