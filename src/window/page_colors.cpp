#include "window/page_colors.h"

#include "dialogs/frmColor.h"
#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "widgets/row_editor.h"
#include "widgets/update_lock.h"
#include "window/frmmain.h"
#include "window/view_state.h"

#include <QApplication>
#include <QDialog>
#include <QScrollBar>

namespace tarnwick {
namespace {

/// The lights of the lines are drawn on the page colour: the recipe is set again, at the place where it stood.
void redraw_recipe(frmmain& main)
{
    RecipePage& page = main.recipe_page();
    page.set_page_color();
    if (!page.has_recipe())
        return;
    const int scrolled = page.scroll_bar().value();
    page.set_recipe(page.page_key());
    if (!main.shared.list_pane_shown)
        page.layout_page();
    page.scroll_bar().setValue(scrolled);
}

void redraw_list(frmmain& main)
{
    if (main.row_editor().is_open())
        main.row_editor().lv_edit_off();
    main.list_pane().set_page_color();
}

void close_item_editor()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("l_item_edit") && window->isVisible())
            static_cast<QDialog*>(window)->reject();
    }
}

} // namespace

void set_color(frmmain& main, int index)
{
    {
        const UpdateLock lock(main);
        if (page_color_of(index))
            main.shared.color_index = index;
        redraw_list(main);
        redraw_recipe(main);
        main.l_r_refresh();
    }
    emit main.view_state().looks_changed();
    close_item_editor();
    main.settings().set_pref(QStringLiteral("color"), QString::number(index));
}

void choose_color(frmmain& main)
{
    frmColor(&main, main.shared.color_index, main.shared.type_size, [&main](int index) {
        set_color(main, index);
    }).exec();
}

} // namespace tarnwick
