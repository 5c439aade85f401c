#include "widgets/plain_style.h"

#include "widgets/contrast.h"
#include "widgets/frame_lines.h"
#include "widgets/pictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace tarnwick {
namespace {

constexpr double readable_text = 4.5; ///< contrast
constexpr int no_picture = 0;

/// Our picture for a standard one, as image of ImageList::signs.
int sign_of(QStyle::StandardPixmap icon)
{
    switch (icon) {
    case QStyle::SP_MessageBoxInformation:
        return 1;
    case QStyle::SP_MessageBoxQuestion:
        return 2;
    case QStyle::SP_MessageBoxWarning:
        return 3;
    case QStyle::SP_MessageBoxCritical:
        return 4;
    case QStyle::SP_ArrowLeft:
        return 5;
    case QStyle::SP_ArrowRight:
        return 6;
    default:
        return no_picture;
    }
}

/// The colour, darkened or lightened until the text is readable on it.
QColor ground_for(const QColor& text, QColor ground)
{
    constexpr int step = 104; // percent
    constexpr int most_steps = 60;
    const bool text_is_light = luminance(text) > 0.5;
    for (int i = 0; i < most_steps && contrast(text, ground) < readable_text; ++i)
        ground = text_is_light ? ground.darker(step) : ground.lighter(step);
    return ground;
}

/// A tab in front is open to the pane below it and has the pane's colour, which is the Base of its strip.
void draw_tab(const QStyleOptionTab& tab, QPainter& painter)
{
    constexpr int radius = 3;
    constexpr int behind = 2; // pixels that a tab behind is lower
    constexpr int accent = 2;
    const bool in_front = tab.state & QStyle::State_Selected;
    const QPalette& colors = tab.palette;
    const QRectF shape = QRectF(tab.rect).adjusted(0.5, in_front ? 0.5 : behind + 0.5, -0.5, in_front ? 0 : -1);
    QPainterPath outline(shape.bottomLeft());
    outline.lineTo(shape.left(), shape.top() + radius);
    outline.quadTo(shape.topLeft(), shape.topLeft() + QPointF(radius, 0));
    outline.lineTo(shape.right() - radius, shape.top());
    outline.quadTo(shape.topRight(), shape.topRight() + QPointF(0, radius));
    outline.lineTo(shape.bottomRight());

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor rest = blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), 0.06);
    const bool hovered = tab.state & QStyle::State_MouseOver;
    painter.fillPath(outline, in_front ? colors.color(QPalette::Base) : hovered ? rest.lighter(104) : rest);
    painter.setPen(colors.color(QPalette::Mid));
    painter.drawPath(outline);
    if (in_front)
        painter.fillRect(QRectF(shape.left() + radius, shape.top(), shape.width() - 2 * radius, accent),
                         colors.color(QPalette::Highlight));
    painter.restore();
}

} // namespace

PlainStyle::PlainStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void PlainStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        QColor ground = palette.color(group, QPalette::Highlight);
        if (group == QPalette::Inactive) // greyer: the keyboard is elsewhere
            ground = blend(ground, QColor(qGray(ground.rgb()), qGray(ground.rgb()), qGray(ground.rgb())), 0.75);
        palette.setColor(group, QPalette::Highlight, ground_for(text, ground));
    }
}

int PlainStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon PlainStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    const int sign = sign_of(icon);
    return sign != no_picture ? list_icon(ImageList::signs, sign) : QProxyStyle::standardIcon(icon, option, widget);
}

QPixmap PlainStyle::standardPixmap(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    const int sign = sign_of(icon);
    return sign != no_picture ? list_image(ImageList::signs, sign)
                              : QProxyStyle::standardPixmap(icon, option, widget);
}

void PlainStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    switch (element) {
    case PE_Frame:
    case PE_FrameMenu:
        draw_frame(*painter, option->rect, option->palette.color(QPalette::Mid));
        return;
    case PE_FrameFocusRect:
        draw_frame(*painter, option->rect, option->palette.color(QPalette::Highlight));
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void PlainStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    if (tab && element == CE_TabBarTabShape) {
        draw_tab(*tab, *painter);
        return;
    }
    if (tab && element == CE_TabBarTabLabel && (tab->state & State_Selected)) {
        QStyleOptionTab label = *tab;
        label.palette.setColor(QPalette::WindowText, tab->palette.color(QPalette::Text));
        QProxyStyle::drawControl(element, &label, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

} // namespace tarnwick
