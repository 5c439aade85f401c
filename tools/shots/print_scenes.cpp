#include "shots/print_scenes.h"

#include "shots/studio.h"

#include "recipes/page_text.h"
#include "recipes/recipe_page.h"
#include "window/frmmain.h"
#include "window/output_commands.h"

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

/// Opens the preview of what the right pane shows, at a size.
void in_preview(Studio& studio, QSize size, const std::function<void(QDialog&)>& look)
{
    studio.with_dialog(
        [&] {
            studio.click(studio.visible_child(QStringLiteral("Toolbar1(11)")), {10, 20});
        },
        [&](QDialog& dialog) {
            dialog.resize(size);
            studio.settle();
            look(dialog);
        });
}

/// Takes a picture of every page of the preview: NAME, NAME-page-2 and so on.
void preview_shots(Studio& studio, const QString& name)
{
    in_preview(studio, whole_page, [&](QDialog& dialog) {
        studio.shot(name);
        const int pages = dialog.property("page_count").toInt();
        for (int page = 2; page <= pages; ++page) {
            studio.click(studio.visible_child(QStringLiteral("Command1(2)"), &dialog));
            studio.shot(QStringLiteral("%1-page-%2").arg(name).arg(page));
        }
    });
}

/// The same for the preview of a recipe, which closes and comes again for another page.
void recipe_preview_shots(Studio& studio, const QString& name)
{
    int page = 0;
    const std::function<void(QDialog&)> look = [&](QDialog& dialog) {
        studio.shot(++page == 1 ? name : QStringLiteral("%1-page-%2").arg(name).arg(page));
        QWidget* next = studio.visible_child(QStringLiteral("Command1(3)"), &dialog);
        if (!next || !next->isEnabled())
            return;
        studio.drive_next(look);
        studio.click(next);
    };
    in_preview(studio, whole_page, look);
}

/// Every page of every form that the list's report has, in the preview and on paper.
void list_pages(Studio& studio)
{
    studio.start(all_lists());
    ReportOptions& options = studio.main().output().reports();
    for (Key columns = 1; columns <= 2; ++columns)
        for (Key sort = 0; sort <= 2; ++sort)
            for (Key size = 0; size <= 2; ++size) {
                options = {report_sort_of(sort), columns, static_cast<Key>(sort == 0 ? 0 : 1), size};
                const QString form = QStringLiteral("%1col-sort%2-size%3").arg(columns).arg(sort).arg(size);
                preview_shots(studio, QStringLiteral("preview-") + form);
                studio.print(QStringLiteral("paper-") + form, QStringLiteral("mnu_list_Print"));
            }
    in_preview(studio, {520, 420}, [&](QDialog&) { studio.shot(QStringLiteral("preview-narrow")); });
}

void recipe_pages(Studio& studio)
{
    studio.start(first_recipe());
    recipe_preview_shots(studio, QStringLiteral("preview-recipe"));
    studio.print(QStringLiteral("paper-recipe"), QStringLiteral("mnu_recipe_prnt"));
    PageText& body = studio.main().recipe_page().Text1();
    QString text = body.text();
    while (text.size() < 4000)
        text += QStringLiteral("\r\n") + body.text();
    body.set_text(text);
    recipe_preview_shots(studio, QStringLiteral("preview-long-recipe"));
    studio.print(QStringLiteral("paper-long-recipe"), QStringLiteral("mnu_recipe_prnt"));
}

} // namespace

void print_scenes(Studio& studio)
{
    list_pages(studio);
    recipe_pages(studio);
}

} // namespace tarnwick::shots
