// The system commands of dorvanta-cli run as processes on temporary files: outputs, files written
// and exit codes.
#include "system_files/FileSistema.h"
#include "tests/cli/EseguiCli.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"

#include <algorithm>
#include <memory>

using namespace dv;
using namespace dv::test;

namespace {

using DorvantaCli = CliTest;

std::vector<std::vector<int>> Colonne(const std::string& path) {
    Corpo c;
    FakeUi ui;
    EXPECT_EQ(ApriFile(c, ui, path), EsitoApriFile::Aperto) << path;
    return StoredColumns(c);
}

TEST_F(DorvantaCli, NewDevelopShowExportImportShuffle) {
    ASSERT_EQ(Cli("new -o " + q("a.dvs") + " --numbers 1-12 --length 5 --sum 20:40").rc, 0);

    // 700 of the 792 columns of five of 1..12 add up to 20..40.
    const auto dev = Cli("develop " + q("a.dvs") + " -o " + q("b.dvs"));
    ASSERT_EQ(dev.rc, 0);
    EXPECT_NE(dev.out.find("candidates:  792\n"), std::string::npos) << dev.out;
    EXPECT_NE(dev.out.find("columns:     700\n"), std::string::npos) << dev.out;
    const auto sviluppate = Colonne(dir.file("b.dvs"));

    const auto show = Cli("show " + q("b.dvs") + " --columns");
    ASSERT_EQ(show.rc, 0);
    EXPECT_NE(show.out.find("forecast:    01 02 03 04 05 06 07 08 09 10 11 12 [12]"), std::string::npos);
    EXPECT_NE(show.out.find("  sum: 20..40\n"), std::string::npos) << show.out;
    EXPECT_NE(show.out.find("\n  01-02-03-04-10\n"), std::string::npos);
    EXPECT_EQ(std::count(show.out.begin(), show.out.end(), '\n'), 7 + 700);

    ASSERT_EQ(Cli("export-txt " + q("b.dvs") + " -o " + q("b.txt")).rc, 0);
    ASSERT_EQ(Cli("import-txt " + q("b.txt") + " -o " + q("c.dvs")).rc, 0);
    EXPECT_EQ(Colonne(dir.file("c.dvs")), sviluppate);
    // An output that is the input itself, by another spelling or through a link, is refused.
    const std::string testo = dir.read("b.txt");
    std::filesystem::create_symlink(dir.file("b.txt"), dir.file("link.txt"));
    EXPECT_EQ(Cli("import-txt " + q("b.txt") + " -o " + q("link.txt")).rc, 1);
    EXPECT_EQ(Cli("export-txt " + q("b.dvs") + " -o " + q("./b.dvs")).rc, 1);
    EXPECT_EQ(dir.read("b.txt"), testo);
    EXPECT_EQ(Colonne(dir.file("b.dvs")), sviluppate);

    // A shuffle keeps the columns and follows its seed.
    ASSERT_EQ(Cli("shuffle " + q("b.dvs") + " -o " + q("e.dvs") + " --seed 42").rc, 0);
    ASSERT_EQ(Cli("shuffle " + q("b.dvs") + " -o " + q("f.dvs") + " --seed 42").rc, 0);
    EXPECT_EQ(dir.read("e.dvs"), dir.read("f.dvs"));
    auto mescolate = Colonne(dir.file("e.dvs"));
    EXPECT_NE(mescolate, sviluppate);
    std::sort(mescolate.begin(), mescolate.end());
    EXPECT_EQ(mescolate, sviluppate);

    // Fixed numbers and even counts: 4 with two of the five odd numbers.
    ASSERT_EQ(Cli("new -o " + q("g.dvs") + " --numbers 1-10 --length 3 --fixed 4 --even 0,1").rc, 0);
    ASSERT_EQ(Cli("develop " + q("g.dvs") + " -o " + q("h.dvs")).rc, 0);
    EXPECT_EQ(Colonne(dir.file("h.dvs")).size(), 10u);

    // The same columns on two threads, over 3,838,380 candidates.
    ASSERT_EQ(Cli("new -o " + q("m.dvs") + " --numbers 1-40 --length 6 --sum 60:64").rc, 0);
    ASSERT_EQ(Cli("develop " + q("m.dvs") + " -o " + q("n1.dvs")).rc, 0);
    ASSERT_EQ(Cli("develop " + q("m.dvs") + " -o " + q("n2.dvs") + " --threads 2").rc, 0);
    EXPECT_EQ(Colonne(dir.file("n2.dvs")), Colonne(dir.file("n1.dvs")));
    EXPECT_EQ(Cli("develop " + q("m.dvs") + " -o " + q("n3.dvs") + " --threads -1").rc, 2);
}

TEST_F(DorvantaCli, MessagesAndFiguresFollowTheLanguageFile) {
    dir.write("it.lng", "[Strings]\r\n0062=\"Sistema integrale senza condizioni \xE0\"\r\n");
    ASSERT_EQ(Cli("new -o " + q("a.dvs") + " --numbers 1-15 --length 5").rc, 0);
    auto dev = Cli("--language " + q("it.lng") + " develop " + q("a.dvs") + " -o " + q("b.dvs"));
    ASSERT_EQ(dev.rc, 0);
    EXPECT_NE(dev.out.find("description: Sistema integrale senza condizioni \xC3\xA0\n"), std::string::npos);
    EXPECT_NE(dev.out.find("candidates:  3.003\n"), std::string::npos) << dev.out;
    // The system file holds the text in the ANSI code page.
    EXPECT_NE(dir.read("b.dvs").find("condizioni \xE0"), std::string::npos);
    dev = Cli("--language '" DV_SOURCE_DIR "/languages/english.lng' develop " + q("a.dvs") + " -o " +
              q("b.dvs"));
    EXPECT_NE(dev.out.find("candidates:  3,003\n"), std::string::npos) << dev.out;
}

TEST_F(DorvantaCli, UsageErrorsExitWithTwoAndSayWhatIsWrong) {
    const std::string o = " -o " + q("x.dvs");
    for (const std::string& args :
         {std::string(""), std::string("frobnicate"), std::string("new --numbers 1-10 --length 5"),
          "new" + o + " --numbers 1-10 --length 26", "new" + o + " --numbers 1-4 --length 5",
          "new" + o + " --numbers 1-10 --length 5 --reduce 2 --min-distance 3",
          "new" + o + " --numbers 1-10 --length 5 --fixed 11",
          "new" + o + " --numbers 1-10 --length 5 --even 6", std::string("show"), "develop " + q("a.dvs"),
          "shuffle " + q("a.dvs") + o + " --seed -1", "show " + q("a.dvs") + " --bogus",
          // A missing language file would blank every message.
          "--language " + q("none.lng") + " show " + q("a.dvs")})
        EXPECT_EQ(Cli(args).rc, 2) << args;
    EXPECT_FALSE(dir.exists("x.dvs"));
    EXPECT_NE(Cli("frobnicate --flag").err.find("frobnicate: unknown subcommand"), std::string::npos);
    EXPECT_EQ(Cli("--help").rc, 0);
    EXPECT_EQ(Cli("develop --help").rc, 0);
}

TEST_F(DorvantaCli, RefusedOrMissingFilesExitWithOne) {
    Bytes{}.text("dvqsy000009").fill(300).save(dir.file("newer.dvs"));
    Bytes{}.text("1 2 x\r\n").save(dir.file("bad.txt"));
    // A forecast too short for its columns cannot be developed: columns of 5 over 1 and 2 only.
    Bytes corta;
    corta.text("dvqsy000005").i16(5).u8(2).i32(0).i16(0).u8(1).u8(2).fill(88 + 156);
    corta.save(dir.file("short.dvs"));
    const std::string o = " -o " + q("out.dvs");
    for (const std::string& args :
         {"show " + q("newer.dvs"), "show " + q("none.dvs"), "develop " + q("short.dvs") + o,
          "export-txt " + q("newer.dvs") + " -o " + q("o.txt"), "import-txt " + q("bad.txt") + o,
          "shuffle " + q("none.dvs") + o})
        EXPECT_EQ(Cli(args).rc, 1) << args;
    EXPECT_FALSE(dir.exists("out.dvs"));

    // develop refuses an output it could not write before it runs.
    ASSERT_EQ(Cli("new -o " + q("a.dvs") + " --numbers 1-12 --length 5").rc, 0);
    dir.write("ro.dvs", "old");
    std::filesystem::permissions(dir.file("ro.dvs"), std::filesystem::perms::owner_read);
    for (const std::string& out : {q("missing/b.dvs"), q("ro.dvs")}) {
        const auto dev = Cli("develop " + q("a.dvs") + " -o " + out);
        EXPECT_EQ(dev.rc, 1) << out;
        EXPECT_NE(dev.err.find("cannot be written"), std::string::npos) << dev.err;
    }
    EXPECT_EQ(dir.read("ro.dvs"), "old");
}

} // namespace
