// dorvanta-cli check, check-archive and compare as processes: outputs, files and exit codes.
#include "archive/Archivio.h"
#include "tests/cli/EseguiCli.h"
#include "tests/prize/SupportoSpoglio.h"

#include <filesystem>

using namespace dv;
using namespace dv::test;

namespace {

class SpoglioCli : public CliTest {
protected:
    SpoglioCli() {
        // The system and the archive of the golden CSV; the forecast is the columns' numbers.
        dir.write("s.txt", " 01 02 03 \r\n 01 02 40 \r\n 41 42 43 \r\n 03 05 07 \r\n");
        EXPECT_EQ(Cli("import-txt " + q("s.txt") + " -o " + q("s.dvs")).rc, 0);
        std::string archivio;
        for (const Estrazione& e :
             {Draw("28/02/2024", 0, Range(1, 20), 3, 4), Draw("01/03/2024", 12, Range(30, 49), 90, 0),
              Draw("01/03/2024", 13, Range(2, 21), 0, 0), Draw("02/03/2024", 288, Range(41, 60), 41, 42)})
            archivio.append(RecordEstrazione(e).data(), DimensioneRecordEstrazione);
        dir.write("a.dat", archivio);
    }
};

TEST_F(SpoglioCli, CheckPrintsTheCategoriesOrTheirJson) {
    const std::string draw = " --draw 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20";
    const auto plain = Cli("check " + q("s.dvs") + draw);
    ASSERT_EQ(plain.rc, 0);
    // Classico at length 3: categories of 2 and 3 hits only.
    EXPECT_NE(plain.out.find("Punti 2: 1\n  C. 2\nPunti 3: 2\n  C. 1\n  C. 4\nMax:  3\nMin:  0\nTot:  92,00"),
              std::string::npos)
        << plain.out;
    const auto json = Cli("check " + q("s.dvs") + draw + " --oro 3 --play 2 --stake 2,5 --from 2 --json");
    ASSERT_EQ(json.rc, 0);
    EXPECT_NE(json.out.find("{\"points\": 3, \"count\": 1, \"columns\": [4]}"), std::string::npos)
        << json.out;
    EXPECT_NE(json.out.find("[]}], \"max\": 3, \"min\": 0, \"total\": 330}"), std::string::npos) << json.out;
}

TEST_F(SpoglioCli, RefusalsAndUsageErrorsHaveTheirExitCodes) {
    const std::string archivio = "check-archive " + q("s.dvs") + " " + q("a.dat");
    for (const auto& [args, rc] : std::initializer_list<std::pair<std::string, int>>{
             {"check " + q("s.dvs") + " --draw 1,2,3", 1}, // blanks repeat
             {"check " + q("s.dvs") + " --draw 1,2,3 --stake 4", 2},
             {"check " + q("nessuno.dvs") + " --draw 1", 1},
             {archivio + " --from 02/03/2024 --to 28/02/2024", 1},
             {archivio + " --from 05/03/2024 --to 05/03/2024", 1},
             {"compare " + q("x.txt") + " " + q("y.txt"), 1}})
        EXPECT_EQ(Cli(args).rc, rc) << args;
}

TEST_F(SpoglioCli, CheckArchiveAndCompareWriteTheWindowsCsv) {
    const auto r = Cli("check-archive " + q("s.dvs") + " " + q("a.dat") +
                       " --from 28/02/2024 --to 02/03/2024 --play 2 --stake 2,5 --csv " + q("out.csv"));
    ASSERT_EQ(r.rc, 0);
    std::ifstream golden(DV_PRIZE_DATA "/spoglio_estrazioni.csv", std::ios::binary);
    EXPECT_EQ(dir.read("out.csv"), std::string(std::istreambuf_iterator<char>(golden), {}));
    EXPECT_EQ(r.out.substr(0, r.out.find('\n')),
              "Date \tEstr. \tCol "
              "\tBase\tMax\tMin\tOro1\tOro2\tPt.10\tPt.9\tPt.8\tPt.7\tPt.6\tPt.5\tPt.4\tPt.3\tPt."
              "2\tPt.1\tPt.0\tEuro");

    dir.write("uno.txt", " 01 02 03 \r\n 01 02 04 \r\n");
    dir.write("due.txt", "1-2-3-4\r\n");
    ASSERT_EQ(Cli("compare " + q("uno.txt") + " " + q("due.txt") + " --csv " + q("c.csv")).rc, 0);
    EXPECT_EQ(dir.read("c.csv"),
              "N.;Col ;Max;Min;Pt.3;Pt.2;Pt.1;Pt.0;\r\n1;01-02-03-04;3;3;2;0;0;0;\r\nTOT;;3;3;2;0;0;0;\r\n");
}

TEST_F(SpoglioCli, CtrlCStopsTheArchiveCheckWithoutWritingAnything) {
    // 1,961,256 columns against 8,064 draws: seconds even in a Release build, far longer than the
    // half second before Ctrl-C.
    ASSERT_EQ(Cli("new -o " + q("f.dvs") + " --numbers 1-24 --length 10").rc, 0);
    ASSERT_EQ(Cli("develop " + q("f.dvs") + " -o " + q("big.dvs")).rc, 0);
    ArchivioCasuale(28, 288, dir.file("big.dat"));
    const auto r =
        EseguiComando("timeout --preserve-status -s INT 0.5 '" DV_CLI_PATH "' check-archive " + q("big.dvs") +
                      " " + q("big.dat") + " --from 01/05/2025 --to 28/05/2025" + " --csv " + q("out.csv"));
    EXPECT_EQ(r.rc, 1);
    EXPECT_NE(r.err.find("Stopped by the user"), std::string::npos) << r.err;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 6); // no CSV, no temp
}

} // namespace
