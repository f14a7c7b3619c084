#include "editors/entry_list_view.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "tests/editors/editor_room.h"

#include <QPushButton>
#include <QRadioButton>

#include <csignal>
#include <sys/resource.h>

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

class WritingFailures : public EditorRoom
{
protected:
    WritingFailures()
    {
        for (int i = 0; i < 1000; ++i) {
            entries.append(u"/clips/clip%1.avi{}Text of clip %1"_s.arg(i));
        }
    }

    /// Every button of the packet editor that writes, with full lists.
    void pressAllThatWrite(Form5& form)
    {
        const auto fill = [&](EntryList& list) { list.entries = entries; };
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

    QStringList entries;
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
    EditorServices given = services();
    Form5 form(given);
    form.show();
    {
        const FullDisk disk(4096);
        pressAllThatWrite(form);
    }
    EXPECT_EQ(bytesOf(room(u"out.vxl"_s)), old);
    EXPECT_EQ(bytesOf(temporary.fileName()), old);
    EXPECT_TRUE(form.isVisible());
    expectQuiet();
}

TEST_F(WritingFailures, AFullDiskLeavesTheOldGroupWhole)
{
    const QByteArray old = "[main]\r\nfiles=0\r\n";
    pickers.saveAnswer = put(u"out.vxg"_s, old);
    EditorServices given = services();
    Form6 form(given);
    form.show();
    form.List1->change([&](EntryList& list) { list.entries = entries; });
    {
        const FullDisk disk(4096);
        form.Command4->click();
        form.Command1->click();
    }
    EXPECT_EQ(bytesOf(room(u"out.vxg"_s)), old);
    EXPECT_TRUE(form.isVisible());
    expectQuiet();
}

// The superuser may write into any folder of a disk, so the folders here are such that nobody may:
// one of the kernel's, one that is a file, one that has gone.
TEST_F(WritingFailures, AFolderThatCannotBeWrittenIsPassedOverSilently)
{
    put(u"file"_s);
    for (const QString& folder : {u"/proc/self"_s, room(u"file"_s), room(u"gone"_s)}) {
        pickers.saveAnswer = folder + u"/out.vxl"_s;
        module.ApplicationFolder = folder;
        EditorServices given = services();
        Form5 form(given);
        form.show();
        pressAllThatWrite(form);
        EXPECT_TRUE(form.isVisible()) << qPrintable(folder);
        EXPECT_FALSE(QFile::exists(folder + u"/out.vxl"_s));
        EXPECT_FALSE(QFile::exists(folder + u"/temp.vxl"_s));
        expectQuiet();
    }
}

TEST_F(WritingFailures, ATargetThatIsAFolderStaysOne)
{
    QDir(room()).mkdir(u"out.vxl"_s);
    pickers.saveAnswer = room(u"out.vxl"_s);
    EditorServices given = services();
    Form5 form(given);
    form.show();
    form.List1->change([&](EntryList& list) { list.entries = entries; });
    form.Command4->click();
    EXPECT_TRUE(QFileInfo(room(u"out.vxl"_s)).isDir());
    expectQuiet();
}

TEST_F(WritingFailures, ASettingsFileThatCannotBeWrittenClosesAllTheSame)
{
    module.IniPath = u"/proc/self/orvanta.ini"_s;
    EditorServices given = services();
    Form5 form(given);
    form.show();
    form.close();
    EXPECT_FALSE(form.isVisible());
    expectQuiet();
}

} // namespace orvanta::test
