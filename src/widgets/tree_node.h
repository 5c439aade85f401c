#pragma once

#include <QString>
#include <QTreeWidgetItem>
#include <QVariant>

namespace tarnwick {

/// A node of a tree, with the roles of `TreeView`. It holds its few values as members; a table of values per role
/// costs a large catalogue's load.
class TreeNode : public QTreeWidgetItem {
public:
    TreeNode(QString text, QString key, QString tag, int picture);

    QVariant data(int column, int role) const override;
    void setData(int column, int role, const QVariant& value) override;

private:
    /// An item's name goes with its status for the ear.
    QString words() const;

    QString text_;
    QString key_;
    QString tag_;
    int picture_;
};

} // namespace tarnwick
