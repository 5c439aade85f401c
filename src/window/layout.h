#pragma once

#include <QObject>
#include <QRect>

class QFrame;
class QTabBar;
class QWidget;

namespace tarnwick {

class frmmain;
class Separator;

/// Arranges the panes of the main window. All numbers are device-independent pixels; only the settings
/// hold twips, 15 to a pixel.
class Layout : public QObject {
    Q_OBJECT
public:
    static constexpr int twips_per_pixel = 15;

    Layout(frmmain& main, QWidget& area, QTabBar& left_tabs, QTabBar& right_tabs);

    QFrame& Frame1(); ///< the separator between the panes

    /// The separator's left edge in pixels, as restored from or written to the setting `seprtr`.
    int separator() const;
    void set_separator(int left); ///< moves the bar alone: no pane follows, nothing is written

    /// The window stands in its size. Until then a stored separator that leaves too little to the right pane is
    /// shown further left and comes back with a wider window; nothing is written.
    void set_settled() { settled_ = true; }

    void frm_refresh(); ///< the whole window from its present size
    void freize_refresh(); ///< the frame around the right pane
    void lv_resize(); ///< the grid, its columns and what lies over them

    /// Gives all panes their fonts of 9, 10 or 12 points, any other as 9, and lays the whole window out again.
    void font_reset(int type_size);

    /// The last step of the toolbar fit: where tab strips, header row and panes begin at this type size.
    void place_rows();

    /// Moves the separator left, and writes it, when the right pane would fall under 400 pixels. Not before the
    /// window is settled.
    void separator_fix();

    QRect left_pane() const; ///< tree rectangle in the central area
    QRect header_row() const; ///< header bar rectangle in the central area

private:
    class Ground;

    void frame_refresh(int right_pane_width);
    void join_panes(const QRect& right);
    void drag_to_limit();
    void drag_done(int moved);
    void separator_moved(int left);
    void write_separator();
    void place_left();
    void place_page();
    void set_own_fonts(int type_size);
    void set_command_fonts(int points);
    int grid_width(int separator_left) const;
    int fitted(int separator_left) const;
    int bounded(int separator_left) const;
    int pane_bottom() const;

    frmmain& main_;
    QWidget& area_;
    QTabBar& left_tabs_;
    QTabBar& right_tabs_;
    Separator* separator_;
    Ground* ground_;
    QFrame* freize_[4] = {};
    QRect tabs_row_;
    QRect header_;
    QRect right_;
    int stored_separator_ = 0;
    bool settled_ = false;
    bool in_refresh_ = false;
};

} // namespace tarnwick
