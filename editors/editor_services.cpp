#include "editors/editor_services.h"

#include "core/paths.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "platform/file_types/registry.h"

namespace orvanta {

using namespace Qt::StringLiterals;

static void showModally(QDialog& editor, QSize& rememberedSize)
{
    if (rememberedSize.isValid()) {
        editor.resize(rememberedSize);
    }
    editor.exec();
    rememberedSize = editor.size();
}

/// EditorDone is never taken back, so it may stem from an editor that was open earlier.
static QString fileToOpen(const Module1& module, const QString& name)
{
    const QString file = programFile(module.ApplicationFolder, name);
    return module.EditorDone && FileExists(file) ? file : QString();
}

EditorOutcome showPacketEditor(EditorServices& services, QWidget* parent)
{
    bool hasPausedPlayer = false;
    {
        Form5 editor(services, parent);
        showModally(editor, services.packetEditorSize);
        hasPausedPlayer = editor.hasPausedPlayer();
    }
    EditorOutcome outcome{fileToOpen(services.module, u"\\temp.vxl"_s)};
    if (hasPausedPlayer && outcome.fileToOpen.isEmpty()) {
        services.resumePlayer();
    }
    return outcome;
}

EditorOutcome showGroupEditor(EditorServices& services, QWidget* parent)
{
    Form6 editor(services, parent);
    showModally(editor, services.groupEditorSize);
    return {fileToOpen(services.module, u"\\temp.vxg"_s)};
}

} // namespace orvanta
