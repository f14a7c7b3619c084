#include "app/start_up_steps.h"

#include "core/earlier_versions.h"
#include "core/error_boundary.h"
#include "core/ini.h"
#include "core/paths.h"
#include "core/run_time_error.h"
#include "model/settings.h"
#include "model/texts.h"
#include "platform/process/application_folder.h"
#include "platform/process/known_places.h"
#include "platform/screen/wayland_awake.h"

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

static QString platformSettings(const QString& applicationFolder)
{
    return programFile(applicationFolder, u"\\platform.ini"_s);
}

MpvOptionList playerOptions(const QString& applicationFolder)
{
    const bool byGraphics = Settings(platformSettings(applicationFolder)).mayDecodeInHardware();
    return byGraphics ? MpvOptionList() : MpvOptionList{{"hwdec", "no"}};
}

RendererChoice rendererChoice(const QString& applicationFolder)
{
    const QString path = platformSettings(applicationFolder);
    const Settings settings(path);
    return {.wish = rendererWish(settings.renderer()),
            .failedDriver = settings.failedDriver(),
            .remember =
                [path](const QString& driver) {
                    resumeNext("remembering a driver that failed",
                               [&] { Settings(path).setFailedDriver(driver); });
                },
            .waylandDisplay = [] { return waylandDisplay(); }};
}

static QString versionText(QStringView name)
{
    return interfaceText(u"CommandLine", name, TextLanguage::English);
}

static QString rendererText(RendererWish wish, bool hasDevice)
{
    if (wish == RendererWish::OpenGl) {
        return versionText(u"--version.opengl");
    }
    const bool isOpen = wish == RendererWish::Automatic && hasDevice;
    return versionText(isOpen ? u"--version.driver" : u"--version.processor");
}

QString pictureLine(const QString& applicationFolder, const QString& devices)
{
    const Settings settings(platformSettings(applicationFolder));
    const bool byGraphics = hasGraphicsDevice(devices) && settings.mayDecodeInHardware();
    return versionText(u"--version.picture")
        .arg(rendererText(rendererWish(settings.renderer()), hasGraphicsDevice(devices)),
             versionText(byGraphics ? u"--version.graphics" : u"--version.processor"));
}

void prepareDocuments(const QString& applicationFolder)
{
    setVersionsFolder(stateFolder() + u"/versions"_s);
    const QString platformIni = platformSettings(applicationFolder);
    setLegacyCodePage(Settings(platformIni).codePage());
    setPlacesFile(platformIni);
}

void registerFolderVerb(Registry& registry, const QString& applicationFolder)
{
    registry.RegWriteString(RegistryHive::ClassesRoot, u"Folder\\shell\\Play clips\\command"_s, {},
                            applicationFolder + u"\\orvanta.exe /f%1"_s);
}

} // namespace orvanta
