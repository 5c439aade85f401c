#include "recipes/recipe_page.h"

#include "data/settings.h"
#include "widgets/program.h"
#include "widgets/page_ground.h"
#include "widgets/one_line_box.h"
#include "widgets/update_lock.h"
#include "recipes/line_widgets.h"
#include "widgets/key_kinds.h"
#include "recipes/page_geometry.h"
#include "recipes/page_text.h"
#include "recipes/page_texts.h"
#include "household/recipe_store.h"
#include "household/household.h"
#include "household/rescue.h"
#include "recipes/ingredients.h"
#include "recipes/line_editor.h"
#include "recipes/line_listener.h"
#include "recipes/line_stock.h"
#include "widgets/tree_view.h"
#include "household/status.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>
#include <cmath>

namespace tarnwick {
namespace {

constexpr int title_left = 20;
constexpr int title_top = 8;
constexpr int title_height = 24;
constexpr int text_left = 14;
constexpr int caret_room = 6; ///< under the caret's row, or its box would scroll
constexpr int room_below = 14; ///< under the instructions
constexpr int least_text = 16; ///< height of the instructions when the page has no room for them
constexpr int low_text = 200; ///< twips above the viewport's lower edge
constexpr int hint_indent = 4; ///< with the margin of the instructions
constexpr int scroll_step = 20; ///< pixels that a click on the scroll bar moves the page by
constexpr int text_gap = 8; ///< least distance of the instructions from the last line
constexpr QColor hint_color(80, 80, 80);

const QString no_lines_hint = QStringLiteral("Drag a stock item here, or click Ingrdnt, to add an ingredient.");

int usable_points(int type_size)
{
    return type_size > 0 && type_size < 100 ? type_size : 9;
}

} // namespace

RecipePage::RecipePage(Program& program, QWidget* parent)
    : program_(program)
    , frame4_(new QFrame(parent))
    , frame3_(new PageGround(frame4_))
    , scroll_bar_(new QScrollBar(Qt::Vertical, parent))
    , title_(new QLineEdit(frame3_))
    , text1_(new PageText(frame3_))
    , label1_(new QLabel(frame3_))
    , hint_(new QLabel(no_lines_hint, frame3_))
    , recipe_lines_(new RecipeLines(*frame3_))
    , texts_(new PageTexts(program, *title_, *text1_))
{
    recipe_lines_->setParent(this);
    texts_->setParent(this);
    make_page();
    connect(scroll_bar_, &QScrollBar::valueChanged, this, [this] { // before the editor follows
        off_bar_ = 0;
        scroll();
    });
    make_line_editor();
    connect(text1_, &PageText::key_up, this, &RecipePage::scroll_bar_refresh);
    connect(text1_, &PageText::caret_moved, this, &RecipePage::show_caret);
    connect(text1_, &PageText::up_from_top, this, [this] { go_to_line(recipe_lines_->count() - 1); });
    connect(recipe_lines_, &RecipeLines::keyboard_came, this, [this](int index) {
        if (index < recipe_lines_->count())
            show_control(*recipe_lines_->lines()[static_cast<size_t>(index)].ingred);
    });
    line_stock_ = new LineStock(program_, *this);
    line_listener_ = std::make_unique<LineListener>(program_, *this);
    title_->installEventFilter(this);
    frame4_->installEventFilter(this);
}

RecipePage::~RecipePage() = default;

void RecipePage::make_page()
{
    frame4_->setObjectName(QStringLiteral("Frame4"));
    frame4_->setAutoFillBackground(true);
    frame4_->hide();
    frame3_->setObjectName(QStringLiteral("Frame3"));
    scroll_bar_->setObjectName(QStringLiteral("VScroll1"));
    scroll_bar_->setAccessibleName(QStringLiteral("Scroll the recipe"));
    scroll_bar_->setRange(0, 100);
    scroll_bar_->hide();
    title_->setObjectName(QStringLiteral("title"));
    title_->setAccessibleName(QStringLiteral("Name of the recipe"));
    title_->setAlignment(Qt::AlignCenter);
    title_->setFrame(false);
    keep_one_line(*title_);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setAccessibleName(QStringLiteral("Instructions"));
    label1_->setObjectName(QStringLiteral("Label1"));
    label1_->hide();
    hint_->setObjectName(QStringLiteral("empty_hint"));
    hint_->setForegroundRole(QPalette::PlaceholderText);
    hint_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    hint_->setWordWrap(true);
    hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
    hint_->hide();
    set_page_color();
    set_type_size();
}

void RecipePage::set_recipe(Key recipe)
{
    // Whatever the way to another recipe, what was typed into this one is kept.
    close_line_editor();
    texts_->edit_updt();
    texts_->tell_name_left(false);
    const UpdateLock lock(*frame4_);
    const QScopedValueRollback<bool> busy(page_busy_, true);
    recipe_lines_->clear();
    set_lites(0, StatusCode::non_stock);
    title_->setVisible(recipe >= 0);
    text1_->setVisible(recipe >= 0);
    if (recipe > 0)
        fill_lines(recipe);
    texts_->read(recipe);
    emit recipe_shown();
    text1_->set_border_style(text1_->is_help_text() ? 1 : 0);
    layout_page();
    recipe_lines_->show_lines();
    program_.settings.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    state.cur_line = 0;
}

void RecipePage::fill_lines(Key recipe)
{
    Connection& connection = program_.connection;
    for (const IngredientRow& row : load_lines(connection, recipe)) {
        IngredientLine& line = recipe_lines_->append(row.key, row.item_ref, row.display_text(), row.item);
        const bool named = !row.item.isEmpty();
        line.tool_tip = named ? get_ttt(connection, row.item_ref) : QStringLiteral("Unlisted stock item");
        const int index = recipe_lines_->upper_bound();
        recipe_lines_->refresh(index);
        set_lites(index, named ? lite_status(connection, row.item_ref) : StatusCode::non_stock);
    }
}

void RecipePage::add_unstored(Rescue& rescue) const
{
    texts_->add_unstored(rescue);
    const LineDraft& draft = line_editor_->draft();
    if (line_editor_->is_open() && draft.edited.display_text() != draft.stored.display_text())
        rescue.line = RescuedLine{draft.stored, draft.edited};
}

// False after the hint, or with the focus back in a title that may not be left.
bool RecipePage::takes_lines()
{
    if (!has_recipe()) {
        program_.set_status(PageTexts::no_recipe_hint);
        return false;
    }
    return program_.window.focusWidget() != title_ || texts_->name_stands();
}

bool RecipePage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == title_ && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        go_to_line(0);
        return true;
    }
    if (watched == title_ && event->type() == QEvent::FocusIn
        && comes_by_key(static_cast<QFocusEvent*>(event)->reason()))
        show_control(*title_);
    if (watched == frame4_ && event->type() == QEvent::Show)
        set_title_font();
    if (watched == frame4_ && event->type() == QEvent::Wheel)
        return scroll_bar_->isVisible() && QCoreApplication::sendEvent(scroll_bar_, event);
    return QObject::eventFilter(watched, event);
}

void RecipePage::layout_page()
{
    const int width = frame4_->width();
    title_->setGeometry(title_left, title_top, std::max(1, width - 2 * title_left), title_height);
    // Over the middle of the text, which leaves the rest of a wide page free.
    title_->setTextMargins(0, 0, std::max(0, width - 2 * text_left - text_width()), 0);
    text1_->resize(text_width(), text1_->height());
    place_hint();
    recipe_lines_->place(width, program_.shared.type_size);
    scroll();
    scroll_bar_refresh();
    emit laid_out();
}

int RecipePage::text_width() const
{
    const int frame = 2 * (text1_->frameWidth() + static_cast<int>(text1_->document()->documentMargin()));
    return std::clamp(frame4_->width() - 2 * text_left, 1, widest_text(text1_->font()) + frame);
}

/// A recipe without a line says what to do next where its first line would stand; a page whose instructions are
/// hidden says what they say where there is no recipe, in their place.
void RecipePage::place_hint()
{
    const bool closed = text1_->isHidden();
    const bool wanted = closed || (has_recipe() && recipe_lines_->count() == 0);
    hint_->setVisible(wanted);
    if (!wanted)
        return;
    const int type_size = program_.shared.type_size;
    const int top
        = closed ? text_top() + hint_indent : page_geometry::to_pixels(page_geometry::ingred_top(0, 0, type_size));
    hint_->setText(closed ? PageTexts::no_recipe_hint : no_lines_hint);
    hint_->setFont(text1_->font());
    const int width = std::max(1, text_width() - hint_indent);
    hint_->setGeometry(text_left + hint_indent, top, width,
                       std::max(closed ? 0 : page_geometry::line_pitch(type_size), hint_->heightForWidth(width)));
}

int RecipePage::text_top() const
{
    const int estimated = page_geometry::to_pixels(
        page_geometry::text_top(recipe_lines_->count(), recipe_lines_->wrap_extra(), program_.shared.type_size));
    const bool above_text = !hint_->isHidden() && !text1_->isHidden();
    const int below_hint = above_text ? hint_->geometry().bottom() + text_gap / 2 : 0;
    return std::max({estimated + recipe_lines_->surplus(), recipe_lines_->bottom() + text_gap, below_hint});
}

void RecipePage::place_text()
{
    const int top = text_top();
    const int shown = frame4_->height() - (top - scrolled_);
    const bool too_low = shown < page_geometry::to_pixels(low_text);
    const int height = too_low ? least_text : std::max(least_text, shown - room_below);
    text1_->setGeometry(text_left, top, text_width(), height);
    text1_->set_view_height(frame4_->height());
    text1_->verticalScrollBar()->setValue(0);
}

int RecipePage::scrolled_by_bar(int excess) const
{
    return static_cast<int>(std::lround(scroll_bar_->value() / 100.0 * excess));
}

void RecipePage::scroll()
{
    const int height = frame4_->height();
    const int excess = std::max(0, content_height() - height);
    scrolled_ = std::clamp(scrolled_by_bar(excess) + off_bar_, 0, excess);
    frame3_->setGeometry(0, -scrolled_, frame4_->width(), height + scrolled_);
    frame3_->update(); // rows that were left out at the lower edge
    place_text();
}

void RecipePage::scroll_bar_refresh()
{
    const int height = frame4_->height();
    const int excess = content_height() - height;
    const bool longer = excess > 0;
    scroll_bar_->setVisible(longer && !program_.shared.list_pane_shown);
    scroll_bar_->setEnabled(longer);
    if (scrolled_ > std::max(0, excess)) {
        // The text got shorter than what the page was scrolled by.
        if (!longer)
            scroll_bar_->setValue(0);
        scroll();
    }
    if (!longer)
        return;
    scroll_bar_->setSingleStep(std::clamp(100 * scroll_step / excess, 1, 20));
    scroll_bar_->setPageStep(std::clamp(100 * height / excess, 1, 100));
}

int RecipePage::get_scroll_scale() const
{
    const auto [length, line_ends] = text1_->extent();
    return page_geometry::scroll_scale(recipe_lines_->upper_bound(), length, line_ends,
                                       page_geometry::px_x(text1_->width()), program_.shared.type_size);
}

// The estimate counts a row of text lower than any font draws it: the page ends where its text ends.
int RecipePage::content_height() const
{
    return std::max(get_scroll_scale(), text_top() + text1_->full_height() + room_below);
}

bool RecipePage::has_room(const QString& text) const
{
    return recipe_lines_->has_room(text, frame4_->width(), program_.shared.type_size);
}

int RecipePage::new_line(Key key, Key item_ref, const QString& text, const QString& item)
{
    recipe_lines_->append(key, item_ref, text, item).simple_height = true;
    const int index = recipe_lines_->upper_bound();
    recipe_lines_->refresh(index);
    layout_page();
    recipe_lines_->show_lines();
    state.cur_line = index;
    return index;
}

void RecipePage::drop_last_line()
{
    recipe_lines_->remove_last();
    layout_page();
}

void RecipePage::set_lites(int index, StatusCode code)
{
    recipe_lines_->set_lites(index, code, color_index());
}

int RecipePage::color_index() const
{
    return page_picture_index(program_.shared);
}

void RecipePage::show_stretch(int top, int bottom)
{
    const int height = frame4_->height();
    const int excess = content_height() - height;
    if (excess <= 0 || (top >= scrolled_ && bottom < scrolled_ + height))
        return;
    // A step of the bar is many rows of a long page: it shows the nearest one.
    const int wanted = std::clamp(top < scrolled_ ? top : bottom + 1 - height, 0, excess);
    scroll_bar_->setValue(static_cast<int>(std::lround(100.0 * wanted / excess)));
    off_bar_ = wanted - scrolled_by_bar(excess);
    scroll();
}

void RecipePage::show_control(const QWidget& control)
{
    if (!page_busy_)
        show_stretch(control.geometry().top(), control.geometry().bottom());
}

// The page scrolls after the caret, so that the text never moves inside its box.
void RecipePage::show_caret()
{
    if (page_busy_)
        return;
    scroll_bar_refresh();
    const int caret_top = text1_->y() + text1_->caret_top();
    const int caret_bottom = text1_->y() + text1_->caret_bottom();
    show_stretch(caret_top, caret_bottom + room_below + caret_room);
    text1_->verticalScrollBar()->setValue(0);
}

void RecipePage::show_pane(bool shown)
{
    if (!shown)
        close_line_editor();
    frame4_->setVisible(shown);
    if (shown)
        layout_page();
    else
        scroll_bar_->hide();
}

void RecipePage::set_page_color()
{
    QPalette colors = frame4_->palette();
    const QColor page = page_ground(program_.shared);
    for (const auto role : {QPalette::Window, QPalette::Base})
        colors.setColor(role, page);
    for (const auto role : {QPalette::WindowText, QPalette::Text})
        colors.setColor(role, Qt::black);
    colors.setColor(QPalette::PlaceholderText, hint_color);
    frame4_->setPalette(colors);
}

void RecipePage::set_type_size()
{
    QFont font = QApplication::font();
    font.setPointSize(usable_points(program_.shared.type_size));
    recipe_lines_->set_fonts(font);
    text1_->setFont(font);
    if (!frame4_->isHidden())
        set_title_font();
    layout_page();
}

/// The bold type is opened when the page is shown, which it need not be at a start.
void RecipePage::set_title_font()
{
    QFont font = text1_->font();
    font.setBold(true);
    title_->setFont(font);
}

void RecipePage::make_line_editor()
{
    line_editor_ = new LineEditor(program_, *this);
    auto* add = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_I), &program_.window);
    connect(add, &QShortcut::activated, this, &RecipePage::ingredient_wanted);
}

Ingredients& RecipePage::ingredients()
{
    return line_editor_->ingredients();
}

Key RecipePage::page_key() const
{
    return texts_->recipe();
}

QWidget* RecipePage::keyboard_place() const
{
    const int count = recipe_lines_->count();
    if (count > 0)
        return recipe_lines_->lines()[static_cast<size_t>(std::clamp(state.cur_line, 0, count - 1))].ingred;
    return text1_->isHidden() ? nullptr : text1_;
}

void RecipePage::go_to_line(int index)
{
    const int count = recipe_lines_->count();
    if (index < 0) {
        title_->setFocus(Qt::OtherFocusReason);
    } else if (index >= count) {
        text1_->setFocus(Qt::OtherFocusReason);
    } else {
        state.cur_line = index;
        recipe_lines_->lines()[static_cast<size_t>(index)].ingred->setFocus(Qt::OtherFocusReason);
    }
}

bool RecipePage::editor_open() const
{
    return line_editor_->is_open();
}

bool RecipePage::finish_line_editor()
{
    line_editor_->leave();
    return !editor_open();
}

bool RecipePage::leave_line_editor()
{
    const bool was_open = editor_open();
    if (was_open)
        finish_line_editor();
    return was_open;
}

void RecipePage::close_line_editor()
{
    line_editor_->close_quietly();
}

bool RecipePage::leave_editors()
{
    return finish_line_editor() && texts_->name_stands();
}

void RecipePage::add_ns_ingred()
{
    if (takes_lines())
        ingredients().add_ns_ingred();
}

void RecipePage::drag_ingred(Key item, const QString& name)
{
    if (takes_lines())
        ingredients().drag_ingred(item, name);
}

QString RecipePage::rcp_item(int index) const
{
    const auto& all = recipe_lines_->lines();
    return index >= 0 && index < recipe_lines_->count() ? all[static_cast<size_t>(index)].item : QString();
}

QString RecipePage::rcp_item_in_work() const
{
    return label1_->text();
}

void RecipePage::set_rcp_item_in_work(const QString& name)
{
    label1_->setText(name);
}

bool RecipePage::shows_item(Key item) const
{
    const auto& all = recipe_lines_->lines();
    return item > 0 && std::any_of(all.begin(), all.end(), [&](const auto& line) { return line.item_ref == item; });
}

void RecipePage::lists_changed(const ListsChange& change)
{
    if (change.kind == ListsChange::Kind::deleted && has_recipe())
        set_recipe(page_key());
}

std::optional<RecipeSheet> RecipePage::sheet() const
{
    if (!has_recipe())
        return std::nullopt;
    RecipeSheet sheet{title_->text(), {}, text1_->text()};
    for (const IngredientLine& line : recipe_lines_->lines())
        sheet.lines.append(line.text);
    return sheet;
}

} // namespace tarnwick
