#include "tests/architecture/sample_files.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static QStringList linesOf(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot read " << name.toStdString();
        return {};
    }
    return QString::fromUtf8(file.readAll()).split(u"\r\n"_s, Qt::SkipEmptyParts);
}

QList<Value> valuesOf(const QString& file)
{
    QList<Value> values;
    QString section;
    for (const QString& line : linesOf(file)) {
        if (line.startsWith(u'[')) {
            section = line.mid(1, line.size() - 2);
        } else {
            const qsizetype mark = line.indexOf(u'=');
            values.append({section, line.left(mark), line.mid(mark + 1)});
        }
    }
    return values;
}

QStringList textsUnder(const QString& key, const QList<Value>& values)
{
    QStringList texts;
    for (const Value& value : values) {
        if (value.key == key) {
            texts.append(value.text);
        }
    }
    return texts;
}

QStringList namedPaths(const QString& file)
{
    const QList<Value> values = valuesOf(file);
    return textsUnder(u"path"_s, values) + textsUnder(u"file"_s, values) +
           textsUnder(u"picture"_s, values);
}

QStringList unusablePaths(const QString& file)
{
    const QString folder = QFileInfo(file).path() + u'/';
    const QStringList paths = namedPaths(file);
    QStringList unusable;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(unusable),
                 [&](const QString& path) {
                     return path.startsWith(u'/') || path.contains(u'\\') ||
                            !QFileInfo(folder + path).isFile();
                 });
    return unusable;
}

} // namespace orvanta::test
