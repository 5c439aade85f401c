#include "output/pic_frm.h"
#include "support/message_script.h"
#include "support/test_window.h"
#include "window/output_commands.h"
#include "window/commands.h"
#include "support/tool_button.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace tarnwick;

namespace {

const QString velora = QStringLiteral("velora");
const QString reports = QStringLiteral("reports");

} // namespace

/// The dialog with the options of the printed list.
class tst_print_setup : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup() { dialog_.reset(); }

    void menu_and_drop_down_open_it_data();
    void menu_and_drop_down_open_it();
    void captions_stand_letter_by_letter();
    void it_opens_on_the_options_data();
    void it_opens_on_the_options();
    void numbers_of_a_damaged_setting_choose_nothing();
    void opening_writes_no_setting();
    void each_change_counts_at_once_in_memory_and_under_velora();
    void the_keyboard_changes_them_too();
    void the_keyboard_comes_to_what_is_chosen();
    void a_change_lasts_until_the_program_ends();
    void the_sample_follows_columns_and_order_data();
    void the_sample_follows_columns_and_order();
    void changing_the_sample_does_not_print();
    void print_and_preview_take_the_controls_and_leave_it_open();
    void close_takes_the_controls_and_closes();
    void enter_does_not_print();
    void the_type_size_is_the_windows_data();
    void the_type_size_is_the_windows();

private:
    pic_frm& open(ReportOptions options = {}, int type_size = 9);
    template <typename Control> Control& find(const char* name)
    {
        return *dialog_->findChild<Control*>(QLatin1String(name));
    }
    QRadioButton& radio(const char* name) { return find<QRadioButton>(name); }
    int sample() { return find<QLabel>("Picture1").property("picture").toInt(); }
    QString stored(const char* key) { return window_->pref(QLatin1String(key), velora, reports); }
    static void click(QWidget& control)
    {
        QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(8, control.height() / 2));
    }

    std::unique_ptr<TestWindow> window_;
    std::unique_ptr<Settings> settings_;
    ReportOptions options_;
    std::unique_ptr<pic_frm> dialog_;
};

void tst_print_setup::init()
{
    window_ = std::make_unique<TestWindow>();
    settings_ = std::make_unique<Settings>(window_->environment().settings_file);
}

pic_frm& tst_print_setup::open(ReportOptions options, int type_size)
{
    options_ = options;
    dialog_ = std::make_unique<pic_frm>(options_, *settings_, type_size, nullptr);
    dialog_->open();
    return *dialog_;
}

void tst_print_setup::menu_and_drop_down_open_it_data()
{
    QTest::addColumn<bool>("menu");
    QTest::newRow("menu") << true;
    QTest::newRow("drop-down of the print button") << false;
}

void tst_print_setup::menu_and_drop_down_open_it()
{
    QFETCH(bool, menu);
    frmmain& main = window_->load();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("pic_frm"));
        dialog.findChild<QPushButton*>(QStringLiteral("Command1(2)"))->click();
        QVERIFY(!dialog.isVisible());
    });
    QAction* action = nullptr;
    if (menu)
        action = &main.commands().action(QStringLiteral("mnu_list_prntsetup"));
    else
        action = window_->find<QToolButton>(tool_button(ToolButton::print))->menu()->actions().front();
    QCOMPARE(action->objectName(), menu ? QStringLiteral("mnu_list_prntsetup") : QStringLiteral("PRNT_OPT"));
    QVERIFY(action->isEnabled());
    action->trigger();
    QCOMPARE(script.left(), 0);
}

void tst_print_setup::captions_stand_letter_by_letter()
{
    open();
    QCOMPARE(dialog_->windowTitle(), QStringLiteral("Shopping list print setup options"));
    const std::pair<const char*, const char*> captions[] = {
        {"OptionCol(0)", "One column"},
        {"OptionCol(1)", "Two columns"},
        {"Option2(0)", "Alphabetic by item"},
        {"Option2(1)", "Group by category"},
        {"Option2(2)", "Sort by aisle"},
        {"Check1", "'Buy-it' (active) items only"},
        {"Command1(0)", "PRINT"},
        {"Command1(1)", "PREVIEW"},
        {"Command1(2)", "CLOSE"},
    };
    for (const auto& [name, caption] : captions)
        QCOMPARE(find<QAbstractButton>(name).text(), QLatin1String(caption));
    QStringList sizes;
    for (int i = 0; i < find<QComboBox>("ComboSize").count(); ++i)
        sizes.append(find<QComboBox>("ComboSize").itemText(i));
    QCOMPARE(sizes, (QStringList{QStringLiteral("Small"), QStringLiteral("Medium"), QStringLiteral("Large")}));
    QStringList labels;
    for (const QLabel* label : dialog_->findChildren<QLabel*>())
        labels.append(label->text());
    QVERIFY(labels.contains(QStringLiteral("Type size")));
}

void tst_print_setup::it_opens_on_the_options_data()
{
    QTest::addColumn<int>("sort");
    QTest::addColumn<int>("col_ct");
    QTest::addColumn<int>("active");
    QTest::addColumn<int>("size");
    QTest::newRow("as first installed") << 1 << 2 << 1 << 0;
    QTest::newRow("plain") << 0 << 1 << 0 << 1;
    QTest::newRow("by aisle, large") << 2 << 1 << 1 << 2;
    QTest::newRow("not one column counts as two") << 2 << 7 << 0 << 2;
}

void tst_print_setup::it_opens_on_the_options()
{
    QFETCH(int, sort);
    QFETCH(int, col_ct);
    QFETCH(int, active);
    QFETCH(int, size);
    open({report_sort_of(static_cast<Key>(sort)), static_cast<Key>(col_ct), static_cast<Key>(active),
          static_cast<Key>(size)});
    for (int i = 0; i < 3; ++i)
        QCOMPARE(radio(qPrintable(QStringLiteral("Option2(%1)").arg(i))).isChecked(), i == sort);
    QCOMPARE(radio("OptionCol(0)").isChecked(), col_ct == 1);
    QCOMPARE(radio("OptionCol(1)").isChecked(), col_ct != 1);
    QCOMPARE(find<QComboBox>("ComboSize").currentIndex(), size);
    QCOMPARE(find<QCheckBox>("Check1").isChecked(), active == 1);
}

void tst_print_setup::numbers_of_a_damaged_setting_choose_nothing()
{
    open({report_sort_of(-3), 2, 0, 12});
    for (const char* name : {"Option2(0)", "Option2(1)", "Option2(2)"})
        QVERIFY(!radio(name).isChecked());
    QCOMPARE(find<QComboBox>("ComboSize").currentIndex(), -1);
    click(find<QPushButton>("Command1(2)"));
    QCOMPARE(options_.sort, std::nullopt);
    QCOMPARE(options_.size, Key{12});
}

void tst_print_setup::opening_writes_no_setting()
{
    open({ReportSort::by_aisle, 1, 0, 2});
    for (const char* key : {"sort", "col_ct", "active", "size"})
        QCOMPARE(stored(key), QStringLiteral("(none)"));
}

void tst_print_setup::each_change_counts_at_once_in_memory_and_under_velora()
{
    settings_->set_reg();
    open();
    click(radio("Option2(2)"));
    QCOMPARE(options_.sort, ReportSort::by_aisle);
    QCOMPARE(stored("sort"), QStringLiteral("2"));
    click(radio("OptionCol(0)"));
    QCOMPARE(options_.col_ct, Key{1});
    QCOMPARE(stored("col_ct"), QStringLiteral("1"));
    find<QComboBox>("ComboSize").setCurrentIndex(2);
    QCOMPARE(options_.size, Key{2});
    QCOMPARE(stored("size"), QStringLiteral("2"));
    click(find<QCheckBox>("Check1"));
    QCOMPARE(options_.active, Key{0});
    QCOMPARE(stored("active"), QStringLiteral("0"));
    const QString main_store = QStringLiteral("trnwck");
    QCOMPARE(window_->pref(QStringLiteral("sort"), main_store, reports), QStringLiteral("1"));
    QCOMPARE(window_->pref(QStringLiteral("col_ct"), main_store, reports), QStringLiteral("2"));
    QCOMPARE(window_->pref(QStringLiteral("size"), main_store, reports), QStringLiteral("0"));
    QCOMPARE(window_->pref(QStringLiteral("active"), main_store, reports), QStringLiteral("1"));
}

void tst_print_setup::the_keyboard_changes_them_too()
{
    open();
    dialog_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
    radio("Option2(1)").setFocus();
    QTest::keyClick(&radio("Option2(1)"), Qt::Key_Down);
    QCOMPARE(options_.sort, ReportSort::by_aisle);
    QCOMPARE(stored("sort"), QStringLiteral("2"));
}

void tst_print_setup::the_keyboard_comes_to_what_is_chosen()
{
    ReportOptions options;
    options.col_ct = 2;
    options.sort = ReportSort::by_aisle;
    open(options);
    QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
    QVERIFY(radio("OptionCol(1)").hasFocus());
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
    QVERIFY(radio("Option2(2)").hasFocus());
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Up);
    QVERIFY(radio("Option2(1)").isChecked());
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Backtab);
    QVERIFY(radio("OptionCol(1)").hasFocus());
    QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
    QVERIFY(radio("Option2(1)").hasFocus());
}

void tst_print_setup::a_change_lasts_until_the_program_ends()
{
    frmmain& first = window_->load();
    MessageScript script;
    const auto change = [](QDialog& dialog) {
        auto* by_aisle = dialog.findChild<QRadioButton*>(QStringLiteral("Option2(2)"));
        click(*by_aisle);
        dialog.reject();
    };
    script.drive(change);
    first.commands().run(QStringLiteral("mnu_list_prntsetup"));
    QCOMPARE(first.output().reports().sort, ReportSort::by_aisle);
    script.drive([](QDialog& dialog) {
        QVERIFY(dialog.findChild<QRadioButton*>(QStringLiteral("Option2(2)"))->isChecked());
        dialog.reject();
    });
    first.commands().run(QStringLiteral("mnu_list_prntsetup"));
    QCOMPARE(window_->load().output().reports().sort, ReportSort::by_category);
}

void tst_print_setup::the_sample_follows_columns_and_order_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("sort");
    QTest::addColumn<int>("picture");
    for (int sort = 0; sort < 3; ++sort) {
        QTest::addRow("one column, order %d", sort) << 1 << sort << (sort == 1 ? 139 : 138);
        QTest::addRow("two columns, order %d", sort) << 2 << sort << (sort == 1 ? 141 : 140);
    }
}

void tst_print_setup::the_sample_follows_columns_and_order()
{
    QFETCH(int, columns);
    QFETCH(int, sort);
    QFETCH(int, picture);
    open({report_sort_of(static_cast<Key>(sort)), static_cast<Key>(columns), 1, 0});
    QCOMPARE(sample(), picture);
    QVERIFY(!find<QLabel>("Picture1").pixmap(Qt::ReturnByValue).isNull());

    open({sort == 0 ? ReportSort::by_category : ReportSort::by_item, static_cast<Key>(columns == 1 ? 2 : 1), 1, 0});
    click(radio(qPrintable(QStringLiteral("OptionCol(%1)").arg(columns - 1))));
    click(radio(qPrintable(QStringLiteral("Option2(%1)").arg(sort))));
    QCOMPARE(sample(), picture);
}

void tst_print_setup::changing_the_sample_does_not_print()
{
    open();
    const QSignalSpy printed(dialog_.get(), &pic_frm::print_wanted);
    for (const char* name : {"OptionCol(0)", "OptionCol(1)", "Option2(0)", "Option2(1)", "Option2(2)"})
        click(radio(name));
    QCOMPARE(printed.count(), 0);
}

void tst_print_setup::print_and_preview_take_the_controls_and_leave_it_open()
{
    open();
    QSignalSpy printed(dialog_.get(), &pic_frm::print_wanted);
    options_ = {ReportSort::by_item, 1, 0, 0}; // behind the dialog's back
    click(find<QPushButton>("Command1(0)"));
    QCOMPARE(printed.takeFirst().at(0).toBool(), false);
    QCOMPARE(options_.sort, ReportSort::by_category);
    QCOMPARE(options_.col_ct, Key{2});
    QCOMPARE(options_.active, Key{1});
    click(find<QPushButton>("Command1(1)"));
    QCOMPARE(printed.takeFirst().at(0).toBool(), true);
    QVERIFY(dialog_->isVisible());
}

void tst_print_setup::close_takes_the_controls_and_closes()
{
    open();
    const QSignalSpy printed(dialog_.get(), &pic_frm::print_wanted);
    options_ = {ReportSort::by_item, 1, 0, 0}; // behind the dialog's back
    click(find<QPushButton>("Command1(2)"));
    QVERIFY(!dialog_->isVisible());
    QCOMPARE(options_.sort, ReportSort::by_category);
    QCOMPARE(options_.col_ct, Key{2});
    QCOMPARE(options_.active, Key{1});
    QCOMPARE(printed.count(), 0);
}

void tst_print_setup::enter_does_not_print()
{
    open();
    const QSignalSpy printed(dialog_.get(), &pic_frm::print_wanted);
    dialog_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
    QTest::keyClick(&radio("OptionCol(0)"), Qt::Key_Return);
    QCOMPARE(printed.count(), 0);
    QVERIFY(dialog_->isVisible());
}

void tst_print_setup::the_type_size_is_the_windows_data()
{
    QTest::addColumn<int>("type_size");
    QTest::addColumn<int>("points");
    QTest::newRow("small") << 9 << 9;
    QTest::newRow("medium") << 10 << 10;
    QTest::newRow("large") << 12 << 12;
    QTest::newRow("a damaged setting") << 400 << 9;
}

void tst_print_setup::the_type_size_is_the_windows()
{
    QFETCH(int, type_size);
    QFETCH(int, points);
    open({}, type_size);
    for (const char* name : {"OptionCol(0)", "Option2(2)", "Check1", "Command1(0)", "ComboSize"})
        QCOMPARE(find<QWidget>(name).font().pointSize(), points);
}

QTEST_MAIN(tst_print_setup)
#include "tst_print_setup.moc"
