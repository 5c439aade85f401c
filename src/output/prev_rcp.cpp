#include "output/prev_rcp.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace tarnwick {

prev_rcp::prev_rcp(QWidget& owner, int points)
    : PreviewWindow(owner, QStringLiteral("prev_rcp"), points)
{
    setWindowTitle(QStringLiteral("Preview recipe"));
    add_button(QStringLiteral("Print"));
    add_button(QStringLiteral("Close"));
    add_button(QStringLiteral("< Prev"));
    add_button(QStringLiteral("Next >"));
    QHBoxLayout& row = button_row();
    row.addWidget(&Command1(previous));
    row.addWidget(&Command1(next));
    row.addStretch();
    row.addWidget(&Command1(print));
    row.addWidget(&Command1(close_window));
    const auto wishes = {Wish::print, Wish::close, Wish::previous, Wish::next};
    int index = 0;
    for (const Wish wish : wishes) {
        connect(&Command1(index++), &QPushButton::clicked, this, [this, wish] {
            wish_ = wish;
            accept();
        });
    }
}

prev_rcp::Wish prev_rcp::ask(const Page& page, int page_no, int page_count)
{
    page_no_ = page_no;
    page_count_ = page_count;
    wish_ = Wish::close;
    show_page(page);
    Command1(previous).setEnabled(page_no > 1);
    Command1(next).setEnabled(page_no < page_count);
    exec();
    return wish_;
}

} // namespace tarnwick
