// Runs `dorvanta-cli stats` on a small archive file and checks it against the computation itself.
#include "tests/cli/EseguiCli.h"
#include "archive/Archivio.h"
#include "archive/Statistiche.h"
#include "cli/UiTesto.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace dv {
using dv::test::Esecuzione;
using dv::test::EseguiComando;

namespace {

namespace fs = std::filesystem;

// stdout of the program, or with err its stderr.
Esecuzione Esegui(const std::string& args, bool err = false) {
    const std::string cmd = std::string("'") + DV_CLI_PATH + "' --language '" + DV_LANGUAGE_FILE + "' " +
                            args + (err ? " 2>&1 >/dev/null" : " 2>/dev/null");
    return EseguiComando(cmd);
}

std::string Leggi(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

class StatsCli : public ::testing::Test {
protected:
    void SetUp() override {
        dir = fs::temp_directory_path() / ("dv_stats_cli_" + std::to_string(::getpid()));
        fs::create_directories(dir);
        archivio = (dir / "archivio.dat").string();
        // Three days of five-minute draws, 1..6 a day, numbers drifting so the counts differ.
        a.resize(1);
        std::ofstream out(archivio, std::ios::binary);
        for (int g = 1; g <= 3; ++g)
            for (int c = 1; c <= 6; ++c) {
                Estrazione e;
                char data[32];
                std::snprintf(data, sizeof data, "%02d/05/2025", g);
                std::memcpy(e.Data.data(), data, e.Data.size());
                e.Concorso = static_cast<int16_t>(c);
                for (int k = 1; k <= 20; ++k)
                    e.Numeri[static_cast<size_t>(k)] = static_cast<uint8_t>((k * (g + c) + c) % 90 + 1);
                std::sort(e.Numeri.begin() + 1, e.Numeri.end());
                a.push_back(e);
                const auto r = RecordEstrazione(e);
                out.write(r.data(), static_cast<std::streamsize>(r.size()));
            }
    }
    void TearDown() override { fs::remove_all(dir); }

    fs::path dir;
    std::string archivio;
    ArrayEstrazioni a;
};

std::string Conteggi(const std::array<int32_t, 21>& t, size_t da, size_t a) {
    std::string s = "[";
    for (size_t i = da; i <= a; ++i)
        s += (i == da ? "" : ", ") + std::to_string(t[i]);
    return s + "]";
}

TEST_F(StatsCli, JsonAndCsvAreThoseOfTheComputation) {
    const fs::path csv = dir / "out.csv";
    const Esecuzione e =
        Esegui("stats '" + archivio + "' --from 01/05/2025 --conc-from 3 --to 02/05/2025 --conc-to 4 " +
               "--type 1 --json --csv '" + csv.string() + "'");
    ASSERT_EQ(e.rc, 0);
    cli::UiTesto ui(DV_LANGUAGE_FILE, stderr);
    TabelleStatistiche t;
    TestoCsv atteso;
    ASSERT_EQ(CalcolaStatistiche(a, 1, {"01/05/2025", "02/05/2025", 3, 4}, ui, t, &atteso),
              EsitoStatistiche::Calcolate);
    EXPECT_EQ(t.ultimo - t.primo + 1, 8);
    std::string json = "{\"consecutive\": " + Conteggi(t.consecutivi, 1, 20) +
                       ", \"repeats\": " + Conteggi(t.ripetuti, 0, 20) +
                       ", \"even\": " + Conteggi(t.pari, 0, 20) + ", \"odd\": " + Conteggi(t.dispari, 0, 20) +
                       ", \"sum\": " + Conteggi(t.somma, 1, 20) + ", \"frequency\": [";
    for (size_t i = 1; i <= 90; ++i)
        json += (i == 1 ? "[" : ", [") + std::to_string(t.frequenza[i][1]) + ", " +
                std::to_string(t.frequenza[i][0]) + "]";
    EXPECT_EQ(e.out, json + "]}\n");
    EXPECT_EQ(Leggi(csv), atteso.testo);
    EXPECT_EQ(atteso.testo.substr(0, 10), "Data;n.;P1");
}

TEST_F(StatsCli, WithoutDatesTheWholeArchive) {
    const Esecuzione e = Esegui("stats '" + archivio + "'");
    ASSERT_EQ(e.rc, 0);
    EXPECT_EQ(e.out.substr(0, e.out.find('\n')), "18 draws, from 01/05/2025 n. 1 to 03/05/2025 n. 6");
    EXPECT_NE(e.out.find("\nFrequenza\n"), std::string::npos);
    EXPECT_NE(e.out.find("  0210-0280 -->      "), std::string::npos);
}

TEST_F(StatsCli, RefusesWhatItCannotCount) {
    EXPECT_EQ(Esegui("stats '" + (dir / "none.dat").string() + "'").rc, 1);
    EXPECT_FALSE(fs::exists(dir / "none.dat"));
    EXPECT_EQ(Esegui("stats '" + archivio + "' --from 09/05/2025").rc, 1);
    EXPECT_EQ(Esegui("stats '" + archivio + "' --from 9/5/2025").rc, 2);
    EXPECT_EQ(Esegui("stats '" + archivio + "' --type 3").rc, 2);
    const Esecuzione e = Esegui("stats '" + archivio + "' --from 03/05/2025 --to 01/05/2025", true);
    EXPECT_EQ(e.rc, 1);
    EXPECT_NE(e.out.find("Error -2147211504 ("), std::string::npos);
    EXPECT_NE(e.out.find(") in procedure Statistiche of Form frmStatistiche"), std::string::npos);
}

} // namespace
} // namespace dv
