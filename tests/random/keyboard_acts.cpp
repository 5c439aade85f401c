#include "random/acts.h"

#include "lists/list_pane.h"
#include "recipes/line_widgets.h"
#include "recipes/page_text.h"
#include "widgets/list_grid.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>

// The keyboard of the main window.
namespace tarnwick::random_use {
namespace {

QString name_of(const QWidget* widget)
{
    if (!widget)
        return QStringLiteral("nobody");
    return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                          : widget->objectName();
}

/// What a control with a caret holds, and what it would hold after typing; null where nothing can be typed.
QString text_in(const QWidget* widget, const QString& typed = {})
{
    if (const auto* box = qobject_cast<const QLineEdit*>(widget); box && !box->isReadOnly()) {
        const int start = box->hasSelectedText() ? box->selectionStart() : box->cursorPosition();
        return typed.isNull() ? box->text() : box->text().replace(start, box->selectedText().size(), typed);
    }
    if (const auto* box = qobject_cast<const QPlainTextEdit*>(widget); box && !box->isReadOnly()) {
        const QTextCursor caret = box->textCursor();
        const int marked = caret.selectionEnd() - caret.selectionStart();
        QString text = box->toPlainText();
        return typed.isNull() ? text : text.replace(caret.selectionStart(), marked, typed);
    }
    return {};
}

} // namespace

bool go_round(User& user)
{
    user.press_key(Qt::Key_F6, user.chance(50) ? Qt::NoModifier : Qt::ShiftModifier);
    return true;
}

bool go_aside(User& user)
{
    const QWidget* before = user.main().focusWidget();
    const bool stays = qobject_cast<const TreeView*>(before) || qobject_cast<const ListGrid*>(before);
    if (!before || before == user.main().findChild<QWidget*>(QStringLiteral("Frame1")))
        return false;
    const bool to_toolbar = user.chance(70);
    user.press_key(to_toolbar ? Qt::Key_F10 : Qt::Key_F8);
    const QString name = name_of(user.main().focusWidget());
    const bool arrived = name.startsWith(to_toolbar ? QLatin1String("Toolbar1(") : QLatin1String("Frame1"));
    if (!arrived) {
        if (stays)
            user.fault(QStringLiteral("the keyboard went from %1 to %2").arg(name_of(before), name));
        return true; // a question about what was typed has kept it
    }
    for (int steps = user.below(4); to_toolbar && steps > 0; --steps)
        user.press_key(user.any_of(QList<int>{Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End}));
    user.press_key(user.chance(50) ? Qt::Key_F6 : Qt::Key_Escape);
    if (const QWidget* now = user.main().focusWidget(); stays && now != before)
        user.fault(
            QStringLiteral("%1 had the keyboard before %2, then %3").arg(name_of(before), name, name_of(now)));
    return true;
}

bool open_a_menu(User& user)
{
    const QPointer<QWidget> focus = QApplication::focusWidget();
    QList<QAction*> titles = user.main().menuBar()->actions();
    const QString title = user.any_of(titles)->text();
    const QChar letter = title[title.indexOf(u'&') + 1].toUpper();
    user.press_key(letter.unicode(), Qt::AltModifier);
    QWidget* menu = QApplication::activePopupWidget();
    if (!menu) {
        user.fault(QStringLiteral("no menu opened by Alt+%1").arg(letter));
        return true;
    }
    while (QWidget* popup = QApplication::activePopupWidget())
        QTest::keyClick(popup, Qt::Key_Escape);
    if (QApplication::focusWidget() == user.main().menuBar())
        QTest::keyClick(user.main().menuBar(), Qt::Key_Escape);
    user.settle();
    if (focus && QApplication::focusWidget() != focus)
        user.fault(QStringLiteral("%1 had the keyboard before a menu, then %2")
                       .arg(name_of(focus), name_of(QApplication::focusWidget())));
    return true;
}

bool type_a_letter(User& user)
{
    const QWidget* focus = user.main().focusWidget();
    if (!focus)
        return false;
    const ListGrid& grid = user.main().list_pane().grid();
    const bool on_row = focus == &grid && grid.current_row() >= 0;
    const QString wanted = on_row ? QStringLiteral("x") : text_in(focus, QStringLiteral("x"));
    user.press_key(Qt::Key_X);
    const QWidget* now = user.main().focusWidget();
    if (now != (on_row ? user.main().findChild<QWidget*>(QStringLiteral("desc_brdr")) : focus))
        user.fault(QStringLiteral("a letter on %1 took the keyboard to %2").arg(name_of(focus), name_of(now)));
    else if (text_in(now) != wanted)
        user.fault(QStringLiteral("a letter in %1 made '%2' and not '%3'").arg(name_of(now), text_in(now), wanted));
    return true;
}

} // namespace tarnwick::random_use
