#include "platform/registry.h"

#include "core/ini.h"
#include "core/paths.h"

#include <QFile>
#include <QFileInfo>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kLongestText = 254; // longer values are not given to a reader

static QString sectionOf(RegistryHive hive, const QString& subkey)
{
    const QString root =
        hive == RegistryHive::ClassesRoot ? u"HKEY_CLASSES_ROOT"_s : u"HKEY_LOCAL_MACHINE"_s;
    return root + u'\\' + subkey;
}

/// The default value has no name of its own; an INI key must have one.
static QString keyOf(const QString& valueName)
{
    return valueName.isEmpty() ? u"@"_s : valueName;
}

/// Reading cuts outer blanks and one pair of outer quotes; one more pair keeps both.
static QString withEndsProtected(const QString& value)
{
    const bool quoted = value.startsWith(u'"') || value.startsWith(u'\'');
    return quoted || value != value.trimmed() ? u'"' + value + u'"' : value;
}

Registry::Registry(const QString& applicationFolder)
    : m_file(programFile(applicationFolder, u"\\registry.ini"_s))
{}

QString Registry::RegReadString(RegistryHive hive, const QString& subkey,
                                const QString& valueName) const
{
    const QString value = readIniRaw(sectionOf(hive, subkey), keyOf(valueName), m_file);
    return value.size() <= kLongestText ? value : QString();
}

void Registry::RegWriteString(RegistryHive hive, const QString& subkey, const QString& valueName,
                              const QString& value)
{
    WriteIni(sectionOf(hive, subkey), keyOf(valueName), withEndsProtected(value), m_file);
}

void Registry::RegDeleteValue(RegistryHive hive, const QString& subkey, const QString& valueName)
{
    // An empty value reads like an absent one.
    if (!readIniRaw(sectionOf(hive, subkey), keyOf(valueName), m_file).isEmpty()) {
        WriteIni(sectionOf(hive, subkey), keyOf(valueName), QString(), m_file);
    }
}

bool FileExists(const QString& path)
{
    const bool endsInSeparator = path.endsWith(u'\\') || path.endsWith(u'/');
    const QString file = endsInSeparator ? path.chopped(1) : path;
    // Only a regular file is opened: a FIFO without a writer would never come back.
    return QFileInfo(file).isFile() && QFile(file).open(QIODevice::ReadOnly);
}

} // namespace orvanta
