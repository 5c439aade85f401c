#pragma once

#include "widgets/environment.h"
#include "window/frmmain.h"

#include <QTemporaryDir>
#include <QUrl>

#include <memory>
#include <vector>

namespace tarnwick {

/// A program folder with a new database of its own, and the real main window on it. Records are made
/// in the database before `load`.
class TestWindow {
public:
    TestWindow();
    ~TestWindow();

    /// Shows the main window as a start does, at a size of 1000 by 700. `size` 0 x 0 keeps the restored one.
    frmmain& load(QSize size = {1000, 700});

    frmmain& main() { return *main_; }
    Environment& environment() { return environment_; }
    QString database() const { return environment_.database_file(); }

    /// A connection of the test's own on the file, for making records and looking at them.
    Connection& db() { return *db_; }

    Key add_category(const QString& name, bool expand = false);
    Key add_item(const QString& name, Key category, int status = 5);
    Key add_list(const QString& name);
    Key add_row(Key item, Key list, bool to_get, const QString& desc = QStringLiteral(" "),
                const QString& qty = QStringLiteral(" "), const QString& aisle = QStringLiteral(" "));
    void set_pref(const QString& key, const QString& value);
    QString pref(const QString& key, const QString& application = QStringLiteral("trnwck"),
                 const QString& section = QStringLiteral("prefs"));

    /// The first number, or text, of a query without parameters on the file.
    int number(const char* sql);
    QString text(const char* sql);

    /// A child of the main window by object name; null fails the test by itself when used.
    template <typename Widget> Widget* find(const QString& name) { return main_->findChild<Widget*>(name); }

    QDate date{2026, 3, 14}; ///< today
    int ends = 0; ///< how often the program ended
    int exit_code = -1; ///< with what it ended last
    std::vector<QUrl> opened; ///< what the desktop was asked to open

private:
    QTemporaryDir folder_;
    Environment environment_;
    std::unique_ptr<Connection> db_;
    std::unique_ptr<frmmain> main_;
};

} // namespace tarnwick
