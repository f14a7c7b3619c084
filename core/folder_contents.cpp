#include "core/folder_contents.h"

#include "core/log.h"

#include <QCollator>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// One item of a pattern list. Nearly all are "*.ext", which 20,000 names meet quickest as text.
struct NamePattern
{
    explicit NamePattern(const QString& pattern)
    {
        const QString tail = pattern.mid(1);
        if (pattern.startsWith(u'*') && !tail.contains(QRegularExpression(u"[*?\\[\\]]"_s))) {
            ending = tail;
        } else {
            wildcard = QRegularExpression::fromWildcard(pattern, Qt::CaseInsensitive);
        }
    }

    [[nodiscard]] bool matches(const QString& name) const
    {
        return wildcard ? wildcard->match(name).hasMatch()
                        : name.endsWith(ending, Qt::CaseInsensitive);
    }

    QString ending;
    std::optional<QRegularExpression> wildcard;
};

using NamePatterns = std::vector<NamePattern>;

} // namespace

static NamePatterns patternsOf(const QString& list)
{
    NamePatterns patterns;
    for (const QString& pattern : list.split(u';', Qt::SkipEmptyParts)) {
        patterns.emplace_back(pattern);
    }
    return patterns;
}

static bool matchesAny(const NamePatterns& patterns, const QString& name)
{
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const NamePattern& pattern) { return pattern.matches(name); });
}

/// Null for a name that no text can hold.
static QString textOfName(const std::string& bytes)
{
    const QByteArray raw = QByteArray::fromStdString(bytes);
    QString text = QFile::decodeName(raw);
    if (QFile::encodeName(text) == raw) {
        return text;
    }
    qCInfo(logErrors) << "a file name that is no text is left out:" << raw;
    return {};
}

static bool isShown(const QString& name)
{
    return !name.isEmpty() && !name.startsWith(u'.');
}

/// Calls visit with each entry whose name can be shown. A folder that cannot be read has none.
template <typename Visit> static void forEachEntry(const QString& folder, Visit visit)
{
    using std::filesystem::directory_iterator;
    const auto options = std::filesystem::directory_options::skip_permission_denied;
    std::error_code error;
    directory_iterator entry(QFile::encodeName(folder).toStdString(), options, error);
    for (; !error && entry != directory_iterator(); entry.increment(error)) {
        const QString name = textOfName(entry->path().filename().string());
        if (isShown(name)) {
            visit(*entry, name);
        }
    }
}

namespace {

struct SortedName
{
    QCollatorSortKey key;
    QString name;

    friend bool operator<(const SortedName& a, const SortedName& b)
    {
        const int order = a.key.compare(b.key);
        return order != 0 ? order < 0 : a.name < b.name;
    }
};

} // namespace

static QCollator naturalOrder()
{
    // The C locale has no rules for people; its users get those of English.
    const QLocale user;
    QCollator order(user.language() == QLocale::C ? QLocale(QLocale::English) : user);
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    return order;
}

void sortNaturally(QStringList& names)
{
    const QCollator order = naturalOrder();
    std::vector<SortedName> sorted;
    sorted.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        sorted.push_back({.key = order.sortKey(name), .name = name});
    }
    std::sort(sorted.begin(), sorted.end());
    std::transform(sorted.begin(), sorted.end(), names.begin(),
                   [](const SortedName& item) { return item.name; });
}

QStringList namesOfFiles(const QString& folder, const QString& pattern)
{
    const NamePatterns patterns = patternsOf(pattern);
    QStringList names;
    forEachEntry(folder, [&](const auto& entry, const QString& name) {
        std::error_code ignored;
        if (matchesAny(patterns, name) && entry.is_regular_file(ignored)) {
            names.append(name);
        }
    });
    sortNaturally(names);
    return names;
}

QStringList namesOfFolders(const QString& folder)
{
    QStringList names;
    forEachEntry(folder, [&](const auto& entry, const QString& name) {
        std::error_code ignored;
        if (entry.is_directory(ignored)) {
            names.append(name);
        }
    });
    sortNaturally(names);
    return names;
}

} // namespace orvanta
