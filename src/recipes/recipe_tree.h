#pragma once

#include "data/text.h"

#include <QObject>
#include <QPoint>
#include <QString>

class QTreeWidgetItem;

namespace tarnwick {

struct Program;
class RecipePage;
class TreeView;
struct DragPayload;
struct RecipeRow;

/// The recipe tree `TreeView1(1)`.
class RecipeTree : public QObject {
    Q_OBJECT
public:
    RecipeTree(Program& program, TreeView& tree, RecipePage& page);

    TreeView& view() { return tree_; }

    /// Rebuilds the tree: fifteen categories with their recipes, or one flat list when `alpha`.
    void recip_load(bool alpha);

    void close_folders(); ///< closes every folder; nothing is stored
    void new_rcp();

    /// Index of the category that a new recipe is proposed for: the selected one, or that of the selected recipe.
    int proposed_category() const;

    /// Takes up a recipe that was just made, and shows its page. `category` has two digits.
    void recipe_made(Key recipe, const QString& name, const QString& category);

    /// Asks, then deletes a recipe with its lines and shows the neighbour.
    void recip_del(Key recipe);

    /// Moves a recipe to a category, a two-digit text. Throws error 35601 for any other.
    void mv_rcp(const QString& category, Key recipe);

    void rename(Key recipe, const QString& name); ///< gives a recipe's node another text

    /// Puts a renamed recipe at its place by name; `by_mouse` not before the release of a press on the tree.
    void sort_renamed(Key recipe, bool by_mouse);

    /// Selects a recipe and brings up its page. False, and no change, when the tree does not hold it.
    bool choose(Key recipe);

    /// Tells the selected node in the first panel, while the tree is the one on show.
    void show_status_of_selection();

    /// The node of a recipe; none when the tree does not hold it.
    QTreeWidgetItem* recipe_node(Key recipe) const;

    /// A click with a mouse button on the tree, after the selection.
    void mouse_up(Qt::MouseButton button, QTreeWidgetItem* node);

signals:
    void menu_wanted(QPoint place); ///< a click with another button than the left; place on the screen
    void drag_wanted(const DragPayload& payload, QPoint global); ///< a recipe is dragged out of the tree
    void node_pressed(); ///< the user comes to the tree

private:
    void connect_events();
    void load_flat();
    void load_folders();
    QTreeWidgetItem* make_recipe_node(const RecipeRow& row);
    void select_current();
    QTreeWidgetItem& category_node(const QString& category) const;
    void node_click(QTreeWidgetItem* node);
    void open(const QTreeWidgetItem& node);
    void mouse_down(QPoint position);
    void mouse_released(Qt::MouseButton button);
    void take_release(Qt::MouseButton button);
    void sort_after_press();
    void start_drag(const QTreeWidgetItem& node, QPoint global);
    void key_down(int key);
    void expanded(QTreeWidgetItem* node, bool open);
    void show_page(Key recipe);
    void take_off(QTreeWidgetItem* node);

    Program& program_;
    TreeView& tree_;
    RecipePage& page_;
    Key unsorted_ = -1; ///< a renamed recipe that waits for a release; -1 none
    bool tree_mouse_down_ = false;
    QPoint tree_down_;
};

} // namespace tarnwick
