#include "tidying.h"

#include "measure.h"
#include "window.h"

#include "data/query.h"
#include "household/household.h"
#include "lists/clearing.h"
#include "stock/stock_tree.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <array>
#include <string>

namespace tarnwick::bench {
namespace {

constexpr int runs = 9;
constexpr int list = 1;
constexpr int category = 1;
constexpr std::array tables = {"cat", "items_1", "groc_1", "tie", "recipe_2"};

/// A window whose records can be brought back.
class TidyWindow : public Window {
public:
    using Window::Window;

    void keep()
    {
        for (const std::string table : tables)
            db().exec("CREATE TEMP TABLE kept_" + table + " AS SELECT * FROM " + table);
    }

    /// Everything is in file and window as it was kept, and the window stands still.
    void bring_back()
    {
        Transaction transaction(main().connection());
        for (const std::string table : tables)
            db().exec("DELETE FROM " + table + "; INSERT INTO " + table + " SELECT * FROM kept_" + table);
        transaction.commit();
        main().stock_tree().tv_load(false);
        main().list_pane().lv_load(list);
        settle();
    }

    void run_bare(const std::string& sql)
    {
        Transaction transaction(main().connection());
        db().exec(sql);
        transaction.commit();
    }

private:
    SQLite::Database& db() { return main().connection().db(); }
};

constexpr const char* integrity_sql = "DELETE FROM tie WHERE item_id NOT IN (SELECT key_id FROM items_1);"
                                      "DELETE FROM tie WHERE groc_id NOT IN (SELECT key_id FROM groc_1);";

/// The change of a clearing by the shortest way.
std::string bare_clearing(ClearMode mode)
{
    const std::array conditions = {" AND g.to_get <> 0", " AND g.to_get = 0", ""};
    const std::string rows = std::string("CREATE TEMP TABLE cleared AS SELECT g.key_id AS row, t.item_id AS item"
                                         " FROM groc_1 g, tie t WHERE g.key_id = t.groc_id AND t.list = 1")
        + conditions.at(static_cast<size_t>(mode) - 1) + ";";
    const std::string change = mode == ClearMode::uncheck
        ? "UPDATE groc_1 SET to_get = 0 WHERE key_id IN (SELECT row FROM cleared);"
        : "DELETE FROM tie WHERE groc_id IN (SELECT row FROM cleared);"
          "DELETE FROM groc_1 WHERE key_id IN (SELECT row FROM cleared);";
    return rows + change
        + "UPDATE items_1 SET to_get = 0, status = (SELECT CASE count(*) WHEN 0 THEN 5"
          " ELSE 6 + min(sum(g.to_get), 2) END FROM groc_1 g, tie t"
          " WHERE t.groc_id = g.key_id AND t.item_id = items_1.key_id)"
          " WHERE key_id IN (SELECT item FROM cleared);"
        + integrity_sql + "DROP TABLE cleared;";
}

const std::string bare_category_deletion
    = std::string("DELETE FROM groc_1 WHERE key_id IN (SELECT t.groc_id FROM tie t, items_1 i"
                  " WHERE t.item_id = i.key_id AND i.cat = 1);"
                  "DELETE FROM tie WHERE item_id IN (SELECT key_id FROM items_1 WHERE cat = 1);"
                  "UPDATE recipe_2 SET item_ref = -1"
                  " WHERE item_ref IN (SELECT key_id FROM items_1 WHERE cat = 1);"
                  "DELETE FROM items_1 WHERE cat = 1; DELETE FROM cat WHERE key_id = 1;")
    + integrity_sql;

void print_against_bare_and_half(TidyWindow& window, TidyWindow& twice, const std::function<void(TidyWindow&)>& act,
                                 const std::string& bare, const std::string& what, const std::string& what_twice)
{
    const auto acting = [&act](TidyWindow& in) {
        return Work{[&act, &in] {
                        act(in);
                        Window::settle();
                    },
                    [&in] { in.bring_back(); }};
    };
    const Work bare_work{[&] { window.run_bare(bare); }, [&window] { window.bring_back(); }};
    print_ratio(what + " : bare SQL", median_ratio(runs, acting(window), bare_work), 4);
    print_ratio(what_twice, median_ratio(runs, acting(twice), acting(window)), 2.2);
}

/// A folder of so many items, each on three lists and every second one on a line of a recipe; as many besides.
class CategoryWindow : public TidyWindow {
public:
    explicit CategoryWindow(int items)
        : TidyWindow(Counts{2 * items, 2, 3, 2 * items})
    {
        run_bare("INSERT INTO recipe_2 (key_id, r_ref, item_ref, item)"
                 " SELECT key_id, key_id % 20 + 1, key_id, item FROM items_1 WHERE cat = 1 AND key_id % 4 = 1");
        keep();
        if (count("items_1 WHERE cat = 1") != items
            || count("tie t, items_1 i WHERE t.item_id = i.key_id AND i.cat = 1") != 3 * items
            || count("recipe_2") != items / 2)
            qFatal("the category is not as it should be");
    }

private:
    int count(const std::string& of)
    {
        Query query(main().connection(), "SELECT count(*) FROM " + of);
        query.next();
        return query.number(0);
    }
};

} // namespace

void measure_clearing()
{
    TidyWindow window({9999, 200, 1, 5000});
    TidyWindow twice({9999, 200, 1, 10000});
    window.keep();
    twice.keep();
    const std::array names
        = {"unchecking a list of 5,000 rows", "deleting the unchecked of 5,000 rows", "deleting all of 5,000 rows"};
    for (const ClearMode mode : {ClearMode::uncheck, ClearMode::delete_unchecked, ClearMode::delete_all})
        print_against_bare_and_half(
            window, twice, [mode](TidyWindow& in) { in->clearing().clear_list(mode); }, bare_clearing(mode),
            names.at(static_cast<size_t>(mode) - 1), "the same of 10,000 rows : of 5,000 rows");
}

void measure_category_deletion()
{
    CategoryWindow window(1000);
    CategoryWindow twice(2000);
    print_against_bare_and_half(
        window, twice, [](TidyWindow& in) { in->household().delete_category(category); }, bare_category_deletion,
        "deleting a category of 1,000 items, 3,000 rows, 500 lines", "the same of twice as many : of these");
}

} // namespace tarnwick::bench
