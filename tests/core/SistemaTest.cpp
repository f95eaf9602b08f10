#include "core/Sistema.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

TEST(ResetSistema, ClearsSystemAndConditionsInTheWindowOrder) {
    Corpo c;
    test::FakeUi ui;
    test::SetForecast(c, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    c.pronostico.NumColonne = 1;
    c.Colonne.set(1, 1, 1);
    c.condizioni.CondSomma = Vero;
    c.consecutivi.CondConsecutivi = Vero;
    c.distanzaMinima.CondDistanzaMinima = Vero;
    c.FiltriAND.append(test::Filtro({1}, 1));
    c.SistemaBloccato = -1;

    ResetSistema(c, ui, false);

    EXPECT_EQ(ui.calls, (std::vector<std::string>{"UnlockGUI", "UnlockMenuConditions", "gridChanged",
                                                  "ViewStatusBar"}));
    EXPECT_EQ(c.pronostico.Quanti, 0);
    EXPECT_EQ(c.pronostico.NumColonne, 0);
    EXPECT_EQ(c.Colonne.get(1, 1), 0);
    EXPECT_FALSE(c.condizioni.CondSomma);
    EXPECT_FALSE(c.consecutivi.CondConsecutivi);
    EXPECT_FALSE(c.distanzaMinima.CondDistanzaMinima);
    EXPECT_EQ(c.FiltriAND.count(), 0);
    EXPECT_EQ(c.SistemaBloccato, 0);
}

TEST(ResetSistema, KeepsForecastOnRequestAndAlwaysKeepsOrAndXorTables) {
    Corpo c;
    test::FakeUi ui;
    test::SetForecast(c, {4, 8, 15});
    c.FiltriOR.append(test::Filtro({1}, 2));
    c.FiltriXOR.append(test::Filtro({2}, 2));
    c.FiltriXOR.append(test::Filtro({3}, 2));
    c.condizioni.CondFisse = Vero;

    ResetSistema(c, ui, true);

    EXPECT_EQ(c.pronostico.Quanti, 3);
    EXPECT_TRUE(c.Griglia[7]);
    EXPECT_FALSE(c.condizioni.CondFisse);
    EXPECT_EQ(c.FiltriOR.count(), 1);
    EXPECT_EQ(c.FiltriXOR.count(), 2);
}

TEST(Grid, ClicksCountTheForecastIsRebuiltAscendingAndEnoughNumbersUnlock) {
    Corpo c;
    test::FakeUi ui;
    for (int i : {30, 2, 17})
        GrigliaNumeriClick(c, ui, i - 1);
    EXPECT_EQ(c.pronostico.Quanti, 3);
    AggiornaPronostico(c);
    EXPECT_EQ(c.pronostico.Numeri[0], 2);
    EXPECT_EQ(c.pronostico.Numeri[2], 30);
    GrigliaNumeriClick(c, ui, 1);
    AggiornaPronostico(c);
    EXPECT_EQ(c.pronostico.Quanti, 2);
    EXPECT_EQ(c.pronostico.Numeri[0], 17);
    EXPECT_EQ(c.pronostico.Numeri[2], 0) << "zeroed behind the last number";

    // Unlocking for a recomputation needs enough numbers.
    c.LenColonna = 3;
    test::SetForecast(c, {1, 2});
    c.SistemaBloccato = -1;
    Sblocca_x_Ricalcolo(c, ui);
    EXPECT_EQ(c.SistemaBloccato, -1);
    test::SetForecast(c, {1, 2, 3});
    Sblocca_x_Ricalcolo(c, ui);
    EXPECT_EQ(c.SistemaBloccato, 0);
    EXPECT_EQ(ui.calls.back(), "Sblocca_x_Ricalcolo");
    // The file title is the name in lower case.
    EXPECT_EQ(TitoloDaPath("/home/u/Sistemi/Mio.DVS"), "mio.dvs");
    EXPECT_EQ(TitoloDaPath("C:\\x\\A.dvs"), "a.dvs");
}
