#include "output/pic_frm.h"

#include "data/settings.h"
#include "widgets/dialog_font.h"
#include "output/sample_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int preview_button = 1;
constexpr int close_button = 2;

template <typename Control, size_t count>
void make_array(std::array<Control*, count>& controls, const char* name,
                const std::array<const char*, count>& captions, QWidget* parent)
{
    for (size_t i = 0; i < count; ++i) {
        controls[i] = new Control(QString::fromUtf8(captions[i]), parent);
        controls[i]->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i));
    }
}

/// The keyboard comes to the chosen one of a group, or where none is chosen to the first. Later the control itself
/// sees to that.
template <size_t count> void tab_to_chosen(const std::array<QRadioButton*, count>& group)
{
    const auto chosen = std::find_if(group.begin(), group.end(), [](const auto* one) { return one->isChecked(); });
    const QRadioButton* stop = chosen == group.end() ? group.front() : *chosen;
    for (QRadioButton* one : group)
        one->setFocusPolicy(one == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace

pic_frm::pic_frm(ReportOptions& options, Settings& settings, int type_size, QWidget* owner)
    : QDialog(owner)
    , options_(options)
    , settings_(settings)
{
    setObjectName(QStringLiteral("pic_frm"));
    setWindowTitle(QStringLiteral("Shopping list print setup options"));
    setModal(true);
    set_dialog_font(*this, type_size);
    make_controls();
    place_controls();
    show_options();
    show_sample();
    connect_controls();
}

void pic_frm::make_controls()
{
    Picture1_ = new QLabel(this);
    Picture1_->setObjectName(QStringLiteral("Picture1"));
    Picture1_->setAccessibleName(QStringLiteral("Sample of the page"));
    frames_ = {new QGroupBox(QStringLiteral("Columns"), this), new QGroupBox(QStringLiteral("Order"), this)};
    make_array(OptionCol_, "OptionCol", {"One column", "Two columns"}, frames_[0]);
    make_array(Option2_, "Option2", {"Alphabetic by item", "Group by category", "Sort by aisle"}, frames_[1]);
    ComboSize_ = new QComboBox(this);
    ComboSize_->setObjectName(QStringLiteral("ComboSize"));
    ComboSize_->addItems({QStringLiteral("Small"), QStringLiteral("Medium"), QStringLiteral("Large")});
    Check1_ = new QCheckBox(QStringLiteral("'Buy-it' (active) items only"), this);
    Check1_->setObjectName(QStringLiteral("Check1"));
    make_array(Command1_, "Command1", {"PRINT", "PREVIEW", "CLOSE"}, this);
    for (QPushButton* button : Command1_)
        button->setAutoDefault(false);
}

QRadioButton& pic_frm::order(ReportSort sort)
{
    return *Option2_[static_cast<size_t>(sort)];
}

/// Numbers that a damaged setting held choose nothing.
void pic_frm::show_options()
{
    OptionCol_[options_.col_ct == 1 ? 0 : 1]->setChecked(true);
    if (options_.sort)
        order(*options_.sort).setChecked(true);
    ComboSize_->setCurrentIndex(options_.size < ComboSize_->count() ? options_.size : -1);
    Check1_->setChecked(options_.active == 1);
    tab_to_chosen(OptionCol_);
    tab_to_chosen(Option2_);
}

void pic_frm::connect_controls()
{
    for (int i = 0; i < static_cast<int>(OptionCol_.size()); ++i)
        connect(OptionCol_[static_cast<size_t>(i)], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                take_col_ct(i);
        });
    for (int i = 0; i < static_cast<int>(Option2_.size()); ++i)
        connect(Option2_[static_cast<size_t>(i)], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                take_sort(i);
        });
    connect(ComboSize_, &QComboBox::currentIndexChanged, this, &pic_frm::take_size);
    connect(Check1_, &QCheckBox::toggled, this, &pic_frm::take_active);
    for (int i = 0; i < static_cast<int>(Command1_.size()); ++i)
        connect(Command1_[static_cast<size_t>(i)], &QPushButton::clicked, this, [this, i] { command(i); });
}

void pic_frm::place_controls()
{
    constexpr int gap = 18;
    auto* halves = new QHBoxLayout;
    halves->setSpacing(gap);
    halves->addWidget(Picture1_, 0, Qt::AlignTop);
    halves->addLayout(place_choices(), 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(18, 16, 18, 16);
    rows->setSpacing(gap);
    rows->addLayout(halves);
    rows->addLayout(place_buttons());
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout* pic_frm::place_choices()
{
    constexpr int gap = 10;
    auto* columns = new QVBoxLayout(frames_[0]);
    for (QRadioButton* option : OptionCol_)
        columns->addWidget(option);
    auto* order = new QVBoxLayout(frames_[1]);
    for (QRadioButton* option : Option2_)
        order->addWidget(option);
    auto* label = new QLabel(QStringLiteral("Type size"), this);
    label->setBuddy(ComboSize_);
    auto* size = new QHBoxLayout;
    size->setSpacing(gap);
    size->addWidget(label);
    size->addWidget(ComboSize_, 1);

    auto* choices = new QVBoxLayout;
    choices->setSpacing(gap);
    for (QGroupBox* frame : frames_)
        choices->addWidget(frame);
    choices->addLayout(size);
    choices->addWidget(Check1_);
    choices->addStretch(1);
    return choices;
}

QLayout* pic_frm::place_buttons()
{
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    constexpr int room = 36; ///< around the widest caption
    const int width = fontMetrics().horizontalAdvance(Command1_[preview_button]->text()) + room;
    for (QPushButton* button : Command1_) {
        button->setMinimumWidth(width);
        buttons->addWidget(button);
    }
    return buttons;
}

void pic_frm::take_sort(int sort)
{
    take_all();
    store("sort", sort);
    show_sample();
}

void pic_frm::take_col_ct(int index)
{
    take_all();
    store("col_ct", index + 1);
    show_sample();
}

void pic_frm::take_size(int index)
{
    if (index < 0)
        return;
    take_all();
    store("size", index);
}

void pic_frm::take_active(bool active)
{
    take_all();
    store("active", active ? 1 : 0);
}

/// What the controls show, as the buttons take it before they act.
void pic_frm::take_all()
{
    options_ = chosen();
}

/// The options as the controls show them; one that they do not show stays.
ReportOptions pic_frm::chosen() const
{
    ReportOptions shown = options_;
    for (size_t i = 0; i < Option2_.size(); ++i) {
        if (Option2_[i]->isChecked())
            shown.sort = static_cast<ReportSort>(i);
    }
    shown.col_ct = OptionCol_[0]->isChecked() ? 1 : 2;
    if (const int size = ComboSize_->currentIndex(); size >= 0)
        shown.size = static_cast<Key>(size);
    shown.active = Check1_->isChecked() ? 1 : 0;
    return shown;
}

void pic_frm::command(int index)
{
    take_all();
    if (index == close_button)
        accept();
    else
        emit print_wanted(index == preview_button);
}

void pic_frm::show_sample()
{
    ReportOptions chosen;
    chosen.sort = order(ReportSort::by_category).isChecked() ? ReportSort::by_category : ReportSort::by_item;
    chosen.col_ct = OptionCol_[0]->isChecked() ? 1 : 2;
    const int number = sample_number(chosen);
    Picture1_->setProperty("picture", number);
    Picture1_->setPixmap(sample_picture(number, devicePixelRatioF()));
}

/// What is written here is not what the next start reads: its options are those of the main store. This is kept.
void pic_frm::store(const char* key, int value)
{
    settings_.write(QLatin1String(settings_app::dialogs), QStringLiteral("reports"), QLatin1String(key),
                    QString::number(value));
}

} // namespace tarnwick
