#include "platform/file_types/mime_apps_list.h"

#include "core/log.h"
#include "platform/file_types/desktop_files.h"

#include <utility>

namespace orvanta {

static QByteArrayList splitIntoLines(const QByteArray& content)
{
    QByteArrayList lines;
    qsizetype from = 0;
    while (from < content.size()) {
        const qsizetype end = content.indexOf('\n', from);
        const qsizetype next = end < 0 ? content.size() : end + 1;
        lines.append(content.mid(from, next - from));
        from = next;
    }
    return lines;
}

static bool isSection(const QByteArray& line)
{
    return line.trimmed().startsWith('[');
}

/// Where the value of a "key=value" line begins; -1 for other lines.
static qsizetype valueStart(const QByteArray& line)
{
    const qsizetype mark = line.indexOf('=');
    if (mark < 0 || line.trimmed().startsWith('#')) {
        return -1;
    }
    qsizetype start = mark + 1;
    while (start < line.size() && (line[start] == ' ' || line[start] == '\t')) {
        ++start;
    }
    return start;
}

static QByteArrayList programsOfLine(const QByteArray& line)
{
    QByteArrayList programs = line.mid(valueStart(line)).trimmed().split(';');
    for (QByteArray& program : programs) {
        program = program.trimmed();
    }
    programs.removeAll(QByteArray());
    return programs;
}

/// The line without every mention of the program; empty when nothing else stands in it.
static QByteArray lineWithout(const QByteArray& line, const QByteArray& program)
{
    const qsizetype start = valueStart(line);
    qsizetype end = line.size();
    while (end > start && (line[end - 1] == '\n' || line[end - 1] == '\r')) {
        --end;
    }
    QByteArrayList entries = line.mid(start, end - start).split(';');
    entries.removeIf([&](const QByteArray& entry) { return entry.trimmed() == program; });
    const QByteArray value = entries.join(';');
    return value.trimmed().isEmpty() ? QByteArray() : line.left(start) + value + line.mid(end);
}

static QByteArray indexKey(const QByteArray& section, const QByteArray& type)
{
    return section + '\n' + type;
}

MimeAppsList::MimeAppsList(const QString& file)
    : MimeAppsList(file, readWhole(file))
{}

MimeAppsList::MimeAppsList(QString file, const std::optional<QByteArray>& content)
    : m_file(std::move(file)),
      m_lines(splitIntoLines(content.value_or(QByteArray()))),
      m_newFrom(m_lines.size()),
      m_lineEnd(m_lines.value(0).endsWith("\r\n") ? "\r\n" : "\n"),
      m_isReadable(content.has_value())
{
    buildIndex();
}

/// "Default Applications" of "[Default Applications]".
static QByteArray sectionName(const QByteArray& line)
{
    const QByteArray heading = line.trimmed();
    return heading.mid(1, heading.indexOf(']') - 1);
}

void MimeAppsList::buildIndex()
{
    QByteArray section;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const QByteArray& line = m_lines[i];
        if (isSection(line)) {
            section = sectionName(line);
        } else if (valueStart(line) > 0) {
            m_index[indexKey(section, line.left(line.indexOf('=')).trimmed())].append(i);
        }
    }
}

QList<qsizetype> MimeAppsList::linesOf(const QByteArray& section, const QByteArray& type) const
{
    return m_index.value(indexKey(section, type));
}

QByteArrayList MimeAppsList::programs(const QByteArray& section, const QByteArray& type) const
{
    const QList<qsizetype> lines = linesOf(section, type);
    return lines.isEmpty() ? QByteArrayList() : programsOfLine(m_lines[lines.constFirst()]);
}

bool MimeAppsList::has(const QByteArray& section, const QByteArray& type) const
{
    return m_index.contains(indexKey(section, type));
}

void MimeAppsList::putFirst(const QByteArray& section, const QByteArray& type,
                            const QByteArray& program)
{
    const Change change = {&MimeAppsList::putFirst, section, type, program};
    const QList<qsizetype> lines = linesOf(section, type);
    if (lines.isEmpty()) {
        m_index[indexKey(section, type)] = {m_lines.size()};
        m_places.insert(m_lines.size(), section);
        m_lines.append(type + '=' + program + m_lineEnd);
        m_changes.push_back(change);
    }
    // A doubled key: readers differ in which of the lines they take.
    for (const qsizetype i : lines) {
        if (programsOfLine(m_lines[i]).value(0) != program) {
            const QByteArray rest = lineWithout(m_lines[i], program);
            const qsizetype start = valueStart(m_lines[i]);
            m_lines[i] = rest.isEmpty() ? m_lines[i].left(start) + program + m_lineEnd
                                        : QByteArray(rest).insert(start, program + ';');
            m_changes.push_back(change);
        }
    }
}

void MimeAppsList::takeOut(const QByteArray& section, const QByteArray& type,
                           const QByteArray& program)
{
    for (const qsizetype i : linesOf(section, type)) {
        if (!programsOfLine(m_lines[i]).contains(program)) {
            continue;
        }
        m_lines[i] = lineWithout(m_lines[i], program);
        m_changes.push_back({&MimeAppsList::takeOut, section, type, program});
        if (m_lines[i].isEmpty()) { // the line is gone
            QList<qsizetype>& lines = m_index[indexKey(section, type)];
            lines.removeAll(i);
            if (lines.isEmpty()) {
                m_index.remove(indexKey(section, type));
            }
        }
    }
}

QByteArray MimeAppsList::newLinesOf(const QByteArray& section) const
{
    QByteArray lines;
    for (qsizetype i = m_newFrom; i < m_lines.size(); ++i) {
        if (m_places.value(i) == section) {
            lines += m_lines[i];
        }
    }
    return lines;
}

/// Behind the last line of the section that holds anything; 0 where there is no such section.
static qsizetype endOfSection(const QByteArrayList& lines, const QByteArray& section)
{
    qsizetype end = 0;
    bool isInside = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (isSection(lines[i])) {
            isInside = end == 0 && sectionName(lines[i]) == section;
        }
        if (isInside && !lines[i].trimmed().isEmpty()) {
            end = i + 1;
        }
    }
    return end;
}

QByteArray MimeAppsList::content() const
{
    QByteArrayList lines = m_lines.mid(0, m_newFrom);
    lines.removeAll(QByteArray()); // those that were taken out
    if (!lines.isEmpty() && !lines.constLast().endsWith('\n') && m_lines.size() > m_newFrom) {
        lines.last().append(m_lineEnd);
    }
    for (const char* section : {kDefaultApplications, kRemovedAssociations}) {
        const QByteArray added = newLinesOf(section);
        if (added.isEmpty()) {
            continue;
        }
        qsizetype end = endOfSection(lines, section);
        if (end == 0) {
            lines.append('[' + QByteArray(section) + ']' + m_lineEnd);
            end = lines.size();
        }
        lines.insert(end, added);
    }
    return lines.join();
}

void MimeAppsList::save()
{
    if (m_changes.empty()) {
        return;
    }
    MimeAppsList now(m_file);
    for (const Change& change : m_changes) {
        (now.*change.call)(change.section, change.type, change.program);
    }
    if (!now.m_isReadable) {
        qCInfo(logDesktop, "%ls cannot be read and stays as it is", qUtf16Printable(m_file));
    } else if (now.m_changes.empty() || replaceFile(m_file, now.content())) {
        *this = MimeAppsList(m_file);
    }
}

} // namespace orvanta
