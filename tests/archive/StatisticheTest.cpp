#include "archive/Statistiche.h"

#include "archive/Archivio.h"
#include "tests/reference/StatisticheLetterale.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <random>
#include <sstream>

#include <unistd.h>

namespace dv {
namespace {

namespace fs = std::filesystem;

Estrazione Draw(const std::string& data, int16_t conc, std::initializer_list<int> numeri) {
    Estrazione e;
    std::memset(e.Data.data(), ' ', 10);
    std::memcpy(e.Data.data(), data.data(), std::min<size_t>(data.size(), 10));
    e.Concorso = conc;
    int k = 1;
    for (int n : numeri)
        e.Numeri[static_cast<size_t>(k++)] = static_cast<uint8_t>(n);
    return e;
}

// Twenty ascending numbers starting at from, step 2 (no runs, no two the same).
Estrazione Spaced(const std::string& data, int16_t conc, int from) {
    Estrazione e = Draw(data, conc, {});
    for (int k = 1; k <= 20; ++k)
        e.Numeri[static_cast<size_t>(k)] = static_cast<uint8_t>(from + 2 * (k - 1));
    return e;
}

std::string DateOf(int day) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", 1 + day % 28, 1 + (day / 28) % 12, 2000 + day / 336);
    return buf;
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
            Estrazione e = Draw(DateOf(d), conc, {});
            std::copy(n.begin(), n.end(), e.Numeri.begin() + 1);
            a.push_back(e);
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
        EXPECT_EQ(t.consecutivi, ref.consecutivi);
        EXPECT_EQ(t.ripetuti, ref.ripetuti);
        EXPECT_EQ(t.pari, ref.pari);
        EXPECT_EQ(t.dispari, ref.dispari);
        EXPECT_EQ(t.somma, ref.somma);
        EXPECT_EQ(t.frequenza, ref.frequenza);
    }
}

TEST(Statistiche, SumBandsRunFrom210To1610InStepsOf70) {
    EXPECT_EQ(BandaSomma(209), 0);
    EXPECT_EQ(BandaSomma(210), 1);
    EXPECT_EQ(BandaSomma(280), 1);
    EXPECT_EQ(BandaSomma(281), 2);
    EXPECT_EQ(BandaSomma(350), 2);
    EXPECT_EQ(BandaSomma(1541), 20);
    EXPECT_EQ(BandaSomma(1610), 20);
    EXPECT_EQ(BandaSomma(1611), 0);
    EXPECT_EQ(MinimoBanda(2), 281);
    EXPECT_EQ(MassimoBanda(20), 1610);
}

TEST(Statistiche, RangeStartsAtTheDrawNumberOrTheLastDrawOfItsDate) {
    ArrayEstrazioni a(1);
    a.push_back(Spaced("01/03/2024", 5, 1));
    a.push_back(Spaced("01/03/2024", 9, 2));
    a.push_back(Spaced("02/03/2024", 3, 1));
    a.push_back(Spaced("02/03/2024", 8, 2));
    test::FakeUi ui;
    int32_t primo = 0, ultimo = 0;
    TrovaIntervallo(a, {"01/03/2024", "02/03/2024", 6, 4}, ui, primo, ultimo);
    EXPECT_EQ(primo, 2);
    EXPECT_EQ(ultimo, 4);
    // A draw number above every one of the date: the last draw of that date.
    TrovaIntervallo(a, {"01/03/2024", "02/03/2024", 50, 288}, ui, primo, ultimo);
    EXPECT_EQ(primo, 2);
    EXPECT_EQ(ultimo, 4);
    // A range of one draw has no draw before it to repeat.
    TabelleStatistiche t;
    TestoCsv csv;
    ASSERT_EQ(CalcolaStatistiche(a, 1, {"02/03/2024", "02/03/2024", 8, 8}, ui, t, &csv),
              EsitoStatistiche::Calcolate);
    EXPECT_EQ(t.ripetuti[0], 1);
    EXPECT_EQ(t.consecutivi[1], 1);
    EXPECT_EQ(t.pari[20], 1);
    EXPECT_EQ(t.somma[BandaSomma(420)], 1);
}

TEST(Statistiche, CsvStartsWithTheNewestDrawAndLeavesZerosOut) {
    ArrayEstrazioni a(1);
    a.push_back(
        Draw("01/03/2024", 1, {1, 2, 3, 10, 20, 30, 40, 50, 60, 61, 62, 63, 64, 70, 71, 80, 81, 82, 89, 90}));
    a.push_back(Draw("01/03/2024", 2, {1, 2, 5, 0, 7, 9}));
    test::FakeUi ui;
    ui.texts = {{"0031", "Data"},    {"0032", "Ripetuti"},    {"0033", "Pari"},
                {"0034", "Dispari"}, {"0035", "Consecutivi"}, {"0036", "Somma"}};
    TabelleStatistiche t;
    TestoCsv csv;
    ASSERT_EQ(CalcolaStatistiche(a, 1, {"01/03/2024", "01/03/2024", 1, 288}, ui, t, &csv),
              EsitoStatistiche::Calcolate);
    EXPECT_EQ(csv.testo,
              "Data;n.;P1;P2;P3;P4;P5;P6;P7;P8;P9;P10;P11;P12;P13;P14;P15;P16;P17;P18;P19;P20;"
              "Ripetuti;Pari;Dispari;Consecutivi;Somma\r\n"
              "01/03/2024;2;01;02;05;07;09;2;16;4;2;24\r\n"
              "01/03/2024;1;01;02;03;10;20;30;40;50;60;61;62;63;64;70;71;80;81;82;89;90;0;13;7;5;1029\r\n");
    // Only 1 and 2 repeat: the zeros of the newer draw are not among the older one's numbers.
    EXPECT_EQ(t.ripetuti[2], 1);
    // Frequencies: 1 and 2 twice, first; numbers of equal count in the exchange sort's order.
    EXPECT_EQ(t.frequenza[1][0], 2);
    EXPECT_EQ(t.frequenza[2][0], 2);
    EXPECT_EQ(t.frequenza[90][0], 0);
}

TEST(Statistiche, EqualCountsComeOutInTheExchangeSortsOrder) {
    std::array<std::array<int32_t, 2>, 91> f{};
    for (int32_t k = 1; k <= 90; ++k)
        f[static_cast<size_t>(k)] = {k == 45 ? 7 : 3, k};
    OrdinaFrequenze(f);
    EXPECT_EQ(f[1][1], 45);
    // Exchanging on equal counts turns the rest around: 90 first, 1 last.
    EXPECT_EQ(f[2][1], 90);
    EXPECT_EQ(f[90][1], 1);
}

TEST(Statistiche, FailuresEndInTheGuardsBox) {
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
    // A number the game does not have stops the count at that draw.
    a[2].Numeri[20] = 200;
    EXPECT_EQ(CalcolaStatistiche(a, 0, {"01/03/2024", "02/03/2024", 1, 288}, ui, t, nullptr),
              EsitoStatistiche::Errore);
    EXPECT_EQ(ui.boxes.back().text,
              "Error 9 (Subscript out of range) in procedure Statistiche of Form frmStatistiche");
    EXPECT_EQ(t.pari[1], 1);
    EXPECT_EQ(t.pari[0], 0);
    // The empty archive counts nothing and shows nothing.
    EXPECT_EQ(CalcolaStatistiche(ArrayEstrazioni(2), 0, {}, ui, t, nullptr), EsitoStatistiche::Vuoto);
    EXPECT_EQ(ui.boxes.size(), 2u);
}

TEST(Statistiche, DateListsStopAbove32000Dates) {
    ArrayEstrazioni a(1);
    a.push_back(Spaced("01/01/2024", 1, 1));
    a.push_back(Spaced("01/01/2024", 2, 1));
    a.push_back(Spaced("02/01/2024", 1, 1));
    a.push_back(Spaced("01/01/2024", 3, 1));
    test::FakeUi ui;
    std::vector<std::string> date;
    ASSERT_TRUE(ElencoDateEstrazioni(a, date, ui));
    EXPECT_EQ(date, (std::vector<std::string>{"01/01/2024", "02/01/2024"}));

    ArrayEstrazioni grande(1);
    for (int d = 0; d <= MaxDateStatistiche; ++d)
        grande.push_back(Spaced(DateOf(d), 1, 1));
    EXPECT_FALSE(ElencoDateEstrazioni(grande, date, ui));
    EXPECT_EQ(date.size(), static_cast<size_t>(MaxDateStatistiche));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].title, "Errore dimensione archivio");
    EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(ui.boxes[0].text,
              "Error : Archivio superiore alla dimensione massima...Spoglio Estrazioni non disponibile");
}

TEST(Statistiche, WindowRunRemovesEarlierCsvFilesAndWritesTheNewOne) {
    const fs::path dir = fs::temp_directory_path() / ("dv_statistiche_" + std::to_string(::getpid()));
    fs::remove_all(dir);
    fs::create_directories(dir);
    const std::string temp = dir.string() + "/";
    for (const char* n : {"dorvantaqvn_20200101_101010.csv", "altro.csv", "dorvantaqvn_download2.dat"})
        std::ofstream(dir / n) << "x";
    ArrayEstrazioni a(1);
    a.push_back(Spaced("01/03/2024", 1, 1));
    test::FakeUi ui;
    TabelleStatistiche t;
    const std::string path = PercorsoCsvStatistiche(temp, 0);
    EXPECT_EQ(fs::path(path).filename().string().size(),
              std::string("dorvantaqvn_yyyymmdd_hhmmss.csv").size());
    ASSERT_EQ(Statistiche(a, 0, {"01/03/2024", "01/03/2024", 1, 288}, temp, path, ui, t),
              EsitoStatistiche::Calcolate);
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir))
        names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"altro.csv", fs::path(path).filename().string(),
                                               "dorvantaqvn_download2.dat"}));
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    const std::string text = s.str();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    fs::remove_all(dir);
}

} // namespace
} // namespace dv
