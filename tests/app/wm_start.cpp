#include "probe/real_program.h"

#include "data/settings.h"
#include "household/rescue.h"

#include <QTest>

using namespace tarnwick;

namespace {

constexpr int twips_per_pixel = 15;

} // namespace

/// The first showing of the real window, under a window manager.
class wm_start : public QObject, private RealProgram {
    Q_OBJECT
private slots:
    void init() { renew(); }

    void the_window_appears_once_in_its_final_size_and_the_separator_stays_data();
    void the_window_appears_once_in_its_final_size_and_the_separator_stays();
    void the_window_comes_up_once_when_the_splash_goes_data();
    void the_window_comes_up_once_when_the_splash_goes();
    void a_first_run_appears_maximised_with_the_default_separator();
    void a_separator_for_a_wider_window_is_shown_within_it_and_stays_stored();
    void a_resize_by_the_user_that_leaves_too_little_moves_and_stores_the_separator();
    void a_start_minimised_writes_nothing_and_comes_up_in_its_size();
    void maximise_restore_and_minimise_leave_the_separator_where_it_was();
    void a_separator_dragged_with_the_mouse_comes_back_at_the_next_start();

private:
    void store(int width, int height, int state, int separator) const;
    QString stored(const char* key) const;
    void leave_something_to_ask() const;
    static bool stands(QProcess& process);
    static QString window_of(const QProcess& process);
};

void wm_start::store(int width, int height, int state, int separator) const
{
    Settings prefs(settings());
    prefs.set_reg();
    const auto set
        = [&prefs](const char* key, int value) { prefs.set_pref(QLatin1String(key), QString::number(value)); };
    set("fwidth", width * twips_per_pixel);
    set("fheight", height * twips_per_pixel);
    set("wstate", state);
    set("seprtr", separator * twips_per_pixel);
}

QString wm_start::stored(const char* key) const
{
    return Settings(settings()).pref(QLatin1String(key), QStringLiteral("(none)"));
}

/// Something that was typed before an error, which the next start offers.
void wm_start::leave_something_to_ask() const
{
    Rescue rescue;
    rescue.recipe = 1;
    rescue.typed = RecipeText{QStringLiteral("Soup"), QStringLiteral("Stir.")};
    QVERIFY(!write_rescue(rescue, database()).isEmpty());
}

/// Waits until the main window is on the screen, and for what might come behind that.
bool wm_start::stands(QProcess& process)
{
    const bool seen = QTest::qWaitFor([&process] { return !ask(process, "sizes").isEmpty(); }, patience_ms);
    QTest::qWait(300);
    return seen;
}

/// The X window of the program's main window.
QString wm_start::window_of(const QProcess& process)
{
    const QStringList found
        = xdotool({QStringLiteral("search"), QStringLiteral("--pid"), QString::number(process.processId()),
                   QStringLiteral("--name"), QStringLiteral("^Tarnwick")})
              .split(u'\n');
    return found.last();
}

void wm_start::the_window_appears_once_in_its_final_size_and_the_separator_stays_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("separator");
    QTest::newRow("small") << 700 << 500 << 0 << 267;
    QTest::newRow("middle") << 1000 << 650 << 0 << 330;
    QTest::newRow("wide separator") << 1400 << 900 << 0 << 900;
    QTest::newRow("maximised") << 900 << 650 << 2 << 330;
    QTest::newRow("maximised, with a separator beyond the restored size") << 700 << 500 << 2 << 1000;
    QTest::newRow("maximised in all of the screen before") << 1600 << 1181 << 2 << 800;
}

void wm_start::the_window_appears_once_in_its_final_size_and_the_separator_stays()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, state);
    QFETCH(int, separator);
    // What comes late comes late now and then only.
    for (int start = 0; start < 3; ++start) {
        store(width, height, state, separator);
        const auto process = start_listening();
        QVERIFY(process && stands(*process));
        const QString sizes = ask(*process, "sizes");
        if (state == 0)
            QCOMPARE(sizes, QStringLiteral("%1x%2").arg(width).arg(height));
        else
            QVERIFY2(sizes.startsWith(QLatin1String("1600x")) && !sizes.contains(u' '), qPrintable(sizes));
        QCOMPARE(stored("seprtr").toInt(), separator * twips_per_pixel);
        QCOMPARE(ask(*process, "get Frame1 x").toInt(), separator);
        tell(*process, "close");
        QCOMPARE(lines_of(*process), QStringList());
        QCOMPARE(stored("seprtr").toInt(), separator * twips_per_pixel);
        QCOMPARE(stored("wstate").toInt(), state);
    }
}

void wm_start::the_window_comes_up_once_when_the_splash_goes_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("kind");
    QTest::newRow("placed") << 0 << QString();
    QTest::newRow("maximised") << 2 << QString();
    QTest::newRow("first start") << 2 << QStringLiteral("first");
    QTest::newRow("recipes on both sides") << 0 << QStringLiteral("recipes");
    QTest::newRow("a question first") << 0 << QStringLiteral("question");
}

void wm_start::the_window_comes_up_once_when_the_splash_goes()
{
    QFETCH(int, state);
    QFETCH(QString, kind);
    if (kind != QLatin1String("first"))
        store(1000, 650, state, 330);
    if (kind == QLatin1String("recipes"))
        for (const char* view : {"tv_view", "lv_view"})
            Settings(settings()).set_pref(QLatin1String(view), QStringLiteral("0"));
    for (int start = 0; start < 3; ++start) {
        if (kind == QLatin1String("question"))
            leave_something_to_ask();
        const auto process = start_listening();
        QVERIFY(process && stands(*process));
        const QStringList told = ask(*process, "told").split(u',');
        const auto said = [&told](const QString& window) {
            QStringList words;
            for (const QString& one : told)
                if (one.startsWith(window + u' '))
                    words.append(one.mid(window.size() + 1));
            return words;
        };
        const QStringList main = said(QStringLiteral("frmmainWindow"));
        const QStringList splash = said(QStringLiteral("frmSplashWindow"));
        const QByteArray all = told.join(u',').toUtf8();
        QVERIFY2(main.count(QStringLiteral("map")) == 1 && !main.contains(QStringLiteral("unmap")),
                 all.constData());
        QVERIFY2(splash.count(QStringLiteral("map")) == 1 && splash.count(QStringLiteral("unmap")) == 1,
                 all.constData());
        QVERIFY2(splash.last() == QLatin1String("unmap"), all.constData());
        // From its coming up on the window has one size and one place.
        const QStringList after = main.mid(main.indexOf(QStringLiteral("map")) + 1);
        const QString size
            = QStringLiteral("%1x%2").arg(ask(*process, "get frmmain width"), ask(*process, "get frmmain height"));
        QStringList places;
        for (const QString& one : after) {
            QVERIFY2(one.startsWith(size), all.constData());
            if (one.contains(u'+') && !places.contains(one))
                places.append(one);
        }
        QVERIFY2(places.size() <= 1, all.constData());
        tell(*process, "close");
        lines_of(*process);
    }
}

void wm_start::a_first_run_appears_maximised_with_the_default_separator()
{
    const auto process = start_listening();
    QVERIFY(process && stands(*process));
    const QString sizes = ask(*process, "sizes");
    QVERIFY2(sizes.startsWith(QLatin1String("1600x")) && !sizes.contains(u' '), qPrintable(sizes));
    QCOMPARE(stored("seprtr"), QStringLiteral("4000"));
    QCOMPARE(ask(*process, "get Frame1 x"), QString::number(4000 / twips_per_pixel));
}

void wm_start::a_separator_for_a_wider_window_is_shown_within_it_and_stays_stored()
{
    store(900, 600, 0, 1100);
    const auto process = start_listening();
    QVERIFY(process && stands(*process));
    QCOMPARE(ask(*process, "sizes"), QStringLiteral("900x600"));
    QVERIFY(ask(*process, "get Listview1 width").toInt() >= 400);
    QCOMPARE(stored("seprtr").toInt(), 1100 * twips_per_pixel);
}

void wm_start::a_resize_by_the_user_that_leaves_too_little_moves_and_stores_the_separator()
{
    store(1300, 700, 0, 800);
    const auto process = start_listening();
    QVERIFY(process && stands(*process));
    QCOMPARE(stored("seprtr").toInt(), 800 * twips_per_pixel);
    xdotool({QStringLiteral("windowsize"), QStringLiteral("--sync"), window_of(*process), QStringLiteral("1000"),
             QStringLiteral("650")});
    QTRY_COMPARE(stored("fwidth").toInt(), 1000 * twips_per_pixel);
    const int bar = ask(*process, "get Frame1 x").toInt();
    QVERIFY(bar < 600);
    QCOMPARE(stored("seprtr").toInt(), bar * twips_per_pixel);
    QVERIFY(ask(*process, "get Listview1 width").toInt() >= 400);
}

void wm_start::a_start_minimised_writes_nothing_and_comes_up_in_its_size()
{
    store(1000, 650, 1, 500);
    const auto process = start_listening();
    QVERIFY(process);
    QTest::qWait(300);
    QCOMPARE(ask(*process, "get frmmain minimized"), QStringLiteral("true"));
    QCOMPARE(stored("seprtr").toInt(), 500 * twips_per_pixel);
    QVERIFY(!xdotool({QStringLiteral("windowmap"), QStringLiteral("--sync"), window_of(*process)}).isNull());
    QTRY_COMPARE(ask(*process, "sizes"), QStringLiteral("1000x650"));
    QCOMPARE(ask(*process, "get frmmain minimized"), QStringLiteral("false"));
    QCOMPARE(ask(*process, "get Frame1 x"), QStringLiteral("500"));
    QCOMPARE(stored("seprtr").toInt(), 500 * twips_per_pixel);
}

void wm_start::maximise_restore_and_minimise_leave_the_separator_where_it_was()
{
    store(1000, 650, 0, 330);
    const auto process = start_listening();
    QVERIFY(process && stands(*process));
    // A double click on the title bar.
    const auto toggle_maximised = [&] {
        const QStringList place = ask(*process, "where frmmain").split(u' ');
        return !xdotool({QStringLiteral("mousemove"), QString::number(place[0].toInt() + 300),
                         QString::number(place[1].toInt() - 8), QStringLiteral("click"), QStringLiteral("--repeat"),
                         QStringLiteral("2"), QStringLiteral("--delay"), QStringLiteral("60"), QStringLiteral("1")})
                    .isNull();
    };
    const auto separator_stands = [&] {
        return ask(*process, "get Frame1 x") == QLatin1String("330")
            && stored("seprtr").toInt() == 330 * twips_per_pixel;
    };
    QVERIFY(toggle_maximised());
    QTRY_COMPARE(ask(*process, "get frmmain maximized"), QStringLiteral("true"));
    QTRY_COMPARE(stored("fwidth").toInt(), 1600 * twips_per_pixel);
    QVERIFY(separator_stands());
    QTest::qWait(300);
    QVERIFY(toggle_maximised());
    QTRY_COMPARE(ask(*process, "get frmmain maximized"), QStringLiteral("false"));
    QTRY_COMPARE(stored("fwidth").toInt(), 1000 * twips_per_pixel);
    QVERIFY(separator_stands());
    xdotool({QStringLiteral("windowminimize"), QStringLiteral("--sync"), window_of(*process)});
    QTRY_COMPARE(ask(*process, "get frmmain minimized"), QStringLiteral("true"));
    xdotool({QStringLiteral("windowmap"), QStringLiteral("--sync"), window_of(*process)});
    QTRY_COMPARE(ask(*process, "get frmmain minimized"), QStringLiteral("false"));
    QVERIFY(separator_stands());
    tell(*process, "close");
    QCOMPARE(lines_of(*process), QStringList());
    QCOMPARE(stored("fwidth").toInt(), 1000 * twips_per_pixel);
    QCOMPARE(stored("wstate"), QStringLiteral("0"));
}

void wm_start::a_separator_dragged_with_the_mouse_comes_back_at_the_next_start()
{
    store(1000, 650, 0, 330);
    const auto first = start_listening();
    QVERIFY(first && stands(*first));
    const QStringList bar = ask(*first, "where Frame1").split(u' ');
    QCOMPARE(bar.size(), 4);
    const auto point = [&bar](int by) {
        return QStringList({QStringLiteral("mousemove"), QString::number(bar[0].toInt() + 3 + by),
                            QString::number(bar[1].toInt() + bar[3].toInt() / 2)});
    };
    xdotool(point(0) + QStringList({QStringLiteral("mousedown"), QStringLiteral("1")}));
    xdotool(point(60));
    xdotool(point(120));
    xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
    QTRY_COMPARE(stored("seprtr").toInt(), 450 * twips_per_pixel);
    tell(*first, "close");
    QCOMPARE(lines_of(*first), QStringList());

    const auto second = start_listening();
    QVERIFY(second && stands(*second));
    QCOMPARE(ask(*second, "get Frame1 x"), QStringLiteral("450"));
    QCOMPARE(stored("seprtr").toInt(), 450 * twips_per_pixel);
}

QTEST_GUILESS_MAIN(wm_start)
#include "wm_start.moc"
