#pragma once

#include <QWidget>

namespace tarnwick {

/// Keeps a widget from painting while its layout changes. Guards may be nested.
class UpdateLock {
public:
    explicit UpdateLock(QWidget& widget)
        : widget_(widget)
        , were_enabled_(widget.updatesEnabled())
    {
        if (were_enabled_)
            widget_.setUpdatesEnabled(false);
    }
    ~UpdateLock()
    {
        if (were_enabled_)
            widget_.setUpdatesEnabled(true);
    }
    UpdateLock(const UpdateLock&) = delete;
    UpdateLock& operator=(const UpdateLock&) = delete;

private:
    QWidget& widget_;
    bool were_enabled_;
};

} // namespace tarnwick
