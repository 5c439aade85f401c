#pragma once

#include "window/commands.h"
#include "support/menu_hands.h"
#include "support/message_script.h"
#include "support/test_window.h"

#include <QAction>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// The hands of a user on the list menu and its dialogs.
namespace tarnwick {

/// The shown entries of the list menu: caption, tag, and a mark for a tick.
inline QStringList entries(TestWindow& window)
{
    QStringList texts;
    const Commands& commands = window.main().commands();
    for (int i = 0; i < commands.list_entries(); ++i) {
        const QAction& entry = commands.list_entry(i);
        if (entry.isVisible())
            texts += entry.text() + u'|' + Commands::list_entry_tag(entry)
                + (entry.isChecked() ? QStringLiteral("|ticked") : QString());
    }
    return texts;
}

inline void type_name(QDialog& form, const QString& name)
{
    auto* text = form.findChild<QLineEdit*>(QStringLiteral("Text1"));
    text->clear();
    QTest::keyClicks(text, name);
    QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
}

/// Makes a list through menu and dialog.
inline void make_list(TestWindow& window, const QString& name)
{
    MessageScript script;
    script.drive([&name](QDialog& form) { type_name(form, name); });
    trigger(window, "mnu_list_new");
}

inline void answer_input(QDialog& form, const QString& prompt, const QString& text)
{
    QCOMPARE(form.objectName(), QStringLiteral("input_box"));
    auto* edit = form.findChild<QLineEdit*>();
    bool prompted = false;
    for (const QLabel* label : form.findChildren<QLabel*>())
        prompted = prompted || label->text() == prompt;
    QVERIFY2(prompted, qPrintable(prompt));
    edit->setText(text);
    QTest::keyClick(edit, Qt::Key_Return);
}

inline QFrame* notice(TestWindow& window)
{
    return window.find<QFrame>(QStringLiteral("frmCreateList"));
}

} // namespace tarnwick
