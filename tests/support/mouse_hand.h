#pragma once

#include "widgets/tree_view.h"

#include <QLabel>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace tarnwick {

/// A hand that drags with the left button: its events take the way of a real mouse, through the window of the
/// press, which keeps the mouse until the release.
class MouseHand {
public:
    /// Presses at a place of a widget.
    void press(QWidget& widget, QPoint place)
    {
        window_ = widget.window()->windowHandle();
        at_ = widget.mapToGlobal(place);
        QTest::mousePress(window_, Qt::LeftButton, {}, window_->mapFromGlobal(at_));
    }
    void press(TreeView& tree, const QString& key)
    {
        QTreeWidgetItem* node = tree.node(key);
        QVERIFY2(node, qPrintable(key));
        tree.ensure_visible(node);
        press(*tree.viewport(), {tree.text_rect(node).left() + 5, tree.text_rect(node).center().y()});
    }

    void move_by(QPoint pixels) { go(at_ + pixels); }

    /// Moves over a place of a widget: at first just out of the place of the press, then in a few steps.
    void move_to(const QWidget& widget, QPoint place)
    {
        const QPoint goal = widget.mapToGlobal(place);
        const QPoint way = goal - at_;
        const QPoint start = at_;
        go(start + QPoint(way.x() < 0 ? -4 : 4, 0));
        for (int step = 1; step <= 3; ++step)
            go(start + way * step / 3);
    }

    void release() { QTest::mouseRelease(window_, Qt::LeftButton, {}, window_->mapFromGlobal(at_)); }

    void drop_on(const QWidget& widget, QPoint place)
    {
        move_to(widget, place);
        release();
    }

private:
    void go(QPoint global)
    {
        at_ = global;
        QTest::mouseMove(window_, window_->mapFromGlobal(at_));
    }

    QWindow* window_ = nullptr;
    QPoint at_; ///< on the screen
};

} // namespace tarnwick
