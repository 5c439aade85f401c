#include "app/font_loading.h"

#include <QFontDatabase>
#include <QStringList>

#include <clocale>
#include <system_error>

#include <fontconfig/fontconfig.h>

namespace tarnwick {

FontLoading::FontLoading()
{
    // What the application would set: no other thread may read the locale at that moment.
    std::setlocale(LC_ALL, "");
    try {
        thread_ = std::thread([told = has_application_.get_future()]() mutable {
            FcInit();
            if (told.get())
                QFontDatabase::families();
        });
    } catch (const std::system_error&) {
        // Without a thread the fonts are loaded when the first text needs them.
    }
}

FontLoading::~FontLoading()
{
    wait();
}

void FontLoading::application_made()
{
    has_application_.set_value(true);
    told_ = true;
}

void FontLoading::wait()
{
    if (!told_)
        has_application_.set_value(false);
    told_ = true;
    if (thread_.joinable())
        thread_.join();
}

} // namespace tarnwick
