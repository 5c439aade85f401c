#pragma once

namespace tarnwick {

class frmmain;

/// Writes what is being typed into a list row or the recipe page, as leaving its boxes does: it belongs to what
/// leaves the program next. False when a name was refused; the user has to mend it first.
bool leave_editors(frmmain& main);

/// Prints the list in use, or the recipe. Without a recipe a message says so.
void print_list(frmmain& main);
void print_recipe(frmmain& main);

/// Shows how the list, or the recipe, would print, whichever the right pane has.
void preview_pane(frmmain& main);

/// Opens the recipe, or the list in use, in the word processor or in a mail. Without a recipe a message says so.
void send_to_rtf(frmmain& main, bool is_recipe);
void send_to_email(frmmain& main, bool is_recipe);

/// `pic_frm`, until it is closed.
void show_print_setup(frmmain& main);

} // namespace tarnwick
