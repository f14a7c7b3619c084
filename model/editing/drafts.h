// Changes that were not saved, kept on the disk: one draft for each document, and
// those that were set aside.
#pragma once

#include "model/module1.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

namespace orvanta {

struct DraftInfo
{
    QString document; // path of the packet or group; empty: what was open had none
    QDateTime kept;   // when its last change was written, local time
};

/// In the folder "drafts" of the application folder. Nothing is cached. Interface thread only.
class Drafts
{
public:
    explicit Drafts(const QString& applicationFolder);

    /// Keeps what is open, as a document is written: whole or not at all. Packets that are as
    /// saved are named only. Returns false, with a line in the log, where it cannot be kept.
    [[nodiscard]] bool keep(const PlaylistState& playlist,
                            const std::vector<PlaylistEntry>& saved) const;
    void discard(const QString& document) const;
    /// Discards the newest draft where it says what the document says: the program ended between
    /// saving and this. The playlist is as it was read.
    void discardWhatIsSaved(const PlaylistState& playlist) const;
    /// The document's draft is of an earlier time, and nobody has taken it: the next one is kept
    /// beside it, not in its place.
    void setAside(const QString& document) const;
    /// The document's newest draft is gone on with: what is kept next takes its place.
    void takeUp(const QString& document) const;

    /// The newest one.
    [[nodiscard]] std::optional<DraftInfo> of(const QString& document) const;
    /// All there are, the newest first.
    [[nodiscard]] std::vector<DraftInfo> all() const;

    /// The packets of the document's newest draft. Those that are named only come from the playlist
    /// when they are open, else from their files. None where there is no draft, or a spoilt one,
    /// which the log says.
    [[nodiscard]] std::optional<std::vector<PlaylistEntry>>
    packets(const QString& document, const PlaylistState& playlist) const;

private:
    [[nodiscard]] QString fileOf(const QString& document) const;
    [[nodiscard]] QString fileAside(const QString& document, int number) const;
    [[nodiscard]] int countAside(const QString& document) const;
    [[nodiscard]] QString newestFile(const QString& document) const;

    QString m_folder;
};

} // namespace orvanta
