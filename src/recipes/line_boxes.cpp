#include "recipes/line_boxes.h"

#include "recipes/page_geometry.h"
#include "widgets/fitted_text.h"
#include "widgets/last_press.h"
#include "widgets/row_editor_controls.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <numeric>

namespace tarnwick {
namespace {

constexpr const char* tag = "Tag";
constexpr std::array field_names{"Quantity", "Measure", "Item", "Comment"};
constexpr QColor placeholder_color(255, 0, 0);

// Widths of the boxes at the smallest type size, pixels, and of all of them at the others.
constexpr std::array<int, 4> design_widths{38, 38, 81, 102};
constexpr int medium_width = 440;
constexpr int large_width = 500;
constexpr int design_height = 19;
constexpr int inset = 2;
constexpr int text_margin = 8 + inset; ///< what a box needs beside its text
constexpr int least_text_margin = 5 + inset; ///< with the control's own margins and the slope of the letters
constexpr int end_gap = 2; ///< between boxes and frame
constexpr int button_gap = 1;
constexpr int frame_margin = 4; ///< left of the pencil

constexpr int pencil = 101; ///< resource numbers
constexpr int pencil_large = 109;
constexpr int cross = 111;
constexpr int cross_large = 190;

} // namespace

LineBoxes::LineBoxes(QWidget& page, QObject& filter)
    : page_(page)
    , filter_(filter)
{
    const auto make = [&page](const char* name, const char* placeholder) {
        return Box{new CellBox(QLatin1String(name), &page), QLatin1String(placeholder)};
    };
    boxes_ = {make("ing_flt_txtQty", "(Qty)"), make("ing_flt_txtMeasure", "(Measure)"),
              make("ing_flt_txtItem", "(Item)"), make("ing_flt_txtDesc", "(Comment)")};
    for (const IngredientField field : ingredient_fields) {
        CellBox& made = edit(field);
        made.setFocusPolicy(Qt::ClickFocus);
        made.setTextMargins(inset, 0, 0, 0);
        made.setAccessibleName(QLatin1String(field_names[static_cast<size_t>(field)]));
        made.installEventFilter(&filter);
        LastPress::require_on(made);
        connect(&made, &QLineEdit::textChanged, this, [this, field] {
            if (!filling_)
                emit typed(field);
        });
    }
}

void LineBoxes::make_buttons()
{
    if (end_frame_)
        return;
    end_frame_ = new EndFrame(QStringLiteral("frmEditDel"), &page_);
    imgedit_ = new PictureButton(QStringLiteral("imgedit"), end_frame_);
    imgScratch_ = new PictureButton(QStringLiteral("imgScratch"), end_frame_);
    for (PictureButton* button : {imgedit_, imgScratch_}) {
        button->setFocusPolicy(Qt::ClickFocus);
        button->installEventFilter(&filter_);
        LastPress::require_on(*button);
    }
    imgedit_->setAccessibleName(QStringLiteral("Edit stock item"));
    imgScratch_->setAccessibleName(QStringLiteral("Delete ingredient"));
    connect(imgedit_, &QAbstractButton::clicked, this, &LineBoxes::edit_clicked);
    connect(imgScratch_, &QAbstractButton::clicked, this, &LineBoxes::scratch_clicked);
}

PictureButton& LineBoxes::imgedit()
{
    make_buttons();
    return *imgedit_;
}

PictureButton& LineBoxes::imgScratch()
{
    make_buttons();
    return *imgScratch_;
}

std::optional<IngredientField> LineBoxes::field_of(const QObject* widget) const
{
    for (const IngredientField field : ingredient_fields) {
        if (widget == box(field).edit)
            return field;
    }
    return std::nullopt;
}

bool LineBoxes::is_button(const QObject* widget) const
{
    return widget && (widget == imgedit_ || widget == imgScratch_);
}

QString LineBoxes::text(IngredientField field) const
{
    return is_placeholder(field) ? QString() : trim(edit(field).text());
}

bool LineBoxes::is_placeholder(IngredientField field) const
{
    return box(field).edit->text() == box(field).placeholder;
}

void LineBoxes::show_text(IngredientField field, const QString& text)
{
    if (text.isEmpty())
        set_text(field, box(field).placeholder, placeholder_color);
    else
        set_text(field, text, Qt::black);
}

void LineBoxes::show_empty(IngredientField field)
{
    set_text(field, QString(), Qt::black);
}

void LineBoxes::set_text(IngredientField field, const QString& text, const QColor& color)
{
    const QScopedValueRollback shown_not_typed(filling_, true);
    CellBox& shown = edit(field);
    QPalette colors = shown.palette();
    colors.setColor(QPalette::Text, color);
    shown.setPalette(colors);
    shown.setText(text);
    shown.home(false);
    set_ingred_font();
}

void LineBoxes::set_tag(IngredientField field, const QString& text)
{
    edit(field).setProperty(tag, text);
}

void LineBoxes::show(const QColor& page)
{
    for (const IngredientField field : ingredient_fields) {
        CellBox& shown = edit(field);
        const QColor text = shown.palette().color(QPalette::Text);
        shown.set_page_color(page);
        QPalette colors = shown.palette();
        colors.setColor(QPalette::Text, text);
        shown.setPalette(colors);
        shown.show();
        shown.raise();
    }
    end_frame_->set_colors(page, page);
    end_frame_->set_fade(0);
    end_frame_->show();
    end_frame_->raise();
}

void LineBoxes::hide()
{
    for (const Box& shown : boxes_)
        shown.edit->hide();
    if (end_frame_)
        end_frame_->hide();
}

QFont LineBoxes::box_font(IngredientField field) const
{
    QFont font = font_;
    font.setBold(field == IngredientField::item);
    font.setItalic(is_placeholder(field));
    return font;
}

/// A placeholder that has not its room is written in narrower type.
void LineBoxes::set_ingred_font()
{
    for (const IngredientField field : ingredient_fields) {
        QFont font = box_font(field);
        if (is_placeholder(field))
            font = fit_text(box(field).placeholder, font, edit(field).width() - least_text_margin).font;
        if (edit(field).font() != font)
            edit(field).setFont(font);
    }
}

// A box never gets too narrow for its placeholder while there is room for all.
std::array<int, 4> LineBoxes::box_widths(int room, int type_size) const
{
    const int design = std::accumulate(design_widths.begin(), design_widths.end(), 0);
    const int all = type_size == 12 ? large_width : type_size == 10 ? medium_width : design;
    std::array<int, 4> widths{};
    for (size_t i = 0; i < widths.size(); ++i) {
        QFont font = box_font(ingredient_fields[i]);
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

void LineBoxes::place(const QRect& line, int page_width, int type_size, const QFont& font)
{
    font_ = font;
    set_ingred_font();
    const bool large = type_size == 12;
    imgedit_->set_picture(large ? pencil_large : pencil);
    imgScratch_->set_picture(large ? cross_large : cross);
    const int button = imgedit_->sizeHint().width();
    const int frame_width = frame_margin + 2 * button + button_gap;
    const auto widths = box_widths(page_width - line.left() - end_gap - frame_width, type_size);
    const int pitch = page_geometry::line_pitch(type_size);
    const int height = std::clamp(edit(IngredientField::item).fontMetrics().height() + 4, design_height, pitch);
    const int top = line.top() - (height - std::min(height, pitch - 1)) / 2;
    int left = line.left();
    for (size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i].edit->setGeometry(left, top, widths[i], height);
        left += widths[i];
    }
    set_ingred_font();
    end_frame_->setGeometry(left + end_gap, top, frame_width, height);
    imgedit_->setGeometry(frame_margin, 0, button, height);
    imgScratch_->setGeometry(frame_margin + button + button_gap, 0, button, height);
}

} // namespace tarnwick
