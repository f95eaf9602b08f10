// The development engine: turns the forecast and the conditions into the stored system.
#pragma once

#include "core/Corpo.h"

#include <atomic>
#include <cstdint>
#include <string>

namespace dv {

// What the progress window shows at each step of a run.
struct ProgressInfo {
    int step = 0;       // 0..250 for a development, 0..100 for a re-development
    int bar = 0;        // value of the bar, 0..100
    double total = 0;   // colonneIntegrale
    double counter = 0; // colonneElaborate
    int32_t kept = 0;   // colonneSistema
};

// Receives a run's reports. Called on the thread that runs the engine.
class EngineObserver {
public:
    virtual ~EngineObserver() = default;
    // Once per run, before the walk: the number of candidates.
    virtual void started(double total) { (void)total; }
    // At each of the 250 (100) steps. The one place where a stop asked by the user is seen
    // at once: a stop set here ends the run at this candidate.
    virtual void progress(const ProgressInfo& info) { (void)info; }
    // The limit of 4,000,000 columns was reached: labAllarm shows "0012", then the warning.
    virtual void limitReached(const ProgressInfo& info) { (void)info; }
    // End of a development (not of a re-development): seconds elapsed since the start.
    virtual void finished(double elapsedSeconds) { (void)elapsedSeconds; }
};

// Cancellation: set from any thread; the engine clears it when a run starts. A stop set inside
// progress() ends the run at that very candidate; one set from another thread is seen at the
// next step or within 256 candidates, whichever comes first.
//
// The live counts and the pause serve a window on another thread: the run publishes its counts
// whenever it looks at the flags (at most 256 candidates apart, at every step, and at its end),
// so the window can poll them as often as it likes. While pauseRequested is set the run waits at
// its next look, with paused set, until pauseRequested is cleared (and notified).
struct RunControl {
    std::atomic<bool> StopElaborazione{false};
    std::atomic<bool> pauseRequested{false};
    std::atomic<bool> paused{false};
    std::atomic<double> counter{0}; // colonneElaborate
    std::atomic<int32_t> kept{0};   // colonneSistema
    std::atomic<int> bar{0};        // value of the bar, 0..100
    // Threads that walk a development where no reduction links the columns: 1 keeps the walk on
    // the calling thread, 0 chooses from the processor (at most 4). The columns, counters and
    // reports are the same whatever the count; the reports come on the calling thread, which
    // stores the columns. One by default: on a machine whose cores are busy with other work,
    // handing parts between threads cost more elapsed time than it saved.
    int threads = 1;
    // The least count of candidates worth more than one thread.
    double parallelFrom = 2e6;

    // The counts back to zero, before a run.
    void resetCounts() {
        counter.store(0, std::memory_order_relaxed);
        kept.store(0, std::memory_order_relaxed);
        bar.store(0, std::memory_order_relaxed);
    }
    // Called by the run: waits while a pause is asked.
    void waitWhilePaused() {
        paused.store(true);
        pauseRequested.wait(true);
        paused.store(false);
    }
    // Called by the window: the run goes on after a pause.
    void resume() {
        pauseRequested.store(false);
        pauseRequested.notify_all();
    }
};

struct RunResult {
    double counter = 0;   // candidates walked, as the progress window counts them
    int32_t kept = 0;     // columns stored
    bool stopped = false; // ended by the user or by the limit
};

// Develops the n numbers of numeri (0-based) into Colonne. Sets NumColonne and Descrizione.
// descrizione is the text DescrizioneSistema gives for the state.
RunResult SviluppaIntegrale(Corpo& c, int n, const uint8_t* numeri, RunControl& ctl, EngineObserver& obs,
                            const std::string& descrizione);
// Develops the held columns again, keeping those that still pass, in their order.
RunResult RielaboraColonne(Corpo& c, RunControl& ctl, EngineObserver& obs, const std::string& descrizione);

// The number of combinations of n taken k, in 64-bit floats.
double Fattoriale(int k);
double ColonneIntegrali(int n, int k);

} // namespace dv
