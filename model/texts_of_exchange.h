// The texts of the add-ins that bring lessons in and out: rows of the table in texts.cpp.
#pragma once

#include "model/texts.h"

#include <array>

namespace orvanta {

constexpr QStringView kImportHelp =
    u"Usage: orvanta-import [FILE... [--clip MEDIA] [--out LESSON] [--open]]\n"
    u"\n"
    u"Makes lessons for Orvanta from files of other programs. Without files a window\n"
    u"opens.\n"
    u"\n"
    u"  FILE          a list of clips (M3U, PLS, XSPF, CUE), subtitles (SRT, WebVTT,\n"
    u"                ASS), labels of Audacity, a list of times (\"0:00 Title\"), chapters\n"
    u"                (FFMETADATA, Matroska's XML), or a media file with chapters\n"
    u"  --clip MEDIA  the clip of marks that do not name theirs; else the one of the\n"
    u"                same name beside FILE\n"
    u"  --out LESSON  the packet (.vxl) or group (.vxg) to write; else a new one beside\n"
    u"                FILE\n"
    u"  --open        opens it in the player\n"
    u"  --help        shows this text\n"
    u"  --version     shows the version\n"
    u"\n"
    u"Exit status: 0 done, 1 done with something left out, 2 nothing written.\n";

constexpr QStringView kExportHelp =
    u"Usage: orvanta-export [LESSON --to FILE [--format FORMAT]]\n"
    u"\n"
    u"Writes a packet or group of Orvanta for other programs. Without a lesson a window\n"
    u"opens.\n"
    u"\n"
    u"  LESSON           a packet (.vxl) or group (.vxg)\n"
    u"  --to FILE        what to write; of a group's marks one file for each packet\n"
    u"  --format FORMAT  m3u8, xspf: lists of the clips. vtt, ffmetadata, matroska: the\n"
    u"                   marks as chapters. clip: a copy of the clip with chapters,\n"
    u"                   made by ffmpeg. Else by the ending of FILE\n"
    u"  --help           shows this text\n"
    u"  --version        shows the version\n"
    u"\n"
    u"Exit status: 0 done, 1 done with something left out, 2 nothing written.\n";

constexpr QStringView kRussianImportHelp =
    u"Вызов: orvanta-import [ФАЙЛ... [--clip КЛИП] [--out УРОК] [--open]]\n"
    u"\n"
    u"Делает уроки для Orvanta из файлов других программ. Без файлов открывается\n"
    u"окно.\n"
    u"\n"
    u"  ФАЙЛ         список клипов (M3U, PLS, XSPF, CUE), субтитры (SRT, WebVTT, ASS),\n"
    u"               метки Audacity, список времён (\"0:00 Название\"), главы\n"
    u"               (FFMETADATA, XML Matroska) или медиафайл с главами\n"
    u"  --clip КЛИП  клип меток, которые не называют своего; иначе тот, что с тем же\n"
    u"               именем лежит рядом с файлом\n"
    u"  --out УРОК   какой пакет (.vxl) или группу (.vxg) записать; иначе новый рядом\n"
    u"               с файлом\n"
    u"  --open       открывает его в проигрывателе\n"
    u"  --help       показывает эту справку\n"
    u"  --version    показывает версию\n"
    u"\n"
    u"Код возврата: 0 готово, 1 готово, но что-то пропущено, 2 ничего не записано.\n";

constexpr QStringView kRussianExportHelp =
    u"Вызов: orvanta-export [УРОК --to ФАЙЛ [--format ВИД]]\n"
    u"\n"
    u"Записывает пакет или группу Orvanta для других программ. Без урока открывается\n"
    u"окно.\n"
    u"\n"
    u"  УРОК          пакет (.vxl) или группа (.vxg)\n"
    u"  --to ФАЙЛ     что записать; для меток группы по файлу на каждый пакет\n"
    u"  --format ВИД  m3u8, xspf: списки клипов. vtt, ffmetadata, matroska: метки как\n"
    u"                главы. clip: копия клипа с главами, её делает ffmpeg. Иначе по\n"
    u"                окончанию имени\n"
    u"  --help        показывает эту справку\n"
    u"  --version     показывает версию\n"
    u"\n"
    u"Код возврата: 0 готово, 1 готово, но что-то пропущено, 2 ничего не записано.\n";

inline constexpr auto kTextsOfExchange = std::to_array<InterfaceText>({
    InterfaceText{u"Exchange", u"importHelp", kImportHelp, kRussianImportHelp},
    InterfaceText{u"Exchange", u"exportHelp", kExportHelp, kRussianExportHelp},
    InterfaceText{u"Exchange", u"end", u"End", u"Конец"},
    InterfaceText{u"Exchange", u"written", u"Written: %1", u"Записано: %1"},
    InterfaceText{u"Exchange", u"leftOut", u"Left out: %1", u"Пропущено: %1"},
    InterfaceText{u"Exchange", u"line", u"line %1", u"строка %1"},
    InterfaceText{u"Exchange", u"address", u"an address, nothing is fetched",
                  u"адрес в сети, ничего не загружается"},
    InterfaceText{u"Exchange", u"badLine", u"not understood", u"непонятная строка"},
    InterfaceText{u"Exchange", u"noStart", u"has no time of its beginning", u"нет времени начала"},
    InterfaceText{u"Exchange", u"noTime", u"its time is no number", u"время — не число"},
    InterfaceText{u"Exchange", u"noClip", u"not a clip", u"не клип"},
    InterfaceText{u"Exchange", u"noLength",
                  u"the clip's length is not known; the end mark stands an hour behind the rest",
                  u"длина клипа неизвестна; метка конца стоит на час позже остальных"},
    InterfaceText{u"Exchange", u"longText", u"the end of a text that is too long",
                  u"конец слишком длинного текста"},
    InterfaceText{u"Exchange", u"broken", u"broken", u"файл испорчен"},
    InterfaceText{u"Exchange", u"nothingIn", u"nothing to import in it", u"нечего импортировать"},
    InterfaceText{u"Exchange", u"noChapters", u"a clip without chapters", u"клип без глав"},
    InterfaceText{u"Exchange", u"unknownKind", u"not a kind of file that can be imported",
                  u"файлы такого вида не импортируются"},
    InterfaceText{u"Exchange", u"unreadable", u"cannot be read", u"не удаётся прочитать"},
    InterfaceText{u"Exchange", u"tooLarge", u"more than 16 MB of text", u"текста больше 16 МБ"},
    InterfaceText{u"Exchange", u"tooMany", u"more packets than a group holds",
                  u"пакетов больше, чем вмещает группа"},
    InterfaceText{u"Exchange", u"wantsClip", u"does not say which clip it is about",
                  u"не сказано, о каком клипе речь"},
    InterfaceText{u"Exchange", u"wantsGroup", u"several packets need a group (.vxg)",
                  u"нескольким пакетам нужна группа (.vxg)"},
    InterfaceText{u"Exchange", u"wantsLesson", u"the name of a lesson ends in .vxl or .vxg",
                  u"имя урока кончается на .vxl или .vxg"},
    InterfaceText{u"Exchange", u"unwritable", u"cannot be written", u"не удаётся записать"},
    InterfaceText{u"Exchange", u"noPlayer", u"the player is not there", u"проигрыватель не найден"},
    InterfaceText{u"Exchange", u"noMarks", u"a packet without marks", u"пакет без меток"},
    InterfaceText{u"Exchange", u"noLines", u"an empty packet", u"пустой пакет"},
    InterfaceText{u"Exchange", u"noLesson", u"no packet or group that can be read",
                  u"не пакет и не группа, которые можно прочитать"},
    InterfaceText{u"Exchange", u"nothingToExport", u"nothing in it for this format",
                  u"для этого формата в нём ничего нет"},
    InterfaceText{u"Exchange", u"ownFile", u"is a file of the lesson itself",
                  u"это файл самого урока"},
    InterfaceText{u"Exchange", u"noFfmpeg", u"the program ffmpeg is not installed",
                  u"программа ffmpeg не установлена"},
    InterfaceText{u"Exchange", u"copyFailed", u"ffmpeg could not copy it",
                  u"ffmpeg не удалось скопировать"},
    InterfaceText{u"Exchange", u"cancelled", u"cancelled", u"отменено"},
    InterfaceText{u"Exchange", u"noChaptersHere", u"files of this kind hold no chapters",
                  u"в файлах такого вида глав нет"},
    InterfaceText{u"Exchange", u"noFormat", u"there is no such format", u"такого формата нет"},

    InterfaceText{u"Import", u"Import", u"Import - Orvanta", u"Импорт - Orvanta"},
    InterfaceText{u"Import", u"SourceText", u"Files:", u"Файлы:"},
    InterfaceText{u"Import", u"SourceText.empty", u"Drop files here", u"Перетащите файлы сюда"},
    InterfaceText{u"Import", u"ChooseSource", u"Choose &files...", u"&Выбрать файлы..."},
    InterfaceText{u"Import", u"ChooseSource.title", u"Lists, subtitles, labels, chapters",
                  u"Списки, субтитры, метки, главы"},
    InterfaceText{u"Import", u"ClipText", u"Clip:", u"Клип:"},
    InterfaceText{u"Import", u"ClipText.empty", u"As the files say", u"Как сказано в файлах"},
    InterfaceText{u"Import", u"ChooseClip", u"Choose &clip...", u"Выбрать &клип..."},
    InterfaceText{u"Import", u"ChooseClip.title", u"The clip that the marks are in",
                  u"Клип, к которому относятся метки"},
    InterfaceText{u"Import", u"Preview", u"Lesson", u"Урок"},
    InterfaceText{u"Import", u"Preview.time", u"Time", u"Время"},
    InterfaceText{u"Import", u"Preview.text", u"Text", u"Текст"},
    InterfaceText{u"Import", u"Preview.clip", u"Clip", u"Клип"},
    InterfaceText{u"Import", u"Remarks", u"Remarks", u"Замечания"},
    InterfaceText{u"Import", u"Summary", u"Packets: %1, lines: %2", u"Пакетов: %1, строк: %2"},
    InterfaceText{u"Import", u"Summary.reading", u"Reading...", u"Чтение..."},
    InterfaceText{u"Import", u"SaveAndOpen", u"&Save and open...", u"&Сохранить и открыть..."},
    InterfaceText{u"Import", u"SaveAndOpen.title", u"Save the lesson", u"Сохранить урок"},
    InterfaceText{u"Import", u"CloseButton", u"C&lose", u"&Закрыть"},

    InterfaceText{u"Export", u"Export", u"Export - Orvanta", u"Экспорт - Orvanta"},
    InterfaceText{u"Export", u"LessonBox", u"&Lesson:", u"&Урок:"},
    InterfaceText{u"Export", u"ChooseLesson", u"C&hoose lesson...", u"&Выбрать урок..."},
    InterfaceText{u"Export", u"ChooseLesson.title", u"A packet or a group", u"Пакет или группа"},
    InterfaceText{u"Export", u"FormatBox", u"&Format:", u"&Формат:"},
    InterfaceText{u"Export", u"TargetText", u"&To:", u"&Куда:"},
    InterfaceText{u"Export", u"ChooseTarget", u"Choose &place...", u"Выбрать &место..."},
    InterfaceText{u"Export", u"ChooseTarget.title", u"Where to", u"Куда"},
    InterfaceText{u"Export", u"Progress", u"Progress", u"Ход"},
    InterfaceText{u"Export", u"Remarks", u"Remarks", u"Замечания"},
    InterfaceText{u"Export", u"Summary.empty", u"Choose a lesson, or drop one here",
                  u"Выберите урок или перетащите его сюда"},
    InterfaceText{u"Export", u"Summary.writing", u"Writing...", u"Запись..."},
    InterfaceText{u"Export", u"Summary.nothing", u"Nothing was written", u"Ничего не записано"},
    InterfaceText{u"Export", u"ExportNow", u"&Export", u"&Экспорт"},
    InterfaceText{u"Export", u"ExportNow.cancel", u"&Cancel", u"&Отмена"},
    InterfaceText{u"Export", u"CloseButton", u"Cl&ose", u"&Закрыть"},
    InterfaceText{u"Export", u"FormatBox.m3u8", u"List of clips (M3U8)", u"Список клипов (M3U8)"},
    InterfaceText{u"Export", u"FormatBox.xspf", u"List of clips (XSPF)", u"Список клипов (XSPF)"},
    InterfaceText{u"Export", u"FormatBox.vtt", u"Chapters (WebVTT)", u"Главы (WebVTT)"},
    InterfaceText{u"Export", u"FormatBox.ffmetadata", u"Chapters (FFMETADATA)",
                  u"Главы (FFMETADATA)"},
    InterfaceText{u"Export", u"FormatBox.matroska", u"Chapters (Matroska XML)",
                  u"Главы (Matroska XML)"},
    InterfaceText{u"Export", u"FormatBox.clip", u"Copy of the clip with chapters",
                  u"Копия клипа с главами"},
});

} // namespace orvanta
