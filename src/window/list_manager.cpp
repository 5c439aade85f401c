#include "window/list_manager.h"

#include "dialogs/l_item_edit.h"
#include "household/household.h"
#include "household/lists_store.h"
#include "household/status.h"
#include "lists/list_list.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "lists/placing.h"
#include "widgets/list_grid.h"
#include "widgets/update_lock.h"
#include "window/commands.h"
#include "window/frmmain.h"
#include "window/output_commands.h"
#include "window/view_state.h"

#include <QPointer>
#include <QScreen>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr char kept_place[]
    = "list_manager_place"; ///< of the main window: the rectangle of the closed list manager
constexpr QPoint first_offset(24, 120); ///< from the main window's upper right corner

void write(frmmain& main, const char* key, const QString& value)
{
    main.settings().write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QLatin1String(key), value);
}

/// A click on a row. The settings stand under the dialogs' name, so they do not come back at the next start.
void show_list(frmmain& main, Key list)
{
    if (!leave_editors(main))
        return;
    const UpdateLock lock(main);
    write(main, "s_all", list == list_list::all_lists ? QStringLiteral("1") : QStringLiteral("0"));
    main.shared.current_list = list;
    main.household().write_aside(clear_active_marks);
    main.list_pane().lv_load(list);
    write(main, "alist", QString::number(list));
    main.l_r_refresh();
}

void make_list(frmmain& main, list_list& manager)
{
    const QPointer<list_list> open(&manager);
    main.lists().new_list();
    if (open)
        open->close();
}

void mark_list(const frmmain& main, list_list& manager)
{
    manager.set_list(main.shared.all_lists_view ? Key{list_list::all_lists} : main.shared.current_list);
}

void take_looks(frmmain& main, list_list& manager)
{
    const QPalette page = main.list_pane().grid().palette();
    manager.set_page_color(page.color(QPalette::Base), page.color(QPalette::Text));
    manager.set_type_size(main.shared.type_size);
}

/// `drop_handle`: on the row of all lists the item editor asks for the lists, none of them being proposed.
void drop_item(frmmain& main, Key item, Key list)
{
    if (!stock_item_name(main.connection(), item))
        return; // It went while it was dragged.
    if (main.placing().chck_item(item, list) == PlacingAnswer::cancelled)
        return;
    if (list == list_list::all_lists) {
        show_item_editor(main.program(), {EditMode::place_item, item});
        return;
    }
    Placement placement;
    placement.list_key = list;
    placement.item_key = item;
    placement.created = main.today();
    placement.modified = main.today();
    placement.opened = false;
    main.placing().add_item(placement);
}

void connect_manager(frmmain& main, list_list& manager)
{
    QObject::connect(&manager, &list_list::list_wanted, &main, [&main](Key list) { show_list(main, list); });
    QObject::connect(&manager, &list_list::new_list_wanted, &main, [&] { make_list(main, manager); });
    QObject::connect(&manager, &list_list::item_dropped, &main,
                     [&main](Key item, Key list) { drop_item(main, item, list); });
    QObject::connect(&main.household(), &Household::lists_changed, &manager, &list_list::lists_changed);
    QObject::connect(&main.list_pane(), &ListPane::list_loaded, &manager, [&] { mark_list(main, manager); });
    QObject::connect(&main.view_state(), &ViewState::looks_changed, &manager, [&] { take_looks(main, manager); });
    QObject::connect(&manager, &QDialog::finished, &main, [&] {
        main.setProperty(kept_place, QRect(manager.pos(), manager.size()));
        main.commands().set_checked(QStringLiteral("mnu_tools_listlist"), false);
    });
}

/// Where it was closed, at first over the right part of the main window; on the screen in any case.
void place(const frmmain& main, list_list& manager)
{
    QRect place = main.property(kept_place).toRect();
    if (!place.isValid()) {
        place.setSize(manager.sizeHint());
        place.moveTopRight(main.mapToGlobal(QPoint(main.width() - first_offset.x(), first_offset.y())));
    }
    const QRect screen = main.screen()->availableGeometry();
    place.moveLeft(
        std::clamp(place.left(), screen.left(), std::max(screen.left(), screen.right() - place.width())));
    place.moveTop(std::clamp(place.top(), screen.top(), std::max(screen.top(), screen.bottom() - place.height())));
    manager.resize(place.size());
    manager.move(place.topLeft());
}

} // namespace

void toggle_list_manager(frmmain& main)
{
    if (auto* open = main.findChild<list_list*>(QStringLiteral("list_list"), Qt::FindDirectChildrenOnly);
        open && open->isVisible()) {
        open->close();
        return;
    }
    auto* manager = new list_list(main.connection(), main.drag(), &main);
    manager->setAttribute(Qt::WA_DeleteOnClose);
    connect_manager(main, *manager);
    take_looks(main, *manager);
    manager->list_fill();
    mark_list(main, *manager);
    place(main, *manager);
    manager->show();
    main.commands().set_checked(QStringLiteral("mnu_tools_listlist"), true);
}

} // namespace tarnwick
