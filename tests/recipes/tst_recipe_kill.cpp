#include "data/connection.h"
#include "data/query.h"
#include "data/schema.h"
#include "household/line_draft.h"
#include "household/recipe_store.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace tarnwick;

namespace {

/// Key of the line that is renamed for ever; the stock items that its two names stand for.
constexpr Key renamed_line = 1;
const LinkedName milk{QStringLiteral("Milk"), 1};
const LinkedName oats{QStringLiteral("Oat drink"), 2};

void rename_line(Connection& connection, const LinkedName& name)
{
    LineDraft draft = LineDraft::of(*read_line(connection, renamed_line));
    draft.choose(name);
    draft.set_text(IngredientField::comment, QStringLiteral("for ") + name.name);
    save_line(connection, draft);
}

/// What a user's edits write, over and over, until the process is killed. One byte into `ready` follows the first
/// round.
[[noreturn]] void edit_for_ever(const QString& file, int ready)
{
    Connection connection;
    connection.open(file);
    for (int i = 1;; ++i) {
        save_recipe(connection, 1, QStringLiteral("Soup %1").arg(i), QStringLiteral("Stir %1").arg(i));
        rename_line(connection, i % 2 ? oats : milk);
        const Key recipe = insert_recipe(connection, QStringLiteral("Stew"), QStringLiteral("02"));
        for (int line = 0; line < 3; ++line) {
            IngredientRow row;
            row.item = QStringLiteral("Salt");
            insert_line(connection, recipe, row, line);
        }
        load_lines(connection, recipe);
        delete_recipe(connection, recipe);
        if (i == 1 && write(ready, "r", 1) != 1)
            _exit(1);
    }
}

} // namespace

/// A process that is killed in the middle of a recipe's edit leaves each operation whole or not at all.
class tst_recipe_kill : public QObject {
    Q_OBJECT

private slots:
    void a_killed_edit_is_whole_or_not_there();
};

void tst_recipe_kill::a_killed_edit_is_whole_or_not_there()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("twdata/groc.mdb"));
    make_database(file);
    {
        Connection connection;
        connection.open(file);
        QCOMPARE(insert_recipe(connection, QStringLiteral("Soup 0"), QStringLiteral("11")), Key(1));
        QVERIFY(save_recipe(connection, 1, QStringLiteral("Soup 0"), QStringLiteral("Stir 0")));
        for (const LinkedName& name : {milk, oats})
            Query(connection, "INSERT INTO items_1 (key_id, item, cat) VALUES (?, ?, 0)", name.item_ref, name.name)
                .run();
        IngredientRow line;
        line.item = milk.name;
        line.item_ref = milk.item_ref;
        line.comment = QStringLiteral("for Milk");
        QCOMPARE(insert_line(connection, 1, line, 0)->key, renamed_line);
    }
    constexpr int kills = 40;
    for (int kill_number = 0; kill_number < kills; ++kill_number) {
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        const pid_t child = fork();
        QVERIFY(child >= 0);
        if (child == 0)
            edit_for_ever(file, ends[1]);
        close(ends[1]);
        char ready = 0;
        QCOMPARE(read(ends[0], &ready, 1), ssize_t{1});
        close(ends[0]);
        usleep(static_cast<useconds_t>(QRandomGenerator::global()->bounded(40000)));
        QCOMPARE(kill(child, SIGKILL), 0);
        QCOMPARE(waitpid(child, nullptr, 0), child);

        Connection connection;
        connection.open(file); // refuses a damaged file
        const auto soup = read_recipe(connection, 1);
        QVERIFY(soup);
        QCOMPARE(soup->body, QStringLiteral("Stir ") + soup->name.mid(5));
        QVERIFY(soup->name.mid(5).toInt() >= 1);
        const auto line = read_line(connection, renamed_line);
        QVERIFY(line);
        QVERIFY(line->item == milk.name || line->item == oats.name);
        QCOMPARE(line->item_ref, line->item == milk.name ? milk.item_ref : oats.item_ref);
        QCOMPARE(line->comment, QStringLiteral("for ") + line->item);
        Query orphans(connection, "SELECT count(*) FROM recipe_2 WHERE r_ref NOT IN (SELECT key_id FROM recipe_1)");
        QVERIFY(orphans.next());
        QCOMPARE(orphans.number(0), 0);
    }
}

QTEST_GUILESS_MAIN(tst_recipe_kill)
#include "tst_recipe_kill.moc"
