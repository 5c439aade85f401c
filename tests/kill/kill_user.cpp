#include "kill/kill_user.h"

#include "household/household.h"
#include "window/frmmain.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "window/commands.h"
#include "widgets/node_key.h"
#include "widgets/tree_view.h"
#include "stock/stock_tree.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <fcntl.h>
#include <unistd.h>

namespace tarnwick::kill {

User::User(frmmain& main, Habit habit, quint32 seed, const QString& log_file)
    : main_(main)
    , habit_(habit)
    , random_(seed)
    , log_(::open(qPrintable(log_file), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600))
    , last_placed_(main.household())
{
    qApp->installEventFilter(this);
}

User::~User()
{
    ::close(log_);
}

void User::note(const QString& line)
{
    const QByteArray text = line.toUtf8() + '\n';
    if (::write(log_, text.constData(), static_cast<size_t>(text.size())) != text.size())
        _Exit(4);
}

void User::prepare(const Operation& operation)
{
    begin_ = begin_line(operation);
}

void User::last_step()
{
    if (!begin_.isEmpty())
        note(std::exchange(begin_, {}));
}

void User::done(const Operation& operation)
{
    if (!begin_.isEmpty())
        give_up(QStringLiteral("nothing was asked: ") + begin_);
    note(QStringLiteral("done %1").arg(operation.key));
}

void User::give_up(const QString& why)
{
    note(QStringLiteral("fault ") + why);
    _Exit(3);
}

void User::work()
{
    if (habit_ == Habit::fills)
        fill();
    else
        tidy();
    QTimer::singleShot(0, this, &User::work);
}

void User::fill()
{
    constexpr int most_rows = 60;
    const int lists = main_.commands().list_entries();
    const int rows = main_.list_pane().grid().rows().rows();
    const int dice = random_.bounded(100);
    if (main_.shared.current_list < 1 || (dice < 8 && lists < 5))
        make_list();
    else if (rows > most_rows || (dice < 14 && rows > 0))
        delete_list();
    else if (dice < 50 && rows > 0)
        tick();
    else
        place();
}

void User::tidy()
{
    const int dice = random_.bounded(100);
    if (dice < 40)
        delete_category();
    else if (dice < 80)
        clear_list();
    else if (dice < 85)
        rename_list();
    else if (dice < 90)
        rename_category();
    else
        rename_item();
}

void User::command(const QString& name)
{
    QAction& action = main_.commands().action(name);
    if (!action.isEnabled())
        give_up(name + QStringLiteral(" is disabled"));
    action.trigger();
}

void User::place()
{
    TreeView& tree = main_.stock_tree().view();
    QTreeWidgetItem* node = tree.topLevelItem(random_.bounded(tree.topLevelItemCount()));
    tree.ensure_visible(node);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(node).center());
    if (tree.selected() != node)
        give_up(QStringLiteral("a click did not select a node"));
    Operation operation{Kind::place};
    operation.item = NodeKey::of(node).record;
    operation.list = main_.shared.current_list;
    note(begin_line(operation));
    command(QStringLiteral("mnu_tv_ai"));
    note(QStringLiteral("done %1").arg(last_placed_.key()));
}

void User::tick()
{
    ListGrid& grid = main_.list_pane().grid();
    const int row = grid.top_row() + random_.bounded(qMax(1, grid.rows_in_view()));
    if (row >= grid.rows().rows())
        return;
    const GridRow& clicked = grid.rows().row(row);
    Operation operation{Kind::tick, clicked.groc_key, clicked.item_key, clicked.list_key, !clicked.to_get};
    const QRect cell = grid.cell_rect(row, GridColumn::check);
    note(begin_line(operation));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.viewport()->mapFrom(grid.parentWidget(), cell.center()));
    note(QStringLiteral("done %1").arg(operation.key));
}

void User::delete_list()
{
    Operation operation{Kind::delete_list};
    operation.key = main_.shared.current_list;
    note(begin_line(operation));
    command(QStringLiteral("mnu_list_del"));
    note(QStringLiteral("done %1").arg(operation.key));
}

void User::make_list()
{
    Operation operation{Kind::make_list};
    operation.name = typed_ = new_name("List");
    note(begin_line(operation));
    command(QStringLiteral("mnu_list_new"));
    note(QStringLiteral("done %1").arg(main_.shared.current_list));
}

QString User::new_name(const char* what)
{
    return QStringLiteral("%1 %2 %3").arg(QLatin1String(what)).arg(getpid()).arg(++names_);
}

void User::choose_list()
{
    QAction& entry = main_.commands().list_entry(random_.bounded(main_.commands().list_entries() - 1));
    if (!entry.isEnabled())
        give_up(QStringLiteral("a list cannot be chosen"));
    entry.trigger();
}

/// Clears in a way for which the list has rows.
void User::clear_list()
{
    choose_list();
    const auto& rows = main_.list_pane().grid().rows().list_rows();
    const auto active = std::count_if(rows.begin(), rows.end(), [](const GridRow& row) { return row.to_get; });
    mode_ = 1 + random_.bounded(3);
    const auto met = mode_ == int(ClearMode::uncheck) ? active
        : mode_ == int(ClearMode::delete_unchecked)   ? static_cast<qsizetype>(rows.size()) - active
                                                      : static_cast<qsizetype>(rows.size());
    if (met == 0)
        return;
    Operation operation{Kind::clear_list};
    operation.key = main_.shared.current_list;
    operation.mode = mode_;
    prepare(operation);
    command(QStringLiteral("mnu_list_clear"));
    done(operation);
}

/// The largest folder of all.
void User::delete_category()
{
    TreeView& tree = main_.stock_tree().view();
    QTreeWidgetItem* folder = nullptr;
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        QTreeWidgetItem* node = tree.topLevelItem(i);
        if (TreeView::key(node) != QLatin1String("cat0000")
            && node->childCount() > (folder ? folder->childCount() : 0))
            folder = node;
    }
    if (!folder)
        return;
    tree.ensure_visible(folder);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(folder).center());
    Operation operation{Kind::delete_category};
    operation.key = NodeKey::of(folder).record;
    prepare(operation);
    command(QStringLiteral("mnu_tv_dc"));
    done(operation);
}

void User::rename_list()
{
    choose_list();
    Operation operation{Kind::rename_list};
    operation.key = main_.shared.current_list;
    operation.name = typed_ = new_name("List");
    prepare(operation);
    command(QStringLiteral("mnu_list_RenameList"));
    done(operation);
}

void User::rename_category()
{
    TreeView& tree = main_.stock_tree().view();
    QTreeWidgetItem* folder = tree.topLevelItem(random_.bounded(tree.topLevelItemCount()));
    if (TreeView::key(folder) == QLatin1String("cat0000"))
        return;
    Operation operation{Kind::rename_category};
    operation.key = NodeKey::of(folder).record;
    operation.name = new_name("Folder");
    prepare(operation);
    rename_node(*folder, operation.name);
    done(operation);
}

void User::rename_item()
{
    TreeView& tree = main_.stock_tree().view();
    QTreeWidgetItem* folder = tree.topLevelItem(random_.bounded(tree.topLevelItemCount()));
    if (folder->childCount() == 0)
        return;
    QTreeWidgetItem* node = folder->child(random_.bounded(folder->childCount()));
    Operation operation{Kind::rename_item};
    operation.key = NodeKey::of(node).record;
    operation.name = new_name("thing");
    prepare(operation);
    rename_node(*node, operation.name);
    done(operation);
}

/// Types a node's new name into the tree.
void User::rename_node(QTreeWidgetItem& node, const QString& name)
{
    TreeView& tree = main_.stock_tree().view();
    tree.ensure_visible(&node);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(&node).center());
    QTest::keyClick(&tree, Qt::Key_F2);
    auto* box = tree.findChild<QLineEdit*>();
    if (!box || !box->isVisible())
        give_up(QStringLiteral("no box for the name of a node"));
    box->selectAll();
    QTest::keyClicks(box, name);
    // An item on a list is asked about first.
    if (TreeView::key(&node).startsWith(QLatin1String("cat")) || TreeView::tag(&node) == QLatin1String("5"))
        last_step();
    QTest::keyClick(box, Qt::Key_Return);
    if (!QTest::qWaitFor([&] { return node.text(0) == name; }))
        give_up(QStringLiteral("a node does not take its name"));
}

bool User::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        if (auto* dialog = qobject_cast<QDialog*>(watched)) {
            const QPointer<QDialog> shown(dialog);
            QTimer::singleShot(0, this, [this, shown] {
                if (shown && shown->isVisible())
                    answer(*shown);
            });
        }
    }
    return QObject::eventFilter(watched, event);
}

void User::answer(QDialog& dialog)
{
    if (auto* message = qobject_cast<QMessageBox*>(&dialog)) {
        auto* yes = message->button(QMessageBox::Yes);
        if (!yes && message->buttons().size() > 1)
            yes = message->button(QMessageBox::Ok);
        if (!yes)
            give_up(QStringLiteral("unexpected message: ") + message->text().replace(u'\n', u' '));
        last_step();
        QTest::mouseClick(yes, Qt::LeftButton);
        return;
    }
    if (dialog.objectName() == QLatin1String("lst_clr_dlg"))
        return answer_clearing(dialog);
    if (dialog.objectName() == QLatin1String("input_box")) {
        auto* box = dialog.findChild<QLineEdit*>();
        box->selectAll();
        QTest::keyClicks(box, typed_);
        last_step();
        QTest::keyClick(box, Qt::Key_Return);
        return;
    }
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"));
    auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)"));
    if (dialog.objectName() != QLatin1String("new_item_rcp") || !name || !ok)
        give_up(QStringLiteral("unexpected dialog ") + dialog.objectName());
    QTest::keyClicks(name, typed_);
    if (!ok->isEnabled())
        give_up(QStringLiteral("the naming dialog's OK is disabled"));
    QTest::mouseClick(ok, Qt::LeftButton);
}

void User::answer_clearing(QDialog& dialog)
{
    auto* option = dialog.findChild<QRadioButton*>(QStringLiteral("Option1(%1)").arg(mode_ - 1));
    auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)"));
    if (!option || !ok)
        give_up(QStringLiteral("the clearing dialog lacks a control"));
    option->setChecked(true);
    if (mode_ == int(ClearMode::uncheck))
        last_step();
    QTest::mouseClick(ok, Qt::LeftButton);
}

} // namespace tarnwick::kill
