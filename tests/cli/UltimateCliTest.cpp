// Runs `dorvanta-cli ultimate` and `dorvanta-cli filters import` as processes and checks their
// output and files against the logic called directly.
#include "tests/cli/EseguiCli.h"
#include "archive/Archivio.h"
#include "archive/Ultimate.h"
#include "filters/ImportFiltri.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace dv {
using dv::test::Esecuzione;
using dv::test::EseguiComando;

namespace {

namespace fs = std::filesystem;

Esecuzione Esegui(const std::string& args) {
    const std::string cmd = std::string("'") + DV_CLI_PATH + "' " + args + " 2>/dev/null";
    return EseguiComando(cmd);
}

class UltimateCli : public ::testing::Test {
protected:
    void SetUp() override {
        dir = fs::temp_directory_path() / ("dv_ultimate_cli_" + std::to_string(::getpid()));
        fs::create_directories(dir);
        archivio = (dir / "5min.dat").string();
        // Two days of 100 draws each, random numbers from a fixed seed.
        std::mt19937 rng(11);
        std::vector<uint8_t> numeri(90);
        for (int i = 0; i < 90; ++i)
            numeri[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
        std::ofstream out(archivio, std::ios::binary);
        a.resize(1);
        for (int g = 1; g <= 2; ++g)
            for (int c = 1; c <= 100; ++c) {
                Estrazione e;
                char data[24];
                std::snprintf(data, sizeof data, "%02d/05/2025", g);
                std::copy_n(data, 10, e.Data.begin());
                e.Concorso = static_cast<int16_t>(c);
                std::shuffle(numeri.begin(), numeri.end(), rng);
                std::copy_n(numeri.begin(), 20, e.Numeri.begin() + 1);
                const auto r = RecordEstrazione(e);
                out.write(r.data(), r.size());
                a.push_back(e);
            }
    }
    void TearDown() override { fs::remove_all(dir); }

    std::string p(const char* name) const { return "'" + (dir / name).string() + "'"; }

    fs::path dir;
    std::string archivio;
    ArrayEstrazioni a;
};

TEST_F(UltimateCli, PrintsTheDrawsTheDecayAndTheResultTextOrJson) {
    RunControl ctl;
    EngineObserver obs;
    const RisultatoUltimate r = UltimateCerca(a, 2, 123, ctl, obs);
    ASSERT_GT(r.trovate(), 1);

    const Esecuzione testo = Esegui("ultimate '" + archivio + "' --size 2 --qty 10");
    EXPECT_EQ(testo.rc, 0);
    EXPECT_EQ(testo.out, "draws: 123\ndecay: -0.04860291578\n" + TestoUltimate(r));

    const Esecuzione json = Esegui("ultimate '" + archivio + "' --size 2 --qty 10 --json");
    EXPECT_EQ(json.rc, 0);
    std::string atteso = "{\"draws\": 123, \"decay\": -0.04860291578, \"combinations\": [";
    for (int32_t i = 0; i < r.trovate(); ++i)
        atteso += (i ? ", [" : "[") + std::to_string(r.combinazione(i)[0]) + ", " +
                  std::to_string(r.combinazione(i)[1]) + "]";
    EXPECT_EQ(json.out, atteso + "]}\n");

    // The data folder's five-minute archive when no file is given.
    fs::create_directories(dir / "data" / "archivio");
    fs::copy_file(archivio, dir / "data" / "archivio" / "dorvantaqvn5min2.dat");
    EXPECT_EQ(Esegui("ultimate --data-dir " + p("data") + " --size 2 --qty 10").out, testo.out);

    EXPECT_EQ(Esegui("ultimate '" + archivio + "' --size 5 --qty 1").rc, 2);
    EXPECT_EQ(Esegui("ultimate " + p("missing.dat") + " --size 2 --qty 1").rc, 1);
    // Three draws leave far more than 32,767 terni: the search ends in the overflow.
    std::ofstream(dir / "corto.dat", std::ios::binary)
        .write(RecordEstrazione(a[1]).data(), DimensioneRecordEstrazione);
    EXPECT_EQ(Esegui("ultimate " + p("corto.dat") + " --size 3 --qty 1").rc, 1);
}

TEST_F(UltimateCli, ImportsFiltersIntoOneTableOfTheSystem) {
    ASSERT_EQ(Esegui("new -o " + p("in.dvs") + " --numbers 1-40 --length 8").rc, 0);
    const Esecuzione r = Esegui("filters import " + p("in.dvs") + " --table or --presence 0-2 --archive '" +
                                archivio + "' --type 1 --last-draws 157 -o " + p("out.dvs"));
    EXPECT_EQ(r.rc, 0);
    EXPECT_NE(r.out.find("157 filters in the OR table"), std::string::npos);
    test::FakeUi ui;
    auto c = std::make_unique<Corpo>();
    ASSERT_EQ(ApriFile(*c, ui, (dir / "out.dvs").string()), EsitoApriFile::Aperto);
    EXPECT_EQ(c->FiltriOR.count(), 157);
    EXPECT_EQ(c->FiltriAND.count(), 0);
    EXPECT_EQ(c->FiltriOR[1].Presenze, 0b111);
    EXPECT_EQ(c->FiltriOR[157].Numeri[a[200].Numeri[1]], 1);

    // A date range with draw numbers, and whole days.
    EXPECT_NE(Esegui("filters import " + p("in.dvs") + " --table and --presence 1 --archive '" + archivio +
                     "' --type 1 --from 01/05/2025 --to 02/05/2025 --conc-from 91 --conc-to 10 -o " +
                     p("o2.dvs"))
                  .out.find(": 20 filters"),
              std::string::npos);
    EXPECT_NE(Esegui("filters import " + p("in.dvs") + " --table and --presence 1 --archive '" + archivio +
                     "' --last-days 1 -o " + p("o3.dvs"))
                  .out.find(": 100 filters"),
              std::string::npos);
    // A date the archive lacks, a file with a field that is no number: refused, nothing written.
    EXPECT_EQ(Esegui("filters import " + p("in.dvs") + " --table and --presence 1 --archive '" + archivio +
                     "' --from 03/05/2025 --to 03/05/2025 -o " + p("o4.dvs"))
                  .rc,
              1);
    std::ofstream(dir / "f.txt") << "1 2 3\n4 x\n";
    EXPECT_EQ(Esegui("filters import " + p("in.dvs") + " --table xor --presence 1 --file " + p("f.txt") +
                     " -o " + p("o5.dvs"))
                  .rc,
              1);
    EXPECT_FALSE(fs::exists(dir / "o4.dvs") || fs::exists(dir / "o5.dvs"));
    // Usage: both sources, or a presence above the column length.
    EXPECT_EQ(Esegui("filters import " + p("in.dvs") + " --table xor --presence 1 --file " + p("f.txt") +
                     " --archive '" + archivio + "' --last-days 1 -o " + p("o6.dvs"))
                  .rc,
              2);
    EXPECT_EQ(Esegui("filters import " + p("in.dvs") + " --table xor --presence 9 --file " + p("f.txt") +
                     " -o " + p("o6.dvs"))
                  .rc,
              2);
}

} // namespace
} // namespace dv
