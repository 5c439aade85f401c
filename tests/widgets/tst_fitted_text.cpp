#include "widgets/fitted_text.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTest>

using namespace tarnwick;

namespace {

QFont type_of(int points)
{
    QFont font;
    font.setPointSize(points);
    return font;
}

int width_of(const QString& text, const QFont& font)
{
    return QFontMetrics(font).horizontalAdvance(text);
}

} // namespace

class tst_fitted_text : public QObject {
    Q_OBJECT
private slots:
    void a_text_laid_out_once_is_drawn_like_any_other_data();
    void a_text_laid_out_once_is_drawn_like_any_other();
    void a_text_with_room_stays_as_it_is();
    void a_text_with_too_little_room_gets_narrower_type_before_it_is_cut();
    void a_place_too_narrow_for_the_sign_of_a_cut_shows_letters();
    void what_is_shown_never_exceeds_its_room_data();
    void what_is_shown_never_exceeds_its_room();
    void a_number_is_shown_whole_or_not_at_all_data();
    void a_number_is_shown_whole_or_not_at_all();
    void a_unit_is_shown_whole_or_not_at_all_data();
    void a_unit_is_shown_whole_or_not_at_all();
};

void tst_fitted_text::a_text_with_room_stays_as_it_is()
{
    const QFont font = type_of(9);
    const QString text = QStringLiteral("500 g");
    const FittedText fitted = fit_number(text, font, width_of(text, font));
    QCOMPARE(fitted.text, text);
    QCOMPARE(fitted.font, font);
    QVERIFY(!fitted.cut);
}

void tst_fitted_text::a_text_with_too_little_room_gets_narrower_type_before_it_is_cut()
{
    const QFont font = type_of(10);
    const QString text = QStringLiteral("500 grams");
    QFont narrowest = font;
    narrowest.setStretch(75);
    const int least = width_of(text, narrowest);
    QVERIFY(least < width_of(text, font));
    for (int width = width_of(text, font) - 1; width >= least; --width) {
        const FittedText fitted = fit_number(text, font, width);
        QCOMPARE(fitted.text, text);
        QVERIFY(!fitted.cut);
        QVERIFY(fitted.font.stretch() == 90 || fitted.font.stretch() == 75); // no more fonts than these
        QVERIFY(width_of(fitted.text, fitted.font) <= width);
    }
    const FittedText cut = fit_number(text, font, least - 1);
    QVERIFY(cut.cut);
    QVERIFY(cut.text.startsWith(QStringLiteral("500")));
    QVERIFY(cut.text.size() < text.size());
}

void tst_fitted_text::a_place_too_narrow_for_the_sign_of_a_cut_shows_letters()
{
    QFont narrow = type_of(12);
    narrow.setStretch(75);
    const FittedText shown
        = fit_number(QStringLiteral("Produce"), type_of(12), width_of(QStringLiteral("Pr"), narrow));
    QCOMPARE(shown.text, QStringLiteral("Pr"));
    QVERIFY(shown.cut);
}

void tst_fitted_text::what_is_shown_never_exceeds_its_room_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"1 pack", "Produce", "12", "500 grams", "1 1/2 cups", "11/28/2026", "a"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void tst_fitted_text::what_is_shown_never_exceeds_its_room()
{
    QFETCH(QString, text);
    for (const int points : {9, 10, 12}) {
        const QFont font = type_of(points);
        for (int width = width_of(QString(QChar(0x2026)), font); width < width_of(text, font) + 5; ++width)
            for (const FittedText& fitted : {fit_text(text, font, width), fit_number(text, font, width)})
                QVERIFY2(width_of(fitted.text, fitted.font) <= width, qPrintable(fitted.text));
    }
}

void tst_fitted_text::a_number_is_shown_whole_or_not_at_all_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("number");
    for (const auto& [text, number] :
         {std::pair("500 grams", "500"), std::pair("12", "12"), std::pair("123456", "123456"),
          std::pair("12A", "12"), std::pair("1.5 lb", "1.5"), std::pair("1 1/2 tsp", "1 1/2"),
          std::pair("3/4 cup", "3/4"), std::pair("2½ lb", "2½"), std::pair("½ cup", "½"),
          std::pair("11/28/2026", "11/28/2026")})
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(number);
}

void tst_fitted_text::a_number_is_shown_whole_or_not_at_all()
{
    QFETCH(QString, text);
    QFETCH(QString, number);
    for (const int points : {9, 10, 12}) {
        const QFont font = type_of(points);
        for (int width = 0; width < width_of(text, font) + 5; ++width) {
            const FittedText fitted = fit_number(text, font, width);
            const bool has_digit
                = std::any_of(fitted.text.begin(), fitted.text.end(), [](QChar c) { return c.isNumber(); });
            QVERIFY2(!has_digit || fitted.text.startsWith(number), qPrintable(fitted.text));
            QCOMPARE(fitted.cut, fitted.text != text);
        }
    }
}

void tst_fitted_text::a_unit_is_shown_whole_or_not_at_all_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("shown");
    const auto row = [](const char* text, const char* shown) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(shown).split(u'|');
    };
    row("1 lb", "1 lb|1…|1|…");
    row("100ml", "100ml|100…|100|…");
    row("500 grams", "500 grams|500…|500|…");
    row("2 large cans", "2 large cans|2 large…|2…|2|…");
    row("1 1/2 tsp", "1 1/2 tsp|1 1/2…|1 1/2|…");
    row("12", "12|…");
}

void tst_fitted_text::a_unit_is_shown_whole_or_not_at_all()
{
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    for (const int points : {9, 10, 12}) {
        const QFont font = type_of(points);
        QStringList seen;
        for (int width = width_of(text, font); width >= 0; --width)
            if (const QString fitted = fit_number(text, font, width).text; seen.isEmpty() || seen.back() != fitted)
                seen << fitted;
        QCOMPARE(seen, shown);
    }
}

void tst_fitted_text::a_text_laid_out_once_is_drawn_like_any_other_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("room");
    QTest::addColumn<int>("points");
    for (const int points : {9, 10, 12}) {
        const auto row = [points](const char* name, const QString& text, QSize room) {
            QTest::addRow("%s, %d points", name, points) << text << room << points;
        };
        row("name", QStringLiteral("Apples, Granny Smith"), {200, 19});
        row("odd height", QStringLiteral("Jam"), {200, 20});
        row("accents", QStringLiteral("Crème fraîche ½"), {200, 24});
        row("blanks at both ends", QStringLiteral(" 2 lbs "), {200, 24});
        row("room too low", QStringLiteral("gjpq"), {200, 9});
    }
}

void tst_fitted_text::a_text_laid_out_once_is_drawn_like_any_other()
{
    QFETCH(const QString, text);
    QFETCH(const QSize, room);
    QFETCH(const int, points);
    QFont font = QGuiApplication::font();
    font.setPointSize(points);
    const QRect place({5, 7}, room);
    const auto drawn = [](const auto& draw) {
        QImage image(220, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setPen(Qt::darkBlue);
        draw(painter);
        return image;
    };
    const LaidOutText laid_out(text, font);
    const QImage once = drawn([&](QPainter& painter) { laid_out.draw(painter, place); });
    const QImage any = drawn([&](QPainter& painter) {
        painter.setFont(font);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    });
    QVERIFY(any != drawn([](QPainter&) {}));
    QCOMPARE(once, any);
    QCOMPARE(qRound(laid_out.width()), QFontMetrics(font).horizontalAdvance(text));
}

QTEST_MAIN(tst_fitted_text)
#include "tst_fitted_text.moc"
