// Many random commands: undone and redone they give the same document, byte for byte.
#include "core/group_file.h"
#include "model/editing/lesson_saving.h"
#include "tests/model/editing/lesson_room.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>
#include <random>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class RandomEditor
{
public:
    explicit RandomEditor(LessonEditing& editing)
        : m_editing(editing)
    {}

    /// Does one command, which may turn out to change nothing.
    void step()
    {
        switch (upTo(9)) {
        case 0:
            (void)m_editing.mark({place(), seconds(), u"End"_s}, {seconds(), text()});
            break;
        case 1:
            (void)m_editing.setText(place(), text());
            break;
        case 2:
            (void)m_editing.setTime(place(), seconds());
            break;
        case 3:
            (void)m_editing.remove(places());
            break;
        case 4:
            (void)m_editing.moveBy(places(), upTo(1) == 0 ? -1 : 1);
            break;
        case 5:
            (void)m_editing.moveTo(places(), place());
            break;
        case 6:
            insert();
            break;
        case 7:
            (void)m_editing.addMarks({place(), seconds(), u"End"_s},
                                     {{seconds(), text()}, {seconds(), text()}});
            break;
        case 8:
            (void)m_editing.setPicture(upTo(4), text());
            break;
        default:
            goBackAndForth();
        }
    }

    [[nodiscard]] int upTo(int most) { return std::uniform_int_distribution(0, most)(m_random); }

private:
    double seconds() { return upTo(200) / 4.0; }
    QString text() { return u"text "_s + QString::number(upTo(99)); }

    /// Often one that is there, now and then one beside the lesson.
    EditPlace place()
    {
        const PlaylistState& playlist = m_editing.playlist();
        const int packet = upTo(playlist.PlaylistCount.value() + 1);
        const bool isThere = packet >= 1 && packet <= playlist.PlaylistCount.value();
        return {packet, isThere ? upTo(playlist.packet(packet).ClipCount.value() + 1) : upTo(1)};
    }

    std::vector<EditPlace> places()
    {
        std::vector<EditPlace> some(static_cast<std::size_t>(upTo(3)));
        std::generate(some.begin(), some.end(), [this] { return place(); });
        return some;
    }

    /// Small enough that the lesson does not grow without an end.
    void insert()
    {
        if (m_editing.playlist().entryCount() < 60) {
            (void)m_editing.insertClips(place(), {u"/m/x.mp4"_s, u"/m/y.mp4"_s}, {text(), text()});
        }
    }

    void goBackAndForth()
    {
        for (int steps = upTo(3); steps > 0; --steps) {
            m_editing.undo();
        }
        for (int steps = upTo(2); steps > 0; --steps) {
            m_editing.redo();
        }
    }

    LessonEditing& m_editing;
    std::mt19937 m_random{20261122};
};

} // namespace

TEST(RandomEditing, GoesBackAndForthToTheSameDocuments)
{
    PlaylistState playlist = playlistOf({clipsPacket(u"One"_s, {u"a"_s, u"b"_s, u"c"_s}),
                                         brakesPacket(u"Two"_s, {u"000000.00"_s, u"000010.00"_s}),
                                         clipsPacket(u"Three"_s, {u"d"_s})});
    LessonEditing editing(playlist);
    RandomEditor editor(editing);
    const QString beginning = wholeTextOf(playlist);
    std::size_t steps = 0;
    constexpr int kCommands = 100000;
    constexpr int kCheckEvery = 500;
    for (int command = 1; command <= kCommands; ++command) {
        editor.step();
        if (command % kCheckEvery != 0) {
            continue;
        }
        const QString here = wholeTextOf(playlist);
        std::vector<QString> passed;
        const int back = editor.upTo(kCheckEvery);
        for (int i = 0; i < back && editing.canUndo(); ++i) {
            passed.push_back(wholeTextOf(playlist));
            editing.undo();
            ++steps;
        }
        for (auto state = passed.rbegin(); state != passed.rend(); ++state) {
            ASSERT_TRUE(editing.canRedo());
            editing.redo();
            ASSERT_EQ(wholeTextOf(playlist).toStdString(), state->toStdString());
        }
        ASSERT_EQ(wholeTextOf(playlist), here);
    }
    EXPECT_GT(steps, 1000U);
    while (editing.canUndo()) {
        editing.undo();
    }
    EXPECT_EQ(wholeTextOf(playlist), beginning);
}

TEST(RandomEditing, IsWrittenReadAndWrittenToTheSameBytes)
{
    const SettingsFolder folder;
    PlaylistState playlist = playlistOf({clipsPacket(u"One"_s, {u"a"_s, u"b"_s, u"c"_s}),
                                         brakesPacket(u"Two"_s, {u"000000.00"_s, u"000010.00"_s})});
    LessonEditing editing(playlist);
    RandomEditor editor(editing);
    LessonSaving saving(playlist);
    const QString group = folder.file(u"lesson.vxg"_s);
    for (int round = 0; round < 40; ++round) {
        for (int command = 0; command < 25; ++command) {
            editor.step();
        }
        saving.save(group);
        PlaylistState read;
        readGroupInto(read.Playlist, group);
        read.PlaylistCount = Int16(static_cast<qint64>(read.Playlist.size()));
        read.Document = group;
        ASSERT_EQ(wholeTextOf(read).toStdString(), wholeTextOf(playlist).toStdString());
        std::map<QString, QByteArray> bytes;
        for (const PlaylistEntry& packet : read.Playlist) {
            bytes[packet.Origin->file] =
                folder.bytes(packet.Origin->file.mid(folder.path().size() + 1));
        }
        LessonSaving again(read);
        again.save(group); // everything counts as changed: nothing was noted as saved
        for (const auto& [file, before] : bytes) {
            ASSERT_EQ(folder.bytes(file.mid(folder.path().size() + 1)), before);
        }
    }
}

} // namespace orvanta::test
