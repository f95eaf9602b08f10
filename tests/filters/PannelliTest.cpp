#include "filters/Pannelli.h"

#include "core/Corpo.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

// The window tests step through whole tables; the ends of a single step are pinned here.
TEST(Pannelli, SingleStepsStayWithinTheTableAndNumbersShowTwoDigitsAtLeast) {
    EXPECT_EQ(IndiceDopo(1, Spostamento::Indietro1, 100, 150'000), 1);
    EXPECT_EQ(IndiceDopo(150'000, Spostamento::Avanti1, 100, 150'000), 150'000);
    EXPECT_EQ(IndiceDopo(23, Spostamento::Avanti2, 5, 25), 25);
    // The panel's number has two digits at least (the window test shows "01" and "150.000"), also
    // below zero, where a count can go.
    EXPECT_EQ(FormatPannello(-1), "-01");
}

TEST(CompattaTabella, OnRecordsFirstThenTheOthersEachInTableOrder) {
    TabellaFiltri t;
    auto spento = [](int n) {
        ColonnaFiltro f = test::Filtro({n}, 2);
        f.Stato = Falso;
        return f;
    };
    t[2] = spento(10);
    t[5] = test::Filtro({5}, 1);
    t[7] = spento(20);
    t[9] = test::Filtro({9}, 1);
    t[11].Stato = 1; // neither -1 nor 0, as a file may bring: kept behind, not lost

    EXPECT_EQ(CompattaTabella(t), 2);
    EXPECT_EQ(t.count(), 2);
    EXPECT_EQ(t[1].Numeri[5], 1);
    EXPECT_EQ(t[2].Numeri[9], 1);
    // The empty slot 1 went behind too, in its place in table order.
    std::vector<int> dietro;
    for (int i = 3; i <= t.stored(); ++i)
        for (int n = 1; n <= 90; ++n)
            if (t[i].Numeri[static_cast<size_t>(n)]) dietro.push_back(n);
    EXPECT_EQ(dietro, (std::vector<int>{10, 20}));
    EXPECT_EQ(t[11].Stato, 1);
    EXPECT_EQ(t.stored(), 11) << "compaction never makes the table grow";
}
