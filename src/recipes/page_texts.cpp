#include "recipes/page_texts.h"

#include "household/household.h"
#include "household/rescue.h"
#include "recipes/page_text.h"
#include "widgets/focus_question.h"
#include "widgets/message_box.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <utility>

namespace tarnwick {
namespace {

/// The Tag of what holds a dirty mark.
QString mark(bool edited)
{
    return edited ? QStringLiteral("edited") : QStringLiteral("clean");
}

void set_tag(QWidget& control, const QString& tag)
{
    control.setProperty("Tag", tag);
}

} // namespace

const QString PageTexts::no_recipe_hint
    = QStringLiteral("No recipe is open. Choose one in the tree, or click New.");

PageTexts::PageTexts(Program& program, QLineEdit& title, PageText& text)
    : program_(program)
    , title_(title)
    , text_(text)
    , question_(new FocusQuestion(this))
{
    set_recipe(-1);
    mark_text(false);
    title_.installEventFilter(this);
    connect(&title_, &QLineEdit::textChanged, this, &PageTexts::name_changed);
    connect(&text_, &PageText::edited, this, [this] { mark_text(true); });
    connect(&text_, &PageText::left, this, &PageTexts::edit_updt);
}

void PageTexts::set_recipe(Key recipe)
{
    recipe_ = recipe;
    set_tag(title_, QString::number(recipe));
    title_.setReadOnly(recipe <= 0);
    text_.close_with(recipe > 0 ? QString() : no_recipe_hint);
}

void PageTexts::read(Key recipe)
{
    const QScopedValueRollback reading(reading_, true);
    const auto text = read_recipe(program_.connection, recipe);
    stored_ = text.value_or(RecipeText());
    set_recipe(text ? recipe : Key(-1));
    program_.shared.cur_recipe = recipe;
    program_.shared.cur_recipe_name = stored_.name;
    title_.setText(stored_.name);
    title_.setCursorPosition(0);
    text_.set_text(stored_.body);
    mark_name(false);
    mark_text(false);
}

void PageTexts::mark_name(bool edited)
{
    name_edited_ = edited;
    emit name_marked(mark(edited));
}

void PageTexts::mark_text(bool edited)
{
    text_edited_ = edited;
    set_tag(text_, mark(edited));
}

void PageTexts::edit_updt()
{
    if (is_edited())
        write();
}

void PageTexts::write()
{
    const RecipeText shown{trim(title_.text()), trim(text_.text())};
    bool is_saved = false;
    const auto save
        = [&](Connection& connection) { is_saved = save_recipe(connection, recipe_, title_.text(), text_.text()); };
    // A key that changes nothing, such as an arrow, marks the text as well.
    if (shown.name == stored_.name && shown.body == stored_.body)
        program_.household.write_aside(save);
    else
        save(program_.connection);
    if (!is_saved)
        return;
    stored_ = shown;
    mark_name(false);
    mark_text(false);
}

void PageTexts::add_unstored(Rescue& rescue) const
{
    rescue.recipe = recipe_;
    rescue.before = stored_;
    if (is_edited() && recipe_ > 0)
        rescue.typed = RecipeText{title_.text(), text_.text()};
}

void PageTexts::name_changed()
{
    if (reading_)
        return;
    mark_name(true);
    renamed_ = true;
    program_.shared.cur_recipe_name = trim(title_.text());
    emit name_typed(recipe_, program_.shared.cur_recipe_name);
}

void PageTexts::tell_name_left(bool by_mouse)
{
    if (std::exchange(renamed_, false))
        emit name_left(recipe_, by_mouse);
}

// True when the name may stand. One that is missing is replaced before the message, since the window saves the page
// when the message takes the activation.
bool PageTexts::name_validated()
{
    if (!is_edited())
        return true;
    if (!title_.text().isEmpty()) {
        edit_updt();
        return true;
    }
    title_.setText(QStringLiteral("Recipe"));
    return false;
}

bool PageTexts::name_stands()
{
    if (name_validated())
        return true;
    tell_name_missing();
    return false;
}

void PageTexts::tell_name_missing()
{
    msg_box(&program_.window, QStringLiteral("Recipe must have a name\n(Cannot leave it blank)"), box::ok,
            QStringLiteral("Recipe name"));
    title_.setFocus();
}

bool PageTexts::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (!leaves_control(reason))
            return false;
        if (name_validated())
            tell_name_left(reason == Qt::MouseFocusReason);
        else
            question_->ask_later(reason, [this] { tell_name_missing(); });
        return false;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tarnwick
