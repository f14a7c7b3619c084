#include "model/texts.h"

#include "model/texts_of_boxes.h"
#include "model/texts_of_editing.h"
#include "model/texts_of_exchange.h"
#include "model/texts_of_files.h"
#include "model/texts_of_page.h"
#include "model/texts_of_terminal.h"

#include <algorithm>
#include <array>

namespace orvanta {

// A window's own caption stands under the window's name; playback/control_rows.h says what "X.tip"
// and "X.name" are. "X.label" is the caption beside X; others are asked for by the window itself.
constexpr auto kTextsOfWindows = std::to_array<InterfaceText>({
    // Behind the report of an error: file, section, key, value.
    InterfaceText{u"RunTimeReport", u"spoiltCount",
                  u"%1: in section [%2] the value of %3 is \"%4\". Write a whole number from 0 to "
                  u"32767 there (how many such lines follow) and start the program again.",
                  u"%1: в разделе [%2] значение %3 — «%4». Впишите туда целое число от 0 до "
                  u"32767 (сколько таких строк следует дальше) и запустите программу снова."},

    InterfaceText{u"Form1", u"Form1", u"!Orvanta!", u"!Orvanta!"},

    // The single-instance search of older launchers goes by this caption: the same in both.
    InterfaceText{u"Form2", u"Form2", u"!Orvanta!", u"!Orvanta!"},
    InterfaceText{u"Form2", u"Image8.tip", u"Open clip...", u"Открыть клип..."},
    InterfaceText{u"Form2", u"Image14.tip", u"Open file...", u"Открыть файл..."},
    InterfaceText{u"Form2", u"Image9.tip", u"New...", u"Новый..."},
    InterfaceText{u"Form2", u"Image10.tip", u"Tools...", u"Инструменты..."},
    InterfaceText{u"Form2", u"Image11.tip", u"Help...", u"Помощь..."},
    InterfaceText{u"Form2", u"Image12.tip", u"Minimize button", u"Кнопка свернуть"},
    InterfaceText{u"Form2", u"Image13.tip", u"Close button", u"Кнопка закрыть"},
    InterfaceText{u"Form2", u"Image2.tip", u"Find", u"Поиск"},
    InterfaceText{u"Form2", u"Text1.tip", u"Find text", u"Искать текст"},
    InterfaceText{u"Form2", u"Text1.missed", u"Not found", u"Не найдено"},
    InterfaceText{u"Form2", u"Text2.tip", u"Current clip", u"Текущий клип"},
    InterfaceText{u"Form2", u"Text2.unplayable", u"Cannot play: %1",
                  u"Не удаётся воспроизвести: %1"}, // the file's name
    InterfaceText{u"Form2", u"Text2.unkept", u"Settings cannot be kept",
                  u"Настройки не сохраняются"},
    InterfaceText{u"Form2", u"Text2.notOnTop", u"This desktop keeps no window on top",
                  u"Этот рабочий стол не держит окна поверх остальных"},
    // Not translated on purpose: the pointer replaces it by the line's text anyway.
    InterfaceText{u"Form2", u"List1.tip", u"Playlist", u"Playlist"},
    InterfaceText{u"Form2", u"List1.packet", u"Packet", u"Пакет"},
    InterfaceText{u"Form2", u"List1.playing", u"playing", u"играет"},
    InterfaceText{u"Form2", u"List1.paused", u"paused", u"приостановлено"},
    InterfaceText{u"Form2", u"StartPage.name", u"Where you stopped", u"Где вы остановились"},
    InterfaceText{u"Form2", u"StartPage.invite", u"Open a lesson, or go on where you stopped",
                  u"Откройте урок или продолжите начатый"},
    InterfaceText{u"Form2", u"StartPage.open", u"&Go on where it was left",
                  u"&Продолжить с того же места"},
    InterfaceText{u"Form2", u"StartPage.take", u"&Take off the list", u"&Убрать из списка"},
    InterfaceText{u"Form2", u"StartPage.forget", u"Forget these", u"Забыть эти уроки"},
    InterfaceText{u"Form2", u"Label1.tip", u"Current time", u"Текущее время"},
    InterfaceText{u"Form2", u"Label2.tip", u"Length of clip", u"Длина клипа"},
    InterfaceText{u"Form2", u"Slider2.tip", u"Volume", u"Громкость"},
    InterfaceText{u"Form2", u"Slider3.tip", u"Balance", u"Баланс"},
    InterfaceText{u"Form2", u"Image5.name", u"Play", u"Воспроизвести"},
    InterfaceText{u"Form2", u"Image3.name", u"Pause", u"Пауза"},
    InterfaceText{u"Form2", u"Image4.name", u"Stop", u"Стоп"},
    InterfaceText{u"Form2", u"Slider1.name", u"Position", u"Позиция"},
    InterfaceText{u"Form2", u"EditButton.tip", u"Edit the lesson", u"Править урок"},
    InterfaceText{u"Form2", u"PracticeButton.tip", u"Practice", u"Упражнение"},
    InterfaceText{u"Form2", u"cp", u"&Packet...", u"&Пакет..."},
    InterfaceText{u"Form2", u"cg", u"&Group...", u"&Группу..."},
    InterfaceText{u"Form2", u"op", u"&Options", u"&Опции"},
    // The name of the program behind it, in both languages.
    InterfaceText{u"Form2", u"cdc", u"&CD Create", u"&CD Create"},
    InterfaceText{u"Form2", u"ai", u"&Add-ins", u"&Дополнения"},
    InterfaceText{u"Form2", u"add", u"(No Add-ins)", u"(No Add-ins)"},
    InterfaceText{u"Form2", u"doc", u"&Documentation", u"&Документация"},
    InterfaceText{u"Form2", u"tu", u"&Tutorial", u"&Учебник"},
    InterfaceText{u"Form2", u"ab", u"&About", u"&О программе"},

    // How a lesson that was left is spoken of.
    InterfaceText{u"Recent", u"today", u"today", u"сегодня"},
    InterfaceText{u"Recent", u"yesterday", u"yesterday", u"вчера"},
    InterfaceText{u"Recent", u"line", u"%1 of %2", u"%1 из %2"},
    InterfaceText{u"Recent", u"over", u"finished", u"пройден"},
    InterfaceText{u"Recent", u"gone", u"not found", u"не найден"},
    InterfaceText{u"Recent", u"hint", u"Delete takes it off", u"Delete уберёт его"},

    InterfaceText{u"Waveform", u"name", u"Sound of the clip", u"Звук клипа"},
    InterfaceText{u"Waveform", u"value", u"%1 of %2, %3 marks", u"%1 из %2, меток: %3"},
    InterfaceText{u"Waveform", u"value.one", u"%1 of %2, %3 mark", u"%1 из %2, меток: %3"},

    InterfaceText{u"PracticePanel", u"SpeedLabel", u"&Speed", u"&Скорость"},
    InterfaceText{u"PracticePanel", u"TimesLabel", u"Play each &line", u"Каждую с&троку"},
    InterfaceText{u"PracticePanel", u"WaitLabel", u"Then &wait", u"Затем &ждать"},
    InterfaceText{u"PracticePanel", u"FromLabel", u"Begin sl&ower", u"Начать &медленнее"},
    InterfaceText{u"PracticePanel", u"StepLabel", u"Each round &faster", u"Каждый раз &быстрее"},
    InterfaceText{u"PracticePanel", u"MirrorBox", u"&Mirror the picture", u"&Зеркально"},
    InterfaceText{u"PracticePanel", u"EvenBox", u"&Even loudness", u"&Ровная громкость"},
    InterfaceText{u"PracticePanel", u"NormalButton", u"&Back to normal", u"&Как обычно"},
    InterfaceText{u"Practice", u"menu", u"Practi&ce", u"Упра&жнение"},
    InterfaceText{u"Practice", u"times.once", u"once", u"один раз"},
    InterfaceText{u"Practice", u"times.few", u"%1 times", u"%1 раза"},
    InterfaceText{u"Practice", u"times.many", u"%1 times", u"%1 раз"},
    InterfaceText{u"Practice", u"times.endless", u"endlessly", u"без конца"},
    InterfaceText{u"Practice", u"wait.none", u"go on at once", u"сразу дальше"},
    InterfaceText{u"Practice", u"wait.key", u"until a key", u"до клавиши"},
    InterfaceText{u"Practice", u"wait.once", u"as long as it lasted",
                  u"столько же, сколько звучала"},
    InterfaceText{u"Practice", u"wait.length", u"%1 × its length", u"%1 × её длины"},
    InterfaceText{u"Practice", u"wait.seconds", u"%1 s", u"%1 с"},
    InterfaceText{u"Practice", u"from.normal", u"no", u"нет"},
    InterfaceText{u"Practice", u"from", u"at %1 %", u"с %1 %"},
    InterfaceText{u"Practice", u"step", u"+%1 %", u"+%1 %"},
    InterfaceText{u"Practice", u"round", u"Repeat %1 of %2", u"Повтор %1 из %2"},
    InterfaceText{u"Practice", u"round.endless", u"Repeat %1", u"Повтор %1"},
    InterfaceText{u"Practice", u"said.times", u"Each line %1", u"Каждая строка: %1"},
    InterfaceText{u"Practice", u"said.wait", u"After each line: %1", u"После строки: %1"},
    InterfaceText{u"Practice", u"chip.tip", u"Take away: %1", u"Убрать: %1"},
    InterfaceText{u"Practice", u"chip.wait", u"wait ×%1", u"ждать ×%1"},
    InterfaceText{u"Practice", u"chip.wait.key", u"wait for a key", u"ждать клавишу"},
    InterfaceText{u"Practice", u"chip.wait.seconds", u"wait %1 s", u"ждать %1 с"},
    InterfaceText{u"Practice", u"chip.from", u"from %1 %", u"с %1 %"},
    InterfaceText{u"Practice", u"chip.mirror", u"mirrored", u"зеркально"},
    InterfaceText{u"Practice", u"chip.even", u"even loudness", u"ровно"},
    InterfaceText{u"Practice", u"Waiting", u"Waiting: Space goes on", u"Ждём: дальше — пробел"},
    // What can be asked for while watching: playback/commands.h. Those in a menu have access keys.
    InterfaceText{u"Command", u"PlayLine", u"&Play this line", u"&Играть эту строку"},
    InterfaceText{u"Command", u"CheckLine", u"Chec&ked", u"&Отмечена"},
    InterfaceText{u"Command", u"TogglePlay", u"Play or p&ause", u"Пуск или п&ауза"},
    InterfaceText{u"Command", u"Play", u"Play", u"Воспроизвести"},
    InterfaceText{u"Command", u"Pause", u"Pause", u"Пауза"},
    InterfaceText{u"Command", u"Stop", u"&Stop", u"&Стоп"},
    InterfaceText{u"Command", u"StopButton", u"Stop, in a packet of brakes at the brake",
                  u"Стоп, в пакете с разбивкой у отметки"},
    InterfaceText{u"Command", u"NextLine", u"&Next line", u"С&ледующая строка"},
    InterfaceText{u"Command", u"PreviousLine", u"P&revious line", u"&Предыдущая строка"},
    InterfaceText{u"Command", u"LineAgain", u"This line aga&in", u"Эту строку сно&ва"},
    InterfaceText{u"Command", u"NextClip", u"Next clip", u"Следующий клип"},
    InterfaceText{u"Command", u"PreviousClip", u"Previous clip", u"Предыдущий клип"},
    InterfaceText{u"Command", u"RepeatLine", u"&Repeat lines endlessly", u"Повторять &без конца"},
    InterfaceText{u"Command", u"Slower", u"&Slower", u"&Медленнее"},
    InterfaceText{u"Command", u"Faster", u"&Faster", u"Быс&трее"},
    InterfaceText{u"Command", u"NormalSpeed", u"&Normal speed", u"Обы&чная скорость"},
    InterfaceText{u"Command", u"NextWait", u"&Wait after each line", u"&Ждать после строки"},
    InterfaceText{u"Command", u"NextTextLevel", u"Text o&ver the picture",
                  u"Текст поверх изображени&я"},
    InterfaceText{u"Command", u"StepBack", u"5 seconds back", u"На 5 секунд назад"},
    InterfaceText{u"Command", u"StepForward", u"5 seconds on", u"На 5 секунд вперёд"},
    InterfaceText{u"Command", u"MinuteBack", u"One minute back", u"На минуту назад"},
    InterfaceText{u"Command", u"MinuteForward", u"One minute on", u"На минуту вперёд"},
    InterfaceText{u"Command", u"VolumeUp", u"Volume up", u"Громче"},
    InterfaceText{u"Command", u"VolumeDown", u"Volume down", u"Тише"},
    InterfaceText{u"Command", u"SetBookmark", u"Set book&mark", u"Поставить &закладку"},
    InterfaceText{u"Command", u"GoToBookmark", u"&Go to bookmark", u"П&ерейти к закладке"},
    InterfaceText{u"Command", u"FillScreen", u"Full screen", u"Полный экран"},
    InterfaceText{u"Command", u"LeaveScreen", u"Back to the window", u"Обратно в окно"},
    InterfaceText{u"Command", u"ToggleFullScreen", u"F&ull screen", u"Полный &экран"},
    InterfaceText{u"Command", u"LeaveFullScreen", u"Leave full screen", u"Выйти из полного экрана"},
    InterfaceText{u"Command", u"AlwaysOnTop", u"Al&ways on top", u"Поверх остальны&х"},
    InterfaceText{u"Command", u"EditMode", u"Edi&t the lesson", u"Прави&ть урок"},
    InterfaceText{u"Command", u"Mark", u"Set a &mark here", u"Поставить &метку здесь"},
    InterfaceText{u"Command", u"EditText", u"Edit the &text", u"Править &текст"},
    InterfaceText{u"Command", u"EarlierSlightly", u"0.1 s &earlier", u"На 0,1 с &раньше"},
    InterfaceText{u"Command", u"LaterSlightly", u"0.1 s &later", u"На 0,1 с &позже"},
    InterfaceText{u"Command", u"Earlier", u"1 s e&arlier", u"На 1 с р&аньше"},
    InterfaceText{u"Command", u"Later", u"1 s late&r", u"На 1 с по&зже"},
    InterfaceText{u"Command", u"RemoveLines", u"Rem&ove", u"&Удалить"},
    InterfaceText{u"Command", u"LinesUp", u"Move &up", u"&Выше"},
    InterfaceText{u"Command", u"LinesDown", u"Move do&wn", u"&Ниже"},
    InterfaceText{u"Command", u"Undo", u"U&ndo", u"&Отменить"},
    InterfaceText{u"Command", u"Redo", u"Re&do", u"В&ернуть"},
    InterfaceText{u"Command", u"Save", u"&Save", u"&Сохранить"},
    InterfaceText{u"Command", u"SaveAs", u"Sa&ve as...", u"Сохранить &как..."},
    InterfaceText{u"Command", u"OpenFile", u"&Open file...", u"Открыть &файл..."},
    InterfaceText{u"Command", u"OpenClips", u"Open c&lips...", u"Открыть &клипы..."},
    InterfaceText{u"Command", u"Find", u"&Find...", u"&Найти..."},
    InterfaceText{u"Command", u"FindAgain", u"Find again", u"Искать дальше"},
    InterfaceText{u"Command", u"TextsLarger", u"Larger texts", u"Тексты крупнее"},
    InterfaceText{u"Command", u"TextsSmaller", u"Smaller texts", u"Тексты мельче"},
    InterfaceText{u"Command", u"TextsNormal", u"Texts of the normal size",
                  u"Тексты обычного размера"},
    InterfaceText{u"Command", u"Help", u"&Handbook", u"&Руководство"},
    InterfaceText{u"Command", u"ShowMenu", u"Menu", u"Меню"},
    InterfaceText{u"Command", u"Quit", u"E&xit", u"Закр&ыть"},

    // Each choice names itself in its own language.
    InterfaceText{u"Form11", u"Form11", u"Select language", u"Выберите язык"},
    InterfaceText{u"Form11", u"Option1", u"&English", u"&English"},
    InterfaceText{u"Form11", u"Option2", u"&Русский", u"&Русский"},
    InterfaceText{u"Form11", u"Command1", u"Next...", u"Далее..."},

    // The pickers' window titles are the same in both languages.

    InterfaceText{u"Form12", u"st", u"&Stop", u"&Стоп"},
    InterfaceText{u"Form12", u"pa", u"Paus&e", u"&Пауза"},
    InterfaceText{u"Form12", u"pl", u"&Play", u"&Воспроизведение"},
    InterfaceText{u"Form12", u"nex", u"&Next clip", u"&Следующий клип"},
    InterfaceText{u"Form12", u"pr", u"&Previous clip", u"&Предыдущий клип"},
    InterfaceText{u"Form12", u"closeapp", u"&Exit", u"&Закрыть"},
    InterfaceText{u"Form12", u"IconTray1.tip", u"!orvanta! %1", u"!orvanta! %1"}, // the version

    InterfaceText{u"Form7", u"Form7", u"!Orvanta!", u"!Orvanta!"},
    InterfaceText{u"Form7", u"FolderTreeview1.tip", u"Select folder", u"Выберите папку"},
    InterfaceText{u"Form7", u"File1.tip", u"Select file", u"Выберите файл"},
    InterfaceText{u"Form7", u"Command1.tip", u"OK", u"ОК"},
    InterfaceText{u"Form7", u"Command2", u"Cancel", u"Отмена"},
    InterfaceText{u"Form7", u"PathBox.label", u"Path:", u"Путь:"},
    // The misspelling is an old friend of the users. Label1: version, player library, FFmpeg, Qt.
    InterfaceText{u"Form9", u"Form9", u"About author", u"Об авторе"},
    InterfaceText{
        u"Form9",
        u"Label1",
        u"Orvanta %1 leads you through material step by step: clips in their order, each with a "
        u"sentence of its own, or one clip with marks in time. It is made for lessons, exercises "
        u"and guided listening. Its author is everybody who has written for it.\n\n"
        u"It is free software under the MIT licence: use it, share it, change it. It plays with "
        u"%2 and FFmpeg %3; its windows are made with Qt %4.\n\n"
        u"Something is wrong, or missing? Tell it to those from whom you have the program or its "
        u"source text. CONTRIBUTING.md says what a report is made of. Started like this, the "
        u"program says what it does:\nQT_LOGGING_RULES=\"orvanta.*=true\" orvanta",
        u"Орванта %1 ведёт по материалу шаг за шагом: клипы по порядку, у каждого своя фраза, или "
        u"один клип с отметками времени. Она сделана для уроков, упражнений и внимательного "
        u"слушания. Её автор — все, кто для неё писал.\n\n"
        u"Это свободная программа под лицензией MIT: пользуйтесь, передавайте, меняйте. "
        u"Воспроизводят %2 и FFmpeg %3, окна построены на Qt %4.\n\n"
        u"Что-то не так или чего-то не хватает? Скажите тем, от кого у вас программа или её "
        u"исходный текст. Что нужно для сообщения, написано в CONTRIBUTING.md. Запущенная так, "
        u"программа рассказывает, что она делает:\nQT_LOGGING_RULES=\"orvanta.*=true\" orvanta"},
    InterfaceText{u"Form9", u"Label1.picture", u"Pictures are drawn by: %1. Decoded by: %2.",
                  u"Изображение рисует: %1. Декодирует: %2."},
    InterfaceText{u"Form9", u"Label1.processor", u"the processor", u"процессор"},
    InterfaceText{u"Form9", u"Label2", u"My adress:", u"Мой адрес:"},
    InterfaceText{u"Form9", u"label6", u"there where you have Orvanta from",
                  u"там, откуда у вас Орванта"},
    InterfaceText{u"Form9", u"Label7", u"Published in magazine:",
                  u"Напечатано в справочнике «Шаг за шагом»:"},
    InterfaceText{u"Form9", u"Text1", u"Step by Step, the handbook of Orvanta",
                  u"Шаг за шагом. Справочник Орванты"},
    InterfaceText{u"Form9", u"Image1.tip", u"Show the picture enlarged", u"Увеличить картинку"},
    InterfaceText{u"Form9", u"Command1", u"Ok", u"Ok"},

    InterfaceText{u"Form10", u"Form10", u"!Orvanta!", u"!Orvanta!"},
    InterfaceText{u"Form10", u"FolderTreeview1.tip", u"Select folder", u"Выберите папку"},
    InterfaceText{u"Form10", u"File1.tip", u"Select file", u"Выберите файл"},
    InterfaceText{u"Form10", u"Command1.tip", u"OK", u"ОК"},
    InterfaceText{u"Form10", u"Command2", u"Cancel", u"Отмена"},
    InterfaceText{u"Form10", u"PathBox.label", u"Path:", u"Путь:"},
    InterfaceText{u"Form10", u"FolderLabel.in", u"In the folder \"%1\"", u"В папке «%1»"},
    InterfaceText{u"Form10", u"Text1", u"no name", u"no name"},
    InterfaceText{u"Form10", u"Text1.label", u"Name:", u"Имя:"},
    InterfaceText{u"Form10", u"Label1.replaced", u"This file exists and will be replaced.",
                  u"Этот файл уже есть и будет заменён."},
    InterfaceText{u"Form10", u"Label1.denied", u"Nothing can be saved here under this name.",
                  u"Под этим именем сюда сохранить нельзя."},

    InterfaceText{u"Form8", u"Form8", u"Options", u"Опции"},
    InterfaceText{u"Form8", u"Image3", u"Playing options", u"Опции воспроизведения"},
    InterfaceText{u"Form8", u"Image4", u"Program options", u"Опции программы"},
    InterfaceText{u"Form8", u"Image5", u"File options", u"Опции файлов"},
    InterfaceText{u"Form8", u"Image2", u"Ok", u"Ok"},
    InterfaceText{u"Form8", u"Image1", u"Cancel", u"Отмена"},
    InterfaceText{u"Form8", u"Check1", u"Auto start playing after opening files.",
                  u"Автоматически начинать играть после открытия"},
    InterfaceText{u"Form8", u"Check2", u"Auto go to next clip",
                  u"Автоматически начинать играть следующий клип"},
    InterfaceText{u"Form8", u"Check3", u"Auto go to next packet",
                  u"Автоматически начинать играть следующий пакет"},
    InterfaceText{u"Form8", u"Check4",
                  u"Auto close program after playing files which was open from explorer",
                  u"Автоматически закрывать программу после воспроизведения файлов, открытых из "
                  u"проводника"},
    InterfaceText{u"Form8", u"Check5", u"Auto replay clips", u"Автоповтор"},
    InterfaceText{u"Form8", u"Check6", u"Show icon in system tray",
                  u"Показывать иконку в system tray"},
    InterfaceText{u"Form8", u"Check7", u"Do not close program (work faster, but need more memory)",
                  u"Не закрывать программу (работает быстрее, но расходует память)"},
    InterfaceText{u"Form8", u"Check8", u"Copy file to hard disk from drive a when opening ",
                  u"Использовать предварительное чтение с дисковода A"},
    InterfaceText{u"Form8", u"Check9", u"Start program with windows",
                  u"Запускать программу при запуске системы"},
    InterfaceText{u"Form8", u"Command1", u"Add", u"Добавить"},
    InterfaceText{u"Form8", u"Command2", u"Remove selected", u"Удалить выделенный"},
    InterfaceText{u"Form8", u"Command3", u"Select icon...", u"Выбрать иконку..."},
    InterfaceText{u"Form8", u"Command4", u"Default icon", u"По умолчанию"},
    InterfaceText{u"Form8", u"List1.label", u"&Types of files that this program opens:",
                  u"&Типы файлов, которые открывает программа:"},
    InterfaceText{u"Form8", u"Text1.label", u"&New type:", u"&Новый тип:"},
    InterfaceText{u"Form8", u"Image6.name", u"Icon of the type", u"Иконка типа"},

    InterfaceText{u"Form13", u"Sign.pause", u"Pause", u"Пауза"},
    InterfaceText{u"Form13", u"Sign.play", u"Play", u"Воспроизведение"},
    InterfaceText{u"Form13", u"Sign.stop", u"Stop", u"Стоп"},
    InterfaceText{u"Form13", u"Sign.volume", u"Volume %1 %", u"Громкость %1 %"},
    InterfaceText{u"Form13", u"Sign.line", u"%1 of %2", u"%1 из %2"},
    InterfaceText{u"Form13", u"Sign.bookmark", u"Bookmark at %1", u"Закладка на %1"},
    InterfaceText{u"Form13", u"Sign.noBookmark", u"No bookmark here", u"Здесь нет закладки"},
    InterfaceText{u"Form13", u"Sign.textOff", u"Text off", u"Текст выключен"},
    InterfaceText{u"Form13", u"Sign.text", u"Text", u"Текст"},
    InterfaceText{u"Form13", u"Sign.textLarge", u"Large text", u"Крупный текст"},

    InterfaceText{u"Form13", u"Bar.previous", u"Previous line", u"Предыдущая строка"},
    InterfaceText{u"Form13", u"Bar.play", u"Play or pause", u"Играть или приостановить"},
    InterfaceText{u"Form13", u"Bar.next", u"Next line", u"Следующая строка"},
    InterfaceText{u"Form13", u"Bar.again", u"This line again", u"Эту строку снова"},
    InterfaceText{u"Form13", u"Bar.repeat", u"Repeat lines endlessly", u"Повторять без конца"},
    InterfaceText{u"Form13", u"Bar.speed", u"Speed", u"Скорость"},
    InterfaceText{u"Form13", u"Bar.text", u"Text over the picture", u"Текст поверх изображения"},
    InterfaceText{u"Form13", u"Bar.tracks", u"Sound and subtitles", u"Звук и субтитры"},
    InterfaceText{u"Form13", u"Bar.fullScreen", u"Full screen", u"Полный экран"},
    InterfaceText{u"Form13", u"Bar.track", u"Position", u"Позиция"},

    InterfaceText{u"Tracks", u"sound", u"Soun&d", u"Зв&ук"},
    InterfaceText{u"Tracks", u"subtitles", u"Su&btitles", u"Су&бтитры"},
    InterfaceText{u"Tracks", u"off", u"Off", u"Выключены"},
    InterfaceText{u"Tracks", u"number", u"Track %1", u"Дорожка %1"},

    // Of sound and subtitles, by the code of the language.
    InterfaceText{u"Language", u"ar", u"Arabic", u"Арабский"},
    InterfaceText{u"Language", u"be", u"Belarusian", u"Белорусский"},
    InterfaceText{u"Language", u"bg", u"Bulgarian", u"Болгарский"},
    InterfaceText{u"Language", u"bn", u"Bengali", u"Бенгальский"},
    InterfaceText{u"Language", u"ca", u"Catalan", u"Каталанский"},
    InterfaceText{u"Language", u"cs", u"Czech", u"Чешский"},
    InterfaceText{u"Language", u"da", u"Danish", u"Датский"},
    InterfaceText{u"Language", u"de", u"German", u"Немецкий"},
    InterfaceText{u"Language", u"el", u"Greek", u"Греческий"},
    InterfaceText{u"Language", u"en", u"English", u"Английский"},
    InterfaceText{u"Language", u"eo", u"Esperanto", u"Эсперанто"},
    InterfaceText{u"Language", u"es", u"Spanish", u"Испанский"},
    InterfaceText{u"Language", u"et", u"Estonian", u"Эстонский"},
    InterfaceText{u"Language", u"fa", u"Persian", u"Персидский"},
    InterfaceText{u"Language", u"fi", u"Finnish", u"Финский"},
    InterfaceText{u"Language", u"fr", u"French", u"Французский"},
    InterfaceText{u"Language", u"he", u"Hebrew", u"Иврит"},
    InterfaceText{u"Language", u"hi", u"Hindi", u"Хинди"},
    InterfaceText{u"Language", u"hr", u"Croatian", u"Хорватский"},
    InterfaceText{u"Language", u"hu", u"Hungarian", u"Венгерский"},
    InterfaceText{u"Language", u"hy", u"Armenian", u"Армянский"},
    InterfaceText{u"Language", u"id", u"Indonesian", u"Индонезийский"},
    InterfaceText{u"Language", u"it", u"Italian", u"Итальянский"},
    InterfaceText{u"Language", u"ja", u"Japanese", u"Японский"},
    InterfaceText{u"Language", u"ka", u"Georgian", u"Грузинский"},
    InterfaceText{u"Language", u"kk", u"Kazakh", u"Казахский"},
    InterfaceText{u"Language", u"ko", u"Korean", u"Корейский"},
    InterfaceText{u"Language", u"la", u"Latin", u"Латинский"},
    InterfaceText{u"Language", u"lt", u"Lithuanian", u"Литовский"},
    InterfaceText{u"Language", u"lv", u"Latvian", u"Латышский"},
    InterfaceText{u"Language", u"nb", u"Norwegian", u"Норвежский"},
    InterfaceText{u"Language", u"nl", u"Dutch", u"Нидерландский"},
    InterfaceText{u"Language", u"pl", u"Polish", u"Польский"},
    InterfaceText{u"Language", u"pt", u"Portuguese", u"Португальский"},
    InterfaceText{u"Language", u"ro", u"Romanian", u"Румынский"},
    InterfaceText{u"Language", u"ru", u"Russian", u"Русский"},
    InterfaceText{u"Language", u"sk", u"Slovak", u"Словацкий"},
    InterfaceText{u"Language", u"sl", u"Slovenian", u"Словенский"},
    InterfaceText{u"Language", u"sr", u"Serbian", u"Сербский"},
    InterfaceText{u"Language", u"sv", u"Swedish", u"Шведский"},
    InterfaceText{u"Language", u"th", u"Thai", u"Тайский"},
    InterfaceText{u"Language", u"tr", u"Turkish", u"Турецкий"},
    InterfaceText{u"Language", u"uk", u"Ukrainian", u"Украинский"},
    InterfaceText{u"Language", u"vi", u"Vietnamese", u"Вьетнамский"},
    InterfaceText{u"Language", u"zh", u"Chinese", u"Китайский"},

    InterfaceText{u"FolderTree", u"home", u"Home", u"Домашняя папка"},
    InterfaceText{u"FolderTree", u"root", u"Computer", u"Компьютер"},

    InterfaceText{u"Form5", u"Form5", u"Create packet", u"Создать пакет"},
    InterfaceText{u"Form5", u"Option1", u"Packet", u"Пакет"},
    InterfaceText{u"Form5", u"Option2", u"Brake", u"Разбивку"},
    InterfaceText{u"Form5", u"Frame1", u"Packet", u"Пакет"},
    InterfaceText{u"Form5", u"Frame5", u"Brake", u"Разбивку"},
    InterfaceText{u"Form5", u"Command3", u"Load packet", u"Загрузить"},
    InterfaceText{u"Form5", u"Command4", u"Save packet", u"Сохранить"},
    InterfaceText{u"Form5", u"Command5", u"Remove", u"Удалить"},
    InterfaceText{u"Form5", u"Command6", u"Remove all", u"Удалить все"},
    InterfaceText{u"Form5", u"Command8", u"Add all", u"Добавить все"},
    InterfaceText{u"Form5", u"Command9", u"Move up", u"Вверх"},
    InterfaceText{u"Form5", u"Command10", u"Move down", u"Вниз"},
    InterfaceText{u"Form5", u"Command15", u"Add key", u"Добавить"},
    InterfaceText{u"Form5", u"Command11", u"Remove key", u"Удалить"},
    InterfaceText{u"Form5", u"Command7", u"Load brake", u"Загрузить"},
    InterfaceText{u"Form5", u"Command16", u"Save brake", u"Сохранить"},
    InterfaceText{u"Form5", u"Command2", u"Cancel", u"Отмена"},
    InterfaceText{u"Form5", u"Command1.tip", u"Create and open", u"Создать и открыть"},
    InterfaceText{u"Form5", u"Command12.tip", u"Create and open", u"Создать и открыть"},
    InterfaceText{u"Form5", u"FolderTreeview1.name", u"Folders", u"Папки"},
    InterfaceText{u"Form5", u"File1.name", u"Files of the folder", u"Файлы папки"},
    InterfaceText{u"Form5", u"FolderTreeview2.name", u"Folders", u"Папки"},
    InterfaceText{u"Form5", u"File2.name", u"Files of the folder", u"Файлы папки"},
    InterfaceText{u"Form5", u"List1.name", u"Clips of the packet", u"Клипы пакета"},
    InterfaceText{u"Form5", u"Text1.label", u"Clip:", u"Клип:"},
    InterfaceText{u"Form5", u"Text2.label", u"Text:", u"Текст:"},
    InterfaceText{u"Form5", u"Text3.label", u"Clip:", u"Клип:"},
    InterfaceText{u"Form5", u"Text4.label", u"Text:", u"Текст:"},
    InterfaceText{u"Form5", u"ActiveMovie1.name", u"Preview", u"Просмотр"},
    InterfaceText{u"Form5", u"PreviewButton.tip", u"Play or pause", u"Пуск или пауза"},
    InterfaceText{u"Form5", u"Slider1.name", u"Position", u"Позиция"},
    InterfaceText{u"Form5", u"Label1.tip", u"Position", u"Позиция"},
    InterfaceText{u"Form5", u"Label2.tip", u"Length of clip", u"Длина клипа"},
    InterfaceText{u"Form5", u"List2.name", u"Brakes of the clip", u"Разбивка клипа"},

    InterfaceText{u"Form6", u"Form6", u"Create group", u"Создать группу"},
    InterfaceText{u"Form6", u"Command7", u"...", u"..."},
    InterfaceText{u"Form6", u"Command3", u"Load group", u"Загрузить"},
    InterfaceText{u"Form6", u"Command4", u"Save group", u"Сохранить"},
    InterfaceText{u"Form6", u"Command5", u"Remove", u"Удалить"},
    InterfaceText{u"Form6", u"Command6", u"Remove all", u"Удалить все"},
    InterfaceText{u"Form6", u"Command8", u"Add all", u"Добавить все"},
    InterfaceText{u"Form6", u"Command9", u"Move up", u"Вверх"},
    InterfaceText{u"Form6", u"Command10", u"Move down", u"Вниз"},
    InterfaceText{u"Form6", u"Command2", u"Cancel", u"Отмена"},
    InterfaceText{u"Form6", u"Command1.tip", u"Create and open", u"Создать и открыть"},
    InterfaceText{u"Form6", u"Command7.tip", u"Choose a picture", u"Выбрать картинку"},
    InterfaceText{u"Form6", u"FolderTreeview1.name", u"Folders", u"Папки"},
    InterfaceText{u"Form6", u"File1.name", u"Packets of the folder", u"Пакеты папки"},
    InterfaceText{u"Form6", u"List1.name", u"Packets of the group", u"Пакеты группы"},
    InterfaceText{u"Form6", u"List1.lent",
                  u"Will be written with text and picture of an entry above:",
                  u"Запишется с текстом и картинкой записи, которая стоит выше:"},
    InterfaceText{u"Form6", u"List1.bare", u"Will be written without text and picture",
                  u"Запишется без текста и картинки"},
    InterfaceText{u"Form6", u"Text1.label", u"Packet:", u"Пакет:"},
    InterfaceText{u"Form6", u"Text2.label", u"Text:", u"Текст:"},
    InterfaceText{u"Form6", u"Text3.label", u"Picture:", u"Картинка:"},
});

/// All tables as one.
template <std::size_t... Sizes>
constexpr auto joined(const std::array<InterfaceText, Sizes>&... tables)
{
    std::array<InterfaceText, (Sizes + ...)> all;
    auto end = all.begin();
    ((end = std::ranges::copy(tables, end).out), ...);
    return all;
}
constexpr auto kTexts = joined(kTextsOfWindows, kTextsOfEditing, kTextsOfFiles, kTextsOfBoxes,
                               kTextsOfPage, kTextsOfExchange, kTextsOfTerminal);

constexpr bool everyCellIsFilled()
{
    return std::ranges::all_of(kTexts, [](const InterfaceText& row) {
        return !row.window.isEmpty() && !row.control.isEmpty() && !row.english.isEmpty() &&
               !row.russian.isEmpty();
    });
}
static_assert(everyCellIsFilled(), "an interface text lacks a cell");

std::span<const InterfaceText> interfaceTexts()
{
    return kTexts;
}

QString interfaceText(QStringView window, QStringView control, TextLanguage language)
{
    const auto row = std::ranges::find_if(kTexts, [&](const InterfaceText& text) {
        return text.window == window && text.control == control;
    });
    Q_ASSERT_X(row != kTexts.end(), "interfaceText", "no such window and control");
    if (row == kTexts.end()) {
        return {};
    }
    return row->in(language);
}

} // namespace orvanta
