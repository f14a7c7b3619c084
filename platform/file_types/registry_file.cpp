#include "platform/file_types/registry_file.h"

#include "core/ini_stored_names.h"
#include "core/log.h"

#include <utility>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

/// The default value has no name of its own; an INI key must have one.
static QString iniKeyOf(const QString& name)
{
    return name.isEmpty() ? u"@"_s : storedKey(name);
}

static QString changeKey(const QString& section, const QString& name)
{
    return (section + u'\n' + iniKeyOf(name)).toCaseFolded();
}

/// Reading cuts outer blanks and one pair of outer quotes; one more pair keeps both.
static QString withEndsProtected(const QString& value)
{
    const bool quoted = value.startsWith(u'"') || value.startsWith(u'\'');
    return quoted || value != value.trimmed() ? u'"' + value + u'"' : value;
}

RegistryFile::RegistryFile(QString file)
    : m_file(std::move(file))
{}

QString RegistryFile::read(const QString& section, const QString& name) const
{
    const auto change = m_changes.constFind(changeKey(section, name));
    return change != m_changes.cend() ? change->value
                                      : readIniRaw(storedSection(section), iniKeyOf(name), m_file);
}

void RegistryFile::write(const QString& section, const QString& name, const QString& value)
{
    if (read(section, name) != value) {
        m_changes.insert(changeKey(section, name), {storedSection(section), iniKeyOf(name), value});
    }
}

void RegistryFile::save()
{
    if (m_changes.isEmpty()) {
        return;
    }
    std::vector<IniChange> changes;
    for (const IniChange& change : std::as_const(m_changes)) {
        changes.push_back({change.section, change.key, withEndsProtected(change.value)});
    }
    m_changes.clear();
    if (!changeIniAtOnce(m_file, [&](const auto&) { return changes; })) {
        qCInfo(logDesktop, "%ls cannot be written", qUtf16Printable(m_file));
    }
}

} // namespace orvanta
