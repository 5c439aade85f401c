#include "lists/clearing.h"

#include "window/frmmain.h"
#include "dialogs/lst_clr_dlg.h"
#include "widgets/message_box.h"
#include "widgets/update_lock.h"
#include "household/household.h"
#include "household/status.h"
#include "lists/lists.h"
#include "lists/placing.h"

namespace tarnwick {

Clearing::Clearing(frmmain& main)
    : main_(main)
{
}

void Clearing::show_dialog()
{
    const auto name = list_name_of(main_.connection(), main_.shared.current_list);
    if (!name) {
        main_.placing().say_list_gone();
        return;
    }
    lst_clr_dlg dialog(trim(*name), main_.shared.type_size, &main_);
    QObject::connect(&dialog, &lst_clr_dlg::clear_wanted, &dialog, [this](int mode) { clear_list(mode); });
    QObject::connect(&dialog, &lst_clr_dlg::delete_wanted, &dialog, [this] { main_.lists().list_del(); });
    dialog.exec();
}

void Clearing::clear_list(int mode)
{
    const Key list = main_.shared.current_list;
    if (main_.household().refusal_of(list) == Refusal::no_list) {
        main_.placing().say_list_gone();
        return;
    }
    if (!has_rows_to_clear(main_.connection(), list, mode)) {
        say_no_rows(mode);
        return;
    }
    const UpdateLock lock(main_);
    main_.household().clear_list(list, mode);
}

void Clearing::say_no_rows(int mode)
{
    QString text;
    if (mode == clear_mode::uncheck)
        text = QStringLiteral("No 'buy-it' items in the ");
    else if (mode == clear_mode::delete_unchecked)
        text = QStringLiteral("No items in the ");
    else
        text = QStringLiteral("No unchecked items in the ");
    text += get_list_name(main_.connection(), main_.shared.current_list) + QStringLiteral(" list");
    msg_box(&main_, text, box::information, QStringLiteral("list info"));
}

void Clearing::groc_del(Key groc_key)
{
    main_.household().remove_row(groc_key);
}

} // namespace tarnwick
