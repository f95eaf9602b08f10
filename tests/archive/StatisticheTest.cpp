#include "archive/Statistiche.h"

#include "archive/Archivio.h"
#include "tests/archive/SupportoArchivio.h"
#include "tests/reference/StatisticheLetterale.h"
#include "tests/settings/TempDir.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <random>
#include <set>
#include <tuple>

namespace dv {
namespace {

namespace fs = std::filesystem;

using test::DateOf;

// A draw of twenty ascending numbers starting at from, step 2 (no runs, no two the same).
Estrazione Spaced(const std::string& data, int conc, int from) {
    std::vector<int> n;
    for (int k = 0; k < 20; ++k)
        n.push_back(from + 2 * k);
    return test::Draw(data, conc, n);
}

// A random archive: dates in order, several draws a date with rising draw numbers, mostly twenty
// sorted distinct numbers, now and then runs, zeros, repeats of a number, or numbers above 90.
ArrayEstrazioni RandomArchive(std::mt19937& rng, int dates) {
    ArrayEstrazioni a(1);
    for (int d = 0; d < dates; ++d) {
        const int perDay = 1 + static_cast<int>(rng() % 6);
        int16_t conc = 0;
        for (int k = 0; k < perDay; ++k) {
            conc = static_cast<int16_t>(conc + 1 + rng() % 60);
            std::vector<int> n(90);
            std::iota(n.begin(), n.end(), 1);
            std::shuffle(n.begin(), n.end(), rng);
            n.resize(20);
            const unsigned kind = rng() % 8;
            if (kind != 2) std::sort(n.begin(), n.end()); // kind 2: unsorted, a number twice
            if (kind == 2) n[3] = n[7];
            if (kind == 0) std::iota(n.begin(), n.end(), 1 + static_cast<int>(rng() % 70)); // one long run
            for (int& v : n)
                if (kind == 1 && rng() % 3 == 0) v = 0; // zeros in place of numbers
            if (kind == 3 && rng() % 10 == 0) n[19] = 91 + static_cast<int>(rng() % 165); // not of the game
            a.push_back(test::Draw(DateOf(d), conc, n));
        }
    }
    return a;
}

TEST(Statistiche, MatchesTheLiteralComputationOnRandomArchives) {
    std::mt19937 rng(20261122);
    for (int round = 0; round < 400; ++round) {
        // The first archive is long enough for the text to leave in several pieces.
        const int dates = round == 0 ? 1500 : 1 + static_cast<int>(rng() % 25);
        const ArrayEstrazioni a = RandomArchive(rng, dates);
        IntervalloStatistiche r;
        r.dal = DateOf(static_cast<int>(rng() % static_cast<unsigned>(dates)));
        r.al = DateOf(static_cast<int>(rng() % static_cast<unsigned>(dates)));
        if (rng() % 4 == 0) std::swap(r.dal, r.al);
        r.concDal = static_cast<int32_t>(rng() % 300);
        r.concAl = static_cast<int32_t>(rng() % 300);
        const int32_t tipo = static_cast<int32_t>(rng() % 3);
        test::FakeUi ui, uiRef;
        TabelleStatistiche t, ref;
        TestoCsv csv;
        std::string csvRef;
        const EsitoStatistiche esito = CalcolaStatistiche(a, tipo, r, ui, t, &csv);
        const bool okRef = test::StatisticheLetterali(a, tipo, r, uiRef, ref, csvRef);
        SCOPED_TRACE(round);
        ASSERT_EQ(esito == EsitoStatistiche::Calcolate, okRef);
        ASSERT_EQ(csv.testo, csvRef);
        EXPECT_EQ(std::tie(t.consecutivi, t.ripetuti, t.pari, t.dispari, t.somma, t.frequenza),
                  std::tie(ref.consecutivi, ref.ripetuti, ref.pari, ref.dispari, ref.somma, ref.frequenza));
    }
}

// The counts, the range, the CSV and the order of the frequencies are checked against the literal
// computation above; the chart's band labels are not part of it.
TEST(Statistiche, SumBandsRunFrom210To1610InStepsOf70) {
    for (const auto& [somma, banda] :
         {std::pair{209, 0}, {210, 1}, {280, 1}, {281, 2}, {1610, 20}, {1611, 0}})
        EXPECT_EQ(BandaSomma(somma), banda) << somma;
    EXPECT_EQ(MinimoBanda(1), 210);
    EXPECT_EQ(MinimoBanda(2), 281);
    EXPECT_EQ(MassimoBanda(20), 1610);
}

TEST(Statistiche, FailuresEndInTheGuardsBoxAndDateListsStopAbove32000Dates) {
    ArrayEstrazioni a(1);
    a.push_back(Spaced("01/03/2024", 1, 1));
    a.push_back(Spaced("02/03/2024", 1, 1));
    test::FakeUi ui;
    ui.texts = {{"0022", "Il primo valore e' maggiore dell'ultimo."}};
    TabelleStatistiche t;
    EXPECT_EQ(CalcolaStatistiche(a, 0, {"02/03/2024", "01/03/2024", 1, 288}, ui, t, nullptr),
              EsitoStatistiche::Errore);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error -2147211504 (Il primo valore e' maggiore dell'ultimo.) in procedure "
                                "Statistiche of Form frmStatistiche");
    // A number the game does not have stops the count at that draw (how far it got: as the literal).
    a[2].Numeri[20] = 200;
    EXPECT_EQ(CalcolaStatistiche(a, 0, {"01/03/2024", "02/03/2024", 1, 288}, ui, t, nullptr),
              EsitoStatistiche::Errore);
    EXPECT_EQ(ui.boxes.back().text,
              "Error 9 (Subscript out of range) in procedure Statistiche of Form frmStatistiche");
    // The empty archive counts nothing and shows nothing.
    EXPECT_EQ(CalcolaStatistiche(ArrayEstrazioni(2), 0, {}, ui, t, nullptr), EsitoStatistiche::Vuoto);
    EXPECT_EQ(ui.boxes.size(), 2u);

    // The date lists hold each date once, a date that comes back too, and stop above 32000 dates.
    a.push_back(Spaced("01/03/2024", 2, 1));
    std::vector<std::string> date;
    ASSERT_TRUE(ElencoDateEstrazioni(a, date, ui));
    EXPECT_EQ(date, (std::vector<std::string>{"01/03/2024", "02/03/2024"}));
    ArrayEstrazioni grande(1);
    for (int d = 0; d <= MaxDateStatistiche; ++d)
        grande.push_back(Spaced(DateOf(d), 1, 1));
    EXPECT_FALSE(ElencoDateEstrazioni(grande, date, ui));
    EXPECT_EQ(date.size(), static_cast<size_t>(MaxDateStatistiche));
    ASSERT_EQ(ui.boxes.size(), 3u);
    EXPECT_EQ(ui.boxes[2].title, "Errore dimensione archivio");
    EXPECT_EQ(ui.boxes[2].icon, BoxIcon::Critical);
    EXPECT_EQ(ui.boxes[2].text,
              "Error : Archivio superiore alla dimensione massima...Spoglio Estrazioni non disponibile");
}

TEST(Statistiche, WindowRunRemovesEarlierCsvFilesAndWritesTheNewOne) {
    test::TempDir dir;
    for (const char* n : {"dorvantaqvn_20200101_101010.csv", "altro.csv", "dorvantaqvn_download2.dat"})
        dir.write(n, "x");
    ArrayEstrazioni a(1);
    a.push_back(Spaced("01/03/2024", 1, 1));
    test::FakeUi ui;
    TabelleStatistiche t;
    const std::string path = PercorsoCsvStatistiche(dir.path() + "/", 0);
    const std::string nome = fs::path(path).filename().string();
    EXPECT_EQ(nome.size(), std::string("dorvantaqvn_yyyymmdd_hhmmss.csv").size());
    ASSERT_EQ(Statistiche(a, 0, {"01/03/2024", "01/03/2024", 1, 288}, dir.path() + "/", path, ui, t),
              EsitoStatistiche::Calcolate);
    std::set<std::string> names;
    for (const auto& e : fs::directory_iterator(dir.path()))
        names.insert(e.path().filename().string());
    EXPECT_EQ(names, (std::set<std::string>{"altro.csv", nome, "dorvantaqvn_download2.dat"}));
    const std::string text = dir.read(nome);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
}

} // namespace
} // namespace dv
