#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/editor_room.h"

#include <QPushButton>
#include <QRadioButton>

#include <csignal>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <unistd.h>

namespace orvanta::test {

namespace {

/// Files of this process cannot grow beyond a size: what a full disk looks like to a writer.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit small = m_before;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before = {};
    void (*m_signal)(int) = nullptr;
};

/// For this thread the kernel judges files by a user who is nobody; without that it lets the
/// superuser write everywhere. Anybody else stays who they are.
class NoPrivileges
{
public:
    NoPrivileges() { setfsuid(geteuid() == 0 ? kNobody : geteuid()); }
    ~NoPrivileges() { setfsuid(geteuid()); }
    NoPrivileges(const NoPrivileges&) = delete;
    NoPrivileges& operator=(const NoPrivileges&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
};

class WritingFailures : public EditorOnScreen<Form5>
{
protected:
    WritingFailures()
    {
        for (int i = 0; i < 1000; ++i) {
            many.append(u"/clips/clip%1.avi{}Text of clip %1"_s.arg(i));
        }
    }

    /// Every button of the packet editor that writes, with full lists.
    void pressAllThatWrite(Form5& form)
    {
        const auto fill = [&](EntryList& list) { list.entries = many; };
        form.List1->change(fill);
        form.List2->change(fill);
        form.Command4->click();
        form.Command16->click();
        form.Command1->click();
        form.Command12->click();
    }
    void expectQuiet() const
    {
        EXPECT_EQ(untrapped, QStringList());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_FALSE(module.EditorDone);
    }

    static constexpr QFile::Permissions kAnybodyReads =
        QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;

    QStringList many;
};

} // namespace

TEST_F(WritingFailures, AFullDiskLeavesTheOldFilesWholeAndTheEditorOpen)
{
    const QByteArray old = "[main]\r\nfiles=0\r\n";
    pickers.saveAnswer = put(u"out.vxl"_s, old);
    QFile temporary(module.ApplicationFolder + u"/temp.vxl"_s);
    ASSERT_TRUE(temporary.open(QIODevice::WriteOnly));
    temporary.write(old);
    temporary.close();
    open();
    {
        const FullDisk disk(4096);
        pressAllThatWrite(*editor);
    }
    EXPECT_EQ(bytesOf(room(u"out.vxl"_s)), old);
    EXPECT_EQ(bytesOf(temporary.fileName()), old);
    EXPECT_TRUE(editor->isVisible());
    expectQuiet();
}

TEST_F(WritingFailures, AFullDiskLeavesTheOldGroupWhole)
{
    const QByteArray old = "[main]\r\nfiles=0\r\n";
    pickers.saveAnswer = put(u"out.vxg"_s, old);
    EditorServices given = services();
    Form6 form(given);
    form.show();
    form.List1->change([&](EntryList& list) { list.entries = many; });
    {
        const FullDisk disk(4096);
        form.Command4->click();
        form.Command1->click();
    }
    EXPECT_EQ(bytesOf(room(u"out.vxg"_s)), old);
    EXPECT_TRUE(form.isVisible());
    expectQuiet();
}

TEST_F(WritingFailures, AReadOnlyFolderLeavesTheOldFileWholeAndTheEditorOpen)
{
    const QByteArray old = "[main]\r\nfiles=0\r\n";
    QDir(room()).mkdir(u"locked"_s);
    pickers.saveAnswer = put(u"locked/out.vxl"_s, old);
    module.ApplicationFolder = room(u"locked"_s);
    ASSERT_TRUE(QFile::setPermissions(room(u".."_s), kAnybodyReads | QFile::WriteOwner));
    ASSERT_TRUE(QFile::setPermissions(room(), kAnybodyReads | QFile::WriteOwner));
    ASSERT_TRUE(QFile::setPermissions(room(u"locked"_s), kAnybodyReads));
    ASSERT_TRUE(QFile::setPermissions(pickers.saveAnswer, QFile::ReadOwner | QFile::ReadOther));
    open();
    {
        const NoPrivileges nobody;
        // Whoever runs this: the folder is one that cannot be written.
        ASSERT_FALSE(QFile(room(u"locked/probe"_s)).open(QIODevice::WriteOnly));
        pressAllThatWrite(*editor);
    }
    EXPECT_EQ(bytesOf(pickers.saveAnswer), old);
    EXPECT_FALSE(QFile::exists(room(u"locked/temp.vxl"_s)));
    EXPECT_TRUE(editor->isVisible());
    expectQuiet();
    // So that the folder can be taken away.
    QFile::setPermissions(room(u"locked"_s), kAnybodyReads | QFile::WriteOwner);
}

TEST_F(WritingFailures, AFolderThatVanishesBeforeTheWritingIsPassedOverSilently)
{
    QDir(room()).mkdir(u"gone"_s);
    set(u"save"_s, u"open"_s, room(u"gone"_s));
    pickers.saveAnswer = room(u"gone/out.vxl"_s);
    open();
    ASSERT_EQ(editor->File1->folder(), room(u"gone"_s));
    QDir(room()).rmdir(u"gone"_s);
    editor->List1->change([&](EntryList& list) { list.entries = many; });
    editor->Command4->click();
    editor->Command8->click();
    EXPECT_FALSE(QFile::exists(room(u"gone"_s)));
    EXPECT_EQ(editor->List1->list().entries.size(), many.size());
    editor->close();
    EXPECT_FALSE(editor->isVisible());
    expectQuiet();
}

// Nobody at all may write here: a folder of the kernel's, one that is a file, one that is not
// there.
TEST_F(WritingFailures, AFolderThatCannotBeWrittenIsPassedOverSilently)
{
    put(u"file"_s);
    for (const QString& folder : {u"/proc/self"_s, room(u"file"_s), room(u"gone"_s)}) {
        pickers.saveAnswer = folder + u"/out.vxl"_s;
        module.ApplicationFolder = folder;
        open();
        pressAllThatWrite(*editor);
        EXPECT_TRUE(editor->isVisible()) << qPrintable(folder);
        EXPECT_FALSE(QFile::exists(folder + u"/out.vxl"_s));
        EXPECT_FALSE(QFile::exists(folder + u"/temp.vxl"_s));
        expectQuiet();
    }
}

TEST_F(WritingFailures, ATargetThatIsAFolderStaysOne)
{
    QDir(room()).mkdir(u"out.vxl"_s);
    pickers.saveAnswer = room(u"out.vxl"_s);
    open();
    editor->List1->change([&](EntryList& list) { list.entries = many; });
    editor->Command4->click();
    EXPECT_TRUE(QFileInfo(room(u"out.vxl"_s)).isDir());
    expectQuiet();
}

TEST_F(WritingFailures, ASettingsFileThatCannotBeWrittenClosesAllTheSame)
{
    module.IniPath = u"/proc/self/orvanta.ini"_s;
    open();
    editor->close();
    EXPECT_FALSE(editor->isVisible());
    expectQuiet();
}

} // namespace orvanta::test
