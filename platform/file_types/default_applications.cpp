#include "platform/file_types/default_applications.h"

#include "platform/file_types/desktop_files.h"
#include "platform/file_types/desktop_folders.h"

#include <QFileInfo>

namespace orvanta {

using namespace Qt::StringLiterals;

/// "mimeapps.list" and, before it, those of the running desktop ("kde-mimeapps.list").
static QStringList listNames()
{
    QStringList names;
    for (const QString& desktop : DesktopFolders::desktopNames()) {
        names.append(desktop + u"-mimeapps.list"_s);
    }
    return names << u"mimeapps.list"_s;
}

void DefaultApplications::load()
{
    if (m_isLoaded) {
        return;
    }
    m_isLoaded = true;
    QStringList folders = DesktopFolders::configFolders();
    for (const QString& folder : DesktopFolders::dataFolders()) {
        folders.append(folder + u"/applications"_s);
        m_folders.push_back({folders.constLast(), {}});
        readCache(m_folders.back());
    }
    for (const QString& folder : folders) {
        for (const QString& name : listNames()) {
            m_lists.emplace_back(folder + u'/' + name);
        }
    }
}

/// mimeinfo.cache has one section, whose lines are "type=id;id;".
void DefaultApplications::readCache(EntryFolder& entries) const
{
    const QByteArray content = contentOf(entries.folder + u"/mimeinfo.cache"_s);
    for (const QByteArray& line : content.split('\n')) {
        const qsizetype mark = line.indexOf('=');
        if (mark > 0) {
            entries.cache.insert(line.left(mark), line.mid(mark + 1));
        }
    }
}

/// An id names a file whose folders are written with "-": "kde-player.desktop" may be
/// "kde/player.desktop".
static bool hasEntry(const QString& folder, const QString& id)
{
    if (QFileInfo(folder + u'/' + id).isFile()) {
        return true;
    }
    for (qsizetype dash = id.indexOf(u'-'); dash > 0; dash = id.indexOf(u'-', dash + 1)) {
        const QString below = folder + u'/' + id.left(dash);
        if (QFileInfo(below).isDir() && hasEntry(below, id.mid(dash + 1))) {
            return true;
        }
    }
    return false;
}

bool DefaultApplications::isInstalled(const QByteArray& program)
{
    const auto known = m_installed.constFind(program);
    if (known != m_installed.cend()) {
        return known.value();
    }
    const QString id = QString::fromUtf8(program);
    bool found = false;
    for (const EntryFolder& entries : m_folders) {
        found = found || (!id.contains(u'/') && hasEntry(entries.folder, id));
    }
    m_installed.insert(program, found);
    return found;
}

QByteArray DefaultApplications::firstInstalled(const QByteArrayList& programs)
{
    for (const QByteArray& program : programs) {
        if (isInstalled(program)) {
            return program;
        }
    }
    return {};
}

QByteArray DefaultApplications::defaultOf(const QByteArray& type)
{
    load();
    QByteArrayList added;
    QByteArrayList removed;
    for (const MimeAppsList& list : m_lists) {
        QByteArray program = firstInstalled(list.programs(kDefaultApplications, type));
        if (!program.isEmpty()) {
            return program;
        }
        // Nothing that the same list or a better one adds can be removed any more.
        for (const QByteArray& choice : list.programs(kAddedAssociations, type)) {
            if (!removed.contains(choice)) {
                added.append(choice);
            }
        }
        removed += list.programs(kRemovedAssociations, type);
    }
    const QByteArray program = firstInstalled(added);
    return program.isEmpty() ? firstAssociated(type, removed) : program;
}

/// Nobody has chosen a default: the desktop takes the first entry that says it opens the type. The
/// user's own folder does not speak for this program: its cache may be older than its entry.
QByteArray DefaultApplications::firstAssociated(const QByteArray& type,
                                                const QByteArrayList& removed)
{
    for (EntryFolder& entries : m_folders) {
        QByteArrayList programs = entries.cache.value(type).split(';');
        const bool isUsers = &entries == &m_folders.front();
        programs.removeIf([&](const QByteArray& program) {
            return program.isEmpty() || removed.contains(program) ||
                   (isUsers && program == kOwnDesktopEntry);
        });
        QByteArray program = firstInstalled(programs);
        if (!program.isEmpty()) {
            return program;
        }
    }
    return {};
}

/// Older programs wrote the user's choices beside the user's desktop entries.
static bool isUsersList(const MimeAppsList& list)
{
    const QString folder = QFileInfo(list.file()).path();
    return folder == DesktopFolders::configHome() ||
           folder == DesktopFolders::dataHome() + u"/applications"_s;
}

/// The user's plain list, and any other list of the user's that already says something about the
/// type and would be asked first.
bool DefaultApplications::isOwnListFor(const MimeAppsList& list, const QByteArray& type) const
{
    const QString home = DesktopFolders::configHome();
    return list.file() == home + u"/mimeapps.list"_s ||
           (QFileInfo(list.file()).path() == home && list.has(kDefaultApplications, type));
}

void DefaultApplications::claim(const QByteArray& type)
{
    load();
    m_installed.insert(kOwnDesktopEntry, true); // who claims types brings the entry along
    for (MimeAppsList& list : m_lists) {
        if (isOwnListFor(list, type)) {
            list.putFirst(kDefaultApplications, type, kOwnDesktopEntry);
            list.takeOut(kRemovedAssociations, type, kOwnDesktopEntry);
        }
    }
}

void DefaultApplications::takeOutOfUsersLists(const QByteArray& section, const QByteArray& type)
{
    for (MimeAppsList& list : m_lists) {
        if (isUsersList(list)) {
            list.takeOut(section, type, kOwnDesktopEntry);
        }
    }
}

/// Step by step, so that no more is changed than is needed: the choice as the default, the choice
/// as one of several ("Open with"), and last what the installed entry says of itself.
void DefaultApplications::release(const QByteArray& type)
{
    load();
    for (const char* section : {kDefaultApplications, kAddedAssociations}) {
        takeOutOfUsersLists(section, type);
        if (defaultOf(type) != kOwnDesktopEntry) {
            return;
        }
    }
    for (MimeAppsList& list : m_lists) {
        if (list.file() == DesktopFolders::configHome() + u"/mimeapps.list"_s) {
            list.putFirst(kRemovedAssociations, type, kOwnDesktopEntry);
        }
    }
}

void DefaultApplications::giveTo(const QByteArray& type, const QByteArray& program)
{
    load();
    if (!isInstalled(program) || defaultOf(type) == program) {
        return;
    }
    for (MimeAppsList& list : m_lists) {
        if (isOwnListFor(list, type)) {
            list.putFirst(kDefaultApplications, type, program);
        }
    }
}

void DefaultApplications::save()
{
    for (MimeAppsList& list : m_lists) {
        list.save();
    }
    *this = DefaultApplications();
}

} // namespace orvanta
