#include "window/rescuer.h"

#include "dialogs/l_item_edit.h"
#include "household/rescue.h"
#include "household/row_store.h"
#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "widgets/list_grid.h"
#include "widgets/message_box.h"
#include "widgets/row_editor.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>

namespace tarnwick {
namespace {

std::optional<RescuedField> unstored_field(ListPane& list)
{
    const RowEditor& editor = list.row_editor();
    if (!editor.is_open() || !editor.unstored_column())
        return std::nullopt;
    const GridModel& rows = list.grid().rows();
    const GridRow& row = rows.row(editor.edit_row());
    return RescuedField{row.groc_key, row.item, row_field_of(*editor.unstored_column()),
                        rows.cell_text(editor.edit_row(), *editor.unstored_column())};
}

/// Of the item editor that is open, if one is.
std::optional<RescuedItem> unsaved_item()
{
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (const auto* editor = qobject_cast<const l_item_edit*>(window); editor && editor->isVisible())
            return editor->unsaved();
    }
    return std::nullopt;
}

void offer(Connection& connection, const QString& file, const Rescue& rescue)
{
    const QString title = QStringLiteral("TarnWick");
    const QString text = QStringLiteral("TarnWick was ended before this was stored:\n\n%1\n\n"
                                        "Put it back now?\n"
                                        "No keeps it in a file in the folder\n%2")
                             .arg(rescue_contents(rescue), QFileInfo(file).absolutePath());
    if (msg_box(nullptr, text, box::yes_no | box::question, title) != Answer::yes) {
        set_rescue_aside(file);
        return;
    }
    if (put_back(connection, rescue))
        QFile::remove(file);
    else
        msg_box(nullptr,
                (rescue.item ? QStringLiteral("The stock item cannot be put back. It is kept in the file\n")
                             : QStringLiteral("The list row is gone. Its text is kept in the file\n"))
                    + set_rescue_aside(file),
                box::information, title);
}

} // namespace

void rescue_typed(const RecipePage& page, ListPane& list, const QString& database) noexcept
{
    try {
        Rescue rescue;
        page.add_unstored(rescue);
        rescue.field = unstored_field(list);
        rescue.item = unsaved_item();
        if (!rescue.is_empty())
            write_rescue(rescue, database);
    } catch (...) {
        // The error that is about to be told is the one to tell.
    }
}

void offer_rescued(Connection& connection, const QString& database)
{
    for (const QString& file : rescue_files(database)) {
        if (const auto rescue = read_rescue(file))
            offer(connection, file, *rescue);
        else
            set_rescue_aside(file);
    }
}

} // namespace tarnwick
