#pragma once

#include "household/ingredient_store.h"

#include <QListView>

#include <vector>

namespace tarnwick {

class PickRows;

/// The drop-down list of the line editor, `ListIngred`, shared by the boxes for quantity, measure and item.
class PickList : public QListView {
    Q_OBJECT
public:
    /// What the list holds, its Tag.
    enum class Content { none = 0, quantities = 1, measures = 2, stock_items = 3, chosen = 4 };

    explicit PickList(QWidget* parent);

    void ListIngred_fill_qty(); ///< the usual quantities
    void ListIngred_fill_measure(); ///< the usual measures
    void ListIngred_fill(std::vector<StockName> names); ///< stock items, in this order
    void clear_and_hide(); ///< the content stays what it was
    void set_content(Content content); ///< the rows stay
    Content content() const { return content_; }

    int count() const; ///< rows
    QString text(int row) const; ///< empty outside the list
    Key item_data(int row) const; ///< the stock item of a row; 0 none
    int list_index() const; ///< the selected row; -1 none
    void select_row(int row); ///< brings it into view

    /// Stands under its box, above it where there is more room, as wide as its longest name, no wider
    /// than the viewport. Both rectangles in
    /// the parent's pixels.
    void place(const QRect& box, const QRect& viewport, int least_width);

signals:
    void picked(int row); ///< by click, Tab or Enter
    void given_up(); ///< Escape
    void left(Qt::FocusReason reason); ///< the focus goes to another control of the window

protected:
    bool event(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void fill(std::vector<StockName> rows, Content content);

    PickRows* rows_;
    Content content_ = Content::none;
};

} // namespace tarnwick
