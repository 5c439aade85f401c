#pragma once

#include <QWidget>

namespace tarnwick {

/// The bar `insert_ingred` that shows between which lines of the recipe page a dragged line will land.
class InsertMarker : public QWidget {
public:
    explicit InsertMarker(QWidget* parent);

    /// Shows the bar across a width, its middle at a height, whole within `bounds`. All in the parent's pixels.
    void show_at(int left, int middle, int width, const QRect& bounds);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarnwick
