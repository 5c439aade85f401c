#include "recipes/recipe_fixture.h"

#include "lists/clearing.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "window/view_state.h"
#include "household/status.h"

using namespace tarnwick;

namespace {

/// A recipe of milk, eggs, salt and a line without stock. Milk is to buy on Weekly, which is on show, and on
/// Party; eggs stand on Weekly, not to buy; salt is to buy on Party alone.
class LightsWindow : public RecipeWindow {
public:
    LightsWindow()
        : weekly(add_list(QStringLiteral("Weekly")))
        , party(add_list(QStringLiteral("Party")))
        , milk(add_item(QStringLiteral("Milk"), 0, 8))
        , milk_row(add_row(milk, weekly, true))
        , eggs_row(add_row(add_item(QStringLiteral("Eggs"), 0, 6), weekly, false))
    {
        const Key recipe = add_recipe(QStringLiteral("Cake"), QStringLiteral("11"));
        add_row(milk, party, true);
        add_row(add_item(QStringLiteral("Salt"), 0, 7), party, true);
        Key item = milk;
        for (const char* name : {"Milk", "Eggs", "Salt"})
            add_line(recipe, QLatin1String(name), item++);
        add_line(recipe, QStringLiteral("Water"));
        set_pref(QStringLiteral("arcp"), QString::number(recipe));
        set_pref(QStringLiteral("alist"), QString::number(weekly));
    }

    void open(bool list_shown)
    {
        load();
        main().view_state().show_list_pane(list_shown);
        QCOMPARE(main().shared.list_pane_shown, list_shown);
        QVERIFY(page().has_recipe());
        QCOMPARE(codes(), (QList<int>{8, 6, 7, 9}));
    }

    ListGrid& grid() { return main().list_pane().grid(); }

    void click_cell(Key row, GridColumn column)
    {
        const QRect cell = grid().cell_rect(grid().rows().find_row(row), column);
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().viewport()->mapFrom(grid().parentWidget(), cell.center()));
    }

    /// The status codes that light and check box of the lines stand for; 0 where they agree on none.
    QList<int> codes()
    {
        QList<int> found;
        for (int line = 0; line < 4; ++line) {
            int code_found = 0;
            for (const int code : {5, 6, 7, 8, 9}) {
                const StatusPictures pictures = status_pictures(code_of_number(code).value());
                if (shown("lite", line) == pictures.light && shown("Check1", line) == pictures.check)
                    code_found = code;
            }
            found += code_found;
        }
        return found;
    }

    QString tool_tip(int line) { return control(QStringLiteral("ingred(%1)").arg(line)).toolTip(); }

    const Key weekly;
    const Key party;
    const Key milk;
    const Key milk_row;
    const Key eggs_row;

private:
    int shown(const char* name, int line)
    {
        return control(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(line)).property("picture").toInt()
            - main().shared.color_index;
    }
};

} // namespace

/// The lights of the recipe page follow what is done to the lists.
class tst_recipe_lights : public QObject {
    Q_OBJECT
private slots:
    void toggling_buy_it_in_the_grid_redraws_the_line();
    void clearing_redraws_the_lines_with_their_tool_tips_data();
    void clearing_redraws_the_lines_with_their_tool_tips();
    void removing_a_row_redraws_the_line_with_its_tool_tip();
    void deleting_a_list_reloads_the_page();
};

void tst_recipe_lights::toggling_buy_it_in_the_grid_redraws_the_line()
{
    LightsWindow window;
    window.open(true);
    window.click_cell(window.eggs_row, GridColumn::check);
    QCOMPARE(window.number("SELECT to_get FROM groc_1 WHERE item = 'Eggs'"), 1);
    QCOMPARE(window.codes(), (QList<int>{8, 7, 7, 9}));
    window.click_cell(window.eggs_row, GridColumn::check);
    QCOMPARE(window.codes(), (QList<int>{8, 6, 7, 9}));
    // The light tells all lists: milk is still to buy on the other one.
    window.click_cell(window.milk_row, GridColumn::check);
    QCOMPARE(window.codes(), (QList<int>{7, 6, 7, 9}));
    window.main().view_state().show_list_pane(false);
    QCOMPARE(window.codes(), (QList<int>{7, 6, 7, 9}));
    QVERIFY(window.control(QStringLiteral("lite(0)")).isVisible());
}

void tst_recipe_lights::clearing_redraws_the_lines_with_their_tool_tips_data()
{
    QTest::addColumn<ClearMode>("mode");
    QTest::addColumn<QList<int>>("codes");
    QTest::addColumn<QString>("milk");
    QTest::addColumn<QString>("eggs");
    const QString milk = QStringLiteral("Active On Party list :: OTHER category");
    const QString eggs = QStringLiteral("Not listed :: OTHER category");
    QTest::newRow("uncheck") << ClearMode::uncheck << QList<int>{7, 6, 7, 9}
                             << QStringLiteral("Inactive On Weekly list :: ") + milk << QString();
    QTest::newRow("delete unchecked") << ClearMode::delete_unchecked << QList<int>{8, 5, 7, 9} << QString() << eggs;
    QTest::newRow("delete all") << ClearMode::delete_all << QList<int>{7, 5, 7, 9} << milk << eggs;
}

void tst_recipe_lights::clearing_redraws_the_lines_with_their_tool_tips()
{
    QFETCH(ClearMode, mode);
    QFETCH(QList<int>, codes);
    QFETCH(QString, milk);
    QFETCH(QString, eggs);
    for (const bool list_shown : {false, true}) {
        LightsWindow window;
        window.open(list_shown);
        QStringList before;
        for (int line = 0; line < 4; ++line)
            before += window.tool_tip(line);
        MessageScript no_message;
        window.main().clearing().clear_list(mode);
        QCOMPARE(window.codes(), codes);
        // A line whose item was not cleared keeps the words that it had.
        QCOMPARE(window.tool_tip(0), milk.isEmpty() ? before[0] : milk);
        QCOMPARE(window.tool_tip(1), eggs.isEmpty() ? before[1] : eggs);
        QCOMPARE(window.tool_tip(2), before[2]);
        QCOMPARE(window.tool_tip(3), before[3]);
    }
}

void tst_recipe_lights::removing_a_row_redraws_the_line_with_its_tool_tip()
{
    LightsWindow window;
    window.open(true);
    MessageScript no_question;
    window.click_cell(window.eggs_row, GridColumn::light);
    QTest::keyClick(&window.grid(), Qt::Key_Delete);
    QCOMPARE(window.number("SELECT count(*) FROM groc_1 WHERE item = 'Eggs'"), 0);
    QCOMPARE(window.codes(), (QList<int>{8, 5, 7, 9}));
    QCOMPARE(window.tool_tip(1), QStringLiteral("Not listed :: OTHER category"));

    window.main().view_state().show_list_pane(false);
    window.main().clearing().groc_del(window.milk_row);
    QCOMPARE(window.codes(), (QList<int>{7, 5, 7, 9}));
    QCOMPARE(window.tool_tip(0), QStringLiteral("Active On Party list :: OTHER category"));
}

void tst_recipe_lights::deleting_a_list_reloads_the_page()
{
    LightsWindow window;
    window.open(true);
    const auto remove = [&window](const QString& name) {
        MessageScript script;
        script.expect(QStringLiteral("Warning"),
                      QStringLiteral("The ") + name
                          + QStringLiteral(" list has 2 items on it\nAre you sure you want to delete it?"),
                      Answer::yes);
        window.trigger(QStringLiteral("mnu_list_del"));
    };
    remove(QStringLiteral("Weekly"));
    QCOMPARE(window.codes(), (QList<int>{7, 5, 7, 9}));
    QCOMPARE(window.tool_tip(0), QStringLiteral("Milk - Active On Party list :: OTHER category"));
    QCOMPARE(window.tool_tip(1), QStringLiteral("Eggs - Not listed :: OTHER category"));
    remove(QStringLiteral("Party"));
    QCOMPARE(window.number("SELECT count(*) FROM list_name"), 0);
    QCOMPARE(window.codes(), (QList<int>{5, 5, 5, 9}));
    QCOMPARE(window.tool_tip(2), QStringLiteral("Salt - Not listed :: OTHER category"));
}

QTEST_MAIN(tst_recipe_lights)
#include "tst_recipe_lights.moc"
