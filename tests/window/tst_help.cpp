#include "support/message_script.h"
#include "support/test_window.h"
#include "window/commands.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace tarnwick;

namespace {

void trigger(frmmain& main, const QString& command)
{
    QAction& action = main.commands().action(command);
    QVERIFY(action.isEnabled());
    action.trigger();
}

void write_help(const Environment& environment)
{
    QVERIFY(QDir(environment.program_folder).mkpath(QStringLiteral("help")));
    QFile file(environment.program_folder + QStringLiteral("/help/twhelp.html"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<p>Help</p>");
}

} // namespace

class tst_help : public QObject {
    Q_OBJECT
private slots:
    void help_topics_open_the_file_beside_the_executable();
    void a_missing_help_file_is_told();
    void a_browser_that_does_not_open_is_told();
    void about_names_version_and_libraries_and_opens_the_page_of_the_project();
};

void tst_help::help_topics_open_the_file_beside_the_executable()
{
    TestWindow w;
    write_help(w.environment());
    w.load();
    trigger(w.main(), QStringLiteral("mnu_help_launch"));
    QCOMPARE(w.opened.size(), 1U);
    QCOMPARE(w.opened.front().toLocalFile(), w.environment().program_folder + QStringLiteral("/help/twhelp.html"));
}

void tst_help::a_missing_help_file_is_told()
{
    TestWindow w;
    w.load();
    MessageScript script;
    script.expect(QStringLiteral("Help file"), QStringLiteral("Cannot locate help file"));
    trigger(w.main(), QStringLiteral("mnu_help_launch"));
    QVERIFY(w.opened.empty());
}

void tst_help::a_browser_that_does_not_open_is_told()
{
    TestWindow w;
    write_help(w.environment());
    w.environment().open_url = [](const QUrl&) { return false; };
    w.load();
    MessageScript script;
    script.expect(QStringLiteral("Help file"),
                  QStringLiteral("There was a problem opening the\ncurrent web browser for the help file\n")
                      + w.environment().program_folder + QStringLiteral("/help/twhelp.html"));
    trigger(w.main(), QStringLiteral("mnu_help_launch"));
}

void tst_help::about_names_version_and_libraries_and_opens_the_page_of_the_project()
{
    TestWindow w;
    w.load();
    MessageScript script;
    script.drive([&w](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("frmhelpabout"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("TarnWick"));
        const auto text
            = [&dialog](const char* name) { return dialog.findChild<QLabel*>(QLatin1String(name))->text(); };
        QCOMPARE(text("Label2"), QStringLiteral("For more information visit"));
        QVERIFY(text("Label1").contains(QRegularExpression(QStringLiteral("Tarnwick \\d+\\.\\d+\\.\\d+"))));
        for (const char* library : {"Qt", "SQLite", "SQLiteCpp"})
            QVERIFY2(text("Label5").contains(QLatin1String(library)), library);
        auto* page = dialog.findChild<QLabel*>(QStringLiteral("Label3"));
        QTest::mouseClick(page, Qt::LeftButton, {}, page->rect().center());
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("OKButton")), Qt::LeftButton);
    });
    trigger(w.main(), QStringLiteral("mnu_help_about"));
    QCOMPARE(w.opened.size(), 1U);
    QCOMPARE(w.opened.front().scheme(), QStringLiteral("https"));
}

QTEST_MAIN(tst_help)
#include "tst_help.moc"
