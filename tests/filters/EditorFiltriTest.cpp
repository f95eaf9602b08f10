#include "filters/EditorFiltri.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

TEST(EditorFiltri, OnlyForecastNumbersCanBeChosenAndASaveDropsTheOthers) {
    Corpo c;
    test::SetForecast(c, test::Range(1, 8));
    c.FiltriAND.append(test::Filtro({2, 40}, 2));
    EditorFiltri e(c, c.FiltriAND);

    EXPECT_FALSE(e.clickNumero(50));
    EXPECT_TRUE(e.clickNumero(8));
    EXPECT_EQ(e.numSelezionati(), 2);
    e.sposta(Spostamento::Avanti1);
    e.sposta(Spostamento::Indietro1);
    EXPECT_EQ(c.FiltriAND[1].Numeri[40], 0);
    EXPECT_EQ(c.FiltriAND[1].Numeri[2], 1);
    EXPECT_EQ(c.FiltriAND[1].Numeri[8], 1);
    EXPECT_EQ(c.FiltriAND[1].Presenze, 2);
    EXPECT_EQ(e.numSelezionati(), 2);
}

TEST(EditorFiltri, StateClicksCountOnlyChangesAndClearingAlwaysLowersTheCount) {
    Corpo c;
    test::SetForecast(c, test::Range(1, 10));
    c.FiltriAND.append(test::Filtro({1}, 1));
    EditorFiltri e(c, c.FiltriAND);
    EXPECT_FALSE(e.clickStato(true)) << "clicking the active option changes nothing";
    EXPECT_EQ(e.totaleON(), 1);
    EXPECT_TRUE(e.clickStato(false));
    EXPECT_TRUE(e.clickStato(true));
    EXPECT_EQ(e.totaleON(), 1);

    e.sposta(Spostamento::Avanti1); // an empty OFF panel
    e.cancellaPannello();
    EXPECT_EQ(e.totaleON(), 0) << "one too low until the window opens again";
    e.sposta(Spostamento::Indietro1);
    e.cancellaPannello();
    EXPECT_EQ(e.totaleON(), -1);
    EXPECT_EQ(e.totaleOFF(), 150'001);
    EXPECT_FALSE(e.acceso());
    EXPECT_EQ(e.numSelezionati(), 0);
    EXPECT_EQ(c.FiltriAND[1].Stato, Vero) << "the table is written only by a move or the close";

    e.chiudi();
    EXPECT_EQ(c.FiltriAND.count(), 0);
    EXPECT_EQ(EditorFiltri(c, c.FiltriAND).totaleON(), 0);
}
