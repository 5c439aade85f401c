#include "household/item_saving.h"

#include "data/connection.h"
#include "data/integrity.h"
#include "household/clearing_store.h"
#include "household/item_store.h"
#include "household/list_store.h"
#include "household/placing_store.h"

#include <limits>

namespace tarnwick {
namespace {

/// The expiry of a row; invalid without a coupon.
QDate expiry_of(const RowEdit& row)
{
    return row.coupon ? QDate::fromString(trim(row.date), screen_date_format) : QDate();
}

/// The number of a quantity as a placing takes it; 0 when it has none that fits.
Key number_of(const QString& qty)
{
    const double number = val(qty);
    constexpr double most = std::numeric_limits<Key>::max();
    return number >= 0 && number <= most ? to_int16(number) : Key(0);
}

/// The row as the grid shows it.
GridRow cells_of(const RowEdit& row, Key groc_key, Key item, const QString& name)
{
    GridRow cells;
    cells.groc_key = groc_key;
    cells.list_key = row.list_key;
    cells.item_key = item;
    list_store::set_to_get(cells, row.to_get);
    list_store::set_coupon_cells(cells, row.coupon, row.date);
    cells.item = name;
    cells.desc = or_blank(trim(row.desc));
    cells.qty = or_blank(trim(row.qty));
    cells.aisle = or_blank(trim(row.aisle));
    return cells;
}

/// One run of a saving.
class Saving {
public:
    Saving(Connection& connection, const ItemEdit& edit)
        : connection_(connection)
        , store_(connection)
        , edit_(edit)
        , item_(edit.item)
    {
        change_.cause = Cause::item_editor;
        change_.quiet = edit.quiet;
        change_.record.emplace();
    }

    ItemChange run()
    {
        ItemRecord& record = *change_.record;
        record.is_new = edit_.item < 0;
        if (record.is_new)
            item_ = store_.add_item(edit_.name, edit_.category, edit_.today);
        write_rows();
        if (!record.is_new)
            write_item(record);
        else if (edit_.link_namesakes)
            store_.link_lines(edit_.name, item_);
        if (edit_.line >= 0)
            store_.link_line(edit_.line, item_);
        record.linked_by_name = edit_.link_namesakes;
        record.name = get_ingred_name(connection_, item_);
        record.category = edit_.category;
        const StatusCode code
            = store_status(connection_, change_.cause, item_, false).value_or(StatusCode::non_stock);
        change_.items.push_back({item_, code, code, code});
        return std::move(change_);
    }

private:
    void write_rows()
    {
        for (const RowEdit& row : edit_.rows) {
            switch (row.action) {
            case RowAction::place:
                place(row);
                break;
            case RowAction::take_off:
                delete_list_row(connection_, row.groc_key);
                change_.gone.push_back(row.groc_key);
                break;
            case RowAction::rewrite:
                rewrite(row);
                break;
            case RowAction::none:
                break;
            }
        }
        if (!change_.gone.empty())
            data_integrity_check(connection_);
    }

    void place(const RowEdit& row)
    {
        const QDate expiry = expiry_of(row);
        const QString qty = trim(row.qty);
        Placement placement;
        placement.list_key = row.list_key;
        placement.desc = trim(row.desc);
        placement.qty = number_of(qty);
        placement.to_get = row.to_get;
        placement.created = expiry.isValid() ? expiry : edit_.today;
        placement.modified = edit_.today;
        placement.aisle = trim(row.aisle);
        placement.item_key = item_;
        const auto placed = insert(placement);
        if (!placed)
            return;
        change_.written.push_back({WrittenRow::Kind::placed, cells_of(row, placed->groc_key, item_, placed->item)});
        // A placing takes a whole number and no coupon; what the user entered beyond that is kept too.
        const bool more_than_number = !qty.isEmpty() && qty != QString::number(placement.qty);
        if (more_than_number || expiry.isValid())
            store_.complete_row(placed->groc_key, more_than_number ? qty : QString(), expiry);
    }

    std::optional<PlacedRow> insert(const Placement& placement)
    {
        try {
            return insert_list_row(connection_, placement);
        } catch (...) {
            throw placing_error(current_error());
        }
    }

    void rewrite(const RowEdit& row)
    {
        RowChange rewritten;
        rewritten.groc_key = row.groc_key;
        rewritten.to_get = row.to_get;
        rewritten.desc = trim(row.desc);
        rewritten.qty = trim(row.qty);
        rewritten.aisle = trim(row.aisle);
        rewritten.cpn = row.coupon;
        rewritten.created = expiry_of(row);
        store_.change_row(rewritten);
        change_.written.push_back(
            {WrittenRow::Kind::rewritten, cells_of(row, row.groc_key, item_, get_ingred_name(connection_, item_))});
    }

    void write_item(ItemRecord& record)
    {
        record.renamed = edit_.renamed;
        if (edit_.renamed) {
            store_.rename_item(item_, edit_.name, edit_.today);
            store_.unlink_lines(item_);
            store_.link_lines(edit_.name, item_);
        }
        const auto stored = store_.item(item_);
        record.moved = stored && stored->category != edit_.category;
        if (record.moved)
            store_.move_item(item_, edit_.category, edit_.today);
    }

    Connection& connection_;
    ItemStore store_;
    const ItemEdit& edit_;
    Key item_;
    ItemChange change_;
};

} // namespace

ItemChange write_item_edit(Connection& connection, const ItemEdit& edit)
{
    Transaction transaction(connection);
    ItemChange change = Saving(connection, edit).run();
    transaction.commit();
    return change;
}

} // namespace tarnwick
