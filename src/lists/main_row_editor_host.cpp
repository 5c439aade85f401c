#include "lists/main_row_editor_host.h"

#include "window/frmmain.h"
#include "widgets/list_grid.h"
#include "lists/list_mouse.h"
#include "lists/list_pane.h"
#include "household/row_store.h"
#include "household/status.h"

namespace tarnwick {
namespace {

RowField field_of(int column)
{
    switch (column) {
    case grid_column::qty:
        return RowField::qty;
    case grid_column::aisle:
        return RowField::aisle;
    default:
        return RowField::desc;
    }
}

} // namespace

MainRowEditorHost::MainRowEditorHost(frmmain& main)
    : main_(main)
{
}

const GridRow& MainRowEditorHost::row_at(int row) const
{
    return main_.list_pane().grid().rows().row(row);
}

int MainRowEditorHost::type_size() const
{
    return main_.shared.type_size;
}
bool MainRowEditorHost::column_group_shown(int group) const
{
    return main_.list_pane().column_group_shown(group);
}

void MainRowEditorHost::text_edited(int row, int column, const QString& text)
{
    write_row_field(main_.connection(), row_at(row).groc_key, field_of(column), text);
}

bool MainRowEditorHost::coupon_on(int row) const
{
    return row_at(row).coupon == picture_base::coupon_on;
}

QString MainRowEditorHost::set_coupon(int row, bool on)
{
    const GridRow& switched = row_at(row);
    const std::optional<QDate> date = write_row_coupon(main_.connection(), switched.groc_key, on, today());
    if (!date)
        return switched.date;
    return or_blank(date->toString(screen_date_format));
}

void MainRowEditorHost::date_chosen(int row, QDate date)
{
    write_row_expiry(main_.connection(), row_at(row).groc_key, date);
}

void MainRowEditorHost::edit_row(int row)
{
    main_.list_mouse().edit_row(row);
}
void MainRowEditorHost::remove_row(int row)
{
    main_.list_mouse().remove_row(row);
}

QString MainRowEditorHost::edit_tool_tip(int row) const
{
    return QStringLiteral("Edit stock item '") + row_at(row).item + u'\'';
}

QString MainRowEditorHost::remove_tool_tip(int row) const
{
    const GridRow& removed = row_at(row);
    const QString list = list_name_of(main_.connection(), removed.list_key).value_or(QString());
    return QStringLiteral("Delete '") + removed.item + QStringLiteral("' from ") + list + QStringLiteral(" list");
}

QDate MainRowEditorHost::today() const
{
    return main_.today();
}

} // namespace tarnwick
