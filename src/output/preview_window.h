#pragma once

#include "household/page.h"

#include <QDialog>

#include <vector>

class QHBoxLayout;
class QPushButton;
class QScrollBar;

namespace tarnwick {

class PageSheet;

/// A modal window onto a page, with a row of buttons above it. The page lies in a frame and is moved by two scroll
/// bars, which are there only where the page is larger than the frame.
class PreviewWindow : public QDialog {
    Q_OBJECT
public:
    PreviewWindow(QWidget& owner, const QString& name, int points);
    ~PreviewWindow() override;

    void show_page(const Page& page); ///< shows the top left of a page where none was before

protected:
    /// The next button of the row, `Command1(index)`.
    QPushButton& add_button(const QString& caption, const QString& tool_tip = {});
    QHBoxLayout& button_row() { return *button_row_; }
    QPushButton& Command1(int index) const { return *buttons_.at(static_cast<size_t>(index)); }

    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void place_frame();
    void place_bars();
    void scroll();

    QWidget* owner_;
    QWidget* row_;
    QHBoxLayout* button_row_;
    std::vector<QPushButton*> buttons_;
    QWidget* frame2_;
    PageSheet* Frame1_;
    QScrollBar* HScroll1_;
    QScrollBar* VScroll1_;
    QWidget* fill_box_;
};

} // namespace tarnwick
