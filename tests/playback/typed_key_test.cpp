// From key events to keys, under any layout.
#include "playback/typed_key.h"

#include <QKeyEvent>

#include <array>
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

TEST(TypedKey, EveryNamedKeyIsReadAtItsPlaceAndNowhereElse)
{
    constexpr std::array kPlaces{KeyPlace::Windows, KeyPlace::List, KeyPlace::FindBox};
    for (const CommandRow& row : commands()) {
        for (const NamedKey& key : row.namedKeys()) {
            for (const KeyPlace place : kPlaces) {
                const auto read = namedCommand(press(key.key, key.modifiers, 0, {}), place);
                EXPECT_EQ(read == row.command, place == key.place)
                    << qPrintable(row.name.toString());
            }
        }
    }
}

TEST(TypedKey, NoKeyIsThereTwiceAtOnePlace)
{
    for (const CommandRow& row : commands()) {
        for (const NamedKey& key : row.namedKeys()) {
            EXPECT_EQ(namedCommand(press(key.key, key.modifiers, 0, {}), key.place), row.command);
        }
        EXPECT_TRUE(row.letter == 0 || mainWindowLetter(row.letter) == row.command);
        EXPECT_EQ(&rowOf(row.command), &row);
    }
}

TEST(TypedKey, CommandsAreReadUnderARussianLayout)
{
    constexpr int kScanCodeOfO = 32;
    const QKeyEvent event = press(0x429, Qt::ControlModifier, kScanCodeOfO, u"щ"_s);
    EXPECT_EQ(namedCommand(event), Command::OpenFile);
}

TEST(TypedKey, OtherModifiersMakeItAnotherKey)
{
    EXPECT_FALSE(namedCommand(press(Qt::Key_Left, Qt::AltModifier, 0, {})).has_value());
    EXPECT_FALSE(namedCommand(press(Qt::Key_O, Qt::NoModifier, 32, u"o"_s)).has_value());
    EXPECT_EQ(namedCommand(press(Qt::Key_Left, Qt::KeypadModifier, 0, {})), Command::StepBack);
}

TEST(TypedKey, AToggleThatIsHeldDownCountsOnce)
{
    EXPECT_FALSE(namedCommand(press(Qt::Key_Space, {}, 65, u" "_s, true)).has_value());
    EXPECT_FALSE(namedCommand(press(Qt::Key_F11, {}, 95, {}, true)).has_value());
    EXPECT_EQ(namedCommand(press(Qt::Key_Right, {}, 114, {}, true)), Command::StepForward);
}

} // namespace
