#pragma once

#include "data/text.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarnwick {

struct Program;

/// What the naming dialog makes; the numbers are those of `dialog_kind`.
enum class NamingKind { list = 1, recipe = 2, category = 3 };

/// What the naming dialog is opened for.
struct NamingRequest {
    NamingKind dialog_kind = NamingKind::list;
    int recipe_category = 0; ///< index of the category that a new recipe is proposed for
};

/// The naming dialog: a new shopping list, a new recipe or a new stock category.
class new_item_rcp : public QDialog {
    Q_OBJECT
public:
    new_item_rcp(Program& program, QWidget* owner, NamingRequest request);

    /// The key of the record made; 0 when the dialog was cancelled.
    Key made() const { return made_; }

private:
    void make_controls();
    void place_controls();
    void show_kind(const QString& caption, const QString& prompt, const QString& icon);
    void fill_categories();
    void set_type_size();
    void ok();
    bool ok_list(const QString& name);
    bool ok_recipe(const QString& name);
    bool ok_category(const QString& name);

    Program& program_;
    NamingRequest request_;
    Key made_ = 0;
    QLineEdit* Text1_;
    QComboBox* Combo1_;
    QLabel* Label1_[2];
    QLabel* Picture1_[2];
    QPushButton* Command1_[2];
};

} // namespace tarnwick
