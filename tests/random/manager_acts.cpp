#include "random/acts.h"
#include "random/oracle.h"

#include "data/query.h"
#include "lists/list_list.h"
#include "window/commands.h"
#include "window/frmmain.h"

#include <QAction>
#include <QLabel>

namespace tarnwick::random_use {
namespace {

list_list* manager_of(frmmain& main)
{
    auto* found = main.findChild<list_list*>(QStringLiteral("list_list"), Qt::FindDirectChildrenOnly);
    return found && found->isVisible() ? found : nullptr;
}

/// The labels of its rows, from the first on.
QList<QLabel*> labels_of(const list_list& manager)
{
    QList<QLabel*> labels;
    while (auto* label = manager.findChild<QLabel*>(QStringLiteral("lbl_list(%1)").arg(labels.size())))
        labels += label;
    return labels;
}

} // namespace

bool click_manager(User& user)
{
    list_list* manager = manager_of(user.main());
    if (!manager || user.chance(20)) {
        user.note(QStringLiteral("list manager"));
        user.main().commands().action(QStringLiteral("mnu_tools_listlist")).trigger();
        return true;
    }
    QLabel* label = user.any_of(labels_of(*manager));
    user.click(*label, label->rect().center());
    return true;
}

/// A row for each list, under the name that it has now, and one for all of them; the list in use is marked.
QStringList manager_faults(frmmain& main, Connection& db)
{
    const list_list* manager = manager_of(main);
    const bool ticked = main.commands().action(QStringLiteral("mnu_tools_listlist")).isChecked();
    if (!manager)
        return ticked ? QStringList{QStringLiteral("the list manager is ticked and not open")} : QStringList{};
    QStringList wanted;
    for (Query lists(db, "SELECT key_id, list_name FROM list_name"); lists.next();)
        wanted += QString::number(lists.key(0)) + u' ' + trim(lists.text(1));
    if (wanted.size() > 1)
        wanted += QStringLiteral("0 All");
    if (wanted.isEmpty())
        wanted += QStringLiteral("-1 Create a shopping list");
    QStringList shown;
    QString marked;
    constexpr int chosen = 2;
    const QList<QLabel*> labels = labels_of(*manager);
    for (int i = 0; i < labels.size(); ++i) {
        shown += labels[i]->property("Tag").toString() + u' ' + labels[i]->text();
        if (manager->findChild<QLabel*>(QStringLiteral("pct_list(%1)").arg(i))->property("picture").toInt()
            == chosen)
            marked += labels[i]->property("Tag").toString();
    }
    wanted.sort();
    shown.sort();
    QStringList faults;
    if (!ticked)
        faults += QStringLiteral("the list manager is open and not ticked");
    if (shown != wanted)
        faults += QStringLiteral("the list manager shows '%1', not '%2'").arg(shown.join(u'|'), wanted.join(u'|'));
    const Key list = main.shared.all_lists_view ? Key{0} : main.shared.current_list;
    const QString row_in_use = list < 0 || (list == 0 && labels.size() == 1) ? QString() : QString::number(list);
    if (marked != row_in_use)
        faults += QStringLiteral("the list manager marks '%1', not '%2'").arg(marked, row_in_use);
    return faults;
}

} // namespace tarnwick::random_use
