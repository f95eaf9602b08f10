#include "filters/EditorDistanze.h"

#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

namespace {
std::array<bool, 90> Griglia(const std::vector<int>& numeri) {
    std::array<bool, 90> g{};
    for (int n : numeri)
        g[static_cast<size_t>(n - 1)] = true;
    return g;
}

} // namespace

// 3 5 12 20 33 60, columns of 4: the closest neighbours are 3 and 5; the widest gap comes from
// 3 5 12 and then 60. The window's test reads panels built by clicks; the order of the pairs is
// pinned here, and what an empty forecast shows.
TEST(EditorDistanze, LimitsFromTheForecastPairsListedAscendingAndAnEmptyForecastHidesNothing) {
    Corpo c;
    c.LenColonna = 4;
    test::SetForecast(c, {3, 5, 12, 20, 33, 60});
    EditorDistanze e(c, c.CondizioniDistanza);
    EXPECT_TRUE(e.limiti().calcolati);
    EXPECT_EQ(e.limiti().minima, 2);
    EXPECT_EQ(e.limiti().massima, 48);
    const auto l = LimitiDaPronostico(Griglia(test::Range(1, 90)), 2);
    EXPECT_EQ(l.minima, 1);
    EXPECT_EQ(l.massima, 89);
    // None when the forecast cannot fill a column or a column has no pair.
    EXPECT_FALSE(LimitiDaPronostico(Griglia({1, 2, 3}), 4).calcolati);
    EXPECT_FALSE(LimitiDaPronostico(Griglia({1, 2, 3}), 1).calcolati);
    EXPECT_FALSE(LimitiDaPronostico(Griglia({}), 4).calcolati);
    EXPECT_FALSE(e.clickDistanzaMax(60)) << "beyond the forecast's limits";
    for (int k : {3, 1, 2})
        e.clickCoppia(k);
    CondizioneDistanza cd = e.leggiPannello();
    EXPECT_EQ(cd.NumPosizioni, 3);
    EXPECT_EQ(std::vector<int>(cd.Posizioni.begin() + 1, cd.Posizioni.begin() + 5),
              (std::vector<int>{1, 2, 3, 0}));

    Corpo vuoto;
    vuoto.CondizioniDistanza.append(cd);
    EditorDistanze v(vuoto, vuoto.CondizioniDistanza);
    EXPECT_TRUE(v.pronosticoVuoto());
    EXPECT_FALSE(v.limiti().calcolati);
    EXPECT_TRUE(v.coppiaVisibile(24));
    EXPECT_TRUE(v.distanzaVisibile(89));
    EXPECT_FALSE(v.coppia(1)) << "record 1 is not shown";
    EXPECT_EQ(v.totaleON(), 1);
}
