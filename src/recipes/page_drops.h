#pragma once

#include "widgets/drag.h"

#include <QObject>

namespace tarnwick {

class Household;
class InsertMarker;
class RecipePage;

/// What is dragged on the recipe page: its lines to other places among themselves, and stock items onto it.
class PageDrops : public QObject, private DragTarget {
    Q_OBJECT
public:
    /// All must outlive it.
    PageDrops(RecipePage& page, Household& household, Drag& drag);

signals:
    /// A stock item was dropped on the page, `on_line` on an ingredient line.
    void item_dropped(tarnwick::Key item, const QString& name, bool on_line);

private:
    DragSign drag_over(const DragPayload& payload, QPoint position) override;
    void drag_left(const DragPayload& payload) override;
    void drop(const DragPayload& payload, QPoint position) override;
    void scroll_towards(int direction) override;

    void start(int index, QPoint global);
    DragSign line_over(Key line, QPoint position);
    void show_marker();

    RecipePage& page_;
    Household& household_;
    Drag& drag_;
    InsertMarker* insert_ingred_;
    Key after_ = 0; ///< the line behind which the dragged one would land; 0 before the first
};

} // namespace tarnwick
