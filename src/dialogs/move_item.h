#pragma once

#include "data/text.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidgetItem;

namespace tarnwick {

class frmmain;

/// The dialog that moves the selected stock item or recipe to another category, by `move_stock`.
class move_item : public QDialog {
    Q_OBJECT
public:
    move_item(frmmain& main, const QTreeWidgetItem& node);

private:
    void make_controls();
    void fill_stock_categories(const QTreeWidgetItem& folder);
    void fill_recipe_categories(const QTreeWidgetItem& folder);
    void ok();

    frmmain& main_;
    Key key_;
    QLabel* Label1_;
    QComboBox* Combo1_;
    QPushButton* Command1_[2];
};

/// Opens the dialog on the selected stock item, or recipe, and waits. Nothing happens when the selected
/// node is neither, or stands in no folder.
void show_move_item(frmmain& main, bool move_stock);

} // namespace tarnwick
