#include "system/file_type_registration.h"

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

FileTypeRegistration::FileTypeRegistration(Registry& registry, QString applicationFolder)
    : m_registry(registry),
      m_folder(std::move(applicationFolder))
{}

QString FileTypeRegistration::typeName(const QString& extension)
{
    return u"vx"_s + extension + u"file"_s;
}

QString FileTypeRegistration::owner(const QString& extension) const
{
    return m_registry.RegReadString(RegistryHive::ClassesRoot, u'.' + extension, {});
}

void FileTypeRegistration::writeDefault(const QString& key, const QString& value)
{
    m_registry.RegWriteString(RegistryHive::ClassesRoot, key, {}, value);
}

void FileTypeRegistration::registerType(const QString& extension)
{
    writeTypeIcon(extension);
    writeDefault(u'.' + extension, typeName(extension));
    writeDefault(typeName(extension) + u"\\shell\\open\\command"_s,
                 m_folder + u"\\orvanta.exe %1"_s);
}

void FileTypeRegistration::unregisterType(const QString& extension, const QString& savedOwner)
{
    writeDefault(u'.' + extension, savedOwner);
}

void FileTypeRegistration::writeTypeIcon(const QString& extension)
{
    writeDefault(typeName(extension) + u"\\DefaultIcon"_s,
                 m_folder + u'\\' + extension + u".ico"_s);
}

void FileTypeRegistration::setAutorun(bool on)
{
    const QString key = u"software\\microsoft\\windows\\currentversion\\run"_s;
    if (on) {
        m_registry.RegWriteString(RegistryHive::LocalMachine, key, u"orvanta"_s,
                                  m_folder + u"\\orvanta.exe /auto"_s);
    } else {
        m_registry.RegDeleteValue(RegistryHive::LocalMachine, key, u"orvanta"_s);
    }
}

} // namespace orvanta
