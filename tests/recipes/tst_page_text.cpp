#include "recipes/recipe_fixture.h"

#include <QClipboard>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextEdit>

using namespace tarnwick;

namespace {

const QString degree(QChar(0xba));

void undo(PageText& box)
{
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
}

void redo(PageText& box)
{
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
}

void drop_text(PageText& box, const QString& text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter({40, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(box.viewport(), &enter);
    QDropEvent drop({40, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(box.viewport(), &drop);
}

} // namespace

/// What goes into the instructions by clipboard, drop, undo and redo.
class tst_page_text : public QObject {
    Q_OBJECT
private slots:
    void pasting_from_an_empty_clipboard_changes_no_text_box();
    void pasting_what_is_no_text_changes_nothing();
    void every_text_box_of_many_lines_is_the_guarded_one();
    void a_drop_without_data_is_refused();
    void a_text_dropped_on_the_help_text_takes_its_place();
    void an_empty_text_dropped_leaves_the_help_text();
    void a_text_from_the_clipboard_is_pasted();
    void undo_takes_the_sign_alone_and_then_digit_by_digit_data();
    void undo_takes_the_sign_alone_and_then_digit_by_digit();
    void redo_brings_digits_and_sign_back();
    void a_temperature_typed_again_after_undo_gets_its_sign();
    void undo_takes_the_sign_before_a_pasted_temperature();
    void undo_brings_back_what_one_backspace_took();
};

void tst_page_text::pasting_from_an_empty_clipboard_changes_no_text_box()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    QGuiApplication::clipboard()->clear();
    const auto boxes = window.main().findChildren<QLineEdit*>();
    QVERIFY(boxes.contains(&window.title()));
    for (QLineEdit* box : boxes) {
        const QString before = box->text();
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(box, Qt::Key_Insert, Qt::ShiftModifier);
        QTest::mouseClick(box, Qt::MiddleButton);
        QCOMPARE(box->text(), before);
    }
    QTest::keyClick(&window.Text1(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&window.Text1(), Qt::Key_Insert, Qt::ShiftModifier);
    QTest::mouseClick(window.Text1().viewport(), Qt::MiddleButton);
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Stir."));
}

void tst_page_text::pasting_what_is_no_text_changes_nothing()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    auto* picture = new QMimeData;
    picture->setData(QStringLiteral("image/png"), QByteArrayLiteral("picture"));
    for (QMimeData* data : {new QMimeData, picture}) {
        QGuiApplication::clipboard()->setMimeData(data);
        QTest::keyClick(&window.Text1(), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&window.Text1(), Qt::Key_Insert, Qt::ShiftModifier);
        QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Stir."));
    }
}

void tst_page_text::every_text_box_of_many_lines_is_the_guarded_one()
{
    RecipeWindow window;
    window.load();
    for (const QTextEdit* text : window.main().findChildren<QTextEdit*>())
        QVERIFY2(text->isReadOnly(), qPrintable(text->objectName()));
    const auto boxes = window.main().findChildren<QPlainTextEdit*>();
    QVERIFY(!boxes.isEmpty());
    for (const QPlainTextEdit* box : boxes)
        QVERIFY(qobject_cast<const PageText*>(box));
}

void tst_page_text::a_drop_without_data_is_refused()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    QWidget* viewport = window.Text1().viewport();
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, nullptr, Qt::LeftButton, {});
    QCoreApplication::sendEvent(viewport, &enter);
    QVERIFY(!enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, nullptr, Qt::LeftButton, {});
    QCoreApplication::sendEvent(viewport, &drop);
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Stir."));
}

void tst_page_text::a_text_dropped_on_the_help_text_takes_its_place()
{
    RecipeWindow window;
    const Key recipe = window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    QVERIFY(window.Text1().is_help_text() && !window.Text1().hasFocus());
    drop_text(window.Text1(), QStringLiteral("Roll it out."));
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Roll it out."));
    QCOMPARE(window.Text1().border_style(), 0);
    window.page().texts().edit_updt();
    QCOMPARE(read_recipe(window.db(), recipe)->body, QStringLiteral("Roll it out."));
}

void tst_page_text::an_empty_text_dropped_leaves_the_help_text()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    drop_text(window.Text1(), QString());
    QVERIFY(window.Text1().is_help_text());
}

void tst_page_text::a_text_from_the_clipboard_is_pasted()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.focus(window.Text1());
    QGuiApplication::clipboard()->setText(QStringLiteral(" Rest."));
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&window.Text1(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Stir. Rest."));
    QVERIFY(window.edited());
}

void tst_page_text::undo_takes_the_sign_alone_and_then_digit_by_digit_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("undone");
    QTest::newRow("a number") << QStringLiteral("350")
                              << QStringLiteral("350")
            + degree << QStringList{QStringLiteral("350"), QStringLiteral("35"), QStringLiteral("3"), QString()};
    QTest::newRow("in a sentence") << QStringLiteral("Bake at 425") << QStringLiteral("Bake at 425") + degree
                                   << QStringList{QStringLiteral("Bake at 425"), QStringLiteral("Bake at 42"),
                                                  QStringLiteral("Bake at 4"), QStringLiteral("Bake at ")};
    QTest::newRow("with text behind") << QStringLiteral("300 C")
                                      << QStringLiteral("300") + degree + QStringLiteral(" C")
                                      << QStringList{QStringLiteral("300") + degree, QStringLiteral("300"),
                                                     QStringLiteral("30")};
}

void tst_page_text::undo_takes_the_sign_alone_and_then_digit_by_digit()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QStringList, undone);
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), typed);
    QCOMPARE(window.Text1().toPlainText(), shown);
    for (const QString& text : undone) {
        undo(window.Text1());
        QCOMPARE(window.Text1().toPlainText(), text);
    }
    QVERIFY(window.edited());
}

void tst_page_text::redo_brings_digits_and_sign_back()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("350"));
    undo(window.Text1());
    undo(window.Text1());
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("35"));
    redo(window.Text1());
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350"));
    redo(window.Text1());
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350") + degree);
}

void tst_page_text::a_temperature_typed_again_after_undo_gets_its_sign()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("350"));
    undo(window.Text1());
    undo(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("0"));
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350") + degree);
    undo(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("g"));
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350g"));
}

void tst_page_text::undo_takes_the_sign_before_a_pasted_temperature()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("Oven "));
    QGuiApplication::clipboard()->setText(QStringLiteral("at 400"));
    QTest::keyClick(&window.Text1(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Oven at 400") + degree);
    undo(window.Text1());
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Oven at 400"));
    undo(window.Text1());
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Oven "));
}

void tst_page_text::undo_brings_back_what_one_backspace_took()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Pie"), QStringLiteral("13"), help_text());
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("350"));
    QTest::keyClick(&window.Text1(), Qt::Key_Backspace);
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("35"));
    undo(window.Text1());
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350") + degree);
    undo(window.Text1());
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("350"));
}

QTEST_MAIN(tst_page_text)
#include "tst_page_text.moc"
