// From key events to keys, under any layout.
#include "playback/typed_key.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

QKeyEvent press(int key, Qt::KeyboardModifiers modifiers, quint32 scanCode, const QString& text,
                bool repeated = false)
{
    return {QEvent::KeyPress, key, modifiers, scanCode, 0, 0, text, repeated};
}

TEST(TypedKey, ACharacterIsTheOneThatWasTyped)
{
    EXPECT_EQ(typedCharacter(press(Qt::Key_B, {}, 56, u"b"_s)), QChar(u'b'));
    EXPECT_EQ(typedCharacter(press(Qt::Key_Plus, Qt::ShiftModifier, 21, u"+"_s)), QChar(u'+'));
    EXPECT_EQ(typedCharacter(press(Qt::Key_Plus, Qt::KeypadModifier, 86, u"+"_s)), QChar(u'+'));
}

TEST(TypedKey, ACyrillicCharacterIsTheLatinOneOnItsKey)
{
    EXPECT_EQ(typedCharacter(press(0x418, {}, 56, u"и"_s)), QChar(u'b'));
    EXPECT_EQ(typedCharacter(press(0x418, Qt::ShiftModifier, 56, u"И"_s)), QChar(u'B'));
}

TEST(TypedKey, KeysThatTypeNothingOrAreHeldWithAModifierAreNoCharacters)
{
    EXPECT_TRUE(typedCharacter(press(Qt::Key_Shift, Qt::ShiftModifier, 50, {})).isNull());
    EXPECT_TRUE(typedCharacter(press(Qt::Key_P, Qt::ControlModifier, 33, u"p"_s)).isNull());
    EXPECT_TRUE(typedCharacter(press(Qt::Key_P, Qt::AltModifier, 33, u"p"_s)).isNull());
}

TEST(TypedKey, EveryCommonKeyIsRead)
{
    for (const CommonKeyRow& row : commonKeys()) {
        EXPECT_EQ(commonKey(press(row.key, row.modifiers, 0, {})), row.what);
    }
}

TEST(TypedKey, CommandsAreReadUnderARussianLayout)
{
    constexpr int kScanCodeOfO = 32;
    const QKeyEvent event = press(0x429, Qt::ControlModifier, kScanCodeOfO, u"щ"_s);
    EXPECT_EQ(commonKey(event), CommonKey::OpenFile);
}

TEST(TypedKey, OtherModifiersMakeItAnotherKey)
{
    EXPECT_FALSE(commonKey(press(Qt::Key_Left, Qt::AltModifier, 0, {})).has_value());
    EXPECT_FALSE(commonKey(press(Qt::Key_O, Qt::NoModifier, 32, u"o"_s)).has_value());
    EXPECT_EQ(commonKey(press(Qt::Key_Left, Qt::KeypadModifier, 0, {})), CommonKey::StepBack);
}

TEST(TypedKey, AToggleThatIsHeldDownCountsOnce)
{
    EXPECT_FALSE(commonKey(press(Qt::Key_Space, {}, 65, u" "_s, true)).has_value());
    EXPECT_FALSE(commonKey(press(Qt::Key_F11, {}, 95, {}, true)).has_value());
    EXPECT_EQ(commonKey(press(Qt::Key_Right, {}, 114, {}, true)), CommonKey::StepForward);
}

} // namespace
