// Lessons made at random, with texts that mean something in one format or another.
#pragma once

#include "companions/exchange/lesson.h"
#include "tests/session/dice.h"

#include <QStringList>

namespace orvanta::test {

inline QString hostileText(session::Dice& dice)
{
    using namespace Qt::StringLiterals;
    static const QStringList kPieces = {
        u"a"_s,       u" "_s,      u"\""_s,       u"'"_s,         u"="_s,      u";"_s,
        u"#"_s,       u"-->"_s,    u"--"_s,       u"&"_s,         u"&amp;"_s,  u"<b>"_s,
        u"</"_s,      u"]]>"_s,    u"\\"_s,       u"{}"_s,        u"{\\i1}"_s, u"[main]"_s,
        u"Привет"_s,  u"ё"_s,      u"🙂"_s,     u"日本語"_s,    u","_s,      u"%20"_s,
        u"%"_s,       u"\t"_s,     u"NOTE"_s,     u"WEBVTT"_s,    u"0:00"_s,   u"é"_s,
        u"e\u0301"_s, u"\u00a0"_s, u"#EXTINF:"_s, u"[CHAPTER]"_s, u"\u2028"_s, u"title="_s,
        u"<!--"_s,    u"\u200f"_s, u"100 %"_s,    u"$(x)"_s,      u"`y`"_s,    u"|"_s,
    };
    QString text;
    for (int pieces = 1 + dice.below(8); pieces > 0; --pieces) {
        text += dice.oneOf(kPieces);
    }
    return text;
}

/// Not only blanks: where a list has no title, it takes the file's.
inline QString hostileTitle(session::Dice& dice)
{
    return hostileText(dice) + QChar(u'z');
}

inline QString hostilePath(session::Dice& dice)
{
    QString name = hostileText(dice).remove(u'/');
    return (dice.chance(50) ? QStringLiteral("/media/") : QString()) + name +
           QStringLiteral("x.mp4");
}

/// Times in hundredths, the last mark is the end mark.
inline LessonPacket hostileMarks(session::Dice& dice)
{
    LessonPacket packet;
    packet.title = hostileTitle(dice);
    packet.markedClip = hostilePath(dice);
    packet.hasEnd = true;
    int hundredths = dice.below(1000);
    for (int marks = 2 + dice.below(6); marks > 0; --marks) {
        packet.marks.push_back({hundredths / 100.0, hostileTitle(dice)});
        hundredths += 1 + dice.below(dice.chance(10) ? 9000000 : 3000);
    }
    return packet;
}

inline LessonPacket hostileClips(session::Dice& dice)
{
    LessonPacket packet;
    packet.title = hostileTitle(dice);
    for (int clips = 1 + dice.below(5); clips > 0; --clips) {
        packet.clips.push_back({hostilePath(dice), hostileTitle(dice)});
    }
    return packet;
}

/// Several packets have their titles; no two neighbours the same one.
inline Lesson hostileLesson(session::Dice& dice)
{
    Lesson lesson;
    lesson.title = hostileTitle(dice);
    for (int packets = 1 + dice.below(4); packets > 0; --packets) {
        lesson.packets.push_back(dice.chance(50) ? hostileMarks(dice) : hostileClips(dice));
        lesson.packets.back().title += QString::number(packets);
    }
    if (lesson.packets.size() == 1) {
        lesson.packets.front().title.clear(); // a list does not name its only packet
    }
    return lesson;
}

/// Equal but for what doubles cannot hold.
inline bool isSameTime(double one, double other)
{
    return std::abs(one - other) < 0.0005;
}
inline bool isSamePacket(const LessonPacket& one, const LessonPacket& other)
{
    bool same = one.clips == other.clips && one.markedClip == other.markedClip &&
                one.title == other.title && one.hasEnd == other.hasEnd &&
                one.marks.size() == other.marks.size();
    for (std::size_t i = 0; same && i < one.marks.size(); ++i) {
        same = isSameTime(one.marks[i].seconds, other.marks[i].seconds) &&
               one.marks[i].text == other.marks[i].text;
    }
    return same;
}

} // namespace orvanta::test
