// Runs `dorvanta-cli stats` on a small archive file and checks it against the computation itself.
#include "archive/Statistiche.h"
#include "cli/UiTesto.h"
#include "tests/cli/EseguiCli.h"

namespace dv {
namespace {

using test::Cli;

class StatsCli : public test::CliTest {
protected:
    StatsCli() : a(test::ArchivioCasuale(3, 6, dir.file("archivio.dat"))) {}
    test::Esecuzione stats(const std::string& args) {
        return Cli(test::Italiano + "stats " + q("archivio.dat") + args);
    }

    ArrayEstrazioni a;
};

std::string Conteggi(const std::array<int32_t, 21>& t, size_t da) {
    std::string s = "[";
    for (size_t i = da; i <= 20; ++i)
        s += (i == da ? "" : ", ") + std::to_string(t[i]);
    return s + "]";
}

TEST_F(StatsCli, JsonAndCsvAreThoseOfTheComputation) {
    const auto e = stats(
        " --from 01/05/2025 --conc-from 3 --to 02/05/2025 --conc-to 4 --type 1 --json --csv " + q("out.csv"));
    ASSERT_EQ(e.rc, 0);
    cli::UiTesto ui(DV_SOURCE_DIR "/languages/italiano.lng", stderr);
    TabelleStatistiche t;
    TestoCsv atteso;
    ASSERT_EQ(CalcolaStatistiche(a, 1, {"01/05/2025", "02/05/2025", 3, 4}, ui, t, &atteso),
              EsitoStatistiche::Calcolate);
    EXPECT_EQ(t.ultimo - t.primo + 1, 8);
    std::string json = "{\"consecutive\": " + Conteggi(t.consecutivi, 1) +
                       ", \"repeats\": " + Conteggi(t.ripetuti, 0) + ", \"even\": " + Conteggi(t.pari, 0) +
                       ", \"odd\": " + Conteggi(t.dispari, 0) + ", \"sum\": " + Conteggi(t.somma, 1) +
                       ", \"frequency\": [";
    for (size_t i = 1; i <= 90; ++i)
        json += (i == 1 ? "[" : ", [") + std::to_string(t.frequenza[i][1]) + ", " +
                std::to_string(t.frequenza[i][0]) + "]";
    EXPECT_EQ(e.out, json + "]}\n");
    EXPECT_EQ(dir.read("out.csv"), atteso.testo);
    EXPECT_EQ(atteso.testo.substr(0, 10), "Data;n.;P1");
}

TEST_F(StatsCli, WithoutDatesTheWholeArchiveAndRefusalsOfWhatItCannotCount) {
    const auto e = stats("");
    ASSERT_EQ(e.rc, 0);
    EXPECT_EQ(e.out.substr(0, e.out.find('\n')), "18 draws, from 01/05/2025 n. 1 to 03/05/2025 n. 6");
    EXPECT_NE(e.out.find("\nFrequenza\n"), std::string::npos);
    EXPECT_NE(e.out.find("  0210-0280 -->      "), std::string::npos);

    // The reversed range's box is pinned by the computation's own test; here its exit code.
    EXPECT_EQ(Cli("stats " + q("none.dat")).rc, 1);
    EXPECT_EQ(stats(" --from 09/05/2025").rc, 1);
    EXPECT_EQ(stats(" --from 03/05/2025 --to 01/05/2025").rc, 1);
    EXPECT_EQ(stats(" --from 9/5/2025").rc, 2);
    EXPECT_EQ(stats(" --type 3").rc, 2);
}

} // namespace
} // namespace dv
