#pragma once

namespace tarnwick::shots {

class Studio;

/// Stock items and categories being renamed, deleted and moved, with every question, at a type size.
void stock_scenes(Studio& studio, int points);

} // namespace tarnwick::shots
