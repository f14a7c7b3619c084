#include "window/missing_clips.h"

#include "core/heap.h"
#include "window/edit_notice.h"
#include "window/playlist_list.h"

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

// Several changes of the list that follow each other are checked once.
constexpr int kSoonMs = 50;
constexpr std::size_t kManyFiles = 500;

MissingClips::MissingClips(MissingClipsPorts ports, QObject* parent)
    : QObject(parent),
      m_ports(std::move(ports))
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoonMs);
    connect(&m_soon, &QTimer::timeout, this, m_ports.boundary([this](auto&&...) { check(); }));
    connect(m_ports.list.model(), &QAbstractItemModel::modelReset, this, [this] {
        m_busy = true;
        m_soon.start();
    });
}

void MissingClips::playlistShown()
{
    m_saysIt = true;
    m_busy = true;
    if (!m_said.isEmpty() && m_ports.notice.text() == m_said) {
        m_ports.notice.clear();
    }
    m_soon.start();
}

void MissingClips::check()
{
    auto files = namedFiles(m_ports.module.playlist);
    const int revision = m_ports.module.playlist.revision;
    m_job.start(*this, [this, revision, files = std::move(files)](JobLink& link) {
        auto missing = missingFiles(files, [&link] { return !link.isStopped(); });
        if (files.size() > kManyFiles) {
            giveFreeMemoryBack(); // of the reading of what has just been opened
        }
        link.deliver([this, revision, missing = std::move(missing)]() mutable {
            take(revision, std::move(missing));
        });
    });
}

void MissingClips::take(int revision, std::vector<MissingFile> missing)
{
    if (revision != m_ports.module.playlist.revision) {
        return m_soon.start();
    }
    m_busy = false;
    m_missing = std::move(missing);
    resumeNext("signs of missing clips", [this] { showInList(); });
    if (std::exchange(m_saysIt, false) && !m_missing.empty()) {
        say();
    }
    Q_EMIT checked();
}

QString MissingClips::reasonOf(const MissingFile& file) const
{
    return text(file.isRefused ? u"refusedFile" : u"missingFile").arg(file.file.text);
}

void MissingClips::showInList()
{
    QHash<int, QString> reasons;
    const std::vector<TreeLine>& lines = m_ports.list.lines();
    for (const MissingFile& file : m_missing) {
        const Int16 number = Int16(qint64(file.file.packet));
        const int header = headerLine(lines, number);
        const PlaylistEntry& packet = m_ports.module.playlist.packet(number);
        const bool isWhole = file.file.clip == 0;
        const int last = isWhole ? packet.ClipCount.value() : file.file.clip;
        for (int line = isWhole ? 0 : last; header >= 0 && line <= last; ++line) {
            reasons.insert(header + line, reasonOf(file));
        }
    }
    m_ports.list.setMissing(std::move(reasons));
}

static qsizetype countOf(const std::vector<NamedFile>& files, bool packets)
{
    return std::count_if(files.begin(), files.end(),
                         [=](const NamedFile& file) { return file.isPacket == packets; });
}

/// Of packets that are missing nobody knows the clips.
QString MissingClips::summary() const
{
    std::vector<NamedFile> missing;
    for (const MissingFile& one : m_missing) {
        missing.push_back(one.file);
    }
    const bool packets = countOf(missing, true) > 0;
    return text(packets ? u"missingPackets" : u"missingClips")
        .arg(countOf(missing, packets))
        .arg(countOf(namedFiles(m_ports.module.playlist), packets));
}

/// Unless something about unsaved changes stands there: that is more urgent.
void MissingClips::say()
{
    const QString there = m_ports.notice.text();
    if (!there.isEmpty() && there != m_said) {
        return;
    }
    m_said = summary();
    m_ports.notice.say(
        m_said, {{text(u"look"), m_ports.boundary([this] { look(); })}, {text(u"leave"), [] {}}});
}

void MissingClips::look()
{
    const QString folder = m_ports.askFolder();
    if (folder.isEmpty()) {
        return say();
    }
    lookBelow(folder);
}

void MissingClips::lookBelow(const QString& folder)
{
    m_busy = true;
    m_said = text(u"looking").arg(folder);
    m_ports.notice.say(m_said, {});
    m_job.start(*this, [this, folder, missing = m_missing](JobLink& link) {
        const auto moved = foldersMovedTo(folder, missing, [&link] { return !link.isStopped(); });
        link.deliver([this, moved] { takeMoved(moved); });
    });
}

void MissingClips::takeMoved(const std::vector<MovedFolder>& moved)
{
    if (m_ports.notice.text() == m_said) {
        m_ports.notice.clear();
    }
    if (moved.empty()) {
        m_busy = false;
        m_said = text(u"notThere");
        m_ports.notice.say(m_said, {{text(u"look"), m_ports.boundary([this] { look(); })},
                                    {text(u"leave"), [] {}}});
        return Q_EMIT checked();
    }
    for (const MovedFolder& folder : moved) {
        if (!rememberMoved(folder)) {
            qCInfo(logErrors, "where a folder has moved to is not kept");
        }
    }
    const bool lacksPackets = std::any_of(m_missing.begin(), m_missing.end(),
                                          [](const MissingFile& one) { return one.file.isPacket; });
    m_saysIt = true;
    if (const QString document = m_ports.module.playlist.Document;
        lacksPackets && !document.isEmpty()) {
        return m_ports.reopen(document);
    }
    m_soon.start();
}

QString MissingClips::text(QStringView name) const
{
    return interfaceText(u"Files", name, m_ports.language);
}

} // namespace orvanta
