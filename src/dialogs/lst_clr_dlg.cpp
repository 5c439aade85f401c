#include "dialogs/lst_clr_dlg.h"

#include "household/clearing_store.h"
#include "widgets/dialog_font.h"
#include "widgets/message_box.h"
#include "widgets/tool_tip.h"
#include "widgets/window_title.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <utility>

namespace tarnwick {
namespace {

constexpr int list_option = 3; ///< deletes the list itself; the options before it are the modes less one

} // namespace

lst_clr_dlg::lst_clr_dlg(QString list_name, int type_size, QWidget* owner)
    : QDialog(owner)
    , list_name_(std::move(list_name))
{
    setObjectName(QStringLiteral("lst_clr_dlg"));
    setModal(true);
    set_dialog_font(*this, type_size);
    set_window_title(*this, QStringLiteral("Clear ") + list_name_ + QStringLiteral(" list"));
    make_controls();
    Option1_[0]->setChecked(true);
    Option1_[0]->setFocus();
}

void lst_clr_dlg::make_controls()
{
    const std::array captions
        = {QStringLiteral("Clear (uncheck) all 'buy-it' items"), QStringLiteral("Delete all unchecked items"),
           QStringLiteral("Delete all items"), delete_caption()};
    auto* choices = new QVBoxLayout;
    choices->setSpacing(8);
    auto* group = new QButtonGroup(this);
    for (int i = 0; i < options; ++i) {
        auto* option = new QRadioButton(captions.at(static_cast<size_t>(i)), this);
        option->setObjectName(QStringLiteral("Option1(%1)").arg(i));
        group->addButton(option, i);
        choices->addWidget(option, 0, Qt::AlignLeft);
        Option1_.at(static_cast<size_t>(i)) = option;
    }
    Option1_[list_option]->setToolTip(plain_tool_tip(list_name_));

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    const std::array texts = {QStringLiteral("OK"), QStringLiteral("CANCEL")};
    std::array<QPushButton*, 2> Command1{};
    for (size_t i = 0; i < Command1.size(); ++i) {
        Command1.at(i) = new QPushButton(texts.at(i), this);
        Command1.at(i)->setObjectName(QStringLiteral("Command1(%1)").arg(i));
        buttons->addWidget(Command1.at(i));
    }
    Command1[0]->setDefault(true);
    connect(Command1[0], &QPushButton::clicked, this, &lst_clr_dlg::ok);
    connect(Command1[1], &QPushButton::clicked, this, &QDialog::reject);

    constexpr int least_width = 300;
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(18, 16, 18, 16);
    rows->setSpacing(18);
    rows->addLayout(choices);
    rows->addLayout(buttons);
    rows->addStrut(least_width);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

/// What the option of the list itself reads; a name that no dialog has room for is cut in its middle.
QString lst_clr_dlg::delete_caption() const
{
    constexpr int most_characters = 60;
    const QString name
        = fontMetrics().elidedText(list_name_, Qt::ElideMiddle, most_characters * fontMetrics().averageCharWidth());
    return QStringLiteral("Delete ") + QString(name).replace(u'&', QLatin1String("&&")) + QStringLiteral(" List");
}

void lst_clr_dlg::ok()
{
    if (Option1_[list_option]->isChecked())
        emit delete_wanted();
    else if (Option1_[0]->isChecked())
        emit clear_wanted(ClearMode::uncheck);
    else if (Option1_[1]->isChecked() && is_sure(QStringLiteral("unchecked items")))
        emit clear_wanted(ClearMode::delete_unchecked);
    else if (Option1_[2]->isChecked() && is_sure(QStringLiteral("items")))
        emit clear_wanted(ClearMode::delete_all);
    else
        return;
    accept();
}

bool lst_clr_dlg::is_sure(const QString& what)
{
    return msg_box(this,
                   QStringLiteral("Are you sure you want to\n\nDELETE ALL %1 from\n\nthe ").arg(what) + list_name_
                       + QStringLiteral(" list?"),
                   box::ok_cancel | box::stop, QStringLiteral("Warning"))
        == Answer::ok;
}

} // namespace tarnwick
