#include "core/ini_cache.h"

#include "core/log.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace orvanta {

constexpr std::size_t kMostFiles = 4;

IniCache::Entry& IniCache::entryOf(const QString& path)
{
    auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                              [&](const Entry& other) { return other.path == path; });
    if (entry == m_entries.end()) {
        if (m_entries.size() == kMostFiles) {
            m_entries.pop_back();
        }
        m_entries.push_back({path, QFile::encodeName(path), {}, nullptr});
        entry = m_entries.end() - 1;
    }
    std::rotate(m_entries.begin(), entry, entry + 1);
    return m_entries.front();
}

bool IniCache::load(Entry& entry, const IniFile& file)
{
    entry.document = nullptr;
    std::optional<IniFile::Content> content = file.read();
    if (!content) {
        qCInfo(logErrors, "cannot read %s: %s", entry.nativePath.constData(), strerror(errno));
        return false;
    }
    entry.document = std::make_shared<IniDocument>(std::move(content->bytes));
    entry.state = content->state;
    return true;
}

std::shared_ptr<const IniDocument> IniCache::current(const QString& path)
{
    Entry& entry = entryOf(path);
    const std::optional<struct stat> there =
        entry.document && entry.state.isFinal ? statusOf(entry.nativePath) : std::nullopt;
    if (there && entry.state.isSameAs(*there)) {
        return entry.document;
    }
    entry.document = nullptr;
    if (const auto file = IniFile::open(entry.nativePath, IniFile::Access::Read)) {
        load(entry, *file);
    } else if (errno != ENOENT && errno != ENOTDIR) {
        qCInfo(logErrors, "cannot read %s: %s", entry.nativePath.constData(), strerror(errno));
    }
    return entry.document;
}

std::optional<IniFile> IniCache::openToChange(const QString& path)
{
    const Entry& entry = entryOf(path);
    return IniFile::open(entry.nativePath, IniFile::Access::Change,
                         entry.document ? IniFile::Kind::Regular : IniFile::Kind::Unknown);
}

std::shared_ptr<IniDocument> IniCache::take(const QString& path, const IniFile& file)
{
    Entry& entry = entryOf(path);
    const bool isCurrent =
        entry.document && entry.state.isFinal && entry.state.isSameAs(file.status());
    if (!isCurrent && !load(entry, file)) {
        return nullptr;
    }
    std::shared_ptr<IniDocument> document = std::move(entry.document);
    return document.use_count() == 1 ? document : std::make_shared<IniDocument>(*document);
}

void IniCache::giveBack(const QString& path, std::shared_ptr<IniDocument> document)
{
    entryOf(path).document = std::move(document);
}

void IniCache::forget(const QString& path)
{
    std::erase_if(m_entries, [&](const Entry& entry) { return entry.path == path; });
}

bool IniCache::holds(const QString& path) const
{
    return std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return entry.path == path && entry.document != nullptr;
    });
}

void IniCache::keep(const QString& path, std::shared_ptr<IniDocument> document, const IniFile& file)
{
    Entry& entry = entryOf(path);
    if (const std::optional<FileState> state = file.stateAfterWriting()) {
        entry.state = *state;
        entry.document = std::move(document);
    }
}

} // namespace orvanta
