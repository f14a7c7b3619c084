// Form2's entries that start other programs and open documents.

#include "core/ini.h"
#include "core/log.h"
#include "core/paths.h"
#include "platform/process/application_folder.h"
#include "platform/process/companion.h"
#include "platform/screen/minimised_start.h"
#include "window/form2_main_window.h"

#include <QUrl>

namespace orvanta {

using namespace Qt::StringLiterals;

// Readers of shortcut files expect exactly this: blanks alone are replaced, and the three slashes
// are there whatever the path begins with.
static QString shortcutAddress(const QString& path)
{
    return u"file:///"_s + QString(path).replace(u' ', u"%20"_s);
}

void Form2::Form2_doc_Click()
{
    const QString& folder = m_services.module.ApplicationFolder;
    const QString name =
        m_services.module.Language == Int16(1) ? u"\\help_eng.htm"_s : u"\\help_rus.htm"_s;
    WriteIni(u"InternetShortcut"_s, u"URL"_s, shortcutAddress(programFile(folder, name)),
             programFile(folder, u"\\help.url"_s));
    // The shortcut's text is no address that an opener here would understand.
    if (!openAddress(QUrl::fromLocalFile(installedFile(folder, name)))) {
        qCInfo(logDesktop, "this desktop has nothing that opens the documentation");
    }
}

void Form2::Form2_tu_Click()
{
    startCompanion(m_services.module.ApplicationFolder, u"\\tutorial.exe"_s);
}

void Form2::Form2_cdc_Click()
{
    constexpr qsizetype kMost = 1000; // an environment holds no list of any length
    QStringList open = m_services.module.playlist.documents();
    if (open.size() > kMost) {
        qCInfo(logDesktop, "too many packets are open to name them all");
        open.clear();
    }
    startCompanion(m_services.module.ApplicationFolder, u"\\cdcreate.exe"_s, open);
}

void Form2::Form2_add_Click(int entry)
{
    const QString path = m_services.module.settings().addInPath(entry + 1);
    minimiseFirstWindow(startCompanion(m_services.module.ApplicationFolder, u'\\' + path));
}

void Form2::Form2_ab_Click()
{
    m_services.showAbout();
}

} // namespace orvanta
