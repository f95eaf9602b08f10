// Columns as text: export, tolerant import, and the block reader against the line-by-line one.
#include "system_files/ColonneTesto.h"
#include "system_files/ScrittoreSicuro.h"
#include "tests/reference/ColonneTestoLetterale.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"

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
    void sistema(const Columns& cols) {
        c.LenColonna = static_cast<int16_t>(cols[0].size());
        c.pronostico.NumColonne = static_cast<int32_t>(cols.size());
        for (size_t j = 0; j < cols.size(); ++j)
            for (size_t p = 0; p < cols[j].size(); ++p)
                c.Colonne.set(static_cast<int32_t>(j + 1), static_cast<int>(p + 1),
                              static_cast<uint8_t>(cols[j][p]));
    }
    TempDir dir;
    std::string path = dir.file("Colonne.TXT");
    Corpo c;
    FakeUi ui;
};

// The block reader against the line-by-line reader it replaced, on random files of numbers,
// separators, blanks, every line end, signs, letters, numbers out of range, lines of more than 25
// numbers and lines about the 4,096 bound, read in blocks of a few bytes and in the usual blocks:
// the same records, and the same boxes in the same order.
TEST_F(ColonneTesto, LoadTxtReadsEveryFileAsTheLineByLineReader) {
    const std::string pezzi[] = {
        "7", "12", "90",   "255", "256", "0",    "007",  "99999", "+5",
        "+", "x",  "\xE0", " ",   " ",   "  ",   "\t",   "-",     ",",
        ";", ".",  "|",    "\r",  "\n",  "\r\n", "\r\n", "\n\r",  std::string(1, '\0')};
    std::mt19937 g(20261122);
    for (int k = 0; k < 4000; ++k) {
        SCOPED_TRACE(k);
        std::string testo;
        for (int i = static_cast<int>(g() % 80); i > 0; --i)
            testo += pezzi[g() % std::size(pezzi)];
        if (k % 16 == 0) // a line about the bound, of digits and blanks, then perhaps more lines
            testo +=
                std::string(4094 + g() % 5, k % 32 ? '1' : ' ') + pezzi[g() % std::size(pezzi)] + "1 2\r\n3";
        std::filesystem::remove(path); // a new file each time: rewriting one in place waits on the disk
        Bytes{}.text(testo).save(path);
        FakeUi atteso, ottenuto;
        const auto a = reference::LoadTxtToColonneArray(atteso, path);
        const auto b = LoadTxtToColonneArray(ottenuto, path, k % 3 ? 1 + g() % 9 : size_t{1} << 20);
        ASSERT_EQ(a.size(), b.size());
        for (size_t i = 0; i < a.size(); ++i)
            ASSERT_EQ(std::memcmp(&a[i], &b[i], sizeof a[i]), 0) << "record " << i;
        ASSERT_EQ(atteso.calls, ottenuto.calls);
        for (size_t i = 0; i < atteso.boxes.size(); ++i)
            ASSERT_EQ(atteso.boxes[i].text, ottenuto.boxes[i].text);
    }
    EXPECT_EQ(LoadTxtToColonneArray(ui, dir.file("missing.txt")).size(), 2u);
    EXPECT_EQ(ui.boxes.back().text,
              "Error 53 (File not found) in procedure LoadTxtToColonneArray of Module Corpo");
}

// A 0 is left out of the text; numbers are two digits at least, each line ends in a blank and CRLF.
TEST_F(ColonneTesto, ExportKeepsTheOldFileOnFailureAndImportsBackToTheSameSystem) {
    sistema({{1, 20, 90}, {5, 0, 200}});
    Bytes{}.text("old").save(path);
    {
        GuastoScrittura guasto(5);
        EXPECT_FALSE(SalvaColonneTxt(c, ui, path));
    }
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error 61 (Disk full) in procedure SalvaColonneTxt of Modulo corpo");
    EXPECT_EQ(LeggiFile(path), "old");
    ASSERT_TRUE(SalvaColonneTxt(c, ui, path));
    EXPECT_EQ(LeggiFile(path), " 01 20 90 \r\n 05 200 \r\n");
    EXPECT_EQ(ui.busyDepth, 0);

    const Columns cols = {{3, 9, 27, 81}, {2, 4, 8, 16}, {1, 9, 40, 41}};
    sistema(cols);
    ASSERT_TRUE(SalvaColonneTxt(c, ui, path));
    Corpo d;
    d.ModalitaRicalcolo = Vero;
    ASSERT_TRUE(ImportaColonneTxt(d, ui, path));
    EXPECT_EQ(d.LenColonna, 4);
    EXPECT_EQ(StoredColumns(d), cols);
    const std::array<uint8_t, 12> numeri = {1, 2, 3, 4, 8, 9, 16, 27, 40, 41, 81, 0};
    EXPECT_TRUE(std::equal(numeri.begin(), numeri.end(), d.pronostico.Numeri.begin()));
    EXPECT_EQ(d.TitoloFile, "colonne.txt");
    EXPECT_EQ(d.SistemaBloccato, 0); // locked, then unlocked for a recompute
}

// Any separator, blank lines and line end; the first line sets the length, longer lines lose the
// surplus, a 0 is stored but is no number of the forecast; an empty file gives no columns.
TEST_F(ColonneTesto, ImportToleratesSeparatorsAndTheFirstLineSetsTheLength) {
    const struct {
        const char* text;
        Columns cols;
        int quanti;
    } casi[] = {
        {"1-2-3\r\n\r\n1, 2, 3\n1.2.3\r1;2;3\t\r\n \t1\t2  3 \r\n", Columns(5, {1, 2, 3}), 3},
        {"1 2 3 4 5 6\r\n7 8 9 10 11 12 13 14\r\n0 15 16 17 18 19\r\n",
         {{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}, {0, 15, 16, 17, 18, 19}},
         17},
        {"", {}, 0},
    };
    for (const auto& k : casi) {
        SCOPED_TRACE(k.text);
        Corpo d;
        ui = FakeUi{};
        Bytes{}.text(k.text).save(path);
        ASSERT_TRUE(ImportaColonneTxt(d, ui, path));
        EXPECT_EQ(StoredColumns(d), k.cols);
        if (!k.cols.empty()) {
            EXPECT_EQ(d.LenColonna, static_cast<int>(k.cols[0].size()));
        }
        EXPECT_EQ(d.pronostico.Quanti, k.quanti);
        EXPECT_EQ(d.pronostico.Descrizione, "FILE TXT");
    }
    EXPECT_EQ(std::count(ui.calls.begin(), ui.calls.end(), "LockGUI"), 0); // nothing to lock
}

TEST_F(ColonneTesto, BadContentStopsTheImportWithItsError) {
    const std::string e13 = "Error 13 (Type mismatch)", e6 = "Error 6 (Overflow)",
                      e9 = "Error 9 (Subscript out of range)";
    const std::string ventisei = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26";
    const struct {
        std::string riga, errore, mostrata;
    } casi[] = {
        {"4 x 6", e13, "4 x 6"},
        {"4 256 6", e6, "4 256 6"},
        {"4 91 6", e9, "4 91 6"},
        {"4 5", e9, "4 5"},
        {"4 \xE0 6", e13, "4 \xC3\xA0 6"},
        {ventisei, e9, ventisei},
        {std::string(3 << 20, '7'), "Error 6 (Overflow: a line longer than 4096 characters)",
         std::string(80, '7') + "..."},
    };
    for (const auto& k : casi) {
        SCOPED_TRACE(k.mostrata);
        ui = FakeUi{};
        EXPECT_FALSE(importa(k.riga == ventisei ? k.riga + "\r\n" : "1 2 3\r\n" + k.riga + "\r\n"));
        ASSERT_EQ(ui.boxes.size(), 1u);
        EXPECT_EQ(ui.boxes[0].text,
                  k.errore + " in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [" + k.mostrata + "]");
        EXPECT_EQ(ui.boxes[0].icon, BoxIcon::None);
        EXPECT_EQ(c.pronostico.NumColonne, 0);
        EXPECT_EQ(c.pronostico.Quanti, 0);
        EXPECT_EQ(ui.busyDepth, 0);
    }
    ui = FakeUi{};
    EXPECT_FALSE(ImportaColonneTxt(c, ui, dir.file("none.txt")));
    EXPECT_EQ(ui.boxes.back().text,
              "Error 53 (File not found) in procedure ImportaColonneTxt of Modulo corpo \r\nRiga []");
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
        for (int i = 0; i < 100'000; ++i)
            block += "7\n";
        for (int i = 0; i < MaxColonne / 100'000; ++i)
            out << block;
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
