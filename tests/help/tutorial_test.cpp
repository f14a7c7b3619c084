// The tutorial's lessons as files, and the program that hands them over.

#include "core/ini.h"
#include "playback/commands.h"
#include "tests/support/probe.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

QString lessonsFolder()
{
    return QStringLiteral(ORVANTA_SOURCE_DIR "/tutorial/");
}

int number(const QString& key, const QString& document)
{
    return ReadIni(u"main"_s, key, document, u"0"_s).toInt();
}

/// The files that a packet or group names, as whole paths.
QStringList filesOf(const QString& document)
{
    const QDir folder = QFileInfo(document).dir();
    QStringList files;
    for (int i = 1; i <= number(u"files"_s, document); ++i) {
        const QString section = u"file"_s + QString::number(i);
        for (const QString& key : {u"path"_s, u"picture"_s}) {
            if (const QString name = ReadIni(section, key, document); !name.isEmpty()) {
                files.append(folder.absoluteFilePath(name));
            }
        }
    }
    return files;
}

QStringList packetsOf(const QString& group)
{
    QStringList packets;
    for (const QString& file : filesOf(group)) {
        if (file.endsWith(u".vxl")) {
            packets.append(file);
        }
    }
    return packets;
}

/// Kinds and lengths of the packets: the same in both languages.
QStringList shapeOf(const QString& group)
{
    QStringList shape;
    for (const QString& packet : packetsOf(group)) {
        shape.append(u"%1 clips, %2 brakes"_s.arg(number(u"files"_s, packet))
                         .arg(number(u"brakes"_s, packet)));
    }
    return shape;
}

class TutorialProgram : public testing::Test
{
protected:
    /// A player that only writes down what it was given.
    TutorialProgram()
    {
        const QString player = home.write(u"player"_s, "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\"\n");
        QFile::setPermissions(player, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QByteArray givenToThePlayer(const QString& language, const QString& session = u"C.UTF-8"_s)
    {
        WriteIni(u"main"_s, u"language"_s, language, home.ini());
        Probe tutorial;
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.remove(u"LANGUAGE"_s);
        variables.insert(u"LC_ALL"_s, session);
        variables.insert(u"ORVANTA_HOME"_s, home.path());
        variables.insert(u"ORVANTA_PROGRAM"_s, home.file(u"player"_s));
        tutorial.setProcessEnvironment(variables);
        tutorial.startProgram("companions/tutorial", {});
        EXPECT_TRUE(tutorial.waitForFinished());
        EXPECT_EQ(tutorial.exitCode(), 0);
        return tutorial.readAllStandardOutput();
    }

    SettingsFolder home{"[main]\r\n"};
};

} // namespace

TEST(TutorialFiles, BothLanguagesHaveTheSameLessons)
{
    const QStringList english = shapeOf(lessonsFolder() + u"tutorial_eng.vxg"_s);
    EXPECT_EQ(english, shapeOf(lessonsFolder() + u"tutorial_rus.vxg"_s));
    EXPECT_EQ(english.size(), 5);
    EXPECT_TRUE(english.contains(u"1 clips, 4 brakes"));
    EXPECT_TRUE(english.contains(u"1 clips, 5 brakes"));
}

TEST(TutorialFiles, EveryFileThatTheyNameIsThereAndNoOther)
{
    QSet<QString> named;
    for (const QString& group : {u"tutorial_eng.vxg"_s, u"tutorial_rus.vxg"_s}) {
        const QStringList members = filesOf(lessonsFolder() + group);
        EXPECT_EQ(members.size(), 10); // a packet and a picture each
        named += QSet<QString>(members.begin(), members.end());
        for (const QString& packet : packetsOf(lessonsFolder() + group)) {
            const QStringList clips = filesOf(packet);
            named += QSet<QString>(clips.begin(), clips.end());
        }
    }
    QSet<QString> there;
    QDirIterator files(lessonsFolder(), {u"*.mp4"_s, u"*.jpg"_s, u"*.vxl"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        there.insert(QFileInfo(files.next()).absoluteFilePath());
    }
    EXPECT_EQ(named, there);
    EXPECT_EQ(there.size(), 38);
}

TEST(TutorialFiles, EveryTextIsInTheLanguageOfItsGroup)
{
    static const QRegularExpression russian(u"[а-яё]"_s);
    for (const QString& language : {u"eng"_s, u"rus"_s}) {
        for (const QString& packet :
             packetsOf(lessonsFolder() + u"tutorial_%1.vxg"_s.arg(language))) {
            const bool brakes = number(u"brakes"_s, packet) > 0;
            const int count = number(brakes ? u"brakes"_s : u"files"_s, packet);
            for (int i = 1; i <= count; ++i) {
                const QString section = (brakes ? u"brake"_s : u"file"_s) + QString::number(i);
                const QString text = ReadIni(section, u"text"_s, packet);
                EXPECT_FALSE(text.isEmpty());
                EXPECT_EQ(text.contains(russian), language == u"rus") << qPrintable(text);
            }
        }
    }
}

/// The texts of all brakes of a lesson in one language.
static QString textsOfBrakes(const QString& language, const QString& lesson)
{
    const QString packet = lessonsFolder() + language + u'/' + lesson + u".vxl"_s;
    QString texts;
    for (int i = 1; i <= number(u"brakes"_s, packet); ++i) {
        texts += ReadIni(u"brake"_s + QString::number(i), u"text"_s, packet) + u'\n';
    }
    return texts;
}

TEST(TutorialFiles, TheLessonOnPracticeNamesTheKeysThatTheProgramHas)
{
    for (const QString& language : {u"eng"_s, u"rus"_s}) {
        const QString texts = textsOfBrakes(language, u"practice"_s);
        for (const Command command :
             {Command::NextLine, Command::PreviousLine, Command::LineAgain, Command::RepeatLine,
              Command::Slower, Command::Faster, Command::NextWait, Command::NextTextLevel}) {
            const QString key = shownKey(rowOf(command)).replace(u"Pg"_s, u"Page "_s);
            EXPECT_TRUE(texts.contains(key)) << qPrintable(key) << qPrintable(texts);
        }
    }
}

TEST(TutorialFiles, TheLessonOnEditingNamesTheKeysThatTheProgramHas)
{
    for (const QString& language : {u"eng"_s, u"rus"_s}) {
        const QString texts = textsOfBrakes(language, u"editing"_s);
        for (const Command command :
             {Command::EditMode, Command::Mark, Command::EditText, Command::Undo, Command::Save}) {
            const QString key = shownKey(rowOf(command));
            EXPECT_TRUE(texts.contains(key)) << qPrintable(key) << qPrintable(texts);
        }
    }
}

TEST(TutorialFiles, TogetherTheyStayUnderFourMegabytes)
{
    qint64 bytes = 0;
    QDirIterator files(lessonsFolder(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        bytes += files.fileInfo().size();
    }
    EXPECT_GT(bytes, 500'000);
    EXPECT_LT(bytes, 4'000'000);
}

TEST_F(TutorialProgram, HandsTheLessonsOfTheInterfaceLanguageToThePlayer)
{
    const QByteArray folder = QFile::encodeName(lessonsFolder());
    EXPECT_EQ(givenToThePlayer(u"1"_s), "1|" + folder + "tutorial_eng.vxg");
    EXPECT_EQ(givenToThePlayer(u"2"_s), "1|" + folder + "tutorial_rus.vxg");
    // As the main window takes it.
    EXPECT_EQ(givenToThePlayer(u"3"_s), "1|" + folder + "tutorial_rus.vxg");
    EXPECT_EQ(givenToThePlayer(u"1"_s, u"ru_RU.UTF-8"_s), "1|" + folder + "tutorial_eng.vxg");
}

TEST_F(TutorialProgram, SpeaksTheSessionsLanguageToWhoeverHasChosenNone)
{
    const QByteArray folder = QFile::encodeName(lessonsFolder());
    for (const QString& session : {u"C.UTF-8"_s, u"en_GB.UTF-8"_s, u"de_DE.UTF-8"_s}) {
        EXPECT_EQ(givenToThePlayer({}, session), "1|" + folder + "tutorial_eng.vxg")
            << qPrintable(session);
    }
    EXPECT_EQ(givenToThePlayer({}, u"ru_RU.UTF-8"_s), "1|" + folder + "tutorial_rus.vxg");
}

} // namespace orvanta::test
