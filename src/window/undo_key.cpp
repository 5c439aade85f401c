#include "window/undo_key.h"

#include "household/household.h"
#include "recipes/recipe_page.h"
#include "window/frmmain.h"

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

UndoKey::UndoKey(frmmain& main)
    : QObject(&main)
    , main_(main)
{
    auto* undo = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), &main_);
    connect(undo, &QShortcut::activated, this, [this] {
        if (can_bring_back())
            main_.household().bring_back();
    });
    qApp->installEventFilter(this);
}

/// A row comes back to its list on show, a line to its recipe on the page.
bool UndoKey::can_bring_back() const
{
    if (!main_.shared.started || main_.shared.ending)
        return false;
    const auto from = main_.household().removed_from();
    if (!from)
        return false;
    const SharedValues& shared = main_.shared;
    if (from->list > 0)
        return shared.list_pane_shown && (shared.all_lists_view || from->list == shared.current_list);
    const RecipePage& page = main_.recipe_page();
    return !shared.list_pane_shown && from->recipe == page.page_key() && !page.editor_open();
}

/// Text boxes claim the key even where they have nothing to undo.
bool UndoKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo))
        return false;
    const auto* control = qobject_cast<const QWidget*>(watched);
    return control && control->window() == &main_ && !has_own_undo(*control) && can_bring_back();
}

} // namespace tarnwick
