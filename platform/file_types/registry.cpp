#include "platform/file_types/registry.h"

#include "core/paths.h"
#include "platform/file_types/desktop_types.h"
#include "platform/process/application_folder.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kLongestText = 254; // longer values are not given to a reader

namespace {

enum class Meaning
{
    None, // nothing on this desktop
    Type,
    TypeIcon,
    TypeCommand,
    FolderCommand,
    Autostart,
};

struct Key
{
    Meaning meaning = Meaning::None;
    QString extension; // of the first three
};

} // namespace

static bool isSame(const QString& a, QStringView b)
{
    return b.compare(a, Qt::CaseInsensitive) == 0;
}

static Key classKey(const QString& subkey)
{
    static const QRegularExpression ofType(
        u"^vx(.+)file\\\\(defaulticon|shell\\\\open\\\\command)$"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    if (subkey.size() > 1 && subkey.startsWith(u'.') && !subkey.contains(u'\\')) {
        return {Meaning::Type, subkey.mid(1)};
    }
    if (const auto match = ofType.match(subkey); match.hasMatch()) {
        const bool isIcon = isSame(match.captured(2), u"defaulticon");
        return {isIcon ? Meaning::TypeIcon : Meaning::TypeCommand, match.captured(1)};
    }
    const bool isFolder = isSame(subkey, u"Folder\\shell\\Play clips\\command");
    return {isFolder ? Meaning::FolderCommand : Meaning::None, {}};
}

static Key keyOf(RegistryHive hive, const QString& subkey, const QString& valueName)
{
    if (hive == RegistryHive::ClassesRoot) {
        return valueName.isEmpty() ? classKey(subkey) : Key();
    }
    const bool isAutostart = isSame(valueName, u"orvanta") &&
                             isSame(subkey, u"software\\microsoft\\windows\\currentversion\\run");
    return {isAutostart ? Meaning::Autostart : Meaning::None, {}};
}

static QString sectionOf(RegistryHive hive, const QString& subkey)
{
    const QString root =
        hive == RegistryHive::ClassesRoot ? u"HKEY_CLASSES_ROOT"_s : u"HKEY_LOCAL_MACHINE"_s;
    return root + u'\\' + subkey;
}

class Registry::Private
{
public:
    Private(const QString& applicationFolder, const QString& executable, const QString& home)
        : file(programFile(applicationFolder, u"\\registry.ini"_s)),
          entries(executable, home),
          types(applicationFolder, entries, file, caches)
    {}

    void apply(const Key& key, const QString& value);
    void endTurn();

    int turns = 0; // how many are open
    RegistryFile file;
    DesktopEntries entries;
    DesktopCaches caches;
    DesktopTypes types;
};

/// What a written value means to the desktop.
void Registry::Private::apply(const Key& key, const QString& value)
{
    switch (key.meaning) {
    case Meaning::TypeCommand:
        types.writeCommand();
        break;
    case Meaning::FolderCommand:
        entries.writeFolderCommand();
        break;
    case Meaning::Autostart:
        value.isEmpty() ? DesktopEntries::removeAutostart() : entries.writeAutostart();
        break;
    case Meaning::Type:
    case Meaning::TypeIcon: // they keep their values themselves
    case Meaning::None:
        break;
    }
}

void Registry::Private::endTurn()
{
    if (--turns == 0) {
        types.save();
        file.save();
    }
}

Registry::Turn::Turn(Registry& registry)
    : m_registry(registry)
{
    ++m_registry.m_private->turns;
}

Registry::Turn::~Turn()
{
    m_registry.m_private->endTurn();
}

/// What the desktop starts must find the same settings.
static QString homeToCarry(const QString& applicationFolder)
{
    const bool found = applicationFolder == folderWithoutVariable();
    return found ? QString() : applicationFolder;
}

Registry::Registry(const QString& applicationFolder)
    : Registry(applicationFolder, QCoreApplication::applicationFilePath(),
               homeToCarry(applicationFolder))
{}

Registry::Registry(const QString& applicationFolder, const QString& executable, const QString& home)
    : m_private(std::make_unique<Private>(applicationFolder, executable, home))
{}

Registry::~Registry() = default;

QString Registry::RegReadString(RegistryHive hive, const QString& subkey,
                                const QString& valueName) const
{
    const Key key = keyOf(hive, subkey, valueName);
    if (key.meaning == Meaning::Autostart && !DesktopEntries::hasAutostart()) {
        return {};
    }
    if (key.meaning == Meaning::Type) {
        ++m_private->turns;
        const QString program = m_private->types.read(key.extension);
        m_private->endTurn();
        return program.size() <= kLongestText ? program : QString();
    }
    const QString value = m_private->file.read(sectionOf(hive, subkey), valueName);
    return value.size() <= kLongestText ? value : QString();
}

void Registry::RegWriteString(RegistryHive hive, const QString& subkey, const QString& valueName,
                              const QString& value)
{
    const Turn turn(*this);
    const Key key = keyOf(hive, subkey, valueName);
    if (key.meaning == Meaning::Type) {
        m_private->types.write(key.extension, value);
    } else if (key.meaning == Meaning::TypeIcon) {
        m_private->types.writeIcon(key.extension, value);
    } else {
        m_private->file.write(sectionOf(hive, subkey), valueName, value);
        m_private->apply(key, value);
    }
}

void Registry::RegDeleteValue(RegistryHive hive, const QString& subkey, const QString& valueName)
{
    // An empty value reads like an absent one.
    RegWriteString(hive, subkey, valueName, {});
}

bool Registry::isWorkingInBackground() const
{
    return m_private->caches.isBusy();
}

bool FileExists(const QString& path)
{
    const bool endsInSeparator = path.endsWith(u'\\') || path.endsWith(u'/');
    const QString file = endsInSeparator ? path.chopped(1) : path;
    // Only a regular file is opened: a FIFO without a writer would never come back.
    return QFileInfo(file).isFile() && QFile(file).open(QIODevice::ReadOnly);
}

} // namespace orvanta
