#pragma once

#include "household/page.h"

#include <QWidget>

namespace tarnwick {

/// A sheet of paper on the screen, as large as the page form. Its property `page` tells what is painted on it.
class PageSheet : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    void set_page(const Page& page);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Page page_;
};

} // namespace tarnwick
