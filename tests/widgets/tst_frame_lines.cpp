#include "widgets/frame_lines.h"

#include <QImage>
#include <QPainter>
#include <QTest>

using namespace tarnwick;

class tst_frame_lines : public QObject {
    Q_OBJECT
private slots:
    void no_scale_factor_loses_or_blurs_a_line_data();
    void no_scale_factor_loses_or_blurs_a_line();
    void lines_along_one_edge_are_as_thick_data();
    void lines_along_one_edge_are_as_thick();
};

void tst_frame_lines::no_scale_factor_loses_or_blurs_a_line_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<int>("lines");
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0})
        for (const int lines : {1, 2, 3})
            QTest::addRow("%d at %g", lines, scale) << scale << lines;
}

void tst_frame_lines::no_scale_factor_loses_or_blurs_a_line()
{
    QFETCH(qreal, scale);
    QFETCH(int, lines);
    const int thickness = static_cast<int>(lines * scale);
    for (int place = 0; place < 8; ++place) {
        for (int size = 15; size < 20; ++size) {
            QImage image(QSize(40, 40) * scale, QImage::Format_RGB32);
            image.setDevicePixelRatio(scale);
            image.fill(Qt::white);
            QPainter painter(&image);
            painter.translate(place, place); // as a widget stands in its window
            draw_frame(painter, QRect(0, 0, size, size), Qt::black, lines);
            painter.end();
            const int first = qRound(place * scale);
            const int end = qRound((place + size) * scale);
            const int middle = (first + end) / 2;
            for (int i = 0; i < image.width(); ++i) {
                const bool on_line = i >= first && i < end && (i < first + thickness || i >= end - thickness);
                const QRgb wanted = on_line ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
                QCOMPARE(image.pixel(i, middle), wanted);
                QCOMPARE(image.pixel(middle, i), wanted);
            }
        }
    }
}

void tst_frame_lines::lines_along_one_edge_are_as_thick_data()
{
    QTest::addColumn<qreal>("scale");
    for (const char* scale : {"1", "1.25", "1.5", "1.75", "2"})
        QTest::newRow(scale) << QByteArray(scale).toDouble();
}

void tst_frame_lines::lines_along_one_edge_are_as_thick()
{
    QFETCH(qreal, scale);
    const int thickness = static_cast<int>(scale);
    for (int place = 0; place < 8; ++place) {
        QImage image(QSize(40, 40) * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(place, place);
        draw_right_line(painter, QRect(0, 0, 17, 40), Qt::black);
        draw_lower_line(painter, QRect(0, 0, 40, 17), Qt::black);
        painter.end();
        const int end = qRound((place + 17) * scale);
        for (int i = end - 5; i < end + 5; ++i) {
            const QRgb wanted = i < end && i >= end - thickness ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
            QCOMPARE(image.pixel(i, qRound((place + 5) * scale)), wanted);
            QCOMPARE(image.pixel(qRound((place + 5) * scale), i), wanted);
        }
    }
}

QTEST_MAIN(tst_frame_lines)
#include "tst_frame_lines.moc"
