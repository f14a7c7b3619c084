// The folder that holds the settings, and the installed one that holds what is only read.
#pragma once

#include <QString>

namespace orvanta {

/// The application folder: $ORVANTA_HOME; else the executable's folder when it holds a writable
/// orvanta.ini; else $XDG_DATA_HOME/orvanta. Created, with default settings, on first use.
[[nodiscard]] QString applicationFolder();

/// The same folder, whether it is there or not. Creates nothing.
[[nodiscard]] QString chosenApplicationFolder();

/// The folder that the program would choose without $ORVANTA_HOME. Creates nothing.
[[nodiscard]] QString folderWithoutVariable();

/// $XDG_STATE_HOME/orvanta, else ~/.local/state/orvanta: what the program keeps for a while.
/// Creates nothing.
[[nodiscard]] QString stateFolder();

/// Raises 76 when the application folder is not there and could not be made, 75 when it holds no
/// settings that can be read: whoever went on would wait for them for ever.
void requireSettings(const QString& folder);

/// Something that lies beside the program and is only read ("\icons\", "\help_eng.htm"): looked up
/// in the application folder, then in the installed one. The first place when it is nowhere.
[[nodiscard]] QString installedFile(const QString& folder, const QString& name);

/// A program whose name begins with a backslash ("\tutorial.exe"): in the application folder as
/// named, there without ".exe", then the same in the installed folders. Empty when none of them is
/// a file that can be executed.
[[nodiscard]] QString installedProgram(const QString& folder, const QString& name);

/// What new settings hold, with line ends of CR and LF; empty when it cannot be read.
[[nodiscard]] QByteArray defaultSettings();

/// Puts the default settings into a new application folder; leaves an existing file alone.
void installDefaultSettings(const QString& folder);

} // namespace orvanta
