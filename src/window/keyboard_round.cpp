#include "window/keyboard_round.h"

#include "lists/list_pane.h"
#include "recipes/line_editor.h"
#include "recipes/recipe_page.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"
#include "window/keyboard_asides.h"
#include "window/layout.h"
#include "window/toolbar.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QShortcut>

#include <algorithm>

namespace tarnwick {
namespace {

bool holds(const QWidget& part, const QWidget* focus)
{
    return focus && (focus == &part || part.isAncestorOf(focus));
}

} // namespace

KeyboardRound::KeyboardRound(frmmain& main)
    : QObject(&main)
    , main_(main)
    , asides_(new KeyboardAsides(main.toolbar(), main.layout_manager().Frame1(), main))
{
    const auto bind = [this](const QKeySequence& keys, int step) {
        connect(new QShortcut(keys, &main_), &QShortcut::activated, this, [this, step] { move(step); });
    };
    bind(QKeySequence(Qt::Key_F6), 1);
    bind(QKeySequence(Qt::SHIFT | Qt::Key_F6), -1);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        if (!now)
            look_after_keyboard();
    });
    connect(asides_, &KeyboardAsides::back_wanted, this, &KeyboardRound::go_back);
    main_.installEventFilter(this);
}

bool KeyboardRound::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        look_after_keyboard();
    return false;
}

/// What closes the control that has the keyboard may mean another to have it, and goes first.
void KeyboardRound::look_after_keyboard()
{
    QMetaObject::invokeMethod(this, &KeyboardRound::take_up_keyboard, Qt::QueuedConnection);
}

void KeyboardRound::take_up_keyboard()
{
    const QWidget* focus = main_.focusWidget();
    const bool is_lost = !focus || !focus->isVisibleTo(&main_);
    if (is_lost && main_.shared.started && !main_.shared.ending && main_.isActiveWindow())
        go_back();
}

void KeyboardRound::go_back()
{
    if (QWidget* place = asides_->place_before())
        give_to(*place);
    else
        go_to_right_pane();
}

QWidget* KeyboardRound::right_pane_place() const
{
    return main_.shared.list_pane_shown ? &main_.list_pane().grid() : main_.recipe_page().keyboard_place();
}

void KeyboardRound::go_to_right_pane()
{
    QWidget* place = right_pane_place();
    give_to(place ? *place : main_.visible_tree());
}

std::vector<KeyboardRound::Stop> KeyboardRound::stops() const
{
    const QWidget* focus = main_.focusWidget();
    TreeView& tree = main_.visible_tree();
    std::vector<Stop> found{{&tree, holds(tree, focus)}};
    const auto add = [&found](QWidget* place, bool is_here) {
        if (place)
            found.push_back({place, is_here});
    };
    if (main_.shared.list_pane_shown) {
        RowEditor& editor = main_.row_editor();
        add(right_pane_place(), holds(main_.list_pane().grid(), focus));
        add(editor.first_box(), editor.owns(focus));
    } else {
        RecipePage& page = main_.recipe_page();
        const bool in_boxes = page.line_editor().is_part(focus);
        add(right_pane_place(), holds(page.frame4(), focus) && !in_boxes);
        add(page.line_editor().open_box(), in_boxes);
    }
    return found;
}

void KeyboardRound::move(int step)
{
    if (asides_->have_keyboard()) {
        go_back();
        return;
    }
    const std::vector<Stop> round = stops();
    const int count = static_cast<int>(round.size());
    const auto here = std::find_if(round.begin(), round.end(), [](const Stop& stop) { return stop.is_here; });
    // From elsewhere, such as a tab strip, the round begins at its first stop or its last.
    const int from = here != round.end() ? static_cast<int>(here - round.begin()) : step > 0 ? -1 : count;
    QWidget* place = round[static_cast<size_t>((from + step + count) % count)].place;
    if (!place->isVisible()) { // the line under its open boxes
        main_.recipe_page().line_editor().leave();
        place = right_pane_place();
    }
    if (place && place->isVisible())
        give_to(*place);
}

/// A row or node that was scrolled away comes back with the keyboard; lines of the page do so by themselves.
void KeyboardRound::give_to(QWidget& place)
{
    place.setFocus(Qt::OtherFocusReason);
    if (auto* view = qobject_cast<QAbstractItemView*>(&place); view && view->currentIndex().isValid())
        view->scrollTo(view->currentIndex());
}

} // namespace tarnwick
