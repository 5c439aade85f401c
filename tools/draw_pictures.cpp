// draw_pictures FILE: writes all pictures in their own size into a C++ source file, which the build links to the
// program.

#include "widgets/drawn_pictures.h"

#include <cstdio>

std::span<const quint32> tarnwick::drawn_pictures()
{
    return {};
}

int main(int argc, char** argv)
{
    std::FILE* file = argc == 2 ? std::fopen(argv[1], "w") : nullptr;
    if (!file) {
        std::fputs("draw_pictures FILE: the file cannot be written\n", stderr);
        return 1;
    }
    std::fputs("#include \"widgets/drawn_pictures.h\"\n\nstatic const quint32 pixels[] = {", file);
    int column = 0;
    for (const quint32 pixel : tarnwick::draw_pictures())
        std::fprintf(file, "%s0x%x,", column++ % 16 == 0 ? "\n" : "", pixel);
    std::fputs("\n};\n\nstd::span<const quint32> tarnwick::drawn_pictures()\n{\n    return pixels;\n}\n", file);
    return std::fclose(file) == 0 ? 0 : 1;
}
