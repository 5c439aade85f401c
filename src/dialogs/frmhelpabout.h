#pragma once

#include <QDialog>

#include <functional>

class QUrl;

namespace tarnwick {

/// What the program is, its licence and the libraries in it, and the way to its page.
class frmhelpabout : public QDialog {
    Q_OBJECT
public:
    /// `open_url` gets the address of the project's page when the user asks for it.
    frmhelpabout(QWidget* owner, int type_size, const std::function<bool(const QUrl&)>& open_url);
};

} // namespace tarnwick
