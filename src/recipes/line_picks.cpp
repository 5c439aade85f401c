#include "recipes/line_picks.h"

#include "widgets/shared_values.h"
#include "recipes/line_boxes.h"
#include "recipes/page_text.h"
#include "recipes/pick_list.h"
#include "recipes/recipe_page.h"
#include "widgets/row_editor_controls.h"

#include <QFrame>
#include <QScrollBar>

namespace tarnwick {

LinePicks::LinePicks(Connection& connection, const SharedValues& shared, RecipePage& page, LineBoxes& boxes)
    : connection_(connection)
    , shared_(shared)
    , page_(page)
    , boxes_(boxes)
    , list_(new PickList(page.frame4().parentWidget()))
{
    connect(&page_.scroll_bar(), &QScrollBar::valueChanged, this, &LinePicks::place);
}

void LinePicks::fill(IngredientField field)
{
    field_ = field;
    switch (field) {
    case IngredientField::qty:
        list_->ListIngred_fill_qty();
        show_at_box();
        break;
    case IngredientField::measure:
        list_->ListIngred_fill_measure();
        show_at_box();
        break;
    case IngredientField::item:
        show_names(names_like(boxes_.text(field)));
        break;
    default:
        list_->clear_and_hide();
    }
}

std::vector<StockName> LinePicks::names_like(const QString& text) const
{
    return text.isEmpty() ? std::vector<StockName>() : stock_names_like(connection_, text);
}

void LinePicks::show_names(std::vector<StockName> names)
{
    field_ = IngredientField::item;
    list_->ListIngred_fill(std::move(names));
    show_at_box();
}

void LinePicks::place()
{
    if (!list_->isHidden())
        show_at_box();
}

void LinePicks::show_at_box()
{
    constexpr int least = 120;
    constexpr int least_large = 173; ///< 2600 twips
    const QWidget& edit = boxes_.edit(field_);
    const QRect viewport = page_.frame4().geometry();
    const QRect box(edit.mapTo(list_->parentWidget(), QPoint(0, 0)), edit.size());
    if (!viewport.contains(box.center()) || list_->count() == 0) {
        if (list_->hasFocus())
            emit out_of_sight(field_);
        list_->hide();
        return;
    }
    constexpr int line_darker = 200; // percent, as the lines around the boxes
    QPalette colors = page_.frame4().palette();
    colors.setColor(QPalette::WindowText, colors.color(QPalette::Base).darker(line_darker));
    list_->setPalette(colors);
    list_->setFont(page_.Text1().font());
    list_->place(box, viewport, shared_.type_size == 12 ? least_large : least);
    list_->show();
    list_->raise();
}

} // namespace tarnwick
