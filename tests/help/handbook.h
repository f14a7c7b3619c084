// The user's handbook, taken apart.
#pragma once

#include "model/texts.h"

#include <QMultiMap>
#include <QString>
#include <QStringList>

namespace orvanta::test {

/// One of the two documents. problem: why it could not be read; empty for none.
struct Handbook
{
    QString problem;
    QString language;                    // "en", "ru"
    QString source;                      // the whole document
    QStringList outline;                 // "section keys", "h3", "table 5": what stands where
    QStringList headings;                // of the sections
    QStringList captions;                // what is printed as a caption of the program
    QStringList keys;                    // what is printed as a key
    QStringList links;                   // targets within the document
    QStringList targets;                 // ids
    QMultiMap<QString, QString> outside; // attributes that would fetch something
};

[[nodiscard]] Handbook readHandbook(TextLanguage language);

} // namespace orvanta::test
