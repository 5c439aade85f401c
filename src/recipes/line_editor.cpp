#include "recipes/line_editor.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "household/household.h"
#include "household/status.h"
#include "recipes/ingredients.h"
#include "recipes/line_boxes.h"
#include "recipes/line_buttons.h"
#include "recipes/line_clicks.h"
#include "recipes/line_keys.h"
#include "recipes/line_listener.h"
#include "recipes/line_name.h"
#include "recipes/line_picks.h"
#include "recipes/line_widgets.h"
#include "recipes/page_text.h"
#include "recipes/pick_list.h"
#include "recipes/recipe_page.h"
#include "widgets/focus_question.h"
#include "widgets/message_box.h"
#include "widgets/row_editor_controls.h"
#include "widgets/tool_tip.h"
#include "widgets/tree_view.h"
#include "widgets/update_lock.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <tuple>

namespace tarnwick {

using enum IngredientField;

namespace {

constexpr const char* tag_property = "Tag";
constexpr int room_for_list = 160; ///< pixels kept free under a line that is opened

} // namespace

LineEditor::LineEditor(Program& program, RecipePage& page)
    : QObject(&page)
    , program_(program)
    , page_(page)
    , ingredients_(std::make_unique<Ingredients>(program, page, *this))
    , boxes_(std::make_unique<LineBoxes>(page.frame3(), *this))
    , question_(new FocusQuestion(this))
    , picks_(std::make_unique<LinePicks>(program.connection, program.shared, page, *boxes_))
    , list_(picks_->list())
    , keys_(std::make_unique<LineKeys>(*boxes_, list_))
    , clicks_(std::make_unique<LineClicks>(program.connection, page, *this, *ingredients_))
    , name_(std::make_unique<LineName>(program.connection, page, *boxes_, *picks_, draft_,
                                       [this] { return index(); }))
    , buttons_(std::make_unique<LineButtons>(program, page, *this, *boxes_))
{
    connect(boxes_.get(), &LineBoxes::typed, this, &LineEditor::typed);
    connect(keys_.get(), &LineKeys::box_wanted, this, &LineEditor::go_to);
    connect(keys_.get(), &LineKeys::edit_ended, this, &LineEditor::end_edit);
    connect(keys_.get(), &LineKeys::given_up, this, &LineEditor::give_up);
    connect(&list_, &PickList::given_up, this, &LineEditor::give_up);
    connect(keys_.get(), &LineKeys::row_picked, this, &LineEditor::picked);
    connect(picks_.get(), &LinePicks::out_of_sight, this,
            [this](IngredientField field) { boxes_->edit(field).setFocus(Qt::NoFocusReason); });
    connect(&list_, &PickList::picked, this, &LineEditor::picked);
    connect(&list_, &PickList::left, this, &LineEditor::list_left);
    connect(buttons_.get(), &LineButtons::line_wanted, clicks_.get(), &LineClicks::open_line);
    connect(&page_, &RecipePage::laid_out, this, &LineEditor::place);
}

LineEditor::~LineEditor() = default;

int LineEditor::index() const
{
    return index_ < page_.recipe_lines().count() ? index_ : -1;
}

bool LineEditor::lines_greyed() const
{
    return clicks_->lines_greyed();
}

IngredientLine& LineEditor::line()
{
    return page_.lines().at(static_cast<size_t>(index_));
}

void LineEditor::show_r_line(const LineDraft& draft, std::optional<int> index)
{
    if (open_)
        return;
    draft_ = draft;
    before_ = draft.stored;
    if (!index) {
        const Key item_ref = draft.edited.item_ref;
        index = page_.new_line(-1, item_ref, QStringLiteral(" "), QString());
        page_.set_lites(*index, lite_status(program_.connection, item_ref));
    }
    index_ = *index;
    page_.state.sel_line = page_.state.cur_line = index_;
    const int top = line().ingred->y();
    page_.show_stretch(top, top + std::min(room_for_list, page_.frame4().height() - 1));
    open_ = true;
    fill_boxes();
    show_controls();
    grey_lines();
    go_to(qty);
}

void LineEditor::fill_boxes()
{
    for (const IngredientField field : ingredient_fields) {
        const QString& text = draft_.text(field);
        boxes_->show_text(field, text);
        boxes_->set_tag(field,
                        draft_.is_new() && text.isEmpty() ? QStringLiteral(" ") : boxes_->edit(field).text());
    }
    last_box_ = qty;
    const bool is_new = draft_.is_new();
    const bool stock = lite_status(program_.connection, draft_.stored.item_ref) != StatusCode::non_stock;
    QAbstractButton& pencil = boxes_->imgedit();
    pencil.setToolTip(
        plain_tool_tip(QStringLiteral("Edit stock item") + (stock ? u' ' + draft_.stored.item : QString())));
    pencil.setVisible(!is_new);
    QAbstractButton& cross = boxes_->imgScratch();
    cross.setToolTip(is_new ? QStringLiteral("Cancel adding ingredient") : QStringLiteral("Delete ingredient"));
    cross.setProperty(tag_property, is_new ? QStringLiteral("ns") : QStringLiteral("edit"));
    cross.show();
    page_.frame3().setProperty(tag_property, QString::number(index_));
    if (is_new)
        line().ingred->setProperty(tag_property, QStringLiteral(" "));
}

void LineEditor::show_controls()
{
    const UpdateLock lock(page_.frame4());
    place();
    boxes_->show(page_.frame4().palette().color(QPalette::Base));
    line().ingred->hide();
}

void LineEditor::grey_lines()
{
    page_.recipe_lines().set_text_color(grey);
    for (const IngredientLine& greyed : page_.lines())
        greyed.ingred->setToolTip({});
}

void LineEditor::blacken_lines()
{
    page_.recipe_lines().set_text_color(Qt::black);
    for (IngredientLine& shown : page_.lines()) {
        shown.tool_tip = get_ttt(program_.connection, shown.item_ref);
        shown.ingred->setToolTip(plain_tool_tip(shown.tool_tip));
    }
}

void LineEditor::place()
{
    if (!open_ || index() < 0)
        return;
    boxes_->place(line().ingred->geometry(), page_.frame4().width(), program_.shared.type_size,
                  page_.Text1().font());
    picks_->place();
}

void LineEditor::typed(IngredientField field)
{
    if (!open_ || (field == item && refuse_apostrophe()))
        return;
    const QString text = boxes_->text(field);
    if (field == item)
        name_->typed(text);
    else
        draft_.set_text(field, text);
}

// True after the message: the apostrophes are gone and the focus is in the box.
bool LineEditor::refuse_apostrophe()
{
    if (!name_->has_apostrophe())
        return false;
    {
        const QScopedValueRollback asking(busy_, true);
        msg_box(&program_.window, QStringLiteral("Sorry - you can't put an apostrophe\nin the item name"),
                box::information, QStringLiteral("Valora info"));
    }
    QString name = boxes_->edit(item).text();
    boxes_->edit(item).setText(strip_apostrophes(name));
    go_to(item);
    return true;
}

void LineEditor::picked(int row)
{
    if (!open_)
        return;
    const auto take = [this](IngredientField field, const QString& text, IngredientField next) {
        boxes_->edit(field).setText(text);
        left_box(field);
        go_to(next);
    };
    switch (list_.content()) {
    case PickList::Content::quantities:
        take(qty, trim(QString(boxes_->text(qty) + u' ' + list_.text(row))), measure);
        break;
    case PickList::Content::measures:
        take(measure, list_.text(row), item);
        break;
    default:
        ListIngred_select(row);
    }
}

/// Takes a row of the stock list as the line's item; the name that is in the box already changes nothing. Goes on
/// to the comment.
void LineEditor::ListIngred_select(int row)
{
    const Key chosen = list_.item_data(row);
    if (chosen < 1 || index() < 0)
        return;
    const QString text = boxes_->text(item);
    QString name = trim(list_.text(row));
    if (name == text) {
        left_box(item);
    } else {
        if (name.toUpper() + u'S' == text.toUpper())
            name += text.back();
        name_->choose(name, chosen);
        if (draft_.is_new())
            boxes_->imgScratch().setProperty(tag_property, QStringLiteral("edit"));
        write();
        name_->show_chosen();
        list_.set_content(PickList::Content::chosen);
    }
    go_to(comment);
    list_.hide();
}

QWidget* LineEditor::open_box() const
{
    return open_ ? &boxes_->edit(last_box_) : nullptr;
}

bool LineEditor::is_part(const QWidget* widget) const
{
    return widget && (boxes_->field_of(widget) || widget == &list_ || boxes_->is_button(widget));
}

bool LineEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (!open_)
        return false;
    const auto field = boxes_->field_of(watched);
    if (!field && !boxes_->is_button(watched))
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
        if (!busy_)
            question_->drop();
        if (field
            && (leaves_control(static_cast<QFocusEvent*>(event)->reason()) || *field != last_box_
                || boxes_->is_placeholder(*field)))
            box_entered(*field);
        return false;
    case QEvent::FocusOut:
        if (const auto reason = static_cast<QFocusEvent*>(event)->reason(); !busy_ && leaves_control(reason))
            focus_left(field, reason);
        return false;
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!field && key->key() == Qt::Key_Escape) {
            give_up();
            return true;
        }
        return field
            && keys_->key_in_box(*field, key->key(), key->modifiers(), boxes_->text(item) == draft_.settled.name);
    }
    case QEvent::KeyRelease:
        return watched == &boxes_->imgScratch() && !static_cast<QKeyEvent*>(event)->isAutoRepeat()
            && buttons_->scratch_key(static_cast<QKeyEvent*>(event)->key());
    case QEvent::MouseButtonPress:
        if (field == qty && QApplication::focusWidget() == watched)
            picks_->fill(qty);
        return false;
    case QEvent::Drop:
        if (field)
            enter_for_drop(*field);
        return false;
    default:
        return false;
    }
}

void LineEditor::go_to(IngredientField field)
{
    QLineEdit& edit = boxes_->edit(field);
    page_.show_control(edit);
    const bool had_focus = edit.hasFocus();
    if (!had_focus)
        edit.setFocus(Qt::OtherFocusReason);
    // While a message still holds the keyboard the box gets it later, with the window.
    if (had_focus || !edit.hasFocus())
        box_entered(field);
}

void LineEditor::box_entered(IngredientField field)
{
    // A box that was left behind an inactive window did not hear of it.
    if (field != last_box_ && boxes_->text(last_box_).isEmpty() && !boxes_->is_placeholder(last_box_))
        boxes_->show_text(last_box_, {});
    last_box_ = field;
    if (boxes_->is_placeholder(field))
        boxes_->show_empty(field);
    place();
    boxes_->edit(field).end(false);
    picks_->fill(field);
}

// A text of another program comes by the mouse, but moves no focus: it would land inside a placeholder.
void LineEditor::enter_for_drop(IngredientField field)
{
    if (field == last_box_)
        return;
    left_box(last_box_);
    go_to(field);
}

// A press on a tree is left to the tree, which finishes the edit itself and then takes no node.
void LineEditor::focus_left(std::optional<IngredientField> field, Qt::FocusReason reason)
{
    const QWidget* next = QApplication::focusWidget();
    if (next == &list_ && field != comment)
        return;
    if (field || !is_part(next))
        left_box(last_box_);
    if (is_part(next))
        return;
    if (reason == Qt::MouseFocusReason && qobject_cast<const TreeView*>(next))
        question_->ask_later(Qt::OtherFocusReason, [this] { finish_or_ask(); });
    else
        lf_validate(reason);
}

void LineEditor::list_left(Qt::FocusReason reason)
{
    if (!open_ || busy_ || is_part(QApplication::focusWidget()))
        return;
    list_.hide();
    focus_left(std::nullopt, reason);
}

void LineEditor::left_box(IngredientField field)
{
    if (field == item)
        name_->settle();
    write();
    if (boxes_->text(field).isEmpty())
        boxes_->show_text(field, {});
    if (!draft_.is_new() || field == item)
        boxes_->set_tag(field, boxes_->edit(field).text());
}

void LineEditor::write()
{
    if (!draft_.is_new() && draft_.is_changed())
        draft_.stored_as(program_.household.save_line(draft_));
}

void LineEditor::leave()
{
    if (!open_ || busy_)
        return;
    left_box(last_box_);
    lf_validate(Qt::OtherFocusReason);
}

void LineEditor::give_up()
{
    if (!open_ || busy_)
        return;
    if (draft_.is_new()) {
        ingredients_->cancel();
    } else {
        page_.state.cur_line = std::max(index(), 0);
        const auto fields = [](const IngredientRow& row) {
            return std::tie(row.item_ref, row.qty, row.measure, row.item, row.comment);
        };
        if (fields(draft_.stored) != fields(before_))
            program_.household.restore_line(before_);
        draft_.stored = before_;
        hide_line();
    }
    if (QWidget* place = page_.keyboard_place())
        place->setFocus(Qt::OtherFocusReason);
}

void LineEditor::end_edit()
{
    if (!open_ || busy_)
        return;
    left_box(last_box_);
    if (may_close())
        page_.Text1().setFocus(Qt::OtherFocusReason);
    // Without the keyboard in the window no box hears that it loses it.
    if (open_)
        lf_validate(Qt::OtherFocusReason);
}

void LineEditor::store_quietly()
{
    if (!open_ || busy_)
        return;
    if (name_->has_apostrophe())
        name_->drop_apostrophes();
    left_box(last_box_);
    if (draft_.edited.item.isEmpty()) {
        if (draft_.is_new())
            return;
        name_->restore();
    }
    lf_finish();
}

void LineEditor::close_quietly()
{
    store_quietly();
    if (open_ && !busy_ && draft_.is_new() && draft_.edited.item.isEmpty())
        ingredients_->cancel();
}

bool LineEditor::may_close() const
{
    return !draft_.edited.item.isEmpty() && !name_->has_apostrophe() && has_room();
}

// After a click the focus returns at once, before what was clicked has made use of it.
void LineEditor::lf_validate(Qt::FocusReason reason)
{
    if (may_close()) {
        lf_finish();
        return;
    }
    question_->ask_later(reason, [this] { finish_or_ask(); });
    if (reason == Qt::MouseFocusReason) {
        const QScopedValueRollback moves_focus(busy_, true);
        boxes_->edit(item).setFocus(Qt::OtherFocusReason);
    }
}

void LineEditor::finish_or_ask()
{
    if (!open_ || busy_ || refuse_apostrophe())
        return;
    if (may_close())
        lf_finish();
    else if (draft_.edited.item.isEmpty())
        ask_for_name();
    else
        refuse_length();
}

bool LineEditor::has_room() const
{
    return !draft_.is_new() || page_.has_room(draft_.edited.display_text());
}

void LineEditor::refuse_length()
{
    {
        const QScopedValueRollback asking(busy_, true);
        msg_box(&program_.window, QStringLiteral("This page is full: there is no room\nfor so long an ingredient"),
                box::information, QStringLiteral("Recipe page is full"));
    }
    go_to(item);
}

void LineEditor::ask_for_name()
{
    list_.hide();
    const bool may_cancel = draft_.is_new() && draft_.placed_item < 1;
    QString text = QStringLiteral("Please provide a name for your ingredient");
    if (may_cancel)
        text += QStringLiteral("\n(or hit CANCEL to cancel adding ingredient)");
    Answer answer = Answer::ok;
    {
        const QScopedValueRollback asking(busy_, true);
        answer = msg_box(&program_.window, text, box::information + (may_cancel ? box::ok_cancel : box::ok),
                         QStringLiteral("Ingredient name missing"));
    }
    if (may_cancel && answer == Answer::cancel) {
        ingredients_->cancel();
        return;
    }
    if (!may_cancel)
        name_->restore();
    go_to(item);
}

void LineEditor::lf_finish()
{
    if (!open_)
        return;
    const UpdateLock lock(program_.window);
    const int finished = index();
    hide_controls();
    if (draft_.is_new()) {
        if (!ingredients_->add_ingred(draft_)) {
            show_controls();
            go_to(item);
            return;
        }
    } else if (finished >= 0) {
        write();
        page_.line_listener().show_stored(finished, draft_.stored);
    }
    blacken_lines();
    open_ = false;
    index_ = -1;
    page_.layout_page();
}

void LineEditor::hide_controls()
{
    question_->drop();
    const QScopedValueRollback moves_focus(busy_, true);
    if (QWidget* focus = QApplication::focusWidget(); focus && is_part(focus))
        focus->clearFocus();
    boxes_->hide();
    if (open_)
        boxes_->imgScratch().setProperty(tag_property, QStringLiteral("edit"));
    list_.clear_and_hide();
    for (const IngredientLine& shown : page_.lines()) {
        shown.ingred->set_selected(false);
        shown.ingred->show();
    }
}

void LineEditor::hide_line()
{
    emit page_.editors_closing();
    if (!open_)
        return;
    const UpdateLock lock(program_.window);
    const int hidden = index();
    hide_controls();
    open_ = false;
    index_ = -1;
    for (const IngredientField field : ingredient_fields) {
        boxes_->show_text(field, QStringLiteral(" "));
        boxes_->set_tag(field, QStringLiteral(" "));
    }
    // The line shows what was written while its boxes were left one by one.
    if (hidden >= 0 && !draft_.is_new())
        page_.line_listener().show_stored(hidden, draft_.stored);
    blacken_lines();
}

} // namespace tarnwick
