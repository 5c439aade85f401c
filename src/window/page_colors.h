#pragma once

namespace tarnwick {

class frmmain;

/// Gives both pages the colour of an index 0 to 3 and stores it; a higher index is stored and leaves the colour
/// as it was. Panes keep their place, an open item editor closes without saving. Throws SQLite::Exception.
void set_color(frmmain& main, int index);

/// `mnu_view_color`: lets the user choose the page colour.
void choose_color(frmmain& main);

} // namespace tarnwick
