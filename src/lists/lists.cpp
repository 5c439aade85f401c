#include "lists/lists.h"

#include "window/frmmain.h"
#include "widgets/program.h"
#include "widgets/message_box.h"
#include "widgets/update_lock.h"
#include "lists/clearing.h"
#include "widgets/header_bar.h"
#include "lists/list_pane.h"
#include "dialogs/new_item_rcp.h"
#include "lists/placing.h"
#include "window/commands.h"
#include "household/status.h"

#include <QAction>
#include <QCheckBox>

namespace tarnwick {

Lists::Lists(frmmain& main)
    : main_(main)
{
    connect(&main_.commands(), &Commands::list_chosen, this, &Lists::choose);
}

void Lists::new_list()
{
    new_item_rcp(main_.program(), &main_, {NamingKind::list}).exec();
}

void Lists::lists_changed(const ListsChange& change)
{
    switch (change.kind) {
    case ListsChange::Kind::made:
        list_made(change.list);
        break;
    case ListsChange::Kind::renamed:
        emit list_renamed(change.list, change.name);
        main_.l_r_refresh();
        break;
    case ListsChange::Kind::deleted:
        list_deleted(change.first_left);
        break;
    }
}

void Lists::list_made(Key list)
{
    main_.shared.current_list = list;
    main_.settings().write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QStringLiteral("alist"),
                           QString::number(list));
    set_mnu_lists();
}

void Lists::set_mnu_lists()
{
    SharedValues& shared = main_.shared;
    const std::vector<ShoppingList> all = shopping_lists(main_.connection());
    if (all.empty()) {
        shared.current_list = -1;
        shared.all_lists_view = false;
    } else if (shared.current_list < 0) {
        shared.current_list = 0; // the stored choice may be older than the lists
    }
    emit lists_read(all);
    main_.list_pane().set_CreateList(all.empty() && shared.list_pane_shown);
    if (!all.empty())
        main_.list_pane().lv_load(shared.current_list);
}

void Lists::no_list()
{
    main_.shared.list_pane_shown = true;
    main_.l_r_refresh();
    set_mnu_lists();
}

void Lists::choose(int entry)
{
    const QAction& action = main_.commands().list_entry(entry);
    const QString caption = trim(Commands::plain_caption(action));
    if (caption == QLatin1String("Create a shopping list")) {
        new_list();
        const UpdateLock lock(main_);
        main_.shared.list_pane_shown = true;
        main_.l_r_refresh();
        return;
    }
    const UpdateLock lock(main_);
    choose_list(caption, trim(Commands::list_entry_tag(action)));
    main_.shared.list_pane_shown = true;
    main_.l_r_refresh();
}

void Lists::choose_list(const QString& caption, const QString& tag)
{
    SharedValues& shared = main_.shared;
    const bool all = caption == QLatin1String("All");
    shared.all_lists_view = all;
    shared.current_list = all ? Key{0} : to_int16(tag);
    main_.settings().set_pref(QStringLiteral("s_all"), all ? QStringLiteral("1") : QStringLiteral("0"));
    main_.settings().set_pref(QStringLiteral("alist"), QString::number(shared.current_list));
    main_.list_pane().lv_load(shared.current_list);
}

void Lists::rename_list()
{
    Connection& connection = main_.connection();
    const Key list = main_.shared.current_list;
    const auto old_name = list_name_of(connection, list);
    if (!old_name)
        return;
    QString name = input_box(&main_,
                             QStringLiteral("Enter a new name for the ") + *old_name
                                 + QStringLiteral(" list\n- or choose CANCEL\n\nNew name:"),
                             QStringLiteral("Tarnwick"), *old_name);
    if (trim(name).isEmpty())
        return;
    strip_apostrophes(name);
    name = trim(name);
    main_.household().rename_list(list, name);
}

void Lists::list_del()
{
    Connection& connection = main_.connection();
    const Key list = main_.shared.current_list;
    if (main_.household().refusal_of(list) == Refusal::no_list) {
        main_.placing().say_list_gone();
        return;
    }
    const QString name = get_list_name(connection, list);
    const int rows = count_list_rows(connection, list);
    const QString text = rows == 0
        ? QStringLiteral("Are you sure you want to \ndelete the ") + name + QStringLiteral(" list?")
        : QStringLiteral("The ") + name + QStringLiteral(" list has ") + QString::number(rows)
            + QStringLiteral(" items on it\nAre you sure you want to delete it?");
    if (msg_box(&main_, text, box::yes_no | box::exclamation, QStringLiteral("Warning")) != Answer::yes)
        return;
    // Links alone, their rows gone, are nothing that a clearing could delete.
    if (rows > 0 && !has_rows_to_clear(connection, list, clear_mode::delete_all))
        main_.clearing().say_no_rows(clear_mode::delete_all);

    const UpdateLock lock(main_);
    main_.household().delete_list(list);
}

void Lists::list_deleted(std::optional<Key> first_left)
{
    main_.shared.current_list = first_left.value_or(Key{-1});
    // The setting takes "1" and not the key of the list that follows: kept as it is.
    main_.settings().set_pref(QStringLiteral("alist"), first_left ? QStringLiteral("1") : QStringLiteral("-1"));
    if (!first_left)
        hide_column_groups();
    main_.l_r_refresh();
    set_mnu_lists();
}

void Lists::hide_column_groups()
{
    for (const int group : {0, 1}) {
        QCheckBox& box = main_.list_pane().header().show_box(group);
        if (!box.isChecked())
            continue;
        box.setChecked(false);
        main_.list_pane().show_column_group(group);
    }
}

} // namespace tarnwick
