#pragma once

#include <QString>

#include <exception>
#include <string>

namespace tarnwick {

/// A run-time error: a number and a description, as every failure of the program is reported.
class runtime_error : public std::exception {
public:
    enum Number {
        overflow = 6,
        subscript = 9,
        type_mismatch = 13,
        element_not_found = 35601,
        key_not_unique = 35602,
    };

    /// An error of the database has the database's own number, which may be one of the above by chance.
    runtime_error(int number, QString description, bool of_database = false);

    int number() const noexcept { return number_; }
    bool is(Number number) const noexcept { return number_ == number && !of_database_; }
    const QString& description() const noexcept { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    bool of_database_;
    QString description_;
    std::string what_;
};

/// The exception being handled, as a run-time error. Errors of the database keep SQLite's own number
/// and text. Call inside a catch block only.
runtime_error current_error();

/// Prints the error as one line to the standard error, for whoever started the program.
void print_cause(const runtime_error& error);

} // namespace tarnwick
