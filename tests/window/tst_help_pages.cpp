#include "support/test_window.h"
#include "window/menu_table.h"
#include "window/toolbar.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QShortcut>
#include <QToolButton>
#include <QtTest>

using namespace tarnwick;

namespace {

QString text_of(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QString help_file(const QString& name)
{
    return QStringLiteral(HELP_DIR "/") + name;
}

QString help()
{
    return text_of(help_file(QStringLiteral("twhelp.html")));
}

/// What each match of a pattern with one group has in it.
QStringList all(const QString& text, const char* pattern)
{
    QStringList found;
    QRegularExpression expression(QLatin1String(pattern), QRegularExpression::DotMatchesEverythingOption);
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found += match.next().captured(1);
    return found;
}

QString section(const QString& id)
{
    const QStringList found = all(help(), qPrintable(QStringLiteral("<section id=\"%1\">(.*?)</section>").arg(id)));
    return found.value(0);
}

QString plain(QString markup)
{
    markup.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
    markup.replace(QLatin1String("&lt;"), QLatin1String("<"));
    markup.replace(QLatin1String("&gt;"), QLatin1String(">"));
    return markup.replace(QLatin1String("&amp;"), QLatin1String("&")).trimmed();
}

/// The cells of a table's rows, each row as "cell|cell|cell".
QStringList help_keys()
{
    QStringList rows;
    for (const QString& row : all(section(QStringLiteral("keys")), "<tr>(.*?)</tr>")) {
        QStringList cells;
        for (const QString& cell : all(row, "<td>(.*?)</td>"))
            cells += plain(cell);
        if (!cells.isEmpty())
            rows += cells.join(u'|');
    }
    return rows;
}

QStringList listed_keys()
{
    QStringList rows;
    for (const QString& line : text_of(QStringLiteral(KEYS_FILE)).split(u'\n')) {
        if (!line.startsWith(u'|') || line.startsWith(QLatin1String("|-"))
            || line.startsWith(QLatin1String("| Where")))
            continue;
        QStringList cells = line.split(u'|', Qt::SkipEmptyParts);
        for (QString& cell : cells)
            cell = cell.trimmed();
        rows += cells.join(u'|');
    }
    return rows;
}

} // namespace

class tst_help_pages : public QObject {
    Q_OBJECT
private slots:
    void every_picture_named_exists_and_every_picture_is_named();
    void every_entry_of_the_contents_leads_to_its_section();
    void every_command_of_the_menus_is_listed();
    void every_button_of_the_toolbar_is_listed();
    void the_keys_are_those_of_the_list_of_keys();
    void every_shortcut_of_the_window_is_listed();
    void the_page_needs_nothing_from_elsewhere();
};

void tst_help_pages::every_picture_named_exists_and_every_picture_is_named()
{
    const QStringList named = all(help(), "<img [^>]*src=\"([^\"]*)\"");
    QVERIFY(named.size() > 5);
    qint64 bytes = 0;
    for (const QString& name : named) {
        QVERIFY2(!QImage(help_file(name)).isNull(), qPrintable(name));
        bytes += QFile(help_file(name)).size();
    }
    for (const QString& file : QDir(QStringLiteral(HELP_DIR)).entryList({QStringLiteral("*.png")}))
        QVERIFY2(named.contains(file), qPrintable(file));
    QCOMPARE(all(help(), "<img [^>]*alt=\"([^\"]+)\"").size(), named.size());
    QVERIFY2(bytes < 400'000, qPrintable(QString::number(bytes)));
}

void tst_help_pages::every_entry_of_the_contents_leads_to_its_section()
{
    const QStringList entries = all(help(), "<li><a href=\"#([^\"]*)\"");
    QCOMPARE(entries, all(help(), "<section id=\"([^\"]*)\""));
    QVERIFY(entries.size() > 10);
    for (const QString& file : all(help(), "<link [^>]*href=\"([^\"]*)\""))
        QVERIFY2(QFile::exists(help_file(file)), qPrintable(file));
}

void tst_help_pages::every_command_of_the_menus_is_listed()
{
    QStringList listed;
    for (const QString& cell : all(section(QStringLiteral("commands")), "<td>(.*?)</td>"))
        listed += plain(cell).split(QRegularExpression(QStringLiteral("[:,] ")));
    int commands = 0;
    for (const MenuRow& row : menu_table()) {
        if (row.kind != MenuKind::command && row.kind != MenuKind::check)
            continue;
        ++commands;
        QVERIFY2(listed.contains(QString::fromUtf8(row.caption).remove(u'&')), row.caption);
    }
    QVERIFY(commands > 50);
}

void tst_help_pages::every_button_of_the_toolbar_is_listed()
{
    TestWindow w;
    w.load({1400, 700});
    const QStringList listed = all(section(QStringLiteral("commands")), "<tr><td>([^<]*)</td>");
    int buttons = 0;
    for (int i = 1; i <= 18; ++i) {
        const auto* button = w.find<QToolButton>(QStringLiteral("Toolbar1(%1)").arg(i));
        if (!button)
            continue;
        ++buttons;
        QVERIFY2(listed.contains(button->text()), qPrintable(button->text()));
    }
    QCOMPARE(buttons, 14);
}

void tst_help_pages::the_keys_are_those_of_the_list_of_keys()
{
    QVERIFY(listed_keys().size() > 20);
    QCOMPARE(help_keys(), listed_keys());
}

void tst_help_pages::every_shortcut_of_the_window_is_listed()
{
    QStringList keys;
    for (const QString& row : listed_keys())
        keys += row.split(u'|').at(1).split(QLatin1String(", "));
    TestWindow w;
    w.load();
    QStringList shortcuts;
    for (const QShortcut* shortcut : w.main().findChildren<QShortcut*>())
        shortcuts += shortcut->key().toString();
    for (const QAction* action : w.main().findChildren<QAction*>())
        for (const QKeySequence& sequence : action->shortcuts())
            shortcuts += sequence.toString();
    QVERIFY(shortcuts.contains(QStringLiteral("F6")));
    for (const QString& shortcut : shortcuts)
        QVERIFY2(keys.contains(shortcut), qPrintable(shortcut));
}

void tst_help_pages::the_page_needs_nothing_from_elsewhere()
{
    QVERIFY(!help().contains(QLatin1String("http")));
    QVERIFY(!help().contains(QLatin1String("<script")));
    QVERIFY(help().contains(QLatin1String("name=\"viewport\"")));
}

QTEST_MAIN(tst_help_pages)
#include "tst_help_pages.moc"
