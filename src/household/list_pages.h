#pragma once

#include "data/connection.h"
#include "household/list_form.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

/// A row of a list with the category of its stock item.
struct ListRow {
    QString item;
    QString desc;
    QString qty;
    QString aisle;
    QString category;
    bool to_get = false;
    bool cpn = false;
    QDate created; ///< when the coupon expires
};

/// The rows that are printed of a list, or of all lists when the key is below 1, in the order of the options.
/// Throws SQLite::Exception.
std::vector<ListRow> read_list_rows(Connection& connection, Key list, const ReportOptions& options);

/// What heads the first column: the name, and " list" or " lists".
QString list_title(const QString& name);

/// The printed pages of a list. Pages are counted from 1, and there is at least one.
class ListPages {
public:
    /// `name` as `get_list_name` gives it.
    ListPages(std::vector<ListRow> rows, const ReportOptions& options, const QString& name, QDate today);

    int count() const { return static_cast<int>(starts_.size()); }
    Page page(int number) const; ///< throws std::out_of_range outside 1 to count()

private:
    enum class Slot { empty, heading, continued, detail };
    template <typename Visit> size_t walk(size_t record, Visit visit) const;
    Slot slot_kind(size_t record, std::optional<size_t> group, bool column_top, bool column_end) const;
    bool grouped() const;
    QString group_name(size_t record) const;
    bool same_group(size_t left, size_t right) const;
    QString heading_text(size_t record, bool continued) const;
    SlotTexts detail_texts(size_t record) const;
    void count_plain_pages();
    void count_grouped_pages();

    std::vector<ListRow> rows_;
    ReportOptions options_;
    QString name_;
    QDate today_;
    ListForm form_;
    std::vector<size_t> starts_; ///< first record of each page
};

} // namespace tarnwick
