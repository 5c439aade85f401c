#include "widgets/plain_style.h"

#include "support/contrast.h"
#include "widgets/fitted_text.h"
#include "widgets/frame_lines.h"
#include "widgets/pane_tabs.h"
#include "widgets/pictures.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QLineEdit>
#include <QMessageBox>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>

using namespace tarnwick;

class tst_plain_style : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void contrast_is_that_of_the_guidelines();
    void white_text_is_readable_on_every_highlight_data();
    void white_text_is_readable_on_every_highlight();
    void a_highlight_without_the_keyboard_looks_different();
    void a_link_is_readable_on_its_window_data() { desktops(); }
    void a_link_is_readable_on_its_window();
    void a_disabled_entry_of_a_menu_is_drawn_once();
    void message_boxes_have_four_pictures_of_our_own();
    void the_tab_in_front_is_open_to_its_pane();
    void tabs_have_crisp_lines_at_every_scale_data() { scales(); }
    void tabs_have_crisp_lines_at_every_scale();
    void captions_stay_readable_in_a_narrow_strip();
    void where_one_tab_has_no_room_for_its_picture_none_shows_it();
    void a_picture_on_a_light_tab_stays_visible_on_a_dark_desktop();
    void boxes_and_circles_to_tick_stand_out_data() { desktops(); }
    void boxes_and_circles_to_tick_stand_out();
    void focus_marks_stand_out_data() { desktops(); }
    void focus_marks_stand_out();
    void the_keyboard_is_marked_on_buttons_and_boxes_data() { desktops(); }
    void the_keyboard_is_marked_on_buttons_and_boxes();
    void buttons_and_boxes_are_flat_and_crisp_at_every_scale_data() { scales(); }
    void buttons_and_boxes_are_flat_and_crisp_at_every_scale();
    void a_thick_frame_is_whole_at_every_scale_data() { scales(); }
    void a_thick_frame_is_whole_at_every_scale();
    void lines_of_a_menu_are_equally_thick_at_every_scale_data() { scales(); }
    void lines_of_a_menu_are_equally_thick_at_every_scale();
    void a_menu_closed_by_escape_is_marked_in_the_bar();
    void lines_between_things_can_be_seen_data() { desktops(); }
    void lines_between_things_can_be_seen();
    void groups_of_a_menu_and_of_a_dialog_are_told_apart_data() { desktops(); }
    void groups_of_a_menu_and_of_a_dialog_are_told_apart();
    void nothing_hangs_below_the_month_of_a_calendar();
    void the_slider_of_a_scroll_bar_stands_out_and_is_without_shading_data();
    void the_slider_of_a_scroll_bar_stands_out_and_is_without_shading();
    void a_bar_with_nothing_to_scroll_has_no_slider();
    void a_progress_bar_is_filled_as_far_as_it_says();
    void a_menu_bar_tells_of_menus_that_have_no_room();
    void the_wheel_leaves_a_closed_list_of_choices_alone();

private:
    static void scales()
    {
        QTest::addColumn<qreal>("scale");
        for (const char* scale : {"1", "1.25", "1.5", "1.75", "2"})
            QTest::newRow(scale) << QByteArray(scale).toDouble();
    }

    static void desktops()
    {
        QTest::addColumn<QPalette>("colors");
        QPalette dark(QColor(48, 52, 56), QColor(42, 46, 50));
        dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
        dark.setColor(QPalette::HighlightedText, Qt::white);
        PlainStyle().polish(dark);
        QPalette light = QApplication::style()->standardPalette();
        PlainStyle().polish(light);
        QTest::newRow("light") << light;
        QTest::newRow("dark") << dark;
    }
};

namespace {

/// A widget as it is drawn for a screen of this scale.
QImage drawn(QWidget& widget, qreal scale)
{
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    return image;
}

/// A strip of two tabs with pictures, as high as those of the panes.
class Strip : public QWidget {
public:
    explicit Strip(int width)
        : tabs(this)
    {
        tabs.setDrawBase(false);
        tabs.setExpanding(false);
        tabs.setUsesScrollButtons(false);
        tabs.setElideMode(Qt::ElideNone);
        tabs.addTab(list_icon(ImageList::toolbar, 1), QStringLiteral("Stock"));
        tabs.addTab(list_icon(ImageList::toolbar, 2), QStringLiteral("Recipes"));
        tabs.setGeometry(3, 0, width, 27);
        resize(width + 6, 27);
    }

    PaneTabs tabs;
};

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

void tst_plain_style::a_link_is_readable_on_its_window()
{
    QFETCH(QPalette, colors);
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        for (const auto link : {QPalette::Link, QPalette::LinkVisited})
            QVERIFY(contrast(colors.color(group, link), colors.color(group, QPalette::Window)) >= 4.5);
}

/// Without the second, shifted text that stands for relief.
void tst_plain_style::a_disabled_entry_of_a_menu_is_drawn_once()
{
    QMenu menu;
    menu.addAction(QStringLiteral("III"))->setEnabled(false);
    QPalette colors = menu.palette();
    colors.setColor(QPalette::Light, Qt::red);
    menu.setPalette(colors);
    menu.resize(menu.sizeHint());
    const QImage image = menu.grab().toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            QVERIFY(image.pixelColor(x, y).saturation() < 128);
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

void tst_plain_style::tabs_have_crisp_lines_at_every_scale()
{
    QFETCH(qreal, scale);
    Strip strip(300);
    const QImage image = drawn(strip, scale);
    const QColor line = line_color(strip.tabs.palette());
    const int thickness = static_cast<int>(scale);
    const int y = qRound(20 * scale);
    for (const int i : {0, 1}) {
        const QRect tab = strip.tabs.tabRect(i).translated(strip.tabs.pos());
        const int first = qRound(tab.left() * scale);
        const int end = qRound((tab.right() + 1) * scale);
        for (int x = 0; x < thickness; ++x) {
            QCOMPARE(image.pixelColor(first + x, y), line);
            QCOMPARE(image.pixelColor(end - 1 - x, y), line);
        }
        QVERIFY(image.pixelColor(first + thickness, y) != line);
        QCOMPARE(image.pixelColor(first + thickness, y), image.pixelColor(first + thickness + 1, y));
        QCOMPARE(image.pixelColor(end - 1 - thickness, y), image.pixelColor(end - 2 - thickness, y));
    }
    // The lines of the tab in front go on to the line of the pane behind its last row, and no further.
    const int right = qRound((strip.tabs.tabRect(0).right() + 1 + strip.tabs.x()) * scale) - 1;
    const int foot = qRound(26 * scale);
    QCOMPARE(image.pixelColor(right, foot + thickness - 1), line);
    for (int row = foot + thickness; row < image.height(); ++row)
        QVERIFY(image.pixelColor(right, row) != line);
    // Its left line is that of the pane as well.
    const int left = qRound(strip.tabs.x() * scale);
    for (int row = y; row < image.height(); ++row)
        QCOMPARE(image.pixelColor(left, row), line);
}

void tst_plain_style::captions_stay_readable_in_a_narrow_strip()
{
    for (const int points : {9, 10, 12}) {
        Strip strip(160);
        QFont font = strip.tabs.font();
        font.setPointSize(points);
        strip.tabs.setFont(font);
        for (const int i : {0, 1}) {
            const QRect tab = strip.tabs.tabRect(i);
            const QImage image = drawn(strip.tabs, 1).copy(tab.adjusted(2, 4, -2, -4));
            QVERIFY(tab.right() < strip.tabs.width());
            int first = image.width();
            int last = -1;
            for (int x = 0; x < image.width(); ++x) {
                if (best_contrast(image, QRect(x, 0, 1, image.height()), image.pixelColor(0, 0)) < 3)
                    continue;
                first = std::min(first, x);
                last = x;
            }
            const int caption = QFontMetrics(font).horizontalAdvance(strip.tabs.tabText(i));
            QVERIFY2(last - first + 4 >= caption * narrowest_type / 100,
                     qPrintable(QStringLiteral("%1 of %2 at %3").arg(last - first).arg(caption).arg(points)));
        }
    }
}

void tst_plain_style::where_one_tab_has_no_room_for_its_picture_none_shows_it()
{
    QPixmap red(16, 16);
    red.fill(Qt::red);
    int without = 0;
    for (int width = 90; width < 220; width += 5) {
        Strip strip(width);
        int shown = 0;
        for (const int i : {0, 1})
            strip.tabs.setTabIcon(i, red);
        const QImage image = drawn(strip.tabs, 1);
        for (const int i : {0, 1}) {
            const QRect tab = strip.tabs.tabRect(i);
            bool seen = false;
            for (int x = tab.left(); x <= tab.right(); ++x)
                seen = seen || image.pixelColor(x, 14) == QColor(Qt::red);
            shown += seen ? 1 : 0;
        }
        QVERIFY2(shown != 1, qPrintable(QString::number(width)));
        without += shown == 0 ? 1 : 0;
    }
    QVERIFY(without > 0);
}

void tst_plain_style::a_picture_on_a_light_tab_stays_visible_on_a_dark_desktop()
{
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(48, 52, 56), QColor(42, 46, 50));
    QApplication::setPalette(dark);
    const QColor page(204, 204, 255);
    Strip strip(300);
    QPalette colors = strip.tabs.palette();
    colors.setColor(QPalette::Base, page);
    strip.tabs.setPalette(colors);
    constexpr int picture_end = 28;
    const QRect front = strip.tabs.tabRect(0);
    const QRect picture(front.left() + 4, 5, picture_end - 4, 18);
    const QImage on_light = drawn(strip.tabs, 1).copy(picture);
    colors.setColor(QPalette::Base, dark.color(QPalette::Base));
    strip.tabs.setPalette(colors);
    const double on_dark = best_contrast(drawn(strip.tabs, 1), picture, dark.color(QPalette::Base));
    QApplication::setPalette(before);
    colors = strip.tabs.palette();
    colors.setColor(QPalette::Base, page);
    strip.tabs.setPalette(colors);
    QCOMPARE(drawn(strip.tabs, 1).copy(picture), on_light);
    QVERIFY(on_dark >= 3);
}

void tst_plain_style::boxes_and_circles_to_tick_stand_out()
{
    QFETCH(QPalette, colors);
    const PlainStyle style;
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
        QStyleOptionButton option;
        option.palette = colors;
        option.rect = QRect(3, 3, 14, 14);
        option.state = QStyle::State_Enabled | QStyle::State_Off;
        const auto draw = [&] {
            QImage image(20, 20, QImage::Format_RGB32);
            image.fill(colors.color(QPalette::Window));
            QPainter painter(&image);
            style.drawPrimitive(element, &option, &painter, nullptr);
            return image;
        };
        const QImage open = draw();
        const QRect upper_edge(10, 3, 1, 1);
        QVERIFY(best_contrast(open, upper_edge, colors.color(QPalette::Window)) >= 3);
        QVERIFY(best_contrast(open, upper_edge, colors.color(QPalette::Base)) >= 3);
        QCOMPARE(open.pixelColor(10, 10), colors.color(QPalette::Base));
        option.state = QStyle::State_Enabled | QStyle::State_On;
        QVERIFY(best_contrast(draw(), QRect(6, 6, 8, 8), colors.color(QPalette::Base)) >= 4.5);
    }
}

void tst_plain_style::focus_marks_stand_out()
{
    QFETCH(QPalette, colors);
    const PlainStyle style;
    for (const QColor& ground : {colors.color(QPalette::Window), QColor(255, 255, 255), QColor(255, 204, 204),
                                 QColor(204, 255, 204), QColor(204, 204, 255)}) {
        QStyleOptionFocusRect option;
        option.palette = colors;
        option.palette.setColor(QPalette::Window, ground);
        option.rect = QRect(2, 2, 16, 16);
        QImage image(20, 20, QImage::Format_RGB32);
        image.fill(ground);
        {
            QPainter painter(&image);
            style.drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, nullptr);
        }
        for (const QPoint edge : {QPoint(10, 2), QPoint(10, 17), QPoint(2, 10), QPoint(17, 10)})
            QVERIFY2(contrast(image.pixelColor(edge), ground) >= 3, qPrintable(ground.name()));
    }
}

void tst_plain_style::the_keyboard_is_marked_on_buttons_and_boxes()
{
    QFETCH(QPalette, colors);
    const PlainStyle style;
    const auto draw = [&](QStyle::State state, const auto& paint, auto option) {
        option.palette = colors;
        option.rect = QRect(0, 0, 60, 24);
        option.state = QStyle::State_Enabled | state;
        QImage image(60, 24, QImage::Format_RGB32);
        image.fill(colors.color(QPalette::Window));
        QPainter painter(&image);
        paint(option, painter);
        return image;
    };
    const auto stands_out = [&](const auto& paint, const auto& option) {
        const QImage without = draw(QStyle::State_None, paint, option);
        const QImage with = draw(QStyle::State_HasFocus, paint, option);
        for (const QPoint edge : {QPoint(20, 0), QPoint(20, 23), QPoint(0, 12), QPoint(59, 12)})
            QVERIFY(contrast(with.pixelColor(edge), colors.color(QPalette::Window)) >= 3);
        for (const QPoint inner : {QPoint(20, 1), QPoint(20, 22), QPoint(1, 12), QPoint(58, 12)})
            QVERIFY(contrast(with.pixelColor(inner), without.pixelColor(inner)) >= 3);
    };
    QStyleOptionButton button;
    stands_out(
        [&](const auto& option, QPainter& painter) {
            style.drawControl(QStyle::CE_PushButtonBevel, &option, &painter, nullptr);
        },
        button);
    button.features = QStyleOptionButton::DefaultButton;
    stands_out(
        [&](const auto& option, QPainter& painter) {
            style.drawControl(QStyle::CE_PushButtonBevel, &option, &painter, nullptr);
        },
        button);
    stands_out(
        [&](const auto& option, QPainter& painter) {
            style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter, nullptr);
        },
        QStyleOptionComboBox());
    QStyleOptionFrame box;
    box.lineWidth = 1;
    stands_out(
        [&](const auto& option, QPainter& painter) {
            style.drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, nullptr);
        },
        box);
}

void tst_plain_style::buttons_and_boxes_are_flat_and_crisp_at_every_scale()
{
    QFETCH(qreal, scale);
    QWidget window;
    QPushButton button(&window);
    QComboBox combo(&window);
    QLineEdit box(&window);
    QGroupBox group(&window);
    int top = 5;
    for (QWidget* control : {static_cast<QWidget*>(&button), static_cast<QWidget*>(&combo),
                             static_cast<QWidget*>(&box), static_cast<QWidget*>(&group)}) {
        control->setGeometry(7, top, 91, 25);
        top += 33;
    }
    button.setAutoDefault(false);
    window.resize(110, top);
    const QImage image = drawn(window, scale);
    const int thickness = static_cast<int>(scale);
    const QColor ground = window.palette().color(QPalette::Window);
    for (const QWidget* control : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        // Straight down through its empty left part: a line, one ground, a line, and nothing shaded.
        const int x = qRound(27 * scale);
        const int first = qRound(control->y() * scale);
        const int end = qRound((control->geometry().bottom() + 1) * scale);
        const QColor line = image.pixelColor(x, first);
        QVERIFY(contrast(line, ground) >= 1.5);
        for (int i = 0; i < thickness; ++i) {
            QCOMPARE(image.pixelColor(x, first + i), line);
            QCOMPARE(image.pixelColor(x, end - 1 - i), line);
        }
        QCOMPARE(image.pixelColor(x, first - 1), ground);
        QCOMPARE(image.pixelColor(x, end), ground);
        QVERIFY(image.pixelColor(x, first + thickness) != line);
        for (int y = first + thickness; y < end - thickness; ++y)
            QCOMPARE(image.pixelColor(x, y), image.pixelColor(x, first + thickness));
        const int y = qRound((control->y() + 12) * scale);
        const int right = qRound((control->geometry().right() + 1) * scale);
        for (int i = 0; i < thickness; ++i) {
            QCOMPARE(image.pixelColor(qRound(7 * scale) + i, y), line);
            QCOMPARE(image.pixelColor(right - 1 - i, y), line);
        }
    }
}

void tst_plain_style::a_thick_frame_is_whole_at_every_scale()
{
    QFETCH(qreal, scale);
    constexpr int lines = 4;
    QWidget window;
    QFrame frame(&window);
    frame.setFrameStyle(QFrame::Box | QFrame::Plain);
    frame.setLineWidth(lines);
    frame.setGeometry(7, 5, 71, 53);
    window.resize(90, 70);
    const QImage image = drawn(window, scale);
    const QColor ink = frame.palette().color(QPalette::WindowText);
    const auto inked = [&](QPoint from, QPoint step) {
        int count = 0;
        for (QPoint place = from; image.pixelColor(place) == ink; place += step)
            ++count;
        return count;
    };
    const int middle_x = qRound(40 * scale);
    const int middle_y = qRound(30 * scale);
    const int thickness = static_cast<int>(lines * scale);
    QCOMPARE(inked({qRound(7 * scale), middle_y}, {1, 0}), thickness);
    QCOMPARE(inked({qRound(78 * scale) - 1, middle_y}, {-1, 0}), thickness);
    QCOMPARE(inked({middle_x, qRound(5 * scale)}, {0, 1}), thickness);
    QCOMPARE(inked({middle_x, qRound(58 * scale) - 1}, {0, -1}), thickness);
}

void tst_plain_style::lines_of_a_menu_are_equally_thick_at_every_scale()
{
    QFETCH(qreal, scale);
    constexpr int lines = 6;
    QMenu menu;
    for (int i = 0; i < lines; ++i) {
        menu.addAction(QStringLiteral("Entry"));
        menu.addSeparator();
    }
    menu.addAction(QStringLiteral("Entry"));
    menu.resize(menu.sizeHint());
    const QImage image = drawn(menu, scale);
    const QColor line = line_color(menu.palette());
    const int x = image.width() - qRound(12 * scale); // behind the entries' texts
    QList<int> thicknesses;
    int thickness = 0;
    for (int y = qRound(4 * scale); y < image.height() - qRound(4 * scale); ++y) {
        if (image.pixelColor(x, y) == line) {
            ++thickness;
        } else {
            QCOMPARE(image.pixelColor(x, y), image.pixelColor(x, qRound(4 * scale)));
            if (thickness > 0)
                thicknesses << thickness;
            thickness = 0;
        }
    }
    QCOMPARE(thicknesses, QList<int>(lines, static_cast<int>(scale)));
}

void tst_plain_style::a_menu_closed_by_escape_is_marked_in_the_bar()
{
    QMainWindow window;
    QMenu& menu = *window.menuBar()->addMenu(QStringLiteral("&Tools"));
    menu.addAction(QStringLiteral("Find"));
    window.resize(300, 200);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QRect place = window.menuBar()->actionGeometry(menu.menuAction());
    const auto upper_edge_contrast = [&] {
        const QImage image = window.menuBar()->grab().toImage();
        return contrast(image.pixelColor(place.center().x(), place.top()), image.pixelColor(250, 2));
    };
    QVERIFY(upper_edge_contrast() < 1.5);
    QTest::keyClick(&window, Qt::Key_T, Qt::AltModifier);
    QTRY_VERIFY(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Escape);
    QTRY_VERIFY(!menu.isVisible());
    QVERIFY(window.menuBar()->hasFocus());
    QVERIFY(upper_edge_contrast() >= 3);
    QTest::keyClick(window.menuBar(), Qt::Key_Escape);
    QVERIFY(upper_edge_contrast() < 1.5);
}

void tst_plain_style::lines_between_things_can_be_seen()
{
    QFETCH(QPalette, colors);
    QVERIFY(contrast(line_color(colors), colors.color(QPalette::Window)) >= 1.5);
    QVERIFY(contrast(line_color(colors), colors.color(QPalette::Window)) < 4.5);
}

void tst_plain_style::groups_of_a_menu_and_of_a_dialog_are_told_apart()
{
    QFETCH(QPalette, colors);
    QMenu menu;
    menu.setPalette(colors);
    menu.addAction(QStringLiteral("New"));
    QAction* separator = menu.addSeparator();
    menu.addAction(QStringLiteral("Exit"));
    menu.resize(menu.sizeHint());
    const QImage entries = menu.grab().toImage();
    const QRect entry = menu.actionGeometry(separator);
    const QPoint left(entry.left() + 1, entry.center().y());
    QVERIFY(best_contrast(entries, entry.adjusted(10, 0, -10, 0), entries.pixelColor(left)) >= 1.5);

    QGroupBox box;
    box.setPalette(colors);
    box.resize(80, 60);
    const QImage group = box.grab().toImage();
    QVERIFY(contrast(group.pixelColor(0, 30), group.pixelColor(4, 30)) >= 1.5);
    QVERIFY(contrast(group.pixelColor(79, 30), group.pixelColor(75, 30)) >= 1.5);
}

void tst_plain_style::nothing_hangs_below_the_month_of_a_calendar()
{
    QCalendarWidget calendar;
    auto* month = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"));
    QVERIFY(month && month->menu());
    calendar.resize(calendar.sizeHint());
    calendar.grab(); // lays the head out
    const QImage with_menu = drawn(*month, 1);
    month->setMenu(nullptr);
    QCOMPARE(with_menu, drawn(*month, 1));
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

void tst_plain_style::the_wheel_leaves_a_closed_list_of_choices_alone()
{
    QWidget window;
    QLineEdit name(&window);
    QComboBox choices(&window);
    choices.addItems({QStringLiteral("Bakery"), QStringLiteral("Dairy"), QStringLiteral("Fruit")});
    choices.move(0, 40);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    name.setFocus();
    const QPointF place(choices.rect().center());
    for (const int step : {-120, -120, 120}) {
        QWheelEvent turn(place, choices.mapToGlobal(place), {}, {0, step}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&choices, &turn);
        QCOMPARE(choices.currentIndex(), 0);
    }
    QVERIFY(!(choices.focusPolicy() & ~Qt::StrongFocus)); // the wheel does not take the keyboard either
    QTest::keyClick(&choices, Qt::Key_Down);
    QCOMPARE(choices.currentIndex(), 1);
}

QTEST_MAIN(tst_plain_style)
#include "tst_plain_style.moc"
