#include "app/start_up_steps.h"

#include "core/error_boundary.h"
#include "core/ini.h"
#include "core/numbers.h"
#include "core/paths.h"

#include <QFile>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

Int16 storedLanguage(const QString& iniPath)
{
    double language = 0;
    resumeNext("reading the language", [&] {
        language = decimalValue(ReadIni(u"main"_s, u"language"_s, iniPath, u"0"_s));
    });
    return roundToInt16(std::trunc(language));
}

static void copySetup(const QString& source, const QString& target)
{
    if (!FileExists(source)) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    if (!QFile::copy(source, target)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

void repairSetupCopy(const QString& applicationFolder)
{
    const QString target = programFile(applicationFolder, u"\\setup\\setup.exe"_s);
    if (FileExists(target)) {
        return;
    }
    const QString iniPath = programFile(applicationFolder, u"\\orvanta.ini"_s);
    const QString original = ReadIni(u"main"_s, u"screxe"_s, iniPath);
    if (!folderOfPath(original).isEmpty()) {
        copySetup(programFile(applicationFolder, u"\\setup\\"_s + fileNameOfPath(original)),
                  target);
    }
}

void registerFolderVerb(Registry& registry, const QString& applicationFolder)
{
    registry.RegWriteString(RegistryHive::ClassesRoot, u"Folder\\shell\\Play clips\\command"_s, {},
                            applicationFolder + u"\\orvanta.exe /f%1"_s);
}

} // namespace orvanta
