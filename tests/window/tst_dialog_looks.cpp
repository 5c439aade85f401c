#include "dialogs/find_item.h"
#include "dialogs/frmColor.h"
#include "dialogs/frmhelpabout.h"
#include "dialogs/lst_clr_dlg.h"
#include "dialogs/move_item.h"
#include "support/contrast.h"
#include "support/test_window.h"
#include "widgets/frame_lines.h"
#include "widgets/message_box.h"
#include "widgets/plain_style.h"
#include "widgets/program.h"
#include "window/layout.h"
#include "window/view_state.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>

using namespace tarnwick;

/// What dialogs and messages look like, and what follows the desktop while the program runs.
class tst_dialog_looks : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void dialogs_follow_the_type_size_data() { type_sizes(); }
    void dialogs_follow_the_type_size();
    void an_open_find_window_follows_the_type_size();
    void messages_follow_the_type_size_data() { type_sizes(); }
    void messages_follow_the_type_size();
    void the_type_of_the_desktop_is_the_least();
    void tabs_and_lines_follow_a_desktop_that_turns_dark();
    void the_frame_of_a_row_of_the_list_manager_is_whole();

private:
    static void type_sizes()
    {
        QTest::addColumn<int>("points");
        for (const int points : {9, 10, 12})
            QTest::addRow("%d points", points) << points;
    }

    /// Every text-bearing control of a dialog in this size, and none of them cut.
    static void compare_size(const QDialog& dialog, int points)
    {
        int texts = 0;
        for (const auto* control : dialog.findChildren<QWidget*>()) {
            const bool has_text = qobject_cast<const QPushButton*>(control)
                || qobject_cast<const QRadioButton*>(control) || qobject_cast<const QComboBox*>(control)
                || (qobject_cast<const QLabel*>(control) && control->objectName() != QLatin1String("Label1"));
            if (!has_text)
                continue;
            ++texts;
            QCOMPARE(control->font().pointSize(), points);
            QVERIFY(control->width() >= control->minimumSizeHint().width());
            QVERIFY(control->height() >= control->minimumSizeHint().height());
        }
        QVERIFY(texts > 0);
    }
};

void tst_dialog_looks::dialogs_follow_the_type_size()
{
    QFETCH(int, points);
    TestWindow w;
    const Key category = w.add_category(QStringLiteral("Fruit"));
    w.add_item(QStringLiteral("Apples"), category);
    frmmain& main = w.load();
    main.view_state().set_type_size(points);
    frmColor colors(&main, 0, points, [](int) {});
    frmhelpabout about(&main, points, [](const QUrl&) { return true; });
    lst_clr_dlg clearing(QStringLiteral("Home"), points, &main);
    MoveRequest request;
    request.move_stock = true;
    request.name = QStringLiteral("Apples");
    request.category = category;
    request.category_name = QStringLiteral("Fruit");
    move_item moving(main.program(), request);
    for (QDialog* dialog : {static_cast<QDialog*>(&colors), static_cast<QDialog*>(&about),
                            static_cast<QDialog*>(&clearing), static_cast<QDialog*>(&moving)}) {
        dialog->setModal(false);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        compare_size(*dialog, points);
    }
}

void tst_dialog_looks::an_open_find_window_follows_the_type_size()
{
    TestWindow w;
    frmmain& main = w.load();
    auto* command = w.find<QAction>(QStringLiteral("mnu_tools_find_item"));
    QVERIFY(command && command->isEnabled());
    command->trigger();
    auto* dialog = w.find<find_item>(QStringLiteral("find_item"));
    QVERIFY(dialog && dialog->isVisible());
    const int height = dialog->height();
    for (const int points : {12, 10, 9}) {
        main.view_state().set_type_size(points);
        QTest::qWait(0);
        compare_size(*dialog, points);
        QCOMPARE(dialog->size(), dialog->sizeHint());
    }
    QCOMPARE(dialog->height(), height);
}

void tst_dialog_looks::messages_follow_the_type_size()
{
    QFETCH(int, points);
    TestWindow w;
    frmmain& main = w.load();
    main.view_state().set_type_size(points);
    int of_text = 0;
    int of_button = 0;
    QTimer::singleShot(0, this, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        of_text = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->font().pointSize();
        of_button = box->button(QMessageBox::Ok)->font().pointSize();
        box->accept();
    });
    msg_box(&main, QStringLiteral("Recipe must have a name"), box::ok, QStringLiteral("Recipe name"));
    QCOMPARE(of_text, points);
    QCOMPARE(of_button, points);
}

void tst_dialog_looks::the_type_of_the_desktop_is_the_least()
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(11);
    QApplication::setFont(large);
    {
        TestWindow w;
        frmmain& main = w.load();
        frmColor colors(&main, 0, 9, [](int) {});
        colors.show();
        compare_size(colors, 11);
        frmColor larger(&main, 0, 12, [](int) {});
        larger.show();
        compare_size(larger, 12);
    }
    QApplication::setFont(before);
}

void tst_dialog_looks::tabs_and_lines_follow_a_desktop_that_turns_dark()
{
    const QPalette before = QApplication::palette();
    {
        TestWindow w;
        frmmain& main = w.load();
        QPalette dark(QColor(48, 52, 56), QColor(42, 46, 50));
        dark.setColor(QPalette::Base, QColor(30, 33, 36));
        QApplication::setPalette(dark);
        QTest::qWait(0);
        for (const QString& name : {QStringLiteral("TabStrip1(0)"), QStringLiteral("TabStrip1(1)")}) {
            auto* tabs = w.find<QTabBar>(name);
            const QRect front = tabs->tabRect(tabs->currentIndex());
            const QImage strip = tabs->grab().toImage();
            const QColor ground = strip.pixelColor(front.left() + 4, front.center().y());
            QVERIFY2(luminance(ground) < 0.1, qPrintable(name));
            QVERIFY(best_contrast(strip, front.adjusted(30, 6, -6, -6), ground) >= 4.5);
        }
        // The line around the tree, right of it.
        const QRect tree = main.layout_manager().left_pane();
        auto* area = w.find<QTabBar>(QStringLiteral("TabStrip1(0)"))->parentWidget();
        QCOMPARE(area->grab(QRect(tree.right() + 1, tree.center().y() / 2, 1, 1)).toImage().pixelColor(0, 0),
                 line_color(dark));
    }
    QApplication::setPalette(before);
}

/// All round the row that has the keyboard, beside its picture and name too.
void tst_dialog_looks::the_frame_of_a_row_of_the_list_manager_is_whole()
{
    TestWindow w;
    w.add_list(QStringLiteral("Home"));
    w.add_list(QStringLiteral("A list with a name that is much too long for the small window of the lists"));
    frmmain& main = w.load();
    main.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    w.find<QAction>(QStringLiteral("mnu_tools_listlist"))->trigger();
    auto* manager = w.find<QDialog>(QStringLiteral("list_list"));
    manager->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(manager));
    for (const QString& name : {QStringLiteral("frm_list(0)"), QStringLiteral("frm_list(1)")}) {
        QWidget* row = w.find<QWidget>(name);
        QVERIFY(row && row->isVisible());
        row->setFocus();
        QTRY_VERIFY(row->hasFocus());
        const QImage image = row->grab().toImage();
        const QColor page = row->palette().color(QPalette::Window);
        for (int x = 2; x < image.width() - 2; ++x)
            for (const int y : {1, image.height() - 2})
                QVERIFY2(contrast(image.pixelColor(x, y), page) >= 3, qPrintable(QString::number(x)));
        for (int y = 1; y < image.height() - 1; ++y)
            for (const int x : {2, image.width() - 3})
                QVERIFY2(contrast(image.pixelColor(x, y), page) >= 3, qPrintable(QString::number(y)));
    }
}

QTEST_MAIN(tst_dialog_looks)
#include "tst_dialog_looks.moc"
