#include "player/window/stand_in_pickers.h"

#include "core/ini.h"
#include "core/paths.h"
#include "player/model/texts.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// The toolkit's own dialog everywhere: a desktop's native one would bring its filters and its
// memory of folders along.
void prepare(QFileDialog& dialog, QStringView window, const QString& pattern, const QString& folder)
{
    dialog.setWindowTitle(interfaceText(window, window, TextLanguage::English));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setNameFilter(u"(%1)"_s.arg(pattern.split(u';', Qt::SkipEmptyParts).join(u' ')));
    dialog.setDirectory(folder);
}

QStringList inListOrder(QStringList files)
{
    std::sort(files.begin(), files.end(), [](const QString& a, const QString& b) {
        const int order = QString::compare(a, b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    return files;
}

} // namespace

StandInPickers::StandInPickers(Module1& module)
    : m_module(module)
{}

QString StandInPickers::storedFolder() const
{
    const QString folder = ReadIni(u"save"_s, u"open"_s, m_module.IniPath);
    return QDir(folder).exists() && !folder.isEmpty() ? folder : QDir::homePath();
}

void StandInPickers::storeFolder(const QString& folder) const
{
    WriteIni(u"save"_s, u"open"_s, folder, m_module.IniPath);
}

void StandInPickers::ShowOpenPicker(const QString& pattern, bool severalFiles)
{
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, u"Form7", pattern, storedFolder());
    dialog.setFileMode(severalFiles ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    const bool chosen = dialog.exec() == QDialog::Accepted;
    m_module.picker.PickedFiles = {QString()};
    if (chosen) {
        storeFolder(dialog.directory().absolutePath());
        m_module.picker.PickedFiles += inListOrder(dialog.selectedFiles());
    }
}

void StandInPickers::ShowSavePicker(const QString& pattern)
{
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, u"Form10", pattern, storedFolder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    m_module.picker.SaveFileName.clear();
    if (dialog.exec() == QDialog::Accepted) {
        storeFolder(dialog.directory().absolutePath());
        m_module.picker.SaveFileName = dialog.selectedFiles().value(0) + pattern.mid(1);
    }
}

} // namespace orvanta
