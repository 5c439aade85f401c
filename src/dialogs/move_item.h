#pragma once

#include "data/text.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidgetItem;

namespace tarnwick {

class frmmain;

/// What the move dialog is opened for.
struct MoveRequest {
    bool move_stock = true; ///< a stock item, else a recipe
    Key key = 0;
};

/// The dialog that moves a stock item or a recipe to another category.
class move_item : public QDialog {
    Q_OBJECT
public:
    /// `node` stands for the request's record in the tree.
    move_item(frmmain& main, MoveRequest request, const QTreeWidgetItem& node);

private:
    void make_controls();
    void fill_stock_categories(const QTreeWidgetItem& folder);
    void fill_recipe_categories(const QTreeWidgetItem& folder);
    void ok();

    frmmain& main_;
    MoveRequest request_;
    QLabel* Label1_;
    QComboBox* Combo1_;
    QPushButton* Command1_[2];
};

/// Opens the dialog on the selected stock item, or recipe, and waits. Nothing happens when the selected
/// node is neither, or stands in no folder.
void show_move_item(frmmain& main, bool move_stock);

} // namespace tarnwick
