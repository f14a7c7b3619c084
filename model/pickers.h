// The open and save pickers as their callers see them.
#pragma once

#include <QString>

namespace orvanta {

/// Results go to Module1's PickedFiles and SaveFileName.
class Pickers
{
public:
    virtual ~Pickers() = default;
    /// pattern: "*.vxl;*.vxg". Modal. The caller reads PickedFiles from entry 1.
    virtual void ShowOpenPicker(const QString& pattern, bool severalFiles) = 0;
    /// Modal. The caller reads SaveFileName; empty when nothing was chosen.
    virtual void ShowSavePicker(const QString& pattern) = 0;
};

} // namespace orvanta
