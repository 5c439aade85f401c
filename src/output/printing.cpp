#include "output/printing.h"

#include "household/list_pages.h"
#include "household/recipe_pages.h"
#include "household/status.h"
#include "output/paper.h"
#include "output/prev_frm.h"
#include "output/prev_rcp.h"
#include "widgets/message_box.h"

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

void tell_that_nothing_is_there(const PrintSource& source, QWidget& owner)
{
    ReportOptions all = source.options;
    const bool only_buy_it = all.active == 1;
    all.active = 0;
    if (only_buy_it && !read_list_rows(source.connection, source.list, all).empty())
        msg_box(&owner,
                QStringLiteral("There are no 'buy-it' items to print\n\nTip: To print ALL items, go to \n"
                               "       'Shopping lists / Print setup'\n"
                               "       on the menu bar and deselect\n"
                               "       the option marked 'buy-it' only"),
                box::information, QStringLiteral("Tarnwick"));
    else
        msg_box(&owner, QStringLiteral("No items to print"), box::ok, QStringLiteral("Valora info"));
}

void print_pages(const PrintSource& source, QWidget& owner, const ListPages& pages, const QString& title, int first)
{
    print_job(owner, source.paper,
              {title, first, pages.count(), [&pages](int number) { return pages.page(number); }});
}

void print_recipe_pages(const Paper& paper, QWidget& owner, const QString& title, const std::vector<Page>& pages)
{
    print_job(owner, paper, {trim(title), 1, static_cast<int>(pages.size()), [&pages](int number) {
                                 return pages.at(static_cast<size_t>(number - 1));
                             }});
}

bool may_leave_lines_out(QWidget& owner)
{
    return msg_box(&owner,
                   QStringLiteral("Recipes with more than 26 ingredients \n"
                                  "will print only the first 26 ingredients\n\n"
                                  "you may prefer to Cancel and open this recipe in your \n"
                                  "word processing application\n\n"
                                  "Click OK to continue anyway"),
                   box::ok_cancel, QStringLiteral("Tarnwick"))
        == Answer::ok;
}

/// Shows the pages one at a time. True when the user wants them printed.
bool preview_recipe(QWidget& owner, int points, const std::vector<Page>& pages)
{
    prev_rcp window(owner, points);
    const int count = static_cast<int>(pages.size());
    for (int number = 1;;) {
        switch (window.ask(pages.at(static_cast<size_t>(number - 1)), number, count)) {
        case prev_rcp::Wish::next:
            number = std::min(number + 1, count);
            break;
        case prev_rcp::Wish::previous:
            number = std::max(number - 1, 1);
            break;
        case prev_rcp::Wish::print:
            return true;
        case prev_rcp::Wish::close:
            return false;
        }
    }
}

} // namespace

void print_list_pages(const PrintSource& source, QWidget& owner, Key& page, bool preview)
{
    auto rows = read_list_rows(source.connection, source.list, source.options);
    if (rows.empty()) {
        tell_that_nothing_is_there(source, owner);
        page = no_more_pages;
        return;
    }
    const QString name = get_list_name(source.connection, source.list);
    const QString title = list_title(name);
    const ListPages pages(std::move(rows), source.options, name, source.today);
    if (preview) {
        prev_frm(owner, source.type_size,
                 {title, page, pages.count(), [&pages](int number) { return pages.page(number); },
                  [&](QWidget& window) { print_pages(source, window, pages, title, 1); }})
            .exec();
        page = no_more_pages;
    } else if (page <= pages.count()) {
        print_pages(source, owner, pages, title, std::max<int>(page, 1));
        page = static_cast<Key>(pages.count() + 1);
    }
}

void print_recipe(const Paper& paper, QWidget& owner, int type_size, const RecipeSheet& recipe, bool preview)
{
    if (recipe.lines.size() > most_printed_lines && !may_leave_lines_out(owner))
        return;
    const std::vector<Page> pages = recipe_pages(recipe);
    if (!preview || preview_recipe(owner, type_size, pages))
        print_recipe_pages(paper, owner, recipe.title, pages);
}

} // namespace tarnwick
