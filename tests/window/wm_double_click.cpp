#include "data/connection.h"
#include "data/query.h"
#include "probe/pie_household.h"
#include "probe/real_keyboard.h"

#include <QTest>

using namespace tarnwick;
using namespace tarnwick::real_keyboard;

/// A double click of a real mouse on a command whose dialog comes up under the pointer.
class wm_double_click : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void cleanupTestCase() { end(); }
    void a_double_click_on_a_command_does_not_answer_its_dialog_data();
    void a_double_click_on_a_command_does_not_answer_its_dialog();
    void a_double_click_beside_an_item_leaves_open_what_it_opens_data();
    void a_double_click_beside_an_item_leaves_open_what_it_opens();

private:
    void start();
    void end();
    /// Where a question has its answer; "box KEY" is the box before the text of a node.
    QRect place_of(const QByteArray& question)
    {
        constexpr int box_before_text = 41; // pixels; 13 wide
        constexpr int box_width = 13;
        const bool is_box = question.startsWith("box ");
        const QStringList place
            = RealProgram::ask(*process_, is_box ? "node " + question.mid(4) : question).split(u' ');
        if (place.size() != 4)
            return {};
        const QRect found(place[0].toInt(), place[1].toInt(), place[2].toInt(), place[3].toInt());
        return is_box ? QRect(found.left() - box_before_text, found.top(), box_width, found.height()) : found;
    }
    void point_at(const QByteArray& question)
    {
        QRect place;
        QVERIFY2(QTest::qWaitFor(
                     [&] {
                         place = place_of(question);
                         return place.isValid();
                     },
                     10000),
                 question.constData());
        const auto middle = [](int from, int length) { return QString::number(from + std::min(length, 40) / 2); };
        QVERIFY(!RealProgram::xdotool({QStringLiteral("mousemove"), middle(place.x(), place.width()),
                                       middle(place.y(), place.height())})
                     .isNull());
    }
    static void click(int button, int times = 1, int delay = 0)
    {
        QVERIFY(!RealProgram::xdotool({QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(times),
                                       QStringLiteral("--delay"), QString::number(delay), QString::number(button)})
                     .isNull());
    }
    /// "click QUESTION", "right QUESTION", "key KEYS" or "do ACTION".
    void take(const QByteArray& step)
    {
        const QByteArray rest = step.mid(step.indexOf(' ') + 1);
        if (step.startsWith("key ")) {
            press(rest.constData());
        } else if (step.startsWith("do ")) {
            RealProgram::tell(*process_, step);
        } else {
            point_at(rest);
            click(step.startsWith("right ") ? 3 : 1);
        }
        QTest::qWait(200);
    }

    RealProgram program_;
    std::unique_ptr<QProcess> process_;
    bool changes_window_ = false;
};

/// Butter is on the list and to buy, Yeast is on none, Salt is on two and not to buy.
void make_household(const RealProgram& program)
{
    Connection connection;
    connection.open(program.database());
    const Key recipe = make_pie_household(connection);
    Query(connection,
          "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
          " VALUES (1, ?, 1, 'Butter', '1', 'cup', ' ', 0)",
          recipe)
        .run();
    for (const char* sql :
         {"INSERT INTO list_name (key_id, list_name, active) VALUES (2, 'Party', 0)",
          "INSERT INTO cat (key_id, cat_desc) VALUES (1, 'Dairy')",
          "INSERT INTO items_1 (key_id, item, cat, status) VALUES (2, 'Yeast', 0, 5), (3, 'Salt', 0, 6), "
          "(4, 'Milk', 1, 5)",
          "INSERT INTO groc_1 (key_id, item, to_get) VALUES (2, 'Salt', 0), (3, 'Salt', 0)",
          "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (2, 2, 3, 1), (3, 3, 3, 2)"})
        Query(connection, sql).run();
}

void wm_double_click::start()
{
    program_.renew();
    make_household(program_);
    process_ = start_with(program_, "TreeView1(0)",
                          {{"arcp", "1"},
                           {"alist", "1"},
                           {"lv_view", "1"},
                           {"sort", "alpha"},
                           {"sort_r", "alpha"},
                           {"wstate", "0"},
                           {"fwidth", "10500"},
                           {"fheight", "7500"}},
                          RealProgram::Probe::leaves_messages);
    QVERIFY(process_);
    // Dialogs have room on all sides of the pointer.
    QTRY_VERIFY_WITH_TIMEOUT(
        !RealProgram::xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                               QStringLiteral("Tarnwick"), QStringLiteral("windowmove"), QStringLiteral("600"),
                               QStringLiteral("400")})
             .isNull(),
        5000);
    QTest::qWait(500);
}

void wm_double_click::end()
{
    if (!process_)
        return;
    process_->kill();
    process_->waitForFinished();
    process_.reset();
}

/// The program goes on to the next row where this one has left it as it was.
void wm_double_click::cleanup()
{
    if (QTest::currentTestFailed() || changes_window_)
        end();
}

void wm_double_click::a_double_click_on_a_command_does_not_answer_its_dialog_data()
{
    QTest::addColumn<QByteArray>("steps");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("dialog");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("delay");
    QTest::addColumn<bool>("changes_window");
    struct Case {
        const char *name, *steps, *command, *dialog, *button;
        bool changes_window = false; ///< the program is started anew for the next
    };
    constexpr Case cases[] = {
        {"entry of the menu bar", "key alt+s", "entry mnu_list_new", "new_item_rcp", "Command1(1)"},
        {"entry with a question", "key alt+s", "entry mnu_list_del", "message_box", "none"},
        {"toolbar, new list", "", "where Toolbar1(1)", "new_item_rcp", "Command1(1)"},
        {"toolbar, clear", "", "where Toolbar1(2)", "lst_clr_dlg", "Command1(1)"},
        {"toolbar, new recipe", "", "where Toolbar1(5)", "new_item_rcp", "Command1(1)"},
        {"toolbar, new stock item", "", "where Toolbar1(8)", "l_item_edit", "Command1(1)"},
        {"toolbar, preview", "", "where Toolbar1(11)", "prev_frm", "Command1(4)"},
        {"toolbar, find", "", "where Toolbar1(15)", "find_item", "Command1(1)"},
        {"print setup", "key alt+s", "entry mnu_list_prntsetup", "pic_frm", "Command1(2)"},
        {"clear list", "key alt+s", "entry mnu_list_clear", "lst_clr_dlg", "Command1(1)"},
        {"rename list", "key alt+s", "entry mnu_list_RenameList", "input_box", "none"},
        {"new recipe", "key alt+r", "entry mnu_recipe_new", "new_item_rcp", "Command1(1)"},
        {"new stock item", "key alt+k", "entry mnu_edit_add_stck", "l_item_edit", "Command1(1)"},
        {"new category", "key alt+k", "entry mnu_edit_add_cat", "new_item_rcp", "Command1(1)"},
        {"entry of a window that stays open", "key alt+t,key Down,key Right", "entry mnu_tools_find_item",
         "find_item", "Command1(1)"},
        {"find recipe", "key alt+t,key Down,key Right", "entry mnu_tools_find_recipe", "find_item", "Command1(1)"},
        {"page colours", "key alt+v", "entry mnu_view_color", "frmColor", "OKButton"},
        {"help that is not there", "key alt+h", "entry mnu_help_launch", "message_box", "none"},
        {"about", "key alt+h", "entry mnu_help_about", "frmhelpabout", "OKButton"},
        {"entry of the row's menu", "right where Listview1", "entry mnu_lv_ed", "l_item_edit", "Command1(1)"},
        {"entry of the tree's menu", "right node item0001", "entry mnu_tv_edit", "l_item_edit", "Command1(1)"},
        {"entry of the tree's menu with a question", "right node item0001", "entry mnu_tv_di", "message_box",
         "none"},
        {"tree's menu, new item", "right node item0001", "entry mnu_tv_ni", "l_item_edit", "Command1(1)"},
        {"tree's menu, on the list again", "right node item0001", "entry mnu_tv_ai", "message_box", "none"},
        {"stock item on the list again", "click node item0001,key alt+k", "entry mnu_edit_stock_to_list",
         "message_box", "none"},
        {"box of an item on two lists", "", "box item0003", "l_item_edit", "Command1(1)"},
        {"word processor", "key alt+t,key Down,key Down,key Right", "entry mnu_tools_wp_list", "anti_vrs",
         "OKButton", true},
        {"button of a dialog", "key alt+k,click entry mnu_edit_add_stck", "where CmdNewCat", "new_item_rcp",
         "Command1(1)", true},
        {"button of a dialog with a question", "key alt+s,click entry mnu_list_clear,click where Option1(3)",
         "where Command1(0)", "message_box", "none", true},
        {"pencil of the row", "key F6,key Down,key F2", "where imgedit", "l_item_edit", "Command1(1)", true},
        {"pencil of the line", "do mnu_view_rcpepages,click where ingred(0)", "where imgedit", "l_item_edit",
         "Command1(1)", true},
        {"tree's menu, on the recipe again", "do mnu_view_rcpepages,right node item0001", "entry mnu_tv_air",
         "message_box", "none", true},
        {"tree's menu, new category", "do mnu_view_sort_cat,right node cat0001", "entry mnu_tv_nc", "new_item_rcp",
         "Command1(1)"},
        {"tree's menu, delete category", "right node cat0001", "entry mnu_tv_dc", "message_box", "none"},
        {"delete category", "click node cat0001,key alt+k", "entry mnu_edit_del_cat", "message_box", "none"},
        {"tree's menu, move", "click node cat0000,key Right,right node item0001", "entry mnu_tv_move", "move_item",
         "Command1(1)"},
        {"move stock item", "click node item0002,key alt+k", "entry mnu_edit_move", "move_item", "Command1(1)",
         true},
        {"recipe tree's menu, delete", "do mnu_view_rcp,right node rcp0001", "entry mnu_tv_r_del", "message_box",
         "none"},
        {"recipe tree's menu, new", "right node rcp0001", "entry mnu_tv_r_new", "new_item_rcp", "Command1(1)"},
        {"delete recipe", "click node rcp0001,key alt+r", "entry mnu_recipe_del", "message_box", "none", true},
        {"recipe tree's menu, move",
         "do mnu_view_rcp,do mnu_view_sort_cat_r,click node rcat13,key Right,right node rcp0001",
         "entry mnu_tv_r_move", "move_item", "Command1(1)"},
        {"move recipe", "key alt+r", "entry mnu_recipe_move", "move_item", "Command1(1)", true},
    };
    constexpr int quick = 80;
    constexpr int slow = 300; // the dialog is there before the second press
    const auto add = [](const Case& one, int delay) {
        QTest::addRow("%s, %i ms", one.name, delay)
            << QByteArray(one.steps) << QByteArray(one.command) << QByteArray(one.dialog) << QByteArray(one.button)
            << delay << one.changes_window;
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
    QFETCH(bool, changes_window);
    changes_window_ = changes_window;
    if (!process_)
        start();
    QVERIFY(process_);
    RealProgram::tell(*process_, "under none");
    for (const QByteArray& step : steps.isEmpty() ? QList<QByteArray>() : steps.split(','))
        take(step);
    point_at(command);
    RealProgram::tell(*process_, "under " + button);
    click(1, 2, delay);
    QTRY_VERIFY_WITH_TIMEOUT(is_shown(*process_, dialog), 10000);
    QTest::qWait(500);
    QVERIFY2(is_shown(*process_, dialog), "the second press answered the dialog of the first");
    // A click of its own does: the button has been under the pointer all the time.
    click(1);
    QTRY_VERIFY_WITH_TIMEOUT(!is_shown(*process_, dialog), 5000);
}

void wm_double_click::a_double_click_beside_an_item_leaves_open_what_it_opens_data()
{
    QTest::addColumn<QByteArray>("view");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("box");
    QTest::newRow("row of the list") << QByteArray("mnu_view_shoplist") << QByteArray("flt_btn(0)")
                                     << QByteArray("desc_brdr");
    QTest::newRow("line of the page") << QByteArray("mnu_view_rcpepages") << QByteArray("flt_btn(1)")
                                      << QByteArray("ing_flt_txtQty");
}

/// The button goes with the first press, and the tree lies under the second.
void wm_double_click::a_double_click_beside_an_item_leaves_open_what_it_opens()
{
    QFETCH(QByteArray, view);
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, box);
    changes_window_ = true;
    if (!process_)
        start();
    QVERIFY(process_);
    take("do " + view);
    take("click node item0002");
    point_at("where " + button);
    constexpr int pause = 120;
    click(1, 2, pause);
    QTRY_VERIFY(is_shown(*process_, box));
    QTest::qWait(500);
    QVERIFY2(is_shown(*process_, box), "the second press went to the tree and closed it");
    take("click node item0001"); // counts
    QTRY_VERIFY(!is_shown(*process_, box));
}

QTEST_GUILESS_MAIN(wm_double_click)
#include "wm_double_click.moc"
