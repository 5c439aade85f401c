#include "widgets/program.h"
#include "data/runtime_error.h"
#include "lists/list_pane.h"
#include "lists/placing.h"
#include "recipes/line_fixture.h"
#include "widgets/list_grid.h"
#include "window/layout.h"

#include <QClipboard>
#include <QDialog>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <cstdlib>
#include <string>
#include <string_view>

using namespace tarnwick;

namespace {

/// Lets every statement on a connection fail, from the first one on that begins with a text.
class FaultyDatabase {
public:
    FaultyDatabase(Connection& connection, std::string first)
        : handle_(connection.db().getHandle())
        , first_(std::move(first))
    {
        sqlite3_trace_v2(handle_, SQLITE_TRACE_STMT, watch, this);
        sqlite3_progress_handler(
            handle_, 1, [](void* self) { return as(self).failing_ ? 1 : 0; }, this);
    }
    ~FaultyDatabase() { repair(); }
    FaultyDatabase(const FaultyDatabase&) = delete;
    FaultyDatabase& operator=(const FaultyDatabase&) = delete;

    bool failing() const { return failing_; }
    void repair()
    {
        failing_ = false;
        sqlite3_trace_v2(handle_, 0, nullptr, nullptr);
        sqlite3_progress_handler(handle_, 0, nullptr, nullptr);
    }

private:
    static FaultyDatabase& as(void* self) { return *static_cast<FaultyDatabase*>(self); }
    static int watch(unsigned, void* self, void*, void* sql)
    {
        FaultyDatabase& faulty = as(self);
        faulty.failing_ = faulty.failing_ || std::string_view(static_cast<char*>(sql)).starts_with(faulty.first_);
        return 0;
    }

    sqlite3* handle_;
    std::string first_;
    bool failing_ = false;
};

void expect_shut_down(
    MessageScript& script, std::function<void(QDialog&)> look = [](QDialog&) {})
{
    script.expect(QStringLiteral("TarnWick"),
                  QStringLiteral("TarnWick has encountered an error\nand must shut down"), Answer::ok,
                  std::move(look));
}

/// Types at the title of the page, which stays unsaved.
void edit_title(LineWindow& w)
{
    w.focus(w.title());
    QTest::keyClick(&w.title(), Qt::Key_End);
    QTest::keyClicks(&w.title(), QStringLiteral("s"));
    QVERIFY(w.edited());
}

} // namespace

/// The two procedures that trap errors of the database, and the end of the program that they lead to.
class tst_traps : public QObject {
    Q_OBJECT
private slots:
    void an_error_in_a_placing_ends_the_program_but_for_a_subscript_data();
    void an_error_in_a_placing_ends_the_program_but_for_a_subscript();
    void an_error_in_a_new_line_ends_the_program_but_for_a_type_mismatch_data();
    void an_error_in_a_new_line_ends_the_program_but_for_a_type_mismatch();
    void a_fault_of_the_database_while_a_line_is_added_is_told_before_anything_is_tidied_up();
    void a_full_disk_is_no_type_mismatch();
    void an_interrupted_statement_is_no_subscript();
    void a_failed_placing_does_not_save_an_edited_recipe();
    void an_error_in_a_new_line_does_not_save_an_edited_recipe();
    void a_resize_behind_the_last_message_stores_nothing();
    void one_failure_gives_one_message();
};

void tst_traps::an_error_in_a_placing_ends_the_program_but_for_a_subscript_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("ends");
    QTest::newRow("subscript") << int(runtime_error::subscript) << false;
    QTest::newRow("overflow") << int(runtime_error::overflow) << true;
    QTest::newRow("type mismatch") << int(runtime_error::type_mismatch) << true;
    QTest::newRow("element not found") << int(runtime_error::element_not_found) << true;
}

void tst_traps::an_error_in_a_placing_ends_the_program_but_for_a_subscript()
{
    QFETCH(int, number);
    QFETCH(bool, ends);
    TestWindow window;
    frmmain& main = window.load();
    {
        MessageScript script;
        if (ends)
            expect_shut_down(script);
        const bool goes_on = main.program().end_after_error(runtime_error(number, QStringLiteral("planted")));
        QCOMPARE(goes_on, !ends);
    }
    QCOMPARE(window.ends, ends ? 1 : 0);
    QCOMPARE(window.exit_code, ends ? EXIT_FAILURE : -1);
}

void tst_traps::an_error_in_a_new_line_ends_the_program_but_for_a_type_mismatch_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("ends");
    QTest::newRow("type mismatch") << int(runtime_error::type_mismatch) << false;
    QTest::newRow("overflow") << int(runtime_error::overflow) << true;
    QTest::newRow("subscript") << int(runtime_error::subscript) << true;
    QTest::newRow("element not found") << int(runtime_error::element_not_found) << true;
}

void tst_traps::an_error_in_a_new_line_ends_the_program_but_for_a_type_mismatch()
{
    QFETCH(int, number);
    QFETCH(bool, ends);
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.lines(), 1);
    {
        MessageScript script;
        if (ends)
            expect_shut_down(script);
        w.page().ingredients().end_after_error(runtime_error(number, QStringLiteral("planted")));
    }
    QCOMPARE(w.ends, ends ? 1 : 0);
    QCOMPARE(w.exit_code, ends ? EXIT_FAILURE : -1);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 0);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
}

void tst_traps::a_fault_of_the_database_while_a_line_is_added_is_told_before_anything_is_tidied_up()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Salt"));
    FaultyDatabase faulty(w.main().connection(), "INSERT INTO recipe_2");
    {
        MessageScript script;
        expect_shut_down(script, [&](QDialog&) {
            QVERIFY(faulty.failing());
            QCOMPARE(w.ends, 0);
            faulty.repair();
        });
        w.click_text();
    }
    QCOMPARE(w.ends, 1);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
}

void tst_traps::a_full_disk_is_no_type_mismatch()
{
    LineWindow w;
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.desc(), Qt::LeftButton);
    QApplication::clipboard()->setText(QString(30000, u'x'));
    QTest::keySequence(&w.desc(), QKeySequence::Paste);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Salt"));
    SQLite::Database& file = w.main().connection().db();
    file.exec("PRAGMA max_page_count = " + file.execAndGet("PRAGMA page_count").getString());
    {
        MessageScript script;
        expect_shut_down(script);
        w.click_text();
    }
    QCOMPARE(w.ends, 1);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
}

void tst_traps::an_interrupted_statement_is_no_subscript()
{
    LineWindow w;
    const Key list = w.add_list(QStringLiteral("Weekly"));
    w.set_pref(QStringLiteral("alist"), QString::number(list));
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    frmmain& main = w.load();
    FaultyDatabase faulty(main.connection(), "INSERT INTO groc_1");
    {
        MessageScript script;
        expect_shut_down(script, [&](QDialog&) { faulty.repair(); });
        main.placing().stock_to_list(milk);
    }
    QCOMPARE(w.ends, 1);
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
}

void tst_traps::a_failed_placing_does_not_save_an_edited_recipe()
{
    LineWindow w;
    w.set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    w.set_pref(QStringLiteral("alist"), QString::number(w.add_list(QStringLiteral("Weekly"))));
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.open();
    TreeView& tree = w.main().stock_tree().view();
    QTreeWidgetItem* node = tree.node(QStringLiteral("item") + key_str(milk));
    QVERIFY(node);
    tree.ensure_visible(node);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(node).center());
    edit_title(w);
    w.main().connection().db().exec("CREATE TEMP TRIGGER refuse BEFORE INSERT ON main.tie"
                                    " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    {
        MessageScript script;
        expect_shut_down(script, [&](QDialog& box) { QVERIFY(QTest::qWaitForWindowActive(&box)); });
        w.trigger(QStringLiteral("mnu_edit_stock_to_list"));
    }
    QCOMPARE(w.ends, 1);
    QCOMPARE(w.text("SELECT r_name FROM recipe_1"), QStringLiteral("Soup"));
}

void tst_traps::an_error_in_a_new_line_does_not_save_an_edited_recipe()
{
    LineWindow w;
    w.open();
    edit_title(w);
    {
        MessageScript script;
        expect_shut_down(script, [&](QDialog& box) { QVERIFY(QTest::qWaitForWindowActive(&box)); });
        w.page().ingredients().end_after_error(runtime_error(runtime_error::overflow, QStringLiteral("planted")));
    }
    QCOMPARE(w.ends, 1);
    QCOMPARE(w.text("SELECT r_name FROM recipe_1"), QStringLiteral("Soup"));
}

void tst_traps::a_resize_behind_the_last_message_stores_nothing()
{
    TestWindow window;
    frmmain& main = window.load();
    const QString width = window.pref(QStringLiteral("fwidth"));
    const QRect pane = main.list_pane().grid().geometry();
    {
        MessageScript script;
        expect_shut_down(script, [&](QDialog&) {
            main.resize(900, 650);
            QCOMPARE(main.width(), 900);
        });
        main.program().end_after_error(runtime_error(runtime_error::overflow, QStringLiteral("planted")));
    }
    QCOMPARE(window.ends, 1);
    QCOMPARE(window.pref(QStringLiteral("fwidth")), width);
    QCOMPARE(main.list_pane().grid().geometry(), pane);
}

void tst_traps::one_failure_gives_one_message()
{
    TestWindow window;
    frmmain& main = window.load();
    const runtime_error error(runtime_error::overflow, QStringLiteral("planted"));
    {
        MessageScript script;
        expect_shut_down(script, [&](QDialog&) { main.program().end_after_error(error); });
        main.program().end_after_error(error);
    }
    QCOMPARE(window.ends, 1);
}

QTEST_MAIN(tst_traps)
#include "tst_traps.moc"
