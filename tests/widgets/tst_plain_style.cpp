#include "widgets/plain_style.h"

#include "support/contrast.h"
#include "widgets/pane_tabs.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QMessageBox>
#include <QPalette>
#include <QTest>

using namespace tarnwick;

class tst_plain_style : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void contrast_is_that_of_the_guidelines();
    void white_text_is_readable_on_every_highlight_data();
    void white_text_is_readable_on_every_highlight();
    void a_highlight_without_the_keyboard_looks_different();
    void message_boxes_have_four_pictures_of_our_own();
    void the_tab_in_front_is_open_to_its_pane();
};

void tst_plain_style::contrast_is_that_of_the_guidelines()
{
    QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
    QCOMPARE(contrast(Qt::white, Qt::white), 1.0);
    QVERIFY(std::abs(contrast(Qt::white, QColor(0x77, 0x77, 0x77)) - 4.48) < 0.01);
}

void tst_plain_style::white_text_is_readable_on_every_highlight_data()
{
    QTest::addColumn<QColor>("highlight");
    QTest::addColumn<QColor>("text");
    QTest::newRow("usual") << QColor(48, 140, 198) << QColor(Qt::white);
    QTest::newRow("light") << QColor(120, 190, 250) << QColor(Qt::white);
    QTest::newRow("dark text") << QColor(60, 90, 160) << QColor(Qt::black);
    QTest::newRow("dark already") << QColor(10, 40, 90) << QColor(Qt::white);
}

void tst_plain_style::white_text_is_readable_on_every_highlight()
{
    QFETCH(QColor, highlight);
    QFETCH(QColor, text);
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, text);
    PlainStyle().polish(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        QVERIFY(contrast(palette.color(group, QPalette::Highlight), palette.color(group, QPalette::HighlightedText))
                >= 4.5);
    }
    if (contrast(highlight, text) >= 4.5)
        QCOMPARE(palette.color(QPalette::Active, QPalette::Highlight), highlight);
}

void tst_plain_style::a_highlight_without_the_keyboard_looks_different()
{
    const QPalette palette = QApplication::palette();
    QVERIFY(palette.color(QPalette::Active, QPalette::Highlight)
            != palette.color(QPalette::Inactive, QPalette::Highlight));
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        QVERIFY(contrast(palette.color(group, QPalette::Highlight), Qt::white) >= 4.5);
        QVERIFY(contrast(palette.color(group, QPalette::Highlight), palette.color(QPalette::Window)) >= 3);
    }
}

void tst_plain_style::message_boxes_have_four_pictures_of_our_own()
{
    QList<QImage> pictures;
    for (const auto icon :
         {QMessageBox::Information, QMessageBox::Question, QMessageBox::Warning, QMessageBox::Critical}) {
        QMessageBox box;
        box.setIcon(icon);
        const QImage picture = box.iconPixmap().toImage();
        QVERIFY(!picture.isNull());
        QVERIFY(!pictures.contains(picture));
        QVERIFY(best_contrast(picture, picture.rect(), box.palette().color(QPalette::Window)) >= 3);
        pictures << picture;
    }
}

void tst_plain_style::the_tab_in_front_is_open_to_its_pane()
{
    QWidget pane;
    PaneTabs tabs(&pane);
    tabs.setDrawBase(false);
    tabs.addTab(QStringLiteral("In front"));
    tabs.addTab(QStringLiteral("Behind"));
    tabs.setGeometry(0, 0, 300, 27);
    QPalette colors = tabs.palette();
    colors.setColor(QPalette::Base, QColor(204, 204, 255));
    tabs.setPalette(colors);
    const QImage strip = tabs.grab().toImage();
    const QRect front = tabs.tabRect(0);
    const QRect behind = tabs.tabRect(1);
    QCOMPARE(front.bottom(), 26);
    QCOMPARE(strip.pixelColor(front.center().x(), 26), QColor(204, 204, 255));
    QVERIFY(strip.pixelColor(behind.center().x(), 26) != QColor(204, 204, 255));
}

QTEST_MAIN(tst_plain_style)
#include "tst_plain_style.moc"
