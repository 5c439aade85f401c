#include "data/schema.h"

#include <QString>

#include <cstdio>
#include <exception>

/// make_database FILE: makes an empty database there, unless there is one.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_database FILE\n");
        return 2;
    }
    try {
        tarnwick::make_database(QString::fromLocal8Bit(argv[1]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_database: %s: %s\n", argv[1], error.what());
        return 1;
    }
    return 0;
}
