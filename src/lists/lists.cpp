#include "lists/lists.h"

#include "data/settings.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "widgets/update_lock.h"
#include "lists/clearing.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"
#include "household/stock_store.h"
#include "lists/list_pane.h"
#include "dialogs/lst_clr_dlg.h"
#include "dialogs/new_item_rcp.h"
#include "lists/placing.h"
#include "household/status.h"

#include <QCheckBox>

#include <algorithm>

namespace tarnwick {

Lists::Lists(Program& program, ListPane& pane, Placing& placing, Clearing& clearing)
    : program_(program)
    , pane_(pane)
    , placing_(placing)
    , clearing_(clearing)
{
}

void Lists::new_list()
{
    new_item_rcp(program_, &program_.window, {NamingKind::list}).exec();
}

void Lists::lists_changed(const ListsChange& change)
{
    switch (change.kind) {
    case ListsChange::Kind::made:
        list_made(change.list);
        break;
    case ListsChange::Kind::renamed:
        emit list_renamed(change.list, change.name);
        program_.l_r_refresh();
        break;
    case ListsChange::Kind::deleted:
        list_deleted(change.first_left);
        break;
    }
}

void Lists::list_made(Key list)
{
    program_.settings.write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QStringLiteral("alist"),
                            QString::number(list));
    read_lists(list);
}

void Lists::set_mnu_lists()
{
    read_lists(program_.shared.current_list);
}

/// The choice may be older than the lists: there is none without a list, and with lists there is one.
void Lists::read_lists(Key chosen)
{
    SharedValues& shared = program_.shared;
    const std::vector<ShoppingList> all = shopping_lists(program_.connection);
    if (all.empty()) {
        shared.current_list = -1;
        shared.all_lists_view = false;
    }
    emit lists_read(all);
    pane_.set_CreateList(all.empty() && shared.list_pane_shown);
    if (!all.empty())
        pane_.lv_load(std::max(chosen, Key{0}));
}

void Lists::choose(const QString& caption, const QString& tag)
{
    if (caption == QLatin1String("Create a shopping list")) {
        new_list();
        const UpdateLock lock(program_.window);
        program_.show_list_pane(true);
        return;
    }
    const UpdateLock lock(program_.window);
    choose_list(caption, tag);
    program_.show_list_pane(true);
}

void Lists::choose_list(const QString& caption, const QString& tag)
{
    const bool all = caption == QLatin1String("All");
    const Key list = all ? Key{0} : to_int16(tag);
    program_.settings.set_pref(QStringLiteral("s_all"), all ? QStringLiteral("1") : QStringLiteral("0"));
    program_.settings.set_pref(QStringLiteral("alist"), QString::number(list));
    pane_.lv_load(list);
}

void Lists::rename_list()
{
    Connection& connection = program_.connection;
    const Key list = program_.shared.current_list;
    const auto old_name = list_name_of(connection, list);
    if (!old_name)
        return;
    QString name = input_box(&program_.window,
                             QStringLiteral("Enter a new name for the ") + *old_name
                                 + QStringLiteral(" list\n- or choose CANCEL\n\nNew name:"),
                             QStringLiteral("Tarnwick"), *old_name);
    if (trim(name).isEmpty())
        return;
    strip_apostrophes(name);
    name = trim(name);
    program_.household.rename_list(list, name);
}

void Lists::clear()
{
    const auto name = list_name_of(program_.connection, program_.shared.current_list);
    if (!name) {
        placing_.say_list_gone();
        return;
    }
    lst_clr_dlg dialog(trim(*name), program_.shared.type_size, &program_.window);
    connect(&dialog, &lst_clr_dlg::clear_wanted, this, [this](ClearMode mode) { clearing_.clear_list(mode); });
    connect(&dialog, &lst_clr_dlg::delete_wanted, this, &Lists::list_del);
    dialog.exec();
}

void Lists::list_del()
{
    Connection& connection = program_.connection;
    const Key list = program_.shared.current_list;
    if (program_.household.refusal_of(list) == Refusal::no_list) {
        placing_.say_list_gone();
        return;
    }
    const QString name = get_list_name(connection, list);
    const int rows = count_list_rows(connection, list);
    const QString text = rows == 0
        ? QStringLiteral("Are you sure you want to \ndelete the ") + name + QStringLiteral(" list?")
        : QStringLiteral("The ") + name + QStringLiteral(" list has ") + QString::number(rows)
            + QStringLiteral(" items on it\nAre you sure you want to delete it?");
    if (msg_box(&program_.window, text, box::yes_no | box::exclamation, QStringLiteral("Warning")) != Answer::yes)
        return;
    // Links alone, their rows gone, are nothing that a clearing could delete.
    if (rows > 0 && !has_rows_to_clear(connection, list, ClearMode::delete_all))
        clearing_.say_no_rows(ClearMode::delete_all);

    const UpdateLock lock(program_.window);
    program_.household.delete_list(list);
}

void Lists::list_deleted(std::optional<Key> first_left)
{
    // The setting takes "1" and not the key of the list that follows: kept as it is.
    program_.settings.set_pref(QStringLiteral("alist"), first_left ? QStringLiteral("1") : QStringLiteral("-1"));
    if (!first_left)
        hide_column_groups();
    read_lists(first_left.value_or(Key{-1}));
    program_.l_r_refresh();
}

void Lists::locate(Key item)
{
    const SharedValues& shared = program_.shared;
    if (shared.list_pane_shown)
        pane_.row_editor().lv_edit_off();
    const auto tied = first_tied_row(program_.connection, item);
    if (!tied)
        return;
    if (!shared.all_lists_view && tied->list_key != shared.current_list)
        read_lists(tied->list_key);
    ListGrid& grid = pane_.grid();
    const int row = grid.rows().find_row(tied->groc_key);
    if (row < 0)
        return;
    grid.set_current(row, GridColumn::item);
    grid.set_top_row(std::max(0, row - grid.rows_in_view() / 2));
    grid.rows().change_row(row, [](GridRow& located) { located.located = true; });
}

void Lists::hide_column_groups()
{
    for (const ColumnGroup group : column_groups) {
        QCheckBox& box = pane_.header().show_box(group);
        if (!box.isChecked())
            continue;
        box.setChecked(false);
        pane_.show_column_group(group);
    }
}

} // namespace tarnwick
