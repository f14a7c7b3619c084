#include "companions/cdcreate/box_documents.h"

#include "core/ini_document.h"
#include "core/ini_encoding.h"
#include "core/ini_lines.h"
#include "model/texts.h"

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr char kUtf16Mark[] = "\xFF\xFE";
constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";
constexpr qsizetype kMarkSize16 = 2;
constexpr qsizetype kMarkSize8 = 3;

static QByteArray asUtf8(const QByteArray& bytes)
{
    if (bytes.startsWith(kUtf16Mark)) {
        const auto units = (bytes.size() - kMarkSize16) / kMarkSize16;
        QString text(units, Qt::Uninitialized);
        std::copy_n(bytes.constData() + kMarkSize16, units * kMarkSize16,
                    reinterpret_cast<char*>(text.data()));
        return text.toUtf8();
    }
    if (bytes.startsWith(kUtf8Mark)) {
        return bytes.mid(kMarkSize8);
    }
    return IniEncoding::of(bytes).decode(bytes).toUtf8();
}

static QByteArray forAllReaders(const QByteArray& utf8)
{
    const bool isAscii = std::all_of(utf8.begin(), utf8.end(), [](char c) { return c >= 0; });
    if (isAscii) {
        return utf8;
    }
    const QString text = QString::fromUtf8(utf8);
    return kUtf16Mark +
           QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * kMarkSize16);
}

static QString nameIn(QByteArrayView bytes)
{
    return QString::fromUtf8(iniTrimmed(bytes)).toLower();
}

namespace {

/// Goes through a document line by line: changing one value after the other would read all of it
/// again each time, and there may be 32,767.
class Rewriting
{
public:
    explicit Rewriting(const NewValues& values)
        : m_values(values)
    {}

    [[nodiscard]] QByteArray operator()(QByteArrayView text)
    {
        m_result.reserve(text.size());
        for (IniLine line = iniLineAt(text, 0); line.begin < text.size();
             line = iniLineAt(text, line.next)) {
            take(text.sliced(line.begin, line.end - line.begin));
            m_result.append(text.sliced(line.end, line.next - line.end));
        }
        return m_result;
    }

private:
    void take(QByteArrayView line)
    {
        const QByteArrayView content = iniTrimmed(line);
        const IniLineKind kind = iniLineKind(content);
        if (kind == IniLineKind::Header) {
            m_section = nameIn(iniSectionName(content));
        }
        const qsizetype sign = iniEqualsSign(line, 0);
        const auto value = kind == IniLineKind::Key && sign >= 0
                               ? m_values.find({m_section, nameIn(line.first(sign))})
                               : m_values.end();
        if (value == m_values.end()) {
            m_result.append(line);
        } else {
            m_result.append(line.first(sign + 1));
            m_result.append(value->toUtf8());
        }
    }

    const NewValues& m_values;
    QString m_section;
    QByteArray m_result;
};

} // namespace

QByteArray rewrittenDocument(const QByteArray& original, const NewValues& values)
{
    const QByteArray rewritten = Rewriting(values)(asUtf8(original));
    IniDocument document(rewritten);
    for (auto value = values.begin(); value != values.end(); ++value) {
        const auto& [section, key] = value.key();
        if (document.value(section, key) != value.value()) { // it had no line of its own
            document.set(section, key, value.value());
        }
    }
    return forAllReaders(document.fileBytes());
}

QByteArray newGroup(const std::vector<NewMember>& members)
{
    IniDocument document;
    document.set(u"main"_s, u"files"_s, QString::number(members.size()));
    int number = 0;
    for (const NewMember& member : members) {
        const QString section = u"file"_s + QString::number(++number);
        document.set(section, u"path"_s, member.path);
        document.set(section, u"text"_s, member.text);
        document.set(section, u"picture"_s, member.picture);
    }
    return forAllReaders(document.fileBytes());
}

QString asPathText(const QString& nameInBox)
{
    return QString(nameInBox).replace(u'/', u'\\');
}

static QString oneLine(QString text)
{
    return text.replace(u'\n', u' ').replace(u'\r', u' ');
}

static QString readMeIn(TextLanguage language, const QString& title, const QString& group,
                        const QStringList& missing, bool opensInBrowsers)
{
    const auto say = [&](QStringView what) { return interfaceText(u"ReadMe", what, language); };
    QString text = oneLine(title) + u"\n\n"_s + say(u"play").arg(group) + u'\n';
    if (opensInBrowsers) {
        text += say(u"browser") + u'\n';
    }
    text += say(u"clips") + u'\n';
    if (!missing.isEmpty()) {
        text += u'\n' + say(u"missing") + u'\n';
    }
    for (const QString& name : missing) {
        text += u"  "_s + oneLine(name) + u'\n';
    }
    return text;
}

QByteArray readMe(const QString& title, const QString& group, const QStringList& missing,
                  bool opensInBrowsers)
{
    QString text = readMeIn(TextLanguage::English, title, group, missing, opensInBrowsers) +
                   u"\n----------------------------------------\n\n"_s +
                   readMeIn(TextLanguage::Russian, title, group, missing, opensInBrowsers);
    return kUtf8Mark + text.replace(u'\n', u"\r\n"_s).toUtf8();
}

} // namespace orvanta
