#include "companions/page/page_data.h"

#include "companions/page/page_keys.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

QString pageAddress(const QString& file)
{
    if (file.isEmpty()) {
        return {};
    }
    const QByteArray encoded = QUrl::toPercentEncoding(file, "/");
    return u"./"_s + QString::fromLatin1(encoded);
}

template <typename Items, typename ToValue>
static QJsonArray arrayOf(const Items& items, const ToValue& toValue)
{
    QJsonArray array;
    for (const auto& item : items) {
        array.append(toValue(item));
    }
    return array;
}

static QJsonObject sourceData(const PageSource& source)
{
    return {{u"url"_s, pageAddress(source.file)}, {u"type"_s, source.type}};
}

static QJsonObject mediaData(const PageMedia& media)
{
    return {{u"sources"_s, arrayOf(media.sources, sourceData)},
            {u"hasPicture"_s, media.hasPicture}};
}

static QJsonValue secondsData(const std::optional<double>& seconds)
{
    const bool isNumber = seconds && std::isfinite(*seconds);
    return isNumber ? QJsonValue(*seconds) : QJsonValue(QJsonValue::Null);
}

static QJsonObject lineData(const PageLine& line, bool isBrake)
{
    QJsonObject data = {{u"text"_s, line.text}, {u"checked"_s, line.isChecked}};
    if (isBrake) {
        data[u"time"_s] = secondsData(line.seconds);
    } else {
        data[u"media"_s] = mediaData(line.media);
    }
    return data;
}

static QJsonObject packetData(const PagePacket& packet)
{
    QJsonObject data = {{u"title"_s, packet.title},
                        {u"picture"_s, pageAddress(packet.picture)},
                        {u"checked"_s, packet.isChecked},
                        {u"hasBrakes"_s, packet.hasBrakes}};
    data[u"lines"_s] = arrayOf(
        packet.lines, [&](const PageLine& line) { return lineData(line, packet.hasBrakes); });
    if (packet.hasBrakes) {
        data[u"media"_s] = mediaData(packet.media);
    }
    return data;
}

static QJsonObject practiceData(const Practice& practice)
{
    return {{u"speed"_s, practice.speed},  {u"times"_s, practice.times},
            {u"wait"_s, practice.wait},    {u"seconds"_s, practice.seconds},
            {u"from"_s, practice.from},    {u"step"_s, practice.step},
            {u"mirror"_s, practice.mirror}};
}

static QString languageData(const std::optional<TextLanguage>& language)
{
    if (!language) {
        return {};
    }
    return *language == TextLanguage::English ? u"en"_s : u"ru"_s;
}

/// The names of commands are those of the menus, without their access keys.
static QJsonObject textsData(TextLanguage language)
{
    QJsonObject texts;
    for (const InterfaceText& row : interfaceTexts()) {
        if (row.window == u"LessonPage") {
            texts[row.control.toString()] = row.in(language);
        } else if (row.window == u"Practice") {
            texts[u"practice."_s + row.control.toString()] = row.in(language);
        }
    }
    for (const QString& command : pageCommands()) {
        texts[u"command."_s + command] =
            interfaceText(u"Command", command, language).remove(u'&').remove(u"..."_s);
    }
    return texts;
}

static QString sumOf(const QJsonArray& packets)
{
    const QByteArray bytes = QJsonDocument(packets).toJson(QJsonDocument::Compact);
    const QByteArray sum = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    return QString::fromLatin1(sum.toHex().left(16));
}

QJsonObject pageData(const PageLesson& lesson)
{
    const QJsonArray packets = arrayOf(lesson.packets, packetData);
    const PageOptions& options = lesson.options;
    return {{u"id"_s, sumOf(packets)},
            {u"title"_s, lesson.title},
            {u"packets"_s, packets},
            {u"language"_s, languageData(options.language)},
            {u"options"_s, QJsonObject{{u"nextClip"_s, options.nextClip},
                                       {u"nextPacket"_s, options.nextPacket},
                                       {u"replay"_s, options.replay}}},
            {u"practice"_s, practiceData(options.practice.inRange())},
            {u"keys"_s, pageKeys()},
            {u"texts"_s, QJsonObject{{u"en"_s, textsData(TextLanguage::English)},
                                     {u"ru"_s, textsData(TextLanguage::Russian)}}}};
}

} // namespace orvanta
