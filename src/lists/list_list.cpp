#include "lists/list_list.h"

#include "household/household.h"
#include "household/lists_store.h"
#include "widgets/drawn_controls.h"
#include "widgets/fitted_text.h"
#include "widgets/pictures.h"
#include "widgets/tool_tip.h"

#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyleOptionFocusRect>
#include <QWheelEvent>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int twips = 15; ///< to a pixel
constexpr int row_pitch = 380; ///< twips
constexpr int first_row = 80; ///< twips
constexpr int row_height = row_pitch / twips;
constexpr int label_left = 31;
constexpr QPoint picture_place(8, 5);
constexpr QSize picture_area(16, 16);
constexpr QSize design_size(250, 270);
constexpr QSize least_size(150, 130);

constexpr int plain_picture = 1;
constexpr int chosen_picture = 2;
constexpr int new_picture = 3;

constexpr int beside_hint = 40; ///< of the status bar, for its margin and the grip

QString drop_hint()
{
    return QStringLiteral("Drag and drop stock items on any list");
}

int row_top(int index)
{
    return (index * row_pitch + first_row) / twips;
}

QString numbered(const char* name, size_t index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

void paint_ground(QWidget& widget, const QColor& ground, const QColor& text)
{
    QPalette colors = widget.palette();
    colors.setColor(QPalette::Window, ground);
    colors.setColor(QPalette::WindowText, text);
    widget.setPalette(colors);
    widget.setAutoFillBackground(true);
}

bool is_click(const QWidget& widget, const QEvent& event)
{
    if (event.type() != QEvent::MouseButtonRelease)
        return false;
    const auto& release = static_cast<const QMouseEvent&>(event);
    return release.button() == Qt::LeftButton && widget.rect().contains(release.position().toPoint());
}

/// The frame of a row, which shows where the keyboard is.
class RowFrame : public QFrame {
public:
    using QFrame::QFrame;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QFrame::paintEvent(event);
        if (!hasFocus())
            return;
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(2, 1, -2, -1);
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

/// A name that ends in three dots where there is no room for it.
class NameLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                         fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
};

} // namespace

list_list::list_list(Connection& connection, Drag& drag, QWidget* owner)
    : QDialog(owner)
    , connection_(connection)
    , Frame1_(new QFrame(this))
    , VScroll1_(new QScrollBar(Qt::Vertical, this))
    , frmCreateList_(new QFrame(Frame1_))
    , txtCreateList_(new QLabel(frmCreateList_))
    , StatusBar1_(new QStatusBar(this))
    , ground_(palette().color(QPalette::Base))
    , text_(palette().color(QPalette::Text))
{
    setObjectName(QStringLiteral("list_list"));
    setWindowTitle(QStringLiteral("Shopping lists"));
    setModal(false);
    Frame1_->setObjectName(QStringLiteral("Frame1"));
    VScroll1_->setObjectName(QStringLiteral("VScroll1"));
    StatusBar1_->setObjectName(QStringLiteral("StatusBar1"));
    make_notice();
    add_row();
    drag.add_target(*Frame1_, *this);
    connect(VScroll1_, &QScrollBar::valueChanged, this, &list_list::place_rows);
    setMinimumSize(least_size);
    set_page_color(ground_, text_);
}

void list_list::make_notice()
{
    frmCreateList_->setObjectName(QStringLiteral("frmCreateList"));
    frmCreateList_->hide();
    txtCreateList_->setObjectName(QStringLiteral("txtCreateList"));
    txtCreateList_->setAlignment(Qt::AlignCenter);
    txtCreateList_->setWordWrap(true);
    txtCreateList_->setText(QStringLiteral("No shopping lists:\nClick here to start a new list"));
    txtCreateList_->setCursor(Qt::PointingHandCursor);
    txtCreateList_->installEventFilter(this);
}

void list_list::list_fill()
{
    const std::vector<ShoppingList> lists = shopping_lists(connection_);
    const bool with_all = lists.size() > 1;
    const size_t wanted = std::max<size_t>(lists.size() + (with_all ? 1 : 0), 1);
    list_clear(wanted);
    while (rows_.size() < wanted)
        add_row();
    for (size_t i = 0; i < lists.size(); ++i)
        fill_row(i, lists[i].key, lists[i].name);
    if (lists.empty())
        fill_row(0, create_list, QStringLiteral("Create a shopping list"));
    else if (with_all)
        fill_row(lists.size(), all_lists, QStringLiteral("All"));
    frmCreateList_->setVisible(lists.empty());
    place_rows();
}

/// Rows are used again, so that the one whose click is being handled stays: the first one at least.
void list_list::list_clear(size_t rows_left)
{
    highlight(nullptr);
    while (rows_.size() > rows_left) {
        delete rows_.back().frame;
        rows_.pop_back();
    }
}

void list_list::add_row()
{
    auto* frame = new RowFrame(Frame1_);
    set_drawn_control(*frame, DrawnControl::choice);
    frame->setObjectName(numbered("frm_list", rows_.size()));
    frame->setFocusPolicy(Qt::StrongFocus);
    auto* image = new QLabel(frame);
    image->setObjectName(numbered("pct_list", rows_.size()));
    image->setAccessibleName(QStringLiteral("Shopping list"));
    image->setGeometry({picture_place, picture_area});
    auto* label = new NameLabel(frame);
    label->setObjectName(numbered("lbl_list", rows_.size()));
    label->setTextFormat(Qt::PlainText);
    for (QWidget* part : {static_cast<QWidget*>(frame), static_cast<QWidget*>(image), static_cast<QWidget*>(label)})
        part->installEventFilter(this);
    rows_.push_back({frame, image, label});
    paint_row(rows_.back());
    frame->show();
}

void list_list::fill_row(size_t index, Key key, const QString& name)
{
    ListRow& row = rows_.at(index);
    row.key = key;
    row.label->setProperty("Tag", QString::number(key));
    row.label->setText(name);
    row.frame->setToolTip(plain_tool_tip(name));
    row.frame->setAccessibleName(name);
    set_drawn_control(*row.frame, key == create_list ? DrawnControl::button : DrawnControl::choice);
    show_picture(row);
}

int list_list::rows_in_view() const
{
    return std::max(1, (Frame1_->height() * twips - first_row) / row_pitch);
}

void list_list::place_rows()
{
    const int status_height = StatusBar1_->sizeHint().height();
    const QRect area(0, 0, width(), height() - status_height);
    StatusBar1_->setGeometry(0, area.height(), width(), status_height);
    show_hint();
    Frame1_->setGeometry(area);
    const int beyond = std::max(0, static_cast<int>(rows_.size()) - rows_in_view());
    VScroll1_->setPageStep(rows_in_view());
    VScroll1_->setRange(0, beyond);
    VScroll1_->setVisible(beyond > 0);
    const int bar_width = beyond > 0 ? VScroll1_->sizeHint().width() : 0;
    VScroll1_->setGeometry(area.width() - bar_width, 0, bar_width, area.height());

    constexpr int label_right = 4;
    constexpr int focus_line = 2; // above and below a name, which has a ground of its own
    int index = -VScroll1_->value();
    for (const ListRow& row : rows_) {
        row.frame->setGeometry(0, row_top(index++), area.width() - bar_width, row_height);
        row.label->setGeometry(label_left, focus_line, row.frame->width() - label_left - label_right,
                               row_height - 2 * focus_line);
    }
    const int notice_top = row_top(1);
    const int notice_height = 4 * fontMetrics().lineSpacing();
    frmCreateList_->setGeometry(0, notice_top, area.width(), std::min(notice_height, area.height() - notice_top));
    txtCreateList_->setGeometry(frmCreateList_->rect());
}

void list_list::show_hint()
{
    const FittedText shown = fit_text(drop_hint(), font(), StatusBar1_->width() - beside_hint);
    StatusBar1_->setFont(shown.font);
    StatusBar1_->showMessage(shown.text);
    StatusBar1_->setToolTip(shown.cut ? drop_hint() : QString());
}

void list_list::set_list(Key key)
{
    chosen_ = key;
    for (const ListRow& row : rows_)
        show_picture(row);
}

void list_list::show_picture(const ListRow& row) const
{
    int number = row.key == chosen_ ? chosen_picture : plain_picture;
    if (row.key == create_list)
        number = new_picture;
    row.picture->setProperty("picture", number);
    row.picture->setPixmap(list_image(ImageList::list_manager, number, devicePixelRatioF()));
    QFont font; // nothing but the weight is set, so that the size stays the window's
    font.setBold(number == chosen_picture);
    row.label->setFont(font);
    set_drawn_check(*row.frame, row.key == chosen_);
}

void list_list::lists_changed(const ListsChange& change)
{
    if (change.kind != ListsChange::Kind::renamed) {
        list_fill();
        return;
    }
    for (size_t i = 0; i < rows_.size(); ++i) {
        if (rows_[i].key == change.list)
            fill_row(i, change.list, trim(change.name));
    }
}

void list_list::set_page_color(const QColor& ground, const QColor& text)
{
    ground_ = ground;
    text_ = text;
    for (QWidget* part : {static_cast<QWidget*>(Frame1_), static_cast<QWidget*>(frmCreateList_),
                          static_cast<QWidget*>(txtCreateList_)})
        paint_ground(*part, ground, text);
    for (const ListRow& row : rows_)
        paint_row(row);
}

void list_list::paint_row(const ListRow& row) const
{
    const bool marked = row.frame == highlighted_;
    const QColor ground = marked ? palette().color(QPalette::Highlight) : ground_;
    const QColor text = marked ? palette().color(QPalette::HighlightedText) : text_;
    for (QWidget* part :
         {static_cast<QWidget*>(row.frame), static_cast<QWidget*>(row.picture), static_cast<QWidget*>(row.label)})
        paint_ground(*part, ground, text);
}

void list_list::set_type_size(int points)
{
    QFont dialog_font = font();
    dialog_font.setPointSize(points == 10 || points == 12 ? points : 9);
    setFont(dialog_font);
    resize(size().expandedTo({sizeHint().width(), 0}));
    place_rows();
}

QSize list_list::sizeHint() const
{
    return design_size.expandedTo({fontMetrics().horizontalAdvance(drop_hint()) + beside_hint, 0});
}

void list_list::choose(Key key)
{
    if (key == create_list)
        emit new_list_wanted();
    else
        emit list_wanted(key);
}

int list_list::row_of(const QObject* part) const
{
    const auto found = std::find_if(rows_.begin(), rows_.end(), [part](const ListRow& row) {
        return part == row.frame || part == row.picture || part == row.label;
    });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

bool list_list::eventFilter(QObject* watched, QEvent* event)
{
    const bool clicked = watched->isWidgetType() && is_click(*static_cast<QWidget*>(watched), *event);
    if (watched == txtCreateList_) {
        if (clicked)
            emit new_list_wanted();
        return clicked;
    }
    const int index = row_of(watched);
    if (index < 0)
        return QDialog::eventFilter(watched, event);
    bool chosen = clicked;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        chosen = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    }
    if (chosen)
        choose(rows_[static_cast<size_t>(index)].key);
    return chosen;
}

void list_list::keyPressEvent(QKeyEvent* event)
{
    const int at = row_of(focusWidget());
    const int last = static_cast<int>(rows_.size()) - 1;
    switch (event->key()) {
    case Qt::Key_Up:
        focus_row(at - 1);
        break;
    case Qt::Key_Down:
        focus_row(at + 1);
        break;
    case Qt::Key_Home:
        focus_row(0);
        break;
    case Qt::Key_End:
        focus_row(last);
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

/// Gives the keyboard to a row, the first or last one when there is none of this index, and shows it.
void list_list::focus_row(int index)
{
    const int row = std::clamp(index, 0, static_cast<int>(rows_.size()) - 1);
    rows_[static_cast<size_t>(row)].frame->setFocus(Qt::TabFocusReason);
    if (row < VScroll1_->value())
        VScroll1_->setValue(row);
    else if (row >= VScroll1_->value() + rows_in_view())
        VScroll1_->setValue(row - rows_in_view() + 1);
}

const list_list::ListRow* list_list::target_at(const DragPayload& payload, QPoint position) const
{
    if (payload.kind != DragKind::stock_item)
        return nullptr;
    const auto found = std::find_if(rows_.begin(), rows_.end(), [position](const ListRow& row) {
        return row.key != create_list && row.frame->geometry().contains(position);
    });
    return found == rows_.end() ? nullptr : &*found;
}

void list_list::highlight(const ListRow* row)
{
    highlighted_ = row ? row->frame : nullptr;
    for (const ListRow& each : rows_)
        paint_row(each);
}

DragSign list_list::drag_over(const DragPayload& payload, QPoint position)
{
    const ListRow* row = target_at(payload, position);
    if ((row ? row->frame : nullptr) != highlighted_)
        highlight(row);
    return payload.kind == DragKind::stock_item ? DragSign::plain : DragSign::refused;
}

void list_list::drag_left(const DragPayload&)
{
    highlight(nullptr);
}

void list_list::drop(const DragPayload& payload, QPoint position)
{
    if (const ListRow* row = target_at(payload, position))
        emit item_dropped(payload.key, row->key);
}

void list_list::scroll_towards(int direction)
{
    VScroll1_->setValue(VScroll1_->value() + direction);
}

void list_list::wheelEvent(QWheelEvent* event)
{
    if (!VScroll1_->isHidden())
        QApplication::sendEvent(VScroll1_, event);
}

/// The highlight is the desktop's.
void list_list::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (const ListRow& row : rows_)
        paint_row(row);
}

void list_list::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    place_rows();
}

} // namespace tarnwick
