#include "lists/grid_listener.h"

#include "widgets/shared_values.h"
#include "household/list_store.h"
#include "lists/list_pane.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"

#include <QApplication>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace tarnwick {

GridListener::GridListener(ListPane& pane, RowEditor& editor, const SharedValues& shared)
    : pane_(pane)
    , editor_(editor)
    , shared_(shared)
{
}

void GridListener::item_changed(const ItemChange& change)
{
    take_away(change);
    for (const WrittenRow& written : change.written) {
        if (written.kind == WrittenRow::Kind::placed && shows_list(written.row.list_key))
            show_placed(written.row, change);
        else if (written.kind == WrittenRow::Kind::rewritten)
            show_rewritten(written.row);
    }
    show_marks(change);
    if (!change.record)
        return;
    if (change.record->renamed)
        rename(change.items.front().item, change.record->name);
    // Boxes left open over a row would write their old text back with the next key.
    editor_.refresh();
}

void GridListener::items_gone(const ItemsGone& gone)
{
    if (gone.rows.empty())
        return;
    editor_.hide_line();
    if (gone.category)
        take_away_around_current(gone.rows);
    else
        for (const Key row : gone.rows)
            pane_.remove_row(row);
}

bool GridListener::shows_list(Key list) const
{
    return shared_.all_lists_view || list == shared_.current_list;
}

void GridListener::take_away(const ItemChange& change)
{
    if (change.gone.empty())
        return;
    editor_.hide_line();
    if (change.cause == Cause::clearing) {
        take_away_many(change.gone);
    } else {
        for (const Key gone : change.gone)
            pane_.remove_row(gone);
    }
}

void GridListener::take_away_many(const std::vector<Key>& gone)
{
    GridModel& rows = pane_.grid().rows();
    const QSet<Key> keys(gone.begin(), gone.end());
    std::vector<GridRow> kept;
    std::copy_if(rows.list_rows().begin(), rows.list_rows().end(), std::back_inserter(kept),
                 [&keys](const GridRow& row) { return !keys.contains(row.groc_key); });
    rows.set_rows(std::move(kept));
    if (rows.rows() > 0)
        pane_.grid().set_current(0, GridColumn::item);
    pane_.set_col_widths();
    pane_.set_headers();
}

/// The user's place in the list stays: the current row, or the next one that is left.
void GridListener::take_away_around_current(const std::vector<Key>& gone)
{
    const std::vector<GridRow>& rows = pane_.grid().rows().list_rows();
    const QSet<Key> keys(gone.begin(), gone.end());
    const auto is_gone = [&keys](const GridRow& row) { return keys.contains(row.groc_key); };
    if (std::none_of(rows.begin(), rows.end(), is_gone))
        return;
    const auto current = rows.begin() + std::max(pane_.grid().current_row(), 0);
    auto next = std::find_if_not(current, rows.end(), is_gone);
    if (next == rows.end())
        next = std::find_if_not(rows.begin(), rows.end(), is_gone);
    const Key stays = next == rows.end() ? Key(0) : next->groc_key;
    take_away_many(gone);
    pane_.set_row(stays);
}

void GridListener::show_placed(const GridRow& row, const ItemChange& change)
{
    const bool editor_was_open = editor_.is_open();
    const bool show = !change.quiet && shared_.list_pane_shown;
    const int place = pane_.add_row(row, show);
    if (!show)
        return;
    const bool window_enabled = pane_.grid().window()->isEnabled() && !QApplication::activeModalWidget();
    if ((window_enabled && change.opened) || editor_was_open)
        editor_.show_l_line();
    else
        pane_.grid().scrollTo(pane_.grid().rows().cell(place, GridColumn::item));
}

void GridListener::show_rewritten(const GridRow& row)
{
    GridModel& rows = pane_.grid().rows();
    const int place = rows.find_row(row.groc_key);
    if (place < 0)
        return;
    rows.change_row(place, [&row](GridRow& target) {
        const bool bold = target.bold;
        const bool located = target.located;
        const QString name = target.item;
        target = row;
        target.item = name;
        target.bold = bold;
        target.located = located;
    });
}

void GridListener::show_marks(const ItemChange& change)
{
    const auto first = std::find_if(change.written.begin(), change.written.end(), [](const WrittenRow& written) {
        return written.kind == WrittenRow::Kind::marked;
    });
    if (first == change.written.end())
        return;
    const GridRow& marked = first->row;
    const auto mark = [&marked](GridRow& row) { list_store::set_to_get(row, marked.to_get); };
    GridModel& rows = pane_.grid().rows();
    const GridMarks way = treatment_of(change.cause).grid;
    if (way == GridMarks::whole_list) {
        rows.change_all([&](GridRow& row) {
            if (row.list_key == marked.list_key)
                mark(row);
        });
        return;
    }
    const int place = rows.find_row(marked.groc_key);
    if (place < 0)
        return;
    if (way != GridMarks::in_place)
        pane_.set_row(marked.groc_key);
    rows.change_row(place, mark);
}

void GridListener::rename(Key item, const QString& name)
{
    GridModel& rows = pane_.grid().rows();
    for (int row = 0; row < rows.rows(); ++row)
        if (rows.row(row).item_key == item)
            rows.set_cell_text(row, GridColumn::item, name);
}

} // namespace tarnwick
