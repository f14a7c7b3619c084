#include "editors/program_pickers.h"

#include "editors/form10_save_picker.h"
#include "editors/form7_open_picker.h"

#include <QApplication>

#include <utility>

namespace orvanta {

ProgramPickers::ProgramPickers(Module1& module, HandlerBoundary boundary)
    : m_module(module),
      m_boundary(std::move(boundary))
{}

static QWidget* windowInUse()
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

static bool showPicker(QDialog& picker, QSize& rememberedSize)
{
    if (rememberedSize.isValid()) {
        picker.resize(rememberedSize);
    }
    const int result = picker.exec();
    rememberedSize = picker.size();
    return result == QDialog::Accepted;
}

bool ProgramPickers::ShowOpenPicker(const QString& pattern, bool severalFiles)
{
    Form7 picker(m_module, m_boundary, pattern, severalFiles, windowInUse());
    return showPicker(picker, m_openSize);
}

void ProgramPickers::ShowSavePicker(const QString& pattern, const QString& proposedName)
{
    Form10 picker(m_module, m_boundary, pattern, proposedName, windowInUse());
    showPicker(picker, m_saveSize);
}

} // namespace orvanta
