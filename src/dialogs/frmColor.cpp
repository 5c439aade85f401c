#include "dialogs/frmColor.h"

#include "widgets/busy_pointer.h"
#include "widgets/dialog_font.h"
#include "widgets/drawn_controls.h"
#include "widgets/shared_values.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr QSize frame_size(84, 60);
constexpr int focus_line = 4; ///< thickness around the color that has the keyboard
constexpr int inner_gap = 5; ///< of Shape1 round the chosen frame
constexpr int outer_gap = 7; ///< of Shape2

QString color_name(int index)
{
    static const std::array names
        = {QStringLiteral("White"), QStringLiteral("Pink"), QStringLiteral("Green"), QStringLiteral("Blue")};
    return names.at(static_cast<size_t>(index));
}

void paint_ground(QWidget& widget, const QColor& color)
{
    QPalette colors = widget.palette();
    colors.setColor(QPalette::Window, color);
    widget.setPalette(colors);
    widget.setAutoFillBackground(true);
}

QFrame* make_shape(const QString& name, QPalette::ColorRole role, QWidget* parent)
{
    auto* shape = new QFrame(parent);
    shape->setObjectName(name);
    shape->setFrameStyle(QFrame::Box | QFrame::Plain);
    shape->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette colors = shape->palette();
    colors.setColor(QPalette::WindowText, colors.color(role));
    shape->setPalette(colors);
    shape->hide();
    return shape;
}

/// Keys that lead through the dialog, or out of it, and choose nothing.
bool leads_on(int key)
{
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Escape || key == Qt::Key_Shift
        || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta || key == Qt::Key_AltGr;
}

} // namespace

frmColor::frmColor(QWidget* owner, int chosen, int type_size, std::function<void(int)> set_color)
    : QDialog(owner)
    , set_color_(std::move(set_color))
    , Shape1_(make_shape(QStringLiteral("Shape1"), QPalette::WindowText, this))
    , Shape2_(make_shape(QStringLiteral("Shape2"), QPalette::Highlight, this))
{
    setObjectName(QStringLiteral("frmColor"));
    setWindowTitle(QStringLiteral("Page view background colors"));
    setModal(true);
    set_dialog_font(*this, type_size);

    auto* row = new QHBoxLayout;
    row->setSpacing(22);
    for (int i = 0; i < colors; ++i) {
        make_color(i);
        row->addWidget(frm_color_[static_cast<size_t>(i)]);
    }
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(26, 26, 26, 18);
    rows->setSpacing(24);
    rows->addLayout(row);
    rows->addWidget(ok, 0, Qt::AlignRight);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->activate();

    if (chosen >= 0 && chosen < colors) {
        place_shapes(chosen);
        color_[static_cast<size_t>(chosen)]->setFocus();
    }
}

void frmColor::make_color(int index)
{
    const QColor color = page_color_of(index).value_or(Qt::white);
    auto* frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("frm_color(%1)").arg(index));
    frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    frame->setFixedSize(frame_size);
    frame->setToolTip(color_name(index));
    paint_ground(*frame, color);

    auto* box = new QFrame(frame);
    set_drawn_control(*box, DrawnControl::choice);
    box->setObjectName(QStringLiteral("color(%1)").arg(index));
    box->setGeometry(QRect(QPoint(), frame_size).adjusted(1, 1, -1, -1));
    box->setFocusPolicy(Qt::StrongFocus);
    box->setLineWidth(focus_line - 1); // goes on from its frame's line, which is as thick with the keyboard
    box->setAccessibleName(color_name(index));
    box->installEventFilter(this);

    frm_color_[static_cast<size_t>(index)] = frame;
    color_[static_cast<size_t>(index)] = box;
}

bool frmColor::eventFilter(QObject* watched, QEvent* event)
{
    const auto found = std::find(color_.begin(), color_.end(), watched);
    if (found == color_.end())
        return QDialog::eventFilter(watched, event);
    const int index = static_cast<int>(found - color_.begin());
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        for (size_t i = 0; i < color_.size(); ++i) {
            const bool focused = event->type() == QEvent::FocusIn && color_[i] == watched;
            color_[i]->setFrameStyle(focused ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
            frm_color_[i]->setLineWidth(focused ? focus_line : 1);
        }
        return false;
    }
    if (event->type() == QEvent::MouseButtonPress) {
        if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
            return false;
        (*found)->setFocus(Qt::MouseFocusReason);
        choose(index);
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (leads_on(key))
        return false;
    if (key == Qt::Key_Left || key == Qt::Key_Right) {
        const int next = std::clamp(index + (key == Qt::Key_Right ? 1 : -1), 0, colors - 1);
        color_[static_cast<size_t>(next)]->setFocus(Qt::TabFocusReason);
        return true;
    }
    choose(index);
    return true;
}

void frmColor::choose(int index)
{
    place_shapes(index);
    const BusyPointer busy;
    set_color_(index);
}

void frmColor::place_shapes(int index)
{
    const QRect frame = frm_color_[static_cast<size_t>(index)]->geometry();
    const auto place = [&frame](QFrame& shape, int gap) {
        shape.setGeometry(frame.adjusted(-gap, -gap, gap, gap));
        shape.lower();
        shape.show();
    };
    place(*Shape1_, inner_gap);
    place(*Shape2_, outer_gap);
    for (int i = 0; i < colors; ++i)
        set_drawn_check(*color_[static_cast<size_t>(i)], i == index);
}

} // namespace tarnwick
