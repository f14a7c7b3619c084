#include "tests/e2e/support/heard_sound.h"

#include "tests/e2e/support/wait.h"

#include <algorithm>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

constexpr int kRate = 48000;

HeardSound::HeardSound(const Desktop& desktop)
{
    m_recorder.setProcessEnvironment(desktop.environment());
    m_recorder.start(u"parec"_s, {u"--device="_s + Desktop::soundMonitor(), u"--format=float32le"_s,
                                  u"--rate="_s + QString::number(kRate), u"--channels=1"_s,
                                  u"--latency-msec=20"_s});
}

bool HeardSound::begins()
{
    return waitFor([&] {
        m_heard += m_recorder.readAllStandardOutput();
        return !m_heard.isEmpty();
    });
}

std::vector<double> HeardSound::lengths(double longestSilence)
{
    constexpr float kSilence = 0.001F;
    constexpr std::size_t kOver = kRate / 5;
    m_heard += m_recorder.readAllStandardOutput();
    std::vector<float> samples(static_cast<std::size_t>(m_heard.size()) / sizeof(float));
    std::memcpy(samples.data(), m_heard.constData(), samples.size() * sizeof(float));
    const auto most = static_cast<std::size_t>(std::lround(longestSilence * kRate));
    std::vector<double> lengths;
    std::size_t first = 0;
    std::size_t last = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const bool isHeard = std::abs(samples[i]) > kSilence;
        if (first > 0 && ((isHeard && i - last > most) || i - last > kOver)) {
            lengths.push_back(double(last - first + 1) / kRate);
            first = 0;
        }
        if (isHeard) {
            first = first == 0 ? i : first;
            last = i;
        }
    }
    return lengths;
}

} // namespace orvanta::e2e
