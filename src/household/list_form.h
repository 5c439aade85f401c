#pragma once

#include "household/page.h"
#include "household/report_options.h"

namespace tarnwick {

/// The texts of a detail row as they stand in its boxes.
struct SlotTexts {
    QString item;
    QString qty; ///< empty when it is joined to the item
    QString aisle;
    bool coupon = false;
    bool expired = false; ///< the coupon is struck through
    bool to_get = false;
};

/// The page form of a list: where its slots, headings and frames stand for columns and type size, in pixels. Slots
/// are counted from 0, down the first column and on in the second.
class ListForm {
public:
    explicit ListForm(const ReportOptions& options);

    int rows() const; ///< slots of a column
    int columns() const { return columns_; }

    /// Title, picture, captions and frame of column 0 or 1.
    void add_column_head(Page& page, int column, const QString& title) const;

    void add_heading(Page& page, int slot, const QString& text) const; ///< a group's heading
    void add_detail(Page& page, int slot, const SlotTexts& texts) const;

    /// A remark below the slots.
    static void add_note(Page& page, const QString& text);

private:
    struct Metrics;
    static const Metrics& metrics_of(Key size);
    QPoint top_left(int slot) const;
    int edge(int one_column_x) const;
    int item_width() const;
    void add_captions(Page& page, int column) const;
    void add_frame(Page& page, int column) const;
    void add_row_line(Page& page, int slot) const;
    void add_cell_lines(Page& page, int slot) const;

    const Metrics& metrics_;
    int columns_;
    bool by_item_;
    bool checks_;
};

} // namespace tarnwick
