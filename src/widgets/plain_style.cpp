#include "widgets/plain_style.h"

#include "widgets/contrast.h"
#include "widgets/fitted_text.h"
#include "widgets/frame_lines.h"
#include "widgets/pictures.h"
#include "widgets/plain_controls.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QFrame>
#include <QGroupBox>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace tarnwick {
namespace {

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

/// From here on the painter draws in device pixels.
void enter_device_pixels(QPainter& painter)
{
    painter.setTransform(painter.deviceTransform().inverted(), true);
}

/// The outline of a tab in device pixels, along the middle of its lines and open at its foot.
QPainterPath tab_outline(const QRect& tab, int line)
{
    const int radius = 3 * line;
    const qreal half = line / 2.0;
    const QRectF shape = QRectF(tab).adjusted(half, half, -half, 0);
    QPainterPath outline(shape.bottomLeft());
    outline.lineTo(shape.left(), shape.top() + radius);
    outline.quadTo(shape.topLeft(), shape.topLeft() + QPointF(radius, 0));
    outline.lineTo(shape.right() - radius, shape.top());
    outline.quadTo(shape.topRight(), shape.topRight() + QPointF(0, radius));
    outline.lineTo(shape.bottomRight());
    return outline;
}

/// A tab in front is open to the pane below it and has the pane's colour, which is the Base of its strip.
void draw_tab(const QStyleOptionTab& tab, QPainter& painter)
{
    constexpr int behind = 2; // pixels that a tab behind is lower
    constexpr int accent = 2;
    constexpr int corner = 3;
    const bool in_front = tab.state & QStyle::State_Selected;
    const QPalette& colors = tab.palette;
    const QRect shape
        = in_device_pixels(painter, tab.rect.adjusted(0, in_front ? 0 : behind, 0, in_front ? 0 : -1));
    const QRect bar = in_device_pixels(painter, tab.rect.adjusted(corner, 0, -corner, 0));
    const int line = line_width(painter);
    // Its lines end where the pane's upper line does, which lies behind its last row.
    const QRect last_row
        = in_device_pixels(painter, QRect(tab.rect.left(), tab.rect.bottom(), tab.rect.width(), 1));
    QRect sides = shape;
    if (in_front)
        sides.setBottom(last_row.top() + line - 1);
    const QPainterPath outline = tab_outline(sides, line);

    painter.save();
    enter_device_pixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor rest = blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), 0.06);
    const bool hovered = tab.state & QStyle::State_MouseOver;
    painter.fillPath(outline, in_front ? colors.color(QPalette::Base) : hovered ? rest.lighter(104) : rest);
    const QRect foot(QPoint(shape.left(), sides.bottom() + 1), shape.bottomRight());
    painter.fillRect(foot, colors.color(QPalette::Base));
    const bool over_edge
        = tab.position == QStyleOptionTab::Beginning || tab.position == QStyleOptionTab::OnlyOneTab;
    if (over_edge) // the left line of the pane
        painter.fillRect(foot.left(), foot.top(), line, foot.height(), line_color(colors));
    painter.setPen(QPen(line_color(colors), line, Qt::SolidLine, Qt::FlatCap));
    painter.drawPath(outline);
    if (in_front)
        painter.fillRect(bar.left(), bar.top(), bar.width(), accent * line, colors.color(QPalette::Highlight));
    painter.restore();
}

/// Picture and caption of a tab; where both have no room the caption goes on in narrower type, then alone.
void draw_tab_label(const QStyleOptionTab& tab, QPainter& painter)
{
    constexpr int margin = 8;
    constexpr int gap = 5;
    constexpr int lower = 1; // than the middle, since the foot of a tab belongs to its pane
    const bool in_front = tab.state & QStyle::State_Selected;
    const QRect room = tab.rect.adjusted(margin, lower + (in_front ? 0 : 1), -margin, 0);
    const QSize picture = tab.icon.isNull() ? QSize() : tab.iconSize;
    const int before = picture.isEmpty() ? 0 : picture.width() + gap;
    FittedText caption = fit_text(tab.text, painter.font(), room.width() - before);
    const bool with_picture = before > 0 && !caption.cut;
    if (before > 0 && !with_picture)
        caption = fit_text(tab.text, painter.font(), room.width());

    const int text_width = QFontMetrics(caption.font).horizontalAdvance(caption.text);
    int left = room.left() + std::max(0, (room.width() - text_width - (with_picture ? before : 0)) / 2);
    painter.save();
    if (with_picture) {
        const QRect place(QPoint(left, room.center().y() + 1 - picture.height() / 2), picture);
        const bool on_light = luminance(tab.palette.color(in_front ? QPalette::Base : QPalette::Window)) > 0.5;
        tab.icon.paint(&painter, place, Qt::AlignCenter, on_light ? QIcon::Selected : QIcon::Normal);
        left += before;
    }
    painter.setFont(caption.font);
    painter.setPen(tab.palette.color(in_front ? QPalette::Text : QPalette::WindowText));
    painter.drawText(QRect(left, room.top(), room.right() + 1 - left, room.height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption.text);
    painter.restore();
}

/// The ink of a box or circle to tick: it stands out from window and box alike, and is faint where it does nothing.
QColor indicator_ink(const QStyleOption& option)
{
    constexpr double strong = 0.65;
    constexpr double faint = 0.25;
    const QPalette& colors = option.palette;
    const bool enabled = option.state & QStyle::State_Enabled;
    if (enabled && (option.state & QStyle::State_MouseOver))
        return colors.color(QPalette::Highlight);
    return blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), enabled ? strong : faint);
}

/// A box with its tick, or a circle with its dot.
void draw_indicator(const QStyleOption& option, QPainter& painter, bool circle)
{
    const QRect place = in_device_pixels(painter, option.rect);
    const int line = line_width(painter);
    const int side = std::min(place.width(), place.height());
    QRectF box(0, 0, side - line, side - line);
    box.moveCenter(QRectF(place).center());
    box.moveTo(std::floor(box.left()) + line / 2.0, std::floor(box.top()) + line / 2.0);
    const QColor ink = option.palette.color(
        option.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled, QPalette::Text);
    painter.save();
    enter_device_pixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(indicator_ink(option), line));
    painter.setBrush(option.palette.color(QPalette::Base));
    if (circle)
        painter.drawEllipse(box);
    else
        painter.drawRoundedRect(box, 2.0 * line, 2.0 * line);
    if (circle && (option.state & QStyle::State_On)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        const qreal inset = box.width() * 0.27;
        painter.drawEllipse(box.adjusted(inset, inset, -inset, -inset));
    } else if (option.state & QStyle::State_On) {
        painter.translate(box.topLeft());
        painter.scale(box.width() / 11, box.width() / 11);
        painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({{2.7, 5.8}, {4.8, 8.2}, {8.6, 3.2}}));
    }
    painter.restore();
}

/// A frame of plain lines, or a single upright one. False for a frame of another kind.
bool draw_plain_frame(const QStyleOptionFrame& frame, QPainter& painter)
{
    const bool is_plain = !(frame.state & (QStyle::State_Sunken | QStyle::State_Raised));
    const QColor ink = frame.palette.color(QPalette::WindowText);
    if (is_plain && frame.frameShape == QFrame::VLine) {
        const int middle = frame.rect.center().x();
        draw_right_line(painter, QRect(middle, frame.rect.top(), 1, frame.rect.height()),
                        line_color(frame.palette));
        return true;
    }
    if (!is_plain || frame.frameShape != QFrame::Box)
        return false;
    draw_frame(painter, frame.rect, ink, frame.lineWidth);
    return true;
}

/// The height that the title of a group stands in, above the line around the group.
int room_of_title(const QStyle& style, const QStyleOption& group, const QWidget* widget)
{
    constexpr int gap = 3;
    const auto* box = qobject_cast<const QGroupBox*>(widget);
    if (!box || (box->title().isEmpty() && !box->isCheckable()))
        return 0;
    return std::max(style.pixelMetric(QStyle::PM_IndicatorHeight, &group, widget), group.fontMetrics.height())
        + gap;
}

/// A bar without shading. The style's own is a gradient, which takes several threads to paint.
void draw_scroll_bar(const QStyle& style, const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget)
{
    constexpr int margin = 3; // between slider and edge
    constexpr double groove = 0.06;
    constexpr double resting = 0.48;
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
        option.palette.setColor(QPalette::ButtonText, ink);
        if (holds(control))
            painter.fillRect(option.rect, blend(ground, ink, 2 * groove));
        style.drawPrimitive(arrow, &option, &painter, widget);
    };
    const QColor behind = blend(ground, ink, groove);
    painter.fillRect(bar.rect, behind);
    if (bar.maximum > bar.minimum) {
        const QRect slider = part(QStyle::SC_ScrollBarSlider);
        const QColor color = blend(ground, ink, holds(QStyle::SC_ScrollBarSlider) ? held : resting);
        painter.fillRect(upright ? slider.adjusted(margin, 0, -margin, 0) : slider.adjusted(0, margin, 0, -margin),
                         clear_of(behind, color, visible_shape));
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
        palette.setColor(group, QPalette::Highlight, clear_of(text, ground, readable_text));
        for (const auto link : {QPalette::Link, QPalette::LinkVisited})
            palette.setColor(
                group, link,
                clear_of(palette.color(group, QPalette::Window), palette.color(group, link), readable_text));
    }
}

// A wheel that turns above it on its way elsewhere is not to choose, nor to take the keyboard.
void PlainStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (auto* choices = qobject_cast<QComboBox*>(widget); choices && choices->focusPolicy() == Qt::WheelFocus)
        choices->setFocusPolicy(Qt::StrongFocus);
}

int PlainStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_ComboBox_Popup || hint == SH_EtchDisabledText
        || hint == SH_ComboBox_AllowWheelScrolling)
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
        draw_frame(*painter, option->rect, line_color(option->palette));
        return;
    case PE_FrameFocusRect:
        draw_frame(*painter, option->rect, focus_color(option->palette));
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
        draw_indicator(*option, *painter, element == PE_IndicatorRadioButton);
        return;
    case PE_PanelButtonCommand:
        draw_button(*option, *painter);
        return;
    case PE_FrameDefaultButton: // its button shows it
        return;
    case PE_FrameGroupBox:
        draw_rounded(*painter, option->rect.adjusted(0, room_of_title(*this, *option, widget), 0, 0),
                     Qt::transparent, line_color(option->palette));
        return;
    default:
        break;
    }
    const auto* panel = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (panel && element == PE_PanelLineEdit && panel->lineWidth > 0)
        draw_line_edit(*panel, *painter);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void PlainStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    if (tab && element == CE_TabBarTabShape) {
        draw_tab(*tab, *painter);
        return;
    }
    if (tab && element == CE_TabBarTabLabel) {
        draw_tab_label(*tab, *painter);
        return;
    }
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (frame && element == CE_ShapedFrame && draw_plain_frame(*frame, *painter))
        return;
    const auto* progress = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    if (progress && element == CE_ProgressBar) {
        draw_progress(*progress, *painter);
        return;
    }
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (entry && element == CE_MenuItem && entry->menuItemType == QStyleOptionMenuItem::Separator
        && entry->text.isEmpty()) {
        constexpr int margin = 5;
        draw_lower_line(*painter,
                        QRect(entry->rect.left(), entry->rect.center().y(), entry->rect.width(), 1)
                            .adjusted(margin, 0, -margin, 0),
                        line_color(entry->palette));
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    // Where a menu was closed by Escape, the bar keeps the keyboard.
    const bool closed = option->state.testFlag(State_Selected) && !option->state.testFlag(State_Sunken);
    if (element == CE_MenuBarItem && closed && widget && widget->hasFocus())
        drawPrimitive(PE_FrameFocusRect, option, painter, widget);
}

void PlainStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (bar && control == CC_ScrollBar) {
        draw_scroll_bar(*this, *bar, *painter, widget);
        return;
    }
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (combo && control == CC_ComboBox && combo->frame && !combo->editable) {
        draw_combo_box(*combo, subControlRect(CC_ComboBox, combo, SC_ComboBoxArrow, widget), *painter);
        return;
    }
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    const auto with_arrow = QStyleOptionToolButton::HasMenu;
    if (button && button->features.testFlag(with_arrow)
        && !button->features.testFlag(QStyleOptionToolButton::MenuButtonPopup)) {
        // The arrow of the month in a calendar would stand below its text like a comma.
        QStyleOptionToolButton plain = *button;
        plain.features.setFlag(with_arrow, false);
        QProxyStyle::drawComplexControl(control, &plain, painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

} // namespace tarnwick
