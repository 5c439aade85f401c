#include "widgets/plain_style.h"

#include "support/contrast.h"
#include "widgets/pane_tabs.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QHash>
#include <QMessageBox>
#include <QPalette>
#include <QProgressBar>
#include <QScrollBar>
#include <QStyle>
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
    void the_slider_of_a_scroll_bar_stands_out_and_is_without_shading_data();
    void the_slider_of_a_scroll_bar_stands_out_and_is_without_shading();
    void a_bar_with_nothing_to_scroll_has_no_slider();
    void a_progress_bar_is_filled_as_far_as_it_says();
    void a_menu_bar_tells_of_menus_that_have_no_room();
};

namespace {

/// The colours of a scroll bar's pixels, and how often each is met.
QHash<QRgb, int> colors_of(QScrollBar& bar)
{
    QHash<QRgb, int> colors;
    const QImage image = bar.grab().toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++colors[image.pixel(x, y)];
    return colors;
}

} // namespace

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

void tst_plain_style::the_slider_of_a_scroll_bar_stands_out_and_is_without_shading_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<QColor>("window");
    QTest::addColumn<QColor>("text");
    for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
        const QByteArray name = orientation == Qt::Vertical ? "upright" : "flat";
        QTest::newRow((name + ", light").constData()) << orientation << QColor(239, 239, 239) << QColor(Qt::black);
        QTest::newRow((name + ", dark").constData()) << orientation << QColor(42, 46, 50) << QColor(252, 252, 252);
    }
}

void tst_plain_style::the_slider_of_a_scroll_bar_stands_out_and_is_without_shading()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(QColor, window);
    QFETCH(QColor, text);
    const bool upright = orientation == Qt::Vertical;
    QScrollBar bar(orientation);
    QPalette colors = bar.palette();
    colors.setColor(QPalette::Window, window);
    colors.setColor(QPalette::WindowText, text);
    bar.setPalette(colors);
    bar.setRange(0, 100);
    bar.setPageStep(50);
    bar.resize(upright ? QSize(17, 300) : QSize(300, 17));
    const QImage image = bar.grab().toImage();
    const QColor slider = image.pixelColor(upright ? QPoint(8, 60) : QPoint(60, 8));
    const QColor groove = image.pixelColor(upright ? QPoint(8, 260) : QPoint(260, 8));
    QVERIFY2(contrast(slider, groove) >= 3, qPrintable(QString::number(contrast(slider, groove))));
    const int pixels = image.width() * image.height();
    const QHash<QRgb, int> met = colors_of(bar);
    QVERIFY(met.value(slider.rgb()) + met.value(groove.rgb()) > pixels * 9 / 10);
    QVERIFY(met.value(slider.rgb()) > pixels / 8);
    QVERIFY(met.size() > 2); // the arrows
}

void tst_plain_style::a_bar_with_nothing_to_scroll_has_no_slider()
{
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 0);
    bar.resize(17, 300);
    const QImage image = bar.grab().toImage();
    for (int y = 30; y < 270; ++y)
        QCOMPARE(image.pixelColor(8, y), image.pixelColor(8, 150));
}

void tst_plain_style::a_progress_bar_is_filled_as_far_as_it_says()
{
    QProgressBar bar;
    bar.setTextVisible(false);
    bar.resize(200, 6);
    const auto at = [&bar](int x) { return bar.grab().toImage().pixelColor(x, 3); };
    const QColor groove = at(100);
    for (int x = 1; x < 200; x += 20)
        QCOMPARE(at(x), groove); // without a value yet
    bar.setValue(50);
    QVERIFY(at(20) != groove);
    QCOMPARE(at(95), at(20));
    QCOMPARE(at(105), groove);
}

void tst_plain_style::a_menu_bar_tells_of_menus_that_have_no_room()
{
    const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
    const QImage picture = icon.pixmap(16, 16).toImage();
    QVERIFY(!picture.isNull());
    QVERIFY(best_contrast(picture, picture.rect(), QApplication::palette().color(QPalette::Window)) >= 3);
}

QTEST_MAIN(tst_plain_style)
#include "tst_plain_style.moc"
