#include "widgets/node_key.h"

#include "widgets/tree_view.h"

#include <QStringBuilder>

namespace tarnwick {
namespace {

struct Form {
    NodeKind kind;
    QLatin1String prefix;
};

constexpr Form forms[] = {
    {NodeKind::item, QLatin1String("item")},
    {NodeKind::category, QLatin1String("cat")},
    {NodeKind::recipe, QLatin1String("rcp")},
    {NodeKind::recipe_category, QLatin1String("rcat")},
};

} // namespace

NodeKey NodeKey::of(const QTreeWidgetItem* node)
{
    return node ? parse(TreeView::key(node)) : NodeKey();
}

NodeKey NodeKey::parse(const QString& text)
{
    for (const Form& form : forms) {
        if (!text.startsWith(form.prefix))
            continue;
        const QString number = text.mid(form.prefix.size());
        return {form.kind, number.isEmpty() ? Key{-1} : to_int16(number)};
    }
    return {};
}

QString NodeKey::text() const
{
    for (const Form& form : forms) {
        if (form.kind != kind)
            continue;
        const QString number
            = is_recipe_category() ? QStringLiteral("%1").arg(record, 2, 10, QLatin1Char('0')) : key_str(record);
        return form.prefix % number;
    }
    return {};
}

} // namespace tarnwick
