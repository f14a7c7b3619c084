#include "playback/practice_controls.h"

#include "playback/practice_texts.h"

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kNormal = 100;       // percent
constexpr int kAsLongAsLine = 100; // percent

PracticeControls::PracticeControls(EngineContext& context,
                                   std::function<void(const std::function<void()>&)> enter)
    : m_context(context),
      m_enter(std::move(enter)),
      m_step(context, reports())
{}

PracticeReports PracticeControls::reports()
{
    return {.again =
                [this](int round) {
                    Q_EMIT againBegan(round);
                    Q_EMIT said(orvanta::roundText(round, values().times, language()));
                },
            .waitBegan = [this](auto seconds) { Q_EMIT waitBegan(seconds.value_or(0)); },
            .waitOver = [this] { Q_EMIT waitOver(); },
            .waitRanOut = [this] { goOn(); }};
}

void PracticeControls::set(const Practice& practice)
{
    const Practice before = values();
    if (!before.isEndless()) {
        m_timesBefore = before.times;
    }
    m_context.module.settings().setPractice(practice);
    m_enter([this] { m_step.settingsChanged(); });
    Q_EMIT changed();
    if (const QString text = changesFrom(before, values()); !text.isEmpty()) {
        Q_EMIT said(text);
    }
}

TextLanguage PracticeControls::language() const
{
    return textLanguage(m_context.module.Language.value(), TextLanguage::Russian);
}

QString PracticeControls::changesFrom(const Practice& before, const Practice& now) const
{
    QStringList texts;
    if (now.speed != before.speed) {
        texts += speedText(now.speed);
    }
    if (now.times != before.times) {
        texts += interfaceText(u"Practice", u"said.times", language())
                     .arg(timesText(now.times, language()));
    }
    if (now.wait != before.wait) {
        texts += interfaceText(u"Practice", u"said.wait", language())
                     .arg(waitText(now.wait, now.seconds, language()));
    }
    return texts.join(u", "_s);
}

void PracticeControls::change(int Practice::*value, int to)
{
    Practice practice = values();
    practice.*value = to;
    set(practice);
}

void PracticeControls::slower()
{
    change(&Practice::speed, slowerThan(values().speed));
}

void PracticeControls::faster()
{
    change(&Practice::speed, fasterThan(values().speed));
}

void PracticeControls::normalSpeed()
{
    change(&Practice::speed, kNormal);
}

void PracticeControls::toggleRepeat()
{
    change(&Practice::times, values().isEndless() ? m_timesBefore : Practice::kEndless);
}

void PracticeControls::nextWait()
{
    const int wait = values().wait;
    const int next = wait == Practice::kNoWait       ? Practice::kWaitForKey
                     : wait == Practice::kWaitForKey ? kAsLongAsLine
                                                     : Practice::kNoWait;
    change(&Practice::wait, next);
}

QString PracticeControls::roundText() const
{
    const int times = values().times;
    const int round =
        times == Practice::kEndless ? m_step.round() : std::min(m_step.round(), times);
    return times == 1 ? QString() : orvanta::roundText(round, times, language());
}

void PracticeControls::goOn()
{
    m_enter([this] { m_step.goOn(); });
}

/// Play, in whatever way it is asked for, ends a wait. A turn later: the one who asked is still at
/// work.
void PracticeControls::playerIs(MediaControl::State state)
{
    if (!isWaiting() || state == MediaControl::Paused) {
        return;
    }
    if (state == MediaControl::Running) {
        QTimer::singleShot(0, this, [this] { goOn(); });
    } else {
        m_step.giveUp();
    }
}

} // namespace orvanta
