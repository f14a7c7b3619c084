#include "tests/e2e/support/packets.h"

#include <QFile>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

QString writeBytes(const QString& file, const QByteArray& content)
{
    QFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size()) {
        qWarning("%s cannot be written", qPrintable(file));
    }
    return file;
}

QString writeClips(const QString& file, const QList<ClipLine>& clips)
{
    QString content = u"[main]\r\nfiles=%1\r\n"_s.arg(clips.size());
    for (qsizetype i = 0; i < clips.size(); ++i) {
        content +=
            u"[file%1]\r\npath=%2\r\ntext=%3\r\n"_s.arg(i + 1).arg(clips[i].path, clips[i].text);
    }
    return writeBytes(file, content.toUtf8());
}

QString writeBrakes(const QString& file, const QString& mediaFile, const QList<BrakeLine>& brakes)
{
    QString content =
        u"[main]\r\nfiles=1\r\nfile=%1\r\nbrakes=%2\r\n[file1]\r\npath=%1\r\ntext=%1\r\n"_s
            .arg(mediaFile)
            .arg(brakes.size());
    for (qsizetype i = 0; i < brakes.size(); ++i) {
        content += u"[brake%1]\r\ntime=%2\r\ntext=%3\r\n"_s.arg(i + 1)
                       .arg(brakes[i].seconds, 9, 'f', 2, u'0')
                       .arg(brakes[i].text);
    }
    return writeBytes(file, content.toUtf8());
}

QString writeGroup(const QString& file, const QList<MemberLine>& members)
{
    QString content = u"[main]\r\nfiles=%1\r\n"_s.arg(members.size());
    for (qsizetype i = 0; i < members.size(); ++i) {
        content += u"[file%1]\r\npath=%2\r\ntext=%3\r\npicture={No picture}\r\n"_s.arg(i + 1).arg(
            members[i].path, members[i].text);
    }
    return writeBytes(file, content.toUtf8());
}

} // namespace orvanta::e2e
