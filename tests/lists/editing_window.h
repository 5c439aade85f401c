#pragma once

#include "data/query.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "widgets/row_editor.h"
#include "support/test_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>

namespace tarnwick {

/// The controls of the boxes over an open row.
inline constexpr const char* all_controls[]
    = {"desc_brdr",    "qty_brdr",     "qty_btn(0)", "qty_btn(1)", "chck_box",   "cpn_bkgrnd",
       "dp_frame",     "dp_brdr",      "cpn_brdr",   "dtp_btn",    "MonthView1", "aisle_brdr",
       "aisle_btn(0)", "aisle_btn(1)", "frmEditDel", "imgedit",    "imgScratch"};

/// The main window on a list of rows to edit, with the hands of a user on its grid and row editor.
class EditingWindow : public TestWindow {
public:
    EditingWindow()
        : list(add_list(QStringLiteral("Corner shop")))
    {
        set_pref(QStringLiteral("cpn"), QStringLiteral("1"));
        set_pref(QStringLiteral("aisle"), QStringLiteral("1"));
        set_pref(QStringLiteral("alist"), QString::number(list));
    }

    /// A row of the list; its name is its place in the grid when made in alphabetical order.
    Key row(const QString& name, const QString& desc = QStringLiteral(" "),
            const QString& qty = QStringLiteral(" "), const QString& aisle = QStringLiteral(" "))
    {
        return add_row(add_item(name, 0), list, true, desc, qty, aisle);
    }

    /// Rows "Item 000" and up.
    void rows(int count)
    {
        Transaction at_once(db());
        for (int i = 0; i < count; ++i)
            row(QStringLiteral("Item %1").arg(i, 3, 10, QLatin1Char('0')), QStringLiteral("some"),
                QStringLiteral("2"), QStringLiteral("5"));
        at_once.commit();
    }

    void coupon(Key key, const QString& expiry, bool on)
    {
        Query(db(), "UPDATE groc_1 SET cpn = ?, created = ? WHERE key_id = ?", on, expiry, key).run();
    }

    void open(QSize size = {1000, 700})
    {
        load(size);
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
        QVERIFY(grid().rows().rows() > 0);
        QVERIFY(grid().isVisible());
    }

    ListGrid& grid() { return main().list_pane().grid(); }
    RowEditor& editor() { return main().row_editor(); }

    QPoint middle_of(int row, GridColumn column)
    {
        const QRect cell = grid().cell_rect(row, column);
        return grid().viewport()->mapFrom(grid().parentWidget(), cell.center());
    }

    void click_cell(int row, GridColumn column, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(grid().viewport(), button, {}, middle_of(row, column));
    }

    /// A quick pair of clicks, with all that the window system sends for it.
    static void double_click(QWidget& target, QPoint position)
    {
        QTest::mouseClick(&target, Qt::LeftButton, {}, position);
        QTest::mouseDClick(&target, Qt::LeftButton, {}, position);
        QTest::mouseRelease(&target, Qt::LeftButton, {}, position);
    }

    /// Opens the editor as a user does: by a click on the row's name.
    void open_row(int row)
    {
        click_cell(row, GridColumn::item);
        QVERIFY(editor().is_open());
        QCOMPARE(editor().edit_row(), row);
    }

    QLineEdit& box(const char* name) { return *part<QLineEdit>(name); }
    QWidget& widget(const char* name) { return *part<QWidget>(name); }
    QAbstractButton& button(const char* name) { return *part<QAbstractButton>(name); }
    QCalendarWidget& calendar() { return *part<QCalendarWidget>("MonthView1"); }
    bool shown(const char* name) { return part<QWidget>(name)->isVisible(); }

    void press(const char* name)
    {
        QVERIFY2(shown(name), name);
        QTest::mouseClick(part<QWidget>(name), Qt::LeftButton);
    }

    /// Puts the caret into a box by the mouse and replaces its text by the keyboard.
    void type_into(const char* name, const QString& text)
    {
        QTest::mouseClick(&box(name), Qt::LeftButton);
        QVERIFY2(box(name).hasFocus(), name);
        box(name).selectAll();
        QTest::keyClick(&box(name), Qt::Key_Delete);
        QTest::keyClicks(&box(name), text);
    }

    /// The rectangle of an edited row's cell and of a control over it, both in the grid's parent.
    QRect cell_in_form(GridColumn column) { return grid().cell_rect(editor().edit_row(), column); }
    QRect in_form(const char* name)
    {
        QWidget& control = widget(name);
        return {control.mapTo(grid().parentWidget(), QPoint()), control.size()};
    }

    QString cell(int row, GridColumn column) { return grid().rows().cell_text(row, column); }

    /// A field of a row, between brackets so that blanks count.
    QString field(Key key, const char* column)
    {
        const std::string sql = std::string("SELECT '[' || ") + column + " || ']' FROM groc_1 WHERE key_id = ?";
        Query query(db(), sql, key);
        return query.next() ? query.text(0) : QStringLiteral("gone");
    }

    void set_group(ColumnGroup group, bool on)
    {
        if (main().list_pane().column_group_shown(group) == on)
            return;
        QTest::mouseClick(&main().list_pane().header().show_box(group), Qt::LeftButton);
        QCOMPARE(main().list_pane().column_group_shown(group), on);
    }

    const Key list;

private:
    template <typename Widget> Widget* part(const char* name)
    {
        return grid().parentWidget()->findChild<Widget*>(QLatin1String(name));
    }
};

} // namespace tarnwick
