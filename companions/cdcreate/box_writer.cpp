#include "companions/cdcreate/box_writer.h"

#include "companions/cdcreate/box_documents.h"
#include "companions/cdcreate/box_forms.h"
#include "companions/cdcreate/box_place.h"
#include "companions/cdcreate/disc_drive.h"

#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

BoxKind boxKind(const QString& target)
{
    const auto endsIn = [&](QStringView ending) {
        return target.endsWith(ending, Qt::CaseInsensitive);
    };
    return endsIn(u".iso") ? BoxKind::Image : endsIn(u".zip") ? BoxKind::Zip : BoxKind::Folder;
}

/// Whether replacing what is at the target would take a file of the lesson away.
static bool holdsSource(const BoxPlan& plan, const QString& target)
{
    const QString there = QFileInfo(target).canonicalFilePath();
    const auto isThere = [&](const QString& source) {
        const QString file = QFileInfo(source).canonicalFilePath();
        return file == there || file.startsWith(there + u'/');
    };
    return !there.isEmpty() &&
           (std::any_of(plan.files.begin(), plan.files.end(),
                        [&](const BoxFile& file) { return isThere(file.source); }) ||
            std::any_of(plan.packets.begin(), plan.packets.end(),
                        [&](const BoxPacket& packet) { return isThere(packet.source); }));
}

static void requireLesson(const BoxPlan& plan, const BoxOrder& order)
{
    if (plan.packets.empty() || !plan.refused.isEmpty()) {
        throw BoxFailure(BoxProblem::NoLesson, plan.refused.value(0));
    }
    if (!plan.missing.empty() && !order.skipsMissing) {
        throw BoxFailure(BoxProblem::Missing, plan.missing.front().what.text);
    }
    const bool isFolder = boxKind(order.target) == BoxKind::Folder;
    const bool isFree =
        !order.drive.isEmpty() ||
        (!holdsSource(plan, order.target) && mayReplace(order.target, isFolder, order.replaces));
    if (!isFree) {
        throw BoxFailure(BoxProblem::Exists, order.target);
    }
}

/// Those of the forms that other systems' file managers read, too: FAT holds no larger files.
static bool isFat(const QStorageInfo& disk)
{
    return disk.fileSystemType() == "vfat" || disk.fileSystemType() == "msdos";
}

static void requireRoom(const BoxContents& contents, BoxKind kind, const QString& target)
{
    constexpr qint64 kPerFile = 4096; // what it takes beside its bytes, in any form
    constexpr qint64 kLargestOnFat = 0xFFFFFFFF;
    const QStorageInfo disk(QFileInfo(target).path());
    qint64 all = contents.fileBytes();
    qint64 largest = 0;
    for (const BoxDocument& document : contents.documents) {
        all += document.content.size();
    }
    for (const BoxFile& file : contents.files) {
        largest = std::max(largest, file.size);
    }
    if (isFat(disk) && (kind == BoxKind::Folder ? largest : all) > kLargestOnFat) {
        throw BoxFailure(BoxProblem::TooLarge, target);
    }
    const auto count = static_cast<qint64>(contents.files.size() + contents.documents.size());
    if (disk.isValid() && all + count * kPerFile > disk.bytesAvailable()) {
        throw BoxFailure(BoxProblem::NoRoom, target);
    }
}

static QStringList namesOfMissing(const BoxPlan& plan)
{
    QStringList names;
    for (const MissingPart& part : plan.missing) {
        names.append(part.name.isEmpty() ? part.what.text : part.name);
    }
    names.removeDuplicates();
    return names;
}

static BoxContents contentsOf(BoxPlan& plan, const std::vector<BoxExtra>& extras)
{
    BoxContents contents = {plan.title, plan.files, plan.documents};
    bool hasPage = false;
    for (const BoxExtra& extra : extras) {
        hasPage = hasPage || extra.nameInBox == u"index.html";
        if (extra.file.isEmpty()) {
            contents.documents.push_back({extra.nameInBox, extra.content});
        } else {
            contents.files.push_back({extra.file, extra.nameInBox, QFileInfo(extra.file).size()});
        }
    }
    contents.documents.push_back({plan.names.take({}, u"READ ME.txt"_s),
                                  readMe(plan.title, plan.group, namesOfMissing(plan), hasPage)});
    return contents;
}

static void writeForm(BoxKind kind, const BoxContents& contents, const BoxPlace& place,
                      BoxWork& work)
{
    switch (kind) {
    case BoxKind::Folder:
        return writeFolder(contents, place, work);
    case BoxKind::Image:
        return writeImage(contents, place, work);
    case BoxKind::Zip:
        return writeZip(contents, place, work);
    }
}

static void burn(const BoxContents& contents, const BoxPlace& place, const QString& drive,
                 BoxWork& work)
{
    burnImage(place.box(), QFileInfo(place.box()).size(), drive, work);
    checkArchive(contents, fileOfDrive(drive), work);
}

void writeBox(BoxPlan plan, const BoxOrder& order, BoxWork& work)
{
    requireLesson(plan, order);
    const std::vector<BoxExtra> extras =
        order.extras ? order.extras(plan, work) : std::vector<BoxExtra>();
    const BoxContents contents = contentsOf(plan, extras);
    const bool isDisc = !order.drive.isEmpty();
    const BoxKind kind = isDisc ? BoxKind::Image : boxKind(order.target);
    BoxPlace place(order.target); // first: what it clears away makes room
    requireRoom(contents, kind, order.target);
    writeForm(kind, contents, place, work);
    work.goOn();
    isDisc ? burn(contents, place, order.drive, work) : place.putInPlace(order.replaces);
}

} // namespace orvanta
