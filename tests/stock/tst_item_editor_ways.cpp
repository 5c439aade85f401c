#include "stock/item_editor_fixture.h"

#include "lists/list_menu.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "window/toolbar.h"
#include "household/status.h"

#include <QToolButton>

using namespace tarnwick;

namespace {

/// The household with a recipe on show, the main window active.
class PageCase : public EditorCase {
public:
    explicit PageCase(const QString& line)
    {
        Query(window.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Soup', ' ', '11')")
            .run();
        add_line(line, -1);
        window.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
        window.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
        window.load();
        activate();
    }

    void activate()
    {
        window.main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window.main()));
    }

    IngredientLine& line() { return window.main().recipe_page().lines().at(0); }
    QLineEdit& box(const char* name) { return *window.find<QLineEdit>(QLatin1String(name)); }
};

/// What a new item's editor shows of the lists: one row each, none marked.
void see_unmarked_rows(QDialog& dialog, const QStringList& lists)
{
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding New Item to Stock"));
    const GridModel& rows = dialog.findChild<ListGrid*>(QStringLiteral("Listview1"))->rows();
    QStringList names;
    for (const GridRow& row : rows.list_rows()) {
        names << row.item;
        QCOMPARE(row.light, picture_base::light_unlisted);
        QCOMPARE(row.check, picture_base::check_off);
    }
    QCOMPARE(names, lists);
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblActive"))->text(), QStringLiteral("New item"));
}

} // namespace

/// The ways into the dialog and out of it, by the commands of the main window.
class tst_item_editor_ways : public QObject {
    Q_OBJECT
private slots:
    void commands_open_the_editor_of_a_new_item_data();
    void commands_open_the_editor_of_a_new_item();
    void new_item_has_no_list_marked_whichever_list_is_shown_data();
    void new_item_has_no_list_marked_whichever_list_is_shown();
    void check_of_a_non_stock_line_hands_its_name_over();
    void cancel_gives_the_focus_to_the_open_line_editor();
    void cancel_leaves_the_focus_alone_without_an_open_line();
};

void tst_item_editor_ways::commands_open_the_editor_of_a_new_item_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("Stock menu") << QStringLiteral("mnu_edit_add_stck");
    QTest::newRow("popup menu of the tree") << QStringLiteral("mnu_tv_ni");
    QTest::newRow("toolbar") << QString();
}

void tst_item_editor_ways::commands_open_the_editor_of_a_new_item()
{
    QFETCH(QString, command);
    EditorCase test;
    test.add_lists();
    frmmain& main = test.window.load();
    MessageScript messages;
    messages.drive([](QDialog& dialog) {
        dialog.reject();
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding New Item to Stock"));
        QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("txt_item"))->text(), QString());
        QCOMPARE(request_of(dialog).mode, EditMode::new_item);
        QCOMPARE(int(request_of(dialog).item), -1);
    });
    if (command.isEmpty()) {
        QWidget& button = main.toolbar().button(ToolButton::stock);
        QVERIFY(button.isVisible() && button.isEnabled());
        QTest::mouseClick(&button, Qt::LeftButton);
    } else {
        trigger(test.window, qPrintable(command));
    }
    QCOMPARE(messages.left(), 0);
}

void tst_item_editor_ways::new_item_has_no_list_marked_whichever_list_is_shown_data()
{
    QTest::addColumn<int>("entry"); // of the list menu: Market, Party, Weekly, All
    QTest::newRow("all lists") << 3;
    QTest::newRow("one list") << 0;
}

void tst_item_editor_ways::new_item_has_no_list_marked_whichever_list_is_shown()
{
    QFETCH(int, entry);
    EditorCase test;
    test.add_lists();
    test.window.set_pref(QStringLiteral("alist"), QString::number(test.party));
    frmmain& main = test.window.load();
    choose(test.window, entry);
    QCOMPARE(main.shared.all_lists_view, entry == 3);
    QCOMPARE(main.shared.current_list, entry == 3 ? Key(0) : test.market);
    MessageScript messages;
    messages.drive([](QDialog& dialog) {
        dialog.reject();
        see_unmarked_rows(dialog, {QStringLiteral("Weekly"), QStringLiteral("Market"), QStringLiteral("Party")});
    });
    trigger(test.window, "mnu_tv_ni");
    QCOMPARE(messages.left(), 0);
}

void tst_item_editor_ways::check_of_a_non_stock_line_hands_its_name_over()
{
    PageCase test(QStringLiteral("Spring water"));
    Query(test.window.db(), "UPDATE recipe_2 SET item = 'Rain'").run(); // behind the page's back
    QCOMPARE(test.window.main().recipe_page().rcp_item(0), QStringLiteral("Spring water"));
    MessageScript messages;
    messages.drive([](QDialog& dialog) {
        dialog.reject();
        const auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("txt_item"));
        QCOMPARE(name->text(), QStringLiteral("Spring water"));
        QCOMPARE(name->property("Tag").toString(), QStringLiteral("Spring water"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding Spring water to stock"));
        QCOMPARE(request_of(dialog).mode, EditMode::non_stock_to_stock);
    });
    QTest::mouseClick(test.line().Check1, Qt::LeftButton);
    QCOMPARE(messages.left(), 0);
}

void tst_item_editor_ways::cancel_gives_the_focus_to_the_open_line_editor()
{
    PageCase test(QStringLiteral("Spring water"));
    QTest::mouseClick(test.line().ingred, Qt::LeftButton, {}, QPoint(5, 5));
    QVERIFY(test.window.main().recipe_page().editor_open());
    QVERIFY(test.box("ing_flt_txtQty").hasFocus());
    MessageScript messages;
    messages.drive([](QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("Command1(1)")), Qt::LeftButton);
    });
    trigger(test.window, "mnu_edit_add_stck");
    QCOMPARE(messages.left(), 0);
    test.activate();
    QVERIFY(test.window.main().recipe_page().editor_open());
    QCOMPARE(QApplication::focusWidget(), &test.box("ing_flt_txtDesc"));
}

void tst_item_editor_ways::cancel_leaves_the_focus_alone_without_an_open_line()
{
    PageCase test(QStringLiteral("Spring water"));
    TreeView& tree = test.window.main().stock_tree().view();
    tree.setFocus();
    MessageScript messages;
    messages.drive([](QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("Command1(1)")), Qt::LeftButton);
    });
    trigger(test.window, "mnu_edit_add_stck");
    test.activate();
    QCOMPARE(QApplication::focusWidget(), &tree);
}

QTEST_MAIN(tst_item_editor_ways)
#include "tst_item_editor_ways.moc"
