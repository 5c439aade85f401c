#include "dialogs/l_item_edit.h"

#include "widgets/dialog_font.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "widgets/one_line_box.h"
#include "dialogs/new_item_rcp.h"
#include "widgets/pictures.h"
#include "widgets/window_title.h"
#include "dialogs/item_edit_grid.h"
#include "household/household.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBrowser>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr const char* tag = "Tag";

namespace lite_picture {
constexpr int unlisted = 134;
constexpr int inactive = 136;
constexpr int active = 137;
constexpr int active_plus = 144;
} // namespace lite_picture

QString no_lists_text()
{
    return QStringLiteral("There are no shopping lists to add this item to - \n\n"
                          "To start a new shopping list, hit CANCEL then:\n"
                          "click the 'New' list button on the toolbar\n"
                          "(The first button on the left)\n"
                          "or click 'Shopping list/New list' on the menu bar");
}

} // namespace

l_item_edit::l_item_edit(Program& program, EditRequest request)
    : QDialog(&program.window)
    , program_(program)
    , store_(program.connection)
    , request_(std::move(request))
{
    setObjectName(QStringLiteral("l_item_edit"));
    setModal(true);
    set_dialog_font(*this, program_.shared.type_size);
    if (makes_item())
        request_.item = -1;
    make_controls();
    lay_out();
    const Key category = load_head();
    load_lists();
    fill_categories(category);
    lite_updt(true);
    caption_updt(txt_item_->text());
    opened_ = edit();
}

l_item_edit::~l_item_edit() = default;

bool l_item_edit::makes_item() const
{
    return request_.mode == EditMode::new_item || request_.mode == EditMode::non_stock_to_stock;
}

QString l_item_edit::entered_name() const
{
    return trim(txt_item_->text());
}

QString l_item_edit::old_name() const
{
    return trim(one_line(txt_item_->property(tag).toString()));
}

void l_item_edit::make_controls()
{
    const auto name = [](auto* widget, const char* object_name) {
        widget->setObjectName(QLatin1String(object_name));
        return widget;
    };
    txt_item_ = name(new QLineEdit(this), "txt_item");
    keep_one_line(*txt_item_);
    combo_ = name(new QComboBox(this), "Combo1");
    new_category_ = name(new QPushButton(QStringLiteral("&New..."), this), "CmdNewCat");
    new_category_->setToolTip(QStringLiteral("New stock category"));
    lite_ = name(new QLabel(this), "lite");
    lbl_active_ = name(new QLabel(this), "lblActive");
    grid_ = name(new ItemEditGrid(program_, this), "grid_area");
    lbl_note_ = name(new QLabel(QStringLiteral("*Appears on a same list more than once"), this), "lblNote");
    ok_ = name(new QPushButton(QStringLiteral("OK"), this), "Command1(0)");
    cancel_ = name(new QPushButton(QStringLiteral("CANCEL"), this), "Command1(1)");
    ok_->setDefault(true);

    txt_item_->installEventFilter(this);
    connect(grid_, &ItemEditGrid::changed, this, [this] { lite_updt(false); });
    connect(new_category_, &QPushButton::clicked, this, &l_item_edit::new_category);
    connect(ok_, &QPushButton::clicked, this, &l_item_edit::ok);
    connect(cancel_, &QPushButton::clicked, this, &l_item_edit::reject);
}

void l_item_edit::lay_out()
{
    auto* item_label = new QLabel(QStringLiteral("&Item"), this);
    item_label->setBuddy(txt_item_);
    auto* category_label = new QLabel(QStringLiteral("&Category"), this);
    category_label->setBuddy(combo_);

    auto* head = new QGridLayout;
    head->addWidget(item_label, 0, 0);
    head->addWidget(txt_item_, 0, 1, 1, 2);
    head->addWidget(category_label, 1, 0);
    head->addWidget(combo_, 1, 1);
    head->addWidget(new_category_, 1, 2);
    head->setColumnStretch(1, 1);

    auto* state = new QHBoxLayout;
    state->addWidget(lite_);
    state->addWidget(lbl_active_);
    state->addStretch();

    auto* foot = new QHBoxLayout;
    foot->addWidget(lbl_note_);
    foot->addStretch();
    foot->addWidget(ok_);
    foot->addWidget(cancel_);

    auto* all = new QVBoxLayout(this);
    all->addLayout(head);
    all->addLayout(state);
    all->addWidget(grid_, 1);
    all->addLayout(foot);

    setTabOrder(txt_item_, combo_);
    setTabOrder(combo_, new_category_);
    setTabOrder(new_category_, grid_->focusProxy());
    setTabOrder(grid_->focusProxy(), ok_);
    setTabOrder(ok_, cancel_);
    const int em = fontMetrics().height();
    resize(36 * em, 26 * em);
    setMinimumSize(26 * em, 18 * em);
}

/// Fills in the name, and returns the category to select.
Key l_item_edit::load_head()
{
    std::optional<EditedItem> item;
    if (request_.mode == EditMode::recipe_item)
        item = store_.item_of_line(request_.line);
    if (item)
        request_.item = item->key;
    else if (!makes_item())
        item = store_.item(request_.item);

    QString name = item ? item->name : request_.mode == EditMode::place_item ? QStringLiteral(" ") : QString();
    if (request_.mode == EditMode::non_stock_to_stock)
        name = request_.name;
    if (request_.mode == EditMode::add_to_recipe
        || (request_.mode == EditMode::non_stock_to_stock && name.isEmpty()))
        name = store_.line_name(request_.line).value_or(name);
    txt_item_->setText(name);
    txt_item_->setProperty(tag, name);
    txt_item_->setCursorPosition(0);
    if (request_.mode == EditMode::new_item)
        return request_.category;
    return item ? item->category : Key(0);
}

void l_item_edit::load_lists()
{
    const std::vector<ListOfItem> lists = store_.lists_of(request_.item);
    lbl_note_->hide();
    if (lists.empty()) {
        grid_->hide();
        auto* frame = new QFrame(this);
        frame->setObjectName(QStringLiteral("frmCreateList"));
        frame->setFrameShape(QFrame::StyledPanel);
        auto* no_lists = new QTextBrowser(frame);
        no_lists->setObjectName(QStringLiteral("txtCreateList"));
        no_lists->setPlainText(no_lists_text());
        no_lists->setFrameShape(QFrame::NoFrame);
        no_lists->setFocusPolicy(Qt::NoFocus);
        auto* inside = new QVBoxLayout(frame);
        inside->addWidget(no_lists);
        static_cast<QVBoxLayout*>(layout())->insertWidget(layout()->indexOf(grid_), frame, 1);
        return;
    }
    grid_->load(lists);
    lbl_note_->setVisible(grid_->has_repeats());
    grid_->select(request_.mode == EditMode::edit_item ? request_.row : Key(-1));
    if (request_.mode == EditMode::place_item)
        grid_->pre_mark(request_.list);
}

void l_item_edit::fill_categories(Key selected)
{
    combo_->clear();
    combo_->addItem(QStringLiteral("[OTHER]"), 0);
    for (const CategoryEntry& category : store_.categories())
        combo_->addItem(category.name, int(category.key));
    combo_->setCurrentIndex(std::max(0, combo_->findData(int(selected))));
}

/// The item's light, from the rows as they stand in the dialog.
void l_item_edit::lite_updt(bool at_load)
{
    bool listed = false;
    int active = 0;
    for (const EditRow& row : grid_->list_rows_edit()) {
        listed = listed || row.is_listed();
        active += row.state == RowState::active ? 1 : 0;
    }
    int number = lite_picture::unlisted;
    QString text = at_load && makes_item() ? QStringLiteral("New item") : QStringLiteral("Unlisted item");
    if (active > 1) {
        number = lite_picture::active_plus;
        text = QStringLiteral("Active on multiple lists");
    } else if (active == 1) {
        number = lite_picture::active;
        text = QStringLiteral("Active on one list");
    } else if (listed) {
        number = lite_picture::inactive;
        text = at_load ? QStringLiteral("Inactive Item") : QStringLiteral("Inactive item");
    }
    lite_->setPixmap(picture(number, devicePixelRatioF()));
    lite_->setProperty("picture", number);
    lite_->setToolTip(text);
    lbl_active_->setText(text);
    ok_->setDefault(true);
}

void l_item_edit::caption_updt(const QString& name)
{
    switch (request_.mode) {
    case EditMode::new_item:
        setWindowTitle(QStringLiteral("Adding New Item to Stock"));
        break;
    case EditMode::place_item:
        set_window_title(*this, QStringLiteral("Adding ") + name);
        break;
    case EditMode::non_stock_to_stock:
        set_window_title(*this, QStringLiteral("Adding ") + name + QStringLiteral(" to stock"));
        break;
    default:
        set_window_title(*this, QStringLiteral("Editing ") + name);
        break;
    }
}

bool l_item_edit::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txt_item_ && event->type() == QEvent::FocusOut && !leaving_ && isVisible()) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool other_window = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason
            || reason == Qt::MenuBarFocusReason;
        const QWidget* target = QApplication::focusWidget();
        // CANCEL takes any name, and OK checks it by itself.
        // The message takes the release of a press that led here.
        if (!other_window && target != cancel_ && target != ok_ && !name_left())
            QTimer::singleShot(0, new_category_, [this] { new_category_->setDown(false); });
    }
    return QDialog::eventFilter(watched, event);
}

/// What is checked when the name is left: nothing while it is the old one.
bool l_item_edit::name_left()
{
    if (old_name() == entered_name())
        return true;
    if (!makes_item() && entered_name().isEmpty()) {
        txt_item_->setText(txt_item_->property(tag).toString());
        return true;
    }
    return name_accepted();
}

/// False, after the message, when the name cannot be an item's.
bool l_item_edit::name_accepted()
{
    const QString name = entered_name();
    if (name.contains(u'\'')) {
        msg_box(this, QStringLiteral("Sorry - you can't put an apostrophe\nin the item name"), box::information,
                QStringLiteral("Valora info"));
        // The change of focus that led here is still under way.
        QTimer::singleShot(0, txt_item_, [this] { txt_item_->setFocus(Qt::OtherFocusReason); });
        return false;
    }
    if (name.isEmpty() || !store_.name_in_use(name, makes_item() ? Key(-1) : request_.item))
        return true;
    QString text = QStringLiteral("Stock item ") + name
        + QStringLiteral(" already exists -\nYou can't create two stock\nitems with the same name");
    if (request_.mode == EditMode::non_stock_to_stock)
        text += QStringLiteral("\nTIP: To change the name of an\n       ingredient to '") + name
            + QStringLiteral("' hit CANCEL\n       then edit the ingredient directly.");
    msg_box(this, text, box::information, QStringLiteral("Duplicate stock item name"));
    txt_item_->setText(makes_item() ? QString() : txt_item_->property(tag).toString());
    return false;
}

/// The checks and the question before a new item is made.
bool l_item_edit::new_item_accepted()
{
    const QString name = entered_name();
    if (name.isEmpty()) {
        msg_box(this,
                QStringLiteral("Please provide a name for your new stock item\n"
                               "- fill in the 'item' box or choose 'CANCEL'"),
                box::information, QStringLiteral("Please provide item"));
        txt_item_->setFocus(Qt::OtherFocusReason);
        return false;
    }
    if (!name_accepted())
        return false;
    if (combo_->currentData().toInt() != 0)
        return true;
    const QString question
        = QStringLiteral("Are you sure you want to place\n") + name + QStringLiteral(" in the 'OTHER' category?");
    if (msg_box(this, question, box::yes_no + box::question, QStringLiteral("Stock category")) == Answer::yes)
        return true;
    combo_->setFocus(Qt::OtherFocusReason);
    combo_->showPopup();
    return false;
}

void l_item_edit::new_category()
{
    // The access key leaves the focus in the name.
    if (txt_item_->hasFocus() && !name_left())
        return;
    new_item_rcp dialog(program_, this, {NamingKind::category});
    dialog.exec();
    if (dialog.made() > 0)
        fill_categories(dialog.made());
}

void l_item_edit::ok()
{
    grid_->lv_edit_off();
    if (makes_item() ? !new_item_accepted() : !name_left())
        return;
    if (!makes_item() && !store_.item(request_.item)) {
        msg_box(this, QStringLiteral("Stock item not found"), box::ok, QStringLiteral("Warning"));
        return;
    }
    if (request_.mode == EditMode::place_item && !grid_->places())
        msg_box(this, entered_name() + QStringLiteral(" was not added to any list"), box::information,
                QStringLiteral("Add to list"));
    save();
    leaving_ = true;
    accept();
}

/// An error in the placing of a row ends as any placing does; the dialog closes.
void l_item_edit::save()
{
    const ItemEdit edited = edit();
    try {
        request_.item = program_.household.save_item(edited);
    } catch (const placing_error& error) {
        program_.end_after_error(error);
    }
}

ItemEdit l_item_edit::edit() const
{
    ItemEdit edit;
    edit.item = request_.item;
    edit.line = request_.mode > EditMode::edit_item ? request_.line : Key(-1);
    edit.name = entered_name();
    edit.renamed = !makes_item() && edit.name != old_name();
    edit.link_namesakes = request_.mode == EditMode::new_item;
    edit.category = to_int16(combo_->currentData().toDouble());
    edit.today = program_.today();
    edit.quiet = request_.mode != EditMode::place_item;
    edit.rows = grid_->row_edits();
    return edit;
}

std::optional<RescuedItem> l_item_edit::unsaved() const
{
    RescuedItem item{old_name(), edit()};
    if (leaving_ || item.edit == opened_)
        return std::nullopt;
    return item;
}

void l_item_edit::reject()
{
    leaving_ = true;
    QDialog::reject();
    // The edit of an ingredient line goes on where it stood.
    auto* line_box = program_.window.findChild<QWidget*>(QStringLiteral("ing_flt_txtDesc"));
    if (line_box && line_box->isVisible())
        line_box->setFocus(Qt::OtherFocusReason);
}

void show_item_editor(Program& program, EditRequest request)
{
    l_item_edit(program, std::move(request)).exec();
}

} // namespace tarnwick
