#include "household/list_form.h"

#include <algorithm>
#include <array>

namespace tarnwick {

/// What depends on the type size; sizes of type in points, all else in pixels.
struct ListForm::Metrics {
    int rows;
    int pitch;
    int item_size;
    int cell_size;
    int title_size;
    int height; ///< of the boxes of a slot
    int first_caption_top;
    int caption_top; ///< of all captions but the first
    int shift; ///< how far the form's lines stand below those of the small type
};

namespace {

constexpr int column_offset = 337;
constexpr int slot_top = 163; ///< of slot 0
constexpr int line_above = 3; ///< from the top of a slot up to the line of the one above
constexpr int line_below = 17; ///< from the top of a slot down to its line, small type

// Right edges and left edges of the only column; the first of two columns ends an offset further left.
constexpr int right_end = 703;
constexpr int right_line = 702;
constexpr int qty_line = 620;
constexpr int coupon_line = 647;
constexpr int aisle_line = 672;

constexpr int check_left = 45;
constexpr int check_side = 11;
constexpr int item_left = 61;
constexpr int item_width_one_column = 488;
constexpr int least_size = 6;

PageThing narrow_text(const char* array, int index, QRect box, const QString& text, int size)
{
    PageThing thing = page_text(element(array, index), box, text, size);
    thing.least_size = std::min(size, least_size);
    return thing;
}

} // namespace

const ListForm::Metrics& ListForm::metrics_of(Key size)
{
    static constexpr std::array<Metrics, 3> sizes = {{
        {35, 20, 9, 9, 9, 15, 138, 131, 0},
        {32, 22, 10, 10, 10, 16, 140, 133, 2},
        {27, 26, 12, 10, 12, 20, 142, 135, 6},
    }};
    return sizes.at(static_cast<size_t>(std::clamp<int>(size, 0, 2)));
}

ListForm::ListForm(const ReportOptions& options)
    : metrics_(metrics_of(options.size))
    , columns_(options.col_ct == 2 ? 2 : 1)
    , by_item_(options.sort != ReportSort::by_category && options.sort != ReportSort::by_aisle)
    , checks_(options.active == 0)
{
}

int ListForm::rows() const
{
    return metrics_.rows;
}

int ListForm::edge(int one_column_x) const
{
    return columns_ == 2 ? one_column_x - column_offset : one_column_x;
}

int ListForm::item_width() const
{
    return columns_ == 2 ? edge(qty_line) - item_left - 2 : item_width_one_column;
}

QPoint ListForm::top_left(int slot) const
{
    return {slot / metrics_.rows * column_offset, slot_top + slot % metrics_.rows * metrics_.pitch};
}

void ListForm::add_column_head(Page& page, int column, const QString& title) const
{
    constexpr int title_top = 104;
    constexpr int title_width_one_column = 570;
    constexpr QRect picture(43, 36, 323, 40);
    const int x = column * column_offset;
    // The only column has its picture where the second of two has it.
    page.things.push_back(
        page_picture(element("Picture1", column), picture.translated(columns_ == 2 ? x : column_offset, 0)));
    const int title_width = columns_ == 2 ? edge(right_end) - page_form::left : title_width_one_column;
    PageThing heading
        = page_text(element("LblColTitle", column), {x + page_form::left, title_top, title_width, metrics_.height},
                    title, metrics_.title_size);
    heading.bold = true;
    page.things.push_back(heading);
    add_captions(page, column);
    add_frame(page, column);
}

void ListForm::add_captions(Page& page, int column) const
{
    struct Caption {
        const char* text;
        int left;
        int width;
    };
    const std::array<Caption, 4> captions = {{
        {"ITEM", item_left, item_width()},
        {"QTY", edge(622), 24},
        {"CPN", edge(648), 23},
        {"ASL", edge(678), 23},
    }};
    constexpr int caption_size = 9;
    constexpr int caption_height = 14;
    const char* array = column == 0 ? "ttlLabel" : "ttlLabel2";
    for (int i = 0; i < 4; ++i) {
        const Caption& caption = captions.at(static_cast<size_t>(i));
        // The first box is lower and half as high: all captions share one base line.
        const QRect box(column * column_offset + caption.left,
                        i == 0 ? metrics_.first_caption_top : metrics_.caption_top, caption.width,
                        i == 0 ? caption_height : 2 * caption_height);
        page.things.push_back(narrow_text(array, i, box, QLatin1String(caption.text), caption_size));
    }
}

void ListForm::add_frame(Page& page, int column) const
{
    constexpr int frame_top = 130;
    const int x = column * column_offset;
    const int top = frame_top + metrics_.shift;
    const int bottom = slot_top - line_above;
    const char* across = column == 0 ? "ttlLineH" : "ttlLineH2";
    const char* down = column == 0 ? "ttlLineV" : "ttlLineV2";
    page.things.push_back(page_line(element(across, 0), {x + page_form::left, top}, {x + edge(right_line), top}));
    const std::array<int, 5> edges
        = {page_form::left, edge(qty_line), edge(coupon_line), edge(aisle_line), edge(right_line)};
    for (int i = 0; i < 5; ++i) {
        const int at = x + edges.at(static_cast<size_t>(i));
        page.things.push_back(page_line(element(down, i), {at, top}, {at, bottom}));
    }
    const QString rule = column == 1 && by_item_ ? QStringLiteral("Line6") : element("page_rule", column);
    page.things.push_back(page_line(rule, {x + page_form::left, bottom}, {x + edge(right_end), bottom}));
}

void ListForm::add_heading(Page& page, int slot, const QString& text) const
{
    const QRect box(top_left(slot) + QPoint(item_left, 0), QSize(item_width(), metrics_.height));
    PageThing heading = page_text(element("txtItem", slot), box, text, metrics_.item_size);
    heading.bold = true;
    heading.align = PageThing::Align::centre;
    page.things.push_back(heading);
    add_row_line(page, slot);
}

void ListForm::add_detail(Page& page, int slot, const SlotTexts& texts) const
{
    constexpr int qty_width = 20;
    constexpr int coupon_width = 22;
    constexpr int aisle_width = 19;
    constexpr int coupon_size = 8;
    const QPoint at = top_left(slot);
    const auto box
        = [&](int left, int width) { return QRect(at + QPoint(left, 0), QSize(width, metrics_.height)); };
    if (checks_) {
        const QRect check(at + QPoint(check_left, (metrics_.height - check_side) / 2),
                          QSize(check_side, check_side));
        page.things.push_back(page_check(element("Checkbox", slot), check, texts.to_get));
    }
    page.things.push_back(
        page_text(element("txtItem", slot), box(item_left, item_width()), texts.item, metrics_.item_size));
    page.things.push_back(narrow_text("txtQty", slot, box(edge(626), qty_width), texts.qty, metrics_.cell_size));
    if (texts.coupon) {
        PageThing coupon
            = narrow_text("txtCpn", slot, box(edge(649), coupon_width), QStringLiteral("CPN"), coupon_size);
        coupon.strike = texts.expired;
        page.things.push_back(coupon);
    }
    page.things.push_back(
        narrow_text("txtAisle", slot, box(edge(682), aisle_width), texts.aisle, metrics_.cell_size));
    add_cell_lines(page, slot);
    add_row_line(page, slot);
}

void ListForm::add_row_line(Page& page, int slot) const
{
    const QPoint at = top_left(slot) + QPoint(0, line_below + metrics_.shift);
    page.things.push_back(
        page_line(element("Line1", slot), at + QPoint(page_form::left, 0), at + QPoint(edge(right_end), 0)));
}

void ListForm::add_cell_lines(Page& page, int slot) const
{
    struct CellLine {
        const char* name;
        int x;
    };
    const std::array<CellLine, 5> lines = {{
        {"Line2", edge(aisle_line)},
        {"Line7", edge(right_line)},
        {"Line3", edge(coupon_line)},
        {"Line4", edge(qty_line)},
        {"Line5", page_form::left},
    }};
    // The upper end stays at the line of the row above, the lower one goes down with the row's own.
    for (const CellLine& line : lines) {
        const QPoint at = top_left(slot) + QPoint(line.x, 0);
        page.things.push_back(page_line(element(line.name, slot), at - QPoint(0, line_above),
                                        at + QPoint(0, line_below + metrics_.shift)));
    }
}

void ListForm::add_note(Page& page, const QString& text)
{
    constexpr int note_top = 884;
    constexpr int note_height = 16;
    constexpr int note_size = 9;
    PageThing note
        = page_text(QStringLiteral("page_note"),
                    {page_form::left, note_top, page_form::right - page_form::left, note_height}, text, note_size);
    note.align = PageThing::Align::centre;
    note.italic = true;
    page.things.push_back(note);
}

} // namespace tarnwick
