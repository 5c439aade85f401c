#pragma once

#include "data/text.h"
#include "household/grid_row.h"

#include <QObject>
#include <QRect>

#include <functional>
#include <memory>
#include <vector>

class QFrame;
class QLabel;
class QTextBrowser;
class QWidget;

namespace tarnwick {

struct Program;
class HeaderBar;
class ListGrid;
class MainRowEditorHost;
class RowEditor;

/// The right pane's list: the grid `Listview1`, the header bar over it and the notice of the empty state.
class ListPane : public QObject {
    Q_OBJECT
public:
    /// What the window around the pane tells it.
    struct Surroundings {
        std::function<QRect()> header_row; ///< where the heads belong; empty before the first layout
        std::function<QRect()> left_pane;
        std::function<void()> separator_fix; ///< moves the panes' separator as far as columns need it
    };

    ListPane(Program& program, QWidget* parent, Surroundings around);
    ~ListPane() override;

    ListGrid& grid() { return *grid_; }
    HeaderBar& header() { return *header_; }
    RowEditor& row_editor() { return *row_editor_; }

    /// Loads the grid with a list, which is the current one from now on; below 1 with all lists together. Marks the
    /// list active.
    void lv_load(Key list_key);

    /// Makes the first row of a `groc_1` key current. False, and no change, when there is none.
    bool set_row(Key groc_key);

    /// Shares the free width between name and description by their ratio.
    void set_col_widths();

    /// Lays the header bar out over the columns.
    void set_headers();

    /// Shows or hides a column group by the state of its box. Stores the switch.
    void show_column_group(ColumnGroup group);
    bool column_group_shown(ColumnGroup group) const;

    /// Load's own step: widths from the settings `cpn` and `aisle`, nothing stored.
    void restore_column_groups();

    /// The notice that invites the first list; also re-centres it after a resize.
    void set_CreateList(bool show);
    bool notice_shown() const;

    void set_page_color();
    void set_type_size();

    /// Shows grid and header, or hides them for the recipe page.
    void show_pane(bool shown);

    /// A press on a tree takes the user out of the grid: the selection and the open row's boxes go, and the
    /// current cell is the name in its row.
    void leave_for_tree();

    /// Puts a row into the grid as it is, at its place by name; makes it current when asked, or when no row is.
    /// Returns its grid row.
    int add_row(GridRow row, bool make_current = true);

    /// Removes the row of a `groc_1` key from the grid; widths and headers follow the scroll bar.
    void remove_row(Key groc_key);

signals:
    void list_loaded(); ///< the grid shows the list in use, read anew
    void column_groups_changed(); ///< another set of column groups is on show
    void edit_wanted(int row); ///< the pencil at a row's end
    void removal_wanted(int row); ///< the cross at a row's end

private:
    void show_rows(std::vector<GridRow> rows);
    void make_room_for_columns();
    void follow_scroll_state(bool was_shown);
    void place_notice();
    void show_hint(Key list_key);

    Program& program_;
    Surroundings around_;
    ListGrid* grid_;
    HeaderBar* header_;
    QFrame* frmCreateList_;
    QLabel* notice_picture_;
    QTextBrowser* txtCreateList_;
    std::unique_ptr<MainRowEditorHost> row_editor_host_;
    std::unique_ptr<RowEditor> row_editor_;
};

} // namespace tarnwick
