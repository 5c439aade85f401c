#pragma once

#include "data/connection.h"
#include "data/query.h"
#include "data/settings.h"
#include "probe/real_program.h"

#include <QTest>

namespace tarnwick {

/// A real keyboard by xdotool, and what the probe tells of where it is.
namespace real_keyboard {

inline void press(const char* keys)
{
    QVERIFY2(!RealProgram::xdotool({QStringLiteral("key"), QLatin1String(keys)}).isNull(), keys);
}

inline void type(const QString& text)
{
    QVERIFY(!RealProgram::xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("40"), text})
                 .isNull());
}

/// The object name of the control that has the keyboard.
inline QString keyboard(QProcess& process)
{
    return RealProgram::ask(process, "focus");
}

inline bool is_shown(QProcess& process, const QByteArray& widget)
{
    return RealProgram::ask(process, "get " + widget + " visible") == QStringLiteral("true");
}

/// Presses keys and waits until a control has the keyboard.
inline bool leads_to(QProcess& process, const char* keys, const char* control)
{
    press(keys);
    return QTest::qWaitFor([&] { return keyboard(process) == QLatin1String(control); }, 5000);
}

/// Presses keys and waits for a pop-up menu, which Escape closes again.
inline bool opens_menu(QProcess& process, const char* keys, const QByteArray& menu)
{
    press(keys);
    const bool came = QTest::qWaitFor([&] { return is_shown(process, menu); }, 5000);
    press("Escape");
    return came && QTest::qWaitFor([&] { return !is_shown(process, menu); }, 5000);
}

/// Starts with settings as those of a first run but for some, and waits until a control has the keyboard; null when
/// that does not come.
inline std::unique_ptr<QProcess> start_with(const RealProgram& program, const char* control,
                                            std::initializer_list<std::pair<const char*, const char*>> changed,
                                            RealProgram::Probe probe = RealProgram::Probe::listens)
{
    {
        Settings settings(program.settings());
        settings.set_reg();
        for (const auto& [key, value] : changed)
            settings.set_pref(QLatin1String(key), QLatin1String(value));
    }
    auto process = program.start_listening(probe);
    if (!process
        || !QTest::qWaitFor([&] { return keyboard(*process) == QLatin1String(control); }, RealProgram::patience_ms))
        return nullptr;
    return process;
}

/// Closes the program and waits for its end.
inline void leave(QProcess& process)
{
    RealProgram::tell(process, "close");
    RealProgram::lines_of(process);
}

/// The first field that a query finds in the file of the program; a null text without a record.
inline QString stored(const RealProgram& program, const char* sql)
{
    Connection connection;
    connection.open(program.database());
    Query query(connection, sql);
    return query.next() ? query.text(0) : QString();
}

} // namespace real_keyboard

} // namespace tarnwick
