#pragma once

namespace tarnwick::shots {

class Studio;

/// Each kind of drag in mid-flight at a type size.
void drag_scenes(Studio& studio, int points);

} // namespace tarnwick::shots
