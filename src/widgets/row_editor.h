#pragma once

#include "data/text.h"
#include "household/grid_row.h"

#include <QColor>
#include <QDate>
#include <QObject>
#include <QPersistentModelIndex>
#include <QString>

#include <memory>
#include <optional>

class QKeyEvent;
class QWidget;

namespace tarnwick {

class CellBox;
class ListGrid;
class RowBoxes;
struct RowBox;

/// What the floating editors of a grid tell their form. One for the main window, one for the item editor.
class RowEditorHost {
public:
    virtual ~RowEditorHost() = default;

    virtual int type_size() const = 0;
    virtual bool column_group_shown(ColumnGroup group) const = 0;

    /// The trimmed text of a text box changed; the cell has it already. Columns desc, qty, date, aisle.
    virtual void text_edited(int row, GridColumn column, const QString& text) = 0;

    /// The state of a row's coupon, and the switch of it. The switch returns the text of the date cell; the
    /// editor sets the cell and the picture.
    virtual bool coupon_on(int row) const = 0;
    virtual QString set_coupon(int row, bool on) = 0;

    /// The user chose an expiry date in the calendar; the cell has it already.
    virtual void date_chosen(int row, QDate date) = 0;

    /// Pencil and cross at the row's end; a form without them says so.
    virtual bool has_edit_buttons() const = 0;
    virtual void edit_row(int row) = 0;
    virtual void remove_row(int row) = 0;
    virtual QString edit_tool_tip(int row) const = 0;
    virtual QString remove_tool_tip(int row) const = 0;
    virtual QDate today() const = 0;
};

/// The floating editors laid over a row of a grid: text boxes, steppers, coupon box, calendar, buttons.
class RowEditor : public QObject {
    Q_OBJECT
public:
    RowEditor(ListGrid& grid, RowEditorHost& host, QWidget* parent);
    ~RowEditor() override;

    void show_l_line(); ///< opens the editor on the grid's current row
    void refresh(); ///< shows the cells of the row under edit anew, after others wrote them
    void hide_line(); ///< hides the row's controls and clears its bold
    void lv_edit_off(); ///< closes the editor altogether

    /// Closes it for a change of the window. Who was typing in a box goes on there: the next key of a text opens
    /// the row again, if it still is the current one, with the caret where it was.
    void interrupt();

    bool is_open() const; ///< `desc_brdr` is on screen
    std::optional<GridColumn> unstored_column() const { return unstored_column_; } ///< whose text was not stored

    /// Opens the current row, if it is not open, and puts the caret into the box of a column: at the end of its
    /// text, in place of it when there is a text to type, or under `x` in pixels of the grid's viewport. A
    /// column without a text box on screen: nothing more.
    void enter_box(GridColumn column, const QString& typed = {});
    void enter_box_at(GridColumn column, int x);

    QWidget* first_box() const; ///< `desc_brdr` while it is open, or the next one on screen; else null
    int edit_row() const; ///< the grid row under edit; -1 when closed

    /// Makes this row's name the only bold one.
    void mark_row(int row);

    /// Switches a row's coupon in the store, in its cells, and in the editor when it is open on the row.
    void switch_coupon(int row, bool on);

    /// Whether a widget is one of the editors, or a part of one.
    bool owns(const QWidget* widget) const;

    /// Re-places open editors after a resize, a column change or a change of type size.
    void place_again();
    void set_type_size(int points);
    void set_page_color(const QColor& color);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// An edit that ended without the user's doing.
    struct Interrupted {
        QPersistentModelIndex row;
        CellBox* box;
        int caret;
    };

    void connect_controls();
    void bring_into_view(int row);
    void fill();
    void fill_coupon();
    void show_date(const QString& text);
    void fill_end_frame();
    void clear_bold();
    void follow_current_row();

    void write_text(const RowBox& box);
    void step(const RowBox& box, bool up);
    void show_calendar();
    void choose_date(QDate date);
    void edit_clicked();

    bool key_in_grid(QKeyEvent& key);
    bool go_on(QKeyEvent& key);
    bool tab_along(const QWidget& box, QKeyEvent& key);
    bool key_in_box(const QWidget* box, int key);
    bool key_on_coupon(int key);
    void note_before(QWidget& box) const;
    bool go_to_box(int from, int step);
    CellBox* open_box(GridColumn column);
    void give_back(const RowBox& box);
    void give_coupon_back();
    void focus_left();
    void rows_scrolled();

    ListGrid& grid_;
    RowEditorHost& host_;
    std::unique_ptr<RowBoxes> boxes_;
    QPersistentModelIndex edit_row_; ///< follows the row when others come and go
    std::optional<GridColumn> unstored_column_;
    std::optional<Interrupted> interrupted_;
    bool filling_ = false; ///< texts are being shown, not typed
    bool writing_ = false; ///< the grid's own moves must not close the editor
};

} // namespace tarnwick
