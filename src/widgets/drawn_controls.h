#pragma once

class QWidget;

namespace tarnwick {

/// What a control that draws itself is to a screen reader.
enum class DrawnControl { button, check_box, choice, separator, picture };

/// Tells a screen reader what a control is, before anything else is done to it; its name is its `accessibleName`,
/// or its tool tip.
void set_drawn_control(QWidget& control, DrawnControl kind);

void set_drawn_check(QWidget& control, bool checked); ///< whether a drawn check box or choice is checked

} // namespace tarnwick
