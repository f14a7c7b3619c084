#include "core/ini.h"

#include "core/ini_cache.h"
#include "core/ini_memory.h"
#include "core/log.h"

#include <cerrno>
#include <cstring>
#include <mutex>

namespace orvanta {

using Change = IniDocument::Change;

/// Guards the cache. Recursive: a plan of changeIniAtOnce may read other files.
static std::recursive_mutex& cacheMutex()
{
    static std::recursive_mutex mutex;
    return mutex;
}

static IniCache& cache()
{
    static IniCache files;
    return files;
}

static QString withoutOuterBlanks(const QString& text)
{
    const bool hasNone = !text.startsWith(u' ') && !text.endsWith(u' ');
    if (hasNone) {
        return text;
    }
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == u' ') {
        ++begin;
    }
    while (end > begin && text[end - 1] == u' ') {
        --end;
    }
    return text.mid(begin, end - begin);
}

static QString asReadIniGives(const QString& raw, const QString& defaultText)
{
    if (raw.isEmpty()) {
        return defaultText;
    }
    return withoutOuterBlanks(raw.left(raw.indexOf(QChar())));
}

QString ReadIni(const QString& section, const QString& key, const QString& file,
                const QString& defaultText)
{
    return asReadIniGives(readIniRaw(section, key, file), defaultText);
}

QString readIniRaw(const QString& section, const QString& key, const QString& file)
{
    const std::lock_guard lock(cacheMutex());
    const std::shared_ptr<const IniDocument> document = cache().current(file);
    return document ? document->value(section, key) : QString();
}

IniSnapshot::IniSnapshot(const QString& file)
{
    const std::lock_guard lock(cacheMutex());
    m_document = cache().current(file);
}

QString IniSnapshot::read(const QString& section, const QString& key,
                          const QString& defaultText) const
{
    const std::lock_guard lock(cacheMutex());
    return m_document ? asReadIniGives(m_document->value(section, key), defaultText) : defaultText;
}

void WriteIni(const QString& section, const QString& key, const QString& value, const QString& file)
{
    (void)tryWriteIni(section, key, value, file);
}

static bool saysWhy(const QString& file)
{
    qCInfo(logErrors, "cannot write %s: %s", qUtf8Printable(file), strerror(errno));
    return false;
}

static bool canHold(const QString& key)
{
    const bool holds = IniDocument::holdsKey(key);
    if (!holds) {
        qCInfo(logErrors, "a key that begins with [ cannot be written: %s", qUtf8Printable(key));
    }
    return holds;
}

/// Brings the document's change to the disk. size: the bytes that the file had before.
static bool commit(const IniDocument& document, Change change, qsizetype size, IniFile& file)
{
    return change == Change::Appended
               ? file.append(size, QByteArrayView(document.fileBytes()).sliced(size))
               : file.replaceWith(document.fileBytes());
}

/// Locks the file, lets the function change its document and commits what it says has changed.
template <typename MakeChange>
static bool changeFile(const QString& path, const MakeChange& makeChange)
{
    const std::lock_guard lock(cacheMutex());
    std::optional<IniFile> file = cache().openToChange(path);
    if (!file) {
        return saysWhy(path);
    }
    const std::shared_ptr<IniDocument> document = cache().take(path, *file);
    if (!document) {
        return false;
    }
    const qsizetype size = document->fileBytes().size();
    const Change change = makeChange(*document);
    if (change == Change::None) {
        cache().giveBack(path, document);
        return true;
    }
    if (!commit(*document, change, size, *file)) {
        return saysWhy(path);
    }
    cache().keep(path, document, *file);
    return true;
}

bool tryWriteIni(const QString& section, const QString& key, const QString& value,
                 const QString& file)
{
    return canHold(key) && changeFile(file, [&](IniDocument& document) {
               return document.set(section, key, value);
           });
}

/// Several changes are one replacement, even where each could be appended.
static Change makeAll(IniDocument& document, const std::vector<IniChange>& changes)
{
    bool isChanged = false;
    for (const IniChange& change : changes) {
        if (canHold(change.key)) {
            const Change made = document.set(change.section, change.key, change.value);
            isChanged = isChanged || made != Change::None;
        }
    }
    return isChanged ? Change::Rewritten : Change::None;
}

bool changeIniAtOnce(
    const QString& file,
    const std::function<std::vector<IniChange>(
        const std::function<QString(const QString& section, const QString& key)>& read)>& plan)
{
    return changeFile(file, [&](IniDocument& document) {
        return makeAll(document, plan([&](const QString& section, const QString& key) {
                           return asReadIniGives(document.value(section, key), {});
                       }));
    });
}

bool canWriteIni(const QString& file)
{
    return changeIniAtOnce(file, [](const auto&) { return std::vector<IniChange>(); });
}

void forgetIni(const QString& file)
{
    const std::lock_guard lock(cacheMutex());
    cache().forget(file);
}

bool isIniInMemory(const QString& file)
{
    const std::lock_guard lock(cacheMutex());
    return cache().holds(file);
}

void setLegacyCodePage(const QString& name)
{
    const std::lock_guard lock(cacheMutex());
    CodePage::choose(name);
    cache().clear();
}

} // namespace orvanta
