#pragma once

#include <QProxyStyle>

namespace tarnwick {

/// The look of the program: Fusion, made flat. Pictures of its own in message boxes and calendar, tabs that grow
/// out of their pane, scroll bars without shading, frames of one line, and a highlight that white text is readable
/// on. The wheel leaves a closed list of choices alone.
class PlainStyle : public QProxyStyle {
public:
    PlainStyle();

    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    QPixmap standardPixmap(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace tarnwick
