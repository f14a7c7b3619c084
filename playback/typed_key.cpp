#include "playback/typed_key.h"

#include "playback/keyboard.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace orvanta {

namespace {

constexpr std::array kCommonKeys{
    CommonKeyRow{Qt::Key_Space, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_Left, Qt::NoModifier, CommonKey::StepBack},
    CommonKeyRow{Qt::Key_Right, Qt::NoModifier, CommonKey::StepForward},
    CommonKeyRow{Qt::Key_F11, Qt::NoModifier, CommonKey::ToggleFullScreen},
    CommonKeyRow{Qt::Key_Escape, Qt::NoModifier, CommonKey::LeaveFullScreen},
    CommonKeyRow{Qt::Key_O, Qt::ControlModifier, CommonKey::OpenFile},
    CommonKeyRow{Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier, CommonKey::OpenClips},
    CommonKeyRow{Qt::Key_F, Qt::ControlModifier, CommonKey::Find},
    CommonKeyRow{Qt::Key_Q, Qt::ControlModifier, CommonKey::Quit},
    // Where no desktop takes them for its own player controls.
    CommonKeyRow{Qt::Key_MediaPlay, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_MediaTogglePlayPause, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_MediaPause, Qt::NoModifier, CommonKey::TogglePlay},
    CommonKeyRow{Qt::Key_MediaStop, Qt::NoModifier, CommonKey::Stop},
    CommonKeyRow{Qt::Key_MediaNext, Qt::NoModifier, CommonKey::NextClip},
    CommonKeyRow{Qt::Key_MediaPrevious, Qt::NoModifier, CommonKey::PreviousClip},
};

constexpr Qt::KeyboardModifiers kCommandModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isToggle(CommonKey key)
{
    return key == CommonKey::TogglePlay || key == CommonKey::ToggleFullScreen;
}

/// The key on a Latin keyboard. Key values of letters are their upper-case code points.
int latinKey(const QKeyEvent& event)
{
    constexpr int kLastOfBasicPlane = 0xffff;
    if (event.key() > kLastOfBasicPlane) {
        return event.key();
    }
    return latinLetter(QChar(event.key()), event.nativeScanCode()).toUpper().unicode();
}

} // namespace

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
