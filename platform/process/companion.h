// Starting other programs and opening addresses.
#pragma once

#include <QString>
#include <QStringList>

class QUrl;

namespace orvanta {

/// Starts a program that belongs to this one ("\tutorial.exe"; see installedProgram for where it is
/// looked up) and goes on at once. It gets no descriptor of this process, a session of its own, and
/// in $ORVANTA_HOME and $ORVANTA_PROGRAM where to find this program again; in $ORVANTA_DOCUMENTS
/// the documents that it may be about, if any: "file:" addresses with a blank between. Returns its
/// process id.
/// Raises 53 when there is no such program and 5 when it cannot be run.
qint64 startCompanion(const QString& applicationFolder, const QString& name,
                      const QStringList& documents = {});

/// Hands an address to the desktop's opener, in the same way. False when there is none.
bool openAddress(const QUrl& address);

} // namespace orvanta
