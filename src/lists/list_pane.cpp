#include "lists/list_pane.h"

#include "data/settings.h"
#include "widgets/program.h"
#include "widgets/page_ground.h"
#include "widgets/update_lock.h"
#include "widgets/column_layout.h"
#include "widgets/fitted_text.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "household/household.h"
#include "household/list_store.h"
#include "household/status.h"
#include "widgets/row_editor.h"
#include "lists/main_row_editor_host.h"
#include "widgets/pictures.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QTabBar>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextOption>

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr int notice_picture_number = 167;

/// The setting of a column group.
QLatin1String group_setting(ColumnGroup group)
{
    return QLatin1String(group == ColumnGroup::coupon ? "cpn" : "aisle");
}

} // namespace

ListPane::ListPane(Program& program, QWidget* parent, Surroundings around)
    : program_(program)
    , around_(std::move(around))
    , grid_(new ListGrid(parent))
    , header_(new HeaderBar(*grid_, parent))
    , frmCreateList_(new QFrame(parent))
    , notice_picture_(new QLabel(frmCreateList_))
    , txtCreateList_(new QTextBrowser(frmCreateList_))
{
    header_->setParent(this);
    grid_->setObjectName(QStringLiteral("Listview1"));
    grid_->setAccessibleName(QStringLiteral("Shopping list"));
    frmCreateList_->setObjectName(QStringLiteral("frmCreateList"));
    frmCreateList_->setFrameShape(QFrame::NoFrame);
    frmCreateList_->setAutoFillBackground(true);
    frmCreateList_->hide();
    notice_picture_->setAlignment(Qt::AlignCenter);
    txtCreateList_->setObjectName(QStringLiteral("txtCreateList"));
    txtCreateList_->setFrameShape(QFrame::NoFrame);
    txtCreateList_->setFocusPolicy(Qt::NoFocus);
    txtCreateList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtCreateList_->setTextInteractionFlags(Qt::NoTextInteraction);
    QTextOption centred;
    centred.setAlignment(Qt::AlignHCenter);
    centred.setWrapMode(QTextOption::WordWrap);
    txtCreateList_->document()->setDefaultTextOption(centred);

    connect(header_, &HeaderBar::group_toggled, this, &ListPane::show_column_group);
    connect(header_, &HeaderBar::separator_moved, this, &ListPane::set_headers);

    row_editor_host_ = std::make_unique<MainRowEditorHost>(
        program_, *this,
        MainRowEditorHost::Buttons{[this](int row) { emit edit_wanted(row); },
                                   [this](int row) { emit removal_wanted(row); }});
    row_editor_ = std::make_unique<RowEditor>(*grid_, *row_editor_host_, parent);
    connect(header_, &HeaderBar::separator_moved, row_editor_.get(), &RowEditor::place_again);
}

ListPane::~ListPane() = default;

void ListPane::lv_load(Key list_key)
{
    program_.connection.reopen();
    const bool bar_was_shown = grid_->scroll_bar_shown();
    if (row_editor_->is_open())
        row_editor_->lv_edit_off();
    program_.shared.current_list = list_key;
    program_.shared.all_lists_view = list_key < 1;
    show_rows(list_store::read_rows(program_.connection, list_key));
    if (grid_->scroll_bar_shown() != bar_was_shown && grid_->rows().rows() > 0)
        grid_->set_current(0, GridColumn::desc);
    program_.household.write_aside(
        [list_key](Connection& connection) { list_store::mark_active(connection, list_key); });
    show_hint(list_key);
    set_col_widths();
    set_headers();
    program_.show_list_pane(true);
    emit list_loaded();
}

/// What an empty list says. A key without a record takes no items.
void ListPane::show_hint(Key list_key)
{
    if (list_key < 1)
        grid_->set_empty_hint(
            QStringLiteral("The lists are empty: click an item's box in the stock tree to put it on one."));
    else if (list_name_of(program_.connection, list_key))
        grid_->set_empty_hint(
            QStringLiteral("This list is empty: click an item's box in the stock tree to put it here."));
    else
        grid_->set_empty_hint({});
}

void ListPane::show_rows(std::vector<GridRow> rows)
{
    const UpdateLock lock(*grid_);
    grid_->set_type_size(program_.shared.type_size);
    grid_->rows().set_rows(std::move(rows));
    if (grid_->rows().rows() == 0)
        return;
    grid_->set_top_row(0);
    grid_->set_current(0, GridColumn::item);
}

bool ListPane::set_row(Key groc_key)
{
    const int row = grid_->rows().find_row(groc_key);
    if (row < 0)
        return false;
    grid_->set_current(row, grid_->current_col());
    return true;
}

void ListPane::set_col_widths()
{
    column_layout::share_text_columns(*grid_, *header_);
}

void ListPane::set_headers()
{
    QRect row = around_.header_row();
    if (row.height() <= 0)
        row = {grid_->x(), grid_->y() - header_->wanted_height(), grid_->width(), header_->wanted_height()};
    header_->set_headers(row.top(), row.height());
    if (auto* tabs
        = grid_->parentWidget()->findChild<QTabBar*>(QStringLiteral("TabStrip1(1)"), Qt::FindDirectChildrenOnly))
        tabs->raise();
}

void ListPane::show_column_group(ColumnGroup group)
{
    program_.settings.write(QLatin1String(settings_app::columns), QStringLiteral("prefs"), group_setting(group),
                            column_group_shown(group) ? QStringLiteral("1") : QStringLiteral("0"));
    emit column_groups_changed();
    {
        const UpdateLock lock(*grid_);
        column_layout::apply_column_group(*grid_, *header_, group);
        set_headers();
        make_room_for_columns();
        column_layout::level_text_columns(*grid_);
        // In the smallest windows the last columns would stand beyond the grid, and their boxes with them.
        if (column_layout::columns_overflow(*grid_))
            set_col_widths();
        set_headers();
    }
    if (row_editor_->is_open())
        row_editor_->place_again();
}

/// Where tree and grid are too narrow for the columns the separator of the panes gives way.
void ListPane::make_room_for_columns()
{
    constexpr int least_grid_width = 400;
    constexpr int separator_room = 14;
    constexpr int text_width = 115;
    const QRect tree = around_.left_pane();
    const int left_for_grid = grid_->parentWidget()->width() - 2 * tree.left() - tree.width() - separator_room;
    if (left_for_grid >= least_grid_width)
        return;
    around_.separator_fix();
    grid_->set_col_width(GridColumn::item, text_width);
    grid_->set_col_width(GridColumn::desc, text_width);
}

bool ListPane::column_group_shown(ColumnGroup group) const
{
    return header_->group_shown(group);
}

void ListPane::restore_column_groups()
{
    for (const ColumnGroup group : column_groups) {
        const QString stored = program_.settings.pref(group_setting(group), QStringLiteral("0"));
        header_->show_box(group).setChecked(val(stored) == 1);
        column_layout::set_group_widths(*grid_, *header_, group);
    }
    emit column_groups_changed();
}

void ListPane::set_CreateList(bool show)
{
    if (show) {
        const QRect grid = grid_->geometry();
        frmCreateList_->setGeometry(grid.translated(0, grid.height() / 4));
        txtCreateList_->setPlainText(QStringLiteral("There are no shopping lists: \n\n"
                                                    "To create a new shopping list, click the 'New' list button \n"
                                                    "on the toolbar (notepad icon marked 'New' on the far left) \n"
                                                    " - or choose 'Shopping list/New list' from the menu bar"));
        QFont font = txtCreateList_->font();
        font.setStretch(QFont::AnyStretch);
        font.setPointSize(program_.shared.type_size > 0 ? program_.shared.type_size : font.pointSize());
        txtCreateList_->setFont(font);
        place_notice();
        grid_->set_empty_hint({});
        frmCreateList_->raise();
    }
    frmCreateList_->setVisible(show);
}

/// The text in the frame's horizontal middle, half the frame high, under its picture.
void ListPane::place_notice()
{
    constexpr int margin = 8;
    constexpr int gap = 8;
    const QSize frame = frmCreateList_->size();
    frmCreateList_->setMask((grid_->geometry() & frmCreateList_->geometry()).translated(-frmCreateList_->pos()));
    // As wide as its longest line, which gets narrower type rather than leaving a word on a line of its own.
    int widest = 0;
    QString longest;
    for (const QString& line : txtCreateList_->toPlainText().split(u'\n')) {
        const int width = txtCreateList_->fontMetrics().horizontalAdvance(line);
        longest = width > widest ? line : longest;
        widest = std::max(widest, width);
    }
    const int frame_room = frame.width() - 2 * margin;
    txtCreateList_->setFont(fit_text(longest, txtCreateList_->font(), frame_room - 2 * margin).font);
    notice_picture_->setPixmap(picture(notice_picture_number, frmCreateList_->devicePixelRatioF()));
    notice_picture_->setGeometry(0, 0, frame.width(), picture_size(notice_picture_number).height());
    const int width = std::min(frame_room, widest + 2 * margin);
    txtCreateList_->setGeometry((frame.width() - width) / 2, notice_picture_->height() + gap, width,
                                frame.height() / 2);
}

bool ListPane::notice_shown() const
{
    return !frmCreateList_->isHidden();
}

void ListPane::set_page_color()
{
    grid_->set_page_color(page_ground(program_.shared), page_picture_index(program_.shared));
    for (QWidget* part : {static_cast<QWidget*>(frmCreateList_), static_cast<QWidget*>(txtCreateList_)})
        part->setPalette(grid_->palette());
}

void ListPane::set_type_size()
{
    grid_->set_type_size(program_.shared.type_size);
    header_->set_type_size(program_.shared.type_size);
    if (notice_shown())
        set_CreateList(true);
}

void ListPane::show_pane(bool shown)
{
    grid_->setVisible(shown);
    header_->set_visible(shown);
    if (!shown)
        set_CreateList(false);
}

void ListPane::leave_for_tree()
{
    if (grid_->current_row() >= 0)
        grid_->set_current(grid_->current_row(), GridColumn::item);
    grid_->clearSelection();
    if (row_editor_->is_open())
        row_editor_->lv_edit_off();
}

int ListPane::add_row(GridRow row, bool make_current)
{
    const bool bar_was_shown = grid_->scroll_bar_shown();
    const int index = grid_->rows().insert_sorted(std::move(row));
    if (make_current || grid_->current_row() < 0)
        grid_->set_current(index, GridColumn::item);
    follow_scroll_state(bar_was_shown);
    return index;
}

void ListPane::remove_row(Key groc_key)
{
    if (!set_row(groc_key))
        return;
    const bool bar_was_shown = grid_->scroll_bar_shown();
    const int index = grid_->current_row();
    const GridColumn column = grid_->current_col();
    grid_->rows().remove_row(index);
    if (grid_->rows().rows() == 0)
        row_editor_->lv_edit_off();
    else
        grid_->set_current(std::min(index, grid_->rows().rows() - 1), column);
    follow_scroll_state(bar_was_shown);
}

void ListPane::follow_scroll_state(bool was_shown)
{
    if (grid_->scroll_bar_shown() == was_shown)
        return;
    set_col_widths();
    set_headers();
    if (row_editor_->is_open())
        row_editor_->place_again();
}

} // namespace tarnwick
