#include "shots/stock_scenes.h"

#include "shots/studio.h"

#include "stock/stock_tree.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

namespace tarnwick::shots {
namespace {

class StockScenes {
public:
    StockScenes(Studio& studio, int points)
        : studio_(studio)
        , points_(points)
    {
    }

    void play();

private:
    TreeView& tree() { return studio_.main().stock_tree().view(); }
    QString sized(const char* name) const
    {
        return QStringLiteral("%1-%2pt").arg(QLatin1String(name)).arg(points_);
    }
    void start();
    QTreeWidgetItem* item_with(const QString& tag);
    QTreeWidgetItem* folder(int place);
    void begin_rename(QTreeWidgetItem* node, const QString& name);
    void rename_question(QTreeWidgetItem* node, const QString& name, const char* shot_name);
    void command_question(QTreeWidgetItem* node, const char* command, const char* shot_name);

    Studio& studio_;
    int points_;
};

void StockScenes::start()
{
    studio_.start({{QStringLiteral("font"), QString::number(points_)},
                   {QStringLiteral("alist"), QStringLiteral("1")},
                   {QStringLiteral("arcp"), QStringLiteral("1")}});
}

/// An item of this status code, its folder open.
QTreeWidgetItem* StockScenes::item_with(const QString& tag)
{
    for (int i = 0; i < tree().topLevelItemCount(); ++i) {
        QTreeWidgetItem* folder = tree().topLevelItem(i);
        for (int k = 0; k < folder->childCount(); ++k) {
            if (TreeView::tag(folder->child(k)) != tag)
                continue;
            folder->setExpanded(true);
            studio_.settle();
            return folder->child(k);
        }
    }
    studio_.fault(QStringLiteral("the stock tree has no item of status ") + tag);
    return nullptr;
}

/// A folder that holds items.
QTreeWidgetItem* StockScenes::folder(int place)
{
    for (int i = 0; i < tree().topLevelItemCount(); ++i)
        if (tree().topLevelItem(i)->childCount() > 0 && place-- == 0)
            return tree().topLevelItem(i);
    studio_.fault(QStringLiteral("the stock tree has not that many folders"));
    return nullptr;
}

void StockScenes::begin_rename(QTreeWidgetItem* node, const QString& name)
{
    if (!node)
        return;
    studio_.click_node(node);
    QTest::keyClick(&tree(), Qt::Key_F2);
    auto* editor = tree().findChild<QLineEdit*>();
    if (!editor) {
        studio_.fault(QStringLiteral("no label is being edited"));
        return;
    }
    editor->selectAll();
    editor->insert(name);
    studio_.settle();
}

void StockScenes::rename_question(QTreeWidgetItem* node, const QString& name, const char* shot_name)
{
    begin_rename(node, name);
    auto* editor = tree().findChild<QLineEdit*>();
    if (editor)
        studio_.with_dialog([&] { QTest::keyClick(editor, Qt::Key_Return); },
                            [&](QDialog&) { studio_.shot(sized(shot_name)); });
}

void StockScenes::command_question(QTreeWidgetItem* node, const char* command, const char* shot_name)
{
    studio_.click_node(node);
    studio_.with_dialog([&] { studio_.command(QLatin1String(command)); },
                        [&](QDialog&) { studio_.shot(sized(shot_name)); });
}

void StockScenes::play()
{
    start();
    begin_rename(item_with(QStringLiteral("5")), QStringLiteral("A new name for it"));
    studio_.shot(sized("rename-item"));
    start();
    begin_rename(folder(0), QStringLiteral("A name that is much wider than the tree is, and is kept whole"));
    studio_.shot(sized("rename-category-long"));
    start();
    rename_question(item_with(QStringLiteral("8")), QStringLiteral("Another name"), "rename-notice");
    rename_question(folder(0), QStringLiteral("It's ours"), "rename-apostrophe");
    rename_question(folder(0), folder(1)->text(0), "rename-category-in-use");
    command_question(item_with(QStringLiteral("8")), "mnu_tv_di", "delete-item-several-lists");
    command_question(item_with(QStringLiteral("7")), "mnu_tv_di", "delete-item-one-list");
    command_question(folder(0), "mnu_edit_del_cat", "delete-category");
    studio_.click_node(studio_.node(QStringLiteral("OTHER")));
    studio_.with_dialog([&] { QTest::keyClick(&tree(), Qt::Key_Delete); },
                        [&](QDialog&) { studio_.shot(sized("delete-other")); });
    studio_.click_node(item_with(QStringLiteral("5")));
    studio_.with_dialog([&] { studio_.command(QStringLiteral("mnu_edit_move")); },
                        [&](QDialog& dialog) {
                            studio_.shot(sized("move-item"));
                            dialog.findChild<QComboBox*>(QStringLiteral("Combo1"))->setCurrentIndex(2);
                            studio_.shot(sized("move-item-chosen"));
                        });
    studio_.click_node(item_with(QStringLiteral("5")));
    studio_.command(QStringLiteral("mnu_tv_di"));
    studio_.shot(sized("item-deleted"));
}

} // namespace

void stock_scenes(Studio& studio, int points)
{
    StockScenes(studio, points).play();
}

} // namespace tarnwick::shots
