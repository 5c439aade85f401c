#include "recipes/line_fixture.h"

#include <QMenu>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using namespace tarnwick;

/// The recipe page by the keyboard: its lines, its instructions, and the way out of an edit.
class tst_page_keys : public QObject {
    Q_OBJECT
private slots:
    void init() { window_ = std::make_unique<LineWindow>(); }
    void cleanup() { window_.reset(); }

    void arrows_go_from_the_name_over_the_lines_to_the_instructions_and_back();
    void a_line_far_down_comes_into_view_with_the_keyboard();
    void enter_opens_the_line_data();
    void enter_opens_the_line();
    void space_clicks_the_box_of_the_line();
    void space_on_a_greyed_box_does_nothing();
    void the_menu_key_opens_the_pop_up_of_the_line();
    void a_right_click_leaves_the_keyboard_on_its_line();
    void escape_leaves_a_line_as_it_was_data();
    void escape_leaves_a_line_as_it_was();
    void escape_gives_back_a_link();
    void escape_without_a_change_writes_nothing();
    void escape_drops_a_new_line_data();
    void escape_drops_a_new_line();
    void escape_in_the_pick_list_leaves_the_edit();
    void a_long_body_scrolls_by_rows();
    void the_page_keys_go_a_view_further_in_a_long_body_and_back();
    void the_pick_list_is_as_wide_as_its_longest_name();
    void the_pick_list_is_no_wider_than_the_page_and_tells_whole_names();

private:
    LineWindow& w() { return *window_; }
    void three_lines()
    {
        for (const char* name : {"Salt", "Oil", "Rice"})
            w().add_line(w().recipe, QString::fromLatin1(name), -1, -1, QStringLiteral("1"), QStringLiteral("cup"),
                         QStringLiteral("fine"));
        w().open();
    }
    static void key(Qt::Key code)
    {
        QVERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), code);
    }
    static QString keyboard()
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus ? focus->objectName() : QString();
    }
    QString table()
    {
        return w().text("SELECT group_concat(key_id || ':' || item_ref || ':' || qty || ':' || measure || ':' ||"
                        " item || ':' || comment || ':' || \"order\", ' / ')"
                        " FROM (SELECT * FROM recipe_2 ORDER BY key_id)");
    }

    int changes_written()
    {
        Query count(w().main().connection(), "SELECT total_changes()");
        return count.next() ? count.number(0) : -1;
    }

    std::unique_ptr<LineWindow> window_;
};

void tst_page_keys::arrows_go_from_the_name_over_the_lines_to_the_instructions_and_back()
{
    three_lines();
    w().title().setFocus();
    for (const char* next : {"ingred(0)", "ingred(1)", "ingred(2)", "Text1"}) {
        key(Qt::Key_Down);
        QCOMPARE(keyboard(), QString::fromLatin1(next));
    }
    for (const char* next : {"ingred(2)", "ingred(1)", "ingred(0)", "title"}) {
        key(Qt::Key_Up);
        QCOMPARE(keyboard(), QString::fromLatin1(next));
    }
    QCOMPARE(w().text("SELECT r_body FROM recipe_1"), QStringLiteral("Stir."));
}

void tst_page_keys::a_line_far_down_comes_into_view_with_the_keyboard()
{
    w().add_lines(w().recipe, 60);
    w().open({1000, 500});
    w().line(0).ingred->setFocus();
    const QFrame& view = w().page().frame4();
    for (int i = 1; i < 60; ++i) {
        key(Qt::Key_Down);
        const QWidget& line = *w().line(i).ingred;
        QVERIFY(line.hasFocus());
        const int top = line.mapTo(&view, QPoint(0, 0)).y();
        QVERIFY(top >= 0 && top + line.height() <= view.height());
    }
}

void tst_page_keys::enter_opens_the_line_data()
{
    QTest::addColumn<Qt::Key>("code");
    QTest::newRow("Enter") << Qt::Key_Return;
    QTest::newRow("Enter, keypad") << Qt::Key_Enter;
    QTest::newRow("F2") << Qt::Key_F2;
}

void tst_page_keys::enter_opens_the_line()
{
    QFETCH(Qt::Key, code);
    three_lines();
    w().line(1).ingred->setFocus();
    key(code);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().index(), 1);
    QVERIFY(w().qty().hasFocus());
}

void tst_page_keys::space_clicks_the_box_of_the_line()
{
    const Key milk = w().add_item(QStringLiteral("Milk"), 0, 6);
    w().add_row(milk, w().add_list(QStringLiteral("Home")), false);
    w().add_line(w().recipe, QStringLiteral("Milk"), milk);
    w().open();
    w().line(0).ingred->setFocus();
    key(Qt::Key_Space);
    QCOMPARE(w().number("SELECT to_get FROM groc_1"), 1);
    key(Qt::Key_Space);
    QCOMPARE(w().number("SELECT to_get FROM groc_1"), 0);
    QVERIFY(w().line(0).ingred->hasFocus());
}

void tst_page_keys::space_on_a_greyed_box_does_nothing()
{
    const Key milk = w().add_item(QStringLiteral("Milk"), 0, 8);
    for (const char* list : {"Home", "Party"})
        w().add_row(milk, w().add_list(QString::fromLatin1(list)), true);
    w().add_line(w().recipe, QStringLiteral("Milk"), milk);
    w().open();
    QVERIFY(!w().line(0).Check1->isEnabled());
    w().line(0).ingred->setFocus();
    const MessageScript nothing;
    key(Qt::Key_Space);
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 2);
}

void tst_page_keys::the_menu_key_opens_the_pop_up_of_the_line()
{
    three_lines();
    w().line(0).ingred->setFocus();
    key(Qt::Key_Down);
    key(Qt::Key_Menu);
    QMenu& menu = w().main().commands().menu(QStringLiteral("mnu_ingred"));
    QVERIFY(menu.isVisible());
    menu.close();
    w().trigger(QStringLiteral("mnu_ingred_del"));
    QCOMPARE(w().ingred(0), QStringLiteral("1 cup Salt fine"));
    QCOMPARE(w().ingred(1), QStringLiteral("1 cup Rice fine"));
}

void tst_page_keys::a_right_click_leaves_the_keyboard_on_its_line()
{
    three_lines();
    w().click_text();
    w().click_line(1, Qt::RightButton);
    w().main().commands().menu(QStringLiteral("mnu_ingred")).close();
    QVERIFY(w().line(1).ingred->hasFocus());
    key(Qt::Key_Down);
    QVERIFY(w().line(2).ingred->hasFocus());
}

void tst_page_keys::escape_leaves_a_line_as_it_was_data()
{
    QTest::addColumn<QByteArray>("last");
    QTest::newRow("from the quantity") << QByteArray("Qty");
    QTest::newRow("from the measure") << QByteArray("Measure");
    QTest::newRow("from the name") << QByteArray("Item");
    QTest::newRow("from the comment") << QByteArray("Desc");
}

/// Every box up to the last is left with another text, which is written; the last one is not left.
void tst_page_keys::escape_leaves_a_line_as_it_was()
{
    QFETCH(QByteArray, last);
    three_lines();
    const QString before = table();
    w().open_line(1);
    for (const QByteArray box : {"Qty", "Measure", "Item", "Desc"}) {
        LineWindow::type(w().box(box.constData()), QStringLiteral("zz"));
        if (box == last)
            break;
        LineWindow::tab(w().box(box.constData()));
    }
    if (last != "Qty")
        QVERIFY(table() != before);
    QTest::keyClick(&w().box(last.constData()), Qt::Key_Escape);
    QCOMPARE(table(), before);
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().ingred(1), QStringLiteral("1 cup Oil fine"));
    QVERIFY(w().line(1).ingred->isVisible());
    QVERIFY(w().line(1).ingred->hasFocus());
    QCOMPARE(w().lines(), 3);
}

void tst_page_keys::escape_gives_back_a_link()
{
    const Key milk = w().add_item(QStringLiteral("Milk"), 0);
    w().add_line(w().recipe, QStringLiteral("Milk"), milk);
    w().open();
    const QString before = table();
    w().open_line(0);
    LineWindow::tab(w().qty());
    LineWindow::tab(w().measure());
    LineWindow::type(w().item(), QStringLiteral("Goat cheese"));
    LineWindow::tab(w().item());
    QCOMPARE(w().number("SELECT item_ref FROM recipe_2"), -1);
    QTest::keyClick(&w().desc(), Qt::Key_Escape);
    QCOMPARE(table(), before);
    QCOMPARE(w().line(0).item_ref, milk);
    QCOMPARE(w().page().rcp_item(0), QStringLiteral("Milk"));
    QCOMPARE(w().line(0).lite->picture_number() / 4, (175 + w().main().shared.color_index) / 4);
}

void tst_page_keys::escape_without_a_change_writes_nothing()
{
    three_lines();
    const int changes = changes_written();
    const QString before = table();
    w().open_line(0);
    QTest::keyClick(&w().qty(), Qt::Key_Escape);
    QCOMPARE(table(), before);
    QCOMPARE(changes_written(), changes);
    QVERIFY(w().line(0).ingred->hasFocus());
}

void tst_page_keys::escape_drops_a_new_line_data()
{
    QTest::addColumn<bool>("with_name");
    QTest::newRow("without a name") << false;
    QTest::newRow("with a name") << true;
}

void tst_page_keys::escape_drops_a_new_line()
{
    QFETCH(bool, with_name);
    three_lines();
    const QString before = table();
    const MessageScript no_question;
    w().trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(w().editor().is_open());
    if (with_name) {
        LineWindow::tab(w().qty());
        LineWindow::tab(w().measure());
        LineWindow::type(w().item(), QStringLiteral("Pepper"));
        QTest::keyClick(&w().item(), Qt::Key_Escape);
    } else {
        QTest::keyClick(&w().qty(), Qt::Key_Escape);
    }
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().lines(), 3);
    QCOMPARE(table(), before);
    QVERIFY(keyboard().startsWith(QStringLiteral("ingred(")));
}

void tst_page_keys::escape_in_the_pick_list_leaves_the_edit()
{
    three_lines();
    const QString before = table();
    w().open_line(2);
    key(Qt::Key_Down);
    QVERIFY(w().list().hasFocus());
    key(Qt::Key_Escape);
    QVERIFY(!w().editor().is_open());
    QVERIFY(!w().list().isVisible());
    QCOMPARE(table(), before);
    QVERIFY(w().line(2).ingred->hasFocus());
}

void tst_page_keys::a_long_body_scrolls_by_rows()
{
    QString body;
    for (int i = 0; i < 400; ++i)
        body += QStringLiteral("Row %1\r\n").arg(i);
    Query(w().db(), "UPDATE recipe_1 SET r_body = ?", body).run();
    w().open({1000, 500});
    w().focus(w().Text1());
    const int row = w().Text1().fontMetrics().lineSpacing();
    int moved = 0;
    for (int i = 0; i < 80; ++i) {
        const int before = w().page().frame3().y();
        key(Qt::Key_Down);
        const int by = before - w().page().frame3().y();
        QVERIFY2(by >= 0 && by <= 2 * row, qPrintable(QString::number(by)));
        QVERIFY(w().caret_is_in_view());
        moved += by > 0 ? 1 : 0;
    }
    QVERIFY(moved > 30);
}

void tst_page_keys::the_page_keys_go_a_view_further_in_a_long_body_and_back()
{
    three_lines();
    QString body;
    for (int i = 0; i < 400; ++i)
        body += QStringLiteral("Row %1\r\n").arg(i);
    Query(w().db(), "UPDATE recipe_1 SET r_body = ?", body).run();
    w().open({1000, 500});
    w().focus(w().Text1());
    const auto row = [this] { return w().Text1().textCursor().blockNumber(); };
    const int view = w().page().frame4().height() / w().Text1().fontMetrics().lineSpacing();
    QVERIFY(view > 10);
    int before = row();
    for (int i = 0; i < 4; ++i) {
        key(Qt::Key_PageDown);
        QVERIFY2(row() - before >= view - 3 && row() - before < view, qPrintable(QString::number(row() - before)));
        QVERIFY(w().caret_is_in_view());
        before = row();
    }
    key(Qt::Key_PageUp);
    QVERIFY(before - row() >= view - 3 && before - row() < view);
    QVERIFY(w().caret_is_in_view());
    const int there = row();
    QTest::keyClick(&w().Text1(), Qt::Key_PageDown, Qt::ShiftModifier);
    const QTextCursor marked = w().Text1().textCursor();
    QCOMPARE(marked.document()->findBlock(marked.anchor()).blockNumber(), there);
    QVERIFY(row() - there >= view - 3 && row() - there < view);
    for (int i = 0; i < 10; ++i)
        key(Qt::Key_PageUp);
    QCOMPARE(row(), 0);
    for (int i = 0; i < 100; ++i)
        key(Qt::Key_PageDown);
    QVERIFY(row() >= 400 - 1);
}

void tst_page_keys::the_pick_list_is_as_wide_as_its_longest_name()
{
    const QString longest = QStringLiteral("Milk of almonds without sugar, in cartons of one litre");
    w().add_item(QStringLiteral("Milk"), 0);
    w().add_item(longest, 0);
    w().add_line(w().recipe, QStringLiteral("Salt"));
    w().open();
    w().open_line(0);
    LineWindow::tab(w().qty());
    const int narrow = w().list().width();
    LineWindow::tab(w().measure());
    LineWindow::type(w().item(), QStringLiteral("Mil"));
    QCOMPARE(w().list().count(), 2);
    QVERIFY(w().list().viewport()->width() >= w().list().fontMetrics().horizontalAdvance(longest));
    QVERIFY(w().list().sizeHintForColumn(0) <= w().list().viewport()->width());
    QVERIFY(w().list().width() > narrow);
}

void tst_page_keys::the_pick_list_is_no_wider_than_the_page_and_tells_whole_names()
{
    const QString longest = QStringLiteral("Milk") + QStringLiteral(" and more milk").repeated(30);
    w().add_item(longest, 0);
    w().add_line(w().recipe, QStringLiteral("Salt"));
    w().open();
    w().open_line(0);
    LineWindow::tab(w().qty());
    LineWindow::tab(w().measure());
    LineWindow::type(w().item(), QStringLiteral("Mil"));
    QVERIFY(w().list().width() <= w().page().frame4().width());
    QVERIFY(w().list().model()->index(0, 0).data(Qt::ToolTipRole).toString().contains(longest));
}

QTEST_MAIN(tst_page_keys)
#include "tst_page_keys.moc"
