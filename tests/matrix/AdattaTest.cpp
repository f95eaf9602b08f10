#include "matrix/Adatta.h"
#include "matrix/Catalogo.h"
#include "matrix/SupportoMatrici.h"
#include "support/FakeUi.h"
#include "support/StateBuilder.h"

#include <gtest/gtest.h>

#include <deque>
#include <fstream>

namespace dv {
namespace {

using test::CartellaTemporanea;
using test::MatriceDi;

// A forecast of the given numbers, in that order, with the grid to match.
void Pronostico(Corpo& c, std::vector<uint8_t> numeri, int len) {
    c.LenColonna = static_cast<int16_t>(len);
    c.pronostico.Quanti = static_cast<uint8_t>(numeri.size());
    c.pronostico.Numeri.fill(0);
    for (size_t i = 0; i < numeri.size(); ++i) {
        c.pronostico.Numeri[i] = numeri[i];
        c.Griglia[numeri[i] - 1u] = true;
    }
}

TEST(AdattaTest, SmallMatrixByHandWithFixedNumberAndReductionAndOneWithout) {
    CartellaTemporanea dir("adatta");
    // V=5, K=3, T=2, F=1: columns {1,2,3}, {1,4,5}, {2,4,5}.
    MATRIX_STRUCTURE m = MatriceDi(5, 2, 3, {{1, 2, 3}, {1, 4, 5}, {2, 4, 5}});
    m.FIXED_NUMBERS_OF_MATRIX_F = 1;
    ScriviMatrice(dir.in("matrici/m.mqvn"), m);

    Corpo c;
    c.ModalitaRicalcolo = Vero;
    Pronostico(c, {50, 10, 40, 20, 30}, 3); // the order the order window left
    c.condizioni.CondSomma = Vero;
    test::FakeUi ui;
    // Cancel, out of range, not in the forecast, then 30.
    std::deque<std::optional<std::string>> risposte = {std::nullopt, "91", "7", " 30 "};
    std::vector<std::string> domande;
    const ChiediNumero chiedi = [&](const std::string& domanda, const std::string& proposta) {
        domande.push_back(domanda + "|" + proposta);
        const auto r = risposte.front();
        risposte.pop_front();
        return r;
    };
    FisseMatrice fisse(c.LenColonna);
    AdattaMatriceCatalogo(c, ui, dir.in("matrici/m.mqvn"), fisse, chiedi);
    // The same prompt until a number of the forecast, the first number proposed.
    EXPECT_EQ(domande, std::vector<std::string>(4, "<0015>1<0016> ?|50"));
    EXPECT_EQ(ui.boxes.at(0).text, "<0014>\n\n30   \n\n");
    // 30 moved to the head: the order is 30 10 40 20 50, index i is the i-th of it.
    EXPECT_EQ(test::StoredColumns(c),
              (std::vector<std::vector<int>>{{10, 30, 40}, {20, 30, 50}, {10, 20, 50}}));
    EXPECT_EQ(c.condizioni.CondSomma, Falso); // reset
    EXPECT_EQ(c.condizioni.CondFisse, Vero);
    EXPECT_EQ(c.condizioni.NumFisse, 1);
    EXPECT_EQ(c.condizioni.TabFisse[30], 1);
    EXPECT_EQ(c.condizioni.CondRidotto, Vero);
    EXPECT_EQ(c.condizioni.ValRidotto, 1);
    EXPECT_EQ(c.pronostico.Descrizione, "<0018> N-1");
    EXPECT_EQ(c.SistemaBloccato, 0); // locked, then unlocked for recompute mode
    EXPECT_NE(std::find(ui.calls.begin(), ui.calls.end(), "conditionMarksChanged"), ui.calls.end());

    // K equal to T: no reduction, no fixed numbers, and outside recompute mode the system stays locked.
    ScriviMatrice(dir.in("matrici/kt.mqvn"), MatriceDi(4, 2, 2, {{1, 2}, {3, 4}, {2, 3}}));
    Corpo kt;
    Pronostico(kt, {1, 2, 3, 4}, 2);
    FisseMatrice nessuna(2);
    AdattaMatriceCatalogo(kt, ui, dir.in("matrici/kt.mqvn"), nessuna, {});
    EXPECT_EQ(kt.pronostico.Descrizione, "<0017>");
    EXPECT_EQ(kt.condizioni.CondRidotto, Falso);
    EXPECT_EQ(kt.condizioni.CondFisse, Falso);
    EXPECT_EQ(kt.SistemaBloccato, -1);
}

TEST(AdattaTest, TooManyColumnsOrAnIndexOutsideTheForecastLeaveTheSystemAsItWasAndAStopEmptiesIt) {
    Corpo c;
    Pronostico(c, {1, 2, 3, 4}, 2);
    c.pronostico.NumColonne = 1;
    c.pronostico.Descrizione = "prima";
    const uint8_t col[2] = {1, 2};
    c.Colonne.setColumn(1, col, 2);
    c.condizioni.CondSomma = Vero;
    test::FakeUi ui;
    FisseMatrice fisse(2);

    MATRIX_STRUCTURE grande;
    grande.NUMBERS_OF_MATRIX_V = 4;
    grande.LENGTH_OF_COLUMN_K = 2;
    grande.COLUMNS_OF_MATRIX_C = 4'000'001; // no body needed: refused before it is read
    EXPECT_EQ(test::Errore([&] { AdaptMatrix(c, ui, grande, fisse, {}); }), "-2147211504 <0012>\n<0013>");
    EXPECT_NE(test::Errore([&] { AdaptMatrix(c, ui, MatriceDi(5, 2, 2, {{1, 5}}), fisse, {}); }), "none");
    EXPECT_EQ(c.pronostico.NumColonne, 1);
    EXPECT_EQ(c.pronostico.Descrizione, "prima");
    EXPECT_EQ(c.condizioni.CondSomma, Vero);
    EXPECT_EQ(c.Colonne.get(1, 2), 2);
    EXPECT_TRUE(ui.calls.empty());

    // A stop during the adaptation leaves an empty system.
    std::vector<std::vector<uint8_t>> colonne(70'000, {1, 2});
    std::vector<int32_t> fatte;
    EXPECT_FALSE(AdaptMatrix(c, ui, MatriceDi(4, 2, 2, colonne), fisse, {}, [&](int32_t n, int32_t totale) {
        EXPECT_EQ(totale, 70'000);
        fatte.push_back(n);
        return n == 0; // stopped at the second report
    }));
    EXPECT_EQ(fatte, (std::vector<int32_t>{0, 65'536}));
    EXPECT_EQ(c.pronostico.NumColonne, 0);
}

TEST(AdattaTest, TextMatrixMustFitTheForecast) {
    CartellaTemporanea dir("testo");
    std::ofstream(dir.in("txt/m.txt")) << "1 2\n3 4\n2 3\n";
    Corpo c;
    Pronostico(c, {5, 6, 7}, 2);
    test::FakeUi ui;
    EXPECT_EQ(test::Errore([&] { ImportaMatricePerAdattare(c, ui, dir.in("txt/m.txt"), 46000); }),
              "-2147211504 <0008>\n<0013>");
    Pronostico(c, {5, 6, 7, 8}, 2);
    const MATRIX_STRUCTURE m = ImportaMatricePerAdattare(c, ui, dir.in("txt/m.txt"), 46000);
    FisseMatrice fisse(2);
    AdattaMatriceTesto(c, ui, m, true, fisse, {});
    EXPECT_EQ(c.pronostico.Descrizione, "<0017>");
    EXPECT_EQ(test::StoredColumns(c), (std::vector<std::vector<int>>{{5, 6}, {7, 8}, {6, 7}}));
}

TEST(AdattaTest, SaveAsMatrixOnlyChecks) {
    Corpo c;
    test::FakeUi ui;
    EXPECT_FALSE(SalvaComeMatrice(c, ui));
    EXPECT_EQ(ui.boxes.back().text, "<0056>");
    EXPECT_EQ(ui.boxes.back().title, "<0055>");
    Pronostico(c, {1, 2, 3}, 2);
    c.pronostico.NumColonne = 3;
    c.condizioni.CondFisse = Vero;
    c.condizioni.NumFisse = 2;
    c.condizioni.TabFisse[1] = 1;
    c.condizioni.TabFisse[3] = 1;
    EXPECT_FALSE(SalvaComeMatrice(c, ui));
    EXPECT_EQ(ui.boxes.back().text, "<0057>");
    c.condizioni.TabFisse[2] = 1;
    Pronostico(c, {1, 3, 2}, 2);
    EXPECT_FALSE(SalvaComeMatrice(c, ui));
    EXPECT_EQ(ui.boxes.back().text, "<0058>");
    Pronostico(c, {1, 2, 3}, 2);
    ui.boxes.clear();
    EXPECT_TRUE(SalvaComeMatrice(c, ui));
    EXPECT_TRUE(ui.boxes.empty());
}

} // namespace
} // namespace dv
