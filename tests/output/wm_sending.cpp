#include "data/keys.h"
#include "data/query.h"
#include "data/settings.h"
#include "household/lists_store.h"
#include "household/recipe_store.h"
#include "probe/real_program.h"
#include "support/rtf_reader.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QUrl>

using namespace tarnwick;

namespace {

const QString odd_name = QStringLiteral("{Crème} \\d'Anjou 🍮 €3");

} // namespace

/// The real program hands lists and recipes to the desktop's opener, a script that records what it gets.
class wm_sending : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void a_list_is_written_and_its_file_is_opened();
    void a_list_is_opened_as_a_mail();
    void a_recipe_goes_out_without_a_question();
    void a_mail_of_30000_characters_reaches_the_mail_program_whole();
    void the_longest_mail_reaches_the_mail_program_whole();
    void a_mail_that_is_too_long_is_told_and_not_sent();
    void without_an_opener_the_messages_say_so();

private:
    std::unique_ptr<QProcess> start(bool notice = false);
    void set_body(const QString& body);
    /// Presses the key until the dialog of this title has come and gone.
    static bool press_return_in(const QString& title);
    QString record() const { return program_.path(QStringLiteral("record")); }
    /// The one argument that the opener got.
    QByteArray opened() const;
    QByteArray mail_value(const QByteArray& key) const;

    RealProgram program_;
    QByteArray path_;
    Key recipe_ = 0;
};

void wm_sending::init()
{
    program_.renew();
    path_ = qgetenv("PATH");
    const QString folder = program_.path(QStringLiteral("opener"));
    QVERIFY(QDir().mkpath(folder));
    QFile script(folder + QStringLiteral("/xdg-open"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" >'" + record().toUtf8() + ".part'\nmv '"
                 + record().toUtf8() + ".part' '" + record().toUtf8() + "'\n");
    script.close();
    script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
    qputenv("PATH", folder.toUtf8() + ':' + path_);

    Connection connection;
    connection.open(program_.database());
    const Key list = insert_list(connection, QStringLiteral("Weekly"), QDate(2026, 3, 14));
    const Key item = get_node(connection, Table::items_1);
    Query(connection, "INSERT INTO items_1 (key_id, item, cat, status) VALUES (?, ?, 0, 7)", item, odd_name).run();
    const Key row = get_node(connection, Table::groc_1);
    Query(connection,
          "INSERT INTO groc_1 (key_id, item, desc, qty, aisle, to_get, cpn) VALUES (?, ?, 'fresh', '2', '7', 1, 0)",
          row, odd_name)
        .run();
    Query(connection, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, ?)",
          get_node(connection, Table::tie), row, item, list)
        .run();
    recipe_ = insert_recipe(connection, QStringLiteral("Soup"), QStringLiteral("11"));
    set_body(QStringLiteral("Stir."));
}

void wm_sending::cleanup()
{
    qputenv("PATH", path_);
}

void wm_sending::set_body(const QString& body)
{
    Connection connection;
    connection.open(program_.database());
    save_recipe(connection, recipe_, QStringLiteral("Soup"), body);
}

std::unique_ptr<QProcess> wm_sending::start(bool notice)
{
    {
        Settings settings(program_.settings());
        settings.set_reg();
        settings.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
        settings.set_pref(QStringLiteral("arcp"), QString::number(recipe_));
        settings.set_pref(QStringLiteral("av_warn"), notice ? QStringLiteral("0") : QStringLiteral("1"));
    }
    return program_.start_listening();
}

bool wm_sending::press_return_in(const QString& title)
{
    bool seen = false;
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < RealProgram::patience_ms) {
        const bool shown = !RealProgram::xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                                  QStringLiteral("--name"), title})
                                .isEmpty();
        if (seen && !shown)
            return true;
        if (shown)
            RealProgram::xdotool({QStringLiteral("key"), QStringLiteral("Return")});
        seen = seen || shown;
        QTest::qWait(200);
    }
    return false;
}

QByteArray wm_sending::opened() const
{
    QElapsedTimer waited;
    waited.start();
    while (!QFile::exists(record()) && waited.elapsed() < RealProgram::patience_ms)
        QTest::qWait(50);
    QFile file(record());
    if (!file.open(QIODevice::ReadOnly))
        return "(nothing was opened)";
    const QByteArray text = file.readAll();
    return text.startsWith("1|") ? text.mid(2) : "(not one argument) " + text;
}

QByteArray wm_sending::mail_value(const QByteArray& key) const
{
    for (const QByteArray& pair : opened().mid(qsizetype(sizeof "mailto:?") - 1).split('&')) {
        if (pair.startsWith(key + '='))
            return QByteArray::fromPercentEncoding(pair.mid(key.size() + 1));
    }
    return "(none)";
}

void wm_sending::a_list_is_written_and_its_file_is_opened()
{
    const auto process = start(true);
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_tools_wp_list");
    QVERIFY(press_return_in(QStringLiteral("Anti-virus messages")));
    QVERIFY(press_return_in(QStringLiteral("Send list to word processor")));
    const QString file = program_.path(QStringLiteral("app/list.rtf"));
    QCOMPARE(opened(), QUrl::fromLocalFile(file).toEncoded());
    QFile rtf(file);
    QVERIFY(rtf.open(QIODevice::ReadOnly));
    const RtfDocument document = read_rtf(rtf.readAll());
    QVERIFY(document.whole);
    QVERIFY(document.paragraphs.contains(QStringLiteral("Weekly")));
    QVERIFY(document.paragraphs.contains(odd_name + QStringLiteral("\tfresh\t2\t7\t")));
    RealProgram::tell(*process, "close");
    QVERIFY(process->waitForFinished(RealProgram::patience_ms));
}

void wm_sending::a_list_is_opened_as_a_mail()
{
    const auto process = start();
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_tools_email_list");
    QVERIFY(press_return_in(QStringLiteral("Send list to word processor")));
    QCOMPARE(mail_value("subject"), QByteArray("Weekly list"));
    QVERIFY(mail_value("body").startsWith("Weekly list\r\n\r\nItem                       Description"));
    QVERIFY(mail_value("body").contains("\r\n" + odd_name.toUtf8() + "   "));
    RealProgram::tell(*process, "close");
    QVERIFY(process->waitForFinished(RealProgram::patience_ms));
}

void wm_sending::a_recipe_goes_out_without_a_question()
{
    const auto process = start();
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_tools_wp_rcp");
    const QString file = program_.path(QStringLiteral("app/recipe.rtf"));
    QCOMPARE(opened(), QUrl::fromLocalFile(file).toEncoded());
    QVERIFY(QFile::exists(file));
    RealProgram::tell(*process, "close");
    QVERIFY(process->waitForFinished(RealProgram::patience_ms));
}

void wm_sending::a_mail_of_30000_characters_reaches_the_mail_program_whole()
{
    const QString body = QStringLiteral("Stir well. ").repeated(2728).left(29999) + u'!';
    QCOMPARE(body.size(), 30000);
    set_body(body);
    const auto process = start();
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_tools_email_rcp");
    QCOMPARE(mail_value("body"), "Soup\r\n\r\n\r\n" + body.toUtf8());
    RealProgram::tell(*process, "close");
    QVERIFY(process->waitForFinished(RealProgram::patience_ms));
}

void wm_sending::the_longest_mail_reaches_the_mail_program_whole()
{
    const auto head = qsizetype(sizeof "mailto:?subject=Soup&body=Soup%0D%0A%0D%0A%0D%0A") - 1;
    const qsizetype longest = 127 * 1024;
    set_body(QString(longest - head, u'x'));
    const auto process = start();
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_tools_email_rcp");
    QCOMPARE(opened().size(), longest);
    RealProgram::tell(*process, "close");
    QVERIFY(process->waitForFinished(RealProgram::patience_ms));
}

void wm_sending::a_mail_that_is_too_long_is_told_and_not_sent()
{
    set_body(QString(30000, QChar(0xE9)));
    const auto process = start();
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_tools_email_rcp");
    QVERIFY(RealProgram::wait_for(*process, "message Tarnwick: This recipe is too long to be handed to the|"));
    RealProgram::tell(*process, "close");
    QVERIFY(process->waitForFinished(RealProgram::patience_ms));
    QVERIFY(!QFile::exists(record()));
}

void wm_sending::without_an_opener_the_messages_say_so()
{
    const QString empty = program_.path(QStringLiteral("empty"));
    QVERIFY(QDir().mkpath(empty));
    qputenv("PATH", empty.toUtf8());
    const auto process = start();
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_tools_wp_rcp");
    QVERIFY(RealProgram::wait_for(
        *process, "message Tarnwick: There was a problem opening the|current word processing application"));
    RealProgram::tell(*process, "do mnu_tools_email_rcp");
    QVERIFY(RealProgram::wait_for(*process,
                                  "message Tarnwick: There was a problem opening the current email application"));
    RealProgram::tell(*process, "close");
    QVERIFY(process->waitForFinished(RealProgram::patience_ms));
}

QTEST_GUILESS_MAIN(wm_sending)
#include "wm_sending.moc"
