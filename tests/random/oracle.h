#pragma once

#include "data/text.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QWidget>

namespace tarnwick {
class Connection;
class TestWindow;
class frmmain;
struct GridRow;
struct IngredientLine;
struct ItemChange;
} // namespace tarnwick

namespace tarnwick::random_use {

/// What a stock item must show until the next announced change.
struct ExpectedCodes {
    int stored = 0; ///< `items_1.status`
    int node = 0; ///< picture and Tag of the node
    int page = 0; ///< plain code of the page's lines; 0 none, then the true one
};

/// Holds what a window shows against its database, and the database against the rules of its records. It learns
/// from the announcements which cause changed what, since some causes leave known traces until the next load.
class Oracle : public QObject {
    Q_OBJECT
public:
    explicit Oracle(TestWindow& window);

    /// Everything that does not hold now, after a step or a scrolling by the mouse.
    QStringList check(bool scrolled);

private:
    void item_changed(const ItemChange& change);
    void note_rows(const ItemChange& change);
    void rows_taken_away();
    void check_statuses();
    void check_grid();
    void check_row(const GridRow& shown, GridRow wanted);
    void check_stock_tree();
    void check_recipe_tree();
    void check_page();
    void check_line(const IngredientLine& line, Key key);
    void check_words();
    void check_keyboard(bool scrolled);
    void fault(const QString& text) { faults_ += text; }

    TestWindow& window_;
    frmmain& main_;
    Connection& db_;
    QHash<Key, ExpectedCodes> items_;
    QSet<Key> placed_; ///< rows that the grid got since its last load: a quantity of 0 is blank until the next
    QSet<Key> lit_; ///< those of them that are lit by their item, until the next load or clearing
    QSet<Key> lagging_; ///< rows marked from the page, of which the grid shows the first only
    QSet<Key> placed_before_, lit_before_, lagging_before_; ///< as they stood after the last step
    bool order_open_before_ = false;
    QHash<Key, QString> item_names_;
    bool order_open_ = false; ///< a renamed row keeps its place in the grid until the next load or placing
    QString names_; ///< of lists and categories; words that stand somewhere do not follow their change
    bool renamed_ = false; ///< the last step changed them
    QHash<Key, QString> old_tips_; ///< tool tips of lines as they stood at the last change of names
    QString selected_; ///< key of the selected item's node, and its words when looked at last
    QString words_;
    QPointer<QWidget> keyboard_; ///< who had it after the last step
    QStringList faults_;
};

int true_code(Connection& connection, Key item); ///< 5 to 9, counted from the rows

QStringList store_faults(Connection& connection); ///< records that break the rules of the tables
QStringList manager_faults(frmmain& main, Connection& connection); ///< what the list manager shows
QStringList caption_faults(frmmain& main, Connection& connection); ///< commands and captions that name something

} // namespace tarnwick::random_use
