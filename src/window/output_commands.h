#pragma once

#include "household/recipe_sheet.h"
#include "household/report_options.h"

#include <QObject>

#include <optional>

namespace tarnwick {

class Sending;
struct Panes;
struct Program;

/// The commands by which a list or a recipe leaves the program. What is being typed belongs to it and is written
/// first; a name that is refused there ends the command. Without a recipe a message says so.
class OutputCommands : public QObject {
    Q_OBJECT
public:
    OutputCommands(Program& program, const Panes& panes);

    void read_reports(); ///< the options of printing, from the settings
    ReportOptions& reports() { return reports_; } ///< as `pic_frm` leaves them

    void print_list(); ///< the list in use
    void print_recipe();

    /// Shows how the list, or the recipe, would print, whichever the right pane has.
    void preview_pane();

    // Open the recipe, or the list in use, in the word processor or in a mail.
    void send_to_rtf(bool is_recipe);
    void send_to_email(bool is_recipe);

    /// `pic_frm`, until it is closed.
    void show_print_setup();

private:
    std::optional<RecipeSheet> open_recipe();
    void send(bool is_recipe, void (Sending::*how)(const std::optional<RecipeSheet>&));
    void put_out_list(QWidget& owner, bool preview);
    void put_out_recipe(bool preview);

    Program& program_;
    const Panes& panes_;
    ReportOptions reports_;
};

} // namespace tarnwick
