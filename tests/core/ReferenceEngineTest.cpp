// The reference engine against the rules' own examples. The program's engine is then held to
// the reference by the differential test.
#include "tests/reference/LiteralEngine.h"

#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

namespace {
struct Recorder : EngineObserver {
    std::vector<ProgressInfo> steps;
    int limits = 0;
    int stopAtStep = -1;
    RunControl* ctl = nullptr;
    void progress(const ProgressInfo& info) override {
        steps.push_back(info);
        if (info.step == stopAtStep && ctl) ctl->StopElaborazione = true;
    }
    void limitReached(const ProgressInfo&) override { ++limits; }
};

RunResult Develop(Corpo& c, Recorder& rec, RunControl& ctl) {
    rec.ctl = &ctl;
    return reference::SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl, rec, "D");
}
} // namespace

TEST(ReferenceEngine, ForecastOfExactlyTheLengthGivesOneColumnAtStep250) {
    Corpo c;
    c.LenColonna = 5;
    test::SetForecast(c, {3, 9, 20, 41, 77});
    Recorder rec;
    RunControl ctl;
    auto r = Develop(c, rec, ctl);
    EXPECT_EQ(r.kept, 1);
    ASSERT_EQ(rec.steps.size(), 1u);
    EXPECT_EQ(rec.steps[0].step, 250);
    EXPECT_EQ(rec.steps[0].bar, 100);
    EXPECT_EQ(c.pronostico.Descrizione, "D");
}

TEST(ReferenceEngine, NoConditionKeepsEveryCombinationInLexicographicOrder) {
    Corpo c;
    c.LenColonna = 3;
    test::SetForecast(c, test::Range(1, 6));
    Recorder rec;
    RunControl ctl;
    auto r = Develop(c, rec, ctl);
    EXPECT_EQ(r.kept, 20);
    EXPECT_EQ(r.counter, 20.0);
    auto cols = test::StoredColumns(c);
    EXPECT_EQ(cols.front(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(cols[1], (std::vector<int>{1, 2, 4}));
    EXPECT_EQ(cols.back(), (std::vector<int>{4, 5, 6}));
    EXPECT_EQ(rec.steps.size(), 20u) << "fewer candidates than steps: every candidate is a step";
}

TEST(ReferenceEngine, StopEndsTheWalkAndMarksTheDescription) {
    Corpo c;
    c.LenColonna = 3;
    test::SetForecast(c, test::Range(1, 30));
    Recorder rec;
    rec.stopAtStep = 100;
    RunControl ctl;
    auto r = Develop(c, rec, ctl);
    EXPECT_TRUE(r.stopped);
    EXPECT_EQ(r.counter, 1616.0); // the first candidate whose step, 1616 / 16.24 rounded, is 100
    EXPECT_EQ(c.pronostico.NumColonne, 1616);
    EXPECT_EQ(c.pronostico.Descrizione, "D - ***");
}

TEST(ReferenceEngine, OrTableWithNoPassingRecordRejectsEvenWhenXorWouldPass) {
    Corpo c;
    c.LenColonna = 2;
    test::SetForecast(c, {1, 2, 3});
    c.FiltriOR.append(test::Filtro({1}, Potenze2[1])); // needs number 1
    c.FiltriXOR.append(test::Filtro({3}, Potenze2[1])); // needs number 3
    Recorder rec;
    RunControl ctl;
    Develop(c, rec, ctl);
    EXPECT_EQ(test::StoredColumns(c), (std::vector<std::vector<int>>{{1, 3}}));
}

TEST(ReferenceEngine, XorWithTwoPassingRecordsRejects) {
    Corpo c;
    c.LenColonna = 2;
    test::SetForecast(c, {1, 2, 3});
    c.FiltriXOR.append(test::Filtro({1}, Potenze2[1]));
    c.FiltriXOR.append(test::Filtro({2}, Potenze2[1]));
    Recorder rec;
    RunControl ctl;
    Develop(c, rec, ctl);
    EXPECT_EQ(test::StoredColumns(c), (std::vector<std::vector<int>>{{1, 3}, {2, 3}}));
}

TEST(ReferenceEngine, ReductionsKeepGreedyFirstComers) {
    Corpo c;
    c.LenColonna = 3;
    test::SetForecast(c, test::Range(1, 7));
    c.condizioni.CondRidotto = Vero;
    c.condizioni.ValRidotto = 1; // columns differ in at least 2 numbers: share at most 1
    Recorder rec;
    RunControl ctl;
    Develop(c, rec, ctl);
    auto cols = test::StoredColumns(c);
    ASSERT_EQ(cols.size(), 7u) << "the Fano plane";
    EXPECT_EQ(cols[0], (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(cols[1], (std::vector<int>{1, 4, 5}));

    c.condizioni = Condizioni{};
    c.distanzaMinima = DistanzaMinima{2, Vero}; // differ in at least 2
    Develop(c, rec, ctl);
    EXPECT_EQ(test::StoredColumns(c), cols) << "minimum distance D is guarantee D-1";

    c.distanzaMinima = DistanzaMinima{3, Vero}; // D = LenColonna: share nothing
    Develop(c, rec, ctl);
    EXPECT_EQ(test::StoredColumns(c), (std::vector<std::vector<int>>{{1, 2, 3}, {4, 5, 6}}));
}

TEST(ReferenceEngine, GuaranteeEdges) {
    Corpo c;
    c.LenColonna = 2;
    test::SetForecast(c, test::Range(1, 4));
    c.condizioni.CondRidotto = Vero;
    c.condizioni.ValRidotto = 0; // rejects only identical columns
    Recorder rec;
    RunControl ctl;
    EXPECT_EQ(Develop(c, rec, ctl).kept, 6);
    c.condizioni.ValRidotto = 2; // equal to the length: only the first column
    EXPECT_EQ(Develop(c, rec, ctl).kept, 1);
}

TEST(ReferenceEngine, RedevelopmentKeepsEveryColumnWithoutReductions) {
    Corpo c;
    c.LenColonna = 3;
    test::SetForecast(c, test::Range(1, 8));
    c.condizioni.CondSomma = Vero;
    c.condizioni.SommaMinMax = {9, 15};
    Recorder rec;
    RunControl ctl;
    Develop(c, rec, ctl);
    const auto first = test::StoredColumns(c);
    Recorder again;
    auto r = reference::RielaboraColonne(c, ctl, again, "D");
    EXPECT_EQ(test::StoredColumns(c), first);
    EXPECT_EQ(r.counter, static_cast<double>(first.size()));
    EXPECT_EQ(again.steps.back().step, 100);
}
