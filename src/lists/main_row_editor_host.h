#pragma once

#include "widgets/row_editor.h"

#include <functional>

namespace tarnwick {

struct Program;
class ListPane;
struct GridRow;

/// The main window's side of the row editor: every change is written to the list row at once.
class MainRowEditorHost : public RowEditorHost {
public:
    /// What the buttons at a row's end do.
    struct Buttons {
        std::function<void(int row)> edit;
        std::function<void(int row)> remove;
    };

    MainRowEditorHost(Program& program, ListPane& pane, Buttons buttons);

    int type_size() const override;
    bool column_group_shown(ColumnGroup group) const override;
    void text_edited(int row, GridColumn column, const QString& text) override;
    bool coupon_on(int row) const override;
    QString set_coupon(int row, bool on) override;
    void date_chosen(int row, QDate date) override;
    bool has_edit_buttons() const override { return true; }
    void edit_row(int row) override { buttons_.edit(row); }
    void remove_row(int row) override { buttons_.remove(row); }
    QString edit_tool_tip(int row) const override;
    QString remove_tool_tip(int row) const override;
    QDate today() const override;

private:
    const GridRow& row_at(int row) const;

    Program& program_;
    ListPane& pane_;
    Buttons buttons_;
};

} // namespace tarnwick
