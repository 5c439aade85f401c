#include "recipes.h"

#include "measure.h"
#include "window.h"

#include "data/query.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "window/view_state.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QLineEdit>
#include <QTest>
#include <QTextLayout>

#include <cstdio>
#include <string>

namespace tarnwick::bench {
namespace {

constexpr int long_recipe = 1;
constexpr int long_recipe_lines = 60;

void add_recipes(Connection& connection, int count)
{
    Transaction transaction(connection);
    for (int key = 1; key <= count; ++key)
        Query(connection, "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (?, ?, 'Stir.', ?)", key,
              QStringLiteral("Dish %1 of the house").arg(key * 7919 % 10007),
              QStringLiteral("%1").arg(key % 15 + 1, 2, 10, QLatin1Char('0')))
            .run();
    transaction.commit();
}

/// Every second line is linked to a stock item.
void add_lines(Connection& connection)
{
    Transaction transaction(connection);
    for (int line = 1; line <= long_recipe_lines; ++line)
        Query(connection,
              "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
              " SELECT ?, ?, iif(? % 2, key_id, -1), item, '1 1/2', 'cup', 'finely chopped', ?"
              " FROM items_1 WHERE key_id = ?",
              line, long_recipe, line, line - 1, line)
            .run();
    transaction.commit();
}

/// What the page has to read, by the shortest way.
void query_for_page(Connection& connection)
{
    take_all(connection,
             "SELECT measure, qty, item, r_ref, item_ref, comment, key_id, \"order\" FROM recipe_2"
             " WHERE r_ref = ? ORDER BY \"order\"",
             long_recipe);
    take_all(connection, "SELECT r_name, r_body, key_id FROM recipe_1 WHERE key_id = ?", long_recipe);
    for (int item = 1; item <= long_recipe_lines; item += 2) {
        take_all(connection,
                 "SELECT i.item, c.cat_desc FROM items_1 i, cat c WHERE c.key_id = i.cat AND i.key_id = ?", item);
        take_all(
            connection,
            "SELECT count(*), total(g1.to_get) FROM groc_1 g1, tie t WHERE t.groc_id = g1.key_id AND t.item_id = ?",
            item);
    }
}

void lay_out_bare_texts(const QFont& font, int width)
{
    for (int line = 1; line <= long_recipe_lines; ++line) {
        QTextLayout layout(QStringLiteral("1 1/2 cup of ingredient number %1 finely chopped").arg(line), font);
        layout.beginLayout();
        for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine())
            row.setLineWidth(width);
        layout.endLayout();
    }
}

/// The item box of a new line with a letter typed and its pick list open; none without the keyboard focus.
QLineEdit* item_box(Window& window)
{
    window->recipe_page().add_ns_ingred();
    Window::settle();
    auto* box = window->findChild<QLineEdit*>(QStringLiteral("ing_flt_txtItem"));
    if (!box || !box->isVisible())
        qFatal("the line editor did not open");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_B);
    Window::settle();
    const auto* list = window->findChild<QWidget*>(QStringLiteral("ListIngred"));
    if (!box->hasFocus() || !list || !list->isVisible())
        return nullptr;
    return box;
}

} // namespace

void measure_recipe_tree()
{
    Window window({500, 20, 1, 50});
    add_recipes(window->connection(), 5000);
    const double ratio = median_ratio(
        9,
        [&] {
            window->recipe_tree().recip_load(false);
            Window::settle();
        },
        [&] {
            take_all(window->connection(),
                     "SELECT r.r_name, r.key_id, r.cat FROM recipe_1 r WHERE r.key_id > 0 ORDER BY r_name");
        });
    print_ratio("recip_load with 5,000 recipes : bare query", ratio, 6);
}

void measure_recipe_page()
{
    Window window({500, 20, 5, 50});
    add_recipes(window->connection(), 20);
    add_lines(window->connection());
    window->recipe_tree().recip_load(false);
    window->recipe_page().set_recipe(long_recipe);
    window->view_state().show_list_pane(false);
    Window::settle();
    const double ratio = median_ratio(
        25, [&] { window->recipe_page().set_recipe(long_recipe); },
        [&] {
            query_for_page(window->connection());
            lay_out_bare_texts(window->font(), 500);
        });
    print_ratio("set_recipe of 60 lines : bare queries and 60 bare wrapped texts", ratio, 4);
}

void measure_item_keystroke()
{
    Window window({9999, 200, 1, 10});
    add_recipes(window->connection(), 20);
    add_lines(window->connection());
    window->recipe_page().set_recipe(long_recipe);
    window->view_state().show_list_pane(false);
    Window::settle();
    QLineEdit* box = item_box(window);
    if (!box) {
        std::puts("keystroke in the item box: not measured, the window has no keyboard focus here");
        return;
    }
    SQLite::Statement query(window->connection().db(),
                            "SELECT key_id, item FROM items_1 WHERE item LIKE ? ORDER BY item");
    const double ratio = median_ratio(
        41,
        [&] {
            QTest::keyClick(box, box->text().size() > 2 ? Qt::Key_Backspace : Qt::Key_R);
            Window::settle();
        },
        [&] {
            query.bind(1, box->text().toStdString() + "%");
            while (query.executeStep())
                QString::fromUtf8(query.getColumn(1).getText(""));
            query.reset();
        });
    print_ratio("keystroke in the item box with 9,999 items : bare LIKE query", ratio, 3);
}

} // namespace tarnwick::bench
