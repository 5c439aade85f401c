#pragma once

#include "widgets/drag.h"

#include <QFrame>
#include <QLabel>
#include <QTextLayout>
#include <QWidget>

namespace tarnwick {

/// How long a line of text on the page gets in a font, pixels: about 100 characters.
int widest_text(const QFont& font);

/// What the lines lie on. It shows which of them has the keyboard.
class PageGround : public QFrame {
public:
    using QFrame::QFrame;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The text of one ingredient line, `ingred(i)`: read-only, wrapped, with a row pitch of its own.
class IngredientText : public QLabel, public DragSource {
    Q_OBJECT
public:
    explicit IngredientText(QWidget* parent);

    void set_text(const QString& text);

    /// Distance of the rows and height of the first one, pixels.
    void set_pitch(int row, int first_row);

    /// Rows that the text takes in `width` pixels, none longer than `widest_text` of its font.
    int rows_in(int width);

    void set_text_color(const QColor& color);
    QColor text_color() const { return color_; }

    void set_selected(bool selected); ///< the whole text is marked, or nothing

    void drag_begun() override { dragged_ = true; }
    QFont drag_font() const override { return font(); }
    void drag_ended(DragEnd) override { }

signals:
    // Positions are pixels inside the line.
    void mouse_down(Qt::MouseButton button, QPoint position);
    /// Once for a press: the pointer has left its place, the left button alone down, for more than a click.
    void drag_wanted(QPoint global);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void keyboard_came(); ///< not by a press, nor with the window
    void key_down(int key); ///< Qt::Key, Key_Menu for the menu keys; Up and Down alone repeat

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void lay_out(int width);

    QTextLayout layout_;
    QColor color_ = Qt::black;
    int laid_out_width_ = -1;
    QPoint press_place_;
    bool pressed_ = false; ///< and not moved yet for more than a click
    bool dragged_ = false; ///< the release belongs to a drag
    int row_pitch_ = 16;
    int first_row_ = 20;
    bool selected_ = false;
};

/// A resource picture on the page: the light or the check box of a line. Clicked by the left button alone, released
/// where it was pressed.
class PagePicture : public QLabel {
    Q_OBJECT
public:
    explicit PagePicture(QWidget* parent);

    void set_picture(int resource_number);

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int picture_ = 0;
    bool pressed_ = false;
};

} // namespace tarnwick
