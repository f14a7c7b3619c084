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

static void showPicker(QDialog& picker, QSize& rememberedSize)
{
    if (rememberedSize.isValid()) {
        picker.resize(rememberedSize);
    }
    picker.exec();
    rememberedSize = picker.size();
}

void ProgramPickers::ShowOpenPicker(const QString& pattern, bool severalFiles)
{
    Form7 picker(m_module, m_boundary, pattern, severalFiles, windowInUse());
    showPicker(picker, m_openSize);
}

void ProgramPickers::ShowSavePicker(const QString& pattern)
{
    Form10 picker(m_module, m_boundary, pattern, windowInUse());
    showPicker(picker, m_saveSize);
}

} // namespace orvanta
