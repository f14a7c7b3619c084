// The main window's menu "create": the editors, and opening what they have made.
#include "core/log.h"
#include "model/loaders.h"
#include "window/form2_main_window.h"

#include <QFile>

namespace orvanta {

void Form2::Form2_cp_Click()
{
    openFromEditor(m_services.showPacketEditor, OpenPacket);
}

void Form2::Form2_cg_Click()
{
    openFromEditor(m_services.showGroupEditor, OpenGroup);
}

/// The playlist keeps no reference to the temporary file.
void Form2::openFromEditor(const std::function<QString()>& showEditor,
                           void (*load)(PlaylistState&, const QString&))
{
    const QString file = showEditor();
    if (file.isEmpty()) {
        return;
    }
    PlaylistState& playlist = m_services.module.playlist;
    open([&] {
        load(playlist, file);
        playlist.Document.clear(); // nothing that could be opened again
    });
    if (!QFile::remove(file)) {
        qCWarning(logDesktop) << "the editor's temporary file stays:" << file;
    }
}

} // namespace orvanta
