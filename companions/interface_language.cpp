#include "companions/interface_language.h"

#include "core/paths.h"
#include "model/settings.h"
#include "platform/process/application_folder.h"

#include <QLocale>

namespace orvanta {

using namespace Qt::StringLiterals;

TextLanguage companionLanguage()
{
    const QString settings = programFile(chosenApplicationFolder(), u"\\orvanta.ini"_s);
    const auto session = QLocale::system().uiLanguages().value(0).startsWith(u"ru")
                             ? TextLanguage::Russian
                             : TextLanguage::English;
    return Settings(settings).exactTextLanguage(TextLanguage::Russian, session);
}

} // namespace orvanta
