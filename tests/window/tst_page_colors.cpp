#include "lists/editing_window.h"
#include "recipes/recipe_fixture.h"
#include "household/status.h"
#include "support/message_script.h"
#include "widgets/plain_style.h"
#include "window/view_state.h"

#include <QDialog>
#include <QFrame>
#include <QPushButton>
#include <QtTest>

using namespace tarnwick;

namespace {

const QColor green(204, 255, 204);
const QColor blue(204, 204, 255);

QWidget& part(QDialog& dialog, const QString& name)
{
    auto* found = dialog.findChild<QWidget*>(name);
    if (!found)
        qFatal("no %s", qPrintable(name));
    return *found;
}

QString frame(int index)
{
    return QStringLiteral("frm_color(%1)").arg(index);
}

QString color_box(int index)
{
    return QStringLiteral("color(%1)").arg(index);
}

QRect around(QDialog& dialog, int index, int gap)
{
    return part(dialog, frame(index)).geometry().adjusted(-gap, -gap, gap, gap);
}

void click(QDialog& dialog, const QString& name)
{
    QTest::mouseClick(&part(dialog, name), Qt::LeftButton);
}

void open_colors(frmmain& main)
{
    QAction& action = main.commands().action(QStringLiteral("mnu_view_color"));
    QVERIFY(action.isEnabled());
    action.trigger();
}

QColor ground(QWidget& widget)
{
    return widget.palette().color(QPalette::Base);
}

} // namespace

class tst_page_colors : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void the_frame_of_the_color_with_the_keyboard_is_whole_at_every_scale();
    void dialog_shows_the_four_colors_and_marks_the_present_one();
    void a_click_takes_effect_at_once_moves_the_mark_and_is_stored();
    void a_key_press_in_a_color_box_chooses_it();
    void arrow_and_tab_keys_choose_nothing();
    void list_keeps_current_row_and_scroll_place();
    void the_text_of_an_open_row_is_stored();
    void recipe_page_takes_color_and_lights_and_keeps_its_place();
    void what_lies_behind_keeps_its_place_too();
    void every_part_of_both_panes_takes_the_color();
    void an_edited_recipe_is_saved();
    void an_index_above_3_is_stored_and_leaves_the_color_as_it_was();
    void without_lists_the_notice_takes_the_color_and_the_captions_stay();
    void an_open_item_editor_closes_without_saving();
};

void tst_page_colors::dialog_shows_the_four_colors_and_marks_the_present_one()
{
    EditingWindow w;
    w.row(QStringLiteral("Eggs"));
    w.open();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("frmColor"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Page view background colors"));
        QCOMPARE(static_cast<QPushButton&>(part(dialog, QStringLiteral("OKButton"))).text(), QStringLiteral("OK"));
        for (int i = 0; i < 4; ++i)
            QCOMPARE(part(dialog, frame(i)).palette().color(QPalette::Window), *page_color_of(i));
        QCOMPARE(part(dialog, QStringLiteral("Shape1")).geometry(), around(dialog, 3, 5));
        QCOMPARE(part(dialog, QStringLiteral("Shape2")).geometry(), around(dialog, 3, 7));
        QVERIFY(part(dialog, QStringLiteral("Shape1")).isVisible());
        click(dialog, QStringLiteral("OKButton"));
    });
    open_colors(w.main());
    QCOMPARE(w.pref(QStringLiteral("color")), QStringLiteral("3"));
}

void tst_page_colors::a_click_takes_effect_at_once_moves_the_mark_and_is_stored()
{
    EditingWindow w;
    w.row(QStringLiteral("Eggs"));
    w.open();
    QCOMPARE(ground(w.grid()), blue);
    MessageScript script;
    script.drive([&w](QDialog& dialog) {
        click(dialog, color_box(2));
        QCOMPARE(part(dialog, QStringLiteral("Shape1")).geometry(), around(dialog, 2, 5));
        QCOMPARE(part(dialog, QStringLiteral("Shape2")).geometry(), around(dialog, 2, 7));
        QCOMPARE(ground(w.grid()), green);
        QCOMPARE(ground(w.main().recipe_page().Text1()), green);
        QCOMPARE(w.grid().rows().cell(0, GridColumn::light).data(Qt::UserRole).toInt(), picture_base::light_on + 2);
        QCOMPARE(w.pref(QStringLiteral("color")), QStringLiteral("2"));
        QVERIFY(!QApplication::overrideCursor());
        dialog.close();
    });
    open_colors(w.main());
    QCOMPARE(ground(w.grid()), green);
}

void tst_page_colors::the_frame_of_the_color_with_the_keyboard_is_whole_at_every_scale()
{
    EditingWindow w;
    w.row(QStringLiteral("Eggs"));
    w.open();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        part(dialog, color_box(2)).setFocus();
        QTRY_COMPARE(static_cast<QFrame&>(part(dialog, color_box(2))).frameShape(), QFrame::Box);
        QWidget& marked = part(dialog, frame(2));
        for (const qreal scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
            QImage image((QSizeF(dialog.size()) * scale).toSize(), QImage::Format_RGB32);
            image.setDevicePixelRatio(scale);
            dialog.render(&image);
            const int y = qRound(marked.geometry().center().y() * scale);
            const int left = qRound(marked.x() * scale);
            const int right = qRound((marked.geometry().right() + 1) * scale);
            const int thickness = static_cast<int>(4 * scale);
            for (int x = left; x < right; ++x) {
                const bool in_line = x < left + thickness || x >= right - thickness;
                QCOMPARE(image.pixelColor(x, y), in_line ? QColor(Qt::black) : green);
            }
        }
        dialog.close();
    });
    open_colors(w.main());
}

void tst_page_colors::a_key_press_in_a_color_box_chooses_it()
{
    EditingWindow w;
    w.row(QStringLiteral("Eggs"));
    w.open();
    MessageScript script;
    script.drive([&w](QDialog& dialog) {
        QWidget& first = part(dialog, color_box(0));
        first.setFocus();
        QTest::keyClick(&first, Qt::Key_Space);
        QCOMPARE(w.pref(QStringLiteral("color")), QStringLiteral("0"));
        QCOMPARE(part(dialog, QStringLiteral("Shape1")).geometry(), around(dialog, 0, 5));
        QTest::keyClick(&part(dialog, color_box(1)), Qt::Key_X);
        QCOMPARE(w.pref(QStringLiteral("color")), QStringLiteral("1"));
        dialog.close();
    });
    open_colors(w.main());
}

void tst_page_colors::arrow_and_tab_keys_choose_nothing()
{
    EditingWindow w;
    w.row(QStringLiteral("Eggs"));
    w.open();
    MessageScript script;
    script.drive([&w](QDialog& dialog) {
        QTest::keyClick(&part(dialog, color_box(3)), Qt::Key_Left);
        QCOMPARE(dialog.focusWidget(), &part(dialog, color_box(2)));
        QTRY_COMPARE(static_cast<QFrame&>(part(dialog, color_box(2))).frameShape(), QFrame::Box);
        QCOMPARE(static_cast<QFrame&>(part(dialog, color_box(3))).frameShape(), QFrame::NoFrame);
        QTest::keyClick(&part(dialog, color_box(2)), Qt::Key_Tab);
        QCOMPARE(dialog.focusWidget(), &part(dialog, color_box(3)));
        QCOMPARE(w.pref(QStringLiteral("color")), QStringLiteral("3"));
        QTest::keyClick(&part(dialog, color_box(3)), Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    });
    open_colors(w.main());
    QCOMPARE(w.pref(QStringLiteral("color")), QStringLiteral("3"));
}

void tst_page_colors::list_keeps_current_row_and_scroll_place()
{
    EditingWindow w;
    w.rows(80);
    w.open();
    w.grid().set_top_row(30);
    w.grid().set_current(35, GridColumn::item);
    w.main().view_state().set_color(1);
    QCOMPARE(w.grid().current_row(), 35);
    QCOMPARE(w.grid().top_row(), 30);
    QVERIFY(w.main().shared.list_pane_shown);
}

void tst_page_colors::the_text_of_an_open_row_is_stored()
{
    EditingWindow w;
    const Key eggs = w.row(QStringLiteral("Eggs"));
    w.open();
    w.open_row(0);
    w.type_into("desc_brdr", QStringLiteral("brown"));
    w.main().view_state().set_color(1);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.field(eggs, "desc"), QStringLiteral("[brown]"));
}

void tst_page_colors::recipe_page_takes_color_and_lights_and_keeps_its_place()
{
    RecipeWindow w;
    const Key soup = w.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    w.add_lines(soup, 60);
    w.load();
    w.page().set_recipe(soup);
    w.main().l_r_refresh();
    w.page().scroll_bar().setValue(7);
    QCOMPARE(w.page().scroll_bar().value(), 7);
    w.main().view_state().set_color(2);
    QCOMPARE(w.page().scroll_bar().value(), 7);
    QCOMPARE(ground(w.page().Text1()), green);
    QCOMPARE(w.page().lines().front().lite->property("picture").toInt(), picture_base::light_non_stock + 2);
    QVERIFY(!w.main().shared.list_pane_shown);
    QVERIFY(w.page().frame4().isVisible());
}

void tst_page_colors::what_lies_behind_keeps_its_place_too()
{
    RecipeWindow w;
    const Key list = w.add_list(QStringLiteral("Shop"));
    for (int i = 0; i < 80; ++i)
        w.add_row(w.add_item(QStringLiteral("Item %1").arg(i, 2, 10, QLatin1Char('0')), 0), list, true);
    w.set_pref(QStringLiteral("alist"), QString::number(list));
    const Key soup = w.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    w.add_lines(soup, 60);
    w.load();
    w.page().set_recipe(soup);
    w.main().l_r_refresh();
    ListGrid& grid = w.main().list_pane().grid();
    grid.set_top_row(30);
    grid.set_current(35, GridColumn::item);
    w.page().scroll_bar().setValue(7);
    w.main().view_state().set_color(2);
    QCOMPARE(w.page().scroll_bar().value(), 7);
    w.trigger(QStringLiteral("mnu_view_shoplist"));
    QCOMPARE(grid.current_row(), 35);
    QCOMPARE(grid.top_row(), 30);
    w.main().view_state().set_color(1);
    QCOMPARE(grid.top_row(), 30);
    w.trigger(QStringLiteral("mnu_view_rcpepages"));
    QCOMPARE(w.page().scroll_bar().value(), 7);
    QCOMPARE(w.title().text(), QStringLiteral("Soup"));
}

void tst_page_colors::every_part_of_both_panes_takes_the_color()
{
    RecipeWindow w;
    const Key soup = w.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    w.add_lines(soup, 3);
    w.load();
    w.page().set_recipe(soup);
    w.main().view_state().set_color(2);
    for (const char* name : {"Frame3", "Frame4", "Text1", "title", "ingred(0)", "lite(0)", "frmCreateList",
                             "txtCreateList", "Listview1"}) {
        const auto* part = w.find<QWidget>(QLatin1String(name));
        QVERIFY2(part, name);
        const bool is_ground
            = part->palette().color(QPalette::Base) == green || part->palette().color(QPalette::Window) == green;
        QVERIFY2(is_ground
                     || (!part->autoFillBackground()
                         && part->parentWidget()->palette().color(QPalette::Window) == green),
                 name);
    }
}

void tst_page_colors::an_edited_recipe_is_saved()
{
    RecipeWindow w;
    const Key soup = w.open_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    w.main().l_r_refresh();
    w.focus(w.Text1());
    QTest::keyClicks(&w.Text1(), QStringLiteral("Salt! "));
    QVERIFY(w.edited());
    w.main().view_state().set_color(0);
    QVERIFY(!w.edited());
    QVERIFY(read_recipe(w.db(), soup)->body.contains(QStringLiteral("Salt!")));
    QVERIFY(w.Text1().toPlainText().contains(QStringLiteral("Salt!")));
}

void tst_page_colors::an_index_above_3_is_stored_and_leaves_the_color_as_it_was()
{
    EditingWindow w;
    w.row(QStringLiteral("Eggs"));
    w.open();
    w.main().view_state().set_color(4);
    QCOMPARE(ground(w.grid()), blue);
    QCOMPARE(ground(*w.find<QWidget>(QStringLiteral("Frame4"))), blue);
    QCOMPARE(w.main().shared.color_index, 3);
    QCOMPARE(w.pref(QStringLiteral("color")), QStringLiteral("4"));
}

void tst_page_colors::without_lists_the_notice_takes_the_color_and_the_captions_stay()
{
    TestWindow w;
    w.load();
    const QString title = w.main().windowTitle();
    w.main().view_state().set_color(2);
    QVERIFY(w.main().list_pane().notice_shown());
    QCOMPARE(ground(*w.find<QWidget>(QStringLiteral("txtCreateList"))), green);
    QCOMPARE(w.main().windowTitle(), title);
    QVERIFY(!w.main().shared.all_lists_view);
}

void tst_page_colors::an_open_item_editor_closes_without_saving()
{
    EditingWindow w;
    w.row(QStringLiteral("Eggs"));
    w.open();
    MessageScript script;
    bool closed = false;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        dialog.findChild<QLineEdit*>(QStringLiteral("txt_item"))->setText(QStringLiteral("Milk"));
        w.main().view_state().set_color(0);
        closed = !dialog.isVisible();
    });
    w.main().commands().action(QStringLiteral("mnu_edit_add_stck")).trigger();
    QVERIFY(closed);
    QCOMPARE(w.number("SELECT count(*) FROM items_1 WHERE item = 'Milk'"), 0);
}

QTEST_MAIN(tst_page_colors)
#include "tst_page_colors.moc"
