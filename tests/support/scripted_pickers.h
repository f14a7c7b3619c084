// Pickers without a window.
#pragma once

#include "model/module1.h"
#include "model/pickers.h"

#include <functional>

namespace orvanta {

/// Answers at once with what the test has laid out.
class ScriptedPickers : public Pickers
{
public:
    explicit ScriptedPickers(Module1& module)
        : m_module(module)
    {}

    QStringList answer; // the files that the user chooses; none: cancelled
    QString saveAnswer; // empty: cancelled
    std::function<void()> whileOpen = [] {};

    QStringList calls; // "open *.vxl", "open several *.avi;*.mp3", "save *.vxl"

    void ShowOpenPicker(const QString& pattern, bool several) override
    {
        calls.append((several ? QStringLiteral("open several ") : QStringLiteral("open ")) +
                     pattern);
        whileOpen();
        m_module.picker.PickedFiles = QStringList{QString()} + answer;
    }
    void ShowSavePicker(const QString& pattern) override
    {
        calls.append(QStringLiteral("save ") + pattern);
        m_module.picker.SaveFileName = saveAnswer;
    }

private:
    Module1& m_module;
};

} // namespace orvanta
