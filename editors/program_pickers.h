// The program's own pickers, as their callers see them.
#pragma once

#include "core/error_boundary.h"
#include "model/module1.h"
#include "model/pickers.h"

#include <QSize>

class QDialog;

namespace orvanta {

/// Shows Form7 and Form10 modally, over the window that is in use. Their sizes are remembered for
/// the run.
class ProgramPickers : public Pickers
{
public:
    ProgramPickers(Module1& module, HandlerBoundary boundary);

    bool ShowOpenPicker(const QString& pattern, bool severalFiles) override;
    void ShowSavePicker(const QString& pattern, const QString& proposedName = {}) override;

private:
    Module1& m_module;
    HandlerBoundary m_boundary;
    QSize m_openSize; // empty before the first use
    QSize m_saveSize;
};

} // namespace orvanta
