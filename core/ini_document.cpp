#include "core/ini_document.h"

#include <algorithm>
#include <utility>

namespace orvanta {

static const QByteArrayView kUtf8Mark("\xEF\xBB\xBF");
static const QByteArrayView kUtf16Mark("\xFF\xFE");
constexpr qsizetype kUtf16UnitSize = 2;

static QString fromUtf16Bytes(QByteArrayView bytes)
{
    QString text(bytes.size() / kUtf16UnitSize, Qt::Uninitialized);
    std::copy_n(bytes.data(), text.size() * kUtf16UnitSize, reinterpret_cast<char*>(text.data()));
    return text;
}

static QByteArray toUtf16Bytes(const QString& text)
{
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * kUtf16UnitSize};
}

/// A line break in a text becomes one blank, a NUL ends it: no text can add lines to a file.
static QString oneLine(const QString& text)
{
    const auto isUnfit = [](QChar c) { return c == u'\r' || c == u'\n' || c.isNull(); };
    if (std::none_of(text.begin(), text.end(), isUnfit)) {
        return text;
    }
    QString line = text.left(text.indexOf(QChar()));
    line.replace(QLatin1String("\r\n"), QLatin1String(" "));
    line.replace(u'\r', u' ');
    line.replace(u'\n', u' ');
    return line;
}

/// Names lose their outer blanks, but not tabs.
static QString nameOf(const QString& text)
{
    const QString line = oneLine(text);
    qsizetype begin = 0;
    qsizetype end = line.size();
    while (begin < end && line[begin] == u' ') {
        ++begin;
    }
    while (end > begin && line[end - 1] == u' ') {
        --end;
    }
    return line.mid(begin, end - begin);
}

static QString limited(const QString& text, qsizetype limit)
{
    qsizetype units = 0;
    for (qsizetype count = 0; count < limit && units < text.size(); ++count) {
        const bool isPair = text[units].isHighSurrogate() && units + 1 < text.size() &&
                            text[units + 1].isLowSurrogate();
        units += isPair ? 2 : 1;
    }
    return text.left(units);
}

IniDocument::IniDocument(QByteArray fileBytes)
{
    takeBytes(std::move(fileBytes));
}

void IniDocument::takeBytes(QByteArray fileBytes)
{
    m_isUtf16 = fileBytes.startsWith(kUtf16Mark);
    if (m_isUtf16) {
        m_bytes = fromUtf16Bytes(fileBytes).toUtf8();
        m_utf16 = std::move(fileBytes);
    } else {
        m_bytes = std::move(fileBytes);
    }
    const bool isMarked = m_bytes.startsWith(kUtf8Mark);
    m_begin = isMarked ? kUtf8Mark.size() : 0;
    m_encoding = isMarked ? IniEncoding() : IniEncoding::of(m_bytes);
    buildIndex();
}

void IniDocument::buildIndex()
{
    const IniLine first = iniLineAt(m_bytes, m_begin);
    m_lineBreak = m_bytes.mid(first.end, first.next - first.end);
    if (m_lineBreak.isEmpty()) {
        m_lineBreak = QByteArrayLiteral("\r\n");
    }
    m_index.build(text(), m_begin);
}

std::optional<quint32> IniDocument::findLine(quint32 section, const QString& key) const
{
    const quint32 line = m_index.findKey(section, IniKey(key), text());
    return line == IniIndex::kNone ? std::nullopt : std::optional(line);
}

/// The bytes behind the "=" of the line, up to its line break.
static QByteArrayView valueBytes(QByteArrayView bytes, quint32 lineBegin, qsizetype signsBefore)
{
    const IniLine line = iniLineAt(bytes, lineBegin);
    const QByteArrayView content = bytes.sliced(line.begin, line.end - line.begin);
    return content.sliced(iniEqualsSign(content, signsBefore) + 1);
}

QString IniDocument::value(const QString& section, const QString& key) const
{
    const QString sectionName = nameOf(section);
    const QString keyName = nameOf(key);
    const quint32 number = m_index.findSection(FoldedName(sectionName), text());
    const auto line = number == IniIndex::kNone ? std::nullopt : findLine(number, keyName);
    if (!line) {
        return {};
    }
    const QByteArrayView bytes =
        iniUnquoted(iniTrimmed(valueBytes(m_bytes, *line, keyName.count(u'='))));
    constexpr qsizetype kLongestCharacter = 4;
    const qsizetype most = std::min(bytes.size(), kIniValueLimit * kLongestCharacter);
    return limited(m_encoding.decode(bytes.first(most)), kIniValueLimit);
}

std::vector<IniDocument::Line> IniDocument::lines() const
{
    std::vector<Line> all;
    const QByteArrayView bytes = m_bytes;
    const auto decoded = [&](QByteArrayView part) { return m_encoding.decode(iniTrimmed(part)); };
    QString section;
    bool isInSection = false;
    for (IniLine line = iniLineAt(bytes, m_begin); line.begin < bytes.size();
         line = iniLineAt(bytes, line.next)) {
        const QByteArrayView content = iniTrimmed(bytes.sliced(line.begin, line.end - line.begin));
        const IniLineKind kind = iniLineKind(content);
        const qsizetype sign = iniEqualsSign(content, 0);
        if (kind == IniLineKind::Header) {
            section = decoded(iniSectionName(content));
            isInSection = true;
        } else if (kind == IniLineKind::Key && sign >= 0 && isInSection) {
            all.push_back(
                {section, decoded(content.first(sign)), decoded(content.sliced(sign + 1))});
        }
    }
    return all;
}

bool IniDocument::holdsKey(const QString& key)
{
    const QByteArray name = nameOf(key).toUtf8();
    return iniLineKind(iniTrimmed(name)) != IniLineKind::Header;
}

IniDocument::Change IniDocument::set(const QString& section, const QString& key,
                                     const QString& value)
{
    const QString sectionName = nameOf(section);
    const QString keyName = nameOf(key);
    const QString line = oneLine(value);
    std::optional<EncodedTexts> texts = encoded(sectionName, keyName, line);
    const bool fits = texts.has_value();
    if (!fits) {
        becomeUtf8();
        texts = encoded(sectionName, keyName, line);
    }
    const std::optional<Edit> edit = editFor(sectionName, keyName, *texts);
    const Change change = edit ? apply(*edit) : Change::None;
    return fits ? change : Change::Rewritten;
}

std::optional<IniDocument::EncodedTexts>
IniDocument::encoded(const QString& section, const QString& key, const QString& value) const
{
    const std::optional<QByteArray> sectionBytes = m_encoding.encode(section);
    const std::optional<QByteArray> keyBytes = m_encoding.encode(key);
    const std::optional<QByteArray> bytes = m_encoding.encode(value);
    if (!sectionBytes || !keyBytes || !bytes) {
        return std::nullopt;
    }
    return EncodedTexts{*sectionBytes, *keyBytes, *bytes};
}

void IniDocument::becomeUtf8()
{
    takeBytes(m_encoding.decode(m_bytes).toUtf8());
}

std::optional<IniDocument::Edit> IniDocument::editFor(const QString& section, const QString& key,
                                                      const EncodedTexts& texts) const
{
    const QByteArray keyLine = texts.key + '=' + texts.value + m_lineBreak;
    const quint32 number = m_index.findSection(FoldedName(section), text());
    if (number == IniIndex::kNone) {
        return inserting(m_bytes.size(), '[' + texts.section + ']' + m_lineBreak + keyLine);
    }
    if (const std::optional<quint32> line = findLine(number, key)) {
        return replacing(*line, key.count(u'='), texts.value);
    }
    return inserting(m_index.section(number).insertAt, keyLine);
}

std::optional<IniDocument::Edit> IniDocument::replacing(quint32 line, qsizetype equalsSigns,
                                                        const QByteArray& value) const
{
    const QByteArrayView present = valueBytes(m_bytes, line, equalsSigns);
    if (present == value) {
        return std::nullopt;
    }
    const qsizetype offset = present.data() - m_bytes.constData();
    const bool isUnfinished = offset + present.size() == m_bytes.size();
    return Edit{offset, present.size(), isUnfinished ? value + m_lineBreak : value};
}

IniDocument::Edit IniDocument::inserting(qsizetype offset, const QByteArray& lines) const
{
    const bool atEnd = offset == m_bytes.size() && m_encoding.isUtf8() && !m_isUtf16;
    const qsizetype unfinished = atEnd ? unfinishedUtf8Tail(m_bytes) : 0;
    const qsizetype at = offset - unfinished;
    return {at, unfinished, lineBeginsAt(at) ? lines : m_lineBreak + lines};
}

bool IniDocument::lineBeginsAt(qsizetype offset) const
{
    return offset <= m_begin || m_bytes[offset - 1] == '\n' || m_bytes[offset - 1] == '\r';
}

IniDocument::Change IniDocument::apply(const Edit& edit)
{
    const bool isAppended = edit.offset == m_bytes.size() && !m_isUtf16;
    const bool canExtend = isAppended && lineBeginsAt(edit.offset);
    if (m_isUtf16) {
        applyToUtf16(edit);
    }
    if (isAppended) {
        m_bytes.append(edit.inserted);
    } else {
        m_bytes.replace(edit.offset, edit.removed, edit.inserted);
    }
    if (canExtend) {
        m_index.extend(text(), edit.offset);
    } else {
        buildIndex();
    }
    return isAppended ? Change::Appended : Change::Rewritten;
}

void IniDocument::applyToUtf16(const Edit& edit)
{
    constexpr qsizetype kMarkUnits = 1;
    const auto unitsUpTo = [&](qsizetype offset) {
        return kMarkUnits + partOfUtf8(m_bytes.sliced(m_begin, offset - m_begin)).size();
    };
    const qsizetype begin = unitsUpTo(edit.offset) * kUtf16UnitSize;
    const qsizetype end = unitsUpTo(edit.offset + edit.removed) * kUtf16UnitSize;
    m_utf16.replace(begin, end - begin, toUtf16Bytes(partOfUtf8(edit.inserted)));
}

} // namespace orvanta
