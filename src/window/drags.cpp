#include "window/drags.h"

#include "household/recipe_categories.h"
#include "household/recipe_store.h"
#include "household/status.h"
#include "lists/list_pane.h"
#include "lists/placing.h"
#include "recipes/page_drops.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_commands.h"
#include "stock/stock_clicks.h"
#include "stock/stock_tree.h"
#include "widgets/node_key.h"
#include "widgets/list_grid.h"
#include "widgets/tree_view.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "window/panes.h"

#include <QAbstractScrollArea>
#include <QScrollBar>

#include <utility>

namespace tarnwick {
namespace {

/// A tree or a grid. Ingredient lines have no place there.
class PaneTarget : public DragTarget {
public:
    PaneTarget(QAbstractScrollArea& pane, std::function<void(const DragPayload&, QPoint)> drop)
        : pane_(pane)
        , drop_(std::move(drop))
    {
    }

    DragSign drag_over(const DragPayload& payload, QPoint) override
    {
        return payload.kind == DragKind::ingredient_line ? DragSign::refused : DragSign::plain;
    }

    void drop(const DragPayload& payload, QPoint position) override
    {
        drop_(payload, pane_.viewport()->mapFrom(&pane_, position));
    }

    void scroll_towards(int direction) override
    {
        pane_.verticalScrollBar()->triggerAction(direction < 0 ? QAbstractSlider::SliderSingleStepSub
                                                               : QAbstractSlider::SliderSingleStepAdd);
    }

private:
    QAbstractScrollArea& pane_;
    std::function<void(const DragPayload&, QPoint)> drop_; ///< with a place in the viewport
};

/// A control beside the page: an ingredient line that comes here has left the page for good.
class OutsideTarget : public DragTarget {
public:
    DragSign drag_over(const DragPayload& payload, QPoint) override
    {
        return payload.kind == DragKind::ingredient_line ? DragSign::given_up : DragSign::plain;
    }
    void drop(const DragPayload&, QPoint) override { }
};

/// The folder that a drop on a row of a tree is for: itself or the one it stands in; none below the last row.
NodeKey folder_at(const TreeView& tree, QPoint position)
{
    const QTreeWidgetItem* node = tree.hit_test({0, position.y()});
    const NodeKey key = NodeKey::of(node);
    return key.is_item() || key.is_recipe() ? NodeKey::of(node->parent()) : key;
}

} // namespace

Drags::Drags(Program& program, const Panes& panes, Drag& drag, const QWidgetList& outside)
    : QObject(&program.window)
    , program_(program)
    , panes_(panes)
    , drag_(drag)
    , page_drops_(std::make_unique<PageDrops>(panes.recipe_page, program.household, drag))
{
    StockTree& stock = panes_.stock_tree;
    RecipeTree& recipes = panes_.recipe_tree;
    connect(&stock.clicks(), &StockClicks::drag_wanted, this,
            [this, &stock](const DragPayload& payload, QPoint global) {
                if (!panes_.recipe_page.editor_open())
                    drag_.begin(stock.view(), payload, global);
            });
    connect(&recipes, &RecipeTree::drag_wanted, this, [this, &recipes](const DragPayload& payload, QPoint global) {
        drag_.begin(recipes.view(), payload, global);
    });
    connect(page_drops_.get(), &PageDrops::item_dropped, this, &Drags::drop_on_page);
    add_pane(panes_.list_pane.grid(), [this](const DragPayload& payload, QPoint) { drop_on_grid(payload); });
    add_pane(stock.view(),
             [this](const DragPayload& payload, QPoint position) { drop_on_stock_tree(payload, position); });
    add_pane(recipes.view(),
             [this](const DragPayload& payload, QPoint position) { drop_on_recipe_tree(payload, position); });
    auto& beside = targets_.emplace_back(std::make_unique<OutsideTarget>());
    for (QWidget* widget : outside)
        drag_.add_target(*widget, *beside);
}

Drags::~Drags() = default;

void Drags::add_pane(QAbstractScrollArea& pane, const Drop& drop)
{
    drag_.add_target(pane, *targets_.emplace_back(std::make_unique<PaneTarget>(pane, drop)));
}

/// What is dragged may go while it is under way.
bool Drags::has_item(Key item) const
{
    return stock_item_name(program_.connection, item).has_value();
}

/// A recipe is not bought: dropped here it does nothing.
void Drags::drop_on_grid(const DragPayload& payload)
{
    if (payload.kind == DragKind::stock_item && has_item(payload.key))
        panes_.placing.stock_to_list(payload.key);
}

void Drags::drop_on_stock_tree(const DragPayload& payload, QPoint position)
{
    if (payload.kind != DragKind::stock_item || program_.shared.stock_alpha || !has_item(payload.key))
        return;
    const NodeKey folder = folder_at(panes_.stock_tree.view(), position);
    if (folder.is_category())
        panes_.stock_commands.mv_item(folder.record, payload.key);
}

void Drags::drop_on_recipe_tree(const DragPayload& payload, QPoint position)
{
    if (payload.kind != DragKind::recipe || program_.shared.recipe_alpha
        || !recipe_name(program_.connection, payload.key))
        return;
    const NodeKey folder = folder_at(panes_.recipe_tree.view(), position);
    if (folder.is_recipe_category())
        panes_.recipe_tree.mv_rcp(recipe_category(folder.record - 1), payload.key);
}

void Drags::drop_on_page(Key item, const QString& name, bool on_line)
{
    if (on_line)
        panes_.stock_tree.view().take_release_back();
    if (has_item(item))
        panes_.recipe_page.drag_ingred(item, name);
}

} // namespace tarnwick
