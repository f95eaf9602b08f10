// The reference engine against the rules' own examples. The program's engine is then held to
// the reference by the differential test.
#include "tests/reference/LiteralEngine.h"

#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;
using Colonne = std::vector<std::vector<int>>;

namespace {
struct Recorder : EngineObserver {
    std::vector<ProgressInfo> steps;
    int stopAtStep = -1;
    RunControl ctl;
    void progress(const ProgressInfo& info) override {
        steps.push_back(info);
        if (info.step == stopAtStep) ctl.StopElaborazione = true;
    }
};

// A forecast of the given numbers and columns of length len, ready to develop.
struct Sviluppo {
    Corpo c;
    Recorder rec;
    Sviluppo(int len, const std::vector<int>& numbers) {
        c.LenColonna = static_cast<int16_t>(len);
        test::SetForecast(c, numbers);
    }
    RunResult operator()() {
        rec.steps.clear();
        return reference::SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), rec.ctl, rec,
                                            "D");
    }
    Colonne colonne() const { return test::StoredColumns(c); }
};
} // namespace

// A forecast of exactly the length gives one column at step 250; without conditions every
// combination is kept in lexicographic order, and with fewer candidates than steps each is a step.
TEST(ReferenceEngine, NoConditionKeepsEveryCombinationInLexicographicOrder) {
    Sviluppo uno(5, {3, 9, 20, 41, 77});
    EXPECT_EQ(uno().kept, 1);
    ASSERT_EQ(uno.rec.steps.size(), 1u);
    EXPECT_EQ(uno.rec.steps[0].step, 250);
    EXPECT_EQ(uno.rec.steps[0].bar, 100);

    Sviluppo s(3, test::Range(1, 6));
    const RunResult r = s();
    EXPECT_EQ(r.kept, 20);
    EXPECT_EQ(r.counter, 20.0);
    const Colonne cols = s.colonne();
    EXPECT_EQ(cols[1], (std::vector<int>{1, 2, 4}));
    EXPECT_EQ(cols.back(), (std::vector<int>{4, 5, 6}));
    EXPECT_EQ(s.rec.steps.size(), 20u);
}

TEST(ReferenceEngine, StopEndsTheWalkAtTheCandidateOfTheStep) {
    Sviluppo s(3, test::Range(1, 30));
    s.rec.stopAtStep = 100;
    const RunResult r = s();
    EXPECT_TRUE(r.stopped);
    EXPECT_EQ(r.counter, 1616.0); // the first candidate whose step, 1616 / 16.24 rounded, is 100
    EXPECT_EQ(s.c.pronostico.NumColonne, 1616);
}

TEST(ReferenceEngine, OrTableNeedsAPassingRecordAndXorExactlyOne) {
    Sviluppo s(2, {1, 2, 3});
    s.c.FiltriOR.append(test::Filtro({1}, Potenze2[1]));  // needs number 1
    s.c.FiltriXOR.append(test::Filtro({3}, Potenze2[1])); // needs number 3
    s();
    EXPECT_EQ(s.colonne(), (Colonne{{1, 3}})) << "an OR table with no passing record rejects";

    Sviluppo x(2, {1, 2, 3});
    x.c.FiltriXOR.append(test::Filtro({1}, Potenze2[1]));
    x.c.FiltriXOR.append(test::Filtro({2}, Potenze2[1]));
    x();
    EXPECT_EQ(x.colonne(), (Colonne{{1, 3}, {2, 3}})) << "an XOR with two passing records rejects";
}

TEST(ReferenceEngine, ReductionsKeepGreedyFirstComers) {
    Sviluppo s(3, test::Range(1, 7));
    s.c.condizioni.CondRidotto = Vero;
    s.c.condizioni.ValRidotto = 1; // columns differ in at least 2 numbers: share at most 1
    s();
    const Colonne fano = s.colonne();
    ASSERT_EQ(fano.size(), 7u);
    EXPECT_EQ(fano[0], (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(fano[1], (std::vector<int>{1, 4, 5}));

    s.c.condizioni = Condizioni{};
    s.c.distanzaMinima = DistanzaMinima{2, Vero}; // differ in at least 2
    s();
    EXPECT_EQ(s.colonne(), fano) << "minimum distance D is guarantee D-1";
    s.c.distanzaMinima = DistanzaMinima{3, Vero}; // D = LenColonna: share nothing
    s();
    EXPECT_EQ(s.colonne(), (Colonne{{1, 2, 3}, {4, 5, 6}}));

    Sviluppo e(2, test::Range(1, 4));
    e.c.condizioni.CondRidotto = Vero;
    e.c.condizioni.ValRidotto = 0; // rejects only identical columns
    EXPECT_EQ(e().kept, 6);
    e.c.condizioni.ValRidotto = 2; // equal to the length: only the first column
    EXPECT_EQ(e().kept, 1);
}

TEST(ReferenceEngine, RedevelopmentKeepsEveryColumnWithoutReductions) {
    Sviluppo s(3, test::Range(1, 8));
    s.c.condizioni.CondSomma = Vero;
    s.c.condizioni.SommaMinMax = {9, 15};
    s();
    const Colonne first = s.colonne();
    Recorder again;
    const RunResult r = reference::RielaboraColonne(s.c, again.ctl, again, "D");
    EXPECT_EQ(s.colonne(), first);
    EXPECT_EQ(r.counter, static_cast<double>(first.size()));
    EXPECT_EQ(again.steps.back().step, 100);
}
