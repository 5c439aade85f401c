#include "recipes/line_widgets.h"

#include "widgets/last_press.h"
#include "widgets/pictures.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tarnwick {

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
        line.setLineWidth(width);
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
    const qreal first = (first_row_ - fontMetrics().height()) / 2.0;
    for (int row = 0; row < layout_.lineCount(); ++row)
        layout_.lineAt(row).setPosition({0, first + row * row_pitch_});
    QPainter painter(this);
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
    if (!event->isAutoRepeat())
        emit key_down(event->key());
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
