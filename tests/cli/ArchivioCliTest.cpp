// Runs `dorvanta-cli archive ...` as a process on small files and checks output, files and exit codes.
#include "tests/archive/LeggiFile.h"
#include "tests/cli/EseguiCli.h"

#include <algorithm>

namespace {

using dv::test::Cli;
using ArchiveCli = dv::test::CliTest;

const std::string Dati = DV_ARCHIVE_TEST_DATA;

dv::test::Esecuzione Archive(const std::string& args) {
    return Cli(dv::test::Italiano + "archive " + args);
}

TEST_F(ArchiveCli, ConvertWritesTheRecordsOrRefusesNamingTheLineAndLeavesTheOutputAlone) {
    dv::test::Esecuzione e = Archive("convert '" + Dati + "/separatori.txt' -o " + q("a.dat"));
    EXPECT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(dir.read("a.dat"), dv::test::LeggiFile(Dati + "/separatori.dat"));

    e = Archive("convert '" + Dati + "/campo_non_valido.txt' -o " + q("a.dat"));
    EXPECT_EQ(e.rc, 1);
    EXPECT_NE(e.err.find("riga 3, campo 6 (\"x7\")"), std::string::npos) << e.err;
    EXPECT_EQ(dir.read("a.dat"), dv::test::LeggiFile(Dati + "/separatori.dat"));
}

TEST_F(ArchiveCli, ShowPrintsTheWindowsRowsOrJsonInArchiveOrder) {
    const std::string dat = "'" + Dati + "/separatori.dat'";
    dv::test::Esecuzione e = Archive("show " + dat);
    ASSERT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(
        e.out.substr(0, e.out.find('\n')),
        "  02/01/2026   |   001   |   01   02   03   05   06   07   14   16   18   23   29   34   35   36"
        "   39   43   46   48   50   66   |        06       |      02                        ");
    EXPECT_EQ(std::count(e.out.begin(), e.out.end(), '\n'), 6);

    e = Archive("show " + dat + " --last 1 --json");
    ASSERT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(
        e.out,
        "[\n {\"data\": \"04/01/2026\", \"concorso\": 3, \"numeri\": [2, 8, 20, 24, 25, 42, 43, 44, 48, "
        "56, 59, 69, 71, 74, 78, 80, 83, 86, 87, 89], \"oro\": 0, \"doppio\": 7}\n]\n");

    dir.write("vuoto.dat", "");
    EXPECT_EQ(Archive("show " + q("vuoto.dat") + " --json").out, "[]\n");
    EXPECT_EQ(Archive("show " + q("missing.dat")).rc, 1);
}

TEST_F(ArchiveCli, ImportAndUpdateWorkInTheDataFolderGivenAndAFailedDownloadChangesNothing) {
    const std::string data = " --data-dir " + q("data");
    dv::test::Esecuzione e = Archive("import-manual '" + Dati + "/separatori.txt'" + data);
    EXPECT_EQ(e.rc, 0) << e.err;
    EXPECT_NE(e.out.find("6 draws"), std::string::npos) << e.out;
    EXPECT_EQ(dir.read("data/archivio/dorvantaqvnmanuale2.dat"),
              dv::test::LeggiFile(Dati + "/separatori.dat"));

    dir.write("data/archivio/dorvantaqvn2.dat", "old");
    // Port 9 (discard) on the loopback: nothing answers there.
    e = Archive("update serale --server http://127.0.0.1:9" + data);
    EXPECT_EQ(e.rc, 1);
    EXPECT_NE(e.err.find("Non è stato possibile scaricare"), std::string::npos) << e.err;
    EXPECT_EQ(dir.read("data/archivio/dorvantaqvn2.dat"), "old");

    EXPECT_EQ(Archive("update weekly" + data).rc, 2);
}

} // namespace
