#pragma once

#include "data/text.h"
#include "household/item_store.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarnwick {

class frmmain;
class ItemEditGrid;

/// The stock item editor. Its input stands in the shared values: mode, item, recipe line and list row.
class l_item_edit : public QDialog {
    Q_OBJECT
public:
    explicit l_item_edit(frmmain& main);
    ~l_item_edit() override;

    void reject() override; ///< CANCEL: nothing is written

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Load
    void make_controls();
    void lay_out();
    void load_lists();
    Key load_head();
    Key proposed_category() const;
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

    frmmain& main_;
    ItemStore store_;
    int mode_;
    QLineEdit* txt_item_ = nullptr;
    QComboBox* combo_ = nullptr;
    QPushButton* new_category_ = nullptr;
    ItemEditGrid* grid_ = nullptr;
    QLabel* lite_ = nullptr;
    QLabel* lbl_active_ = nullptr;
    QLabel* lbl_note_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
    bool leaving_ = false;
};

/// Opens the editor and waits, with the shared values as they are set.
void show_item_editor(frmmain& main);

} // namespace tarnwick
