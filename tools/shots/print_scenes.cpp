#include "shots/print_scenes.h"

#include "shots/studio.h"

#include "recipes/page_text.h"
#include "recipes/recipe_page.h"
#include "window/frmmain.h"

#include <QDialog>

namespace tarnwick::shots {
namespace {

using Prefs = QHash<QString, QString>;

constexpr QSize whole_page(790, 1040);

Prefs all_lists()
{
    return {{QStringLiteral("font"), QStringLiteral("9")},
            {QStringLiteral("s_all"), QStringLiteral("1")},
            {QStringLiteral("alist"), QStringLiteral("0")}};
}

Prefs first_recipe()
{
    return {{QStringLiteral("font"), QStringLiteral("9")},
            {QStringLiteral("tv_view"), QStringLiteral("0")},
            {QStringLiteral("lv_view"), QStringLiteral("0")},
            {QStringLiteral("arcp"), QStringLiteral("1")}};
}

/// Opens the preview of what the right pane shows, and takes its picture at a size.
void preview_shot(Studio& studio, const QString& name, QSize size, int page = 1)
{
    studio.with_dialog(
        [&] {
            studio.click(studio.visible_child(QStringLiteral("Toolbar1(11)")), {10, 20});
        },
        [&](QDialog& dialog) {
            dialog.resize(size);
            studio.settle();
            for (int i = 1; i < page; ++i)
                studio.click(studio.visible_child(QStringLiteral("Command1(2)"), &dialog));
            studio.shot(name);
        });
}

void list_pages(Studio& studio)
{
    studio.start(all_lists());
    ReportOptions& options = studio.main().shared.reports;
    for (Key columns = 1; columns <= 2; ++columns)
        for (Key sort = 0; sort <= 2; ++sort)
            for (Key size = 0; size <= 2; ++size) {
                options = {sort, columns, static_cast<Key>(sort == 0 ? 0 : 1), size};
                preview_shot(studio, QStringLiteral("preview-%1col-sort%2-size%3").arg(columns).arg(sort).arg(size),
                             whole_page);
            }
    options = {1, 2, 0, 1};
    preview_shot(studio, QStringLiteral("preview-page-2"), whole_page, 2);
    preview_shot(studio, QStringLiteral("preview-narrow"), {520, 420});
    for (Key columns = 1; columns <= 2; ++columns) {
        options = {1, columns, 0, 1};
        studio.print(QStringLiteral("paper-%1col").arg(columns), QStringLiteral("mnu_list_Print"));
    }
}

void recipe_pages(Studio& studio)
{
    studio.start(first_recipe());
    preview_shot(studio, QStringLiteral("preview-recipe"), whole_page);
    studio.print(QStringLiteral("paper-recipe"), QStringLiteral("mnu_recipe_prnt"));
    PageText& body = studio.main().recipe_page().Text1();
    QString text = body.text();
    while (text.size() < 4000)
        text += QStringLiteral("\r\n") + body.text();
    body.set_text(text);
    preview_shot(studio, QStringLiteral("preview-long-recipe"), whole_page);
    studio.print(QStringLiteral("paper-long-recipe"), QStringLiteral("mnu_recipe_prnt"));
}

} // namespace

void print_scenes(Studio& studio)
{
    list_pages(studio);
    recipe_pages(studio);
}

} // namespace tarnwick::shots
