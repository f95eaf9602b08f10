// dorvanta-cli matrix ...: seal, show, verify, list, adapt and import-txt as a user runs them.
#include "matrix/Matrice.h"
#include "matrix/SupportoMatrici.h"
#include "support/FakeUi.h"
#include "support/StateBuilder.h"
#include "system_files/FileSistema.h"
#include "tests/cli/EseguiCli.h"

#include <fstream>

namespace dv {
using test::Cli;

namespace {

class MatriciCli : public testing::Test {
protected:
    test::CartellaTemporanea dir{"cli"};
    std::string q(const std::string& rel) { return "'" + dir.in(rel) + "'"; }
};

TEST_F(MatriciCli, SealShowVerifyAndListTheFanoPlane) {
    std::ofstream(dir.in("txt/fano.txt")) << "1 2 3\n1 4 5\n1 6 7\n2 4 6\n2 5 7\n3 4 7\n3 5 6\n";
    auto r = Cli("matrix seal " + q("txt/fano.txt") + " -o " + q("matrici/FANO.mqvn") +
                 " --t 2 --m 2 --author Io --desc 'Piano di Fano' --from 20200101 --to 20991231 --cover 100");
    ASSERT_EQ(r.rc, 0) << r.err;

    r = Cli("matrix show --json " + q("matrici/FANO.mqvn"));
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.out,
              "{\"v\": 7, \"k\": 3, \"t\": 2, \"m\": 2, \"f\": 0, \"c\": 7, \"cover\": \"100\", \"author\": "
              "\"Io\", \"description\": \"Piano di Fano\", \"valid_from\": \"01/01/2020\", \"valid_to\": "
              "\"31/12/2099\", \"signature_ok\": true, \"crc_ok\": true, \"expired\": false, \"started\": "
              "true}\n");
    r = Cli("matrix verify " + q("matrici/FANO.mqvn") + " --drawn 3 --hits 3 --json");
    EXPECT_EQ(
        r.out.rfind(
            "{\"subsets\": 35, \"covered\": 7, \"holes\": 28, \"first_holes\": [[1, 2, 4], [1, 2, 5], ", 0),
        0u);

    r = Cli("matrix list --data-dir " + q(""));
    EXPECT_EQ(r.out, "  7 |  3 |  2 |  2 |  0 |      7 | 100         FANO.mqvn\n");
    r = Cli("matrix list --data-dir " + q("") + " --numbers 7 --length 3");
    EXPECT_EQ(r.out.rfind("  0 |  0 |  0 |  0 |  0 |      0 |   CUSTOM\n  7 |", 0), 0u);
}

TEST_F(MatriciCli, ImportFailuresAndUsageErrors) {
    std::ofstream(dir.in("txt/buco.txt")) << "1 2\n4 5\n";
    auto r = Cli("matrix import-txt " + q("txt/buco.txt"));
    EXPECT_EQ(r.rc, 1);
    std::ofstream(dir.in("txt/ok.txt")) << "1 2 3\n3 4 5\n";
    r = Cli("matrix import-txt " + q("txt/ok.txt"));
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.out, "V=5 K=3 C=2\n");
    EXPECT_EQ(Cli("matrix seal " + q("txt/buco.txt") + " -o " + q("x.mqvn") + " --t 2 --m 2").rc, 1);
    EXPECT_FALSE(std::filesystem::exists(dir.in("x.mqvn")));
    EXPECT_EQ(Cli("matrix seal " + q("txt/ok.txt") + " -o " + q("x.mqvn") + " --t 2").rc, 2);
    EXPECT_EQ(Cli("matrix verify " + q("txt/ok.txt") + " --drawn 2 --hits 2").rc, 1);
}

TEST_F(MatriciCli, AdaptInTheGivenOrderAndRefuseWhatDoesNotFit) {
    // V=5, K=3, T=2, F=1: the system of the forecast in the order given, with the fixed number.
    MATRIX_STRUCTURE m = test::MatriceDi(5, 2, 3, {{1, 2, 3}, {1, 4, 5}, {2, 4, 5}});
    m.FIXED_NUMBERS_OF_MATRIX_F = 1;
    ScriviMatrice(dir.in("matrici/m.mqvn"), m);
    ScriviMatrice(dir.in("matrici/altra.mqvn"), test::MatriceDi(6, 2, 2, {{1, 2, 3}, {4, 5, 6}}));
    ASSERT_EQ(Cli("new -o " + q("sistemi/f.dvs") + " --numbers 10,20,30,40,50 --length 3").rc, 0);

    const std::string adatta = "matrix adapt " + q("matrici/m.mqvn") + " " + q("sistemi/f.dvs") + " -o ";
    const auto r = Cli(adatta + q("sistemi/o.dvs") + " --order 50,10,40,20,30 --fixed 30");
    ASSERT_EQ(r.rc, 0) << r.err;
    auto c = std::make_unique<Corpo>();
    test::FakeUi ui;
    ASSERT_EQ(ApriFile(*c, ui, dir.in("sistemi/o.dvs")), EsitoApriFile::Aperto);
    const auto colonne = test::StoredColumns(*c);
    ASSERT_EQ(colonne.size(), 3u);
    EXPECT_EQ(colonne[1], (std::vector<int>{20, 30, 50})); // in the order given, 30 fixed

    for (const std::string& args :
         {"matrix adapt " + q("matrici/altra.mqvn") + " " + q("sistemi/f.dvs") + " -o " + q("sistemi/n.dvs"),
          adatta + q("sistemi/n.dvs") + " --order 10,20,30,40,51"}) {
        EXPECT_NE(Cli(args).rc, 0) << args;
        EXPECT_FALSE(std::filesystem::exists(dir.in("sistemi/n.dvs")));
    }
}

} // namespace
} // namespace dv
