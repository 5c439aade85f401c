#include "recipes/line_fixture.h"

#include <QWindow>

using namespace tarnwick;

/// Both clicks go through the window, so that each lands on what lies under the pointer by then.
class tst_line_double_click : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<LineWindow>(); }
    void cleanup() { window_.reset(); }

    void where_a_button_comes_up_opens_the_line_and_leaves_it_there_data();
    void where_a_button_comes_up_opens_the_line_and_leaves_it_there();
    void where_a_box_comes_up_marks_no_word_data();
    void where_a_box_comes_up_marks_no_word();
    void in_a_box_marks_the_word();
    void a_click_after_a_lost_one_counts();
    void where_the_pick_list_comes_up_writes_no_quantity();
    void on_a_line_that_the_first_click_scrolled_away_leaves_it_open();
    void on_a_quantity_of_the_list_writes_no_measure();
    void on_an_item_of_the_list_stays_in_the_comment();
    void on_the_cross_deletes_one_line();

private:
    LineWindow& w() { return *window_; }

    QPoint in_window(const QWidget& on, QPoint position) { return on.mapTo(&w().main(), position); }
    QPoint middle_of(const QWidget& on) { return in_window(on, on.rect().center()); }
    void double_click(QPoint position)
    {
        QTest::mouseDClick(w().main().windowHandle(), Qt::LeftButton, {}, position);
    }
    void click(QPoint position) { QTest::mouseClick(w().main().windowHandle(), Qt::LeftButton, {}, position); }
    void choose_row(int row)
    {
        PickList& list = w().list();
        double_click(in_window(*list.viewport(), list.visualRect(list.model()->index(row, 0)).center()));
    }
    QString table()
    {
        Query lines(w().db(),
                    "SELECT group_concat(key_id || item_ref || qty || measure || item || comment)"
                    " FROM (SELECT * FROM recipe_2 ORDER BY key_id)");
        return lines.next() ? lines.text(0) : QString();
    }
    /// A page that is scrolled by the opening of its lowest line in view, which this returns.
    int lowest_line_of_a_long_page()
    {
        w().add_lines(w().recipe, 40);
        w().open({1000, 500});
        int lowest = 0;
        while (w().line(lowest + 1).ingred->geometry().bottom() < w().page().frame4().height())
            ++lowest;
        return lowest;
    }

    std::unique_ptr<LineWindow> window_;
};

void tst_line_double_click::where_a_button_comes_up_opens_the_line_and_leaves_it_there_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("cross") << QStringLiteral("imgScratch");
    QTest::newRow("pencil") << QStringLiteral("imgedit");
}

void tst_line_double_click::where_a_button_comes_up_opens_the_line_and_leaves_it_there()
{
    QFETCH(QString, button);
    for (const char* item : {"Salt", "Oil", "Rice"})
        w().add_line(w().recipe, QString::fromLatin1(item));
    w().open();
    const QString before = table();
    w().open_line(1);
    const QPoint place = middle_of(w().control(button));
    w().click_text();
    QVERIFY(!w().editor().is_open());
    MessageScript no_dialog;
    double_click(place);
    QCOMPARE(table(), before);
    QCOMPARE(w().lines(), 3);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().index(), 1);
    QCOMPARE(middle_of(w().control(button)), place);
    QVERIFY(w().qty().hasFocus());
    QVERIFY(w().list().isVisible());
}

void tst_line_double_click::where_a_box_comes_up_marks_no_word_data()
{
    QTest::addColumn<QString>("box");
    for (const char* box : {"ing_flt_txtQty", "ing_flt_txtMeasure", "ing_flt_txtItem", "ing_flt_txtDesc"})
        QTest::newRow(box) << QString::fromLatin1(box);
}

void tst_line_double_click::where_a_box_comes_up_marks_no_word()
{
    QFETCH(QString, box);
    w().add_line(w().recipe, QStringLiteral("Salt"));
    w().add_line(w().recipe, QStringLiteral("Olive oil"));
    w().open();
    w().open_line(1);
    const QPoint place = in_window(w().control(box), QPoint(14, w().control(box).height() / 2));
    w().click_text();
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().main().childAt(place), static_cast<QWidget*>(w().line(1).ingred));
    double_click(place);
    QVERIFY(w().editor().is_open());
    QVERIFY(w().qty().hasFocus());
    for (const QLineEdit* each : {&w().qty(), &w().measure(), &w().item(), &w().desc()})
        QVERIFY2(!each->hasSelectedText(), qPrintable(each->objectName()));
    QCOMPARE(w().item().text(), QStringLiteral("Olive oil"));
    click(in_window(w().item(), QPoint(14, 8)));
    QVERIFY(w().item().hasFocus());
}

void tst_line_double_click::in_a_box_marks_the_word()
{
    w().add_line(w().recipe, QStringLiteral("Olive oil"));
    w().open();
    w().open_line(0);
    double_click(in_window(w().item(), QPoint(14, w().item().height() / 2)));
    QCOMPARE(w().item().selectedText(), QStringLiteral("Olive"));
}

void tst_line_double_click::a_click_after_a_lost_one_counts()
{
    w().add_line(w().recipe, QStringLiteral("Salt"));
    w().add_line(w().recipe, QStringLiteral("Oil"));
    w().open();
    w().open_line(0);
    const QPoint place = middle_of(w().button("imgScratch"));
    w().click_text();
    double_click(place);
    QCOMPARE(w().lines(), 2);
    click(place);
    QCOMPARE(w().lines(), 1);
    QCOMPARE(w().ingred(0), QStringLiteral("Oil"));
}

void tst_line_double_click::where_the_pick_list_comes_up_writes_no_quantity()
{
    const int lowest = lowest_line_of_a_long_page();
    const QString before = table();
    const QWidget& line = *w().line(lowest).ingred;
    const QRect before_opening(in_window(line, QPoint(0, 0)), line.size());
    w().open_line(lowest);
    const QWidget& rows = *w().list().viewport();
    const QPoint place = before_opening.intersected(QRect(in_window(rows, QPoint(0, 0)), rows.size())).center();
    w().click_text();
    w().page().scroll_bar().setValue(0);
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().main().childAt(place), &line);
    double_click(place);
    QVERIFY(w().list().isVisible());
    QVERIFY(w().list().indexAt(rows.mapFrom(&w().main(), place)).isValid());
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().index(), lowest);
    QVERIFY(w().qty().hasFocus());
    QCOMPARE(w().editor().draft().text(IngredientField::qty), QString());
    QCOMPARE(table(), before);
}

void tst_line_double_click::on_a_line_that_the_first_click_scrolled_away_leaves_it_open()
{
    const int lowest = lowest_line_of_a_long_page();
    const QPoint place = in_window(*w().line(lowest).ingred, QPoint(w().line(lowest).ingred->width() - 5, 8));
    double_click(place);
    const QWidget* under_pointer = w().main().childAt(place);
    QVERIFY(qobject_cast<const IngredientText*>(under_pointer));
    QVERIFY(under_pointer != w().line(lowest).ingred);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().index(), lowest);
    QVERIFY(w().qty().hasFocus());
}

void tst_line_double_click::on_a_quantity_of_the_list_writes_no_measure()
{
    const Key key = w().add_line(w().recipe, QStringLiteral("Salt"));
    w().open();
    w().open_line(0);
    choose_row(2);
    QVERIFY(w().editor().is_open());
    QVERIFY(w().measure().hasFocus());
    QCOMPARE(w().list().content(), PickList::Content::measures);
    QCOMPARE(w().stored(key, "qty"), QStringLiteral("½"));
    QCOMPARE(w().stored(key, "measure"), QStringLiteral(" "));
}

void tst_line_double_click::on_an_item_of_the_list_stays_in_the_comment()
{
    w().add_item(QStringLiteral("Oil of olives"), 0);
    w().add_item(QStringLiteral("Oil of palms"), 0);
    for (const char* item : {"Oil", "Salt", "Rice"})
        w().add_line(w().recipe, QString::fromLatin1(item));
    w().open();
    w().open_line(0);
    QTest::mouseClick(&w().item(), Qt::LeftButton);
    QVERIFY(w().list().isVisible());
    choose_row(1);
    QCOMPARE(w().item().text(), QStringLiteral("Oil of palms"));
    QVERIFY(w().editor().is_open());
    QVERIFY(w().desc().hasFocus());
}

void tst_line_double_click::on_the_cross_deletes_one_line()
{
    w().add_line(w().recipe, QStringLiteral("Salt"));
    w().add_line(w().recipe, QStringLiteral("Oil"));
    w().add_line(w().recipe, QStringLiteral("Rice"));
    w().open();
    w().open_line(0);
    double_click(middle_of(w().button("imgScratch")));
    QCOMPARE(w().lines(), 2);
    QCOMPARE(w().ingred(0), QStringLiteral("Oil"));
    QVERIFY(!w().editor().is_open());
}

QTEST_MAIN(tst_line_double_click)
#include "tst_line_double_click.moc"
