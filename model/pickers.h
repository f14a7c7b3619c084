// The open and save pickers as their callers see them.
#pragma once

#include <QString>

namespace orvanta {

/// Of the pictures that packets can have.
inline constexpr QStringView kPicturePattern = u"*.bmp;*.jpg;*.jpeg;*.gif;*.wmf;*.ico;*.png;*.webp";

/// Results go to Module1's PickedFiles and SaveFileName.
class Pickers
{
public:
    virtual ~Pickers() = default;
    /// pattern: "*.vxl;*.vxg". Modal. True when this showing picked: only then the caller reads
    /// PickedFiles, from entry 1. A picker closed by its frame leaves there what an earlier one
    /// gave.
    virtual bool ShowOpenPicker(const QString& pattern, bool severalFiles) = 0;
    /// Modal. The caller reads SaveFileName; empty when nothing was chosen. proposedName: without
    /// extension; empty for the picker's own.
    virtual void ShowSavePicker(const QString& pattern, const QString& proposedName) = 0;
};

} // namespace orvanta
