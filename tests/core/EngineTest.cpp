// The program's engine where the literal one cannot follow: runs too long to walk one by one.
#include "core/Engine.h"

#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

using namespace dv;

namespace {
struct Steps : EngineObserver {
    std::vector<ProgressInfo> seen;
    void progress(const ProgressInfo& info) override { seen.push_back(info); }
};
} // namespace

TEST(Engine, SkipsAWalkBeyondSixtyFourBitsAndStillShowsEveryStep) {
    Corpo c;
    c.LenColonna = 25;
    test::SetForecast(c, test::Range(1, 90));
    c.condizioni.CondFisse = Vero;
    c.condizioni.TabFisse[7] = 1;
    c.condizioni.NumFisse = 255; // nothing can pass
    Steps steps;
    RunControl ctl;
    const RunResult r = SviluppaIntegrale(c, 90, c.pronostico.Numeri.data(), ctl, steps, "D");
    const double total = ColonneIntegrali(90, 25); // about 1.16e22
    EXPECT_EQ(r.kept, 0);
    EXPECT_FALSE(r.stopped);
    EXPECT_NEAR(r.counter / total, 1.0, 1e-12);
    ASSERT_EQ(steps.seen.size(), 251u) << "steps 0 to 250, each once";
    for (size_t i = 0; i < steps.seen.size(); ++i)
        EXPECT_EQ(steps.seen[i].step, static_cast<int>(i));
    EXPECT_EQ(steps.seen.front().counter, 1.0);
    EXPECT_EQ(steps.seen.back().bar, 100);
}

TEST(Engine, StopSetFromAnotherThreadEndsALongRunPromptly) {
    Corpo c;
    c.LenColonna = 10;
    test::SetForecast(c, test::Range(1, 60)); // 75 billion candidates
    // In descending order a distance condition that no column passes is seen only on whole
    // candidates.
    std::reverse(c.pronostico.Numeri.begin(), c.pronostico.Numeri.begin() + 60);
    CondizioneDistanza d;
    d.NumPosizioni = 1;
    d.Posizioni[1] = 1;
    d.NumDistanzeMin = 1;
    d.Stato = Vero;
    c.CondizioniDistanza.append(d);
    Steps steps;
    RunControl ctl;
    std::thread stopper([&ctl] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        ctl.StopElaborazione = true;
    });
    const auto start = std::chrono::steady_clock::now();
    const RunResult r = SviluppaIntegrale(c, 60, c.pronostico.Numeri.data(), ctl, steps, "D");
    const auto took = std::chrono::steady_clock::now() - start;
    stopper.join();
    EXPECT_TRUE(r.stopped);
    EXPECT_EQ(r.kept, 0);
    EXPECT_GT(r.counter, 0.0);
    EXPECT_LT(r.counter, ColonneIntegrali(60, 10));
    EXPECT_EQ(c.pronostico.Descrizione, "D - ***");
    EXPECT_LT(took, std::chrono::seconds(5));
}

TEST(Engine, StopAskedDuringAPauseEndsAtThePausedCountsWithTheColumnsOfTheWalk) {
    Corpo full;
    full.LenColonna = 6;
    test::SetForecast(full, test::Range(1, 40)); // 3,838,380 candidates, a third kept
    full.condizioni.CondPari = Vero;
    full.condizioni.TabPari[3] = Vero;
    Corpo c = full;
    Steps quiet;
    RunControl whole;
    whole.threads = 1;
    const RunResult all = SviluppaIntegrale(full, 40, full.pronostico.Numeri.data(), whole, quiet, "D");
    for (int threads : {1, 2}) {
        RunControl ctl;
        ctl.threads = threads;
        ctl.parallelFrom = 0;
        ctl.pauseRequested = true; // served at the run's first look at the flags
        double counter = -1;
        int32_t kept = -1;
        std::thread user([&] {
            while (!ctl.paused)
                std::this_thread::yield();
            counter = ctl.counter;
            kept = ctl.kept;
            ctl.StopElaborazione = true;
            ctl.resume();
        });
        const RunResult r = SviluppaIntegrale(c, 40, c.pronostico.Numeri.data(), ctl, quiet, "D");
        user.join();
        EXPECT_TRUE(r.stopped) << threads;
        EXPECT_EQ(r.counter, counter) << threads;
        EXPECT_EQ(r.kept, kept) << threads;
        ASSERT_LT(r.kept, all.kept);
        for (int32_t j = 1; j <= r.kept; ++j)
            for (int p = 1; p <= 6; ++p)
                ASSERT_EQ(c.Colonne.get(j, p), full.Colonne.get(j, p)) << "column " << j << ", " << threads;
    }
}
