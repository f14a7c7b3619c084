// Packets that mean harm: the stated error or reading at once, and the program goes on.

#include "tests/e2e/support/end_to_end.h"

#include <ostream>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

struct HostilePacket
{
    const char* name;
    const char* says; // the line by which the opening is done
    QByteArray (*content)(const QByteArray& clip);

    friend void PrintTo(const HostilePacket& packet, std::ostream* out) { *out << packet.name; }
};

static QByteArray withFiles(const QByteArray& count, const QByteArray& clip)
{
    return "[main]\nfiles=" + count + "\n[file1]\npath=" + clip +
           "\ntext=One\n[file2]\npath=" + clip + "\ntext=Two\n";
}

static QByteArray hugeValue(const QByteArray& clip)
{
    constexpr qsizetype kSize = 50'000'000;
    return "[main]\nfiles=2\n[file1]\ntext=" + QByteArray(kSize, 'x') + "\npath=" + clip +
           "\n[file2]\npath=" + clip + "\ntext=Two\n";
}

static QByteArray manySections(const QByteArray& clip)
{
    constexpr qsizetype kSections = 1'000'000;
    QByteArray content;
    content.reserve(kSections * 12);
    for (qsizetype i = 0; i < kSections; ++i) {
        content += "[s" + QByteArray::number(i) + "]\n";
    }
    return content + withFiles("2", clip);
}

static QByteArray full(char byte, const QByteArray& clip)
{
    return QByteArray(1000, byte) + '\n' + withFiles("2", clip) + QByteArray(1'000'000, byte);
}

// Of a list with a wrong count nothing can be read; the other values stand where they should.
constexpr HostilePacket kHostilePackets[] = {
    {"files_99999", "^orvanta.errors: .*error 6",
     [](const QByteArray& clip) { return withFiles("99999", clip); }},
    {"files_negative", "^orvanta.errors: .*error 9",
     [](const QByteArray& clip) { return withFiles("-1", clip); }},
    {"files_a_word", "^orvanta.errors: .*error 13",
     [](const QByteArray& clip) { return withFiles("abc", clip); }},
    {"files_a_fraction", "^orvanta.playlist: loaded 1 packets, 2 entries",
     [](const QByteArray& clip) { return withFiles("2.5", clip); }},
    {"more_files_than_sections", "^orvanta.playlist: loaded 1 packets, 32767 entries",
     [](const QByteArray& clip) { return withFiles("32767", clip); }},
    {"a_huge_value", "^orvanta.playlist: loaded 1 packets, 2 entries", hugeValue},
    {"zero_bytes", "^orvanta.playlist: loaded 1 packets, 2 entries",
     [](const QByteArray& clip) { return full('\0', clip); }},
    {"brackets", "^orvanta.playlist: loaded 1 packets, 2 entries",
     [](const QByteArray& clip) { return full('[', clip); }},
    {"a_million_sections", "^orvanta.playlist: loaded 1 packets, 2 entries", manySections},
};

class HostilePackets : public EndToEnd, public testing::WithParamInterface<HostilePacket>
{};

TEST_P(HostilePackets, AreReadAsStatedWithinASecondAndTheProgramGoesOn)
{
    constexpr double kSeconds = 1;
#if defined(ORVANTA_SANITIZE) || !defined(NDEBUG)
    constexpr double kSlower = 8; // neither sanitized nor unoptimised code counts
#else
    constexpr double kSlower = 1;
#endif
    home.setOption(u"as"_s, false);
    const QByteArray content = GetParam().content(media(u"short.wav"_s).toUtf8());
    const QString packet = writeBytes(file(u"hostile.vxl"_s), content);
    ASSERT_TRUE(program.startAndShow());
    const qint64 memoryBefore = memoryKilobytes(program.pid(), "VmHWM");
    const double before = processorSeconds(program.pid());
    ASSERT_EQ(launchAgain(desktop, home, {packet}), 0);
    EXPECT_TRUE(program.next(QString::fromLatin1(GetParam().says)));
    // Processor time: the machine may be busy with other tests.
    EXPECT_LE(processorSeconds(program.pid()) - before, kSeconds * kSlower);

    const qint64 grown = memoryKilobytes(program.pid(), "VmHWM") - memoryBefore;
    EXPECT_LE(grown, 40'000 + 8 * content.size() / 1024) << "kilobytes";

    const QString good = writeClips(file(u"good.vxl"_s), {{media(u"short.wav"_s), u"Good"_s}});
    ASSERT_EQ(launchAgain(desktop, home, {good}), 0);
    EXPECT_TRUE(loads(1, 1));
    EXPECT_TRUE(waitFor([this] { return window().rows().size() == 3; }));
}

INSTANTIATE_TEST_SUITE_P(Of, HostilePackets, testing::ValuesIn(kHostilePackets),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace orvanta::e2e
