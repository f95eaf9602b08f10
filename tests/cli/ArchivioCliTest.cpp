// Runs `dorvanta-cli archive ...` as a process on small files and checks output, files and exit codes.
#include "tests/archive/LeggiFile.h"
#include "tests/settings/TempDir.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sys/wait.h>

namespace {

const std::string Dati = DV_ARCHIVE_TEST_DATA;

struct Esecuzione {
    int rc = -1;
    std::string out, err;
};

// The program with those arguments: its exit code, stdout and stderr.
Esecuzione Archive(const std::string& args, const dv::test::TempDir& dir) {
    const std::string cmd = std::string("'") + DV_CLI_PATH + "' --language '" + DV_LANGUAGE_FILE +
                            "' archive " + args + " 2>'" + dir.file("stderr.txt") + "'";
    Esecuzione e;
    std::FILE* p = ::popen(cmd.c_str(), "r");
    if (!p) return e;
    char buf[4096];
    for (size_t n; (n = std::fread(buf, 1, sizeof buf, p)) > 0;)
        e.out.append(buf, n);
    const int status = ::pclose(p);
    e.rc = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    e.err = dir.read("stderr.txt");
    return e;
}

TEST(ArchiveCli, ConvertWritesTheRecordsOrRefusesNamingTheLineAndLeavesTheOutputAlone) {
    dv::test::TempDir dir;
    Esecuzione e = Archive("convert '" + Dati + "/separatori.txt' -o '" + dir.file("a.dat") + "'", dir);
    EXPECT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(dir.read("a.dat"), dv::test::LeggiFile(Dati + "/separatori.dat"));

    e = Archive("convert '" + Dati + "/campo_non_valido.txt' -o '" + dir.file("a.dat") + "'", dir);
    EXPECT_EQ(e.rc, 1);
    EXPECT_NE(e.err.find("riga 3, campo 6 (\"x7\")"), std::string::npos) << e.err;
    EXPECT_EQ(dir.read("a.dat"), dv::test::LeggiFile(Dati + "/separatori.dat"));
}

TEST(ArchiveCli, ShowPrintsTheWindowsRowsOrJsonInArchiveOrder) {
    dv::test::TempDir dir;
    const std::string dat = "'" + Dati + "/separatori.dat'";
    Esecuzione e = Archive("show " + dat, dir);
    ASSERT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(
        e.out.substr(0, e.out.find('\n')),
        "  02/01/2026   |   001   |   01   02   03   05   06   07   14   16   18   23   29   34   35   36"
        "   39   43   46   48   50   66   |        06       |      02                        ");
    EXPECT_EQ(std::count(e.out.begin(), e.out.end(), '\n'), 6);

    e = Archive("show " + dat + " --last 1 --json", dir);
    ASSERT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(
        e.out,
        "[\n {\"data\": \"04/01/2026\", \"concorso\": 3, \"numeri\": [2, 8, 20, 24, 25, 42, 43, 44, 48, 56, "
        "59, 69, 71, 74, 78, 80, 83, 86, 87, 89], \"oro\": 0, \"doppio\": 7}\n]\n");

    dir.write("vuoto.dat", "");
    EXPECT_EQ(Archive("show '" + dir.file("vuoto.dat") + "'", dir).out, "");
    EXPECT_EQ(Archive("show '" + dir.file("vuoto.dat") + "' --json", dir).out, "[]\n");
    EXPECT_EQ(Archive("show '" + dir.file("missing.dat") + "'", dir).rc, 1);
    EXPECT_FALSE(dir.exists("missing.dat"));
}

TEST(ArchiveCli, ImportAndUpdateWorkInTheDataFolderGivenAndAFailedDownloadChangesNothing) {
    dv::test::TempDir dir;
    const std::string data = "--data-dir '" + dir.file("data") + "'";
    Esecuzione e = Archive("import-manual '" + Dati + "/separatori.txt' " + data, dir);
    EXPECT_EQ(e.rc, 0) << e.err;
    EXPECT_NE(e.out.find("6 draws"), std::string::npos) << e.out;
    EXPECT_EQ(dir.read("data/archivio/dorvantaqvnmanuale2.dat"),
              dv::test::LeggiFile(Dati + "/separatori.dat"));

    std::ofstream(dir.file("data/archivio/dorvantaqvn2.dat")) << "old";
    // Port 9 (discard) on the loopback: nothing answers there.
    e = Archive("update serale --server http://127.0.0.1:9 " + data, dir);
    EXPECT_EQ(e.rc, 1);
    EXPECT_NE(e.err.find("Non è stato possibile scaricare"), std::string::npos) << e.err;
    EXPECT_EQ(dir.read("data/archivio/dorvantaqvn2.dat"), "old");

    EXPECT_EQ(Archive("update weekly " + data, dir).rc, 2);
    EXPECT_EQ(Archive("update serale --days 3 " + data, dir).rc, 2);
}

} // namespace
