#pragma once

#include "data/text.h"

#include <QDialog>
#include <QString>

#include <optional>

class QComboBox;
class QLabel;
class QPushButton;

namespace tarnwick {

class Connection;
struct Program;

/// What the move dialog is opened for.
struct MoveRequest {
    bool move_stock = true; ///< a stock item, else a recipe
    QString name; ///< of the item or recipe
    QString category_name; ///< that it is in
    Key category = 0; ///< the same: key of a stock category, 1 to 15 for a recipe's
};

/// The dialog that moves a stock item or a recipe to another category.
class move_item : public QDialog {
    Q_OBJECT
public:
    move_item(const Program& program, const MoveRequest& request);

    /// The category chosen by OK, as in the request; nothing after CANCEL.
    std::optional<Key> chosen() const { return chosen_; }

private:
    void make_controls();
    void fill_stock_categories(Connection& connection, Key own);
    void fill_recipe_categories(Key own);
    void ok();

    std::optional<Key> chosen_;
    QLabel* Label1_;
    QComboBox* Combo1_;
    QPushButton* Command1_[2];
};

} // namespace tarnwick
