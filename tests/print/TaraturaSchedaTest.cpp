#include "print/TaraturaScheda.h"

#include "settings/TempDir.h"

#include <gtest/gtest.h>

namespace dv {
namespace {

TEST(Calibration, MissingFileGivesTheDefaultsASavedFileKeepsTheKeyOrderAndADecimalCommaIsRead) {
    // Bars hold tenths of a millimetre and give the same value back (their texts: the window test).
    for (int b = 0; b <= 3000; ++b)
        ASSERT_EQ(BarraDaMm(MmDaBarra(b)), b);
    test::TempDir dir;
    const std::string path = PercorsoTaratura(dir.path(), "Ufficio/2");
    EXPECT_EQ(path, dir.path() + "/printer/Ufficio_2.prn");
    SlipCalibration c = LoadCalibration(path);
    EXPECT_EQ(c.POSX_UNO, 10.8f);
    EXPECT_EQ(c.STAMPANTE, "NESSUNA");
    EXPECT_EQ(c.INTENSITA_STAMPA, 1111);

    c.POSX_UNO = MmDaBarra(112);
    c.POSY_OPZIONIGIOCO = 350.5f; // beyond a bar's range: kept as it is
    c.STAMPANTE = "";
    c.INTENSITA_STAMPA = 9999;
    ASSERT_TRUE(SalvaTaratura(path, c));
    EXPECT_EQ(dir.read("printer/Ufficio_2.prn"),
              "[IMPOSTAZIONI]\nPOSX_UNO=11.2\nPOSY_UNO=26\nDISX_UNO=7.8\nDISY_UNO=7.8\n"
              "POSX_IMPORTI=10.8\nPOSY_IMPORTI=100\nPOSX_ESTRAZIONI=10.8\nPOSY_ESTRAZIONI=112\n"
              "POSX_OPZIONIGIOCO=14.8\nPOSY_OPZIONIGIOCO=350.5\nPOSX_INTESTAZIONE=3\n"
              "POSY_INTESTAZIONE=183\nSTAMPANTE=\nINTENSITA_STAMPA=9999\n");
    EXPECT_TRUE(LoadCalibration(path).qualitaNormale()); // what else reads back: see the fuzz target

    // A decimal comma is read; a bad number gives the default.
    c = LoadCalibration(dir.write("a.prn", "[IMPOSTAZIONI]\nPOSX_UNO=12,5\nPOSY_UNO=abc\n"));
    EXPECT_EQ(c.POSX_UNO, 12.5f);
    EXPECT_EQ(c.POSY_UNO, 26.0f);
}

} // namespace
} // namespace dv
