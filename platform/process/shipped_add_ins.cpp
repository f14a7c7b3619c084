#include "platform/process/shipped_add_ins.h"

#include "core/ini.h"
#include "core/log.h"
#include "platform/process/application_folder.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kSection = u"add-ins"_s;
static const QString kMark = u"shipped"_s;

using ReadKey = std::function<QString(const QString& section, const QString& key)>;

/// What every version has put into new settings, and nobody has reason to write by hand.
static bool isOurOwn(const ReadKey& read)
{
    const std::array keys = {std::pair(u"options"_s, u"ws"_s), std::pair(u"options"_s, u"nc"_s),
                             std::pair(u"save"_s, u"volume"_s), std::pair(u"save"_s, u"balance"_s),
                             std::pair(u"types"_s, u"num"_s)};
    return std::all_of(keys.begin(), keys.end(), [&](const auto& place) {
        return !read(place.first, place.second).isEmpty();
    });
}

/// The mark among them.
static std::vector<IniChange> shippedAddIns()
{
    std::vector<IniChange> changes;
    bool isWithin = false;
    const QString defaults = QString::fromUtf8(defaultSettings());
    for (const QString& line : defaults.split(u"\r\n"_s, Qt::SkipEmptyParts)) {
        if (line.startsWith(u'[')) {
            isWithin = line == u'[' + kSection + u']';
        } else if (isWithin) {
            changes.push_back({kSection, line.section(u'=', 0, 0), line.section(u'=', 1)});
        }
    }
    return changes;
}

/// Earlier versions have written the number alone.
static bool isUntouched(const ReadKey& read, const std::vector<IniChange>& shipped)
{
    return read(kSection, u"num"_s) == u"0" &&
           std::all_of(shipped.begin(), shipped.end(), [&](const IniChange& row) {
               return row.key == u"num" || read(kSection, row.key).isEmpty();
           });
}

void bringShippedAddIns(const QString& iniPath)
{
    const IniSnapshot settings(iniPath);
    const auto readNow = [&](const QString& section, const QString& key) {
        return settings.read(section, key);
    };
    if (!settings.read(kSection, kMark).isEmpty() || !isOurOwn(readNow)) {
        return;
    }
    const std::vector<IniChange> shipped = shippedAddIns();
    const bool isDone = changeIniAtOnce(iniPath, [&](const ReadKey& read) {
        return isUntouched(read, shipped) ? shipped
                                          : std::vector<IniChange>{{kSection, kMark, u"1"_s}};
    });
    if (!isDone) {
        qCInfo(logErrors, "the add-ins cannot be written into %ls", qUtf16Printable(iniPath));
    }
}

} // namespace orvanta
