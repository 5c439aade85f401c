#pragma once

#include "random/random_user.h"

// What a random user does at the main window. Each returns false when the window offers no occasion for it.
namespace tarnwick::random_use {

// The tree on show.
bool click_node(User& user);
bool click_node_box(User& user); ///< where the stock tree has the boxes of items
bool right_click_node(User& user); ///< and a command of the menu that pops up
bool open_node(User& user); ///< by a double click
bool press_tree_key(User& user);
bool rename_node(User& user); ///< or ends a rename that is under way
bool click_floating_button(User& user);

// The list.
bool click_cell(User& user);
bool click_row_box(User& user);
bool right_click_row(User& user);
bool press_grid_key(User& user);
bool click_header(User& user); ///< its boxes and column heads
bool choose_list(User& user);
bool click_manager(User& user); ///< a row of the list manager, or opens and closes it

// The recipe page.
bool click_line(User& user); ///< with the left button, seldom the right
bool click_line_box(User& user);
bool click_title(User& user);
bool click_instructions(User& user);
bool pick_from_list(User& user);

// The window.
bool type_text(User& user); ///< where the keyboard is, and perhaps a key that ends it
bool press_any_key(User& user);
bool go_round(User& user); ///< F6, forth or back
bool go_aside(User& user); ///< F10 or F8, and back to where the keyboard was
bool open_a_menu(User& user); ///< of the menu bar by its letter, and out of it by Escape
bool type_a_letter(User& user); ///< and looks where it lands
bool click_edit_button(User& user); ///< pencil, cross or a stepper
bool choose_command(User& user); ///< any of the menu bar but Exit
bool click_toolbar(User& user); ///< a button or an entry of its drop-down menu
bool click_tab(User& user);
bool resize_window(User& user);
bool scroll(User& user);

} // namespace tarnwick::random_use
