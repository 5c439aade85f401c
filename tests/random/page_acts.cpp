#include "random/acts.h"

#include "recipes/line_widgets.h"
#include "recipes/page_text.h"
#include "recipes/pick_list.h"
#include "recipes/recipe_page.h"
#include "window/frmmain.h"

#include <QFrame>
#include <QLineEdit>
#include <QScrollBar>

namespace tarnwick::random_use {
namespace {

/// A line of the page, scrolled into view; none when no page with lines is on show.
const IngredientLine* some_line(User& user)
{
    RecipePage& page = user.main().recipe_page();
    if (!page.frame4().isVisible() || page.lines().empty())
        return nullptr;
    const IngredientLine& line = page.lines()[static_cast<size_t>(user.below(page.next_index()))];
    const QRect place = line.ingred->geometry();
    page.show_stretch(place.top(), place.bottom());
    user.note(QStringLiteral("line %1 '%2'").arg(line.key).arg(line.text));
    return &line;
}

} // namespace

bool click_line(User& user)
{
    const IngredientLine* const line = some_line(user);
    if (!line)
        return false;
    const QPoint point(user.below(qMax(1, line->ingred->width())), line->ingred->height() / 2);
    user.click(*line->ingred, point, user.chance(85) ? Qt::LeftButton : Qt::RightButton);
    return true;
}

bool click_line_box(User& user)
{
    const IngredientLine* const line = some_line(user);
    if (!line)
        return false;
    user.click(*line->Check1, line->Check1->rect().center());
    return true;
}

bool click_title(User& user)
{
    RecipePage& page = user.main().recipe_page();
    if (!page.title().isVisible())
        return false;
    page.show_stretch(0, page.title().geometry().bottom());
    user.click(page.title(), page.title().rect().center());
    return true;
}

bool click_instructions(User& user)
{
    RecipePage& page = user.main().recipe_page();
    if (!page.Text1().isVisible())
        return false;
    const int top = page.Text1().geometry().top();
    page.show_stretch(top, top + 20);
    user.click(*page.Text1().viewport(), {10 + user.below(200), 10});
    return true;
}

bool pick_from_list(User& user)
{
    auto* const list = user.main().findChild<PickList*>(QStringLiteral("ListIngred"));
    if (!list || !list->isVisible() || list->count() == 0)
        return false;
    const QModelIndex row = list->model()->index(user.below(list->count()), 0);
    list->scrollTo(row);
    user.note(QStringLiteral("pick '%1'").arg(list->text(row.row())));
    user.click(*list->viewport(), list->visualRect(row).center());
    return true;
}

} // namespace tarnwick::random_use
