#pragma once

namespace tarnwick::shots {

class Studio;

/// What shows where the keyboard is, what long texts look like in short places, empty lists, and the narrowest and
/// widest window, at a type size.
void looks_scenes(Studio& studio, int points);

} // namespace tarnwick::shots
