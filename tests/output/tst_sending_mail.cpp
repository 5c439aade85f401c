#include "output/sending_steps.h"
#include "support/tool_button.h"

using namespace tarnwick;
using namespace tarnwick::sending_steps;

/// Lists and recipes on their way to the mail program.
class tst_sending_mail : public QObject {
    Q_OBJECT
private slots:
    void a_list_goes_to_the_mail_program_as_one_address();
    void a_recipe_goes_to_the_mail_program_as_one_address();
    void the_email_button_follows_its_tag();
    void a_cancelled_mail_opens_nothing();
    void a_mail_without_rows_gives_the_message();
    void no_mail_program_gives_its_message();
    void a_body_of_30000_characters_is_handed_over_whole();
    void a_mail_beyond_what_the_desktop_takes_is_refused_with_a_message_data();
    void a_mail_beyond_what_the_desktop_takes_is_refused_with_a_message();
};

void tst_sending_mail::a_list_goes_to_the_mail_program_as_one_address()
{
    EditingWindow window;
    quiet(window);
    window.row(QStringLiteral("Crème & {tea} 🍵"), QStringLiteral("d'Anjou"), QStringLiteral("2"));
    window.load();
    MessageScript script;
    choose(script, Choice::buy_it);
    QTest::mouseClick(window.find<QWidget>(tool_button(ToolButton::email)), Qt::LeftButton);
    QVERIFY(address(window).startsWith("mailto:?subject=Corner%20shop%20list&body=Corner%20shop%20list%0D%0A%0D%0A"
                                       "Item%20%20"));
    QVERIFY(address(window).contains("%0D%0ACr%C3%A8me%20%26%20%7Btea%7D%20%F0%9F%8D%B5%20%20"));
    QVERIFY(address(window).contains("d%27Anjou"));
    QVERIFY(exports(window).isEmpty());
}

void tst_sending_mail::a_recipe_goes_to_the_mail_program_as_one_address()
{
    LineWindow window;
    quiet(window);
    window.add_line(window.recipe, QStringLiteral("salt"));
    window.open();
    const MessageScript script;
    run(window, "mnu_tools_email_rcp");
    QCOMPARE(address(window), QByteArray("mailto:?subject=Soup&body=Soup%0D%0A%0D%0Asalt%0D%0A%0D%0AStir."));
}

void tst_sending_mail::the_email_button_follows_its_tag()
{
    LineWindow window;
    quiet(window);
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), window.add_list(QStringLiteral("Weekly")), true);
    window.open();
    const MessageScript script;
    QTest::mouseClick(window.find<QWidget>(tool_button(ToolButton::email)), Qt::LeftButton);
    QVERIFY(address(window).startsWith("mailto:?subject=Soup&"));
}

void tst_sending_mail::a_cancelled_mail_opens_nothing()
{
    EditingWindow window;
    quiet(window);
    window.row(QStringLiteral("Milk"));
    window.load();
    MessageScript script;
    choose(script, Choice::cancel);
    run(window, "mnu_tools_email_list");
    QVERIFY(window.opened.empty());
}

void tst_sending_mail::a_mail_without_rows_gives_the_message()
{
    EditingWindow window;
    quiet(window);
    window.load();
    MessageScript script;
    choose(script, Choice::all);
    script.expect(QStringLiteral("Tarnwick"), QStringLiteral("No shopping list items found"));
    run(window, "mnu_tools_email_list");
    QVERIFY(window.opened.empty());
}

void tst_sending_mail::no_mail_program_gives_its_message()
{
    LineWindow window;
    quiet(window);
    window.environment().open_url = [](const QUrl&) { return false; };
    window.open();
    MessageScript script;
    script.expect(QStringLiteral("Tarnwick"),
                  QStringLiteral("There was a problem opening the current email application"));
    run(window, "mnu_tools_email_rcp");
}

void tst_sending_mail::a_body_of_30000_characters_is_handed_over_whole()
{
    LineWindow window;
    quiet(window);
    window.open();
    const QString body = QStringLiteral("Stir and wait, %1. ").repeated(1579).left(29999) + u'!';
    window.Text1().set_text(body);
    const MessageScript script;
    run(window, "mnu_tools_email_rcp");
    QVERIFY(address(window).size() <= window.environment().longest_url);
    QVERIFY(QByteArray::fromPercentEncoding(address(window)).endsWith(body.toUtf8()));
}

void tst_sending_mail::a_mail_beyond_what_the_desktop_takes_is_refused_with_a_message_data()
{
    QTest::addColumn<int>("too_long");
    QTest::newRow("just fits") << 0;
    QTest::newRow("one byte more") << 1;
}

void tst_sending_mail::a_mail_beyond_what_the_desktop_takes_is_refused_with_a_message()
{
    QFETCH(int, too_long);
    LineWindow window;
    quiet(window);
    const QByteArray head("mailto:?subject=Soup&body=Soup%0D%0A%0D%0A%0D%0A");
    window.environment().longest_url = 30000;
    window.open();
    window.Text1().set_text(QString(30000 - head.size() + too_long, u'x'));
    MessageScript script;
    if (too_long > 0)
        script.expect(QStringLiteral("Tarnwick"),
                      QStringLiteral("This recipe is too long to be handed to the\ncurrent email application "
                                     "whole.\n\nYou may open it in your word processing\napplication instead."));
    run(window, "mnu_tools_email_rcp");
    QCOMPARE(window.opened.size(), too_long > 0 ? size_t{0} : size_t{1});
    if (too_long == 0)
        QCOMPARE(address(window).size(), 30000);
}

QTEST_MAIN(tst_sending_mail)
#include "tst_sending_mail.moc"
