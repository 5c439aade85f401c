#include "stock/stock_tidying.h"

#include "household/category_store.h"
#include "household/household.h"
#include "household/status.h"
#include "household/stock_store.h"
#include "widgets/message_box.h"

namespace tarnwick {
namespace {

const QString warning = QStringLiteral("Warning");

/// The tip on getting items into another category, whose first two lines differ from message to message.
QString moving_tip(const QString& first_line, const QString& second_line)
{
    return first_line + u'\n' + second_line + QStringLiteral("\n       or right-click an item and choose 'move'");
}

QString deletion_question(const QString& name, const std::vector<QString>& lists)
{
    if (lists.size() == 1)
        return name + QStringLiteral(" appears on the ") + lists.front()
            + QStringLiteral(" list -\nDeleting it will remove it from the list");
    QString text = name + QStringLiteral(" appears on the following lists:\n");
    for (const QString& list : lists)
        text += QStringLiteral("* ") + list + u'\n';
    return text + QStringLiteral("\n\nDeleting it will remove it from those lists");
}

QString deletion_question(const CategoryContents& contents)
{
    QString text = contents.items == 1
        ? QStringLiteral("There is 1 stock item ")
        : QStringLiteral("There are ") + QString::number(contents.items) + QStringLiteral(" stock items ");
    text += QStringLiteral("\n in the ") + contents.name + QStringLiteral(" category -\n");
    if (contents.listed == 1)
        text += QStringLiteral("\n- one of these is on a shopping list \n");
    else if (contents.listed > 1)
        text += QStringLiteral("\n- ") + QString::number(contents.listed)
            + QStringLiteral(" of these are on shopping lists \n");
    text += QStringLiteral("\nAre you sure you want to delete the category?\n\n"
                           "Tip: you can rename the category by double-\n"
                           "       clicking on it and entering a new name\n\n");
    return text
        + moving_tip(QStringLiteral("Tip: you can move items to other categories-"),
                     QStringLiteral("       by dragging them where you want them"))
        + u'\n';
}

void tell_item_gone(QWidget& owner)
{
    msg_box(&owner, QStringLiteral("Stock item not found"), box::ok, warning);
}

void tell_category_gone(QWidget& owner)
{
    msg_box(&owner, QStringLiteral("Stock category not found"), box::ok, warning);
}

} // namespace

StockTidying::StockTidying(Connection& connection, Household& household, QWidget& owner)
    : connection_(connection)
    , household_(household)
    , owner_(owner)
{
}

void StockTidying::delete_item(Key item)
{
    const auto name = stock_item_name(connection_, item);
    if (!name)
        return;
    const auto lists = lists_with_item(connection_, item);
    if (!lists.empty()
        && msg_box(&owner_, deletion_question(trim(*name), lists), box::ok_cancel | box::information, warning)
            != Answer::ok)
        return;
    household_.delete_item(item);
}

void StockTidying::delete_category(Key category)
{
    if (category == 0) {
        msg_box(&owner_,
                QStringLiteral("You cannot Delete the 'OTHER' Category - \n\n")
                    + moving_tip(QStringLiteral("Tip: you can move stock items to other categories-"),
                                 QStringLiteral("       by dragging them where you want them -"))
                    + u'\n',
                box::exclamation, warning);
        return;
    }
    const auto contents = contents_of(connection_, category);
    if (!contents)
        return;
    if (contents->items > 0
        && msg_box(&owner_, deletion_question(*contents), box::yes_no | box::exclamation, warning) != Answer::yes)
        return;
    household_.delete_category(category);
}

void StockTidying::move_item(Key item, Key category)
{
    const Moved moved = household_.move_item(item, category);
    if (moved == Moved::no_item)
        tell_item_gone(owner_);
    else if (moved == Moved::no_category)
        tell_category_gone(owner_);
}

void StockTidying::rename_item(Key item, const QString& old_name, const QString& name)
{
    if (refuses_apostrophe(name, QStringLiteral("an Item name")) || !allows_on_lists(item, old_name, name))
        return;
    if (household_.rename_item(item, name) == Refusal::no_item)
        tell_item_gone(owner_);
}

void StockTidying::rename_category(Key category, const QString& name)
{
    if (refuses_apostrophe(name, QStringLiteral("a Category name")))
        return;
    // Its own name in another case is in use as well, which is kept.
    if (category_name_taken(connection_, name)) {
        msg_box(&owner_,
                name
                    + moving_tip(QStringLiteral(" category already exists\n\n"
                                                "Tip: You can move stock items to other categories"),
                                 QStringLiteral("       by dragging them where you want them -")),
                box::exclamation, QStringLiteral("Stock category"));
        return;
    }
    if (!household_.rename_category(category, name))
        tell_category_gone(owner_);
}

bool StockTidying::asks_for_item(Key item, const QString& name)
{
    return name.contains(u'\'') || lite_status(connection_, item) > StatusCode::unlisted;
}

bool StockTidying::asks_for_category(const QString& name)
{
    return name.contains(u'\'') || category_name_taken(connection_, name);
}

bool StockTidying::refuses_apostrophe(const QString& name, const QString& kind)
{
    if (!name.contains(u'\''))
        return false;
    msg_box(&owner_, QStringLiteral("Sorry - you can't put an \napostrophe in ") + kind, box::information,
            QStringLiteral("Valora info"));
    return true;
}

bool StockTidying::allows_on_lists(Key item, const QString& old_name, const QString& name)
{
    const StatusCode status = lite_status(connection_, item);
    if (status == StatusCode::unlisted || status == StatusCode::non_stock)
        return true;
    QString text = u'\'' + old_name + QStringLiteral("' appears on the following list(s):\n");
    for (const TiedRow& row : clickable_rows(connection_, item))
        text += get_list_name(connection_, row.list_key) + u'\n';
    text += QStringLiteral("\nChanging the item to '") + name
        + QStringLiteral("'\nwill change it on the list(s) too");
    return msg_box(&owner_, text, box::ok_cancel | box::information, QStringLiteral("Quendary notice"))
        == Answer::ok;
}

} // namespace tarnwick
