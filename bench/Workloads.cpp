#include "bench/Workloads.h"

#include "core/Engine.h"
#include "tests/support/MixedConditions.h"
#include "tests/support/StateBuilder.h"

#include <cstdio>
#include <random>

namespace dv::bench {

namespace {

void Forecast(Corpo& c, int from, int to, int len) {
    c.LenColonna = static_cast<int16_t>(len);
    c.pronostico.Numeri.fill(0);
    uint8_t k = 0;
    for (int v = from; v <= to; ++v)
        c.pronostico.Numeri[k++] = static_cast<uint8_t>(v);
    c.pronostico.Quanti = k;
    c.pronostico.NumColonne = 0;
}

// count records of 5 distinct numbers of 1..25, drawn with a fixed seed, each allowing the hit
// counts of presenze.
void Filters(TabellaFiltri& t, int count, int32_t presenze, uint64_t seed) {
    std::mt19937_64 rng(seed);
    t.clear();
    for (int i = 0; i < count; ++i) {
        ColonnaFiltro f;
        for (int k = 0; k < 5;) {
            const auto v = static_cast<size_t>(1 + rng() % 25);
            if (f.Numeri[v] == 0) {
                f.Numeri[v] = 1;
                ++k;
            }
        }
        f.Presenze = presenze;
        f.Stato = Vero;
        t.append(f);
    }
}

constexpr int32_t Hits(int from, int to) {
    return (int32_t{2} << to) - (int32_t{1} << from);
}

// The forecast 1..25 in columns of 6, and one filter table.
template <TabellaFiltri Corpo::*Table, int Records, int32_t Presenze, uint64_t Seed>
void FilterWorkload(Corpo& c) {
    Forecast(c, 1, 25, 6);
    Filters(c.*Table, Records, Presenze, Seed);
}

} // namespace

const std::vector<Workload>& Workloads() {
    static const std::vector<Workload> all = {
        {"1 integral 30/6", [](Corpo& c) { Forecast(c, 1, 30, 6); }},
        {"2 conditions 35/10",
         [](Corpo& c) {
             Forecast(c, 1, 35, 10);
             Condizioni& k = c.condizioni;
             k.CondSomma = Vero;
             k.SommaMinMax = {160, 200};
             k.CondPari = Vero;
             for (int e = 4; e <= 6; ++e)
                 k.TabPari[static_cast<size_t>(e)] = Vero;
             k.CondFisse = Vero;
             k.TabFisse[3] = k.TabFisse[18] = 1;
             k.NumFisse = 2;
             c.consecutivi = Consecutivi{Hits(1, 2), Vero};
         }},
        {"3 guarantee N-2 40/6",
         [](Corpo& c) {
             Forecast(c, 1, 40, 6);
             c.condizioni.CondRidotto = Vero;
             c.condizioni.ValRidotto = 2;
         }},
        {"4 distance 4 30/10",
         [](Corpo& c) {
             Forecast(c, 1, 30, 10);
             c.distanzaMinima = DistanzaMinima{4, Vero};
         }},
        {"5 limit 40/7", [](Corpo& c) { Forecast(c, 1, 40, 7); }},
        {"6 AND 2000 25/6", FilterWorkload<&Corpo::FiltriAND, 2000, Hits(0, 4), 6>},
        {"7 OR 20000 25/6", FilterWorkload<&Corpo::FiltriOR, 20000, Hits(5, 5), 7>},
        {"8 XOR 2000 25/6", FilterWorkload<&Corpo::FiltriXOR, 2000, Hits(4, 5), 8>},
        {"9 AND 150000 25/6", FilterWorkload<&Corpo::FiltriAND, MaxFiltri, Hits(0, 4), 9>, true},
    };
    return all;
}

} // namespace dv::bench

namespace dv::bench {

namespace {

// Stops a run once it has kept too many columns.
struct TooMany : EngineObserver {
    RunControl* ctl = nullptr;
    void progress(const ProgressInfo& info) override {
        if (info.kept >= MaxKept) ctl->StopElaborazione = true;
    }
    static constexpr int32_t MaxKept = 1'000'000;
};

// One mixed state for seed: the length and the forecast size give 10 to 60 million
// candidates; states whose development keeps no column or a million are drawn again.
Corpo Mixed(uint64_t seed, Corpo& scratch) {
    std::mt19937_64 rng(seed);
    test::MixedConditions mix(rng);
    for (;;) {
        const int len = mix.uniform(6, 12);
        std::vector<int> sizes;
        for (int n = 26; n <= 60; ++n)
            if (const double total = ColonneIntegrali(n, len); total >= 10e6 && total <= 60e6)
                sizes.push_back(n);
        const int n = sizes[static_cast<size_t>(mix.uniform(0, static_cast<int>(sizes.size()) - 1))];
        Corpo c;
        c.LenColonna = static_cast<int16_t>(len);
        test::SetForecast(c, mix.forecast(n));
        mix.draw(c);
        Corpo& s = scratch;
        s.Colonne.erase();
        Corpo trial = c;
        trial.Colonne = std::move(s.Colonne);
        TooMany obs;
        RunControl ctl;
        obs.ctl = &ctl;
        const RunResult r = SviluppaIntegrale(trial, n, trial.pronostico.Numeri.data(), ctl, obs, "");
        s.Colonne = std::move(trial.Colonne);
        if (!r.stopped && r.kept > 0) return c;
    }
}

} // namespace

const std::vector<Workload>& MixedWorkloads() {
    static const std::vector<Workload> all = [] {
        std::vector<Workload> out;
        Corpo scratch;
        for (int i = 1; i <= 20; ++i) {
            auto state = std::make_shared<const Corpo>(Mixed(static_cast<uint64_t>(1000 + i), scratch));
            char name[32];
            std::snprintf(name, sizeof name, "mixed %02d %d/%d", i, int{state->pronostico.Quanti},
                          int{state->LenColonna});
            out.push_back({name, [state](Corpo& c) { c = *state; }});
        }
        return out;
    }();
    return all;
}

} // namespace dv::bench
