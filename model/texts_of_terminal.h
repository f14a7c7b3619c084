// What the program prints at a terminal: rows of the table in texts.cpp.
#pragma once

#include "model/texts.h"

#include <array>

namespace orvanta {

inline constexpr QStringView kHelp =
    u"Usage: orvanta [FILE...]\n"
    u"       orvanta /fFOLDER\n"
    u"       orvanta --continue\n"
    u"       orvanta --check [--json] [--fix] [--relative] FILE|FOLDER...\n"
    u"       orvanta /auto\n"
    u"\n"
    u"Plays packets (.vxl), groups of packets (.vxg) and clips. A program that is\n"
    u"already running opens the files.\n"
    u"\n"
    u"  FILE       a packet, a group, a media file or a folder of clips\n"
    u"  /fFOLDER   the clips of a folder, too\n"
    u"  --continue goes on with the lesson that was on last, where it was left\n"
    u"  /auto      starts without showing the main window\n"
    u"  --check    says whether the clips of packets and groups are there, without a\n"
    u"             window; --fix writes where they were found, --relative makes paths\n"
    u"             relative, --json prints for programs\n"
    u"  --help     shows this text\n"
    u"  --version  shows the version\n"
    u"\n"
    u"Settings are kept in orvanta.ini in $ORVANTA_HOME, beside the program when it lies\n"
    u"there, or in ~/.local/share/orvanta.\n";

inline constexpr QStringView kRussianHelp =
    u"Вызов: orvanta [ФАЙЛ...]\n"
    u"       orvanta /fПАПКА\n"
    u"       orvanta --continue\n"
    u"       orvanta --check [--json] [--fix] [--relative] ФАЙЛ|ПАПКА...\n"
    u"       orvanta /auto\n"
    u"\n"
    u"Воспроизводит пакеты (.vxl), группы пакетов (.vxg) и клипы. Если программа уже\n"
    u"работает, файлы откроет она.\n"
    u"\n"
    u"  ФАЙЛ       пакет, группа, медиафайл или папка с клипами\n"
    u"  /fПАПКА    тоже клипы папки\n"
    u"  --continue продолжает последний урок с того места, где он был оставлен\n"
    u"  /auto      запускает программу, не показывая главного окна\n"
    u"  --check    без окна говорит, на месте ли клипы пакетов и групп; --fix записывает,\n"
    u"             где они нашлись, --relative делает пути относительными, --json печатает\n"
    u"             для программ\n"
    u"  --help     показывает эту справку\n"
    u"  --version  показывает версию\n"
    u"\n"
    u"Настройки лежат в orvanta.ini: в $ORVANTA_HOME, рядом с программой, если файл там\n"
    u"есть, или в ~/.local/share/orvanta.\n";

inline constexpr auto kTextsOfTerminal = std::to_array<InterfaceText>({
    InterfaceText{u"CommandLine", u"--help", kHelp, kRussianHelp},
    InterfaceText{u"CommandLine", u"--version.picture", u"Pictures: drawn by %1; decoded by %2\n",
                  u"Изображение: рисует %1; декодирует %2\n"},
    InterfaceText{u"CommandLine", u"--version.processor", u"the processor", u"процессор"},
    InterfaceText{u"CommandLine", u"--version.opengl", u"OpenGL", u"OpenGL"},
    InterfaceText{u"CommandLine", u"--version.driver",
                  u"OpenGL where its driver is a graphics processor's, else the processor",
                  u"OpenGL, если его драйвер рисует на графическом процессоре, иначе процессор"},
    InterfaceText{u"CommandLine", u"--version.graphics",
                  u"the graphics processor where it can, else the processor",
                  u"графический процессор, где может, иначе процессор"},
});

} // namespace orvanta
