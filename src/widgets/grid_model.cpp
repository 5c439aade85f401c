#include "widgets/grid_model.h"

#include "data/collation.h"
#include "household/status.h"
#include "widgets/type_size.h"

#include <QGuiApplication>

#include <algorithm>
#include <numeric>

namespace tarnwick {
namespace {

const QColor located_color(255, 0, 0);

GridColumn column_of(const QModelIndex& index)
{
    return static_cast<GridColumn>(index.column());
}

bool is_box(GridColumn column)
{
    return column == GridColumn::light || column == GridColumn::check || column == GridColumn::coupon;
}

/// The order of the load query, so that a row placed later stands where the next load will put it.
bool stands_before(const GridRow& left, const GridRow& right)
{
    const int order = compare_names(left.item, right.item);
    return order != 0 ? order < 0 : left.groc_key < right.groc_key;
}

} // namespace

GridModel::GridModel(QObject* parent)
    : QAbstractTableModel(parent)
    , plain_font_(QGuiApplication::font())
    , bold_font_(plain_font_)
    , date_font_(plain_font_)
{
    bold_font_.setBold(true);
    set_type_size(first_type_size);
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows();
}

QModelIndex GridModel::cell(int row, GridColumn column) const
{
    return index(row, column_number(column));
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : grid_column_count;
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const GridRow& row = rows_[static_cast<size_t>(index.row())];
    const GridColumn column = column_of(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return text_field(column) ? QVariant(row.*text_field(column)) : QVariant();
    case Qt::FontRole:
        return font(row, column);
    case Qt::ForegroundRole:
        return row.located && column == GridColumn::item ? located_color : text_color_;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    case PictureRole:
        return picture_number(row, column) > 0 ? QVariant(picture_number(row, column)) : QVariant();
    case Qt::AccessibleTextRole:
        return spoken(row, column);
    case Qt::CheckStateRole:
        return is_box(column) ? QVariant(is_checked(row, column) ? Qt::Checked : Qt::Unchecked) : QVariant();
    case RowDataRole:
        return column == GridColumn::light ? QVariant(int(row.groc_key)) : QVariant();
    default:
        return {};
    }
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags all = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return is_box(column_of(index)) ? all | Qt::ItemIsUserCheckable : all;
}

QString GridRow::*GridModel::text_field(GridColumn column)
{
    switch (column) {
    case GridColumn::item:
        return &GridRow::item;
    case GridColumn::desc:
        return &GridRow::desc;
    case GridColumn::qty:
        return &GridRow::qty;
    case GridColumn::date:
        return &GridRow::date;
    case GridColumn::aisle:
        return &GridRow::aisle;
    default:
        return nullptr;
    }
}

/// What a cell says to a screen reader: its text, or whose box it is.
QVariant GridModel::spoken(const GridRow& row, GridColumn column) const
{
    switch (column) {
    case GridColumn::light:
        return QString(row.item + QStringLiteral(", ")
                       + (light_name_.isEmpty() ? QStringLiteral("light") : light_name_));
    case GridColumn::check:
        return QString(row.item + QStringLiteral(", buy-it"));
    case GridColumn::coupon:
        return QString(row.item + QStringLiteral(", coupon"));
    default:
        return text_field(column) ? QVariant(row.*text_field(column)) : QVariant();
    }
}

bool GridModel::is_checked(const GridRow& row, GridColumn column) const
{
    if (column == GridColumn::coupon)
        return row.coupon == picture_base::coupon_on;
    if (column == GridColumn::check)
        return row.check == picture_base::check_on;
    return light_name_.isEmpty() ? row.light == picture_base::light_on : row.light != picture_base::light_unlisted;
}

QVariant GridModel::font(const GridRow& row, GridColumn column) const
{
    if (column == GridColumn::item && row.bold)
        return bold_font_;
    return column == GridColumn::date ? date_font_ : plain_font_;
}

int GridModel::picture_number(const GridRow& row, GridColumn column) const
{
    const int base = column == GridColumn::light ? row.light
        : column == GridColumn::check            ? row.check
        : column == GridColumn::coupon           ? row.coupon
                                                 : 0;
    return base > 0 ? base + color_index_ : 0;
}

void GridModel::set_rows(std::vector<GridRow> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    is_sorted_ = false;
    endResetModel();
}

void GridModel::sort_rows()
{
    if (!is_sorted_ && !std::is_sorted(rows_.begin(), rows_.end(), stands_before)) {
        emit layoutAboutToBeChanged({}, VerticalSortHint);
        std::vector<int> order(rows_.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(),
                         [this](int left, int right) { return stands_before(row(left), row(right)); });
        std::vector<GridRow> sorted;
        sorted.reserve(rows_.size());
        std::vector<int> new_place(rows_.size());
        for (const int old_place : order) {
            new_place[static_cast<size_t>(old_place)] = static_cast<int>(sorted.size());
            sorted.push_back(std::move(rows_[static_cast<size_t>(old_place)]));
        }
        rows_ = std::move(sorted);
        const QModelIndexList before = persistentIndexList();
        QModelIndexList after;
        for (const QModelIndex& cell : before)
            after += index(new_place[static_cast<size_t>(cell.row())], cell.column());
        changePersistentIndexList(before, after);
        emit layoutChanged({}, VerticalSortHint);
    }
    is_sorted_ = true;
}

int GridModel::insert_sorted(GridRow row)
{
    sort_rows();
    const auto place = std::upper_bound(rows_.begin(), rows_.end(), row, stands_before);
    const int index = static_cast<int>(place - rows_.begin());
    beginInsertRows({}, index, index);
    rows_.insert(place, std::move(row));
    endInsertRows();
    return index;
}

void GridModel::remove_row(int index)
{
    if (index < 0 || index >= rows())
        return;
    beginRemoveRows({}, index, index);
    rows_.erase(rows_.begin() + index);
    endRemoveRows();
}

void GridModel::change_row(int row_index, const std::function<void(GridRow&)>& change)
{
    GridRow& row = rows_.at(static_cast<size_t>(row_index));
    const QString name = row.item;
    change(row);
    is_sorted_ = is_sorted_ && row.item == name;
    emit dataChanged(index(row_index, 0), index(row_index, grid_column_count - 1));
}

void GridModel::change_all(const std::function<void(GridRow&)>& change)
{
    for (GridRow& row : rows_)
        change(row);
    is_sorted_ = false;
    repaint_all();
}

QString GridModel::cell_text(int row_index, GridColumn column) const
{
    return text_field(column) ? row(row_index).*text_field(column) : QString();
}

void GridModel::set_cell_text(int row_index, GridColumn column, const QString& text)
{
    if (!text_field(column))
        return;
    rows_.at(static_cast<size_t>(row_index)).*text_field(column) = text;
    is_sorted_ = is_sorted_ && column != GridColumn::item;
    emit dataChanged(cell(row_index, column), cell(row_index, column));
}

int GridModel::find_row(Key groc_key) const
{
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [groc_key](const GridRow& row) { return row.groc_key == groc_key; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

void GridModel::set_type_size(int points)
{
    constexpr int largest = 12;
    constexpr int largest_date = 10;
    if (points < 1)
        return;
    plain_font_.setPointSize(points);
    bold_font_.setPointSize(points);
    date_font_.setPointSize(points == largest ? largest_date : points);
    repaint_all();
}

void GridModel::set_color_index(int index)
{
    color_index_ = index;
    repaint_all();
}

void GridModel::set_text_color(const QColor& color)
{
    text_color_ = color;
    repaint_all();
}

void GridModel::repaint_all()
{
    if (rows() > 0)
        emit dataChanged(index(0, 0), index(rows() - 1, grid_column_count - 1));
}

} // namespace tarnwick
