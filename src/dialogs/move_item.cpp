#include "dialogs/move_item.h"

#include "window/frmmain.h"
#include "household/recipe_categories.h"
#include "recipes/recipe_tree.h"
#include "widgets/tree_view.h"
#include "widgets/window_title.h"
#include "stock/stock_commands.h"
#include "household/stock_store.h"
#include "stock/stock_tree.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace tarnwick {

move_item::move_item(frmmain& main, MoveRequest request, const QTreeWidgetItem& node)
    : QDialog(&main)
    , main_(main)
    , request_(request)
{
    setObjectName(QStringLiteral("move_item"));
    setModal(true);
    make_controls();
    const QTreeWidgetItem& folder = *node.parent();
    set_window_title(*this, QStringLiteral("Move ") + node.text(0));
    Label1_->setText(QStringLiteral("Move ") + node.text(0) + QStringLiteral(" from ") + folder.text(0)
                     + QStringLiteral(" category to:"));
    if (request_.move_stock)
        fill_stock_categories(folder);
    else
        fill_recipe_categories(folder);
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
    Combo1_->setMinimumWidth(combo_width);
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

    QFont dialog_font = font();
    dialog_font.setPointSize(main_.shared.type_size == 9 ? 9 : 10);
    setFont(dialog_font);
}

void move_item::fill_stock_categories(const QTreeWidgetItem& folder)
{
    const Key own = record_key(TreeView::key(&folder));
    for (const CatalogueFolder& category : read_categories(main_.connection())) {
        if (category.key == own)
            continue;
        if (category.key == 0)
            Combo1_->insertItem(0, QStringLiteral("OTHER"), 0);
        else
            Combo1_->addItem(category.name, category.key);
    }
}

void move_item::fill_recipe_categories(const QTreeWidgetItem& folder)
{
    const auto& captions = recipe_categories();
    for (int i = 0; i < captions.size(); ++i) {
        if (!TreeView::key(&folder).endsWith(recipe_category(i)))
            Combo1_->addItem(captions[i], recipe_category(i));
    }
}

void move_item::ok()
{
    if (Combo1_->currentIndex() < 0)
        return;
    const QVariant chosen = Combo1_->currentData();
    if (request_.move_stock)
        main_.stock_commands().mv_item(static_cast<Key>(chosen.toInt()), request_.key);
    else
        main_.recipe_tree().mv_rcp(chosen.toString(), request_.key);
    accept();
}

void show_move_item(frmmain& main, bool move_stock)
{
    const TreeView& tree = move_stock ? main.stock_tree().view() : main.recipe_tree().view();
    const QTreeWidgetItem* node = tree.selected();
    const QString kind = move_stock ? QStringLiteral("item") : QStringLiteral("rcp");
    if (node && node->parent() && TreeView::key(node).startsWith(kind))
        move_item(main, {move_stock, record_key(TreeView::key(node))}, *node).exec();
}

} // namespace tarnwick
