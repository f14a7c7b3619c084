#include "tests/e2e/support/end_to_end.h"

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

EndToEnd::EndToEnd(DesktopOptions options, Home::Kind kind)
    : desktop(options),
      home(kind),
      program(desktop, home)
{}

void EndToEnd::SetUp()
{
    ASSERT_TRUE(desktop.isReady()) << desktop.problem().toStdString();
}

void EndToEnd::TearDown()
{
    if (HasFailure()) {
        std::cerr << program.said();
    }
}

MainWindow& EndToEnd::window()
{
    if (!m_window) {
        m_window = std::make_unique<MainWindow>(desktop, program);
    }
    return *m_window;
}

QString playbackPattern(const QString& what)
{
    return u"^orvanta.playback: "_s + QRegularExpression::escape(what) + u"( |$)"_s;
}

bool EndToEnd::plays(const QString& what)
{
    return program.next(playbackPattern(what)).has_value();
}

bool EndToEnd::loads(int packets, int entries)
{
    const QString line = u"^orvanta.playlist: loaded %1 packets, %2 entries$"_s;
    return program.next(line.arg(packets).arg(entries)).has_value();
}

QStringList EndToEnd::saidUntilAnotherFileIsOpen()
{
    home.setOption(u"as"_s, false);
    EXPECT_EQ(launchAgain(desktop, home, {media(u"sound2.wav"_s)}), 0);
    const std::optional<QStringList> lines = program.linesUntil(u"^orvanta.playlist: loaded"_s);
    EXPECT_TRUE(lines.has_value());
    return lines.value_or(QStringList());
}

} // namespace orvanta::e2e
