#include "system/stored_types.h"

#include "core/ini.h"
#include "core/int16.h"
#include "core/log.h"
#include "core/numbers.h"

#include <utility>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString types()
{
    return u"types"_s;
}

static QString fileKey(int index)
{
    return u"file"_s + QString::number(index);
}

static QString ownerKey(int row)
{
    return QString::number(row) + u"reg"_s;
}

/// All of them in one replacement of the file; nothing when nothing changes.
static void writeTogether(const QString& iniPath, std::vector<IniChange> changes)
{
    const IniSnapshot settings(iniPath);
    std::erase_if(changes, [&](const IniChange& change) {
        return settings.read(change.section, change.key) == change.value;
    });
    if (!changes.empty() && !changeIniAtOnce(iniPath, [&](const auto&) { return changes; })) {
        qCInfo(logErrors, "%ls cannot be written", qUtf16Printable(iniPath));
    }
}

QStringList storedTypes(const QString& iniPath)
{
    const IniSnapshot settings(iniPath);
    const Int16 count = countValue(settings.read(types(), u"num"_s));
    QStringList extensions;
    for (int i = 0; i < count.value(); ++i) {
        extensions.append(settings.read(types(), fileKey(i)));
    }
    return extensions;
}

void appendStoredType(const QString& iniPath, const QString& type)
{
    const Int16 count = countValue(ReadIni(types(), u"num"_s, iniPath));
    const Int16 more = count + Int16(1);
    writeTogether(iniPath, {{types(), u"num"_s, QString::number(more.value())},
                            {types(), fileKey(count.value()), type}});
}

void storeRemainingTypes(const QString& iniPath, const QStringList& remaining)
{
    const Int16 count = countValue(ReadIni(types(), u"num"_s, iniPath)) - Int16(1);
    std::vector<IniChange> changes = {{types(), u"num"_s, QString::number(count.value())}};
    for (int i = 0; i < remaining.size(); ++i) {
        changes.push_back({types(), fileKey(i), remaining[i]});
    }
    writeTogether(iniPath, std::move(changes));
}

void saveOwners(const QString& iniPath, const QMap<int, QString>& owners)
{
    std::vector<IniChange> changes;
    for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner) {
        changes.push_back({types(), ownerKey(owner.key()), owner.value()});
    }
    writeTogether(iniPath, std::move(changes));
}

QString savedOwner(const QString& iniPath, int row)
{
    return ReadIni(types(), ownerKey(row), iniPath);
}

} // namespace orvanta
