#pragma once

#include "data/text.h"
#include "household/item_saving.h"
#include "household/item_store.h"
#include "household/rescue.h"

#include <QDialog>

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarnwick {

struct Program;
class ItemEditGrid;

/// What the item editor is opened for; the numbers are those of `editor_mode`.
enum class EditMode {
    new_item = 0,
    place_item = 1,
    edit_item = 2,
    recipe_item = 3,
    add_to_recipe = 4,
    non_stock_to_stock = 5
};

/// What the item editor is to work on.
struct EditRequest {
    EditMode mode = EditMode::new_item;
    Key item = -1; ///< stock item; -1 one that OK makes
    Key line = -1; ///< recipe line that it is opened for; -1 none
    Key row = -1; ///< `groc_1` key of the list row that is made current; -1 none
    QString name{}; ///< of the recipe line's item, for a new one
    Key category = 0; ///< proposed for a new item
    Key list = 0; ///< list whose row is marked to be placed; 0 none
};

/// The stock item editor.
class l_item_edit : public QDialog {
    Q_OBJECT
public:
    l_item_edit(Program& program, EditRequest request);
    ~l_item_edit() override;

    /// As it was opened, with the item found for a recipe line and, after OK, the item that was made.
    const EditRequest& request() const { return request_; }

    /// What OK would write, with the item's old name; nothing while that is as it was opened, or is written.
    std::optional<RescuedItem> unsaved() const;

    void reject() override; ///< CANCEL: nothing is written

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Load
    void make_controls();
    void lay_out();
    void load_lists();
    Key load_head();
    void fill_categories(Key selected);
    void lite_updt(bool at_load);
    void caption_updt(const QString& name);

    // Checks
    bool makes_item() const;
    QString entered_name() const;
    QString old_name() const;
    bool name_accepted();
    bool name_left();
    bool new_item_accepted();

    // Controls
    void new_category();
    void ok();
    void save();
    ItemEdit edit() const;

    Program& program_;
    ItemStore store_;
    EditRequest request_;
    QLineEdit* txt_item_ = nullptr;
    QComboBox* combo_ = nullptr;
    QPushButton* new_category_ = nullptr;
    ItemEditGrid* grid_ = nullptr;
    QLabel* lite_ = nullptr;
    QLabel* lbl_active_ = nullptr;
    QLabel* lbl_note_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
    ItemEdit opened_; ///< what OK would have written at once
    bool leaving_ = false;
};

/// Opens the editor and waits.
void show_item_editor(Program& program, EditRequest request);

} // namespace tarnwick
