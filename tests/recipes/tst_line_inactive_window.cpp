#include "recipes/line_fixture.h"

#include <QDialog>
#include <QDropEvent>
#include <QMimeData>

using namespace tarnwick;

/// The line editor while another window has the keyboard, and when it comes back.
class tst_line_inactive_window : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { window_.reset(); }

    void a_click_past_the_open_first_line_finishes_it_and_opens_there();
    void a_refused_click_past_the_open_first_line_opens_nothing();
    void cancel_in_the_item_editor_leaves_the_placeholder_in_the_quantity();
    void a_box_that_is_not_returned_to_shows_its_placeholder();
    void a_box_that_is_not_returned_to_keeps_its_text();
    void a_text_dropped_on_a_placeholder_takes_its_place();
    void a_text_dropped_beside_a_typed_one_leaves_it();
    void a_name_dropped_with_an_apostrophe_is_refused();

private:
    LineWindow& w() { return *window_; }
    void deactivate(QWidget& other)
    {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!w().main().isActiveWindow());
    }

    static void drop_text(QLineEdit& box, const QString& text)
    {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter({15, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&box, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop({15, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&box, &drop);
    }

    std::unique_ptr<LineWindow> window_;
    Key oil_ = 0;
    Key salt_ = 0;
};

void tst_line_inactive_window::init()
{
    window_ = std::make_unique<LineWindow>();
    oil_ = w().add_line(w().recipe, QStringLiteral("Oil"));
    salt_ = w().add_line(w().recipe, QStringLiteral("Salt"));
    w().open();
    w().open_line(0);
}

void tst_line_inactive_window::a_click_past_the_open_first_line_finishes_it_and_opens_there()
{
    QTest::keyClicks(&w().qty(), QStringLiteral("5"));
    QWidget other;
    deactivate(other);
    w().click_line(1);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().index(), 1);
    QCOMPARE(w().item().text(), QStringLiteral("Salt"));
    QCOMPARE(w().ingred(0), QStringLiteral("5 Oil"));
    QVERIFY(w().line(0).ingred->isVisible());
    QCOMPARE(w().stored(oil_, "qty"), QStringLiteral("5"));
    QCOMPARE(w().stored(salt_, "qty"), QStringLiteral(" "));
    QCOMPARE(w().focused_after_message(), &w().qty());
}

void tst_line_inactive_window::a_refused_click_past_the_open_first_line_opens_nothing()
{
    QTest::mouseClick(&w().item(), Qt::LeftButton);
    w().item().selectAll();
    QTest::keyClick(&w().item(), Qt::Key_Delete);
    QWidget other;
    deactivate(other);
    {
        MessageScript script;
        script.expect(QStringLiteral("Ingredient name missing"),
                      QStringLiteral("Please provide a name for your ingredient"));
        w().click_line(1);
    }
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().index(), 0);
    QCOMPARE(w().item().text(), QStringLiteral("Oil"));
}

void tst_line_inactive_window::cancel_in_the_item_editor_leaves_the_placeholder_in_the_quantity()
{
    QVERIFY(w().qty().text().isEmpty());
    {
        MessageScript script;
        script.drive([](QDialog& dialog) {
            dialog.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            dialog.reject();
        });
        w().trigger(QStringLiteral("mnu_edit_add_stck"));
    }
    QCOMPARE(w().focused_after_message(), &w().desc());
    QCOMPARE(w().qty().text(), QStringLiteral("(Qty)"));
    QVERIFY(LineWindow::is_red_italic(w().qty()));
    QVERIFY(w().desc().text().isEmpty());
    w().click_text();
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().ingred(0), QStringLiteral("Oil"));
    QCOMPARE(w().stored(oil_, "qty"), QStringLiteral(" "));
}

void tst_line_inactive_window::a_box_that_is_not_returned_to_shows_its_placeholder()
{
    QVERIFY(w().qty().text().isEmpty());
    QWidget other;
    deactivate(other);
    w().desc().setFocus(Qt::OtherFocusReason);
    QCOMPARE(w().focused_after_message(), &w().desc());
    QCOMPARE(w().qty().text(), QStringLiteral("(Qty)"));
    QVERIFY(LineWindow::is_red_italic(w().qty()));
    QVERIFY(w().desc().text().isEmpty());
}

void tst_line_inactive_window::a_box_that_is_not_returned_to_keeps_its_text()
{
    QTest::keyClicks(&w().qty(), QStringLiteral("5"));
    QWidget other;
    deactivate(other);
    w().desc().setFocus(Qt::OtherFocusReason);
    QCOMPARE(w().focused_after_message(), &w().desc());
    QCOMPARE(w().qty().text(), QStringLiteral("5"));
    w().click_text();
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().ingred(0), QStringLiteral("5 Oil"));
    QCOMPARE(w().stored(oil_, "qty"), QStringLiteral("5"));
}

void tst_line_inactive_window::a_text_dropped_on_a_placeholder_takes_its_place()
{
    QWidget other;
    deactivate(other);
    QCOMPARE(w().desc().text(), QStringLiteral("(Comment)"));
    drop_text(w().desc(), QStringLiteral("cold pressed"));
    QCOMPARE(w().desc().text(), QStringLiteral("cold pressed"));
    QVERIFY(LineWindow::is_black_upright(w().desc()));
    QCOMPARE(w().qty().text(), QStringLiteral("(Qty)"));
    QCOMPARE(w().focused_after_message(), &w().desc());
    w().click_text();
    QCOMPARE(w().ingred(0), QStringLiteral("Oil cold pressed"));
    QCOMPARE(w().stored(oil_, "comment"), QStringLiteral("cold pressed"));
}

void tst_line_inactive_window::a_text_dropped_beside_a_typed_one_leaves_it()
{
    QTest::keyClicks(&w().qty(), QStringLiteral("5"));
    QWidget other;
    deactivate(other);
    drop_text(w().measure(), QStringLiteral("cup"));
    w().click_line(1);
    QCOMPARE(w().ingred(0), QStringLiteral("5 cup Oil"));
    QCOMPARE(w().stored(oil_, "qty"), QStringLiteral("5"));
    QCOMPARE(w().stored(oil_, "measure"), QStringLiteral("cup"));
}

void tst_line_inactive_window::a_name_dropped_with_an_apostrophe_is_refused()
{
    QWidget other;
    deactivate(other);
    {
        MessageScript script;
        script.expect(QStringLiteral("Valora info"),
                      QStringLiteral("Sorry - you can't put an apostrophe\nin the item name"));
        drop_text(w().item(), QStringLiteral("Sally's "));
    }
    QCOMPARE(w().item().text().count(u'\''), 0);
    QCOMPARE(w().focused_after_message(), &w().item());
    w().click_text();
    QVERIFY(!w().editor().is_open());
    QVERIFY(w().stored(oil_, "item").contains(QStringLiteral("Sallys ")));
}

QTEST_MAIN(tst_line_inactive_window)
#include "tst_line_inactive_window.moc"
