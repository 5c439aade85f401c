#include "household/last_removal.h"

#include "data/query.h"
#include "household/clearing_store.h"

#include <string>

namespace tarnwick {

LastRemoval::LastRemoval(Connection& connection)
    : connection_(connection)
{
}

/// Every change counts, whoever writes it: rows that were written, changed or deleted through the connection.
qint64 LastRemoval::changes()
{
    Query count(connection_, "SELECT total_changes()");
    return count.next() ? count.number(0) : -1;
}

// A table of the connection's own holds the record as it is, whatever fields it has.
void LastRemoval::keep(const char* table, const char* key_column, Key key)
{
    const std::string name(table);
    const std::string kept = "temp.kept_" + name;
    Query(connection_, "CREATE TABLE IF NOT EXISTS " + kept + " AS SELECT * FROM main." + name + " WHERE 0").run();
    Query(connection_, "DELETE FROM " + kept).run();
    Query(connection_, "INSERT INTO " + kept + " SELECT * FROM main." + name + " WHERE " + key_column + " = ?", key)
        .run();
}

void LastRemoval::put_back(const char* table)
{
    const std::string name(table);
    Query(connection_, "INSERT INTO main." + name + " SELECT * FROM temp.kept_" + name).run();
}

void LastRemoval::hold(Kind kind)
{
    kind_ = kind;
    changes_ = changes();
}

LastRemoval::Kind LastRemoval::kind()
{
    if (kind_ != Kind::none && changes() != changes_)
        kind_ = Kind::none;
    return kind_;
}

void LastRemoval::pass_by(const std::function<void(Connection&)>& write)
{
    const Kind kept = kind();
    write(connection_);
    if (kept != Kind::none)
        hold(kept);
}

std::optional<ItemStatus> LastRemoval::remove_row(Key groc_key)
{
    Transaction transaction(connection_);
    keep("groc_1", "key_id", groc_key);
    keep("tie", "groc_id", groc_key);
    list_ = -1;
    {
        Query kept(connection_, "SELECT list FROM temp.kept_tie");
        if (kept.next())
            list_ = kept.key(0);
    }
    const auto item = remove_list_row(connection_, groc_key);
    transaction.commit();
    hold(item ? Kind::row : Kind::none);
    return item;
}

void LastRemoval::remove_line(Key line)
{
    Transaction transaction(connection_);
    keep("recipe_2", "key_id", line);
    Query(connection_,
          "UPDATE recipe_2 SET \"order\" = \"order\" - 1 WHERE r_ref = (SELECT r_ref FROM temp.kept_recipe_2)"
          " AND \"order\" > (SELECT \"order\" FROM temp.kept_recipe_2)")
        .run();
    delete_line(connection_, line);
    recipe_ = -1;
    {
        Query kept(connection_, "SELECT r_ref FROM temp.kept_recipe_2");
        if (kept.next())
            recipe_ = kept.key(0);
    }
    transaction.commit();
    hold(recipe_ > 0 ? Kind::line : Kind::none);
}

std::optional<LastRemoval::ReturnedRow> LastRemoval::bring_back_row()
{
    if (kind() != Kind::row)
        return std::nullopt;
    kind_ = Kind::none;
    Transaction transaction(connection_);
    put_back("groc_1");
    put_back("tie");
    std::optional<ReturnedRow> returned;
    {
        Query link(connection_,
                   "SELECT t.groc_id, t.list, t.item_id, g.to_get FROM temp.kept_tie t, temp.kept_groc_1 g");
        if (link.next()) {
            const Key item = link.key(2);
            returned = {link.key(0), link.key(1), {item, StatusCode::non_stock}};
            returned->item.status
                = store_status(connection_, Cause::row_removal, item, link.flag(3)).value_or(StatusCode::non_stock);
        }
    }
    transaction.commit();
    return returned;
}

std::optional<int> LastRemoval::bring_back_line()
{
    if (kind() != Kind::line)
        return std::nullopt;
    kind_ = Kind::none;
    Transaction transaction(connection_);
    int place = 0;
    {
        Query kept(connection_, "SELECT \"order\" FROM temp.kept_recipe_2");
        if (kept.next())
            place = kept.number(0);
    }
    Query(connection_, "UPDATE recipe_2 SET \"order\" = \"order\" + 1 WHERE r_ref = ? AND \"order\" >= ?", recipe_,
          place)
        .run();
    put_back("recipe_2");
    transaction.commit();
    return place;
}

} // namespace tarnwick
