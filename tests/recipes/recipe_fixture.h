#pragma once

#include "data/keys.h"
#include "data/query.h"
#include "recipes/line_widgets.h"
#include "recipes/page_text.h"
#include "recipes/page_texts.h"
#include "recipes/recipe_page.h"
#include "household/recipe_store.h"
#include "recipes/recipe_tree.h"
#include "window/commands.h"
#include "window/layout.h"
#include "window/status_panels.h"
#include "widgets/tree_view.h"
#include "stock/stock_tree.h"
#include "support/message_script.h"
#include "support/test_window.h"
#include "support/tool_button.h"

#include <QAction>
#include <QFrame>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

namespace tarnwick {

/// The texts of a node's children, in their order.
inline QStringList names_in(const QTreeWidgetItem* node)
{
    QStringList names;
    for (int i = 0; i < node->childCount(); ++i)
        names.append(node->child(i)->text(0));
    return names;
}

/// The key of a recipe's node.
inline QString rcp(Key key)
{
    return QStringLiteral("rcp") + key_str(key);
}

/// What a user is asked before the recipe of this name is deleted.
inline QString deletion_question(const QString& name)
{
    return QStringLiteral("Are you sure you want to \ndelete the ") + name + QStringLiteral(" recipe?");
}

/// The main window with recipes in it, by default on the recipe tree and a recipe page.
class RecipeWindow : public TestWindow {
public:
    RecipeWindow()
    {
        set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("0"));
        set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    }

    Key add_recipe(const QString& name, const QString& cat, const QString& body = QStringLiteral("Stir."))
    {
        const Key key = insert_recipe(db(), name, cat);
        Query(db(), "UPDATE recipe_1 SET r_body = ? WHERE key_id = ?", body, key).run();
        return key;
    }

    Key add_line(Key recipe, const QString& item, Key item_ref = -1, int order = -1,
                 const QString& qty = QStringLiteral(" "), const QString& measure = QStringLiteral(" "),
                 const QString& comment = QStringLiteral(" "))
    {
        const Key key = get_node(db(), Table::recipe_2);
        Query count(db(), "SELECT count(*) FROM recipe_2 WHERE r_ref = ?", recipe);
        count.next();
        Query(db(),
              "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
              " VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
              key, recipe, item_ref, item, qty, measure, comment, order < 0 ? count.number(0) : order)
            .run();
        return key;
    }

    void add_lines(Key recipe, int count)
    {
        Transaction transaction(db());
        for (int i = 0; i < count; ++i)
            add_line(recipe, QStringLiteral("Salt"));
        transaction.commit();
    }

    /// Starts the window on the page of a new recipe.
    Key open_recipe(const QString& name, const QString& cat, const QString& body = QStringLiteral("Stir."))
    {
        const Key key = add_recipe(name, cat, body);
        load();
        page().set_recipe(key);
        return key;
    }

    RecipePage& page() { return main().recipe_page(); }
    TreeView& tree() { return main().recipe_tree().view(); }
    QLineEdit& title() { return page().title(); }
    PageText& Text1() { return page().Text1(); }
    QWidget& control(const QString& name) { return *find<QWidget>(name); }
    QString tag(const QString& name) { return control(name).property("Tag").toString(); }
    QString ingred(int i) { return page().lines().at(static_cast<size_t>(i)).ingred->text(); }
    bool edited() { return page().texts().is_edited(); }

    void click_node(const QString& key, Qt::MouseButton button = Qt::LeftButton)
    {
        QTreeWidgetItem* node = tree().node(key);
        tree().ensure_visible(node);
        QTest::mouseClick(tree().viewport(), button, {}, tree().text_rect(node).center());
    }

    void trigger(const QString& command)
    {
        QAction& action = main().commands().action(command);
        QVERIFY2(action.isEnabled(), qPrintable(command + QStringLiteral(" is disabled")));
        action.trigger();
    }

    /// All buttons that print, preview, export and send the page are enabled; or all disabled.
    bool page_buttons_enabled(bool enabled)
    {
        for (const auto which :
             {ToolButton::print, ToolButton::preview, ToolButton::word_processor, ToolButton::email}) {
            if (control(tool_button(which)).isEnabled() != enabled)
                return false;
        }
        return true;
    }

    /// The row of the caret lies in the part of the page that is on show.
    bool caret_is_in_view()
    {
        const int top = Text1().mapTo(&page().frame4(), QPoint(0, Text1().caret_top())).y();
        const int bottom = Text1().mapTo(&page().frame4(), QPoint(0, Text1().caret_bottom())).y();
        return top >= 0 && bottom < page().frame4().height() && Text1().verticalScrollBar()->value() == 0;
    }

    /// Gives the keyboard to a control as a click of the user does.
    void focus(QWidget& control)
    {
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
        QTest::mouseClick(focus_target(control), Qt::LeftButton);
        QTRY_VERIFY(control.hasFocus());
    }

private:
    static QWidget* focus_target(QWidget& control)
    {
        auto* area = qobject_cast<QAbstractScrollArea*>(&control);
        return area ? area->viewport() : &control;
    }
};

} // namespace tarnwick
