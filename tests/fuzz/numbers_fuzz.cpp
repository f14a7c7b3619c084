// Number texts: what is written is read back, and only run-time errors come out.

#include "core/numbers.h"
#include "core/run_time_error.h"
#include "tests/fuzz/fuzzing.h"

#include <cmath>
#include <cstring>

using namespace orvanta;
using namespace orvanta::fuzz;

static void readText(const QString& text)
{
    try {
        const double value = decimalValue(text);
        require(std::isfinite(value), "a text that is read is a finite number");
        const double again = decimalValue(decimalText(value));
        require(std::abs(again - value) <= std::abs(value) * 1e-14, "15 digits are kept");
        (void)formatPicture(value, u"000000.00", u',');
        (void)formatPicture(value, u"#####0.000", u'.');
        require(countValue(text) == roundToInt16(value), "a count is the number, rounded");
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::TypeMismatch ||
                    error.number() == ErrorNumber::Overflow,
                "a text is no number, or too large a count");
    }
}

static void writeNumber(double value)
{
    try {
        const double again = decimalValue(decimalText(value));
        require(decimalText(again) == decimalText(value), "a number's text stands for itself");
        const QString picture = formatPicture(value, u"#####0.00", u'.');
        require(!picture.contains(u'e') && !picture.contains(u'E'), "no picture has an exponent");
    } catch (const RuntimeError& error) {
        require(!std::isfinite(value) || std::abs(value) > 1e300,
                "only what is no number is refused");
    }
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size >= sizeof(double)) {
        double value = 0;
        std::memcpy(&value, data, sizeof value);
        writeNumber(value);
    }
    Input input(data, size);
    readText(input.text());
    return 0;
}
