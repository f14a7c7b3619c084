// How long the editors keep people waiting: opening, adding and saving many clips, large folders.
#include "benches/preview_drag.h"
#include "benches/without_display.h"
#include "core/ini.h"
#include "editors/editor_services.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "editors/form7_open_picker.h"
#include "tests/support/scripted_media_control.h"
#include "tests/support/scripted_pickers.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

#include <clocale>
#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;
using namespace orvanta;

namespace {

bool allWithin = true;

/// Runs it once and prints the time beside its limit.
void measure(const char* what, qint64 limitMilliseconds, const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    const double spent = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    const bool isWithin = spent < static_cast<double>(limitMilliseconds);
    allWithin = allWithin && isWithin;
    std::printf("%-44s %8.1f ms  (limit %lld ms, ratio %.2f) %s\n", what, spent,
                static_cast<long long>(limitMilliseconds),
                spent / static_cast<double>(limitMilliseconds), isWithin ? "ok" : "TOO SLOW");
}

/// On 720p with a key frame every 250 frames.
void measureDrag(EditorServices& services)
{
    constexpr double kLeastPicturesPerSecond = 15;
    const QString clip = QApplication::applicationDirPath() + u"/bench-720p25-gop250.mp4"_s;
    if (!makeDragClip(clip)) {
        std::fprintf(stderr, "the slider's drag needs ffmpeg\n");
        allWithin = false;
        return;
    }
    const DragFigures figures = dragPreview(services, clip);
    const bool isWithin = figures.differentPerSecond >= kLeastPicturesPerSecond;
    allWithin = allWithin && isWithin;
    std::printf("%-44s %8.1f /s  (least %.0f /s; delivered %.1f /s) %s\n",
                "slider drag, different pictures shown", figures.differentPerSecond,
                kLeastPicturesPerSecond, figures.shownPerSecond, isWithin ? "ok" : "TOO FEW");
    std::printf("%-44s %8.1f ms\n", "exact picture after the handle rests",
                figures.restMilliseconds);
}

void fillFolder(const QString& folder, int count)
{
    QDir().mkpath(folder);
    for (int i = 0; i < count; ++i) {
        QFile file(folder + u"/Клип number %1.avi"_s.arg(i));
        if (!file.open(QIODevice::WriteOnly)) {
            std::fprintf(stderr, "cannot fill %s\n", qPrintable(folder));
            std::exit(1);
        }
    }
}

template <typename Window> void showPainted(Window& window)
{
    window.show();
    QApplication::processEvents();
    window.grab();
}

} // namespace

int main(int argc, char** argv)
{
    orvanta::bench::useNoDisplayWhereThereIsNone();
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const QTemporaryDir temporary;
    fillFolder(temporary.filePath(u"5000"_s), 5000);
    fillFolder(temporary.filePath(u"20000"_s), 20000);
    fillFolder(temporary.filePath(u"few"_s), 20);

    Module1 module;
    module.ApplicationFolder = temporary.path();
    module.IniPath = temporary.filePath(u"orvanta.ini"_s);
    module.Language = 1;
    WriteIni(u"types"_s, u"num"_s, u"2"_s, module.IniPath);
    WriteIni(u"types"_s, u"file1"_s, u"mp4"_s, module.IniPath);
    WriteIni(u"types"_s, u"file0"_s, u"avi"_s, module.IniPath);
    WriteIni(u"save"_s, u"open"_s, temporary.filePath(u"few"_s), module.IniPath);
    ScriptedPickers pickers(module);
    pickers.saveAnswer = temporary.filePath(u"out.vxl"_s);
    pickers.answer = {pickers.saveAnswer};
    EditorServices services{.module = module,
                            .pickers = pickers,
                            .boundary = {},
                            .makePreview = [] { return std::make_unique<ScriptedMediaControl>(); },
                            .playerVolume = [] { return 0; },
                            .pausePlayer = [] { return false; },
                            .resumePlayer = [] {}};

    std::unique_ptr<Form5> editor;
    measure("packet editor opens", 150, [&] {
        editor = std::make_unique<Form5>(services);
        showPainted(*editor);
    });
    measure("group editor opens", 150, [&] {
        Form6 group(services);
        showPainted(group);
    });
    measure("open picker on 20,000 files opens", 200, [&] {
        WriteIni(u"save"_s, u"open"_s, temporary.filePath(u"20000"_s), module.IniPath);
        Form7 picker(module, {}, u"*.avi"_s, true);
        showPainted(picker);
    });
    measure("a folder of 20,000 files is chosen", 200,
            [&] { editor->FolderTreeview2->setFolder(temporary.filePath(u"20000"_s)); });
    editor->FolderTreeview1->setFolder(temporary.filePath(u"5000"_s));
    QApplication::processEvents();
    measure("Add all on 5,000 files", 300, [&] {
        editor->Command8->click();
        QApplication::processEvents();
    });
    measure("saving 5,000 clips", 300, [&] { editor->Command4->click(); });
    measure("loading 5,000 clips", 300, [&] {
        editor->Command3->click();
        QApplication::processEvents();
    });
    if (editor->List1->list().entries.size() != 5000) {
        std::fprintf(stderr, "not every clip came back\n");
        return 1;
    }
    editor.reset();
    measureDrag(services);
    return allWithin ? 0 : 1;
}
