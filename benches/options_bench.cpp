// How long the Options dialog keeps people waiting with 200 types: opening, and OK with every type
// to be registered for the first time, given back, and unchanged. Everything happens in a home of
// its own; the desktop's caches are refreshed by the tools that are installed.
#include "benches/without_display.h"
#include "core/ini.h"
#include "system/form8_options_dialog.h"
#include "system/type_list.h"
#include "tests/support/scripted_pickers.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;
using namespace orvanta;

namespace {

constexpr int kTypes = 200;
constexpr int kRounds = 9;

double milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Prints the median and the largest beside the limit, which holds for the largest.
bool report(const char* what, std::vector<double> times, double limit)
{
    std::sort(times.begin(), times.end());
    const double largest = times.back();
    std::printf("%-44s median %7.1f  largest %7.1f ms  (limit %.0f ms, ratio %.2f) %s\n", what,
                times[times.size() / 2], largest, limit, largest / limit,
                largest < limit ? "ok" : "TOO SLOW");
    return largest < limit;
}

void makeHome(const QString& folder)
{
    for (const auto& [variable, name] :
         {std::pair("HOME", "home"), std::pair("XDG_CONFIG_HOME", "config"),
          std::pair("XDG_DATA_HOME", "data")}) {
        QDir().mkpath(folder + u'/' + QString::fromUtf8(name));
        qputenv(variable, (folder + u'/' + QString::fromUtf8(name)).toUtf8());
    }
}

/// The shipped types and as many others as are missing, half of them with another owner.
void makeTypes(const QString& iniPath, const QString& folder)
{
    QFile::copy(QStringLiteral(ORVANTA_SOURCE_DIR "/resources/orvanta.ini"), iniPath);
    QFile::setPermissions(iniPath, QFile::ReadOwner | QFile::WriteOwner);
    const int shipped = ReadIni(u"types"_s, u"num"_s, iniPath).toInt();
    for (int i = shipped; i < kTypes; ++i) {
        WriteIni(u"types"_s, u"file%1"_s.arg(i), u"type%1"_s.arg(i), iniPath);
    }
    WriteIni(u"types"_s, u"num"_s, QString::number(kTypes), iniPath);
    WriteIni(u"main"_s, u"language"_s, u"1"_s, iniPath);
    QDir().mkpath(folder + u"/data/applications"_s);
    QFile player(folder + u"/data/applications/player.desktop"_s);
    QFile list(folder + u"/config/mimeapps.list"_s);
    if (!player.open(QIODevice::WriteOnly) || !list.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "cannot prepare %s\n", qPrintable(folder));
        std::exit(1);
    }
    player.write("[Desktop Entry]\nType=Application\nName=Player\nExec=true\n");
    list.write("[Default Applications]\n");
    for (int i = 0; i < kTypes; i += 2) {
        list.write("application/x-orvanta-type" + QByteArray::number(i) + "=player.desktop;\n");
    }
}

void selectAll(Form8& dialog, bool selected)
{
    for (int row = 0; row < dialog.List1->rowCount(); ++row) {
        dialog.List1->selectRow(row, selected);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir temporary;
    makeHome(temporary.path());
    orvanta::bench::useNoDisplayWhereThereIsNone();
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    Module1 module;
    module.ApplicationFolder = temporary.path();
    module.IniPath = temporary.filePath(u"orvanta.ini"_s);
    makeTypes(module.IniPath, temporary.path());
    ScriptedPickers pickers(module);
    Registry registry(temporary.path(), u"/usr/bin/true"_s);
    OptionsServices services{module, registry, pickers, HandlerBoundary()};

    std::vector<double> opening;
    std::vector<double> registering;
    std::vector<double> releasing;
    std::vector<double> unchanged;
    const auto openAndPressOk = [&](const std::function<void(Form8&)>& change,
                                    std::vector<double>& times) {
        std::unique_ptr<Form8> dialog;
        opening.push_back(milliseconds([&] {
            dialog = std::make_unique<Form8>(services);
            dialog->show();
            QApplication::processEvents();
            dialog->grab();
        }));
        change(*dialog);
        times.push_back(milliseconds([&] { dialog->Image2->click(); }));
        QElapsedTimer waiting;
        waiting.start();
        while (registry.isWorkingInBackground()) { // so that the rounds do not disturb each other
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        }
        return static_cast<double>(waiting.elapsed());
    };
    double background = 0;
    for (int round = 0; round < kRounds; ++round) {
        background =
            std::max(background, openAndPressOk([](Form8& d) { selectAll(d, true); }, registering));
        openAndPressOk([](Form8&) {}, unchanged);
        openAndPressOk([](Form8& d) { selectAll(d, false); }, releasing);
    }
    bool isGood = report("Options opens with 200 types", opening, 150);
    isGood = report("OK, 200 types registered", registering, 100) && isGood;
    isGood = report("OK, 200 types given back", releasing, 100) && isGood;
    isGood = report("OK, nothing changed", unchanged, 100) && isGood;
    std::printf("caches and icons afterwards, in the background: at most %.0f ms\n", background);
    return isGood ? 0 : 1;
}
