#pragma once

#include "recipes/ingredients.h"
#include "recipes/line_editor.h"
#include "recipes/pick_list.h"
#include "recipes/recipe_lines.h"
#include "recipes/recipe_fixture.h"
#include "support/shown_things.h"

#include <QAbstractButton>
#include <QApplication>

namespace tarnwick {

/// The main window on the page of one recipe, with the hands of a user on its lines and their editor.
class LineWindow : public RecipeWindow {
public:
    LineWindow()
        : recipe(add_recipe(QStringLiteral("Soup"), QStringLiteral("11")))
    {
        set_pref(QStringLiteral("arcp"), QString::number(recipe));
    }

    void open(QSize size = {1000, 700})
    {
        load(size);
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
        QVERIFY(page().frame4().isVisible());
        QVERIFY(page().has_recipe());
    }

    LineEditor& editor() { return page().line_editor(); }
    PickList& list() { return *find<PickList>(QStringLiteral("ListIngred")); }
    QLineEdit& qty() { return box("Qty"); }
    QLineEdit& measure() { return box("Measure"); }
    QLineEdit& item() { return box("Item"); }
    QLineEdit& desc() { return box("Desc"); }
    QLineEdit& box(const char* name)
    {
        return *find<QLineEdit>(QStringLiteral("ing_flt_txt") + QLatin1String(name));
    }
    QAbstractButton& button(const char* name)
    {
        return *page().frame3().findChild<QAbstractButton*>(QLatin1String(name));
    }
    IngredientLine& line(int i) { return page().lines().at(static_cast<size_t>(i)); }
    /// The pictures of a line as they are on the page colour 0.
    int light(int i) { return picture_of(*line(i).lite) - main().shared.color_index; }
    int check(int i) { return picture_of(*line(i).Check1) - main().shared.color_index; }
    int lines() { return page().recipe_lines().count(); }

    void click_line(int i, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(line(i).ingred, button, {}, QPoint(5, 5));
    }

    void open_line(int i)
    {
        click_line(i);
        QVERIFY(editor().is_open());
        QCOMPARE(editor().index(), i);
        QVERIFY(qty().hasFocus());
    }

    /// The control that has the focus once the window is the active one again after a message.
    QWidget* focused_after_message()
    {
        main().activateWindow();
        return QTest::qWaitForWindowActive(&main()) ? QApplication::focusWidget() : nullptr;
    }

    /// Ends the edit as a click into the instructions does.
    void click_text() { QTest::mouseClick(Text1().viewport(), Qt::LeftButton, {}, QPoint(20, 5)); }

    void click_row(int row)
    {
        const QModelIndex index = list().model()->index(row, 0);
        list().scrollTo(index);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(index).center());
    }

    /// Types a text in place of a box's own.
    static void type(QLineEdit& box, const QString& text)
    {
        QVERIFY(box.hasFocus());
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }

    static void tab(QWidget& control) { QTest::keyClick(&control, Qt::Key_Tab); }

    /// A field of a line as it is stored, not trimmed.
    QString stored(Key key, const char* field)
    {
        const std::string sql = std::string("SELECT ") + field + " FROM recipe_2 WHERE key_id = ?";
        Query query(db(), sql, key);
        return query.next() ? query.text(0) : QStringLiteral("(no row)");
    }

    static bool is_red_italic(const QLineEdit& box)
    {
        return box.palette().color(QPalette::Text) == QColor(255, 0, 0) && box.font().italic();
    }
    static bool is_black_upright(const QLineEdit& box)
    {
        return box.palette().color(QPalette::Text) == QColor(Qt::black) && !box.font().italic();
    }

    Key recipe;
};

/// The same with the stock tree, by name, beside the page.
class StockBesidePage : public LineWindow {
public:
    StockBesidePage()
    {
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
        set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    }

    void click_item(Key item)
    {
        TreeView& stock = main().stock_tree().view();
        QTreeWidgetItem* node = stock.node(QStringLiteral("item") + key_str(item));
        QVERIFY(node);
        stock.ensure_visible(node);
        QTest::mouseClick(stock.viewport(), Qt::LeftButton, {}, stock.text_rect(node).center());
    }

    void select_item(Key item)
    {
        click_item(item);
        QCOMPARE(main().stock_tree().view().selected(), main().stock_tree().item_node(item));
    }
};

} // namespace tarnwick
