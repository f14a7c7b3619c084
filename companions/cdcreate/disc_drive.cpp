#include "companions/cdcreate/disc_drive.h"

#include "companions/cdcreate/image_program.h"

#include <QDir>
#include <QRegularExpression>

namespace orvanta {

using namespace Qt::StringLiterals;

bool mayHaveDrives()
{
    return !QDir(u"/dev"_s).entryList({u"sr*"_s, u"scd*"_s}, QDir::System).isEmpty() &&
           !imageProgram().isEmpty();
}

QStringList driveArguments()
{
    return {u"-no_rc"_s, u"-devices"_s};
}

std::vector<DiscDrive> drivesIn(const QString& answer)
{
    static const QRegularExpression line(
        u"-dev '([^']+)'\\s+\\S+\\s*:\\s*'([^']*)'\\s*'([^']*)'"_s);
    std::vector<DiscDrive> drives;
    for (const QRegularExpressionMatch& drive : line.globalMatch(answer)) {
        drives.push_back({drive.captured(1),
                          (drive.captured(2).trimmed() + u' ' + drive.captured(3)).trimmed()});
    }
    return drives;
}

QString fileOfDrive(const QString& drive)
{
    const QString mark = u"stdio:"_s;
    return drive.startsWith(mark) ? drive.mid(mark.size()) : drive;
}

/// "12 of 40 MB written" in what the program has said last; otherwise what it was.
static qint64 bytesWritten(const QString& said, qint64 former)
{
    static const QRegularExpression written(u"(\\d+) of\\s+\\d+ (kB|MB|k|m) written"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    constexpr qint64 kKilo = 1024;
    qint64 bytes = former;
    for (const QRegularExpressionMatch& line : written.globalMatch(said)) {
        const bool isMega = line.captured(2).startsWith(u'm', Qt::CaseInsensitive);
        bytes = line.captured(1).toLongLong() * (isMega ? kKilo * kKilo : kKilo);
    }
    return bytes;
}

void burnImage(const QString& image, qint64 size, const QString& drive, BoxWork& work)
{
    work.begin(BoxStep::Burning, size);
    qint64 done = 0;
    const QStringList arguments = {u"-as"_s,          u"cdrecord"_s,        u"-v"_s,
                                   u"dev="_s + drive, u"blank=as_needed"_s, image};
    try {
        runImageProgram(arguments, work, [&](const QString& said) {
            done = std::min(bytesWritten(said, done), size);
            return done;
        });
    } catch (const BoxFailure& failure) {
        const bool isOfDrive = failure.problem() == BoxProblem::ProgramFailed;
        throw isOfDrive ? BoxFailure(BoxProblem::NoDrive, failure.about()) : failure;
    }
}

} // namespace orvanta
