#include "recipes/line_editor.h"

#include "window/frmmain.h"
#include "widgets/update_lock.h"
#include "widgets/row_editor.h"
#include "widgets/row_editor_controls.h"
#include "recipes/ingredients.h"
#include "recipes/line_widgets.h"
#include "recipes/lost_click.h"
#include "recipes/page_geometry.h"
#include "recipes/page_text.h"
#include "recipes/pick_list.h"
#include "recipes/recipe_page.h"
#include "window/commands.h"
#include "widgets/last_press.h"
#include "widgets/tool_tip.h"
#include "household/status.h"

#include <QApplication>
#include <QFrame>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <numeric>

namespace tarnwick {
namespace {

constexpr const char* tag = "Tag";
constexpr std::array field_names{"Quantity", "Measure", "Item", "Comment"};
constexpr QColor placeholder_color(255, 0, 0);
constexpr QColor grey(164, 164, 164);
constexpr int room_for_list = 160; ///< pixels kept free under a line that is opened

// Widths of the boxes at the smallest type size, pixels, and of all of them at the others.
constexpr std::array<int, 4> design_widths{38, 38, 81, 102};
constexpr int medium_width = 440;
constexpr int large_width = 500;
constexpr int design_height = 19;
constexpr int inset = 2;
constexpr int text_margin = 8 + inset; ///< what a box needs beside its text
constexpr int end_gap = 2; ///< between boxes and frame
constexpr int button_gap = 1;
constexpr int frame_margin = 4; ///< left of the pencil

constexpr int pencil = 101; ///< resource numbers
constexpr int pencil_large = 109;
constexpr int cross = 111;
constexpr int cross_large = 190;

constexpr int item_box = static_cast<int>(IngredientField::item);

} // namespace

LineEditor::LineEditor(frmmain& main, RecipePage& page)
    : QObject(&page)
    , main_(main)
    , page_(page)
    , ingredients_(std::make_unique<Ingredients>(main, page, *this))
    , lost_click_(new LostClick(this))
{
    make_boxes();
    RecipeLines& lines = page_.recipe_lines();
    connect(&lines, &RecipeLines::mouse_down, this, &LineEditor::mouse_down);
    connect(&lines, &RecipeLines::mouse_up, this, &LineEditor::mouse_up);
    connect(&lines, &RecipeLines::key_down, this, [this](int index, int key) {
        if (key == Qt::Key_Delete)
            ingredients_->ingred_del(index);
    });
    connect(&page_, &RecipePage::laid_out, this, &LineEditor::place);
    connect(&page_.scroll_bar(), &QScrollBar::valueChanged, this, [this] {
        if (!list_->isHidden())
            place_list();
    });
}

LineEditor::~LineEditor() = default;

void LineEditor::make_boxes()
{
    const auto box = [this](const char* name, const char* placeholder) {
        return Box{new CellBox(QLatin1String(name), &page_.frame3()), QLatin1String(placeholder)};
    };
    boxes_ = {box("ing_flt_txtQty", "(Qty)"), box("ing_flt_txtMeasure", "(Measure)"),
              box("ing_flt_txtItem", "(Item)"), box("ing_flt_txtDesc", "(Comment)")};
    for (int i = 0; i < 4; ++i) {
        CellBox& edit = *boxes_[static_cast<size_t>(i)].edit;
        edit.setFocusPolicy(Qt::ClickFocus);
        edit.setTextMargins(inset, 0, 0, 0);
        edit.setAccessibleName(QLatin1String(field_names[static_cast<size_t>(i)]));
        edit.installEventFilter(this);
        connect(&edit, &QLineEdit::textChanged, this, [this, i] { box_changed(i); });
    }
    list_ = new PickList(page_.frame4().parentWidget());
    connect(list_, &PickList::picked, this, &LineEditor::picked);
    connect(list_, &PickList::left, this, &LineEditor::list_left);
}

void LineEditor::make_end_frame()
{
    if (end_frame_)
        return;
    end_frame_ = new EndFrame(QStringLiteral("frmEditDel"), &page_.frame3());
    imgedit_ = new PictureButton(QStringLiteral("imgedit"), end_frame_);
    imgScratch_ = new PictureButton(QStringLiteral("imgScratch"), end_frame_);
    for (PictureButton* button : {imgedit_, imgScratch_}) {
        button->setFocusPolicy(Qt::ClickFocus);
        button->installEventFilter(this);
        LastPress::require_on(*button);
    }
    imgedit_->setAccessibleName(QStringLiteral("Edit stock item"));
    imgScratch_->setAccessibleName(QStringLiteral("Delete ingredient"));
    connect(imgedit_, &QAbstractButton::clicked, this, &LineEditor::edit_clicked);
    connect(imgScratch_, &QAbstractButton::clicked, this, &LineEditor::scratch_clicked);
}

int LineEditor::index() const
{
    return index_ < page_.recipe_lines().count() ? index_ : -1;
}

void LineEditor::mouse_down(int index, Qt::MouseButton button)
{
    if (index >= page_.recipe_lines().count())
        return;
    const IngredientText& first = *page_.lines().front().ingred;
    if (button == Qt::LeftButton)
        ingredients_->work.lines_greyed = !first.isHidden() && first.text_color() == grey;
    else
        page_.state.cur_line = page_.state.sel_line = index;
}

void LineEditor::mouse_up(int index, Qt::MouseButton button, QPoint position)
{
    if (index >= page_.recipe_lines().count())
        return;
    if (button == Qt::RightButton) {
        show_menu(index, position);
    } else if (button == Qt::LeftButton && std::exchange(ingredients_->work.lines_greyed, false)) {
        if (open_)
            leave();
        else
            blacken_lines();
    } else if (button == Qt::LeftButton) {
        leave();
        if (!open_ && index < page_.recipe_lines().count())
            open_line(index);
    }
}

void LineEditor::show_menu(int index, QPoint position)
{
    const QString name = page_.rcp_item(index);
    Commands& commands = main_.commands();
    commands.set_caption(QStringLiteral("mnu_ingred_del"),
                         QStringLiteral("Delete '") + name + QStringLiteral("' from ")
                             + trim(main_.shared.cur_recipe_name));
    commands.menu(QStringLiteral("mnu_ingred"))
        .popup(page_.lines()[static_cast<size_t>(index)].ingred->mapToGlobal(position));
}

void LineEditor::open_line(int index)
{
    const IngredientLine& line = page_.lines()[static_cast<size_t>(index)];
    page_.state.sel_line = index;
    page_.state.cur_line = index;
    page_.state.line_mode = line_mode::existing;
    main_.shared.editor_mode = edit_mode::recipe_item;
    main_.shared.item_in_work = line.item_ref;
    main_.shared.ingredient_in_work = line.key;
    line.ingred->set_selected(true);
    show_r_line(index);
    line.ingred->set_selected(open_);
}

void LineEditor::show_r_line(int index)
{
    if (open_)
        return;
    Connection& connection = main_.connection();
    LineWork& work = ingredients_->work;
    const bool is_new = index < 0;
    std::optional<IngredientRow> row = IngredientRow();
    if (!is_new) {
        row = read_line(connection, page_.lines().at(static_cast<size_t>(index)).key);
        if (!row)
            return;
    }
    work.is_new = is_new;
    work.item_changed = false;
    work.ing_flags.fill(false);
    work.ing_flags[LineWork::any_field] = is_new;
    if (is_new) {
        index = page_.new_line(-1, -1, QStringLiteral(" "), QString());
        page_.set_lites(index, status_code::non_stock);
    }
    page_.state.sel_line = index;
    page_.state.cur_line = index;
    const int top = page_.lines()[static_cast<size_t>(index)].ingred->y();
    page_.show_stretch(top, top + std::min(room_for_list, page_.frame4().height() - 1));
    index_ = index;
    open_ = true;
    fill_boxes(*row);
    show_controls();
    grey_lines();
    go_to(0);
}

void LineEditor::fill_boxes(const IngredientRow& row)
{
    make_end_frame();
    const std::array<const QString*, 4> texts{&row.qty, &row.measure, &row.item, &row.comment};
    for (int i = 0; i < 4; ++i)
        set_field(static_cast<IngredientField>(i), *texts[static_cast<size_t>(i)]);
    opened_ = row;
    opened_link_ = row.item_ref;
    last_box_ = 0;
    const bool is_new = ingredients_->work.is_new;
    const bool stock = lite_status(main_.connection(), row.item_ref) != status_code::non_stock;
    imgedit_->setToolTip(plain_tool_tip(QStringLiteral("Edit stock item") + (stock ? u' ' + row.item : QString())));
    imgedit_->setVisible(!is_new);
    imgScratch_->setToolTip(is_new ? QStringLiteral("Cancel adding ingredient")
                                   : QStringLiteral("Delete ingredient"));
    imgScratch_->setProperty(tag, is_new ? QStringLiteral("ns") : QStringLiteral("edit"));
    imgScratch_->show();
    page_.frame3().setProperty(tag, QString::number(index_));
}

void LineEditor::set_field(IngredientField field, const QString& text)
{
    const Box& box = boxes_[static_cast<size_t>(field)];
    if (text.isEmpty())
        set_placeholder(box);
    else
        set_value(box, text);
    box.edit->setProperty(tag,
                          ingredients_->work.is_new && text.isEmpty() ? QStringLiteral(" ") : box.edit->text());
    if (field == IngredientField::item)
        opened_link_ = ingredients_->work.adding_item;
}

void LineEditor::set_placeholder(const Box& box)
{
    const QScopedValueRollback shown_not_typed(filling_, true);
    QPalette colors = box.edit->palette();
    colors.setColor(QPalette::Text, placeholder_color);
    box.edit->setPalette(colors);
    box.edit->setText(box.placeholder);
    box.edit->home(false);
    set_ingred_font();
}

void LineEditor::set_value(const Box& box, const QString& text)
{
    const QScopedValueRollback shown_not_typed(filling_, true);
    QPalette colors = box.edit->palette();
    colors.setColor(QPalette::Text, Qt::black);
    box.edit->setPalette(colors);
    box.edit->setText(text);
    box.edit->home(false);
    set_ingred_font();
}

QString LineEditor::field(IngredientField field) const
{
    const Box& box = boxes_[static_cast<size_t>(field)];
    return box.edit->text() == box.placeholder ? QString() : trim(box.edit->text());
}

std::optional<RescuedLine> LineEditor::unstored() const
{
    if (!open_)
        return std::nullopt;
    IngredientRow typed = opened_;
    typed.qty = field(IngredientField::qty);
    typed.measure = field(IngredientField::measure);
    typed.item = field(IngredientField::item);
    typed.comment = field(IngredientField::comment);
    if (typed.display_text() == opened_.display_text() && (opened_.key > 0 || typed.item.isEmpty()))
        return std::nullopt;
    return RescuedLine{opened_, typed};
}

void LineEditor::show_controls()
{
    const UpdateLock lock(page_.frame4());
    const QColor page = page_.frame4().palette().color(QPalette::Base);
    for (const Box& box : boxes_) {
        const QColor text = box.edit->palette().color(QPalette::Text);
        box.edit->set_page_color(page);
        QPalette colors = box.edit->palette();
        colors.setColor(QPalette::Text, text);
        box.edit->setPalette(colors);
    }
    end_frame_->set_colors(page, page);
    end_frame_->set_fade(0);
    list_->setPalette(page_.frame4().palette());
    place();
    for (const Box& box : boxes_) {
        box.edit->show();
        box.edit->raise();
    }
    end_frame_->show();
    end_frame_->raise();
    page_.lines()[static_cast<size_t>(index_)].ingred->hide();
}

void LineEditor::grey_lines()
{
    page_.recipe_lines().set_text_color(grey);
    for (const IngredientLine& line : page_.lines())
        line.ingred->setToolTip({});
}

void LineEditor::blacken_lines()
{
    page_.recipe_lines().set_text_color(Qt::black);
    for (IngredientLine& line : page_.lines()) {
        line.tool_tip = get_ttt(main_.connection(), line.item_ref);
        line.ingred->setToolTip(plain_tool_tip(line.tool_tip));
    }
}

QFont LineEditor::box_font(int box) const
{
    QFont font = page_.Text1().font();
    font.setBold(box == item_box);
    font.setItalic(is_placeholder(box));
    return font;
}

void LineEditor::set_ingred_font()
{
    for (int i = 0; i < 4; ++i) {
        CellBox& edit = *boxes_[static_cast<size_t>(i)].edit;
        if (const QFont font = box_font(i); edit.font() != font)
            edit.setFont(font);
    }
}

// A box never gets too narrow for its placeholder while there is room for all.
std::array<int, 4> LineEditor::box_widths(int room) const
{
    const int design = std::accumulate(design_widths.begin(), design_widths.end(), 0);
    const int size = main_.shared.type_size;
    const int all = size == 12 ? large_width : size == 10 ? medium_width : design;
    std::array<int, 4> widths{};
    for (size_t i = 0; i < widths.size(); ++i) {
        QFont font = box_font(static_cast<int>(i));
        font.setItalic(true);
        const int proportional = design_widths[i] * std::min(all, std::max(room, design)) / design;
        widths[i]
            = std::max(proportional, QFontMetrics(font).horizontalAdvance(boxes_[i].placeholder) + text_margin);
    }
    const int sum = std::accumulate(widths.begin(), widths.end(), 0);
    if (sum > room) {
        for (int& width : widths)
            width = std::max(1, width * room / sum);
    }
    return widths;
}

void LineEditor::place()
{
    if (!open_ || index() < 0)
        return;
    set_ingred_font();
    const QRect line = page_.lines()[static_cast<size_t>(index_)].ingred->geometry();
    const bool large = main_.shared.type_size == 12;
    imgedit_->set_picture(large ? pencil_large : pencil);
    imgScratch_->set_picture(large ? cross_large : cross);
    const int button = imgedit_->sizeHint().width();
    const int frame_width = frame_margin + 2 * button + button_gap;
    const auto widths = box_widths(page_.frame4().width() - line.left() - end_gap - frame_width);
    const int pitch = page_geometry::line_pitch(main_.shared.type_size);
    const int height = std::clamp(boxes_[item_box].edit->fontMetrics().height() + 4, design_height, pitch);
    const int top = line.top() - (height - std::min(height, pitch - 1)) / 2;
    int left = line.left();
    for (size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i].edit->setGeometry(left, top, widths[i], height);
        left += widths[i];
    }
    end_frame_->setGeometry(left + end_gap, top, frame_width, height);
    imgedit_->setGeometry(frame_margin, 0, button, height);
    imgScratch_->setGeometry(frame_margin + button + button_gap, 0, button, height);
    if (!list_->isHidden())
        place_list();
}

void LineEditor::place_list()
{
    constexpr int least = 120;
    constexpr int least_large = 173; ///< 2600 twips
    const QWidget& edit = *boxes_[static_cast<size_t>(last_box_)].edit;
    const QRect viewport = page_.frame4().geometry();
    const QRect box(edit.mapTo(list_->parentWidget(), QPoint(0, 0)), edit.size());
    if (!viewport.contains(box.center()) || list_->count() == 0) {
        if (list_->hasFocus())
            go_to(last_box_);
        list_->hide();
        return;
    }
    list_->setFont(page_.Text1().font());
    list_->place(box, viewport, main_.shared.type_size == 12 ? least_large : least);
    list_->show();
    list_->raise();
}

void LineEditor::hide_controls()
{
    const QScopedValueRollback moves_focus(busy_, true);
    if (QWidget* focus = QApplication::focusWidget(); focus && is_part(focus))
        focus->clearFocus();
    for (const Box& box : boxes_)
        box.edit->hide();
    if (end_frame_) {
        end_frame_->hide();
        imgScratch_->setProperty(tag, QStringLiteral("edit"));
    }
    list_->clear_and_hide();
    for (const IngredientLine& line : page_.lines()) {
        line.ingred->set_selected(false);
        line.ingred->show();
    }
}

void LineEditor::hide_line()
{
    main_.row_editor().hide_line();
    if (!open_)
        return;
    const UpdateLock lock(main_);
    const int line = index();
    hide_controls();
    blacken_lines();
    open_ = false;
    index_ = -1;
    for (const Box& box : boxes_) {
        set_value(box, QStringLiteral(" "));
        box.edit->setProperty(tag, QStringLiteral(" "));
    }
    // The line shows what was written while its boxes were left one by one.
    if (line < 0 || ingredients_->work.is_new || !ingredients_->work.ing_flags[LineWork::any_field])
        return;
    IngredientLine& shown = page_.lines()[static_cast<size_t>(line)];
    if (const auto row = read_line(main_.connection(), shown.key)) {
        shown.text = row->display_text();
        page_.refresh_line(line);
        page_.layout_page();
    }
}

void LineEditor::lf_finish()
{
    if (!open_)
        return;
    const UpdateLock lock(main_);
    LineWork& work = ingredients_->work;
    const int line = index();
    hide_controls();
    blacken_lines();
    if (work.is_new) {
        if (!ingredients_->add_ingred(field(IngredientField::item), field(IngredientField::qty),
                                      field(IngredientField::measure), field(IngredientField::comment))) {
            show_controls();
            go_to(item_box);
            return;
        }
        work.is_new = false;
    } else if (line >= 0 && work.ing_flags[LineWork::any_field]) {
        ingredients_->ingred_updt(line);
    }
    work.ing_flags.fill(false);
    open_ = false;
    index_ = -1;
    page_.layout_page();
}

} // namespace tarnwick
