#pragma once

#include "widgets/drag.h"

#include <QObject>
#include <QWidgetList>

#include <functional>
#include <memory>
#include <vector>

class QAbstractScrollArea;

namespace tarnwick {

class PageDrops;
class TreeView;
struct Panes;
struct Program;

/// What can be dragged in the main window, and what a drop on its panes does.
class Drags : public QObject {
public:
    /// `outside`: what an ingredient line cannot be dragged across.
    Drags(Program& program, const Panes& panes, Drag& drag, const QWidgetList& outside);
    ~Drags() override;

private:
    using Drop = std::function<void(const DragPayload&, QPoint)>;
    void add_pane(QAbstractScrollArea& pane, const Drop& drop);
    void drop_on_grid(const DragPayload& payload);
    void drop_on_stock_tree(const DragPayload& payload, QPoint position);
    void drop_on_recipe_tree(const DragPayload& payload, QPoint position);
    void drop_on_page(Key item, const QString& name, bool on_line);
    bool has_item(Key item) const;

    Program& program_;
    const Panes& panes_;
    Drag& drag_;
    std::vector<std::unique_ptr<DragTarget>> targets_;
    std::unique_ptr<PageDrops> page_drops_;
};

} // namespace tarnwick
