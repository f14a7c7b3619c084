// What the fuzzed rules have in common.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace orvanta::fuzz {

/// Ends the run; the engine keeps the input. what: the rule that does not hold.
inline void require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

/// The input, taken apart: lines of it, then the rest.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
    {}

    [[nodiscard]] bool isEmpty() const { return m_rest.isEmpty(); }
    /// Up to the next byte 0xFF, which no UTF-8 text has; what is no UTF-8 becomes U+FFFD.
    [[nodiscard]] QString text() { return QString::fromUtf8(bytes()); }
    [[nodiscard]] QByteArrayView bytes()
    {
        const qsizetype end = m_rest.indexOf('\xFF');
        const QByteArrayView part = end < 0 ? m_rest : m_rest.first(end);
        m_rest = end < 0 ? QByteArrayView() : m_rest.sliced(end + 1);
        return part;
    }
    [[nodiscard]] QByteArrayView rest() const { return m_rest; }

private:
    QByteArrayView m_rest;
};

/// A folder for a run's files, in memory where the system has such a place.
[[nodiscard]] inline QString room()
{
    static const QTemporaryDir folder((QDir(QStringLiteral("/dev/shm")).exists()
                                           ? QStringLiteral("/dev/shm")
                                           : QDir::tempPath()) +
                                      QStringLiteral("/orvanta-fuzz-XXXXXX"));
    return folder.path();
}

/// A file of the room with these bytes.
[[nodiscard]] inline QString fileWith(const char* name, QByteArrayView bytes)
{
    const QString path = room() + u'/' + QString::fromLatin1(name);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
                file.write(bytes.data(), bytes.size()) == bytes.size(),
            "the input can be written into the room");
    return path;
}

} // namespace orvanta::fuzz

/// The engine's entry; must return 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
