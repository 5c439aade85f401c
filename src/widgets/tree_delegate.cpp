#include "widgets/tree_delegate.h"

#include "widgets/one_line_box.h"
#include "widgets/tree_view.h"
#include "widgets/tool_tip.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolTip>

namespace tarnwick {
namespace {

constexpr int folder_picture_left = 6;
constexpr int folder_text_gap = 3;
constexpr int flat_picture_left = 31;
constexpr int flat_text_gap = 8;
constexpr int text_margin = 2; // of the selection around the text

} // namespace

TreeDelegate::TreeDelegate(ImageList pictures, TreeView& tree)
    : QStyledItemDelegate(&tree)
    , pictures_(pictures)
    , tree_(tree)
    , picture_size_(list_image_size(pictures, 1))
{
}

int TreeDelegate::picture_left() const
{
    return tree_.is_flat() ? flat_picture_left : folder_picture_left;
}

int TreeDelegate::text_left() const
{
    return picture_left() + picture_size_.width() + (tree_.is_flat() ? flat_text_gap : folder_text_gap);
}

int TreeDelegate::row_height() const
{
    const int points = tree_.font().pointSize();
    const int pleasant = points >= 12 ? 26 : points >= 10 ? 22 : 20;
    return std::max(pleasant, tree_.fontMetrics().height() + 2);
}

QSize TreeDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const int width = tree_.fontMetrics().horizontalAdvance(index.data().toString());
    return {text_left() + width + text_margin, row_height()};
}

void TreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int number = index.data(TreeView::PictureRole).toInt();
    if (number > 0 && number < static_cast<int>(icons_.size())) {
        QIcon& icon = icons_[static_cast<size_t>(number)];
        if (icon.isNull())
            icon = list_icon(pictures_, number);
        const QPoint place(option.rect.left() + picture_left(),
                           option.rect.top() + (option.rect.height() - picture_size_.height()) / 2);
        icon.paint(painter, QRect(place, picture_size_));
    }
    paint_text(*painter, option, option.rect.adjusted(text_left(), 0, 0, 0), index);
}

void TreeDelegate::paint_text(QPainter& painter, const QStyleOptionViewItem& option, const QRect& rect,
                              const QModelIndex& index) const
{
    if (rect.width() <= 0)
        return;
    const QVariant color = index.data(Qt::ForegroundRole);
    const QPalette::ColorGroup group
        = option.state & QStyle::State_Active && tree_.hasFocus() ? QPalette::Active : QPalette::Inactive;
    const QString text
        = option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, rect.width() - text_margin);

    painter.save();
    painter.setFont(option.font);
    QColor pen = color.isValid() ? color.value<QBrush>().color() : option.palette.color(group, QPalette::Text);
    if (option.state & QStyle::State_Selected) {
        const QRect behind(rect.left() - text_margin, rect.top() + 1,
                           option.fontMetrics.horizontalAdvance(text) + 2 * text_margin, rect.height() - 2);
        const QColor highlight = option.palette.color(group, QPalette::Highlight);
        if (color.isValid()) {
            // A label with a colour of its own keeps it: the highlight becomes a frame around it.
            painter.setPen(highlight);
            painter.setBrush(option.palette.color(group, QPalette::Base));
            painter.drawRect(behind.adjusted(0, 0, -1, -1));
        } else {
            painter.fillRect(behind, highlight);
            pen = option.palette.color(group, QPalette::HighlightedText);
        }
    }
    painter.setPen(pen);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    painter.restore();
}

QWidget* TreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* editor = new QLineEdit(parent);
    editor->setFont(tree_.font());
    keep_one_line(*editor);
    editor->setObjectName(QStringLiteral("label_edit"));
    editor_ = editor;
    return editor;
}

void TreeDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const
{
    constexpr int frame = 4; // the line edit's frame and margin left of its text
    editor->setGeometry(option.rect.adjusted(text_left() - frame, 0, 0, 0));
}

void TreeDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const
{
    tree_.end_label_edit(index, qobject_cast<QLineEdit*>(editor)->text());
}

/// An editor that loses the focus may be about to end the edit.
bool TreeDelegate::eventFilter(QObject* editor, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        tree_.set_label_left_by(static_cast<QFocusEvent*>(event)->reason());
    else if (event->type() == QEvent::FocusIn)
        tree_.set_label_left_by(Qt::NoFocusReason);
    return QStyledItemDelegate::eventFilter(editor, event);
}

bool TreeDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString();
    const bool cut = tree_.fontMetrics().horizontalAdvance(text) > option.rect.width() - text_left() - text_margin;
    QToolTip::showText(event->globalPos(), cut ? plain_tool_tip(text) : QString(), view);
    return true;
}

} // namespace tarnwick
