#include "recipes/recipe_lines.h"

#include "recipes/line_widgets.h"
#include "recipes/page_geometry.h"
#include "widgets/drawn_controls.h"
#include "widgets/tool_tip.h"
#include "household/status.h"
#include "household/status_names.h"

#include <QFontMetrics>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int check_left = 14;
constexpr int lite_left = 34;
constexpr int ingred_left = 58;
constexpr int picture_side = 16;
constexpr int off_middle = 1; ///< pixels, at most, from the middle of the text; half ones are rounded
constexpr int controls_width = 80; ///< of the page's width, not for the text

/// The first row of a line: the height in which its text is centred, and where the middle of its letters is then.
struct FirstRow {
    int height;
    int middle;
};

/// The text moves up from the middle of its line as far as it needs to stand beside its light.
FirstRow first_row(int height, const QFontMetrics& metrics, int type_size)
{
    using namespace page_geometry;
    const int above = (height - metrics.height()) / 2;
    const int middle = above + metrics.ascent() - metrics.xHeight() / 2;
    const int light = to_pixels(lite_top(0, 0, type_size) - ingred_top(0, 0, type_size)) + picture_side / 2;
    const int up = std::clamp(middle - light - off_middle, 0, std::max(above, 0));
    return {height - 2 * up, middle - up};
}

int text_width(int page_width)
{
    return std::max(1, page_width - controls_width);
}

} // namespace

void IngredientLine::count_capitals()
{
    upper
        = static_cast<int>(std::count_if(text.begin(), text.end(), [](QChar c) { return c >= u'A' && c <= u'Z'; }));
    other = static_cast<int>(text.size()) - upper;
}

RecipeLines::RecipeLines(QWidget& page)
    : page_(page)
{
    show_first_empty();
}

RecipeLines::Controls& RecipeLines::controls(int index)
{
    while (static_cast<int>(pool_.size()) <= index) {
        const int i = static_cast<int>(pool_.size());
        const Controls made{new IngredientText(&page_), new PagePicture(&page_), new PagePicture(&page_)};
        made.ingred->setObjectName(QStringLiteral("ingred(%1)").arg(i));
        made.lite->setObjectName(QStringLiteral("lite(%1)").arg(i));
        made.Check1->setObjectName(QStringLiteral("Check1(%1)").arg(i));
        set_drawn_control(*made.lite, DrawnControl::picture);
        set_drawn_control(*made.Check1, DrawnControl::check_box);
        made.ingred->hide();
        made.lite->hide();
        made.Check1->hide();
        if (i > 0) {
            made.ingred->setFont(pool_[0].ingred->font());
            made.ingred->set_text_color(pool_[0].ingred->text_color());
        }
        connect(made.ingred, &IngredientText::mouse_down, this,
                [this, i](Qt::MouseButton button, QPoint position) { emit mouse_down(i, button, position); });
        connect(made.ingred, &IngredientText::drag_wanted, this,
                [this, i](QPoint global) { emit drag_wanted(i, global); });
        connect(made.ingred, &IngredientText::mouse_up, this,
                [this, i](Qt::MouseButton button, QPoint position) { emit mouse_up(i, button, position); });
        connect(made.ingred, &IngredientText::keyboard_came, this, [this, i] { emit keyboard_came(i); });
        connect(made.ingred, &IngredientText::key_down, this, [this, i](int key) { emit key_down(i, key); });
        connect(made.Check1, &PagePicture::clicked, this, [this, i] { emit check_clicked(i); });
        pool_.push_back(made);
    }
    return pool_[static_cast<size_t>(index)];
}

void RecipeLines::show_first_empty()
{
    Controls& first = controls(0);
    first.Check1->setAccessibleName(QStringLiteral("Buy-it"));
    first.ingred->set_text(QStringLiteral(" "));
    first.ingred->setToolTip({});
    first.ingred->setProperty("Tag", QString());
    first.ingred->set_text_color(Qt::black);
    first.lite->setProperty("Tag", QStringLiteral("-1"));
    first.lite->move(lite_left, page_geometry::to_pixels(page_geometry::lite_top(0, 0, 9)));
    first.Check1->setProperty("Tag", QStringLiteral("-1"));
    first.Check1->move(check_left, page_geometry::to_pixels(612));
    first.Check1->setEnabled(true);
}

void RecipeLines::clear()
{
    lines_.clear();
    wrap_extra_ = 0;
    surplus_ = 0;
    show_first_empty();
}

IngredientLine& RecipeLines::append(Key key, Key item_ref, const QString& text, const QString& item)
{
    const Controls& made = controls(count());
    IngredientLine line;
    line.key = key;
    line.item_ref = item_ref;
    line.text = text;
    line.item = item;
    line.ingred = made.ingred;
    line.lite = made.lite;
    line.Check1 = made.Check1;
    line.count_capitals();
    made.ingred->set_selected(false);
    made.ingred->set_text_color(Qt::black);
    lines_.push_back(line);
    return lines_.back();
}

int RecipeLines::index_of(Key line) const
{
    const auto found = std::find_if(lines_.begin(), lines_.end(), [line](const auto& l) { return l.key == line; });
    return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

// The records move; the controls stay at their places.
void RecipeLines::move(int from, int to)
{
    const auto at = [this](int index) { return lines_.begin() + index; };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
    for (int i = std::min(from, to); i <= std::max(from, to); ++i) {
        const Controls& here = controls(i);
        IngredientLine& line = lines_[static_cast<size_t>(i)];
        line.ingred = here.ingred;
        line.lite = here.lite;
        line.Check1 = here.Check1;
    }
}

void RecipeLines::remove_last()
{
    if (lines_.empty())
        return;
    const IngredientLine last = lines_.back();
    lines_.pop_back();
    last.ingred->hide();
    last.lite->hide();
    last.Check1->hide();
    if (lines_.empty())
        show_first_empty();
}

void RecipeLines::refresh(int index)
{
    const IngredientLine& line = lines_.at(static_cast<size_t>(index));
    if (line.ingred->text() != line.text)
        line.ingred->set_text(line.text);
    line.ingred->setToolTip(plain_tool_tip(line.tool_tip));
    line.ingred->setProperty("Tag", QStringLiteral("%1^%2^").arg(line.other).arg(line.upper) + line.item);
    line.Check1->setAccessibleName(QStringLiteral("Buy-it, ") + line.text);
    line.lite->setProperty("Tag", QString::number(line.key));
    line.Check1->setProperty("Tag", QString::number(line.item_ref));
}

void RecipeLines::set_lites(int index, StatusCode code, int color_index)
{
    const Controls& shown = controls(index);
    const StatusPictures pictures = status_pictures(code);
    shown.lite->set_picture(pictures.light + color_index);
    shown.lite->setAccessibleName(status_name(code));
    set_drawn_check(*shown.Check1, pictures.check != picture_base::check_off);
    shown.Check1->set_picture(pictures.check + color_index);
    shown.Check1->setEnabled(pictures.check_enabled);
}

bool RecipeLines::has_room(const QString& text, int page_width, int type_size) const
{
    IngredientLine line;
    line.text = text;
    line.count_capitals();
    const int width = page_geometry::px_x(text_width(page_width));
    const int more_rows = page_geometry::estimated_rows(line.upper, line.other, width, 0) - 1;
    const int index = count() - (has_new_line() ? 1 : 0);
    return page_geometry::lite_top(index, wrap_extra_ + more_rows, type_size) <= page_geometry::lowest_lite;
}

void RecipeLines::place(int page_width, int type_size)
{
    using namespace page_geometry;
    const int width = text_width(page_width);
    wrap_extra_ = 0;
    surplus_ = 0;
    for (int i = 0; i < count(); ++i) {
        IngredientLine& line = lines_[static_cast<size_t>(i)];
        const int step = line.simple_height ? 0 : size_step(type_size);
        const int estimate = estimated_rows(line.upper, line.other, px_x(width), step);
        line.rows = std::max(estimate, line.ingred->rows_in(width));
        place_line(i, width, type_size);
        wrap_extra_ += estimate - 1;
        surplus_ += (line.rows - estimate) * row_pitch(type_size);
    }
}

// The extra rows of a line count for the lines under it: counted into its own top as well they would
// leave a gap above the text and let it run into the next line.
void RecipeLines::place_line(int index, int width, int type_size)
{
    using namespace page_geometry;
    const IngredientLine& line = lines_[static_cast<size_t>(index)];
    const int more_rows = (line.rows - 1) * row_pitch(type_size);
    const int top = to_pixels(ingred_top(index, wrap_extra_, type_size)) + surplus_;
    const int wanted = line.simple_height ? simple_line_height(line.rows) : line_height(line.rows, type_size);
    const int room = line_pitch(type_size) + more_rows;
    const int needed = std::min(room, line.ingred->fontMetrics().height() + more_rows);
    const int height = std::clamp(to_pixels(wanted), needed, room);
    const FirstRow first = first_row(height - more_rows, line.ingred->fontMetrics(), type_size);
    line.ingred->set_pitch(row_pitch(type_size), first.height);
    line.ingred->setGeometry(ingred_left, top, width, height);

    // Lights and lines have slightly different steps; a light keeps to the middle of its line's first row.
    const int beside = top + first.middle - picture_side / 2;
    const auto beside_line = [&](int twips) {
        return std::clamp(to_pixels(twips) + surplus_, beside - off_middle, beside + off_middle);
    };
    line.lite->move(lite_left, beside_line(lite_top(index, wrap_extra_, type_size)));
    line.Check1->move(check_left, beside_line(check_top(index, wrap_extra_, type_size)));
}

void RecipeLines::show_lines()
{
    for (int i = 0; i < static_cast<int>(pool_.size()); ++i) {
        const Controls& set = pool_[static_cast<size_t>(i)];
        for (QWidget* control : {static_cast<QWidget*>(set.lite), static_cast<QWidget*>(set.ingred),
                                 static_cast<QWidget*>(set.Check1)}) {
            const bool shown = i < count();
            if (control->isHidden() == shown)
                control->setVisible(shown);
        }
    }
}

void RecipeLines::set_fonts(const QFont& font)
{
    for (const Controls& shown : pool_)
        shown.ingred->setFont(font);
}

void RecipeLines::set_text_color(const QColor& color)
{
    for (const IngredientLine& line : lines_)
        line.ingred->set_text_color(color);
}

int RecipeLines::bottom() const
{
    return lines_.empty() ? 0 : lines_.back().ingred->geometry().bottom() + 1;
}

} // namespace tarnwick
