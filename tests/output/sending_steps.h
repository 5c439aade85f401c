#pragma once

#include "lists/editing_window.h"
#include "recipes/line_fixture.h"
#include "window/commands.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QPushButton>
#include <QTest>

namespace tarnwick::sending_steps {

inline QPushButton& button(QDialog& dialog, const char* name)
{
    return *dialog.findChild<QPushButton*>(QLatin1String(name));
}

inline QCheckBox& check(QDialog& dialog)
{
    return *dialog.findChild<QCheckBox*>(QStringLiteral("Check1"));
}

/// What a user does with `list_to_get`.
enum class Choice { all, buy_it, cancel, close };

/// The next dialog is `list_to_get`, and the user does this with it.
inline void choose(MessageScript& script, Choice choice)
{
    script.drive([choice](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("list_to_get"));
        if (choice == Choice::buy_it)
            QTest::mouseClick(&check(dialog), Qt::LeftButton, {}, QPoint(8, check(dialog).height() / 2));
        QCOMPARE(check(dialog).isChecked(), choice == Choice::buy_it);
        if (choice == Choice::close)
            dialog.close();
        else
            QTest::mouseClick(&button(dialog, choice == Choice::cancel ? "Command1(1)" : "Command1(0)"),
                              Qt::LeftButton);
    });
}

inline void quiet(TestWindow& window)
{
    window.set_pref(QStringLiteral("av_warn"), QStringLiteral("1"));
}

inline void run(TestWindow& window, const char* command)
{
    QAction& action = window.main().commands().action(QLatin1String(command));
    QVERIFY2(action.isEnabled(), command);
    action.trigger();
}

inline QString file(TestWindow& window, const char* name)
{
    return window.environment().program_folder + u'/' + QLatin1String(name);
}

/// All that lies in the program folder beside data and settings.
inline QStringList exports(TestWindow& window)
{
    QStringList names = QDir(window.environment().program_folder).entryList(QDir::Files, QDir::Name);
    names.removeAll(QStringLiteral("settings.ini"));
    return names;
}

inline QByteArray address(TestWindow& window)
{
    return window.opened.size() == 1 ? window.opened.front().toEncoded() : QByteArray("(not one)");
}

} // namespace tarnwick::sending_steps
