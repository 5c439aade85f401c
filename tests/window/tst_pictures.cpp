#include "widgets/shared_values.h"
#include "widgets/drawn_pictures.h"
#include "widgets/pictures.h"

#include "support/contrast.h"

#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QPainter>
#include <QPalette>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <span>
#include <vector>

using namespace tarnwick;

namespace {

const std::map<int, QSize>& expected_sizes()
{
    static const std::map<int, QSize> sizes = [] {
        std::map<int, QSize> all;
        for (int base : {113, 117, 122, 126, 130, 171, 175, 179, 183})
            for (int color = 0; color < 4; ++color)
                all[base + color] = QSize(16, 16);
        for (int number : {101, 111, 147, 148, 149})
            all[number] = QSize(16, 16);
        for (int number : {134, 136, 137, 144})
            all[number] = QSize(32, 16);
        for (int number : {109, 189, 190})
            all[number] = QSize(20, 20);
        for (int number : {150, 153, 156, 159})
            all[number] = QSize(9, 10);
        all[151] = all[154] = QSize(11, 13);
        all[152] = all[155] = QSize(13, 15);
        all[157] = all[160] = QSize(11, 12);
        all[158] = all[161] = QSize(13, 14);
        all[162] = QSize(4, 18);
        all[163] = QSize(14, 14);
        all[164] = QSize(200, 5);
        all[165] = QSize(96, 96);
        all[166] = QSize(64, 64);
        all[167] = QSize(48, 48);
        return all;
    }();
    return sizes;
}

struct ListImage {
    ImageList list;
    int index;
    QSize size;
};

std::vector<ListImage> expected_list_images()
{
    std::vector<ListImage> all;
    for (int index = 1; index <= 4; ++index) {
        all.push_back({ImageList::recipe_tree, index, QSize(16, 16)});
        all.push_back({ImageList::tabs, index, QSize(16, 16)});
    }
    for (int index = 1; index <= 3; ++index)
        all.push_back({ImageList::list_manager, index, QSize(16, 16)});
    for (int index = 1; index <= 10; ++index)
        all.push_back({ImageList::stock_tree, index, QSize(32, 16)});
    for (int index = 1; index <= 18; ++index)
        if (index != 9)
            all.push_back({ImageList::toolbar, index, QSize(24, 24)});
    for (int index = 1; index <= 7; ++index)
        all.push_back({ImageList::signs, index, index <= 4 ? QSize(32, 32) : QSize(16, 16)});
    return all;
}

QImage on_page(const QPixmap& pixmap, const QColor& page)
{
    QImage image(pixmap.size(), QImage::Format_RGB32);
    image.fill(page);
    QPainter painter(&image);
    painter.drawImage(image.rect(), pixmap.toImage());
    painter.end();
    return image;
}

int drawn_pixels(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 127;
    return count;
}

/// Pixels of two equally large pictures that still differ once the colours are taken away.
int grey_differences(const QImage& a, const QImage& b)
{
    constexpr int visible_step = 48; // of 255
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > visible_step;
    return count;
}

void compare_size(const QPixmap& pixmap, const QSize& logical, qreal scale)
{
    QVERIFY(!pixmap.isNull());
    QCOMPARE(pixmap.devicePixelRatio(), scale);
    QCOMPARE(pixmap.width(), static_cast<int>(std::ceil(logical.width() * scale)));
    QCOMPARE(pixmap.height(), static_cast<int>(std::ceil(logical.height() * scale)));
    QVERIFY2(drawn_pixels(pixmap) > 0, "nothing is drawn");
}

/// The bounding box of what is drawn left of `right`, in the pixels of the picture.
QRect drawn_bounds(const QPixmap& pixmap, int left, int right)
{
    const QImage image = pixmap.toImage();
    QRect bounds;
    for (int y = 0; y < image.height(); ++y)
        for (int x = left; x < right; ++x)
            if (qAlpha(image.pixel(x, y)) > 0)
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

constexpr double readable_shape = 3; ///< contrast that a shape needs

/// The least contrast that a light has against its page on its way round the rim: for each direction from the
/// middle the pixel of the rim that stands out most counts.
double weakest_of_rim(const QImage& image, double scale, const QColor& page)
{
    constexpr double middle = 8;
    double weakest = 21;
    for (int degrees = 0; degrees < 360; degrees += 5) {
        double best = 1;
        for (double radius = 3.6; radius < 6.6; radius += 0.1) {
            const double angle = degrees * M_PI / 180;
            const int x = static_cast<int>((middle + radius * std::cos(angle)) * scale);
            const int y = static_cast<int>((middle + radius * std::sin(angle)) * scale);
            best = std::max(best, contrast(image.pixel(x, y), page.rgb()));
        }
        weakest = std::min(weakest, best);
    }
    return weakest;
}

/// How many stripes that stand out from the page a level line through the hatching meets, with gaps between.
int stripes_across(const QImage& image, double scale, const QColor& page)
{
    int stripes = 0;
    bool in_stripe = false;
    for (double x = 4.8; x <= 11.2; x += 0.05) {
        const QRgb pixel = image.pixel(static_cast<int>(x * scale), static_cast<int>(7.5 * scale));
        const bool stands_out = contrast(pixel, page.rgb()) >= readable_shape;
        stripes += stands_out && !in_stripe;
        in_stripe = stands_out;
    }
    return stripes;
}

/// Another window colour for the application, until the end of the test.
auto with_window_color(const QColor& color)
{
    const QPalette before = QGuiApplication::palette();
    QGuiApplication::setPalette(QPalette(color));
    return qScopeGuard([before] { QGuiApplication::setPalette(before); });
}

} // namespace

class tst_pictures : public QObject {
    Q_OBJECT

private slots:
    void every_number_gives_a_picture_of_its_size_data();
    void every_number_gives_a_picture_of_its_size();
    void every_list_image_has_its_size_data();
    void every_list_image_has_its_size();
    void unknown_numbers_give_nothing();
    void the_list_manager_keeps_its_pictures_on_a_dark_desktop();
    void a_scale_that_is_not_positive_gives_nothing();
    void page_color_variants_leave_the_page_around_them();
    void lights_stand_out_all_round_on_every_page_data();
    void lights_stand_out_all_round_on_every_page();
    void hatching_stands_out_on_every_page_data();
    void hatching_stands_out_on_every_page();
    void outlines_follow_the_lightness_of_the_window_data();
    void outlines_follow_the_lightness_of_the_window();
    void pictures_of_the_page_stay_on_a_dark_window();
    void statuses_differ_on_a_dark_window();
    void statuses_differ_without_color_data();
    void statuses_differ_without_color();
    void lights_differ_without_color();
    void boxes_differ_without_color();
    void other_folders_differ_from_categories_without_color();
    void check_box_and_light_stand_in_their_halves_data();
    void check_box_and_light_stand_in_their_halves();
    void editor_pictures_are_those_of_the_tree();
    void second_call_returns_the_cached_pixmap();
    void the_build_has_drawn_what_would_be_drawn_now();
    void icons_render_at_the_wanted_size_data();
    void icons_render_at_the_wanted_size();
    void disabled_icons_are_grey_and_faint();
    void dialog_icons_hold_three_sizes_data();
    void dialog_icons_hold_three_sizes();
};

void tst_pictures::every_number_gives_a_picture_of_its_size_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void tst_pictures::every_number_gives_a_picture_of_its_size()
{
    QFETCH(qreal, scale);
    for (const auto& [number, size] : expected_sizes()) {
        QCOMPARE(picture_size(number), size);
        compare_size(picture(number, scale), size, scale);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("picture %1").arg(number)));
    }
}

void tst_pictures::every_list_image_has_its_size_data()
{
    every_number_gives_a_picture_of_its_size_data();
}

void tst_pictures::every_list_image_has_its_size()
{
    QFETCH(qreal, scale);
    for (const ListImage& image : expected_list_images()) {
        QCOMPARE(list_image_size(image.list, image.index), image.size);
        compare_size(list_image(image.list, image.index, scale), image.size, scale);
        if (QTest::currentTestFailed())
            QFAIL(
                qPrintable(QStringLiteral("list %1 image %2").arg(static_cast<int>(image.list)).arg(image.index)));
    }
}

void tst_pictures::unknown_numbers_give_nothing()
{
    for (int number = -5; number < 400; ++number) {
        if (expected_sizes().contains(number))
            continue;
        QVERIFY2(picture(number).isNull(), qPrintable(QString::number(number)));
        QVERIFY(!picture_size(number).isValid());
        QVERIFY(picture_icon(number).isNull());
    }
    for (auto list : {ImageList::recipe_tree, ImageList::tabs, ImageList::list_manager}) {
        QVERIFY(list_image(list, 0).isNull());
        QVERIFY(list_image(list, 5).isNull());
        QVERIFY(list_icon(list, 5).isNull());
    }
    QVERIFY(list_image(ImageList::stock_tree, 11).isNull());
    QVERIFY(list_image(ImageList::toolbar, 9).isNull());
    QVERIFY(list_image(ImageList::toolbar, 19).isNull());
    QVERIFY(!list_image_size(ImageList::toolbar, 19).isValid());
}

/// Its rows lie on the page, which is light on a dark desktop too.
void tst_pictures::the_list_manager_keeps_its_pictures_on_a_dark_desktop()
{
    for (int index = 1; index <= 3; ++index) {
        const QImage on_light = list_image(ImageList::list_manager, index).toImage();
        const auto dark = with_window_color(QColor(42, 46, 50));
        QCOMPARE(list_image(ImageList::list_manager, index).toImage(), on_light);
    }
}

void tst_pictures::a_scale_that_is_not_positive_gives_nothing()
{
    QVERIFY(picture(113, 0).isNull());
    QVERIFY(picture(113, -1).isNull());
    QVERIFY(list_image(ImageList::tabs, 1, std::nan("")).isNull());
}

void tst_pictures::page_color_variants_leave_the_page_around_them()
{
    for (int base : {113, 117, 122, 126, 130, 171, 175, 179, 183}) {
        for (int color = 0; color < 4; ++color) {
            const QImage image = picture(base + color).toImage();
            for (int i = 0; i < 16; ++i) {
                QCOMPARE(qAlpha(image.pixel(i, 0)), 0);
                QCOMPARE(qAlpha(image.pixel(i, 15)), 0);
                QCOMPARE(qAlpha(image.pixel(0, i)), 0);
                QCOMPARE(qAlpha(image.pixel(15, i)), 0);
            }
        }
    }
}

void tst_pictures::lights_stand_out_all_round_on_every_page_data()
{
    QTest::addColumn<qreal>("scale");
    for (const char* scale : {"1", "1.25", "1.5", "2"})
        QTest::newRow(scale) << QByteArray(scale).toDouble();
}

void tst_pictures::lights_stand_out_all_round_on_every_page()
{
    QFETCH(qreal, scale);
    for (int color = 0; color < 4; ++color) {
        const QColor page = *page_color_of(color);
        for (int base : {171, 175, 179, 183}) {
            const double weakest = weakest_of_rim(on_page(picture(base + color, scale), page), scale, page);
            QVERIFY2(weakest >= readable_shape,
                     qPrintable(QStringLiteral("%1 on page %2: %3").arg(base).arg(color).arg(weakest)));
        }
        for (int status = 5; status <= 10; ++status) {
            const QImage whole = on_page(list_image(ImageList::stock_tree, status, scale), page);
            const int half = static_cast<int>(16 * scale);
            const double weakest = weakest_of_rim(whole.copy(half, 0, half, whole.height()), scale, page);
            QVERIFY2(weakest >= readable_shape,
                     qPrintable(QStringLiteral("status %1 on page %2: %3").arg(status).arg(color).arg(weakest)));
        }
    }
}

void tst_pictures::hatching_stands_out_on_every_page_data()
{
    lights_stand_out_all_round_on_every_page_data();
}

void tst_pictures::hatching_stands_out_on_every_page()
{
    QFETCH(qreal, scale);
    for (int color = 0; color < 4; ++color) {
        const QColor page = *page_color_of(color);
        QCOMPARE(stripes_across(on_page(picture(183 + color, scale), page), scale, page), 2);
    }
}

void tst_pictures::outlines_follow_the_lightness_of_the_window_data()
{
    QTest::addColumn<QColor>("window");
    QTest::newRow("light") << QColor(239, 239, 239);
    QTest::newRow("dark") << QColor(42, 46, 50);
    QTest::newRow("black") << QColor(Qt::black);
}

void tst_pictures::outlines_follow_the_lightness_of_the_window()
{
    QFETCH(QColor, window);
    const auto back = with_window_color(window);
    for (const ListImage& image : expected_list_images()) {
        const QImage shown = on_page(list_image(image.list, image.index), window);
        int outline = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                outline += contrast(shown.pixel(x, y), window.rgb()) >= readable_shape;
        QVERIFY2(outline >= 12,
                 qPrintable(QStringLiteral("list %1 image %2: %3 pixels")
                                .arg(static_cast<int>(image.list))
                                .arg(image.index)
                                .arg(outline)));
    }
    for (int status = 5; status <= 10; ++status) {
        const QImage whole = on_page(list_image(ImageList::stock_tree, status), window);
        QVERIFY(weakest_of_rim(whole.copy(16, 0, 16, 16), 1, window) >= readable_shape);
        if (status < 10) // the edge of the box, above and at the left of its middle
            for (const QRect edge : {QRect(8, 1, 1, 3), QRect(2, 8, 3, 1)})
                QVERIFY(best_contrast(whole, edge, window) >= readable_shape);
    }
}

void tst_pictures::pictures_of_the_page_stay_on_a_dark_window()
{
    const QImage light = picture(122).toImage();
    const QImage toolbar = list_image(ImageList::toolbar, 1).toImage();
    const auto back = with_window_color(QColor(42, 46, 50));
    QCOMPARE(picture(122).toImage(), light);
    QVERIFY(list_image(ImageList::toolbar, 1).toImage() != toolbar);
}

void tst_pictures::statuses_differ_on_a_dark_window()
{
    const QColor window(42, 46, 50);
    const auto back = with_window_color(window);
    for (int a = 5; a <= 9; ++a) {
        for (int b = a + 1; b <= 9; ++b) {
            const int count = grey_differences(on_page(list_image(ImageList::stock_tree, a), window),
                                               on_page(list_image(ImageList::stock_tree, b), window));
            QVERIFY2(count >= 20, qPrintable(QStringLiteral("%1 and %2: %3").arg(a).arg(b).arg(count)));
        }
    }
}

void tst_pictures::statuses_differ_without_color_data()
{
    QTest::addColumn<QColor>("page");
    QTest::newRow("white") << QColor(Qt::white);
    QTest::newRow("pink") << QColor(255, 204, 204);
    QTest::newRow("green") << QColor(204, 255, 204);
    QTest::newRow("blue") << QColor(204, 204, 255);
}

void tst_pictures::statuses_differ_without_color()
{
    QFETCH(QColor, page);
    for (int a = 5; a <= 9; ++a) {
        for (int b = a + 1; b <= 9; ++b) {
            const int count = grey_differences(on_page(list_image(ImageList::stock_tree, a), page),
                                               on_page(list_image(ImageList::stock_tree, b), page));
            QVERIFY2(count >= 20, qPrintable(QStringLiteral("%1 and %2: %3").arg(a).arg(b).arg(count)));
        }
    }
}

void tst_pictures::lights_differ_without_color()
{
    const std::vector<int> lights{171, 175, 179, 183};
    for (size_t a = 0; a < lights.size(); ++a) {
        for (size_t b = a + 1; b < lights.size(); ++b) {
            const int count
                = grey_differences(on_page(picture(lights[a]), Qt::white), on_page(picture(lights[b]), Qt::white));
            QVERIFY2(count >= 20,
                     qPrintable(QStringLiteral("%1 and %2: %3").arg(lights[a]).arg(lights[b]).arg(count)));
        }
    }
}

void tst_pictures::boxes_differ_without_color()
{
    const std::vector<int> boxes{113, 117, 122, 126, 130};
    for (size_t a = 0; a < boxes.size(); ++a) {
        for (size_t b = a + 1; b < boxes.size(); ++b) {
            // At the scale of a dense screen: the notches of the coupon are a pixel or two.
            const int count = grey_differences(on_page(picture(boxes[a], 2), Qt::white),
                                               on_page(picture(boxes[b], 2), Qt::white));
            QVERIFY2(count >= 20,
                     qPrintable(QStringLiteral("%1 and %2: %3").arg(boxes[a]).arg(boxes[b]).arg(count)));
        }
    }
}

void tst_pictures::other_folders_differ_from_categories_without_color()
{
    for (int index : {1, 2}) {
        const QImage category = on_page(list_image(ImageList::stock_tree, index, 2), Qt::white);
        const QImage other = on_page(list_image(ImageList::stock_tree, index + 2, 2), Qt::white);
        QVERIFY(grey_differences(category, other) >= 20);
    }
}

void tst_pictures::check_box_and_light_stand_in_their_halves_data()
{
    every_number_gives_a_picture_of_its_size_data();
}

void tst_pictures::check_box_and_light_stand_in_their_halves()
{
    QFETCH(qreal, scale);
    const auto device = [scale](qreal logical) { return logical * scale; };
    const int middle = static_cast<int>(device(17));
    for (int index = 5; index <= 9; ++index) {
        const QPixmap pixmap = list_image(ImageList::stock_tree, index, scale);
        const QRect box = drawn_bounds(pixmap, 0, middle);
        QCOMPARE(box.left(), static_cast<int>(std::floor(device(3))));
        QCOMPARE(box.right() + 1, static_cast<int>(std::ceil(device(15))));
        QCOMPARE(box.top(), static_cast<int>(device(2)));
        QCOMPARE(box.bottom() + 1, static_cast<int>(device(14)));
    }
    for (int index = 5; index <= 10; ++index) {
        const QPixmap pixmap = list_image(ImageList::stock_tree, index, scale);
        const QRectF light = drawn_bounds(pixmap, middle, pixmap.width());
        QVERIFY(std::abs(light.center().x() - device(24)) <= 1);
        QVERIFY(std::abs(light.center().y() - device(8)) <= 1);
    }
    QVERIFY(drawn_bounds(list_image(ImageList::stock_tree, 10, scale), 0, middle).isNull());
}

void tst_pictures::editor_pictures_are_those_of_the_tree()
{
    const std::map<int, int> tree_index{{134, 5}, {136, 6}, {137, 7}, {144, 8}};
    for (const auto& [number, index] : tree_index)
        QCOMPARE(picture(number, 2).toImage(), list_image(ImageList::stock_tree, index, 2).toImage());
}

void tst_pictures::the_build_has_drawn_what_would_be_drawn_now()
{
    const std::vector<quint32> now = draw_pictures();
    const std::span<const quint32> built = drawn_pictures();
    QVERIFY(now.size() > 10000);
    QVERIFY(std::equal(now.begin(), now.end(), built.begin(), built.end()));
    // Each picture finds its own: at another scale it is drawn, and its middle has the same colour.
    for (const auto& [number, size] : expected_sizes()) {
        const QImage once = picture(number).toImage();
        const QImage twice = picture(number, 2).toImage();
        QCOMPARE(once.size() * 2, twice.size());
        const QImage shrunk = twice.scaled(once.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        double difference = 0;
        for (int y = 0; y < once.height(); ++y)
            for (int x = 0; x < once.width(); ++x)
                difference += std::abs(qAlpha(once.pixel(x, y)) - qAlpha(shrunk.pixel(x, y)))
                    + std::abs(qGray(once.pixel(x, y)) - qGray(shrunk.pixel(x, y)));
        QVERIFY2(difference / (once.width() * once.height()) < 24, qPrintable(QString::number(number)));
    }
}

void tst_pictures::second_call_returns_the_cached_pixmap()
{
    for (qreal scale : {1.0, 1.5, 2.0}) {
        QCOMPARE(picture(179, scale).cacheKey(), picture(179, scale).cacheKey());
        QCOMPARE(list_image(ImageList::toolbar, 1, scale).cacheKey(),
                 list_image(ImageList::toolbar, 1, scale).cacheKey());
    }
    QVERIFY(picture(179, 1).cacheKey() != picture(179, 2).cacheKey());
    QVERIFY(picture(179).cacheKey() != picture(183).cacheKey());
    const QIcon icon = list_icon(ImageList::toolbar, 10);
    const QSize size(24, 24);
    QCOMPARE(icon.pixmap(size, 2.0).cacheKey(), icon.pixmap(size, 2.0).cacheKey());
}

void tst_pictures::icons_render_at_the_wanted_size_data()
{
    every_number_gives_a_picture_of_its_size_data();
}

void tst_pictures::icons_render_at_the_wanted_size()
{
    QFETCH(qreal, scale);
    const QIcon tool = list_icon(ImageList::toolbar, 10);
    QCOMPARE(tool.pixmap(QSize(24, 24), scale).size(), QSize(24, 24) * scale);
    QCOMPARE(tool.pixmap(QSize(24, 24), scale).toImage(), list_image(ImageList::toolbar, 10, scale).toImage());
    QImage enlarged = tool.pixmap(QSize(48, 48), scale).toImage();
    enlarged.setDevicePixelRatio(2 * scale);
    QCOMPARE(enlarged, list_image(ImageList::toolbar, 10, 2 * scale).toImage());
    const QIcon row = list_icon(ImageList::stock_tree, 7);
    QCOMPARE(row.actualSize(QSize(32, 16)), QSize(32, 16));
    QCOMPARE(row.actualSize(QSize(16, 16)), QSize(16, 8));
    QCOMPARE(row.pixmap(QSize(32, 16), scale).size(), QSize(32, 16) * scale);
    QCOMPARE(picture_icon(109).pixmap(QSize(20, 20), scale).size(), QSize(20, 20) * scale);

    QImage target(QSize(24, 24) * scale, QImage::Format_ARGB32_Premultiplied);
    target.setDevicePixelRatio(scale);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    tool.paint(&painter, QRect(0, 0, 24, 24));
    painter.end();
    QCOMPARE(target, list_image(ImageList::toolbar, 10, scale).toImage());
}

void tst_pictures::disabled_icons_are_grey_and_faint()
{
    const QIcon icon = list_icon(ImageList::toolbar, 1);
    const QImage normal = icon.pixmap(QSize(24, 24), 1.0, QIcon::Normal).toImage();
    const QImage disabled = icon.pixmap(QSize(24, 24), 1.0, QIcon::Disabled).toImage();
    QCOMPARE(disabled.size(), normal.size());
    int colored = 0;
    for (int y = 0; y < normal.height(); ++y) {
        for (int x = 0; x < normal.width(); ++x) {
            const QRgb before = normal.pixel(x, y);
            const QRgb after = disabled.pixel(x, y);
            colored += qRed(before) != qGreen(before);
            QCOMPARE(qRed(after), qGreen(after));
            QCOMPARE(qGreen(after), qBlue(after));
            QVERIFY(qAlpha(after) < qAlpha(before) || qAlpha(before) == 0);
        }
    }
    QVERIFY2(colored > 20, "the enabled picture has colours to lose");
}

void tst_pictures::dialog_icons_hold_three_sizes_data()
{
    QTest::addColumn<QString>("file");
    for (const char* name : {"recipe.ico", "list.ico", "fldr_1.ico"})
        QTest::newRow(name) << QFINDTESTDATA(QStringLiteral("../resources/ico/%1").arg(QLatin1String(name)));
}

void tst_pictures::dialog_icons_hold_three_sizes()
{
    QFETCH(QString, file);
    QVERIFY(QFile::exists(file));
    QImageReader reader(file);
    QCOMPARE(reader.imageCount(), 3);
    for (int size : {16, 32, 48}) {
        const QImage image = reader.read();
        QCOMPARE(image.size(), QSize(size, size));
        QVERIFY(drawn_pixels(QPixmap::fromImage(image)) > size);
        reader.jumpToNextImage();
    }
}

QTEST_MAIN(tst_pictures)
#include "tst_pictures.moc"
