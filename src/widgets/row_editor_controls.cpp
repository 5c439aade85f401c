#include "widgets/row_editor_controls.h"

#include "household/grid_row.h"
#include "widgets/drawn_controls.h"
#include "widgets/one_line_box.h"
#include "widgets/pictures.h"

#include <QPainter>

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
    colors.setColor(QPalette::Text, color.lightness() < 128 ? Qt::white : Qt::black);
    setPalette(colors);
    line_ = color.lightness() < 128 ? color.lighter(170) : color.darker(170);
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
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight) : line_);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
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
    if (fade_ == 0) {
        QPainter(this).fillRect(rect(), row_color_);
        return;
    }
    QLinearGradient ground(0, 0, fade_, 0);
    QColor clear = row_color_;
    clear.setAlpha(0);
    ground.setColorAt(0, clear);
    ground.setColorAt(1, row_color_);
    QPainter(this).fillRect(rect(), ground);
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
}

void MonthView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Shadow));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

RowEditor::Controls::Controls(QWidget* parent)
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
    , chain{Box{desc, grid_column::desc}, Box{qty, grid_column::qty}, Box{date, grid_column::date},
            Box{aisle, grid_column::aisle}}
{
    dp_frame->setObjectName(QStringLiteral("dp_frame"));
    cpn_bkgrnd->setObjectName(QStringLiteral("cpn_bkgrnd"));
    for (QWidget* ground : {cpn_bkgrnd, dp_frame})
        ground->setAutoFillBackground(true);
    desc->setAccessibleName(QStringLiteral("Description"));
    qty->setAccessibleName(QStringLiteral("Quantity"));
    cpn_brdr->setAccessibleName(QStringLiteral("Coupon expiry date"));
    date->setAccessibleName(QStringLiteral("Coupon expiry date"));
    aisle->setAccessibleName(QStringLiteral("Aisle"));
    chck_box->setAccessibleName(QStringLiteral("Coupon"));
    set_drawn_control(*chck_box, DrawnControl::check_box);
    dtp_btn->setAccessibleName(QStringLiteral("Choose the expiry date"));
    for (const auto* buttons : {&qty_btn, &aisle_btn}) {
        (*buttons)[0]->setAccessibleName(QStringLiteral("One more"));
        (*buttons)[1]->setAccessibleName(QStringLiteral("One less"));
    }
    cpn_brdr->setReadOnly(true);
    cpn_brdr->setFocusPolicy(Qt::NoFocus);
    date->setReadOnly(true);
    for (const Box& box : chain)
        box.edit->setFocusPolicy(Qt::ClickFocus);
    for (QWidget* control : all())
        control->hide();
}

} // namespace tarnwick
