// `dorvanta-cli print listing|slips|test`, run as a process without a display.
#include "settings/TempDir.h"
#include "support/FakeUi.h"
#include "system_files/FileSistema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sys/wait.h>

namespace dv {
namespace {

struct Esito {
    int rc = -1;
    std::string out;
};

// Runs the program with DISPLAY unset; stdout and stderr together.
Esito Esegui(const std::string& args) {
    const std::string cmd = std::string("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM '") +
                            DV_CLI_PATH + "' " + args + " 2>&1";
    Esito e;
    std::FILE* p = ::popen(cmd.c_str(), "r");
    if (!p) return e;
    char buf[4096];
    for (size_t n; (n = std::fread(buf, 1, sizeof buf, p)) > 0;)
        e.out.append(buf, n);
    const int status = ::pclose(p);
    e.rc = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return e;
}

long Conta(const std::string& text, const std::string& line) {
    long n = 0;
    for (size_t at = 0; (at = text.find(line + "\n", at)) != std::string::npos; at += line.size())
        if (at == 0 || text[at - 1] == '\n') ++n;
    return n;
}

struct PrintCli : ::testing::Test {
    test::TempDir dir;
    std::string dvs;

    PrintCli() {
        auto c = std::make_unique<Corpo>();
        c->LenColonna = 5;
        c->pronostico.NumColonne = 25;
        for (int32_t j = 1; j <= 25; ++j)
            for (int p = 1; p <= 5; ++p)
                c->Colonne.set(j, p, static_cast<uint8_t>(j + p * 10));
        test::FakeUi ui;
        dvs = dir.file("s.dvs");
        EXPECT_TRUE(SalvaFile(*c, ui, dvs));
        dir.write("dati/dorvantaqvn.ini", "");
        std::filesystem::create_directories(dir.file("dati"));
        dir.write("dati/dorvantaqvn.ini", "[IMPOSTAZIONI]\nINTESTAZIONE=RICEVITORIA PROVA\n");
    }
    std::string dati() const { return " --data-dir '" + dir.file("dati") + "'"; }
    int pagine(const std::string& pdf) {
        std::FILE* p = ::popen(("pdfinfo '" + pdf + "'").c_str(), "r");
        char buf[4096];
        std::string out;
        for (size_t n; (n = std::fread(buf, 1, sizeof buf, p)) > 0;)
            out.append(buf, n);
        ::pclose(p);
        const size_t at = out.find("Pages:");
        return at == std::string::npos ? -1 : std::stoi(out.substr(at + 6));
    }
};

TEST_F(PrintCli, SlipsToPdfAndOpsWithoutADisplay) {
    const std::string pdf = dir.file("s.pdf"), ops = dir.file("s.txt");
    const Esito e = Esegui("print slips '" + dvs + "' --from 2 --to 4 --draws 5min,lotto --stake 2 --pdf '" +
                           pdf + "' --ops '" + ops + "'" + dati());
    ASSERT_EQ(e.rc, 0) << e.out;
    EXPECT_EQ(pagine(pdf), 3);
    const std::string rec = dir.read("s.txt");
    EXPECT_EQ(rec.rfind("units mm\n", 0), 0u);
    EXPECT_EQ(Conta(rec, "page"), 3);
    EXPECT_EQ(Conta(rec, "text \"RICEVITORIA PROVA\""), 3);
    EXPECT_EQ(Conta(rec, "text \"               € 4.00\""), 3); // 2 euro, two kinds of draw
    EXPECT_EQ(Conta(rec, "box 26.40 112.00 28.40 114.00"), 3);
}

TEST_F(PrintCli, ListingAndTestPage) {
    const std::string pdf = dir.file("t.pdf");
    Esito e = Esegui("print listing '" + dvs + "' --copies 2 --bw --pdf '" + pdf + "'" + dati());
    ASSERT_EQ(e.rc, 0) << e.out;
    EXPECT_EQ(pagine(pdf), 2);

    dir.write("c.prn", "[IMPOSTAZIONI]\nPOSX_UNO=20\n");
    e = Esegui("print test --calibration '" + dir.file("c.prn") + "' --pdf '" + pdf + "' --ops '" +
               dir.file("t.txt") + "'" + dati());
    ASSERT_EQ(e.rc, 0) << e.out;
    EXPECT_EQ(pagine(pdf), 1);
    EXPECT_EQ(Conta(dir.read("t.txt"), "box 20.00 26.00 22.00 28.00"), 1);
}

TEST_F(PrintCli, RefusalsAndUsageErrors) {
    const std::string ops = " --ops '" + dir.file("x.txt") + "'";
    EXPECT_EQ(Esegui("print listing '" + dvs + "' --no-columns --no-forecast" + ops + dati()).rc, 1);
    EXPECT_EQ(Esegui("print slips '" + dvs + "' --from 3 --to 2" + ops + dati()).rc, 1);
    EXPECT_EQ(Esegui("print slips '" + dvs + "' --to 26" + ops + dati()).rc, 1);
    EXPECT_FALSE(dir.exists("x.txt"));
    EXPECT_EQ(Esegui("print slips '" + dvs + "' --draws 5min,bingo" + ops + dati()).rc, 2);
    EXPECT_EQ(Esegui("print slips '" + dvs + "'" + dati()).rc, 2);
    EXPECT_EQ(Esegui("print slips '" + dvs + "' --stake 4" + ops + dati()).rc, 2);
    EXPECT_EQ(Esegui("print listing '" + dir.file("none.dvs") + "'" + ops + dati()).rc, 1);
}

} // namespace
} // namespace dv
