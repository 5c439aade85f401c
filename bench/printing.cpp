#include "printing.h"

#include "measure.h"
#include "window.h"

#include "household/list_pages.h"
#include "output/paper.h"
#include "output/prev_frm.h"

#include <QPdfWriter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace tarnwick::bench {
namespace {

constexpr ReportOptions by_category_two_columns{ReportSort::by_category, 2, 0, 0};
constexpr ReportOptions by_category_one_column{ReportSort::by_category, 1, 0, 0};

constexpr const char* bare_query
    = "SELECT g.item, g.desc, g.qty, g.aisle, c.cat_desc, g.to_get, g.cpn, g.created"
      " FROM groc_1 g, cat c, tie t, items_1 i WHERE i.cat = c.key_id AND g.key_id = t.groc_id"
      " AND i.key_id = t.item_id AND t.list = ? ORDER BY c.cat_desc, g.item, g.key_id";

std::unique_ptr<ListPages> pages_of(Window& window, const ReportOptions& options)
{
    return std::make_unique<ListPages>(read_list_rows(window->connection(), 1, options), options,
                                       QStringLiteral("Weekly"), window->today());
}

/// The preview of a list's pages, shown.
std::unique_ptr<prev_frm> preview_of(Window& window, const ListPages& pages)
{
    auto shown = std::make_unique<prev_frm>(window.main(), 9,
                                            prev_frm::Request{QStringLiteral("Weekly list"), 1, pages.count(),
                                                              [&pages](int number) { return pages.page(number); },
                                                              [](QWidget&) {}});
    shown->show();
    Window::settle();
    return shown;
}

void press(prev_frm& preview, int button)
{
    auto* found = preview.findChild<QPushButton*>(QStringLiteral("Command1(%1)").arg(button));
    if (!found || !found->isEnabled())
        qFatal("the preview's button %d cannot be pressed", button);
    QTest::mouseClick(found, Qt::LeftButton);
    Window::settle();
}

/// One turn to the next page and one back.
std::function<void()> turning(prev_frm& preview)
{
    constexpr int previous = 1;
    constexpr int next = 2;
    return [&preview] {
        press(preview, next);
        press(preview, previous);
    };
}

std::function<void()> printing(Window& window, const QString& file)
{
    return [&window, file] {
        const Paper paper{[file] { return std::make_unique<QPdfWriter>(file); }, {}};
        const auto pages = pages_of(window, by_category_two_columns);
        if (!print_job(window.main(), paper, {QStringLiteral("Weekly"), 1, pages->count(), [&pages](int number) {
                                                  return pages->page(number);
                                              }}))
            qFatal("the list was not printed");
    };
}

} // namespace

void measure_printing()
{
    Window large({5000, 100, 1, 5000});
    Window half({5000, 100, 1, 2500});
    Window small({5000, 100, 1, 50});

    print_ratio("preview of 5,000 rows by category, first page : bare query",
                median_ratio(
                    9,
                    [&] {
                        const auto pages = pages_of(large, by_category_two_columns);
                        preview_of(large, *pages);
                    },
                    [&] { take_all(large->connection(), bare_query, 1); }),
                3);

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("list.pdf"));
    print_ratio("PDF of a list of 5,000 rows : of 2,500 rows",
                median_ratio(5, printing(large, file), printing(half, file)), 2.2);

    const auto many_pages = pages_of(large, by_category_one_column);
    const auto few_pages = pages_of(small, by_category_one_column);
    const auto many = preview_of(large, *many_pages);
    const auto few = preview_of(small, *few_pages);
    print_ratio("turning a page of a preview of " + std::to_string(many_pages->count()) + " pages : of "
                    + std::to_string(few_pages->count()),
                median_ratio(31, turning(*many), turning(*few)), 2);
}

} // namespace tarnwick::bench
