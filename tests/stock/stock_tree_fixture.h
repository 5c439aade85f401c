#pragma once

#include "window/frmmain.h"
#include "data/query.h"
#include "household/household.h"
#include "window/commands.h"
#include "window/status_panels.h"
#include "widgets/tree_view.h"
#include "stock/floating_buttons.h"
#include "stock/stock_tree.h"
#include "support/menu_hands.h"
#include "support/test_window.h"

#include <QAction>
#include <QObject>
#include <QTest>
#include <QToolButton>

namespace tarnwick {

/// The window on a small stock, "Milk" and "Butter" in the open folder "Dairy", and two lists without rows.
class StockTreeTest : public QObject {
protected:
    static constexpr int box_in_folder = 49; ///< the middle of an item's check box, pixels in the tree

    void set_up();
    void tear_down() { window_.reset(); }

    TreeView& tree() { return window_->main().stock_tree().view(); }
    QTreeWidgetItem* node(Key item) { return tree().node(QStringLiteral("item") + key_str(item)); }
    QToolButton& button(int index) { return window_->main().floating_buttons().button(index); }
    const Commands& commands() { return window_->main().commands(); }
    QString caption(const char* name) { return commands().caption(QLatin1String(name)); }
    bool enabled(const char* name) { return commands().action(QLatin1String(name)).isEnabled(); }
    bool visible(const char* name) { return commands().action(QLatin1String(name)).isVisible(); }
    QString status() { return window_->main().status_panels().text(); }
    int number(const char* sql) { return window_->number(sql); }
    const SharedValues& shared() { return window_->main().shared; }

    void load();
    void load_flat();
    /// The window with a recipe on show whose only line is this item.
    void load_recipe_of(Key item);
    /// A new stock item in the folder "Dairy", on no list.
    Key add_item(const QString& name);
    QPoint point(const QTreeWidgetItem* of, int x) { return {x, tree().text_rect(of).center().y()}; }
    void click(const QTreeWidgetItem* on, int x = 200, Qt::MouseButton with = Qt::LeftButton);

    std::unique_ptr<TestWindow> window_;
    Key dairy_ = 0;
    Key produce_ = 0;
    Key milk_ = 0;
    Key butter_ = 0;
    Key home_ = 0;
    Key party_ = 0;
};

inline Key StockTreeTest::add_item(const QString& name)
{
    ItemEdit edit;
    edit.name = name;
    edit.category = dairy_;
    return window_->main().household().save_item(edit);
}

inline void StockTreeTest::set_up()
{
    window_ = std::make_unique<TestWindow>();
    produce_ = window_->add_category(QStringLiteral("Produce"));
    dairy_ = window_->add_category(QStringLiteral("Dairy"), true);
    milk_ = window_->add_item(QStringLiteral("Milk"), dairy_);
    butter_ = window_->add_item(QStringLiteral("Butter"), dairy_);
    home_ = window_->add_list(QStringLiteral("Home"));
    party_ = window_->add_list(QStringLiteral("Party"));
    window_->set_pref(QStringLiteral("alist"), QString::number(home_));
}

inline void StockTreeTest::load()
{
    window_->load();
    window_->main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window_->main()));
    tree().setFocus();
}

inline void StockTreeTest::load_flat()
{
    window_->set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    load();
}

inline void StockTreeTest::load_recipe_of(Key item)
{
    Query(window_->db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Pancakes', ' ', '13')")
        .run();
    Query(window_->db(),
          "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
          " SELECT 1, 1, key_id, item, ' ', ' ', ' ', 0 FROM items_1 WHERE key_id = ?",
          item)
        .run();
    window_->set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    window_->set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    load();
    QVERIFY(!shared().list_pane_shown);
}

inline void StockTreeTest::click(const QTreeWidgetItem* on, int x, Qt::MouseButton with)
{
    QVERIFY(on);
    QTest::mouseClick(tree().viewport(), with, {}, point(on, x));
}

} // namespace tarnwick
