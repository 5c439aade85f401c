#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

class QPainter;
class QRect;

namespace tarnwick {

/// The narrowest type, in percent of its own width, that a text is shown in before it is cut.
inline constexpr int narrowest_type = 75;

/// The sign of a cut.
inline constexpr QChar ellipsis(0x2026);

/// A text as it is shown in a narrow place.
struct FittedText {
    QString text;
    QFont font;
    bool cut = false; ///< it is not the whole text
};

/// The text for a width in pixels: in its own type, in a narrower one down to so many percent, or cut at its end.
FittedText fit_text(const QString& text, const QFont& font, int width, int narrowest = narrowest_type);

/// The same for a quantity, a date or an aisle, which is never cut inside the number that it begins with nor inside
/// a word behind it: rather the number alone is shown, in still narrower type where it must, or else no part of it.
FittedText fit_number(const QString& text, const QFont& font, int width);

/// A text on one line that is laid out once, to be measured and then drawn: most texts of a list have room enough.
class LaidOutText {
public:
    LaidOutText(const QString& text, const QFont& font);

    qreal width() const { return width_; } ///< in pixels

    /// Draws it in the painter's pen from the left of a room that is wide enough, in the middle of its height.
    void draw(QPainter& painter, const QRect& room) const;

private:
    QTextLayout layout_;
    qreal width_ = 0;
    qreal height_ = 0;
};

} // namespace tarnwick
