#include "companions/cdcreate/box_texts.h"

#include <QLocale>

namespace orvanta {

using namespace Qt::StringLiterals;

static QLocale localeOf(TextLanguage language)
{
    return language == TextLanguage::Russian ? QLocale(QLocale::Russian)
                                             : QLocale(QLocale::English);
}

static QString boxText(QStringView what, TextLanguage language)
{
    return interfaceText(u"Box", what, language);
}

QString sizeText(qint64 bytes, TextLanguage language)
{
    constexpr double kStep = 1000;
    static constexpr QStringView kUnits[] = {u"bytes", u"kB", u"MB", u"GB", u"TB"};
    auto size = static_cast<double>(bytes);
    std::size_t unit = 0;
    while (size >= kStep && unit + 1 < std::size(kUnits)) {
        size /= kStep;
        ++unit;
    }
    const int decimals = unit == 0 || size >= 100 ? 0 : 1;
    return boxText(kUnits[unit], language).arg(localeOf(language).toString(size, 'f', decimals));
}

static QString timeText(std::chrono::seconds time)
{
    constexpr qint64 kMinute = 60;
    const qint64 seconds = time.count();
    const QString minutes =
        u"%1:%2"_s.arg(seconds / kMinute % kMinute, seconds >= 3600 ? 2 : 1, 10, QChar(u'0'))
            .arg(seconds % kMinute, 2, 10, QChar(u'0'));
    return seconds >= kMinute * kMinute ? u"%1:%2"_s.arg(seconds / (kMinute * kMinute)).arg(minutes)
                                        : minutes;
}

static QStringView nameOf(BoxStep step)
{
    switch (step) {
    case BoxStep::Gathering:
        return u"step.gathering";
    case BoxStep::Converting:
        return u"step.converting";
    case BoxStep::Writing:
        return u"step.writing";
    case BoxStep::Checking:
        return u"step.checking";
    case BoxStep::Burning:
        return u"step.burning";
    }
    return u"step.gathering";
}

QString progressText(const BoxState& state, const BoxSpeed& speed, TextLanguage language)
{
    QString text = boxText(nameOf(state.step), language);
    if (state.all > 0) {
        text += u' ' + boxText(u"of", language)
                           .arg(sizeText(state.done, language), sizeText(state.all, language));
    }
    if (const auto bytesPerSecond = speed.speed()) {
        const QString size = sizeText(static_cast<qint64>(*bytesPerSecond), language);
        text += u", "_s + boxText(u"perSecond", language).arg(size);
    }
    if (const auto left = speed.left()) {
        text += u", "_s + boxText(u"left", language).arg(timeText(*left));
    }
    return text;
}

static QStringView nameOf(BoxProblem problem)
{
    switch (problem) {
    case BoxProblem::Stopped:
        return u"stopped";
    case BoxProblem::NoLesson:
        return u"noLesson";
    case BoxProblem::Missing:
        return u"someMissing";
    case BoxProblem::Unreadable:
        return u"unreadable";
    case BoxProblem::NoRoom:
        return u"noRoom";
    case BoxProblem::TooLarge:
        return u"tooLarge";
    case BoxProblem::Exists:
        return u"exists";
    case BoxProblem::Unwritable:
        return u"unwritable";
    case BoxProblem::Different:
        return u"different";
    case BoxProblem::NoProgram:
        return u"noProgram";
    case BoxProblem::ProgramFailed:
        return u"programFailed";
    case BoxProblem::NoDrive:
        return u"noDrive";
    }
    return u"stopped";
}

QString failureText(const BoxFailure& failure, TextLanguage language)
{
    const QString text = boxText(nameOf(failure.problem()), language);
    return failure.about().isEmpty() ? text : text + u": "_s + failure.about();
}

static QStringView nameOf(CheckedPart part)
{
    return part == CheckedPart::Clip     ? u"clip"
           : part == CheckedPart::Packet ? u"packet"
                                         : u"picture";
}

QString missingText(const MissingPart& part, TextLanguage language)
{
    const bool isRefused = part.what.found.finding == Finding::Refused;
    const QStringView reason = isRefused ? u"refused" : u"missing";
    return interfaceText(u"Check", nameOf(part.what.part), language).arg(part.what.number) +
           u": "_s + interfaceText(u"Check", reason, language) + u": "_s + part.what.text;
}

} // namespace orvanta
