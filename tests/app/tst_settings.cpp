#include "data/settings.h"
#include "data/runtime_error.h"
#include "support/child_process.h"
#include "support/file_bytes.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <sys/stat.h>

using namespace tarnwick;

namespace {

constexpr unsigned user_errors = 0x80040000U;
constexpr int store_error = static_cast<int>(user_errors + 2000);

/// "number: description" of the error that a call throws; empty when it throws none.
template <typename Call> QString error_of(Call call)
{
    try {
        call();
    } catch (const runtime_error& error) {
        return QStringLiteral("%1: %2").arg(error.number()).arg(error.description());
    }
    return {};
}

QString user_error(unsigned number, const QString& text)
{
    return QStringLiteral("%1: %2").arg(static_cast<int>(user_errors + number)).arg(text);
}

} // namespace

class tst_settings : public QObject {
    Q_OBJECT
private slots:
    void init();

    void a_missing_key_gives_the_default();
    void a_value_that_is_empty_returns_empty_and_not_the_default();
    void every_text_comes_back_as_it_was_written_data();
    void every_text_comes_back_as_it_was_written();
    void the_three_applications_stay_apart_after_reopening();
    void sections_and_keys_stay_apart();
    void names_are_trimmed_but_for_the_key();
    void blank_names_are_errors_of_both_operations_data();
    void blank_names_are_errors_of_both_operations();
    void a_value_of_another_type_is_not_a_string_data();
    void a_value_of_another_type_is_not_a_string();
    void set_reg_writes_every_default_once();
    void set_reg_leaves_the_other_applications_alone();
    void a_write_is_in_the_file_at_once();
    void a_value_that_is_there_already_leaves_the_file_alone();
    void a_value_that_is_there_already_is_written_again_into_a_lost_file();
    void a_file_that_cannot_be_written_is_an_error();
    void a_file_without_permission_is_an_error();
    void a_file_that_may_not_be_read_is_an_error();
    void a_file_that_cannot_be_parsed_is_set_aside_as_it_was_data();
    void a_file_that_cannot_be_parsed_is_set_aside_as_it_was();
    void a_file_set_aside_leaves_the_earlier_ones_alone();
    void a_damaged_file_that_cannot_be_set_aside_is_an_error();
    void a_byte_order_mark_and_comments_are_read_over_data();
    void a_byte_order_mark_and_comments_are_read_over();
    void what_is_no_file_is_an_error_at_once_data();
    void what_is_no_file_is_an_error_at_once();
    void a_file_that_becomes_a_fifo_is_an_error_at_once();
    void a_dead_lock_of_another_machine_does_not_hold_up_for_more_than_its_patience();
    void a_lock_that_is_held_is_told_after_the_patience();
    void a_missing_file_is_made_with_its_folders();

private:
    QString file() const { return folder_->filePath(QStringLiteral("config/tarnwick/settings.ini")); }
    void put(const QByteArray& content);
    QByteArray content() const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_settings::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
}

void tst_settings::put(const QByteArray& content)
{
    QVERIFY(QDir().mkpath(QFileInfo(file()).path()));
    QFile out(file());
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(content), content.size());
}

QByteArray tst_settings::content() const
{
    QFile in(file());
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

void tst_settings::a_missing_key_gives_the_default()
{
    const Settings settings(file());
    QCOMPARE(settings.pref(QStringLiteral("font"), QStringLiteral("9")), QStringLiteral("9"));
    QCOMPARE(settings.pref(QStringLiteral("font"), QString()), QString());
    QVERIFY(!QFile::exists(file()));
}

void tst_settings::a_value_that_is_empty_returns_empty_and_not_the_default()
{
    Settings(file()).set_pref(QStringLiteral("sort"), QString());
    const QString value = Settings(file()).pref(QStringLiteral("sort"), QStringLiteral("cat"));
    QCOMPARE(value, QString());
}

void tst_settings::every_text_comes_back_as_it_was_written_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("number") << QStringLiteral("12");
    QTest::newRow("leading zeros") << QStringLiteral("0012");
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("blanks around") << QStringLiteral("  a b  ");
    QTest::newRow("comma") << QStringLiteral("milk, bread");
    QTest::newRow("semicolon") << QStringLiteral("a;b");
    QTest::newRow("equals and brackets") << QStringLiteral("[a]=b");
    QTest::newRow("quotes") << QStringLiteral("say \"no\"");
    QTest::newRow("backslash") << QStringLiteral("C:\\twdata\\");
    QTest::newRow("line ends") << QStringLiteral("a\r\nb\tc");
    QTest::newRow("percent") << QStringLiteral("100%20");
    QTest::newRow("at sign") << QStringLiteral("@Invalid()");
    QTest::newRow("variant in words") << QStringLiteral("@Variant(\\0\\0\\0\\x2)");
    QTest::newRow("accents") << QStringLiteral("Éclair à l'ail");
    QTest::newRow("emoji") << QStringLiteral("🍎");
    QTest::newRow("true") << QStringLiteral("true");
}

void tst_settings::every_text_comes_back_as_it_was_written()
{
    QFETCH(QString, text);
    {
        Settings settings(file());
        settings.set_pref(QStringLiteral("sort"), text);
        QCOMPARE(settings.pref(QStringLiteral("sort"), QStringLiteral("none")), text);
    }
    const QString reopened = Settings(file()).pref(QStringLiteral("sort"), QStringLiteral("none"));
    QCOMPARE(reopened, text);
}

void tst_settings::the_three_applications_stay_apart_after_reopening()
{
    const std::array names = {settings_app::main, settings_app::dialogs, settings_app::columns};
    const QString section = QStringLiteral("prefs");
    const QString key = QStringLiteral("alist");
    {
        Settings settings(file());
        for (const char* name : names)
            settings.write(QLatin1String(name), section, key, QStringLiteral("of ") + QLatin1String(name));
    }
    // What a second run adds must not fold them into one either.
    Settings(file()).write(QLatin1String(settings_app::columns), section, QStringLiteral("cpn"),
                           QStringLiteral("0"));
    const Settings reopened(file());
    for (const char* name : names) {
        QCOMPARE(reopened.read(QLatin1String(name), section, key, QStringLiteral("none")),
                 QStringLiteral("of ") + QLatin1String(name));
    }
    QCOMPARE(reopened.pref(QStringLiteral("cpn"), QStringLiteral("none")), QStringLiteral("none"));
    QCOMPARE(
        reopened.read(QLatin1String(settings_app::dialogs), section, QStringLiteral("cpn"), QStringLiteral("none")),
        QStringLiteral("none"));
}

void tst_settings::sections_and_keys_stay_apart()
{
    const QString application = QLatin1String(settings_app::main);
    const auto value = [&](const char* section) {
        return Settings(file()).read(application, QLatin1String(section), QStringLiteral("sort"),
                                     QStringLiteral("none"));
    };
    Settings(file()).write(application, QStringLiteral("prefs"), QStringLiteral("sort"), QStringLiteral("cat"));
    QCOMPARE(value("reports"), QStringLiteral("none"));
    Settings(file()).write(application, QStringLiteral("reports"), QStringLiteral("sort"), QStringLiteral("1"));
    QCOMPARE(value("prefs"), QStringLiteral("cat"));
    QCOMPARE(value("reports"), QStringLiteral("1"));
}

void tst_settings::names_are_trimmed_but_for_the_key()
{
    Settings settings(file());
    settings.write(QStringLiteral(" trnwck "), QStringLiteral(" prefs"), QStringLiteral("font"),
                   QStringLiteral("12"));
    QCOMPARE(settings.pref(QStringLiteral("font"), QStringLiteral("9")), QStringLiteral("12"));
    settings.write(QStringLiteral("trnwck"), QStringLiteral("prefs"), QStringLiteral(" font"),
                   QStringLiteral("10"));
    QCOMPARE(settings.pref(QStringLiteral("font"), QStringLiteral("9")), QStringLiteral("12"));
}

void tst_settings::blank_names_are_errors_of_both_operations_data()
{
    QTest::addColumn<QString>("application");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("error");
    const QString app = QStringLiteral("trnwck");
    const QString sec = QStringLiteral("prefs");
    const QString key = QStringLiteral("font");
    const QString blank = QStringLiteral("  ");
    const QString no_app = user_error(1000, QStringLiteral("AppName may not be empty"));
    const QString no_sec = user_error(1001, QStringLiteral("Section may not be empty"));
    const QString no_key = user_error(1002, QStringLiteral("Key may not be empty"));
    QTest::newRow("empty application") << QString() << sec << key << no_app;
    QTest::newRow("blank application") << blank << sec << key << no_app;
    QTest::newRow("empty section") << app << QString() << key << no_sec;
    QTest::newRow("blank section") << app << blank << key << no_sec;
    QTest::newRow("empty key") << app << sec << QString() << no_key;
    QTest::newRow("blank key") << app << sec << blank << no_key;
    QTest::newRow("all blank: the application comes first") << blank << blank << blank << no_app;
    QTest::newRow("section before key") << app << blank << blank << no_sec;
}

void tst_settings::blank_names_are_errors_of_both_operations()
{
    QFETCH(QString, application);
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, error);
    Settings settings(file());
    QCOMPARE(error_of([&] { settings.write(application, section, key, QStringLiteral("1")); }), error);
    QCOMPARE(error_of([&] { settings.read(application, section, key, QStringLiteral("1")); }), error);
    QVERIFY(!QFile::exists(file()));
    QCOMPARE(static_cast<unsigned>(error.section(u':', 0, 0).toInt()) >> 8, 0x800403U);
}

void tst_settings::a_value_of_another_type_is_not_a_string_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("type");
    QTest::newRow("list") << QByteArray("9, 10") << int(QMetaType::QStringList);
    QTest::newRow("number as variant") << QByteArray("@Variant(\\0\\0\\0\\x2\\0\\0\\0\\t)") << int(QMetaType::Int);
    QTest::newRow("bytes") << QByteArray("@ByteArray(9)") << int(QMetaType::QByteArray);
    QTest::newRow("size") << QByteArray("@Size(9 9)") << int(QMetaType::QSize);
}

void tst_settings::a_value_of_another_type_is_not_a_string()
{
    QFETCH(QByteArray, value);
    QFETCH(int, type);
    put("[trnwck]\nprefs\\font=" + value + "\nprefs\\sort=alpha\n");
    const QByteArray before = content();
    const Settings settings(file());
    QCOMPARE(error_of([&] { settings.pref(QStringLiteral("font"), QStringLiteral("9")); }),
             QStringLiteral("%1: Registry data not a string").arg(store_error + type));
    QCOMPARE(settings.pref(QStringLiteral("sort"), QStringLiteral("cat")), QStringLiteral("alpha"));
    QCOMPARE(content(), before);
}

void tst_settings::set_reg_writes_every_default_once()
{
    Settings(file()).set_reg();
    const Settings settings(file());
    struct Row {
        const char* section;
        const char* key;
        const char* value;
    };
    const std::array rows = {
        Row{"prefs", "fheight", "8000"}, Row{"prefs", "fwidth", "9000"}, Row{"prefs", "wstate", "2"},
        Row{"prefs", "seprtr", "4000"},  Row{"prefs", "sort", "cat"},    Row{"prefs", "alist", "0"},
        Row{"prefs", "arcp", "0"},       Row{"prefs", "tv_view", "1"},   Row{"prefs", "lv_view", "1"},
        Row{"prefs", "s_all", "0"},      Row{"prefs", "font", "9"},      Row{"prefs", "load", "load"},
        Row{"prefs", "aisle", "1"},      Row{"prefs", "cpn", "1"},       Row{"prefs", "color", "3"},
        Row{"prefs", "av_warn", "0"},    Row{"prefs", "clean", "0"},     Row{"reports", "col_ct", "2"},
        Row{"reports", "sort", "1"},     Row{"reports", "sort_r", "1"},  Row{"reports", "active", "1"},
        Row{"reports", "size", "0"},
    };
    for (const Row& row : rows) {
        QCOMPARE(settings.read(QLatin1String(settings_app::main), QLatin1String(row.section),
                               QLatin1String(row.key), QStringLiteral("none")),
                 QLatin1String(row.value));
    }
    QCOMPARE(content().count('='), qsizetype(rows.size()));
    QCOMPARE(settings.pref(QStringLiteral("sort_r"), QStringLiteral("none")), QStringLiteral("none"));
}

void tst_settings::set_reg_leaves_the_other_applications_alone()
{
    Settings(file()).write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QStringLiteral("alist"),
                           QStringLiteral("4"));
    Settings(file()).set_reg();
    const Settings settings(file());
    QCOMPARE(settings.read(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QStringLiteral("alist"),
                           QStringLiteral("none")),
             QStringLiteral("4"));
    QCOMPARE(settings.read(QLatin1String(settings_app::columns), QStringLiteral("prefs"), QStringLiteral("cpn"),
                           QStringLiteral("none")),
             QStringLiteral("none"));
}

void tst_settings::a_write_is_in_the_file_at_once()
{
    Settings settings(file());
    settings.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    QVERIFY(content().contains("prefs\\font=12"));
    settings.set_pref(QStringLiteral("font"), QStringLiteral("10"));
    QVERIFY(content().contains("prefs\\font=10"));
    QVERIFY(!content().contains("12"));
}

void tst_settings::a_value_that_is_there_already_leaves_the_file_alone()
{
    Settings settings(file());
    settings.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    settings.set_pref(QStringLiteral("sort"), QString());
    const QDateTime long_ago(QDate(2020, 2, 2), QTime(2, 2));
    QFile written(file());
    QVERIFY(written.open(QIODevice::ReadWrite) && written.setFileTime(long_ago, QFileDevice::FileModificationTime));
    written.close();
    const auto last_written = [this] { return QFileInfo(file()).lastModified(); };
    QCOMPARE(last_written(), long_ago);

    settings.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    settings.set_pref(QStringLiteral("sort"), QString());
    QCOMPARE(last_written(), long_ago);
    settings.set_pref(QStringLiteral("font"), QStringLiteral("012"));
    QVERIFY(last_written() != long_ago);
    QVERIFY(content().contains("prefs\\font=012"));
}

void tst_settings::a_value_that_is_there_already_is_written_again_into_a_lost_file()
{
    Settings settings(file());
    settings.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    QVERIFY(QFile::remove(file()));
    settings.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    QVERIFY(content().contains("prefs\\font=12"));
}

void tst_settings::a_file_that_cannot_be_written_is_an_error()
{
    // A file stands where the folder of the settings should be.
    QFile blocker(folder_->filePath(QStringLiteral("config")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    Settings settings(file());
    QCOMPARE(error_of([&] { settings.set_pref(QStringLiteral("font"), QStringLiteral("9")); }),
             QStringLiteral("%1: Could not open/create registry section\n(%2)").arg(store_error + 1).arg(file()));
}

void tst_settings::a_file_without_permission_is_an_error()
{
    put("[trnwck]\nprefs\\font=10\n");
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(file(), QFile::Permissions(0x4444));
    const QString path = file();
    const QString given = as_nobody([path] {
        return error_of([&path] {
            Settings settings(path);
            if (settings.pref(QStringLiteral("font"), QString()) != QLatin1String("10"))
                throw runtime_error(1, QStringLiteral("the value was not read"));
            settings.set_pref(QStringLiteral("font"), QStringLiteral("9"));
        });
    });
    QCOMPARE(given,
             QStringLiteral("%1: Could not open/create registry section\n(%2)").arg(store_error + 1).arg(file()));
    QVERIFY(content().contains("font=10"));
}

void tst_settings::a_file_that_may_not_be_read_is_an_error()
{
    put("[trnwck]\nprefs\\font=10\n");
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(file(), QFile::Permissions(0));
    const QString path = file();
    const QString given = as_nobody(
        [path] { return error_of([&path] { Settings(path).pref(QStringLiteral("font"), QStringLiteral("9")); }); });
    QCOMPARE(given, QStringLiteral("%1: Could not open registry section\n(%2)").arg(store_error + 1).arg(file()));
}

void tst_settings::a_file_that_cannot_be_parsed_is_set_aside_as_it_was_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a line that is nothing") << QByteArray("[trnwck]\nprefs\\font=12\nthis is no settings file\n");
    QTest::newRow("an open section") << QByteArray("[trnwck\nprefs\\font=12\n");
    QTest::newRow("cut off") << QByteArray("[trnwck]\nprefs\\font=12\nprefs\\so");
    QTest::newRow("NUL bytes") << QByteArray(512, '\0');
    QTest::newRow("NUL bytes in a value") << QByteArray("[trnwck]\nprefs\\font=1\0002\n", 25);
    QTest::newRow("garbage") << QByteArray("\x80\xff=\x01[garbage\n");
    QTest::newRow("another program's file") << QByteArray("\x7f"
                                                          "ELF\x02\x01\x01\0\0=\0",
                                                          11);
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe[\0t\0]\0\n\0a\0=\0b\0", 16);
    QTest::newRow("a mark, a comment and what is nothing")
        << QByteArray("\xef\xbb\xbf# comment\n[trnwck]\nnothing\n");
}

void tst_settings::a_file_that_cannot_be_parsed_is_set_aside_as_it_was()
{
    QFETCH(QByteArray, bytes);
    put(bytes);
    {
        Settings settings(file());
        QCOMPARE(settings.set_aside(), file() + QStringLiteral(".damaged"));
        QCOMPARE(settings.pref(QStringLiteral("font"), QStringLiteral("9")), QStringLiteral("9"));
        settings.set_reg();
    }
    QCOMPARE(bytes_of(file() + QStringLiteral(".damaged")), bytes);
    const Settings again(file());
    QCOMPARE(again.set_aside(), QString());
    QCOMPARE(again.pref(QStringLiteral("load"), QStringLiteral("fail")), QStringLiteral("load"));
}

void tst_settings::a_file_set_aside_leaves_the_earlier_ones_alone()
{
    const QByteArray damaged = "nothing ";
    for (const char* number : {"1", "2", "3"}) {
        put(damaged + number);
        Settings(file()).set_pref(QStringLiteral("font"), QStringLiteral("12"));
    }
    QCOMPARE(bytes_of(file() + QStringLiteral(".damaged")), damaged + '1');
    QCOMPARE(bytes_of(file() + QStringLiteral(".damaged-2")), damaged + '2');
    QCOMPARE(bytes_of(file() + QStringLiteral(".damaged-3")), damaged + '3');
}

void tst_settings::a_damaged_file_that_cannot_be_set_aside_is_an_error()
{
    put("nothing");
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(QFileInfo(file()).path(), QFile::Permissions(0x5555));
    const QString path = file();
    const QString given = as_nobody([path] { return error_of([&path] { Settings settings(path); }); });
    QCOMPARE(given,
             QStringLiteral("%1: Could not open registry section\n"
                            "The settings file cannot be read, nor set aside\n(%2)")
                 .arg(store_error + 1)
                 .arg(file()));
    QCOMPARE(content(), QByteArray("nothing"));
}

void tst_settings::a_byte_order_mark_and_comments_are_read_over_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray mark = "\xef\xbb\xbf";
    QTest::newRow("mark") << mark + "[trnwck]\nprefs\\font=12\n";
    QTest::newRow("comment first") << QByteArray("# mine\n[trnwck]\nprefs\\font=12\n");
    QTest::newRow("comment inside") << QByteArray("[trnwck]\n  # prefs\\font=10\nprefs\\font=12\n#");
    QTest::newRow("semicolon") << QByteArray("; mine\n[trnwck]\nprefs\\font=12\n; too\n");
    QTest::newRow("line ends of another system") << mark + "# mine\r\n[trnwck]\r\nprefs\\font=12\r\n";
}

void tst_settings::a_byte_order_mark_and_comments_are_read_over()
{
    QFETCH(QByteArray, bytes);
    put(bytes);
    {
        Settings settings(file());
        QCOMPARE(settings.set_aside(), QString());
        QCOMPARE(settings.pref(QStringLiteral("font"), QStringLiteral("9")), QStringLiteral("12"));
        settings.set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    }
    const Settings again(file());
    QCOMPARE(again.pref(QStringLiteral("font"), QStringLiteral("9")), QStringLiteral("12"));
    QCOMPARE(again.pref(QStringLiteral("sort"), QStringLiteral("cat")), QStringLiteral("alpha"));
    QVERIFY(!QFile::exists(file() + QStringLiteral(".damaged")));
}

void tst_settings::what_is_no_file_is_an_error_at_once_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("fifo");
    for (const char* name : {"settings.ini", "settings.ini.lock"})
        for (const bool fifo : {true, false})
            QTest::addRow("%s as %s", name, fifo ? "FIFO" : "folder") << QString::fromLatin1(name) << fifo;
}

void tst_settings::what_is_no_file_is_an_error_at_once()
{
    QFETCH(QString, name);
    QFETCH(bool, fifo);
    const QString folder = QFileInfo(file()).path();
    QVERIFY(QDir().mkpath(folder));
    const QByteArray path = QFile::encodeName(folder + u'/' + name);
    QCOMPARE(fifo ? ::mkfifo(path.constData(), 0666) : ::mkdir(path.constData(), 0777), 0);
    const QString error
        = error_of([this] { Settings(file()).set_pref(QStringLiteral("font"), QStringLiteral("9")); });
    QVERIFY2(error.startsWith(QString::number(store_error + 1)), qPrintable(error));
    QVERIFY2(error.endsWith(u'(' + folder + u'/' + name + u')'), qPrintable(error));
}

void tst_settings::a_file_that_becomes_a_fifo_is_an_error_at_once()
{
    Settings settings(file());
    settings.set_pref(QStringLiteral("font"), QStringLiteral("9"));
    QVERIFY(QFile::remove(file()));
    QCOMPARE(::mkfifo(QFile::encodeName(file()).constData(), 0666), 0);
    const QString error = error_of([&] { settings.set_pref(QStringLiteral("font"), QStringLiteral("10")); });
    QVERIFY2(error.endsWith(QStringLiteral("(%1)").arg(file())), qPrintable(error));
}

void tst_settings::a_dead_lock_of_another_machine_does_not_hold_up_for_more_than_its_patience()
{
    put("[trnwck]\nprefs\\font=9\n");
    QFile lock(file() + QStringLiteral(".lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write("1\nprogram\nelsewhere\n0123456789abcdef\n\n");
    lock.close();
    Settings settings(file());
    QElapsedTimer waited;
    waited.start();
    settings.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    QVERIFY2(!waited.hasExpired(10000), "the 30 s of the library");
    QVERIFY(content().contains("font=12"));
    QVERIFY(!lock.exists());
}

void tst_settings::a_lock_that_is_held_is_told_after_the_patience()
{
    Settings settings(file());
    settings.set_pref(QStringLiteral("font"), QStringLiteral("9"));
    QLockFile held(file() + QStringLiteral(".lock"));
    held.setStaleLockTime(0);
    QVERIFY(held.tryLock());
    QElapsedTimer waited;
    waited.start();
    const QString error = error_of([&] { settings.set_pref(QStringLiteral("font"), QStringLiteral("12")); });
    QCOMPARE(error,
             QStringLiteral("%1: Could not open/create registry section\n"
                            "Another program holds the settings\n(%2.lock)")
                 .arg(store_error + 1)
                 .arg(file()));
    QVERIFY2(!waited.hasExpired(10000), "the 30 s of the library");
    held.unlock();
    settings.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    QVERIFY(content().contains("font=12"));
}

void tst_settings::a_missing_file_is_made_with_its_folders()
{
    Settings(file()).set_pref(QStringLiteral("font"), QStringLiteral("9"));
    QVERIFY(QFile::exists(file()));
}

QTEST_MAIN(tst_settings)
#include "tst_settings.moc"
