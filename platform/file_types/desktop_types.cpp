#include "platform/file_types/desktop_types.h"

#include "core/paths.h"
#include "platform/file_types/mime_package.h"
#include "platform/file_types/type_icons.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static QString classOf(const QString& extension)
{
    return u"HKEY_CLASSES_ROOT\\."_s + extension;
}

static QString iconKeyOf(const QString& extension)
{
    return u"HKEY_CLASSES_ROOT\\vx"_s + extension + u"file\\DefaultIcon"_s;
}

/// The names that this program gives types: "vxavifile".
static bool isTypeName(const QString& value)
{
    return value.startsWith(u"vx") && value.endsWith(u"file");
}

DesktopTypes::DesktopTypes(QString applicationFolder, const DesktopEntries& entries,
                           RegistryFile& file, DesktopCaches& caches)
    : m_folder(std::move(applicationFolder)),
      m_entries(entries),
      m_file(file),
      m_caches(caches)
{}

void DesktopTypes::load()
{
    if (m_isLoaded) {
        return;
    }
    m_isLoaded = true;
    m_globs.readWhenChanged();
    m_claimed = m_file.read(u"desktop"_s, u"types"_s).split(u';', Qt::SkipEmptyParts);
    for (const QString& extension : std::as_const(m_claimed)) {
        countTypes(extension, 1);
    }
}

/// Empty for an extension that no pattern can hold: nothing on the desktop stands for it.
QStringList DesktopTypes::typesOf(const QString& extension) const
{
    const QString own = ownTypeOf(extension);
    const QStringList known = own.isEmpty() ? QStringList() : m_globs.typesOf(extension);
    return known.isEmpty() && !own.isEmpty() ? QStringList(own) : known;
}

void DesktopTypes::countTypes(const QString& extension, int difference)
{
    for (const QString& type : typesOf(extension)) {
        m_claims[type] += difference;
    }
}

QString DesktopTypes::storedName(const QString& extension) const
{
    return m_file.read(classOf(extension), {});
}

QString DesktopTypes::read(const QString& extension)
{
    load();
    const QStringList types = typesOf(extension);
    if (types.isEmpty()) {
        return storedName(extension);
    }
    const QByteArray program = m_defaults.defaultOf(types.constFirst().toUtf8());
    if (program != kOwnDesktopEntry) {
        return QString::fromUtf8(program);
    }
    const QString stored = storedName(extension);
    // Without a name, the type is here for another extension's sake, or by the user's own choice.
    const bool isByChoice = m_claims.value(types.constFirst()) == 0;
    return stored.isEmpty() && isByChoice ? u"vx"_s + extension + u"file"_s : stored;
}

void DesktopTypes::write(const QString& extension, const QString& value)
{
    load();
    const bool isDesktops = !typesOf(extension).isEmpty();
    const bool isClaim = isTypeName(value);
    m_file.write(classOf(extension), {}, isClaim || !isDesktops ? value : QString());
    if (isDesktops && isClaim) {
        claim(extension);
    } else if (isDesktops) {
        release(extension, value.toUtf8());
    }
}

void DesktopTypes::claim(const QString& extension)
{
    if (!m_claimed.contains(extension.toLower())) {
        m_claimed.append(extension.toLower());
        countTypes(extension, 1);
        m_newIcons.append(extension);
    }
    for (const QString& type : typesOf(extension)) {
        m_defaults.claim(type.toUtf8());
    }
    m_isChanged = true;
    m_isEntryWanted = true;
}

void DesktopTypes::release(const QString& extension, const QByteArray& heir)
{
    const QStringList types = typesOf(extension);
    const QByteArray first = types.constFirst().toUtf8();
    const bool wasOurs = m_defaults.defaultOf(first) == kOwnDesktopEntry;
    const bool wasClaimed = m_claimed.removeAll(extension.toLower()) > 0;
    if (wasClaimed) {
        countTypes(extension, -1);
        m_isChanged = true;
    }
    // The own type stems from a time when the desktop did not know the extension.
    for (const QString& type : types + QStringList(ownTypeOf(extension))) {
        releaseType(type, wasClaimed);
    }
    if (wasOurs && m_claims.value(types.constFirst()) == 0) {
        m_defaults.giveTo(first, heir);
        m_isChanged = true;
    }
}

void DesktopTypes::releaseType(const QString& type, bool hasIcon)
{
    if (m_claims.value(type) > 0) {
        return;
    }
    m_defaults.release(type.toUtf8());
    if (hasIcon) {
        m_oldIcons.append(themeIconName(type));
    }
}

void DesktopTypes::writeIcon(const QString& extension, const QString& value)
{
    load();
    m_file.write(iconKeyOf(extension), {}, value);
    m_newIcons.append(extension);
}

void DesktopTypes::writeCommand()
{
    load();
    m_isEntryWanted = true;
}

void DesktopTypes::save()
{
    m_defaults.save();
    if (m_isChanged) {
        saveClaims();
        savePackage();
    }
    if (m_isChanged || m_isEntryWanted) {
        saveEntry();
    }
    saveIcons();
    m_isLoaded = false;
    m_isChanged = false;
    m_isEntryWanted = false;
    m_claimed.clear();
    m_claims.clear();
    m_newIcons.clear();
    m_oldIcons.clear();
}

void DesktopTypes::saveClaims()
{
    m_file.write(u"desktop"_s, u"types"_s, m_claimed.join(u';'));
}

void DesktopTypes::savePackage()
{
    QStringList unknown;
    for (const QString& extension : std::as_const(m_claimed)) {
        if (isOwnType(typesOf(extension).value(0)) && !m_globs.isSystems(extension)) {
            unknown.append(extension);
        }
    }
    if (writeMimePackage(unknown)) {
        m_caches.refreshTypes();
    }
}

void DesktopTypes::saveEntry()
{
    QByteArrayList types;
    for (auto claim = m_claims.cbegin(); claim != m_claims.cend(); ++claim) {
        if (claim.value() > 0) {
            types.append(claim.key().toUtf8());
        }
    }
    std::sort(types.begin(), types.end()); // the hash has no order of its own
    if ((m_isEntryWanted || DesktopEntries::hasApplication()) &&
        m_entries.writeApplication(types)) {
        m_caches.refreshEntries();
    }
}

/// Type of content -> the first extension that claimed it.
QHash<QString, QString> DesktopTypes::firstClaims() const
{
    QHash<QString, QString> first;
    for (const QString& extension : m_claimed) {
        for (const QString& type : typesOf(extension)) {
            if (!first.contains(type)) {
                first.insert(type, extension);
            }
        }
    }
    return first;
}

/// The type's own name, and the desktop's names as long as this program opens the type. The first
/// extension that claimed a type of content gives it its icon.
QStringList DesktopTypes::iconNames(const QString& extension,
                                    const QHash<QString, QString>& firstClaims) const
{
    QStringList names = {u"vx"_s + extension + u"file"_s};
    for (const QString& type : typesOf(extension)) {
        if (firstClaims.value(type) == extension.toLower()) {
            names.append(themeIconName(type));
        }
    }
    return names;
}

/// The file that a type's icon is made from, where value is what the registry says.
static QString iconFile(const QString& folder, const QString& extension, const QString& value)
{
    const QString own = folder + u'\\';
    const QString file =
        value.startsWith(own) ? programFile(folder, value.mid(own.size() - 1)) : value;
    return QFileInfo::exists(file) ? file : currentIcon(folder, extension);
}

void DesktopTypes::saveIcons()
{
    if (!m_oldIcons.isEmpty()) {
        m_caches.runLater(
            [theme = userIconTheme(), names = m_oldIcons] { removeThemeIcons(theme, names); });
    }
    const QHash<QString, QString> first = firstClaims();
    m_newIcons.removeDuplicates();
    for (const QString& extension : std::as_const(m_newIcons)) {
        const QString value = m_file.read(iconKeyOf(extension), {});
        if (ownTypeOf(extension).isEmpty() || value.isEmpty()) {
            continue;
        }
        m_caches.runLater([theme = userIconTheme(), folder = m_folder, extension, value,
                           names = iconNames(extension, first)] {
            writeThemeIcons(theme, iconFile(folder, extension, value), names);
        });
    }
}

} // namespace orvanta
