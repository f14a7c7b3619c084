#include "core/run_time_error.h"

namespace orvanta {

using namespace Qt::StringLiterals;

static QString textOf(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return u"Invalid procedure call or argument"_s;
    case ErrorNumber::Overflow:
        return u"Overflow"_s;
    case ErrorNumber::OutOfMemory:
        return u"Out of memory"_s;
    case ErrorNumber::SubscriptOutOfRange:
        return u"Subscript out of range"_s;
    case ErrorNumber::DivisionByZero:
        return u"Division by zero"_s;
    case ErrorNumber::TypeMismatch:
        return u"Type mismatch"_s;
    case ErrorNumber::FileNotFound:
        return u"File not found"_s;
    case ErrorNumber::PathFileAccessError:
        return u"Path/File access error"_s;
    case ErrorNumber::PathNotFound:
        return u"Path not found"_s;
    }
    return u"Invalid procedure call or argument"_s;
}

RuntimeError::RuntimeError(ErrorNumber number)
    : m_number(number),
      m_what(textOf(number).toStdString())
{}

QString RuntimeError::text() const
{
    return textOf(m_number);
}

QString RuntimeError::report() const
{
    return u"Run-time error '%1':\n\n%2"_s.arg(static_cast<int>(m_number)).arg(text());
}

} // namespace orvanta
