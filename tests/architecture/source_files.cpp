#include "tests/architecture/source_files.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static const QStringList kFolders = {u"core"_s,       u"platform"_s, u"model"_s,   u"playback"_s,
                                     u"window"_s,     u"editors"_s,  u"system"_s,  u"app"_s,
                                     u"companions"_s, u"tests"_s,    u"benches"_s, u"samples"_s};

QStringList projectSources()
{
    const QDir root(QStringLiteral(ORVANTA_SOURCE_DIR));
    QStringList sources;
    for (const QString& folder : kFolders) {
        QDirIterator files(root.filePath(folder), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            sources.append(root.relativeFilePath(files.next()));
        }
    }
    sources.sort();
    return sources;
}

QList<Include> includesOf(const QString& text)
{
    static const QRegularExpression line(uR"re(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"])re"_s,
                                         QRegularExpression::MultilineOption);
    QList<Include> includes;
    for (const QRegularExpressionMatch& match : line.globalMatch(text)) {
        includes.append({.name = match.captured(2), .isQuoted = match.captured(1) == u"\""_s});
    }
    return includes;
}

QString textOfSource(const QString& path)
{
    QFile file(QDir(QStringLiteral(ORVANTA_SOURCE_DIR)).filePath(path));
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot read " << path.toStdString();
        return {};
    }
    return QString::fromUtf8(file.readAll());
}

} // namespace orvanta::test
