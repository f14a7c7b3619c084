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

    QStringList answer;         // the files that the user chooses; none: cancelled
    QString saveAnswer;         // empty: cancelled
    bool closedByFrame = false; // the open picker gives nothing and leaves what was picked before
    std::function<void()> whileOpen = [] {};

    QStringList proposals; // the names that save pickers were shown with; empty for their own
    QStringList calls;     // "open *.vxl", "open several *.avi;*.mp3", "save *.vxl"

    bool ShowOpenPicker(const QString& pattern, bool several) override
    {
        calls.append((several ? QStringLiteral("open several ") : QStringLiteral("open ")) +
                     pattern);
        whileOpen();
        if (closedByFrame) {
            return false;
        }
        m_module.picker.PickedFiles = QStringList{QString()} + answer;
        return !answer.isEmpty();
    }
    void ShowSavePicker(const QString& pattern, const QString& proposedName) override
    {
        proposals.append(proposedName);
        calls.append(QStringLiteral("save ") + pattern);
        m_module.picker.SaveFileName = saveAnswer;
    }

private:
    Module1& m_module;
};

} // namespace orvanta
