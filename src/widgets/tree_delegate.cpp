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

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

// Pixels from the left of the tree, the same in both trees. Whatever stands beside an item goes by its text.
constexpr int folder_text = 41;
constexpr int child_text = 75;
constexpr int least_child_text = 60; // so far from the left that the button in front of an item has its room
constexpr int flat_text = 61;
constexpr int text_gap = 3; // between picture and text
constexpr int flat_text_gap = 8;
constexpr int name_margin = 2; // of the selection around the text
constexpr int told_letters = 6; // of a name, in the narrowest pane
constexpr int mark_type = 60; // percent; the sign of a cut takes no room from the letters

QFont narrowed(QFont font, int percent)
{
    font.setStretch(percent);
    return font;
}

int mark_width(const QFont& font)
{
    return QFontMetrics(narrowed(font, mark_type)).horizontalAdvance(ellipsis);
}

/// Pixels for six rather wide letters and the sign of the cut.
int told_width(const QFont& font)
{
    return QFontMetrics(font).horizontalAdvance(QStringLiteral("Hmnnoo")) + mark_width(font) + name_margin;
}

/// The name as it is cut in this type; its last letter is the sign of the cut then.
FittedText cut_name(const QString& name, const QFont& font, int width)
{
    const QFontMetrics metrics(font);
    const int whole = metrics.horizontalAdvance(name);
    if (whole <= width)
        return {name, font, false};
    const int gained = metrics.horizontalAdvance(ellipsis) - mark_width(font);
    return {metrics.elidedText(name, Qt::ElideRight, std::min(width + gained, whole - 1)), font, true};
}

bool tells_enough(const FittedText& shown)
{
    return !shown.cut || shown.text.size() > told_letters;
}

/// Draws a name from the left, the sign of its cut in narrow type, or only measures it: its width in pixels.
int draw_name(QPainter* painter, const QRect& rect, const FittedText& shown)
{
    const bool marked = shown.cut && shown.text.endsWith(ellipsis);
    const QString letters = marked ? shown.text.chopped(1) : shown.text;
    const int width = QFontMetrics(shown.font).horizontalAdvance(letters);
    if (painter) {
        constexpr int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
        painter->setFont(shown.font);
        painter->drawText(rect, flags, letters);
        if (marked) {
            painter->setFont(narrowed(shown.font, mark_type));
            painter->drawText(rect.adjusted(width, 0, 0, 0), flags, ellipsis);
        }
    }
    return width + (marked ? mark_width(shown.font) : 0);
}

} // namespace

TreeDelegate::TreeDelegate(ImageList pictures, TreeView& tree)
    : QStyledItemDelegate(&tree)
    , pictures_(pictures)
    , tree_(tree)
    , picture_size_(list_image_size(pictures, 1))
    , child_text_(child_text)
    , type_(tree.font())
{
}

bool TreeDelegate::fit(int width)
{
    type_ = tree_.font();
    // In most trees there is room even for the sign of the cut in its own width; the narrow type is not opened
    // then.
    if (width - QFontMetrics(type_).horizontalAdvance(QStringLiteral("Hmnnoo\u2026")) - name_margin
        >= std::max(child_text, flat_text))
        return std::exchange(child_text_, child_text) != child_text;
    const int before
        = std::exchange(child_text_, std::clamp(width - told_width(type_), least_child_text, child_text));
    const int room = width - (tree_.is_flat() ? flat_text : child_text_);
    for (const int percent : {90, narrowest_type}) {
        if (told_width(type_) <= room)
            break;
        type_ = narrowed(tree_.font(), percent);
    }
    return child_text_ != before;
}

int TreeDelegate::picture_left(bool in_folder) const
{
    return text_left(in_folder) - (tree_.is_flat() ? flat_text_gap : text_gap) - picture_size_.width();
}

int TreeDelegate::text_left(bool in_folder) const
{
    if (tree_.is_flat())
        return flat_text;
    return in_folder ? child_text_ - 2 * tree_.indentation() : folder_text - tree_.indentation();
}

FittedText TreeDelegate::shown_name(const QString& name, int width) const
{
    FittedText shown = cut_name(name, type_, width);
    if (tells_enough(shown))
        return shown;
    const FittedText narrow = cut_name(name, narrowed(type_, narrowest_type), width);
    return tells_enough(narrow) ? narrow : fit_text(name, narrow.font, width);
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
    return {text_left(index.parent().isValid()) + width + name_margin, row_height()};
}

void TreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool in_folder = index.parent().isValid();
    const int number = index.data(TreeView::PictureRole).toInt();
    if (number > 0 && number < static_cast<int>(icons_.size())) {
        QIcon& icon = icons_[static_cast<size_t>(number)];
        if (icon.isNull())
            icon = list_icon(pictures_, number);
        const QPoint place(option.rect.left() + picture_left(in_folder),
                           option.rect.top() + (option.rect.height() - picture_size_.height()) / 2);
        icon.paint(painter, QRect(place, picture_size_));
    }
    paint_text(*painter, option, option.rect.adjusted(text_left(in_folder), 0, 0, 0), index);
}

void TreeDelegate::paint_text(QPainter& painter, const QStyleOptionViewItem& option, const QRect& rect,
                              const QModelIndex& index) const
{
    if (rect.width() <= 0)
        return;
    const QVariant color = index.data(Qt::ForegroundRole);
    const QPalette::ColorGroup group
        = option.state & QStyle::State_Active && tree_.hasFocus() ? QPalette::Active : QPalette::Inactive;
    const QString name = index.data().toString();
    const int room = rect.width() - name_margin;
    const LaidOutText whole(name, type_);
    const bool fits = whole.width() <= room;
    const FittedText shown = fits ? FittedText{name, type_, false} : shown_name(name, room);

    painter.save();
    QColor pen = color.isValid() ? color.value<QBrush>().color() : option.palette.color(group, QPalette::Text);
    if (option.state & QStyle::State_Selected) {
        const int width = fits ? qRound(whole.width()) : draw_name(nullptr, rect, shown);
        const QRect behind(rect.left() - name_margin, rect.top() + 1, width + 2 * name_margin, rect.height() - 2);
        // Also behind a label with a colour of its own, which could not be read on the highlight.
        painter.fillRect(behind, option.palette.color(group, QPalette::Highlight));
        pen = option.palette.color(group, QPalette::HighlightedText);
    }
    painter.setPen(pen);
    if (fits)
        whole.draw(painter, rect);
    else
        draw_name(&painter, rect, shown);
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
                                        const QModelIndex& index) const
{
    constexpr int frame = 4; // the line edit's frame and margin left of its text
    editor->setGeometry(option.rect.adjusted(text_left(index.parent().isValid()) - frame, 0, 0, 0));
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
    const int room = option.rect.width() - text_left(index.parent().isValid()) - name_margin;
    const bool cut = shown_name(text, room).cut;
    QToolTip::showText(event->globalPos(), cut ? plain_tool_tip(text) : QString(), view);
    return true;
}

} // namespace tarnwick
