// shots PROGRAM_FOLDER PICTURES: opens the real window on the database of a program folder, brings it into every
// state there is by mouse and keyboard, and writes numbered PNG files. Ends with 0 only when all are made.
// shots PROGRAM_FOLDER PICTURES help: draws the pictures of the help instead, under their names.

#include "shots/help_scenes.h"
#include "shots/scenes.h"
#include "shots/studio.h"

#include "app/application.h"

#include <QDir>

#include <cstdio>
#include <exception>

int main(int argc, char** argv)
{
    tarnwick::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const bool for_help = arguments.size() == 4 && arguments[3] == QLatin1String("help");
    if (arguments.size() != 3 && !for_help) {
        std::fputs("usage: shots PROGRAM_FOLDER PICTURES [help]\n", stderr);
        return 2;
    }
    if (!QDir().mkpath(arguments[2])) {
        std::fprintf(stderr, "shots: cannot make %s\n", qPrintable(arguments[2]));
        return 1;
    }
    tarnwick::shots::Studio studio(arguments[1], arguments[2]);
    try {
        if (for_help)
            tarnwick::shots::help_pictures(studio);
        else
            tarnwick::shots::play_all(studio);
    } catch (const std::exception& error) {
        studio.fault(QString::fromUtf8(error.what()));
    }
    std::printf("%d pictures, %d faults\n", studio.taken(), studio.faults());
    return studio.faults() == 0 ? 0 : 1;
}
