// Runs `dorvanta-cli ultimate` and `dorvanta-cli filters import` as processes and checks their
// output and files against the logic called directly.
#include "archive/Ultimate.h"
#include "system_files/FileSistema.h"
#include "tests/cli/EseguiCli.h"
#include "tests/support/FakeUi.h"

#include <memory>

namespace dv {
namespace {

using test::Cli;

class UltimateCli : public test::CliTest {
protected:
    UltimateCli() : a(test::ArchivioCasuale(2, 100, dir.file("5min.dat"))) {}
    // `filters import` of in.dvs into out with the options given.
    test::Esecuzione importa(const std::string& args, const std::string& out) {
        return Cli("filters import " + q("in.dvs") + " " + args + " -o " + q(out));
    }

    ArrayEstrazioni a;
};

TEST_F(UltimateCli, PrintsTheDrawsTheDecayAndTheResultTextOrJson) {
    RunControl ctl;
    EngineObserver obs;
    const RisultatoUltimate r = UltimateCerca(a, 2, 123, ctl, obs);
    ASSERT_GT(r.trovate(), 1);

    const auto testo = Cli("ultimate " + q("5min.dat") + " --size 2 --qty 10");
    EXPECT_EQ(testo.rc, 0);
    EXPECT_EQ(testo.out, "draws: 123\ndecay: -0.04860291578\n" + TestoUltimate(r));

    const auto json = Cli("ultimate " + q("5min.dat") + " --size 2 --qty 10 --json");
    EXPECT_EQ(json.rc, 0);
    std::string atteso = "{\"draws\": 123, \"decay\": -0.04860291578, \"combinations\": [";
    for (int32_t i = 0; i < r.trovate(); ++i)
        atteso += (i ? ", [" : "[") + std::to_string(r.combinazione(i)[0]) + ", " +
                  std::to_string(r.combinazione(i)[1]) + "]";
    EXPECT_EQ(json.out, atteso + "]}\n");

    // The data folder's five-minute archive when no file is given.
    std::filesystem::create_directories(dir.file("data/archivio"));
    std::filesystem::copy_file(dir.file("5min.dat"), dir.file("data/archivio/dorvantaqvn5min2.dat"));
    EXPECT_EQ(Cli("ultimate --data-dir " + q("data") + " --size 2 --qty 10").out, testo.out);

    EXPECT_EQ(Cli("ultimate " + q("5min.dat") + " --size 5 --qty 1").rc, 2);
    EXPECT_EQ(Cli("ultimate " + q("missing.dat") + " --size 2 --qty 1").rc, 1);
}

TEST_F(UltimateCli, ImportsFiltersIntoOneTableOfTheSystem) {
    ASSERT_EQ(Cli("new -o " + q("in.dvs") + " --numbers 1-40 --length 8").rc, 0);
    const std::string archivio = " --archive " + q("5min.dat");
    const auto r = importa("--table or --presence 0-2" + archivio + " --type 1 --last-draws 157", "out.dvs");
    EXPECT_EQ(r.rc, 0);
    EXPECT_NE(r.out.find("157 filters in the OR table"), std::string::npos);
    test::FakeUi ui;
    auto c = std::make_unique<Corpo>();
    ASSERT_EQ(ApriFile(*c, ui, dir.file("out.dvs")), EsitoApriFile::Aperto);
    EXPECT_EQ(c->FiltriOR.count(), 157);
    EXPECT_EQ(c->FiltriOR[1].Presenze, 0b111);

    // A date range with draw numbers: from draw 91 of the first day to draw 10 of the second.
    const std::string and1 = "--table and --presence 1";
    EXPECT_NE(
        importa(and1 + archivio + " --type 1 --from 01/05/2025 --to 02/05/2025 --conc-from 91 --conc-to 10",
                "o2.dvs")
            .out.find(": 20 filters"),
        std::string::npos);
    // A file with a field that is no number: refused, nothing written.
    dir.write("f.txt", "1 2 3\n4 x\n");
    const std::string xor1 = "--table xor --presence 1 --file " + q("f.txt");
    EXPECT_EQ(importa(xor1, "o5.dvs").rc, 1);
    EXPECT_FALSE(dir.exists("o5.dvs"));
    // Usage: both sources, or a presence above the column length.
    EXPECT_EQ(importa(xor1 + archivio + " --last-days 1", "o6.dvs").rc, 2);
    EXPECT_EQ(importa("--table xor --presence 9 --file " + q("f.txt"), "o6.dvs").rc, 2);
}

} // namespace
} // namespace dv
