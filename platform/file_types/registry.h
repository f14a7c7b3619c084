// The registry procedures. Keys that mean something to the desktop are the desktop's own settings;
// the rest is kept in registry.ini.
//
//   .e                                   which program opens the files of type e
//   vx<e>file\DefaultIcon                their icon
//   vx<e>file\shell\open\command         this program's desktop entry
//   Folder\shell\Play clips\command      the command on folders
//   …\currentversion\run, "orvanta"      the start with the session
#pragma once

#include <QString>

#include <memory>

namespace orvanta {

enum class RegistryHive
{
    ClassesRoot,
    LocalMachine,
};

/// Subkeys are joined with "\" and compared without case. An empty value name is the key's default
/// value. None of these raises; failures are logged. The program that registers itself is the
/// running one.
///
/// The default value of ".e" reads as the type name that was written ("vxavifile") while this
/// program is the default application of the extension's type of content, as the id of another
/// program's desktop entry while that one is, and as the empty text without a default. Writing a
/// type name makes this program the default; writing another program's id gives the type to it,
/// but only while it is this program's; the empty text takes this program's own entries out.
class Registry
{
public:
    explicit Registry(const QString& applicationFolder);
    /// The same for another executable than the running one. An absolute path.
    /// home: what the desktop's commands carry as $ORVANTA_HOME; empty for nothing.
    Registry(const QString& applicationFolder, const QString& executable, const QString& home = {});
    ~Registry();
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    [[nodiscard]] QString RegReadString(RegistryHive hive, const QString& subkey,
                                        const QString& valueName) const;
    void RegWriteString(RegistryHive hive, const QString& subkey, const QString& valueName,
                        const QString& value);
    void RegDeleteValue(RegistryHive hive, const QString& subkey, const QString& valueName);

    /// As long as it lives, what is written and read goes through memory; what was written is
    /// brought to the desktop when it ends. Two hundred types then cost as much as one.
    class Turn
    {
    public:
        explicit Turn(Registry& registry);
        ~Turn();
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

    private:
        Registry& m_registry;
    };

    /// Whether the desktop's caches and icons are still being brought up to date.
    [[nodiscard]] bool isWorkingInBackground() const;

private:
    class Private;
    std::unique_ptr<Private> m_private;
};

/// Whether the path (one trailing separator dropped) can be opened for reading.
[[nodiscard]] bool FileExists(const QString& path);

} // namespace orvanta
