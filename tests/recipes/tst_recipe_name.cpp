#include "recipes/line_fixture.h"
#include "support/shown_things.h"
#include "support/tool_button.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTabBar>

using namespace tarnwick;

namespace {

/// Three recipes among the desserts, with the page on the first of them.
class NamesWindow : public LineWindow {
public:
    NamesWindow()
        : apple(add_recipe(QStringLiteral("Apple pie"), QStringLiteral("13")))
        , cake(add_recipe(QStringLiteral("Cake"), QStringLiteral("13")))
        , mousse(add_recipe(QStringLiteral("Mousse"), QStringLiteral("13")))
    {
        set_pref(QStringLiteral("arcp"), QString::number(apple));
    }

    void type_title(const QString& text)
    {
        focus(title());
        QTest::keyClick(&title(), Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty())
            QTest::keyClick(&title(), Qt::Key_Delete);
        else
            QTest::keyClicks(&title(), text);
    }

    QStringList desserts() { return names_in(tree().node(QStringLiteral("rcat13"))); }

    QString tab() { return find<QTabBar>(QStringLiteral("TabStrip1(1)"))->tabText(1); }

    QString caption(const char* command) { return main().commands().caption(QLatin1String(command)); }

    Key apple;
    Key cake;
    Key mousse;
};

const QString name_missing = QStringLiteral("Recipe must have a name\n(Cannot leave it blank)");

} // namespace

/// The name of a recipe while and after it is typed in the title.
class tst_recipe_name : public QObject {
    Q_OBJECT
private slots:
    void each_key_renames_tab_menus_and_tool_tips();
    void the_questions_ask_for_the_typed_name();
    void a_renamed_recipe_takes_its_place_when_the_title_is_left_data();
    void a_renamed_recipe_takes_its_place_when_the_title_is_left();
    void a_click_on_a_node_that_ends_a_rename_takes_that_node();
    void a_rename_ended_by_another_page_is_sorted_as_well();
    void an_emptied_title_opens_no_line_editor_data();
    void an_emptied_title_opens_no_line_editor();
    void a_label_editor_opens_before_the_message_of_an_emptied_title_comes();
    void a_line_end_pasted_into_the_title_is_a_blank();
};

void tst_recipe_name::each_key_renames_tab_menus_and_tool_tips()
{
    NamesWindow window;
    window.open();
    QCOMPARE(window.tab(), QStringLiteral("Recipe: Apple pie"));
    window.click_node(rcp(window.apple));
    QCOMPARE(status_text(window.main()), QStringLiteral("Apple pie recipe"));
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_End);
    QString name = QStringLiteral("Apple pie");
    for (const QChar letter : QStringLiteral("st")) {
        QTest::keyClick(&window.title(), letter.toLatin1());
        name += letter;
        const QString rest = u' ' + name + QStringLiteral(" recipe");
        QCOMPARE(window.tab(), QStringLiteral("Recipe: ") + name);
        QCOMPARE(window.tree().node(rcp(window.apple))->text(0), name);
        QCOMPARE(status_text(window.main()), name + QStringLiteral(" recipe"));
        for (const char* command : {"mnu_recipe_prnt", "mnu_recipe_del", "mnu_recipe_move"})
            QVERIFY2(window.caption(command).endsWith(rest), command);
        QCOMPARE(window.caption("mnu_tv_r_del"), QStringLiteral("Delete ") + name);
        QCOMPARE(window.caption("mnu_tv_r_move"), QStringLiteral("Move") + rest);
        QCOMPARE(window.control(tool_button(ToolButton::print)).toolTip(), QStringLiteral("Print") + rest);
        QCOMPARE(window.control(tool_button(ToolButton::preview)).toolTip(), QStringLiteral("Preview") + rest);
    }
}

void tst_recipe_name::the_questions_ask_for_the_typed_name()
{
    NamesWindow window;
    window.open();
    window.type_title(QStringLiteral("Plum pie"));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Plum pie")), Answer::no);
    window.trigger(QStringLiteral("mnu_recipe_del"));
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.text("SELECT r_name FROM recipe_1 WHERE key_id = 2"), QStringLiteral("Plum pie"));
}

void tst_recipe_name::a_renamed_recipe_takes_its_place_when_the_title_is_left_data()
{
    QTest::addColumn<bool>("flat");
    QTest::newRow("in its folder") << false;
    QTest::newRow("in the flat tree") << true;
}

void tst_recipe_name::a_renamed_recipe_takes_its_place_when_the_title_is_left()
{
    QFETCH(bool, flat);
    NamesWindow window;
    if (flat)
        window.set_pref(QStringLiteral("sort_r"), QStringLiteral("alpha"));
    window.open();
    const auto names = [&] { return flat ? names_in(window.tree().invisibleRootItem()) : window.desserts(); };
    window.type_title(QStringLiteral("Kuchen"));
    QCOMPARE(names().first(), QStringLiteral("Kuchen"));
    window.focus(window.Text1());
    QStringList sorted{QStringLiteral("Cake"), QStringLiteral("Kuchen"), QStringLiteral("Mousse")};
    if (flat)
        sorted += QStringLiteral("Soup");
    QCOMPARE(names(), sorted);
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(window.apple));
}

void tst_recipe_name::a_click_on_a_node_that_ends_a_rename_takes_that_node()
{
    NamesWindow window;
    window.open();
    for (const Key clicked : {window.cake, window.mousse}) {
        window.click_node(rcp(window.apple));
        window.type_title(clicked == window.cake ? QStringLiteral("Zabaglione") : QStringLiteral("Apple pie"));
        window.click_node(rcp(clicked));
        QCOMPARE(TreeView::key(window.tree().selected()), rcp(clicked));
        QCOMPARE(window.tag(QStringLiteral("title")), QString::number(clicked));
        QStringList sorted = window.desserts();
        sorted.sort();
        QCOMPARE(window.desserts(), sorted);
    }
}

void tst_recipe_name::a_rename_ended_by_another_page_is_sorted_as_well()
{
    NamesWindow window;
    window.open();
    window.type_title(QStringLiteral("Zabaglione"));
    window.page().set_recipe(window.cake);
    QCOMPARE(window.desserts().last(), QStringLiteral("Zabaglione"));
}

void tst_recipe_name::an_emptied_title_opens_no_line_editor_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Ctrl+I") << 0;
    QTest::newRow("button") << 1;
    QTest::newRow("menu") << 2;
    QTest::newRow("stock item") << 3;
}

void tst_recipe_name::an_emptied_title_opens_no_line_editor()
{
    QFETCH(int, way);
    NamesWindow window;
    const Key flour = window.add_item(QStringLiteral("Flour"), 0);
    window.open();
    window.type_title({});
    MessageScript script;
    script.expect(QStringLiteral("Recipe name"), name_missing);
    if (way == 0)
        QTest::keyClick(&window.title(), Qt::Key_I, Qt::ControlModifier);
    else if (way == 1)
        QTest::mouseClick(&window.control(tool_button(ToolButton::ingredient)), Qt::LeftButton);
    else if (way == 2)
        window.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    else
        window.page().drag_ingred(flour, QStringLiteral("Flour"));
    QCOMPARE(script.left(), 0);
    QVERIFY(!window.editor().is_open());
    QCOMPARE(window.title().text(), QStringLiteral("Recipe"));
    QCOMPARE(window.focused_after_message(), &window.title());
    QCOMPARE(window.lines(), 0);
}

void tst_recipe_name::a_label_editor_opens_before_the_message_of_an_emptied_title_comes()
{
    NamesWindow window;
    window.set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    const Key milk = window.add_item(QStringLiteral("Milk"), 0);
    window.open();
    TreeView& stock = window.main().stock_tree().view();
    QTreeWidgetItem* node = stock.node(QStringLiteral("item") + key_str(milk));
    QVERIFY(node);
    stock.select(node);
    window.type_title({});
    {
        MessageScript script;
        script.expect(QStringLiteral("Recipe name"), name_missing);
        QTest::keyClick(&stock, Qt::Key_F2);
        QCOMPARE(script.left(), 1);
        auto* label = stock.findChild<QLineEdit*>();
        QVERIFY(label);
        QVERIFY(label->isVisible());
    }
    QCOMPARE(window.title().text(), QStringLiteral("Recipe"));
    QCOMPARE(window.focused_after_message(), &window.title());
    QCOMPARE(node->text(0), QStringLiteral("Milk"));
}

void tst_recipe_name::a_line_end_pasted_into_the_title_is_a_blank()
{
    NamesWindow window;
    window.open();
    window.type_title({});
    QGuiApplication::clipboard()->setText(QStringLiteral("Apple\r\npie\nwith\u2028cream"));
    QTest::keyClick(&window.title(), Qt::Key_V, Qt::ControlModifier);
    const QString name = QStringLiteral("Apple pie with cream");
    QCOMPARE(window.title().text(), name);
    QCOMPARE(window.tree().node(rcp(window.apple))->text(0), name);
    window.focus(window.Text1());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1 WHERE key_id = 2"), name);
}

QTEST_MAIN(tst_recipe_name)
#include "tst_recipe_name.moc"
