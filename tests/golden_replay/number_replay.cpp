#include "core/numbers.h"
#include "core/run_time_error.h"
#include "tests/golden_replay/replay.h"

#include <QVariant>

namespace orvanta::replay {

using namespace Qt::StringLiterals;

/// Text of a field that may be written as a text or as a number.
static QString fieldText(const QJsonObject& testCase, const QString& field)
{
    return testCase[field].toVariant().toString();
}

static QString resultOf(const QJsonObject& testCase, double input)
{
    const QString function = testCase[u"fn"].toString();
    if (function == u"format") {
        const QString mark = testCase[u"decimal_mark"].toString(u"."_s);
        return formatPicture(input, testCase[u"picture"].toString(), mark.at(0));
    }
    if (function == u"round_to_int16") {
        return QString::number(roundToInt16(input).value());
    }
    if (function == u"decimal_text") {
        return decimalText(input);
    }
    return u"unknown function "_s + function;
}

/// The result, or "error N".
static QString outcomeOf(const QJsonObject& testCase)
{
    bool isNumber = false;
    const double input = fieldText(testCase, u"input"_s).toDouble(&isNumber);
    if (!isNumber) {
        return u"input is no number"_s;
    }
    try {
        return resultOf(testCase, input);
    } catch (const RuntimeError& error) {
        return u"error %1"_s.arg(static_cast<int>(error.number()));
    }
}

static QString nameOf(const QJsonObject& testCase)
{
    const QString name = testCase[u"name"].toString();
    const QString described =
        u"%1 %2 %3 %4"_s.arg(testCase[u"fn"].toString(), fieldText(testCase, u"input"_s),
                             testCase[u"picture"].toString(), testCase[u"decimal_mark"].toString());
    return name.isEmpty() ? described.trimmed() : name;
}

Outcome replayNumber(const QJsonObject& testCase, const QString& /*folder*/)
{
    const QString expected = testCase.contains(u"error")
                                 ? u"error "_s + fieldText(testCase, u"error"_s)
                                 : fieldText(testCase, u"output"_s);
    return {nameOf(testCase), outcomeOf(testCase) == expected};
}

} // namespace orvanta::replay
