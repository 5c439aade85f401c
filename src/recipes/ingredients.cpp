#include "recipes/ingredients.h"

#include "window/frmmain.h"
#include "widgets/message_box.h"
#include "data/runtime_error.h"
#include "household/ingredient_store.h"
#include "recipes/line_editor.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "stock/floating_buttons.h"
#include "household/status.h"

#include <QLineEdit>
#include <QScrollBar>

namespace tarnwick {
namespace {

const QString page_is_full = QStringLiteral("Recipe page is full");
constexpr int recipe_button = 1; ///< `flt_btn` that adds to the recipe

constexpr std::array all_fields{IngredientField::qty, IngredientField::measure, IngredientField::item,
                                IngredientField::comment};

} // namespace

Ingredients::Ingredients(frmmain& main, RecipePage& page, LineEditor& editor)
    : main_(main)
    , page_(page)
    , editor_(editor)
{
}

// False when there is no page for a new line, or the line under the editor is not finished yet.
bool Ingredients::begin_line()
{
    if (!page_.has_recipe() || main_.shared.list_pane_shown)
        return false;
    if (editor_.is_open())
        editor_.end_edit();
    if (editor_.is_open())
        return false;
    if (page_.has_room(QStringLiteral(" ")))
        return true;
    msg_box(&main_, QStringLiteral("This page is full: there is no room\nfor another ingredient"), box::information,
            page_is_full);
    return false;
}

bool Ingredients::has_new_line() const
{
    return page_.next_index() > 0 && page_.lines().back().is_new();
}

void Ingredients::add_ns_ingred()
{
    if (!begin_line())
        return;
    page_.state.matched_item = 0;
    page_.scroll_bar().setValue(0);
    page_.state.line_mode = line_mode::non_stock;
    main_.shared.editor_mode = edit_mode::non_stock_to_stock;
    main_.floating_buttons().hide(recipe_button);
    work.non_stock = true;
    work.adding_item = -1;
    try {
        editor_.show_r_line(-1);
    } catch (...) {
        end_after_error(current_error());
    }
}

void Ingredients::drag_ingred(const QString& name)
{
    const Key item = main_.shared.item_in_work;
    if (!begin_line())
        return;
    page_.state.line_mode = line_mode::stock;
    page_.state.matched_item = 0;
    const QString question
        = name + QStringLiteral(" already appears on this recipe\nWould you like to add it again?");
    if (check_exist(item)
        && msg_box(&main_, question, box::yes_no + box::question, QStringLiteral("Item already on recipe"))
            != Answer::yes)
        return;
    const auto stock_name = stock_item_name(main_.connection(), item);
    if (!stock_name)
        return;
    main_.shared.editor_mode = edit_mode::add_to_recipe;
    main_.shared.item_in_work = item;
    work.non_stock = false;
    work.adding_item = item;
    try {
        editor_.show_r_line(-1);
    } catch (...) {
        end_after_error(current_error());
        return;
    }
    editor_.set_field(IngredientField::item, trim(*stock_name));
    link(item);
    page_.state.matched_item = 0;
    page_.set_lites(editor_.index(), lite_status(main_.connection(), item));
    page_.lines()[static_cast<size_t>(editor_.index())].ingred->setProperty("Tag", QStringLiteral(" "));
}

bool Ingredients::check_exist(Key item) const
{
    return item_on_recipe(main_.connection(), page_.page_key(), item);
}

bool Ingredients::add_ingred(const QString& item, const QString& qty, const QString& measure,
                             const QString& comment)
{
    PageState& state = page_.state;
    if (state.line_mode >= line_mode::non_stock && state.matched_item > 0) {
        work.adding_item = state.matched_item;
        main_.shared.item_in_work = state.matched_item;
        state.line_mode = line_mode::stock;
    }
    if (trim(item).isEmpty()) {
        msg_box(&main_, QStringLiteral("Please provide a name for \nyour non-stock item"), box::ok,
                QStringLiteral("Please provide"));
        return false;
    }
    try {
        insert(item, qty, measure, comment);
    } catch (...) {
        end_after_error(current_error());
    }
    return true;
}

void Ingredients::insert(const QString& item, const QString& qty, const QString& measure, const QString& comment)
{
    IngredientRow row;
    row.item = item;
    row.qty = qty;
    row.measure = measure;
    row.comment = comment;
    row.item_ref = page_.state.line_mode >= line_mode::non_stock ? Key(-1) : work.adding_item;
    Transaction transaction(main_.connection());
    const auto inserted
        = insert_line(main_.connection(), page_.page_key(), row, page_.next_index() - (has_new_line() ? 1 : 0));
    if (!inserted) {
        drop_new_line();
        return;
    }
    show_inserted(*inserted);
    transaction.commit();
}

void Ingredients::show_inserted(const IngredientRow& row)
{
    if (!has_new_line())
        page_.new_line(row.key, row.item_ref, row.display_text(), row.item);
    const int index = page_.next_index() - 1;
    IngredientLine& line = page_.lines().at(static_cast<size_t>(index));
    line.key = row.key;
    line.item_ref = row.item_ref;
    line.item = row.item;
    line.text = row.display_text();
    line.tool_tip = get_ttt(main_.connection(), row.item_ref);
    line.count_capitals();
    page_.refresh_line(index);
    page_.set_lites(index, lite_status(main_.connection(), row.item_ref));
    page_.layout_page();
    page_.state.cur_line = index;
}

bool Ingredients::fits_on_page() const
{
    if (!work.is_new)
        return true;
    IngredientRow row;
    row.qty = editor_.field(IngredientField::qty);
    row.measure = editor_.field(IngredientField::measure);
    row.item = editor_.field(IngredientField::item);
    row.comment = editor_.field(IngredientField::comment);
    if (page_.has_room(row.display_text()))
        return true;
    msg_box(&main_, QStringLiteral("This page is full: there is no room\nfor so long an ingredient"),
            box::information, page_is_full);
    return false;
}

void Ingredients::ingred_updt(int index)
{
    IngredientLine& line = page_.lines().at(static_cast<size_t>(index));
    if (work.ing_flags[LineWork::any_field]) {
        if (work.ing_flags[static_cast<size_t>(IngredientField::item)]
            && editor_.field(IngredientField::item).isEmpty()) {
            msg_box(&main_, QStringLiteral("Please provide a name for your ingredient"), box::information,
                    QStringLiteral("Ingredient name missing"));
            return;
        }
        std::vector<std::pair<IngredientField, QString>> changed;
        for (const IngredientField field : all_fields)
            if (work.ing_flags[static_cast<size_t>(field)])
                changed.emplace_back(field, editor_.field(field));
        if (!changed.empty())
            write_line_fields(main_.connection(), line.key, changed);
    }
    QString text;
    for (const IngredientField field : all_fields)
        text = trim(QString(text + u' ' + editor_.field(field)));
    work.ing_flags.fill(false);
    line.text = text;
    if (work.item_changed)
        line.item
            = stock_item_name(main_.connection(), line.item_ref).value_or(editor_.field(IngredientField::item));
    page_.refresh_line(index);
    page_.layout_page();
}

void Ingredients::ingred_del(int index)
{
    if (index < 0 || index >= page_.next_index())
        return;
    PageState& state = page_.state;
    if (state.sel_line > 0 && state.sel_line == page_.recipe_lines().upper_bound())
        --state.sel_line;
    delete_line(main_.connection(), page_.lines()[static_cast<size_t>(index)].key);
    editor_.hide_line();
    page_.set_recipe(page_.page_key());
}

void Ingredients::cancel()
{
    if (!work.is_new) {
        ingred_del(editor_.index());
        return;
    }
    editor_.hide_line();
    drop_new_line();
}

void Ingredients::drop_new_line()
{
    if (has_new_line())
        page_.drop_last_line();
    work.is_new = false;
}

void Ingredients::link(Key item)
{
    page_.state.matched_item = item;
    const int index = editor_.index();
    if (index < 0)
        return;
    IngredientLine& line = page_.lines()[static_cast<size_t>(index)];
    line.item_ref = item > 0 ? item : Key(-1);
    line.Check1->setProperty("Tag", QString::number(line.item_ref));
    if (!work.is_new)
        set_line_link(main_.connection(), line.key, line.item_ref);
}

void Ingredients::link_by_name(Key item)
{
    link(item);
    const int code = item > 0 ? lite_status(main_.connection(), item) : status_code::non_stock;
    if (code != status_code::buy_it_plus && editor_.index() >= 0)
        page_.set_lites(editor_.index(), code);
}

// The message comes first: what made the operation fail may fail the tidying up as well.
void Ingredients::end_after_error(const runtime_error& error)
{
    if (!error.is(runtime_error::type_mismatch))
        main_.shut_down();
    editor_.hide_line();
    drop_new_line();
}

} // namespace tarnwick
