#include "companions/exchange_windows/exchange_pickers.h"

#include "companions/player_program.h"
#include "core/version.h"
#include "model/recent_lessons.h"
#include "platform/process/application_folder.h"
#include "platform/screen/colour_scheme.h"
#include "playback/outlined_indicators.h"

#include <QApplication>
#include <QFileDialog>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString pickedFile(QWidget& parent, const QString& title, const QString& folder)
{
    return QFileDialog::getOpenFileName(&parent, title, folder);
}

static QString pickedTarget(QWidget& parent, const QString& title, const QString& proposed)
{
    return QFileDialog::getSaveFileName(&parent, title, proposed);
}

ImportServices importServices()
{
    return {.pickFiles =
                [](QWidget& parent, const QString& title, const QString& folder) {
                    return QFileDialog::getOpenFileNames(&parent, title, folder);
                },
            .pickClip = pickedFile,
            .pickTarget = pickedTarget,
            .open = openInPlayer};
}

static QStringList lessonsOnLast()
{
    Module1 module;
    module.ApplicationFolder = chosenApplicationFolder();
    module.IniPath = module.ApplicationFolder + u"/orvanta.ini"_s;
    QStringList paths;
    for (const RecentLesson& lesson : RecentLessons(module).lessons()) {
        if (lesson.isThere()) {
            paths.append(lesson.path);
        }
    }
    return paths;
}

ExportServices exportServices()
{
    return {.pickLesson =
                [](QWidget& parent, const QString& title, const QString& folder) {
                    return QFileDialog::getOpenFileName(&parent, title, folder,
                                                        u"*.vxl *.vxg (*.vxl *.vxg)"_s);
                },
            .pickTarget = pickedTarget,
            .recentLessons = lessonsOnLast()};
}

void prepareCompanionProgram(TextLanguage language)
{
    QCoreApplication::setApplicationName(u"orvanta"_s);
    QCoreApplication::setApplicationVersion(kVersion.toString());
    QGuiApplication::setDesktopFileName(u"orvanta"_s);
    QGuiApplication::setWindowIcon(QIcon(u":/orvanta/orvanta.svg"_s));
    QApplication::setStyle(new OutlinedIndicators);
    new ColourScheme(QDBusConnection::sessionBus(), qApp);
    auto* translator = new QTranslator(qApp);
    const QLocale locale(language == TextLanguage::English ? QLocale::English : QLocale::Russian);
    if (translator->load(locale, u"qtbase"_s, u"_"_s,
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(translator);
    }
}

} // namespace orvanta
