#include "dialogs/find_item.h"

#include "household/find_store.h"
#include "widgets/dialog_font.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace tarnwick {

find_item::find_item(Connection& connection, int points, QWidget* owner)
    : QDialog(owner)
    , connection_(connection)
{
    setObjectName(QStringLiteral("find_item"));
    setWindowTitle(QStringLiteral("Find Item"));
    setModal(false);
    make_controls();
    set_type_size(points);
    place_controls();
    connect(Text1_, &QLineEdit::textChanged, this, &find_item::text_changed);
    for (QRadioButton* option : Option1_)
        connect(option, &QRadioButton::clicked, this, &find_item::ready);
    connect(Command1_[0], &QPushButton::clicked, this, &find_item::press);
    connect(Command1_[1], &QPushButton::clicked, this, &QDialog::close);
    text_changed();
}

void find_item::make_controls()
{
    Label1_ = new QLabel(QStringLiteral("Find:"), this);
    Label1_->setObjectName(QStringLiteral("Label1"));
    Text1_ = new QLineEdit(this);
    Text1_->setObjectName(QStringLiteral("Text1"));
    Text1_->setMinimumWidth(260);
    Label1_->setBuddy(Text1_);
    Label2_ = new QLabel(QStringLiteral(" "), this);
    Label2_->setObjectName(QStringLiteral("Label2"));

    const QString options[] = {QStringLiteral("Search stock for (words in) items"),
                               QStringLiteral("Search recipes for (words in) titles")};
    const QString commands[] = {QStringLiteral("FIND NOW"), QStringLiteral("CLOSE")};
    for (int i = 0; i < 2; ++i) {
        Option1_[i] = new QRadioButton(options[i], this);
        Option1_[i]->setObjectName(QStringLiteral("Option1(%1)").arg(i));
        Command1_[i] = new QPushButton(commands[i], this);
        Command1_[i]->setObjectName(QStringLiteral("Command1(%1)").arg(i));
    }
    Option1_[0]->setChecked(true);
    Command1_[0]->setDefault(true);
    Command1_[1]->setAutoDefault(false);
}

void find_item::set_type_size(int points)
{
    set_dialog_font(*this, points);
    // The button keeps its width when its words change.
    Command1_[0]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("FIND NEXT")) + 32);
}

void find_item::place_controls()
{
    constexpr int gap = 10;
    auto* frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* options = new QVBoxLayout(frame);
    options->setContentsMargins(0, 0, 0, 0);
    options->addWidget(Option1_[0]);
    options->addWidget(Option1_[1]);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(gap);
    buttons->addStretch();
    buttons->addWidget(Command1_[0]);
    buttons->addWidget(Command1_[1]);

    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(16, 14, 16, 14);
    rows->setVerticalSpacing(gap);
    rows->addWidget(Label1_, 0, 0);
    rows->addWidget(Text1_, 0, 1);
    rows->addWidget(frame, 1, 1);
    rows->addLayout(buttons, 2, 0, 1, 2);
    rows->addWidget(Label2_, 3, 0, 1, 2);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

void find_item::search(FindKind kind)
{
    Option1_[kind == FindKind::stock ? 0 : 1]->setChecked(true);
    ready();
    Text1_->setFocus();
    Text1_->selectAll();
}

FindKind find_item::kind() const
{
    return Option1_[0]->isChecked() ? FindKind::stock : FindKind::recipes;
}

void find_item::text_changed()
{
    ready();
    Label2_->setText(QStringLiteral(" "));
}

/// Ready for a new search; a blank text never gets that far.
void find_item::ready()
{
    stepping_ = false;
    found_pos_ = 0;
    Command1_[0]->setText(QStringLiteral("FIND NOW"));
    Command1_[0]->setEnabled(!trim(Text1_->text()).isEmpty());
    Label2_->clear();
}

void find_item::press()
{
    bool allowed = true;
    emit leaving(allowed);
    if (!allowed)
        return;
    if (stepping_)
        find_next();
    else
        find_now();
}

void find_item::find_now()
{
    Text1_->setText(trim(Text1_->text()));
    const FindKind wanted = kind();
    const QString text = Text1_->text();
    found_keys_ = wanted == FindKind::stock ? find_items(connection_, text) : find_recipes(connection_, text);
    found_pos_ = 0;
    if (found_keys_.empty()) {
        Label2_->setText(wanted == FindKind::stock ? QStringLiteral("Item not found")
                                                   : QStringLiteral("Recipe not found"));
        Command1_[0]->setEnabled(false);
        return;
    }
    emit kind_found(wanted);
    show_match(0);
    const bool one = found_keys_.size() == 1;
    const QString noun = wanted == FindKind::stock ? QStringLiteral("item") : QStringLiteral("recipe");
    Label2_->setText(one ? QStringLiteral("1 ") + noun + QStringLiteral(" found") : result_of(0));
    if (one)
        return;
    stepping_ = true;
    Command1_[0]->setText(QStringLiteral("FIND NEXT"));
}

/// A match that has gone since the search is passed over.
void find_item::find_next()
{
    do {
        ++found_pos_;
    } while (!show_match(found_pos_) && found_pos_ + 1 < found_keys_.size());
    Label2_->setText(result_of(found_pos_));
    if (found_pos_ + 1 >= found_keys_.size())
        Command1_[0]->setEnabled(false);
}

bool find_item::show_match(size_t position)
{
    bool shown = true;
    emit match(kind(), found_keys_[position], shown);
    return shown;
}

QString find_item::result_of(size_t position) const
{
    return QString::number(position + 1) + QStringLiteral(" of ") + QString::number(found_keys_.size())
        + (kind() == FindKind::stock ? QStringLiteral(" items found") : QStringLiteral(" recipes found"));
}

} // namespace tarnwick
