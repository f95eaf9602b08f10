// dorvanta-bench: each workload developed by the literal and by the fast engine. Prints the
// times, their ratio and a signature of each result (columns kept, checksum of the columns),
// and fails when the signatures differ. DV_BENCH_FULL=1 also runs the literal engine where it
// is skipped by default.
#include "bench/Save.h"
#include "bench/Workloads.h"
#include "core/Engine.h"
#include "tests/reference/LiteralEngine.h"

#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

using namespace dv;

namespace {

struct Measure {
    double seconds = 0; // processor time of the best iteration
    double wall = 0;    // its elapsed time
    int32_t kept = 0;
    double counter = 0;
    uint64_t checksum = 0;
    bool ran = false;
};

// The literal engine; ours on one thread, as the program runs it; ours on the threads it
// chooses when asked to (elapsed time, on a machine whose other cores may be busy).
std::map<std::string, Measure> g_literal, g_fast, g_threads;

enum class Engine { Literal, Fast, Threads };

// FNV-1a over the stored columns, position by position.
uint64_t Checksum(const Corpo& c) {
    uint64_t h = 1469598103934665603ull;
    for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j)
        for (int p = 1; p <= c.LenColonna; ++p)
            h = (h ^ c.Colonne.get(j, p)) * 1099511628211ull;
    return h;
}

// Processor time of this process, every thread: on a shared machine, elapsed time depends on
// the neighbours.
double ProcessSeconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

Corpo& Shared() {
    static Corpo c; // one store for every run: 100 MB of address space
    return c;
}

void Develop(benchmark::State& state, const bench::Workload* w, Engine engine) {
    Corpo& c = Shared();
    const bool literal = engine == Engine::Literal;
    Measure& m = (literal ? g_literal : engine == Engine::Fast ? g_fast : g_threads)[w->name];
    EngineObserver quiet;
    RunControl ctl;
    ctl.threads = engine == Engine::Fast ? 1 : 0;
    for (auto _ : state) {
        state.PauseTiming();
        Corpo fresh; // a new state around the same store
        w->build(fresh);
        fresh.Colonne = std::move(c.Colonne);
        c = std::move(fresh);
        // Both engines start from an erased store whose pages are already mapped, so that
        // neither pays for the other's erase or for the first touch of the memory.
        if (!m.ran) {
            SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl, quiet, "");
            w->build(c);
        }
        c.Colonne.erase();
        state.ResumeTiming();
        const auto t0 = std::chrono::steady_clock::now();
        const double cpu0 = ProcessSeconds();
        const RunResult r =
            literal ? reference::SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl,
                                                   quiet, "")
                    : SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl, quiet, "");
        const double s = ProcessSeconds() - cpu0;
        const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        state.PauseTiming();
        // The best of each: processor and elapsed time move apart with the load.
        if (!m.ran || s < m.seconds) m.seconds = s;
        if (!m.ran || wall < m.wall) m.wall = wall;
        m.kept = r.kept;
        m.counter = r.counter;
        m.checksum = Checksum(c);
        m.ran = true;
        state.ResumeTiming();
    }
    state.counters["kept"] = m.kept;
}

// The ratios of the mixed states against their targets, each at least 10x and the median 30x,
// for the engine as the program runs it (one thread), in processor and in elapsed time. The
// engine's own threads, which only `dorvanta-cli develop --threads` turns on, are shown for
// information.
enum class Clock { Processor, Elapsed, ElapsedOnThreads };

bool MixedTargetsMet(Clock clock) {
    std::vector<double> ratios;
    for (const bench::Workload& w : bench::MixedWorkloads()) {
        const Measure& l = g_literal[w.name];
        const Measure& f = (clock == Clock::ElapsedOnThreads ? g_threads : g_fast)[w.name];
        if (l.ran && f.ran)
            ratios.push_back(clock == Clock::Processor ? l.seconds / f.seconds : l.wall / f.wall);
    }
    if (ratios.empty()) return true;
    std::sort(ratios.begin(), ratios.end());
    const size_t n = ratios.size();
    const double median = n % 2 ? ratios[n / 2] : (ratios[n / 2 - 1] + ratios[n / 2]) / 2;
    const bool met = ratios.front() >= 10 && median >= 30;
    const char* what =
        clock == Clock::Processor ? "processor time, engine on one thread as the program runs it"
        : clock == Clock::Elapsed ? "elapsed time, engine on one thread as the program runs it"
                                  : "elapsed time, engine on its own threads (off unless asked)";
    std::printf("mixed states, %s: least ratio %.1fx, median %.1fx", what, ratios.front(), median);
    if (clock == Clock::ElapsedOnThreads)
        std::printf(" (for information)\n");
    else
        std::printf(" (targets 10x and 30x): %s\n", met ? "met" : "NOT MET");
    return met;
}

} // namespace

int main(int argc, char** argv) {
    const bool full = std::getenv("DV_BENCH_FULL") != nullptr;
    std::vector<const bench::Workload*> all;
    for (const bench::Workload& w : bench::Workloads())
        all.push_back(&w);
    for (const bench::Workload& w : bench::MixedWorkloads())
        all.push_back(&w);
    for (const bench::Workload* w : all) {
        if (!w->literalOptional || full)
            benchmark::RegisterBenchmark(("literal/" + w->name).c_str(), Develop, w, Engine::Literal)
                ->Iterations(1)
                ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("fast/" + w->name).c_str(), Develop, w, Engine::Fast)
            ->Iterations(w->literalOptional ? 1 : 3)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("threads/" + w->name).c_str(), Develop, w, Engine::Threads)
            ->Iterations(w->literalOptional ? 1 : 3)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    bool differ = false;
    std::printf("\nbest processor seconds (best elapsed seconds in brackets); 'threads': the engine on "
                "the threads it chooses, elapsed\n");
    std::printf("%-22s %20s %20s %8s %9s %8s   %-28s %s\n", "workload", "literal", "fast", "ratio", "threads",
                "ratio", "literal kept / checksum", "fast kept / checksum");
    for (const bench::Workload* w : all) {
        const Measure& f = g_fast[w->name];
        const Measure& t = g_threads[w->name];
        if (!f.ran) continue;
        const Measure& l = g_literal[w->name];
        char lit[64] = "(not run)", fast[64], ratio[32] = "-", threads[32] = "-", wallRatio[32] = "-",
             litSig[64] = "(not run)";
        std::snprintf(fast, sizeof fast, "%.4f (%.4f)", f.seconds, f.wall);
        if (t.ran) std::snprintf(threads, sizeof threads, "%.4f", t.wall);
        if (l.ran) {
            std::snprintf(lit, sizeof lit, "%.4f (%.4f)", l.seconds, l.wall);
            std::snprintf(ratio, sizeof ratio, "%.1fx", l.seconds / f.seconds);
            if (t.ran) std::snprintf(wallRatio, sizeof wallRatio, "%.1fx", l.wall / t.wall);
            std::snprintf(litSig, sizeof litSig, "%d / %016" PRIx64, l.kept, l.checksum);
        }
        std::printf("%-22s %20s %20s %8s %9s %8s   %-28s %d / %016" PRIx64 "\n", w->name.c_str(), lit, fast,
                    ratio, threads, wallRatio, litSig, f.kept, f.checksum);
        for (const Measure* m : {&f, &t})
            if (l.ran && m->ran &&
                (l.kept != m->kept || l.checksum != m->checksum || l.counter != m->counter)) {
                std::printf("!!! %s: the fast engine's result differs from the literal one\n",
                            w->name.c_str());
                differ = true;
            }
    }
    MixedTargetsMet(Clock::Processor);
    MixedTargetsMet(Clock::Elapsed);
    MixedTargetsMet(Clock::ElapsedOnThreads);
    // The minimum distance reduction of 1..30 in columns of 10 at distance 4.
    if (const Measure& l = g_literal["4 distance 4 30/10"], &f = g_fast["4 distance 4 30/10"]; l.ran && f.ran)
        std::printf("minimum distance 4 of 1..30 in columns of 10: %.0fx (target 400x): %s\n",
                    l.seconds / f.seconds, l.seconds / f.seconds >= 400 ? "met" : "NOT MET");
    if (!bench::MeasureSave(Shared())) differ = true;
    struct rusage ru {};
    getrusage(RUSAGE_SELF, &ru);
    std::printf("peak resident memory of this process: %ld MB\n", ru.ru_maxrss / 1024);
    return differ ? 1 : 0;
}
