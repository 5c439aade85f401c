#include "window/toolbar.h"

#include "window/frmmain.h"
#include "window/commands.h"
#include "window/layout.h"
#include "window/output_commands.h"
#include "widgets/pictures.h"
#include "widgets/tool_tip.h"
#include "window/view_state.h"

#include <QAction>
#include <QFrame>
#include <QMenu>
#include <QToolButton>
#include <QWidget>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int first_button = 1;
constexpr int last_button = 18;
constexpr int edge_margin = 4;
constexpr int fit_margin = 8;
constexpr int icon_size = 24;
constexpr int least_button_width = 40;
constexpr int separator_width = 9;
constexpr int caption_points = 8;

constexpr int picture_sort_category = 18;
constexpr int picture_sort_alpha = 14;
constexpr int picture_more = 7;
constexpr int picture_close_folders = 4;
constexpr int picture_size_down = 16;
constexpr int picture_size_up = 17;

namespace index_of {
constexpr int clear = 2;
constexpr int print = 10;
constexpr int preview = 11;
constexpr int email = 13;
constexpr int size_direction = 14;
constexpr int find = 15;
constexpr int sort = 16;
constexpr int folders = 17;
constexpr int size = 18;
} // namespace index_of

/// Image, caption and tool tip at rest. Image 0 is a separator.
struct StandingButton {
    int picture;
    const char* caption;
    const char* tool_tip;
};

constexpr StandingButton standing[last_button + 1] = {
    {},
    {1, "New", "Create a new shopping list"},
    {2, "Clear", "Clear selected list"},
    {3, "Lists", "List manager"},
    {0, "", ""},
    {5, "New", "Create new recipe"},
    {6, "Ingrdnt", "Add ingredient"},
    {0, "", ""},
    {8, "Stock", "Add a new stock item"},
    {0, "", ""},
    {10, "Print", "Print selected list"},
    {11, "Prev", "Preview list"},
    {12, "WP", "Open recipe in word processor"},
    {13, "Email", "Send recipe by email"},
    {0, "", ""},
    {15, "Find", "Find a stock item"},
    {picture_sort_category, "Sort", ""},
    {picture_close_folders, "Snap", "Close all stock folders"},
    {picture_size_up, "Size", "Make size larger"},
};

const StandingButton& at_rest(int index)
{
    return standing[static_cast<size_t>(index)];
}

QString text_of(const char* text)
{
    return QString::fromUtf8(text);
}

QString more_caption()
{
    return QStringLiteral("More...");
}

} // namespace

Toolbar::Toolbar(frmmain& main, QWidget* parent)
    : main_(main)
    , bar_(new QWidget(parent))
{
    bar_->setObjectName(QStringLiteral("Toolbar1"));
    QFont font = bar_->font();
    font.setPointSize(caption_points);
    bar_->setFont(font);
    for (int i = first_button; i <= last_button; ++i) {
        if (at_rest(i).picture == 0)
            make_separator(i);
        else
            make_button(i);
        buttons_.at(static_cast<size_t>(i))->setObjectName(QStringLiteral("Toolbar1(%1)").arg(i));
        shown_.at(static_cast<size_t>(i)) = true;
    }
    add_drop_down(index_of::print, "PRNT_OPT", QStringLiteral("Shopping list print options"));
    add_drop_down(index_of::sort, "ALPHA", QStringLiteral("Sort alphabetically"));
    add_drop_down(index_of::sort, "CAT", QStringLiteral("Sort by category"));
    add_drop_down(index_of::size, "SML", QStringLiteral("Small"));
    add_drop_down(index_of::size, "MDM", QStringLiteral("Medium"));
    add_drop_down(index_of::size, "LRG", QStringLiteral("Large"));
    set_tag(index_of::folders, QStringLiteral("DFLT"));
    place_buttons();
}

void Toolbar::make_button(int index)
{
    auto* made = new QToolButton(bar_);
    made->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    made->setIconSize({icon_size, icon_size});
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::NoFocus);
    made->setText(text_of(at_rest(index).caption));
    buttons_.at(static_cast<size_t>(index)) = made;
    set_picture(index, at_rest(index).picture);
    set_tool_tip(index, text_of(at_rest(index).tool_tip));
    connect(made, &QToolButton::clicked, this, [this, index] { clicked(index); });
}

void Toolbar::make_separator(int index)
{
    auto* made = new QFrame(bar_);
    made->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    buttons_.at(static_cast<size_t>(index)) = made;
}

void Toolbar::add_drop_down(int index, const char* key, const QString& caption)
{
    auto& owner = static_cast<QToolButton&>(button(index));
    if (!owner.menu()) {
        owner.setMenu(new QMenu(&owner));
        owner.setPopupMode(QToolButton::MenuButtonPopup);
    }
    QAction* action = owner.menu()->addAction(caption);
    action->setObjectName(text_of(key));
    connect(action, &QAction::triggered, this, [this, action] { drop_down_clicked(action->objectName()); });
}

QWidget& Toolbar::button(int index) const
{
    return *buttons_.at(static_cast<size_t>(index));
}

void Toolbar::set_tool_tip(int index, const QString& text)
{
    button(index).setToolTip(plain_tool_tip(text));
}

void Toolbar::set_enabled(int index, bool enabled)
{
    button(index).setEnabled(enabled);
}

QString Toolbar::tag(int index) const
{
    return button(index).property("Tag").toString();
}

void Toolbar::set_tag(int index, const QString& tag)
{
    button(index).setProperty("Tag", tag);
}

void Toolbar::set_picture(int index, int picture)
{
    auto& owner = static_cast<QToolButton&>(button(index));
    if (owner.property("picture").toInt() == picture)
        return;
    owner.setProperty("picture", picture);
    owner.setIcon(list_icon(ImageList::toolbar, picture));
}

int Toolbar::height() const
{
    int tallest = 0;
    for (int i = first_button; i <= last_button; ++i)
        tallest = std::max(tallest, at_rest(i).picture == 0 ? 0 : button(i).sizeHint().height());
    return tallest + edge_margin;
}

int Toolbar::least_width() const
{
    const QWidget& folders = button(index_of::folders);
    const QFontMetrics metrics = folders.fontMetrics();
    const int wider = metrics.horizontalAdvance(more_caption())
        - metrics.horizontalAdvance(text_of(at_rest(index_of::folders).caption));
    const int more = std::max(folders.sizeHint().width() + std::max(wider, 0), least_button_width);
    return button(index_of::find).x() + more + fit_margin;
}

void Toolbar::show_button(int index, bool shown)
{
    shown_.at(static_cast<size_t>(index)) = shown;
    button(index).setVisible(shown);
}

void Toolbar::place_buttons()
{
    const int row = height() - edge_margin;
    int left = edge_margin;
    for (int i = first_button; i <= last_button; ++i) {
        if (!shown_.at(static_cast<size_t>(i)))
            continue;
        const bool is_separator = at_rest(i).picture == 0;
        const int width
            = is_separator ? separator_width : std::max(button(i).sizeHint().width(), least_button_width);
        if (is_separator)
            button(i).setGeometry(left + separator_width / 2 - 1, edge_margin + 4, 2, row - 8);
        else
            button(i).setGeometry(left, edge_margin / 2, width, row);
        left += width;
    }
}

bool Toolbar::fits(int index) const
{
    return button(index).x() + button(index).width() + fit_margin <= main_.width();
}

void Toolbar::restore_standing_state()
{
    for (int i = first_button; i <= last_button; ++i)
        if (at_rest(i).picture != 0)
            static_cast<QToolButton&>(button(i)).setText(text_of(at_rest(i).caption));
    set_picture(index_of::folders, picture_close_folders);
    set_tag(index_of::folders, QStringLiteral("DFLT"));
    for (const char* name : {"mnu_more_find", "mnu_more_sort", "mnu_more_sort_alpha", "mnu_more_sort_cat"})
        main_.commands().set_visible(text_of(name), false);
    for (int i = index_of::find; i <= index_of::size; ++i)
        show_button(i, true);
}

void Toolbar::toolbar_fit()
{
    restore_standing_state();
    place_buttons();
    const bool sort_fits = fits(index_of::sort);
    if (fits(index_of::size)) {
        set_folder_button();
    } else {
        show_button(index_of::size, false);
        set_tag(index_of::folders, QStringLiteral("MORE"));
        static_cast<QToolButton&>(button(index_of::folders)).setText(more_caption());
        set_picture(index_of::folders, picture_more);
        set_tool_tip(index_of::folders, QStringLiteral("More options"));
        set_enabled(index_of::folders, true);
        place_buttons();
    }
    if (!fits(index_of::folders)) {
        for (const char* name : {"mnu_more_sort", "mnu_more_sort_alpha", "mnu_more_sort_cat"})
            main_.commands().set_visible(text_of(name), true);
        show_button(index_of::sort, false);
    }
    if (!sort_fits) {
        main_.commands().set_visible(QStringLiteral("mnu_more_find"), true);
        show_button(index_of::find, false);
    }
    place_buttons();
    main_.layout_manager().place_rows();
}

void Toolbar::set_folder_button()
{
    const bool stock = main_.shared.stock_view;
    const bool by_name = stock ? main_.shared.stock_alpha : main_.shared.recipe_alpha;
    set_tool_tip(index_of::folders,
                 stock ? QStringLiteral("Close all stock folders") : QStringLiteral("Close all recipe folders"));
    set_enabled(index_of::folders, !by_name);
}

void Toolbar::sort_btn_refresh()
{
    const bool stock = main_.shared.stock_view;
    const bool by_name = stock ? main_.shared.stock_alpha : main_.shared.recipe_alpha;
    set_tag(index_of::sort, by_name ? QStringLiteral("ALPHA") : QStringLiteral("CAT"));
    set_picture(index_of::sort, by_name ? picture_sort_alpha : picture_sort_category);
    const QString what = stock ? QStringLiteral("Sort stock ") : QStringLiteral("Sort recipes ");
    set_tool_tip(index_of::sort,
                 what + (by_name ? QStringLiteral("by category") : QStringLiteral("alphatbetically")));
    main_.commands().set_checked(QStringLiteral("mnu_more_sort_alpha"), by_name);
    main_.commands().set_checked(QStringLiteral("mnu_more_sort_cat"), !by_name);
    if (tag(index_of::folders) != QLatin1String("MORE"))
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
    set_tag(index_of::size_direction, tag);
    set_picture(index_of::size, image);
    set_tool_tip(index_of::size, tool_tip);
}

void Toolbar::pop_up_more(int index)
{
    const QWidget& below = button(index);
    main_.commands().menu(QStringLiteral("mnu_more")).popup(below.mapToGlobal(QPoint(0, below.height())));
}

QString Toolbar::command_of(int index) const
{
    const bool list = main_.shared.list_pane_shown;
    switch (index) {
    case 1:
        return text_of("mnu_list_new");
    case index_of::clear:
        return text_of("mnu_list_clear");
    case 3:
        return text_of("mnu_tools_listlist");
    case 5:
        return text_of("mnu_recipe_new");
    case 6:
        return text_of("mnu_recipe_add_ingred");
    case 8:
        return text_of("mnu_edit_add_stck");
    case index_of::print:
        return text_of(list ? "mnu_list_Print" : "mnu_recipe_prnt");
    case 12:
        return text_of(list ? "mnu_tools_wp_list" : "mnu_tools_wp_rcp");
    case index_of::email:
        return text_of(tag(index) == QLatin1String("list") ? "mnu_tools_email_list" : "mnu_tools_email_rcp");
    case index_of::find:
        return text_of("mnu_tools_find_item");
    case index_of::folders:
        return text_of("mnu_view_cntrct_all");
    default:
        return {};
    }
}

void Toolbar::clicked(int index)
{
    const bool may_be_more = index == index_of::print || index == index_of::folders;
    if (may_be_more && tag(index) == QLatin1String("MORE"))
        pop_up_more(index);
    else if (index == index_of::sort && tag(index) == QLatin1String("CAT"))
        main_.view_state().sort_by_alpha();
    else if (index == index_of::sort)
        main_.view_state().sort_by_cat();
    else if (index == index_of::size)
        main_.view_state().size_cycle();
    else if (index == index_of::preview)
        preview_pane(main_);
    else if (const QString command = command_of(index); !command.isEmpty())
        main_.commands().run(command);
}

void Toolbar::drop_down_clicked(const QString& key)
{
    const QString upper = key.toUpper();
    if (upper == QLatin1String("PRNT_OPT"))
        main_.commands().run(QStringLiteral("mnu_list_prntsetup"));
    else if (upper == QLatin1String("ALPHA"))
        main_.view_state().sort_by_alpha();
    else if (upper == QLatin1String("CAT"))
        main_.view_state().sort_by_cat();
    else if (upper == QLatin1String("SML"))
        main_.view_state().set_type_size(9);
    else if (upper == QLatin1String("MDM"))
        main_.view_state().set_type_size(10);
    else if (upper == QLatin1String("LRG"))
        main_.view_state().set_type_size(12);
}

} // namespace tarnwick
