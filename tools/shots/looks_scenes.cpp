#include "shots/looks_scenes.h"

#include "shots/studio.h"

#include "household/grid_row.h"
#include "lists/list_pane.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "stock/stock_tree.h"
#include "widgets/list_grid.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"

#include <QDialog>
#include <QLineEdit>
#include <QTest>

namespace tarnwick::shots {
namespace {

using Prefs = QHash<QString, QString>;

constexpr QSize narrow(560, 480);
constexpr QSize usual(1024, 720);
constexpr QSize large(1600, 900);
constexpr QSize wide(2560, 900);

class LooksScenes {
public:
    LooksScenes(Studio& studio, int points)
        : studio_(studio)
        , points_(points)
    {
    }

    void keyboard_places();
    void long_numbers();
    void empty_list();
    void narrow_and_wide();

private:
    ListGrid& grid() { return studio_.main().list_pane().grid(); }
    void start(bool stock, bool list, const char* separator = nullptr, QSize size = {1120, 720});
    void shot(const char* name) { studio_.shot(QStringLiteral("%1-%2pt").arg(QLatin1String(name)).arg(points_)); }
    void click_cell(int row, GridColumn column);
    void type(const char* box, const QString& text);

    Studio& studio_;
    int points_;
};

void LooksScenes::start(bool stock, bool list, const char* separator, QSize size)
{
    Prefs prefs{{QStringLiteral("font"), QString::number(points_)},
                {QStringLiteral("alist"), QStringLiteral("1")},
                {QStringLiteral("arcp"), QStringLiteral("1")},
                {QStringLiteral("tv_view"), stock ? QStringLiteral("1") : QStringLiteral("0")},
                {QStringLiteral("lv_view"), list ? QStringLiteral("1") : QStringLiteral("0")}};
    if (separator)
        prefs.insert(QStringLiteral("seprtr"), QLatin1String(separator));
    studio_.start(prefs, size);
}

void LooksScenes::click_cell(int row, GridColumn column)
{
    const QPoint middle = grid().cell_rect(row, column).center();
    studio_.click(grid().viewport(), grid().viewport()->mapFrom(grid().parentWidget(), middle));
}

void LooksScenes::type(const char* box, const QString& text)
{
    auto* edit = qobject_cast<QLineEdit*>(studio_.visible_child(QLatin1String(box)));
    if (!edit)
        return;
    studio_.click(edit);
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

void LooksScenes::keyboard_places()
{
    start(true, true);
    grid().set_current(3, GridColumn::item);
    grid().setFocus();
    shot("current-row-with-the-keyboard");
    studio_.main().visible_tree().setFocus();
    shot("current-row-without-the-keyboard");
    start(false, false);
    const auto& lines = studio_.main().recipe_page().lines();
    if (lines.size() < 3)
        return studio_.fault(QStringLiteral("the recipe has not that many lines"));
    lines[2].ingred->setFocus();
    shot("line-with-the-keyboard");
}

void LooksScenes::long_numbers()
{
    start(true, true);
    click_cell(1, GridColumn::desc);
    type("qty_brdr", QStringLiteral("1234567 grams"));
    type("aisle_brdr", QStringLiteral("123456"));
    click_cell(2, GridColumn::desc);
    type("qty_brdr", QStringLiteral("1 1/2 pounds"));
    type("aisle_brdr", QStringLiteral("12A-14"));
    shot("long-number-being-typed");
    click_cell(1, GridColumn::desc);
    shot("long-numbers-open");
    click_cell(4, GridColumn::desc);
    shot("long-numbers-closed");
}

void LooksScenes::empty_list()
{
    start(true, true);
    studio_.with_dialog([&] { studio_.command(QStringLiteral("mnu_list_new")); },
                        [&](QDialog& dialog) {
                            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"));
                            QTest::keyClicks(name, QStringLiteral("Picnic"));
                            QTest::keyClick(name, Qt::Key_Return);
                        });
    shot("empty-list");
    studio_.main().resize(narrow);
    shot("empty-list-narrow");
    studio_.use_empty_folder();
    studio_.start({{QStringLiteral("font"), QString::number(points_)}}, narrow);
    shot("empty-narrow");
    studio_.use_household();
}

void LooksScenes::narrow_and_wide()
{
    constexpr const char* least_separator = "2400";
    start(true, true, least_separator);
    shot("least-tree");
    start(true, true, nullptr, wide);
    shot("wide-list");
    click_cell(2, GridColumn::desc);
    shot("wide-list-row-open");
    start(false, false, nullptr, wide);
    shot("wide-page");
    start(true, true, nullptr, usual);
    shot("usual-list");
    start(false, false, nullptr, usual);
    shot("usual-page");
    start(true, true, nullptr, large);
    shot("large-list");
    start(false, false, nullptr, large);
    shot("large-page");
}

} // namespace

void looks_scenes(Studio& studio, int points)
{
    LooksScenes scenes(studio, points);
    scenes.keyboard_places();
    scenes.long_numbers();
    scenes.empty_list();
    scenes.narrow_and_wide();
}

} // namespace tarnwick::shots
