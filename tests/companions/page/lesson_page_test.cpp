// The page as text: nothing in it but what is its own.
#include "companions/page/lesson_page.h"
#include "companions/page/page_data.h"
#include "companions/page/page_keys.h"
#include "playback/commands.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static PageLesson lessonWith(const QString& text)
{
    const PageMedia media = {.sources = {{.file = u"media/"_s + text + u".webm"_s, .type = text}}};
    return {
        .title = text,
        .packets = {{.title = text, .picture = text, .lines = {{.text = text, .media = media}}}},
        .options = {}};
}

static QString between(const QByteArray& page, const QString& begin, const QString& end)
{
    const QString text = QString::fromUtf8(page);
    const qsizetype from = text.indexOf(begin) + begin.size();
    return text.mid(from, text.indexOf(end, from) - from);
}

static QJsonObject dataOf(const QByteArray& page)
{
    const QString json = between(page, u"id=\"lesson\">"_s, u"</script>"_s);
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

static int countOf(const QByteArray& page, const char* what)
{
    return int(page.count(what));
}

TEST(LessonPage, KeepsEveryTextAsItIs)
{
    const QStringList texts = {u"</script><script>alert(1)</script>"_s,
                               u"<!-- & @title@ @script@"_s,
                               u"\u2028\u2029 \"quotes' \\ \U0001F600"_s, u"{{x}} %1 $& ${y}"_s};
    for (const QString& text : texts) {
        const QJsonObject data = dataOf(lessonPage(lessonWith(text)));
        EXPECT_EQ(data[u"title"_s].toString(), text);
        const QJsonObject packet = data[u"packets"_s][0].toObject();
        EXPECT_EQ(packet[u"title"_s].toString(), text);
        EXPECT_EQ(packet[u"lines"_s][0][u"text"_s].toString(), text);
    }
}

TEST(LessonPage, NoTextAddsAnElement)
{
    const QByteArray plain = lessonPage(lessonWith(u"plain"_s));
    const QByteArray hostile =
        lessonPage(lessonWith(u"</title></script><script>alert(1)</script><img src=x>"_s));
    for (const char* element : {"<script", "</script", "<img", "</title"}) {
        EXPECT_EQ(countOf(hostile, element), countOf(plain, element)) << element;
    }
}

TEST(LessonPage, AllowsItsOwnStyleAndScriptByTheirSums)
{
    const QByteArray page = lessonPage(lessonWith(u"a"_s));
    const auto sum = [&](const QString& begin, const QString& end) {
        const QByteArray text = between(page, begin, end).toUtf8();
        return QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64();
    };
    const QByteArray policy =
        between(page, u"Content-Security-Policy\" content=\""_s, u"\">"_s).toUtf8();
    EXPECT_TRUE(policy.contains("script-src 'sha256-" + sum(u"<script>"_s, u"</script>"_s) + "';"));
    EXPECT_TRUE(policy.contains("style-src 'sha256-" + sum(u"<style>"_s, u"</style>"_s) + "';"));
    EXPECT_TRUE(policy.startsWith("default-src 'none';"));
    EXPECT_FALSE(policy.contains("unsafe"));
}

TEST(LessonPage, NamesNothingElsewhere)
{
    QByteArray page = lessonPage(lessonWith(u"a"_s));
    page.replace("http://www.w3.org/2000/svg", ""); // the name of a language, not an address
    EXPECT_FALSE(page.contains("://"));
    EXPECT_FALSE(page.contains("innerHTML"));
    EXPECT_FALSE(page.contains('\r')); // a browser would take it away before it makes the sum
}

TEST(LessonPage, EncodesNamesInAddresses)
{
    EXPECT_EQ(pageAddress(u"media/a b#c?d%e.mp4"_s), u"./media/a%20b%23c%3Fd%25e.mp4"_s);
    EXPECT_EQ(pageAddress(u"http:x.mp4"_s), u"./http%3Ax.mp4"_s);
    EXPECT_EQ(pageAddress(u"урок.webm"_s), u"./%D1%83%D1%80%D0%BE%D0%BA.webm"_s);
    EXPECT_EQ(pageAddress({}), QString());
}

TEST(LessonPage, TellsBrakesThatCannotBeRead)
{
    PageLesson lesson;
    lesson.packets = {{.title = u"p"_s,
                       .picture = {},
                       .hasBrakes = true,
                       .lines = {{.text = u"a"_s, .seconds = 1.25}, {.text = u"b"_s}}}};
    const QJsonArray lines = pageData(lesson)[u"packets"_s][0][u"lines"_s].toArray();
    EXPECT_EQ(lines[0][u"time"_s], QJsonValue(1.25));
    EXPECT_TRUE(lines[1][u"time"_s].isNull());
}

TEST(LessonPage, HasTheSameIdForTheSameContentAlone)
{
    PageLesson lesson = lessonWith(u"a"_s);
    const QString id = pageData(lesson)[u"id"_s].toString();
    lesson.options.replay = true;
    EXPECT_EQ(pageData(lesson)[u"id"_s].toString(), id);
    lesson.packets[0].lines[0].text = u"b"_s;
    EXPECT_NE(pageData(lesson)[u"id"_s].toString(), id);
}

/// What the script asks the table of texts for.
static QSet<QString> textsAskedFor(const QByteArray& page)
{
    static const QRegularExpression asked(
        u"(?:words|this)\\.text\\('([^']+)'|data-(?:text|tip|hint)=\"([^\"]+)\""_s);
    QSet<QString> names;
    auto match = asked.globalMatch(QString::fromUtf8(page));
    while (match.hasNext()) {
        const auto found = match.next();
        names.insert(found.captured(1) + found.captured(2));
    }
    return names;
}

TEST(LessonPage, HasEveryTextInBothLanguages)
{
    const QByteArray page = lessonPage(lessonWith(u"a"_s));
    const QSet<QString> names = textsAskedFor(page);
    EXPECT_GE(names.size(), 40);
    for (const QString& language : {u"en"_s, u"ru"_s}) {
        const QJsonObject texts = dataOf(page)[u"texts"_s][language].toObject();
        for (const QString& name : names) {
            EXPECT_TRUE(texts.contains(name)) << qPrintable(name);
        }
    }
}

TEST(LessonPage, KnowsEveryKeyOfItsCommandsButThatWhichLoadsItAgain)
{
    int count = 0;
    for (const QJsonValue& row : pageKeys()) {
        const QString name = row[u"command"_s].toString();
        const auto command = std::ranges::find(commands(), name, &CommandRow::name);
        ASSERT_NE(command, commands().end());
        // Enter stands twice in the program's table: browsers call both keys the same.
        const auto isKnown = [](const NamedKey& key) { return key.key != Qt::Key_Enter; };
        const auto known = std::ranges::count_if(command->namedKeys(), isKnown);
        EXPECT_EQ(row[u"keys"_s].toArray().size(), known) << qPrintable(name);
        ++count;
    }
    EXPECT_GE(count, 30);
    EXPECT_FALSE(pageCommands().contains(u"NextTextLevel"_s));
}

TEST(LessonPage, HasAnActionForEveryCommandOfItsKeys)
{
    const QString page = QString::fromUtf8(lessonPage(lessonWith(u"a"_s)));
    for (const QString& command : pageCommands()) {
        EXPECT_TRUE(page.contains(u"            %1: () => "_s.arg(command))) << qPrintable(command);
    }
}

} // namespace orvanta::test
