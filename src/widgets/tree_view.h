#pragma once

#include "widgets/drag.h"
#include "widgets/pictures.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTreeWidget>

namespace tarnwick {

class SecondClick;
class TreeDelegate;

/// The tree control of the left pane: nodes with unique keys, Tags and picture numbers. The first click after a
/// drag of a node is spent: it selects by its press and does nothing at its release. This is kept as it is.
class TreeView : public QTreeWidget, public DragSource {
    Q_OBJECT
public:
    enum Role { KeyRole = Qt::UserRole, TagRole, PictureRole };

    TreeView(ImageList pictures, QWidget* parent);
    ~TreeView() override;

    /// Folders with children, or one flat list: decides the indents of pictures and texts.
    void set_flat(bool flat);
    bool is_flat() const { return flat_; }

    /// Adds a node at the end of a folder, or of the root level. Picture 0 is none. Throws error 35602
    /// when the key is in use.
    QTreeWidgetItem* add_node(QTreeWidgetItem* folder, const QString& key, const QString& text, int picture,
                              const QString& tag);

    /// Inserts a node among its siblings as above.
    QTreeWidgetItem* insert_node(QTreeWidgetItem* folder, int position, const QString& key, const QString& text,
                                 int picture, const QString& tag);

    /// A node that is known by its key but stands in no folder yet: for adding many at once with
    /// `addChildren` or `addTopLevelItems`. Throws error 35602 as above.
    QTreeWidgetItem* make_node(const QString& key, const QString& text, int picture, const QString& tag);

    /// Where a name belongs among the first `count` children of a folder (none: of the root level) that
    /// stand in name order; behind its equals.
    int place_of(QTreeWidgetItem* folder, const QString& text, int count) const;

    /// The node of a key; none when there is no such node.
    QTreeWidgetItem* node(const QString& key) const { return nodes_.value(key); }

    /// The node of a key. Throws error 35601 when there is none.
    QTreeWidgetItem& require_node(const QString& key) const;

    /// Deletes a node with what is under it, and closes a folder that this empties. Forgets the keys of the node
    /// and of its children; a tree of more levels would keep the keys further down.
    void remove_node(QTreeWidgetItem* node);

    /// Deletes all nodes and forgets their keys.
    void clear_nodes();

    /// Gives up a load: clears the tree and frees the given nodes of `make_node`, which no folder owns yet.
    void drop_unplaced(const QList<QTreeWidgetItem*>& nodes);

    /// Makes room for this many keys ahead of a load.
    void reserve_nodes(int count) { nodes_.reserve(count); }

    /// Takes a node out of its folder and puts it under another at its place by name; keeps the rest of it.
    void move_node(QTreeWidgetItem* node, QTreeWidgetItem* folder);

    /// Sorts the children of a folder by name once, as names compare in queries. None sorts the root level.
    void sort_children(QTreeWidgetItem* folder);

    static QString key(const QTreeWidgetItem* node) { return node->data(0, KeyRole).toString(); }
    static QString tag(const QTreeWidgetItem* node) { return node->data(0, TagRole).toString(); }
    static int picture(const QTreeWidgetItem* node) { return node->data(0, PictureRole).toInt(); }
    void set_picture(QTreeWidgetItem* node, int picture);
    static void set_tag(QTreeWidgetItem* node, const QString& tag) { node->setData(0, TagRole, tag); }

    QTreeWidgetItem* selected() const; ///< the selected node; none without one
    void select(QTreeWidgetItem* node); ///< makes it current too; none takes both away
    void ensure_visible(QTreeWidgetItem* node); ///< opens its folder and scrolls

    /// The node whose row is under a point of the viewport.
    QTreeWidgetItem* hit_test(QPoint point) const { return itemAt(point); }

    /// The rectangle of a node's text in the viewport; null when the node is not laid out.
    QRect text_rect(const QTreeWidgetItem* node) const;

    /// Where a pop-up menu for the selected node belongs, on the screen; the node is brought into view. Not
    /// without a selection.
    QPoint menu_place();

    /// Count of whole rows that fit in the tree's height.
    int get_visible_count() const;

    int row_height() const; ///< pixels, of every row

    void drag_begun() override;
    QFont drag_font() const override { return font(); }
    void drag_ended(DragEnd end) override;

    /// After a drag: the next release does its work again, and only the click on a node is still spent.
    void take_release_back() { release_spent_ = false; }

    void keyboardSearch(const QString& text) override;

signals:
    // Mouse events carry viewport coordinates. A click on a node is reported before the release.
    void mouse_down(Qt::MouseButton button, QPoint position);
    void mouse_up(Qt::MouseButton button, QPoint position);
    void release_spent(); ///< in place of `mouse_up` for the click after a drag
    /// The pointer has left the place of a press on this node, the left button alone down, for more than a click.
    void drag_wanted(QTreeWidgetItem* node, QPoint global);
    void node_click(QTreeWidgetItem* node);
    /// Another node is the selected one, whatever moved the selection, or none is, or its text is another; also
    /// after every click on a node.
    void selection_changed();
    void indentation_changed(); ///< texts stand further right or left than before
    void key_down(int key); ///< Qt::Key; Key_Menu for each key that asks for the pop-up menu
    void key_up(int key); ///< Qt::Key
    void got_focus();
    void lost_focus();
    /// Asked before a label edit; the receiver sets `cancel` to refuse.
    void before_label_edit(QTreeWidgetItem* node, bool& cancel);
    /// A label edit has ended with another text, and its editor is gone. The label is as it was: whoever renames
    /// what the node stands for sets it. `left_by` is what took the focus from the editor, NoFocusReason for a key
    /// or a command.
    void after_label_edit(QTreeWidgetItem* node, const QString& text, Qt::FocusReason left_by);

public:
    /// Opens the editor on the selected node's label, through the gate of `before_label_edit`.
    void start_label_edit();

    void finish_label_edit(); ///< ends an edit that is under way as Return does, before something else is done

    /// The editor's text, for `after_label_edit` as soon as the editor is gone.
    void end_label_edit(const QModelIndex& index, const QString& text);
    void set_label_left_by(Qt::FocusReason reason) { label_left_by_ = reason; }

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void changeEvent(QEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& chosen, const QItemSelection& left) override;

private:
    bool is_searching() const;
    bool shows_focus_frame() const;
    void press(QMouseEvent* event);
    void announce_selection();
    void tell_label_edit();
    void fit_names();
    bool on_label(QTreeWidgetItem* node, QPoint position) const;
    void close_if_empty(QTreeWidgetItem* folder);
    void follow_collapse(QTreeWidgetItem* folder);
    void place_again(QTreeWidgetItem* folder, const QList<QTreeWidgetItem*>& order);

    QHash<QString, QTreeWidgetItem*> nodes_;
    TreeDelegate* delegate_;
    SecondClick* second_click_;
    QString pressed_key_;
    QPoint press_place_;
    QString edited_key_; ///< of the node whose label got another text, until that is told
    QString edited_text_;
    Qt::FocusReason label_left_by_ = Qt::NoFocusReason;
    QString announced_text_; ///< of the selected node when it was announced last
    QElapsedTimer since_letter_; ///< invalid where the last key was none of a search by letters
    bool pressed_ = false;
    bool click_spent_ = false;
    bool release_spent_ = false;
    bool spent_until_press_ = false; ///< the drag was given up: at most its own release is spent
    bool edit_on_release_ = false;
    bool press_brought_focus_ = false;
    bool flat_ = false;
};

} // namespace tarnwick
