#pragma once

#include <QLine>
#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

namespace tarnwick {

/// One thing that is painted on a page, under its control's name; all in pixels of the page form.
struct PageThing {
    enum class Kind { text, check, picture, line };
    enum class Align { left = 0, centre = 2 };

    Kind kind = Kind::text;
    QString name;
    QRect box; ///< of all kinds but lines
    QLine line;
    QString text; ///< the whole text; the painter cuts it at the box
    int size = 0; ///< type, points
    int least_size = 0; ///< down to which the type gives way before the text is cut; 0: not at all
    bool bold = false;
    bool italic = false;
    bool strike = false;
    Align align = Align::left;
    bool wraps = false; ///< a text of many rows, which is never cut: its type gives way as far as it must
    bool checked = false;
};

/// A page as data, for paper and screen alike. The things stand in the order in which they are painted.
struct Page {
    QSize size;
    std::vector<PageThing> things;
};

/// The page form of lists and recipes: 96 pixels to the inch on letter and A4 paper, less their margins.
namespace page_form {
inline constexpr int width = 744;
inline constexpr int height = 960;
inline constexpr int left = 40; ///< edges of what is printed
inline constexpr int right = 703;
} // namespace page_form

/// A text box.
PageThing page_text(const QString& name, QRect box, const QString& text, int size);

/// A picture; its name tells the painter which.
PageThing page_picture(const QString& name, QRect box);

/// A check box.
PageThing page_check(const QString& name, QRect box, bool checked);

/// A line with both ends on it.
PageThing page_line(const QString& name, QPoint from, QPoint to);

/// The name of an element of a control array: `name(index)`.
QString element(const char* array, int index);

/// The page number at the foot: "page 2 of 3".
PageThing page_foot(int number, int count);

} // namespace tarnwick
