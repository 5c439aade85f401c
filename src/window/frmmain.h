#pragma once

#include "widgets/environment.h"
#include "data/settings.h"
#include "widgets/shared_values.h"
#include "data/connection.h"

#include <QMainWindow>

#include <memory>

class QTabBar;

namespace tarnwick {

class Clearing;
class Commands;
class Drag;
class EarlyReading;
class FloatingButtons;
class GridListener;
class Household;
class KeyboardRound;
class Layout;
class ListManager;
class ListMouse;
class ListPane;
class Lists;
class OutputCommands;
struct Panes;
class Placing;
struct Program;
class RecipePage;
class RecipeTree;
class RowEditor;
class runtime_error;
class StatusPanels;
class StatusWords;
class StockCommands;
class StockTree;
class Toolbar;
class TreeView;
class ViewState;

/// The main window. It owns the panes and the values they share, and runs Load, Unload and Resize.
class frmmain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmmain(Environment environment);
    ~frmmain() override;

    /// The form's Load: everything from the splash to the first view, in its fixed order. Throws what
    /// settings and database throw. The single-instance test is `Main`'s.
    void load();

    SharedValues shared;

    Program& program() { return *program_; }
    const Environment& environment() const { return environment_; }
    Connection& connection() { return connection_; }
    Household& household() { return *household_; }
    Settings& settings() { return settings_; }
    QDate today() const { return environment_.today(); }

    StockTree& stock_tree() { return *stock_tree_; }
    StockCommands& stock_commands() { return *stock_commands_; }
    FloatingButtons& floating_buttons() { return *floating_buttons_; }
    RecipeTree& recipe_tree() { return *recipe_tree_; }
    RecipePage& recipe_page() { return *recipe_page_; }
    ListPane& list_pane() { return *list_pane_; }
    ListMouse& list_mouse() { return *list_mouse_; }
    Lists& lists() { return *lists_; }
    Placing& placing() { return *placing_; }
    Clearing& clearing() { return *clearing_; }
    RowEditor& row_editor();
    const Panes& panes() const { return *panes_; } ///< those above that several parts of the window work on
    Commands& commands() { return *commands_; }
    Toolbar& toolbar() { return *toolbar_; }
    ViewState& view_state() { return *view_state_; }
    OutputCommands& output() { return *output_; }
    ListManager& list_manager() { return *list_manager_; }
    Drag& drag() { return *drag_; } ///< the one drag of the program
    Layout& layout_manager() { return *layout_; }
    StatusPanels& status_panels() { return *status_panels_; }
    KeyboardRound& keyboard_round() { return *keyboard_round_; }

    /// The tree on show in the left pane.
    TreeView& visible_tree();

    /// The whole window in the state of its view switches.
    void l_r_refresh();

    /// First status panel, text and tool tip.
    void set_status(const QString& text);

    /// `mnu_list_exit`: ends the program at once; nothing is saved.
    void exit_at_once();

    /// When the system ends the program: stores what the close box stores and rescues the rest of what is typed.
    void end_for_system();

    /// At an end that no user has chosen: rescues what is typed and not stored; nothing is saved any more. False
    /// when one has come this far already.
    bool begin_ending() noexcept;

    /// The message of an error that a procedure has trapped, then the end of the program with a failure; nothing is
    /// saved. The message names no cause: that goes to the standard error.
    void shut_down(const runtime_error& error);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    LockedFile locked_file();
    void make_program();
    void make_commands();
    void make_panes();
    void connect_household();
    void read_page_color();
    void read_views();
    void load_trees();
    void restore_window();
    void restore_panes();
    void appear();
    void write_size();
    void store_window();
    void refresh_after_resize();

    Environment environment_;
    Settings settings_;
    std::unique_ptr<EarlyReading> early_reading_; ///< from the construction to the load of the stock tree
    Connection connection_;

    QWidget* area_ = nullptr;
    std::unique_ptr<Drag> drag_;
    std::unique_ptr<Household> household_;
    std::unique_ptr<Program> program_;
    std::unique_ptr<Commands> commands_;
    std::unique_ptr<StatusPanels> status_panels_;
    std::unique_ptr<Toolbar> toolbar_;
    std::unique_ptr<FloatingButtons> floating_buttons_;
    std::unique_ptr<StockTree> stock_tree_;
    std::unique_ptr<StockCommands> stock_commands_;
    std::unique_ptr<RecipeTree> recipe_tree_;
    std::unique_ptr<RecipePage> recipe_page_;
    std::unique_ptr<ListPane> list_pane_;
    std::unique_ptr<ListMouse> list_mouse_;
    std::unique_ptr<Lists> lists_;
    std::unique_ptr<Placing> placing_;
    std::unique_ptr<Clearing> clearing_;
    std::unique_ptr<GridListener> grid_listener_;
    std::unique_ptr<StatusWords> status_words_;
    std::unique_ptr<Panes> panes_;
    std::unique_ptr<OutputCommands> output_;
    std::unique_ptr<ViewState> view_state_;
    std::unique_ptr<Layout> layout_;
    std::unique_ptr<ListManager> list_manager_;
    KeyboardRound* keyboard_round_ = nullptr;
    bool appeared_ = false; ///< the window stands on the screen in its size: from here on a resize is the user's
};

} // namespace tarnwick
