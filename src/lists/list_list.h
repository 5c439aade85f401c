#pragma once

#include "data/text.h"
#include "widgets/drag.h"

#include <QColor>
#include <QDialog>

#include <vector>

class QFrame;
class QLabel;
class QScrollBar;
class QStatusBar;

namespace tarnwick {

class Connection;
struct ListsChange;

/// The list manager: all shopping lists in a small window beside the main one, to be chosen by a click. It follows
/// what is announced about lists, and takes the stock items that are dropped on a list.
class list_list : public QDialog, private DragTarget {
    Q_OBJECT
public:
    /// What a row without a list of its own stands for.
    enum Row : Key { all_lists = 0, create_list = -1 };

    list_list(Connection& connection, Drag& drag, QWidget* owner);

    /// Builds the rows from the table of lists. Throws SQLite::Exception.
    void list_fill();

    /// Marks the row of the list on show: a list's key, 0 all lists, below 0 none.
    void set_list(Key key);

    /// A list was made, renamed or deleted. A new name stays at its place until the rows are built again.
    void lists_changed(const ListsChange& change);

    /// Colours of the rows and their text.
    void set_page_color(const QColor& ground, const QColor& text);

    void set_type_size(int points); ///< 9, 10 or 12, any other as 9

    QSize sizeHint() const override; ///< what shows some lists and all of the status bar

signals:
    void list_wanted(tarnwick::Key list); ///< a click on a row: a list's key, 0 all lists
    void new_list_wanted();
    void item_dropped(tarnwick::Key item, tarnwick::Key list); ///< on a row, 0 that of all lists

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct ListRow {
        QFrame* frame;
        QLabel* picture;
        QLabel* label;
        Key key = create_list;
    };

    DragSign drag_over(const DragPayload& payload, QPoint position) override;
    void drag_left(const DragPayload& payload) override;
    void drop(const DragPayload& payload, QPoint position) override;
    void scroll_towards(int direction) override;

    void list_clear(size_t rows_left);
    void add_row();
    void fill_row(size_t index, Key key, const QString& name);
    void make_notice();
    void place_rows();
    void show_hint();
    void paint_row(const ListRow& row) const;
    void show_picture(const ListRow& row) const;
    void choose(Key key);
    void highlight(const ListRow* row);
    const ListRow* target_at(const DragPayload& payload,
                             QPoint position) const; ///< none where nothing can be dropped
    int row_of(const QObject* part) const; ///< index of the row that a widget belongs to; -1 none
    int rows_in_view() const;
    void focus_row(int index);

    Connection& connection_;
    QFrame* Frame1_;
    QScrollBar* VScroll1_;
    QFrame* frmCreateList_;
    QLabel* txtCreateList_;
    QStatusBar* StatusBar1_;
    std::vector<ListRow> rows_; ///< the first one is always there
    Key chosen_ = create_list;
    QFrame* highlighted_ = nullptr; ///< the row under a drag
    QColor ground_;
    QColor text_;
};

} // namespace tarnwick
