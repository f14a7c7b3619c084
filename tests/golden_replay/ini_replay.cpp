#include "core/ini.h"
#include "tests/golden_replay/replay.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>

#include <optional>

namespace orvanta::replay {

using namespace Qt::StringLiterals;

/// Nothing for null.
static std::optional<QByteArray> bytesOf(const QJsonValue& hex)
{
    return hex.isNull() ? std::nullopt
                        : std::optional(QByteArray::fromHex(hex.toString().toLatin1()));
}

static QString textOf(const QJsonValue& hex)
{
    return QString::fromUtf8(bytesOf(hex).value_or(QByteArray()));
}

/// Puts the file there, or takes it away.
static bool prepare(const QString& path, const std::optional<QByteArray>& content)
{
    QFile file(path);
    if (!content) {
        return !file.exists() || file.remove();
    }
    return file.open(QIODevice::WriteOnly) && file.write(*content) == content->size();
}

static std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

static QString describe(const QJsonObject& op)
{
    return u"%1 [%2] %3"_s.arg(op[u"op"].toString(), textOf(op[u"section"]), textOf(op[u"key"]));
}

static QString nameOf(const QJsonObject& testCase)
{
    const QString name = testCase[u"name"].toString();
    if (!name.isEmpty()) {
        return name;
    }
    QStringList parts;
    for (const QJsonValue& op : testCase[u"ops"].toArray()) {
        parts.append(describe(op.toObject()));
    }
    return parts.join(u", ");
}

/// Returns the texts read, in order.
static QStringList run(const QJsonArray& ops, const QString& file)
{
    QStringList texts;
    for (const QJsonValue& value : ops) {
        const QJsonObject op = value.toObject();
        const QString section = textOf(op[u"section"]);
        const QString key = textOf(op[u"key"]);
        if (op[u"op"] == u"write"_s) {
            WriteIni(section, key, textOf(op[u"value"]), file);
        } else {
            texts.append(readIniRaw(section, key, file));
        }
    }
    return texts;
}

static QStringList expectedTexts(const QJsonArray& results)
{
    QStringList texts;
    for (const QJsonValue& result : results) {
        texts.append(textOf(result));
    }
    return texts;
}

Outcome replayIni(const QJsonObject& testCase, const QString& folder)
{
    const QString file = folder + u"/case.ini"_s;
    const bool isReady = prepare(file, bytesOf(testCase[u"file_before_hex"]));
    const QStringList texts = run(testCase[u"ops"].toArray(), file);
    const bool readsAsStated = texts == expectedTexts(testCase[u"results"].toArray());
    const bool leavesAsStated = !testCase.contains(u"file_after_hex") ||
                                contentOf(file) == bytesOf(testCase[u"file_after_hex"]);
    return {nameOf(testCase), isReady && readsAsStated && leavesAsStated};
}

} // namespace orvanta::replay
