#include "recipes/page_drops.h"

#include "household/household.h"
#include "recipes/insert_marker.h"
#include "recipes/line_editor.h"
#include "recipes/line_widgets.h"
#include "recipes/page_geometry.h"
#include "recipes/recipe_page.h"

#include <QFrame>
#include <QScrollBar>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int marker_indent = 3;
constexpr int above_first = 6; ///< pixels from a marker above the first line to that line

/// From the top of a line of one row to the marker below it.
int below_row(const IngredientText& row)
{
    return page_geometry::is_large(row.font().pointSize()) ? 20 : 19;
}

} // namespace

PageDrops::PageDrops(RecipePage& page, Household& household, Drag& drag)
    : page_(page)
    , household_(household)
    , drag_(drag)
    , insert_ingred_(new InsertMarker(page.frame4().parentWidget()))
{
    drag_.add_target(page_.frame4(), *this);
    connect(&page_.recipe_lines(), &RecipeLines::drag_wanted, this, &PageDrops::start);
}

/// A line under edit is finished first; where that is refused, nothing is dragged.
void PageDrops::start(int index, QPoint global)
{
    if (index >= page_.recipe_lines().count())
        return;
    const IngredientLine pressed = page_.lines()[static_cast<size_t>(index)];
    LineEditor& editor = page_.line_editor();
    editor.leave();
    if (editor.is_open() || pressed.text.isEmpty() || page_.recipe_lines().index_of(pressed.key) < 0)
        return;
    if (editor.lines_greyed())
        editor.blacken_lines();
    after_ = pressed.key;
    drag_.begin(*pressed.ingred, {DragKind::ingredient_line, pressed.key, pressed.text}, global);
}

DragSign PageDrops::drag_over(const DragPayload& payload, QPoint position)
{
    switch (payload.kind) {
    case DragKind::recipe:
        return DragSign::refused;
    case DragKind::ingredient_line:
        return line_over(payload.key, position);
    case DragKind::stock_item:
        break;
    }
    return DragSign::plain;
}

/// Over title and instructions the marker stays where it stood last.
DragSign PageDrops::line_over(Key line, QPoint position)
{
    const RecipeLines& lines = page_.recipe_lines();
    const QWidget* part = page_.frame4().childAt(position);
    if (lines.index_of(line) < 0 || qobject_cast<const PagePicture*>(part)) {
        insert_ingred_->hide();
        return DragSign::refused;
    }
    const auto& all = lines.lines();
    const auto over = std::find_if(all.begin(), all.end(), [part](const auto& l) { return l.ingred == part; });
    const bool between = !part || part == &page_.frame3();
    if (over != all.end())
        after_ = over->key;
    else if (between && page_.frame3().mapFrom(&page_.frame4(), position).y() < all.front().ingred->y())
        after_ = 0;
    show_marker();
    return DragSign::plain;
}

void PageDrops::show_marker()
{
    const RecipeLines& lines = page_.recipe_lines();
    const QRect view = page_.frame4().geometry();
    const int page_top = view.top() + page_.frame3().y();
    const int index = lines.index_of(after_);
    int middle = page_top + lines.lines().front().ingred->y() - above_first;
    if (after_ > 0 && index >= 0) {
        const IngredientText& line = *lines.lines()[static_cast<size_t>(index)].ingred;
        middle = page_top + line.y() + std::max(below_row(line), line.height());
    }
    insert_ingred_->show_at(view.left() + marker_indent, middle, view.width() - 2 * marker_indent, view);
}

void PageDrops::drag_left(const DragPayload&)
{
    insert_ingred_->hide();
}

void PageDrops::drop(const DragPayload& payload, QPoint position)
{
    if (payload.kind == DragKind::ingredient_line)
        household_.move_line(page_.page_key(), payload.key, after_);
    else if (payload.kind == DragKind::stock_item)
        emit item_dropped(payload.key, payload.caption,
                          qobject_cast<IngredientText*>(page_.frame4().childAt(position)) != nullptr);
}

void PageDrops::scroll_towards(int direction)
{
    page_.scroll_bar().triggerAction(direction < 0 ? QAbstractSlider::SliderSingleStepSub
                                                   : QAbstractSlider::SliderSingleStepAdd);
}

} // namespace tarnwick
