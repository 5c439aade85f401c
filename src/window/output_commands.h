#pragma once

#include "output/printing.h"

namespace tarnwick {

class frmmain;

/// What the window's output is made from.
PrintSource print_source(frmmain& main);

/// The open recipe as it stands on the screen.
PrintedRecipe recipe_text(frmmain& main);

/// Writes what stands in an open row or ingredient line, as leaving its boxes does. False when a box keeps the user
/// because of what it holds.
bool leave_editors(frmmain& main);

void print_current_list(frmmain& main); ///< `mnu_list_Print`
void print_open_recipe(frmmain& main); ///< `mnu_recipe_prnt`
void preview_pane(frmmain& main); ///< the preview button: the list or the recipe, whichever the right pane shows

} // namespace tarnwick
