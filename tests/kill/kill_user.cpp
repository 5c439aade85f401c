#include "kill/kill_user.h"

#include "household/household.h"
#include "window/frmmain.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "window/commands.h"
#include "widgets/tree_view.h"
#include "stock/stock_tree.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace tarnwick::kill {

User::User(frmmain& main, quint32 seed, const QString& log_file)
    : main_(main)
    , random_(seed)
    , log_(::open(qPrintable(log_file), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600))
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

void User::give_up(const QString& why)
{
    note(QStringLiteral("fault ") + why);
    _Exit(3);
}

void User::work()
{
    operate();
    QTimer::singleShot(0, this, &User::work);
}

void User::operate()
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
    operation.item = record_key(TreeView::key(node));
    operation.list = main_.shared.current_list;
    note(begin_line(operation));
    command(QStringLiteral("mnu_tv_ai"));
    note(QStringLiteral("done %1").arg(main_.household().last_groc_key()));
}

void User::tick()
{
    ListGrid& grid = main_.list_pane().grid();
    const int row = grid.top_row() + random_.bounded(qMax(1, grid.rows_in_view()));
    if (row >= grid.rows().rows())
        return;
    const GridRow& clicked = grid.rows().row(row);
    Operation operation{Kind::tick, clicked.groc_key, clicked.item_key, clicked.list_key, !clicked.to_get};
    const QRect cell = grid.cell_rect(row, grid_column::check);
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
    note(begin_line(Operation{Kind::make_list}));
    command(QStringLiteral("mnu_list_new"));
    note(QStringLiteral("done %1").arg(main_.shared.current_list));
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
        if (!yes)
            give_up(QStringLiteral("unexpected message: ") + message->text().replace(u'\n', u' '));
        QTest::mouseClick(yes, Qt::LeftButton);
        return;
    }
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"));
    auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)"));
    if (dialog.objectName() != QLatin1String("new_item_rcp") || !name || !ok)
        give_up(QStringLiteral("unexpected dialog ") + dialog.objectName());
    QTest::keyClicks(name, QStringLiteral("List %1 %2").arg(getpid()).arg(++names_));
    if (!ok->isEnabled())
        give_up(QStringLiteral("the naming dialog's OK is disabled"));
    QTest::mouseClick(ok, Qt::LeftButton);
}

} // namespace tarnwick::kill
