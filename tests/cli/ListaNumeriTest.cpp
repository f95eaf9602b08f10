// The number lists and ranges of the command line, and the reader of language texts.
#include "cli/LinguaIni.h"
#include "cli/ListaNumeri.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

using namespace dv::cli;

TEST(ListaNumeri, ReadsNumbersAndRangesInAnyOrder) {
    std::string why;
    EXPECT_EQ(LeggiLista("45,1-3,2", 1, 90, why), (std::vector<int>{1, 2, 3, 45}));
    EXPECT_EQ(LeggiLista("0", 0, 25, why), (std::vector<int>{0}));
    EXPECT_EQ(LeggiIntervallo("10:200", 0, 2250, why), std::make_pair(10, 200));
}

TEST(ListaNumeri, RefusesMalformedAndOutOfRangeItems) {
    std::string why;
    for (const char* bad : {"", "1,,2", "a", "3-1", "1-", "0-5", "91", "1.5", "-2"}) {
        EXPECT_FALSE(LeggiLista(bad, 1, 90, why)) << bad;
        EXPECT_FALSE(why.empty());
    }
    for (const char* bad : {"", "10", "20:10", "1:x", "-1:5", "0:3000"}) EXPECT_FALSE(LeggiIntervallo(bad, 0, 2250, why)) << bad;
}

TEST(LinguaIniTest, ReadsOnlyTheStringsSectionAndDropsQuotes) {
    dv::test::CartellaTemporanea dir;
    dv::test::Bytes{}
        .text("[frmMAIN]\r\n0055=wrong\r\n[strings]\r\n 0055 = \"Attenzione\"\r\n0060=Sistema Condizionato\r\n")
        .text("; comment\r\n0061=Distanza \xE0 \x80\r\n[Other]\r\n0062=no\r\n")
        .save(dir.file("it.lng"));
    LinguaIni lingua(dir.file("it.lng"));
    EXPECT_TRUE(lingua.caricata());
    EXPECT_EQ(lingua.testo("0055"), "Attenzione");
    EXPECT_EQ(lingua.testo("0060"), "Sistema Condizionato");
    EXPECT_EQ(lingua.testo("0062"), "");
    EXPECT_EQ(AnsiToUtf8(lingua.testo("0061")), "Distanza \xC3\xA0 \xE2\x82\xAC");
    EXPECT_EQ(LinguaIni(dir.file("none.lng")).testo("0055"), "");
}
