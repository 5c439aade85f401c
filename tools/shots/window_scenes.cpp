#include "shots/window_scenes.h"

#include "shots/studio.h"

#include "window/frmmain.h"

#include <QDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>

namespace tarnwick::shots {
namespace {

using Prefs = QHash<QString, QString>;

Prefs look(int points, int color, const char* list)
{
    return {{QStringLiteral("font"), QString::number(points)},
            {QStringLiteral("color"), QString::number(color)},
            {QStringLiteral("alist"), QLatin1String(list)},
            {QStringLiteral("arcp"), QStringLiteral("1")}};
}

QString sized(const char* name, int points)
{
    return QStringLiteral("%1-%2pt").arg(QLatin1String(name)).arg(points);
}

void list_manager(Studio& studio, int points)
{
    const auto shot = [&](const char* name, QSize size = {}) {
        studio.with_dialog([&] { studio.command(QStringLiteral("mnu_tools_listlist")); },
                           [&](QDialog& dialog) {
                               if (size.isValid())
                                   dialog.resize(size);
                               studio.shot(sized(name, points));
                           });
    };
    for (const int color : {1, 3}) {
        studio.start(look(points, color, "1"));
        shot(color == 3 ? "list-manager" : "list-manager-pink");
    }
    studio.start(look(points, 3, "0"));
    shot("list-manager-all-small", {170, 140});
    studio.use_empty_folder();
    studio.start({{QStringLiteral("font"), QString::number(points)}});
    shot("list-manager-empty");
    studio.use_household();
}

void find(Studio& studio, int points)
{
    studio.start(look(points, 3, "1"));
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_tools_find_item")); },
                       [&](QDialog& dialog) {
                           auto* text = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"));
                           studio.shot(sized("find-empty", points));
                           QTest::keyClicks(text, QStringLiteral("milk"));
                           QTest::keyClick(text, Qt::Key_Return);
                           studio.shot(sized("find-stock", points));
                           studio.click(studio.visible_child(QStringLiteral("Option1(1)"), &dialog));
                           text->selectAll();
                           QTest::keyClicks(text, QStringLiteral("soup"));
                           QTest::keyClick(text, Qt::Key_Return);
                           studio.shot(sized("find-recipe", points));
                           text->selectAll();
                           QTest::keyClicks(text, QStringLiteral("xyz"));
                           QTest::keyClick(text, Qt::Key_Return);
                           studio.shot(sized("find-nothing", points));
                       });
}

} // namespace

void small_windows(Studio& studio, int points)
{
    list_manager(studio, points);
    find(studio, points);
    studio.start(look(points, 2, "1"));
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_view_color")); },
                       [&](QDialog& dialog) {
                           studio.shot(sized("page-colors", points));
                           studio.click(studio.visible_child(QStringLiteral("color(1)"), &dialog));
                           studio.shot(sized("page-colors-another", points));
                       });
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_help_about")); },
                       [&](QDialog&) { studio.shot(sized("about", points)); });
}

void help_pages(Studio& studio)
{
    studio.start({});
    const QString file = studio.main().environment().program_folder + QStringLiteral("/help/twhelp.html");
    for (const int width : {360, 760, 1100}) {
        QTextBrowser page;
        page.setSource(QUrl::fromLocalFile(file));
        page.resize(width, 900);
        page.show();
        studio.settle();
        QScrollBar& bar = *page.verticalScrollBar();
        for (const int tenth : {0, 2, 4, 6, 9}) {
            bar.setValue(bar.maximum() * tenth / 9);
            studio.settle();
            studio.keep(QStringLiteral("help-%1-%2").arg(width).arg(tenth), page.grab().toImage());
        }
    }
}

} // namespace tarnwick::shots
