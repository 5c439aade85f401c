#include "household_reader.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QStringDecoder>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace tarnwick::sample {
namespace {

constexpr qsizetype measure_limit = 20;

struct Line {
    int number = 0;
    QString text; ///< trimmed; empty lines are kept, they part the paragraphs of a recipe
};

/// One input file without its comment lines.
class InputFile {
public:
    explicit InputFile(const QString& path)
        : path_(path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            fail(0, u"cannot be read: "_s + file.errorString());
        int number = 0;
        for (const QByteArray& bytes : file.readAll().split('\n')) {
            ++number;
            QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
            const QString text = QString(decoder.decode(bytes)).trimmed();
            if (decoder.hasError())
                fail(number, u"is not UTF-8 text"_s);
            if (!text.startsWith(u'#'))
                lines_.push_back({number, text});
        }
    }

    const std::vector<Line>& lines() const { return lines_; }

    [[noreturn]] void fail(int line, const QString& message) const
    {
        throw std::runtime_error((path_ + u':' + QString::number(line) + u": "_s + message).toStdString());
    }

    /// The trimmed fields of a line, filled up with empty ones to `count`; more than that many is an error.
    QStringList fields(const Line& line, qsizetype count) const
    {
        QStringList result;
        for (const QString& field : line.text.split(u'|'))
            result.append(field.trimmed());
        if (result.size() > count)
            fail(line.number, QString(u"has %1 fields, at most %2 are known"_s).arg(result.size()).arg(count));
        while (result.size() < count)
            result.append(QString());
        return result;
    }

    /// The text between the brackets of a "[heading]" line, or nothing when the line is none.
    std::optional<Line> heading(const Line& line) const
    {
        if (!line.text.startsWith(u'['))
            return std::nullopt;
        if (!line.text.endsWith(u']'))
            fail(line.number, u"heading has no closing bracket"_s);
        return Line{line.number, line.text.mid(1, line.text.size() - 2).trimmed()};
    }

    void check_name(int line, const QString& name) const
    {
        if (name.isEmpty())
            fail(line, u"name is missing"_s);
        if (name.contains(u'\''))
            fail(line, u"name holds an apostrophe: "_s + name);
    }

private:
    QString path_;
    std::vector<Line> lines_;
};

/// Finds the place of a name in its table, case-blind.
class NameIndex {
public:
    void add(const InputFile& file, int line, const QString& name)
    {
        file.check_name(line, name);
        if (find(name))
            file.fail(line, u"name is there already: "_s + name);
        index_.insert(name.toCaseFolded(), static_cast<int>(index_.size()));
    }

    std::optional<int> find(const QString& name) const
    {
        const auto it = index_.constFind(name.toCaseFolded());
        return it == index_.constEnd() ? std::nullopt : std::optional<int>(*it);
    }

private:
    QHash<QString, int> index_;
};

class Reader {
public:
    explicit Reader(const QString& folder)
        : folder_(folder)
    {
    }

    Household read()
    {
        read_categories();
        read_items();
        read_lists();
        read_recipes();
        return std::move(household_);
    }

private:
    InputFile open(const QString& name) const { return InputFile(folder_.filePath(name)); }

    void read_categories()
    {
        const InputFile file = open(u"categories.txt"_s);
        for (const Line& line : file.lines()) {
            if (line.text.isEmpty())
                continue;
            const QStringList fields = file.fields(line, 2);
            if (fields[0].compare(other_name, Qt::CaseInsensitive) == 0)
                file.fail(line.number, u"OTHER is always there and is not listed"_s);
            if (!fields[1].isEmpty() && fields[1] != u"expanded"_s)
                file.fail(line.number, u"expected \"expanded\" or nothing, found: "_s + fields[1]);
            categories_.add(file, line.number, fields[0]);
            household_.categories.push_back({fields[0], !fields[1].isEmpty()});
        }
    }

    void read_items()
    {
        const InputFile file = open(u"items.txt"_s);
        std::optional<int> category;
        for (const Line& line : file.lines()) {
            if (line.text.isEmpty())
                continue;
            if (const auto heading = file.heading(line)) {
                category = heading->text == other_name ? other_category : categories_.find(heading->text);
                if (!category)
                    file.fail(line.number, u"unknown category: "_s + heading->text);
                continue;
            }
            if (!category)
                file.fail(line.number, u"item stands before the first [Category] heading"_s);
            const QString name = file.fields(line, 1)[0];
            items_.add(file, line.number, name);
            household_.items.push_back({name, *category});
        }
    }

    int stock_item(const InputFile& file, int line, const QString& name) const
    {
        const auto item = items_.find(name);
        if (!item)
            file.fail(line, u"unknown item: "_s + name);
        return *item;
    }

    ListRow list_row(const InputFile& file, const Line& line) const
    {
        const QStringList fields = file.fields(line, 6);
        ListRow row;
        row.item = stock_item(file, line.number, fields[0]);
        row.qty = fields[1];
        row.desc = fields[2];
        row.aisle = fields[3];
        if (fields[4] != u"buy"_s && !fields[4].isEmpty())
            file.fail(line.number, u"expected \"buy\" or nothing, found: "_s + fields[4]);
        row.to_get = !fields[4].isEmpty();
        if (!fields[5].isEmpty()) {
            bool is_number = false;
            row.coupon_days = fields[5].toInt(&is_number);
            if (!is_number)
                file.fail(line.number, u"coupon is not a number of days: "_s + fields[5]);
        }
        return row;
    }

    void read_lists()
    {
        const InputFile file = open(u"lists.txt"_s);
        NameIndex names;
        for (const Line& line : file.lines()) {
            if (line.text.isEmpty())
                continue;
            if (const auto heading = file.heading(line)) {
                names.add(file, line.number, heading->text);
                household_.lists.push_back({heading->text, {}});
                continue;
            }
            if (household_.lists.empty())
                file.fail(line.number, u"row stands before the first [List] heading"_s);
            household_.lists.back().rows.push_back(list_row(file, line));
        }
    }

    Recipe recipe_start(const InputFile& file, const Line& heading) const
    {
        const QStringList fields = file.fields(heading, 2);
        const auto place = recipe_categories().indexOf(fields[1]);
        if (place < 0)
            file.fail(heading.number, u"unknown recipe category: "_s + fields[1]);
        return {fields[0], QString(u"%1"_s).arg(place + 1, 2, 10, QChar(u'0')), {}, {}};
    }

    Ingredient ingredient(const InputFile& file, const Line& line) const
    {
        const QStringList fields = file.fields(line, 5);
        Ingredient result{fields[0], fields[1], fields[2], fields[3], no_stock_item};
        file.check_name(line.number, result.name);
        if (result.measure.size() > measure_limit)
            file.fail(line.number, QString(u"measure is longer than %1 characters"_s).arg(measure_limit));
        if (!fields[4].isEmpty())
            result.item = stock_item(file, line.number, fields[4] == u"="_s ? result.name : fields[4]);
        else if (items_.find(result.name))
            file.fail(line.number, u"is a stock item, but the line is not linked: "_s + result.name);
        return result;
    }

    /// The recipe that ends before `line` must have both its parts.
    void check_recipe_end(const InputFile& file, int line) const
    {
        if (household_.recipes.empty())
            return;
        const Recipe& recipe = household_.recipes.back();
        if (recipe.ingredients.empty() || recipe.body.isEmpty())
            file.fail(line, u"recipe ends without ingredients or method: "_s + recipe.name);
    }

    void read_recipes()
    {
        const InputFile file = open(u"recipes.txt"_s);
        NameIndex names;
        QString* body = nullptr;
        bool new_paragraph = false;
        for (const Line& line : file.lines()) {
            if (line.text.isEmpty()) {
                new_paragraph = true;
            } else if (const auto heading = file.heading(line)) {
                check_recipe_end(file, line.number);
                Recipe recipe = recipe_start(file, *heading);
                names.add(file, line.number, recipe.name);
                household_.recipes.push_back(std::move(recipe));
                body = nullptr;
            } else if (household_.recipes.empty()) {
                file.fail(line.number, u"line stands before the first [Recipe] heading"_s);
            } else if (body) {
                if (!body->isEmpty())
                    body->append(new_paragraph ? u"\n\n"_s : u" "_s);
                body->append(line.text);
                new_paragraph = false;
            } else if (line.text == u"Method:"_s) {
                body = &household_.recipes.back().body;
            } else {
                household_.recipes.back().ingredients.push_back(ingredient(file, line));
            }
        }
        check_recipe_end(file, file.lines().back().number);
    }

    inline static const QString other_name = u"OTHER"_s;

    QDir folder_;
    NameIndex categories_;
    NameIndex items_;
    Household household_;
};

} // namespace

const QStringList& recipe_categories()
{
    static const QStringList names
        = u"poultry,meat,seafood,vegetarian,pasta,rice,dairy,vegetables,sides,salads,soups,"
          "breads,desserts,favorites,others"_s.split(u',');
    return names;
}

Household read_household(const QString& folder)
{
    return Reader(folder).read();
}

} // namespace tarnwick::sample
