// The rules of the page and those of the program: the same lessons, the same order of lines.
#include "companions/page/lesson_page.h"
#include "model/lesson_lines.h"
#include "playback/advance.h"
#include "playback/brakes.h"
#include "playback/practice_rule.h"
#include "tests/support/browser/browser.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

/// A lesson made by chance: packets of clips and of brakes, some times unreadable, out of order or
/// twice, some lines unchecked, some packets empty.
struct RandomLesson
{
    explicit RandomLesson(quint32 seed)
        : random(seed)
    {
        const int count = random.bounded(0, 6);
        for (int p = 0; p < count; ++p) {
            addPacket();
        }
    }

    bool chance(int percent) { return random.bounded(100) < percent; }

    void addPacket()
    {
        PlaylistEntry packet;
        packet.HasBrakes = chance(50);
        const int lines = random.bounded(0, 7);
        checks.push_back({});
        packetChecks.push_back(!chance(15));
        for (int q = 0; q < lines; ++q) {
            ClipEntry entry;
            if (packet.HasBrakes && !chance(10)) {
                entry.Time = QString::number(random.bounded(0, 2000) / 100.0, 'f', 2);
            }
            packet.Clips.push_back(entry);
            checks.back().push_back(!chance(25));
        }
        packet.ClipCount = lines;
        packets.push_back(packet);
    }

    [[nodiscard]] PlaylistShape shape() const
    {
        return {.packetCount = int(packets.size()),
                .clipCount = [this](Int16 p) { return packets[p.index() - 1].ClipCount; },
                .packetChecked = [this](Int16 p) -> bool { return packetChecks[p.index() - 1]; },
                .clipChecked = [this](Int16 p, Int16 q) -> bool {
                    return checks[p.index() - 1][q.index() - 1];
                }};
    }

    [[nodiscard]] QJsonArray times(std::size_t p) const
    {
        QJsonArray times;
        for (int q = 1; q <= packets[p].ClipCount.value(); ++q) {
            const auto time = brakeTime(packets[p], q);
            times.append(time ? QJsonValue(*time) : QJsonValue(QJsonValue::Null));
        }
        return times;
    }

    [[nodiscard]] QJsonArray json() const
    {
        QJsonArray all;
        for (std::size_t p = 0; p < packets.size(); ++p) {
            QJsonArray marks;
            for (const bool isChecked : checks[p]) {
                marks.append(isChecked);
            }
            all.append(QJsonObject{{u"checked"_s, bool(packetChecks[p])},
                                   {u"hasBrakes"_s, bool(packets[p].HasBrakes)},
                                   {u"marks"_s, marks},
                                   {u"times"_s, times(p)}});
        }
        return all;
    }

    QRandomGenerator random;
    std::vector<PlaylistEntry> packets;
    std::vector<std::vector<bool>> checks;
    std::vector<bool> packetChecks;
};

QJsonValue placeJson(const std::optional<Cursor>& place)
{
    return place ? QJsonValue(QJsonArray{place->packet.value(), place->clip.value()})
                 : QJsonValue(QJsonValue::Null);
}

QJsonValue decisionJson(const AdvanceDecision& decision)
{
    const QStringList names = {u"stay"_s, u"start"_s, u"over"_s};
    return QJsonArray{names[decision.what], placeJson(decision.cursor)};
}

QJsonValue numberJson(const std::optional<double>& number)
{
    return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}

/// Questions to the page's rules, as calls of functions of kAsking, and what the program says.
class Questions
{
public:
    void ask(const QString& call, const QJsonArray& arguments, const QJsonValue& expected)
    {
        m_all.append(QJsonArray{call, arguments, expected});
    }
    [[nodiscard]] qsizetype count() const { return m_all.size(); }
    [[nodiscard]] QString json() const
    {
        return QString::fromUtf8(QJsonDocument(m_all).toJson(QJsonDocument::Compact));
    }

private:
    QJsonArray m_all;
};

} // namespace

static const char* const kAsking = R"(
const shapeOf = (lesson) => ({
    packetCount: lesson.length,
    clipCount: (p) => lesson[p - 1].marks.length,
    packetChecked: (p) => lesson[p - 1].checked,
    clipChecked: (p, q) => lesson[p - 1].marks[q - 1],
});
const at = ([packet, clip]) => Rules.place(packet, clip);
const said = (place) => (place ? [place.packet, place.clip] : null);
const decided = ({ what, place }) => [what, said(place)];
const lines = (lesson) => (p) => (lesson[p - 1].hasBrakes ? Rules.spansOf(lesson[p - 1].times)
    : lesson[p - 1].marks.length);
const asked = {
    begin: (lesson, from) => said(Rules.placeToBegin(shapeOf(lesson), at(from))),
    next: (lesson, options, from) =>
        decided(Rules.nextAfterClip(options, shapeOf(lesson), at(from))),
    previous: (lesson, from) => said(Rules.previousClip(shapeOf(lesson), at(from))),
    behind: (lesson, from) => said(Rules.lineBehind(lesson.length, lines(lesson), at(from))),
    before: (lesson, from) => said(Rules.lineBefore(lines(lesson), at(from))),
    endMark: (times) => Rules.endMark(times),
    due: (times, brake) => Rules.timeOfNextBrake(times, brake),
    span: (times, brake, duration) => {
        const { begin, end } = Rules.brakeSpan(times, brake, duration);
        return [begin, end];
    },
    reached: (packet, brake, seconds) => {
        const decision = Rules.brakeReached(packet.times, brake, seconds,
            (q) => packet.checked && packet.marks[q - 1]);
        return [decision.what, decision.brake];
    },
    endPasses: (times, duration) => Rules.endPassesLastBrake(times, duration),
    brakeAt: (times, seconds) => Rules.brakeAt(times, seconds),
    afterLine: (practice, rounds, seconds) => Rules.nextAfterLine(practice, rounds, seconds),
    wait: (practice, seconds, speed) => Rules.waitAfterLine(practice, seconds, speed),
    speed: (practice, round) => Rules.speedOfRound(practice, round),
    slower: (speed) => Rules.slowerThan(speed),
    faster: (speed) => Rules.fasterThan(speed),
};
)";

/// The questions that the page's rules answer otherwise than the program's.
static QString answersThatDiffer(const Questions& questions)
{
    const auto browser = startChromium();
    if (!browser->isReady()) {
        return u"no browser"_s;
    }
    QFile rules(QStringLiteral(ORVANTA_SOURCE_DIR "/companions/page/rules.js"));
    EXPECT_TRUE(rules.open(QIODevice::ReadOnly));
    const QString script =
        u"(() => { %1 %2 return JSON.stringify(%3.filter(([call, given, expected]) => "
        "JSON.stringify(asked[call](...given)) !== JSON.stringify(expected))"
        ".slice(0, 5).map(([call, given, expected]) => "
        "[call, given, expected, asked[call](...given)])); })()"_s;
    return browser
        ->evaluate(script.arg(QString::fromUtf8(rules.readAll()), QString::fromUtf8(kAsking),
                              questions.json()))
        .toString();
}

TEST(PageRules, GoOnFromEveryPlaceAsTheProgramDoes)
{
    Questions questions;
    for (quint32 seed = 0; seed < 150; ++seed) {
        RandomLesson lesson(seed);
        const QJsonArray json = lesson.json();
        const PlaylistShape shape = lesson.shape();
        const auto lineCounts = [&](Int16 p) {
            return Int16(lineCount(lesson.packets[p.index() - 1]));
        };
        const AdvanceOptions options = {lesson.chance(80), lesson.chance(80), lesson.chance(50)};
        const QJsonObject optionsJson = {{u"nextClip"_s, options.nextClip},
                                         {u"nextPacket"_s, options.nextPacket},
                                         {u"replay"_s, options.replay}};
        questions.ask(u"begin"_s, {json, QJsonArray{0, 0}}, placeJson(placeToBegin(shape, {0, 0})));
        for (int p = 1; p <= int(lesson.packets.size()); ++p) {
            for (int q = 0; q <= lesson.packets[std::size_t(p) - 1].ClipCount.value(); ++q) {
                const Cursor at = {p, q};
                const QJsonArray from = {p, q};
                questions.ask(u"begin"_s, {json, from}, placeJson(placeToBegin(shape, at)));
                questions.ask(u"next"_s, {json, optionsJson, from},
                              decisionJson(nextAfterClip(options, shape, at)));
                questions.ask(u"previous"_s, {json, from}, placeJson(previousClip(shape, at)));
                questions.ask(u"behind"_s, {json, from},
                              placeJson(lineBehind(int(lesson.packets.size()), lineCounts, at)));
                questions.ask(u"before"_s, {json, from}, placeJson(lineBefore(lineCounts, at)));
            }
        }
    }
    EXPECT_GT(questions.count(), 5000);
    EXPECT_EQ(answersThatDiffer(questions), u"[]"_s);
}

static QJsonArray brakeJson(const BrakeDecision& decision)
{
    const QStringList names = {u"nothing"_s, u"reach"_s, u"skip"_s, u"leave"_s};
    const bool has = decision.what == BrakeDecision::Reach || decision.what == BrakeDecision::Skip;
    return {names[decision.what], has ? decision.brake.value() : 0};
}

static void askAboutBrakes(Questions& questions, RandomLesson& lesson, std::size_t p)
{
    const PlaylistEntry& packet = lesson.packets[p];
    const QJsonArray times = lesson.times(p);
    const QJsonValue json = lesson.json()[qsizetype(p)];
    const BrakeMarks marks = [&](Int16 q) -> bool {
        return lesson.packetChecks[p] && lesson.checks[p][q.index() - 1];
    };
    questions.ask(u"endMark"_s, {QJsonValue(times)}, endMarkOf(packet).value());
    for (int q = 0; q <= packet.ClipCount.value(); ++q) {
        const double seconds = lesson.random.bounded(0, 2100) / 100.0;
        const BrakeSpan span = brakeSpan(packet, q, 20.5);
        questions.ask(u"due"_s, {times, q}, numberJson(timeOfNextBrake(packet, q)));
        questions.ask(u"span"_s, {times, q, 20.5}, QJsonArray{span.begin, span.end});
        questions.ask(u"reached"_s, {json, q, seconds},
                      brakeJson(brakeReached(packet, q, seconds, marks)));
        questions.ask(u"endPasses"_s, {times, seconds}, endPassesLastBrake(packet, seconds));
        questions.ask(u"brakeAt"_s, {times, seconds}, brakeAt(packet, seconds).value());
    }
}

TEST(PageRules, FollowBrakesAsTheProgramDoes)
{
    Questions questions;
    for (quint32 seed = 0; seed < 400; ++seed) {
        RandomLesson lesson(seed);
        for (std::size_t p = 0; p < lesson.packets.size(); ++p) {
            askAboutBrakes(questions, lesson, p);
        }
    }
    EXPECT_GT(questions.count(), 10000);
    EXPECT_EQ(answersThatDiffer(questions), u"[]"_s);
}

static QJsonObject practiceJson(const Practice& practice)
{
    return {{u"speed"_s, practice.speed}, {u"times"_s, practice.times},
            {u"wait"_s, practice.wait},   {u"seconds"_s, practice.seconds},
            {u"from"_s, practice.from},   {u"step"_s, practice.step}};
}

static Practice randomPractice(QRandomGenerator& random)
{
    const std::array waits = {0, 0, -1, -2, 50, 100, 300};
    return {.speed = random.bounded(25, 201),
            .times = random.bounded(0, 6),
            .wait = waits[random.bounded(quint32(waits.size()))],
            .seconds = random.bounded(1, 60),
            .from = random.bounded(10, 101),
            .step = random.bounded(0, 101)};
}

TEST(PageRules, PractiseAsTheProgramDoes)
{
    Questions questions;
    QRandomGenerator random(7);
    const QStringList after = {u"goOn"_s, u"again"_s, u"wait"_s};
    for (int i = 0; i < 2000; ++i) {
        const Practice practice = randomPractice(random);
        const QJsonObject json = practiceJson(practice);
        const int round = random.bounded(1, 8);
        const double seconds = random.bounded(0, 4) * 1.25;
        questions.ask(u"afterLine"_s, {json, round, seconds},
                      after[int(nextAfterLine(practice, round, seconds))]);
        questions.ask(u"speed"_s, {json, round}, speedOfRound(practice, round));
        if (practice.wait != Practice::kNoWait) {
            const auto wait = waitAfterLine(practice, seconds, 0.5);
            questions.ask(u"wait"_s, {json, seconds, 0.5}, numberJson(wait));
        }
        questions.ask(u"slower"_s, {practice.speed}, slowerThan(practice.speed));
        questions.ask(u"faster"_s, {practice.speed}, fasterThan(practice.speed));
    }
    EXPECT_EQ(answersThatDiffer(questions), u"[]"_s);
}

} // namespace orvanta::test
