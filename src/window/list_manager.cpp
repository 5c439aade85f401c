#include "window/list_manager.h"

#include "data/settings.h"
#include "dialogs/l_item_edit.h"
#include "household/household.h"
#include "household/lists_store.h"
#include "household/status.h"
#include "lists/list_list.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "lists/placing.h"
#include "widgets/list_grid.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/update_lock.h"
#include "window/commands.h"
#include "window/panes.h"
#include "window/view_state.h"

#include <QScreen>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr QPoint first_offset(24, 120); ///< from the main window's upper right corner
const QString own_command = QStringLiteral("mnu_tools_listlist");

} // namespace

ListManager::ListManager(Program& program, const Panes& panes, Drag& drag, Commands& commands,
                         ViewState& view_state)
    : program_(program)
    , panes_(panes)
    , drag_(drag)
    , commands_(commands)
    , view_state_(view_state)
{
}

void ListManager::toggle()
{
    if (manager_ && manager_->isVisible())
        manager_->close();
    else
        open();
}

void ListManager::open()
{
    manager_ = new list_list(program_.connection, drag_, &program_.window);
    manager_->setAttribute(Qt::WA_DeleteOnClose);
    connect_manager();
    take_looks();
    manager_->list_fill();
    mark_list();
    place();
    manager_->show();
    commands_.set_checked(own_command, true);
}

void ListManager::connect_manager()
{
    list_list& manager = *manager_;
    connect(&manager, &list_list::list_wanted, this, &ListManager::show_list);
    connect(&manager, &list_list::new_list_wanted, this, &ListManager::make_list);
    connect(&manager, &list_list::item_dropped, this, &ListManager::drop_item);
    connect(&program_.household, &Household::lists_changed, &manager, &list_list::lists_changed);
    connect(&panes_.list_pane, &ListPane::list_loaded, &manager, [this] { mark_list(); });
    connect(&view_state_, &ViewState::looks_changed, &manager, [this] { take_looks(); });
    connect(&manager, &QDialog::finished, this, [this, &manager] {
        kept_place_ = QRect(manager.pos(), manager.size());
        commands_.set_checked(own_command, false);
    });
}

/// Where it was closed, at first over the right part of the main window; on the screen in any case.
void ListManager::place()
{
    const QWidget& window = program_.window;
    QRect place = kept_place_;
    if (!place.isValid()) {
        place.setSize(manager_->sizeHint());
        place.moveTopRight(window.mapToGlobal(QPoint(window.width() - first_offset.x(), first_offset.y())));
    }
    const QRect screen = window.screen()->availableGeometry();
    place.moveLeft(
        std::clamp(place.left(), screen.left(), std::max(screen.left(), screen.right() - place.width())));
    place.moveTop(std::clamp(place.top(), screen.top(), std::max(screen.top(), screen.bottom() - place.height())));
    manager_->resize(place.size());
    manager_->move(place.topLeft());
}

void ListManager::write(const char* key, const QString& value)
{
    program_.settings.write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QLatin1String(key),
                            value);
}

/// A click on a row. The settings stand under the dialogs' name, so they do not come back at the next start.
void ListManager::show_list(Key list)
{
    if (!panes_.leave_editors())
        return;
    const UpdateLock lock(program_.window);
    write("s_all", list == list_list::all_lists ? QStringLiteral("1") : QStringLiteral("0"));
    program_.household.write_aside(clear_active_marks);
    panes_.list_pane.lv_load(list);
    write("alist", QString::number(list));
    program_.l_r_refresh();
}

void ListManager::make_list()
{
    const QPointer<list_list> manager = manager_;
    panes_.lists.new_list();
    if (manager)
        manager->close();
}

void ListManager::mark_list()
{
    const SharedValues& shared = program_.shared;
    manager_->set_list(shared.all_lists_view ? Key{list_list::all_lists} : shared.current_list);
}

void ListManager::take_looks()
{
    const QPalette page = panes_.list_pane.grid().palette();
    manager_->set_page_color(page.color(QPalette::Base), page.color(QPalette::Text));
    manager_->set_type_size(program_.shared.type_size);
}

/// `drop_handle`: on the row of all lists the item editor asks for the lists, none of them being proposed.
void ListManager::drop_item(Key item, Key list)
{
    if (!stock_item_name(program_.connection, item))
        return; // It went while it was dragged.
    if (panes_.placing.chck_item(item, list) == PlacingAnswer::cancelled)
        return;
    if (list == list_list::all_lists) {
        show_item_editor(program_, {EditMode::place_item, item});
        return;
    }
    Placement placement;
    placement.list_key = list;
    placement.item_key = item;
    placement.created = program_.today();
    placement.modified = program_.today();
    placement.opened = false;
    panes_.placing.add_item(placement);
}

} // namespace tarnwick
