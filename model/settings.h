// The settings file: every key in one table, and whatever reads or writes one. Nothing is cached:
// each call goes to the file.
#pragma once

#include "core/ini.h"
#include "core/ini_stored_names.h"
#include "core/numbers.h"
#include "model/practice.h"
#include "model/texts.h"

#include <QMap>
#include <QSize>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>
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
    SettingKey{u"options", u"as", u"1"},              // playing starts after opening
    SettingKey{u"options", u"agnc", u"1"},            // a clip's end goes on to the next clip
    SettingKey{u"options", u"agnp", u"1"},            // a packet's end goes on to the next packet
    SettingKey{u"options", u"acp", u"0"},             // the end of files from outside closes
    SettingKey{u"options", u"ar", u"0"},              // the end of all goes to the beginning
    SettingKey{u"options", u"si", u"0"},              // icon in the tray
    SettingKey{u"options", u"nc", u"0"},              // closing the window keeps the program
    SettingKey{u"options", u"r", u"0"},               // clips on drive A are copied first
    SettingKey{u"options", u"ws", u"0"},              // starts with the session
    SettingKey{u"main", u"language", nullptr},        // 1 English, 2 Russian
    SettingKey{u"main", u"screxe", u""},              // where the setup program came from
    SettingKey{u"ftl", u"wr", u"0"},                  // 1 while the hand-over queue is emptied
    SettingKey{u"ftl", u"num", u"0"},                 // lines in the queue
    SettingKey{u"ftl", u"#", nullptr},                // such a line, from 1
    SettingKey{u"types", u"num", u"21"},              // types of playable files
    SettingKey{u"types", u"file#", u"avi"},           // such a type, from 0
    SettingKey{u"types", u"#reg", nullptr},           // who had the type of a row, from 0, before
    SettingKey{u"save", u"volume", u"0"},             // hundredths of a decibel, 0 the loudest
    SettingKey{u"save", u"balance", u"50"},           // 0 to 100
    SettingKey{u"save", u"open", u""},                // the folder last used
    SettingKey{u"add-ins", u"num", u"2"},             // programs in the menu Add-ins
    SettingKey{u"add-ins", u"shipped", u"1"},         // the program's own have been put there
    SettingKey{u"add-ins", u"namee#", u"&Import..."}, // an add-in's English caption, from 1
    SettingKey{u"add-ins", u"namer#", u"&Импорт..."}, // its Russian one
    SettingKey{u"add-ins", u"path#",
               u"orvanta-import"},                  // its program, seen from the settings' folder
    SettingKey{u"pos", u"#", nullptr},              // the saved position of a clip, seconds
    SettingKey{u"practice", u"speed", nullptr},     // percent
    SettingKey{u"practice", u"repeat", nullptr},    // times for each line, 0 endlessly
    SettingKey{u"practice", u"wait", nullptr},      // 0 off, -1 for a key, -2 seconds, else percent
    SettingKey{u"practice", u"seconds", nullptr},   // of a wait of -2
    SettingKey{u"practice", u"from", nullptr},      // percent of the speed, of the first round
    SettingKey{u"practice", u"step", nullptr},      // percent of the speed, more with each round
    SettingKey{u"practice", u"mirror", nullptr},    // 1: left to right
    SettingKey{u"practice", u"even", nullptr},      // 1: even loudness
    SettingKey{u"practice", u"text", nullptr},      // over the picture: 0 off, 1 text, 2 large text
    SettingKey{u"practice", u"sound", nullptr},     // language of the sound; else the clip's own
    SettingKey{u"practice", u"subtitles", nullptr}, // language of the subtitles; else none
    SettingKey{u"recent", u"keep", nullptr},        // 0: no lesson is kept in recent.ini
    SettingKey{u"recent", u"seconds", nullptr},     // how often the place in a lesson is kept
    SettingKey{u"text", u"codepage", nullptr},      // of old files; in platform.ini
    SettingKey{u"picture", u"hwdec", nullptr},      // no: decoded by the processor; in platform.ini
    SettingKey{u"picture", u"renderer", nullptr},   // auto, opengl, software; in platform.ini
    SettingKey{u"picture", u"failed", nullptr},     // the OpenGL driver that failed; the same
    SettingKey{u"drives", u"#", nullptr},           // the folder of a drive; in platform.ini
    SettingKey{u"moved", u"num", nullptr},          // folders that have moved; in platform.ini
    SettingKey{u"moved", u"from#", nullptr},        // such a folder as documents write it, from 1
    SettingKey{u"moved", u"to#", nullptr},          // where it lies now
    SettingKey{u"window", u"width", nullptr},       // of the main window, pixels; in platform.ini
    SettingKey{u"window", u"height", nullptr},      // the same
    SettingKey{u"window", u"zoom", nullptr},        // of its texts, percent; in platform.ini
};

/// The lesson's text over the picture. The numbers are those of the settings file.
enum class TextLevel
{
    Off = 0,
    Text = 1,
    Large = 2,
};

/// In which languages a clip is heard and read: codes as of languageCode. Empty: as the clip says,
/// and without subtitles.
struct TrackWish
{
    QString sound = {};
    QString subtitles = {};

    friend bool operator==(const TrackWish&, const TrackWish&) = default;
};

/// A row of the table. What is not there does not compile.
consteval const SettingKey& iniKey(std::u16string_view section, std::u16string_view key)
{
    const auto* const found = std::ranges::find_if(
        kSettings, [&](const SettingKey& row) { return row.section == section && row.key == key; });
    return found == kSettings.end() ? throw "no such setting" : *found;
}
constexpr const SettingKey& iniKey(Option option)
{
    return kSettings[std::size_t(option)];
}

/// The language of a number. What anything but 1 and 2 is differs from window to window.
[[nodiscard]] constexpr TextLanguage textLanguage(double number, TextLanguage otherwise)
{
    return number == 1 ? TextLanguage::English : number == 2 ? TextLanguage::Russian : otherwise;
}

/// The settings in one file. Each call goes to the file; an absent text is empty.
class Settings
{
public:
    explicit Settings(const QString& iniPath)
        : m_iniPath(iniPath)
    {}

    /// On is exactly "1"; an option that is absent is off.
    [[nodiscard]] bool isOn(Option option) const { return read(iniKey(option)) == u"1"; }
    /// What the options dialog shows: there any text of the number 1 is on.
    [[nodiscard]] bool isOne(Option option) const;
    /// All of them in one replacement of the file. A failure is logged, as with the types below.
    void storeOptions(const std::vector<std::pair<Option, bool>>& options) const;

    /// The interface language: 1 English, 2 Russian, 0 when none is stored or what is stored is no
    /// number. The integer part counts. Raises 6 outside 16 bits.
    [[nodiscard]] Int16 language() const { return roundToInt16(languageNumber()); }
    void setLanguage(TextLanguage language) const;
    /// For windows that look afresh at each showing.
    [[nodiscard]] TextLanguage textLanguage(TextLanguage otherwise) const;
    /// The same where the texts "1" and "2" alone count: "1.0" is neither. absent: when there is
    /// no text at all, unless that is like any other.
    [[nodiscard]] TextLanguage exactTextLanguage(TextLanguage otherwise,
                                                 std::optional<TextLanguage> absent = {}) const;

    /// The types of playable files, without the dot. Raises 13 when the count is absent or no
    /// number, as everything about types down to storeRemainingTypes.
    [[nodiscard]] QStringList types() const { return firstTypes(typeCount().value()); }
    /// "*.avi;*.mpg;*.wav". The first type is always there.
    [[nodiscard]] QString typePattern() const;
    /// The pattern of the packet editor's lists: empty without types, and a fraction of the count
    /// is cut off, not rounded.
    [[nodiscard]] QString clipPattern() const;
    /// Adds a type behind the others. Raises 6 beyond 32,767 types.
    void appendType(const QString& type) const;
    /// One type less: these are left. The key of the last one before stays in the file.
    void storeRemainingTypes(const QStringList& remaining) const;
    /// The owners that rows of the options dialog had before. Rows count from 0.
    void saveOwners(const QMap<int, QString>& owners) const;
    [[nodiscard]] QString savedOwner(int row) const { return read(iniKey(u"types", u"#reg"), row); }

    /// Hundredths of a decibel. Raises 13 when it is no number.
    [[nodiscard]] double volume() const { return number(iniKey(u"save", u"volume")); }
    void setVolume(double to) const { write(iniKey(u"save", u"volume"), decimalText(to)); }
    /// 0 to 100, unless edited by hand. Raises 13 or 6.
    [[nodiscard]] Int16 balance() const
    {
        return roundToInt16(number(iniKey(u"save", u"balance")));
    }
    void setBalance(Int16 to) const { write(iniKey(u"save", u"balance"), decimalText(to.value())); }
    /// Where pickers and editors were last.
    [[nodiscard]] QString folder() const { return read(iniKey(u"save", u"open")); }
    void setFolder(const QString& folder) const { write(iniKey(u"save", u"open"), folder); }
    /// The saved position of a clip or brake, by its text: seconds, decimal text.
    [[nodiscard]] QString position(const QString& text) const
    {
        return read(iniKey(u"pos", u"#"), storedKey(text));
    }
    void setPosition(const QString& text, const QString& to) const
    {
        write(iniKey(u"pos", u"#"), to, storedKey(text));
    }

    /// Off, too, where there is no such level.
    [[nodiscard]] TextLevel textLevel() const;
    void setTextLevel(TextLevel level) const;

    /// None where there is no such key: settings of old have no captions either. Raises 13 or 6.
    [[nodiscard]] Int16 addInCount() const;
    /// Of an add-in, from 1.
    [[nodiscard]] QString addInCaption(int i, TextLanguage language) const;
    [[nodiscard]] QString addInPath(int i) const { return read(iniKey(u"add-ins", u"path#"), i); }

    /// How the lesson is practised. What is absent or spoilt is as usual.
    [[nodiscard]] Practice practice() const;
    /// All of it in one replacement of the file. A failure is logged.
    void setPractice(const Practice& practice) const;

    /// Whether the lessons that were open are kept: unless the settings say "0".
    [[nodiscard]] bool keepsRecent() const { return read(iniKey(u"recent", u"keep")) != u"0"; }
    /// After how many seconds the place in a running lesson is kept again, 1 to 3600.
    [[nodiscard]] int recentSeconds() const;
    /// What is absent or no language is empty.
    [[nodiscard]] TrackWish trackWish() const;
    /// A failure is logged.
    void setTrackWish(const TrackWish& wish) const;

    /// The file that installed the program.
    [[nodiscard]] QString setupSource() const { return read(iniKey(u"main", u"screxe")); }
    /// Of platform.ini: the code page of old files, "windows-1251"; empty: by the user's locale.
    [[nodiscard]] QString codePage() const { return read(iniKey(u"text", u"codepage")); }
    /// Of platform.ini: whether pictures may be decoded by the graphics processor; all but "no".
    [[nodiscard]] bool mayDecodeInHardware() const
    {
        return read(iniKey(u"picture", u"hwdec")) != u"no";
    }
    /// Of platform.ini: what draws the video window's pictures: "opengl", "software", else what
    /// pays.
    [[nodiscard]] QString renderer() const { return read(iniKey(u"picture", u"renderer")); }
    /// Of platform.ini: the OpenGL driver that has failed, as it names itself.
    [[nodiscard]] QString failedDriver() const { return read(iniKey(u"picture", u"failed")); }
    void setFailedDriver(const QString& name) const { write(iniKey(u"picture", u"failed"), name); }
    /// Of platform.ini: the main window's size, logical pixels; an invalid one when none is stored
    /// or what is stored is no size.
    [[nodiscard]] QSize windowSize() const;
    void setWindowSize(QSize size) const;
    /// Of platform.ini: how large the main window's texts are, percent.
    [[nodiscard]] int textZoom() const { return wholeNumber(iniKey(u"window", u"zoom"), 100); }
    void setTextZoom(int percent) const
    {
        write(iniKey(u"window", u"zoom"), QString::number(percent));
    }

private:
    /// name: what stands for the "#".
    [[nodiscard]] QString read(const SettingKey& key, const QString& name = {}) const;
    [[nodiscard]] QString read(const SettingKey& key, int i) const
    {
        return read(key, QString::number(i));
    }
    /// What is absent counts as in a new file.
    [[nodiscard]] double number(const SettingKey& key) const;
    [[nodiscard]] QString languageIn(const SettingKey& key) const;
    /// A whole number; what is absent or no number is the other one.
    [[nodiscard]] int wholeNumber(const SettingKey& key, int otherwise) const;
    void write(const SettingKey& key, const QString& value, const QString& name = {}) const;
    void writeTogether(std::vector<IniChange> changes) const;
    [[nodiscard]] double languageNumber() const;
    [[nodiscard]] Int16 typeCount() const;
    [[nodiscard]] QStringList firstTypes(int count) const;

    QString m_iniPath;
};

} // namespace orvanta
