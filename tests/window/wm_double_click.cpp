#include "data/connection.h"
#include "data/query.h"
#include "data/settings.h"
#include "probe/pie_household.h"
#include "probe/real_program.h"

#include <QTest>

using namespace tarnwick;

/// A double click of a real mouse on a command whose dialog comes up under the pointer.
class wm_double_click : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void a_double_click_on_a_command_does_not_answer_its_dialog_data();
    void a_double_click_on_a_command_does_not_answer_its_dialog();

private:
    static bool is_shown(QProcess& process, const QByteArray& widget)
    {
        return RealProgram::ask(process, "get " + widget + " visible") == QStringLiteral("true");
    }
    void point_at(const QByteArray& question)
    {
        QString place;
        QVERIFY2(QTest::qWaitFor(
                     [&] {
                         place = RealProgram::ask(*process_, question);
                         return place.count(u' ') == 3;
                     },
                     10000),
                 question.constData());
        const QStringList at = place.split(u' ');
        const auto middle = [&at](int from, int length) {
            return QString::number(at[from].toInt() + std::min(at[length].toInt(), 40) / 2);
        };
        QVERIFY(!RealProgram::xdotool({QStringLiteral("mousemove"), middle(0, 2), middle(1, 3)}).isNull());
    }
    static void click(int button, int times = 1, int delay = 0)
    {
        QVERIFY(!RealProgram::xdotool({QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(times),
                                       QStringLiteral("--delay"), QString::number(delay), QString::number(button)})
                     .isNull());
    }
    static void press(const QByteArray& keys)
    {
        QVERIFY(!RealProgram::xdotool({QStringLiteral("key"), QString::fromLatin1(keys)}).isNull());
    }
    /// "click QUESTION", "right QUESTION", "key KEYS" or "point QUESTION".
    void take(const QByteArray& step)
    {
        const QByteArray rest = step.mid(step.indexOf(' ') + 1);
        if (step.startsWith("key ")) {
            press(rest);
            return;
        }
        point_at(rest);
        if (step.startsWith("click "))
            click(1);
        else if (step.startsWith("right "))
            click(3);
    }

    RealProgram program_;
    std::unique_ptr<QProcess> process_;
};

void wm_double_click::init()
{
    program_.renew();
    Connection connection;
    connection.open(program_.database());
    const Key recipe = make_pie_household(connection);
    Query(connection,
          "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
          " VALUES (1, ?, 1, 'Butter', '1', 'cup', ' ', 0)",
          recipe)
        .run();
    connection.close();
    Settings settings(program_.settings());
    settings.set_reg();
    for (const auto& [key, value] : {std::pair{"arcp", "1"},
                                     {"alist", "1"},
                                     {"lv_view", "1"},
                                     {"sort", "alpha"},
                                     {"wstate", "0"},
                                     {"fwidth", "10500"},
                                     {"fheight", "7500"}})
        settings.set_pref(QLatin1String(key), QLatin1String(value));
    process_ = program_.start_listening(RealProgram::Probe::leaves_messages);
    QVERIFY(process_);
    QTRY_VERIFY_WITH_TIMEOUT(is_shown(*process_, "TreeView1(0)"), 30000);
    // Dialogs have room on all sides of the pointer.
    QTRY_VERIFY_WITH_TIMEOUT(
        !RealProgram::xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                               QStringLiteral("Tarnwick"), QStringLiteral("windowmove"), QStringLiteral("600"),
                               QStringLiteral("400")})
             .isNull(),
        5000);
    QTest::qWait(500);
}

void wm_double_click::cleanup()
{
    if (!process_)
        return;
    process_->kill();
    process_->waitForFinished();
    process_.reset();
}

void wm_double_click::a_double_click_on_a_command_does_not_answer_its_dialog_data()
{
    QTest::addColumn<QByteArray>("steps");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("dialog");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("delay");
    struct Case {
        const char *name, *steps, *command, *dialog, *button;
    };
    constexpr Case cases[] = {
        {"entry of the menu bar", "key alt+s", "entry mnu_list_new", "new_item_rcp", "Command1(1)"},
        {"entry with a question", "key alt+s", "entry mnu_list_del", "message_box", "none"},
        {"entry of a window that stays open", "key alt+t,key Down,key Right", "entry mnu_tools_find_item",
         "find_item", "Command1(1)"},
        {"entry of the row's menu", "right where Listview1", "entry mnu_lv_ed", "l_item_edit", "Command1(1)"},
        {"entry of the tree's menu", "right node item0001", "entry mnu_tv_edit", "l_item_edit", "Command1(1)"},
        {"entry of the tree's menu with a question", "right node item0001", "entry mnu_tv_di", "message_box",
         "none"},
        {"toolbar, new list", "", "where Toolbar1(1)", "new_item_rcp", "Command1(1)"},
        {"toolbar, preview", "", "where Toolbar1(11)", "prev_frm", "Command1(4)"},
        {"toolbar, find", "", "where Toolbar1(15)", "find_item", "Command1(1)"},
        {"pencil of the row", "key F6,key Down,key F2", "where imgedit", "l_item_edit", "Command1(1)"},
        {"button of a dialog", "key alt+k,click entry mnu_edit_add_stck", "where CmdNewCat", "new_item_rcp",
         "Command1(1)"},
    };
    constexpr int quick = 80;
    constexpr int slow = 300; // the dialog is there before the second press
    const auto add = [](const Case& one, int delay) {
        QTest::addRow("%s, %i ms", one.name, delay) << QByteArray(one.steps) << QByteArray(one.command)
                                                    << QByteArray(one.dialog) << QByteArray(one.button) << delay;
    };
    for (const Case& one : cases)
        add(one, slow);
    for (const size_t i : {0, 1, 2})
        add(cases[i], quick);
}

void wm_double_click::a_double_click_on_a_command_does_not_answer_its_dialog()
{
    QFETCH(QByteArray, steps);
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, dialog);
    QFETCH(QByteArray, button);
    QFETCH(int, delay);
    for (const QByteArray& step : steps.isEmpty() ? QList<QByteArray>() : steps.split(',')) {
        take(step);
        QTest::qWait(300);
    }
    point_at(command);
    RealProgram::tell(*process_, "under " + button);
    click(1, 2, delay);
    QTRY_VERIFY_WITH_TIMEOUT(is_shown(*process_, dialog), 10000);
    QTest::qWait(1000);
    QVERIFY2(is_shown(*process_, dialog), "the second press answered the dialog of the first");
    // A click of its own does: the button has been under the pointer all the time.
    click(1);
    QTRY_VERIFY_WITH_TIMEOUT(!is_shown(*process_, dialog), 5000);
}

QTEST_GUILESS_MAIN(wm_double_click)
#include "wm_double_click.moc"
