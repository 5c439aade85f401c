#include "widgets/tree_node.h"

#include "household/status.h"
#include "household/status_names.h"
#include "widgets/tree_view.h"

#include <optional>
#include <utility>

namespace tarnwick {

TreeNode::TreeNode(QString text, QString key, QString tag, int picture)
    : text_(std::move(text))
    , key_(std::move(key))
    , tag_(std::move(tag))
    , picture_(picture)
{
    setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
}

QVariant TreeNode::data(int column, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text_;
    case Qt::AccessibleTextRole:
        return words();
    case TreeView::KeyRole:
        return key_;
    case TreeView::TagRole:
        return tag_;
    case TreeView::PictureRole:
        return picture_;
    default:
        return QTreeWidgetItem::data(column, role);
    }
}

void TreeNode::setData(int column, int role, const QVariant& value)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        text_ = value.toString();
        break;
    case TreeView::KeyRole:
        key_ = value.toString();
        break;
    case TreeView::TagRole:
        tag_ = value.toString();
        break;
    case TreeView::PictureRole:
        picture_ = value.toInt();
        break;
    default:
        QTreeWidgetItem::setData(column, role, value);
        return;
    }
    emitDataChanged();
}

QString TreeNode::words() const
{
    const auto code = key_.startsWith(QLatin1String("item")) ? code_of_number(picture_) : std::nullopt;
    return code ? text_ + QStringLiteral(", ") + status_name(*code) : text_;
}

} // namespace tarnwick
