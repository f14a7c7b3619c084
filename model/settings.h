// The settings file: every key in one table, and whatever reads or writes one. Nothing is cached:
// each call goes to the file.
#pragma once

#include "core/int16.h"
#include "model/texts.h"

#include <QMap>
#include <QStringList>

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace orvanta {

/// The options that are on or off, in the order of the table's first rows.
enum class Option
{
    StartPlaying,
    NextClip,
    NextPacket,
    CloseWhenOver,
    Replay,
    TrayIcon,
    KeepRunning,
    CopyFromDriveA,
    StartWithSession,
};

struct SettingKey
{
    std::u16string_view section;
    std::u16string_view key;   // "#" stands for a number, in section "pos" for a clip's text
    const char16_t* byDefault; // in a new settings file; null: not there
};

inline constexpr std::array kSettings = {
    SettingKey{u"options", u"as", u"1"},        // playing starts after opening
    SettingKey{u"options", u"agnc", u"1"},      // a clip's end goes on to the next clip
    SettingKey{u"options", u"agnp", u"1"},      // a packet's end goes on to the next packet
    SettingKey{u"options", u"acp", u"0"},       // the end of files from outside closes
    SettingKey{u"options", u"ar", u"0"},        // the end of all goes to the beginning
    SettingKey{u"options", u"si", u"0"},        // icon in the tray
    SettingKey{u"options", u"nc", u"0"},        // closing the window keeps the program
    SettingKey{u"options", u"r", u"0"},         // clips on drive A are copied first
    SettingKey{u"options", u"ws", u"0"},        // starts with the session
    SettingKey{u"main", u"language", nullptr},  // 1 English, 2 Russian
    SettingKey{u"main", u"screxe", u""},        // where the setup program came from
    SettingKey{u"ftl", u"wr", u"0"},            // 1 while the hand-over queue is emptied
    SettingKey{u"ftl", u"num", u"0"},           // lines in the queue
    SettingKey{u"ftl", u"#", nullptr},          // such a line, from 1
    SettingKey{u"types", u"num", u"21"},        // types of playable files
    SettingKey{u"types", u"file#", u"avi"},     // such a type, from 0
    SettingKey{u"types", u"#reg", nullptr},     // who had the type of a row, from 0, before
    SettingKey{u"save", u"volume", u"0"},       // hundredths of a decibel, 0 the loudest
    SettingKey{u"save", u"balance", u"50"},     // 0 to 100
    SettingKey{u"save", u"open", u""},          // the folder last used
    SettingKey{u"add-ins", u"num", u"0"},       // programs in the menu Add-ins
    SettingKey{u"add-ins", u"namee#", nullptr}, // an add-in's English caption, from 1
    SettingKey{u"add-ins", u"namer#", nullptr}, // its Russian one
    SettingKey{u"add-ins", u"path#", nullptr},  // its program, seen from the settings' folder
    SettingKey{u"pos", u"#", nullptr},          // the saved position of a clip, seconds
    SettingKey{u"text", u"codepage", nullptr},  // of old files; in platform.ini
};

/// On is exactly "1"; an option that is absent is off.
[[nodiscard]] bool optionIsOn(const QString& iniPath, Option option);
/// What the options dialog shows: there any text of the number 1 is on.
[[nodiscard]] bool optionIsOne(const QString& iniPath, Option option);
/// All of them in one replacement of the file. A failure is logged.
void storeOptions(const QString& iniPath, const std::vector<std::pair<Option, bool>>& options);

/// The interface language: 1 English, 2 Russian, 0 when none is stored or what is stored is no
/// number. The integer part counts. Raises 6 outside 16 bits.
[[nodiscard]] Int16 storedLanguage(const QString& iniPath);
/// Whether there is any text for it.
[[nodiscard]] bool isLanguageStored(const QString& iniPath);
void storeLanguage(const QString& iniPath, TextLanguage language);
/// The language of a number. Whether anything but 1 and 2 is English or Russian differs from
/// window to window.
[[nodiscard]] TextLanguage textLanguage(double number, TextLanguage otherwise);
/// Of the stored number, for windows that look afresh at each showing.
[[nodiscard]] TextLanguage storedTextLanguage(const QString& iniPath, TextLanguage otherwise);
/// The same where the texts "1" and "2" alone count: "1.0" is neither.
[[nodiscard]] TextLanguage exactTextLanguage(const QString& iniPath, TextLanguage otherwise);

/// The types of playable files, without the dot. Raises 13 when the count is absent or no number.
[[nodiscard]] QStringList storedTypes(const QString& iniPath);
/// "*.avi;*.mpg;*.wav". The first type is always there. Raises as storedTypes.
[[nodiscard]] QString typePattern(const QString& iniPath);
/// The pattern of the packet editor's lists: empty without types, and a fraction of the count is
/// cut off, not rounded. Raises as storedTypes.
[[nodiscard]] QString clipPattern(const QString& iniPath);
/// Adds a type behind the others. Raises as storedTypes, 6 beyond 32,767 types.
void appendStoredType(const QString& iniPath, const QString& type);
/// One type less: these are left. The key of the last one before stays in the file. Raises as
/// storedTypes.
void storeRemainingTypes(const QString& iniPath, const QStringList& remaining);
/// The owners that rows of the options dialog had before. Rows count from 0.
void saveOwners(const QString& iniPath, const QMap<int, QString>& owners);
/// Empty when none was saved.
[[nodiscard]] QString savedOwner(const QString& iniPath, int row);

/// Hundredths of a decibel. Raises 13 when it is no number.
[[nodiscard]] double savedVolume(const QString& iniPath);
void saveVolume(const QString& iniPath, double volume);
/// 0 to 100, unless edited by hand. Raises 13 or 6.
[[nodiscard]] Int16 savedBalance(const QString& iniPath);
void saveBalance(const QString& iniPath, Int16 balance);
/// The folder that pickers and editors were in last; empty at first.
[[nodiscard]] QString savedFolder(const QString& iniPath);
void saveFolder(const QString& iniPath, const QString& folder);

/// The saved position of a clip or brake, by its text: seconds, decimal text; empty for none.
[[nodiscard]] QString savedPosition(const QString& iniPath, const QString& text);
void savePosition(const QString& iniPath, const QString& text, const QString& position);

/// Raises 13 or 6.
[[nodiscard]] Int16 addInCount(const QString& iniPath);
/// Of an add-in, from 1; empty for none.
[[nodiscard]] QString addInCaption(const QString& iniPath, int number, TextLanguage language);
[[nodiscard]] QString addInPath(const QString& iniPath, int number);

/// The file that the setup program was started from; empty for none.
[[nodiscard]] QString setupSource(const QString& iniPath);
/// The code page of old files, "windows-1251"; empty: by the user's locale.
[[nodiscard]] QString legacyCodePage(const QString& applicationFolder);

} // namespace orvanta
