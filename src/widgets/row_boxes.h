#pragma once

#include "household/grid_row.h"

#include <QRect>

#include <array>

class QCalendarWidget;
class QColor;
class QDate;
class QWidget;

namespace tarnwick {

class CellBox;
class EndFrame;
class ListGrid;
class PictureButton;
class RowEditorHost;

/// A text box over an open row and the column that it covers.
struct RowBox {
    CellBox* edit;
    GridColumn column;
};

/// The controls that lie over an open row of a grid: which there are, where they stand, and how they look. What
/// they are for is the row editor's.
class RowBoxes {
public:
    RowBoxes(ListGrid& grid, const RowEditorHost& host, QWidget* parent);

    std::array<QWidget*, 16> all() const;
    bool owns(const QWidget* widget) const; ///< whether a widget is one of them, or a part of one

    int place_in_chain(const QWidget* widget) const; ///< of a box with text; -1 for anything else

    /// Puts them over a grid row; what has no room there hides.
    void place(int row);
    void place_coupon_and_date(int row);
    void hide();

    void open_calendar(QDate shown); ///< under the date box, with the keyboard
    void place_calendar();
    void close_calendar(); ///< the keyboard goes back to where it was, date box or grid
    bool calendar_is_of_date_box() const
    {
        return from_date_box_;
    } ///< it is open and gives the keyboard back to it

    void set_type_size(int points);
    void set_page_color(const QColor& color);

    CellBox* desc;
    CellBox* qty;
    CellBox* cpn_brdr;
    QWidget* dp_frame;
    CellBox* date;
    CellBox* aisle;
    QWidget* cpn_bkgrnd;
    PictureButton* chck_box;
    PictureButton* dtp_btn;
    std::array<PictureButton*, 2> qty_btn;
    std::array<PictureButton*, 2> aisle_btn;
    EndFrame* frmEditDel;
    PictureButton* imgedit;
    PictureButton* imgScratch;
    QCalendarWidget* month_view;
    std::array<RowBox, 4> chain; ///< the boxes with text, from left to right

private:
    void name_for_the_ear();
    QRect box_rect(int row, GridColumn column, int less_wide = 0) const;
    void show_at(QWidget& control, const QRect& rect);
    void give_up_focus(const QWidget& control);
    void show_number_at(CellBox& box, const QRect& rect);
    void place_steppers(const QWidget& box, const std::array<PictureButton*, 2>& buttons);
    void place_end_frame(int row);
    void set_margins();

    ListGrid& grid_;
    const RowEditorHost& host_;
    int type_size_ = 9;
    bool from_date_box_ = false; ///< the calendar gives the keyboard back to it
};

} // namespace tarnwick
