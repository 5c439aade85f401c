#pragma once

#include <QPlainTextEdit>

namespace tarnwick {

/// The instructions of the recipe page, `Text1`: plain text with the small helps for oven temperatures.
class PageText : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(int BorderStyle READ border_style WRITE set_border_style)
public:
    explicit PageText(QWidget* parent);

    /// The text with CR LF at its line ends, as it is stored.
    QString text() const;

    /// Replaces the text; no change of the user's.
    void set_text(const QString& text);

    bool is_blank() const; ///< nothing but blanks
    bool is_help_text() const; ///< the help text of an unwritten recipe

    struct Extent {
        qsizetype length; ///< characters, two for a line end
        int line_ends;
    };
    Extent extent() const; ///< of the text

    int border_style() const { return border_style_; } ///< 1 while the box invites input
    void set_border_style(int style);

    /// How much of the page is in view, pixels: as far the page keys go.
    void set_view_height(int height) { view_height_ = height; }

    /// Closed to typing with a hint on the empty box; an empty hint opens it again.
    void close_with(const QString& hint);

    /// Height that shows the whole text at the present width, pixels.
    int full_height() const;

    /// Upper and lower edge of the caret's row in the text, pixels from the top of an unscrolled box.
    int caret_top() const;
    int caret_bottom() const;

signals:
    void edited(); ///< a key went down, or the user changed the text
    void key_up();
    void left(); ///< the focus goes to another control of the window
    void up_from_top(); ///< the key Up in the first row
    void caret_moved(); ///< by the user, to a degree sign, or with the keyboard into the text

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override; // the page scrolls, not the box

    // A clipboard or selection without an owner hands out no data, or data without a text: the control itself
    // would read what is not there.
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void dropEvent(QDropEvent* event) override;

private:
    void empty_help_text();
    void text_changed();
    void fit_rows();
    bool go_a_view(const QKeyEvent& event);
    int row_height() const;
    int scrolled_pixels() const;
    void append_degree();
    bool take_back_degree();
    bool leaves_upward(const QKeyEvent& event) const;
    bool begins_step(const QString& typed) const;
    QString last_characters(int count) const;

    int border_style_ = 0;
    int view_height_ = 0;
    bool setting_ = false;
};

/// True for focus that goes to another control of the same window, not to a menu or another window.
bool leaves_control(Qt::FocusReason reason);

} // namespace tarnwick
