#include "output/anti_vrs.h"

#include "widgets/dialog_font.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwick {
namespace {

// The slips of the pen in the two texts are the notice's own.
constexpr const char* texts[] = {
    "When you open a recipe or a shopping list in you word processing program (or your email application) your"
    " anti-virus appliction may interrupt with a warning.",
    "If your anti-virus interrupts to tell you it has detected a 'suspicious script' then it is working as it"
    " should. You may safely choose the 'continue entire script' or similar option.",
};

} // namespace

anti_vrs::anti_vrs(int type_size, QWidget* owner)
    : QDialog(owner)
    , Check1_(new QCheckBox(QStringLiteral("Do not show this warning in the future"), this))
{
    setObjectName(QStringLiteral("anti_vrs"));
    setWindowTitle(QStringLiteral("Anti-virus messages"));
    setModal(true);
    set_dialog_font(*this, type_size);
    Check1_->setObjectName(QStringLiteral("Check1"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    constexpr int characters_in_a_row = 64;
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(18, 16, 18, 16);
    rows->setSpacing(14);
    for (int i = 0; i < 2; ++i) {
        auto* label = new QLabel(QString::fromUtf8(texts[i]), this);
        label->setObjectName(QStringLiteral("Label1(%1)").arg(i));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setFixedWidth(fontMetrics().averageCharWidth() * characters_in_a_row);
        rows->addWidget(label);
    }
    rows->addWidget(Check1_);
    rows->addWidget(ok, 0, Qt::AlignRight);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    ok->setFocus();
}

bool anti_vrs::show_notice()
{
    exec();
    return Check1_->isChecked();
}

} // namespace tarnwick
