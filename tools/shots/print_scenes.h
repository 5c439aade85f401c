#pragma once

namespace tarnwick::shots {

class Studio;

/// Previews and printed pages of the sample household: lists in one and two columns, in three orders and three
/// sizes of type, and recipes of one page and of two.
void print_scenes(Studio& studio);

} // namespace tarnwick::shots
