#include "lists/list_pane.h"
#include "recipes/line_fixture.h"
#include "stock/stock_tree.h"
#include "support/opened_windows.h"
#include "widgets/list_grid.h"

#include <QDialog>
#include <QRadioButton>
#include <QSet>

using namespace tarnwick;

namespace {

QWidget* window_named(const QString& name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == name)
            return window;
    return nullptr;
}

/// What Tab has to reach.
QSet<QWidget*> tab_stops(const QWidget& dialog)
{
    QSet<QWidget*> stops;
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
        if ((control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && control->isVisible() && control->isEnabled()
            && control->window() == &dialog && !control->focusProxy())
            stops.insert(control);
    }
    return stops;
}

/// Goes round by a key until all stops have had the keyboard; the names of those that never had it. Of a group of
/// options Tab reaches one, and the arrows the rest.
QStringList never_reached(QWidget& dialog, Qt::Key key)
{
    QSet<QWidget*> left = tab_stops(dialog);
    for (qsizetype presses = 2 * left.size() + 2; presses > 0 && !left.isEmpty(); --presses) {
        QWidget* focus = QApplication::focusWidget();
        if (!focus || focus->window() != &dialog || !focus->isVisible())
            return {QStringLiteral("nobody has the keyboard after %1, %2")
                        .arg(presses)
                        .arg(focus ? focus->objectName() + focus->window()->objectName() : QString())};
        left.remove(focus);
        if (qobject_cast<QRadioButton*>(focus))
            for (QRadioButton* option : focus->parentWidget()->findChildren<QRadioButton*>())
                left.remove(option);
        QTest::keyClick(focus, key);
    }
    QStringList names;
    for (const QWidget* control : left)
        names << control->objectName() + u' ' + QString::fromLatin1(control->metaObject()->className());
    return names;
}

} // namespace

/// The keyboard in dialogs and windows that stay open: it gets to every control, and out.
class tst_dialog_round : public QObject {
    Q_OBJECT
private slots:
    void tab_goes_round_and_escape_out_data();
    void tab_goes_round_and_escape_out();
};

void tst_dialog_round::tab_goes_round_and_escape_out_data()
{
    QTest::addColumn<QString>("window");
    const std::pair<const char*, const char*> ways[]
        = {{"mnu_list_new", "new_item_rcp"},       {"mnu_recipe_new", "new_item_rcp"},
           {"mnu_edit_add_cat", "new_item_rcp"},   {"mnu_list_RenameList", "input_box"},
           {"mnu_list_clear", "lst_clr_dlg"},      {"mnu_list_prntsetup", "pic_frm"},
           {"mnu_edit_add_stck", "l_item_edit"},   {"mnu_tv_edit", "l_item_edit"},
           {"mnu_edit_move", "move_item"},         {"mnu_tools_find_item", "find_item"},
           {"mnu_tools_find_recipe", "find_item"}, {"mnu_view_color", "frmColor"},
           {"mnu_help_about", "frmhelpabout"},     {"mnu_tools_listlist", "list_list"},
           {"Toolbar1(11)", "prev_frm"},           {"Toolbar1(11) of the page", "prev_rcp"}};
    for (const auto& [command, window] : ways)
        QTest::newRow(command) << QString::fromLatin1(window);
}

void tst_dialog_round::tab_goes_round_and_escape_out()
{
    QFETCH(QString, window);
    const QString command = QString::fromLatin1(QTest::currentDataTag());
    LineWindow w;
    const Key list = w.add_list(QStringLiteral("Home"));
    const Key item = w.add_item(QStringLiteral("Butter"), w.add_category(QStringLiteral("Dairy"), true), 7);
    w.add_row(item, list, true);
    w.set_pref(QStringLiteral("alist"), QString::number(list));
    w.set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    w.load();
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    w.main().stock_tree().view().select(w.main().stock_tree().item_node(item));
    if (command.endsWith(QLatin1String(" of the page")))
        w.trigger(QStringLiteral("mnu_view_rcpepages"));
    QStringList missed{QStringLiteral("no window came")};
    bool is_out = false;
    const auto go_round = [&](QWidget& shown) {
        shown.activateWindow();
        const auto has_keyboard
            = [&shown] { return QApplication::focusWidget() && QApplication::focusWidget()->window() == &shown; };
        if (!QTest::qWaitFor(has_keyboard))
            return;
        missed = never_reached(shown, Qt::Key_Tab) + never_reached(shown, Qt::Key_Backtab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        is_out = !shown.isVisible();
    };
    use_opened_window(w, command, [&](QDialog* dialog) {
        QWidget* shown = dialog ? dialog : window_named(window);
        QVERIFY(shown);
        go_round(*shown);
    });
    QCOMPARE(missed.join(u'|'), QString());
    QVERIFY(is_out);
    QTRY_VERIFY(w.focused_after_message());
}

QTEST_MAIN(tst_dialog_round)
#include "tst_dialog_round.moc"
