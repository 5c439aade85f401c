#pragma once

namespace tarnwick::shots {

class Studio;

/// Every window and state of the program, one after the other.
void play_all(Studio& studio);

} // namespace tarnwick::shots
