#include "recipes/recipe_page.h"

#include "widgets/program.h"
#include "recipes/ingredients.h"
#include "recipes/line_editor.h"
#include "recipes/line_widgets.h"
#include "recipes/page_text.h"

#include <QShortcut>

#include <algorithm>

namespace tarnwick {

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

QWidget* RecipePage::keyboard_place() const
{
    const int count = recipe_lines_->count();
    if (count > 0)
        return recipe_lines_->lines()[static_cast<size_t>(std::clamp(state.cur_line, 0, count - 1))].ingred;
    return text1_->isHidden() ? nullptr : text1_;
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
    return finish_line_editor() && name_stands();
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

} // namespace tarnwick
