#include "window/undo_key.h"

#include "household/household.h"
#include "recipes/recipe_page.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>

namespace tarnwick {
namespace {

bool has_own_undo(const QObject& control)
{
    if (const auto* line = qobject_cast<const QLineEdit*>(&control))
        return line->isUndoAvailable();
    const auto* text = qobject_cast<const QPlainTextEdit*>(&control);
    return text && text->document()->isUndoAvailable();
}

} // namespace

UndoKey::UndoKey(Program& program, const RecipePage& page)
    : QObject(&program.window)
    , program_(program)
    , page_(page)
{
    auto* undo = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), &program_.window);
    undo->setContext(Qt::ApplicationShortcut); // the list manager stays open beside the window
    connect(undo, &QShortcut::activated, this, [this] {
        if (can_bring_back())
            program_.household.bring_back();
    });
    qApp->installEventFilter(this);
}

/// A row comes back to its list on show, a line to its recipe on the page.
bool UndoKey::can_bring_back() const
{
    if (!program_.shared.started || program_.shared.ending)
        return false;
    const auto from = program_.household.removed_from();
    if (!from)
        return false;
    const SharedValues& shared = program_.shared;
    if (from->list > 0)
        return shared.list_pane_shown && (shared.all_lists_view || from->list == shared.current_list);
    return !shared.list_pane_shown && from->recipe == page_.page_key() && !page_.editor_open();
}

/// Text boxes claim the key even where they have nothing to undo.
bool UndoKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo))
        return false;
    const auto* control = qobject_cast<const QWidget*>(watched);
    return control && control->window() == &program_.window && !has_own_undo(*control) && can_bring_back();
}

} // namespace tarnwick
