#pragma once

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace tarnwick {

class frmmain;
struct MenuRow;

/// The commands of the window, made from one table: the menu bar and the pop-up menus.
class Commands : public QObject {
    Q_OBJECT
public:
    Commands(frmmain& main, QMenuBar& bar);
    ~Commands() override;

    /// A command or menu of this name. Asking for a name that is not in the table is a fault of the program.
    QAction& action(const QString& name) const;
    QMenu& menu(const QString& name) const;

    /// Runs a command's handler for another control that stands for it, whether it is enabled or not.
    void run(const QString& name);

    // Each sets what its name says of a command or menu; the name is one of the table.
    void set(const QString& name, const QString& caption, bool enabled);
    void set_caption(const QString& name, const QString& caption);
    void set_enabled(const QString& name, bool enabled);
    void set_visible(const QString& name, bool visible);
    void set_checked(const QString& name, bool checked); ///< runs nothing

    /// The caption as it is meant, without the doubled '&' that the display of a menu needs.
    QString caption(const QString& name) const { return plain_caption(action(name)); }
    static void set_plain_caption(QAction& action, const QString& caption); ///< a '&' in it is shown as one
    static QString plain_caption(const QAction& action);

    /// The array `mnu_list_list`, one entry per list. Past the last throws std::out_of_range.
    int list_entries() const { return static_cast<int>(entries_.size()); }
    QAction& list_entry(int index) const { return *entries_.at(static_cast<size_t>(index)); }
    static QString list_entry_tag(const QAction& entry); ///< the key of its list as a text
    static void set_list_entry_tag(QAction& entry, const QString& tag);
    void set_list_entry_count(int count); ///< at least 1: entry 0 always exists

signals:
    void ran(const QString& name); ///< a command was chosen, from the menus or a control that stands for it
    void list_chosen(int entry); ///< index of the list's entry
    void edit_row_wanted(); ///< `mnu_lv_ed`
    void remove_row_wanted(); ///< `mnu_lv_di`

private:
    void add(const MenuRow& row, QMenuBar& bar);
    void add_menu(const MenuRow& row, QMenuBar& bar);
    void add_command(const MenuRow& row, QMenu& menu);
    void add_list_entry();

    frmmain& main_;
    QHash<QString, QAction*> actions_;
    QHash<QString, QMenu*> menus_;
    QHash<QString, void (*)(frmmain&)> handlers_;
    std::vector<QAction*> entries_;
    QAction* after_entries_ = nullptr;
};

} // namespace tarnwick
