#include "random/oracle.h"

#include "data/query.h"
#include "household/status.h"
#include "household/household.h"
#include "household/item_change.h"
#include "household/list_store.h"
#include "lists/list_pane.h"
#include "stock/stock_tree.h"
#include "support/shown_things.h"
#include "support/test_window.h"
#include "widgets/list_grid.h"
#include "widgets/node_key.h"
#include "widgets/tree_view.h"
#include "window/status_panels.h"

namespace tarnwick::random_use {
namespace {

/// Plain after the mark just set, the true code, or as it was.
enum class Way { plain, real, kept };

struct Table {
    Cause cause;
    Way stored, node, page;
};

/// How each cause treats the codes.
constexpr Table table[] = {
    {Cause::placing, Way::real, Way::real, Way::real},     {Cause::grid_box, Way::plain, Way::real, Way::real},
    {Cause::tree_box, Way::plain, Way::plain, Way::plain}, {Cause::row_removal, Way::real, Way::real, Way::real},
    {Cause::clearing, Way::real, Way::real, Way::real},    {Cause::page_box, Way::real, Way::real, Way::plain},
    {Cause::item_editor, Way::real, Way::real, Way::real}, {Cause::item_rename, Way::kept, Way::kept, Way::real},
    {Cause::item_move, Way::kept, Way::real, Way::kept},
};

int code_by(Way way, int plain, int real, int before)
{
    return way == Way::kept ? before : way == Way::plain ? plain : real;
}

const Table& treatment(Cause cause)
{
    return *std::find_if(std::begin(table), std::end(table),
                         [cause](const Table& row) { return row.cause == cause; });
}

/// The key of a list that the grid has to show: 0 all, -1 nothing.
Key shown_list(const SharedValues& shared)
{
    return shared.current_list > 0 ? shared.current_list : shared.all_lists_view ? Key(0) : Key(-1);
}

QString names_in_words(Connection& connection)
{
    QString names;
    Query read(connection, "SELECT list_name FROM list_name UNION ALL SELECT cat_desc FROM cat");
    while (read.next())
        names += read.text(0) + u'\n';
    return names;
}

QString blank_number(const QString& text)
{
    return trim(text) == QLatin1String("0") ? QString() : trim(text);
}

} // namespace

Oracle::Oracle(TestWindow& window)
    : window_(window)
    , main_(window.main())
    , db_(window.db())
{
    Query stored(db_, "SELECT key_id, status FROM items_1");
    while (stored.next())
        items_[stored.key(0)] = {stored.number(1), stored.number(1), 0};
    connect(&main_.household(), &Household::item_changed, this, &Oracle::item_changed);
    connect(&main_.household(), &Household::items_gone, this, &Oracle::rows_taken_away);
    connect(main_.stock_tree().view().model(), &QAbstractItemModel::modelReset, this, [this] {
        for (ExpectedCodes& codes : items_)
            codes.node = codes.stored;
    });
    GridModel& rows = main_.list_pane().grid().rows();
    connect(&rows, &QAbstractItemModel::modelReset, this, [this] {
        placed_.clear();
        lit_.clear();
        lagging_.clear();
        order_open_ = false;
    });
    connect(&rows, &QAbstractItemModel::rowsInserted, this, [this] { order_open_ = false; });
}

void Oracle::item_changed(const ItemChange& change)
{
    const Table& way = treatment(change.cause);
    const bool marked = !change.written.empty();
    const int plain = marked && change.written.front().row.to_get ? 7 : 6;
    for (const ItemCodes& codes : change.items) {
        const int real = true_code(db_, codes.item);
        const ExpectedCodes before = items_.value(codes.item);
        items_[codes.item]
            = {code_by(way.stored, plain, real, before.stored), code_by(way.node, plain, real, before.node),
               code_by(way.page, marked ? plain : 0, 0, before.page)};
    }
    note_rows(change);
}

/// The grid may begin anew with the rows that are left, which is no load.
void Oracle::rows_taken_away()
{
    placed_ += placed_before_;
    lit_ += lit_before_;
    lagging_ += lagging_before_;
    order_open_ = order_open_ || order_open_before_;
}

void Oracle::note_rows(const ItemChange& change)
{
    if (change.cause == Cause::clearing)
        rows_taken_away();
    if (change.cause == Cause::clearing && !change.written.empty())
        lit_.clear(); // every row of the list is shown unlit
    for (const WrittenRow& written : change.written) {
        const Key key = written.row.groc_key;
        if (written.kind == WrittenRow::Kind::placed) {
            placed_.insert(key);
            lit_.insert(key);
        } else if (change.cause == Cause::page_box && key != change.written.front().row.groc_key)
            lagging_.insert(key);
        else
            lagging_.remove(key);
    }
}

QStringList Oracle::check(bool scrolled)
{
    faults_ = store_faults(db_);
    if (window_.ends > 0)
        fault(QStringLiteral("the program ended with %1").arg(window_.exit_code));
    const QString names = names_in_words(db_);
    renamed_ = std::exchange(names_, names) != names;
    check_statuses();
    check_grid();
    check_stock_tree();
    check_recipe_tree();
    check_page();
    check_words();
    check_keyboard(scrolled);
    placed_before_ = placed_;
    lit_before_ = lit_;
    lagging_before_ = lagging_;
    order_open_before_ = order_open_;
    faults_ += caption_faults(main_, db_);
    faults_ += manager_faults(main_, db_);
    return faults_;
}

void Oracle::check_statuses()
{
    QHash<Key, QString> there;
    Query items(db_, "SELECT key_id, status, item FROM items_1");
    while (items.next()) {
        const Key key = items.key(0);
        there[key] = items.text(2);
        order_open_ = order_open_ || (item_names_.contains(key) && item_names_[key] != items.text(2));
        if (!items_.contains(key))
            fault(QStringLiteral("item %1 '%2' was made without a word").arg(key).arg(items.text(2)));
        else if (items_[key].stored != items.number(1))
            fault(QStringLiteral("item %1 '%2' has the status %3, not %4")
                      .arg(key)
                      .arg(items.text(2))
                      .arg(items.number(1))
                      .arg(items_[key].stored));
    }
    items_.removeIf([&there](const auto& entry) { return !there.contains(entry.key()); });
    item_names_ = there;
}

void Oracle::check_grid()
{
    const GridModel& grid = main_.list_pane().grid().rows();
    const Key list = shown_list(main_.shared);
    const std::vector<GridRow> rows = list < 0 ? std::vector<GridRow>() : list_store::read_rows(db_, list);
    if (grid.rows() != static_cast<int>(rows.size())) {
        fault(QStringLiteral("the grid has %1 rows, list %2 has %3").arg(grid.rows()).arg(list).arg(rows.size()));
        return;
    }
    for (size_t i = 0; i < rows.size(); ++i) {
        const int place = grid.find_row(rows[i].groc_key);
        if (place < 0)
            fault(QStringLiteral("row %1 '%2' is not in the grid").arg(rows[i].groc_key).arg(rows[i].item));
        else if (!order_open_ && place != static_cast<int>(i))
            fault(QStringLiteral("row '%1' stands at %2 and not at %3").arg(rows[i].item).arg(place).arg(i));
        else
            check_row(grid.row(place), rows[i]);
    }
}

void Oracle::check_row(const GridRow& shown, GridRow wanted)
{
    const bool placed = placed_.contains(wanted.groc_key);
    const auto same = [&](const char* what, const QString& is, const QString& should) {
        if (trim(is) != trim(should))
            fault(QStringLiteral("row %1 '%2' in the grid: %3 '%4' instead of '%5'")
                      .arg(wanted.groc_key)
                      .arg(wanted.item, QLatin1String(what), is, should));
    };
    const auto same_number
        = [&](const char* what, int is, int should) { same(what, QString::number(is), QString::number(should)); };
    same_number("list", shown.list_key, wanted.list_key);
    same_number("item", shown.item_key, wanted.item_key);
    same("name", shown.item, wanted.item);
    same("description", shown.desc, wanted.desc);
    same("quantity", placed ? blank_number(shown.qty) : shown.qty, placed ? blank_number(wanted.qty) : wanted.qty);
    same("aisle", shown.aisle, wanted.aisle);
    same("date", shown.date, wanted.date);
    same_number("coupon", shown.coupon, wanted.coupon);
    if (lagging_.contains(wanted.groc_key))
        list_store::set_to_get(wanted, shown.to_get);
    same_number("mark", shown.to_get, wanted.to_get);
    // Lit by the item until the next load, but light and box alike.
    constexpr int light_on = 179;
    constexpr int box_on = 122;
    if (lit_.contains(wanted.groc_key) && (shown.light == light_on) == (shown.check == box_on))
        list_store::set_to_get(wanted, shown.light == light_on);
    same_number("light", shown.light, wanted.light);
    same_number("box", shown.check, wanted.check);
}

void Oracle::check_words()
{
    const QTreeWidgetItem* const node = main_.shared.stock_view ? main_.stock_tree().view().selected() : nullptr;
    const QString key = node ? TreeView::key(node) : QString();
    const bool item = key.startsWith(QLatin1String("item"));
    const QString words = item ? get_status(db_, NodeKey::parse(key).record) : QString();
    const QString shown = status_text(main_);
    const bool hint = shown.startsWith(QLatin1String("No recipe is open."));
    if (item && key != selected_ && !renamed_ && !hint && !selected_.isEmpty() && shown != words)
        fault(QStringLiteral("%1 was selected, the panel says '%2' instead of '%3'").arg(key, shown, words));
    else if (item && !renamed_ && words != words_ && shown == words_ && !words_.isEmpty())
        fault(QStringLiteral("the panel still says '%1' of %2 instead of '%3'").arg(shown, key, words));
    selected_ = item ? key : QString();
    words_ = words;
}

} // namespace tarnwick::random_use
