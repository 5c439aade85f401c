#include "output/prev_frm.h"

#include "widgets/window_title.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

/// The buttons in the order of their indices.
enum Button { first, previous, next, last, close_window, print };

} // namespace

prev_frm::prev_frm(QWidget& owner, int points, Request request)
    : PreviewWindow(owner, QStringLiteral("prev_frm"), points)
    , request_(std::move(request))
    , txt_pg_(new QLabel)
{
    set_window_title(*this, QStringLiteral("Preview: ") + request_.title);
    make_buttons();
    turn_to(std::clamp(request_.page_no, 1, request_.page_count));
}

void prev_frm::make_buttons()
{
    add_button(QStringLiteral("|<"), QStringLiteral("First page"));
    add_button(QStringLiteral("<"), QStringLiteral("Previous page"));
    add_button(QStringLiteral(">"), QStringLiteral("Next page"));
    add_button(QStringLiteral(">|"), QStringLiteral("Last page"));
    add_button(QStringLiteral("Close"));
    add_button(QStringLiteral("Print"));
    txt_pg_->setObjectName(QStringLiteral("txt_pg"));
    txt_pg_->setAlignment(Qt::AlignCenter);
    txt_pg_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    txt_pg_->setMinimumWidth(40);
    auto* of = new QLabel(QStringLiteral("of %1").arg(page_count()));

    QHBoxLayout& row = button_row();
    constexpr int narrow = 36;
    for (const Button index : {first, previous, next, last})
        Command1(index).setFixedWidth(narrow);
    row.addWidget(&Command1(first));
    row.addWidget(&Command1(previous));
    row.addWidget(txt_pg_);
    row.addWidget(of);
    row.addWidget(&Command1(next));
    row.addWidget(&Command1(last));
    row.addStretch();
    row.addWidget(&Command1(print));
    row.addWidget(&Command1(close_window));

    connect(&Command1(first), &QPushButton::clicked, this, [this] { turn_to(1); });
    connect(&Command1(previous), &QPushButton::clicked, this, [this] { turn_to(page_no_ - 1); });
    connect(&Command1(next), &QPushButton::clicked, this, [this] { turn_to(page_no_ + 1); });
    connect(&Command1(last), &QPushButton::clicked, this, [this] { turn_to(page_count()); });
    connect(&Command1(close_window), &QPushButton::clicked, this, &QDialog::reject);
    connect(&Command1(print), &QPushButton::clicked, this, [this] {
        request_.print(*this);
        accept();
    });
}

void prev_frm::turn_to(int page_no)
{
    page_no_ = page_no;
    txt_pg_->setText(QString::number(page_no));
    show_page(request_.page(page_no));
    pg_refresh();
}

void prev_frm::pg_refresh()
{
    for (const Button index : {next, last})
        Command1(index).setEnabled(page_no_ != page_count());
    for (const Button index : {first, previous})
        Command1(index).setEnabled(page_no_ != 1);
}

} // namespace tarnwick
