#pragma once

#include <QObject>

namespace tarnwick {

/// Loses the click that took the focus from a control which then would not let it go: neither its press
/// nor its release acts on the control that was clicked. The release may be lost to a message; then the
/// next press is one of its own.
class LostClick : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    void start(); ///< before the press reaches its control

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Awaited { nothing, press, release };

    Awaited awaited_ = Awaited::nothing;
};

} // namespace tarnwick
