#include "app/start_up_steps.h"

#include "core/paths.h"
#include "core/run_time_error.h"
#include "model/settings.h"

#include <QFile>

namespace orvanta {

using namespace Qt::StringLiterals;

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
    const QString original = Settings(iniPath).setupSource();
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
