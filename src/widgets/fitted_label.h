#pragma once

#include "widgets/fitted_text.h"

#include <QLabel>

namespace tarnwick {

/// One line of text that gets narrower type before it is cut, when its room is too small.
class FittedLabel : public QLabel {
public:
    using QLabel::QLabel;

    void set_narrowest(int percent) { narrowest_ = percent; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int narrowest_ = narrowest_type;
};

} // namespace tarnwick
