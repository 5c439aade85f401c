#pragma once

#include "stock/stock_tree_fixture.h"

#include "household/household.h"
#include "household/status.h"
#include "lists/list_pane.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "support/message_script.h"
#include "stock/stock_commands.h"
#include "support/shown_things.h"
#include "support/table_dump.h"
#include "widgets/list_grid.h"

#include <QLineEdit>
#include <QMenu>

namespace tarnwick {

/// The window of `StockTreeTest`, and the hands that tidy its stock.
class TidyingTest : public StockTreeTest {
protected:
    QTreeWidgetItem* folder(Key category) { return tree().node(QStringLiteral("cat") + key_str(category)); }
    QStringList texts_under(QTreeWidgetItem* node);
    QStringList folders() { return texts_under(tree().invisibleRootItem()); }
    GridModel& rows() { return window_->main().list_pane().grid().rows(); }
    QStringList grid_names();
    QString text(const char* sql) { return window_->text(sql); }

    /// A command of the menu bar, or of the pop-up menu of the selected node; it has to be offered.
    void choose(const char* command);
    void press_delete() { QTest::keyClick(&tree(), Qt::Key_Delete); }

    QLineEdit* editor() { return tree().findChild<QLineEdit*>(QStringLiteral("label_edit")); }

    /// Types over the label that is being edited, and ends with this key.
    void type_name(const QString& name, Qt::Key end = Qt::Key_Return);

    /// Selects a node by a click and gives it another name with F2.
    void rename(QTreeWidgetItem* of, const QString& name);

    // The recipe page.
    void add_line(Key line, const QString& name, Key item);
    const IngredientLine& line(int index)
    {
        return window_->main().recipe_page().lines().at(static_cast<size_t>(index));
    }
    int light(int index) { return picture_of(*line(index).lite) - shared().color_index; }
};

inline QStringList TidyingTest::texts_under(QTreeWidgetItem* node)
{
    QStringList texts;
    for (int i = 0; i < node->childCount(); ++i)
        texts += node->child(i)->text(0);
    return texts;
}

inline QStringList TidyingTest::grid_names()
{
    QStringList names;
    for (const GridRow& row : rows().list_rows())
        names += row.item;
    return names;
}

inline void TidyingTest::choose(const char* command)
{
    QAction& action = commands().action(QLatin1String(command));
    QVERIFY2(action.isVisible() && action.isEnabled(), command);
    action.trigger();
}

inline void TidyingTest::type_name(const QString& name, Qt::Key end)
{
    QLineEdit* box = editor();
    QVERIFY(box);
    QVERIFY(box->hasFocus());
    box->selectAll();
    if (name.isEmpty())
        QTest::keyClick(box, Qt::Key_Backspace);
    else
        box->insert(name);
    QTest::keyClick(box, end);
    QTRY_VERIFY(!editor());
}

inline void TidyingTest::rename(QTreeWidgetItem* of, const QString& name)
{
    window_->main().activateWindow(); // a message may have been the active window
    QVERIFY(QTest::qWaitForWindowActive(&window_->main()));
    click(of);
    QTest::keyClick(&tree(), Qt::Key_F2);
    type_name(name);
}

inline void TidyingTest::add_line(Key line, const QString& name, Key item)
{
    Query(window_->db(),
          "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
          " VALUES (?, 1, ?, ?, '2', 'cups', ' ', ?)",
          line, item, name, line)
        .run();
}

} // namespace tarnwick
