// Runs the built dorvanta-cli on temporary files and checks what it writes and returns.
#include "tests/cli/EseguiCli.h"
#include "core/Engine.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sys/wait.h>

using namespace dv;
using namespace dv::test;

namespace {

Esecuzione Esegui(const std::string& args) {
    const std::string cmd = std::string("'") + DV_CLI_PATH + "' " + args + (args.find("2>&1") == std::string::npos ? " 2>/dev/null" : "");
    return EseguiComando(cmd);
}

// The same, keeping what the program writes on stderr instead of stdout.
Esecuzione EseguiErr(const std::string& args) {
    return Esegui(args + " 2>&1 >/dev/null");
}

std::unique_ptr<Corpo> Apri(const std::string& path) {
    auto c = std::make_unique<Corpo>();
    FakeUi ui;
    EXPECT_EQ(ApriFile(*c, ui, path), EsitoApriFile::Aperto) << path;
    return c;
}

// The 5-subsets of 1..12 whose sum lies in 20..40, in lexicographic order.
std::vector<std::vector<int>> Attese() {
    std::vector<std::vector<int>> out;
    for (int mask = 0; mask < (1 << 12); ++mask) {
        if (__builtin_popcount(static_cast<unsigned>(mask)) != 5) continue;
        std::vector<int> col;
        int sum = 0;
        for (int i = 0; i < 12; ++i)
            if (mask & (1 << i)) col.push_back(i + 1), sum += i + 1;
        if (sum >= 20 && sum <= 40) out.push_back(col);
    }
    std::sort(out.begin(), out.end());
    return out;
}

class DorvantaCli : public ::testing::Test {
protected:
    std::string f(const std::string& name) const { return "'" + dir.file(name) + "'"; }
    CartellaTemporanea dir;
};

TEST_F(DorvantaCli, NewDevelopShowExportImportRoundTrip) {
    ASSERT_EQ(Esegui("new -o " + f("a.dvs") + " --numbers 1-12 --length 5 --sum 20:40").rc, 0);
    EXPECT_EQ(Apri(dir.file("a.dvs"))->pronostico.NumColonne, 0);

    const auto dev = Esegui("develop " + f("a.dvs") + " -o " + f("b.dvs"));
    ASSERT_EQ(dev.rc, 0);
    const auto attese = Attese();
    EXPECT_NE(dev.out.find("candidates:  792"), std::string::npos) << dev.out;
    EXPECT_NE(dev.out.find("columns:     " + std::to_string(attese.size())), std::string::npos) << dev.out;
    const auto sviluppato = Apri(dir.file("b.dvs"));
    EXPECT_EQ(StoredColumns(*sviluppato), attese);
    EXPECT_EQ(sviluppato->condizioni.SommaMinMax[1], 40);

    const auto show = Esegui("show " + f("b.dvs") + " --columns");
    ASSERT_EQ(show.rc, 0);
    EXPECT_NE(show.out.find("forecast:    01 02 03 04 05 06 07 08 09 10 11 12 [12]"), std::string::npos) << show.out;
    EXPECT_NE(show.out.find("  sum: 20..40\n"), std::string::npos);
    EXPECT_NE(show.out.find("\n  01-02-03-04-10\n"), std::string::npos);
    EXPECT_EQ(std::count(show.out.begin(), show.out.end(), '\n'), 7 + static_cast<long>(attese.size()));

    ASSERT_EQ(Esegui("export-txt " + f("b.dvs") + " -o " + f("b.txt")).rc, 0);
    EXPECT_EQ(ReadText(dir.file("b.txt")).substr(0, 18), " 01 02 03 04 10 \r\n");
    ASSERT_EQ(Esegui("import-txt " + f("b.txt") + " -o " + f("c.dvs")).rc, 0);
    const auto importato = Apri(dir.file("c.dvs"));
    EXPECT_EQ(StoredColumns(*importato), attese);
    EXPECT_EQ(importato->pronostico.Descrizione, "FILE TXT");
    // An output that is the input itself, by another spelling or through a link, is refused.
    const std::string testo = ReadText(dir.file("b.txt"));
    std::filesystem::create_symlink(dir.file("b.txt"), dir.file("link.txt"));
    EXPECT_EQ(Esegui("import-txt " + f("b.txt") + " -o " + f("link.txt")).rc, 1);
    EXPECT_EQ(Esegui("export-txt " + f("b.dvs") + " -o " + f("./b.dvs")).rc, 1);
    EXPECT_EQ(ReadText(dir.file("b.txt")), testo);
    EXPECT_EQ(StoredColumns(*Apri(dir.file("b.dvs"))), attese);

    // Developing a system that holds columns develops them again, keeping all that still pass.
    ASSERT_EQ(Esegui("develop " + f("c.dvs") + " -o " + f("d.dvs")).rc, 0);
    EXPECT_EQ(StoredColumns(*Apri(dir.file("d.dvs"))), attese);
}

TEST_F(DorvantaCli, ShuffleKeepsTheColumnsAndFollowsItsSeed) {
    ASSERT_EQ(Esegui("new -o " + f("a.dvs") + " --numbers 1-10 --length 3 --fixed 4 --even 0,1").rc, 0);
    ASSERT_EQ(Esegui("develop " + f("a.dvs") + " -o " + f("b.dvs")).rc, 0);
    ASSERT_EQ(Esegui("shuffle " + f("b.dvs") + " -o " + f("c.dvs") + " --seed 42").rc, 0);
    ASSERT_EQ(Esegui("shuffle " + f("b.dvs") + " -o " + f("d.dvs") + " --seed 42").rc, 0);
    EXPECT_EQ(ReadAll(dir.file("c.dvs")), ReadAll(dir.file("d.dvs")));
    auto prima = StoredColumns(*Apri(dir.file("b.dvs")));
    auto dopo = StoredColumns(*Apri(dir.file("c.dvs")));
    EXPECT_EQ(prima.size(), 10u); // 4 and two of the five odd numbers
    EXPECT_NE(prima, dopo);
    std::sort(dopo.begin(), dopo.end());
    EXPECT_EQ(prima, dopo);
}

TEST_F(DorvantaCli, NumberedMessagesComeFromTheLanguageFile) {
    Bytes{}.text("[Strings]\r\n0062=\"Sistema integrale senza condizioni \xE0\"\r\n").save(dir.file("it.lng"));
    ASSERT_EQ(Esegui("new -o " + f("a.dvs") + " --numbers 1-6 --length 2").rc, 0);
    const auto dev = Esegui("--language " + f("it.lng") + " develop " + f("a.dvs") + " -o " + f("b.dvs"));
    ASSERT_EQ(dev.rc, 0);
    EXPECT_NE(dev.out.find("description: Sistema integrale senza condizioni \xC3\xA0\n"), std::string::npos) << dev.out;
    EXPECT_EQ(Apri(dir.file("b.dvs"))->pronostico.Descrizione, "Sistema integrale senza condizioni \xC3\xA0");
    // The system file holds the text in the ANSI code page.
    const std::string bytes = ReadText(dir.file("b.dvs"));
    EXPECT_NE(bytes.find("condizioni \xE0"), std::string::npos);
}

TEST_F(DorvantaCli, UsageErrorsExitWithTwo) {
    const std::string o = " -o " + f("x.dvs");
    for (const std::string& args : {std::string(""), std::string("frobnicate"), std::string("new --numbers 1-10 --length 5"),
                                    "new" + o + " --numbers 0-10 --length 5", "new" + o + " --numbers 1-91 --length 5",
                                    "new" + o + " --numbers 1-10 --length 26", "new" + o + " --numbers 1-4 --length 5",
                                    "new" + o + " --numbers 1-10 --length 5 --reduce 2 --min-distance 3",
                                    "new" + o + " --numbers 1-10 --length 5 --sum 40:20",
                                    "new" + o + " --numbers 1-10 --length 5 --fixed 11",
                                    "new" + o + " --numbers 1-10 --length 5 --even 6",
                                    "new" + o + " --numbers 1-10 --length x", std::string("show"), "develop " + f("a.dvs"),
                                    "shuffle " + f("a.dvs") + o + " --seed -1", "show " + f("a.dvs") + " --bogus"}) {
        EXPECT_EQ(Esegui(args).rc, 2) << args;
    }
    EXPECT_FALSE(std::filesystem::exists(dir.file("x.dvs")));
    EXPECT_EQ(Esegui("--help").rc, 0);
    EXPECT_EQ(Esegui("develop --help").rc, 0);
}

TEST_F(DorvantaCli, SummariesGroupFiguresAsTheLanguageDoes) {
    ASSERT_EQ(Esegui("new -o " + f("a.dvs") + " --numbers 1-15 --length 5").rc, 0);
    EXPECT_NE(Esegui("develop " + f("a.dvs") + " -o " + f("b.dvs")).out.find("candidates:  3.003\n"), std::string::npos);
    const std::string english = "'" + std::string(DV_SOURCE_DIR) + "/languages/english.lng'";
    const auto dev = Esegui("--language " + english + " develop " + f("a.dvs") + " -o " + f("b.dvs"));
    EXPECT_NE(dev.out.find("candidates:  3,003\n"), std::string::npos) << dev.out;
}

TEST_F(DorvantaCli, WrongCommandLinesSayWhatIsWrong) {
    const auto unknown = EseguiErr("frobnicate --flag");
    EXPECT_EQ(unknown.rc, 2);
    EXPECT_NE(unknown.out.find("frobnicate: unknown subcommand"), std::string::npos) << unknown.out;
    // A missing language file would blank every message: refused.
    EXPECT_EQ(Esegui("--language " + f("none.lng") + " show " + f("a.dvs")).rc, 2);
    // develop refuses an output it could not write before it runs.
    ASSERT_EQ(Esegui("new -o " + f("a.dvs") + " --numbers 1-12 --length 5").rc, 0);
    Bytes{}.text("old").save(dir.file("ro.dvs"));
    std::filesystem::permissions(dir.file("ro.dvs"), std::filesystem::perms::owner_read);
    for (const std::string& out : {f("missing/b.dvs"), f("ro.dvs")}) {
        const auto dev = EseguiErr("develop " + f("a.dvs") + " -o " + out);
        EXPECT_EQ(dev.rc, 1) << out;
        EXPECT_NE(dev.out.find("cannot be written"), std::string::npos) << dev.out;
    }
    EXPECT_EQ(ReadText(dir.file("ro.dvs")), "old");
}

TEST_F(DorvantaCli, AConditionsBlockCutShortOpensWithAWarning) {
    ASSERT_EQ(Esegui("new -o " + f("a.dvs") + " --numbers 1-12 --length 5 --consecutive 1,2").rc, 0);
    EXPECT_EQ(EseguiErr("show " + f("a.dvs")).out.find("warning:"), std::string::npos);
    std::filesystem::resize_file(dir.file("a.dvs"), std::filesystem::file_size(dir.file("a.dvs")) - 8);
    const auto show = EseguiErr("show " + f("a.dvs"));
    EXPECT_EQ(show.rc, 0);
    EXPECT_NE(show.out.find("warning: "), std::string::npos) << show.out;
}

TEST_F(DorvantaCli, RefusedOrMissingFilesExitWithOne) {
    Bytes{}.text("dvqsy000009").fill(300).save(dir.file("newer.dvs"));
    Bytes{}.text("dvqsy000005").i16(40).fill(300).save(dir.file("bad.dvs"));
    Bytes{}.text("1 2 x\r\n").save(dir.file("bad.txt"));
    const std::string o = " -o " + f("out.dvs");
    for (const std::string& args : {"show " + f("newer.dvs"), "show " + f("bad.dvs"), "show " + f("none.dvs"),
                                    "develop " + f("bad.dvs") + o, "export-txt " + f("newer.dvs") + " -o " + f("o.txt"),
                                    "import-txt " + f("bad.txt") + o, "import-txt " + f("none.txt") + o,
                                    "shuffle " + f("none.dvs") + o}) {
        EXPECT_EQ(Esegui(args).rc, 1) << args;
    }
    EXPECT_FALSE(std::filesystem::exists(dir.file("out.dvs")));
    // A forecast too short for its columns cannot be developed.
    Bytes{}.text("dvqsy000005").i16(5).u8(2).i32(0).i16(0).u8(1).u8(2).fill(88).fill(6 + 52 + 4 + 90 + 4).save(dir.file("short.dvs"));
    EXPECT_EQ(Esegui("develop " + f("short.dvs") + o).rc, 1);
}

} // namespace
