#include "data/runtime_error.h"
#include "widgets/tree_delegate.h"
#include "widgets/tree_view.h"
#include "support/error_number.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace tarnwick;

namespace {

const QString folder_key = QStringLiteral("cat0001");

/// A tree of one open folder with three items, and an empty folder behind it.
std::unique_ptr<TreeView> make_tree()
{
    auto tree = std::make_unique<TreeView>(ImageList::stock_tree, nullptr);
    tree->resize(300, 400);
    QTreeWidgetItem* folder = tree->add_node(nullptr, folder_key, QStringLiteral("Dairy"), 2, QStringLiteral("2"));
    tree->add_node(folder, QStringLiteral("item0001"), QStringLiteral("Butter"), 5, QStringLiteral("5"));
    tree->add_node(folder, QStringLiteral("item0002"), QStringLiteral("cheese"), 6, QStringLiteral("6"));
    tree->add_node(folder, QStringLiteral("item0003"), QStringLiteral("Milk"), 7, QStringLiteral("7"));
    tree->add_node(nullptr, QStringLiteral("cat0002"), QStringLiteral("Empty"), 1, QStringLiteral("1"));
    folder->setExpanded(true);
    tree->show();
    tree->activateWindow();
    tree->setFocus();
    return tree;
}

QPoint row_point(const TreeView& tree, const QString& key, int x)
{
    return {x, tree.text_rect(tree.node(key)).center().y()};
}

QPoint label_point(const TreeView& tree, const QString& key)
{
    const QRect label = tree.text_rect(tree.node(key));
    return {label.left() + 4, label.center().y()};
}

QStringList names_of(const QTreeWidgetItem* folder)
{
    QStringList names;
    for (int i = 0; i < folder->childCount(); ++i)
        names.append(folder->child(i)->text(0));
    return names;
}

void click(TreeView& tree, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(tree.viewport(), button, {}, point);
}

} // namespace

class tst_tree_view : public QObject {
    Q_OBJECT
private slots:
    void key_in_use_is_error_35602();
    void unknown_key_is_error_35601();
    void removed_folder_frees_the_keys_of_its_items();
    void sort_children_orders_by_name_and_keeps_selection_and_open_folders();
    void place_of_a_name_is_behind_its_equals();
    void text_and_picture_stand_at_fixed_places();
    void names_of_both_trees_stand_at_one_place();
    void a_folder_stands_beside_its_name_data();
    void a_folder_stands_beside_its_name();
    void the_narrowest_pane_shows_six_letters_of_an_item_data();
    void the_narrowest_pane_shows_six_letters_of_an_item();
    void no_name_is_drawn_beyond_a_narrow_pane();
    void rows_grow_with_the_type_size();
    void visible_count_is_the_number_of_whole_rows();
    void hit_test_takes_the_whole_row();
    void node_click_comes_before_the_release();
    void node_click_comes_for_the_right_button();
    void press_and_release_elsewhere_clicks_the_pressed_node();
    void moving_with_a_pressed_button_keeps_the_selection();
    void arrow_keys_and_select_raise_no_node_click();
    void enter_activates_nothing_and_is_handed_on();
    void home_end_arrows_and_typing_move_the_selection();
    void empty_folder_cannot_open();
    void emptied_folder_is_closed_and_opens_with_an_event();
    void keys_of_the_label_editor_do_not_reach_the_tree();
    void closing_a_folder_selects_it_when_its_item_was_selected();
    void f2_edits_the_label();
    void refused_gate_opens_no_editor();
    void escape_and_an_unchanged_text_tell_nothing();
    void the_end_of_an_edit_is_told_when_the_editor_is_gone_data();
    void the_end_of_an_edit_is_told_when_the_editor_is_gone();
    void second_click_on_the_label_edits();
    void second_click_on_the_picture_does_not_edit();
    void double_click_does_not_edit();
};

void tst_tree_view::key_in_use_is_error_35602()
{
    auto tree = make_tree();
    QCOMPARE(error_number([&] { tree->add_node(nullptr, folder_key, QStringLiteral("x"), 1, {}); }), 35602);
    QCOMPARE(tree->topLevelItemCount(), 2);
}

void tst_tree_view::unknown_key_is_error_35601()
{
    auto tree = make_tree();
    QCOMPARE(error_number([&] { tree->require_node(QStringLiteral("item0099")); }), 35601);
    QCOMPARE(tree->node(QStringLiteral("item0099")), nullptr);
}

void tst_tree_view::removed_folder_frees_the_keys_of_its_items()
{
    auto tree = make_tree();
    tree->remove_node(tree->node(folder_key));
    QCOMPARE(tree->node(QStringLiteral("item0002")), nullptr);
    QVERIFY(tree->add_node(nullptr, QStringLiteral("item0002"), QStringLiteral("x"), 5, {}));
}

void tst_tree_view::sort_children_orders_by_name_and_keeps_selection_and_open_folders()
{
    auto tree = make_tree();
    QTreeWidgetItem* folder = tree->node(folder_key);
    QTreeWidgetItem* milk = tree->node(QStringLiteral("item0003"));
    tree->select(milk);
    milk->setText(0, QStringLiteral("almond milk"));
    tree->sort_children(folder);
    QCOMPARE(names_of(folder),
             QStringList({QStringLiteral("almond milk"), QStringLiteral("Butter"), QStringLiteral("cheese")}));
    QCOMPARE(tree->selected(), milk);
    folder->setText(0, QStringLiteral("Zebra"));
    tree->sort_children(nullptr);
    QCOMPARE(tree->topLevelItem(1), folder);
    QVERIFY(folder->isExpanded());
    QCOMPARE(tree->selected(), milk);
}

void tst_tree_view::place_of_a_name_is_behind_its_equals()
{
    auto tree = make_tree();
    QTreeWidgetItem* folder = tree->node(folder_key);
    QCOMPARE(tree->place_of(folder, QStringLiteral("Apple"), 3), 0);
    QCOMPARE(tree->place_of(folder, QStringLiteral("CHEESE"), 3), 2);
    QCOMPARE(tree->place_of(folder, QStringLiteral("Zwieback"), 3), 3);
}

void tst_tree_view::text_and_picture_stand_at_fixed_places()
{
    auto tree = make_tree();
    QCOMPARE(tree->text_rect(tree->node(QStringLiteral("item0001"))).left(), 75);
    QCOMPARE(tree->text_rect(tree->node(folder_key)).left(), 41);
    const QImage folders = tree->viewport()->grab().toImage();
    const QRgb ground = folders.pixel(290, 390);
    const auto drawn = [&](const QImage& image, int left, int right) {
        const QRect row = tree->text_rect(tree->node(QStringLiteral("item0003")));
        for (int y = row.top() + 3; y < row.bottom() - 2; ++y) {
            for (int x = left; x < right; ++x) {
                if (image.pixel(x, y) != ground)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(!drawn(folders, 19, 42)); // left of the picture
    QVERIFY(drawn(folders, 43, 56)); // the box
    QVERIFY(drawn(folders, 57, 72)); // the light
    QVERIFY(!drawn(folders, 72, 75));

    tree->clear_nodes();
    tree->set_flat(true);
    tree->add_node(nullptr, QStringLiteral("item0003"), QStringLiteral("Milk"), 7, QStringLiteral("7"));
    QCOMPARE(tree->text_rect(tree->node(QStringLiteral("item0003"))).left(), 61);
    const QImage flat = tree->viewport()->grab().toImage();
    QVERIFY(!drawn(flat, 2, 23));
    QVERIFY(drawn(flat, 24, 37));
    QVERIFY(drawn(flat, 38, 53));
    QVERIFY(!drawn(flat, 53, 61));
}

void tst_tree_view::names_of_both_trees_stand_at_one_place()
{
    auto stock = make_tree();
    TreeView recipes(ImageList::recipe_tree, nullptr);
    recipes.resize(stock->size());
    QTreeWidgetItem* folder = recipes.add_node(nullptr, QStringLiteral("rct01"), QStringLiteral("Soups"), 4, {});
    recipes.add_node(folder, QStringLiteral("rcp0001"), QStringLiteral("Leek soup"), 1, {});
    folder->setExpanded(true);
    recipes.show();
    QCOMPARE(recipes.text_rect(folder).left(), stock->text_rect(stock->node(folder_key)).left());
    QCOMPARE(recipes.text_rect(folder->child(0)).left(),
             stock->text_rect(stock->node(QStringLiteral("item0001"))).left());
}

void tst_tree_view::a_folder_stands_beside_its_name_data()
{
    QTest::addColumn<int>("picture");
    for (const int picture : {1, 2, 3, 4})
        QTest::addRow("picture %d", picture) << picture;
}

void tst_tree_view::a_folder_stands_beside_its_name()
{
    QFETCH(int, picture);
    auto tree = make_tree();
    QTreeWidgetItem* folder = tree->node(folder_key);
    tree->set_picture(folder, picture);
    tree->select(tree->node(QStringLiteral("item0001")));
    const QImage image = tree->viewport()->grab().toImage();
    const QRect text = tree->text_rect(folder);
    const QRgb ground = image.pixel(290, 390);
    const auto drawn = [&](int x) {
        for (int y = text.top() + 2; y < text.bottom() - 1; ++y)
            if (image.pixel(x, y) != ground)
                return true;
        return false;
    };
    int right = text.left() - 1;
    while (right > 0 && !drawn(right))
        --right;
    QVERIFY(text.left() - right >= 2 && text.left() - right <= 8);
    int left = right;
    while (left > 0 && drawn(left))
        --left;
    QVERIFY2(right - left >= 14, "the picture is whole, and apart from the arrow");
    QVERIFY(left > 12);
}

void tst_tree_view::the_narrowest_pane_shows_six_letters_of_an_item_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<bool>("flat");
    QTest::addColumn<int>("separator");
    for (const int points : {9, 10, 12})
        for (const bool flat : {false, true})
            for (const int separator : {160, 143}) // where a drag stops; where the least list pushes it
                QTest::addRow("%d points %s %d", points, flat ? "by name" : "in folders", separator)
                    << points << flat << separator;
}

void tst_tree_view::the_narrowest_pane_shows_six_letters_of_an_item()
{
    QFETCH(int, points);
    QFETCH(bool, flat);
    QFETCH(int, separator);
    auto tree = make_tree();
    QFont font = tree->font();
    font.setPointSize(points);
    tree->setFont(font);
    tree->setFrameShape(QFrame::NoFrame);
    tree->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    tree->set_flat(flat);
    tree->resize(separator - 4, 400);
    QTest::qWait(0);
    const QRect text = tree->text_rect(tree->node(QStringLiteral("item0001"))).adjusted(flat ? -18 : 0, 0, 0, 0);
    QVERIFY2(text.left() > 56, "the button in front of the name has room");
    QCOMPARE(text.right(), tree->viewport()->width() - 1);
    const auto* delegate = static_cast<const TreeDelegate*>(tree->itemDelegate());
    QSet<int> types;
    for (const char* name : {"Bagels, sesame", "Butter", "Cheddar", "Crème fraîche, light", "Eggs", "Flour, strong",
                             "Hamburger buns", "Mushrooms, button", "Yoghurt, plain"}) {
        const QString whole = QString::fromUtf8(name);
        const FittedText shown = delegate->shown_name(whole, text.width() - 2);
        QVERIFY2(shown.text.startsWith(whole.left(6)), qPrintable(shown.text));
        types.insert(shown.font.stretch());
    }
    QCOMPARE(types.size(), 1);
}

/// What the delegate tells is what is drawn: nothing in the last pixel of a row, and no mark without room.
void tst_tree_view::no_name_is_drawn_beyond_a_narrow_pane()
{
    auto tree = make_tree();
    tree->setFrameShape(QFrame::NoFrame);
    tree->node(QStringLiteral("item0001"))->setText(0, QStringLiteral("Mushrooms, button, fresh from the field"));
    for (const int points : {9, 12}) {
        QFont font = tree->font();
        font.setPointSize(points);
        tree->setFont(font);
        for (int width = 120; width < 300; width += 7) {
            tree->resize(width, 400);
            QTest::qWait(0);
            const QRect row = tree->text_rect(tree->node(QStringLiteral("item0001")));
            const QImage image = tree->viewport()->grab(row).toImage();
            const QRgb ground = image.pixel(image.width() - 1, 0);
            for (int y = 0; y < image.height(); ++y)
                QCOMPARE(image.pixel(image.width() - 1, y), ground);
        }
    }
}

void tst_tree_view::rows_grow_with_the_type_size()
{
    auto tree = make_tree();
    int last = 15; // no row is lower than its picture of 16 pixels
    for (const int points : {9, 10, 12}) {
        QFont font = tree->font();
        font.setPointSize(points);
        tree->setFont(font);
        QCOMPARE(tree->visualItemRect(tree->node(folder_key)).height(), tree->row_height());
        QVERIFY(tree->row_height() > last);
        QVERIFY(tree->row_height() >= tree->fontMetrics().height());
        last = tree->row_height();
    }
}

void tst_tree_view::visible_count_is_the_number_of_whole_rows()
{
    auto tree = make_tree();
    const int frame = tree->height() - tree->viewport()->height();
    tree->resize(300, 7 * tree->row_height() + frame);
    QCOMPARE(tree->get_visible_count(), 7);
    tree->resize(300, 7 * tree->row_height() + frame - 1);
    QCOMPARE(tree->get_visible_count(), 6);
}

void tst_tree_view::hit_test_takes_the_whole_row()
{
    auto tree = make_tree();
    const QString key = QStringLiteral("item0002");
    QCOMPARE(tree->hit_test(row_point(*tree, key, 1)), tree->node(key));
    QCOMPARE(tree->hit_test(row_point(*tree, key, tree->viewport()->width() - 2)), tree->node(key));
    QCOMPARE(tree->hit_test({50, 390}), nullptr);
}

void tst_tree_view::node_click_comes_before_the_release()
{
    auto tree = make_tree();
    QStringList events;
    connect(tree.get(), &TreeView::mouse_down, this, [&] { events << QStringLiteral("down"); });
    connect(tree.get(), &TreeView::node_click, this, [&](QTreeWidgetItem* node) { events << TreeView::key(node); });
    connect(tree.get(), &TreeView::mouse_up, this, [&] { events << QStringLiteral("up"); });
    click(*tree, label_point(*tree, QStringLiteral("item0002")));
    QCOMPARE(events, QStringList({QStringLiteral("down"), QStringLiteral("item0002"), QStringLiteral("up")}));
    events.clear();
    click(*tree, {50, 390});
    QCOMPARE(events, QStringList({QStringLiteral("down"), QStringLiteral("up")}));
}

void tst_tree_view::node_click_comes_for_the_right_button()
{
    auto tree = make_tree();
    const QSignalSpy clicks(tree.get(), &TreeView::node_click);
    click(*tree, label_point(*tree, QStringLiteral("item0002")), Qt::RightButton);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("item0002")));
}

void tst_tree_view::press_and_release_elsewhere_clicks_the_pressed_node()
{
    auto tree = make_tree();
    QSignalSpy clicks(tree.get(), &TreeView::node_click);
    QTest::mousePress(tree->viewport(), Qt::LeftButton, {}, label_point(*tree, QStringLiteral("item0001")));
    QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, label_point(*tree, QStringLiteral("item0003")));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).value<QTreeWidgetItem*>(), tree->node(QStringLiteral("item0001")));
}

void tst_tree_view::moving_with_a_pressed_button_keeps_the_selection()
{
    auto tree = make_tree();
    const QPoint from = label_point(*tree, QStringLiteral("item0001"));
    const QPoint to = label_point(*tree, QStringLiteral("item0003"));
    QTest::mousePress(tree->viewport(), Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, tree->viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(tree->viewport(), &move);
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("item0001")));
    QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, to);
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("item0001")));
}

void tst_tree_view::arrow_keys_and_select_raise_no_node_click()
{
    auto tree = make_tree();
    const QSignalSpy clicks(tree.get(), &TreeView::node_click);
    tree->select(tree->node(QStringLiteral("item0001")));
    QTest::keyClick(tree.get(), Qt::Key_Down);
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("item0002")));
    QCOMPARE(clicks.count(), 0);
}

void tst_tree_view::enter_activates_nothing_and_is_handed_on()
{
    auto tree = make_tree();
    const QSignalSpy activated(tree.get(), &QTreeWidget::itemActivated);
    tree->select(tree->node(QStringLiteral("item0001")));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        QKeyEvent enter(QEvent::KeyPress, key, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(tree.get(), &enter);
        QVERIFY(!enter.isAccepted());
    }
    QCOMPARE(activated.count(), 0);
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("item0001")));
}

void tst_tree_view::home_end_arrows_and_typing_move_the_selection()
{
    auto tree = make_tree();
    tree->select(tree->node(QStringLiteral("item0001")));
    QTest::keyClick(tree.get(), Qt::Key_End);
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("cat0002")));
    QTest::keyClick(tree.get(), Qt::Key_Home);
    QCOMPARE(tree->selected(), tree->node(folder_key));
    QTest::keyClick(tree.get(), 'm');
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("item0003")));
    QTest::keyClick(tree.get(), Qt::Key_Left);
    QCOMPARE(tree->selected(), tree->node(folder_key));
    QTest::keyClick(tree.get(), Qt::Key_Left);
    QVERIFY(!tree->node(folder_key)->isExpanded());
    QTest::keyClick(tree.get(), Qt::Key_Right);
    QVERIFY(tree->node(folder_key)->isExpanded());
}

void tst_tree_view::empty_folder_cannot_open()
{
    auto tree = make_tree();
    const QSignalSpy opened(tree.get(), &QTreeWidget::itemExpanded);
    QTreeWidgetItem* empty = tree->node(QStringLiteral("cat0002"));
    tree->select(empty);
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Asterisk, Qt::Key_Right})
        QTest::keyClick(tree.get(), key);
    click(*tree, label_point(*tree, QStringLiteral("cat0002")));
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, label_point(*tree, QStringLiteral("cat0002")));
    QVERIFY(!empty->isExpanded());
    QCOMPARE(opened.count(), 0);
}

void tst_tree_view::emptied_folder_is_closed_and_opens_with_an_event()
{
    auto tree = make_tree();
    const QSignalSpy closed(tree.get(), &QTreeWidget::itemCollapsed);
    const QSignalSpy opened(tree.get(), &QTreeWidget::itemExpanded);
    QTreeWidgetItem* folder = tree->node(folder_key);
    tree->remove_node(tree->node(QStringLiteral("item0001")));
    tree->remove_node(tree->node(QStringLiteral("item0002")));
    tree->move_node(tree->node(QStringLiteral("item0003")), tree->node(QStringLiteral("cat0002")));
    QVERIFY(!folder->isExpanded());
    QCOMPARE(closed.count(), 0);
    tree->select(tree->add_node(folder, QStringLiteral("item0004"), QStringLiteral("Cream"), 5, {}));
    QVERIFY(folder->isExpanded());
    QCOMPARE(opened.count(), 1);
}

void tst_tree_view::keys_of_the_label_editor_do_not_reach_the_tree()
{
    auto tree = make_tree();
    tree->select(tree->node(QStringLiteral("item0002")));
    tree->start_label_edit();
    auto* editor = tree->findChild<QLineEdit*>();
    QVERIFY(editor);
    const QSignalSpy keys(tree.get(), &TreeView::key_down);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Delete, Qt::Key_F2})
        QTest::keyClick(editor, key);
    QCOMPARE(keys.count(), 0);
    QCOMPARE(tree->selected(), tree->node(QStringLiteral("item0002")));
    QVERIFY(tree->findChild<QLineEdit*>());
}

void tst_tree_view::closing_a_folder_selects_it_when_its_item_was_selected()
{
    auto tree = make_tree();
    tree->select(tree->node(QStringLiteral("item0002")));
    tree->node(folder_key)->setExpanded(false);
    QCOMPARE(tree->selected(), tree->node(folder_key));
}

void tst_tree_view::f2_edits_the_label()
{
    auto tree = make_tree();
    QStringList edits;
    connect(tree.get(), &TreeView::after_label_edit, this,
            [&](QTreeWidgetItem*, const QString& text) { edits << text; });
    QTreeWidgetItem* node = tree->node(QStringLiteral("item0001"));
    tree->select(node);
    QTest::keyClick(tree.get(), Qt::Key_F2);
    auto* editor = tree->findChild<QLineEdit*>();
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("Butter"));
    editor->setText(QStringLiteral("Salted butter"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(edits, QStringList({QStringLiteral("Salted butter")}));
    QCOMPARE(node->text(0), QStringLiteral("Butter")); // who listens renames it
}

void tst_tree_view::refused_gate_opens_no_editor()
{
    auto tree = make_tree();
    connect(tree.get(), &TreeView::before_label_edit, this, [](QTreeWidgetItem*, bool& cancel) { cancel = true; });
    tree->select(tree->node(QStringLiteral("item0001")));
    tree->start_label_edit();
    QVERIFY(!tree->findChild<QLineEdit*>());
}

void tst_tree_view::escape_and_an_unchanged_text_tell_nothing()
{
    auto tree = make_tree();
    const QSignalSpy edits(tree.get(), &TreeView::after_label_edit);
    tree->select(tree->node(QStringLiteral("item0001")));
    for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
        tree->start_label_edit();
        auto* editor = tree->findChild<QLineEdit*>();
        QVERIFY(editor);
        if (end == Qt::Key_Escape)
            editor->setText(QStringLiteral("Margarine"));
        QTest::keyClick(editor, end);
        QTRY_VERIFY(!tree->findChild<QLineEdit*>());
    }
    QCOMPARE(edits.count(), 0);
}

/// The listener may ask, sort and delete: no editor stands on the node any more.
void tst_tree_view::the_end_of_an_edit_is_told_when_the_editor_is_gone_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<Qt::FocusReason>("left_by");
    QTest::newRow("Return") << QStringLiteral("return") << Qt::NoFocusReason;
    QTest::newRow("the Tab key") << QStringLiteral("tab") << Qt::NoFocusReason;
    QTest::newRow("a command") << QStringLiteral("command") << Qt::NoFocusReason;
    QTest::newRow("a press elsewhere") << QStringLiteral("press") << Qt::MouseFocusReason;
}

void tst_tree_view::the_end_of_an_edit_is_told_when_the_editor_is_gone()
{
    QFETCH(QString, way);
    QFETCH(Qt::FocusReason, left_by);
    QWidget window;
    auto* tree = make_tree().release();
    tree->setParent(&window);
    QLineEdit other(&window);
    other.move(400, 0);
    window.resize(600, 400);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTreeWidgetItem* node = tree->node(QStringLiteral("item0001"));
    tree->setFocus();
    tree->select(node);
    tree->start_label_edit();
    auto* editor = tree->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setText(QStringLiteral("Margarine"));
    QList<Qt::FocusReason> told;
    connect(tree, &TreeView::after_label_edit, this,
            [&](QTreeWidgetItem* edited, const QString& text, Qt::FocusReason reason) {
                QCOMPARE(edited, node);
                QCOMPARE(text, QStringLiteral("Margarine"));
                QVERIFY(!editor->isVisible());
                told += reason;
                tree->remove_node(edited);
            });
    if (way == QLatin1String("return"))
        QTest::keyClick(editor, Qt::Key_Return);
    else if (way == QLatin1String("tab"))
        QTest::keyClick(editor, Qt::Key_Tab);
    else if (way == QLatin1String("command"))
        tree->finish_label_edit();
    else
        QTest::mouseClick(&other, Qt::LeftButton);
    QTRY_COMPARE(told, QList<Qt::FocusReason>{left_by});
    tree->finish_label_edit(); // there is none any more
    QCOMPARE(told.size(), 1);
}

void tst_tree_view::second_click_on_the_label_edits()
{
    auto tree = make_tree();
    QVERIFY(QTest::qWaitForWindowActive(tree.get()));
    const QPoint point = label_point(*tree, QStringLiteral("item0001"));
    click(*tree, point);
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QVERIFY(!tree->findChild<QLineEdit*>());
    click(*tree, point);
    QTRY_VERIFY(tree->findChild<QLineEdit*>());
}

void tst_tree_view::second_click_on_the_picture_does_not_edit()
{
    auto tree = make_tree();
    QVERIFY(QTest::qWaitForWindowActive(tree.get()));
    click(*tree, label_point(*tree, QStringLiteral("item0001")));
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    click(*tree, row_point(*tree, QStringLiteral("item0001"), 49));
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QVERIFY(!tree->findChild<QLineEdit*>());
}

void tst_tree_view::double_click_does_not_edit()
{
    auto tree = make_tree();
    QVERIFY(QTest::qWaitForWindowActive(tree.get()));
    const QPoint point = label_point(*tree, QStringLiteral("item0001"));
    click(*tree, point);
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    click(*tree, point);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, point);
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QVERIFY(!tree->findChild<QLineEdit*>());
}

QTEST_MAIN(tst_tree_view)
#include "tst_tree_view.moc"
