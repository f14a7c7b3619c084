// The texts about files that are missing or were found elsewhere: rows of the table in texts.cpp.
#pragma once

#include "model/texts.h"

#include <array>

namespace orvanta {

inline constexpr auto kTextsOfFiles = std::to_array<InterfaceText>({
    InterfaceText{u"Check", u"written", u"as written", u"как записано"},
    InterfaceText{u"Check", u"elsewhere", u"found elsewhere", u"найдено в другом месте"},
    InterfaceText{u"Check", u"missing", u"missing", u"нет файла"},
    InterfaceText{u"Check", u"refused", u"not openable", u"не открывается"},
    InterfaceText{u"Check", u"unread", u"cannot be checked", u"не удаётся проверить"},
    InterfaceText{u"Check", u"alien", u"no packet and no group", u"не пакет и не группа"},
    InterfaceText{u"Check", u"saved", u"written anew", u"записано заново"},
    InterfaceText{u"Check", u"clip", u"clip %1", u"клип %1"},
    InterfaceText{u"Check", u"packet", u"packet %1", u"пакет %1"},
    InterfaceText{u"Check", u"picture", u"picture %1", u"картинка %1"},
    InterfaceText{u"Check", u"usage",
                  u"Usage: orvanta --check [--json] [--fix] [--relative] FILE|FOLDER...",
                  u"Вызов: orvanta --check [--json] [--fix] [--relative] ФАЙЛ|ПАПКА..."},
    InterfaceText{u"Files", u"missingFile", u"Not found: %1", u"Не найдено: %1"},
    InterfaceText{u"Files", u"refusedFile", u"Not a file that can be played: %1",
                  u"Не файл, который можно воспроизвести: %1"},
    InterfaceText{u"Files", u"missingClips", u"%1 of %2 clips are missing",
                  u"Не найдено клипов: %1 из %2"},
    InterfaceText{u"Files", u"missingPackets", u"%1 of %2 packets are missing",
                  u"Не найдено пакетов: %1 из %2"},
    InterfaceText{u"Files", u"look", u"Look for them...", u"Искать их..."},
    InterfaceText{u"Files", u"leave", u"OK", u"OK"},
    InterfaceText{u"Files", u"looking", u"Looking through %1", u"Просматривается %1"},
    InterfaceText{u"Files", u"notThere", u"None of the missing clips is in that folder",
                  u"В этой папке нет ни одного из этих клипов"},
    InterfaceText{u"Files", u"folder", u"In which folder are the clips?",
                  u"В какой папке лежат клипы?"},
});

} // namespace orvanta
