// Signed 16-bit integers with checked arithmetic: the type of every counter and index.
#pragma once

#include "core/run_time_error.h"

#include <QtGlobal>

#include <compare>
#include <limits>

namespace orvanta {

/// A signed 16-bit integer. Every result outside -32768..32767 raises error 6.
class Int16
{
public:
    constexpr Int16() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): counters mix with literals everywhere.
    constexpr Int16(qint64 value)
        : m_value(checked(value))
    {}

    constexpr Int16(const Int16& other) = default;
    /// Not the compiler's own: g++ 12 lets a call that raises an error write into the left side of
    /// a trivial assignment, so that a counter lost its value in a statement that was passed over.
    constexpr Int16& operator=(const Int16& other)
    {
        m_value = other.m_value;
        return *this;
    }

    [[nodiscard]] constexpr int value() const { return m_value; }
    [[nodiscard]] constexpr std::size_t index() const { return static_cast<std::size_t>(m_value); }

    constexpr Int16& operator+=(Int16 other) { return *this = *this + other; }
    constexpr Int16& operator-=(Int16 other) { return *this = *this - other; }
    friend constexpr Int16 operator+(Int16 a, Int16 b) { return {qint64{a.m_value} + b.m_value}; }
    friend constexpr Int16 operator-(Int16 a, Int16 b) { return {qint64{a.m_value} - b.m_value}; }
    // NOLINTNEXTLINE(modernize-use-nullptr): the check trips over the defaulted operator.
    friend constexpr auto operator<=>(Int16 a, Int16 b) = default;

private:
    static constexpr qint16 checked(qint64 value)
    {
        if (value < std::numeric_limits<qint16>::min() ||
            value > std::numeric_limits<qint16>::max()) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
        return static_cast<qint16>(value);
    }

    qint16 m_value = 0;
};

/// A 16-bit flag: true is -1 (all bits set), false is 0.
class Flag16
{
public:
    constexpr Flag16() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a flag is assigned from conditions.
    constexpr Flag16(bool on)
        : m_value(on ? qint16{-1} : qint16{0})
    {}
    constexpr Flag16(const Flag16& other) = default;
    constexpr Flag16& operator=(const Flag16& other) // as for Int16
    {
        m_value = other.m_value;
        return *this;
    }
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr operator bool() const { return m_value != 0; }
    [[nodiscard]] constexpr int value() const { return m_value; }
    /// Returns the flag and clears it in the same call.
    constexpr bool take()
    {
        const bool wasSet = m_value != 0;
        m_value = 0;
        return wasSet;
    }

private:
    qint16 m_value = 0;
};

} // namespace orvanta
