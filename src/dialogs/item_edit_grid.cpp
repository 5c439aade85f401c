#include "dialogs/item_edit_grid.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/column_layout.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "household/list_store.h"
#include "household/status.h"

#include <QLabel>
#include <QResizeEvent>

#include <algorithm>

namespace tarnwick {
namespace {

const QString blank = QStringLiteral(" ");
constexpr int no_picture = 0;

/// All but the name and the pictures in front of it.
void blank_cells(GridRow& row)
{
    row.desc = blank;
    row.qty = blank;
    row.aisle = blank;
    row.coupon = no_picture;
    row.date = blank;
}

QString date_text(QDate date)
{
    return date.isValid() ? date.toString(screen_date_format) : blank;
}

/// Cells 0 and 1 of a row in a state.
void set_pictures(GridRow& row, RowState state)
{
    list_store::set_to_get(row, state == RowState::active);
    if (state == RowState::taken_off || state == RowState::not_listed)
        row.light = picture_base::light_unlisted;
}

} // namespace

int item_editor_type_size(const SharedValues& shared)
{
    const int size = shared.type_size;
    return size == 10 || size == 12 ? size : 9;
}

ItemEditGrid::ItemEditGrid(Program& program, QWidget* parent)
    : QWidget(parent)
    , program_(program)
    , grid_(new ListGrid(this))
{
    grid_->setObjectName(QStringLiteral("Listview1"));
    grid_->setAccessibleName(QStringLiteral("Shopping lists of the item"));
    grid_->set_type_size(type_size());
    grid_->rows().set_light_name(QStringLiteral("on the list"));
    make_header();
    RowEditorHost& host = *this;
    editor_ = std::make_unique<RowEditor>(*grid_, host, this);
    editor_->set_type_size(type_size());
    if (const auto color = program_.shared.page_color()) {
        grid_->set_page_color(*color, program_.shared.color_index);
        editor_->set_page_color(*color);
    }
    setFocusProxy(grid_);
    connect(grid_, &ListGrid::mouse_up, this, &ItemEditGrid::mouse_up);
    connect(grid_, &ListGrid::key_down, this, &ItemEditGrid::key_down);
    connect(grid_, &ListGrid::row_wanted, this, &ItemEditGrid::move_to);
}

ItemEditGrid::~ItemEditGrid() = default;

/// The main window's header bar over this grid's own columns.
void ItemEditGrid::make_header()
{
    header_ = std::make_unique<HeaderBar>(*grid_, this);
    header_->label(0).setText(QStringLiteral("On-list   List name"));
    for (int i = 0; i < 5; ++i)
        header_->label(i).setObjectName(QStringLiteral("listheaderlbl(%1)").arg(i));
    header_->set_type_size(type_size());
    connect(header_.get(), &HeaderBar::group_toggled, this, &ItemEditGrid::show_column_group);
    connect(header_.get(), &HeaderBar::separator_moved, this, [this] {
        set_headers();
        editor_->place_again();
    });
}

void ItemEditGrid::load(const std::vector<ListOfItem>& lists)
{
    std::vector<GridRow> rows;
    rows.reserve(lists.size());
    list_rows_edit_.clear();
    list_rows_edit_.reserve(lists.size());
    has_repeats_ = false;
    for (const ListOfItem& list : lists)
        append(list, rows);
    grid_->rows().set_rows(std::move(rows));
    column_layout::share_text_columns(*grid_, *header_);
    set_headers();
}

void ItemEditGrid::append(const ListOfItem& list, std::vector<GridRow>& rows)
{
    GridRow cells;
    cells.list_key = list.list_key;
    cells.item = list.list_name;
    if (list.rows.empty()) {
        set_pictures(cells, RowState::not_listed);
        blank_cells(cells);
        rows.push_back(cells);
        list_rows_edit_.push_back({list.list_key, 0, RowState::not_listed, false, RowAction::none});
        return;
    }
    if (list.rows.size() > 1) {
        cells.item += u'*';
        has_repeats_ = true;
    }
    for (const EditedRow& row : list.rows) {
        const RowState state = row.to_get ? RowState::active : RowState::inactive;
        cells.groc_key = row.groc_key;
        set_pictures(cells, state);
        list_store::set_coupon_cells(cells, row.cpn, row.cpn ? date_text(row.created) : blank);
        cells.desc = row.desc;
        cells.qty = or_blank(trim(row.qty));
        cells.aisle = row.aisle;
        rows.push_back(cells);
        list_rows_edit_.push_back({list.list_key, row.groc_key, state, row.cpn, RowAction::none});
    }
}

void ItemEditGrid::pre_mark(Key list)
{
    const auto row = std::find_if(list_rows_edit_.begin(), list_rows_edit_.end(), [list](const EditRow& edit) {
        return edit.list_key == list && edit.state == RowState::not_listed;
    });
    if (row == list_rows_edit_.end())
        return;
    row->state = RowState::active;
    row->action = RowAction::place;
    const int index = static_cast<int>(row - list_rows_edit_.begin());
    grid_->rows().change_row(index, [](GridRow& cells) { set_pictures(cells, RowState::active); });
    grid_->set_current(index, GridColumn::item);
}

void ItemEditGrid::select(Key groc_key)
{
    const int row = groc_key > 0 ? grid_->rows().find_row(groc_key) : -1;
    grid_->set_current(std::max(row, 0), GridColumn::item);
}

void ItemEditGrid::lv_edit_off()
{
    editor_->lv_edit_off();
}

const GridRow& ItemEditGrid::cells(int row) const
{
    return static_cast<const ListGrid*>(grid_)->rows().row(row);
}

bool ItemEditGrid::places() const
{
    return std::any_of(list_rows_edit_.begin(), list_rows_edit_.end(),
                       [](const EditRow& row) { return row.is_listed() && row.action == RowAction::place; });
}

std::vector<RowEdit> ItemEditGrid::row_edits() const
{
    std::vector<RowEdit> edits;
    for (size_t i = 0; i < list_rows_edit_.size(); ++i) {
        const EditRow& edit = list_rows_edit_[i];
        const GridRow& shown = cells(static_cast<int>(i));
        edits.push_back({edit.action, edit.groc_key, edit.list_key, edit.state == RowState::active, edit.coupon,
                         shown.date, shown.desc, shown.qty, shown.aisle});
    }
    return edits;
}

void ItemEditGrid::mouse_up(Qt::MouseButton button, QPoint position)
{
    if (grid_->row_at(position.y()) < 0 || grid_->pressed_row() < 0) {
        lv_edit_off();
        return;
    }
    if (button == Qt::LeftButton && grid_->pressed_column() && grid_->columnAt(position.x()) >= 0)
        cell_clicked(grid_->current_row(), grid_->current_col(), position.x());
}

void ItemEditGrid::cell_clicked(int row, GridColumn column, int x)
{
    switch (column) {
    case GridColumn::light:
        toggle_on_list(row);
        break;
    case GridColumn::check:
        toggle_buy_it(row);
        break;
    case GridColumn::coupon:
        editor_->switch_coupon(row, !coupon_on(row));
        editor_->show_l_line();
        break;
    default:
        editor_->show_l_line();
        editor_->enter_box_at(column, x);
        break;
    }
}

void ItemEditGrid::key_down(GridKey key)
{
    const int row = grid_->current_row();
    if (row < 0)
        return;
    if (key == GridKey::check)
        toggle_buy_it(row);
    else if (key == GridKey::remove && edit_row_of(row).is_listed())
        toggle_on_list(row);
    else if (key == GridKey::up && row > 0)
        move_to(row - 1);
    else if (key == GridKey::down && row < grid_->rows().rows() - 1)
        move_to(row + 1);
}

void ItemEditGrid::move_to(int row)
{
    grid_->set_current(row, GridColumn::item);
    editor_->show_l_line();
}

void ItemEditGrid::toggle_on_list(int row)
{
    lv_edit_off();
    EditRow& edit = edit_row_of(row);
    const bool was_there = edit.groc_key > 0;
    if (edit.is_listed()) {
        edit.state = RowState::taken_off;
        edit.action = was_there ? RowAction::take_off : RowAction::none;
    } else {
        edit.state = RowState::inactive;
        edit.action = was_there ? RowAction::none : RowAction::place;
    }
    edit.coupon = false;
    show_state(row);
    emit changed();
}

void ItemEditGrid::toggle_buy_it(int row)
{
    lv_edit_off();
    EditRow& edit = edit_row_of(row);
    if (!edit.is_listed())
        toggle_on_list(row); // what is to be bought is on the list
    edit.state = edit.state == RowState::active ? RowState::inactive : RowState::active;
    grid_->rows().change_row(row, [&edit](GridRow& cells) { set_pictures(cells, edit.state); });
    mark_changed(row);
}

/// The cells of a row that came on its list, without a coupon, or left it.
void ItemEditGrid::show_state(int row)
{
    const EditRow& edit = edit_row_of(row);
    grid_->rows().change_row(row, [&edit](GridRow& cells) {
        set_pictures(cells, edit.state);
        if (edit.is_listed())
            list_store::set_coupon_cells(cells, false, blank);
        else
            blank_cells(cells);
    });
}

/// A row that stays on its list is rewritten; one that is placed or taken off is so as a whole.
void ItemEditGrid::mark_changed(int row)
{
    EditRow& edit = edit_row_of(row);
    if (edit.is_listed() && edit.groc_key > 0)
        edit.action = RowAction::rewrite;
    emit changed();
}

int ItemEditGrid::type_size() const
{
    return item_editor_type_size(program_.shared);
}

bool ItemEditGrid::column_group_shown(ColumnGroup group) const
{
    return header_->group_shown(group);
}

void ItemEditGrid::text_edited(int row, GridColumn, const QString&)
{
    mark_changed(row);
}

bool ItemEditGrid::coupon_on(int row) const
{
    return list_rows_edit_.at(static_cast<size_t>(row)).coupon;
}

QString ItemEditGrid::set_coupon(int row, bool on)
{
    EditRow& edit = edit_row_of(row);
    edit.coupon = on;
    mark_changed(row);
    if (!on)
        return blank;
    const QDate stored = edit.groc_key > 0 ? ItemStore(program_.connection).expiry(edit.groc_key) : QDate();
    return date_text(stored.isValid() ? std::max(stored, today()) : today());
}

void ItemEditGrid::date_chosen(int row, QDate)
{
    mark_changed(row);
}

QDate ItemEditGrid::today() const
{
    return program_.today();
}

void ItemEditGrid::show_column_group(ColumnGroup group)
{
    column_layout::apply_column_group(*grid_, *header_, group);
    column_layout::level_text_columns(*grid_);
    set_headers();
    editor_->place_again();
}

void ItemEditGrid::set_headers()
{
    header_->set_headers(0, grid_->y());
}

void ItemEditGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int header_height = header_->wanted_height();
    grid_->setGeometry(0, header_height, width(), height() - header_height);
    column_layout::share_text_columns(*grid_, *header_);
    set_headers();
    editor_->place_again();
}

/// The current row was chosen before the grid had its height.
void ItemEditGrid::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    const int row = grid_->current_row();
    if (row >= 0 && !grid_->row_is_visible(row))
        grid_->set_top_row(row - grid_->rows_in_view() / 2);
}

} // namespace tarnwick
