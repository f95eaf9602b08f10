#include "core/engine/Progress.h"

#include <cmath>

namespace dv::engine {

RunProgress::RunProgress(double total, Scale scale, RunControl& ctl, EngineObserver& obs)
    : m_total(total), m_stepSize(total / (scale == Scale::Development ? 250.0 : 100.0)), m_scale(scale), m_ctl(ctl),
      m_obs(obs) {}

int RunProgress::stepOf(Count c) const {
    return static_cast<int>(std::nearbyint(static_cast<double>(c) / m_stepSize));
}

int RunProgress::barOf(int step) const {
    if (m_scale == Scale::Development) return static_cast<int>(std::nearbyint(step * 0.4));
    return static_cast<uint8_t>(step);
}

ProgressInfo RunProgress::info(Count c) const {
    return ProgressInfo{m_lastStep, barOf(m_lastStep), m_total, static_cast<double>(c), m_kept};
}

// The first candidate after c whose step differs from step. The step grows with the counter,
// so the boundary is found from an estimate and a few exact checks around it.
Count RunProgress::boundaryAfter(Count c, int step) const {
    const double estimate = std::floor((step + 0.5) * m_stepSize);
    Count b = estimate > static_cast<double>(c) ? static_cast<Count>(estimate) : c + 1;
    // Beyond 2^53 the counter is no longer exact as a float; a bounded search keeps it finite.
    for (int i = 0; i < 64 && b > c + 1 && stepOf(b - 1) != step; ++i) --b;
    for (int i = 0; i < 64 && stepOf(b) == step; ++i) ++b;
    return b;
}

bool RunProgress::onEvent() {
    // 1. Every step boundary up to the counter, in order, each with the counter of its candidate.
    while (m_nextBoundary <= m_walked) {
        const Count b = m_nextBoundary;
        m_lastStep = stepOf(b);
        m_obs.progress(info(b));
        if (m_ctl.StopElaborazione) {
            m_end = b;
            m_stopped = true;
            return false;
        }
        m_nextBoundary = boundaryAfter(b, m_lastStep);
    }
    // 2. The periodic look at the flag, for a stop set from another thread.
    if (m_walked >= m_nextPoll) {
        m_nextPoll = m_walked + PollInterval;
        if (m_ctl.StopElaborazione) {
            m_end = m_walked;
            m_stopped = true;
            return false;
        }
    }
    m_nextEvent = std::min(m_nextBoundary, m_nextPoll);
    return true;
}

bool RunProgress::limit() {
    m_obs.limitReached(info(m_walked));
    m_end = m_walked;
    m_stopped = true;
    return false;
}

} // namespace dv::engine
