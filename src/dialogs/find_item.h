#pragma once

#include "data/text.h"

#include <QDialog>

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tarnwick {

class Connection;

/// What the find dialog looks for.
enum class FindKind { stock, recipes };

/// Looks for stock items or recipes by a part of their names and steps through what it found. It stays open
/// beside the main window; what it finds is shown there.
class find_item : public QDialog {
    Q_OBJECT
public:
    /// `points` is the main window's type size.
    find_item(Connection& connection, int points, QWidget* owner);

    /// Follows the main window's type size.
    void set_type_size(int points);

    /// The option that is on; what was found before is forgotten.
    void search(FindKind kind);

signals:
    /// Something is about to be shown elsewhere. The receiver clears `allowed` when the user has to stay where he
    /// is.
    void leaving(bool& allowed);

    /// A search has found something; its tree is to be brought up.
    void kind_found(tarnwick::FindKind kind);

    /// A match is to be selected and shown. The receiver clears `shown` when it is no longer there.
    void match(tarnwick::FindKind kind, tarnwick::Key key, bool& shown);

private:
    void make_controls();
    void place_controls();
    void text_changed();
    void ready();
    void press();
    void find_now();
    void find_next();
    bool show_match(size_t position);
    FindKind kind() const;
    QString result_of(size_t position) const;

    Connection& connection_;
    QLabel* Label1_;
    QLabel* Label2_;
    QLineEdit* Text1_;
    QRadioButton* Option1_[2];
    QPushButton* Command1_[2];
    std::vector<Key> found_keys_;
    size_t found_pos_ = 0;
    bool stepping_ = false; ///< the button reads "FIND NEXT"
};

} // namespace tarnwick
