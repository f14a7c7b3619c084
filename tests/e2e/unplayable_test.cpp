// Clip paths behind which there is nothing to play: nothing hangs, nothing is fetched.

#include "tests/e2e/support/end_to_end.h"

#include <QDir>
#include <QTcpServer>

#include <fcntl.h>
#include <ostream>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Unplayable : public EndToEnd
{
protected:
    void SetUp() override
    {
        EndToEnd::SetUp();
        ASSERT_TRUE(m_server.listen(QHostAddress::LocalHost));
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] { ++m_fetches; });
        ASSERT_TRUE(QDir().mkpath(file(u"folder.avi"_s)));
        ASSERT_EQ(::mkfifo(fifo().toLocal8Bit().constData(), 0600), 0);
    }

    [[nodiscard]] QString fifo() const { return file(u"fifo.avi"_s); }
    [[nodiscard]] QString address() const
    {
        return u"http://127.0.0.1:%1/clip.avi"_s.arg(m_server.serverPort());
    }

    /// Opening a FIFO for writing succeeds only while somebody reads it.
    [[nodiscard]] bool fifoIsBeingRead() const
    {
        const int end = ::open(fifo().toLocal8Bit().constData(), O_WRONLY | O_NONBLOCK);
        if (end >= 0) {
            ::close(end);
        }
        return end >= 0;
    }

    QString pathOf(const QString& kind)
    {
        const QHash<QString, QString> paths = {
            {u"missing"_s, file(u"missing.avi"_s)},
            {u"nothing"_s, QString()},
            {u"empty"_s, writeBytes(file(u"empty.avi"_s), {})},
            {u"corrupt"_s, media(u"noise.avi"_s)},
            {u"text"_s, writeBytes(file(u"text.avi"_s), QByteArray("Not a clip.\n").repeated(99))},
            {u"playlist"_s,
             writeBytes(file(u"list.avi"_s), "#EXTM3U\n" + address().toUtf8() + '\n')},
            {u"concat"_s, writeBytes(file(u"concat.avi"_s),
                                     "ffconcat version 1.0\nfile " + address().toUtf8() + '\n')},
            {u"folder"_s, file(u"folder.avi"_s)},
            {u"fifo"_s, fifo()},
            {u"device"_s, u"/dev/zero"_s},
            {u"web"_s, address()},
            {u"engine"_s, u"lavf://"_s + address()},
            {u"archive"_s, u"archive://"_s + address()},
        };
        return paths.value(kind);
    }

    QTcpServer m_server;
    int m_fetches = 0;
};

struct UnplayableKind
{
    const char* name;
    friend void PrintTo(const UnplayableKind& kind, std::ostream* out) { *out << kind.name; }
};

class UnplayableClip : public Unplayable, public testing::WithParamInterface<UnplayableKind>
{};

TEST_P(UnplayableClip, IsPassedOverAndTheNextOnePlays)
{
    const QString packet = writeClips(
        file(u"packet.vxl"_s), {{media(u"short.mp4"_s), u"Before"_s},
                                {pathOf(QString::fromLatin1(GetParam().name)), u"Unplayable"_s},
                                {media(u"short.wav"_s), u"After"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    EXPECT_TRUE(plays(u"ended 1 1"_s));
    EXPECT_TRUE(plays(u"start 1 3 After"_s));
    EXPECT_TRUE(plays(u"ended 1 3"_s));
    EXPECT_EQ(program.linesMatching(playbackPattern(u"ended 1 2"_s)), QStringList());
    EXPECT_EQ(program.linesMatching(playbackPattern(u"start 1 3"_s)).size(), 1);
    EXPECT_FALSE(fifoIsBeingRead());
    EXPECT_EQ(m_fetches, 0);
}

constexpr UnplayableKind kKinds[] = {{"missing"},  {"nothing"}, {"empty"},  {"corrupt"}, {"text"},
                                     {"playlist"}, {"concat"},  {"folder"}, {"fifo"},    {"device"},
                                     {"web"},      {"engine"},  {"archive"}};

INSTANTIATE_TEST_SUITE_P(Of, UnplayableClip, testing::ValuesIn(kKinds),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(Unplayable, AListInWhichNothingCanBeOpenedIsTriedOnceEvenWithReplay)
{
    home.setOption(u"ar"_s, true);
    const QString packet =
        writeClips(file(u"hopeless.vxl"_s), {{pathOf(u"missing"_s), u"Missing"_s},
                                             {pathOf(u"fifo"_s), u"Fifo"_s},
                                             {pathOf(u"web"_s), u"Web"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(loads(1, 3));
    // A launch and two openings later it would have gone round more than once.
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    const QStringList said = saidUntilAnotherFileIsOpen();
    EXPECT_LE(said.filter(u"error 53"_s).size(), 4);
    EXPECT_EQ(m_fetches, 0);
}

} // namespace orvanta::e2e
