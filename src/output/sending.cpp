#include "output/sending.h"

#include "data/settings.h"
#include "household/mail.h"
#include "household/rtf.h"
#include "output/anti_vrs.h"
#include "output/list_to_get.h"
#include "widgets/message_box.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QUrl>

#include <utility>

namespace tarnwick {

Sending::Sending(SendingContext context)
    : context_(std::move(context))
{
}

void Sending::send_to_rtf(const std::optional<RecipeSheet>& recipe)
{
    warn_of_scanners();
    const QString path = context_.folder + (recipe ? QStringLiteral("/recipe.rtf") : QStringLiteral("/list.rtf"));
    QByteArray rtf;
    if (recipe) {
        rtf = recipe_rtf(*recipe);
    } else if (const auto list = list_wanted()) {
        rtf = list_rtf(*list, context_.today);
    } else {
        remove_file(path);
        return;
    }
    if (write_file(path, rtf) && !context_.open_url(QUrl::fromLocalFile(path)))
        say(QStringLiteral("There was a problem opening the\ncurrent word processing application"), box::ok);
}

void Sending::send_to_email(const std::optional<RecipeSheet>& recipe)
{
    warn_of_scanners();
    Mail mail;
    if (recipe)
        mail = recipe_mail(*recipe);
    else if (const auto list = list_wanted())
        mail = list_mail(*list, context_.today);
    else
        return;
    const QUrl url = mail.url();
    if (url.toEncoded().size() > context_.longest_url)
        say((recipe ? QStringLiteral("This recipe") : QStringLiteral("This list"))
                + QStringLiteral(" is too long to be handed to the\ncurrent email application whole.\n\n"
                                 "You may open it in your word processing\napplication instead."),
            box::exclamation);
    else if (!context_.open_url(url))
        say(QStringLiteral("There was a problem opening the current email application"), box::ok);
}

/// The box's tick is written under another application name than the one it is read from, so the notice comes
/// again. This is kept.
void Sending::warn_of_scanners()
{
    const QString av_warn = QStringLiteral("av_warn");
    if (val(context_.settings.pref(av_warn, QStringLiteral("0"))) != 0)
        return;
    if (anti_vrs(context_.type_size, &context_.window).show_notice())
        context_.settings.write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), av_warn,
                                QStringLiteral("1"));
}

std::optional<ListSheet> Sending::list_wanted()
{
    const RtfRows rtf_rows = list_to_get(context_.type_size, &context_.window).ask();
    if (rtf_rows == RtfRows::cancelled)
        return std::nullopt;
    ListSheet list = read_list_sheet(context_.connection, context_.current_list, rtf_rows == RtfRows::buy_it);
    if (list.rows.empty()) {
        say(QStringLiteral("No shopping list items found"), box::information);
        return std::nullopt;
    }
    return list;
}

/// The file is written whole before it takes the place of the former one. Its flush tells of a full disk; the
/// commit would not.
bool Sending::write_file(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return true;
    say(QStringLiteral("The file\n%1\ncould not be written.\n\n%2")
            .arg(QDir::toNativeSeparators(path), file.errorString()),
        box::exclamation);
    return false;
}

void Sending::remove_file(const QString& path)
{
    QFile file(path);
    if (file.exists() && !file.remove())
        say(QStringLiteral("The file\n%1\ncould not be removed.\n\n%2")
                .arg(QDir::toNativeSeparators(path), file.errorString()),
            box::exclamation);
}

void Sending::say(const QString& text, int flags)
{
    msg_box(&context_.window, text, flags, QStringLiteral("Tarnwick"));
}

} // namespace tarnwick
