#include "support/message_script.h"

#include <QDialog>
#include <QMessageBox>
#include <QTest>

using namespace tarnwick;

namespace {

const QString title = QStringLiteral("Warning");
const QString text = QStringLiteral("Are you sure?");

Answer ask(int flags, QWidget* owner = nullptr)
{
    return msg_box(owner, text, flags, title);
}

} // namespace

class tst_message_box : public QObject {
    Q_OBJECT
private slots:
    void a_box_closed_by_none_of_its_buttons_is_cancelled_data();
    void a_box_closed_by_none_of_its_buttons_is_cancelled();
    void a_message_belongs_to_the_dialog_on_top();
};

void tst_message_box::a_box_closed_by_none_of_its_buttons_is_cancelled_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("answer");
    QTest::newRow("OK") << int(box::ok) << int(Answer::ok);
    QTest::newRow("OK, Cancel") << int(box::ok_cancel) << int(Answer::cancel);
    QTest::newRow("Yes, No") << int(box::yes_no) << int(Answer::no);
    QTest::newRow("Retry, Cancel") << int(box::retry_cancel) << int(Answer::cancel);
}

void tst_message_box::a_box_closed_by_none_of_its_buttons_is_cancelled()
{
    QFETCH(int, flags);
    QFETCH(int, answer);
    MessageScript script;
    script.drive([](QDialog& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    QCOMPARE(int(ask(flags)), answer);
    script.drive([](QDialog& form) { form.close(); });
    QCOMPARE(int(ask(flags)), answer);
    script.drive([](QDialog& form) { form.reject(); });
    QCOMPARE(int(ask(flags)), answer);
}

void tst_message_box::a_message_belongs_to_the_dialog_on_top()
{
    QWidget window;
    window.show();
    MessageScript script;
    script.expect(title, text, Answer::ok, [&](QDialog& form) { QCOMPARE(form.parentWidget(), &window); });
    ask(box::ok, &window);
    QDialog dialog(&window);
    script.drive([&](QDialog& form) {
        ask(box::ok, &window);
        form.accept();
    });
    script.expect(title, text, Answer::ok, [&](QDialog& form) { QCOMPARE(form.parentWidget(), &dialog); });
    dialog.exec();
    QCOMPARE(script.left(), 0);
}

QTEST_MAIN(tst_message_box)
#include "tst_message_box.moc"
