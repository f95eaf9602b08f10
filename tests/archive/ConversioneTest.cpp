// The converter from the text format: golden files, the refusal that loses nothing, and the
// literal reading of the rules on thousands of random lines.
#include "archive/Conversione.h"
#include "archive/Archivio.h"
#include "reference/ArchivioLetterale.h"
#include "settings/TempDir.h"
#include "support/FakeUi.h"
#include "tests/archive/LeggiFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <random>

namespace dv {
namespace {

const std::string Dati = DV_ARCHIVE_TEST_DATA;

// The golden file holds every separator, headings and lines of the wrong field count; an empty
// source gives an empty archive. The kinds of line end are left to the random sources below.
TEST(ConvertArchivioTmpToDat, GoldenFileAndAnEmptySource) {
    test::TempDir dir;
    const EsitoConversione e = ConvertArchivioTmpToDat(Dati + "/separatori.txt", dir.file("a.dat"));
    ASSERT_TRUE(e.completata());
    EXPECT_EQ(e.estrazioni, 7);
    EXPECT_EQ(dir.read("a.dat"), test::LeggiFile(Dati + "/separatori.dat"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1); // no stray file
    ASSERT_TRUE(ConvertArchivioTmpToDat(dir.write("in.txt", ""), dir.file("a.dat")).completata());
    test::FakeUi ui;
    EXPECT_TRUE(ArchivioVuoto(LoadArchivioDAT(dir.file("a.dat"), dir.path(), ui)));
}

TEST(ConvertArchivioTmpToDat, AFieldThatCannotConvertOrAMissingSourceKeepThePreviousArchive) {
    test::TempDir dir;
    const std::string out = dir.write("a.dat", "previous archive, byte for byte");
    const EsitoConversione e = ConvertArchivioTmpToDat(Dati + "/campo_non_valido.txt", out);
    EXPECT_EQ(e.tipo, EsitoConversione::Tipo::CampoNonValido);
    EXPECT_EQ(ConvertArchivioTmpToDat(dir.file("missing.txt"), out).tipo,
              EsitoConversione::Tipo::SorgenteIlleggibile);
    EXPECT_EQ(dir.read("a.dat"), "previous archive, byte for byte");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1); // no stray file

    test::FakeUi ui;
    ui.texts = {{"0101", "line"}, {"0102", "field"}};
    const std::string m = MessaggioConversione(e, "in.txt", ui);
    EXPECT_NE(m.find("line 3, field 6 (\"x7\")"), std::string::npos) << m;
    EXPECT_NE(m.find("<0107>"), std::string::npos);
}

// Random lines mixing draw lines, separators of every kind, doubled separators, bad fields, values
// beyond their type, junk read by the lenient fields, and lines ended by CR LF, LF or CR, the last
// one now and then by nothing; the converter and the literal reading must write the same records or
// fail on the same field.
TEST(ConvertArchivioTmpToDat, MatchesTheLiteralReadingOnRandomSources) {
    std::mt19937 rng(20240315);
    const char separatori[] = {' ', '\t', '-', ',', ';', '.', '|'};
    const char* fini[] = {"\r\n", "\n", "\r", ""};
    auto scegli = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    auto campo = [&](int k) -> std::string {
        if (scegli(40) < 6) { // junk: empty, not a number, beyond a byte, signed, an exponent
            const std::string n = std::to_string(scegli(90)), e = std::to_string(scegli(4));
            const std::string junk[] = {"",      "x" + n,     std::to_string(250 + scegli(300)),
                                        "+" + n, n + "e" + e, "7y"};
            return junk[scegli(6)];
        }
        if (k == 0)
            return (scegli(2) ? "0" : "1") + std::to_string(1 + scegli(9)) + "/0" +
                   std::to_string(1 + scegli(9)) + "/2024";
        if (k == 1) return std::to_string(scegli(8) ? scegli(400) : 32760 + scegli(10)); // 32767 the last
        return std::to_string(1 + scegli(90));
    };
    test::TempDir dir;
    for (int prova = 0; prova < 150; ++prova) {
        std::string testo;
        const int righe = 1 + scegli(30);
        for (int l = 0; l < righe; ++l) {
            const int campi = scegli(10) == 0 ? 23 + scegli(3) : 24;
            for (int k = 0; k < campi; ++k) {
                if (k) testo += separatori[scegli(scegli(4) == 0 ? 7 : 2)];
                if (k && scegli(200) == 0) testo += ' ';
                testo += campo(k);
            }
            testo += fini[scegli(l + 1 == righe ? 4 : 3)];
        }
        const reference::ConversioneLetterale atteso = reference::ConvertiLetterale(testo);
        dir.write("a.dat", "old");
        const EsitoConversione e = ConvertArchivioTmpToDat(dir.write("in.txt", testo), dir.file("a.dat"));
        if (atteso.errore) {
            ASSERT_EQ(e.tipo, EsitoConversione::Tipo::CampoNonValido) << testo;
            EXPECT_EQ(e.riga, atteso.riga);
            EXPECT_EQ(e.campo, atteso.campo);
            EXPECT_EQ(e.numeroErrore, atteso.errore);
            EXPECT_EQ(dir.read("a.dat"), "old");
        } else {
            ASSERT_TRUE(e.completata()) << testo;
            ASSERT_EQ(dir.read("a.dat"), atteso.records) << testo;
        }
    }
}

} // namespace
} // namespace dv
