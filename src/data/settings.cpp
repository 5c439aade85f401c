#include "data/settings.h"

#include "data/runtime_error.h"
#include "data/settings_guard.h"
#include "data/text.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

#include <array>

namespace tarnwick {
namespace {

constexpr int user_error_base = static_cast<int>(0x80040000U);
constexpr int blank_application = user_error_base + 1000;
constexpr int blank_section = user_error_base + 1001;
constexpr int blank_key = user_error_base + 1002;
constexpr int store_error = user_error_base + 2000;

QString full_key(const QString& application, const QString& section, const QString& key)
{
    const QString app = trim(application);
    const QString group = trim(section);
    if (app.isEmpty())
        throw runtime_error(blank_application, QStringLiteral("AppName may not be empty"));
    if (group.isEmpty())
        throw runtime_error(blank_section, QStringLiteral("Section may not be empty"));
    if (trim(key).isEmpty())
        throw runtime_error(blank_key, QStringLiteral("Key may not be empty"));
    return app + u'/' + group + u'/' + key;
}

constexpr QLatin1String cannot_open("Could not open registry section");
constexpr QLatin1String cannot_make("Could not open/create registry section");

QString in_brackets(const QString& path)
{
    return u'(' + path + u')';
}

[[noreturn]] void refuse(int status, QLatin1String text, const QString& why)
{
    throw runtime_error(store_error + status, text + u'\n' + why);
}

struct Default {
    const char* section;
    const char* key;
    const char* value;
};

constexpr std::array defaults = {
    Default{"prefs", "fheight", "8000"}, Default{"prefs", "fwidth", "9000"}, Default{"prefs", "wstate", "2"},
    Default{"prefs", "seprtr", "4000"},  Default{"prefs", "sort", "cat"},    Default{"prefs", "alist", "0"},
    Default{"prefs", "arcp", "0"},       Default{"prefs", "tv_view", "1"},   Default{"prefs", "lv_view", "1"},
    Default{"prefs", "s_all", "0"},      Default{"prefs", "font", "9"},      Default{"reports", "col_ct", "2"},
    Default{"reports", "sort", "1"},     Default{"reports", "sort_r", "1"},  Default{"reports", "active", "1"},
    Default{"reports", "size", "0"},     Default{"prefs", "load", "load"},   Default{"prefs", "aisle", "1"},
    Default{"prefs", "cpn", "1"},        Default{"prefs", "color", "3"},     Default{"prefs", "av_warn", "0"},
    Default{"prefs", "clean", "0"},
};

} // namespace

Settings::Settings(const QString& file)
{
    try {
        set_aside_ = settings_guard::prepare(file);
    } catch (const settings_guard::Refused& refused) {
        refuse(QSettings::AccessError, cannot_open, QString::fromUtf8(refused.what()));
    }
    store_ = new QSettings(file, QSettings::IniFormat);
}

Settings::~Settings()
{
    delete store_;
}

void Settings::write(const QString& application, const QString& section, const QString& key, const QString& value)
{
    const QString name = full_key(application, section, key);
    if (holds(name, value))
        return;
    before_write_();
    try {
        settings_guard::wait_until_writable(store_->fileName());
    } catch (const settings_guard::Refused& refused) {
        refuse(QSettings::AccessError, cannot_make, QString::fromUtf8(refused.what()));
    }
    store_->setValue(name, value);
    store_->sync();
    const QString file = in_brackets(store_->fileName());
    if (const int status = store_->status(); status != QSettings::NoError)
        refuse(status, cannot_make, file);
    if (!store_->contains(name))
        refuse(QSettings::NoError, QLatin1String("Could not set key value"), file);
}

/// Whether a write would change nothing and would not fail: the file is there, open to writing, with this text.
bool Settings::holds(const QString& name, const QString& text) const
{
    if (store_->status() != QSettings::NoError || !QFileInfo(store_->fileName()).isWritable())
        return false;
    const QVariant stored = store_->value(name);
    return stored.typeId() == QMetaType::QString && stored.toString() == text;
}

QString Settings::read(const QString& application, const QString& section, const QString& key,
                       const QString& default_value) const
{
    const QString name = full_key(application, section, key);
    if (const int status = store_->status(); status != QSettings::NoError)
        refuse(status, cannot_open, in_brackets(store_->fileName()));
    const QVariant value = store_->value(name);
    if (!value.isValid())
        return default_value;
    if (value.typeId() != QMetaType::QString)
        throw runtime_error(store_error + value.typeId(), QStringLiteral("Registry data not a string"));
    return value.toString();
}

QString Settings::pref(const QString& key, const QString& default_value) const
{
    return read(QLatin1String(settings_app::main), QStringLiteral("prefs"), key, default_value);
}

void Settings::set_pref(const QString& key, const QString& value)
{
    write(QLatin1String(settings_app::main), QStringLiteral("prefs"), key, value);
}

void Settings::set_reg()
{
    for (const Default& setting : defaults)
        write(QLatin1String(settings_app::main), QLatin1String(setting.section), QLatin1String(setting.key),
              QLatin1String(setting.value));
}

QString settings_file()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/tarnwick/settings.ini");
}

} // namespace tarnwick
