#include "household/rescue.h"

#include "data/keys.h"
#include "data/query.h"
#include "household/item_store.h"
#include "household/line_draft.h"
#include "household/placing_store.h"
#include "household/status.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>

namespace tarnwick {
namespace {

const QString beside_name = QStringLiteral("rescue");
const QString suffix = QStringLiteral(".json");

/// The folder for what the one beside the database does not take: `tarnwick` in the user's state folder.
QString state_folder()
{
    const QString set = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(set) ? set : QDir::homePath() + QStringLiteral("/.local/state"))
        + QStringLiteral("/tarnwick");
}

/// The first part of a rescue file's name in the state folder, which all program folders share.
QString state_name(const QString& database)
{
    const QByteArray path = QFileInfo(database).absoluteFilePath().toUtf8();
    return QStringLiteral("rescue-")
        + QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex().left(12));
}

QString free_name(const QString& folder, const QString& name, const QString& end)
{
    QString file = folder + u'/' + name + end;
    for (int i = 2; QFileInfo::exists(file); ++i)
        file = QStringLiteral("%1/%2-%3%4").arg(folder, name).arg(i).arg(end);
    return file;
}

bool write_file(const QString& folder, const QString& name, const QByteArray& bytes)
{
    QSaveFile file(folder + u'/' + name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit();
}

QJsonObject json_of(const RecipeText& text)
{
    return {{QStringLiteral("name"), text.name}, {QStringLiteral("body"), text.body}};
}

RecipeText text_of(const QJsonObject& json)
{
    return {json[QLatin1String("name")].toString(), json[QLatin1String("body")].toString()};
}

QJsonObject json_of(const IngredientRow& row)
{
    return {{QStringLiteral("key"), row.key},   {QStringLiteral("item_ref"), row.item_ref},
            {QStringLiteral("qty"), row.qty},   {QStringLiteral("measure"), row.measure},
            {QStringLiteral("item"), row.item}, {QStringLiteral("comment"), row.comment}};
}

Key key_of(const QJsonValue& value)
{
    return to_int16(value.toDouble(-1));
}

IngredientRow line_of(const QJsonObject& json)
{
    return {key_of(json[QLatin1String("key")]),     key_of(json[QLatin1String("item_ref")]),
            json[QLatin1String("qty")].toString(),  json[QLatin1String("measure")].toString(),
            json[QLatin1String("item")].toString(), json[QLatin1String("comment")].toString()};
}

QJsonObject json_of(const RowEdit& row)
{
    return {{QStringLiteral("action"), static_cast<int>(row.action)},
            {QStringLiteral("row"), row.groc_key},
            {QStringLiteral("list"), row.list_key},
            {QStringLiteral("to_get"), row.to_get},
            {QStringLiteral("coupon"), row.coupon},
            {QStringLiteral("date"), row.date},
            {QStringLiteral("desc"), row.desc},
            {QStringLiteral("qty"), row.qty},
            {QStringLiteral("aisle"), row.aisle}};
}

RowEdit row_of(const QJsonObject& json)
{
    return {static_cast<RowAction>(json[QLatin1String("action")].toInt()),
            key_of(json[QLatin1String("row")]),
            key_of(json[QLatin1String("list")]),
            json[QLatin1String("to_get")].toBool(),
            json[QLatin1String("coupon")].toBool(),
            json[QLatin1String("date")].toString(),
            json[QLatin1String("desc")].toString(),
            json[QLatin1String("qty")].toString(),
            json[QLatin1String("aisle")].toString()};
}

QJsonObject json_of(const RescuedItem& item)
{
    QJsonArray rows;
    for (const RowEdit& row : item.edit.rows)
        rows.append(json_of(row));
    return {{QStringLiteral("old_name"), item.old_name},
            {QStringLiteral("item"), item.edit.item},
            {QStringLiteral("line"), item.edit.line},
            {QStringLiteral("name"), item.edit.name},
            {QStringLiteral("link_namesakes"), item.edit.link_namesakes},
            {QStringLiteral("category"), item.edit.category},
            {QStringLiteral("today"), item.edit.today.toString(Qt::ISODate)},
            {QStringLiteral("rows"), rows}};
}

RescuedItem item_of(const QJsonObject& json)
{
    RescuedItem item{json[QLatin1String("old_name")].toString(), {}};
    item.edit.item = key_of(json[QLatin1String("item")]);
    item.edit.line = key_of(json[QLatin1String("line")]);
    item.edit.name = json[QLatin1String("name")].toString();
    item.edit.renamed = item.edit.item > 0 && item.edit.name != item.old_name;
    item.edit.link_namesakes = json[QLatin1String("link_namesakes")].toBool();
    item.edit.category = key_of(json[QLatin1String("category")]);
    item.edit.today = QDate::fromString(json[QLatin1String("today")].toString(), Qt::ISODate);
    for (const QJsonValue row : json[QLatin1String("rows")].toArray())
        item.edit.rows.push_back(row_of(row.toObject()));
    return item;
}

bool same_texts(const IngredientRow& one, const IngredientRow& other)
{
    return one.qty == other.qty && one.measure == other.measure && one.item == other.item
        && one.comment == other.comment;
}

QString instructions(const QString& body)
{
    const QString text = trim(body);
    return text.isEmpty() || text == help_text() ? QString() : with_crlf(text);
}

/// Both texts, the second behind the first, unless the first holds it already.
QString appended(const QString& text, const QString& more)
{
    if (more.isEmpty() || text.contains(more))
        return text;
    return text.isEmpty() ? more : text + QStringLiteral("\r\n\r\n") + more;
}

Key recipe_of_its_own(Connection& connection, const QString& name)
{
    constexpr const char* others = "15";
    return insert_recipe(connection, trim(name).isEmpty() ? QStringLiteral("Recipe") : name, QLatin1String(others));
}

/// Stores name and instructions. Returns the recipe that has them now.
Key put_back_text(Connection& connection, const Rescue& rescue, const std::optional<RecipeText>& stored)
{
    const RecipeText& typed = *rescue.typed;
    const bool same_name = stored && stored->name == rescue.before.name;
    const bool same_body = stored && instructions(stored->body) == instructions(rescue.before.body);
    if (!same_name && !same_body) {
        // The recipe is gone, and a recipe under its key is another one.
        const Key made = recipe_of_its_own(connection, typed.name);
        save_recipe(connection, made, trim(typed.name).isEmpty() ? QStringLiteral("Recipe") : typed.name,
                    typed.body);
        return made;
    }
    QString body
        = same_body ? instructions(typed.body) : appended(instructions(stored->body), instructions(typed.body));
    QString name = typed.name;
    if (!same_name) {
        name = stored->name;
        if (typed.name != rescue.before.name && typed.name != name)
            body = appended(body, trim(typed.name));
    }
    save_recipe(connection, rescue.recipe, trim(name).isEmpty() ? rescue.before.name : name, body);
    return rescue.recipe;
}

void put_back_line(Connection& connection, const RescuedLine& line, Key recipe)
{
    const auto stored = line.before.key > 0 ? read_line(connection, line.before.key) : std::nullopt;
    if (stored && same_texts(*stored, line.typed))
        return;
    const bool on_recipe = stored
        && Query(connection, "SELECT key_id FROM recipe_2 WHERE key_id = ? AND r_ref = ?", line.before.key, recipe)
               .next();
    LineDraft draft;
    if (on_recipe && same_texts(*stored, line.before)) {
        draft = LineDraft::of(*stored);
    } else {
        Query order(connection, "SELECT count(*) FROM recipe_2 WHERE r_ref = ?", recipe);
        order.next();
        draft = LineDraft::added(recipe, order.number(0));
    }
    draft.edited = line.typed;
    if (!stock_item_name(connection, line.typed.item_ref))
        draft.edited.item_ref = stock_item_named(connection, line.typed.item);
    save_line(connection, draft);
}

/// False when the item, or the name that it is to have, is another's meanwhile.
bool put_back_item(Connection& connection, const RescuedItem& item)
{
    ItemEdit edit = item.edit;
    strip_apostrophes(edit.name);
    ItemStore store(connection);
    const auto stored = store.item(edit.item);
    const bool is_new = edit.item < 0;
    if (edit.name.isEmpty() || (!is_new && (!stored || stored->name != item.old_name)))
        return false;
    if ((is_new || edit.renamed) && store.name_in_use(edit.name, edit.item))
        return false;
    const auto categories = store.categories();
    const auto is_there = [&edit](const CategoryEntry& category) { return category.key == edit.category; };
    if (std::none_of(categories.begin(), categories.end(), is_there))
        edit.category = 0;
    std::erase_if(edit.rows, [&](const RowEdit& row) {
        return row.action == RowAction::place && item_on_list(connection, edit.item, row.list_key);
    });
    write_item_edit(connection, edit);
    return true;
}

bool put_back_field(Connection& connection, const RescuedField& field)
{
    return Query(connection, "SELECT key_id FROM groc_1 WHERE key_id = ? AND item = ?", field.groc_key, field.item)
               .next()
        && write_row_field(connection, field.groc_key, field.field, trim(field.typed));
}

} // namespace

QString rescue_contents(const Rescue& rescue)
{
    QStringList lines;
    const QString name = rescue.typed ? rescue.typed->name : rescue.before.name;
    if (rescue.typed)
        lines += QStringLiteral("Recipe \"%1\": name and instructions").arg(trim(name));
    if (rescue.line)
        lines += QStringLiteral("Recipe \"%1\": ingredient \"%2\"")
                     .arg(trim(name), rescue.line->typed.display_text());
    if (rescue.field)
        lines += QStringLiteral("List row \"%1\": \"%2\"").arg(rescue.field->item, rescue.field->typed);
    if (rescue.item)
        lines += QStringLiteral("Stock item \"%1\"").arg(rescue.item->edit.name);
    return lines.join(u'\n');
}

QString write_rescue(const Rescue& rescue, const QString& database)
{
    QJsonObject json{{QStringLiteral("recipe"), rescue.recipe}, {QStringLiteral("before"), json_of(rescue.before)}};
    if (rescue.typed)
        json.insert(QStringLiteral("typed"), json_of(*rescue.typed));
    if (rescue.line)
        json.insert(QStringLiteral("line"),
                    QJsonObject{{QStringLiteral("before"), json_of(rescue.line->before)},
                                {QStringLiteral("typed"), json_of(rescue.line->typed)}});
    if (rescue.field)
        json.insert(QStringLiteral("field"),
                    QJsonObject{{QStringLiteral("row"), rescue.field->groc_key},
                                {QStringLiteral("item"), rescue.field->item},
                                {QStringLiteral("field"), static_cast<int>(rescue.field->field)},
                                {QStringLiteral("typed"), rescue.field->typed}});
    if (rescue.item)
        json.insert(QStringLiteral("stock_item"), json_of(*rescue.item));
    const QByteArray bytes = QJsonDocument(json).toJson();
    const QString beside = QFileInfo(database).absolutePath();
    QString first = free_name(beside, beside_name, suffix);
    if (write_file(beside, QFileInfo(first).fileName(), bytes))
        return first;
    const QString state = state_folder();
    QDir().mkpath(state);
    const QString second = free_name(state, state_name(database), suffix);
    return write_file(state, QFileInfo(second).fileName(), bytes) ? second : QString();
}

QStringList rescue_files(const QString& database)
{
    QFileInfoList found;
    const auto look = [&found](const QString& folder, const QString& name) {
        found += QDir(folder).entryInfoList({name + suffix, name + QStringLiteral("-*") + suffix}, QDir::Files);
    };
    look(QFileInfo(database).absolutePath(), beside_name);
    look(state_folder(), state_name(database));
    std::stable_sort(found.begin(), found.end(), [](const QFileInfo& one, const QFileInfo& other) {
        return one.lastModified() < other.lastModified();
    });
    QStringList files;
    for (const QFileInfo& file : found)
        files += file.absoluteFilePath();
    return files;
}

std::optional<Rescue> read_rescue(const QString& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject json = QJsonDocument::fromJson(source.readAll()).object();
    Rescue rescue;
    rescue.recipe = key_of(json[QLatin1String("recipe")]);
    rescue.before = text_of(json[QLatin1String("before")].toObject());
    if (json.contains(QLatin1String("typed")))
        rescue.typed = text_of(json[QLatin1String("typed")].toObject());
    if (const QJsonObject line = json[QLatin1String("line")].toObject(); !line.isEmpty())
        rescue.line = RescuedLine{line_of(line[QLatin1String("before")].toObject()),
                                  line_of(line[QLatin1String("typed")].toObject())};
    if (const QJsonObject field = json[QLatin1String("field")].toObject(); !field.isEmpty())
        rescue.field = RescuedField{key_of(field[QLatin1String("row")]), field[QLatin1String("item")].toString(),
                                    static_cast<RowField>(field[QLatin1String("field")].toInt()),
                                    field[QLatin1String("typed")].toString()};
    if (const QJsonObject item = json[QLatin1String("stock_item")].toObject(); !item.isEmpty())
        rescue.item = item_of(item);
    return rescue.is_empty() ? std::nullopt : std::optional(rescue);
}

bool put_back(Connection& connection, const Rescue& rescue)
{
    Transaction transaction(connection);
    const std::optional<RecipeText> stored = read_recipe(connection, rescue.recipe);
    Key recipe = rescue.recipe;
    if (rescue.typed)
        recipe = put_back_text(connection, rescue, stored);
    if (rescue.line) {
        if (!rescue.typed && (!stored || stored->name != rescue.before.name))
            recipe = recipe_of_its_own(connection, rescue.before.name);
        put_back_line(connection, *rescue.line, recipe);
    }
    bool complete = !rescue.field || put_back_field(connection, *rescue.field);
    if (rescue.item && !put_back_item(connection, *rescue.item))
        complete = false;
    transaction.commit();
    return complete;
}

QString set_rescue_aside(const QString& file)
{
    const QFileInfo info(file);
    const QString aside = free_name(info.absolutePath(), info.completeBaseName(), QStringLiteral(".kept"));
    return QFile::rename(file, aside) ? aside : file;
}

} // namespace tarnwick
