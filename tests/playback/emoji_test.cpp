#include "playback/emoji.h"

#include <QString>

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

TEST(Emoji, AreTheSignsThatAreShownAsPictures)
{
    struct Row
    {
        const char* rule;
        QString text;
        QList<TextRange> ranges;
    };
    const QList<Row> rows = {
        {"nothing", u""_s, {}},
        {"letters and figures", u"Lesson 1, урок №2 #3 ©"_s, {}},
        {"a picture behind letters", u"Lesson 🍎"_s, {{7, 2}}},
        {"each by itself", u"🍎 и 🍐"_s, {{0, 2}, {5, 2}}},
        {"beside each other as one", u"a😊😊b"_s, {{1, 4}}},
        {"several that make one", u"👩‍🏫"_s, {{0, 5}}},
        {"with the colour of the skin", u"👍🏽!"_s, {{0, 4}}},
        {"a flag", u"🇫🇷"_s, {{0, 4}}},
        {"an old sign that is a picture", u"✅ ✓"_s, {{0, 1}}},
        {"an old sign as it is", u"❤"_s, {}},
        {"the same, asked for as a picture", u"❤\uFE0F"_s, {{0, 2}}},
        {"a picture that is asked for as text", u"☔\uFE0E"_s, {}},
        {"a figure on a key", u"Press 1\uFE0F\u20E3"_s, {}},
        {"half a sign", QString(QChar(0xD83D)), {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(emojiIn(row.text), row.ranges) << row.rule;
    }
}

} // namespace orvanta
