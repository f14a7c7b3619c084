#include "platform/file_types/mime_package.h"

#include "platform/file_types/desktop_files.h"
#include "platform/file_types/desktop_folders.h"

#include <QFileInfo>
#include <QMap>
#include <QXmlStreamWriter>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString prefix()
{
    return u"application/x-orvanta-"_s;
}

static bool canStandInPattern(QChar c)
{
    return c.isPrint() && !u"*?[]/\\:;"_s.contains(c);
}

/// Letters, digits, "-", "_" and "." stand for themselves, anything else for its code.
static QString asTypeName(const QString& extension)
{
    QString name;
    for (const QChar c : extension) {
        const bool isPlain = c.unicode() < 128 && (c.isLetterOrNumber() || u"-_."_s.contains(c));
        name += isPlain ? QString(c) : u'+' + QString::number(c.unicode(), 16);
    }
    return name;
}

QString ownTypeOf(const QString& extension)
{
    const QString e = extension.toLower();
    if (e.isEmpty() || !std::all_of(e.begin(), e.end(), canStandInPattern)) {
        return {};
    }
    if (e == u"vxl") {
        return prefix() + u"packet"_s;
    }
    return prefix() + (e == u"vxg" ? u"group"_s : asTypeName(e));
}

bool isOwnType(const QString& type)
{
    return type.startsWith(prefix());
}

static void writeType(QXmlStreamWriter& xml, const QString& extension)
{
    const auto comment = [&](const QString& language, const QString& text) {
        xml.writeStartElement(u"comment"_s);
        if (!language.isEmpty()) {
            xml.writeAttribute(u"xml:lang"_s, language);
        }
        xml.writeCharacters(text);
        xml.writeEndElement();
    };
    xml.writeStartElement(u"mime-type"_s);
    xml.writeAttribute(u"type"_s, ownTypeOf(extension));
    if (extension == u"vxl") {
        comment({}, u"Orvanta packet"_s);
        comment(u"ru"_s, u"Пакет Orvanta"_s);
    } else if (extension == u"vxg") {
        comment({}, u"Orvanta group"_s);
        comment(u"ru"_s, u"Группа Orvanta"_s);
    } else {
        comment({}, extension.toUpper() + u" media file"_s);
        comment(u"ru"_s, u"Медиафайл "_s + extension.toUpper());
    }
    xml.writeEmptyElement(u"glob"_s);
    xml.writeAttribute(u"pattern"_s, u"*."_s + extension);
    xml.writeEndElement();
}

static QByteArray packageOf(const QMap<QString, QString>& extensions)
{
    QByteArray content;
    QXmlStreamWriter xml(&content);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(u"mime-info"_s);
    xml.writeDefaultNamespace(u"http://www.freedesktop.org/standards/shared-mime-info"_s);
    for (const QString& extension : extensions) {
        writeType(xml, extension);
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return content;
}

bool writeMimePackage(const QStringList& extensions)
{
    QMap<QString, QString> byType; // in a fixed order, each type once
    for (const QString& extension : extensions) {
        byType.insert(ownTypeOf(extension), extension.toLower());
    }
    byType.remove(QString());
    const QString file = DesktopFolders::dataHome() + u"/mime/packages/orvanta-types.xml"_s;
    if (byType.isEmpty()) {
        return QFileInfo::exists(file) && removeFile(file);
    }
    const QByteArray content = packageOf(byType);
    return contentOf(file) != content && replaceFile(file, content);
}

} // namespace orvanta
