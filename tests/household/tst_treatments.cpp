#include "recipes/recipe_fixture.h"
#include "stock/item_editor_fixture.h"

#include "household/household.h"
#include "household/status.h"
#include "lists/placing.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"
#include "window/view_state.h"

using namespace tarnwick;

namespace {

constexpr int box_in_folder = 49; ///< the middle of an item's check box, pixels in the tree

/// Milk in a closed folder and on two lists, Weekly on show; a recipe with two lines of it and one of bread. The
/// marks are such that the plain code and the computed one differ.
class Window : public RecipeWindow {
public:
    explicit Window(Cause changed_by)
        : cause(changed_by)
        , dairy(add_category(QStringLiteral("Dairy")))
        , milk(add_item(QStringLiteral("Milk"), dairy))
        , weekly(add_list(QStringLiteral("Weekly")))
        , camping(add_list(QStringLiteral("Camping")))
    {
        const bool marked = cause != Cause::page_box;
        if (cause != Cause::placing)
            row = add_row(milk, weekly, marked);
        add_row(milk, camping, marked);
        Query(db(), "UPDATE items_1 SET status = ?, to_get = ?", marked ? 7 : 6, cause != Cause::placing).run();
        const Key recipe = add_recipe(QStringLiteral("Cake"), QStringLiteral("11"));
        add_line(recipe, QStringLiteral("Milk"), milk);
        add_line(recipe, QStringLiteral("Bread"), add_item(QStringLiteral("Bread"), dairy));
        add_line(recipe, QStringLiteral("Whole milk"), milk);
        set_pref(QStringLiteral("arcp"), QString::number(recipe));
        set_pref(QStringLiteral("alist"), QString::number(weekly));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    }

    /// The page has been on show; the list is in front unless the cause is the page's own.
    void open(bool selected)
    {
        load();
        main().view_state().show_list_pane(cause != Cause::page_box);
        QTRY_VERIFY(main().isActiveWindow());
        QVERIFY(page().has_recipe());
        if (selected)
            main().stock_tree().view().select(node());
        main().set_status(untouched);
    }

    QTreeWidgetItem* node() { return main().stock_tree().item_node(milk); }
    ListGrid& grid() { return main().list_pane().grid(); }
    GridModel& rows() { return grid().rows(); }

    void click_grid_box()
    {
        const QRect cell = grid().cell_rect(rows().find_row(row), GridColumn::check);
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().viewport()->mapFrom(grid().parentWidget(), cell.center()));
    }

    void click_tree_box()
    {
        TreeView& stock = main().stock_tree().view();
        stock.ensure_visible(node());
        QTest::mouseClick(stock.viewport(), Qt::LeftButton, {},
                          {box_in_folder, stock.text_rect(node()).center().y()});
    }

    void edit_item()
    {
        main().list_pane().set_row(row);
        MessageScript script;
        script.drive([&](QDialog& dialog) {
            EditorHands hands(dialog, script);
            hands.click_cell(0, GridColumn::check);
            hands.press_ok();
        });
        show_item_editor(main().program(), {EditMode::edit_item, milk, -1, row});
        QCOMPARE(script.left(), 0);
    }

    void act()
    {
        switch (cause) {
        case Cause::placing:
            main().placing().stock_to_list(milk);
            break;
        case Cause::grid_box:
            click_grid_box();
            break;
        case Cause::tree_box:
            click_tree_box();
            break;
        case Cause::row_removal:
            main().list_pane().set_row(row);
            grid().setFocus();
            QTest::keyClick(&grid(), Qt::Key_Delete);
            break;
        case Cause::clearing:
            main().household().clear_list(weekly, ClearMode::uncheck);
            break;
        case Cause::page_box:
            QTest::mouseClick(&control(QStringLiteral("Check1(0)")), Qt::LeftButton);
            break;
        case Cause::item_editor:
            edit_item();
            break;
        case Cause::item_rename:
            rename();
            break;
        case Cause::item_move:
            main().household().move_item(milk, 0);
            break;
        }
    }

    /// In the tree by keys when the node is selected.
    void rename()
    {
        const QString name = QStringLiteral("MILK");
        TreeView& stock = main().stock_tree().view();
        if (stock.selected() != node()) {
            main().household().rename_item(milk, name);
            return;
        }
        MessageScript script;
        script.expect(QStringLiteral("Quendary notice"),
                      QStringLiteral("'Milk' appears on the following list(s):\nWeekly\nCamping\n\n"
                                     "Changing the item to 'MILK'\nwill change it on the list(s) too"));
        QTest::keyClick(&stock, Qt::Key_F2);
        auto* editor = stock.findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->setText(name);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(script.left(), 0);
    }

    bool untouched_marks() const { return treatment_of(cause).row_mark == RowMark::untouched; }

    int light(const char* name, int line)
    {
        return control(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(line)).property("picture").toInt()
            - main().shared.color_index;
    }

    QString tool_tip(int line) { return control(QStringLiteral("ingred(%1)").arg(line)).toolTip(); }
    /// Those of the current row's item; none of the tree has been selected.
    QString words_of_current()
    {
        const int current = grid().current_row();
        return current < 0 ? QString() : get_status(db(), rows().row(current).item_key);
    }
    QString panel() { return control(QStringLiteral("StatusBar1(1)")).toolTip(); }

    /// The mark that the act set: placing and page set it, the others take it away.
    bool mark() const { return cause == Cause::placing || cause == Cause::page_box; }

    /// A code that the table leaves untouched is what it was.
    StatusCode code(Code kind, StatusCode computed, StatusCode before) const
    {
        return code_of(kind, computed, mark()).value_or(before);
    }

    const QString untouched = QStringLiteral("untouched");
    const Cause cause;
    const Key dairy;
    const Key milk;
    const Key weekly;
    const Key camping;
    Key row = 0;
};

const char* name_of(Cause cause)
{
    static const char* const names[] = {"placing",  "grid box",    "tree box",    "row removal", "clearing",
                                        "page box", "item editor", "item rename", "item move"};
    return names[static_cast<size_t>(cause)];
}

} // namespace

/// Drives every cause on the real window and holds what is stored and shown against the table of treatments.
class tst_treatments : public QObject {
    Q_OBJECT
private slots:
    void list_row_and_flag_are_as_the_table_says_data() { causes(); }
    void list_row_and_flag_are_as_the_table_says();
    void codes_and_words_are_as_the_table_says_data() { causes(); }
    void codes_and_words_are_as_the_table_says();
    void grid_row_is_as_the_table_says_data() { causes(); }
    void grid_row_is_as_the_table_says();
    void page_without_the_item_stays_as_it_is();
    void picture_and_tag_of_a_placed_item_lead_the_next_click();

private:
    static void causes();
};

void tst_treatments::causes()
{
    QTest::addColumn<int>("cause");
    QTest::addColumn<bool>("selected");
    for (const Treatment& treatment : treatments)
        for (const bool selected : {false, true})
            QTest::addRow("%s, %s", name_of(treatment.cause), selected ? "selected" : "not selected")
                << static_cast<int>(treatment.cause) << selected;
}

void tst_treatments::list_row_and_flag_are_as_the_table_says()
{
    QFETCH(int, cause);
    QFETCH(bool, selected);
    const Treatment& treatment = treatment_of(static_cast<Cause>(cause));
    Window window(treatment.cause);
    window.open(selected);
    const int flag = window.number("SELECT to_get FROM items_1 WHERE item COLLATE NOCASE = 'Milk'");
    window.act();

    const int on_weekly = window.number("SELECT count(*) FROM tie WHERE item_id = 1 AND list = 1");
    const int weekly_mark
        = window.number("SELECT sum(g.to_get) FROM groc_1 g, tie t WHERE t.groc_id = g.key_id AND t.list = 1");
    const int camping_mark
        = window.number("SELECT g.to_get FROM groc_1 g, tie t WHERE t.groc_id = g.key_id AND t.list = 2");
    QCOMPARE(on_weekly, treatment.row_mark == RowMark::row_gone ? 0 : 1);
    const int mark = window.untouched_marks() || window.mark() ? 1 : 0;
    QCOMPARE(weekly_mark, treatment.row_mark == RowMark::row_gone ? 0 : mark);
    QCOMPARE(camping_mark, 1); // also when the page marked it along

    int expected_flag = flag;
    if (treatment.item_flag == ItemFlag::given)
        expected_flag = 1;
    else if (treatment.item_flag == ItemFlag::cleared)
        expected_flag = 0;
    QCOMPARE(window.number("SELECT to_get FROM items_1 WHERE item COLLATE NOCASE = 'Milk'"), expected_flag);
}

void tst_treatments::codes_and_words_are_as_the_table_says()
{
    QFETCH(int, cause);
    QFETCH(bool, selected);
    const Treatment& treatment = treatment_of(static_cast<Cause>(cause));
    Window window(treatment.cause);
    window.open(selected);
    QVERIFY(!window.node()->parent()->isExpanded() || selected || treatment.cause == Cause::tree_box);
    window.act();

    const StatusCode computed = lite_status(window.db(), window.milk);
    QVERIFY(computed != plain_code(window.mark())); // or the two would not be told apart
    const StatusCode before = treatment.cause == Cause::page_box ? StatusCode::inactive : StatusCode::buy_it;
    QCOMPARE(window.number("SELECT status FROM items_1 WHERE item COLLATE NOCASE = 'Milk'"),
             code_number(window.code(treatment.stored, computed, before)));

    const int node = code_number(window.code(treatment.node, computed, before));
    QCOMPARE(TreeView::picture(window.node()), node);
    QCOMPARE(TreeView::tag(window.node()), QString::number(node));
    if (treatment.node_shown)
        QVERIFY(window.node()->parent()->isExpanded());

    const StatusPictures pictures = status_pictures(window.code(treatment.page, computed, computed));
    const QString words = get_status(window.db(), window.milk);
    const bool by_name = treatment.tool_tip == LineTip::by_name;
    if (by_name) {
        QCOMPARE(window.light("lite", 2), int(picture_base::light_non_stock));
        QCOMPARE(window.tool_tip(2), QStringLiteral("Whole milk :: Not listed"));
    }
    for (const int line : {0, by_name ? 0 : 2}) {
        QCOMPARE(window.light("lite", line), pictures.light);
        QCOMPARE(window.light("Check1", line), pictures.check);
        QString tip = words;
        if (treatment.tool_tip == LineTip::name_and_words)
            tip = get_ttt(window.db(), window.milk);
        else if (treatment.tool_tip == LineTip::line_and_words)
            tip = (line == 0 ? QStringLiteral("Milk - ") : QStringLiteral("Whole milk - ")) + words;
        else if (by_name)
            tip = QStringLiteral(" - ") + words;
        QCOMPARE(window.tool_tip(line), tip);
    }
    QCOMPARE(window.light("lite", 1), int(picture_base::light_unlisted));

    if (treatment.words == PanelWords::current && !selected)
        QCOMPARE(window.panel(), window.words_of_current());
    else if (treatment.words == PanelWords::if_selected && !selected)
        QCOMPARE(window.panel(), window.untouched);
    else
        QCOMPARE(window.panel(), words);
}

void tst_treatments::grid_row_is_as_the_table_says()
{
    QFETCH(int, cause);
    QFETCH(bool, selected);
    const Treatment& treatment = treatment_of(static_cast<Cause>(cause));
    Window window(treatment.cause);
    const Key other = window.add_row(2, window.weekly, false); // bread stands before milk
    window.open(selected);
    window.main().list_pane().set_row(other);
    window.act();

    const bool gone = treatment.row_mark == RowMark::row_gone;
    QCOMPARE(window.rows().rows(), gone ? 1 : 2);
    QCOMPARE(window.rows().row(0).groc_key, other);
    QVERIFY(!window.rows().row(0).to_get);
    if (gone)
        return;
    const GridRow& row = window.rows().row(1);
    QCOMPARE(row.item_key, window.milk);
    const bool mark = window.untouched_marks() || window.mark();
    QCOMPARE(row.to_get, mark);
    QCOMPARE(row.light, mark ? int(picture_base::light_on) : int(picture_base::light_off));
    QCOMPARE(row.check, mark ? int(picture_base::check_on) : int(picture_base::check_off));
    if (treatment.grid == GridMarks::go_to_row || treatment.grid == GridMarks::go_to_first)
        QCOMPARE(window.grid().current_row(), 1);
}

void tst_treatments::page_without_the_item_stays_as_it_is()
{
    Window window(Cause::grid_box);
    Query(window.db(), "UPDATE recipe_2 SET item_ref = -1").run();
    window.open(false);
    window.act();
    for (const int line : {0, 1, 2}) {
        QCOMPARE(window.light("lite", line), int(picture_base::light_non_stock));
        QCOMPARE(window.tool_tip(line), QStringLiteral("Non-stock item"));
    }
}

/// A fresh placing that is clicked again is not placed a second time: the Tag has followed the picture.
void tst_treatments::picture_and_tag_of_a_placed_item_lead_the_next_click()
{
    Window window(Cause::placing);
    Query(window.db(), "DELETE FROM tie").run();
    Query(window.db(), "UPDATE items_1 SET status = 5").run();
    window.open(false);
    const MessageScript no_question;
    window.click_tree_box();
    QCOMPARE(window.rows().rows(), 1);
    QVERIFY(window.rows().row(0).to_get);
    window.click_tree_box();
    QCOMPARE(window.rows().rows(), 1);
    QVERIFY(!window.rows().row(0).to_get);
    QCOMPARE(TreeView::tag(window.node()), QStringLiteral("6"));
}

QTEST_MAIN(tst_treatments)
#include "tst_treatments.moc"
