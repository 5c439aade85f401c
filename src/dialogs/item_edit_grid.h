#pragma once

#include "household/grid_row.h"
#include "widgets/row_editor.h"
#include "household/item_saving.h"
#include "household/item_store.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace tarnwick {

struct Program;
struct SharedValues;
class HeaderBar;
class ListGrid;
enum class GridKey;

/// The dialog's type size in points: that of the main window, 9 where this is none of 9, 10 and 12.
int item_editor_type_size(const SharedValues& shared);

/// How an item stands on the list of a grid row, in the dialog's own view.
enum class RowState { inactive = 0, active = 1, taken_off = 2, not_listed = 3 };

/// The part of a grid row that the grid cannot show; its index is the grid row.
struct EditRow {
    Key list_key = 0;
    Key groc_key = 0; ///< 0 when the item had no such row at the load
    RowState state = RowState::not_listed;
    bool coupon = false;
    RowAction action = RowAction::none;

    bool is_listed() const { return state == RowState::inactive || state == RowState::active; }
};

/// The item editor's grid: one row per list, and per occurrence on it, with its heads and floating editors.
class ItemEditGrid : public QWidget, private RowEditorHost {
    Q_OBJECT
public:
    ItemEditGrid(Program& program, QWidget* parent);
    ~ItemEditGrid() override;

    /// Fills the grid with the lists in their order.
    void load(const std::vector<ListOfItem>& lists);

    /// Marks the row of a list to be placed and bought, and makes it current, if the item is not on the list.
    void pre_mark(Key list);

    /// Makes the row of a `groc_1` key current; otherwise the first one.
    void select(Key groc_key);

    /// Closes open floating editors.
    void lv_edit_off();

    bool places() const; ///< OK would put the item on a list

    const std::vector<EditRow>& list_rows_edit() const { return list_rows_edit_; }
    const GridRow& cells(int row) const;

    /// The rows as OK is to write them.
    std::vector<RowEdit> row_edits() const;

    /// Whether the item stands twice on one of the lists.
    bool has_repeats() const { return has_repeats_; }

signals:
    void changed(); ///< after each change that the user made

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    int type_size() const override;
    bool column_group_shown(ColumnGroup group) const override;
    void text_edited(int row, GridColumn column, const QString& text) override;
    bool coupon_on(int row) const override;
    QString set_coupon(int row, bool on) override;
    void date_chosen(int row, QDate date) override;
    bool has_edit_buttons() const override { return false; }
    void edit_row(int) override { }
    void remove_row(int) override { }
    QString edit_tool_tip(int) const override { return {}; }
    QString remove_tool_tip(int) const override { return {}; }
    QDate today() const override;

    void make_header();
    void append(const ListOfItem& list, std::vector<GridRow>& rows);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void cell_clicked(int row, GridColumn column, int x);
    void move_to(int row);
    void key_down(GridKey key);
    void toggle_on_list(int row);
    void toggle_buy_it(int row);
    void show_state(int row);
    void mark_changed(int row);
    void show_column_group(ColumnGroup group);
    void set_headers();
    EditRow& edit_row_of(int row) { return list_rows_edit_.at(static_cast<size_t>(row)); }

    Program& program_;
    ListGrid* grid_;
    std::unique_ptr<HeaderBar> header_;
    std::unique_ptr<RowEditor> editor_;
    std::vector<EditRow> list_rows_edit_;
    bool has_repeats_ = false;
};

} // namespace tarnwick
