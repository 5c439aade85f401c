#include "data/connection.h"
#include "data/keys.h"
#include "data/query.h"
#include "data/settings.h"
#include "household/lists_store.h"
#include "probe/real_program.h"

#include <QTest>

using namespace tarnwick;

namespace {

constexpr int settling_ms = 300; ///< a window that comes or goes, until the display has followed

} // namespace

/// A list is cleared with a real mouse and keyboard, under a window manager.
class wm_clearing : public QObject, private RealProgram {
    Q_OBJECT
private slots:
    void init();

    void the_mouse_leads_through_dialog_and_question();
    void the_keyboard_alone_leads_through_dialog_and_question();
    void the_dialog_holds_the_main_window_off();

private:
    static bool comes(QProcess& process, const QByteArray& name);
    static bool goes(QProcess& process, const QByteArray& name);
    static bool press(const char* key);
    int rows() const;

    std::unique_ptr<QProcess> process_;
};

void wm_clearing::init()
{
    process_.reset();
    renew();
    Connection connection;
    connection.open(database());
    const Key list = insert_list(connection, QStringLiteral("Weekly"), QDate(2026, 3, 14));
    for (const char* name : {"Bread", "Eggs", "Milk"}) {
        const Key item = get_node(connection, Table::items_1);
        const Key row = get_node(connection, Table::groc_1);
        const bool to_get = *name != 'E';
        Query(connection, "INSERT INTO items_1 (key_id, item, cat, status) VALUES (?, ?, 0, ?)", item,
              QString::fromLatin1(name), to_get ? 7 : 6)
            .run();
        Query(connection, "INSERT INTO groc_1 (key_id, item, to_get) VALUES (?, ?, ?)", row,
              QString::fromLatin1(name), to_get)
            .run();
        Query(connection, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, ?)",
              get_node(connection, Table::tie), row, item, list)
            .run();
    }
    connection.close();
    Settings prefs(settings());
    prefs.set_reg();
    prefs.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    prefs.set_pref(QStringLiteral("alist"), QString::number(list));
    process_ = start_listening(Probe::leaves_messages);
    QVERIFY(process_ && comes(*process_, "Toolbar1(2)"));
}

bool wm_clearing::comes(QProcess& process, const QByteArray& name)
{
    const bool shown
        = QTest::qWaitFor([&] { return !ask(process, "where " + name).isEmpty(); }, RealProgram::patience_ms);
    QTest::qWait(settling_ms);
    return shown;
}

bool wm_clearing::goes(QProcess& process, const QByteArray& name)
{
    const bool gone
        = QTest::qWaitFor([&] { return ask(process, "where " + name).isEmpty(); }, RealProgram::patience_ms);
    QTest::qWait(settling_ms);
    return gone;
}

bool wm_clearing::press(const char* key)
{
    return !xdotool({QStringLiteral("key"), QLatin1String(key)}).isNull();
}

int wm_clearing::rows() const
{
    Connection connection;
    connection.open(database());
    Query count(connection, "SELECT count(*) FROM tie");
    count.next();
    return count.number(0);
}

void wm_clearing::the_mouse_leads_through_dialog_and_question()
{
    QVERIFY(click(*process_, "where Toolbar1(2)"));
    QVERIFY(comes(*process_, "lst_clr_dlg"));
    QCOMPARE(ask(*process_, "get lst_clr_dlg windowTitle"), QStringLiteral("Clear Weekly list"));
    QVERIFY(click(*process_, "where Option1(1)"));
    QVERIFY(click(*process_, "where Command1(0)"));
    QVERIFY(comes(*process_, "message_box"));
    QVERIFY(press("Escape"));
    QVERIFY(goes(*process_, "message_box"));
    QCOMPARE(rows(), 3);
    QCOMPARE(ask(*process_, "get Option1(1) checked"), QStringLiteral("true"));

    QVERIFY(click(*process_, "where Option1(2)"));
    QCOMPARE(ask(*process_, "get Option1(2) checked"), QStringLiteral("true"));
    QVERIFY(click(*process_, "where Command1(0)"));
    QVERIFY(comes(*process_, "message_box"));
    QVERIFY(press("Return"));
    QVERIFY(goes(*process_, "lst_clr_dlg"));
    QCOMPARE(rows(), 0);
}

void wm_clearing::the_keyboard_alone_leads_through_dialog_and_question()
{
    QVERIFY(click(*process_, "where Toolbar1(2)"));
    QVERIFY(comes(*process_, "lst_clr_dlg"));
    QCOMPARE(ask(*process_, "focus"), QStringLiteral("Option1(0)"));
    QVERIFY(press("Down"));
    QVERIFY(press("Return"));
    QVERIFY(comes(*process_, "message_box"));
    QVERIFY(press("Escape"));
    QVERIFY(goes(*process_, "message_box"));
    QCOMPARE(ask(*process_, "focus"), QStringLiteral("Option1(1)"));
    QVERIFY(press("Return"));
    QVERIFY(comes(*process_, "message_box"));
    QVERIFY(press("Return"));
    QVERIFY(goes(*process_, "lst_clr_dlg"));
    QCOMPARE(rows(), 2);
    QCOMPARE(ask(*process_, "focus"), QStringLiteral("TreeView1(0)"));
}

void wm_clearing::the_dialog_holds_the_main_window_off()
{
    QVERIFY(click(*process_, "where Toolbar1(2)"));
    QVERIFY(comes(*process_, "lst_clr_dlg"));
    QVERIFY(click(*process_, "where Toolbar1(1)"));
    QTest::qWait(300);
    QVERIFY(!ask(*process_, "where lst_clr_dlg").isEmpty());
    QVERIFY(ask(*process_, "where new_item_rcp").isEmpty());
    QVERIFY(click(*process_, "where Command1(1)"));
    QVERIFY(goes(*process_, "lst_clr_dlg"));
    QVERIFY(click(*process_, "where Toolbar1(1)"));
    QVERIFY(comes(*process_, "new_item_rcp"));
    QCOMPARE(rows(), 3);
}

QTEST_MAIN(wm_clearing)
#include "wm_clearing.moc"
