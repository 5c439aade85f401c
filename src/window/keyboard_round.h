#pragma once

#include <QObject>

#include <vector>

class QWidget;

namespace tarnwick {

class KeyboardAsides;
struct Panes;
struct Program;
class Toolbar;

/// The way of the keyboard round the main window: F6 goes on from the tree to the list or page and to the boxes
/// that stand open there, Shift+F6 goes back; from the toolbar and the separator either goes back to where the
/// keyboard came from. A keyboard that nobody has, since what had it is gone, goes to the right pane.
class KeyboardRound : public QObject {
    Q_OBJECT
public:
    KeyboardRound(Program& program, const Panes& panes, Toolbar& toolbar, QWidget& separator);

    /// Where the right pane takes the keyboard: the grid, a line of the page or its instructions; null where a page
    /// shows nothing.
    QWidget* right_pane_place() const;

    /// Gives the keyboard to the right pane, or to the tree where the pane takes none.
    void go_to_right_pane();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// One stop of the round, none of them null; where the keyboard now is tells `is_here`.
    struct Stop {
        QWidget* place;
        bool is_here;
    };

    std::vector<Stop> stops() const;
    void move(int step);
    static void give_to(QWidget& place);
    void go_back();
    void look_after_keyboard();
    void take_up_keyboard();

    Program& program_;
    const Panes& panes_;
    KeyboardAsides* asides_;
};

} // namespace tarnwick
