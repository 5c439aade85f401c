#include "widgets/drawn_controls.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace tarnwick {
namespace {

constexpr const char* drawn_kind = "drawn_kind";
constexpr const char* drawn_check = "drawn_check";

DrawnControl kind_of(const QWidget& control)
{
    return static_cast<DrawnControl>(control.property(drawn_kind).toInt());
}

QAccessible::Role role_of(DrawnControl kind)
{
    switch (kind) {
    case DrawnControl::button:
        return QAccessible::Button;
    case DrawnControl::check_box:
        return QAccessible::CheckBox;
    case DrawnControl::choice:
        return QAccessible::RadioButton;
    case DrawnControl::separator:
        return QAccessible::Splitter;
    default:
        return QAccessible::Graphic;
    }
}

/// A drawn control as assistive programs see it. It is pressed where it is a button.
class DrawnAccess : public QAccessibleWidget {
public:
    explicit DrawnAccess(QWidget* control)
        : QAccessibleWidget(control)
    {
    }

    QAccessible::Role role() const override { return role_of(kind_of(*widget())); }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto kind = kind_of(*widget()); kind == DrawnControl::check_box || kind == DrawnControl::choice) {
            state.checkable = true;
            state.checked = widget()->property(drawn_check).toBool();
        }
        return state;
    }

    QString text(QAccessible::Text which) const override
    {
        const QString text = QAccessibleWidget::text(which);
        return text.isEmpty() && which == QAccessible::Name ? widget()->toolTip() : text;
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (button() && button()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction() && button())
            button()->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QAbstractButton* button() const { return qobject_cast<QAbstractButton*>(widget()); }
};

QAccessibleInterface* drawn_access(const QString&, QObject* object)
{
    auto* control = qobject_cast<QWidget*>(object);
    return control && control->property(drawn_kind).isValid() ? new DrawnAccess(control) : nullptr;
}

} // namespace

void set_drawn_control(QWidget& control, DrawnControl kind)
{
    static const bool installed = [] {
        QAccessible::installFactory(drawn_access);
        return true;
    }();
    Q_UNUSED(installed)
    control.setProperty(drawn_kind, static_cast<int>(kind));
}

void set_drawn_check(QWidget& control, bool checked)
{
    if (control.property(drawn_check).toBool() == checked)
        return;
    control.setProperty(drawn_check, checked);
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&control, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace tarnwick
