// The menu "create": what an editor leaves behind is opened like any packet or group.

#include "tests/window/window_fixture.h"

namespace orvanta::test {

class Create : public Form2Test
{
protected:
    void SetUp() override { show(); }

    /// The packet editor's Create with these clips.
    void createPacket(const QStringList& texts)
    {
        packetEditor = [this, texts] { return writePacket(u"temp.vxl"_s, texts); };
        window->cp->trigger();
    }
    [[nodiscard]] bool isTemporaryFileThere() const
    {
        return QFile::exists(home.file(u"temp.vxl"_s)) || QFile::exists(home.file(u"temp.vxg"_s));
    }
};

TEST_F(Create, OpensThePacketAndDeletesTheTemporaryFile)
{
    createPacket({u"one"_s, u"two"_s});
    EXPECT_EQ(listedTexts(), (QStringList{u"!Orvanta!"_s, u"|-- !Orvanta! 3.3"_s, u"   |- one"_s,
                                          u"   |- two"_s}));
    EXPECT_FALSE(isTemporaryFileThere());
    EXPECT_EQ(module.playlist.CurrentPacket, Int16(1));
    EXPECT_EQ(module.playlist.CurrentClip, Int16(1));
}

TEST_F(Create, OpensTheGroupAndDeletesTheTemporaryFile)
{
    const QString packet = writePacket(u"week1.vxl"_s, {u"one"_s});
    groupEditor = [&] { return writeDocument(u"temp.vxg"_s, {packet}, {u"week 1"_s}); };
    window->cg->trigger();
    EXPECT_EQ(listedTexts(), (QStringList{u"!Orvanta!"_s, u"|-- week 1"_s, u"   |- one"_s}));
    EXPECT_FALSE(isTemporaryFileThere());
    EXPECT_TRUE(QFile::exists(packet));
}

TEST_F(Create, ReplacesWhatWasOpen)
{
    addClips(u"before"_s, {u"old"_s});
    createPacket({u"new"_s});
    EXPECT_EQ(module.playlist.PlaylistCount, Int16(1));
    EXPECT_FALSE(listedTexts().contains(u"   |- old"_s));
}

TEST_F(Create, StartsTheFirstClipOnlyWhenTheOptionSaysSo)
{
    createPacket({u"one"_s});
    EXPECT_EQ(control.FileName(), QString());
    option("as");
    createPacket({u"two"_s});
    EXPECT_EQ(control.FileName(), home.file(u"two.avi"_s));
}

TEST_F(Create, AnEditorThatLeavesNothingChangesAndDeletesNothing)
{
    addClips(u"before"_s, {u"old"_s});
    window->RebuildTree();
    const QString stale = writePacket(u"temp.vxl"_s, {u"stale"_s});
    window->cp->trigger();
    window->cg->trigger();
    EXPECT_EQ(module.playlist.packet(1).Title, u"before");
    EXPECT_TRUE(QFile::exists(stale));
}

TEST_F(Create, WhatIsOpenedIsNoLongerTheShells)
{
    module.playlist.OpenedFromExplorer = true;
    createPacket({u"one"_s});
    EXPECT_FALSE(module.playlist.OpenedFromExplorer);
}

TEST_F(Create, AnUnreadableTemporaryFileIsDeletedWithoutAMessage)
{
    packetEditor = [this] { return home.write(u"temp.vxl"_s, "[main]\nfiles=many\n"); };
    window->cp->trigger();
    EXPECT_FALSE(isTemporaryFileThere());
    EXPECT_FALSE(reported.has_value());
}

TEST_F(Create, NothingIsOpenedWhenTheProgramHasEndedBehindTheEditor)
{
    addClips(u"before"_s, {u"old"_s});
    packetEditor = [this] {
        const QString file = writePacket(u"temp.vxl"_s, {u"new"_s});
        engine->closeProgram();
        return file;
    };
    window->cp->trigger();
    EXPECT_EQ(module.playlist.packet(1).Title, u"before");
    EXPECT_FALSE(isTemporaryFileThere());
    EXPECT_TRUE(othersUnloaded);
}

} // namespace orvanta::test
