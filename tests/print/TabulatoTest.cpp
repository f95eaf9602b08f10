#include "print/Tabulato.h"

#include "Registro.h"
#include "support/FakeUi.h"
#include "support/StateBuilder.h"

#include <gtest/gtest.h>

namespace dv {
namespace {

using test::Conta;
using test::ContaInizio;
using test::Righe;

struct Listing : ::testing::Test {
    Corpo c;
    OpzioniTabulato o;
    test::FakeUi ui;

    // A system of n columns of length 10: column j holds j % 90 + 1 first.
    void sistema(int32_t n) {
        c.LenColonna = 10;
        c.pronostico.NumColonne = n;
        for (int32_t j = 1; j <= n; ++j)
            for (int p = 1; p <= 10; ++p)
                c.Colonne.set(j, p, static_cast<uint8_t>((j + p - 2) % 90 + 1));
    }
    std::vector<std::string> stampa() {
        std::ostringstream s;
        RegistroStampa r(s);
        StampaTabulato(c, o, r, ui);
        return Righe(s.str());
    }
};

TEST_F(Listing, BlocksOfTwentyColumnsAndPageBreaksByCount) {
    // columns, forecast on: blocks, pages broken after block 3 and then every 5.
    const struct {
        int32_t colonne;
        long blocchi, pagine;
    } casi[] = {{0, 0, 0}, {20, 1, 0}, {21, 2, 0}, {60, 3, 0}, {61, 4, 1}, {160, 8, 1}, {161, 9, 2}};
    for (const auto& k : casi) {
        sistema(k.colonne);
        const auto ops = stampa();
        // A block opens and closes with the ruler; the heading and the forecast print five more.
        EXPECT_EQ(ContaInizio(ops, "text \"\u2014\u2014"), 5 + 2 * k.blocchi) << k.colonne;
        EXPECT_EQ(Conta(ops, "page"), k.pagine) << k.colonne;
        EXPECT_EQ(ops.back(), "end");
    }
    o.colonne = o.pronostico = false; // nothing selected: nothing printed
    EXPECT_TRUE(stampa().empty());
}

TEST_F(Listing, ARowOfABlockHoldsOnlyItsColumns) {
    sistema(21);
    const auto ops = stampa();
    // Block 1: twenty cells a row, ten rows; block 2: one cell a row.
    EXPECT_EQ(Conta(ops, "inline \"| \""), 10 * 20 + 10 * 1);
    const auto it = std::find(ops.begin(), ops.end(), "inline \"21 \"");
    ASSERT_NE(it, ops.end());
    EXPECT_EQ(*(it + 1), "inline \"| \"");
    EXPECT_EQ((it + 2)->rfind("pos 120.00 ", 0), 0u);
}

TEST_F(Listing, WithoutTheForecastEachCopyGrowsTheFirstPage) {
    o.pronostico = false;
    o.copie = 2;
    sistema(200); // ten blocks
    const auto ops = stampa();
    // Copy 1: 4 blocks, then 5, then 1 (2 breaks); copy 2: 5 blocks then 5 (1 break).
    EXPECT_EQ(Conta(ops, "page"), 3);
    EXPECT_EQ(Conta(ops, "end"), 2);
    EXPECT_EQ(ContaInizio(ops, "text \"Pag. 1 "), 2);
    EXPECT_EQ(ContaInizio(ops, "text \"Pag. 3 "), 1);
}

TEST_F(Listing, ForecastLinesHoldThirtyNumbersAndAFullLineAddsAnEmptyOne) {
    test::SetForecast(c, test::Range(1, 30));
    sistema(0);
    o.colonne = false;
    auto ops = stampa();
    auto it = std::find(ops.begin(), ops.end(), "inline \"30 \"");
    ASSERT_NE(it, ops.end());
    // Two steps of 250 follow the 30th number before the ruler: one empty line.
    const auto prima = std::find(ops.begin(), ops.end(), "inline \"01 \"");
    ASSERT_NE(prima, ops.begin());
    const double y0 = std::stod((prima - 1)->substr(11));
    EXPECT_EQ(*(it + 1), "pos 120.00 " + std::to_string(static_cast<int>(y0 + 500)) + ".00");

    test::SetForecast(c, test::Range(1, 31));
    ops = stampa();
    it = std::find(ops.begin(), ops.end(), "inline \"31 \"");
    ASSERT_NE(it, ops.end());
    EXPECT_EQ(*(it - 1), "pos 120.00 " + std::to_string(static_cast<int>(y0 + 250)) + ".00");
}

TEST_F(Listing, HeadingAndConditionsTakeTheSystemsData) {
    sistema(3);
    c.CostoColonna = 1.5f;
    c.TipoGiocata = 3;
    c.condizioni.CondPari = Vero;
    c.condizioni.TabPari[4] = Vero;
    c.condizioni.TabPari[6] = Vero;
    o.intestazione = "RICEVITORIA";
    o.sitoWeb = "example.test";
    o.colori = false;
    const auto ops = stampa();
    EXPECT_EQ(ops[0], "units twips");
    EXPECT_EQ(ops[1], "font Consolas 10.00 bold");
    EXPECT_EQ(ops[2], "pos 120.00 250.00");
    EXPECT_EQ(ops[3], "text \"Pag. 1 RICEVITORIA - By Norvane - example.test\"");
    EXPECT_EQ(Conta(ops, "text \"<0041> € 4.50\""), 1);
    EXPECT_EQ(ContaInizio(ops, "picture logoBW 4000.00 "), 1);
    EXPECT_EQ(ContaInizio(ops, "picture vietatoBW 4000.00 "), 1);
    EXPECT_EQ(Conta(ops, "text \"<0036>   : --  --\""), 1);
    // Even counts and the odd counts that go with them, for columns of 10.
    EXPECT_TRUE(test::Segue(ops, {"inline \"<0033>    : \"", "inline \"04 \"", "inline \"06 \""}));
    EXPECT_TRUE(test::Segue(ops, {"inline \"<0034> : \"", "inline \"06 \"", "inline \"04 \""}));
    EXPECT_EQ(ContaInizio(ops, "text \"<0042> : 0\t - <0043> :  - Tipo giocata : Doppio ORO"), 1);
}

} // namespace
} // namespace dv
