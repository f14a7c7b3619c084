#include "model/recent_texts.h"

#include <QLocale>
#include <QStringList>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString word(QStringView key, TextLanguage language)
{
    return interfaceText(u"Recent", key, language);
}

static QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

QString dayText(QDate day, QDate today, TextLanguage language)
{
    if (!day.isValid()) {
        return {};
    }
    if (day == today || day == today.addDays(-1)) {
        return word(day == today ? u"today" : u"yesterday", language);
    }
    const bool isEnglish = language == TextLanguage::English;
    const QLocale locale(isEnglish ? QLocale::English : QLocale::Russian);
    return locale.toString(day, day.year() == today.year() ? u"d MMMM"_s : u"d MMMM yyyy"_s);
}

QString placeText(const RecentLesson& lesson, QDate today, TextLanguage language)
{
    QString place;
    if (lesson.over) {
        place = word(u"over", language);
    } else if (lesson.line >= 1) {
        place = word(u"line", language).arg(lesson.line).arg(lesson.lines);
    }
    return joined({place, dayText(lesson.used.toLocalTime().date(), today, language)});
}

QString spokenText(const RecentLesson& lesson, bool isThere, QDate today, TextLanguage language)
{
    return joined({lesson.title, lesson.folder(),
                   isThere ? placeText(lesson, today, language) : word(u"gone", language)});
}

} // namespace orvanta
