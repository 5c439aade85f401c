#pragma once

namespace tarnwick::shots {

class Studio;

/// The small windows beside the main one and the dialogs of the help menu, at a type size.
void small_windows(Studio& studio, int points);

/// The help as a simple reader of HTML shows it, on a phone, a tablet and a desk.
void help_pages(Studio& studio);

} // namespace tarnwick::shots
