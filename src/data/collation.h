#pragma once

#include <QString>
#include <QStringView>

#include <array>

struct sqlite3;

namespace tarnwick {

/// Case-blind order of two texts, the same on the screen and in every query: below 0, 0, above 0.
int compare_names(QStringView left, QStringView right);

/// A name made ready for many comparisons: below another where `compare_names` has it so, at a fraction of the
/// cost.
class NameKey {
public:
    explicit NameKey(const QString& name);
    bool operator<(const NameKey& other) const;
    const QString& name() const { return name_; }

private:
    QString name_;
    std::array<unsigned char, 24> ranks_{}; ///< of the first characters, zero behind the end
    bool is_plain_ = false; ///< all its characters have a rank
};

/// The pattern match of the LIKE operator, case-blind in all alphabets: '%' any text, '_' any one character.
bool like(QStringView text, QStringView pattern);

/// Gives a connection this order as NOCASE and this match as LIKE. Throws SQLite::Exception.
void install_collation(sqlite3* handle);

} // namespace tarnwick
