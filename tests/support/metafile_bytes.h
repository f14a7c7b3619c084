// A metafile made by hand.
#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QList>

namespace orvanta::test {

inline QByteArray words(const QList<int>& values)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    for (const int value : values) {
        stream << static_cast<quint16>(value);
    }
    return bytes;
}

/// Two by one inches at 100 units an inch, filled with a red rectangle.
inline QByteArray redMetafile()
{
    const QList<int> placed = {0xCDD7, 0x9AC6, 0, 0, 0, 200, 100, 100, 0, 0};
    int checksum = 0;
    for (const int word : placed) {
        checksum ^= word;
    }
    const QByteArray records = words({7, 0, 0x02FC, 0, 0x00FF, 0, 0}) // a red brush
                               + words({4, 0, 0x012D, 0})             // is taken
                               + words({5, 0, 0x020B, 0, 0})          // origin
                               + words({5, 0, 0x020C, 100, 200})      // extent
                               + words({7, 0, 0x041B, 100, 200, 0, 0}) + words({3, 0, 0});
    const int total = 9 + static_cast<int>(records.size() / 2);
    return words(placed) + words({checksum}) + words({1, 9, 0x0300, total, 0, 1, 7, 0, 0}) +
           records;
}

} // namespace orvanta::test
