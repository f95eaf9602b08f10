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
