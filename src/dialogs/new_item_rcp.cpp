#include "dialogs/new_item_rcp.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "household/household.h"
#include "widgets/one_line_box.h"
#include "household/lists_store.h"
#include "household/recipe_categories.h"
#include "household/category_store.h"
#include "widgets/pictures.h"

#include <QComboBox>
#include <QFile>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarnwick {
namespace {

constexpr int icon_size = 32;
constexpr int text_width = 300;

} // namespace

new_item_rcp::new_item_rcp(Program& program, QWidget* owner, NamingRequest request)
    : QDialog(owner)
    , program_(program)
    , request_(request)
{
    setObjectName(QStringLiteral("new_item_rcp"));
    setModal(true);
    make_controls();
    place_controls();
    if (request_.dialog_kind == NamingKind::list)
        show_kind(QStringLiteral("New shopping list"), QStringLiteral("Enter a name for your shopping list"),
                  QStringLiteral("list.ico"));
    else if (request_.dialog_kind == NamingKind::category)
        show_kind(QStringLiteral("New stock category"), QStringLiteral("Enter a name for your stock category"),
                  QStringLiteral("fldr_1.ico"));
    else
        show_kind(QStringLiteral("New recipe"), QStringLiteral("Enter a name for your recipe"),
                  QStringLiteral("recipe.ico"));
    set_type_size();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void new_item_rcp::make_controls()
{
    Text1_ = new QLineEdit(this);
    Text1_->setObjectName(QStringLiteral("Text1"));
    Text1_->setAccessibleName(QStringLiteral("Name"));
    Text1_->setMinimumWidth(text_width);
    keep_one_line(*Text1_);
    Combo1_ = new QComboBox(this);
    Combo1_->setObjectName(QStringLiteral("Combo1"));
    Combo1_->setAccessibleDescription(QStringLiteral("Recipe category")); // its name is what is chosen
    for (int i = 0; i < 2; ++i) {
        Label1_[i] = new QLabel(this);
        Label1_[i]->setObjectName(QStringLiteral("Label1(%1)").arg(i));
        Picture1_[i] = new QLabel(this);
        Picture1_[i]->setObjectName(QStringLiteral("Picture1(%1)").arg(i));
        Picture1_[i]->setAccessibleName(QStringLiteral("Picture"));
        Command1_[i] = new QPushButton(i == 0 ? QStringLiteral("OK") : QStringLiteral("CANCEL"), this);
        Command1_[i]->setObjectName(QStringLiteral("Command1(%1)").arg(i));
    }
    Label1_[1]->setText(QStringLiteral("Select a recipe category:"));
    Command1_[0]->setDefault(true);
    Command1_[0]->setEnabled(false);
    connect(Text1_, &QLineEdit::textChanged, this,
            [this](const QString& text) { Command1_[0]->setEnabled(!trim(text).isEmpty()); });
    connect(Command1_[0], &QPushButton::clicked, this, &new_item_rcp::ok);
    connect(Command1_[1], &QPushButton::clicked, this, &QDialog::reject);
}

void new_item_rcp::place_controls()
{
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    for (QPushButton* button : Command1_)
        buttons->addWidget(button);

    auto* rows = new QGridLayout(this);
    rows->setContentsMargins(18, 16, 18, 16);
    rows->setHorizontalSpacing(14);
    rows->setVerticalSpacing(6);
    rows->addWidget(Picture1_[0], 0, 0, 2, 1, Qt::AlignTop);
    rows->addWidget(Label1_[0], 0, 1);
    rows->addWidget(Text1_, 1, 1);
    rows->setRowMinimumHeight(2, 6);
    if (request_.dialog_kind == NamingKind::recipe) {
        rows->addWidget(Picture1_[1], 3, 0, 2, 1, Qt::AlignTop | Qt::AlignHCenter);
        rows->addWidget(Label1_[1], 3, 1);
        rows->addWidget(Combo1_, 4, 1);
        rows->addLayout(buttons, 4, 2);
    } else {
        rows->addLayout(buttons, 3, 0, 1, 2, Qt::AlignHCenter);
    }
}

void new_item_rcp::show_kind(const QString& caption, const QString& prompt, const QString& icon)
{
    setWindowTitle(caption);
    Label1_[0]->setText(prompt);
    const QString file = program_.environment.icon_file(icon);
    const bool has_icon = QFile::exists(file);
    if (has_icon)
        Picture1_[0]->setPixmap(QIcon(file).pixmap(QSize(icon_size, icon_size), devicePixelRatioF()));
    Picture1_[0]->setVisible(has_icon);
    const bool recipe = request_.dialog_kind == NamingKind::recipe;
    if (recipe)
        fill_categories();
    Picture1_[1]->setVisible(recipe);
    Label1_[1]->setVisible(recipe);
    Combo1_->setVisible(recipe);
}

void new_item_rcp::fill_categories()
{
    for (const QString& caption : recipe_categories())
        Combo1_->addItem(caption);
    constexpr int folder_picture = 3;
    Picture1_[1]->setPixmap(list_image(ImageList::recipe_tree, folder_picture, devicePixelRatioF()));

    Combo1_->setCurrentIndex(request_.recipe_category);
}

void new_item_rcp::set_type_size()
{
    const int size = program_.shared.type_size == 9 ? 9 : 10;
    for (QWidget* control : {static_cast<QWidget*>(Label1_[0]), static_cast<QWidget*>(Label1_[1]),
                             static_cast<QWidget*>(Combo1_), static_cast<QWidget*>(Command1_[0]),
                             static_cast<QWidget*>(Command1_[1]), static_cast<QWidget*>(Text1_)}) {
        QFont font = control->font();
        font.setPointSize(size);
        control->setFont(font);
    }
}

void new_item_rcp::ok()
{
    QString name = Text1_->text();
    if (trim(name).isEmpty())
        return;
    strip_apostrophes(name);
    name = trim(name);
    Text1_->setText(name);
    bool done = false;
    if (request_.dialog_kind == NamingKind::list)
        done = ok_list(name);
    else if (request_.dialog_kind == NamingKind::category)
        done = ok_category(name);
    else
        done = ok_recipe(name);
    if (done)
        accept();
}

bool new_item_rcp::ok_list(const QString& name)
{
    if (list_name_taken(program_.connection, name)) {
        msg_box(this,
                QStringLiteral("There is already a list named \n") + name
                    + QStringLiteral(":\nPlease provide a different name\nfor your new list - or CANCEL"),
                box::information, QStringLiteral("Valora info"));
        return false;
    }
    made_ = program_.household.make_list(name, program_.today());
    return true;
}

bool new_item_rcp::ok_recipe(const QString& name)
{
    if (name.isEmpty())
        return false;
    const QString category = recipe_category(Combo1_->currentIndex());
    made_ = program_.household.make_recipe(name, category);
    return true;
}

bool new_item_rcp::ok_category(const QString& name)
{
    if (name.isEmpty())
        return false;
    if (category_name_taken(program_.connection, name)) {
        msg_box(this, QStringLiteral("There is already a stock \ncategory named ") + name, box::ok,
                QStringLiteral("Stock category"));
        return false;
    }
    made_ = program_.household.make_category(name);
    return true;
}

} // namespace tarnwick
