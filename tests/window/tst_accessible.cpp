#include "household/status_names.h"
#include "lists/list_pane.h"
#include "output/anti_vrs.h"
#include "output/list_to_get.h"
#include "recipes/line_fixture.h"
#include "stock/stock_tree.h"
#include "widgets/drawn_controls.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"
#include "support/opened_windows.h"
#include "support/tool_button.h"
#include "window/commands.h"
#include "window/toolbar.h"
#include "window/frmsplash.h"

#include <QAccessible>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QDirIterator>
#include <QMenu>
#include <QRegularExpression>
#include <QSet>
#include <QToolButton>

using namespace tarnwick;

namespace {

bool needs_name(const QAccessibleInterface& one)
{
    switch (one.role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::ButtonDropDown:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::Graphic:
    case QAccessible::List:
    case QAccessible::MenuItem:
    case QAccessible::MenuBar:
    case QAccessible::PopupMenu:
    case QAccessible::StatusBar:
    case QAccessible::PageTab:
    case QAccessible::Slider:
    case QAccessible::SpinBox:
    case QAccessible::Dialog:
    case QAccessible::AlertMessage:
    case QAccessible::Window:
    case QAccessible::ProgressBar:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::TreeItem:
        return true;
    case QAccessible::ScrollBar: {
        // The bars of a view or a text speak for it.
        const QObject* bar = one.object();
        return bar && bar->parent() && !qobject_cast<QAbstractScrollArea*>(bar->parent()->parent());
    }
    default:
        return false;
    }
}

/// A combo box is named by what is chosen in it. What it is for, a label or its description tells.
bool has_name(const QAccessibleInterface& one)
{
    if (!one.text(QAccessible::Description).trimmed().isEmpty())
        return true;
    if (one.role() == QAccessible::ComboBox)
        return !one.relations(QAccessible::Label).isEmpty();
    return !one.text(QAccessible::Name).trimmed().isEmpty();
}

/// Whether the keyboard gets to a control of which nothing is told but its frame.
bool is_silent(const QAccessibleInterface& one)
{
    const auto* control = qobject_cast<const QWidget*>(one.object());
    const bool plain = one.role() == QAccessible::Client || one.role() == QAccessible::Border;
    return plain && control && control->isEnabled() && control->focusPolicy() != Qt::NoFocus
        && !control->focusProxy();
}

void add_nameless(QAccessibleInterface* one, QStringList& found)
{
    if (!one || one->state().invisible)
        return;
    if (is_silent(*one) || (needs_name(*one) && !has_name(*one)))
        found << QStringLiteral("%1 (%2, role %3)")
                     .arg(one->object() ? one->object()->objectName() : QStringLiteral("a part"),
                          QString::fromLatin1(one->object() ? one->object()->metaObject()->className() : ""))
                     .arg(one->role());
    for (int i = 0; i < one->childCount(); ++i)
        add_nameless(one->child(i), found);
}

/// What has a role and no name in any window on the screen, and how many parts were looked at.
QStringList nameless()
{
    QStringList found;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            add_nameless(QAccessible::queryAccessibleInterface(window), found);
    return found;
}

class Window : public LineWindow {
public:
    Window()
    {
        home = add_list(QStringLiteral("Home"));
        add_list(QStringLiteral("Party"));
        const Key dairy = add_category(QStringLiteral("Dairy"), true);
        for (int status = 5; status <= 9; ++status)
            items.push_back(add_item(QStringLiteral("Item %1").arg(status), dairy, status));
        add_row(items[2], home, true);
        add_row(items[1], home, false);
        Query(db(), "UPDATE groc_1 SET cpn = 1, created = '2026-05-06' WHERE key_id = 1").run();
        add_line(recipe, QStringLiteral("Item 7"), items[2]);
        add_line(recipe, QStringLiteral("Item 6"), items[1]);
        add_line(recipe, QStringLiteral("Salt"));
        for (const char* group : {"cpn", "aisle"})
            set_pref(QLatin1String(group), QStringLiteral("1"));
        set_pref(QStringLiteral("alist"), QString::number(home));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
        set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    }

    void start()
    {
        load();
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
    }
    ListGrid& grid() { return main().list_pane().grid(); }

    Key home = 0;
    std::vector<Key> items;
};

QAccessibleInterface& access(QWidget& control)
{
    return *QAccessible::queryAccessibleInterface(&control);
}

} // namespace

/// What a screen reader gets to hear.
class tst_accessible : public QObject {
    Q_OBJECT
private slots:
    void the_walk_finds_what_has_no_name();
    void every_control_of_the_main_window_has_a_name();
    void every_control_of_a_dialog_has_a_name_data();
    void every_control_of_a_dialog_has_a_name();
    void every_window_class_of_the_program_is_walked();
    void every_control_of_windows_that_commands_open_later_has_a_name();
    void every_control_of_a_message_box_has_a_name();
    void every_entry_of_a_menu_has_a_name_data();
    void every_entry_of_a_menu_has_a_name();
    void the_label_editor_of_a_tree_has_a_name();
    void tree_items_tell_name_and_status();
    void every_status_has_other_words();
    void boxes_of_the_grid_are_checked_as_the_row_says();
    void boxes_and_lights_of_the_page_tell_their_state();
    void the_coupon_box_of_an_open_row_is_a_check_box();
    void the_two_new_buttons_differ();
    void the_page_colours_are_choices();
    void the_rows_of_the_list_manager_tell_the_list_on_show();
    void every_control_of_an_open_row_in_the_item_editor_has_a_name();
    void every_entry_under_a_button_of_the_toolbar_has_a_name();
};

void tst_accessible::the_walk_finds_what_has_no_name()
{
    QWidget window;
    QToolButton button(&window);
    window.show();
    QCOMPARE(nameless().size(), 1);
    button.setToolTip(QStringLiteral("Does it"));
    QCOMPARE(nameless().join(u'|'), QString());
    QComboBox combo(&window);
    combo.addItem(QStringLiteral("Dairy"));
    QFrame frame(&window);
    QFrame drawn(&window);
    set_drawn_control(drawn, DrawnControl::button);
    drawn.setAccessibleName(QStringLiteral("Red"));
    drawn.setFocusPolicy(Qt::StrongFocus);
    frame.setFocusPolicy(Qt::StrongFocus);
    for (QWidget* one :
         {static_cast<QWidget*>(&combo), static_cast<QWidget*>(&frame), static_cast<QWidget*>(&drawn)})
        one->show();
    QCOMPARE(nameless().size(), 2);
    combo.setAccessibleDescription(QStringLiteral("Category"));
    frame.setFocusPolicy(Qt::NoFocus);
    QCOMPARE(nameless().join(u'|'), QString());
}

void tst_accessible::every_control_of_the_main_window_has_a_name()
{
    Window w;
    w.start();
    QCOMPARE(nameless().join(u'|'), QString());
    w.grid().setFocus();
    w.grid().set_current(1, GridColumn::item);
    w.main().row_editor().show_l_line();
    QVERIFY(w.main().row_editor().is_open());
    QCOMPARE(nameless().join(u'|'), QString());
    QTest::mouseClick(&w.control(QStringLiteral("dtp_btn")), Qt::LeftButton);
    QVERIFY(w.control(QStringLiteral("MonthView1")).isVisible());
    QCOMPARE(nameless().join(u'|'), QString());
    w.trigger(QStringLiteral("mnu_view_rcpepages"));
    w.trigger(QStringLiteral("mnu_view_rcp"));
    QCOMPARE(nameless().join(u'|'), QString());
    w.open_line(0);
    QVERIFY(w.list().isVisible());
    QCOMPARE(nameless().join(u'|'), QString());
}

namespace {

/// A command, and the class of the window that it opens.
struct Way {
    const char* command;
    const char* window;
};

constexpr Way ways[] = {{"mnu_list_new", "new_item_rcp"},        {"mnu_recipe_new", "new_item_rcp"},
                        {"mnu_edit_add_cat", "new_item_rcp"},    {"mnu_list_RenameList", "QInputDialog"},
                        {"mnu_list_clear", "lst_clr_dlg"},       {"mnu_list_prntsetup", "pic_frm"},
                        {"mnu_list_Print", "QFileDialog"},       {"mnu_edit_add_stck", "l_item_edit"},
                        {"mnu_tv_edit", "l_item_edit"},          {"mnu_edit_move", "move_item"},
                        {"mnu_tools_find_item", "find_item"},    {"mnu_tools_find_recipe", "find_item"},
                        {"mnu_view_color", "frmColor"},          {"mnu_help_about", "frmhelpabout"},
                        {"mnu_tools_listlist", "list_list"},     {"Toolbar1(11)", "prev_frm"},
                        {"Toolbar1(11) of the page", "prev_rcp"}};

/// Windows that are walked without a command.
constexpr const char* other_windows[] = {"frmmain", "frmSplash", "anti_vrs", "list_to_get"};

/// The window of a class of the program, which has no name space in front; null when none is on the screen.
QWidget* window_of(const QString& name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible()
            && QString::fromLatin1(window->metaObject()->className()).section(QStringLiteral("::"), -1) == name)
            return window;
    return nullptr;
}

} // namespace

void tst_accessible::every_control_of_a_dialog_has_a_name_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("window");
    for (const Way& way : ways)
        QTest::newRow(way.command) << QString::fromLatin1(way.command) << QString::fromLatin1(way.window);
}

void tst_accessible::every_control_of_a_dialog_has_a_name()
{
    QFETCH(QString, command);
    QFETCH(QString, window);
    Window w;
    w.start();
    w.main().stock_tree().view().select(w.main().stock_tree().item_node(w.items[2]));
    if (command.endsWith(QLatin1String(" of the page")))
        w.trigger(QStringLiteral("mnu_view_rcpepages"));
    QStringList found{QStringLiteral("no window came")};
    use_opened_window(w, command, [&](QDialog* dialog) {
        QWidget* shown = window_of(window);
        QVERIFY(shown && (!dialog || shown == dialog));
        found = nameless();
        if (!dialog)
            shown->close();
    });
    QCOMPARE(found.join(u'|'), QString());
}

void tst_accessible::every_window_class_of_the_program_is_walked()
{
    QSet<QString> walked;
    for (const Way& way : ways)
        walked.insert(QString::fromLatin1(way.window));
    for (const char* window : other_windows)
        walked.insert(QString::fromLatin1(window));
    const QRegularExpression a_window(
        QStringLiteral("class (\\w+) : public (QDialog|QMainWindow|PreviewWindow)\\b"));
    int classes = 0;
    QDirIterator headers(QStringLiteral(SAMPLE_HOUSEHOLD_DIR "/../../../src"), {QStringLiteral("*.h")}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile header(headers.next());
        QVERIFY(header.open(QIODevice::ReadOnly));
        const auto match = a_window.match(QString::fromUtf8(header.readAll()));
        if (!match.hasMatch() || match.captured(1) == QLatin1String("PreviewWindow"))
            continue;
        QVERIFY2(walked.contains(match.captured(1)), qPrintable(match.captured(1)));
        ++classes;
    }
    QVERIFY(classes >= 14);
}

void tst_accessible::every_control_of_windows_that_commands_open_later_has_a_name()
{
    Window w;
    w.start();
    frmSplash splash;
    splash.show();
    splash.show_warnings();
    QVERIFY(window_of(QStringLiteral("frmSplash")));
    anti_vrs notice(9, &w.main());
    notice.show();
    list_to_get rows(9, &w.main());
    rows.show();
    QCOMPARE(nameless().join(u'|'), QString());
}

void tst_accessible::every_control_of_a_message_box_has_a_name()
{
    Window w;
    w.start();
    for (const int buttons : {box::ok, box::ok_cancel, box::yes_no, box::retry_cancel})
        for (const int icon :
             {0, int(box::stop), int(box::question), int(box::exclamation), int(box::information)}) {
            QStringList found{QStringLiteral("no box came")};
            MessageScript script;
            script.drive([&found](QDialog& dialog) {
                found = nameless();
                dialog.reject();
            });
            msg_box(&w.main(), QStringLiteral("Are you sure?"), buttons | icon, QStringLiteral("Warning"));
            QCOMPARE(found.join(u'|'), QString());
        }
}

void tst_accessible::every_entry_of_a_menu_has_a_name_data()
{
    QTest::addColumn<QString>("name");
    for (const char* menu : {"mnu_list", "mnu_recipe", "mnu_edit", "mnu_tools", "mnu_view", "mnu_help", "mnu_tv",
                             "mnu_tv_r", "mnu_lv", "mnu_ingred"})
        QTest::newRow(menu) << QString::fromLatin1(menu);
}

void tst_accessible::every_entry_of_a_menu_has_a_name()
{
    QFETCH(QString, name);
    Window w;
    w.start();
    QMenu& menu = w.main().commands().menu(name);
    menu.popup(w.main().mapToGlobal(QPoint(50, 50)));
    QVERIFY(menu.isVisible());
    QCOMPARE(nameless().join(u'|'), QString());
    menu.close();
}

void tst_accessible::the_label_editor_of_a_tree_has_a_name()
{
    Window w;
    w.start();
    TreeView& tree = w.main().stock_tree().view();
    tree.select(w.main().stock_tree().item_node(w.items[2]));
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_F2);
    QVERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
    QCOMPARE(nameless().join(u'|'), QString());
}

void tst_accessible::tree_items_tell_name_and_status()
{
    Window w;
    w.start();
    QAccessibleInterface& tree = access(w.main().stock_tree().view());
    QStringList heard;
    for (int i = 0; i < tree.childCount(); ++i)
        if (tree.child(i)->role() == QAccessible::TreeItem)
            heard << tree.child(i)->text(QAccessible::Name);
    QVERIFY2(heard.contains(QStringLiteral("Item 8, buy-it on several lists")), qPrintable(heard.join(u'|')));
    QVERIFY(heard.contains(QStringLiteral("Item 5, on no list")));
    QVERIFY(heard.contains(QStringLiteral("Dairy")));
}

void tst_accessible::every_status_has_other_words()
{
    QSet<QString> words;
    for (int code = 5; code <= 9; ++code)
        words.insert(status_name(code_of_number(code).value()));
    QCOMPARE(words.size(), 5);
    QVERIFY(!words.contains(QString()));
}

void tst_accessible::boxes_of_the_grid_are_checked_as_the_row_says()
{
    Window w;
    w.start();
    QAccessibleTableInterface* table = access(w.grid()).tableInterface();
    QVERIFY(table);
    struct Expected {
        int row;
        int column;
        bool checked;
        const char* name;
    };
    const Expected all[]
        = {{0, 0, false, "Item 6, light"}, {0, 1, false, "Item 6, buy-it"}, {0, 5, false, "Item 6, coupon"},
           {1, 0, true, "Item 7, light"},  {1, 1, true, "Item 7, buy-it"},  {1, 5, true, "Item 7, coupon"}};
    for (const Expected& cell : all) {
        QAccessibleInterface* heard = table->cellAt(cell.row, cell.column);
        QVERIFY(heard);
        QVERIFY(heard->state().checkable);
        QCOMPARE(bool(heard->state().checked), cell.checked);
        QCOMPARE(heard->text(QAccessible::Name), QString::fromLatin1(cell.name));
    }
    QVERIFY(!table->cellAt(0, 2)->state().checkable);
    QCOMPARE(table->cellAt(0, 2)->text(QAccessible::Name), QStringLiteral("Item 6"));
    w.grid().setFocus();
    w.grid().set_current(0, GridColumn::item);
    QTest::keyClick(&w.grid(), Qt::Key_Space);
    QVERIFY(table->cellAt(0, 1)->state().checked);
}

void tst_accessible::boxes_and_lights_of_the_page_tell_their_state()
{
    Window w;
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    w.start();
    const bool checked[] = {true, false, false};
    const char* lights[] = {"buy-it", "on a list, not to buy", "non-stock item"};
    const char* names[] = {"Buy-it, Item 7", "Buy-it, Item 6", "Buy-it, Salt"};
    for (int i = 0; i < 3; ++i) {
        QAccessibleInterface& box = access(*w.line(i).Check1);
        QCOMPARE(box.role(), QAccessible::CheckBox);
        QVERIFY(box.state().checkable);
        QCOMPARE(bool(box.state().checked), checked[i]);
        QCOMPARE(box.text(QAccessible::Name), QString::fromLatin1(names[i]));
        QCOMPARE(access(*w.line(i).lite).text(QAccessible::Name), QString::fromLatin1(lights[i]));
    }
    QTest::mouseClick(w.line(1).Check1, Qt::LeftButton);
    QVERIFY(access(*w.line(1).Check1).state().checked);
    QCOMPARE(access(*w.line(1).lite).text(QAccessible::Name), QStringLiteral("buy-it"));
}

void tst_accessible::the_coupon_box_of_an_open_row_is_a_check_box()
{
    Window w;
    w.start();
    w.grid().set_current(1, GridColumn::item);
    w.main().row_editor().show_l_line();
    QAccessibleInterface& box = access(w.control(QStringLiteral("chck_box")));
    QCOMPARE(box.role(), QAccessible::CheckBox);
    QVERIFY(box.state().checked);
    QVERIFY(box.actionInterface());
    box.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QVERIFY(!box.state().checked);
    QCOMPARE(w.number("SELECT cpn FROM groc_1 WHERE key_id = 1"), 0);
}

void tst_accessible::the_two_new_buttons_differ()
{
    Window w;
    w.start();
    const QString list = access(w.control(tool_button(ToolButton::new_list))).text(QAccessible::Name);
    const QString recipe = access(w.control(tool_button(ToolButton::new_recipe))).text(QAccessible::Name);
    QCOMPARE(list, QStringLiteral("New shopping list"));
    QCOMPARE(recipe, QStringLiteral("New recipe"));
}

namespace {

/// The names of choices, the chosen one with a star.
QStringList choices(const QWidget& window, const QString& name)
{
    QStringList told;
    for (int i = 0;; ++i) {
        auto* control = window.findChild<QWidget*>(name.arg(i));
        if (!control)
            return told;
        const QAccessibleInterface& heard = access(*control);
        if (heard.role() == QAccessible::RadioButton && heard.state().checkable)
            told << heard.text(QAccessible::Name) + (heard.state().checked ? QStringLiteral("*") : QString());
    }
}

} // namespace

void tst_accessible::the_page_colours_are_choices()
{
    Window w;
    w.set_pref(QStringLiteral("color"), QStringLiteral("1"));
    w.start();
    QStringList before;
    QStringList after;
    use_opened_window(w, QStringLiteral("mnu_view_color"), [&](QDialog* dialog) {
        before = choices(*dialog, QStringLiteral("color(%1)"));
        QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("color(2)")), Qt::LeftButton);
        after = choices(*dialog, QStringLiteral("color(%1)"));
    });
    QCOMPARE(before.join(u' '), QStringLiteral("White Pink* Green Blue"));
    QCOMPARE(after.join(u' '), QStringLiteral("White Pink Green* Blue"));
}

void tst_accessible::the_rows_of_the_list_manager_tell_the_list_on_show()
{
    Window w;
    w.start();
    w.trigger(QStringLiteral("mnu_tools_listlist"));
    QWidget& manager = *window_of(QStringLiteral("list_list"));
    QCOMPARE(choices(manager, QStringLiteral("frm_list(%1)")).join(u' '), QStringLiteral("Home* Party All"));
    w.main().commands().list_entry(1).trigger();
    QCOMPARE(choices(manager, QStringLiteral("frm_list(%1)")).join(u' '), QStringLiteral("Home Party* All"));
    manager.close();
}

void tst_accessible::every_control_of_an_open_row_in_the_item_editor_has_a_name()
{
    Window w;
    w.start();
    w.main().stock_tree().view().select(w.main().stock_tree().item_node(w.items[2]));
    QStringList found{QStringLiteral("no row was opened")};
    use_opened_window(w, QStringLiteral("mnu_tv_edit"), [&](QDialog* dialog) {
        auto* grid = dialog->findChild<ListGrid*>();
        grid->setFocus();
        grid->set_current(0, GridColumn::item);
        QTest::keyClick(grid, Qt::Key_F2);
        QVERIFY(dialog->findChild<QWidget*>(QStringLiteral("desc_brdr"))->isVisible());
        found = nameless();
        QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("dtp_btn")), Qt::LeftButton);
        QVERIFY(dialog->findChild<QWidget*>(QStringLiteral("MonthView1"))->isVisible());
        found << nameless();
    });
    QCOMPARE(found.join(u'|'), QString());
}

void tst_accessible::every_entry_under_a_button_of_the_toolbar_has_a_name()
{
    Window w;
    w.start();
    int lists = 0;
    for (const QToolButton* button : w.main().toolbar().widget().findChildren<QToolButton*>()) {
        if (!button->menu())
            continue;
        button->menu()->popup(w.main().mapToGlobal(QPoint(50, 50)));
        QVERIFY(button->menu()->isVisible());
        QCOMPARE(nameless().join(u'|'), QString());
        button->menu()->close();
        ++lists;
    }
    QVERIFY(lists >= 3);
}

QTEST_MAIN(tst_accessible)
#include "tst_accessible.moc"
