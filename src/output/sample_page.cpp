#include "output/sample_page.h"

#include "household/list_pages.h"
#include "output/page_painter.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace tarnwick {
namespace {

constexpr int first_number = 138; // one column; then one for groups, two for two columns
constexpr int last_number = 141;

std::vector<ListRow> made_up_rows()
{
    struct Group {
        const char* category;
        std::array<const char*, 10> items;
    };
    static constexpr std::array<Group, 6> groups = {{
        {"Bakery",
         {"Bagels", "Baguette", "Brown bread", "Crackers", "Croissants", "Muffins", "Pita", "Rolls", "Rye bread",
          "Tortillas"}},
        {"Dairy",
         {"Butter", "Cheddar", "Cottage cheese", "Cream", "Eggs", "Feta", "Milk", "Mozzarella", "Sour cream",
          "Yogurt"}},
        {"Drinks",
         {"Apple juice", "Cocoa", "Coffee", "Ginger ale", "Lemonade", "Mineral water", "Orange juice", "Soda",
          "Tea", "Tomato juice"}},
        {"Fruit",
         {"Apples", "Bananas", "Blueberries", "Cherries", "Grapes", "Kiwis", "Lemons", "Oranges", "Pears",
          "Plums"}},
        {"Pantry", {"Barley", "Beans", "Flour", "Honey", "Lentils", "Oats", "Olive oil", "Pasta", "Rice", "Sugar"}},
        {"Vegetables",
         {"Beets", "Broccoli", "Carrots", "Celery", "Cucumbers", "Leeks", "Onions", "Peppers", "Potatoes",
          "Spinach"}},
    }};
    std::vector<ListRow> rows;
    for (const Group& group : groups) {
        for (const char* item : group.items) {
            ListRow row;
            row.item = QLatin1String(item);
            row.category = QLatin1String(group.category);
            row.qty = QString::number(rows.size() % 3 + 1);
            row.aisle = QString::number(&group - groups.data() + 1);
            row.cpn = rows.size() % 4 == 1;
            rows.push_back(row);
        }
    }
    return rows;
}

ListPages sample_pages(int number)
{
    ReportOptions options;
    options.sort = (number - first_number) % 2 == 1 ? ReportSort::by_category : ReportSort::by_item;
    options.col_ct = number >= first_number + 2 ? 2 : 1;
    std::vector<ListRow> rows = made_up_rows();
    if (options.sort == ReportSort::by_item)
        std::sort(rows.begin(), rows.end(),
                  [](const ListRow& left, const ListRow& right) { return left.item < right.item; });
    return {std::move(rows), options, QStringLiteral("Weekly"), QDate()};
}

} // namespace

int sample_number(const ReportOptions& options)
{
    return first_number + (options.col_ct == 2 ? 2 : 0) + (options.sort == ReportSort::by_category ? 1 : 0);
}

QPixmap sample_picture(int number, qreal scale)
{
    constexpr double part = 0.3; // of the page form's size
    if (number < first_number || number > last_number || scale <= 0)
        return {};
    const Page page = sample_pages(number).page(1);
    QPixmap picture((QSizeF(page.size) * part * scale).toSize());
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(part, part);
    paint_page(painter, page);
    return picture;
}

} // namespace tarnwick
