// Columns as text: export, tolerant import, and the parsing of one line.
#include "system_files/ColonneTesto.h"
#include "system_files/ScrittoreSicuro.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"
#include "tests/reference/ColonneTestoLetterale.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

using namespace dv;
using namespace dv::test;

namespace {

using Columns = std::vector<std::vector<int>>;

class ColonneTesto : public ::testing::Test {
protected:
    bool importa(const std::string& text) {
        Bytes{}.text(text).save(path);
        return ImportaColonneTxt(c, ui, path);
    }
    CartellaTemporanea dir;
    std::string path = dir.file("Colonne.TXT");
    Corpo c;
    FakeUi ui;
};

TEST(NormalizzaRigaTest, FoldsBlanksTabsAndCrlfButKeepsALoneLf) {
    std::string s = "\t 1  2\t\t3\r\n4\n5  ";
    EXPECT_EQ(NormalizzaRiga(s), "1 2 3 4\n5");
    EXPECT_EQ(s, "1 2 3 4\n5");
    std::string blank = " \t ";
    EXPECT_EQ(NormalizzaRiga(blank), "");
}

TEST(StringToArrayColonnaTest, ReadsEverySeparatorAndTheExtremes) {
    FakeUi ui;
    const RecordNumeri r = StringToArrayColonna(ui, "12|5-77,3;9.40\t8");
    EXPECT_EQ(r.count, 7);
    EXPECT_EQ(std::vector<int>(r.numbers.begin(), r.numbers.begin() + 7), (std::vector<int>{12, 5, 77, 3, 9, 40, 8}));
    EXPECT_EQ(r.least, 3);
    EXPECT_EQ(r.greatest, 77);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST(StringToArrayColonnaTest, ReportsFaultsWithTheClassicNumbers) {
    FakeUi ui;
    EXPECT_EQ(StringToArrayColonna(ui, "1 2 x").count, 2);
    EXPECT_EQ(StringToArrayColonna(ui, "300").count, 0);
    std::string long26;
    for (int i = 1; i <= 26; ++i) long26 += std::to_string(i) + " ";
    EXPECT_EQ(StringToArrayColonna(ui, long26).count, 25);
    ASSERT_EQ(ui.boxes.size(), 3u);
    EXPECT_EQ(ui.boxes[0].text, "Error 13 (Type mismatch) in procedure StringToArrayColonna of Modulo corpo");
    EXPECT_EQ(ui.boxes[1].text, "Error 6 (Overflow) in procedure StringToArrayColonna of Modulo corpo");
    EXPECT_EQ(ui.boxes[2].text, "Error 9 (Subscript out of range) in procedure StringToArrayColonna of Modulo corpo");
}

TEST_F(ColonneTesto, LoadTxtSkipsEmptyLinesAndStartsAtOne) {
    Bytes{}.text("1 2 3\r\n\r\n  \n4,5\r7 8 9 10").save(path);
    const auto r = LoadTxtToColonneArray(ui, path);
    ASSERT_EQ(r.size(), 4u);
    EXPECT_EQ(r[1].count, 3);
    EXPECT_EQ(r[2].count, 2);
    EXPECT_EQ(r[2].numbers[1], 5);
    EXPECT_EQ(r[3].least, 7);
    EXPECT_EQ(r[3].greatest, 10);
    EXPECT_EQ(ui.busyDepth, 0);

    Bytes{}.text("\r\n").save(path);
    const auto none = LoadTxtToColonneArray(ui, path);
    ASSERT_EQ(none.size(), 2u);
    EXPECT_EQ(none[1].count, 0);
    EXPECT_EQ(LoadTxtToColonneArray(ui, dir.file("missing.txt")).size(), 2u);
    EXPECT_EQ(ui.boxes.back().text, "Error 53 (File not found) in procedure LoadTxtToColonneArray of Module Corpo");
}

// The block reader against the line-by-line reader it replaced, on random files of numbers,
// separators, blanks, every line end, signs, letters, numbers out of range, lines of more than 25
// numbers and lines about the 4,096 bound, read in blocks of a few bytes and in the usual blocks:
// the same records, and the same boxes in the same order.
TEST_F(ColonneTesto, LoadTxtReadsEveryFileAsTheLineByLineReader) {
    const std::string pezzi[] = {"7",  "12", "90", "255", "256", "0",  "007", "99999", "+5", "+", "x", "\xE0",
                                 " ",  " ",  "  ", "\t",  "-",   ",",  ";",   ".",     "|",  "\r", "\n", "\r\n",
                                 "\r\n", "\n\r", std::string(1, '\0')};
    std::mt19937 g(20261122);
    for (int k = 0; k < 4000; ++k) {
        SCOPED_TRACE(k);
        std::string testo;
        for (int i = static_cast<int>(g() % 80); i > 0; --i) testo += pezzi[g() % std::size(pezzi)];
        if (k % 16 == 0) // a line about the bound, of digits and blanks, then perhaps more lines
            testo += std::string(4094 + g() % 5, k % 32 ? '1' : ' ') + pezzi[g() % std::size(pezzi)] + "1 2\r\n3";
        std::filesystem::remove(path); // a new file each time: rewriting one in place waits on the disk
        Bytes{}.text(testo).save(path);
        FakeUi atteso, ottenuto;
        const auto a = reference::LoadTxtToColonneArray(atteso, path);
        const auto b = LoadTxtToColonneArray(ottenuto, path, k % 3 ? 1 + g() % 9 : size_t{1} << 20);
        ASSERT_EQ(a.size(), b.size());
        for (size_t i = 0; i < a.size(); ++i) ASSERT_EQ(std::memcmp(&a[i], &b[i], sizeof a[i]), 0) << "record " << i;
        ASSERT_EQ(atteso.calls, ottenuto.calls);
        for (size_t i = 0; i < atteso.boxes.size(); ++i) ASSERT_EQ(atteso.boxes[i].text, ottenuto.boxes[i].text);
    }
}

TEST_F(ColonneTesto, ExportWritesCrlfLinesAndLeavesZeroOut) {
    c.LenColonna = 3;
    c.pronostico.NumColonne = 2;
    const uint8_t a[] = {1, 20, 90}, b[] = {5, 0, 200};
    c.Colonne.setColumn(1, a, 3);
    c.Colonne.setColumn(2, b, 3);
    ASSERT_TRUE(SalvaColonneTxt(c, ui, path));
    EXPECT_EQ(ReadText(path), " 01 20 90 \r\n 05 200 \r\n");
    EXPECT_EQ(ui.calls, (std::vector<std::string>{"busy", "idle"}));
}

TEST_F(ColonneTesto, AFailedExportReportsAndKeepsTheOldFile) {
    Bytes{}.text("old").save(path);
    c.LenColonna = 3;
    c.pronostico.NumColonne = 1;
    const uint8_t a[] = {1, 20, 90};
    c.Colonne.setColumn(1, a, 3);
    GuastoScrittura guasto(5);
    EXPECT_FALSE(SalvaColonneTxt(c, ui, path));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error 61 (Disk full) in procedure SalvaColonneTxt of Modulo corpo");
    EXPECT_EQ(ReadText(path), "old");
    EXPECT_EQ(ui.busyDepth, 0);
}

TEST_F(ColonneTesto, ExportThenImportGivesTheSameSystem) {
    Corpo source;
    source.LenColonna = 4;
    source.pronostico.NumColonne = 3;
    const Columns cols = {{3, 9, 27, 81}, {2, 4, 8, 16}, {1, 9, 40, 41}};
    for (size_t j = 0; j < cols.size(); ++j)
        for (int p = 1; p <= 4; ++p) source.Colonne.set(static_cast<int32_t>(j + 1), p, static_cast<uint8_t>(cols[j][static_cast<size_t>(p - 1)]));
    ASSERT_TRUE(SalvaColonneTxt(source, ui, path));

    c.ModalitaRicalcolo = Vero;
    ASSERT_TRUE(ImportaColonneTxt(c, ui, path));
    EXPECT_EQ(c.LenColonna, 4);
    EXPECT_EQ(StoredColumns(c), cols);
    EXPECT_EQ(c.pronostico.Descrizione, "FILE TXT");
    EXPECT_EQ(c.pronostico.Quanti, 11);
    const std::array<uint8_t, 12> numeri = {1, 2, 3, 4, 8, 9, 16, 27, 40, 41, 81, 0};
    EXPECT_TRUE(std::equal(numeri.begin(), numeri.end(), c.pronostico.Numeri.begin()));
    EXPECT_EQ(c.FileCorrente, path);
    EXPECT_EQ(c.TitoloFile, "colonne.txt");
    EXPECT_EQ(c.SistemaBloccato, 0); // locked, then unlocked for a recompute
    const auto& calls = ui.calls;
    EXPECT_NE(std::find(calls.begin(), calls.end(), "LockGUI"), calls.end());
    EXPECT_EQ(std::vector<std::string>(calls.end() - 4, calls.end()),
              (std::vector<std::string>{"ViewStatusBar", "idle", "lenColonnaChanged", "Sblocca_x_Ricalcolo"}));
}

TEST_F(ColonneTesto, ImportToleratesSeparatorsBlankLinesAndLineEnds) {
    ASSERT_TRUE(importa("1-2-3\r\n\r\n1, 2, 3\n1.2.3\r1;2;3\t\r\n \t1\t2  3 \r\n"));
    EXPECT_EQ(StoredColumns(c), Columns(5, {1, 2, 3}));
    EXPECT_EQ(c.LenColonna, 3);
    EXPECT_EQ(c.pronostico.Quanti, 3);
}

TEST_F(ColonneTesto, TheFirstLineSetsTheLengthAndLongerLinesLoseTheSurplus) {
    ASSERT_TRUE(importa("1 2 3 4 5 6\r\n7 8 9 10 11 12 13 14\r\n0 15 16 17 18 19\r\n"));
    EXPECT_EQ(c.LenColonna, 6);
    EXPECT_EQ(StoredColumns(c), (Columns{{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}, {0, 15, 16, 17, 18, 19}}));
    EXPECT_EQ(c.pronostico.Quanti, 17); // 0 is stored but is no number of the forecast
}

TEST_F(ColonneTesto, AnEmptyFileGivesNoColumnsAndNoLock) {
    ASSERT_TRUE(importa(""));
    EXPECT_EQ(c.pronostico.NumColonne, 0);
    EXPECT_EQ(c.pronostico.Descrizione, "FILE TXT");
    EXPECT_EQ(std::count(ui.calls.begin(), ui.calls.end(), "LockGUI"), 0);
}

TEST_F(ColonneTesto, BadContentStopsTheImportWithItsError) {
    const struct {
        const char* text;
        const char* box;
    } cases[] = {
        {"1 2 3\r\n4 x 6\r\n", "Error 13 (Type mismatch) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [4 x 6]"},
        {"1 2 3\r\n4 256 6\r\n", "Error 6 (Overflow) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [4 256 6]"},
        {"1 2 3\r\n4 91 6\r\n", "Error 9 (Subscript out of range) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [4 91 6]"},
        {"1 2 3\r\n4 5\r\n", "Error 9 (Subscript out of range) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [4 5]"},
        {"1 2 3\r\n4 \xE0 6\r\n", "Error 13 (Type mismatch) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [4 \xC3\xA0 6]"},
        {"1 2 3\r\n|\r\n", "Error 13 (Type mismatch) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [|]"},
        {"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26\r\n",
         "Error 9 (Subscript out of range) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [1 2 3 4 5 6 7 8 9 "
         "10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26]"},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.text);
        ui = FakeUi{};
        EXPECT_FALSE(importa(k.text));
        ASSERT_EQ(ui.boxes.size(), 1u);
        EXPECT_EQ(ui.boxes[0].text, k.box);
        EXPECT_EQ(ui.boxes[0].icon, BoxIcon::None);
        EXPECT_EQ(c.pronostico.NumColonne, 0);
        EXPECT_EQ(c.pronostico.Quanti, 0);
        EXPECT_GE(c.LenColonna, 1);
        EXPECT_LE(c.LenColonna, 25);
        EXPECT_EQ(ui.busyDepth, 0);
    }
    // A line of megabytes is refused at once, and only its start is shown back.
    ui = FakeUi{};
    EXPECT_FALSE(importa("1 2 3\r\n" + std::string(3 << 20, '7')));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error 6 (Overflow: a line longer than 4096 characters) in procedure ImportaColonneTxt of "
                                "Modulo corpo \r\nRiga [" + std::string(80, '7') + "...]");
    EXPECT_FALSE(importa("5 6 7\r\n8 x 9\r\n"));
    EXPECT_EQ(c.Colonne.get(1, 3), 7); // what was read stays in the store
    EXPECT_EQ(c.Colonne.get(2, 1), 8);
}

TEST_F(ColonneTesto, MissingFileAndEmptyPath) {
    EXPECT_FALSE(ImportaColonneTxt(c, ui, dir.file("none.txt")));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error 53 (File not found) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga []");
    ui = FakeUi{};
    c.ModalitaRicalcolo = Vero;
    SetForecast(c, Range(1, 10));
    EXPECT_FALSE(ImportaColonneTxt(c, ui, ""));
    EXPECT_EQ(ui.calls, (std::vector<std::string>{"lenColonnaChanged", "Sblocca_x_Ricalcolo"}));
}

TEST_F(ColonneTesto, MoreThanFourMillionColumnsAreRefusedAndLeaveTheSystemEmpty) {
    {
        std::ofstream out(path, std::ios::binary);
        std::string block;
        for (int i = 0; i < 100'000; ++i) block += "7\n";
        for (int i = 0; i < MaxColonne / 100'000; ++i) out << block;
        out << "8\n";
    }
    EXPECT_FALSE(ImportaColonneTxt(c, ui, path));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0012>\n<0064> 4.000.000");
    EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(c.pronostico.NumColonne, 0);
    EXPECT_EQ(c.pronostico.Quanti, 0);
    EXPECT_EQ(c.Colonne.get(MaxColonne, 1), 0);
    EXPECT_EQ(ui.busyDepth, 0);
}

} // namespace
