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
    case QStyle::SP_ToolBarHorizontalExtensionButton: // every menu bar has one
        return 7;
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

/// A bar without shading. The style's own is a gradient, which takes several threads to paint.
void draw_scroll_bar(const QStyle& style, const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget)
{
    constexpr int margin = 3; // between slider and edge
    constexpr double groove = 0.06;
    constexpr double resting = 0.48; // at least 3:1 on the groove
    constexpr double held = 0.62;
    const QColor ground = bar.palette.color(QPalette::Window);
    const QColor ink = bar.palette.color(QPalette::WindowText);
    const bool upright = bar.orientation == Qt::Vertical;
    const auto part = [&](QStyle::SubControl control) {
        return style.subControlRect(QStyle::CC_ScrollBar, &bar, control, widget);
    };
    const auto holds = [&](QStyle::SubControl control) {
        return bar.activeSubControls.testFlag(control)
            && bar.state & (QStyle::State_Sunken | QStyle::State_MouseOver);
    };
    const auto draw_arrow = [&](QStyle::SubControl control, QStyle::PrimitiveElement arrow) {
        QStyleOption option = bar;
        option.rect = part(control);
        if (holds(control))
            painter.fillRect(option.rect, blend(ground, ink, 2 * groove));
        style.drawPrimitive(arrow, &option, &painter, widget);
    };
    painter.fillRect(bar.rect, blend(ground, ink, groove));
    if (bar.maximum > bar.minimum) {
        const QRect slider = part(QStyle::SC_ScrollBarSlider);
        painter.fillRect(upright ? slider.adjusted(margin, 0, -margin, 0) : slider.adjusted(0, margin, 0, -margin),
                         blend(ground, ink, holds(QStyle::SC_ScrollBarSlider) ? held : resting));
    }
    const bool mirrored = bar.direction == Qt::RightToLeft;
    draw_arrow(QStyle::SC_ScrollBarSubLine,
               upright        ? QStyle::PE_IndicatorArrowUp
                   : mirrored ? QStyle::PE_IndicatorArrowRight
                              : QStyle::PE_IndicatorArrowLeft);
    draw_arrow(QStyle::SC_ScrollBarAddLine,
               upright        ? QStyle::PE_IndicatorArrowDown
                   : mirrored ? QStyle::PE_IndicatorArrowLeft
                              : QStyle::PE_IndicatorArrowRight);
}

/// A progress bar's groove, and what of it is filled.
void draw_progress(const QStyleOptionProgressBar& bar, QPainter& painter)
{
    const QPalette& colors = bar.palette;
    painter.fillRect(bar.rect, blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), 0.12));
    if (bar.progress <= bar.minimum || bar.maximum <= bar.minimum)
        return;
    QRect filled = bar.rect;
    filled.setWidth(
        static_cast<int>(qint64(filled.width()) * (bar.progress - bar.minimum) / (bar.maximum - bar.minimum)));
    painter.fillRect(filled, colors.color(QPalette::Highlight));
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
    const auto* progress = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    if (progress && element == CE_ProgressBar) {
        draw_progress(*progress, *painter);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void PlainStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (bar && control == CC_ScrollBar)
        draw_scroll_bar(*this, *bar, *painter, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

} // namespace tarnwick
