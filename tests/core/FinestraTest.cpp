#include "core/Finestra.h"

#include "core/Sistema.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

TEST(Costo, KindOfPlayMultipliesTheStakeOfEachOption) {
    Corpo c;
    test::FakeUi ui;
    ImpostaImporto(c, ui, 3);     // 2,5
    ImpostaTipoGiocata(c, ui, 3); // Doppio ORO
    EXPECT_FLOAT_EQ(c.CostoColonna, 7.5f);
    EXPECT_FLOAT_EQ(c.IndiceImporto, 3.0f);
    c.pronostico.NumColonne = 1'000'001;
    EXPECT_DOUBLE_EQ(CostoSistema(c), 7'500'007.5);

    // Every stake option is its tag in tenths.
    const double expected[] = {1, 1.5, 2, 2.5, 3, 5, 10, 20, 50, 200};
    for (int i = 0; i < 10; ++i) {
        ImpostaImporto(c, ui, i);
        EXPECT_FLOAT_EQ(c.Importo, static_cast<float>(expected[i])) << i;
    }
    ImpostaImporto(c, ui, 10); // out of the table: nothing changes
    EXPECT_FLOAT_EQ(c.Importo, 200.0f);
}

TEST(Testi, IntegralShownOnlyForAForecastThatFillsAColumnAndNamesFollowTheCurrentFile) {
    Corpo c;
    test::SetForecast(c, test::Range(1, 9));
    EXPECT_EQ(IntegraleMostrato(c), 0.0);
    test::SetForecast(c, test::Range(1, 20));
    EXPECT_EQ(IntegraleMostrato(c), 184756.0);
    c.LenColonna = 21;
    EXPECT_EQ(IntegraleMostrato(c), 0.0);

    c.AppDir = "/data/Dorvanta";
    c.FileCorrente = "/elsewhere/Colonne.TXT";
    EXPECT_EQ(PercorsoSalva(c), "/data/Dorvanta/sistemi/Colonne.dvs");
    EXPECT_EQ(NomeEsportazione(c), "Colonne.txt");
}
