#pragma once

#include "widgets/environment.h"

#include <QTemporaryDir>

namespace tarnwick::bench {

/// The counts of a made-up database.
struct Counts {
    int items = 0;
    int categories = 0;
    int lists = 0;
    int rows_per_list = 0;
};

/// A program folder with a made-up database and settings that open it by category, with list 1 on show.
class Catalogue {
public:
    explicit Catalogue(const Counts& counts);

    Environment environment() const;
    QString folder() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
};

/// The environment of the program on such a folder: the desktop is left alone and nothing ends the process.
Environment environment_of(const QString& folder);

} // namespace tarnwick::bench
