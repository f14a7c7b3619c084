// What goes into a box: the lesson as it will be there, and every file with its name.
#pragma once

#include "companions/cdcreate/box_names.h"
#include "core/playlist_entry.h"
#include "model/lesson_check.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace orvanta {

/// A file that is copied as it is. Names in the box are below it, separated by "/".
struct BoxFile
{
    QString source; // absolute
    QString name;   // "media/clip.mp4"
    qint64 size = 0;
};

/// A file whose bytes the program makes.
struct BoxDocument
{
    QString name;
    QByteArray content;
};

/// A packet as it is in the box.
struct BoxPacket
{
    QString source;  // absolute; empty: it was not found
    QString name;    // "rhythm.vxl"
    QString title;   // as its group has it
    QString picture; // "pictures/drum.jpg"; empty: none, or not found
    /// Read from the source, texts as they are. Of each clip the file it was found as: see media.
    PlaylistEntry entry;
    /// One name in the box for each of entry's clips, in a packet with brakes one alone; empty for
    /// what was not found.
    QStringList media;
};

/// Something that a document names and that is not there.
struct MissingPart
{
    QString document; // absolute
    CheckedText what;
    QString name = {}; // under which the lesson in the box looks for it; empty for an address
};

struct BoxPlan
{
    QString title; // of the lesson, for the eye
    QString group; // name of the group in the box: "lesson.vxg"
    std::vector<BoxPacket> packets;
    std::vector<BoxFile> files;         // clips and pictures, each once
    std::vector<BoxDocument> documents; // the group, the packets
    std::vector<MissingPart> missing;
    QStringList refused; // what was named and is no lesson
    BoxNames names;      // for whatever else comes into the box

    /// Of files and documents together.
    [[nodiscard]] qint64 bytes() const
    {
        qint64 sum = 0;
        for (const BoxFile& file : files) {
            sum += file.size;
        }
        for (const BoxDocument& document : documents) {
            sum += document.content.size();
        }
        return sum;
    }
};

} // namespace orvanta
