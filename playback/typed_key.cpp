#include "playback/typed_key.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <string_view>

namespace orvanta {

namespace {

/// Letters that lie side by side on a Latin keyboard, with the scan code of the first.
struct LetterRow
{
    quint32 firstCode;
    std::u16string_view letters;
};

constexpr std::array kLetterRows{LetterRow{24, u"qwertyuiop"}, LetterRow{38, u"asdfghjkl"},
                                 LetterRow{52, u"zxcvbnm"}};

constexpr Qt::KeyboardModifiers kCommandModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

} // namespace

/// Repeated, it would undo itself, or open the same again and again.
static bool countsOnce(Command command)
{
    return command == Command::TogglePlay || command == Command::ToggleFullScreen ||
           command == Command::CheckLine || command == Command::PlayLine ||
           command == Command::Help || command == Command::NextTextLevel ||
           command == Command::RepeatLine || command == Command::NextWait ||
           command == Command::LineAgain || command == Command::EditMode ||
           command == Command::Mark || command == Command::EditText || command == Command::Save ||
           command == Command::SaveAs;
}

/// The key on a Latin keyboard. Key values of letters are their upper-case code points.
static int latinKey(const QKeyEvent& event)
{
    constexpr int kLastOfBasicPlane = 0xffff;
    if (event.key() > kLastOfBasicPlane) {
        return event.key();
    }
    return latinLetter(QChar(event.key()), event.nativeScanCode()).toUpper().unicode();
}

QChar latinLetter(QChar typed, quint32 scanCode)
{
    const auto row = std::ranges::find_if(kLetterRows, [&](const LetterRow& candidate) {
        return scanCode - candidate.firstCode < candidate.letters.size();
    });
    if (typed.unicode() < 128 || row == kLetterRows.end()) {
        return typed;
    }
    const QChar letter = row->letters[scanCode - row->firstCode];
    return typed.isUpper() ? letter.toUpper() : letter;
}

std::optional<Command> namedCommand(const QKeyEvent& event, KeyPlace place)
{
    const int key = latinKey(event);
    // The keys of a number pad are arrows and Enter as well.
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto isPressed = [&](const NamedKey& candidate) {
        return candidate.key == key && candidate.modifiers == modifiers && candidate.place == place;
    };
    const auto row = std::ranges::find_if(commands(), [&](const CommandRow& candidate) {
        return std::ranges::any_of(candidate.namedKeys(), isPressed);
    });
    if (row == commands().end() || (event.isAutoRepeat() && countsOnce(row->command))) {
        return std::nullopt;
    }
    return row->command;
}

QChar typedCharacter(const QKeyEvent& event)
{
    const QString text = event.text();
    if (text.size() != 1 || (event.modifiers() & kCommandModifiers) != 0) {
        return {};
    }
    return latinLetter(text.front(), event.nativeScanCode());
}

} // namespace orvanta
