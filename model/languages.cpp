#include "model/languages.h"

#include <QLocale>

#include <algorithm>

namespace orvanta {

static bool hasLengthOfCode(const QString& text)
{
    return text.size() == 2 || text.size() == 3;
}

QString languageCode(const QString& asWritten)
{
    const QString plain = asWritten.trimmed().toLower().replace(u'_', u'-').section(u'-', 0, 0);
    if (plain == kNoLanguage || !hasLengthOfCode(plain)) {
        return plain == kNoLanguage ? plain : QString();
    }
    const QLocale::Language language = QLocale::codeToLanguage(plain);
    const bool isKnown = language != QLocale::AnyLanguage && language != QLocale::C;
    return isKnown ? QLocale::languageToCode(language) : QString();
}

QString languageName(const QString& code, TextLanguage language)
{
    const auto texts = interfaceTexts();
    const auto text = std::ranges::find_if(texts, [&](const InterfaceText& row) {
        return row.window == u"Language" && row.control == code;
    });
    if (text != texts.end()) {
        return text->in(language);
    }
    const QLocale::Language known = QLocale::codeToLanguage(code);
    const QString own = QLocale(known).nativeLanguageName();
    return QLocale(known).language() == known && !own.isEmpty() ? own
                                                                : QLocale::languageToString(known);
}

} // namespace orvanta
