#pragma once

#include <QObject>
#include <QString>

class QAbstractButton;
class QCheckBox;
class QLabel;
class QRect;
class QWidget;

namespace tarnwick {

class ListGrid;
enum class ColumnGroup;
enum class GridColumn;

/// The header bar over a list grid: `listheader`, `listheader_lbl`, the draggable `listheader_sprtr` and
/// the boxes `Cmd_ShowCol`.
class HeaderBar : public QObject {
    Q_OBJECT
public:
    HeaderBar(ListGrid& grid, QWidget* parent);

    QCheckBox& show_box(ColumnGroup group); ///< `Cmd_ShowCol(0)` and `(1)`
    bool group_shown(ColumnGroup group) const;

    /// A caption of the bar, 0 to 4: name, description, quantity, coupon and expiry, aisle.
    QLabel& label(int index) { return *labels_[index]; }

    /// Lays the bar out from the grid's columns. `top` and `height` in pixels of the parent.
    void set_headers(int top, int height);
    void set_type_size(int points);
    void set_visible(bool visible);

    /// The height in pixels that the captions need at the present type size.
    int wanted_height() const;

signals:
    void group_toggled(ColumnGroup group); ///< a release of the left button on a box has changed it
    void separator_moved(); ///< the user has dragged the border of name and description

private:
    class ShowBox;

    bool eventFilter(QObject* watched, QEvent* event) override;
    void make_boxes(QWidget* parent);
    void place_cells(const QRect& bar);
    void place_label(int index, int left, int right, const QRect& bar);
    ShowBox& box(ColumnGroup group) const;
    int waiting_boxes_width() const; ///< of the boxes whose group is hidden
    void place_boxes(const QRect& bar);
    void show_parts();
    int column_left(GridColumn column) const;
    int column_right(GridColumn column) const;

    ListGrid& grid_;
    bool shown_ = true;
    int drag_from_ = 0; ///< pointer and width of the name column where the drag began
    int drag_item_width_ = 0;
    QAbstractButton* headers_[4] = {};
    QLabel* labels_[5] = {};
    QWidget* separators_[2] = {};
    ShowBox* boxes_[2] = {};
};

} // namespace tarnwick
