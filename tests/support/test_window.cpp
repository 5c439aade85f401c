#include "support/test_window.h"

#include "data/keys.h"
#include "data/query.h"
#include "data/schema.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

namespace tarnwick {

namespace {

/// Program folders of tests live in memory where the machine has such a place: they are written often.
QString folder_template()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + QStringLiteral("/tarnwick-test-XXXXXX");
}

} // namespace

TestWindow::TestWindow()
    : folder_(folder_template())
{
    environment_.program_folder = folder_.path();
    environment_.settings_file = folder_.filePath(QStringLiteral("settings.ini"));
    environment_.today = [this] { return date; };
    environment_.open_url = [this](const QUrl& url) {
        opened.push_back(url);
        return true;
    };
    environment_.documents_folder = folder_.path();
    environment_.end_program = [this](int code) {
        ++ends;
        exit_code = code;
    };
    make_database(environment_.database_file());
    db_ = std::make_unique<Connection>();
    db_->open(environment_.database_file());
}

TestWindow::~TestWindow() = default;

frmmain& TestWindow::load(QSize size)
{
    main_ = std::make_unique<frmmain>(environment_);
    main_->load();
    if (!size.isEmpty()) {
        main_->showNormal();
        main_->resize(size);
    }
    QApplication::processEvents();
    return *main_;
}

Key TestWindow::add_category(const QString& name, bool expand)
{
    const Key key = get_node(*db_, Table::cat);
    Query(*db_, "INSERT INTO cat (key_id, cat_desc, expand) VALUES (?, ?, ?)", key, name, expand).run();
    return key;
}

Key TestWindow::add_item(const QString& name, Key category, int status)
{
    const Key key = get_node(*db_, Table::items_1);
    Query(*db_,
          "INSERT INTO items_1 (key_id, item, cat, status, to_get, qty, desc, modified, created)"
          " VALUES (?, ?, ?, ?, 0, 0, ' ', ?, ?)",
          key, name, category, status, date, date)
        .run();
    return key;
}

Key TestWindow::add_list(const QString& name)
{
    const Key key = get_node(*db_, Table::list_name);
    Query(*db_, "INSERT INTO list_name (key_id, list_name, active, modified) VALUES (?, ?, 0, ?)", key, name, date)
        .run();
    return key;
}

Key TestWindow::add_row(Key item, Key list, bool to_get, const QString& desc, const QString& qty,
                        const QString& aisle)
{
    const Key key = get_node(*db_, Table::groc_1);
    Query(*db_,
          "INSERT INTO groc_1 (key_id, item, desc, qty, aisle, to_get, cpn, created, modified, list, item_id)"
          " SELECT ?, item, ?, ?, ?, ?, 0, ?, ?, 0, 0 FROM items_1 WHERE key_id = ?",
          key, desc, qty, aisle, to_get, date, date, item)
        .run();
    Query(*db_, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, ?)", get_node(*db_, Table::tie),
          key, item, list)
        .run();
    return key;
}

void TestWindow::set_pref(const QString& key, const QString& value)
{
    Settings settings(environment_.settings_file);
    if (settings.pref(QStringLiteral("load"), QStringLiteral("fail")) == QLatin1String("fail"))
        settings.set_reg();
    settings.set_pref(key, value);
}

QString TestWindow::pref(const QString& key, const QString& application, const QString& section)
{
    return Settings(environment_.settings_file).read(application, section, key, QStringLiteral("(none)"));
}

int TestWindow::number(const char* sql)
{
    Query query(*db_, sql);
    return query.next() ? query.number(0) : -999;
}

QString TestWindow::text(const char* sql)
{
    Query query(*db_, sql);
    return query.next() ? query.text(0) : QStringLiteral("(no row)");
}

} // namespace tarnwick
