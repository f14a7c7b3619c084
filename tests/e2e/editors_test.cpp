// Making packets and a group through the windows alone, as somebody does who has just installed the
// program.

#include "core/ini.h"
#include "tests/e2e/support/dialog.h"
#include "tests/e2e/support/end_to_end.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

namespace {

/// What the windows say, what the user calls things, and where.
struct Words
{
    QString locale; // of the user
    QString language;
    QString next;
    QString newMenu;
    QString packetEditor, groupEditor, brakeMode;
    QString folders, files, packetFiles, clips, brakes, members;
    QString savePacket, saveBrake, saveGroup, addKey, cancel, create, choosePicture;
    QString text, name, position;
    QString pickerFolders, pickerFiles, home;
    QString userFolder;
    QStringList clipTexts, brakeTexts, memberTexts;
    QString clipsFile, brakesFile;
    QChar decimalMark;
};

Words english()
{
    return {.locale = u"en_US.UTF-8"_s,
            .language = u"English"_s,
            .next = u"Next..."_s,
            .newMenu = u"New..."_s,
            .packetEditor = u"Create packet"_s,
            .groupEditor = u"Create group"_s,
            .brakeMode = u"Brake"_s,
            .folders = u"Folders"_s,
            .files = u"Files of the folder"_s,
            .packetFiles = u"Packets of the folder"_s,
            .clips = u"Clips of the packet"_s,
            .brakes = u"Brakes of the clip"_s,
            .members = u"Packets of the group"_s,
            .savePacket = u"Save packet"_s,
            .saveBrake = u"Save brake"_s,
            .saveGroup = u"Save group"_s,
            .addKey = u"Add key"_s,
            .cancel = u"Cancel"_s,
            .create = u"Create and open"_s,
            .choosePicture = u"Choose a picture"_s,
            .text = u"Text:"_s,
            .name = u"Name:"_s,
            .position = u"Position"_s,
            .pickerFolders = u"Select folder"_s,
            .pickerFiles = u"Select file"_s,
            .home = u"Home"_s,
            .userFolder = u"My lesson"_s,
            .clipTexts = {u"Watch this"_s, u"Only look {}"_s, u"Only listen"_s},
            .brakeTexts = {u"Look"_s, u"Listen"_s, u"Repeat"_s, u"The end"_s},
            .memberTexts = {u"Warming up"_s, u"The lesson"_s},
            .clipsFile = u"clips"_s,
            .brakesFile = u"lesson"_s,
            .decimalMark = u'.'};
}

Words russian()
{
    return {.locale = u"ru_RU.UTF-8"_s,
            .language = u"Русский"_s,
            .next = u"Далее..."_s,
            .newMenu = u"Новый..."_s,
            .packetEditor = u"Создать пакет"_s,
            .groupEditor = u"Создать группу"_s,
            .brakeMode = u"Разбивку"_s,
            .folders = u"Папки"_s,
            .files = u"Файлы папки"_s,
            .packetFiles = u"Пакеты папки"_s,
            .clips = u"Клипы пакета"_s,
            .brakes = u"Разбивка клипа"_s,
            .members = u"Пакеты группы"_s,
            .savePacket = u"Сохранить"_s,
            .saveBrake = u"Сохранить"_s,
            .saveGroup = u"Сохранить"_s,
            .addKey = u"Добавить"_s,
            .cancel = u"Отмена"_s,
            .create = u"Создать и открыть"_s,
            .choosePicture = u"Выбрать картинку"_s,
            .text = u"Текст:"_s,
            .name = u"Имя:"_s,
            .position = u"Позиция"_s,
            .pickerFolders = u"Выберите папку"_s,
            .pickerFiles = u"Выберите файл"_s,
            .home = u"Домашняя папка"_s,
            .userFolder = u"Мой урок"_s,
            .clipTexts = {u"Смотри и слушай"_s, u"Только смотри"_s, u"Только слушай"_s},
            .brakeTexts = {u"Смотри"_s, u"Слушай"_s, u"Повтори"_s, u"Конец"_s},
            .memberTexts = {u"Разминка"_s, u"Урок"_s},
            .clipsFile = u"клипы"_s,
            .brakesFile = u"урок"_s,
            .decimalMark = u','};
}

const QStringList kClips = {u"video2.mp4"_s, u"silent2.mp4"_s, u"sound2.mp3"_s};
const QString kBrakeClip = u"brakes6.mp4"_s; // 6 s long
const QList<int> kBrakePercents = {10, 30, 55, 80};

} // namespace

class Making : public EndToEnd, public testing::WithParamInterface<Words>
{
protected:
    Making()
        : EndToEnd({}, Home::Empty)
    {}

    void SetUp() override
    {
        EndToEnd::SetUp();
        desktop.setKeyboard(u"us,ru"_s);
        ASSERT_TRUE(QDir().mkpath(inFolder({})));
        for (const QString& clip : kClips + QStringList(kBrakeClip)) {
            ASSERT_TRUE(QFile::copy(media(clip), inFolder(clip))) << clip.toStdString();
        }
        writeBytes(inFolder(u"picture.bmp"_s), redPicture());
    }

    /// A bitmap of one red point.
    static QByteArray redPicture()
    {
        return QByteArray::fromHex(
            "424d3a0000000000000036000000280000000100000001000000010018000000"
            "00000400000000000000000000000000000000000000000000ff00");
    }

    [[nodiscard]] static const Words& words() { return GetParam(); }
    [[nodiscard]] QString inFolder(const QString& name) const
    {
        return desktop.environment().value(u"HOME"_s) + u'/' + words().userFolder + u'/' + name;
    }
    [[nodiscard]] Dialog dialog(const QString& title) { return {desktop, program, title}; }
    [[nodiscard]] Dialog picker() { return dialog(u"!Orvanta!"_s); }

    bool listShows(Dialog& editor, const QString& list, const QStringList& entries)
    {
        QStringList shown;
        const bool same = waitFor([&] { return (shown = editor.items(list)) == entries; });
        EXPECT_EQ(shown.join(u'\n').toStdString(), entries.join(u'\n').toStdString());
        return same;
    }

    void startForTheFirstTime();
    void saveAs(const QString& name, bool isFirst);
    void makeClipPacket(Dialog& editor);
    void makeBrakePacket(Dialog& editor);
    void makeGroup(Dialog& editor);
    void addMember(Dialog& editor, int number, const QString& file);
    void choosePicture(Dialog& editor);
    void expectClipPacket() const;
    void expectBrakePacket() const;
    void expectPlayed();

    QList<double> m_afterBrakes; // where the position was when each brake was there, seconds
};

void Making::startForTheFirstTime()
{
    program.setVariable(u"LC_ALL"_s, words().locale);
    program.start();
    AccessibilityBus bus(desktop);
    const auto language = bus.control(program.pid(), u"radio button"_s, words().language);
    ASSERT_TRUE(language);
    // Only then the window manager has put it in its place.
    ASSERT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == u"Select language"; }));
    desktop.click(language->place().center());
    ASSERT_TRUE(waitFor([&] { return language->isChecked(); }));
    window().press(words().next);
    ASSERT_TRUE(program.peek(u"^orvanta.startup: main window shown"_s).has_value());
}

/// Where nothing has been saved or opened before, the picker begins in the user's own folder.
void Making::saveAs(const QString& name, bool isFirst)
{
    Dialog save = picker();
    ASSERT_TRUE(save.isOpen());
    if (isFirst) {
        ASSERT_TRUE(save.openFolder(words().pickerFolders, {words().home, words().userFolder}));
    }
    ASSERT_TRUE(save.type(words().name, name));
    desktop.press(u"Return"_s);
    ASSERT_TRUE(save.isClosed());
    ASSERT_TRUE(QFile::exists(inFolder(name + u".vxl"_s)));
}

void Making::makeClipPacket(Dialog& editor)
{
    ASSERT_TRUE(editor.openFolder(words().folders, {words().home, words().userFolder}));
    QStringList entries;
    for (qsizetype i = 0; i < kClips.size(); ++i) {
        ASSERT_TRUE(editor.clickItem(words().files, kClips[i]));
        const QString path = inFolder(kClips[i]);
        const QString named = kClips[i].section(u'.', 0, 0);
        ASSERT_TRUE(
            listShows(editor, words().clips, entries + QStringList(path + u"{}"_s + named)));
        ASSERT_TRUE(editor.type(words().text, words().clipTexts[i]));
        entries.append(path + u"{}"_s + words().clipTexts[i]);
        ASSERT_TRUE(listShows(editor, words().clips, entries));
    }
    ASSERT_TRUE(editor.press(words().savePacket));
    ASSERT_NO_FATAL_FAILURE(saveAs(words().clipsFile, true));
}

void Making::makeBrakePacket(Dialog& editor)
{
    ASSERT_TRUE(editor.choose(words().brakeMode));
    ASSERT_TRUE(editor.openFolder(words().folders, {words().home, words().userFolder}));
    ASSERT_TRUE(editor.clickItem(words().files, kBrakeClip));
    for (qsizetype i = 0; i < kBrakePercents.size(); ++i) {
        ASSERT_TRUE(waitFor([&] {
            // The clip may still be opening: until then the slider has nowhere to go.
            return editor.drag(words().position, kBrakePercents[i]) &&
                   editor.slider(words().position) > 0;
        }));
        ASSERT_TRUE(editor.type(words().text, words().brakeTexts[i]));
        ASSERT_TRUE(editor.press(words().addKey));
        ASSERT_TRUE(waitFor([&] { return editor.items(words().brakes).size() == i + 1; }));
        m_afterBrakes.append(editor.slider(words().position) / 1000);
    }
    ASSERT_TRUE(editor.press(words().saveBrake));
    ASSERT_NO_FATAL_FAILURE(saveAs(words().brakesFile, false));
}

void Making::addMember(Dialog& editor, int number, const QString& file)
{
    ASSERT_TRUE(editor.clickItem(words().packetFiles, file + u".vxl"_s));
    ASSERT_TRUE(waitFor([&] { return editor.items(words().members).size() == number; }));
    ASSERT_TRUE(editor.type(words().text, words().memberTexts[number - 1]));
    ASSERT_NO_FATAL_FAILURE(choosePicture(editor));
    const QString entry = inFolder(file + u".vxl"_s) + u"{}"_s + words().memberTexts[number - 1] +
                          u"{}"_s + inFolder(u"picture.bmp"_s);
    ASSERT_TRUE(waitFor([&] { return editor.items(words().members).value(number - 1) == entry; }))
        << editor.items(words().members).join(u'\n').toStdString();
}

void Making::choosePicture(Dialog& editor)
{
    ASSERT_TRUE(editor.press(words().choosePicture));
    Dialog open = picker();
    ASSERT_TRUE(open.isOpen());
    ASSERT_TRUE(open.clickItem(words().pickerFiles, u"picture.bmp"_s));
    desktop.press(u"Return"_s);
    ASSERT_TRUE(open.isClosed());
}

/// The folder was stored when the packets were saved: no tree is needed any more.
void Making::makeGroup(Dialog& editor)
{
    ASSERT_NO_FATAL_FAILURE(addMember(editor, 1, words().clipsFile));
    ASSERT_NO_FATAL_FAILURE(addMember(editor, 2, words().brakesFile));
}

void Making::expectClipPacket() const
{
    const QString packet = inFolder(words().clipsFile + u".vxl"_s);
    EXPECT_EQ(ReadIni(u"main"_s, u"files"_s, packet), u"3"_s);
    for (qsizetype i = 0; i < kClips.size(); ++i) {
        const QString section = u"file"_s + QString::number(i + 1);
        EXPECT_EQ(ReadIni(section, u"path"_s, packet), inFolder(kClips[i]));
        EXPECT_EQ(ReadIni(section, u"text"_s, packet), words().clipTexts[i]);
    }
}

void Making::expectBrakePacket() const
{
    constexpr double kClipSeconds = 6;
    constexpr double kHandleSeconds = 0.4; // the handle's width, in which a hand may take it
    constexpr double kShownSeconds = 0.1;  // to which the slider knows its position
    const QString packet = inFolder(words().brakesFile + u".vxl"_s);
    EXPECT_EQ(ReadIni(u"main"_s, u"file"_s, packet), inFolder(kBrakeClip));
    EXPECT_EQ(ReadIni(u"main"_s, u"brakes"_s, packet), u"4"_s);
    for (qsizetype i = 0; i < kBrakePercents.size(); ++i) {
        const QString section = u"brake"_s + QString::number(i + 1);
        QString time = ReadIni(section, u"time"_s, packet);
        EXPECT_EQ(time.size(), 9) << time.toStdString();
        EXPECT_EQ(time.at(6), words().decimalMark) << time.toStdString();
        // The clip runs on while the text is typed, and a busy machine types slowly.
        const double seconds = time.replace(u',', u'.').toDouble();
        EXPECT_GE(seconds, kClipSeconds * kBrakePercents[i] / 100 - kHandleSeconds);
        EXPECT_LE(seconds, m_afterBrakes[i] + kShownSeconds);
        EXPECT_EQ(ReadIni(section, u"text"_s, packet), words().brakeTexts[i]);
    }
}

void Making::expectPlayed()
{
    for (qsizetype i = 0; i < kClips.size(); ++i) {
        const QString number = QString::number(i + 1);
        ASSERT_TRUE(plays(u"start 1 "_s + number + u' ' + words().clipTexts[i]));
        ASSERT_TRUE(plays(u"ended 1 "_s + number));
    }
    for (qsizetype i = 0; i < kBrakePercents.size(); ++i) {
        ASSERT_TRUE(plays(u"start 2 %1 %2"_s.arg(QString::number(i + 1), words().brakeTexts[i])));
    }
    ASSERT_TRUE(plays(u"stopped"_s));
}

TEST_P(Making, PacketsAndAGroupOfThemIsPossibleThroughTheWindowsAloneAndThePlayerPlaysThem)
{
    ASSERT_NO_FATAL_FAILURE(startForTheFirstTime());
    ASSERT_TRUE(window().chooseFromMenu(words().newMenu, 1));
    Dialog packets = dialog(words().packetEditor);
    ASSERT_TRUE(packets.isOpen());
    ASSERT_NO_FATAL_FAILURE(makeClipPacket(packets)) << packets.outline();
    ASSERT_NO_FATAL_FAILURE(makeBrakePacket(packets)) << packets.outline();
    ASSERT_TRUE(packets.press(words().cancel));
    ASSERT_TRUE(packets.isClosed());
    expectClipPacket();
    expectBrakePacket();

    ASSERT_TRUE(window().chooseFromMenu(words().newMenu, 2));
    Dialog group = dialog(words().groupEditor);
    ASSERT_TRUE(group.isOpen());
    ASSERT_NO_FATAL_FAILURE(makeGroup(group)) << group.outline();
    ASSERT_TRUE(group.press(words().create));
    ASSERT_TRUE(loads(2, 7));
    EXPECT_TRUE(group.isClosed());
    ASSERT_NO_FATAL_FAILURE(expectPlayed());
    EXPECT_FALSE(QFile::exists(home.file(u"temp.vxg"_s)));
    EXPECT_EQ(home.get(u"save"_s, u"open"_s) + u'/', inFolder({}));
}

INSTANTIATE_TEST_SUITE_P(In, Making, testing::Values(english(), russian()),
                         [](const auto& row) -> std::string {
                             return row.param.decimalMark == u'.' ? "English" : "Russian";
                         });

} // namespace orvanta::e2e
