#include "household_loader.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>

#include <array>
#include <stdexcept>
#include <string>

using namespace Qt::Literals::StringLiterals;

namespace tarnwick::sample {
namespace {

constexpr int greatest_key = 32767;

enum Status { unlisted = 5, inactive = 6, buy_it = 7, buy_it_on_several = 8 };

/// How an item stands with all lists, as its record carries it.
struct ItemState {
    int rows = 0;
    int active_rows = 0;
    bool last_flag = false;

    int status() const
    {
        if (rows == 0)
            return unlisted;
        if (active_rows == 0)
            return inactive;
        return active_rows == 1 ? buy_it : buy_it_on_several;
    }
};

/// Records are numbered from 1 in the order of the household.
int key_of(int index)
{
    return index + 1;
}

std::string iso(const QDate& date)
{
    return date.toString(Qt::ISODate).toStdString();
}

/// Texts that may not be empty are stored as one blank.
std::string text_or_blank(const QString& text)
{
    return text.isEmpty() ? std::string(" ") : text.toStdString();
}

/// A prepared INSERT that is run once per record.
class Insert {
public:
    Insert(SQLite::Database& db, const char* sql)
        : statement_(db, sql)
    {
    }

    template <typename... Values> void operator()(const Values&... values)
    {
        statement_.reset();
        SQLite::bind(statement_, values...);
        statement_.exec();
    }

private:
    SQLite::Statement statement_;
};

void require_empty(SQLite::Database& db)
{
    static constexpr std::array<const char*, 7> queries{"SELECT EXISTS (SELECT 1 FROM items_1)",
                                                        "SELECT EXISTS (SELECT 1 FROM list_name)",
                                                        "SELECT EXISTS (SELECT 1 FROM groc_1)",
                                                        "SELECT EXISTS (SELECT 1 FROM tie)",
                                                        "SELECT EXISTS (SELECT 1 FROM recipe_1)",
                                                        "SELECT EXISTS (SELECT 1 FROM recipe_2)",
                                                        "SELECT EXISTS (SELECT 1 FROM cat WHERE key_id <> 0)"};
    for (const char* query : queries) {
        if (db.execAndGet(query).getInt() != 0)
            throw std::runtime_error("the database already holds items, categories, lists or recipes; "
                                     "the household is loaded into an empty one only");
    }
}

std::vector<ItemState> item_states(const Household& household)
{
    std::vector<ItemState> states(household.items.size());
    for (const ShoppingList& list : household.lists) {
        for (const ListRow& row : list.rows) {
            ItemState& state = states.at(static_cast<std::size_t>(row.item));
            ++state.rows;
            state.active_rows += row.to_get ? 1 : 0;
            state.last_flag = row.to_get;
        }
    }
    return states;
}

void insert_categories(SQLite::Database& db, const Household& household)
{
    Insert insert(db, "INSERT INTO cat (key_id, cat_desc, expand) VALUES (?, ?, ?)");
    if (db.execAndGet("SELECT EXISTS (SELECT 1 FROM cat WHERE key_id = 0)").getInt() == 0)
        insert(0, "OTHER", 0);
    int key = 0;
    for (const Category& category : household.categories)
        insert(++key, category.name.toStdString(), category.expanded ? 1 : 0);
}

void insert_items(SQLite::Database& db, const Household& household, const std::string& today)
{
    const std::vector<ItemState> states = item_states(household);
    Insert insert(db,
                  "INSERT INTO items_1 (key_id, item, cat, status, to_get, qty, \"desc\", modified, created)"
                  " VALUES (?, ?, ?, ?, ?, 0, ' ', ?, ?)");
    for (std::size_t i = 0; i < household.items.size(); ++i) {
        const Item& item = household.items[i];
        const int category_key = item.category == other_category ? 0 : key_of(item.category);
        insert(key_of(static_cast<int>(i)), item.name.toStdString(), category_key, states[i].status(),
               states[i].last_flag ? 1 : 0, today, today);
    }
}

void insert_lists(SQLite::Database& db, const Household& household, const QDate& today)
{
    Insert insert_list(db, "INSERT INTO list_name (key_id, list_name, active, modified) VALUES (?, ?, ?, ?)");
    Insert insert_row(
        db,
        "INSERT INTO groc_1 (key_id, item, \"desc\", qty, aisle, to_get, cpn, created, modified, list,"
        " item_id) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, 0, 0)");
    Insert insert_tie(db, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, ?)");
    int list_key = 0;
    int row_key = 0;
    for (const ShoppingList& list : household.lists) {
        ++list_key;
        insert_list(list_key, list.name.toStdString(), list_key == 1 ? 1 : 0, iso(today));
        for (const ListRow& row : list.rows) {
            ++row_key;
            const Item& item = household.items[static_cast<std::size_t>(row.item)];
            insert_row(row_key, item.name.toStdString(), text_or_blank(row.desc), text_or_blank(row.qty),
                       text_or_blank(row.aisle), row.to_get ? 1 : 0, row.coupon_days ? 1 : 0,
                       iso(today.addDays(row.coupon_days.value_or(0))), iso(today));
            insert_tie(row_key, row_key, key_of(row.item), list_key);
        }
    }
}

void insert_recipes(SQLite::Database& db, const Household& household)
{
    Insert insert_recipe(db, "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (?, ?, ?, ?)");
    Insert insert_line(db,
                       "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
                       " VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
    int recipe_key = 0;
    int line_key = 0;
    for (const Recipe& recipe : household.recipes) {
        ++recipe_key;
        insert_recipe(recipe_key, recipe.name.toStdString(), recipe.body.toStdString(),
                      recipe.category.toStdString());
        int order = 0;
        for (const Ingredient& line : recipe.ingredients) {
            const int item_key = line.item == no_stock_item ? -1 : key_of(line.item);
            insert_line(++line_key, recipe_key, item_key, line.name.toStdString(), text_or_blank(line.qty),
                        text_or_blank(line.measure), text_or_blank(line.comment), order++);
        }
    }
}

/// Numbered names from every combination of three word lists, scattered so that neighbours have little in common.
class NameMaker {
public:
    NameMaker(QStringList first, QStringList second, QStringList third)
        : first_(std::move(first))
        , second_(std::move(second))
        , third_(std::move(third))
    {
    }

    /// The name with this number, from 0; names repeat with a round number behind them when all combinations are
    /// used.
    QString name(int number) const
    {
        const qsizetype total = first_.size() * second_.size() * third_.size();
        // The prime shares no factor with the word counts, so no combination comes twice in a round.
        const qsizetype place = (number % total) * 7919 % total;
        const QString text = (first_[place % first_.size()] + u' ' + second_[place / first_.size() % second_.size()]
                              + u' ' + third_[place / first_.size() / second_.size()])
                                 .trimmed();
        const qsizetype round = number / total;
        return round == 0 ? text : text + u' ' + QString::number(round + 1);
    }

private:
    QStringList first_;
    QStringList second_;
    QStringList third_;
};

NameMaker item_names()
{
    return {u"Organic,Fresh,Frozen,Sliced,Chopped,Whole,Dried,Smoked,Salted,Unsalted,Spicy,Mild,"
            "Country,Garden,Winter,Summer,Golden,Roasted,Pickled,Marinated,Baby,Rustic,Classic,"
            "Premium,Value,Family,Local,Imported,Sautéed,Jalapeño"_s.split(u','),
            u"Carrots,Potatoes,Tomatoes,Onions,Peppers,Mushrooms,Beans,Peas,Lentils,Corn,Spinach,"
            "Cabbage,Pumpkin,Beets,Leeks,Apples,Pears,Plums,Cherries,Peaches,Grapes,Berries,"
            "Almonds,Walnuts,Cashews,Peanuts,Raisins,Dates,Figs,Apricots,Ham,Sausages,Bacon,"
            "Turkey,Chicken,Beef,Salmon,Tuna,Herring,Shrimp,Cheddar,Brie,Butter,Yogurt,Noodles,"
            "Rice,Oats,Barley,Crackers,Cookies,Muffins,Rolls,Bagels,Tortillas,Soup,Stew,Salsa,"
            "Pesto,Relish,Olives"_s.split(u','),
            u"100 g,200 g,250 g,400 g,500 g,750 g,1 kg,2 kg,4 oz,8 oz,12 oz,16 oz,1 lb,2 lb,5 lb,"
            "single,twin pack,4-pack,6-pack,12-pack"_s.split(u',')};
}

NameMaker category_names()
{
    return {u"Fresh,Frozen,Dried,Canned,Organic,Local,Imported,Everyday,Seasonal,Bulk"_s.split(u','),
            u"fruit,vegetables,bread,dairy,cheese,meat,poultry,fish,pasta,grains,baking,spices,"
            "sauces,snacks,drinks,desserts,baby food,pet food,party food,salads"_s.split(u','),
            {QString()}};
}

NameMaker list_names()
{
    return {u"Weekly,Monthly,Weekend,Holiday,Emergency,Summer,Winter"_s.split(u','),
            u"shop,market,stock-up,party,picnic,dinner,bake sale,barbecue"_s.split(u','),
            {QString()}};
}

void check_counts(int items, int categories, int lists, int rows_per_list)
{
    for (const int count : {items, categories, lists, rows_per_list}) {
        if (count < 0 || count > greatest_key)
            throw std::invalid_argument("a count of the catalogue is outside 0 to 32767");
    }
    const qint64 rows = qint64{lists} * rows_per_list;
    if (rows > greatest_key)
        throw std::invalid_argument("the lists would hold more than 32767 rows");
    if (rows > 0 && items == 0)
        throw std::invalid_argument("list rows need items");
}

ShoppingList large_list(int number, int items, int rows, const QString& name)
{
    static const QStringList quantities = u"1,2,3,500 g,1 lb,2 packs,"_s.split(u',');
    static const QStringList descriptions = u",ripe,large,on offer,"_s.split(u',');
    ShoppingList list{name, {}};
    for (int i = 0; i < rows; ++i) {
        ListRow row;
        // Equal steps through the whole catalogue, each list starting a little further on.
        row.item = static_cast<int>((qint64{i} * items / rows + number) % items);
        row.qty = quantities[(i + number) % quantities.size()];
        row.desc = descriptions[i % descriptions.size()];
        row.aisle = QString::number(i % 18 + 1);
        row.to_get = (i + number) % 3 != 0;
        if (i % 10 == 4)
            row.coupon_days = i % 40 - 5;
        list.rows.push_back(row);
    }
    return list;
}

} // namespace

void load_household(SQLite::Database& db, const Household& household, const QDate& today)
{
    SQLite::Transaction transaction(db);
    require_empty(db);
    insert_categories(db, household);
    insert_items(db, household, iso(today));
    insert_lists(db, household, today);
    insert_recipes(db, household);
    transaction.commit();
}

void make_large_catalogue(SQLite::Database& db, int items, int categories, int lists, int rows_per_list,
                          const QDate& today)
{
    check_counts(items, categories, lists, rows_per_list);
    Household household;
    const NameMaker categories_by_number = category_names();
    for (int i = 0; i < categories; ++i)
        household.categories.push_back({categories_by_number.name(i), false});
    const NameMaker items_by_number = item_names();
    for (int i = 0; i < items; ++i)
        household.items.push_back({items_by_number.name(i), categories == 0 ? other_category : i % categories});
    const NameMaker lists_by_number = list_names();
    for (int i = 0; i < lists; ++i)
        household.lists.push_back(large_list(i, items, rows_per_list, lists_by_number.name(i)));
    load_household(db, household, today);
}

} // namespace tarnwick::sample
