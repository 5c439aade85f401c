#include "window/toolbar.h"

#include "window/commands.h"
#include "window/menu_table.h"
#include "widgets/pictures.h"
#include "widgets/shared_values.h"
#include "widgets/tool_tip.h"

#include <QAction>
#include <QFrame>
#include <QMenu>
#include <QToolButton>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr int first_button = 1;
constexpr int last_button = 18;
constexpr int edge_margin = 4;
constexpr int fit_margin = 8;
constexpr int icon_size = 24;
constexpr int least_button_width = 40;
constexpr int separator_width = 9;
constexpr int least_caption_points = 8;
constexpr int largest_caption_points = 12;

constexpr int picture_sort_category = 18;
constexpr int picture_sort_alpha = 14;
constexpr int picture_more = 7;
constexpr int picture_close_folders = 4;
constexpr int picture_size_down = 16;
constexpr int picture_size_up = 17;

/// Image, caption and tool tip at rest. Image 0 is a separator.
struct StandingButton {
    int picture;
    const char* caption;
    const char* tool_tip;
    const char* spoken = ""; ///< its name to a screen reader, where the caption is not enough
};

constexpr StandingButton standing[last_button + 1] = {
    {},
    {1, "New", "Create a new shopping list", "New shopping list"},
    {2, "Clear", "Clear selected list", "Clear list"},
    {3, "Lists", "List manager", "List manager"},
    {0, "", ""},
    {5, "New", "Create new recipe", "New recipe"},
    {6, "Ingrdnt", "Add ingredient", "Add ingredient"},
    {0, "", ""},
    {8, "Stock", "Add a new stock item", "New stock item"},
    {0, "", ""},
    {10, "Print", "Print selected list"},
    {11, "Prev", "Preview list", "Preview"},
    {12, "WP", "Open recipe in word processor", "Word processor"},
    {13, "Email", "Send recipe by email"},
    {0, "", ""},
    {15, "Find", "Find a stock item"},
    {picture_sort_category, "Sort", ""},
    {picture_close_folders, "Snap", "Close all stock folders"},
    {picture_size_up, "Size", "Make size larger"},
};

const StandingButton& at_rest(int number)
{
    return standing[static_cast<size_t>(number)];
}

QString more_caption()
{
    return QStringLiteral("More...");
}

} // namespace

Toolbar::Toolbar(const SharedValues& shared, Commands& commands, Acts acts, QWidget* parent)
    : shared_(shared)
    , commands_(commands)
    , acts_(std::move(acts))
    , bar_(new QWidget(parent))
{
    bar_->setObjectName(QStringLiteral("Toolbar1"));
    for (int i = first_button; i <= last_button; ++i) {
        if (at_rest(i).picture == 0)
            make_separator(i);
        else
            make_button(i);
        buttons_.at(static_cast<size_t>(i))->setObjectName(QStringLiteral("Toolbar1(%1)").arg(i));
        shown_.at(static_cast<size_t>(i)) = true;
    }
    add_drop_down(ToolButton::print, "PRNT_OPT", QStringLiteral("Shopping list print options"));
    add_drop_down(ToolButton::sort, "ALPHA", QStringLiteral("Sort alphabetically"));
    add_drop_down(ToolButton::sort, "CAT", QStringLiteral("Sort by category"));
    add_drop_down(ToolButton::size, "SML", QStringLiteral("Small"));
    add_drop_down(ToolButton::size, "MDM", QStringLiteral("Medium"));
    add_drop_down(ToolButton::size, "LRG", QStringLiteral("Large"));
    set_tag(ToolButton::folders, QStringLiteral("DFLT"));
    measure_widest();
    place_buttons();
}

void Toolbar::measure_widest()
{
    set_caption_points(largest_caption_points);
    for (int i = first_button; i <= last_button; ++i)
        widest_.at(static_cast<size_t>(i)) = width_of(i);
    set_caption_points(least_caption_points);
}

void Toolbar::make_button(int number)
{
    const auto which = static_cast<ToolButton>(number);
    auto* made = new QToolButton(bar_);
    made->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    made->setIconSize({icon_size, icon_size});
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::NoFocus);
    made->setText(text_of(at_rest(number).caption));
    buttons_.at(static_cast<size_t>(number)) = made;
    made->setAccessibleName(text_of(at_rest(number).spoken));
    set_picture(which, at_rest(number).picture);
    set_tool_tip(which, text_of(at_rest(number).tool_tip));
    connect(made, &QToolButton::clicked, this, [this, which] { clicked(which); });
}

void Toolbar::make_separator(int number)
{
    auto* made = new QFrame(bar_);
    made->setFrameStyle(QFrame::VLine | QFrame::Plain);
    buttons_.at(static_cast<size_t>(number)) = made;
}

void Toolbar::add_drop_down(ToolButton which, const char* key, const QString& caption)
{
    QToolButton& owner = tool_button(which);
    if (!owner.menu()) {
        owner.setMenu(new QMenu(&owner));
        owner.menu()->setAccessibleName(owner.text());
        owner.setPopupMode(QToolButton::MenuButtonPopup);
    }
    QAction* action = owner.menu()->addAction(caption);
    action->setObjectName(text_of(key));
    connect(action, &QAction::triggered, this, [this, action] { drop_down_clicked(action->objectName()); });
}

QToolButton& Toolbar::tool_button(ToolButton which) const
{
    return static_cast<QToolButton&>(button(which));
}

std::vector<QToolButton*> Toolbar::usable_buttons() const
{
    std::vector<QToolButton*> found;
    for (int i = first_button; i <= last_button; ++i)
        if (at_rest(i).picture != 0 && shown_.at(static_cast<size_t>(i)) && part(i).isEnabled())
            found.push_back(static_cast<QToolButton*>(&part(i)));
    return found;
}

void Toolbar::set(ToolButton which, const QString& tool_tip, bool enabled)
{
    set_tool_tip(which, tool_tip);
    set_enabled(which, enabled);
}

void Toolbar::set_tool_tip(ToolButton which, const QString& text)
{
    button(which).setToolTip(plain_tool_tip(text));
}

void Toolbar::set_enabled(ToolButton which, bool enabled)
{
    button(which).setEnabled(enabled);
}

QString Toolbar::tag(ToolButton which) const
{
    return button(which).property("Tag").toString();
}

void Toolbar::set_tag(ToolButton which, const QString& tag)
{
    button(which).setProperty("Tag", tag);
}

void Toolbar::set_picture(ToolButton which, int picture)
{
    QToolButton& owner = tool_button(which);
    if (owner.property("picture").toInt() == picture)
        return;
    owner.setProperty("picture", picture);
    owner.setIcon(list_icon(ImageList::toolbar, picture));
}

int Toolbar::height() const
{
    int tallest = 0;
    for (int i = first_button; i <= last_button; ++i)
        tallest = std::max(tallest, at_rest(i).picture == 0 ? 0 : part(i).sizeHint().height());
    return tallest + edge_margin;
}

int Toolbar::least_width() const
{
    const QWidget& folders = button(ToolButton::folders);
    const QFontMetrics metrics = folders.fontMetrics();
    const int wider = metrics.horizontalAdvance(more_caption())
        - metrics.horizontalAdvance(text_of(at_rest(static_cast<int>(ToolButton::folders)).caption));
    const int more = std::max(folders.sizeHint().width() + std::max(wider, 0), least_button_width);
    return button(ToolButton::find).x() + more + fit_margin;
}

void Toolbar::show_button(ToolButton which, bool shown)
{
    shown_.at(static_cast<size_t>(which)) = shown;
    button(which).setVisible(shown);
}

void Toolbar::set_caption_points(int points)
{
    QFont font = bar_->font();
    font.setPointSize(points);
    if (font != bar_->font())
        bar_->setFont(font);
}

int Toolbar::width_of(int number) const
{
    return at_rest(number).picture == 0 ? separator_width
                                        : std::max(part(number).sizeHint().width(), least_button_width);
}

void Toolbar::place_buttons()
{
    const int row = height() - edge_margin;
    int left = edge_margin;
    for (int i = first_button; i <= last_button; ++i) {
        if (!shown_.at(static_cast<size_t>(i)))
            continue;
        const int width = std::max(width_of(i), room_.at(static_cast<size_t>(i)));
        if (at_rest(i).picture == 0)
            part(i).setGeometry(left + separator_width / 2 - 1, edge_margin + 4, 2, row - 8);
        else
            part(i).setGeometry(left, edge_margin / 2, width, row);
        left += width;
    }
}

int Toolbar::window_width() const
{
    return bar_->window()->width();
}

bool Toolbar::fits(ToolButton which) const
{
    return button(which).x() + button(which).width() + fit_margin <= window_width();
}

void Toolbar::restore_standing_state()
{
    for (int i = first_button; i <= last_button; ++i)
        if (at_rest(i).picture != 0)
            static_cast<QToolButton&>(part(i)).setText(text_of(at_rest(i).caption));
    set_picture(ToolButton::folders, picture_close_folders);
    set_tag(ToolButton::folders, QStringLiteral("DFLT"));
    for (const char* name : {"mnu_more_find", "mnu_more_sort", "mnu_more_sort_alpha", "mnu_more_sort_cat"})
        commands_.set_visible(text_of(name), false);
    for (const ToolButton which : {ToolButton::find, ToolButton::sort, ToolButton::folders, ToolButton::size})
        show_button(which, true);
}

/// The largest captions up to the type size with which the fixed buttons and "More..." stand in the window. Whether
/// they are smaller than the type size.
bool Toolbar::fit_type()
{
    room_ = {};
    for (int points = std::max(type_size_, least_caption_points);; --points) {
        set_caption_points(points);
        place_buttons();
        if (points == least_caption_points || least_width() <= window_width()) {
            give_room();
            return points < type_size_;
        }
    }
}

/// Where all buttons stand in the window with the largest captions, each gets the room of those at every type size:
/// a second click on Size must not meet what has moved under the pointer.
void Toolbar::give_room()
{
    if (!fits(ToolButton::size))
        return;
    room_ = widest_;
    place_buttons();
    if (fits(ToolButton::size))
        return;
    room_ = {};
    place_buttons();
}

void Toolbar::toolbar_fit()
{
    restore_standing_state();
    const bool too_narrow = fit_type();
    const bool sort_fits = !too_narrow && fits(ToolButton::sort);
    if (!too_narrow && fits(ToolButton::size)) {
        set_folder_button();
    } else {
        show_button(ToolButton::size, false);
        set_tag(ToolButton::folders, QStringLiteral("MORE"));
        tool_button(ToolButton::folders).setText(more_caption());
        set_picture(ToolButton::folders, picture_more);
        set_tool_tip(ToolButton::folders, QStringLiteral("More options"));
        set_enabled(ToolButton::folders, true);
        place_buttons();
    }
    if (too_narrow || !fits(ToolButton::folders)) {
        for (const char* name : {"mnu_more_sort", "mnu_more_sort_alpha", "mnu_more_sort_cat"})
            commands_.set_visible(text_of(name), true);
        show_button(ToolButton::sort, false);
    }
    if (!sort_fits) {
        commands_.set_visible(QStringLiteral("mnu_more_find"), true);
        show_button(ToolButton::find, false);
    }
    place_buttons();
    acts_.fitted();
}

void Toolbar::set_folder_button()
{
    set(ToolButton::folders,
        stock_ ? QStringLiteral("Close all stock folders") : QStringLiteral("Close all recipe folders"), !by_name_);
}

void Toolbar::show_sort(bool stock, bool by_name)
{
    stock_ = stock;
    by_name_ = by_name;
    set_tag(ToolButton::sort, by_name ? QStringLiteral("ALPHA") : QStringLiteral("CAT"));
    set_picture(ToolButton::sort, by_name ? picture_sort_alpha : picture_sort_category);
    const QString what = stock ? QStringLiteral("Sort stock ") : QStringLiteral("Sort recipes ");
    set_tool_tip(ToolButton::sort,
                 what + (by_name ? QStringLiteral("by category") : QStringLiteral("alphatbetically")));
    if (tag(ToolButton::folders) != QLatin1String("MORE"))
        set_folder_button();
}

void Toolbar::set_size_button_at_start(int type_size)
{
    if (type_size < 12)
        set_size_button(picture_size_up, QStringLiteral("UP"), QStringLiteral("Make size smaller"));
    else
        set_size_button(picture_size_down, QStringLiteral("DN"), QStringLiteral("Make size larger"));
}

void Toolbar::set_size_button(int image, const QString& tag, const QString& tool_tip)
{
    set_tag(ToolButton::size_direction, tag);
    set_picture(ToolButton::size, image);
    set_tool_tip(ToolButton::size, tool_tip);
}

void Toolbar::pop_up_more(ToolButton which)
{
    const QWidget& below = button(which);
    commands_.menu(QStringLiteral("mnu_more")).popup(below.mapToGlobal(QPoint(0, below.height())));
}

/// The command of the menus that a button stands for in the present state; empty for one without.
QString Toolbar::command_of(ToolButton which) const
{
    const bool list = shared_.list_pane_shown;
    switch (which) {
    case ToolButton::new_list:
        return text_of("mnu_list_new");
    case ToolButton::clear:
        return text_of("mnu_list_clear");
    case ToolButton::lists:
        return text_of("mnu_tools_listlist");
    case ToolButton::new_recipe:
        return text_of("mnu_recipe_new");
    case ToolButton::ingredient:
        return text_of("mnu_recipe_add_ingred");
    case ToolButton::stock:
        return text_of("mnu_edit_add_stck");
    case ToolButton::print:
        return text_of(list ? "mnu_list_Print" : "mnu_recipe_prnt");
    case ToolButton::word_processor:
        return text_of(list ? "mnu_tools_wp_list" : "mnu_tools_wp_rcp");
    case ToolButton::email:
        return text_of(tag(which) == QLatin1String("list") ? "mnu_tools_email_list" : "mnu_tools_email_rcp");
    case ToolButton::find:
        return text_of(shared_.stock_view ? "mnu_tools_find_item" : "mnu_tools_find_recipe");
    case ToolButton::folders:
        return text_of("mnu_view_cntrct_all");
    default:
        return {};
    }
}

void Toolbar::clicked(ToolButton which)
{
    const bool may_be_more = which == ToolButton::print || which == ToolButton::folders;
    if (may_be_more && tag(which) == QLatin1String("MORE"))
        pop_up_more(which);
    else if (which == ToolButton::sort && tag(which) == QLatin1String("CAT"))
        acts_.sort(true);
    else if (which == ToolButton::sort)
        acts_.sort(false);
    else if (which == ToolButton::size)
        acts_.next_size();
    else if (which == ToolButton::preview)
        acts_.preview();
    else if (const QString command = command_of(which); !command.isEmpty())
        commands_.run(command);
}

void Toolbar::drop_down_clicked(const QString& key)
{
    const QString upper = key.toUpper();
    if (upper == QLatin1String("PRNT_OPT"))
        commands_.run(QStringLiteral("mnu_list_prntsetup"));
    else if (upper == QLatin1String("ALPHA"))
        acts_.sort(true);
    else if (upper == QLatin1String("CAT"))
        acts_.sort(false);
    else if (upper == QLatin1String("SML"))
        acts_.set_size(9);
    else if (upper == QLatin1String("MDM"))
        acts_.set_size(10);
    else if (upper == QLatin1String("LRG"))
        acts_.set_size(12);
}

} // namespace tarnwick
