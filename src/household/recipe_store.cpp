#include "household/recipe_store.h"

#include "data/keys.h"
#include "data/name_order.h"
#include "data/query.h"
#include "household/treatment.h"

namespace tarnwick {

QString IngredientRow::display_text() const
{
    QString text;
    if (!qty.isEmpty())
        text += qty + u' ';
    if (!measure.isEmpty())
        text += measure + u' ';
    text += item;
    if (!comment.isEmpty())
        text += u' ' + comment;
    return text;
}

const QString& help_text()
{
    static const QString text = QStringLiteral("Enter your recipe instructions here. \r\n\r\n"
                                               "To add to the list of ingredients, "
                                               "click the ingredient button on the toolbar "
                                               "(fork and knife icon labeled INGRDNT) "
                                               "or select the stock item you want "
                                               "to add from the stock list: "
                                               "Drag and drop your item anywhere on the recipe page. \r\n\r\n"
                                               "Tip: add ingredients quickly with the shortcut key: (CTRL + i)");
    return text;
}

QString with_crlf(const QString& text)
{
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return plain.replace(u'\n', QStringLiteral("\r\n"));
}

std::vector<RecipeRow> read_recipes(Connection& connection)
{
    struct Named {
        NameKey name;
        Key key;
        QString cat;
    };
    std::vector<Named> found;
    Query query(connection,
                "SELECT r.r_name, r.key_id, r.cat FROM recipe_1 r WHERE r.key_id > 0 ORDER BY r.key_id");
    while (query.next())
        found.push_back({NameKey(query.text(0)), query.key(1), trim(query.text(2))});
    std::vector<RecipeRow> rows;
    rows.reserve(found.size());
    for (const Named* recipe : in_order_of_names(found))
        rows.push_back({recipe->key, trim(recipe->name.name()), recipe->cat});
    return rows;
}

std::vector<IngredientRow> load_lines(Connection& connection, Key recipe)
{
    std::vector<IngredientRow> rows;
    std::vector<std::pair<int, Key>> misplaced;
    Query query(connection,
                "SELECT measure, qty, item, item_ref, comment, key_id, \"order\" FROM recipe_2 r2"
                " WHERE r_ref = ? ORDER BY r2.\"order\"",
                recipe);
    while (query.next()) {
        const int place = static_cast<int>(rows.size());
        IngredientRow row;
        row.measure = trim(query.text(0));
        row.qty = trim(query.text(1));
        row.item = trim(query.text(2));
        row.item_ref = query.key(3);
        row.comment = trim(query.text(4));
        row.key = query.key(5);
        if (query.is_null(6) || query.number(6) != place)
            misplaced.emplace_back(place, row.key);
        rows.push_back(std::move(row));
    }
    if (misplaced.empty())
        return rows;
    Transaction transaction(connection);
    for (const auto& [place, key] : misplaced)
        Query(connection, "UPDATE recipe_2 SET \"order\" = ? WHERE key_id = ?", place, key).run();
    transaction.commit();
    return rows;
}

std::optional<RecipeText> read_recipe(Connection& connection, Key recipe)
{
    Query query(connection, "SELECT r_name, r_body FROM recipe_1 WHERE recipe_1.key_id = ?", recipe);
    if (!query.next())
        return std::nullopt;
    return RecipeText{trim(query.text(0)), trim(query.text(1))};
}

std::optional<QString> recipe_name(Connection& connection, Key recipe)
{
    Query query(connection, "SELECT r_name FROM recipe_1 r1 WHERE r1.key_id = ?", recipe);
    if (!query.next())
        return std::nullopt;
    return trim(query.text(0));
}

bool save_recipe(Connection& connection, Key recipe, const QString& name, const QString& body)
{
    const QString text = trim(body);
    Transaction transaction(connection);
    const int changed = Query(connection, "UPDATE recipe_1 SET r_name = ?, r_body = ? WHERE key_id = ?",
                              trim(one_line(name)), text.isEmpty() ? help_text() : with_crlf(text), recipe)
                            .run();
    transaction.commit();
    return changed > 0;
}

Key insert_recipe(Connection& connection, const QString& name, const QString& cat)
{
    Transaction transaction(connection);
    const Key key = get_node(connection, Table::recipe_1);
    Query(connection, "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (?, ?, ?, ?)", key,
          trim(one_line(name)), help_text(), cat)
        .run();
    transaction.commit();
    return key;
}

void delete_recipe(Connection& connection, Key recipe)
{
    Transaction transaction(connection);
    Query(connection, "DELETE FROM recipe_1 WHERE key_id = ?", recipe).run();
    Query(connection, "DELETE FROM recipe_2 WHERE r_ref = ?", recipe).run();
    transaction.commit();
}

std::optional<RecipeRow> recipe_for_move(Connection& connection, Key recipe)
{
    Query query(connection, "SELECT r1.cat, r1.r_name FROM recipe_1 r1 WHERE r1.key_id = ?", recipe);
    if (!query.next())
        return std::nullopt;
    RecipeRow row{recipe, trim(query.text(1)), trim(query.text(0))};
    if (row.cat.size() == 1)
        row.cat.prepend(u'0');
    return row;
}

void set_recipe_category(Connection& connection, Key recipe, const QString& cat)
{
    Query(connection, "UPDATE recipe_1 SET cat = ? WHERE key_id = ?", cat, recipe).run();
}

std::optional<LineLink> line_link(Connection& connection, Key line)
{
    Query query(connection, "SELECT item, item_ref FROM recipe_2 r2 WHERE r2.key_id = ?", line);
    if (!query.next())
        return std::nullopt;
    return LineLink{query.key(1), query.text(0)};
}

StatusCode mark_item(Connection& connection, Key item, bool to_get)
{
    Transaction transaction(connection);
    Query(connection,
          "UPDATE groc_1 SET to_get = ? WHERE key_id IN (SELECT t.groc_id FROM tie t WHERE t.item_id = ?)", to_get,
          item)
        .run();
    const auto status = store_status(connection, Cause::page_box, item, to_get);
    transaction.commit();
    return status.value_or(StatusCode::non_stock);
}

} // namespace tarnwick
