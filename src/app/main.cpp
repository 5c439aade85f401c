#include "app/application.h"
#include "app/environment.h"
#include "window/frmmain.h"
#include "widgets/message_box.h"

#include <QLockFile>

#include <cstdlib>

using namespace tarnwick;

int main(int argc, char** argv)
{
    Application application(argc, argv);
    Environment environment = desktop_environment();

    // A lock that cannot be made (no folder, no right to write) says nothing of another process; the
    // database then refuses in its own words.
    QLockFile instance(environment.program_folder + QStringLiteral("/twdata/groc.lock"));
    instance.setStaleLockTime(0);
    if (!instance.tryLock() && instance.error() == QLockFile::LockFailedError) {
        msg_box(nullptr, QStringLiteral("A previous instance of TarnWick\nis already running"), box::ok,
                QStringLiteral("TarnWick"));
        return EXIT_SUCCESS;
    }
    const auto end_at_once = environment.end_program;
    environment.end_program = [&instance, end_at_once] {
        instance.unlock();
        end_at_once();
    };

    try {
        frmmain main(environment);
        main.load();
        application.set_started(main);
        return QApplication::exec();
    } catch (...) {
        instance.unlock();
        end_with_start_message(current_error());
    }
}
