// The program's engine against the literal reference, on random states and on the edges: the
// same columns in the same order, the same counters, description and progress reports. A
// difference fails at once and prints the seed and the state that shows it. DV_ENGINE_SEED=<n>
// in the environment draws other random states.
#include "core/Engine.h"
#include "core/engine/Filters.h"

#include "tests/reference/LiteralEngine.h"
#include "tests/support/MixedConditions.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

using namespace dv;

namespace {

// Everything a run reports, in order.
struct Recorder : EngineObserver {
    std::ostringstream log;
    RunControl* ctl = nullptr;
    int stopAtStep = -2;
    void started(double total) override { log << "start " << total << "\n"; }
    void progress(const ProgressInfo& i) override {
        log << "step " << i.step << " bar " << i.bar << " total " << i.total << " counter " << i.counter
            << " kept " << i.kept << "\n";
        if (i.step == stopAtStep) ctl->StopElaborazione = true;
    }
    void limitReached(const ProgressInfo& i) override {
        log << "limit " << i.step << " " << i.bar << " " << i.counter << " " << i.kept << "\n";
    }
};

struct Outcome {
    std::string log;
    RunResult r;
    std::string descrizione;
    int32_t numColonne = 0;
    int16_t stop = 0;
};

enum class Run { Develop, Redevelop };

// threads: 1 walks on the calling thread; 2 splits every development, however small.
Outcome Execute(Corpo& c, Run run, bool literal, int stopAtStep, int threads = 1) {
    Recorder rec;
    RunControl ctl;
    ctl.threads = threads;
    ctl.parallelFrom = 0;
    rec.ctl = &ctl;
    rec.stopAtStep = stopAtStep;
    Outcome o;
    if (run == Run::Develop) {
        const auto* numeri = c.pronostico.Numeri.data();
        const int n = c.pronostico.Quanti;
        o.r = literal ? reference::SviluppaIntegrale(c, n, numeri, ctl, rec, "D")
                      : SviluppaIntegrale(c, n, numeri, ctl, rec, "D");
    } else {
        o.r = literal ? reference::RielaboraColonne(c, ctl, rec, "D") : RielaboraColonne(c, ctl, rec, "D");
    }
    o.log = rec.log.str();
    o.descrizione = c.pronostico.Descrizione;
    o.numColonne = c.pronostico.NumColonne;
    o.stop = c.StopElaborazione;
    return o;
}

std::string Numbers(const uint8_t* v, int n) {
    std::ostringstream s;
    for (int i = 0; i < n; ++i)
        s << (i ? " " : "") << int{v[i]};
    return s.str();
}

// The state in words, for the message of a failing case.
std::string Describe(const Corpo& c) {
    std::ostringstream s;
    const Condizioni& k = c.condizioni;
    s << "LenColonna " << c.LenColonna << "; forecast (" << int{c.pronostico.Quanti}
      << "): " << Numbers(c.pronostico.Numeri.data(), c.pronostico.Quanti) << "\n";
    if (k.CondSomma) s << "sum " << k.SommaMinMax[0] << ".." << k.SommaMinMax[1] << "\n";
    if (k.CondPari) {
        s << "even allowed:";
        for (int e = 0; e <= 25; ++e)
            if (k.TabPari[static_cast<size_t>(e)]) s << " " << e;
        s << "\n";
    }
    if (k.CondFisse) {
        s << "fixed (" << int{k.NumFisse} << "):";
        for (int v = 1; v <= 90; ++v)
            if (k.TabFisse[static_cast<size_t>(v)] == 1) s << " " << v;
        s << "\n";
    }
    if (c.consecutivi.CondConsecutivi) s << "longest runs mask " << c.consecutivi.MaskConsecutivi << "\n";
    if (k.CondRidotto) s << "guarantee N-" << int{k.ValRidotto} << "\n";
    if (c.distanzaMinima.CondDistanzaMinima)
        s << "minimum distance " << int{c.distanzaMinima.ValDistanzaMinima} << "\n";
    const std::pair<const char*, const TabellaFiltri*> tables[] = {
        {"AND", &c.FiltriAND}, {"OR", &c.FiltriOR}, {"XOR", &c.FiltriXOR}};
    for (const auto& [name, t] : tables) {
        if (t->count() == 0) continue;
        s << name << " table, " << t->count() << " records";
        for (int i = 1; i <= std::min(t->count(), 8); ++i) {
            s << "; {";
            for (int v = 1; v <= 90; ++v)
                if ((*t)[i].Numeri[static_cast<size_t>(v)]) s << " " << v;
            s << " } presenze " << (*t)[i].Presenze;
        }
        s << "\n";
    }
    for (int i = 1; i <= c.CondizioniDistanza.count(); ++i) {
        const CondizioneDistanza& d = c.CondizioniDistanza[i];
        s << "distance record: pairs " << Numbers(&d.Posizioni[1], d.NumPosizioni) << "; min ("
          << int{d.NumDistanzeMin} << ")";
        for (int x = 1; x <= 89; ++x)
            if (d.DistanzaMin[static_cast<size_t>(x)]) s << " " << x;
        s << "; max (" << int{d.NumDistanzeMax} << ")";
        for (int x = 1; x <= 89; ++x)
            if (d.DistanzaMax[static_cast<size_t>(x)]) s << " " << x;
        s << "\n";
    }
    return s.str();
}

std::vector<uint8_t> Store(const Corpo& c, int32_t count) {
    std::vector<uint8_t> out;
    for (int32_t j = 1; j <= count; ++j)
        for (int p = 1; p <= c.LenColonna; ++p)
            out.push_back(c.Colonne.get(j, p));
    return out;
}

using Held = std::vector<std::vector<uint8_t>>;

// Runs both engines on copies of `state`, holding `held` columns, and reports the first
// difference.
// With `again`, the two engines start from what their previous run left instead.
::testing::AssertionResult Same(const Corpo& state, Run run, int stopAtStep, uint64_t seed,
                                const Held& held = {}, bool again = false) {
    static Corpo literal, fast; // reused: each store is 100 MB of address space
    for (Corpo* c : {&literal, &fast}) {
        if (again) break;
        *c = state;
        for (size_t j = 0; j < held.size(); ++j)
            c->Colonne.setColumn(static_cast<int32_t>(j + 1), held[j].data(), c->LenColonna);
        if (!held.empty()) c->pronostico.NumColonne = static_cast<int32_t>(held.size());
    }
    const Outcome a = Execute(literal, run, true, stopAtStep);
    Outcome b;
    std::string what;
    // A development also runs split over two threads, from the same state.
    for (int threads = 1; threads <= (run == Run::Develop && !again ? 2 : 1) && what.empty(); ++threads) {
        if (threads == 2) fast = state;
        b = Execute(fast, run, false, stopAtStep, threads);
        if (a.r.counter != b.r.counter)
            what = "counter";
        else if (a.r.kept != b.r.kept)
            what = "kept";
        else if (a.r.stopped != b.r.stopped)
            what = "stopped";
        else if (a.numColonne != b.numColonne || a.descrizione != b.descrizione || a.stop != b.stop)
            what = "state";
        else if (a.log != b.log)
            what = "progress reports";
        else if (Store(literal, a.r.kept) != Store(fast, b.r.kept))
            what = "stored columns";
        if (!what.empty() && threads == 2) what += " on two threads";
    }
    if (what.empty()) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << (run == Run::Develop ? "development" : "re-development") << " differs in " << what << " (seed "
           << seed << ", stop at step " << stopAtStep << ")\nliteral: counter " << a.r.counter << " kept "
           << a.r.kept << " stopped " << a.r.stopped << "\nfast:    counter " << b.r.counter << " kept "
           << b.r.kept << " stopped " << b.r.stopped << "\n"
           << Describe(state) << held.size() << " held columns\nliteral reports:\n"
           << a.log.substr(0, 1500) << "fast reports:\n"
           << b.log.substr(0, 1500);
}

// Random conditions of every kind on a small forecast.
class RandomState {
public:
    explicit RandomState(uint64_t seed) : m_rng(seed) {}

    int uniform(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(m_rng); }
    bool chance(double p) { return std::bernoulli_distribution(p)(m_rng); }

    Corpo make() {
        Corpo c;
        const int len = chance(0.1) ? 1 : uniform(2, 7);
        c.LenColonna = static_cast<int16_t>(len);
        const int n = std::min(90, len + uniform(0, 10));
        std::vector<int> pool = test::Range(1, 90);
        std::shuffle(pool.begin(), pool.end(), m_rng);
        if (chance(0.5)) { // dense forecasts make runs and distances interesting
            const int from = uniform(1, 90 - n + 1);
            pool = test::Range(from, from + n + 3 > 90 ? 90 : from + n + 3);
            std::shuffle(pool.begin(), pool.end(), m_rng);
        }
        pool.resize(static_cast<size_t>(n));
        test::SetForecast(c, pool);
        m_forecast = pool;
        if (chance(0.15)) // the forecast put in another order by the user
            std::shuffle(c.pronostico.Numeri.begin(), c.pronostico.Numeri.begin() + n, m_rng);
        Condizioni& k = c.condizioni;
        if (chance(0.3)) {
            k.CondSomma = Vero;
            const int mid = len * 45 + uniform(-len * 20, len * 20);
            k.SommaMinMax = {static_cast<int16_t>(mid - uniform(0, len * 15)),
                             static_cast<int16_t>(mid + uniform(0, len * 15))};
            if (chance(0.1)) k.SommaMinMax[0] = static_cast<int16_t>(uniform(-32768, 0)); // signed limits
            if (chance(0.05)) std::swap(k.SommaMinMax[0], k.SommaMinMax[1]);              // an empty range
        }
        if (chance(0.3)) {
            k.CondPari = Vero;
            for (int e = 0; e <= len; ++e)
                k.TabPari[static_cast<size_t>(e)] = chance(0.6) ? Vero : Falso;
        }
        if (chance(0.25)) {
            k.CondFisse = Vero;
            const int count = uniform(0, std::min(3, len));
            for (int i = 0; i < count; ++i)
                k.TabFisse[static_cast<size_t>(number(0.9))] = 1;
            k.NumFisse = 0;
            for (int v = 1; v <= 90; ++v)
                k.NumFisse = static_cast<uint8_t>(k.NumFisse + (k.TabFisse[static_cast<size_t>(v)] == 1));
            if (chance(0.1)) k.NumFisse = chance(0.5) ? 255 : static_cast<uint8_t>(uniform(0, len));
        }
        if (chance(0.25)) {
            c.consecutivi.CondConsecutivi = Vero;
            c.consecutivi.MaskConsecutivi = uniform(0, (1 << (len + 1)) - 1);
        }
        if (chance(0.2)) {
            const int records = uniform(1, 3);
            for (int i = 0; i < records; ++i)
                c.CondizioniDistanza.append(distance(len));
        }
        fill(c.FiltriAND, 0.3, 0.75);
        fill(c.FiltriOR, 0.25, 0.35);
        fill(c.FiltriXOR, 0.2, 0.3);
        if (chance(0.3)) {
            k.CondRidotto = Vero;
            k.ValRidotto = static_cast<uint8_t>(chance(0.1) ? uniform(len + 1, 255) : uniform(0, len));
        }
        if (chance(0.25)) {
            c.distanzaMinima.CondDistanzaMinima = Vero;
            c.distanzaMinima.ValDistanzaMinima =
                static_cast<uint8_t>(chance(0.1) ? uniform(len + 1, 255) : uniform(0, len));
        }
        return c;
    }

    // Held columns as a system file may bring them: mostly clean, some with a 0, a repeat,
    // numbers out of order or bytes above 90, some held twice.
    Held heldColumns(int len, bool dirty) {
        Held out(static_cast<size_t>(uniform(0, 400)));
        for (size_t j = 0; j < out.size(); ++j) {
            std::vector<int> col = m_forecast;
            std::shuffle(col.begin(), col.end(), m_rng);
            col.resize(static_cast<size_t>(len));
            if (chance(0.7)) std::sort(col.begin(), col.end());
            if (dirty && chance(0.3)) {
                const auto p = static_cast<size_t>(uniform(0, len - 1));
                const int kind = uniform(0, 2);
                col[p] = kind == 0   ? 0
                         : kind == 1 ? col[static_cast<size_t>(uniform(0, len - 1))]
                                     : uniform(91, 255);
            }
            out[j].assign(col.begin(), col.end());
            if (j > 0 && chance(0.05)) out[j] = out[j - 1];
        }
        return out;
    }

    // A number of the forecast with probability p, any number otherwise.
    int number(double p) {
        return chance(p)
                   ? m_forecast[static_cast<size_t>(uniform(0, static_cast<int>(m_forecast.size()) - 1))]
                   : uniform(1, 90);
    }

    ColonnaFiltro filter(int len, double allow) {
        ColonnaFiltro f;
        const int size = uniform(1, 6);
        for (int i = 0; i < size; ++i)
            f.Numeri[static_cast<size_t>(number(0.85))] = 1;
        for (int b = 0; b <= std::min(len, 6); ++b)
            if (chance(allow)) f.Presenze |= 1 << b;
        if (chance(0.03)) f.Presenze = 0;
        if (chance(0.03)) f.Presenze = -1;
        f.Stato = chance(0.9) ? Vero : Falso; // the engine reads every counted record
        return f;
    }

    void fill(TabellaFiltri& t, double use, double allow) {
        if (!chance(use)) return;
        const int records = uniform(1, 6);
        for (int i = 0; i < records; ++i)
            t.append(filter(uniform(1, 7), allow));
    }

    CondizioneDistanza distance(int len) {
        CondizioneDistanza d;
        d.NumPosizioni = static_cast<uint8_t>(uniform(0, std::min(25, len + 1)));
        for (int i = 1; i <= d.NumPosizioni; ++i)
            d.Posizioni[static_cast<size_t>(i)] = static_cast<uint8_t>(uniform(0, len + 1));
        std::sort(d.Posizioni.begin() + 1, d.Posizioni.begin() + 1 + d.NumPosizioni);
        for (int x = 1; x <= 89; ++x) {
            d.DistanzaMin[static_cast<size_t>(x)] = x < 12 && chance(0.5) ? Vero : Falso;
            d.DistanzaMax[static_cast<size_t>(x)] = x < 30 && chance(0.6) ? Vero : Falso;
        }
        if (chance(0.1)) d.DistanzaMin[89] = Vero;
        d.NumDistanzeMin = static_cast<uint8_t>(chance(0.3) ? 0 : uniform(1, 5));
        d.NumDistanzeMax = static_cast<uint8_t>(chance(0.3) ? 0 : uniform(1, 5));
        d.Stato = Vero;
        return d;
    }

private:
    std::mt19937_64 m_rng;
    std::vector<int> m_forecast;
};

uint64_t BaseSeed() {
    const char* s = std::getenv("DV_ENGINE_SEED");
    return s ? std::strtoull(s, nullptr, 10) : 20261122;
}

} // namespace

TEST(EngineDifferential, RandomStatesDevelopAlike) {
    for (uint64_t i = 0; i < 3000; ++i) {
        const uint64_t seed = BaseSeed() + i;
        RandomState rs(seed);
        const Corpo c = rs.make();
        const int stop = rs.chance(0.1) ? rs.uniform(0, 250) : -2;
        ASSERT_TRUE(Same(c, Run::Develop, stop, seed));
    }
}

TEST(EngineDifferential, MixedConditionsDevelopAlike) {
    // The mixes of the benchmark (even counts, runs, distance conditions, small filter tables)
    // on forecasts of a few thousand candidates, now and then with a reduction or a stop.
    for (uint64_t i = 0; i < 1500; ++i) {
        const uint64_t seed = BaseSeed() + 4'000'000 + i;
        std::mt19937_64 rng(seed);
        test::MixedConditions mix(rng);
        Corpo c;
        const int len = mix.uniform(2, 12);
        int n = len + mix.uniform(0, 14);
        while (n > len && ColonneIntegrali(n, len) > 20000)
            --n;
        c.LenColonna = static_cast<int16_t>(len);
        test::SetForecast(c, mix.forecast(n));
        mix.draw(c);
        if (mix.chance(0.1))
            c.distanzaMinima = DistanzaMinima{static_cast<uint8_t>(mix.uniform(1, len)), Vero};
        const int stop = mix.chance(0.1) ? mix.uniform(0, 250) : -2;
        ASSERT_TRUE(Same(c, Run::Develop, stop, seed));
    }
}

TEST(EngineDifferential, RandomHeldColumnsRedevelopAlike) {
    for (uint64_t i = 0; i < 1500; ++i) {
        const uint64_t seed = BaseSeed() + 1'000'000 + i;
        RandomState rs(seed);
        const Corpo c = rs.make();
        const Held held = rs.heldColumns(c.LenColonna, rs.chance(0.5));
        const int stop = rs.chance(0.1) ? rs.uniform(0, 100) : -2;
        ASSERT_TRUE(Same(c, Run::Redevelop, stop, seed, held));
    }
}

TEST(EngineDifferential, ForecastThatIsNotASetDevelopsAlike) {
    // A forecast read from a damaged file: a 0, a repeat, a byte above 127.
    for (uint64_t i = 0; i < 200; ++i) {
        const uint64_t seed = BaseSeed() + 2'000'000 + i;
        RandomState rs(seed);
        Corpo c = rs.make();
        const int n = c.pronostico.Quanti;
        const auto p = static_cast<size_t>(rs.uniform(0, n - 1));
        const int kind = rs.uniform(0, 2);
        c.pronostico.Numeri[p] =
            static_cast<uint8_t>(kind == 0   ? 0
                                 : kind == 1 ? c.pronostico.Numeri[static_cast<size_t>(rs.uniform(0, n - 1))]
                                             : rs.uniform(128, 255));
        ASSERT_TRUE(Same(c, Run::Develop, -2, seed));
    }
}

TEST(EngineDifferential, Edges) {
    Corpo c;
    c.LenColonna = 6;
    test::SetForecast(c, {4, 8, 15, 16, 23, 42});
    EXPECT_TRUE(Same(c, Run::Develop, -2, 0)) << "exactly LenColonna numbers";

    test::SetForecast(c, test::Range(1, 20));
    EXPECT_TRUE(Same(c, Run::Develop, -2, 0)) << "no condition";
    for (int step : {0, 1, 17, 125, 249, 250})
        EXPECT_TRUE(Same(c, Run::Develop, step, 0)) << "stop at step " << step;

    c.condizioni.CondFisse = Vero;
    c.condizioni.TabFisse[3] = 1;
    c.condizioni.NumFisse = 255; // a byte that wrapped below 0: nothing can pass
    EXPECT_TRUE(Same(c, Run::Develop, -2, 0)) << "everything rejected";
    EXPECT_TRUE(Same(c, Run::Develop, 100, 0)) << "stop inside a rejected range";

    c.condizioni = Condizioni{};
    c.condizioni.CondSomma = Vero;
    c.condizioni.SommaMinMax = {100, 101};
    c.LenColonna = 7;
    test::SetForecast(c, test::Range(1, 30));
    EXPECT_TRUE(Same(c, Run::Develop, -2, 0)) << "a narrow sum: most of the walk skipped";
    EXPECT_TRUE(Same(c, Run::Develop, 200, 0));

    // Reductions on forecasts of more than 17 numbers: the index holds its subsets in two ways.
    c.condizioni = Condizioni{};
    c.condizioni.CondRidotto = Vero;
    c.condizioni.ValRidotto = 2;
    c.LenColonna = 5;
    test::SetForecast(c, test::Range(31, 54));
    EXPECT_TRUE(Same(c, Run::Develop, -2, 0)) << "guarantee N-2 on 24 numbers";
    c.condizioni = Condizioni{};
    c.distanzaMinima = DistanzaMinima{3, Vero};
    c.LenColonna = 6;
    test::SetForecast(c, test::Range(60, 81));
    EXPECT_TRUE(Same(c, Run::Develop, -2, 0)) << "minimum distance 3 on 22 numbers";
}

TEST(EngineDifferential, EveryCandidateKeptDevelopsAlike) {
    // No condition: every candidate is stored in runs that end at a step or at the limit. Short
    // developments show several steps per candidate; forecasts in any order; stops anywhere.
    std::mt19937_64 rng(BaseSeed() + 3'000'000);
    for (int i = 0; i < 60; ++i) {
        Corpo c;
        const int len = 1 + static_cast<int>(rng() % 25);
        const int n = std::min(90, len + static_cast<int>(rng() % (len > 20 ? 4 : len > 8 ? 6 : 12)));
        std::vector<int> numbers = test::Range(1, 90);
        std::shuffle(numbers.begin(), numbers.end(), rng);
        numbers.resize(static_cast<size_t>(n));
        if (rng() % 2 != 0) std::sort(numbers.begin(), numbers.end());
        c.LenColonna = static_cast<int16_t>(len);
        test::SetForecast(c, numbers);
        const int stop = rng() % 3 == 0 ? -2 : static_cast<int>(rng() % 251);
        ASSERT_TRUE(Same(c, Run::Develop, stop, i)) << n << " numbers in columns of " << len;
    }
}

TEST(EngineDifferential, ReductionsOnLongColumnsDevelopAlike) {
    // Long columns: the walk lists the subsets of long prefixes level by level, and lists only
    // the sizes that can still grow to t-2 numbers.
    struct Case {
        int from, to, len, value;
        bool distance;
    };
    for (const Case& k : {Case{1, 18, 9, 4, true}, Case{5, 20, 12, 2, true}, Case{11, 30, 10, 3, false},
                          Case{40, 57, 11, 6, false}, Case{74, 89, 8, 2, true}, Case{1, 22, 14, 9, false},
                          // over 64 numbers: both halves of the masks
                          Case{1, 70, 3, 1, true}, Case{21, 90, 3, 1, false}}) {
        Corpo c;
        c.LenColonna = static_cast<int16_t>(k.len);
        test::SetForecast(c, test::Range(k.from, k.to));
        if (k.distance) {
            c.distanzaMinima = DistanzaMinima{static_cast<uint8_t>(k.value), Vero};
        } else {
            c.condizioni.CondRidotto = Vero;
            c.condizioni.ValRidotto = static_cast<uint8_t>(k.value);
        }
        EXPECT_TRUE(Same(c, Run::Develop, -2, 0)) << k.from << ".." << k.to << " in " << k.len;
    }
}

TEST(EngineDifferential, LimitOfTheStore) {
    Corpo c;
    c.LenColonna = 7;
    test::SetForecast(c, test::Range(1, 40)); // 18,643,560 combinations, no condition
    EXPECT_TRUE(Same(c, Run::Develop, -2, 0));
    EXPECT_TRUE(Same(c, Run::Redevelop, -2, 0, {}, true)) << "the full store developed again";
    c.LenColonna = 6;
    test::SetForecast(c, test::Range(1, 56)); // 32,468,436; the limit falls on step 31
    EXPECT_TRUE(Same(c, Run::Develop, 31, 0)) << "stop asked at the step of the limit";
    EXPECT_TRUE(Same(c, Run::Develop, 30, 0)) << "stop asked at the step before the limit";
}

TEST(EngineDifferential, FullFilterTables) {
    std::mt19937_64 rng(7);
    for (int round = 0; round < 3; ++round) {
        Corpo c;
        c.LenColonna = static_cast<int16_t>(3 + round);
        const std::vector<int> forecast = test::Range(10, 18 + round);
        test::SetForecast(c, forecast);
        auto pick = [&] { return forecast[rng() % forecast.size()]; };
        TabellaFiltri* tables[] = {&c.FiltriAND, &c.FiltriOR, &c.FiltriXOR};
        for (int t = 0; t < 3; ++t) {
            for (int i = 0; i < MaxFiltri; ++i) {
                ColonnaFiltro f;
                for (int k = 0; k < 4; ++k)
                    f.Numeri[static_cast<size_t>(pick())] = 1;
                f.Numeri[static_cast<size_t>(1 + rng() % 90)] = 1;
                // AND allows nearly everything, OR and XOR nearly nothing.
                f.Presenze =
                    t == 0 ? 0x3FFFFFF & ~(1 << (3 + rng() % 3)) : (rng() % 1000 == 0 ? 1 << (rng() % 4) : 0);
                tables[t]->append(f);
            }
        }
        EXPECT_TRUE(Same(c, Run::Develop, -2, round)) << "round " << round;
    }
}

TEST(EngineDifferential, HeldColumnsOverAllNinetyNumbersRedevelopAlike) {
    // Too many subsets to index: the reductions scan the kept columns instead.
    std::mt19937_64 rng(11);
    for (int round = 0; round < 4; ++round) {
        Corpo c;
        c.LenColonna = 8;
        test::SetForecast(c, test::Range(1, 90));
        Held held(3000);
        for (auto& col : held) {
            std::vector<int> all = test::Range(1, 90);
            std::shuffle(all.begin(), all.end(), rng);
            col.assign(all.begin(), all.begin() + 8);
            std::sort(col.begin(), col.end());
        }
        if (round % 2 == 0) {
            c.condizioni.CondRidotto = Vero;
            c.condizioni.ValRidotto = static_cast<uint8_t>(2 + round);
        } else {
            c.distanzaMinima = DistanzaMinima{static_cast<uint8_t>(4 + round), Vero};
        }
        EXPECT_TRUE(Same(c, Run::Redevelop, -2, static_cast<uint64_t>(round), held)) << "round " << round;
    }
}

TEST(EngineDifferential, HitSupplyIsTheMostHitsOfAnyChoice) {
    // The bound on the hits that XOR groups can still receive, against every choice of r numbers:
    // the same up to 8 groups, never less beyond.
    std::mt19937_64 rng(5);
    for (int round = 0; round < 300; ++round) {
        const int groups = 1 + static_cast<int>(rng() % 12), r = 1 + static_cast<int>(rng() % 4);
        const auto from = engine::Mask{rng() & 0xFFFF, 0};
        engine::HitSupply supply(from);
        std::vector<engine::Mask> members;
        for (int g = 0; g < groups; ++g) {
            members.push_back(engine::Mask{round % 2 == 0 ? rng() & rng() : rng() | rng(), 0});
            supply.add(members.back());
        }
        std::vector<int> cover;
        for (int v = 0; v < 16; ++v)
            if (from.has(v))
                cover.push_back(static_cast<int>(
                    std::count_if(members.begin(), members.end(), [&](engine::Mask m) { return m.has(v); })));
        std::sort(cover.rbegin(), cover.rend());
        int best = 0;
        for (int i = 0; i < std::min<int>(r, static_cast<int>(cover.size())); ++i)
            best += cover[static_cast<size_t>(i)];
        if (groups <= 8)
            EXPECT_EQ(supply.most(r), best) << "round " << round;
        else
            EXPECT_GE(supply.most(r), best) << "round " << round;
    }
}
