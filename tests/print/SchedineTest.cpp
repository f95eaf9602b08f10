#include "print/Schedine.h"

#include "Registro.h"
#include "support/FakeUi.h"

#include <gtest/gtest.h>

namespace dv {
namespace {

using test::Conta;
using test::Righe;

// Records the slips reported and asks to stop once fermaDopo of them were (never when negative).
struct Avanzamento : AvanzamentoSchedine {
    int fermaDopo = -1;
    std::vector<std::string> testi;
    bool fermata() override { return fermaDopo >= 0 && static_cast<int>(testi.size()) >= fermaDopo; }
    void scheda(int32_t, const std::string& testo) override { testi.push_back(testo); }
};

struct Slip : ::testing::Test {
    Corpo c;
    SlipCalibration cal;
    OpzioniSchedine o;
    test::FakeUi ui;

    Slip() {
        c.LenColonna = 10;
        c.pronostico.NumColonne = 3;
        const uint8_t prima[10] = {1, 5, 12, 23, 34, 45, 56, 67, 78, 90};
        c.Colonne.setColumn(1, prima, 10);
        const uint8_t seconda[10] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
        c.Colonne.setColumn(2, seconda, 10);
        // Column 3 stays empty.
        c.CostoColonna = 2.0f;
        c.TitoloFile = "prova.dvs";
        o.intestazione = "RICEVITORIA";
        o.sitoWeb = "example.test";
        ui.texts["0030"] = "Scheda";
    }
    std::vector<std::string> scheda(int32_t n) {
        std::ostringstream s;
        RegistroStampa r(s);
        r.unita(UnitaStampa::Millimetri);
        StampaScheda(c, cal, o, n, "Scheda", r);
        return Righe(s.str());
    }
};

TEST_F(Slip, MarksOfTheNumbersTheAmountTheKindsOfDrawAndTheGameOptions) {
    auto ops = scheda(1);
    EXPECT_EQ(Conta(ops, "box 10.80 26.00 12.80 28.00"), 1); // number 1
    EXPECT_EQ(Conta(ops, "box 81.00 88.40 83.00 90.40"), 1); // 90: 9 boxes across, 8 down
    EXPECT_EQ(test::ContaInizio(ops, "box "), 10 + 1 + 1);   // numbers, amount, "5 Min"

    c.IndiceImporto = 3;
    c.TipoGiocata = 3;
    o.tipoEstrazione = {true, true, true};
    ops = scheda(2);
    EXPECT_EQ(Conta(ops, "box 34.20 100.00 36.20 102.00"), 1); // 10.8 + 3 * 7.8
    EXPECT_EQ(Conta(ops, "box 26.40 112.00 28.40 114.00"), 1); // 5 Min: + 2 boxes
    EXPECT_EQ(Conta(ops, "box 49.80 112.00 51.80 114.00"), 1); // Lotto: + 3 more
    EXPECT_EQ(Conta(ops, "box 81.00 112.00 83.00 114.00"), 1); // Immediata: + 4 more
    EXPECT_EQ(Conta(ops, "box 33.80 142.00 35.80 144.00"), 1); // the second game option
    EXPECT_EQ(Conta(ops, "text \"               € 6.00\""), 1);
    // An empty column, or no kind of draw, costs nothing.
    EXPECT_EQ(Conta(scheda(3), "text \"               € 0.00\""), 1);
    o.tipoEstrazione = {false, false, false};
    ops = scheda(1);
    EXPECT_EQ(Conta(ops, "text \"               € 0.00\""), 1);
    EXPECT_EQ(test::ContaInizio(ops, "box "), 10 + 1 + 1); // numbers, amount, game option
}

TEST_F(Slip, TestPageMarksEveryBoxAndTheGameOptionsNineteenTwentyTwentyOneMillimetresApart) {
    std::ostringstream s;
    RegistroStampa r(s);
    StampaTestTaratura(c, cal, o, r);
    const auto test = Righe(s.str());
    for (const char* box : {"box 14.80 142.00 16.80 144.00", "box 33.80 142.00 35.80 144.00",
                            "box 53.80 142.00 55.80 144.00", "box 74.80 142.00 76.80 144.00"})
        EXPECT_EQ(Conta(test, box), 1) << box;
    EXPECT_EQ(test::ContaInizio(test, "box "), 90 + 10 + 3 + 4);
    EXPECT_EQ(Conta(test, "text \"Test.dvs Scheda n. 0\""), 1);
    EXPECT_EQ(test.back(), "end");
}

TEST_F(Slip, TextsFollowTheHeaderPositionAndTheTitleLine) {
    const auto ops = scheda(1234);
    const std::vector<std::string> attese = {"font Comic Sans MS 8.00 regular", "pos 3.00 183.00",
                                             "text \"RICEVITORIA\"", "font Comic Sans MS 10.00 bold",
                                             "pos 3.00 2.60", "text \"prova.dvs Scheda n.1,234\"",
                                             "font Arial 20.00 bold",
                                             // The price at the number 1's x, on the line below the title.
                                             "pos 10.80 6.66"};
    EXPECT_TRUE(test::Segue(ops, attese));
}

TEST_F(Slip, RangeIsCheckedBeforeAnythingIsPrinted) {
    EXPECT_FALSE(ControllaIntervallo(c, "3", "2", ui));
    EXPECT_FALSE(ControllaIntervallo(c, "0", "2", ui));
    EXPECT_FALSE(ControllaIntervallo(c, "1", "4", ui));
    ASSERT_EQ(ui.boxes.size(), 3u);
    EXPECT_EQ(ui.boxes[0].text, "<0022>");
    EXPECT_EQ(ui.boxes[1].text, "<0023>");
    EXPECT_EQ(ui.boxes[2].text, "<0024>");
    EXPECT_EQ(ui.boxes[2].title, " !!! ERROR !!! ");
    const auto r = ControllaIntervallo(c, "", "2", ui);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->da, 0);
}

TEST_F(Slip, EverySlipIsFollowedByAPageAndAStopEndsTheJob) {
    std::ostringstream s;
    RegistroStampa r(s);
    Avanzamento avanzamento;
    EXPECT_EQ(StampaScheda10eLottoNew(c, cal, o, {2, 3}, r, avanzamento, ui), EsitoSchedine::Completata);
    auto ops = Righe(s.str());
    EXPECT_EQ(Conta(ops, "page"), 2);
    EXPECT_EQ(ops[ops.size() - 2], "page");
    EXPECT_EQ(ops.back(), "end");
    EXPECT_EQ(avanzamento.testi, (std::vector<std::string>{"Scheda n.00002", "Scheda n.00003"}));

    std::ostringstream s2;
    RegistroStampa r2(s2);
    Avanzamento ferma;
    ferma.fermaDopo = 1;
    EXPECT_EQ(StampaScheda10eLottoNew(c, cal, o, {1, 3}, r2, ferma, ui), EsitoSchedine::Interrotta);
    ops = Righe(s2.str());
    EXPECT_EQ(Conta(ops, "page"), 1);
    EXPECT_EQ(ops.back(), "end");
}

} // namespace
} // namespace dv
