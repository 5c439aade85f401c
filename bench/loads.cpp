#include "loads.h"

#include "catalogue.h"
#include "measure.h"
#include "window.h"

#include "window/frmmain.h"
#include "data/query.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "lists/placing.h"
#include "widgets/row_editor.h"
#include "household/row_store.h"
#include "widgets/tree_view.h"
#include "household/item_store.h"
#include "dialogs/l_item_edit.h"
#include "stock/stock_tree.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <chrono>
#include <memory>

namespace tarnwick::bench {
namespace {

void load_list(Window& window, Key list)
{
    window->list_pane().lv_load(list);
    Window::settle();
}

constexpr const char* bare_list_query
    = "SELECT g.key_id, g.item, g.desc, g.qty, g.aisle, g.to_get, g.cpn, g.created, t.item_id, t.list"
      " FROM groc_1 g, tie t WHERE t.groc_id = g.key_id AND t.list = ? ORDER BY g.item, g.key_id";

/// The time of one placing in microseconds, without its commit: median of placings that are all taken back.
double placing_time(Window& window, int items)
{
    using clock = std::chrono::steady_clock;
    constexpr int placings = 31;
    std::vector<double> times;
    {
        const Transaction outer(window->connection());
        for (int i = 1; i <= placings; ++i) {
            Placement placement;
            placement.list_key = window->shared.current_list;
            placement.item_key = static_cast<Key>(i * (items / (placings + 1)));
            placement.created = window->today();
            placement.modified = window->today();
            const auto began = clock::now();
            window->placing().add_item(placement);
            Window::settle();
            times.push_back(std::chrono::duration<double, std::micro>(clock::now() - began).count());
        }
    }
    load_list(window, window->shared.current_list);
    return median(times);
}

QLineEdit& description_box(Window& window)
{
    ListGrid& grid = window.grid();
    const QRect cell = grid.cell_rect(grid.top_row(), GridColumn::item);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.viewport()->mapFrom(grid.parentWidget(), cell.center()));
    Window::settle();
    auto* box = grid.parentWidget()->findChild<QLineEdit*>(QStringLiteral("desc_brdr"));
    if (!box || !box->isVisible())
        qFatal("the row editor did not open");
    return *box;
}

std::function<void()> keystroke_in(QLineEdit& box)
{
    return [&box] {
        QTest::keyClick(&box, box.text().size() > 20 ? Qt::Key_Backspace : Qt::Key_A);
        Window::settle();
    };
}

} // namespace

void measure_tree_load()
{
    Window window({9999, 200, 1, 10});
    const double ratio = median_ratio(
        9,
        [&] {
            window->stock_tree().tv_load(false);
            Window::settle();
        },
        [&] { take_all(window->connection(), "SELECT key_id, item, cat, status FROM items_1 ORDER BY item"); });
    print_ratio("tv_load with 9,999 items : bare item query", ratio, 6);
}

void measure_list_load()
{
    Window ten({9999, 200, 1, 10000});
    Window twenty({9999, 200, 1, 20000});
    const double against_query = median_ratio(
        9, [&] { load_list(ten, 1); }, [&] { take_all(ten->connection(), bare_list_query, 1); });
    const double against_half = median_ratio(
        9, [&] { load_list(twenty, 1); }, [&] { load_list(ten, 1); });
    print_ratio("lv_load of 10,000 rows : bare list query", against_query, 4);
    print_ratio("lv_load of 20,000 rows : of 10,000 rows", against_half, 2.2);
}

void measure_placing()
{
    constexpr int items = 5000;
    Window large({items, 100, 1, 5000});
    Window small({items, 100, 1, 50});
    std::vector<double> ratios;
    for (int i = 0; i < 5; ++i) {
        const double unit = placing_time(small, items);
        ratios.push_back(placing_time(large, items) / unit);
    }
    print_ratio("placing an item on a list of 5,000 rows : of 50 rows, without the commit", median(ratios), 3);
}

void measure_keystroke()
{
    constexpr int strokes = 41;
    Window large({9999, 200, 1, 10000});
    Window small({9999, 200, 1, 10});
    QLineEdit& large_box = description_box(large);
    QLineEdit& small_box = description_box(small);
    print_ratio("keystroke in the description box with 10,000 rows : with 10 rows",
                median_ratio(strokes, keystroke_in(large_box), keystroke_in(small_box)), 2);

    Connection& connection = large->connection();
    const Key row = large.grid().rows().row(0).groc_key;
    int number = 0;
    SQLite::Statement bare(connection.db(), "UPDATE groc_1 SET desc = ? WHERE key_id = ?");
    const double write = median_ratio(
        strokes, [&] { write_row_field(connection, row, RowField::desc, QStringLiteral("some %1").arg(++number)); },
        [&] {
            bare.bind(1, "some " + std::to_string(++number));
            bare.bind(2, static_cast<int>(row));
            bare.exec();
            bare.reset();
        });
    print_ratio("the keystroke's write : bare prepared UPDATE with the same settings", write, 1.5);
}

namespace {

/// What the item editor has to read, by the shortest way.
void query_for_editor(Connection& connection, int item)
{
    take_all(connection, "SELECT i1.cat, i1.item FROM items_1 i1 WHERE i1.key_id = ?", item);
    take_all(connection, "SELECT ln.list_name, ln.key_id FROM list_name ln");
    take_all(connection,
             "SELECT t.list, g1.key_id, g1.desc, g1.to_get, g1.qty, g1.cpn, g1.created, g1.aisle"
             " FROM tie t, groc_1 g1 WHERE t.groc_id = g1.key_id AND t.item_id = ?",
             item);
    take_all(connection, "SELECT key_id, cat_desc FROM cat WHERE key_id > 0 ORDER BY cat_desc");
}

/// Shows a dialog of a size like the editor's, without anything in it or with controls of Qt's own in it.
void show_dialog(QWidget& owner, bool with_controls)
{
    QDialog dialog(&owner);
    if (with_controls) {
        auto* rows = new QVBoxLayout(&dialog);
        rows->addWidget(new QLineEdit(&dialog));
        rows->addWidget(new QComboBox(&dialog));
        rows->addWidget(new QTableWidget(200, 6, &dialog));
        for (int button = 0; button < 3; ++button)
            rows->addWidget(new QPushButton(QStringLiteral("OK"), &dialog));
    }
    dialog.resize(700, 450);
    dialog.show();
    Window::settle();
}

} // namespace

void measure_item_editor()
{
    Window window({500, 20, 200, 50});
    Query most(window->connection(), "SELECT item_id FROM tie GROUP BY item_id ORDER BY count(*) DESC LIMIT 1");
    if (!most.next())
        qFatal("no item is on a list");
    const int item = most.number(0);
    most.reset();
    const auto open_editor = [&] {
        l_item_edit editor(window.main().program(), {EditMode::edit_item, static_cast<Key>(item)});
        editor.show();
        Window::settle();
    };
    for (const bool with_controls : {false, true}) {
        const double ratio = median_ratio(15, open_editor, [&] {
            query_for_editor(window->connection(), item);
            show_dialog(window.main(), with_controls);
        });
        print_ratio(with_controls ? "opening the item editor with 200 lists : bare queries, plain controls"
                                  : "opening the item editor with 200 lists : bare queries, empty dialog",
                    ratio, 3);
    }
}

} // namespace tarnwick::bench
