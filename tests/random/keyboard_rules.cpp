#include "random/oracle.h"

#include "support/test_window.h"

#include <QApplication>
#include <QTest>

// Who has the keyboard.
namespace tarnwick::random_use {
namespace {

/// What the panes around a control show of it.
QRect in_sight(const QWidget& widget)
{
    QRect shown = widget.rect();
    for (const QWidget* part = &widget; !part->isWindow() && !shown.isEmpty(); part = part->parentWidget())
        shown = shown.translated(part->pos()) & part->parentWidget()->rect();
    return shown;
}

} // namespace

/// Somebody in sight has it. What had it already may have been scrolled away since.
void Oracle::check_keyboard(bool scrolled)
{
    if (!QTest::qWaitForWindowActive(&main_))
        fault(QStringLiteral("the window does not become active"));
    QApplication::processEvents();
    QWidget* focus = QApplication::focusWidget();
    const QString name = focus ? focus->objectName() : QString();
    if (!focus)
        fault(QStringLiteral("nobody has the keyboard"));
    else if (focus->window() != &main_)
        fault(QStringLiteral("%1 of another window has the keyboard").arg(name));
    else if (!focus->isVisible() || (!scrolled && focus != keyboard_ && in_sight(*focus).isEmpty()))
        fault(QStringLiteral("%1 has the keyboard and cannot be seen").arg(name));
    keyboard_ = focus;
}

} // namespace tarnwick::random_use
