#include "app/application.h"
#include "app/desktop_environment.h"
#include "app/end_signals.h"
#include "app/font_loading.h"
#include "app/instance_lock.h"
#include "window/frmmain.h"
#include "widgets/message_box.h"

#include <cstdlib>

using namespace tarnwick;

namespace {

/// Runs the program on a folder whose lock is this one; it is given back at every end.
int run(Application& application, Environment environment, InstanceLock& instance)
{
    if (instance.take() == InstanceLock::State::held_by_another) {
        environment.wait_for_fonts();
        msg_box(
            nullptr,
            QStringLiteral("A previous instance of TarnWick\nis already running\n\n(%1)").arg(instance.folder()),
            box::ok, QStringLiteral("TarnWick"));
        return EXIT_SUCCESS;
    }
    const auto end_at_once = environment.end_program;
    environment.end_program = [&instance, end_at_once](int exit_code) {
        instance.release();
        end_at_once(exit_code);
    };
    frmmain main(environment);
    main.load();
    application.set_started(main);
    const EndSignals end_signals([&main] { main.end_for_system(); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    FontLoading fonts;
    Application application(argc, argv);
    fonts.application_made();
    Environment environment = desktop_environment();
    environment.wait_for_fonts = [&fonts] { fonts.wait(); };
    InstanceLock instance(environment.program_folder + QStringLiteral("/twdata/groc.lock"));
    try {
        return run(application, environment, instance);
    } catch (...) {
        instance.release();
        end_with_start_message(current_error());
    }
}
