#include "data/settings.h"
#include "household/rescue.h"
#include "probe/real_program.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <memory>
#include <sys/mount.h>

using namespace tarnwick;

namespace {

/// A file system of memory over a folder, for as long as this lives.
class SmallDisk {
public:
    explicit SmallDisk(const QString& folder)
        : folder_(QFile::encodeName(folder))
    {
        error_ = ::mount("none", folder_.constData(), "tmpfs", 0, "size=512k") == 0 ? 0 : errno;
    }
    ~SmallDisk()
    {
        if (error_ == 0)
            ::umount2(folder_.constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    int error() const { return error_; } ///< 0: it stands

    /// Fills it to the last byte.
    void fill() const
    {
        QFile filler(QFile::decodeName(folder_) + QStringLiteral("/filler"));
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray page(4096, 'x');
        while (filler.write(page) == page.size()) { }
        while (filler.write("x", 1) == 1) { }
    }

private:
    QByteArray folder_;
    int error_ = 0;
};

} // namespace

/// What is typed in the real program when an error or the system ends it: the next start puts it back.
class tst_rescue : public QObject, private RealProgram {
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void an_open_new_line_comes_back();
    void an_open_row_of_the_list_comes_back();
    void a_full_disk_leaves_the_text_in_the_state_folder();
    void an_item_editor_open_at_a_log_out_comes_back();
    void a_nameless_line_open_at_a_log_out_comes_back();
    void a_nameless_line_open_at_the_close_box_is_dropped();

private:
    void change(const char* sql) const
    {
        SQLite::Database(database().toStdString(), SQLite::OPEN_READWRITE).exec(sql);
    }
    QString text(const char* sql) const
    {
        return QString::fromStdString(SQLite::Database(database().toStdString()).execAndGet(sql).getString());
    }
    QString state() const { return path(QStringLiteral("state/tarnwick")); }

    /// Puts a recipe "Soup", a list "Weekly" and a stock item "Milk" into the file.
    void fill_household() const;
    void set_view(const char* lv_view) const;

    /// Checks that the process ends as a failure, with one message and `cause` on the standard error.
    static void expect_end(QProcess& process, const char* message, const char* cause);
    /// Checks that the process ends at a log-out, without a word.
    static void expect_log_out(QProcess& process);
    /// A process on the page of "Soup" with a quantity on a new line that has no name yet.
    std::unique_ptr<QProcess> start_with_nameless_line() const;
    /// Starts again, says Yes to the one question and checks what it names.
    void put_back(const char* contents) const;
};

void tst_rescue::init()
{
    renew();
    qputenv("XDG_STATE_HOME", QFile::encodeName(path(QStringLiteral("state"))));
}

void tst_rescue::cleanup()
{
    qunsetenv("XDG_STATE_HOME");
    qunsetenv("PROBE_ANSWERS");
}

void tst_rescue::fill_household() const
{
    change("INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Soup', 'Stir.', '11');"
           "INSERT INTO cat (key_id, cat_desc, expand) VALUES (1, 'Dairy', 1);"
           "INSERT INTO items_1 (key_id, item, cat, status, to_get, qty, desc) VALUES (1, 'Milk', 1, 5, 0, 0, ' ');"
           "INSERT INTO list_name (key_id, list_name, active) VALUES (1, 'Weekly', 0)");
}

void tst_rescue::set_view(const char* lv_view) const
{
    Settings prefs(settings());
    prefs.set_reg();
    prefs.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    prefs.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    prefs.set_pref(QStringLiteral("lv_view"), QLatin1String(lv_view));
}

void tst_rescue::expect_end(QProcess& process, const char* message, const char* cause)
{
    const QStringList messages = lines_of(process).filter(QStringLiteral("message "));
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QStringLiteral("message TarnWick: ") + QLatin1String(message)),
             qPrintable(messages[0]));
    QVERIFY2(errors_of(process).contains(cause), errors_of(process).constData());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QVERIFY(process.exitCode() != 0);
}

void tst_rescue::expect_log_out(QProcess& process)
{
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), SIGTERM), 0);
    QCOMPARE(lines_of(process), QStringList());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
}

std::unique_ptr<QProcess> tst_rescue::start_with_nameless_line() const
{
    fill_household();
    set_view("0");
    auto process = start_listening();
    if (!process)
        return nullptr;
    tell(*process, "do mnu_recipe_add_ingred");
    tell(*process, "type ing_flt_txtQty 2");
    return wait_for(*process, "line 2") ? std::move(process) : nullptr;
}

void tst_rescue::put_back(const char* contents) const
{
    qputenv("PROBE_ANSWERS", "Yes");
    const QStringList lines = lines_of(*start(Probe::closes));
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines[0].startsWith(QStringLiteral("message TarnWick: TarnWick was ended before this was "
                                                "stored:||")
                                 + QLatin1String(contents) + QLatin1String("||")),
             qPrintable(lines[0]));
    QCOMPARE(lines[1], QLatin1String(main_window));
    QVERIFY(rescue_files(database()).isEmpty());
    QCOMPARE(lines_of(*start(Probe::closes)), QStringList(QLatin1String(main_window)));
}

void tst_rescue::an_open_new_line_comes_back()
{
    fill_household();
    set_view("0");
    const auto process = start_listening();
    QVERIFY(process);
    tell(*process, "do mnu_recipe_add_ingred");
    tell(*process, "type ing_flt_txtQty 2");
    QVERIFY(wait_for(*process, "line 2"));
    tell(*process, "type ing_flt_txtItem Salt");
    QVERIFY(wait_for(*process, "line Salt"));
    change("CREATE TRIGGER refuse BEFORE INSERT ON recipe_2 BEGIN SELECT RAISE(ABORT, 'refused by a test'); END");
    tell(*process, "do mnu_view_shoplist");
    expect_end(*process, "TarnWick has encountered an error|and must shut down", "refused by a test");
    change("DROP TRIGGER refuse");
    put_back("Recipe \"Soup\": ingredient \"2 Salt\"");
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(text("SELECT r_ref || '/' || qty || '/' || item FROM recipe_2"), QStringLiteral("1/2/Salt"));
}

void tst_rescue::an_open_row_of_the_list_comes_back()
{
    fill_household();
    set_view("1");
    const auto process = start_listening();
    QVERIFY(process);
    QVERIFY(!ask(*process, "choose item0001").isNull());
    tell(*process, "do mnu_edit_stock_to_list");
    tell(*process, "type desc_brdr fresh");
    QVERIFY(wait_for(*process, "line fresh"));
    change("CREATE TRIGGER refuse BEFORE UPDATE ON groc_1 BEGIN SELECT RAISE(ABORT, 'refused by a test'); END");
    tell(*process, "type desc_brdr  and cold");
    expect_end(*process, "Run-time error", "refused by a test");
    QCOMPARE(text("SELECT desc FROM groc_1"), QStringLiteral("fresh"));
    change("DROP TRIGGER refuse");
    put_back("List row \"Milk\": \"fresh and cold\"");
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(text("SELECT desc FROM groc_1"), QStringLiteral("fresh and cold"));
}

void tst_rescue::a_full_disk_leaves_the_text_in_the_state_folder()
{
    const QString folder = QFileInfo(database()).path();
    const QString kept = path(QStringLiteral("kept.mdb"));
    fill_household();
    QVERIFY(QFile::rename(database(), kept));
    const SmallDisk disk(folder);
    if (disk.error() != 0)
        QSKIP("no file system may be mounted here");
    QVERIFY(QFile::copy(kept, database()));
    set_view("0");
    const auto process = start_listening();
    QVERIFY(process);
    tell(*process, "type title s");
    QVERIFY(wait_for(*process, "line sSoup"));
    disk.fill();
    tell(*process, "do mnu_view_shoplist");
    expect_end(*process, "Run-time error", "disk");
    QVERIFY(QFile::remove(folder + QStringLiteral("/filler")));
    QCOMPARE(text("SELECT r_name FROM recipe_1"), QStringLiteral("Soup"));
    QCOMPARE(QDir(state()).entryList(QDir::Files).size(), 1);
    QVERIFY(!files().contains(QStringLiteral("rescue.json")));
    put_back("Recipe \"sSoup\": name and instructions");
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(text("SELECT r_name FROM recipe_1"), QStringLiteral("sSoup"));
    QVERIFY(QDir(state()).entryList({QStringLiteral("*.json")}, QDir::Files).isEmpty());
}

void tst_rescue::an_item_editor_open_at_a_log_out_comes_back()
{
    fill_household();
    set_view("0");
    const auto process = start_listening();
    QVERIFY(process);
    tell(*process, "type title s");
    QVERIFY(wait_for(*process, "line sSoup"));
    tell(*process, "open mnu_edit_add_stck");
    QTRY_VERIFY(!ask(*process, "where txt_item").isNull());
    tell(*process, "type txt_item Soap");
    QVERIFY(wait_for(*process, "line Soap"));
    expect_log_out(*process);
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(text("SELECT r_name FROM recipe_1"), QStringLiteral("sSoup"));
    QCOMPARE(text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Milk"));
    put_back("Stock item \"Soap\"");
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Milk,Soap"));
}

void tst_rescue::a_nameless_line_open_at_a_log_out_comes_back()
{
    const auto process = start_with_nameless_line();
    QVERIFY(process);
    expect_log_out(*process);
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(text("SELECT count(*) FROM recipe_2"), QStringLiteral("0"));
    put_back("Recipe \"Soup\": ingredient \"2 \"");
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(text("SELECT r_ref || '/' || qty FROM recipe_2"), QStringLiteral("1/2"));
}

void tst_rescue::a_nameless_line_open_at_the_close_box_is_dropped()
{
    const auto process = start_with_nameless_line();
    QVERIFY(process);
    tell(*process, "close");
    QCOMPARE(lines_of(*process), QStringList());
    QCOMPARE(process->exitCode(), 0);
    QCOMPARE(text("SELECT count(*) FROM recipe_2"), QStringLiteral("0"));
    QVERIFY(rescue_files(database()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_rescue)
#include "tst_rescue.moc"
