// The bookkeeping shared by every run: the counter of candidates walked, the progress steps,
// the stop flag and the limit of the store.
#pragma once

#include "core/Engine.h"
#include "core/engine/Mask.h"

#include <algorithm>

namespace dv::engine {

// How a run maps its counter to the progress window.
enum class Scale {
    Development,  // 250 steps, bar = step * 0.4 rounded
    Redevelopment // 100 steps, bar = step as a byte
};

// Follows the counter of a run. The caller reports candidates in walk order: rejected ones,
// singly or as whole ranges, and kept ones singly. At every candidate where the step value
// changes, progress() goes to the observer with the counter of exactly that candidate, even
// inside a range of rejected candidates. A stop asked in progress() ends the run at that
// candidate; the flag is also polled every PollInterval candidates, so that a stop set from
// another thread is seen between steps.
class RunProgress {
public:
    static constexpr Count PollInterval = 256;

    RunProgress(double total, Scale scale, RunControl& ctl, EngineObserver& obs);

    // Accounts for n rejected candidates. False when the run has to end.
    bool reject(Count n) {
        m_walked += n;
        return m_walked < m_nextEvent || onEvent();
    }
    // Accounts for one kept candidate (the store already holds it). False when the run has to
    // end: a stop was asked, or the limit of the store is reached.
    bool keep() { return keepRun(1); }

    // How many candidates can be kept in a row by keepRun(): up to the next step boundary or
    // the limit of the store, whichever comes first (at least 1).
    Count runRoom() const {
        const Count toBoundary = m_nextBoundary - m_walked;
        const auto toLimit = static_cast<Count>(MaxColonne - m_kept);
        return toBoundary < toLimit ? toBoundary : toLimit;
    }
    // Accounts for n kept candidates in a row, 1 <= n <= runRoom(), whose columns the store
    // already holds: the last of them may show a step, stop the run or reach the limit, as
    // keep() would for it. The flag is polled at most once, at the end of the run. False when
    // the run has to end.
    bool keepRun(int32_t n) {
        assert(n >= 1 && static_cast<Count>(n) <= runRoom());
        m_walked += static_cast<Count>(n);
        m_kept += n;
        const bool goOn = m_walked < m_nextEvent || onEvent();
        // The limit is reported even when the same candidate's step asked for a stop.
        if (m_kept >= MaxColonne) return limit();
        return goOn;
    }

    // While the run waits for work on other threads: publishes the counts and waits during a
    // pause. A stop asked during the pause ends the run here, at the counts the pause showed:
    // false then.
    bool waiting();
    // Ends the run at the candidate reached: a stop seen by the threads that walk for it.
    void stopHere() {
        m_end = m_walked;
        m_stopped = true;
    }

    // n more candidates, `keeps` of them kept, would show no step, look at no flag and reach no
    // limit: advance() may then account for them at once, their columns already stored.
    bool quiet(Count n, int32_t keeps) const {
        return m_walked + n < m_nextEvent && m_kept + keeps < MaxColonne;
    }
    void advance(Count n, int32_t keeps) {
        assert(quiet(n, keeps));
        m_walked += n;
        m_kept += keeps;
    }

    int32_t kept() const { return m_kept; }
    const RunControl& control() const { return m_ctl; }
    bool stopped() const { return m_stopped; }
    // The counter the window shows last: the candidate where the run ended.
    double counter() const { return static_cast<double>(m_stopped ? m_end : m_walked); }
    // Publishes the counts where the run ended, for a window that polls them.
    void publishFinal() const { publish(counter()); }

private:
    void publish(double counter) const;
    bool onEvent();
    bool limit();
    int stepOf(Count c) const;
    int barOf(int step) const;
    Count boundaryAfter(Count c, int step) const;
    ProgressInfo info(Count c) const;

    double m_total;
    double m_stepSize;
    Scale m_scale;
    RunControl& m_ctl;
    EngineObserver& m_obs;
    Count m_walked = 0;
    Count m_nextBoundary = 1; // the first candidate always shows a step
    Count m_nextPoll = PollInterval;
    Count m_nextEvent = 1;
    Count m_end = 0;
    int m_lastStep = -1;
    int32_t m_kept = 0;
    bool m_stopped = false;
};

} // namespace dv::engine
