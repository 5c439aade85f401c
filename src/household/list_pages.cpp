#include "household/list_pages.h"

#include "data/collation.h"
#include "data/query.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tarnwick {
namespace {

std::string rows_query(Key list, const ReportOptions& options)
{
    std::string sql = "SELECT groc_1.item, groc_1.desc, groc_1.qty, groc_1.aisle, cat.cat_desc, groc_1.to_get,"
                      " groc_1.cpn, groc_1.created FROM groc_1, cat, tie, items_1 i_1"
                      " WHERE i_1.cat = cat.key_id AND groc_1.key_id = tie.groc_id AND i_1.key_id = tie.item_id";
    sql += list < 1 ? " AND tie.list > ?" : " AND tie.list = ?";
    if (options.active == 1)
        sql += " AND groc_1.to_get <> 0";
    if (options.sort == ReportSort::by_category)
        return sql + " ORDER BY cat.cat_desc, groc_1.item, groc_1.key_id";
    if (options.sort == ReportSort::by_aisle)
        return sql + " ORDER BY groc_1.aisle, groc_1.item, groc_1.key_id";
    return sql + " ORDER BY groc_1.item, groc_1.key_id";
}

} // namespace

std::vector<ListRow> read_list_rows(Connection& connection, Key list, const ReportOptions& options)
{
    std::vector<ListRow> rows;
    Query query(connection, rows_query(list, options), std::max<Key>(list, 0));
    while (query.next())
        rows.push_back({query.text(0), query.text(1), query.text(2), query.text(3), query.text(4), query.flag(5),
                        query.flag(6), query.date(7)});
    return rows;
}

QString list_title(const QString& name)
{
    return name + (name == QLatin1String("All") ? QStringLiteral(" lists") : QStringLiteral(" list"));
}

ListPages::ListPages(std::vector<ListRow> rows, const ReportOptions& options, const QString& name, QDate today)
    : rows_(std::move(rows))
    , options_(options)
    , name_(name)
    , today_(today)
    , form_(options)
{
    if (grouped())
        count_grouped_pages();
    else
        count_plain_pages();
}

bool ListPages::grouped() const
{
    return options_.sort == ReportSort::by_category || options_.sort == ReportSort::by_aisle;
}

void ListPages::count_plain_pages()
{
    // Kept as it is: the divisors are one more than the rows of a column and of a page, so that rows beyond the
    // last page can be left. The last page tells of them.
    const size_t column = static_cast<size_t>(form_.rows());
    const size_t page = column * static_cast<size_t>(form_.columns());
    const size_t whole = rows_.size() / (page + 1);
    const size_t pages = rows_.size() % (column + 1) != 0 ? whole + 1 : whole;
    for (size_t i = 0; i < std::max<size_t>(pages, 1); ++i)
        starts_.push_back(i * page);
}

void ListPages::count_grouped_pages()
{
    size_t record = 0;
    do {
        starts_.push_back(record);
        record = walk(record, [](int, Slot, size_t) {});
    } while (record < rows_.size());
}

/// Goes through the slots of the page that begins with a record, with the index of each slot, what it holds and
/// the record it belongs to. Returns the first record of the next page.
template <typename Visit> size_t ListPages::walk(size_t record, Visit visit) const
{
    std::optional<size_t> group; // the record whose group was told last
    const int slot_count = form_.rows() * form_.columns();
    for (int slot = 0; slot < slot_count && record < rows_.size(); ++slot) {
        const Slot kind
            = slot_kind(record, group, slot > 0 && slot % form_.rows() == 0, (slot + 1) % form_.rows() == 0);
        visit(slot, kind, record);
        if (kind == Slot::heading)
            group = record;
        else if (kind == Slot::detail)
            ++record;
    }
    return record;
}

ListPages::Slot ListPages::slot_kind(size_t record, std::optional<size_t> group, bool column_top,
                                     bool column_end) const
{
    if (!grouped())
        return Slot::detail;
    if (!group || !same_group(record, *group))
        return column_end ? Slot::empty : Slot::heading; // no heading is left alone at a column's foot
    return column_top ? Slot::continued : Slot::detail;
}

QString ListPages::group_name(size_t record) const
{
    return options_.sort == ReportSort::by_category ? rows_[record].category : trim(rows_[record].aisle);
}

bool ListPages::same_group(size_t left, size_t right) const
{
    const QString left_name = group_name(left);
    const QString right_name = group_name(right);
    return left_name == right_name || compare_names(left_name, right_name) == 0;
}

QString ListPages::heading_text(size_t record, bool continued) const
{
    QString name = group_name(record);
    if (options_.sort == ReportSort::by_category)
        return continued ? name + QStringLiteral(" (Cont'd)") : name;
    if (name.isEmpty())
        name = QStringLiteral("?");
    return continued ? name + QStringLiteral(" Aisle (Cont'd)") : QStringLiteral("Aisle ") + name;
}

SlotTexts ListPages::detail_texts(size_t record) const
{
    constexpr int longest_qty = 3;
    const ListRow& row = rows_[record];
    const QString joint = QStringLiteral(": ");
    SlotTexts texts;
    texts.item = trim(row.desc).isEmpty() ? row.item : row.item + joint + row.desc;
    const QString qty = trim(row.qty);
    if (qty.size() > longest_qty)
        texts.item += joint + qty;
    else
        texts.qty = qty;
    texts.aisle = or_blank(trim(row.aisle));
    texts.coupon = row.cpn;
    texts.expired = row.created.isValid() && row.created.daysTo(today_) > 1;
    texts.to_get = row.to_get;
    return texts;
}

Page ListPages::page(int number) const
{
    Page page;
    page.size = {page_form::width, page_form::height};
    form_.add_column_head(page, 0, list_title(name_));
    const size_t next = walk(starts_.at(static_cast<size_t>(number - 1)), [&](int slot, Slot kind, size_t record) {
        if (kind == Slot::detail)
            form_.add_detail(page, slot, detail_texts(record));
        else if (kind != Slot::empty)
            form_.add_heading(page, slot, heading_text(record, kind == Slot::continued));
        if (slot + 1 == form_.rows() && form_.columns() == 2)
            form_.add_column_head(page, 1, name_ + QStringLiteral(" list"));
    });
    if (const size_t left = rows_.size() - next; number == count() && left > 0)
        ListForm::add_note(page,
                           left == 1 ? QStringLiteral("1 more item is not on these pages")
                                     : QStringLiteral("%1 more items are not on these pages").arg(left));
    page.things.push_back(page_foot(number, count()));
    return page;
}

} // namespace tarnwick
