#include "tests/architecture/floor_rules.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <QRegularExpression>

#include <array>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct Floor
{
    QStringView folder; // with its separator
    int level;          // 1 is the lowest; 0: outside the house
};

// The more exact folder stands first.
constexpr std::array kFloors{
    Floor{u"core/", 1},          Floor{u"platform/", 2}, Floor{u"player/model/", 3},
    Floor{u"playback/", 4},      Floor{u"editors/", 5},  Floor{u"system/", 5},
    Floor{u"player/window/", 5}, Floor{u"player/", 6},
};

constexpr Floor kOutside{u"", 0};
constexpr int kFirstFloorOfWindows = 5;

Floor floorOf(const QString& path)
{
    for (const Floor& floor : kFloors) {
        if (path.startsWith(floor.folder)) {
            return floor;
        }
    }
    return kOutside;
}

/// The windows and surfaces that live on the lower floors.
bool isWindowSource(const QString& path)
{
    static const QRegularExpression names(u"^(form[0-9]+_|video_surface|gl_)"_s);
    return names.match(QFileInfo(path).fileName()).hasMatch();
}

bool mayUseWidgets(const QString& file)
{
    return floorOf(file).level >= kFirstFloorOfWindows || isWindowSource(file);
}

/// Whether a header belongs to a Qt module ("QtWidgets"), written with or without the module.
bool belongsTo(const QString& module, const QString& header)
{
    if (header.startsWith(module + u'/')) {
        return true;
    }
    const QString folder = QLibraryInfo::path(QLibraryInfo::HeadersPath);
    return QFileInfo::exists(folder + u'/' + module + u'/' + header);
}

QString complaintAboutFloor(const QString& file, const QString& included)
{
    const Floor own = floorOf(file);
    const Floor other = floorOf(included);
    if (other.level > own.level) {
        return u"is on a floor above"_s;
    }
    if (other.level == own.level && other.folder != own.folder) {
        return u"is another room on the same floor"_s;
    }
    if (!mayUseWidgets(file) && isWindowSource(included)) {
        return u"is a window, and this file is tested without windows"_s;
    }
    return {};
}

QString complaintAboutLibrary(const QString& file, const QString& header)
{
    if (belongsTo(u"QtWidgets"_s, header) && !mayUseWidgets(file)) {
        return u"is of Qt Widgets, and this file is tested without windows"_s;
    }
    if (header.startsWith(u"mpv/"_s) && !file.startsWith(u"platform/"_s)) {
        return u"is of the player library, which only platform knows"_s;
    }
    if (file.startsWith(u"core/"_s) && header.startsWith(u'Q') && !belongsTo(u"QtCore"_s, header)) {
        return u"is not of Qt Core"_s;
    }
    return {};
}

} // namespace

QString complaintAbout(const QString& file, const Include& include)
{
    if (floorOf(file).level == 0) {
        return {};
    }
    return include.isQuoted ? complaintAboutFloor(file, include.name)
                            : complaintAboutLibrary(file, include.name);
}

} // namespace orvanta::test
