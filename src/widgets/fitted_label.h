#pragma once

#include <QLabel>

namespace tarnwick {

/// One line of text that gets narrower type before it is cut, when its room is too small.
class FittedLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarnwick
