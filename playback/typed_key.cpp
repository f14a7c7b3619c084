#include "playback/typed_key.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <string_view>

namespace orvanta {

constexpr std::array kCommonKeys{
    CommonKeyRow{Qt::Key_Space, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_Left, Qt::NoModifier, CommonKey::StepBack},
    CommonKeyRow{Qt::Key_Right, Qt::NoModifier, CommonKey::StepForward},
    CommonKeyRow{Qt::Key_F11, Qt::NoModifier, CommonKey::ToggleFullScreen},
    CommonKeyRow{Qt::Key_Escape, Qt::NoModifier, CommonKey::LeaveFullScreen},
    CommonKeyRow{Qt::Key_F5, Qt::NoModifier, CommonKey::NextTextLevel},
    CommonKeyRow{Qt::Key_O, Qt::ControlModifier, CommonKey::OpenFile},
    CommonKeyRow{Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier, CommonKey::OpenClips},
    CommonKeyRow{Qt::Key_F, Qt::ControlModifier, CommonKey::Find},
    CommonKeyRow{Qt::Key_F3, Qt::NoModifier, CommonKey::FindAgain},
    CommonKeyRow{Qt::Key_F1, Qt::NoModifier, CommonKey::Help},
    CommonKeyRow{Qt::Key_Q, Qt::ControlModifier, CommonKey::Quit},
    // Where no desktop takes them for its own player controls.
    CommonKeyRow{Qt::Key_MediaPlay, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_MediaTogglePlayPause, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_MediaPause, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_MediaStop, Qt::NoModifier, CommonKey::Stop},
    CommonKeyRow{Qt::Key_MediaNext, Qt::NoModifier, CommonKey::NextClip},
    CommonKeyRow{Qt::Key_MediaPrevious, Qt::NoModifier, CommonKey::PreviousClip},
};

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

static bool isToggle(CommonKey key)
{
    return key == CommonKey::TogglePlay || key == CommonKey::ToggleFullScreen ||
           key == CommonKey::Help || key == CommonKey::NextTextLevel;
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

std::span<const CommonKeyRow> commonKeys()
{
    return kCommonKeys;
}

std::optional<CommonKey> commonKey(const QKeyEvent& event)
{
    const int key = latinKey(event);
    // The arrows of a number pad are arrows.
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto row = std::ranges::find_if(kCommonKeys, [&](const CommonKeyRow& candidate) {
        return candidate.key == key && candidate.modifiers == modifiers;
    });
    if (row == kCommonKeys.end() || (event.isAutoRepeat() && isToggle(row->what))) {
        return std::nullopt;
    }
    return row->what;
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
