// dorvanta-cli check, check-archive and compare as processes: outputs, files and exit codes.
#include "tests/cli/EseguiCli.h"
#include "archive/Archivio.h"
#include "system_files/FileSistema.h"
#include "tests/prize/SupportoSpoglio.h"
#include "tests/support/FakeUi.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <sys/wait.h>

using namespace dv;
using namespace dv::test;

namespace {

Esecuzione Esegui(const std::string& args) {
    const std::string cmd = std::string("'") + DV_CLI_PATH + "' " + args + " 2>/dev/null";
    return EseguiComando(cmd);
}

std::string Leggi(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

class SpoglioCli : public ::testing::Test {
protected:
    SpoglioCli() {
        // The system and the archive of the golden CSV.
        auto c = std::make_unique<Corpo>();
        ImpostaSistema(*c, 3, {{1, 2, 3}, {1, 2, 40}, {41, 42, 43}, {3, 5, 7}});
        SetForecast(*c, {1, 2, 3, 5, 7, 40, 41, 42, 43});
        FakeUi ui;
        EXPECT_TRUE(SalvaFile(*c, ui, dir.file("s.dvs")));
        std::ofstream a(dir.file("a.dat"), std::ios::binary);
        for (const Estrazione& e :
             {Draw("28/02/2024", 0, Range(1, 20), 3, 4), Draw("01/03/2024", 12, Range(30, 49), 90, 0),
              Draw("01/03/2024", 13, Range(2, 21), 0, 0), Draw("02/03/2024", 288, Range(41, 60), 41, 42)})
            a.write(RecordEstrazione(e).data(), DimensioneRecordEstrazione);
    }
    std::string f(const std::string& name) const { return "'" + dir.file(name) + "'"; }
    CartellaTemporanea dir;
};

TEST_F(SpoglioCli, CheckPrintsTheCategoriesOrTheirJson) {
    const std::string draw = " --draw 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20";
    const auto plain = Esegui("check " + f("s.dvs") + draw);
    ASSERT_EQ(plain.rc, 0);
    // Classico at length 3: categories of 2 and 3 hits only.
    EXPECT_NE(plain.out.find("Punti 2: 1\n  C. 2\nPunti 3: 2\n  C. 1\n  C. 4\nMax:  3\nMin:  0\nTot:  92,00"),
              std::string::npos)
        << plain.out;
    const auto json = Esegui("check " + f("s.dvs") + draw + " --oro 3 --play 2 --stake 2,5 --from 2 --json");
    ASSERT_EQ(json.rc, 0);
    EXPECT_NE(json.out.find("{\"points\": 3, \"count\": 1, \"columns\": [4]}"), std::string::npos)
        << json.out;
    EXPECT_NE(json.out.find("[]}], \"max\": 3, \"min\": 0, \"total\": 330}"), std::string::npos) << json.out;
}

TEST_F(SpoglioCli, RefusalsAndUsageErrorsHaveTheirExitCodes) {
    EXPECT_EQ(Esegui("check " + f("s.dvs") + " --draw 1,2,3").rc, 1); // blanks repeat
    EXPECT_EQ(Esegui("check " + f("s.dvs") + " --draw 1,2,3 --stake 4").rc, 2);
    EXPECT_EQ(Esegui("check " + f("nessuno.dvs") + " --draw 1").rc, 1);
    EXPECT_EQ(
        Esegui("check-archive " + f("s.dvs") + " " + f("a.dat") + " --from 02/03/2024 --to 28/02/2024").rc,
        1);
    EXPECT_EQ(
        Esegui("check-archive " + f("s.dvs") + " " + f("a.dat") + " --from 05/03/2024 --to 05/03/2024").rc,
        1);
    EXPECT_EQ(Esegui("compare " + f("x.txt") + " " + f("y.txt")).rc, 1);
}

TEST_F(SpoglioCli, CheckArchiveWritesTheWindowsCsv) {
    const auto r = Esegui("check-archive " + f("s.dvs") + " " + f("a.dat") +
                          " --from 28/02/2024 --to 02/03/2024 --play 2 --stake 2,5 --csv " + f("out.csv"));
    ASSERT_EQ(r.rc, 0);
    EXPECT_EQ(Leggi(dir.file("out.csv")), Leggi(std::string(DV_PRIZE_DATA) + "/spoglio_estrazioni.csv"));
    EXPECT_EQ(r.out.substr(0, r.out.find('\n')), "Date \tEstr. \tCol "
                                                 "\tBase\tMax\tMin\tOro1\tOro2\tPt.10\tPt.9\tPt.8\tPt.7\tPt."
                                                 "6\tPt.5\tPt.4\tPt.3\tPt.2\tPt.1\tPt.0\tEuro");
}

TEST_F(SpoglioCli, CompareWritesItsGrid) {
    std::ofstream(dir.file("uno.txt")) << " 01 02 03 \r\n 01 02 04 \r\n";
    std::ofstream(dir.file("due.txt")) << "1-2-3-4\r\n";
    const auto r = Esegui("compare " + f("uno.txt") + " " + f("due.txt") + " --csv " + f("c.csv"));
    ASSERT_EQ(r.rc, 0);
    EXPECT_EQ(Leggi(dir.file("c.csv")),
              "N.;Col ;Max;Min;Pt.3;Pt.2;Pt.1;Pt.0;\r\n1;01-02-03-04;3;3;2;0;0;0;\r\nTOT;;3;3;2;0;0;0;\r\n");
}

} // namespace
