#pragma once

namespace tarnwick::shots {

class Studio;

/// Draws the pictures that the help shows, under the names it calls them by.
void help_pictures(Studio& studio);

} // namespace tarnwick::shots
