#pragma once

#include <QObject>
#include <QString>

class QTabBar;
class QTreeWidgetItem;
class QWidget;

namespace tarnwick {

class frmmain;

/// Puts the whole window into the state of its two view switches, the list in use and the selection.
class ViewState : public QObject {
    Q_OBJECT
public:
    ViewState(frmmain& main, QTabBar& left_tabs, QTabBar& right_tabs);

    void l_r_refresh();
    void view_stock();
    void view_rcps();
    void show_list_pane(bool list); ///< `mnu_view_shoplist` and `mnu_view_rcpepages`
    void sort_by_cat();
    void sort_by_alpha();
    void close_folders(); ///< of the visible tree
    void set_mnu_recipe();
    void set_mnu_stock();
    void caption_refresh();
    void set_tab_stops();

    void size_cycle(); ///< toolbar button 18
    void set_type_size(int size); ///< `mnu_more_sml`, `mnu_more_mdm`, `mnu_more_lrg`

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    enum class ListState { single, all, none };
    struct ListTexts;

    void refresh_all();
    void take_keyboard_from_hidden();
    ListState list_state() const;
    QString list_name() const;
    ListTexts list_texts() const;
    void refresh_list_side();
    void refresh_recipe_side();
    void refresh_list_commands(const ListTexts& texts);
    void set_edit_tool_tips(const QString& edit, const QString& remove);
    void show_tree(bool stock);
    void sort_tree(bool by_name);
    void set_mnu_stock_item(const QTreeWidgetItem& node);
    void set_mnu_stock_category(const QTreeWidgetItem& node);
    void right_captions(const QString& list, const QString& recipe);
    bool long_captions_fit(const QString& list_name) const;
    void change_type_size(int size, int image, const QString& tag, const QString& tool_tip);
    void left_tab_clicked(int index);
    void right_tab_clicked(int index);

    frmmain& main_;
    QTabBar& left_tabs_;
    QTabBar& right_tabs_;
};

} // namespace tarnwick
