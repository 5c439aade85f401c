// shots PROGRAM_FOLDER PICTURES [dark]: opens the real window on the database of a program folder, brings it into
// every state there is by mouse and keyboard, and writes numbered PNG files. Ends with 0 only when all are made.
// shots PROGRAM_FOLDER PICTURES help: draws the pictures of the help instead, under their names.

#include "shots/help_scenes.h"
#include "shots/scenes.h"
#include "shots/studio.h"

#include "app/application.h"

#include <QDir>
#include <QPalette>
#include <QStyle>

#include <cstdio>
#include <exception>

/// The colours of a dark desktop.
static QPalette dark_palette()
{
    QPalette colors(QColor(48, 52, 56), QColor(42, 46, 50));
    colors.setColor(QPalette::Base, QColor(30, 33, 36));
    colors.setColor(QPalette::Highlight, QColor(61, 174, 233));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::style()->polish(colors);
    return colors;
}

int main(int argc, char** argv)
{
    tarnwick::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const QString kind = arguments.value(3);
    const bool for_help = kind == QLatin1String("help");
    const bool dark = kind == QLatin1String("dark");
    if (arguments.size() < 3 || arguments.size() > 4 || (arguments.size() == 4 && !for_help && !dark)) {
        std::fputs("usage: shots PROGRAM_FOLDER PICTURES [help|dark]\n", stderr);
        return 2;
    }
    if (dark)
        QApplication::setPalette(dark_palette());
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
