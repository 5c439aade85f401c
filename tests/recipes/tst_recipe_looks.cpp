#include "recipes/recipe_fixture.h"

#include "recipes/page_geometry.h"
#include "support/contrast.h"
#include "widgets/plain_style.h"
#include "window/view_state.h"

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QLabel>

#include <algorithm>

using namespace tarnwick;

namespace {

/// First and last row of a picture in which something stands out from a ground; -1, -1 for none.
std::pair<int, int> inked_rows(const QImage& image, const QColor& ground, int height)
{
    std::pair rows(-1, -1);
    for (int y = 0; y < std::min(height, image.height()); ++y) {
        if (best_contrast(image, QRect(0, y, image.width(), 1), ground) < 1.5)
            continue;
        if (rows.first < 0)
            rows.first = y;
        rows.second = y;
    }
    return rows;
}

} // namespace

/// What the recipe page looks like, measured from its rendered pictures.
class tst_recipe_looks : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void init() { w_ = std::make_unique<RecipeWindow>(); }
    void cleanup() { w_.reset(); }

    void lights_and_boxes_stand_on_the_middle_of_their_text_data() { type_sizes(); }
    void lights_and_boxes_stand_on_the_middle_of_their_text();
    void lines_on_a_wide_page_have_about_100_characters_data() { type_sizes(); }
    void lines_on_a_wide_page_have_about_100_characters();
    void no_row_is_cut_at_the_lower_edge_data() { type_sizes(); }
    void no_row_is_cut_at_the_lower_edge();
    void no_row_of_instructions_is_cut_at_the_lower_edge_data() { type_sizes(); }
    void no_row_of_instructions_is_cut_at_the_lower_edge();
    void a_page_ends_below_its_last_row_data() { type_sizes(); }
    void a_page_ends_below_its_last_row();
    void the_line_with_the_keyboard_stands_out_data();
    void the_line_with_the_keyboard_stands_out();
    void an_empty_recipe_says_what_to_do_next_data() { type_sizes(); }
    void an_empty_recipe_says_what_to_do_next();
    void a_page_without_a_recipe_says_so_either_way_data() { type_sizes(); }
    void a_page_without_a_recipe_says_so_either_way();

private:
    static void type_sizes()
    {
        QTest::addColumn<int>("points");
        for (const int points : {9, 10, 12})
            QTest::addRow("%d points", points) << points;
    }

    void open(int points, QSize size = {1000, 700})
    {
        w_->load(size);
        w_->main().view_state().set_type_size(points);
        w_->page().set_recipe(recipe_);
        QTest::qWait(0);
    }

    QColor page_color() { return w_->page().frame4().palette().color(QPalette::Window); }

    std::unique_ptr<RecipeWindow> w_;
    Key recipe_ = 0;
};

void tst_recipe_looks::lights_and_boxes_stand_on_the_middle_of_their_text()
{
    QFETCH(int, points);
    recipe_ = w_->add_recipe(QStringLiteral("Punch"), QStringLiteral("others"));
    for (int i = 0; i < 40; ++i) // letters without upper and lower lengths: their middle is that of the ink
        w_->add_line(recipe_, i % 10 == 3 ? QString(150, u'x') : QStringLiteral("xzx"));
    open(points);
    QCOMPARE(w_->page().lines().size(), size_t(40));
    for (const IngredientLine& line : w_->page().lines()) {
        line.ingred->parentWidget()->resize(900, 3000); // all of them in view
        const auto [top, bottom] = inked_rows(line.ingred->grab().toImage(), page_color(),
                                              QFontMetrics(line.ingred->font()).height() + 2);
        QVERIFY(top >= 0);
        const double text = line.ingred->y() + (top + bottom) / 2.0;
        for (PagePicture* picture : {line.lite, line.Check1}) {
            const auto [first, last] = inked_rows(picture->grab().toImage(), page_color(), 16);
            QVERIFY(first >= 0);
            const double middle = picture->y() + (first + last) / 2.0;
            QVERIFY2(std::abs(middle - text) <= 2,
                     qPrintable(QStringLiteral("%1 beside %2").arg(middle).arg(text)));
        }
    }
}

void tst_recipe_looks::lines_on_a_wide_page_have_about_100_characters()
{
    QFETCH(int, points);
    const QString prose = QStringLiteral("stir the soup and taste it, then add what it wants ").repeated(8);
    recipe_ = w_->add_recipe(QStringLiteral("Soup"), QStringLiteral("soups"), prose);
    w_->add_line(recipe_, prose);
    open(points, {2300, 900});
    const QImage line = w_->page().lines().front().ingred->grab().toImage();
    const QFontMetrics metrics(w_->Text1().font());
    const int widest = metrics.horizontalAdvance(prose.left(115));
    const int least = metrics.horizontalAdvance(prose.left(70));
    QVERIFY(w_->page().frame4().width() > widest + 300);
    const auto last_ink = [&](const QImage& image) {
        int x = image.width() - 1;
        while (x > 0 && best_contrast(image, QRect(x, 0, 1, image.height()), page_color()) < 1.5)
            --x;
        return x;
    };
    QVERIFY(last_ink(line) <= widest && last_ink(line) >= least);
    QVERIFY(w_->Text1().width() <= widest && w_->Text1().width() >= least);
    QVERIFY(w_->page().lines().front().rows >= 4);
}

void tst_recipe_looks::no_row_is_cut_at_the_lower_edge()
{
    QFETCH(int, points);
    recipe_ = w_->add_recipe(QStringLiteral("Punch"), QStringLiteral("others"));
    for (int i = 0; i < 40; ++i)
        w_->add_line(recipe_, i % 3 == 0 ? QString(400, u'p') : QStringLiteral("pyqp"));
    open(points);
    const auto page_at = [this](int height) {
        w_->main().resize(1000, height);
        QCoreApplication::processEvents();
        return w_->find<QWidget>(QStringLiteral("Frame4"))->grab().toImage();
    };
    const QImage tall = page_at(700);
    const auto inked = [this](const QImage& image, int x, int y) {
        return contrast(image.pixelColor(x, y), page_color()) > 1.5;
    };
    const int row = page_geometry::row_pitch(points);
    for (int height = 400; height < 400 + 3 * row; ++height) {
        const QImage image = page_at(height);
        const int edge = image.height();
        QVERIFY(edge < tall.height());
        bool has_text = false;
        for (int x = 0; x < image.width(); ++x) {
            QVERIFY2(!inked(image, x, edge - 1) || !inked(tall, x, edge), qPrintable(QString::number(height)));
            has_text = has_text || inked(image, x, 50);
        }
        QVERIFY(has_text);
    }
}

void tst_recipe_looks::no_row_of_instructions_is_cut_at_the_lower_edge()
{
    QFETCH(int, points);
    recipe_ = w_->add_recipe(QStringLiteral("Punch"), QStringLiteral("others"),
                             QStringLiteral("pppppp qqqqqq\r\n").repeated(60));
    open(points);
    const auto text_at = [this](int height) {
        w_->main().resize(1000, height);
        QCoreApplication::processEvents();
        return w_->Text1().grab(QRect(0, 0, 120, w_->Text1().height())).toImage();
    };
    const QImage tall = text_at(900);
    for (int height = 400; height < 800; height += 7) {
        const QImage image = text_at(height);
        QVERIFY(image.height() < tall.height());
        int last = image.height() - 1;
        while (last > 0 && best_contrast(image, QRect(0, last, image.width(), 1), page_color()) < 1.5)
            --last;
        QVERIFY(last > 50);
        // What stands below the last ink is the ground between two rows in the whole text as well.
        const double below = best_contrast(tall, QRect(0, last + 1, tall.width(), 1), page_color());
        QVERIFY2(below < 1.5, qPrintable(QString::number(height)));
    }
}

/// Scrolled to its end, the page shows the last of many rows whole.
void tst_recipe_looks::a_page_ends_below_its_last_row()
{
    QFETCH(int, points);
    recipe_ = w_->add_recipe(QStringLiteral("Punch"), QStringLiteral("others"),
                             QStringLiteral("i\r\n").repeated(150) + QStringLiteral("pqypqy"));
    open(points);
    w_->page().scroll_bar().setValue(w_->page().scroll_bar().maximum());
    QCoreApplication::processEvents();
    const QImage image = w_->Text1().grab(QRect(0, 0, 120, w_->Text1().height())).toImage();
    int wide_rows = 0;
    for (int y = 0; y < image.height(); ++y) // right of the letter that stands in each other row
        wide_rows += best_contrast(image, QRect(20, y, image.width() - 20, 1), page_color()) >= 1.5 ? 1 : 0;
    QVERIFY(wide_rows >= points);
    QCOMPARE(best_contrast(image, QRect(0, image.height() - 1, image.width(), 1), page_color()), 1.0);
}

void tst_recipe_looks::the_line_with_the_keyboard_stands_out_data()
{
    QTest::addColumn<int>("color");
    for (int color = 0; color < 4; ++color)
        QTest::addRow("page %d", color) << color;
}

void tst_recipe_looks::the_line_with_the_keyboard_stands_out()
{
    QFETCH(int, color);
    recipe_ = w_->add_recipe(QStringLiteral("Punch"), QStringLiteral("others"));
    w_->add_line(recipe_, QStringLiteral("Rum"));
    w_->add_line(recipe_, QStringLiteral("Tea"));
    open(9);
    w_->main().view_state().set_color(color);
    IngredientText& line = *w_->page().lines().front().ingred;
    const QRect frame = line.geometry().adjusted(-4, 0, 4, 0);
    const auto picture = [&] { return line.parentWidget()->grab(frame).toImage(); };
    const QImage without = picture();
    line.setFocus();
    QVERIFY(line.hasFocus());
    const QImage with = picture();
    for (const QPoint edge :
         {QPoint(40, 0), QPoint(40, with.height() - 1), QPoint(0, 8), QPoint(with.width() - 1, 8)}) {
        QVERIFY(contrast(with.pixelColor(edge), page_color()) >= 3);
        QVERIFY(contrast(with.pixelColor(edge), without.pixelColor(edge)) >= 3);
    }
    QCOMPARE(best_contrast(with, QRect(1, 1, 3, with.height() - 2), page_color()), 1.0); // clear of its text
    w_->Text1().setFocus();
    QCOMPARE(picture(), without);
}

void tst_recipe_looks::an_empty_recipe_says_what_to_do_next()
{
    QFETCH(int, points);
    recipe_ = w_->add_recipe(QStringLiteral("Air"), QStringLiteral("others"));
    open(points, {560, 480});
    auto* hint = w_->find<QLabel>(QStringLiteral("empty_hint"));
    QVERIFY(hint->isVisible());
    QVERIFY(hint->text().endsWith(u'.'));
    QVERIFY(hint->geometry().bottom() < w_->Text1().y());
    QVERIFY(hint->height() >= hint->heightForWidth(hint->width()));
    const int wanted = hint->fontMetrics().horizontalAdvance(hint->text());
    QCOMPARE(hint->height() >= 2 * hint->fontMetrics().height(), wanted > hint->width());
    QVERIFY(contrast(hint->palette().color(hint->foregroundRole()), page_color()) >= 4.5);
    w_->add_line(recipe_, QStringLiteral("Salt"));
    w_->page().set_recipe(recipe_);
    QVERIFY(!hint->isVisible());
    w_->page().set_recipe(0);
    QVERIFY(!hint->isVisible());
}

/// With the instructions hidden it stands where they say so themselves.
void tst_recipe_looks::a_page_without_a_recipe_says_so_either_way()
{
    QFETCH(int, points);
    recipe_ = w_->add_recipe(QStringLiteral("Air"), QStringLiteral("others"));
    open(points, {1000, 600});
    const auto letters = [this] {
        const QImage page = w_->page().frame4().grab({0, 0, 560, 180}).toImage();
        QRect dark;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (contrast(page.pixelColor(x, y), page_color()) >= 3)
                    dark |= QRect(x, y, 1, 1);
        return dark;
    };
    w_->page().set_recipe(0);
    const QRect by_instructions = letters();
    w_->page().set_recipe(-1);
    QVERIFY(!w_->Text1().isVisible());
    const QRect by_hint = letters();
    QVERIFY(by_hint.width() > 200);
    QVERIFY((by_hint.topLeft() - by_instructions.topLeft()).manhattanLength() <= 4);
    QVERIFY((by_hint.bottomRight() - by_instructions.bottomRight()).manhattanLength() <= 4);
    for (int i = 0; i < 5; ++i)
        w_->page().layout_page();
    QCOMPARE(letters(), by_hint);
    QVERIFY(!w_->find<QWidget>(QStringLiteral("VScroll1"))->isVisible());
}

QTEST_MAIN(tst_recipe_looks)
#include "tst_recipe_looks.moc"
