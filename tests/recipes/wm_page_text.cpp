#include "data/connection.h"
#include "data/settings.h"
#include "household/recipe_store.h"
#include "probe/real_program.h"

#include <QRegularExpression>
#include <QTest>

using namespace tarnwick;

namespace {

/// Clicks until the box has the keyboard: the window may still be moving when the first click comes.
bool give_keyboard(QProcess& process, const QByteArray& box)
{
    for (int i = 0; i < 20; ++i) {
        if (RealProgram::click(process, "where " + box)
            && RealProgram::ask(process, "focus") == QString::fromLatin1(box))
            return true;
        QTest::qWait(250);
    }
    return false;
}

} // namespace

/// The text boxes of the recipe page with the clipboard of a real display.
class wm_page_text : public QObject {
    Q_OBJECT
private slots:
    void init();
    void pasting_while_clipboard_and_selection_have_no_owner_changes_nothing();

private:
    RealProgram program_;
};

void wm_page_text::init()
{
    program_.renew();
    Connection connection;
    connection.open(program_.database());
    const Key recipe = insert_recipe(connection, QStringLiteral("Pie"), QStringLiteral("13"));
    Settings settings(program_.settings());
    settings.set_reg();
    settings.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    settings.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
}

void wm_page_text::pasting_while_clipboard_and_selection_have_no_owner_changes_nothing()
{
    const auto process = program_.start_listening();
    QVERIFY(process);
    for (const QByteArray box : {"title", "Text1"}) {
        QVERIFY(give_keyboard(*process, box));
        QVERIFY(!RealProgram::xdotool({QStringLiteral("type"), QStringLiteral("x")}).isNull());
        QVERIFY(!RealProgram::xdotool({QStringLiteral("key"), QStringLiteral("ctrl+v")}).isNull());
        QVERIFY(!RealProgram::xdotool({QStringLiteral("key"), QStringLiteral("shift+Insert")}).isNull());
        QVERIFY(RealProgram::click(*process, "where " + box, 2));
        QVERIFY(!RealProgram::xdotool({QStringLiteral("type"), QStringLiteral("y")}).isNull());
    }
    QTRY_VERIFY(RealProgram::ask(*process, "get Text1 plainText").endsWith(u'y'));
    RealProgram::tell(*process, "close");
    RealProgram::lines_of(*process);
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 0);
    Connection connection;
    connection.open(program_.database());
    const auto stored = read_recipe(connection, 1);
    QVERIFY(stored);
    // A key that a busy machine holds down for long repeats itself.
    QCOMPARE(QString(stored->body).remove(QRegularExpression(QStringLiteral("^x+y+$"))), QString());
    const QStringList typed{QStringLiteral("x"), QStringLiteral("y")};
    for (const QString& letter : typed)
        QVERIFY2(stored->name.contains(letter), qPrintable(stored->name));
    QCOMPARE(QString(stored->name).remove(u'x').remove(u'y'), QStringLiteral("Pie"));
}

QTEST_GUILESS_MAIN(wm_page_text)
#include "wm_page_text.moc"
