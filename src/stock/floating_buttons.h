#pragma once

#include "data/text.h"

#include <QObject>
#include <QString>

#include <array>
#include <functional>

class QToolButton;
class QTreeWidgetItem;
class QWidget;

namespace tarnwick {

struct Program;
class StockTree;
class TreeView;
struct ItemChange;

/// The small buttons `flt_btn` beside the selected stock item: add to the list, add to the recipe,
/// locate on the lists.
class FloatingButtons : public QObject {
    Q_OBJECT
public:
    /// What the buttons ask about the right pane.
    struct Asks {
        std::function<bool(Key item)> page_shows; ///< the recipe page has a line of the item
        std::function<bool()> row_editor_open;
    };

    FloatingButtons(Program& program, StockTree& tree, QWidget* parent, Asks asks);

    QToolButton& button(int index) { return *buttons_.at(static_cast<size_t>(index)); }
    void hide_all();
    void hide_recipe_button();

    /// Goes when a row was placed on the list on show, and when an item was renamed; a new item that was put on no
    /// list gets the recipe button.
    void item_changed(const ItemChange& change);

    /// Index of the button on show; -1 without one.
    int shown() const;

    /// Puts a button that was on show beside its item again after the rows got another size, when the row is
    /// whole in view; hides it otherwise. -1: nothing.
    void place_again(int index);

    /// Hides the button unless its node is still the selected one; puts it beside it where it has moved.
    void follow_selection();

signals:
    void placing_wanted(tarnwick::Key item); ///< on the list on show
    void adding_wanted(); ///< of the selected item to the recipe
    void locating_wanted(tarnwick::Key item); ///< on the lists

private:
    void hide(int index);
    void follow_tree();

    /// Resting places of the tree's load, by category or by name.
    void rest(bool by_name);

    /// Shows the buttons that fit the item under the selection, after a click on its row.
    void show_for(QTreeWidgetItem& node);

    /// Hides the first two after the tree lost the focus, unless one of the buttons took it.
    void tree_lost_focus();

    /// Shows the recipe button beside a new item's node; nothing without an open recipe.
    void show_for_recipe(QTreeWidgetItem& node);
    void clicked(int index);
    void show_recipe_button(QTreeWidgetItem& node, int indent, int top);
    void show_locate_button(QTreeWidgetItem& node, int indent, int top);
    void show_list_button(QTreeWidgetItem& node, int indent, int top);
    void show_at(int index, const QTreeWidgetItem& node, int indent, int top, const QString& tool_tip);
    bool row_in_view(int top) const;
    bool recipe_open() const;
    void place_on_list();
    void add_to_recipe();
    void locate();
    const TreeView& view() const;
    QTreeWidgetItem* selected_item() const;

    Program& program_;
    StockTree& tree_;
    Asks asks_;
    std::array<QToolButton*, 3> buttons_{};
    QString beside_; ///< key of the node beside which a button was shown last
};

} // namespace tarnwick
