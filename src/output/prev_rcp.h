#pragma once

#include "output/preview_window.h"

namespace tarnwick {

/// The preview of one page of a recipe. Its buttons only tell what is to come next and close the window.
class prev_rcp : public PreviewWindow {
    Q_OBJECT
    Q_PROPERTY(int page_no READ page_no)
    Q_PROPERTY(int page_count READ page_count)
public:
    enum class Wish { close, print, previous, next };

    prev_rcp(QWidget& owner, int points);

    /// Shows a page, counted from 1, and waits for a button.
    Wish ask(const Page& page, int page_no, int page_count);

    int page_no() const { return page_no_; }
    int page_count() const { return page_count_; }

private:
    /// The buttons in the order of their indices.
    enum Button { print, close_window, previous, next };

    int page_no_ = 1;
    int page_count_ = 1;
    Wish wish_ = Wish::close;
};

} // namespace tarnwick
