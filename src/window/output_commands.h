#pragma once

namespace tarnwick {

class frmmain;

/// Writes what is being typed into a list row or the recipe page, as leaving its boxes does: it belongs to what
/// leaves the program next. False when a name was refused; the user has to mend it first.
bool leave_editors(frmmain& main);

/// Opens the recipe, or the list in use, in the word processor or in a mail. Without a recipe a message says so.
void send_to_rtf(frmmain& main, bool is_recipe);
void send_to_email(frmmain& main, bool is_recipe);

/// `pic_frm`, until it is closed.
void show_print_setup(frmmain& main);

} // namespace tarnwick
