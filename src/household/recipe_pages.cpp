#include "household/recipe_pages.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tarnwick {
namespace {

constexpr int box_width = page_form::right - page_form::left;
constexpr int body_size = 10;
constexpr int least_body_size = 7;
constexpr int least_head = 60; ///< pixels below which no instructions are begun on the first page

/// How much instructions of a type size take in the page's width, measured on a wide type.
struct BodyType {
    int row_characters;
    int row_height; ///< pixels
};

constexpr BodyType body_type(int points)
{
    constexpr int tenths_of_a_character = 8; // of the type size, in pixels
    return {box_width * 10 / (points * tenths_of_a_character), points * 17 / 10};
}

/// The rows of a text, each of its lines taking one at least.
int rows_of(const QString& text, int row_characters)
{
    if (text.isEmpty())
        return 0;
    int rows = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        rows += std::max(1, (static_cast<int>(line.size()) + row_characters - 1) / row_characters);
    return rows;
}

/// The length of the beginning of a text that fills so many rows.
qsizetype length_of_rows(const QString& text, int rows, int row_characters)
{
    qsizetype length = 0;
    while (rows > 0 && length < text.size()) {
        const qsizetype line_end = text.indexOf(QLatin1Char('\n'), length);
        const qsizetype rest = (line_end < 0 ? text.size() : line_end) - length;
        const qsizetype room = static_cast<qsizetype>(rows) * row_characters;
        if (rest > room)
            return length + room;
        rows -= std::max(1, (static_cast<int>(rest) + row_characters - 1) / row_characters);
        length += rest + (line_end < 0 ? 0 : 1);
    }
    return length;
}

/// Cuts a text after the last blank of its first rows; the head is empty when there is none.
std::pair<QString, QString> cut_text(const QString& text, int rows, int row_characters)
{
    qsizetype cut = length_of_rows(text, rows, row_characters);
    while (cut > 0 && text[cut - 1] != QLatin1Char(' '))
        --cut;
    return {text.left(cut), text.mid(cut)};
}

void add_title(Page& page, const QString& title)
{
    constexpr int title_size = 16;
    PageThing heading
        = page_text(QStringLiteral("txtTitle"), {page_form::left, 56, box_width, 30}, title, title_size);
    heading.bold = true;
    heading.least_size = 10;
    page.things.push_back(heading);
}

/// Returns where the instructions begin, pixels from the top of the page.
int add_lines(Page& page, const QStringList& lines)
{
    constexpr int line_gap = 11;
    constexpr int line_height = 19;
    constexpr int indent = 24;
    int top = 120;
    const int count = std::clamp<int>(static_cast<int>(lines.size()), 1, most_printed_lines);
    for (int i = 0; i < count; ++i) {
        if (i < lines.size()) {
            PageThing line
                = page_text(element("txtIngred", i),
                            {page_form::left + indent, top, box_width - indent, line_height}, lines[i], 11);
            line.least_size = 7;
            page.things.push_back(line);
        }
        top += line_height + line_gap;
    }
    return top;
}

void add_body(Page& page, int top, int height, const QString& text, int size)
{
    if (text.isEmpty())
        return;
    PageThing body = page_text(QStringLiteral("txtBody"), {page_form::left, top, box_width, height}, text, size);
    body.wraps = true;
    page.things.push_back(body);
}

Page begin_page(const RecipeSheet& recipe)
{
    Page page;
    page.size = {page_form::width, page_form::height};
    add_title(page, recipe.title);
    return page;
}

/// Adds the first page, and returns what of the instructions is left for others.
QString add_first_page(std::vector<Page>& pages, const RecipeSheet& recipe)
{
    constexpr int margins = 30 + 10 + 50; // below the instructions
    constexpr BodyType type = body_type(body_size);
    const int upper_bound = std::max(0, static_cast<int>(recipe.lines.size()) - 1);
    const int free_px = page_form::height - (upper_bound * 30 + 260);
    const int body_px = rows_of(recipe.body, type.row_characters) * type.row_height;

    QString head = recipe.body;
    QString tail;
    if (free_px < body_px && free_px >= least_head)
        std::tie(head, tail) = cut_text(recipe.body, free_px / type.row_height, type.row_characters);
    else if (free_px < body_px)
        std::swap(head, tail);
    pages.push_back(begin_page(recipe));
    const int top = add_lines(pages.back(), recipe.lines);
    add_body(pages.back(), top, page_form::height - top - margins, head, body_size);
    return tail;
}

/// Adds a page of instructions alone, in the largest type that takes them all, and returns what is still left.
QString add_further_page(std::vector<Page>& pages, const RecipeSheet& recipe, const QString& body)
{
    constexpr int top = 100;
    constexpr int height = page_form::height - 200;
    QString head = body;
    QString tail;
    int size = body_size;
    const auto too_long = [&] {
        const BodyType type = body_type(size);
        return rows_of(body, type.row_characters) * type.row_height > height;
    };
    while (size > least_body_size && too_long())
        --size;
    if (const BodyType type = body_type(size); too_long()) {
        const qsizetype all = length_of_rows(body, height / type.row_height, type.row_characters);
        std::tie(head, tail) = cut_text(body, height / type.row_height, type.row_characters);
        if (head.isEmpty()) { // one word without an end
            head = body.left(all);
            tail = body.mid(all);
        }
    }
    pages.push_back(begin_page(recipe));
    add_body(pages.back(), top, height, head, size);
    return tail;
}

} // namespace

std::vector<Page> recipe_pages(const RecipeSheet& sheet)
{
    RecipeSheet recipe = sheet;
    recipe.body.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    std::vector<Page> pages;
    QString rest = add_first_page(pages, recipe);
    while (!rest.isEmpty())
        rest = add_further_page(pages, recipe, rest);
    const int count = static_cast<int>(pages.size());
    for (int i = 0; i < count; ++i)
        pages[static_cast<size_t>(i)].things.push_back(page_foot(i + 1, count));
    return pages;
}

} // namespace tarnwick
