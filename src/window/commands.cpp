#include "window/commands.h"

#include "window/menu_table.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr char caption_property[] = "Caption";
constexpr char tag_property[] = "Tag";

/// Qt ticks a checkable action on its own when it is chosen. The window's state alone decides about
/// ticks here, so the choice is taken back before the command runs.
void undo_own_tick(QAction& action)
{
    if (action.isCheckable())
        action.setChecked(!action.isChecked());
}

} // namespace

Commands::Commands(frmmain& main, QMenuBar& bar)
    : main_(main)
{
    bar.setObjectName(QStringLiteral("menu_bar"));
    bar.setAccessibleName(QStringLiteral("Menus"));
    for (const MenuRow& row : menu_table())
        add(row, bar);
}

Commands::~Commands() = default;

void Commands::add(const MenuRow& row, QMenuBar& bar)
{
    const QString name = text_of(row.name);
    if (row.kind == MenuKind::bar_menu || row.kind == MenuKind::popup) {
        add_menu(row, bar);
        return;
    }
    QMenu& parent = menu(text_of(row.parent));
    if (row.kind == MenuKind::list_array) {
        add_list_entry();
        return;
    }
    if (row.kind == MenuKind::separator) {
        QAction* separator = parent.addSeparator();
        separator->setObjectName(name);
        actions_.insert(name, separator);
        if (!entries_.empty() && !after_entries_)
            after_entries_ = separator;
        return;
    }
    add_command(row, parent);
}

void Commands::add_menu(const MenuRow& row, QMenuBar& bar)
{
    const QString name = text_of(row.name);
    const bool inside = *row.parent != '\0';
    auto* made = new QMenu(inside ? static_cast<QWidget*>(&menu(text_of(row.parent))) : &bar);
    made->setObjectName(name);
    QAction& entry = *made->menuAction();
    entry.setObjectName(name);
    QString caption = text_of(row.caption);
    const QString title = caption;
    made->setAccessibleName(caption.remove(u'&'));
    set_plain_caption(entry, caption);
    if (!inside)
        entry.setText(title);
    if (inside)
        menu(text_of(row.parent)).addMenu(made);
    else if (row.kind == MenuKind::bar_menu)
        bar.addMenu(made);
    menus_.insert(name, made);
    actions_.insert(name, &entry);
}

void Commands::add_command(const MenuRow& row, QMenu& menu)
{
    const QString name = text_of(row.name);
    auto* action = new QAction(&menu);
    action->setObjectName(name);
    action->setCheckable(row.kind == MenuKind::check);
    set_plain_caption(*action, text_of(row.caption));
    menu.addAction(action);
    actions_.insert(name, action);
    handlers_.insert(name, row.run);
    connect(action, &QAction::triggered, this, [this, action, name] {
        undo_own_tick(*action);
        run(name);
    });
}

void Commands::add_list_entry()
{
    QMenu& parent = menu(QStringLiteral("mnu_list"));
    const int index = list_entries();
    auto* entry = new QAction(&parent);
    entry->setObjectName(QStringLiteral("mnu_list_list(%1)").arg(index));
    entry->setCheckable(true);
    set_plain_caption(*entry, QStringLiteral("list"));
    set_list_entry_tag(*entry, QStringLiteral("-1"));
    parent.insertAction(after_entries_, entry);
    entries_.push_back(entry);
    connect(entry, &QAction::triggered, this, [this, entry, index] {
        undo_own_tick(*entry);
        emit list_chosen(index);
    });
}

QAction& Commands::action(const QString& name) const
{
    QAction* found = actions_.value(name);
    if (!found)
        qFatal("There is no command %s", qPrintable(name));
    return *found;
}

QMenu& Commands::menu(const QString& name) const
{
    QMenu* found = menus_.value(name);
    if (!found)
        qFatal("There is no menu %s", qPrintable(name));
    return *found;
}

void Commands::run(const QString& name)
{
    emit ran(name);
    if (const auto handler = handlers_.value(name))
        handler(main_);
}

void Commands::set(const QString& name, const QString& caption, bool enabled)
{
    set_caption(name, caption);
    set_enabled(name, enabled);
}

void Commands::set_caption(const QString& name, const QString& caption)
{
    set_plain_caption(action(name), caption);
}

void Commands::set_enabled(const QString& name, bool enabled)
{
    action(name).setEnabled(enabled);
}

void Commands::set_visible(const QString& name, bool visible)
{
    action(name).setVisible(visible);
}

void Commands::set_checked(const QString& name, bool checked)
{
    action(name).setChecked(checked);
}

void Commands::set_plain_caption(QAction& action, const QString& caption)
{
    action.setProperty(caption_property, caption);
    QString shown = caption;
    action.setText(shown.replace(QLatin1Char('&'), QLatin1String("&&")));
}

QString Commands::plain_caption(const QAction& action)
{
    return action.property(caption_property).toString();
}

QString Commands::list_entry_tag(const QAction& entry)
{
    return entry.property(tag_property).toString();
}

void Commands::set_list_entry_tag(QAction& entry, const QString& tag)
{
    entry.setProperty(tag_property, tag);
}

void Commands::set_list_entry_count(int count)
{
    const int wanted = std::max(count, 1);
    while (list_entries() < wanted)
        add_list_entry();
    while (list_entries() > wanted) {
        // The entry may be the one whose choice is being handled.
        QAction* surplus = entries_.back();
        entries_.pop_back();
        surplus->setObjectName(QString());
        surplus->setVisible(false);
        menu(QStringLiteral("mnu_list")).removeAction(surplus);
        surplus->deleteLater();
    }
}

} // namespace tarnwick
