#pragma once

#include "widgets/fitted_text.h"
#include "widgets/pictures.h"

#include <QPointer>
#include <QStyledItemDelegate>

#include <array>

namespace tarnwick {

class TreeView;

/// Draws a node's picture and text at fixed places of its row, and edits its label.
class TreeDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    TreeDelegate(ImageList pictures, TreeView& tree);

    QWidget* editor() const { return editor_; } ///< the label's editor made last; none when it has gone

    /// Left edges in pixels from the left of a node's own row rectangle (behind its indentation).
    int picture_left(bool in_folder) const;
    int text_left(bool in_folder) const;

    /// Takes the indentation of the items and the type of all names for a width of the tree in pixels: a narrow
    /// tree has less of the one and then narrower type, so that six letters of a name stay. True when the
    /// indentation is another.
    bool fit(int width);

    /// A node's name in a width of pixels: cut at its end, in still narrower type where it would lose one of its
    /// first six letters.
    FittedText shown_name(const QString& name, int width) const;

    /// Height of every row in pixels for the tree's font.
    int row_height() const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    void paint_text(QPainter& painter, const QStyleOptionViewItem& option, const QRect& rect,
                    const QModelIndex& index) const;

    ImageList pictures_;
    TreeView& tree_;
    QSize picture_size_;
    int child_text_; ///< pixels from the left of the tree
    QFont type_; ///< of all names
    mutable std::array<QIcon, 16> icons_;
    mutable QPointer<QWidget> editor_;
};

} // namespace tarnwick
