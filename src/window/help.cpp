#include "window/help.h"

#include "dialogs/frmhelpabout.h"
#include "widgets/message_box.h"
#include "window/frmmain.h"

#include <QFileInfo>
#include <QUrl>

namespace tarnwick {

void launch_help(frmmain& main)
{
    const QString title = QStringLiteral("Help file");
    const QString file = main.environment().program_folder + QStringLiteral("/help/twhelp.html");
    if (!QFileInfo(file).isFile()) {
        msg_box(&main, QStringLiteral("Cannot locate help file"), box::ok, title);
        return;
    }
    if (!main.environment().open_url(QUrl::fromLocalFile(file)))
        msg_box(&main,
                QStringLiteral("There was a problem opening the\ncurrent web browser for the help file\n") + file,
                box::exclamation, title);
}

void show_about(frmmain& main)
{
    frmhelpabout(&main, main.shared.type_size, main.environment().open_url).exec();
}

} // namespace tarnwick
