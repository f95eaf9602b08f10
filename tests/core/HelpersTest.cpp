#include "core/Helpers.h"
#include "core/Engine.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

using namespace dv;

TEST(Helpers, IntegralCountsAndNumberFormats) {
    EXPECT_EQ(ColonneIntegrali(10, 10), 1.0);
    EXPECT_EQ(ColonneIntegrali(5, 6), 0.0);
    EXPECT_NEAR(ColonneIntegrali(90, 25) / 1.1613412635260274e22, 1.0, 1e-6);
    EXPECT_EQ(FormatIntero(0), "0");
    EXPECT_EQ(FormatIntero(4000000), "4.000.000");
    EXPECT_EQ(FormatContatore(593775, ','), " 593,775");
    const uint8_t nums[] = {3, 0, 45, 7};
    EXPECT_EQ(NumeriToString(nums, 4, 1), "03 45 07");
    EXPECT_EQ(MaskToString(0b1010, 5), "01 03");
    EXPECT_EQ(DataToYYYYMMDD(45000.0), "20230315");
    EXPECT_EQ(DataToYYYYMMDD(1.0), "18991231");
    for (const auto& [secondi, testo] :
         {std::pair{86400 + 3723.0, "1 Day 01:02:03"}, {59.6, "0 Days 00:01:00"}, {4.4, "0 Days 00:00:04"}})
        EXPECT_EQ(TestoTempoTrascorso(secondi), testo) << secondi;

    // Figures grouped and with the decimal point the language says.
    test::FakeUi ui;
    EXPECT_EQ(FormatDecimale(1234.5, SeparatoreMigliaia(ui), SeparatoreDecimali(ui)), "1.234,50");
    ui.texts = {{"0221", ","}, {"0222", "."}};
    EXPECT_EQ(FormatDecimale(1234.5, SeparatoreMigliaia(ui), SeparatoreDecimali(ui)), "1,234.50");
    EXPECT_EQ(FormatDecimale(0.004, ',', '.'), "0.00");
    EXPECT_EQ(FormatDecimale(999.999, ',', '.'), "1,000.00");
}

TEST(Description, FollowsTheConditionsInForce) {
    test::FakeUi ui;
    Corpo c;
    EXPECT_EQ(DescrizioneSistema(c, ui), "<0062>");
    c.condizioni.CondSomma = Vero;
    EXPECT_EQ(DescrizioneSistema(c, ui), "<0060>");
    c.distanzaMinima.CondDistanzaMinima = Vero;
    c.distanzaMinima.ValDistanzaMinima = 3;
    EXPECT_EQ(DescrizioneSistema(c, ui), "<0061> [3] - <0060>");
    c.condizioni.CondSomma = Falso;
    EXPECT_EQ(DescrizioneSistema(c, ui), "<0061> [3]");
    c.condizioni.CondRidotto = Vero;
    c.condizioni.ValRidotto = 2;
    EXPECT_EQ(DescrizioneSistema(c, ui), "<0018> N-2");
    c.FiltriXOR.append(test::Filtro({1}, 1));
    EXPECT_EQ(DescrizioneSistema(c, ui), "<0018> N-2 <0060>") << "XOR counts for a reduction";
    c.condizioni.CondRidotto = Falso;
    c.distanzaMinima.CondDistanzaMinima = Falso;
    EXPECT_EQ(DescrizioneSistema(c, ui), "<0062>") << "and nowhere else";
}
