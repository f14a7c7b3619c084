#include "playback/practice_texts.h"

#include <QLocale>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString text(QStringView key, TextLanguage language)
{
    return interfaceText(u"Practice", key, language);
}

static QString ofHundred(double percent)
{
    return QLocale().toString(percent / 100, 'g', 3);
}

QString speedText(double speed)
{
    return ofHundred(speed) + u"\u00a0×"_s;
}

/// Russian counts two to four otherwise than five and more; in English both texts are the same.
static QStringView plural(int number, QStringView few, QStringView many)
{
    const bool teen = number / 10 % 10 == 1;
    const int last = number % 10;
    return !teen && last >= 2 && last <= 4 ? few : many;
}

QString timesText(int times, TextLanguage language)
{
    if (times == Practice::kEndless || times == 1) {
        return text(times == 1 ? u"times.once" : u"times.endless", language);
    }
    return text(plural(times, u"times.few", u"times.many"), language).arg(times);
}

QString waitText(int wait, int seconds, TextLanguage language)
{
    switch (wait) {
    case Practice::kNoWait:
        return text(u"wait.none", language);
    case Practice::kWaitForKey:
        return text(u"wait.key", language);
    case Practice::kWaitForSeconds:
        return text(u"wait.seconds", language).arg(seconds);
    case 100:
        return text(u"wait.once", language);
    default:
        return text(u"wait.length", language).arg(ofHundred(wait));
    }
}

QString roundText(int round, int times, TextLanguage language)
{
    return times == Practice::kEndless ? text(u"round.endless", language).arg(round)
                                       : text(u"round", language).arg(round).arg(times);
}

static QString waitChip(const Practice& practice, TextLanguage language)
{
    switch (practice.wait) {
    case Practice::kWaitForKey:
        return text(u"chip.wait.key", language);
    case Practice::kWaitForSeconds:
        return text(u"chip.wait.seconds", language).arg(practice.seconds);
    default:
        return text(u"chip.wait", language).arg(ofHundred(practice.wait));
    }
}

std::vector<PracticeChip> practiceChips(const Practice& practice, TextLanguage language)
{
    const Practice usual;
    std::vector<PracticeChip> chips;
    const auto add = [&](auto Practice::*value, const QString& said) {
        if (practice.*value != usual.*value) {
            PracticeChip chip = {said, practice};
            chip.without.*value = usual.*value;
            chips.push_back(chip);
        }
    };
    add(&Practice::speed, speedText(practice.speed));
    add(&Practice::times, timesText(practice.times, language));
    add(&Practice::wait, waitChip(practice, language));
    add(&Practice::from, text(u"chip.from", language).arg(practice.from));
    add(&Practice::mirror, text(u"chip.mirror", language));
    add(&Practice::even, text(u"chip.even", language));
    return chips;
}

} // namespace orvanta
