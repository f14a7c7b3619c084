#include "companions/page/lesson_page.h"

#include "companions/page/page_data.h"

#include <QCryptographicHash>
#include <QFile>
#include <QHash>
#include <QJsonDocument>

// Resources of a static library are linked in only when somebody asks; outside any namespace.
static void initPage()
{
    Q_INIT_RESOURCE(page);
}

namespace orvanta {

using namespace Qt::StringLiterals;

static QByteArray part(const QString& name)
{
    QFile file(u":/orvanta/page/"_s + name);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return isOpen ? file.readAll() : QByteArray();
}

static QByteArray parts(std::initializer_list<QStringView> names)
{
    QByteArray all;
    for (const QStringView name : names) {
        all += part(name.toString());
    }
    return all;
}

static QByteArray style()
{
    return parts({u"page.css", u"parts.css"});
}

static QByteArray script()
{
    return "'use strict';\n(() => {\n" +
           parts({u"rules.js", u"store.js", u"words.js", u"stage.js", u"list.js", u"engine.js",
                  u"keys.js", u"view.js", u"sheets.js", u"main.js"}) +
           "})();\n";
}

static QByteArray sumOf(const QByteArray& text)
{
    return "'sha256-" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64() + "'";
}

/// From a stick the page has no origin of its own: its files are allowed by their scheme. From a
/// server that cannot send a part of a file, the script takes the whole.
static QByteArray policy(const QByteArray& style, const QByteArray& script)
{
    return "default-src 'none'; base-uri 'none'; form-action 'none'; script-src " + sumOf(script) +
           "; style-src " + sumOf(style) +
           "; img-src 'self' file: data:; media-src 'self' file: blob:; connect-src 'self'";
}

/// Data in a script element ends with the first "</script", whatever stands around it, and two line
/// ends of Unicode are none in all readers of JSON.
static QByteArray safeJson(const QJsonObject& object)
{
    QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
    json.replace('<', "\\u003c").replace('>', "\\u003e").replace('&', "\\u0026");
    return json.replace("\u2028", "\\u2028").replace("\u2029", "\\u2029");
}

/// Replaces each "@name@" once: what is put in is not looked at again.
static QByteArray filled(const QByteArray& frame, const QHash<QByteArray, QByteArray>& values)
{
    QByteArray page;
    qsizetype from = 0;
    for (qsizetype at = frame.indexOf('@'); at >= 0; at = frame.indexOf('@', from)) {
        const qsizetype end = frame.indexOf('@', at + 1);
        const auto value = values.constFind(frame.mid(at + 1, end - at - 1));
        Q_ASSERT(value != values.constEnd());
        page += frame.mid(from, at - from) + *value;
        from = end + 1;
    }
    return page + frame.mid(from);
}

QByteArray lessonPage(const PageLesson& lesson)
{
    initPage();
    return filled(part(u"page.html"_s), {{"policy", policy(style(), script())},
                                         {"title", lesson.title.toHtmlEscaped().toUtf8()},
                                         {"style", style()},
                                         {"script", script()},
                                         {"lesson", safeJson(pageData(lesson))}});
}

} // namespace orvanta
