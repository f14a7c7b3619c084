#include "platform/file_types/registry.h"
#include "tests/support/desktop_room.h"
#include "tests/support/settings_folder.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kClasses = RegistryHive::ClassesRoot;
constexpr auto kMachine = RegistryHive::LocalMachine;

struct RegistryTest : testing::Test
{
    DesktopRoom room;
    SettingsFolder folder;
    Registry registry{folder.path()};
};

} // namespace

TEST_F(RegistryTest, AWrittenValueReadsBack)
{
    registry.RegWriteString(kClasses, u".avi"_s, {}, u"vxavifile"_s);
    EXPECT_EQ(registry.RegReadString(kClasses, u".avi"_s, {}), u"vxavifile");
}

TEST_F(RegistryTest, AnotherObjectReadsWhatWasWritten)
{
    registry.RegWriteString(kClasses, u".avi"_s, {}, u"vxavifile"_s);
    EXPECT_EQ(Registry(folder.path()).RegReadString(kClasses, u".avi"_s, {}), u"vxavifile");
}

TEST_F(RegistryTest, AnExistingButEmptyValueReadsAsTheEmptyText)
{
    registry.RegWriteString(kClasses, u"vxavifile"_s, {}, u""_s);
    EXPECT_EQ(registry.RegReadString(kClasses, u"vxavifile"_s, {}), QString());
}

TEST_F(RegistryTest, AOneCharacterValueReadsAsThatCharacter)
{
    registry.RegWriteString(kClasses, u"vxavifile"_s, {}, u"x"_s);
    EXPECT_EQ(registry.RegReadString(kClasses, u"vxavifile"_s, {}), u"x");
}

TEST_F(RegistryTest, AKeyThatDoesNotExistReadsAsTheEmptyText)
{
    EXPECT_EQ(registry.RegReadString(kMachine, u"software\\none"_s, u"orvanta"_s), QString());
}

TEST_F(RegistryTest, AValueLongerThanTheReadersBufferReadsAsTheEmptyText)
{
    registry.RegWriteString(kClasses, u"a"_s, {}, QString(254, u'x'));
    registry.RegWriteString(kClasses, u"b"_s, {}, QString(255, u'x'));
    EXPECT_EQ(registry.RegReadString(kClasses, u"a"_s, {}).size(), 254);
    EXPECT_EQ(registry.RegReadString(kClasses, u"b"_s, {}), QString());
}

TEST_F(RegistryTest, ANamedValueAndTheDefaultValueAreTwo)
{
    registry.RegWriteString(kMachine, u"run"_s, u"orvanta"_s, u"named"_s);
    registry.RegWriteString(kMachine, u"run"_s, {}, u"default"_s);
    EXPECT_EQ(registry.RegReadString(kMachine, u"run"_s, u"orvanta"_s), u"named");
    EXPECT_EQ(registry.RegReadString(kMachine, u"run"_s, {}), u"default");
}

TEST_F(RegistryTest, TheSameSubkeyOfTwoHivesIsTwoKeys)
{
    registry.RegWriteString(kClasses, u"k"_s, {}, u"classes"_s);
    registry.RegWriteString(kMachine, u"k"_s, {}, u"machine"_s);
    EXPECT_EQ(registry.RegReadString(kClasses, u"k"_s, {}), u"classes");
    EXPECT_EQ(registry.RegReadString(kMachine, u"k"_s, {}), u"machine");
}

TEST_F(RegistryTest, KeysAreSectionsOfTheRegistryFile)
{
    registry.RegWriteString(kMachine, u"software\\run"_s, u"orvanta"_s, u"/o /auto"_s);
    EXPECT_EQ(ReadIni(u"HKEY_LOCAL_MACHINE\\software\\run"_s, u"orvanta"_s,
                      folder.file(u"registry.ini"_s)),
              u"/o /auto");
}

TEST_F(RegistryTest, NamesThatTheFileCannotHoldAreKeptAndAddNothingAtEachWriting)
{
    const auto write = [&](const QString& value) {
        registry.RegWriteString(kMachine, u"software\\a]b"_s, u";name"_s, value);
        registry.RegWriteString(kMachine, u"software\\a]b"_s, u"[name]"_s, value);
        registry.RegWriteString(kMachine, u"software\\a"_s, u";name"_s, u"another"_s);
    };
    write(u"one"_s);
    const auto size = folder.bytes(u"registry.ini"_s).size();
    write(u"two"_s);
    EXPECT_EQ(folder.bytes(u"registry.ini"_s).size(), size);
    const Registry other(folder.path());
    EXPECT_EQ(other.RegReadString(kMachine, u"software\\a]b"_s, u";name"_s), u"two");
    EXPECT_EQ(other.RegReadString(kMachine, u"software\\a]b"_s, u"[name]"_s), u"two");
    EXPECT_EQ(other.RegReadString(kMachine, u"software\\a"_s, u";name"_s), u"another");
}

TEST_F(RegistryTest, QuotesAndBlanksAtTheEndsOfAValueAreKept)
{
    for (const QString& value : {u"\"/a b/orvanta\" \"%1\""_s, u"'x'"_s, u" x "_s, u"\"\"x\""_s}) {
        registry.RegWriteString(kClasses, u"command"_s, {}, value);
        EXPECT_EQ(registry.RegReadString(kClasses, u"command"_s, {}), value);
    }
}

TEST_F(RegistryTest, ADeletedValueIsGone)
{
    registry.RegWriteString(kMachine, u"run"_s, u"orvanta"_s, u"x"_s);
    registry.RegDeleteValue(kMachine, u"run"_s, u"orvanta"_s);
    EXPECT_EQ(registry.RegReadString(kMachine, u"run"_s, u"orvanta"_s), QString());
}

TEST_F(RegistryTest, DeletingAValueThatDoesNotExistWritesNothing)
{
    registry.RegDeleteValue(kMachine, u"run"_s, u"orvanta"_s);
    EXPECT_FALSE(FileExists(folder.file(u"registry.ini"_s)));
}

TEST(RegistryFailures, WritingIntoAMissingFolderIsPassedOver)
{
    const DesktopRoom room;
    Registry registry(u"/no/such/folder"_s);
    EXPECT_NO_THROW(registry.RegWriteString(kClasses, u".avi"_s, {}, u"x"_s));
    EXPECT_NO_THROW(registry.RegDeleteValue(kClasses, u".avi"_s, {}));
    EXPECT_EQ(registry.RegReadString(kClasses, u".avi"_s, {}), QString());
}

TEST(FileExistsTest, IsTrueForAFile)
{
    const SettingsFolder folder;
    EXPECT_TRUE(FileExists(folder.write(u"a.avi"_s, "x")));
    EXPECT_TRUE(FileExists(folder.write(u"empty"_s, "")));
}

TEST(FileExistsTest, OneTrailingSeparatorIsDropped)
{
    const SettingsFolder folder;
    const QString file = folder.write(u"a.avi"_s, "x");
    EXPECT_TRUE(FileExists(file + u'\\'));
    EXPECT_TRUE(FileExists(file + u'/'));
    EXPECT_FALSE(FileExists(file + u"\\\\"_s));
}

TEST(FileExistsTest, IsFalseForAnythingElse)
{
    const SettingsFolder folder;
    const QString pipe = folder.file(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(FileExists(pipe)); // and comes back at once
    EXPECT_FALSE(FileExists(folder.path()));
    EXPECT_FALSE(FileExists(folder.file(u"missing"_s)));
    EXPECT_FALSE(FileExists(QString()));
    EXPECT_FALSE(FileExists(u"\\"_s));
}

TEST(FileExistsTest, IsFalseForAFileThatCannotBeRead)
{
    const SettingsFolder folder;
    const QString secret = folder.write(u"secret"_s, "x");
    const QString open = folder.write(u"open"_s, "x");
    QFile::setPermissions(secret, {});
    const QByteArray path = QFile::encodeName(folder.path());
    ASSERT_EQ(::chmod(path.constData(), 0755), 0);
    const uid_t user = ::geteuid();
    constexpr uid_t kNobody = 65534;
    if (user == 0) { // the administrator can read every file
        ASSERT_EQ(::seteuid(kNobody), 0);
    }
    const bool secretExists = FileExists(secret);
    const bool openExists = FileExists(open);
    ASSERT_EQ(::seteuid(user), 0);
    EXPECT_FALSE(secretExists);
    EXPECT_TRUE(openExists);
}

} // namespace orvanta
