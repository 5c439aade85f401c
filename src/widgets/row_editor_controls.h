#pragma once

#include "widgets/row_editor.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QColor>
#include <QLineEdit>

#include <array>

namespace tarnwick {

/// A text box that seems to be its grid cell: no frame of its own but one line around the cell.
class CellBox : public QLineEdit {
public:
    CellBox(const QString& name, QWidget* parent);

    /// Background and text on it; the line around the cell is drawn in a darker shade.
    void set_page_color(const QColor& color);

    /// From now on a text that is too long stands in narrower type and, while nobody types in it, is cut behind the
    /// number that it begins with.
    void keep_number_whole();

    /// The cell it lies over, in pixels of its parent, and how far to the left it may grow while it has the
    /// keyboard and its text is too long for the cell even so. Without a cell it stays as it is.
    void set_cell(const QRect& cell, int leftmost);

    /// Whether the caret stands at the first or last place. A box that takes no typing stands at both
    /// while its whole text is marked.
    bool caret_at_start() const;
    bool caret_at_end() const;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool wholly_marked() const;
    QRect text_room() const;
    bool is_cut() const;
    void fit_type();
    void paint_number();

    QColor line_;
    QColor focus_line_;
    QRect cell_;
    int leftmost_ = 0;
    bool keeps_number_ = false;
    bool fitting_ = false;
};

/// A small button that is a picture, with another one while it is held where there is one. The
/// property `picture` is the number on show. It never takes the focus from the box it serves.
class PictureButton : public QAbstractButton {
public:
    PictureButton(const QString& name, QWidget* parent);

    void set_picture(int number) { set_pictures(number, number); }
    void set_pictures(int number, int held);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void show_picture();

    int number_ = 0;
    int held_ = 0;
};

/// The frame of pencil and cross: it ends a name that runs on behind it softly.
class EndFrame : public QWidget {
public:
    static constexpr int wide_fade = 8; ///< pixels

    EndFrame(const QString& name, QWidget* parent);

    /// The page colour, and the tint of the current row that the frame lies on.
    void set_colors(const QColor& page, const QColor& row);

    /// How many pixels at the left the name fades out in; 0 for none.
    void set_fade(int pixels);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor row_color_ = Qt::white;
    int fade_ = wide_fade;
};

/// The calendar with a line around it, since it floats over others' white ground.
class MonthView : public QCalendarWidget {
public:
    explicit MonthView(QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void take_colors();
};

} // namespace tarnwick
