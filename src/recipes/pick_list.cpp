#include "recipes/pick_list.h"

#include "widgets/update_lock.h"
#include "recipes/page_text.h"
#include "widgets/last_press.h"
#include "widgets/tool_tip.h"

#include <QAbstractListModel>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace tarnwick {

/// The rows of the list. A model of its own takes thousands of names at once.
class PickRows : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void set(std::vector<StockName> rows)
    {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }

    /// Pixels of the longest name. Only names that could be wider than the longest by count are measured.
    int widest(const QFontMetrics& metrics) const
    {
        const auto longest
            = std::max_element(rows_.begin(), rows_.end(), [](const StockName& a, const StockName& b) {
                  return a.name.size() < b.name.size();
              });
        int width = longest == rows_.end() ? 0 : metrics.horizontalAdvance(longest->name);
        const int widest_letter = std::max(1, metrics.horizontalAdvance(u'W'));
        for (const StockName& row : rows_)
            if (row.name.size() * widest_letter > width)
                width = std::max(width, metrics.horizontalAdvance(row.name));
        return width;
    }

    const StockName* at(int row) const
    {
        return row >= 0 && row < rowCount() ? &rows_[static_cast<size_t>(row)] : nullptr;
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const StockName* row = at(index.row());
        if (row && role == Qt::DisplayRole)
            return row->name;
        if (row && role == Qt::ToolTipRole)
            return plain_tool_tip(row->name);
        if (row && role == Qt::UserRole)
            return int(row->key);
        return {};
    }

private:
    std::vector<StockName> rows_;
};

namespace {

constexpr int most_rows = 10;
constexpr int text_margins = 8; ///< pixels around the text of a row, both sides

std::vector<StockName> plain_rows(std::initializer_list<QString> texts)
{
    std::vector<StockName> rows;
    for (const QString& text : texts)
        rows.push_back({0, text});
    return rows;
}

} // namespace

PickList::PickList(QWidget* parent)
    : QListView(parent)
    , rows_(new PickRows(this))
{
    setObjectName(QStringLiteral("ListIngred"));
    setAccessibleName(QStringLiteral("Suggestions"));
    setFocusPolicy(Qt::ClickFocus);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setModel(rows_);
    set_content(Content::none);
    LastPress::require_on(*viewport());
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& row) { emit picked(row.row()); });
    hide();
}

void PickList::ListIngred_fill_qty()
{
    fill(plain_rows({QStringLiteral("¼"), QStringLiteral("1/3"), QStringLiteral("½"), QStringLiteral("¾"),
                     QStringLiteral("1¼"), QStringLiteral("1 1/3"), QStringLiteral("1½"), QStringLiteral("1¾")}),
         Content::quantities);
}

void PickList::ListIngred_fill_measure()
{
    fill(plain_rows({QStringLiteral("tsp"), QStringLiteral("tbs"), QStringLiteral("cup"), QStringLiteral("oz."),
                     QStringLiteral("lb."), QStringLiteral("qt."), QStringLiteral("can"), QStringLiteral("whole")}),
         Content::measures);
}

void PickList::ListIngred_fill(std::vector<StockName> names)
{
    fill(std::move(names), Content::stock_items);
}

void PickList::fill(std::vector<StockName> rows, Content content)
{
    const UpdateLock lock(*this);
    set_content(content);
    rows_->set(std::move(rows));
    scrollToTop();
    LastPress::forget(*viewport());
}

void PickList::clear_and_hide()
{
    hide();
    if (count() > 0)
        rows_->set({});
}

void PickList::set_content(Content content)
{
    content_ = content;
    setProperty("Tag", QString::number(static_cast<int>(content)));
}

int PickList::count() const
{
    return rows_->rowCount();
}

QString PickList::text(int row) const
{
    const StockName* found = rows_->at(row);
    return found ? found->name : QString();
}

Key PickList::item_data(int row) const
{
    const StockName* found = rows_->at(row);
    return found ? found->key : Key(0);
}

int PickList::list_index() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.front().row();
}

void PickList::select_row(int row)
{
    setCurrentIndex(rows_->index(row));
}

void PickList::place(const QRect& box, const QRect& viewport, int least_width)
{
    const int frame = 2 * frameWidth();
    const int row = count() > 0 ? sizeHintForRow(0) : 0;
    const int wanted = row * std::min(count(), most_rows) + frame;
    const int below = viewport.bottom() - box.bottom();
    const int above = box.top() - viewport.top();
    const bool downward = wanted <= below || below >= above;
    const int height = std::min(wanted, std::max(downward ? below : above, row + frame));
    const int bar = height < row * count() + frame ? verticalScrollBar()->sizeHint().width() : 0;
    const int longest = rows_->widest(fontMetrics()) + text_margins + bar + frame;
    const int width = std::min(std::max({box.width(), least_width, longest}), viewport.width());
    const int left = std::clamp(box.left() - 1, viewport.left(), viewport.right() + 1 - width);
    setGeometry(left, downward ? box.bottom() + 1 : box.top() - height, width, height);
}

bool PickList::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            emit given_up();
            return true;
        }
        if (key == Qt::Key_Tab || key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (list_index() >= 0)
                emit picked(list_index());
            return true;
        }
    }
    return QListView::event(event);
}

void PickList::focusOutEvent(QFocusEvent* event)
{
    QListView::focusOutEvent(event);
    if (leaves_control(event->reason()))
        emit left(event->reason());
}

} // namespace tarnwick
