#include "output/preview_window.h"

#include "widgets/dialog_font.h"
#include "output/page_sheet.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int margin = 8;
constexpr int scroll_unit = 16;

/// So many steps of a bar that the far end of the page comes into view.
int steps(int page, int room)
{
    return std::max(0, (page - room + scroll_unit - 1) / scroll_unit);
}

void set_range(QScrollBar& bar, int page, int room)
{
    bar.setRange(0, steps(page, room));
    bar.setPageStep(std::max(1, room / scroll_unit));
    bar.setVisible(bar.maximum() > 0);
    if (bar.maximum() == 0)
        bar.setValue(0);
}

} // namespace

PreviewWindow::PreviewWindow(QWidget& owner, const QString& name, int points)
    : QDialog(&owner)
    , owner_(&owner)
    , row_(new QWidget(this))
    , button_row_(new QHBoxLayout(row_))
    , frame2_(new QWidget(this))
    , Frame1_(new PageSheet(frame2_))
    , HScroll1_(new QScrollBar(Qt::Horizontal, frame2_))
    , VScroll1_(new QScrollBar(Qt::Vertical, frame2_))
    , fill_box_(new QWidget(frame2_))
{
    setObjectName(name);
    setModal(true);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    set_dialog_font(*this, points);
    button_row_->setContentsMargins(margin, margin, margin, 0);
    button_row_->setSpacing(6);
    frame2_->setObjectName(QStringLiteral("frame2"));
    frame2_->setAutoFillBackground(true);
    frame2_->setBackgroundRole(QPalette::Dark);
    Frame1_->setObjectName(QStringLiteral("Frame1"));
    HScroll1_->setObjectName(QStringLiteral("HScroll1"));
    VScroll1_->setObjectName(QStringLiteral("VScroll1"));
    fill_box_->setObjectName(QStringLiteral("fill_box"));
    fill_box_->setAutoFillBackground(true);
    for (QScrollBar* bar : {HScroll1_, VScroll1_}) {
        bar->setSingleStep(1);
        connect(bar, &QScrollBar::valueChanged, this, &PreviewWindow::scroll);
    }
    const QSize room = owner.screen()->availableSize() * 0.9;
    const int bar_width = VScroll1_->sizeHint().width();
    resize(QSize(page_form::width + bar_width + 2 * margin, 760).boundedTo(room));
    setMinimumSize(360, 240);
}

PreviewWindow::~PreviewWindow()
{
    owner_->activateWindow();
    owner_->raise();
}

QPushButton& PreviewWindow::add_button(const QString& caption, const QString& tool_tip)
{
    auto* button = new QPushButton(caption, row_);
    button->setObjectName(QStringLiteral("Command1(%1)").arg(buttons_.size()));
    button->setToolTip(tool_tip);
    button->setAutoDefault(false);
    buttons_.push_back(button);
    return *button;
}

void PreviewWindow::show_page(const Page& page)
{
    Frame1_->set_page(page);
    HScroll1_->setValue(0);
    VScroll1_->setValue(0);
    place_frame();
}

void PreviewWindow::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    place_frame();
}

void PreviewWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    place_frame();
}

void PreviewWindow::keyPressEvent(QKeyEvent* event)
{
    const int view = VScroll1_->pageStep();
    switch (event->key()) {
    case Qt::Key_Down:
        return VScroll1_->setValue(VScroll1_->value() + 1);
    case Qt::Key_Up:
        return VScroll1_->setValue(VScroll1_->value() - 1);
    case Qt::Key_PageDown:
        return VScroll1_->setValue(VScroll1_->value() + view);
    case Qt::Key_PageUp:
        return VScroll1_->setValue(VScroll1_->value() - view);
    default:
        QDialog::keyPressEvent(event);
    }
}

void PreviewWindow::wheelEvent(QWheelEvent* event)
{
    constexpr int steps_of_a_notch = 3;
    constexpr int notch = 120;
    QScrollBar& bar = event->modifiers().testFlag(Qt::ShiftModifier) ? *HScroll1_ : *VScroll1_;
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    bar.setValue(bar.value() - turned * steps_of_a_notch / notch);
}

void PreviewWindow::place_frame()
{
    const int row_height = row_->sizeHint().height();
    row_->setGeometry(0, 0, width(), row_height);
    frame2_->setGeometry(margin, row_height + margin, std::max(0, width() - 2 * margin),
                         std::max(0, height() - row_height - 2 * margin));
    place_bars();
}

void PreviewWindow::place_bars()
{
    const int thick = VScroll1_->sizeHint().width();
    const QSize page = Frame1_->size();
    QSize room = frame2_->size();
    // One bar takes room from the other direction, which may then need its own.
    const bool across
        = page.width() > room.width() || (page.height() > room.height() && page.width() > room.width() - thick);
    const bool down = page.height() > room.height() - (across ? thick : 0);
    room -= QSize(down ? thick : 0, across ? thick : 0);
    set_range(*HScroll1_, page.width(), room.width());
    set_range(*VScroll1_, page.height(), room.height());
    HScroll1_->setGeometry(0, room.height(), room.width(), thick);
    VScroll1_->setGeometry(room.width(), 0, thick, room.height());
    fill_box_->setGeometry(room.width(), room.height(), thick, thick);
    fill_box_->setVisible(across && down);
    scroll();
}

void PreviewWindow::scroll()
{
    Frame1_->move(-scroll_unit * HScroll1_->value(), -scroll_unit * VScroll1_->value());
}

} // namespace tarnwick
