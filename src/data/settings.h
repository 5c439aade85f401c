#pragma once

#include <QString>

#include <functional>
#include <utility>

class QSettings;

namespace tarnwick {

/// The application names under which settings stand. All reads go to `trnwck`; what is written under
/// the other two does not come back at the next start.
namespace settings_app {
inline constexpr char main[] = "trnwck";
inline constexpr char dialogs[] = "velora";
inline constexpr char columns[] = "Velora";
} // namespace settings_app

/// The store of text settings: one text for every application, section and key.
class Settings {
public:
    /// Uses the given INI file; it need not exist. One that cannot be parsed is set aside and another begun. Throws
    /// what `read` throws when that cannot be done or the path is taken by what is no file.
    explicit Settings(const QString& file);
    ~Settings();
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    /// What is done before each change of the file, such as storing what matters more.
    void set_before_write(std::function<void()> action) { before_write_ = std::move(action); }

    /// Stores a text at once; a text that is there already leaves the file as it is. Throws a run-time error on a
    /// blank name (0x800403E8 to 0x800403EA) and when the store refuses (0x800407D0 plus QSettings' status), which
    /// names the file. Waits for a locked file up to 2 s.
    void write(const QString& application, const QString& section, const QString& key, const QString& value);

    /// The stored text, or the default where there is none. Throws on a blank name, on a store that
    /// cannot be read and on a value that is no text.
    QString read(const QString& application, const QString& section, const QString& key,
                 const QString& default_value) const;

    /// `read` and `write` under `trnwck` in the section `prefs`.
    QString pref(const QString& key, const QString& default_value) const;
    void set_pref(const QString& key, const QString& value);

    /// Writes the whole table of default settings.
    void set_reg();

    /// The name that a file which could not be parsed has got; empty when there was none.
    const QString& set_aside() const { return set_aside_; }

private:
    bool holds(const QString& name, const QString& text) const;

    QString set_aside_;
    QSettings* store_ = nullptr;
    std::function<void()> before_write_ = [] {};
};

/// The settings file of this user: `tarnwick/settings.ini` in the user's config folder.
QString settings_file();

} // namespace tarnwick
