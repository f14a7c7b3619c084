// Killing the program while a lesson is edited: nothing that is older than a second is lost.

#include "tests/e2e/editing_fixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTimer>

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

namespace {

/// The longest time for which this process was not served: so long a busy machine may also have
/// kept the program waiting.
class Stalls : public QObject
{
public:
    Stalls()
    {
        m_clock.start();
        QObject::connect(&m_timer, &QTimer::timeout, this,
                         [this] { m_longest = std::max(m_longest, m_clock.restart()); });
        m_timer.start(10);
    }
    [[nodiscard]] qint64 longestMs() const { return m_longest; }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};

} // namespace

class KilledEditing : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.isReady()) << desktop.problem().toStdString();
        home.setOption(u"as"_s, false); // what is typed is not hurried
        document = writeBrakes(desktop.folder() + u"/lesson.vxl"_s, media(u"film180.mp4"_s),
                               {{10, u"first"_s}, {20, u"second"_s}, {30, u"End"_s}});
    }

    [[nodiscard]] static int rounds()
    {
        const int asked = qEnvironmentVariableIntValue("ORVANTA_EDITING_KILLS");
        return asked > 0 ? asked : 30;
    }

    static QString content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    [[nodiscard]] QString draft() const
    {
        const QDir folder(home.file(u"drafts"_s));
        const QStringList names = folder.entryList({u"*.draft"_s}, QDir::Files);
        EXPECT_LE(names.size(), 1);
        return names.isEmpty() ? QString() : content(folder.filePath(names.front()));
    }

    /// The text of the first mark in a document or a draft, which must be whole.
    static QString firstText(const QString& text)
    {
        static const QRegularExpression kWhole(
            u"time=000010\\.00\\r\\n(?:text=([^\\r]*)\\r\\n).*time=000020\\.00.*text=second\\r\\n.*"
            "time=000030\\.00\\r\\ntext=End"_s,
            QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpressionMatch match = kWhole.match(text);
        EXPECT_TRUE(match.hasMatch()) << text.toStdString();
        return match.captured(1);
    }

    /// The same of a draft: of a packet that is as its file, it says no more than that.
    [[nodiscard]] QString firstTextOfDraft(const QString& kept) const
    {
        return firstText(kept.contains(u"was=1\r\n"_s) ? content(document) : kept);
    }

    /// Starts with what the last round left: a draft is offered and taken, else the document
    /// opened.
    void begin(Application& program, bool fromDraft, const QString& expected)
    {
        ASSERT_TRUE(program.startAndShow(fromDraft ? QStringList() : QStringList(document)))
            << program.said();
        AccessibilityBus bus(desktop);
        if (fromDraft) {
            const auto take = bus.control(program.pid(), u"push button"_s, u"Take them"_s);
            ASSERT_TRUE(take);
            take->act(u"Press"_s);
        } else {
            ASSERT_TRUE(program.next(u"^orvanta.playlist: loaded"_s));
            ASSERT_TRUE(desktop.activate(kTitle));
            desktop.press(u"F4"_s);
        }
        ASSERT_TRUE(bus.control(program.pid(), u"push button"_s, u"Leave editing"_s));
        MainWindow window(desktop, program);
        ASSERT_TRUE(waitFor([&] { return window.rows().value(2) == expected; }))
            << window.rows().join(u'|').toStdString();
        const auto list = bus.control(program.pid(), u"list"_s, u"Playlist"_s);
        ASSERT_TRUE(list && desktop.activate(kTitle));
        desktop.click(list->child(2)->place().center());
        ASSERT_TRUE(waitFor([&] { return window.currentRow() == 2; }));
    }

    /// Types another text for the first mark and waits until the list has it.
    void change(Application& program, const QString& text)
    {
        MainWindow window(desktop, program);
        desktop.press(u"F2"_s);
        desktop.type(text);
        desktop.press(u"Return"_s);
        ASSERT_TRUE(waitFor([&] { return window.rows().value(2) == text; }))
            << window.rows().join(u'|').toStdString();
    }

    const QString kTitle = u"!Orvanta!"_s;
    Desktop desktop;
    Home home;
    QString document;
};

TEST_F(KilledEditing, AtAnyMomentLeavesTheOldDocumentOrTheNewOneAndADraftOfTheRest)
{
    QString inDocument = u"first"_s;
    QString expected = inDocument;
    bool fromDraft = false;
    int judged = 0;
    int taken = 0;
    for (int round = 1; round <= rounds(); ++round) {
        SCOPED_TRACE(round);
        Application program(desktop, home);
        begin(program, fromDraft, expected);
        ASSERT_FALSE(HasFatalFailure());
        taken += fromDraft ? 1 : 0;
        const QString text = u"change%1"_s.arg(round);
        change(program, text);
        ASSERT_FALSE(HasFatalFailure());
        const bool saves = QRandomGenerator::global()->bounded(3) == 0;
        if (saves) {
            desktop.press(u"ctrl+s"_s);
        }
        QElapsedTimer sinceChange;
        sinceChange.start();
        const Stalls stalls;
        const int moment = QRandomGenerator::global()->bounded(saves ? 60 : 1600);
        ASSERT_TRUE(waitFor([&] { return sinceChange.hasExpired(moment); }));
        program.sendSignal(SIGKILL);
        const qint64 age = sinceChange.elapsed();
        ASSERT_TRUE(program.waitForEnd());

        const QString saved = firstText(content(document));
        ASSERT_TRUE(saved == inDocument || (saves && saved == text)) << saved.toStdString();
        const QString kept = draft();
        if (!kept.isEmpty()) {
            const QString draftText = firstTextOfDraft(kept);
            ASSERT_TRUE(draftText == text || draftText == expected) << kept.toStdString();
        }
        if (saved != text && age >= 1000 + stalls.longestMs()) {
            ++judged;
            ASSERT_FALSE(kept.isEmpty());
            ASSERT_EQ(firstTextOfDraft(kept), text);
        }
        ASSERT_FALSE(HasFailure());
        inDocument = saved;
        fromDraft = !kept.isEmpty();
        expected = fromDraft ? firstTextOfDraft(kept) : saved;
    }
    RecordProperty("judged", judged);
    RecordProperty("taken", taken);
    EXPECT_GT(taken, 0);
}

} // namespace orvanta::e2e
