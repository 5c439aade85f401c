#include "data/connection.h"

#include "household_loader.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: load_household FOLDER DATABASE\n", stderr);
        return 2;
    }
    try {
        const auto household = tarnwick::sample::read_household(arguments[1]);
        tarnwick::Connection connection;
        connection.open(arguments[2]);
        tarnwick::sample::load_household(connection.db(), household, QDate::currentDate());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "load_household: %s\n", error.what());
        return 1;
    }
    return 0;
}
