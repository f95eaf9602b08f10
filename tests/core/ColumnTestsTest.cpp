#include "core/ColumnTests.h"

#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

#include <vector>

using namespace dv;

namespace {
bool Filter(std::vector<uint8_t> col, const ColonnaFiltro& f) {
    return ColonnaFiltroMatch(col.data(), static_cast<int>(col.size()), f);
}

// Pairs 1 and 2, one allowed least and one allowed greatest distance.
CondizioneDistanza DuePosizioni(int least, int greatest) {
    CondizioneDistanza cd;
    cd.NumPosizioni = 2;
    cd.Posizioni[1] = 1;
    cd.Posizioni[2] = 2;
    cd.NumDistanzeMin = 1;
    cd.DistanzaMin[static_cast<size_t>(least)] = Vero;
    cd.NumDistanzeMax = 1;
    cd.DistanzaMax[static_cast<size_t>(greatest)] = Vero;
    return cd;
}
} // namespace

TEST(ColumnTests, FixedNumbersSumAndEvenCount) {
    Condizioni k;
    std::vector<uint8_t> col{3, 9, 12}, twice{9, 9, 12};
    EXPECT_TRUE(TestFisse(col.data(), 3, k)) << "no fixed number passes every column";
    k.TabFisse[9] = 1;
    k.TabFisse[12] = 1;
    k.NumFisse = 2;
    EXPECT_TRUE(TestFisse(col.data(), 3, k));
    EXPECT_FALSE(TestFisse(twice.data(), 3, k)) << "a repeated fixed number counts twice";
    k.TabFisse[40] = 1;
    k.NumFisse = 3;
    EXPECT_FALSE(TestFisse(col.data(), 3, k));

    k.SommaMinMax = {10, 12}; // both ends included
    std::vector<uint8_t> s10{1, 9}, s12{2, 10}, s13{3, 10};
    EXPECT_TRUE(TestSomma(s10.data(), 2, k));
    EXPECT_TRUE(TestSomma(s12.data(), 2, k));
    EXPECT_FALSE(TestSomma(s13.data(), 2, k));

    k.TabPari[2] = Vero;
    std::vector<uint8_t> two{2, 3, 4}, one{1, 2, 3};
    EXPECT_TRUE(TestPari(two.data(), 3, k));
    EXPECT_FALSE(TestPari(one.data(), 3, k));
}

TEST(ColumnTests, FilterMatchesByExactCountOfItsNumbers) {
    auto f = test::Filtro({1, 2, 3, 4, 5}, Potenze2[2]);
    EXPECT_TRUE(Filter({1, 2, 30}, f));
    EXPECT_FALSE(Filter({1, 30, 40}, f));
    EXPECT_FALSE(Filter({1, 2, 3}, f));
    EXPECT_FALSE(Filter({1, 2, 3}, test::Filtro({1, 2}, 0))) << "Presenze 0 fails every column";
    auto none = test::Filtro({1, 2, 3, 4, 5}, 1);
    EXPECT_TRUE(Filter({6, 7, 8}, none));
    EXPECT_FALSE(Filter({5, 7, 8}, none));
    EXPECT_TRUE(Filter({0, 7, 8}, none)) << "a 0 is never a filter's number";
}

TEST(ColumnTests, LongestRunIsKeptByALaterShorterRun) {
    std::vector<uint8_t> a{1, 2, 3, 7, 8}, b{2, 4, 6}, c{5};
    EXPECT_EQ(RunPiuLunga(a.data(), 5), 3);
    EXPECT_EQ(RunPiuLunga(b.data(), 3), 1);
    EXPECT_EQ(RunPiuLunga(c.data(), 1), 1);
    ConsecutiviAmmessi allowed(Consecutivi{Potenze2[3], Vero}, 5);
    EXPECT_TRUE(TestConsecutivi(a.data(), 5, allowed));
    EXPECT_FALSE(TestConsecutivi(b.data(), 3, allowed));
}

TEST(ColumnTests, DistanceConditionUsesLeastAndGreatestGap) {
    std::vector<uint8_t> col{5, 9, 30}, fives{10, 15, 20};
    CondizioneDistanza cd = DuePosizioni(4, 21);
    EXPECT_TRUE(CondizioneDistanzaMatch(col.data(), 3, cd));
    cd.DistanzaMax[21] = Falso;
    EXPECT_FALSE(CondizioneDistanzaMatch(col.data(), 3, cd));
    EXPECT_TRUE(CondizioneDistanzaMatch(fives.data(), 3, DuePosizioni(5, 5)));

    // Without a pair inside the column the minimum table decides.
    CondizioneDistanza vuota; // no pair, no distance: always holds
    EXPECT_TRUE(CondizioneDistanzaMatch(col.data(), 3, vuota));
    vuota.NumPosizioni = 1;
    vuota.Posizioni[1] = 3; // beyond the column's end: skipped
    vuota.NumDistanzeMax = 1;
    vuota.DistanzaMax[7] = Vero;
    EXPECT_TRUE(CondizioneDistanzaMatch(col.data(), 3, vuota))
        << "greatest stays 0, element 0 reads as the count";
    vuota.NumDistanzeMin = 1;
    vuota.DistanzaMin[3] = Vero;
    EXPECT_FALSE(CondizioneDistanzaMatch(col.data(), 3, vuota)) << "least stays 89, which is not allowed";
    vuota.DistanzaMin[89] = Vero;
    EXPECT_TRUE(CondizioneDistanzaMatch(col.data(), 3, vuota));
}

TEST(ColumnTests, ComparingLimitsKeepTheirWidths) {
    EXPECT_EQ(LimiteRidotto(6, 2), 4);
    EXPECT_EQ(LimiteRidotto(6, 9), -3) << "a guarantee above the length from a file goes negative";
    EXPECT_EQ(LimiteDistanzaMinima(6, 2), 4);
    EXPECT_EQ(LimiteDistanzaMinima(6, 9), 253) << "the byte wraps";
}
