#include "recipes/line_fixture.h"

using namespace tarnwick;

/// The line editor while another window has the keyboard, and when it comes back.
class tst_line_inactive_window : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { window_.reset(); }

    void a_click_past_the_open_first_line_finishes_it_and_opens_there();
    void a_refused_click_past_the_open_first_line_opens_nothing();

private:
    LineWindow& w() { return *window_; }
    void deactivate(QWidget& other)
    {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!w().main().isActiveWindow());
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

QTEST_MAIN(tst_line_inactive_window)
#include "tst_line_inactive_window.moc"
