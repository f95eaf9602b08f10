// Writing system files, and the round trip of whole states through them.
#include "core/Sistema.h"
#include "system_files/ColonneTesto.h"
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
    c.pronostico.Descrizione = "Ridotto N-" + std::to_string(pick(0, 99));

    Condizioni& k = c.condizioni;
    k.CondPari = Vero;
    k.CondSomma = Vero;
    k.CondFisse = pick(0, 1) ? Vero : Falso;
    for (auto& e : k.TabPari) e = pick(0, 1) ? Vero : Falso;
    k.SommaMinMax = {static_cast<int16_t>(pick(-5, 300)), static_cast<int16_t>(pick(300, 2000))};
    for (int n = 1; n <= 90; ++n) k.TabFisse[static_cast<size_t>(n)] = static_cast<uint8_t>(pick(0, 6) == 0);
    k.NumFisse = static_cast<uint8_t>(pick(0, 255));
    k.CondRidotto = Vero;
    k.ValRidotto = static_cast<uint8_t>(pick(0, c.LenColonna));

    c.consecutivi = {pick(0, 0x7FFFFFFF), Vero};
    c.distanzaMinima = {static_cast<uint8_t>(pick(0, 255)), Vero};
    for (TabellaFiltri* t : {&c.FiltriAND, &c.FiltriOR, &c.FiltriXOR}) {
        for (int i = pick(0, 20); i > 0; --i) {
            ColonnaFiltro f;
            for (int n = 1; n <= 90; ++n) f.Numeri[static_cast<size_t>(n)] = static_cast<uint8_t>(pick(0, 1));
            f.Presenze = pick(-100000, 0x7FFFFFFF);
            f.Stato = Vero;
            t->append(f);
        }
    }
    for (int i = pick(1, MaxCondizioniDistanza); i > 0; --i) {
        CondizioneDistanza d;
        d.NumPosizioni = static_cast<uint8_t>(pick(0, 25));
        for (size_t p = 1; p <= 25; ++p) d.Posizioni[p] = static_cast<uint8_t>(pick(0, 24));
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
        for (int p = 1; p <= c.LenColonna; ++p) c.Colonne.set(j, p, static_cast<uint8_t>(pick(1, 255)));
}

void ExpectSameFiltri(const TabellaFiltri& a, const TabellaFiltri& b) {
    ASSERT_EQ(a.count(), b.count());
    for (int i = 1; i <= a.count(); ++i) {
        EXPECT_EQ(a[i].Numeri, b[i].Numeri) << i;
        EXPECT_EQ(a[i].Presenze, b[i].Presenze) << i;
        EXPECT_EQ(a[i].Stato, b[i].Stato) << i;
    }
}

void ExpectSameState(const Corpo& a, const Corpo& b) {
    EXPECT_EQ(a.LenColonna, b.LenColonna);
    EXPECT_EQ(a.pronostico.Quanti, b.pronostico.Quanti);
    EXPECT_EQ(a.pronostico.NumColonne, b.pronostico.NumColonne);
    EXPECT_EQ(a.pronostico.Descrizione, b.pronostico.Descrizione);
    EXPECT_EQ(a.pronostico.Numeri, b.pronostico.Numeri);
    EXPECT_EQ(a.Griglia, b.Griglia);
    const Condizioni &x = a.condizioni, &y = b.condizioni;
    EXPECT_EQ(x.CondPari, y.CondPari);
    EXPECT_EQ(x.CondSomma, y.CondSomma);
    EXPECT_EQ(x.CondFisse, y.CondFisse);
    EXPECT_EQ(x.TabPari, y.TabPari);
    EXPECT_EQ(x.SommaMinMax, y.SommaMinMax);
    EXPECT_EQ(x.TabFisse, y.TabFisse);
    EXPECT_EQ(x.NumFisse, y.NumFisse);
    EXPECT_EQ(x.CondRidotto, y.CondRidotto);
    EXPECT_EQ(x.ValRidotto, y.ValRidotto);
    EXPECT_EQ(a.consecutivi.MaskConsecutivi, b.consecutivi.MaskConsecutivi);
    EXPECT_EQ(a.consecutivi.CondConsecutivi, b.consecutivi.CondConsecutivi);
    EXPECT_EQ(a.distanzaMinima.ValDistanzaMinima, b.distanzaMinima.ValDistanzaMinima);
    EXPECT_EQ(a.distanzaMinima.CondDistanzaMinima, b.distanzaMinima.CondDistanzaMinima);
    ExpectSameFiltri(a.FiltriAND, b.FiltriAND);
    ExpectSameFiltri(a.FiltriOR, b.FiltriOR);
    ExpectSameFiltri(a.FiltriXOR, b.FiltriXOR);
    ASSERT_EQ(a.CondizioniDistanza.count(), b.CondizioniDistanza.count());
    for (int i = 1; i <= a.CondizioniDistanza.count(); ++i) {
        const auto &p = a.CondizioniDistanza[i], &q = b.CondizioniDistanza[i];
        EXPECT_EQ(p.NumPosizioni, q.NumPosizioni);
        EXPECT_EQ(p.Posizioni, q.Posizioni);
        EXPECT_EQ(p.NumDistanzeMin, q.NumDistanzeMin);
        EXPECT_EQ(p.DistanzaMin, q.DistanzaMin);
        EXPECT_EQ(p.NumDistanzeMax, q.NumDistanzeMax);
        EXPECT_EQ(p.DistanzaMax, q.DistanzaMax);
        EXPECT_EQ(p.Stato, q.Stato);
    }
    EXPECT_EQ(StoredColumns(a), StoredColumns(b));
}

TEST(FileSistemaRoundTrip, RandomStatesWithEveryConditionComeBackWhole) {
    CartellaTemporanea dir;
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
        FakeUi ui2;
        ASSERT_EQ(ApriFile(opened, ui2, path), EsitoApriFile::Aperto);
        EXPECT_TRUE(ui2.boxes.empty());
        ExpectSameState(saved, opened);
        EXPECT_EQ(opened.FileCorrente, path);
        EXPECT_EQ(opened.SistemaBloccato, opened.pronostico.NumColonne > 0 ? -1 : 0);
        EXPECT_EQ(opened.CondizioneDistanzaLetta.Stato, Vero);
    }
}

TEST(FileSistemaWriter, WritesTheCurrentLayoutByteForByte) {
    CartellaTemporanea dir;
    Corpo c;
    FakeUi ui;
    c.LenColonna = 3;
    SetForecast(c, {4, 8, 15, 16});
    c.pronostico.Numeri.fill(0); // SalvaFile takes the forecast from the grid
    c.pronostico.Descrizione = "ab";
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
    e.text("dvqsy000005").i16(3).u8(4).i32(2).str("ab").u8(4).u8(8).u8(15).u8(16).fill(86);
    e.i16(0).i16(-1).i16(0).fill(50).i16(-1).i16(10).i16(-2).fill(89).u8(1).u8(1).i16(0).u8(2);
    e.u8(4).u8(8).u8(15).u8(8).u8(15).u8(16);
    EXPECT_EQ(ReadAll(dir.file("a.dvs")), e.data); // no conditions block: nothing is due
}

TEST(FileSistemaWriter, WritesOnlyActiveRecordsInTheBlock) {
    CartellaTemporanea dir;
    Corpo c;
    FakeUi ui;
    SetForecast(c, Range(1, 12));
    ColonnaFiltro off = Filtro({1, 2}, 4);
    off.Stato = Falso;
    c.FiltriAND.append(off);
    c.FiltriOR.append(Filtro({90}, 2));
    CondizioneDistanza d;
    d.Stato = Falso;
    c.CondizioniDistanza.append(d);
    ASSERT_TRUE(SalvaFile(c, ui, dir.file("b.dvs")));

    const auto bytes = ReadAll(dir.file("b.dvs"));
    Bytes e;
    e.i32(12345).i32(16).fill(89).u8(1).i32(2).i16(-1).i32(100).i32(200);
    ASSERT_GE(bytes.size(), e.data.size());
    EXPECT_TRUE(std::equal(e.data.begin(), e.data.end(), bytes.end() - static_cast<long>(e.data.size())));

    Corpo back;
    ASSERT_EQ(ApriFile(back, ui, dir.file("b.dvs")), EsitoApriFile::Aperto);
    EXPECT_EQ(back.FiltriAND.count(), 0);
    EXPECT_EQ(back.FiltriOR.count(), 1);
    EXPECT_EQ(back.CondizioniDistanza.count(), 0);
}

TEST(FileSistemaWriter, TheDescriptionIsAnsiOnFileAndUtf8InMemory) {
    CartellaTemporanea dir;
    Corpo c;
    FakeUi ui;
    SetForecast(c, Range(1, 10));
    c.pronostico.Descrizione = "Riduzione \xC3\xA0 \xE2\x82\xAC";
    ASSERT_TRUE(SalvaFile(c, ui, dir.file("d.dvs")));
    EXPECT_NE(ReadText(dir.file("d.dvs")).find(std::string("\x0D\x00Riduzione \xE0 \x80", 15)), std::string::npos);
    Corpo back;
    ASSERT_EQ(ApriFile(back, ui, dir.file("d.dvs")), EsitoApriFile::Aperto);
    EXPECT_EQ(back.pronostico.Descrizione, c.pronostico.Descrizione);
}

TEST(FileSistemaWriter, SavingAgainWithFewerColumnsLeavesOnlyTheSecondContent) {
    CartellaTemporanea dir;
    const std::string path = dir.file("twice.dvs");
    Corpo c;
    FakeUi ui;
    c.LenColonna = 2;
    SetForecast(c, {1, 2, 3});
    c.pronostico.NumColonne = 3;
    for (int32_t j = 1; j <= 3; ++j) c.Colonne.set(j, 1, 1), c.Colonne.set(j, 2, static_cast<uint8_t>(j + 1));
    ASSERT_TRUE(SalvaFile(c, ui, path));
    const auto first = std::filesystem::file_size(path);
    c.pronostico.NumColonne = 1;
    ASSERT_TRUE(SalvaFile(c, ui, path));
    EXPECT_EQ(std::filesystem::file_size(path), first - 4);
    EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));

    Corpo back;
    ASSERT_EQ(ApriFile(back, ui, path), EsitoApriFile::Aperto);
    EXPECT_EQ(StoredColumns(back), (std::vector<std::vector<int>>{{1, 2}}));
}

TEST(FileSistemaWriter, ASaveCutAtAnyByteLeavesTheOldFileAndNoTemporaryFile) {
    namespace fs = std::filesystem;
    CartellaTemporanea dir;
    const std::string path = dir.file("keep.dvs"), victim = dir.file("victim");
    Bytes{}.text("old content").save(path);
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
        EXPECT_EQ(ReadText(path), "old content") << cut;
        EXPECT_EQ(std::distance(fs::directory_iterator(dir.file("")), fs::directory_iterator{}), 3) << cut;
    }
    ASSERT_EQ(ui.boxes.size(), 5u);
    EXPECT_EQ(ui.boxes[0].text, "Error 61 (Disk full) in procedure SalvaFile of Modulo corpo");
    EXPECT_EQ(ui.busyDepth, 0);
    ASSERT_TRUE(SalvaFile(c, ui, path));
    EXPECT_EQ(ReadText(victim), "victim");
    EXPECT_TRUE(fs::is_symlink(path + ".tmp"));
}

TEST(FileSistemaWriter, AReadOnlyFileStaysAsItWasAndAReplacedFileKeepsItsPermissions) {
    namespace fs = std::filesystem;
    CartellaTemporanea dir;
    Corpo c;
    FakeUi ui;
    SetForecast(c, Range(1, 10));
    for (const char* name : {"ro.dvs", "ro.txt"}) {
        const std::string path = dir.file(name);
        Bytes{}.text("old content").save(path);
        fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
        const bool salvato = fs::path(name).extension() == ".dvs" ? SalvaFile(c, ui, path) : SalvaColonneTxt(c, ui, path);
        EXPECT_FALSE(salvato) << name;
        EXPECT_EQ(ReadText(path), "old content") << name;
        EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::group_read) << name;
    }
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_EQ(ui.boxes[0].text,
              "Error 75 (Path/File access error: the file is read-only) in procedure SalvaFile of Modulo corpo");

    const std::string path = dir.file("ro.dvs");
    const auto bits = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(path, bits);
    EXPECT_TRUE(SalvaFile(c, ui, path));
    EXPECT_NE(ReadText(path), "old content");
    EXPECT_EQ(fs::status(path).permissions(), bits);
}

TEST(FileSistemaReader, ReportsToTheWindowInOrder) {
    CartellaTemporanea dir;
    Corpo c;
    FakeUi ui;
    SetForecast(c, {7, 9, 11});
    c.LenColonna = 2;
    c.pronostico.NumColonne = 1;
    c.Colonne.set(1, 1, 7);
    c.Colonne.set(1, 2, 9);
    ASSERT_TRUE(SalvaFile(c, ui, dir.file("o.dvs")));

    Corpo back;
    back.ModalitaRicalcolo = Vero;
    FakeUi ui2;
    ASSERT_EQ(ApriFile(back, ui2, "\"" + dir.file("o.dvs") + "\""), EsitoApriFile::Aperto);
    const std::vector<std::string> expected = {
        "busy",        "UnlockGUI",   "UnlockMenuConditions",  "gridChanged", "ViewStatusBar",
        "idle",        "lenColonnaChanged", "gridChanged",     "gridChanged", "gridChanged",
        "conditionMarksChanged", "LockGUI", "ViewStatusBar", "Sblocca_x_Ricalcolo"};
    EXPECT_EQ(ui2.calls, expected);
    EXPECT_EQ(back.FileCorrente, dir.file("o.dvs"));
    EXPECT_EQ(back.TitoloFile, "o.dvs");
    EXPECT_EQ(back.pronostico.Quanti, 3);
    EXPECT_EQ(back.SistemaBloccato, 0); // unlocked again for a recompute
}

TEST(FileSistemaReader, OrAndXorRecordsInMemoryStayAheadOfTheFiles) {
    CartellaTemporanea dir;
    Corpo c;
    FakeUi ui;
    SetForecast(c, Range(1, 10));
    c.FiltriOR.append(Filtro({1}, 2));
    c.FiltriXOR.append(Filtro({2}, 2));
    c.FiltriAND.append(Filtro({3}, 2));
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
    ASSERT_EQ(mem.FiltriAND.count(), 1); // the reset empties the AND table
    EXPECT_EQ(mem.FiltriAND[1].Numeri[3], 1);
}

} // namespace
