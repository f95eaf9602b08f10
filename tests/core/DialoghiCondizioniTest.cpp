#include "core/dialogs/Celle.h"
#include "core/dialogs/Riduzioni.h"
#include "core/dialogs/Somma.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

namespace {
Corpo Forecast(const std::vector<int>& numbers, int len) {
    Corpo c;
    c.LenColonna = static_cast<int16_t>(len);
    test::SetForecast(c, numbers);
    c.pronostico.Numeri.fill(0); // the dialogs sort Numeri themselves
    return c;
}
} // namespace

// At load the stored value shows only when set and within the forecast's limits. Every failed check
// beeps and warns, the last one moves the focus; the values in the boxes are written even when
// refused, an empty box reads as 0 for its check and keeps the old value.
TEST(SommaDialog, ValuesShownAtLoadAndClosingChecksAndWrites) {
    Corpo f = Forecast({40, 3, 90, 12, 7}, 3); // the limits come from the grid, in ascending order
    const LimitiSomma l = CaricaSomma(f);
    EXPECT_EQ(std::pair(l.labMin, l.labMax), std::pair(3 + 7 + 12, 12 + 40 + 90));
    const LimitiSomma m{30, 200};
    EXPECT_EQ(ValoreSommaIniziale(0, m, m.labMin), 30);
    EXPECT_EQ(ValoreSommaIniziale(29, m, m.labMin), 30);
    EXPECT_EQ(ValoreSommaIniziale(200, m, m.labMin), 200);
    EXPECT_EQ(ValoreSommaIniziale(201, m, m.labMax), 200);

    const struct {
        bool bloccato;
        std::optional<int> da, a;
        bool chiudi;
        std::vector<std::string> boxes;
        std::array<int16_t, 2> somma;
    } casi[] = {
        {false, 40, 150, true, {}, {40, 150}},
        {false, 150, 40, false, {"<0022>"}, {150, 40}},
        {false, 10, 300, false, {"<0023>", "<0024>"}, {10, 300}},
        {false, std::nullopt, 150, true, {}, {77, 150}},
        {false, 40, std::nullopt, false, {"<0022>"}, {40, 88}},
        {true, 300, 10, true, {}, {77, 88}}, // a locked system closes without checks or writes
    };
    for (const auto& k : casi) {
        SCOPED_TRACE(k.da.value_or(-1) * 1000 + k.a.value_or(-1));
        Corpo c;
        c.condizioni.SommaMinMax = {77, 88};
        c.SistemaBloccato = k.bloccato ? -1 : 0;
        test::FakeUi ui;
        int beeps = 0;
        const EsitoSomma e = ChiudiSomma(c, ui, {30, 200}, k.da, k.a, [&] { ++beeps; });
        EXPECT_EQ(e.chiudi, k.chiudi);
        EXPECT_EQ(e.focus, k.chiudi ? CampoSomma::Nessuno : CampoSomma::A);
        EXPECT_EQ(beeps, static_cast<int>(k.boxes.size()));
        ASSERT_EQ(ui.boxes.size(), k.boxes.size());
        for (size_t i = 0; i < k.boxes.size(); ++i) {
            EXPECT_EQ(ui.boxes[i].text, k.boxes[i]);
            EXPECT_EQ(ui.boxes[i].title, " !!! ERROR !!! ");
            EXPECT_EQ(ui.boxes[i].icon, BoxIcon::Exclamation);
        }
        EXPECT_EQ(c.condizioni.SommaMinMax, k.somma);
    }
}

TEST(PariDialog, KeepsTheEntriesOfHiddenCells) {
    Corpo c;
    c.LenColonna = 10;
    c.condizioni.TabPari[20] = Vero;
    DialogoPari d(c);
    EXPECT_FALSE(d.visibile(11));
    EXPECT_TRUE(d.acceso(20));
    EXPECT_TRUE(d.click(0));
    EXPECT_EQ(c.condizioni.TabPari[20], Vero);
}

TEST(ConsecutiviDialog, LongestRunHeldAtLengthAndTheMaskRoundTripsHiddenCellsIncluded) {
    Corpo c = Forecast({1, 2, 3, 7, 8, 20, 21, 22, 23, 24}, 4);
    EXPECT_EQ(DialogoConsecutivi(c).sequenzaMassima(), 4); // 20..24 is five long
    c.LenColonna = 10;
    EXPECT_EQ(SequenzaPronostico(c), 5);

    Corpo m = Forecast(test::Range(1, 12), 5);
    m.consecutivi.MaskConsecutivi = Potenze2[1] | Potenze2[3] | Potenze2[9];
    DialogoConsecutivi d(m);
    EXPECT_TRUE(d.acceso(9));
    EXPECT_FALSE(d.visibile(9));
    d.click(3);
    d.click(2);
    d.chiudi();
    EXPECT_EQ(m.consecutivi.MaskConsecutivi, Potenze2[1] | Potenze2[2] | Potenze2[9]);
}

// Fixed numbers leave one free position (the window's test meets the limit at length 4), so length 1
// fixes nothing.
TEST(FisseDialog, LengthOneFixesNothingAndANumberDroppedFromTheForecastGoesAtLoadUnlessLocked) {
    Corpo uno = Forecast({5, 10}, 1);
    EXPECT_FALSE(DialogoFisse(uno).click(4));
    for (const bool bloccato : {false, true}) {
        Corpo c = Forecast({5, 10, 15}, 3);
        c.condizioni.TabFisse[5] = 1;
        c.condizioni.TabFisse[33] = 1;
        c.condizioni.NumFisse = 2;
        c.SistemaBloccato = bloccato ? -1 : 0;
        DialogoFisse d(c);
        EXPECT_EQ(d.conteggio(), 1);
        EXPECT_EQ(c.condizioni.NumFisse, bloccato ? 2 : 1) << bloccato; // even if nothing is changed
        d.chiudi();
        EXPECT_EQ(c.condizioni.TabFisse[33], bloccato ? 1 : 0) << bloccato;
    }
}

TEST(Reductions, BarsKeepTheirValuesInRangeAndOneConditionOnClosesWithoutAWarning) {
    Corpo c;
    c.LenColonna = 6;
    c.condizioni.ValRidotto = 9;
    EXPECT_EQ(CaricaRidotto(c).valore, 6);
    EXPECT_EQ(CaricaRidotto(c).minimo, 0);
    for (const auto& [stored, shown] : {std::pair{0, 1}, {4, 4}, {30, 6}}) {
        c.distanzaMinima.ValDistanzaMinima = static_cast<int16_t>(stored);
        EXPECT_EQ(CaricaDistanzaMinima(c).valore, shown) << stored;
    }

    // The dialog closed last wins with its warning (see the window tests); only one on: none.
    test::FakeUi ui;
    c.condizioni.CondRidotto = Vero;
    ChiudiRidotto(c, ui, 1);
    ChiudiDistanzaMinima(c, ui, 3);
    EXPECT_EQ(c.condizioni.ValRidotto, 1);
    EXPECT_EQ(c.distanzaMinima.ValDistanzaMinima, 3);
    EXPECT_TRUE(ui.boxes.empty());
}
