// Where drives of other systems and folders that have moved lie on this machine.
#pragma once

#include <QChar>
#include <QHash>
#include <QString>

#include <vector>

namespace orvanta {

/// A folder that has moved, as documents write it, and where it lies now.
struct MovedFolder
{
    QString from;
    QString to;
};

struct KnownPlaces
{
    QHash<QChar, QString> drives;  // by letter in lower case: the folder of a drive's root
    QHash<QChar, QString> guessed; // the same, seen from where packets lie; not stored
    std::vector<MovedFolder> moved;
};

/// The file with the sections "drives" ("e=/media/user/STICK") and "moved": platform.ini. Empty, as
/// at first: there is none.
void setPlacesFile(const QString& platformIni);

/// What is known now. Any thread.
[[nodiscard]] KnownPlaces knownPlaces();

/// Reads the file again.
void readPlaces();

/// A drive's folder as a packet's own place has shown it; kept while the program runs.
void guessDrive(QChar letter, const QString& folder);

/// From now on what documents seek below one folder is looked for below the other, too, also at the
/// next start. Returns false when it could not be stored; it then holds until the program ends.
bool rememberMoved(const MovedFolder& folder);

} // namespace orvanta
