#include "core/engine/Progress.h"

#include <cmath>

namespace dv::engine {

RunProgress::RunProgress(double total, Scale scale, RunControl& ctl, EngineObserver& obs)
    : m_total(total), m_stepSize(total / (scale == Scale::Development ? 250.0 : 100.0)), m_scale(scale),
      m_ctl(ctl), m_obs(obs) {
    ctl.resetCounts();
}

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

// The first candidate after c whose step differs from step (no candidate: the largest Count).
// The step never falls as the counter grows, so the boundary is bracketed from an estimate,
// widening by doubling, then found by halving. Beyond 2^53 the counter as a float is no longer
// exact; the search stays exact for the float the window would show.
Count RunProgress::boundaryAfter(Count c, int step) const {
    const double estimate = std::floor((step + 0.5) * m_stepSize);
    Count lo = c;
    Count hi = estimate > static_cast<double>(c) ? static_cast<Count>(estimate) : c + 1;
    for (Count widen = 1; stepOf(hi) == step; widen *= 2) {
        if (widen > (Count{1} << 120)) return ~Count{0};
        lo = hi;
        hi += widen;
    }
    while (hi - lo > 1) {
        const Count mid = lo + (hi - lo) / 2;
        (stepOf(mid) == step ? lo : hi) = mid;
    }
    return hi;
}

void RunProgress::publish(double counter) const {
    m_ctl.counter.store(counter, std::memory_order_relaxed);
    m_ctl.kept.store(m_kept, std::memory_order_relaxed);
    const int step =
        m_stepSize > 0 ? static_cast<int>(std::nearbyint(std::min(counter / m_stepSize, 250.0))) : 0;
    m_ctl.bar.store(barOf(step), std::memory_order_relaxed);
}

bool RunProgress::onEvent() {
    // 0. The live counts, for a window polling them.
    publish(static_cast<double>(m_walked));
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
    // 2. The periodic look at the flags, for a pause or a stop asked from another thread.
    if (m_walked >= m_nextPoll) {
        m_nextPoll = m_walked + PollInterval;
        if (m_ctl.pauseRequested.load(std::memory_order_relaxed)) m_ctl.waitWhilePaused();
        if (m_ctl.StopElaborazione) {
            m_end = m_walked;
            m_stopped = true;
            return false;
        }
    }
    m_nextEvent = std::min(m_nextBoundary, m_nextPoll);
    return true;
}

bool RunProgress::waiting() {
    publish(static_cast<double>(m_walked));
    if (!m_ctl.pauseRequested.load(std::memory_order_relaxed)) return true;
    m_ctl.waitWhilePaused();
    if (!m_ctl.StopElaborazione) return true;
    stopHere();
    return false;
}

bool RunProgress::limit() {
    m_obs.limitReached(info(m_walked));
    m_end = m_walked;
    m_stopped = true;
    return false;
}

} // namespace dv::engine
