#include "recipes/page_geometry.h"

#include <algorithm>
#include <cmath>

namespace tarnwick::page_geometry {
namespace {

constexpr float most_rows = 32767; ///< of one line, however narrow the page

} // namespace

int to_pixels(int twips)
{
    return static_cast<int>(std::lround(static_cast<double>(twips) / twips_per_pixel));
}

int estimated_rows(int upper, int other, int width, int step)
{
    // A capital counts 3 less than any other character.
    const auto capitals = static_cast<float>(upper) / static_cast<float>(width) * static_cast<float>(step + 32);
    const auto others = static_cast<float>(other) / static_cast<float>(width) * static_cast<float>(step + 35);
    return static_cast<int>(std::nearbyint(std::min(capitals + others, most_rows))) + 1;
}

int line_height(int rows, int type_size)
{
    return rows * (is_large(type_size) ? px_y(16) : px_y(20));
}

int ingred_top(int index, int extra, int type_size)
{
    return px_y(line_pitch(type_size)) * index + px_y(40) + px_y(row_pitch(type_size)) * extra;
}

int check_top(int index, int extra, int type_size)
{
    return type_size == 12 ? px_x(43) + index * 400 + extra * 350 : px_x(40) + index * 300 + extra * 250;
}

int lite_top(int index, int extra, int type_size)
{
    return type_size == 12 ? index * 400 + 640 + extra * 350 : index * 300 + 600 + extra * 250;
}

int text_top(int count, int extra, int type_size)
{
    return is_large(type_size) ? 1000 + count * 400 + extra * 350 : 1000 + count * 300 + extra * 250;
}

int scroll_scale(int last_line, qsizetype text_length, int line_ends, int text_width, int type_size)
{
    const int step = std::abs(type_size - 9);
    const double per_row = static_cast<double>(text_width) / px_x(step * 2 + 8);
    const double rows = std::nearbyint(static_cast<double>(text_length) / per_row) + line_ends;
    const int line = type_size == 12 ? 35 : 19;
    const double height = (static_cast<double>(line) * last_line + rows * type_size + type_size * 2 + px_x(8));
    return static_cast<int>(std::min(height, 32767.0));
}

} // namespace tarnwick::page_geometry
