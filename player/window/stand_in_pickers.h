// Pickers over the toolkit's own file dialog.
#pragma once

#include "player/model/module1.h"
#include "player/model/pickers.h"

namespace orvanta {

/// Modal. The last folder is kept under "save"/"open". Cancelling the open picker leaves
/// PickedFiles without entry 1, cancelling the save picker leaves SaveFileName empty.
class StandInPickers : public Pickers
{
public:
    explicit StandInPickers(Module1& module);

    void ShowOpenPicker(const QString& pattern, bool severalFiles) override;
    /// The pattern's extension is always appended, also to a name that ends in it.
    void ShowSavePicker(const QString& pattern) override;

private:
    [[nodiscard]] QString storedFolder() const;
    void storeFolder(const QString& folder) const;

    Module1& m_module;
};

} // namespace orvanta
