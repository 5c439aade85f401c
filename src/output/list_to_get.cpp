#include "output/list_to_get.h"

#include "widgets/dialog_font.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace tarnwick {

list_to_get::list_to_get(int type_size, QWidget* owner)
    : QDialog(owner)
    , Check1_(new QCheckBox(QStringLiteral("List 'buy-it' (active) items only"), this))
{
    setObjectName(QStringLiteral("list_to_get"));
    setWindowTitle(QStringLiteral("Send list to word processor"));
    setModal(true);
    set_dialog_font(*this, type_size);
    Check1_->setObjectName(QStringLiteral("Check1"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("Command1(0)"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("CANCEL"), this);
    cancel->setObjectName(QStringLiteral("Command1(1)"));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    constexpr int least_width = 320;
    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(18, 16, 18, 16);
    rows->setVerticalSpacing(18);
    rows->addWidget(Check1_, 0, 0, 1, 3);
    rows->setColumnStretch(0, 1);
    rows->setColumnMinimumWidth(0, least_width - ok->sizeHint().width() - cancel->sizeHint().width());
    rows->addWidget(ok, 1, 1);
    rows->addWidget(cancel, 1, 2);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

RtfRows list_to_get::ask()
{
    if (exec() != Accepted)
        return RtfRows::cancelled;
    return Check1_->isChecked() ? RtfRows::buy_it : RtfRows::all;
}

} // namespace tarnwick
