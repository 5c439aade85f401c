#include "recipes/line_editor.h"

#include "widgets/busy_pointer.h"
#include "window/frmmain.h"
#include "widgets/message_box.h"
#include "widgets/row_editor_controls.h"
#include "recipes/ingredients.h"
#include "recipes/line_widgets.h"
#include "recipes/lost_click.h"
#include "recipes/page_text.h"
#include "recipes/pick_list.h"
#include "recipes/recipe_page.h"
#include "widgets/tool_tip.h"
#include "widgets/tree_view.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr const char* tag = "Tag";
constexpr int qty_box = static_cast<int>(IngredientField::qty);
constexpr int measure_box = static_cast<int>(IngredientField::measure);
constexpr int item_box = static_cast<int>(IngredientField::item);
constexpr int comment_box = static_cast<int>(IngredientField::comment);

bool is_enter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

int LineEditor::box_of(const QWidget* widget) const
{
    const auto box
        = std::find_if(boxes_.begin(), boxes_.end(), [widget](const Box& b) { return b.edit == widget; });
    return box == boxes_.end() ? -1 : static_cast<int>(box - boxes_.begin());
}

bool LineEditor::is_placeholder(int box) const
{
    const Box& shown = boxes_[static_cast<size_t>(box)];
    return shown.edit->text() == shown.placeholder;
}

bool LineEditor::is_part(const QWidget* widget) const
{
    return widget && (box_of(widget) >= 0 || widget == list_ || widget == imgedit_ || widget == imgScratch_);
}

bool LineEditor::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    const int box = box_of(widget);
    const bool is_button = widget && (widget == imgedit_ || widget == imgScratch_);
    if (!open_ || (box < 0 && !is_button))
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
        if (box >= 0
            && (leaves_control(static_cast<QFocusEvent*>(event)->reason()) || box != last_box_
                || is_placeholder(box)))
            box_entered(box);
        return false;
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        return !busy_ && leaves_control(reason) && focus_left(box, reason);
    }
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        return box >= 0 && key_in_box(box, key->key(), key->modifiers());
    }
    case QEvent::KeyRelease:
        return widget == imgScratch_ && scratch_key(static_cast<QKeyEvent*>(event)->key());
    case QEvent::MouseButtonPress:
        if (box == qty_box && QApplication::focusWidget() == widget)
            fill_list(box);
        return false;
    default:
        return false;
    }
}

void LineEditor::box_entered(int box)
{
    // A box that was left behind an inactive window did not hear of it.
    if (box != last_box_ && field(static_cast<IngredientField>(last_box_)).isEmpty() && !is_placeholder(last_box_))
        set_placeholder(boxes_[static_cast<size_t>(last_box_)]);
    last_box_ = box;
    QLineEdit& edit = *boxes_[static_cast<size_t>(box)].edit;
    if (is_placeholder(box))
        set_value(boxes_[static_cast<size_t>(box)], QString());
    place();
    edit.end(false);
    fill_list(box);
}

// True when the focus came back. A press on a tree is left to the tree, which finishes the edit itself
// and then takes no node.
bool LineEditor::focus_left(int box, Qt::FocusReason reason)
{
    const QWidget* next = QApplication::focusWidget();
    if (next == list_ && box != comment_box)
        return false;
    if (reason == Qt::MouseFocusReason && qobject_cast<const TreeView*>(next)) {
        QTimer::singleShot(0, this, [this] {
            if (!is_part(QApplication::focusWidget()))
                leave();
        });
        return false;
    }
    const bool may_go = (box < 0 && is_part(next)) || ing_flt_updt(box < 0 ? last_box_ : box);
    if (may_go)
        lf_validate(next);
    const bool came_back = open_ && !is_part(next);
    if (came_back && reason == Qt::MouseFocusReason)
        lost_click_->start();
    return came_back || !may_go;
}

void LineEditor::list_left(Qt::FocusReason reason)
{
    if (!open_ || busy_ || is_part(QApplication::focusWidget()))
        return;
    list_->hide();
    focus_left(-1, reason);
}

void LineEditor::leave()
{
    if (!open_ || busy_)
        return;
    if (ing_flt_updt(last_box_))
        lf_validate(nullptr);
}

void LineEditor::end_edit()
{
    // Without the keyboard in the window no box would hear that it loses it.
    const bool told_by_focus = is_part(QApplication::focusWidget());
    page_.Text1().setFocus(Qt::OtherFocusReason);
    if (!told_by_focus)
        leave();
}

void LineEditor::close_quietly()
{
    if (!open_ || busy_)
        return;
    QLineEdit& item = *boxes_[item_box].edit;
    if (item.text() != item.property(tag).toString() && item.text().contains(u'\'')) {
        QString name = item.text();
        set_value(boxes_[item_box], strip_apostrophes(name));
    }
    ing_flt_updt(last_box_);
    if (field(IngredientField::item).isEmpty()) {
        if (ingredients_->work.is_new) {
            ingredients_->cancel();
            return;
        }
        restore_name();
    }
    lf_finish();
}

QString LineEditor::tag_of(int box) const
{
    const Box& shown = boxes_[static_cast<size_t>(box)];
    const QString text = trim(shown.edit->property(tag).toString());
    return text == shown.placeholder ? QString() : text;
}

// False when the name was refused and the focus is back in its box.
bool LineEditor::ing_flt_updt(int box)
{
    const auto edited = static_cast<IngredientField>(box);
    const Box& left = boxes_[static_cast<size_t>(box)];
    LineWork& work = ingredients_->work;
    if (box == item_box && refuse_apostrophe())
        return false;
    const QString text = field(edited);
    if (text != tag_of(box) && index() >= 0) {
        if (box == item_box && !text.isEmpty()) {
            name_left(text);
        } else if (box != item_box && !work.is_new) {
            const Key line = page_.lines()[static_cast<size_t>(index_)].key;
            write_line_fields(main_.connection(), line, {{edited, text}});
            left.edit->setProperty(tag, text);
        }
    }
    if (text.isEmpty())
        set_placeholder(left);
    work.ing_flags[static_cast<size_t>(box)] = false;
    return true;
}

void LineEditor::name_left(const QString& name)
{
    Connection& connection = main_.connection();
    LineWork& work = ingredients_->work;
    IngredientLine& line = page_.lines()[static_cast<size_t>(index_)];
    const Key item = stock_item_named(connection, name);
    if (work.is_new) {
        new_name_left(item);
    } else {
        write_line_item(connection, line.key, item > 0 ? item : Key(-1), name);
        boxes_[item_box].edit->setProperty(tag, name);
        opened_link_ = item > 0 ? item : Key(-1);
    }
    ingredients_->link(item);
    page_.set_lites(index_, item > 0 ? lite_status(connection, item) : status_code::non_stock);
    line.ingred->setToolTip(plain_tool_tip(item > 0 ? get_status(connection, item)
                                                    : u'\'' + name + QStringLiteral("': Non-stock item")));
}

// A line that began without a stock item goes back to none with its name; a stock item that was placed on
// the page keeps its line whatever it is called there.
void LineEditor::new_name_left(Key item)
{
    LineWork& work = ingredients_->work;
    if (item > 0) {
        work.adding_item = item;
        main_.shared.item_in_work = item;
    } else if (work.non_stock) {
        work.adding_item = -1;
        page_.state.line_mode = line_mode::non_stock;
    }
}

// True after the message: the apostrophes are gone and the focus is in the box. A name that was stored
// with one stays as it is until it is changed.
bool LineEditor::refuse_apostrophe()
{
    QLineEdit& edit = *boxes_[item_box].edit;
    QString name = edit.text();
    if (!name.contains(u'\'') || trim(name) == tag_of(item_box))
        return false;
    {
        const QScopedValueRollback asking(busy_, true);
        msg_box(&main_, QStringLiteral("Sorry - you can't put an apostrophe\nin the item name"), box::information,
                QStringLiteral("Valora info"));
    }
    edit.setText(strip_apostrophes(name));
    go_to(item_box);
    return true;
}

void LineEditor::lf_validate(const QWidget* active)
{
    if (!open_ || busy_ || is_part(active))
        return;
    if (field(IngredientField::item).isEmpty())
        ask_for_name();
    else if (has_room())
        lf_finish();
}

// False after the message, with the focus back in the box that was left.
bool LineEditor::has_room()
{
    {
        const QScopedValueRollback asking(busy_, true);
        if (ingredients_->fits_on_page())
            return true;
    }
    go_to(last_box_);
    return false;
}

void LineEditor::ask_for_name()
{
    const bool may_cancel = ingredients_->work.is_new && ingredients_->work.non_stock;
    QString text = QStringLiteral("Please provide a name for your ingredient");
    if (may_cancel)
        text += QStringLiteral("\n(or hit CANCEL to cancel adding ingredient)");
    Answer answer = Answer::ok;
    {
        const QScopedValueRollback asking(busy_, true);
        answer = msg_box(&main_, text, box::information + (may_cancel ? box::ok_cancel : box::ok),
                         QStringLiteral("Ingredient name missing"));
    }
    if (may_cancel && answer == Answer::cancel) {
        ingredients_->cancel();
        return;
    }
    if (!may_cancel)
        restore_name();
    go_to(item_box);
}

void LineEditor::restore_name()
{
    const Box& item = boxes_[item_box];
    set_value(item, tag_of(item_box));
    ingredients_->work.ing_flags[item_box] = false;
    const Key link = opened_link_;
    ingredients_->link(link > 0 ? link : Key(0));
    if (index() >= 0)
        page_.set_lites(index_, lite_status(main_.connection(), link));
}

void LineEditor::mark_changed(int box)
{
    LineWork& work = ingredients_->work;
    if (page_.state.line_mode == line_mode::non_stock || field(static_cast<IngredientField>(box)) == tag_of(box))
        return;
    work.ing_flags[static_cast<size_t>(box)] = true;
    work.ing_flags[LineWork::any_field] = true;
    work.item_changed = work.item_changed || box == item_box;
}

void LineEditor::box_changed(int box)
{
    if (filling_ || !open_ || is_placeholder(box))
        return;
    mark_changed(box);
    if (box != item_box || refuse_apostrophe())
        return;
    const QString name = field(IngredientField::item);
    if (!boxes_[item_box].edit->hasFocus()) {
        ingredients_->link_by_name(stock_item_named(main_.connection(), name));
        return;
    }
    std::vector<StockName> names = stock_names(name);
    ingredients_->link_by_name(stock_item_among(main_.connection(), names, name));
    if (name != tag_of(item_box))
        show_names(std::move(names));
}

void LineEditor::fill_list(int box)
{
    switch (box) {
    case qty_box:
        list_->ListIngred_fill_qty();
        place_list();
        break;
    case measure_box:
        list_->ListIngred_fill_measure();
        place_list();
        break;
    case item_box:
        ListIngred_fill();
        break;
    default:
        list_->clear_and_hide();
    }
}

void LineEditor::ListIngred_fill()
{
    show_names(stock_names(field(IngredientField::item)));
}

std::vector<StockName> LineEditor::stock_names(const QString& text) const
{
    return text.isEmpty() ? std::vector<StockName>() : stock_names_like(main_.connection(), text);
}

void LineEditor::show_names(std::vector<StockName> names)
{
    list_->ListIngred_fill(std::move(names));
    place_list();
}

void LineEditor::go_to(int box)
{
    QLineEdit& edit = *boxes_[static_cast<size_t>(box)].edit;
    const bool had_focus = edit.hasFocus();
    if (!had_focus)
        edit.setFocus(Qt::OtherFocusReason);
    // While a message still holds the keyboard the box gets it later, with the window.
    if (had_focus || !edit.hasFocus())
        box_entered(box);
}

bool LineEditor::key_in_box(int box, int key, Qt::KeyboardModifiers held)
{
    const bool plain = (held & ~Qt::KeypadModifier) == Qt::NoModifier;
    const CellBox& edit = *boxes_[static_cast<size_t>(box)].edit;
    const bool list_open = !list_->isHidden() && box != comment_box;
    if (key == Qt::Key_Backtab) {
        go_to(std::max(box - 1, qty_box));
        return true;
    }
    if (!plain)
        return false;
    if (key == Qt::Key_Tab && list_open && (box == item_box || list_->list_index() >= 0))
        return pick_key_handler(box, key);
    if (key == Qt::Key_Tab || (key == Qt::Key_Right && edit.caret_at_end())
        || (is_enter(key) && box == comment_box)) {
        if (box == comment_box)
            end_edit();
        else
            go_to(box + 1);
        return true;
    }
    if (key == Qt::Key_Left && edit.caret_at_start() && box > qty_box) {
        go_to(box - 1);
        return true;
    }
    if (list_open && (key == Qt::Key_Down || key == Qt::Key_Up || is_enter(key)))
        return pick_key_handler(box, key);
    return is_enter(key);
}

bool LineEditor::pick_key_handler(int box, int key)
{
    const int row = list_->list_index();
    if (key == Qt::Key_Down || key == Qt::Key_Up) {
        if (row < 0)
            list_->select_row(0);
        list_->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (row >= 0) {
        picked(row);
        return true;
    }
    if (box != item_box) {
        end_edit();
        return true;
    }
    const QString name = field(IngredientField::item);
    if (const int meant = name == tag_of(item_box) ? -1 : row_meant(name); meant >= 0) {
        ListIngred_select(meant);
    } else {
        list_->hide();
        go_to(comment_box);
    }
    return true;
}

// The row of a typed name: its own, else the first row when that is its singular or plural; -1 none.
int LineEditor::row_meant(const QString& name) const
{
    const QString typed = name.toUpper();
    if (typed.isEmpty())
        return -1;
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->text(row).toUpper() == typed)
            return row;
    }
    const QString first = list_->text(0).toUpper();
    return typed == first + u'S' || first == typed + u'S' ? 0 : -1;
}

void LineEditor::picked(int row)
{
    if (!open_)
        return;
    const auto take = [this](int box, const QString& text, int next) {
        boxes_[static_cast<size_t>(box)].edit->setText(text);
        ing_flt_updt(box);
        go_to(next);
    };
    switch (list_->content()) {
    case PickList::Content::quantities:
        take(qty_box, trim(QString(field(IngredientField::qty) + u' ' + list_->text(row))), measure_box);
        break;
    case PickList::Content::measures:
        take(measure_box, list_->text(row), item_box);
        break;
    default:
        ListIngred_select(row);
    }
}

void LineEditor::ListIngred_select(int row)
{
    const Key item = list_->item_data(row);
    if (item < 1 || index() < 0)
        return;
    Connection& connection = main_.connection();
    LineWork& work = ingredients_->work;
    IngredientLine& line = page_.lines()[static_cast<size_t>(index_)];
    const QString typed = field(IngredientField::item);
    QString name = trim(list_->text(row));
    if (name == typed) {
        ing_flt_updt(item_box);
        go_to(comment_box);
        list_->hide();
        return;
    }
    main_.shared.item_in_work = item;
    if (name.toUpper() + u'S' == typed.toUpper())
        name += typed.back();
    work.item_changed = work.item_changed || name != tag_of(item_box);
    work.ing_flags[LineWork::any_field] = true;
    work.ing_flags[item_box] = false;
    work.adding_item = item;
    if (work.is_new) {
        page_.state.line_mode = line_mode::stock;
        imgScratch_->setProperty(tag, QStringLiteral("edit"));
    } else {
        write_line_item(connection, line.key, item, name);
    }
    set_value(boxes_[item_box], name);
    boxes_[item_box].edit->setProperty(tag, name);
    opened_link_ = item;
    ingredients_->link(item);
    page_.set_lites(index_, lite_status(connection, item));
    line.ingred->setToolTip(plain_tool_tip(get_status(connection, item)));
    list_->set_content(PickList::Content::chosen);
    go_to(comment_box);
    list_->hide();
}

void LineEditor::edit_clicked()
{
    if (index() < 0 || main_.shared.list_pane_shown)
        return;
    const Key line = page_.lines()[static_cast<size_t>(index_)].key;
    page_.state.cur_line = index_;
    main_.shared.item_in_work = page_.lines()[static_cast<size_t>(index_)].item_ref;
    main_.shared.editor_mode = edit_mode::new_item;
    end_edit();
    const auto link = line_link(main_.connection(), line);
    if (open_ || !link)
        return;
    const bool stock = lite_status(main_.connection(), link->item_ref) != status_code::non_stock;
    main_.shared.editor_mode = stock ? edit_mode::recipe_item : edit_mode::non_stock_to_stock;
    main_.shared.item_in_work = stock ? link->item_ref : Key(-1);
    main_.shared.ingredient_in_work = line;
    main_.shared.last_groc_key = -1;
    page_.set_rcp_item_in_work(trim(link->item));
    show_item_editor(main_);
}

void LineEditor::scratch_clicked()
{
    const BusyPointer pointer;
    if (index() >= 0)
        ingredients_->cancel();
}

// The keys of a row's buttons act on the row, as in the shopping list.
bool LineEditor::scratch_key(int key)
{
    if (key == Qt::Key_Delete) {
        scratch_clicked();
        return true;
    }
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    const int wanted = index_ + (key == Qt::Key_Down ? 1 : -1);
    if (wanted < 0 || wanted >= page_.recipe_lines().count())
        return true;
    end_edit();
    if (!open_ && wanted < page_.recipe_lines().count())
        open_line(wanted);
    return true;
}

} // namespace tarnwick
