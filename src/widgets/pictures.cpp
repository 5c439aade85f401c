#include "widgets/pictures.h"

#include "widgets/drawn_pictures.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QString>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

// The macro declares a function, so it has to stand outside every namespace.
static void register_picture_files()
{
    static const bool registered = [] {
        Q_INIT_RESOURCE(pictures);
        return true;
    }();
    Q_UNUSED(registered);
}

namespace tarnwick {
namespace {

constexpr QSize small_size(16, 16);
constexpr QSize tree_size(32, 16);
constexpr QSize tool_size(24, 24);
constexpr QSize sign_size(32, 32);

/// What lies around a picture: a page in one of its light colours, or the desktop's own colours.
enum class Ground { page, window };

/// A drawing: one file, or two 16-pixel files side by side as a check box and its light.
struct Drawing {
    int number; // resource number or index in an image list
    QSize size; // logical pixels
    const char* file; // fills the picture, or only its left half when there is a light
    const char* light = nullptr;
    Ground ground = Ground::window;
};

constexpr Drawing on_page(int number, QSize size, const char* file)
{
    return {number, size, file, nullptr, Ground::page};
}

/// The colours of the drawings and what stands for them on a dark window: outlines turn light, paper turns dark.
struct Ink {
    const char* on_light;
    const char* on_dark;
};

constexpr auto inks = std::to_array<Ink>({
    {"stroke=\"#35455A\"", "stroke=\"#D5DEE8\""},
    {"fill=\"#35455A\"", "fill=\"#D5DEE8\""},
    {"fill=\"#FFFFFF\"", "fill=\"#343C46\""},
    {"stroke=\"#FEFEFE\"", "stroke=\"#20262D\""}, // white only on a filled box
    {"fill=\"#E3EBF4\"", "fill=\"#46525F\""},
    {"fill=\"#D3DAE2\"", "fill=\"#56626F\""},
    {"stroke=\"#2C5FA3\"", "stroke=\"#A9CBF5\""},
    {"fill=\"#2C5FA3\"", "fill=\"#A9CBF5\""},
    {"fill=\"#6FA3E0\"", "fill=\"#2F5F9E\""},
    {"fill=\"#B5D2F3\"", "fill=\"#4A7DBE\""},
    {"stroke=\"#A3302A\"", "stroke=\"#F5B5B0\""},
    {"fill=\"#A3302A\"", "fill=\"#F5B5B0\""},
    {"fill=\"#E0665E\"", "fill=\"#A3302A\""},
    {"fill=\"#F3AFA9\"", "fill=\"#A3302A\""},
    {"stroke=\"#1D6E45\"", "stroke=\"#9FE0BF\""},
    {"stroke=\"#2E9B63\"", "stroke=\"#6BCB9A\""},
    {"fill=\"#A6E6EF\"", "fill=\"#2A6F7B\""},
    {"stroke=\"#064A58\"", "stroke=\"#9FE3EE\""},
    {"stroke=\"#173F78\"", "stroke=\"#A9CBF5\""},
    {"fill=\"#C3CBD5\"", "fill=\"#5A6674\""},
    {"stroke=\"#7E1A15\"", "stroke=\"#F5B5B0\""},
});

// The box file has its square at 2..14; one pixel further right it stands where a click on the box
// of a tree row is looked for.
constexpr qreal box_offset = 1;
constexpr qreal light_offset = 16;

// A picture of the page has four numbers, one for each page colour. They share a drawing, since it
// leaves the page around it transparent.
constexpr int page_colors = 4;

constexpr auto page_pictures = std::to_array<Drawing>({
    on_page(113, small_size, "check_empty"),
    on_page(117, small_size, "coupon_empty"),
    on_page(122, small_size, "check_ticked"),
    on_page(126, small_size, "coupon_ticked"),
    on_page(130, small_size, "check_heavy"),
    on_page(171, small_size, "light_nonstock"),
    on_page(175, small_size, "light_unlisted"),
    on_page(179, small_size, "light_active"),
    on_page(183, small_size, "light_inactive"),
});

constexpr auto resource_pictures = std::to_array<Drawing>({
    on_page(101, small_size, "edit"),
    {109, {20, 20}, "edit"},
    on_page(111, small_size, "delete"),
    {134, tree_size, "check_empty", "light_unlisted"},
    {136, tree_size, "check_empty", "light_inactive"},
    {137, tree_size, "check_ticked", "light_active"},
    {144, tree_size, "check_heavy", "light_active_plus"},
    {147, small_size, "list_add"},
    {148, small_size, "recipe_add"},
    {149, small_size, "list_locate"},
    on_page(150, {9, 10}, "step_up_9"),
    on_page(151, {11, 13}, "step_up_10"),
    on_page(152, {13, 15}, "step_up_12"),
    on_page(153, {9, 10}, "step_up_pressed_9"),
    on_page(154, {11, 13}, "step_up_pressed_10"),
    on_page(155, {13, 15}, "step_up_pressed_12"),
    on_page(156, {9, 10}, "step_down_9"),
    on_page(157, {11, 12}, "step_down_10"),
    on_page(158, {13, 14}, "step_down_12"),
    on_page(159, {9, 10}, "step_down_pressed_9"),
    on_page(160, {11, 12}, "step_down_pressed_10"),
    on_page(161, {13, 14}, "step_down_pressed_12"),
    {162, {4, 18}, "header_grip"},
    on_page(163, {14, 14}, "calendar"),
    on_page(164, {200, 5}, "insertion_marker"),
    {165, {96, 96}, ":/icon/tarnwick.svg"},
    {166, {64, 64}, ":/icon/tarnwick.svg"},
    on_page(167, {48, 48}, "empty_list"),
    on_page(189, {20, 20}, "edit"),
    on_page(190, {20, 20}, "delete"),
});

constexpr auto recipe_tree_images = std::to_array<Drawing>({
    {1, small_size, "recipe"},
    {2, small_size, "recipe_open"},
    {3, small_size, "folder_closed"},
    {4, small_size, "folder_open"},
});

constexpr auto tab_images = std::to_array<Drawing>({
    {1, small_size, "stock"},
    {2, small_size, "recipe"},
    {3, small_size, "list"},
    {4, small_size, "recipe_open"},
});

constexpr auto stock_tree_images = std::to_array<Drawing>({
    {1, tree_size, "category_closed"},
    {2, tree_size, "category_open"},
    {3, tree_size, "other_closed"},
    {4, tree_size, "other_open"},
    {5, tree_size, "check_empty", "light_unlisted"},
    {6, tree_size, "check_empty", "light_inactive"},
    {7, tree_size, "check_ticked", "light_active"},
    {8, tree_size, "check_heavy", "light_active_plus"},
    {9, tree_size, "check_empty", "light_nonstock"},
    {10, tree_size, nullptr, "light_nonstock"},
});

constexpr auto list_manager_images = std::to_array<Drawing>({
    on_page(1, small_size, "list"),
    on_page(2, small_size, "list_chosen"),
    on_page(3, small_size, "list_new"),
});

constexpr auto toolbar_images = std::to_array<Drawing>({
    {1, tool_size, "tool_new_list"},
    {2, tool_size, "tool_clear_list"},
    {3, tool_size, "tool_list_manager"},
    {4, tool_size, "tool_close_folders"},
    {5, tool_size, "tool_new_recipe"},
    {6, tool_size, "tool_ingredient"},
    {7, tool_size, "tool_more"},
    {8, tool_size, "tool_new_stock"},
    {10, tool_size, "tool_print"},
    {11, tool_size, "tool_preview"},
    {12, tool_size, "tool_word_processor"},
    {13, tool_size, "tool_email"},
    {14, tool_size, "tool_sort_alpha"},
    {15, tool_size, "tool_find"},
    {16, tool_size, "tool_size_down"},
    {17, tool_size, "tool_size_up"},
    {18, tool_size, "tool_sort_category"},
});

constexpr auto sign_images = std::to_array<Drawing>({
    {1, sign_size, "sign_information"},
    {2, sign_size, "sign_question"},
    {3, sign_size, "sign_warning"},
    {4, sign_size, "sign_stop"},
    {5, small_size, "arrow_left"},
    {6, small_size, "arrow_right"},
    {7, small_size, "arrows_right"},
});

/// In the order in which the build draws them.
constexpr std::span<const Drawing> all_drawings[] = {
    page_pictures,     resource_pictures,   recipe_tree_images, tab_images,
    stock_tree_images, list_manager_images, toolbar_images,     sign_images,
};

const Drawing* find_in(std::span<const Drawing> drawings, int number)
{
    const auto found = std::ranges::lower_bound(drawings, number, {}, &Drawing::number);
    return found != drawings.end() && found->number == number ? &*found : nullptr;
}

const Drawing* find_picture(int number)
{
    if (const Drawing* drawing = find_in(resource_pictures, number))
        return drawing;
    const auto after = std::ranges::upper_bound(page_pictures, number, {}, &Drawing::number);
    if (after == page_pictures.begin())
        return nullptr;
    const Drawing& candidate = *std::prev(after);
    return number < candidate.number + page_colors ? &candidate : nullptr;
}

const Drawing* find_list_image(ImageList list, int index)
{
    switch (list) {
    case ImageList::recipe_tree:
        return find_in(recipe_tree_images, index);
    case ImageList::tabs:
        return find_in(tab_images, index);
    case ImageList::stock_tree:
        return find_in(stock_tree_images, index);
    case ImageList::list_manager:
        return find_in(list_manager_images, index);
    case ImageList::toolbar:
        return find_in(toolbar_images, index);
    case ImageList::signs:
        return find_in(sign_images, index);
    }
    return nullptr;
}

/// Whether the drawing has to stand out from a dark desktop.
bool on_dark(const Drawing& drawing)
{
    constexpr int mid_lightness = 128;
    return drawing.ground == Ground::window
        && qGray(QGuiApplication::palette().color(QPalette::Window).rgb()) < mid_lightness;
}

void draw_file(QPainter& painter, const char* file, const QRectF& target, bool dark)
{
    const bool is_path = file[0] == ':';
    QFile drawing(is_path ? QString::fromLatin1(file)
                          : QStringLiteral(":/pictures/%1.svg").arg(QLatin1String(file)));
    if (!drawing.open(QIODevice::ReadOnly))
        return;
    QByteArray lines = drawing.readAll();
    if (dark && !is_path) {
        for (const Ink& ink : inks)
            lines.replace(ink.on_light, ink.on_dark);
    }
    QSvgRenderer(lines).render(&painter, target);
}

void draw(QPainter& painter, const Drawing& drawing, bool dark)
{
    if (!drawing.light) {
        draw_file(painter, drawing.file, QRectF(QPointF(), drawing.size), dark);
        return;
    }
    if (drawing.file)
        draw_file(painter, drawing.file, QRectF(QPointF(box_offset, 0), small_size), dark);
    draw_file(painter, drawing.light, QRectF(QPointF(light_offset, 0), small_size), dark);
}

/// Pulls every colour to a light grey of its own brightness and lets the ground shine through.
void grey_out(QImage& image)
{
    constexpr int opacity_percent = 55;
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            // Premultiplied, so grey and alpha are scaled alike.
            const int grey = qGray(line[x]) * opacity_percent / 100;
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]) * opacity_percent / 100);
        }
    }
}

struct CacheKey {
    const Drawing* drawing;
    QSize device_size;
    qreal scale;
    bool disabled;
    bool dark;

    bool operator==(const CacheKey&) const = default;
};

size_t qHash(const CacheKey& key, size_t seed = 0)
{
    return qHashMulti(seed, key.drawing, key.device_size.width(), key.device_size.height(), key.scale, key.disabled,
                      key.dark);
}

using PixmapCache = QHash<CacheKey, QPixmap>;

/// Emptied with the application, because a pixmap must not outlive it.
PixmapCache& pixmap_cache()
{
    static PixmapCache cache;
    static const bool registered = [] {
        qAddPostRoutine([] { pixmap_cache().clear(); });
        return true;
    }();
    Q_UNUSED(registered);
    return cache;
}

/// Renders the drawing as large as it fits into `device_size` pixels, without distorting it.
QImage render(const Drawing& drawing, QSize device_size, bool dark)
{
    register_picture_files();
    const qreal zoom = std::min(qreal(device_size.width()) / drawing.size.width(),
                                qreal(device_size.height()) / drawing.size.height());
    QImage image(device_size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(zoom, zoom);
    draw(painter, drawing, dark);
    return image;
}

size_t pixel_count(const Drawing& drawing)
{
    return static_cast<size_t>(drawing.size.width()) * static_cast<size_t>(drawing.size.height());
}

/// The drawing in its own size on a light window, as the build has drawn it; null when it has not.
QImage drawn_at_build(const Drawing& drawing)
{
    size_t place = 0;
    for (const auto drawings : all_drawings) {
        for (const Drawing& one : drawings) {
            const std::span<const quint32> pixels = drawn_pictures();
            if (&one == &drawing && place + pixel_count(one) <= pixels.size())
                return QImage(reinterpret_cast<const uchar*>(&pixels[place]), one.size.width(), one.size.height(),
                              QImage::Format_ARGB32_Premultiplied);
            place += pixel_count(one);
        }
    }
    return {};
}

QPixmap cached(const Drawing& drawing, QSize device_size, qreal scale, bool disabled, bool dark)
{
    QPixmap& pixmap = pixmap_cache()[{&drawing, device_size, scale, disabled, dark}];
    if (!pixmap.isNull())
        return pixmap;
    QImage image = !dark && device_size == drawing.size ? drawn_at_build(drawing) : QImage();
    if (image.isNull())
        image = render(drawing, device_size, dark);
    if (disabled)
        grey_out(image);
    pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QPixmap at_scale(const Drawing* drawing, qreal scale)
{
    if (!drawing || !(scale > 0))
        return {};
    // Rounded up: a half device pixel at the edge is still part of the drawing.
    const QSize device_size(static_cast<int>(std::ceil(drawing->size.width() * scale)),
                            static_cast<int>(std::ceil(drawing->size.height() * scale)));
    return cached(*drawing, device_size, scale, false, on_dark(*drawing));
}

/// Selected is the mode of a picture that lies on a light ground whatever the window is.
class DrawingIconEngine : public QIconEngine {
public:
    explicit DrawingIconEngine(const Drawing& drawing)
        : drawing_(drawing)
    {
    }

    QIconEngine* clone() const override { return new DrawingIconEngine(drawing_); }
    QString key() const override { return QStringLiteral("TarnwickDrawing"); }
    bool isNull() override { return false; }

    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        return drawing_.size.scaled(size, Qt::KeepAspectRatio);
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override { return {drawing_.size}; }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1.0);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        const QSize device_size = actualSize(size, mode, state);
        if (device_size.isEmpty())
            return {};
        const bool dark = mode != QIcon::Selected && on_dark(drawing_);
        return cached(drawing_, device_size, scale, mode == QIcon::Disabled, dark);
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatio();
        const QPixmap pixmap = scaledPixmap(rect.size() * scale, mode, state, scale);
        QRectF target(QPointF(), pixmap.deviceIndependentSize());
        target.moveCenter(QRectF(rect).center());
        painter->drawPixmap(target.topLeft(), pixmap);
    }

private:
    const Drawing& drawing_; // lives in one of the constant tables above
};

QIcon icon_of(const Drawing* drawing)
{
    return drawing ? QIcon(new DrawingIconEngine(*drawing)) : QIcon();
}

} // namespace

std::vector<quint32> draw_pictures()
{
    std::vector<quint32> pixels;
    for (const auto drawings : all_drawings) {
        for (const Drawing& drawing : drawings) {
            const QImage image = render(drawing, drawing.size, false);
            for (int y = 0; y < image.height(); ++y) {
                const auto* line = reinterpret_cast<const quint32*>(image.constScanLine(y));
                pixels.insert(pixels.end(), line, line + image.width());
            }
        }
    }
    return pixels;
}

QPixmap picture(int resource_number, qreal scale)
{
    return at_scale(find_picture(resource_number), scale);
}

QSize picture_size(int resource_number)
{
    const Drawing* drawing = find_picture(resource_number);
    return drawing ? drawing->size : QSize();
}

QPixmap list_image(ImageList list, int index, qreal scale)
{
    return at_scale(find_list_image(list, index), scale);
}

QSize list_image_size(ImageList list, int index)
{
    const Drawing* drawing = find_list_image(list, index);
    return drawing ? drawing->size : QSize();
}

QIcon list_icon(ImageList list, int index)
{
    return icon_of(find_list_image(list, index));
}

QIcon picture_icon(int resource_number)
{
    return icon_of(find_picture(resource_number));
}

} // namespace tarnwick
