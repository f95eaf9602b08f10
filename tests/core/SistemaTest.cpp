#include "core/Sistema.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

// The OR and XOR tables survive every reset; the forecast only on request.
TEST(ResetSistema, ClearsSystemAndConditionsInTheWindowOrder) {
    Corpo c;
    test::FakeUi ui;
    test::SetForecast(c, {4, 8, 15});
    c.pronostico.NumColonne = 1;
    c.Colonne.set(1, 1, 1);
    c.condizioni.CondSomma = Vero;
    c.consecutivi.CondConsecutivi = Vero;
    c.distanzaMinima.CondDistanzaMinima = Vero;
    c.FiltriAND.append(test::Filtro({1}, 1));
    c.FiltriOR.append(test::Filtro({1}, 2));
    c.FiltriXOR.append(test::Filtro({2}, 2));
    c.SistemaBloccato = -1;

    ResetSistema(c, ui, true);
    EXPECT_EQ(c.pronostico.Quanti, 3);
    EXPECT_TRUE(c.Griglia[7]);
    EXPECT_EQ(c.pronostico.NumColonne, 0);
    EXPECT_FALSE(c.condizioni.CondSomma);
    EXPECT_FALSE(c.consecutivi.CondConsecutivi);
    EXPECT_FALSE(c.distanzaMinima.CondDistanzaMinima);
    EXPECT_EQ(c.FiltriAND.count(), 0);
    EXPECT_EQ(c.FiltriOR.count(), 1);
    EXPECT_EQ(c.FiltriXOR.count(), 1);
    EXPECT_EQ(c.SistemaBloccato, 0);
    ResetSistema(c, ui, false);
    EXPECT_EQ(c.pronostico.Quanti, 0);
    EXPECT_FALSE(c.Griglia[7]);
}

TEST(Grid, ClicksCountTheForecastIsRebuiltAscendingAndEnoughNumbersUnlock) {
    Corpo c;
    test::FakeUi ui;
    for (int i : {30, 2, 17})
        GrigliaNumeriClick(c, ui, i - 1);
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
}
