#include "core/dialogs/Celle.h"
#include "core/dialogs/Condizione.h"
#include "core/dialogs/Riduzioni.h"
#include "core/dialogs/Somma.h"
#include "core/dialogs/SweepGesture.h"

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

TEST(SommaDialog, LimitsAreTheSumsOfTheSmallestAndLargestNumbers) {
    Corpo c = Forecast({40, 3, 90, 12, 7}, 3);
    const LimitiSomma l = CaricaSomma(c);
    EXPECT_EQ(l.labMin, 3 + 7 + 12);
    EXPECT_EQ(l.labMax, 12 + 40 + 90);
    EXPECT_EQ(c.pronostico.Numeri[0], 3); // Numeri sorted at load
}

TEST(SommaDialog, StoredValueShownOnlyWhenSetAndWithinTheNewForecast) {
    const LimitiSomma l{30, 200};
    EXPECT_EQ(ValoreSommaIniziale(50, l, l.labMin), 50);
    EXPECT_EQ(ValoreSommaIniziale(0, l, l.labMin), 30);
    EXPECT_EQ(ValoreSommaIniziale(29, l, l.labMin), 30); // below the minimum of a new forecast
    EXPECT_EQ(ValoreSommaIniziale(201, l, l.labMax), 200);
    EXPECT_EQ(ValoreSommaIniziale(200, l, l.labMax), 200);
}

TEST(SommaDialog, ValidRangeClosesAndIsWritten) {
    Corpo c;
    test::FakeUi ui;
    const EsitoSomma e = ChiudiSomma(c, ui, {30, 200}, 40, 150);
    EXPECT_TRUE(e.chiudi);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_EQ(c.condizioni.SommaMinMax[0], 40);
    EXPECT_EQ(c.condizioni.SommaMinMax[1], 150);
}

TEST(SommaDialog, EveryFailedCheckBeepsAndWarnsYetTheValuesAreKept) {
    Corpo c;
    test::FakeUi ui;
    int beeps = 0;
    // A reversed range within the limits fails the first check only.
    const EsitoSomma e = ChiudiSomma(c, ui, {30, 200}, 150, 40, [&] { ++beeps; });
    EXPECT_FALSE(e.chiudi);
    EXPECT_EQ(beeps, 1);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0022>");
    EXPECT_EQ(ui.boxes[0].title, " !!! ERROR !!! ");
    EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Exclamation);
    EXPECT_EQ(e.focus, CampoSomma::A);
    EXPECT_EQ(c.condizioni.SommaMinMax[0], 150);
    EXPECT_EQ(c.condizioni.SommaMinMax[1], 40);

    // A range wider than the forecast fails the second and the third, both shown.
    ui.boxes.clear();
    const EsitoSomma e2 = ChiudiSomma(c, ui, {30, 200}, 10, 300, [&] { ++beeps; });
    EXPECT_FALSE(e2.chiudi);
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_EQ(ui.boxes[0].text, "<0023>");
    EXPECT_EQ(ui.boxes[1].text, "<0024>");
    EXPECT_EQ(e2.focus, CampoSomma::A); // the last failed check moves the focus last
    EXPECT_EQ(beeps, 3);
}

TEST(SommaDialog, EmptyBoxReadsAsZeroSkipsItsCheckAndKeepsTheOldValue) {
    Corpo c;
    c.condizioni.SommaMinMax = {77, 88};
    test::FakeUi ui;
    const EsitoSomma e = ChiudiSomma(c, ui, {30, 200}, std::nullopt, 150);
    EXPECT_TRUE(e.chiudi);
    EXPECT_EQ(c.condizioni.SommaMinMax[0], 77);
    EXPECT_EQ(c.condizioni.SommaMinMax[1], 150);

    // An empty meA is 0 for the first check, so any minimum exceeds it.
    const EsitoSomma e2 = ChiudiSomma(c, ui, {30, 200}, 40, std::nullopt);
    EXPECT_FALSE(e2.chiudi);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0022>");
    EXPECT_EQ(c.condizioni.SommaMinMax[1], 150);
}

TEST(SommaDialog, LockedSystemClosesWithoutChecksOrWrites) {
    Corpo c;
    c.SistemaBloccato = -1;
    c.condizioni.SommaMinMax = {5, 6};
    test::FakeUi ui;
    EXPECT_TRUE(ChiudiSomma(c, ui, {30, 200}, 300, 10).chiudi);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_EQ(c.condizioni.SommaMinMax[0], 5);
}

TEST(ConditionSwitch, OnlyIndexZeroSwitchesOn) {
    int16_t flag = Falso;
    ImpostaCondizione(flag, 0);
    EXPECT_EQ(flag, Vero);
    EXPECT_EQ(IndiceCondizione(flag), 0);
    ImpostaCondizione(flag, 1);
    EXPECT_EQ(flag, Falso);
    EXPECT_EQ(IndiceCondizione(flag), 1);
}

TEST(PariDialog, ShowsCellsUpToLengthAndKeepsHiddenEntries) {
    Corpo c;
    c.LenColonna = 10;
    c.condizioni.TabPari[3] = Vero;
    c.condizioni.TabPari[20] = Vero;
    DialogoPari d(c);
    EXPECT_TRUE(d.visibile(10));
    EXPECT_FALSE(d.visibile(11));
    EXPECT_TRUE(d.acceso(3));
    EXPECT_TRUE(d.acceso(20));
    EXPECT_FALSE(d.click(3));
    EXPECT_EQ(c.condizioni.TabPari[3], Falso); // written at the click
    EXPECT_TRUE(d.click(0));
    EXPECT_EQ(c.condizioni.TabPari[0], Vero);
    EXPECT_EQ(c.condizioni.TabPari[20], Vero);
}

TEST(ConsecutiviDialog, LongestRunOfTheForecastIsHeldAtLength) {
    Corpo c = Forecast({1, 2, 3, 7, 8, 20, 21, 22, 23, 24}, 4);
    DialogoConsecutivi d(c);
    EXPECT_EQ(d.sequenzaMassima(), 4); // 20..24 is five long, held at LenColonna
    c.LenColonna = 10;
    EXPECT_EQ(SequenzaPronostico(c), 5);
    Corpo spread = Forecast({2, 4, 6}, 2);
    EXPECT_EQ(DialogoConsecutivi(spread).sequenzaMassima(), 1);
}

TEST(ConsecutiviDialog, MaskRoundTripsThroughTheCellsHiddenOnesIncluded) {
    Corpo c = Forecast(test::Range(1, 12), 5);
    c.consecutivi.MaskConsecutivi = Potenze2[1] | Potenze2[3] | Potenze2[9];
    DialogoConsecutivi d(c);
    EXPECT_TRUE(d.acceso(1));
    EXPECT_TRUE(d.acceso(9));
    EXPECT_FALSE(d.visibile(9));
    d.click(3);
    d.click(2);
    d.chiudi();
    EXPECT_EQ(c.consecutivi.MaskConsecutivi, Potenze2[1] | Potenze2[2] | Potenze2[9]);
}

TEST(FisseDialog, OnlyForecastNumbersUpToOneFreePosition) {
    Corpo c = Forecast({5, 10, 15, 20}, 3);
    DialogoFisse d(c);
    EXPECT_EQ(d.limite(), 2);
    EXPECT_FALSE(d.click(0)); // number 1 is not in the forecast
    EXPECT_TRUE(d.click(4));
    EXPECT_TRUE(d.click(9));
    EXPECT_FALSE(d.click(14)); // the limit
    EXPECT_EQ(d.conteggio(), 2);
    EXPECT_TRUE(d.click(4)); // off again
    EXPECT_TRUE(d.click(14));
    d.chiudi();
    EXPECT_EQ(c.condizioni.TabFisse[5], 0);
    EXPECT_EQ(c.condizioni.TabFisse[10], 1);
    EXPECT_EQ(c.condizioni.TabFisse[15], 1);
    EXPECT_EQ(c.condizioni.NumFisse, 2);
}

TEST(FisseDialog, LengthOneFixesNothing) {
    Corpo c = Forecast({5, 10}, 1);
    DialogoFisse d(c);
    EXPECT_EQ(d.limite(), 0);
    EXPECT_FALSE(d.click(4));
}

TEST(FisseDialog, NumberDroppedFromTheForecastDisappearsAtLoad) {
    Corpo c = Forecast({5, 10, 15}, 3);
    c.condizioni.TabFisse[5] = 1;
    c.condizioni.TabFisse[33] = 1;
    c.condizioni.NumFisse = 2;
    DialogoFisse d(c);
    EXPECT_EQ(d.conteggio(), 1);
    EXPECT_EQ(c.condizioni.NumFisse, 1); // even if the user changes nothing
    d.chiudi();
    EXPECT_EQ(c.condizioni.TabFisse[33], 0);
}

TEST(FisseDialog, LockedSystemIsShownButNotRewritten) {
    Corpo c = Forecast({5, 10, 15}, 3);
    c.condizioni.TabFisse[33] = 1;
    c.condizioni.NumFisse = 1;
    c.SistemaBloccato = -1;
    DialogoFisse d(c);
    d.chiudi();
    EXPECT_EQ(c.condizioni.NumFisse, 1);
    EXPECT_EQ(c.condizioni.TabFisse[33], 1);
}

TEST(Reductions, BarsKeepTheirValuesInRange) {
    Corpo c;
    c.LenColonna = 6;
    c.condizioni.ValRidotto = 9;
    EXPECT_EQ(CaricaRidotto(c).valore, 6);
    EXPECT_EQ(CaricaRidotto(c).minimo, 0);
    c.distanzaMinima.ValDistanzaMinima = 0;
    EXPECT_EQ(CaricaDistanzaMinima(c).valore, 1);
    c.distanzaMinima.ValDistanzaMinima = 4;
    EXPECT_EQ(CaricaDistanzaMinima(c).valore, 4);
    c.distanzaMinima.ValDistanzaMinima = 30;
    EXPECT_EQ(CaricaDistanzaMinima(c).valore, 6);
}

TEST(Reductions, TheDialogClosedLastWinsWithItsWarning) {
    Corpo c;
    test::FakeUi ui;
    c.condizioni.CondRidotto = Vero;
    c.distanzaMinima.CondDistanzaMinima = Vero;
    ChiudiRidotto(c, ui, 2);
    EXPECT_EQ(c.condizioni.ValRidotto, 2);
    EXPECT_EQ(c.condizioni.CondRidotto, Vero);
    EXPECT_EQ(c.distanzaMinima.CondDistanzaMinima, Falso);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0021>");

    c.distanzaMinima.CondDistanzaMinima = Vero;
    ChiudiDistanzaMinima(c, ui, 3);
    EXPECT_EQ(c.distanzaMinima.ValDistanzaMinima, 3);
    EXPECT_EQ(c.condizioni.CondRidotto, Falso);
    EXPECT_EQ(ui.boxes.back().text, "<0005>");

    ChiudiRidotto(c, ui, 1); // only one on: no warning
    EXPECT_EQ(ui.boxes.size(), 2u);
}

TEST(SweepGesture, PressTogglesAndEachCellEnteredTogglesOnce) {
    SweepGesture g;
    EXPECT_FALSE(g.move(3)); // no button held
    EXPECT_TRUE(g.press(3));
    EXPECT_FALSE(g.move(3)); // still inside the pressed cell
    EXPECT_TRUE(g.move(4));
    EXPECT_FALSE(g.move(4));
    EXPECT_FALSE(g.move(-1)); // between cells
    EXPECT_TRUE(g.move(4));   // entered again
    EXPECT_TRUE(g.move(3));
    EXPECT_EQ(g.last(), 3);
    g.release();
    EXPECT_FALSE(g.move(5));
    EXPECT_FALSE(g.press(-1)); // beside the cells: no gesture
    EXPECT_FALSE(g.move(5));
}
