#pragma once

#include "data/query.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "window/status_panels.h"
#include "widgets/tree_view.h"
#include "dialogs/l_item_edit.h"
#include "stock/stock_tree.h"
#include "support/edit_request.h"
#include "support/menu_hands.h"
#include "support/message_script.h"
#include "support/test_window.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <optional>

namespace tarnwick {

/// The open item editor as a user sees it.
class EditorHands {
public:
    explicit EditorHands(QDialog& shown, MessageScript& script)
        : dialog(shown)
        , messages(script)
    {
    }

    QLineEdit& name() { return *dialog.findChild<QLineEdit*>(QStringLiteral("txt_item")); }
    QComboBox& category() { return *dialog.findChild<QComboBox*>(QStringLiteral("Combo1")); }
    ListGrid& grid() { return *dialog.findChild<ListGrid*>(QStringLiteral("Listview1")); }
    QPushButton& ok() { return *dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)")); }
    QPushButton& cancel() { return *dialog.findChild<QPushButton*>(QStringLiteral("Command1(1)")); }
    QLabel& label(const char* object_name) { return *dialog.findChild<QLabel*>(QLatin1String(object_name)); }

    QString state() { return label("lblActive").text(); }
    int state_picture() { return label("lite").property("picture").toInt(); }
    bool note_shown() { return label("lblNote").isVisible(); }

    const GridRow& row(int index) { return grid().rows().row(index); }

    /// Replaces the name by typing, the keyboard focus in its box.
    void type_name(const QString& text)
    {
        name().setFocus();
        name().selectAll();
        QTest::keyClick(&name(), Qt::Key_Delete);
        QTest::keyClicks(&name(), text);
    }

    void leave_name() { QTest::keyClick(&name(), Qt::Key_Tab); }

    void choose_category(const QString& text)
    {
        category().setFocus();
        const int index = category().findText(text);
        QVERIFY2(index >= 0, qPrintable(text));
        category().setCurrentIndex(index);
    }

    void click_cell(int row, GridColumn column, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint place(grid().col_left(column) + 8, row * grid().row_height() + grid().row_height() / 2);
        QTest::mouseClick(grid().viewport(), button, {}, place);
    }

    /// Opens the floating editors on a row and types into one of them.
    void type_cell(int row, const char* editor, const QString& text)
    {
        click_cell(row, GridColumn::desc);
        auto* box = dialog.findChild<QLineEdit*>(QLatin1String(editor));
        QVERIFY(box);
        QVERIFY(box->isVisible());
        box->setFocus();
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!box->isVisible());
    }

    const EditRequest& request() { return request_of(dialog); }

    void press_ok() { QTest::mouseClick(&ok(), Qt::LeftButton); }
    void press_cancel() { QTest::mouseClick(&cancel(), Qt::LeftButton); }

    QDialog& dialog;
    MessageScript& messages;
};

/// A household with one item on lists, and the editor opened on it.
class EditorCase {
public:
    EditorCase()
    {
        dairy = window.add_category(QStringLiteral("Dairy"));
        bakery = window.add_category(QStringLiteral("Bakery"));
        milk = window.add_item(QStringLiteral("Milk"), dairy);
        bread = window.add_item(QStringLiteral("Bread"), bakery);
    }

    void add_lists()
    {
        weekly = window.add_list(QStringLiteral("Weekly"));
        market = window.add_list(QStringLiteral("Market"));
        party = window.add_list(QStringLiteral("Party"));
    }

    Key add_line(const QString& name, Key item, Key recipe = 1)
    {
        const int key = window.number("SELECT ifnull(max(key_id), 0) + 1 FROM recipe_2");
        Query(window.db(),
              "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
              " VALUES (?, ?, ?, ?, ' ', ' ', ' ', 0)",
              key, recipe, item, name)
            .run();
        return static_cast<Key>(key);
    }

    /// Opens the dialog and lets the hands work on it; a dialog that they leave open is cancelled.
    void open(int mode, Key item, const std::function<void(EditorHands&)>& work, Key line = -1, Key groc_key = -1)
    {
        EditRequest request{static_cast<EditMode>(mode), item, line, groc_key};
        request.category = window.main().stock_tree().selected_category();
        request.list = marked_list.value_or(window.main().shared.current_list);
        MessageScript messages;
        bool came = false;
        messages.drive([&](QDialog& dialog) {
            came = true;
            dialog.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &dialog);
            EditorHands hands(dialog, messages);
            work(hands);
            if (dialog.isVisible())
                dialog.reject();
        });
        show_item_editor(window.main().program(), request);
        QVERIFY(came);
    }

    int count(const char* sql) { return window.number(sql); }

    /// List, description, quantity, aisle, buy-it mark and coupon of all list rows.
    QString list_rows()
    {
        return window.text(
            "SELECT group_concat(l || ':' || d || ':' || q || ':' || a || ':' || b || ':' || c, ' / ') FROM"
            " (SELECT t.list l, g.desc d, g.qty q, g.aisle a, g.to_get b, g.cpn c FROM groc_1 g, tie t"
            " WHERE t.groc_id = g.key_id ORDER BY g.key_id)");
    }

    /// The stock items behind all recipe lines.
    QString line_links()
    {
        return window.text("SELECT group_concat(r) FROM (SELECT item_ref r FROM recipe_2 ORDER BY key_id)");
    }

    TestWindow window;
    std::optional<Key> marked_list; ///< where a placing is proposed; the current list when not set
    Key dairy = 0;
    Key bakery = 0;
    Key milk = 0;
    Key bread = 0;
    Key weekly = 0;
    Key market = 0;
    Key party = 0;
};

} // namespace tarnwick
