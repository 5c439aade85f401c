#include "window/help.h"

#include "dialogs/frmhelpabout.h"
#include "widgets/message_box.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"

#include <QFileInfo>
#include <QUrl>

namespace tarnwick {

void launch_help(const Program& program)
{
    const QString title = QStringLiteral("Help file");
    const QString file = program.environment.program_folder + QStringLiteral("/help/twhelp.html");
    if (!QFileInfo(file).isFile()) {
        msg_box(&program.window, QStringLiteral("Cannot locate help file"), box::ok, title);
        return;
    }
    if (!program.environment.open_url(QUrl::fromLocalFile(file)))
        msg_box(&program.window,
                QStringLiteral("There was a problem opening the\ncurrent web browser for the help file\n") + file,
                box::exclamation, title);
}

void show_about(const Program& program)
{
    frmhelpabout(&program.window, program.shared.type_size, program.environment.open_url).exec();
}

} // namespace tarnwick
