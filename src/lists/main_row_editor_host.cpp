#include "lists/main_row_editor_host.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "household/row_store.h"
#include "household/status.h"

#include <utility>

namespace tarnwick {

MainRowEditorHost::MainRowEditorHost(Program& program, ListPane& pane, Buttons buttons)
    : program_(program)
    , pane_(pane)
    , buttons_(std::move(buttons))
{
}

const GridRow& MainRowEditorHost::row_at(int row) const
{
    return pane_.grid().rows().row(row);
}

int MainRowEditorHost::type_size() const
{
    return program_.shared.type_size;
}
bool MainRowEditorHost::column_group_shown(ColumnGroup group) const
{
    return pane_.column_group_shown(group);
}

void MainRowEditorHost::text_edited(int row, GridColumn column, const QString& text)
{
    write_row_field(program_.connection, row_at(row).groc_key, row_field_of(column), text);
}

bool MainRowEditorHost::coupon_on(int row) const
{
    return row_at(row).coupon == picture_base::coupon_on;
}

QString MainRowEditorHost::set_coupon(int row, bool on)
{
    const GridRow& switched = row_at(row);
    const std::optional<QDate> date = write_row_coupon(program_.connection, switched.groc_key, on, today());
    if (!date)
        return switched.date;
    return or_blank(date->toString(screen_date_format));
}

void MainRowEditorHost::date_chosen(int row, QDate date)
{
    write_row_expiry(program_.connection, row_at(row).groc_key, date);
}

QString MainRowEditorHost::edit_tool_tip(int row) const
{
    return QStringLiteral("Edit stock item '") + row_at(row).item + u'\'';
}

QString MainRowEditorHost::remove_tool_tip(int row) const
{
    const GridRow& removed = row_at(row);
    const QString list = list_name_of(program_.connection, removed.list_key).value_or(QString());
    return QStringLiteral("Delete '") + removed.item + QStringLiteral("' from ") + list + QStringLiteral(" list");
}

QDate MainRowEditorHost::today() const
{
    return program_.today();
}

} // namespace tarnwick
