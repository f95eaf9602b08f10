#include "archive/Ultimate.h"

#include "archive/Archivio.h"
#include "archive/UltimateAggiorna.h"
#include "tests/support/FakeUi.h"

#include "core/Corpo.h"
#include "reference/UltimateLetterale.h"
#include "settings/TempDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numeric>
#include <random>

namespace dv {
namespace {

// Draws of 20 numbers out of 1..pool, in a random order, with now and then a blank draw, a number
// outside 1..90 or a repeated number, as an archive file may hold them.
ArrayEstrazioni RandomArchive(std::mt19937& rng, int draws, int pool) {
    ArrayEstrazioni a(1);
    std::vector<uint8_t> all(static_cast<size_t>(pool));
    std::iota(all.begin(), all.end(), uint8_t{1});
    for (int d = 0; d < draws; ++d) {
        std::shuffle(all.begin(), all.end(), rng);
        Estrazione& e = a.emplace_back();
        std::copy_n("01/02/2024", 10, e.Data.begin());
        std::copy_n(all.begin(), 20, e.Numeri.begin() + 1);
        const unsigned odd = rng() % 40;
        if (odd == 0) std::fill_n(e.Numeri.begin() + 1, 20, 0);
        if (odd == 1) e.Numeri[6] = 91 + static_cast<uint8_t>(rng() % 100);
        if (odd == 2) e.Numeri[8] = e.Numeri[4];
    }
    if (draws == 0) a.push_back(Estrazione{});
    return a;
}

// A search's result and every progress step it reported; a stop is asked at step fermaAlPasso.
struct Esito : EngineObserver {
    RisultatoUltimate r;
    std::vector<std::array<double, 4>> passi;
    double totale = -1;
    RunControl ctl;
    int fermaAlPasso = -1;
    void started(double t) override { totale = t; }
    void progress(const ProgressInfo& i) override {
        passi.push_back({double(i.step), double(i.bar), i.counter, double(i.kept)});
        if (i.step == fermaAlPasso) ctl.StopElaborazione = true;
    }
};

template <typename F>
std::unique_ptr<Esito> Cerca(F search, const ArrayEstrazioni& a, int n, int32_t e, int fermaAlPasso) {
    auto esito = std::make_unique<Esito>();
    esito->fermaAlPasso = fermaAlPasso;
    esito->r = search(a, n, e, esito->ctl, *esito);
    return esito;
}

void ExpectSame(const Esito& lit, const Esito& ours) {
    EXPECT_EQ(ours.r.numeri, lit.r.numeri);
    EXPECT_EQ(ours.r.trovate(), lit.r.trovate());
    EXPECT_EQ(ours.r.interrotta, lit.r.interrotta);
    EXPECT_EQ(ours.r.overflow, lit.r.overflow);
    EXPECT_EQ(ours.r.elaborate, lit.r.elaborate);
    EXPECT_EQ(ours.totale, lit.totale);
    EXPECT_EQ(ours.passi, lit.passi);
    if (!ours.r.overflow) {
        EXPECT_EQ(TestoUltimate(ours.r), TestoUltimate(lit.r));
    }
}

TEST(UltimateParametri, DecayAndDrawsToEvaluateForEveryKindAndQuantity) {
    const struct {
        int n;
        double c90, c20, decadimento;
        std::array<int32_t, 5> e; // Q = 1, 2, 3, 5, 10
    } righe[] = {
        {2, 4005, 190, -0.04860291578, {171, 156, 148, 138, 123}},
        {3, 117480, 1140, -0.00975116785, {1197, 1126, 1085, 1032, 961}},
        {4, 2555190, 4845, -0.00189794075, {7773, 7408, 7195, 6926, 6560}},
    };
    const int q[] = {1, 2, 3, 5, 10};
    for (const auto& r : righe) {
        const ParametriUltimate p = UltimateParametri(r.n, 1);
        EXPECT_EQ(p.combinazioni90, r.c90);
        EXPECT_EQ(p.combinazioni20, r.c20);
        EXPECT_NEAR(p.decadimento, r.decadimento, 5e-12) << r.n;
        for (size_t i = 0; i < 5; ++i)
            EXPECT_EQ(UltimateEstrazioni(r.n, q[i]), r.e[i]) << r.n << " Q " << q[i];
    }
}

TEST(UltimateCerca, MatchesTheLiteralSearchOnRandomArchives) {
    std::mt19937 rng(20240501);
    for (int caso = 0; caso < 24; ++caso) {
        const int n = caso % 4 == 3 ? 3 : 2;
        const int q = 1 + static_cast<int>(rng() % 10);
        const int32_t e = UltimateEstrazioni(n, q);
        // Archives shorter than E, about E, and longer; pools of 20..90 numbers.
        const int draws = static_cast<int>(rng() % static_cast<unsigned>(e + e / 2 + 2));
        const int pool = 20 + static_cast<int>(rng() % 71);
        const ArrayEstrazioni a = RandomArchive(rng, draws, pool);
        const int ferma = caso % 5 == 0 ? 1 + static_cast<int>(rng() % 75) : -1;
        SCOPED_TRACE(testing::Message() << "n " << n << " e " << e << " draws " << draws << " pool " << pool
                                        << " stop " << ferma);
        ExpectSame(*Cerca(test::UltimateCalcolaLetterale, a, n, e, ferma),
                   *Cerca(UltimateCerca, a, n, e, ferma));
    }
}

TEST(UltimateCerca, QuaterneOverflowAndStopAsTheLiteralSearch) {
    std::mt19937 rng(7);
    // Few draws leave far more than 32,767 quaterne: the 16-bit count ends the search.
    const ArrayEstrazioni corto = RandomArchive(rng, 12, 90);
    const auto ours = Cerca(UltimateCerca, corto, 4, 7773, -1);
    EXPECT_TRUE(ours->r.overflow);
    EXPECT_EQ(ours->r.trovate(), 32767);
    ExpectSame(*Cerca(test::UltimateCalcolaLetterale, corto, 4, 7773, -1), *ours);
    // A stop at the first step keeps the quaterne found until then.
    const ArrayEstrazioni lungo = RandomArchive(rng, 3000, 24);
    const auto fermato = Cerca(UltimateCerca, lungo, 4, 7773, 1);
    EXPECT_TRUE(fermato->r.interrotta);
    EXPECT_EQ(fermato->passi.size(), 1u);
    ExpectSame(*Cerca(test::UltimateCalcolaLetterale, lungo, 4, 7773, 1), *fermato);
}

TEST(AggiornaArchivioUltimate, AskForThirtyDaysAndKeepTheArchiveWhenTheConversionFails) {
    namespace fs = std::filesystem;
    const test::TempDir dir;
    Corpo c;
    c.PathArchivioDownload = dir.file("download.dat");
    c.PathArchivio5Min = dir.file("5min.dat");
    std::string risposta, chiesto;
    const ServerArchivi server{"http://127.0.0.1:1", [&](const std::string& url, const std::string& path) {
                                   chiesto = url;
                                   std::ofstream(path, std::ios::binary) << risposta;
                                   return true;
                               }};
    const std::string riga = "01/03/2024;7;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17;18;19;20;1;2\r\n";
    test::FakeUi ui;
    risposta = riga;
    // 1 April 2024 less 30 days.
    EXPECT_EQ(AggiornaArchivioUltimate(c, ui, server, 45383), EsitoAggiornamento::Aggiornato);
    EXPECT_EQ(chiesto, "http://127.0.0.1:1/public/10elotto5min/archivioro2.asp?dal=20240302");
    EXPECT_FALSE(fs::exists(c.PathArchivioDownload));
    EXPECT_EQ(fs::file_size(c.PathArchivio5Min), 34u);

    risposta = riga + "02/03/2024;x;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17;18;19;20;1;2\r\n";
    EXPECT_EQ(AggiornaArchivioUltimate(c, ui, server, 45383), EsitoAggiornamento::ConversioneFallita);
    EXPECT_EQ(fs::file_size(c.PathArchivio5Min), 34u);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(
        ui.boxes[0].text.rfind("Error 13 (Type mismatch) \nlast DLL ( 0 ) source ( ConvertArchivioTmpToDat ) "
                               "\nin procedure cmdUpdate_Click of Form frmUltimate",
                               0),
        0u);
}

} // namespace
} // namespace dv
