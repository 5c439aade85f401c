// bench_tarnwick [PART]: prints how the program's work compares with the least that it could be, as ratios of one
// run. Times alone say nothing: the machine is in both sides of a ratio.

#include "drags.h"
#include "loads.h"
#include "looks.h"
#include "printing.h"
#include "processes.h"
#include "recipes.h"
#include "tidying.h"

#include "app/application.h"

#include <array>
#include <cstdio>
#include <cstring>

using namespace tarnwick;
using namespace tarnwick::bench;

namespace {

struct Part {
    const char* name;
    void (*measure)();
};

constexpr std::array parts = {
    Part{"processes", measure_processes},
    Part{"tree", measure_tree_load},
    Part{"list", measure_list_load},
    Part{"placing", measure_placing},
    Part{"keystroke", measure_keystroke},
    Part{"editor", measure_item_editor},
    Part{"recipes", measure_recipe_tree},
    Part{"page", measure_recipe_page},
    Part{"item_box", measure_item_keystroke},
    Part{"printing", measure_printing},
    Part{"find", measure_find},
    Part{"looks", measure_looks},
    Part{"drags", measure_drags},
    Part{"clearing", measure_clearing},
    Part{"category", measure_category_deletion},
};

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--bare") == 0)
        return show_bare_window(argc, argv);
    if (argc == 2 && std::strcmp(argv[1], "--plain") == 0)
        return show_plain_controls(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], "--program") == 0)
        return show_program(argc, argv, QString::fromLocal8Bit(argv[2]));
    Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    std::printf("platform %s\n", qPrintable(QApplication::platformName()));
    std::printf("| %-72s | %6s | %5s | %-6s |\n|---|---:|---:|---|\n", "What", "Ratio", "Bound", "");
    for (const Part& part : parts) {
        if (argc < 2 || std::strcmp(argv[1], part.name) == 0)
            part.measure();
    }
    return 0;
}
