#pragma once

#include "household/grid_row.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QFont>

#include <functional>
#include <vector>

namespace tarnwick {

/// The rows of a list grid. The model is the mirror `list_rows`: its index is the grid row.
class GridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// Roles of the cells beyond Qt's own: the picture's resource number, and the RowData in column 0.
    enum Role { PictureRole = Qt::UserRole, RowDataRole };

    explicit GridModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    const std::vector<GridRow>& list_rows() const { return rows_; }
    const GridRow& row(int index) const { return rows_.at(static_cast<size_t>(index)); }
    int rows() const { return static_cast<int>(rows_.size()); }

    void set_rows(std::vector<GridRow> rows);

    /// Inserts a row at its place by name, then key, and sorts the others first where a change of a name left
    /// them out of order. Returns the grid row.
    int insert_sorted(GridRow row);
    void remove_row(int index);

    /// Changes one row in place and repaints it.
    void change_row(int index, const std::function<void(GridRow&)>& change);
    void change_all(const std::function<void(GridRow&)>& change);

    QModelIndex cell(int row, GridColumn column) const;

    /// The text of a cell; empty, and no change, where it has none: light, check and coupon.
    QString cell_text(int row, GridColumn column) const;
    void set_cell_text(int row, GridColumn column, const QString& text);

    /// The first row of this `groc_1` key; -1 when there is none.
    int find_row(Key groc_key) const;

    /// What column 0 says to a screen reader, checked where its light is not the unlisted one; else whether the
    /// row is to be bought.
    void set_light_name(const QString& name) { light_name_ = name; }

    void set_type_size(int points);
    const QFont& plain_font() const { return plain_font_; } ///< of all cells but bold names and dates
    void set_color_index(int index);
    void set_text_color(const QColor& color);

private:
    static QString GridRow::*text_field(GridColumn column);
    QVariant font(const GridRow& row, GridColumn column) const;
    QVariant spoken(const GridRow& row, GridColumn column) const;
    bool is_checked(const GridRow& row, GridColumn column) const;
    int picture_number(const GridRow& row, GridColumn column) const;
    void repaint_all();
    void sort_rows();

    std::vector<GridRow> rows_;
    bool is_sorted_ = false; ///< known to be; a load or a change of a name leaves it open
    QFont plain_font_;
    QFont bold_font_;
    QFont date_font_;
    QString light_name_; ///< empty in the main window
    int color_index_ = 0;
    QColor text_color_ = Qt::black;
};

} // namespace tarnwick
