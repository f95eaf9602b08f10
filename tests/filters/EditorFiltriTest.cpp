#include "filters/EditorFiltri.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

namespace {
Corpo ConPronostico(const std::vector<int>& numeri, int len = 6) {
    Corpo c;
    c.LenColonna = static_cast<int16_t>(len);
    test::SetForecast(c, numeri);
    return c;
}
} // namespace

TEST(EditorFiltri, LoadShowsRecordOneAndTakesTheOnCountFromTheTable) {
    Corpo c = ConPronostico({1, 2, 3, 4, 5, 6, 7, 8});
    c.FiltriOR.append(test::Filtro({2, 3, 40}, 0b101));
    c.FiltriOR.append(test::Filtro({4}, 1));
    EditorFiltri e(c, TabellaDelTipo(c, TipoFiltro::OR));

    EXPECT_EQ(e.indice(), 1);
    EXPECT_EQ(e.totaleON(), 2);
    EXPECT_EQ(e.totaleOFF(), 149'998);
    EXPECT_TRUE(e.acceso());
    EXPECT_TRUE(e.numero(2));
    EXPECT_TRUE(e.numero(3));
    EXPECT_FALSE(e.numero(40)) << "a number outside the forecast is not shown";
    EXPECT_EQ(e.numSelezionati(), 2);
    EXPECT_TRUE(e.presenza(0));
    EXPECT_FALSE(e.presenza(1));
    EXPECT_TRUE(e.presenza(2));
    EXPECT_TRUE(e.presenzaVisibile(6));
    EXPECT_FALSE(e.presenzaVisibile(7));
}

TEST(EditorFiltri, OnlyForecastNumbersCanBeChosenAndASaveDropsTheOthers) {
    Corpo c = ConPronostico({1, 2, 3, 4, 5, 6, 7, 8});
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

TEST(EditorFiltri, PanelsLeftWithGapsAreCompactedAtCloseWithOffPanelsBehind) {
    Corpo c = ConPronostico(test::Range(1, 20));
    EditorFiltri e(c, c.FiltriXOR);
    auto riempi = [&](int indice, int numero, bool on) {
        while (e.indice() < indice) e.sposta(Spostamento::Avanti1);
        e.clickNumero(numero);
        e.clickPresenza(1);
        if (on) e.clickStato(true);
    };
    riempi(3, 13, false);
    riempi(5, 5, true);
    riempi(8, 18, false);
    riempi(9, 9, true);
    EXPECT_EQ(e.totaleON(), 2);
    e.chiudi();

    ASSERT_EQ(c.FiltriXOR.count(), 2);
    EXPECT_EQ(c.FiltriXOR[1].Numeri[5], 1);
    EXPECT_EQ(c.FiltriXOR[2].Numeri[9], 1);
    EXPECT_EQ(c.FiltriXOR[1].Presenze, 2);
    EXPECT_EQ(c.FiltriXOR[1].Stato, Vero);
    std::vector<int> dietro;
    for (int i = 3; i <= c.FiltriXOR.stored(); ++i)
        for (int n = 1; n <= 90; ++n)
            if (c.FiltriXOR[i].Numeri[static_cast<size_t>(n)]) dietro.push_back(n);
    EXPECT_EQ(dietro, (std::vector<int>{13, 18})) << "OFF panels keep their content, in order";

    EditorFiltri ancora(c, c.FiltriXOR);
    EXPECT_EQ(ancora.totaleON(), 2);
    EXPECT_TRUE(ancora.numero(5));
}

TEST(EditorFiltri, StateClicksCountOnlyChangesAndClearingAlwaysLowersTheCount) {
    Corpo c = ConPronostico(test::Range(1, 10));
    c.FiltriAND.append(test::Filtro({1}, 1));
    EditorFiltri e(c, c.FiltriAND);
    EXPECT_FALSE(e.clickStato(true)) << "clicking the active option changes nothing";
    EXPECT_EQ(e.totaleON(), 1);
    EXPECT_TRUE(e.clickStato(false));
    EXPECT_EQ(e.totaleON(), 0);
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

TEST(EditorFiltri, ClearingTheTableAsksAndOnYesEmptiesIt) {
    Corpo c = ConPronostico(test::Range(1, 10));
    for (int i = 0; i < 3; ++i) c.FiltriOR.append(test::Filtro({i + 1}, 2));
    test::FakeUi ui;
    ui.texts = {{"0006", "Cancellare"}, {"0007", "tutto?"}};
    EditorFiltri e(c, c.FiltriOR);
    e.sposta(Spostamento::Avanti1);

    ui.setNextAnswer(false);
    EXPECT_FALSE(e.cancellaTabella(ui));
    EXPECT_EQ(c.FiltriOR.count(), 3);
    EXPECT_EQ(e.indice(), 2);

    ui.setNextAnswer(true);
    EXPECT_TRUE(e.cancellaTabella(ui));
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_EQ(ui.boxes[1].text, "Cancellare\ntutto?");
    EXPECT_TRUE(ui.boxes[1].question);
    EXPECT_EQ(e.indice(), 1);
    EXPECT_EQ(e.totaleON(), 0);
    EXPECT_EQ(e.numSelezionati(), 0);
    e.chiudi();
    EXPECT_EQ(c.FiltriOR.count(), 0);
}

TEST(EditorFiltri, LockedSystemIsShownButNeitherEditedNorWritten) {
    Corpo c = ConPronostico(test::Range(1, 10));
    c.FiltriAND.append(test::Filtro({1, 2}, 2));
    ColonnaFiltro spento = test::Filtro({3}, 2);
    spento.Stato = Falso;
    c.FiltriAND[2] = spento;
    c.SistemaBloccato = -1;
    EditorFiltri e(c, c.FiltriAND);

    EXPECT_TRUE(e.solaLettura());
    EXPECT_FALSE(e.clickNumero(5));
    EXPECT_FALSE(e.clickPresenza(3));
    EXPECT_FALSE(e.clickStato(false));
    e.sposta(Spostamento::Avanti1);
    EXPECT_TRUE(e.numero(3)) << "the panels can be looked at";
    e.chiudi();
    EXPECT_EQ(c.FiltriAND.count(), 1);
    EXPECT_EQ(c.FiltriAND[2].Numeri[3], 1);
}

TEST(EditorFiltri, WalkingPastTheStoredRecordsLeavesTheTableSmall) {
    Corpo c = ConPronostico(test::Range(1, 10));
    EditorFiltri e(c, c.FiltriAND);
    e.sposta(Spostamento::Ultimo);
    EXPECT_EQ(e.indice(), MaxFiltri);
    e.sposta(Spostamento::Indietro2);
    EXPECT_EQ(e.indice(), MaxFiltri - 100);
    e.clickNumero(4);
    e.clickStato(true);
    e.sposta(Spostamento::Primo);
    EXPECT_EQ(c.FiltriAND.stored(), MaxFiltri - 100) << "empty panels are not stored";
    e.chiudi();
    EXPECT_EQ(c.FiltriAND.count(), 1);
    EXPECT_EQ(c.FiltriAND[1].Numeri[4], 1);
}
