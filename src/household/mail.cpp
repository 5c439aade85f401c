#include "household/mail.h"

#include "data/text.h"

namespace tarnwick {
namespace {

constexpr int item_width = 25;
constexpr int desc_width = 25;
constexpr int qty_width = 8;
constexpr int aisle_width = 8;

const QString crlf = QStringLiteral("\r\n");
const QString gap = QStringLiteral("  ");

QString coupon_mark(const SheetRow& row, QDate today)
{
    if (!row.cpn)
        return QString(8, u' ');
    return row.coupon_expired(today) ? QStringLiteral("[CPN]") : QStringLiteral("CPN");
}

} // namespace

QUrl Mail::url() const
{
    return QUrl::fromEncoded("mailto:?subject=" + QUrl::toPercentEncoding(subject)
                                 + "&body=" + QUrl::toPercentEncoding(body),
                             QUrl::StrictMode);
}

QString pad_text(const QString& text, int width)
{
    QString cut = text.left(width);
    if (cut.size() < text.size() && !cut.isEmpty() && cut.back().isHighSurrogate())
        cut.chop(1);
    return cut.leftJustified(width);
}

Mail recipe_mail(const RecipeSheet& recipe)
{
    const QString title = trim(recipe.title);
    QString body = title + crlf + crlf;
    for (const QString& line : recipe.lines)
        body += trim(line) + crlf;
    return {title, body + crlf + trim(recipe.body)};
}

Mail list_mail(const ListSheet& list, QDate today)
{
    const QString subject = list.name + QStringLiteral(" list");
    QString body = subject + crlf + crlf;
    body += pad_text(QStringLiteral("Item"), item_width) + gap + pad_text(QStringLiteral("Description"), desc_width)
        + gap + QStringLiteral("     Qty") + QStringLiteral("  Aisle     Cpn") + crlf + crlf;
    for (const SheetRow& row : list.rows)
        body += pad_text(row.item, item_width) + gap + pad_text(row.desc, desc_width) + gap
            + pad_text(row.qty, qty_width) + gap + pad_text(row.aisle, aisle_width) + gap + coupon_mark(row, today)
            + crlf;
    return {subject, body};
}

} // namespace tarnwick
