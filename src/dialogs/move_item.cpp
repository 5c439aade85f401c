#include "dialogs/move_item.h"

#include "widgets/dialog_font.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "household/recipe_categories.h"
#include "widgets/window_title.h"
#include "household/stock_store.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace tarnwick {
namespace {

/// A name that would carry the dialog beyond the screen is cut.
QString in_a_line(const QString& name)
{
    constexpr int longest = 80;
    return name.size() > longest ? name.left(longest) + QStringLiteral("...") : name;
}

} // namespace

move_item::move_item(const Program& program, const MoveRequest& request)
    : QDialog(&program.window)
{
    setObjectName(QStringLiteral("move_item"));
    setModal(true);
    set_dialog_font(*this, program.shared.type_size);
    make_controls();
    set_window_title(*this, QStringLiteral("Move ") + request.name);
    Label1_->setText(QStringLiteral("Move ") + in_a_line(request.name) + QStringLiteral(" from ")
                     + in_a_line(request.category_name) + QStringLiteral(" category to:"));
    if (request.move_stock)
        fill_stock_categories(program.connection, request.category);
    else
        fill_recipe_categories(request.category);
    Combo1_->setCurrentIndex(-1);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void move_item::make_controls()
{
    constexpr int combo_width = 280;
    constexpr int label_width = 340;
    Label1_ = new QLabel(this);
    Label1_->setObjectName(QStringLiteral("Label1"));
    Label1_->setTextFormat(Qt::PlainText);
    Label1_->setWordWrap(true);
    Label1_->setMinimumWidth(label_width);
    Combo1_ = new QComboBox(this);
    Combo1_->setObjectName(QStringLiteral("Combo1"));
    Combo1_->setAccessibleDescription(QStringLiteral("Category")); // its name is what is chosen
    Combo1_->setMinimumWidth(combo_width);
    Combo1_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (int i = 0; i < 2; ++i) {
        Command1_[i] = new QPushButton(i == 0 ? QStringLiteral("OK") : QStringLiteral("CANCEL"), this);
        Command1_[i]->setObjectName(QStringLiteral("Command1(%1)").arg(i));
    }
    Command1_[0]->setDefault(true);
    Command1_[0]->setEnabled(false);
    connect(Combo1_, &QComboBox::currentIndexChanged, this,
            [this](int index) { Command1_[0]->setEnabled(index >= 0); });
    connect(Command1_[0], &QPushButton::clicked, this, &move_item::ok);
    connect(Command1_[1], &QPushButton::clicked, this, &QDialog::reject);

    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(18, 16, 18, 16);
    rows->setVerticalSpacing(12);
    rows->addWidget(Label1_, 0, 0, 1, 3);
    rows->addWidget(Combo1_, 1, 0, 1, 3);
    rows->setColumnStretch(0, 1);
    rows->addWidget(Command1_[0], 2, 1);
    rows->addWidget(Command1_[1], 2, 2);
}

void move_item::fill_stock_categories(Connection& connection, Key own)
{
    for (const CatalogueFolder& category : read_categories(connection)) {
        if (category.key == own)
            continue;
        if (category.key == 0)
            Combo1_->insertItem(0, QStringLiteral("OTHER"), 0);
        else
            Combo1_->addItem(category.name, category.key);
    }
}

void move_item::fill_recipe_categories(Key own)
{
    const auto& captions = recipe_categories();
    for (int i = 0; i < captions.size(); ++i) {
        if (i + 1 != own)
            Combo1_->addItem(captions[i], i + 1);
    }
}

void move_item::ok()
{
    if (Combo1_->currentIndex() < 0)
        return;
    chosen_ = static_cast<Key>(Combo1_->currentData().toInt());
    accept();
}

} // namespace tarnwick
