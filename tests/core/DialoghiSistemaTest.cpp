#include "core/dialogs/OrdinaPronostico.h"
#include "core/dialogs/Visualizza.h"

#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

#include <set>

using namespace dv;

// Panels of ten columns; lines of two-digit numbers, blank past the end even with old cells in the store.
TEST(Viewer, PanelsOfTenColumnsAndTheirLines) {
    for (const auto& [colonne, pannelli] : {std::pair{10, 1}, {11, 2}, {4'000'000, 400'000}, {0, 1}})
        EXPECT_EQ(PannelliSistema(colonne).ultimo(), pannelli) << colonne;

    Corpo c;
    c.LenColonna = 3;
    for (int32_t j = 1; j <= 12; ++j) {
        const uint8_t col[3] = {static_cast<uint8_t>(j), static_cast<uint8_t>(j + 1),
                                static_cast<uint8_t>(j + 2)};
        c.Colonne.setColumn(j, col, 3);
    }
    c.pronostico.NumColonne = 11; // a re-development kept fewer columns than the store holds
    EXPECT_EQ(RighePannello(c, 1)[9], "  10-11-12");
    const auto secondo = RighePannello(c, 2);
    EXPECT_EQ(secondo[0], "  11-12-13");
    for (int i = 1; i < 10; ++i)
        EXPECT_EQ(secondo[static_cast<size_t>(i)], "  ");
    c.LenColonna = 1;
    EXPECT_EQ(RigaColonna(c, 1), "  01");
}

TEST(ForecastOrder, RandomOrderIsAPermutationWithTheNextColour) {
    Corpo c;
    test::SetForecast(c, test::Range(1, 20));
    OrdinePronostico a(c);
    a.casuale(1234); // the window's test holds the order to the seed
    std::vector<int> va;
    for (int i = 0; i < 20; ++i)
        va.push_back(a.numero(i));
    EXPECT_NE(va, test::Range(1, 20));
    EXPECT_EQ(std::set<int>(va.begin(), va.end()).size(), 20u);
    EXPECT_EQ(a.coloreTesto(0), 8454016u); // with 200 exchanges every cell is touched
    for (int press = 2; press <= 5; ++press)
        a.casuale(static_cast<uint32_t>(press));
    EXPECT_EQ(a.contatore(), 0);
    EXPECT_EQ(a.coloreTesto(5), 65535u);

    test::SetForecast(c, {42}); // a single number has nothing to exchange
    OrdinePronostico o(c);
    o.casuale(7);
    EXPECT_EQ(o.numero(0), 42);
    EXPECT_EQ(o.contatore(), 1);
}
