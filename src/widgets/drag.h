#pragma once

#include "data/text.h"

#include <QFont>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>

#include <vector>

class QLabel;
class QTimer;
class QWidget;

namespace tarnwick {

enum class DragKind { stock_item, recipe, ingredient_line };

/// What is dragged. The caption stands on the label beside the pointer.
struct DragPayload {
    DragKind kind = DragKind::stock_item;
    Key key = 0; ///< of the stock item, the recipe or the ingredient line
    QString caption;
};

/// What the pointer says over a place. Nothing is dropped where it says `refused`.
enum class DragSign {
    plain,
    refused,
    given_up ///< coming here ends the drag without a drop
};

/// How a drag ended.
enum class DragEnd {
    released, ///< the button was let go, over a target or beside
    cancelled ///< otherwise; the release may still come to the source
};

/// A place that things can be dropped on. Positions are in the coordinates of the widget it was registered with.
class DragTarget {
public:
    virtual ~DragTarget() = default;

    /// The pointer came here, or moved on here, or the place moved under it. Returns the sign it is to bear.
    virtual DragSign drag_over(const DragPayload& payload, QPoint position) = 0;

    /// The pointer went elsewhere, or the drag ended here, by a drop as well: what was marked goes.
    virtual void drag_left(const DragPayload& payload) { Q_UNUSED(payload) }

    /// The button was released here. The drag is over, and the mark of the target gone.
    virtual void drop(const DragPayload& payload, QPoint position) = 0;

    /// The pointer rests near the upper (below 0) or lower edge: some of what lies beyond is to come into view.
    virtual void scroll_towards(int direction) { Q_UNUSED(direction) }
};

/// Where a drag came from.
class DragSource {
public:
    virtual ~DragSource() = default;

    virtual void drag_begun() { }

    virtual QFont drag_font() const { return {}; } ///< of what is dragged, on the label

    /// The drag is over; a drop is still to do its work.
    virtual void drag_ended(DragEnd end) = 0;
};

/// The one drag that can run in the program, with the label beside the pointer. It ends at the release of the left
/// button; with no drop at Escape, when the button turns out to be released, when the window is left for another
/// program, and when a dialog or message opens.
class Drag : public QObject {
    Q_OBJECT
public:
    /// Pixels that a press has to move, in either direction, before it is a drag and no click: above 50 twips.
    static constexpr int least_distance = 4;

    explicit Drag(QWidget& form);
    ~Drag() override;

    /// Whether a pointer that moved this far since the press drags.
    static bool is_drag(QPoint moved);

    /// Drops inside the widget, its children included, are for this target. The innermost registered widget under
    /// the pointer counts. A widget that goes is forgotten; the target must outlive it.
    void add_target(QWidget& widget, DragTarget& target);

    /// Starts a drag at the pointer's place on the screen, the left button down. Ignored while one runs. The source
    /// must outlive it.
    void begin(DragSource& source, const DragPayload& payload, QPoint global);

    bool running() const { return source_ != nullptr; }

    void cancel(); ///< ends a running drag without a drop

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Place {
        QPointer<QWidget> widget;
        DragTarget* target;
    };
    QLabel& label() const;
    QLabel* make_label(const QString& name);
    void fill_label();
    QWidget* window_at(QPoint global) const;
    Place place_at(QPoint global) const;
    DragSign sign_at(const Place& place, QPoint global) const;
    void move_to(QPoint global);
    void enter(const Place& place);
    void show_sign(DragSign sign);
    void release(QPoint global);
    void stop();
    void scroll_at_edge();

    QWidget& form_;
    QLabel* drag_label_tree_;
    QLabel* drag_label_ingred_;
    QTimer* edge_timer_;
    std::vector<Place> places_;
    Place over_{};
    DragSource* source_ = nullptr;
    DragPayload payload_;
    QPoint pointer_; ///< on the screen
    int edge_rest_ = 0; ///< ticks that the pointer has been at an edge, below 0 at the upper one
};

} // namespace tarnwick
