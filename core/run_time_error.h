// The run-time errors in which the system's procedures fail.
#pragma once

#include <QString>

#include <exception>
#include <string>

namespace orvanta {

/// Numbers of the run-time errors, as the error report shows them.
enum class ErrorNumber
{
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    PathFileAccessError = 75,
    PathNotFound = 76,
};

/// A failure inside one of the system's procedures. The handler in which it arises decides
/// whether it ends the program, ends the handler, or passes over one statement.
class RuntimeError : public std::exception
{
public:
    explicit RuntimeError(ErrorNumber number);

    [[nodiscard]] ErrorNumber number() const { return m_number; }
    /// The error's text as the report shows it, for example "Type mismatch".
    [[nodiscard]] QString text() const;
    /// The whole report: "Run-time error '13':", a blank line, "Type mismatch".
    [[nodiscard]] QString report() const;
    [[nodiscard]] const char* what() const noexcept override { return m_what.c_str(); }

private:
    ErrorNumber m_number;
    std::string m_what;
};

} // namespace orvanta
