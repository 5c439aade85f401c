#pragma once

#include "window/command_texts.h"

#include <QObject>
#include <QString>

#include <optional>
#include <utility>

class QTabBar;
class QWidget;

namespace tarnwick {

class frmmain;

/// Puts the whole window into the state of its two view switches, the list in use and the selection. What
/// reads or loads throws SQLite::Exception on a database error.
class ViewState : public QObject {
    Q_OBJECT
public:
    ViewState(frmmain& main, QTabBar& left_tabs, QTabBar& right_tabs);

    /// Brings panes, tabs, captions, menus and toolbar to the view in `SharedValues`; an edited recipe is saved.
    void l_r_refresh();

    void view_rcps(); ///< shows the recipe tree and stores the choice

    /// Shows the lists, or the recipe page when not `list`, and stores the choice; nothing when it is shown.
    void show_list_pane(bool list);

    void sort(bool by_name); ///< loads the visible tree by name, or with folders, unless it is so
    void close_folders(); ///< of the visible tree

    /// Captions, ticks and enabling of all commands, window title and tabs from the present state; nothing
    /// while the window loads. What a pane announces about selection, lists, columns or recipe ends here.
    void refresh_commands();

    void caption_refresh(); ///< window title and tabs, cut short where the right tabs have no room
    void set_tab_stops(); ///< takes every control of the window out of the Tab order

    void size_cycle(); ///< toolbar button 18: the next type size, and its setting
    void set_type_size(int size); ///< 9, 10 or 12 points, and the setting

    /// Gives both pages the colour of an index 0 to 3 and stores it; a higher index is stored and leaves the colour
    /// as it was. Panes keep their place, an open item editor closes without saving.
    void set_color(int index);

signals:
    void looks_changed(); ///< another type size or page colour is in use
    void view_changed(); ///< another tree is on show, or list or page in place of the other

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void connect_tabs();
    void connect_panes();
    void refresh_all();
    void take_keyboard_from_hidden();
    CommandInputs inputs() const;
    void refresh_list_side();
    void refresh_recipe_side();
    void set_edit_tool_tips(const QString& edit, const QString& remove);
    void show_tree(bool stock);
    void choose_pane(bool list);
    void right_captions(const QString& list, const QString& recipe);
    bool long_captions_fit(const QString& list_name) const;
    void redraw_list();
    void redraw_recipe();
    void change_type_size(int size, const QString& tag, const QString& tool_tip);
    void left_tab_clicked(int index);
    void right_tab_clicked(int index);

    frmmain& main_;
    CommandTexts texts_;
    QTabBar& left_tabs_;
    QTabBar& right_tabs_;
    std::optional<std::pair<bool, bool>> told_view_; ///< stock tree and list on show, as last announced
};

} // namespace tarnwick
