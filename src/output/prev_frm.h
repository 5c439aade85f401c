#pragma once

#include "output/preview_window.h"

#include <functional>

class QLabel;

namespace tarnwick {

/// The preview of a shopping list: turns its pages and prints them.
class prev_frm : public PreviewWindow {
    Q_OBJECT
    Q_PROPERTY(int page_no READ page_no)
    Q_PROPERTY(int page_count READ page_count)
public:
    struct Request {
        QString title; ///< of the list
        int page_no = 1; ///< the page first shown
        int page_count = 1;
        std::function<Page(int)> page; ///< lays out a page, from 1 to the count
        std::function<void(QWidget&)> print; ///< prints all pages; the window owns what it asks
    };

    prev_frm(QWidget& owner, int points, Request request);

    int page_no() const { return page_no_; }
    int page_count() const { return request_.page_count; }

    void pg_refresh(); ///< enables the buttons of the pages there are before and after

private:
    void make_buttons();
    void turn_to(int page_no);

    Request request_;
    int page_no_ = 1;
    QLabel* txt_pg_;
};

} // namespace tarnwick
