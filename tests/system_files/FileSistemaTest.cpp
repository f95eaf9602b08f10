// Writing system files, and the round trip of whole states through them.
#include "system_files/FileSistema.h"
#include "system_files/ScrittoreSicuro.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

using namespace dv;
using namespace dv::test;

namespace {

// A random state that uses every kind of condition, with only active records.
void StatoCasuale(Corpo& c, std::mt19937& rng) {
    auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    c.LenColonna = static_cast<int16_t>(pick(1, 25));
    std::vector<int> all = Range(1, 90);
    std::shuffle(all.begin(), all.end(), rng);
    all.resize(static_cast<size_t>(pick(c.LenColonna, 90)));
    SetForecast(c, all);
    c.pronostico.Descrizione = "Ridotto \xC3\xA0 N-" + std::to_string(pick(0, 99));

    Condizioni& k = c.condizioni;
    k.CondPari = Vero;
    k.CondSomma = Vero;
    k.CondFisse = pick(0, 1) ? Vero : Falso;
    for (auto& e : k.TabPari)
        e = pick(0, 1) ? Vero : Falso;
    k.SommaMinMax = {static_cast<int16_t>(pick(-5, 300)), static_cast<int16_t>(pick(300, 2000))};
    for (int n = 1; n <= 90; ++n)
        k.TabFisse[static_cast<size_t>(n)] = static_cast<uint8_t>(pick(0, 6) == 0);
    k.NumFisse = static_cast<uint8_t>(pick(0, 255));
    k.CondRidotto = Vero;
    k.ValRidotto = static_cast<uint8_t>(pick(0, c.LenColonna));

    c.consecutivi = {pick(0, 0x7FFFFFFF), Vero};
    c.distanzaMinima = {static_cast<uint8_t>(pick(0, 255)), Vero};
    for (TabellaFiltri* t : {&c.FiltriAND, &c.FiltriOR, &c.FiltriXOR}) {
        for (int i = pick(0, 20); i > 0; --i) {
            ColonnaFiltro f;
            for (int n = 1; n <= 90; ++n)
                f.Numeri[static_cast<size_t>(n)] = static_cast<uint8_t>(pick(0, 1));
            f.Presenze = pick(-100000, 0x7FFFFFFF);
            f.Stato = Vero;
            t->append(f);
        }
    }
    for (int i = pick(1, MaxCondizioniDistanza); i > 0; --i) {
        CondizioneDistanza d;
        d.NumPosizioni = static_cast<uint8_t>(pick(0, 25));
        for (size_t p = 1; p <= 25; ++p)
            d.Posizioni[p] = static_cast<uint8_t>(pick(0, 24));
        d.NumDistanzeMin = static_cast<uint8_t>(pick(0, 89));
        d.NumDistanzeMax = static_cast<uint8_t>(pick(0, 89));
        for (size_t x = 1; x <= 89; ++x) {
            d.DistanzaMin[x] = static_cast<int16_t>(pick(-1, 0));
            d.DistanzaMax[x] = static_cast<int16_t>(pick(-32768, 32767));
        }
        d.Stato = Vero;
        c.CondizioniDistanza.append(d);
    }
    c.pronostico.NumColonne = pick(0, 300);
    for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j)
        for (int p = 1; p <= c.LenColonna; ++p)
            c.Colonne.set(j, p, static_cast<uint8_t>(pick(1, 255)));
}

// Every saved field comes back: the reopened system saves to the same bytes, and the forecast,
// which the writer takes from the grid, and the columns are the same in memory. A path in quotes,
// as a command line gives it, opens the file; in recompute mode the system opens unlocked.
TEST(FileSistemaRoundTrip, RandomStatesWithEveryConditionComeBackWhole) {
    TempDir dir;
    std::mt19937 rng(20261122);
    for (int round = 0; round < 25; ++round) {
        SCOPED_TRACE(round);
        Corpo saved;
        FakeUi ui;
        StatoCasuale(saved, rng);
        const std::string path = dir.file("Sistema" + std::to_string(round) + ".DVS");
        ASSERT_TRUE(SalvaFile(saved, ui, path));
        EXPECT_EQ(saved.TitoloFile, "sistema" + std::to_string(round) + ".dvs");

        Corpo opened;
        opened.ModalitaRicalcolo = round % 2 ? Vero : Falso;
        ASSERT_EQ(ApriFile(opened, ui, round % 3 ? path : "\"" + path + "\""), EsitoApriFile::Aperto);
        EXPECT_TRUE(ui.boxes.empty());
        EXPECT_EQ(opened.FileCorrente, path);
        EXPECT_EQ(opened.SistemaBloccato, opened.pronostico.NumColonne > 0 && round % 2 == 0 ? -1 : 0);
        ASSERT_TRUE(SalvaFile(opened, ui, dir.file("again.dvs")));
        EXPECT_EQ(LeggiFile(dir.file("again.dvs")), LeggiFile(path));
        EXPECT_EQ(opened.pronostico.Descrizione, saved.pronostico.Descrizione);
        EXPECT_EQ(opened.pronostico.Quanti, saved.pronostico.Quanti);
        EXPECT_EQ(opened.pronostico.Numeri, saved.pronostico.Numeri);
        EXPECT_EQ(StoredColumns(opened), StoredColumns(saved));
    }
}

// The description is ANSI on file and UTF-8 in memory.
TEST(FileSistemaWriter, WritesTheCurrentLayoutByteForByte) {
    TempDir dir;
    Corpo c;
    FakeUi ui;
    c.LenColonna = 3;
    SetForecast(c, {4, 8, 15, 16});
    c.pronostico.Numeri.fill(0); // SalvaFile takes the forecast from the grid
    c.pronostico.Descrizione = "\xC3\xA0\xE2\x82\xAC";
    c.condizioni.CondSomma = Vero;
    c.condizioni.TabPari[25] = Vero;
    c.condizioni.SommaMinMax = {10, -2};
    c.condizioni.TabFisse[90] = 1;
    c.condizioni.NumFisse = 1;
    c.condizioni.ValRidotto = 2;
    c.pronostico.NumColonne = 2;
    const uint8_t a[] = {4, 8, 15}, b[] = {8, 15, 16};
    c.Colonne.setColumn(1, a, 3);
    c.Colonne.setColumn(2, b, 3);
    ASSERT_TRUE(SalvaFile(c, ui, dir.file("a.dvs")));

    Bytes e;
    e.text("dvqsy000005").i16(3).u8(4).i32(2).str("\xE0\x80").u8(4).u8(8).u8(15).u8(16).fill(86);
    e.i16(0).i16(-1).i16(0).fill(50).i16(-1).i16(10).i16(-2).fill(89).u8(1).u8(1).i16(0).u8(2);
    e.u8(4).u8(8).u8(15).u8(8).u8(15).u8(16);
    // No conditions block: nothing is due.
    EXPECT_EQ(LeggiFile(dir.file("a.dvs")), std::string(e.data.begin(), e.data.end()));
}

TEST(FileSistemaWriter, ASaveCutAtAnyByteLeavesTheOldFileAndNoTemporaryFile) {
    namespace fs = std::filesystem;
    TempDir dir;
    const std::string path = dir.file("keep.dvs"), victim = dir.file("victim");
    const std::string old = "old content" + std::string(2000, '.'); // longer than the new file
    Bytes{}.text(old).save(path);
    Bytes{}.text("victim").save(victim);
    fs::create_symlink(victim, path + ".tmp"); // a link planted beside the target is never followed
    Corpo c;
    FakeUi ui;
    SetForecast(c, Range(1, 10));
    ASSERT_TRUE(SalvaFile(c, ui, dir.file("full.dvs")));
    const uint64_t size = fs::file_size(dir.file("full.dvs"));
    fs::remove(dir.file("full.dvs"));
    for (const uint64_t cut : {uint64_t{0}, uint64_t{1}, uint64_t{11}, size / 2, size - 1}) {
        GuastoScrittura guasto(cut);
        EXPECT_FALSE(SalvaFile(c, ui, path)) << cut;
        EXPECT_EQ(LeggiFile(path), old) << cut;
        EXPECT_EQ(std::distance(fs::directory_iterator(dir.file("")), fs::directory_iterator{}), 3) << cut;
    }
    ASSERT_EQ(ui.boxes.size(), 5u);
    EXPECT_EQ(ui.boxes[0].text, "Error 61 (Disk full) in procedure SalvaFile of Modulo corpo");
    EXPECT_EQ(ui.busyDepth, 0);
    ASSERT_TRUE(SalvaFile(c, ui, path));
    EXPECT_EQ(fs::file_size(path), size);
    EXPECT_EQ(LeggiFile(victim), "victim");
    EXPECT_TRUE(fs::is_symlink(path + ".tmp"));
}

TEST(FileSistemaWriter, AReadOnlyFileStaysAsItWasAndAReplacedFileKeepsItsPermissions) {
    namespace fs = std::filesystem;
    TempDir dir;
    Corpo c;
    FakeUi ui;
    SetForecast(c, Range(1, 10));
    const std::string path = dir.file("ro.dvs");
    Bytes{}.text("old content").save(path);
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
    EXPECT_FALSE(SalvaFile(c, ui, path));
    EXPECT_EQ(LeggiFile(path), "old content");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::group_read);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text,
              "Error 75 (Path/File access error: <0266>) in procedure SalvaFile of Modulo corpo");

    const auto bits = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(path, bits);
    EXPECT_TRUE(SalvaFile(c, ui, path));
    EXPECT_NE(LeggiFile(path), "old content");
    EXPECT_EQ(fs::status(path).permissions(), bits);
}

// Only active records are written (the block's layout is pinned by the reader's tests on bytes made
// by hand, and the round trip holds the writer to it); on opening, the OR and XOR records in memory
// stay ahead of the file's while the AND table is emptied first.
TEST(FileSistemaReader, OnlyActiveRecordsAreWrittenAndOrAndXorRecordsInMemoryStayAhead) {
    TempDir dir;
    Corpo c;
    FakeUi ui;
    SetForecast(c, Range(1, 10));
    c.FiltriOR.append(Filtro({1}, 2));
    c.FiltriXOR.append(Filtro({2}, 2));
    c.FiltriAND.append(Filtro({3}, 2));
    ColonnaFiltro off = Filtro({1, 2}, 4);
    off.Stato = Falso;
    c.FiltriAND.append(off);
    c.FiltriXOR.append(off);
    CondizioneDistanza d;
    d.Stato = Falso;
    c.CondizioniDistanza.append(d);
    ASSERT_TRUE(SalvaFile(c, ui, dir.file("f.dvs")));

    Corpo mem;
    mem.FiltriOR.append(Filtro({50}, 1));
    mem.FiltriXOR.append(Filtro({60}, 1));
    mem.FiltriAND.append(Filtro({70}, 1));
    ASSERT_EQ(ApriFile(mem, ui, dir.file("f.dvs")), EsitoApriFile::Aperto);
    ASSERT_EQ(mem.FiltriOR.count(), 2);
    EXPECT_EQ(mem.FiltriOR[1].Numeri[50], 1);
    EXPECT_EQ(mem.FiltriOR[2].Numeri[1], 1);
    ASSERT_EQ(mem.FiltriXOR.count(), 2);
    EXPECT_EQ(mem.FiltriXOR[1].Numeri[60], 1);
    ASSERT_EQ(mem.FiltriAND.count(), 1);
    EXPECT_EQ(mem.FiltriAND[1].Numeri[3], 1);
    EXPECT_EQ(mem.CondizioniDistanza.count(), 0);
}

} // namespace
