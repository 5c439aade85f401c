#include "lists/list_pane.h"
#include "support/contrast.h"
#include "support/test_window.h"
#include "widgets/list_grid.h"
#include "window/frmsplash.h"
#include "window/layout.h"
#include "window/view_state.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextLayout>

using namespace tarnwick;

/// What a window says that has nothing to show, and the splash before it.
class tst_empty_states : public QObject {
    Q_OBJECT
private slots:
    void the_invitation_stays_in_its_pane_data() { sizes(); }
    void the_invitation_stays_in_its_pane();
    void no_line_of_the_invitation_is_a_single_word_data() { sizes(); }
    void no_line_of_the_invitation_is_a_single_word();
    void an_empty_list_says_what_to_do_next_data() { sizes(); }
    void an_empty_list_says_what_to_do_next();
    void the_splash_shows_all_in_its_middle();

private:
    static void sizes()
    {
        QTest::addColumn<int>("points");
        QTest::addColumn<QSize>("size");
        for (const int points : {9, 10, 12})
            for (const QSize size : {QSize(560, 480), QSize(1000, 700)})
                QTest::addRow("%d points in %d", points, size.width()) << points << size;
    }
};

void tst_empty_states::the_invitation_stays_in_its_pane()
{
    QFETCH(int, points);
    QFETCH(QSize, size);
    TestWindow w;
    frmmain& main = w.load(size);
    main.view_state().set_type_size(points);
    const auto* frame = w.find<QFrame>(QStringLiteral("frmCreateList"));
    QVERIFY(frame->isVisible());
    const QRect seen = frame->mask().boundingRect().translated(frame->pos());
    QVERIFY(main.list_pane().grid().geometry().contains(seen));
    QCOMPARE(seen.bottom(), main.list_pane().grid().geometry().bottom());
}

void tst_empty_states::no_line_of_the_invitation_is_a_single_word()
{
    QFETCH(int, points);
    QFETCH(QSize, size);
    TestWindow w;
    w.load(size).view_state().set_type_size(points);
    const auto* text = w.find<QTextBrowser>(QStringLiteral("txtCreateList"));
    QCOMPARE(text->font().pointSize(), points);
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next()) {
        text->document()->documentLayout();
        QCOMPARE(block.layout()->lineCount(), 1);
    }
}

void tst_empty_states::an_empty_list_says_what_to_do_next()
{
    QFETCH(int, points);
    QFETCH(QSize, size);
    TestWindow w;
    const Key list = w.add_list(QStringLiteral("Home"));
    w.set_pref(QStringLiteral("alist"), QString::number(list));
    frmmain& main = w.load(size);
    main.view_state().set_type_size(points);
    ListGrid& grid = main.list_pane().grid();
    const QColor page = grid.palette().color(QPalette::Base);
    const auto said = [&] {
        const QImage image = grid.viewport()->grab().toImage();
        const QRect upper_half(8, 8, image.width() - 16, image.height() / 2);
        return best_contrast(image, upper_half, page);
    };
    QVERIFY(said() >= 4.5);
    w.add_row(w.add_item(QStringLiteral("Milk"), 0), list, true);
    main.list_pane().lv_load(list);
    grid.rows().remove_row(0);
    QVERIFY(said() >= 4.5);
    grid.set_empty_hint({});
    QCOMPARE(said(), 1.0);
}

void tst_empty_states::the_splash_shows_all_in_its_middle()
{
    for (const bool warned : {false, true}) {
        frmSplash splash;
        if (warned)
            splash.show_warnings();
        splash.show();
        QRect pictures;
        for (int i = 0; i < 3; ++i)
            pictures |= splash.findChild<QLabel*>(QStringLiteral("Picture1(%1)").arg(i))->geometry();
        QList<QRect> shown{pictures, splash.findChild<QLabel*>(QStringLiteral("Label1"))->geometry(),
                           splash.findChild<QProgressBar*>()->geometry()};
        for (int i = 0; i < 3 && warned; ++i)
            shown << splash.findChild<QLabel*>(QStringLiteral("lblWarning(%1)").arg(i))->geometry();
        for (const QRect& part : shown) {
            QVERIFY(splash.rect().contains(part));
            QVERIFY(std::abs(part.center().x() - splash.rect().center().x()) <= 1);
        }
        const QPoint middle = splash.geometry().center() - splash.screen()->availableGeometry().center();
        QVERIFY(middle.manhattanLength() <= 2);
    }
}

QTEST_MAIN(tst_empty_states)
#include "tst_empty_states.moc"
