#pragma once

#include "widgets/grid_model.h"

#include <QColor>
#include <QPersistentModelIndex>
#include <QTableView>

#include <optional>

namespace tarnwick {

/// In which proportion name and description share their room.
struct TextRatio {
    int item = 1;
    int desc = 1;
};

/// What a key asks of the form that a list grid is in.
enum class GridKey { up, down, remove, check, menu };

/// The grid control `Listview1` of the main window and of the item editor.
class ListGrid : public QTableView {
    Q_OBJECT
public:
    explicit ListGrid(QWidget* parent);

    GridModel& rows() { return *model_; }
    const GridModel& rows() const { return *model_; }

    int current_row() const; ///< -1 without rows
    GridColumn current_col() const; ///< `light` without rows
    void set_current(int row, GridColumn column);

    int col_width(GridColumn column) const; ///< pixels; 0 for a hidden column
    void set_col_width(GridColumn column, int pixels);
    int col_left(GridColumn column) const; ///< pixels in the viewport
    int all_cols_width() const; ///< pixels

    /// The ratio of the text columns: their widths, or the ratio that gave them those widths, so that
    /// rounding does not add up from one resize to the next. 1 to 1 when either is under 3 pixels.
    TextRatio text_ratio() const;
    void set_text_widths(int item, int desc, TextRatio ratio); ///< widths as computed from this ratio

    int row_height() const; ///< pixels: 19, 24, 28 at 9, 10, 12 points

    /// Points; a size other than 9, 10, 12 leaves the row height as it was.
    void set_type_size(int points);

    /// Page colour of cells and empty area, with readable text on it, and the pictures' colour index.
    void set_page_color(const QColor& color, int color_index);

    /// A sentence for a grid without rows; empty for none.
    void set_empty_hint(const QString& hint);

    /// How many pixels before the cell's end the name in the open row ends, because something lies over it there.
    void set_name_end(int pixels) { name_end_ = pixels; }
    int name_end() const { return name_end_; }

    void set_enter_edits(bool edits) { enter_edits_ = edits; } ///< else Enter is the form's; so it is at first

    /// Whether the rows exceed the height: rows > height / row height - 0.2.
    bool scroll_bar_shown() const;

    int top_row() const;
    void set_top_row(int row);
    int rows_in_view() const; ///< whole rows that fit
    bool row_is_visible(int row) const; ///< the row is fully in view

    /// The rectangle of a cell in the coordinates of the grid's parent.
    QRect cell_rect(int row, GridColumn column) const;

    /// The grid row under a height in the viewport; -1 below the last row.
    int row_at(int y) const;

    /// The cell under the last press, as the rows stood then: -1 below the last row, none beside the columns.
    int pressed_row() const { return pressed_row_; }
    std::optional<GridColumn> pressed_column() const { return pressed_column_; }

    /// Between a press on the grid and its release: the current row is only on its way.
    bool is_pressed() const { return is_pressed_; }

signals:
    void mouse_down(Qt::MouseButton button, QPoint position); ///< viewport coordinates
    void mouse_up(Qt::MouseButton button, QPoint position);
    void current_set(); ///< a cell was made current; not when the current row has gone and another takes its place
    void mouse_done(); ///< what the release had to do is done
    void key_down(GridKey key); ///< the grid itself does not move
    void row_wanted(int row); ///< Home, End and the Page keys; the grid itself does not move
    void edit_wanted(); ///< F2 on a row, and Enter where `set_enter_edits` says so
    void typed(const QString& text); ///< a key with a character, on a row
    void scrolled();
    void lost_focus();

protected:
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool has_first_press(QPoint position) const;
    void paint_hint(QPainter& painter);
    int first_row_top() const; ///< pixels from the viewport's top, negative when scrolled
    void follow_scroll_test();
    int row_of_key(int key) const;
    bool act_on_row(const QKeyEvent& event);

    GridModel* model_;
    QString empty_hint_;
    int name_end_ = 0;
    QColor mark_color_; ///< of the current row's bar and frame
    int pressed_row_ = -1;
    std::optional<GridColumn> pressed_column_;
    QPersistentModelIndex pressed_; ///< a cell of the pressed row, wherever the row has gone since; none outside
    bool is_pressed_ = false;
    bool enter_edits_ = false;
    bool skips_release_ = false; ///< the press before it was none of this grid's
    TextRatio ratio_; ///< holds while the widths are those that were set along with it
    int ratio_item_ = -1;
    int ratio_desc_ = -1;
};

} // namespace tarnwick
