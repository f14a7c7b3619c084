#include "companions/player_program.h"

#include "core/earlier_versions.h"
#include "core/ini.h"
#include "core/paths.h"
#include "model/settings.h"
#include "platform/process/application_folder.h"
#include "platform/process/known_places.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>

namespace orvanta {

using namespace Qt::StringLiterals;

QString fileNearCompanions(const QStringList& names)
{
    const QDir here(QCoreApplication::applicationDirPath());
    for (const QString& name : names) {
        QString file = QDir::cleanPath(here.absoluteFilePath(name));
        if (QFileInfo(file).isFile()) {
            return file;
        }
    }
    return {};
}

TextLanguage companionLanguage()
{
    const QString settings = programFile(chosenApplicationFolder(), u"\\orvanta.ini"_s);
    const auto session = QLocale::system().uiLanguages().value(0).startsWith(u"ru")
                             ? TextLanguage::Russian
                             : TextLanguage::English;
    return Settings(settings).exactTextLanguage(TextLanguage::Russian, session);
}

void prepareAsPlayer()
{
    setVersionsFolder(stateFolder() + u"/versions"_s);
    const QString platformIni = programFile(chosenApplicationFolder(), u"\\platform.ini"_s);
    setLegacyCodePage(Settings(platformIni).codePage());
    setPlacesFile(platformIni);
}

QString playerProgram()
{
    QString told = qEnvironmentVariable("ORVANTA_PROGRAM");
    if (QFileInfo(told).isExecutable()) {
        return told;
    }
    const QString near = fileNearCompanions(
        {QStringLiteral(ORVANTA_BIN_FROM_COMPANIONS "/orvanta"), u"../orvanta"_s});
    return near.isEmpty() ? QStandardPaths::findExecutable(u"orvanta"_s) : near;
}

bool openInPlayer(const QString& file)
{
    const QString program = playerProgram();
    return !program.isEmpty() && QProcess::startDetached(program, {file});
}

} // namespace orvanta
