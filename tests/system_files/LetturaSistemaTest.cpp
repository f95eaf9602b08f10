// Reading system files: older versions, refusals, and files that are cut short or corrupted.
#include "core/Helpers.h"
#include "core/Sistema.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace dv;
using namespace dv::test;

namespace {

struct Header {
    std::string firma = "dvqsy000005";
    int len = 3;
    bool scriviLen = true;
    int quanti = 4;
    int64_t numColonne = 0;
    std::string descrizione = "d";
    int vociTabPari = 26;
};

// Fields 1 to 15 by hand. The forecast is 1..quanti; TabPari[e] is on for odd e; the sum
// limits are 20..200; NumFisse 7; the reduction on with N = 2.
Bytes Intestazione(const Header& h) {
    Bytes b;
    b.text(h.firma);
    if (h.scriviLen) b.i16(h.len);
    b.u8(h.quanti).i32(h.numColonne).str(h.descrizione);
    for (int i = 1; i <= 90; ++i)
        b.u8(i <= h.quanti ? i : 0);
    b.i16(-1).i16(-1).i16(0);
    for (int e = 0; e < h.vociTabPari; ++e)
        b.i16(e % 2 ? -1 : 0);
    b.i16(20).i16(200).fill(90).u8(7).i16(-1).u8(2);
    return b;
}

Bytes Colonne(Bytes b, int count, int len) {
    for (int j = 0; j < count; ++j)
        for (int p = 1; p <= len; ++p)
            b.u8(p + j);
    return b;
}

Bytes Filtro(Bytes b, int tag, int number) {
    b.i32(tag).fill(static_cast<size_t>(number - 1)).u8(1).fill(static_cast<size_t>(90 - number));
    return b.i32(6).i16(-1);
}

class LetturaSistema : public ::testing::Test {
protected:
    EsitoApriFile apri(const Bytes& b) {
        b.save(path);
        return ApriFile(c, ui, path);
    }
    void expectRefused(const Bytes& b, const std::string& detail) {
        SCOPED_TRACE(detail);
        c = Corpo{};
        ui = FakeUi{};
        ui.texts = {{"0221", ","},
                    {"0225", "column length %1 outside 1..25"},
                    {"0226", "count of columns %1 outside 0..%2"},
                    {"0227", "%1 numbers in the forecast"},
                    {"0228", "forecast number %1 outside 1..90"},
                    {"0231", "more than %1 distance conditions"}};
        SetForecast(c, Range(1, 12));
        c.pronostico.NumColonne = 5;
        EXPECT_EQ(apri(b), EsitoApriFile::Rifiutato);
        ASSERT_EQ(ui.boxes.size(), 1u);
        EXPECT_EQ(ui.boxes[0].title, "<0055>");
        EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Critical);
        EXPECT_EQ(ui.boxes[0].text.substr(0, 6), "<0058>");
        EXPECT_NE(ui.boxes[0].text.find(detail), std::string::npos) << ui.boxes[0].text;
        EXPECT_EQ(c.pronostico.NumColonne, 0);
        EXPECT_EQ(c.pronostico.Quanti, 0);
        EXPECT_EQ(c.FileCorrente, "");
        EXPECT_EQ(ui.busyDepth, 0);
    }

    TempDir dir;
    std::string path = dir.file("t.dvs");
    Corpo c;
    FakeUi ui;
};

// Versions 1, 3 and 4 and any lower unknown signature carry the length; version 2 has none and
// takes 10. Before version 4 the even-count table has 11 entries.
TEST_F(LetturaSistema, ReadsEveryOlderVersion) {
    const struct {
        const char* firma;
        int len, vociTabPari;
    } versioni[] = {
        {"dvqsy000001", 3, 11}, {"dvqsy000002", 10, 11}, {"dvqsy000004", 3, 26}, {"aaaaaaaaaaa", 3, 11}};
    for (const auto& v : versioni) {
        SCOPED_TRACE(v.firma);
        const Header h{.firma = v.firma,
                       .scriviLen = v.len != 10,
                       .quanti = 12,
                       .numColonne = 2,
                       .vociTabPari = v.vociTabPari};
        c = Corpo{};
        c.LenColonna = 4;
        ASSERT_EQ(apri(Colonne(Intestazione(h), 2, v.len)), EsitoApriFile::Aperto);
        EXPECT_EQ(c.LenColonna, v.len);
        EXPECT_EQ(c.condizioni.TabPari[9], -1);
        EXPECT_EQ(c.condizioni.TabPari[11], v.vociTabPari == 26 ? -1 : 0);
        // The fields after the even-count table are where they should be.
        EXPECT_EQ(c.condizioni.SommaMinMax[1], 200);
        EXPECT_EQ(c.condizioni.ValRidotto, 2);
        EXPECT_EQ(StoredColumns(c), (std::vector<std::vector<int>>{Range(1, v.len), Range(2, v.len + 1)}));
    }
}

// A newer signature, a missing file and no file at all leave the system in memory as it was.
TEST_F(LetturaSistema, ANewerSignatureOrAMissingFileLeavesTheStateAlone) {
    SetForecast(c, Range(1, 12));
    c.pronostico.NumColonne = 5;
    c.FileCorrente = "mine.dvs";
    c.ModalitaRicalcolo = Vero;
    EXPECT_EQ(ApriFile(c, ui, ""), EsitoApriFile::NessunFile);
    EXPECT_EQ(ui.calls, std::vector<std::string>{"Sblocca_x_Ricalcolo"});
    EXPECT_EQ(apri(Intestazione({.firma = "dvqsy000006"})), EsitoApriFile::Rifiutato);
    EXPECT_EQ(ApriFile(c, ui, dir.file("none.dvs")), EsitoApriFile::Errore);
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_EQ(ui.boxes[0].text, "<0008>");
    EXPECT_EQ(ui.boxes[0].title, "<0055>");
    EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(ui.boxes[1].text, "Error 53 (File not found) in procedure ApriFile of Modulo corpo");
    EXPECT_EQ(ui.boxes[1].icon, BoxIcon::None);
    EXPECT_EQ(c.pronostico.NumColonne, 5);
    EXPECT_EQ(c.pronostico.Quanti, 12);
    EXPECT_EQ(c.FileCorrente, "mine.dvs");
}

TEST_F(LetturaSistema, OutOfRangeCountsAndLengthsAndColumnsCutShortAreRefused) {
    Bytes corta;
    corta.text("dvqsy000005").i16(3).u8(0).i32(0).i16(60000).text("short");
    // A forecast number outside 1..90 would select no cell of the grid.
    Bytes zero = Intestazione({});
    zero.data[11 + 2 + 1 + 4 + 3 + 2] = 0;
    const Bytes tre = Colonne(Intestazione({.numColonne = 3}), 2, 3);
    const std::pair<Bytes, std::string> casi[] = {
        {Intestazione({.len = 0}), "\ncolumn length 0 outside 1..25"},
        {Intestazione({.len = 26}), "\ncolumn length 26 outside"},
        {Intestazione({.numColonne = -1}), "\ncount of columns -1 outside 0..4,000,000"},
        {Intestazione({.numColonne = MaxColonne + 1}), "\ncount of columns 4000001 outside"},
        {Intestazione({.quanti = 91}), "\n91 numbers in the forecast"},
        {corta, "\n<0229>"},
        {zero, "\nforecast number 0 outside 1..90"},
        {tre, ""}, // columns cut short, or whose last number is 0
        {Bytes(tre).u8(9).u8(9), ""},
        {Bytes(tre).u8(9).u8(0).u8(9), ""},
    };
    for (const auto& [b, detail] : casi)
        expectRefused(b, detail);
    // A 0 in a column other than the last is not looked at.
    c = Corpo{};
    EXPECT_EQ(apri(Colonne(Intestazione({.numColonne = 3}).u8(0).u8(1).u8(2), 2, 3)), EsitoApriFile::Aperto);
}

TEST_F(LetturaSistema, TablesBeyondTheirCapacityAreRefusedAndMemoryKeepsItsOwn) {
    Bytes b = Intestazione({}).i32(12345);
    for (int i = 0; i < MaxCondizioniDistanza + 1; ++i)
        b.i32(32).u8(1).u8(1).fill(382).i16(-1);
    expectRefused(b.i32(100), "\nmore than 25 distance conditions");

    c = Corpo{};
    ui = FakeUi{};
    c.FiltriOR.setCount(MaxFiltri - 1);
    EXPECT_EQ(apri(Filtro(Filtro(Intestazione({}).i32(12345), 16, 5), 16, 6).i32(100)),
              EsitoApriFile::Rifiutato);
    // A language without the detail's text shows the message alone, never an internal name.
    EXPECT_EQ(ui.boxes.at(0).text, "<0058>\n<0230>");
    EXPECT_EQ(c.FiltriOR.count(), MaxFiltri - 1);
}

TEST_F(LetturaSistema, UnknownTagsAreReportedOnceAndReadingGoesOn) {
    Bytes b = Intestazione({}).i32(12345).i32(7);
    b = Filtro(b, 1, 33);
    b.i32(2).i32(0x0F).i16(-1).i32(8).u8(4).i16(-1);
    for (int i = 0; i < 1000; ++i)
        b.i32(1000 + i); // a damaged tail: one box for all but the first
    b.i32(200);
    ui.texts["0240"] = "%1 more";
    EXPECT_EQ(apri(b), EsitoApriFile::Aperto);
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_EQ(ui.boxes[0].title, "E R R O R E");
    EXPECT_EQ(ui.boxes[0].text, "Condizione non riconosciuta\nID : 7");
    EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(ui.boxes[1].text, "1" + std::string(1, SeparatoreMigliaia(ui)) + "000 more");
    ASSERT_EQ(c.FiltriAND.count(), 1);
    EXPECT_EQ(c.FiltriAND[1].Numeri[33], 1);
    EXPECT_EQ(c.consecutivi.MaskConsecutivi, 0x0F);
    EXPECT_EQ(c.distanzaMinima.ValDistanzaMinima, 4);
}

TEST_F(LetturaSistema, ABlockCutShortReadsAsZerosWithAWarningThatStaysInView) {
    const auto avvisi = [this] {
        return std::count(ui.calls.begin(), ui.calls.end(), "statusWarning:<0224>");
    };
    Bytes b = Intestazione({}).i32(12345);
    b = Filtro(b, 16, 40);
    EXPECT_EQ(apri(Bytes(b).i32(100)), EsitoApriFile::Aperto);
    EXPECT_EQ(avvisi(), 0);
    EXPECT_EQ(apri(b), EsitoApriFile::Aperto); // no closing value
    EXPECT_EQ(avvisi(), 1);
    b.data.resize(b.data.size() - 3); // Presenze's last byte and Stato are missing
    EXPECT_EQ(apri(b), EsitoApriFile::Aperto);
    EXPECT_EQ(avvisi(), 2);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_EQ(c.FiltriOR.count(), 3); // the table survives the reset of each open
    EXPECT_EQ(c.FiltriOR[3].Presenze, 6);
    EXPECT_EQ(c.FiltriOR[3].Stato, 0);
}

TEST_F(LetturaSistema, TheDistanceMarkFollowsTheLastRecordReadEvenAcrossFiles) {
    Bytes b = Intestazione({}).i32(12345);
    b.i32(32).u8(1).u8(1).fill(382).i16(0).i32(32).u8(2).u8(1).fill(382).i16(-1).i32(100);
    ASSERT_EQ(apri(b), EsitoApriFile::Aperto);
    EXPECT_EQ(c.CondizioniDistanza.count(), 2);
    EXPECT_EQ(c.CondizioneDistanzaLetta.Stato, -1);
    ASSERT_EQ(apri(Intestazione({})), EsitoApriFile::Aperto); // a file without distance records
    EXPECT_EQ(c.CondizioniDistanza.count(), 0);
    EXPECT_EQ(c.CondizioneDistanzaLetta.Stato, -1);
}

} // namespace
