#include "core/spoilt_count.h"

#include "core/log.h"
#include "core/numbers.h"

#include <utility>

namespace orvanta {

SpoiltCount::SpoiltCount(ErrorNumber number, Place place, QString value)
    : RuntimeError(number),
      m_place(std::move(place)),
      m_value(std::move(value))
{
    qCInfo(logErrors, "%ls: in section [%ls] the value of %ls is \"%ls\", which is no count",
           qUtf16Printable(m_place.file), qUtf16Printable(m_place.section),
           qUtf16Printable(m_place.key), qUtf16Printable(m_value));
}

Int16 countAt(const SpoiltCount::Place& place, const QString& text)
{
    try {
        return countValue(text);
    } catch (const RuntimeError& error) {
        throw SpoiltCount(error.number(), place, text);
    }
}

Int16 lengthAt(const SpoiltCount::Place& place, const QString& text)
{
    const Int16 length = countAt(place, text);
    if (length < 0) {
        throw SpoiltCount(ErrorNumber::SubscriptOutOfRange, place, text);
    }
    return length;
}

} // namespace orvanta
