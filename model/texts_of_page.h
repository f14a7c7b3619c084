// The texts of a lesson's page in the browser: rows of the table in texts.cpp.
#pragma once

#include "model/texts.h"

#include <array>

namespace orvanta {

inline constexpr auto kTextsOfPage = std::to_array<InterfaceText>({
    InterfaceText{u"LessonPage", u"find", u"Find text", u"Найти текст"},
    InterfaceText{u"LessonPage", u"find.next", u"Find", u"Найти"},
    InterfaceText{u"LessonPage", u"find.missed", u"Not found", u"Не найдено"},
    // Its own name in the other language: who cannot read this one looks for it.
    InterfaceText{u"LessonPage", u"language", u"Русский", u"English"},
    InterfaceText{u"LessonPage", u"keys", u"Keys", u"Клавиши"},
    InterfaceText{u"LessonPage", u"key.Space", u"Space", u"Пробел"},
    InterfaceText{u"LessonPage", u"play", u"Play", u"Воспроизвести"},
    InterfaceText{u"LessonPage", u"pause", u"Pause", u"Пауза"},
    InterfaceText{u"LessonPage", u"previous", u"Previous line", u"Предыдущая строка"},
    InterfaceText{u"LessonPage", u"next", u"Next line", u"Следующая строка"},
    InterfaceText{u"LessonPage", u"again", u"This line again", u"Эту строку снова"},
    InterfaceText{u"LessonPage", u"repeat", u"Repeat lines endlessly", u"Повторять без конца"},
    InterfaceText{u"LessonPage", u"wait", u"Wait after each line", u"Ждать после строки"},
    InterfaceText{u"LessonPage", u"speed", u"Speed", u"Скорость"},
    InterfaceText{u"LessonPage", u"practice", u"Practice", u"Упражнение"},
    InterfaceText{u"LessonPage", u"position", u"Position", u"Позиция"},
    InterfaceText{u"LessonPage", u"controls", u"Player", u"Плеер"},
    InterfaceText{u"LessonPage", u"volume", u"Volume", u"Громкость"},
    InterfaceText{u"LessonPage", u"size", u"Size of the text", u"Размер текста"},
    InterfaceText{u"LessonPage", u"screen", u"Full screen", u"Полный экран"},
    InterfaceText{u"LessonPage", u"list", u"Lesson", u"Урок"},
    InterfaceText{u"LessonPage", u"times", u"Play each line", u"Играть строку"},
    InterfaceText{u"LessonPage", u"from", u"Begin slower", u"Начинать медленнее"},
    InterfaceText{u"LessonPage", u"step", u"Each round faster", u"С каждым разом быстрее"},
    InterfaceText{u"LessonPage", u"mirror", u"Mirror the picture", u"Отразить картинку"},
    InterfaceText{u"LessonPage", u"empty", u"Press Play or choose a line",
                  u"Нажмите «Воспроизвести» или выберите строку"},
    InterfaceText{u"LessonPage", u"goingOn", u"Going on by itself", u"Продолжение само собой"},
    InterfaceText{u"LessonPage", u"nextClip", u"The next clip follows",
                  u"За клипом следующий клип"},
    InterfaceText{u"LessonPage", u"nextPacket", u"The next packet follows",
                  u"За пакетом следующий пакет"},
    InterfaceText{u"LessonPage", u"replay", u"At the end from the beginning",
                  u"После конца сначала"},
    InterfaceText{u"LessonPage", u"normal", u"Back to normal", u"Как обычно"},
    InterfaceText{u"LessonPage", u"done", u"Done", u"Готово"},
    InterfaceText{u"LessonPage", u"waiting", u"Waiting: Space or a touch goes on",
                  u"Ждём: дальше — пробел или касание"},
    InterfaceText{u"LessonPage", u"unplayable", u"This browser cannot play: %1",
                  u"Браузер не может воспроизвести: %1"},
    InterfaceText{u"LessonPage", u"noPicture", u"This browser plays only the sound of this clip",
                  u"Браузер воспроизводит только звук этого клипа"},
    InterfaceText{u"LessonPage", u"missing", u"The file of this line is not there",
                  u"Файла этой строки нет"},
    InterfaceText{u"LessonPage", u"refused", u"The browser waits for you: press Play",
                  u"Браузер ждёт вас: нажмите «Воспроизвести»"},
    InterfaceText{u"LessonPage", u"over", u"The lesson is over", u"Урок окончен"},
    InterfaceText{u"LessonPage", u"resume", u"You stopped at %1", u"Вы остановились на %1"},
    InterfaceText{u"LessonPage", u"resume.go", u"Go on", u"Продолжить"},
    InterfaceText{u"LessonPage", u"resume.start", u"From the beginning", u"С начала"},
    InterfaceText{u"LessonPage", u"bookmark.set", u"Bookmark at %1", u"Закладка на %1"},
    InterfaceText{u"LessonPage", u"bookmark.none", u"No bookmark in this line",
                  u"В этой строке нет закладки"},
});

} // namespace orvanta
