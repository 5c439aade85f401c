#pragma once

#include <QtGlobal>

namespace tarnwick {

/// The recipe page's arithmetic, in twips: 15 to a pixel. No widget, no database.
namespace page_geometry {

inline constexpr int twips_per_pixel = 15;

constexpr int px_x(int pixels)
{
    return pixels * twips_per_pixel;
}
constexpr int px_y(int pixels)
{
    return pixels * twips_per_pixel;
}

/// Twips as whole pixels, rounded.
int to_pixels(int twips);

/// The step that a type size of 9, 10 or 12 points adds to the width of a character: 0, 3 or 9.
constexpr int size_step(int type_size)
{
    return (type_size - 9) * 3;
}

constexpr bool is_large(int type_size)
{
    return size_step(type_size) == 9;
}

/// Display rows that a text is taken to need in a width of `width` twips. `step` is the size_step.
int estimated_rows(int upper, int other, int width, int step);

/// Height of a line of so many rows. A new line keeps the simple height until the next load.
int line_height(int rows, int type_size);
constexpr int simple_line_height(int rows)
{
    return rows * px_y(16);
}

/// Tops on the page of line `index`, with `extra` rows beyond one in the lines up to it.
int ingred_top(int index, int extra, int type_size);
int check_top(int index, int extra, int type_size);

int lite_top(int index, int extra, int type_size);

/// A new line whose light would stand lower has no place on the page.
inline constexpr int lowest_lite = 32767;

/// Top of the instructions under `count` lines.
int text_top(int count, int extra, int type_size);

/// Estimated height of the page's content in pixels, at most 32,767.
/// `last_line` is the highest index of a line, `text_width` is in twips.
int scroll_scale(int last_line, qsizetype text_length, int line_ends, int text_width, int type_size);

/// Pixels from one row of a wrapped line to the next, and from one line to the next.
constexpr int row_pitch(int type_size)
{
    return is_large(type_size) ? 23 : 16;
}
constexpr int line_pitch(int type_size)
{
    return is_large(type_size) ? 27 : 20;
}

} // namespace page_geometry
} // namespace tarnwick
