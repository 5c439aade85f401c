#include "data/runtime_error.h"

#include <SQLiteCpp/Exception.h>

#include <cstdio>
#include <new>

namespace tarnwick {

runtime_error::runtime_error(int number, QString description, bool of_database)
    : number_(number)
    , of_database_(of_database)
    , description_(std::move(description))
    , what_(description_.toStdString())
{
}

runtime_error current_error()
{
    constexpr int out_of_memory = 7;
    constexpr int application_defined = 440;
    try {
        throw;
    } catch (const runtime_error& error) {
        return error;
    } catch (const SQLite::Exception& error) {
        return {error.getErrorCode(), QString::fromUtf8(error.what()), true};
    } catch (const std::bad_alloc&) {
        return {out_of_memory, QStringLiteral("Out of memory")};
    } catch (const std::exception& error) {
        return {application_defined, QString::fromUtf8(error.what())};
    } catch (...) {
        return {application_defined, QStringLiteral("Application-defined or object-defined error")};
    }
}

void print_cause(const runtime_error& error)
{
    const QByteArray cause = error.description().simplified().toLocal8Bit();
    std::fprintf(stderr, "tarnwick: error %d: %s\n", error.number(), cause.constData());
}

} // namespace tarnwick
