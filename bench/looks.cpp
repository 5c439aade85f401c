#include "looks.h"

#include "measure.h"
#include "window.h"

#include "dialogs/find_item.h"
#include "stock/stock_tree.h"
#include "widgets/tree_view.h"
#include "window/commands.h"
#include "window/find_window.h"
#include "window/layout.h"
#include "window/view_state.h"

#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace tarnwick::bench {
namespace {

constexpr const char* bare_find_query
    = "SELECT i1.key_id, i1.item, i1.cat FROM items_1 i1 WHERE i1.item LIKE '%er%' ORDER BY i1.cat, i1.item";

void load_both(Window& window)
{
    window->stock_tree().tv_load(false);
    window->list_pane().lv_load(window->shared.current_list);
    Window::settle();
}

/// What follows when the separator is let go; its moves are measured with the drags.
void measure_separator(Window& window)
{
    QFrame& bar = window->layout_manager().Frame1();
    const auto repaint = [&] {
        for (QWidget* part :
             {static_cast<QWidget*>(&window.grid()), static_cast<QWidget*>(&window->stock_tree().view())})
            part->grab();
    };
    int turn = 0;
    const double drop = median_ratio(
        15,
        [&] {
            QTest::keyClick(&bar, ++turn % 2 == 0 ? Qt::Key_Left : Qt::Key_Right);
            Window::settle();
        },
        repaint);
    print_ratio("the separator at another place, written : repaint of tree and grid", drop, 3);
}

} // namespace

void measure_find()
{
    Window window({9999, 200, 1, 10});
    show_find(window.main().program(), window.main().panes(), window.main().view_state(), FindKind::stock);
    auto* dialog = window->findChild<find_item*>(QStringLiteral("find_item"));
    auto* text = dialog->findChild<QLineEdit*>(QStringLiteral("Text1"));
    auto* button = dialog->findChild<QPushButton*>(QStringLiteral("Command1(0)"));
    const auto search = [&] {
        text->clear();
        text->setText(QStringLiteral("er"));
        button->click();
        Window::settle();
    };
    const auto query = [&] { take_all(window->connection(), bare_find_query); };
    print_ratio("Find over 9,999 items : bare LIKE query", median_ratio(9, search, query), 3);
    print_ratio("a step to the next match : bare LIKE query",
                median_ratio(
                    9,
                    [&] {
                        button->click();
                        Window::settle();
                    },
                    query),
                3);
}

void measure_looks()
{
    Window window({9999, 200, 1, 5000});
    const auto loads = [&] { load_both(window); };
    int turn = 0;
    const double color = median_ratio(
        9,
        [&] {
            window.main().view_state().set_color(++turn % 4);
            Window::settle();
        },
        loads);
    print_ratio("another page colour, 9,999 items, 5,000 rows : tv_load and lv_load", color, 2);
    const double size = median_ratio(
        9,
        [&] {
            window->view_state().size_cycle();
            Window::settle();
        },
        loads);
    print_ratio("another type size, 9,999 items, 5,000 rows : tv_load and lv_load", size, 2);
    measure_separator(window);
}

} // namespace tarnwick::bench
