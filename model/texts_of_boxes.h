// The texts of lessons in a box: rows of the table in texts.cpp.
#pragma once

#include "model/texts.h"

#include <array>

namespace orvanta {

inline constexpr QStringView kBoxHelp =
    u"Usage: cdcreate [LESSON...]\n"
    u"       cdcreate --out DIR|FILE.iso|FILE.zip [--web] [--skip-missing] [--force]\n"
    u"                LESSON...\n"
    u"\n"
    u"Puts packets (.vxl) and groups (.vxg) into a box with everything that they name:\n"
    u"a folder, an image of a disc or a ZIP archive that plays on any machine. Without\n"
    u"--out a window asks.\n"
    u"\n"
    u"  --out           the box: a new folder, or a file that ends in .iso or .zip\n"
    u"  --web           adds a page that plays the lesson in any browser\n"
    u"  --skip-missing  makes the box without the files that are missing\n"
    u"  --force         replaces an earlier box\n"
    u"  --help          shows this text\n"
    u"  --version       shows the version\n"
    u"\n"
    u"Exit status: 0 done, 1 something was missing and left out, 2 nothing written.\n";

inline constexpr QStringView kRussianBoxHelp =
    u"Вызов: cdcreate [УРОК...]\n"
    u"       cdcreate --out ПАПКА|ФАЙЛ.iso|ФАЙЛ.zip [--web] [--skip-missing] [--force]\n"
    u"                УРОК...\n"
    u"\n"
    u"Складывает пакеты (.vxl) и группы (.vxg) со всем, что в них названо, в коробку:\n"
    u"папку, образ диска или архив ZIP, который воспроизводится на любой машине. Без\n"
    u"--out спрашивает окно.\n"
    u"\n"
    u"  --out           коробка: новая папка или файл на .iso или .zip\n"
    u"  --web           добавляет страницу, которая ведёт урок в любом браузере\n"
    u"  --skip-missing  делает коробку без файлов, которых нет\n"
    u"  --force         заменяет прежнюю коробку\n"
    u"  --help          показывает эту справку\n"
    u"  --version       показывает версию\n"
    u"\n"
    u"Код возврата: 0 готово, 1 чего-то не было и пропущено, 2 ничего не записано.\n";

inline constexpr auto kTextsOfBoxes = std::to_array<InterfaceText>({
    // At a terminal.
    InterfaceText{u"Box", u"--help", kBoxHelp, kRussianBoxHelp},
    InterfaceText{u"Box", u"usage",
                  u"Usage: cdcreate --out DIR|FILE.iso|FILE.zip [--web] [--skip-missing] [--force] "
                  u"LESSON...",
                  u"Вызов: cdcreate --out ПАПКА|ФАЙЛ.iso|ФАЙЛ.zip [--web] [--skip-missing] "
                  u"[--force] УРОК..."},
    InterfaceText{u"Box", u"noPage", u"no page for browsers can be made here",
                  u"страницу для браузеров здесь сделать нельзя"},

    InterfaceText{u"Box", u"bytes", u"%1 bytes", u"%1 байт"},
    InterfaceText{u"Box", u"kB", u"%1 kB", u"%1 КБ"},
    InterfaceText{u"Box", u"MB", u"%1 MB", u"%1 МБ"},
    InterfaceText{u"Box", u"GB", u"%1 GB", u"%1 ГБ"},
    InterfaceText{u"Box", u"TB", u"%1 TB", u"%1 ТБ"},
    InterfaceText{u"Box", u"step.gathering", u"Gathering:", u"Собираем:"},
    InterfaceText{u"Box", u"step.converting", u"Converting:", u"Преобразуем:"},
    InterfaceText{u"Box", u"step.writing", u"Writing:", u"Записываем:"},
    InterfaceText{u"Box", u"step.checking", u"Checking:", u"Проверяем:"},
    InterfaceText{u"Box", u"step.burning", u"Burning:", u"Прожигаем:"},
    InterfaceText{u"Box", u"of", u"%1 of %2", u"%1 из %2"},
    InterfaceText{u"Box", u"perSecond", u"%1/s", u"%1/с"},
    InterfaceText{u"Box", u"left", u"%1 left", u"осталось %1"},

    // Why there is no box.
    InterfaceText{u"Box", u"stopped", u"Stopped: nothing was written",
                  u"Остановлено: ничего не записано"},
    InterfaceText{u"Box", u"noLesson", u"This is no packet and no group",
                  u"Это не пакет и не группа"},
    InterfaceText{u"Box", u"someMissing", u"Something is missing", u"Не всё найдено"},
    InterfaceText{u"Box", u"unreadable", u"A file cannot be read, or has just changed",
                  u"Файл не читается или только что изменился"},
    InterfaceText{u"Box", u"noRoom", u"There is not enough room", u"Не хватает места"},
    InterfaceText{u"Box", u"tooLarge", u"A file is too large for this disk",
                  u"Файл слишком велик для этого диска"},
    InterfaceText{u"Box", u"exists", u"There is something of that name already",
                  u"Там уже есть что-то с таким именем"},
    InterfaceText{u"Box", u"unwritable", u"Nothing can be written there",
                  u"Туда нельзя ничего записать"},
    InterfaceText{u"Box", u"different", u"What was written reads back differently",
                  u"Записанное читается иначе, чем должно"},
    InterfaceText{u"Box", u"noProgram", u"The program that writes images is not installed",
                  u"Программа, которая пишет образы, не установлена"},
    InterfaceText{u"Box", u"programFailed", u"The program that writes images failed",
                  u"Программа, которая пишет образы, не справилась"},
    InterfaceText{u"Box", u"noDrive", u"There is no drive with a disc that can be written",
                  u"Нет привода с диском, на который можно писать"},

    InterfaceText{u"BoxWindow", u"BoxWindow", u"CD Create", u"CD Create"},
    InterfaceText{u"BoxWindow", u"LessonLabel", u"&Packets and groups", u"&Пакеты и группы"},
    InterfaceText{u"BoxWindow", u"LessonList.name", u"Packets and groups", u"Пакеты и группы"},
    InterfaceText{u"BoxWindow", u"MissingList.name", u"What is missing", u"Чего не найдено"},
    InterfaceText{u"BoxWindow", u"AddButton", u"&Add...", u"До&бавить..."},
    InterfaceText{u"BoxWindow", u"RemoveButton", u"&Remove", u"&Удалить"},
    InterfaceText{u"Box", u"window.summary", u"Packets: %1. Files in the box: %2, together %3.",
                  u"Пакетов: %1. Файлов в коробке: %2, вместе %3."},
    InterfaceText{
        u"Box", u"window.empty",
        u"Add packets or groups, or drop them here. The box will hold all that they name.",
        u"Добавьте пакеты или группы или перетащите их сюда. В коробке будет всё, что они "
        u"называют."},
    InterfaceText{u"Box", u"window.gathering", u"Looking for the clips...", u"Ищем клипы..."},
    InterfaceText{u"BoxWindow", u"MissingLabel", u"&Missing: %1", u"&Не найдено: %1"},
    InterfaceText{u"BoxWindow", u"SkipBox", u"Make the box &without them",
                  u"Сделать коробку без н&их"},
    InterfaceText{u"BoxWindow", u"FormBox", u"Make", u"Сделать"},
    InterfaceText{u"BoxWindow", u"FolderOption", u"a &folder", u"пап&ку"},
    InterfaceText{u"BoxWindow", u"ImageOption", u"an &image of a disc (ISO)",
                  u"&образ диска (ISO)"},
    InterfaceText{u"BoxWindow", u"ImageOption.absent", u"The program xorriso is not installed",
                  u"Программа xorriso не установлена"},
    InterfaceText{u"BoxWindow", u"ZipOption", u"a &ZIP archive", u"архив &ZIP"},
    InterfaceText{u"BoxWindow", u"DiscOption", u"a &disc in %1", u"ди&ск в %1"},
    InterfaceText{u"BoxWindow", u"TargetLabel", u"Wri&te to", u"Ку&да"},
    InterfaceText{u"BoxWindow", u"TargetButton", u"&Choose...", u"&Выбрать..."},
    InterfaceText{u"Box", u"window.target.more", u" (box)", u" (коробка)"},
    InterfaceText{u"BoxWindow", u"BrowserBox", u"For any &browser, too", u"И для любого бр&аузера"},
    InterfaceText{u"BoxWindow", u"ReplaceBox", u"R&eplace the earlier box",
                  u"&Заменить прежнюю коробку"},
    InterfaceText{u"BoxWindow", u"ProgressBar.name", u"Progress", u"Ход работы"},
    InterfaceText{u"Box", u"window.done", u"The box is ready: %1", u"Коробка готова: %1"},
    InterfaceText{u"BoxWindow", u"OpenButton", u"&Open the folder", u"О&ткрыть папку"},
    InterfaceText{u"BoxWindow", u"StartButton", u"Make the bo&x", u"Сде&лать коробку"},
    InterfaceText{u"BoxWindow", u"CloseButton", u"C&lose", u"Закр&ыть"},
    InterfaceText{u"BoxWindow", u"CloseButton.stop", u"&Stop", u"Остановит&ь"},
    InterfaceText{u"Box", u"window.choose.lessons", u"Packets and groups", u"Пакеты и группы"},
    InterfaceText{u"Box", u"window.choose.kind", u"Lessons", u"Уроки"},
    InterfaceText{u"Box", u"window.choose.target", u"In which folder?", u"В какой папке?"},

    // The READ ME of a box; plain text.
    InterfaceText{
        u"ReadMe", u"play",
        u"This is a lesson for Orvanta, a media player. Install Orvanta and open the file\n"
        u"%1.",
        u"Это урок для плеера Orvanta. Установите Orvanta и откройте файл\n%1."},
    InterfaceText{u"ReadMe", u"browser", u"Without Orvanta: open index.html in any browser.",
                  u"Без Orvanta: откройте index.html в любом браузере."},
    InterfaceText{u"ReadMe", u"clips",
                  u"The clips are in the folder media: any player plays them one by one.",
                  u"Клипы лежат в папке media: по одному их сыграет любой плеер."},
    InterfaceText{
        u"ReadMe", u"missing",
        u"These files were missing when the box was made. The lesson finds them under\n"
        u"these names:",
        u"Этих файлов не было, когда складывали урок. Урок найдёт их под этими\nименами:"},
});

} // namespace orvanta
