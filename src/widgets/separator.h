#pragma once

#include <QFrame>

namespace tarnwick {

/// The bar `Frame1` between the panes, with its drag shadow `frame2`. It reports what the user did; the
/// layout moves it.
class Separator : public QFrame {
    Q_OBJECT
public:
    static constexpr int bar_width = 6;
    static constexpr int left_limit = 160; ///< pixels from the left edge, where a drag stops

    explicit Separator(QWidget* area);

signals:
    void moved(int pixels); ///< the drag ended this far from where it began
    void limit_reached(); ///< the shadow came too near to the right edge: the drag is over
    void stepped(int pixels); ///< an arrow key

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void end_drag();

    QFrame* frame2_;
    bool dragging_ = false;
    int press_x_ = 0;
    int press_left_ = 0;
};

} // namespace tarnwick
