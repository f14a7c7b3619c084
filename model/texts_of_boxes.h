// The texts of lessons in a box: rows of the table in texts.cpp.
#pragma once

#include "model/texts.h"

#include <array>

namespace orvanta {

inline constexpr auto kTextsOfBoxes = std::to_array<InterfaceText>({
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
