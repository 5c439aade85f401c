#include "widgets/row_editor_controls.h"

#include "widgets/drawn_controls.h"
#include "widgets/fitted_text.h"
#include "widgets/frame_lines.h"
#include "widgets/one_line_box.h"
#include "widgets/pictures.h"
#include "widgets/tool_tip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTextCharFormat>
#include <QToolTip>

#include <algorithm>
#include <limits>

namespace tarnwick {

CellBox::CellBox(const QString& name, QWidget* parent)
    : QLineEdit(parent)
{
    setObjectName(name);
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    keep_one_line(*this);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    set_page_color(Qt::white);
    hide();
}

void CellBox::set_page_color(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, color);
    const bool is_dark = color.lightness() < 128;
    colors.setColor(QPalette::Text, is_dark ? Qt::white : Qt::black);
    setPalette(colors);
    line_ = is_dark ? color.lighter(200) : color.darker(200);
    focus_line_ = is_dark ? QColor(170, 205, 245) : QColor(31, 78, 140);
}

void CellBox::keep_number_whole()
{
    keeps_number_ = true;
    connect(this, &QLineEdit::textChanged, this, &CellBox::fit_type);
    fit_type();
}

void CellBox::set_cell(const QRect& cell, int leftmost)
{
    cell_ = cell;
    leftmost_ = leftmost;
    fit_type();
}

/// Where the control itself draws its text. With the keyboard it keeps a place for the caret.
QRect CellBox::text_room() const
{
    constexpr int own_margin = 2;
    const int caret = isReadOnly() || !hasFocus() ? 0 : 1;
    return rect().marginsRemoved(textMargins()).adjusted(own_margin, 0, -own_margin - caret, 0);
}

bool CellBox::is_cut() const
{
    return fontMetrics().horizontalAdvance(text()) > text_room().width();
}

void CellBox::fit_type()
{
    if (!keeps_number_ || fitting_)
        return;
    const QScopedValueRollback fitting(fitting_, true);
    QFont type = font();
    type.setStretch(QFont::AnyStretch);
    const int around = width() - text_room().width();
    const int cell_width = cell_.isEmpty() ? width() : cell_.width();
    const FittedText fitted = fit_text(text(), type, std::max(cell_width - around, 0));
    const bool grows = fitted.cut && hasFocus() && !cell_.isEmpty();
    if (const QFont& wanted = grows ? type : fitted.font; wanted != font())
        setFont(wanted);
    if (cell_.isEmpty())
        return;
    QRect place = cell_;
    if (grows)
        place.setLeft(std::clamp(cell_.right() + 1 - QFontMetrics(type).horizontalAdvance(text()) - around,
                                 std::min(leftmost_, cell_.left()), cell_.left()));
    setGeometry(place);
}

bool CellBox::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QLineEdit::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), is_cut() ? plain_tool_tip(text()) : QString(),
                       this);
    return true;
}

void CellBox::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fit_type();
}

void CellBox::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    fit_type();
}

void CellBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    fit_type();
}

void CellBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    fit_type();
}

void CellBox::paint_number()
{
    QFont type = font();
    type.setStretch(QFont::AnyStretch);
    const QRect room = text_room();
    const FittedText shown = fit_number(text(), type, room.width());
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setFont(shown.font);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown.text);
}

bool CellBox::wholly_marked() const
{
    return isReadOnly() && selectedText().size() == text().size();
}

bool CellBox::caret_at_start() const
{
    return cursorPosition() == 0 || wholly_marked();
}

bool CellBox::caret_at_end() const
{
    return cursorPosition() == text().size() || wholly_marked();
}

void CellBox::paintEvent(QPaintEvent* event)
{
    // What fills its room the control itself would draw scrolled, for the caret's sake.
    const bool filled = fontMetrics().horizontalAdvance(text()) >= text_room().width();
    if (keeps_number_ && !hasFocus() && filled)
        paint_number();
    else
        QLineEdit::paintEvent(event);
    QPainter painter(this);
    draw_frame(painter, rect(), hasFocus() ? focus_line_ : line_, hasFocus() ? 2 : 1);
}

PictureButton::PictureButton(const QString& name, QWidget* parent)
    : QAbstractButton(parent)
{
    setObjectName(name);
    set_drawn_control(*this, DrawnControl::button);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    connect(this, &QAbstractButton::pressed, this, &PictureButton::show_picture);
    connect(this, &QAbstractButton::released, this, &PictureButton::show_picture);
    hide();
}

void PictureButton::set_pictures(int number, int held)
{
    number_ = number;
    held_ = held;
    show_picture();
}

void PictureButton::show_picture()
{
    setProperty("picture", isDown() ? held_ : number_);
    update();
}

QSize PictureButton::sizeHint() const
{
    return picture_size(number_);
}

void PictureButton::paintEvent(QPaintEvent*)
{
    const int number = isDown() ? held_ : number_;
    const QSize size = picture_size(number);
    QPainter painter(this);
    painter.drawPixmap((width() - size.width()) / 2, (height() - size.height()) / 2,
                       picture(number, devicePixelRatioF()));
}

EndFrame::EndFrame(const QString& name, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(name);
    hide();
}

void EndFrame::set_colors(const QColor& page, const QColor& row)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, page);
    setPalette(colors);
    row_color_ = row;
    update();
}

void EndFrame::set_fade(int pixels)
{
    fade_ = pixels;
    update();
}

void EndFrame::paintEvent(QPaintEvent*)
{
    const QRect between_lines = rect().adjusted(0, 1, 0, -1); // of the row's frame
    if (fade_ == 0) {
        QPainter(this).fillRect(between_lines, row_color_);
        return;
    }
    QLinearGradient ground(0, 0, fade_, 0);
    QColor clear = row_color_;
    clear.setAlpha(0);
    ground.setColorAt(0, clear);
    ground.setColorAt(1, row_color_);
    QPainter(this).fillRect(between_lines, ground);
}

MonthView::MonthView(QWidget* parent)
    : QCalendarWidget(parent)
{
    setObjectName(QStringLiteral("MonthView1"));
    setAccessibleName(QStringLiteral("Coupon expiry date"));
    const auto name = [this](const char* part, const QString& text) {
        if (auto* control = findChild<QWidget*>(QLatin1String(part)))
            control->setAccessibleName(text);
    };
    name("qt_calendar_prevmonth", QStringLiteral("Month before"));
    name("qt_calendar_nextmonth", QStringLiteral("Next month"));
    name("qt_calendar_yearedit", QStringLiteral("Year"));
    name("qt_calendar_calendarview", QStringLiteral("Days of the month"));
    setVerticalHeaderFormat(NoVerticalHeader);
    setContentsMargins(1, 1, 1, 1);
    take_colors();
}

/// The head in the colours of the days: month and year are written in the text colour of a highlight.
void MonthView::take_colors()
{
    if (auto* head = findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar"))) {
        QPalette colors = palette();
        colors.setColor(QPalette::Highlight, colors.color(QPalette::Base));
        colors.setColor(QPalette::HighlightedText, colors.color(QPalette::Text));
        head->setPalette(colors);
    }
    constexpr int mid_lightness = 128;
    const bool is_dark = palette().color(QPalette::Base).lightness() < mid_lightness;
    QTextCharFormat weekend;
    weekend.setForeground(is_dark ? QColor(245, 160, 150) : QColor(176, 32, 24));
    setWeekdayTextFormat(Qt::Saturday, weekend);
    setWeekdayTextFormat(Qt::Sunday, weekend);
}

void MonthView::changeEvent(QEvent* event)
{
    QCalendarWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        take_colors();
}

void MonthView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    draw_frame(painter, rect(), palette().color(QPalette::Dark));
}

} // namespace tarnwick
