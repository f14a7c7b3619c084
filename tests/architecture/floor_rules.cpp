#include "tests/architecture/floor_rules.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct Floor
{
    QStringView folder; // with its separator
    int level;          // 1 is the lowest; 0: outside the house
};

constexpr std::array kFloors{
    Floor{u"core/", 1},
    Floor{u"platform/process/", 2},
    Floor{u"platform/file_types/", 2},
    Floor{u"platform/media/", 2},
    Floor{u"platform/screen/", 2},
    Floor{u"model/", 3},
    Floor{u"playback/", 4},
    Floor{u"window/", 5},
    Floor{u"editors/", 5},
    Floor{u"system/", 5},
    Floor{u"app/", 6},
    Floor{u"companions/", 6},
};

// Doors between rooms of one floor: the left one may include the right one.
constexpr std::array kDoors{
    std::pair{QStringView(u"platform/file_types/"), QStringView(u"platform/process/")},
};

// Libraries of which one room alone knows.
struct Keeper
{
    QStringView header; // how its headers begin
    QStringView room;
    QStringView complaint;
};

constexpr std::array kKeepers{
    Keeper{u"mpv/", u"platform/media/", u"is of the player library"},
    Keeper{u"libav", u"platform/media/", u"is of the codec libraries"},
    Keeper{u"xcb/", u"platform/screen/", u"is of the X server's protocol"},
    Keeper{u"libwmf/", u"platform/file_types/", u"is of the metafile library"},
    Keeper{u"QSvg", u"platform/file_types/", u"draws vector pictures"},
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

bool hasDoor(const Floor& from, const Floor& to)
{
    return std::find(kDoors.begin(), kDoors.end(), std::pair{from.folder, to.folder}) !=
           kDoors.end();
}

/// The windows and surfaces that live on the lower floors.
bool isWindowSource(const QString& path)
{
    static const QRegularExpression names(u"^(form[0-9]+_|overlay_|video_surface|gl_|check_list|"
                                          u"control_rows|spoken_focus|window_roles|"
                                          u"announcement|outlined_indicators|"
                                          u"command_menu|track_menus)"_s);
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
    if (other.level == own.level && other.folder != own.folder && !hasDoor(own, other)) {
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
    for (const Keeper& keeper : kKeepers) {
        if (header.startsWith(keeper.header) && !file.startsWith(keeper.room)) {
            return u"%1, of which only %2 knows"_s.arg(keeper.complaint, keeper.room);
        }
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
