#include "tests/captions/every_window.h"

#include "companions/cdcreate/box_window.h"
#include "companions/exchange_windows/export_window.h"
#include "companions/exchange_windows/import_window.h"
#include "core/ini.h"
#include "editors/form10_save_picker.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "editors/form7_open_picker.h"
#include "system/form3_picture_window.h"
#include "system/form9_about.h"
#include "window/earlier_dialog.h"
#include "window/form11_language_dialog.h"
#include "window/form2_main_window.h"
#include "window/silence_row.h"
#include "window/skin_button.h"

#include <QRadioButton>
#include <QToolButton>

namespace orvanta::test {

using namespace Qt::StringLiterals;

Surroundings::Surroundings(int language)
    : editors{.module = module,
              .pickers = pickers,
              .boundary = boundary,
              .makePreview = [] { return std::make_unique<ScriptedMediaControl>(); },
              .playerVolume = [] { return 0; },
              .pausePlayer = [] { return false; },
              .resumePlayer = [] {}}
{
    module.ApplicationFolder = home.path();
    module.IniPath = home.ini();
    module.TypePattern = u"*.avi"_s;
    module.Language = language;
    WriteIni(u"main"_s, u"language"_s, QString::number(language), home.ini());
    WriteIni(u"types"_s, u"num"_s, u"1"_s, home.ini());
    WriteIni(u"types"_s, u"file0"_s, u"avi"_s, home.ini());
    WriteIni(u"save"_s, u"open"_s, home.path(), home.ini());
    home.write(u"lesson.vxl"_s, "[main]");
}

namespace {

std::unique_ptr<QWidget> mainWindow(Surroundings& s)
{
    auto window =
        std::make_unique<Form2>(Form2Services{.module = s.module,
                                              .engine = s.engine,
                                              .pickers = s.pickers,
                                              .boundary = s.boundary,
                                              .unloadSplash = [] {},
                                              .unloadOtherForms = [] {},
                                              .videoWindow = [] { return nullptr; },
                                              .showBookmarkSign = [] {},
                                              .showOptions = [] {},
                                              .videoKeys = s.videoKeys,
                                              .showPacketEditor = [] { return QString(); },
                                              .showGroupEditor = [] { return QString(); },
                                              .showAbout = [] {}});
    window->Timer1.stop();
    return window;
}

/// With one clip open and the row for silences, so that all of it is in sight.
std::unique_ptr<QWidget> mainWindowWhileEditing(Surroundings& s)
{
    PlaylistEntry packet;
    packet.Title = u"A packet"_s;
    packet.Clips = {{.Time = {}, .Text = u"A clip"_s, .Path = s.home.file(u"clip.avi"_s)}};
    packet.ClipCount = 1;
    s.module.playlist.Playlist = {packet};
    s.module.playlist.PlaylistCount = 1;
    auto window = mainWindow(s);
    auto& form = dynamic_cast<Form2&>(*window);
    form.RebuildTree();
    form.EditButton->click();
    form.Silence->open();
    return window;
}

std::unique_ptr<QWidget> earlierVersionsWindow(Surroundings& s)
{
    const TextLanguage language = textLanguage(s.module.Language.value(), TextLanguage::English);
    return std::make_unique<EarlierDialog>(std::vector<VersionOfDocument>(), language, nullptr);
}

std::unique_ptr<QWidget> packetEditor(Surroundings& s, bool brakes)
{
    auto editor = std::make_unique<Form5>(s.editors);
    (brakes ? editor->Option2 : editor->Option1)->click();
    return editor;
}

std::unique_ptr<QWidget> savePicker(Surroundings& s)
{
    auto picker = std::make_unique<Form10>(s.module, s.boundary, u"*.vxl"_s);
    picker->Text1->setText(u"lesson"_s); // its file is there: the window says so
    return picker;
}

std::unique_ptr<QWidget> languageDialog(Surroundings& s)
{
    auto dialog = std::make_unique<Form11>(s.module.IniPath);
    (s.module.Language == Int16(1) ? dialog->Option1 : dialog->Option2)->setChecked(true);
    return dialog;
}

std::unique_ptr<QWidget> options(Surroundings& s, QToolButton* Form8::*page)
{
    auto dialog = std::make_unique<Form8>(s.options);
    (dialog.get()->*page)->click();
    return dialog;
}

std::unique_ptr<QWidget> about(Surroundings& s)
{
    auto window = std::make_unique<Form9>(s.module);
    window->showAbout();
    return window;
}

std::unique_ptr<QWidget> picture(Surroundings& /*s*/)
{
    auto window = std::make_unique<Form3>(u"A picture"_s);
    window->showPicture(u":/orvanta/about/picture.svg"_s);
    return window;
}

/// As it opens, of a companion.
std::unique_ptr<QWidget> boxWindow(Surroundings& s)
{
    return std::make_unique<BoxWindow>(
        textLanguage(s.module.Language.value(), TextLanguage::English), MakeExtras());
}

std::unique_ptr<QWidget> importWindow(Surroundings& s)
{
    return std::make_unique<ImportWindow>(
        textLanguage(s.module.Language.value(), TextLanguage::English), ImportServices());
}

std::unique_ptr<QWidget> exportWindow(Surroundings& s)
{
    return std::make_unique<ExportWindow>(
        textLanguage(s.module.Language.value(), TextLanguage::English), ExportServices());
}

} // namespace

const std::vector<WindowOfProgram>& everyWindow()
{
    static const std::vector<WindowOfProgram> windows = {
        {"Form2", mainWindow, 3},
        {"Form2Editing", mainWindowWhileEditing, 10},
        {"Earlier", earlierVersionsWindow, 2},
        {"Form3", picture, 0},
        {"Form5Clips", [](Surroundings& s) { return packetEditor(s, false); }, 10},
        {"Form5Brakes", [](Surroundings& s) { return packetEditor(s, true); }, 8},
        {"Form6", [](Surroundings& s) { return std::make_unique<Form6>(s.editors); }, 10},
        {"Form7",
         [](Surroundings& s) {
             return std::make_unique<Form7>(s.module, s.boundary, u"*.vxl"_s, false);
         },
         2},
        {"Form8Playing", [](Surroundings& s) { return options(s, &Form8::Image3); }, 10},
        {"Form8Program", [](Surroundings& s) { return options(s, &Form8::Image4); }, 9},
        {"Form8Files", [](Surroundings& s) { return options(s, &Form8::Image5); }, 11},
        {"Form9", about, 5},
        {"Form10", savePicker, 4},
        {"Form11", languageDialog, 3},
        {"BoxWindow", boxWindow, 8},
        {"ImportWindow", importWindow, 6},
        {"ExportWindow", exportWindow, 6},
    };
    return windows;
}

} // namespace orvanta::test
