// `dorvanta-cli print listing|slips|test`, run as a process without a display.
#include "print/Registro.h"
#include "tests/cli/EseguiCli.h"

namespace dv {
namespace {

using test::Cli;
using test::Conta;
using test::Righe;

struct PrintCli : test::CliTest {
    PrintCli() {
        // The 21 columns of five of 1..7.
        EXPECT_EQ(Cli("new -o " + q("f.dvs") + " --numbers 1-7 --length 5").rc, 0);
        EXPECT_EQ(Cli("develop " + q("f.dvs") + " -o " + q("s.dvs")).rc, 0);
        std::filesystem::create_directories(dir.file("dati"));
        dir.write("dati/dorvantaqvn.ini", "[IMPOSTAZIONI]\nINTESTAZIONE=RICEVITORIA PROVA\n");
    }
    // The system file's command with the data folder.
    test::Esecuzione print(const std::string& cmd, const std::string& args) {
        return Cli("print " + cmd + " " + q("s.dvs") + " --data-dir " + q("dati") + args);
    }
    int pagine(const std::string& pdf) {
        const std::string out = test::EseguiComando("pdfinfo " + q(pdf)).out;
        const size_t at = out.find("Pages:");
        return at == std::string::npos ? -1 : std::stoi(out.substr(at + 6));
    }
};

TEST_F(PrintCli, SlipsToPdfAndOpsWithoutADisplay) {
    const auto e = print("slips", " --from 2 --to 4 --draws 5min,lotto --stake 2 --pdf " + q("s.pdf") +
                                      " --ops " + q("s.txt"));
    ASSERT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(pagine("s.pdf"), 3);
    // The heading from the data folder's settings; 2 euro on two kinds of draw.
    const auto rec = Righe(dir.read("s.txt"));
    EXPECT_EQ(Conta(rec, "text \"RICEVITORIA PROVA\""), 3);
    EXPECT_EQ(Conta(rec, "text \"               € 4.00\""), 3);
}

TEST_F(PrintCli, ListingAndTestPage) {
    auto e = print("listing", " --copies 2 --bw --pdf " + q("t.pdf"));
    ASSERT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(pagine("t.pdf"), 2);

    dir.write("c.prn", "[IMPOSTAZIONI]\nPOSX_UNO=20\n");
    e = Cli("print test --calibration " + q("c.prn") + " --pdf " + q("t.pdf") + " --ops " + q("t.txt") +
            " --data-dir " + q("dati"));
    ASSERT_EQ(e.rc, 0) << e.err;
    EXPECT_EQ(pagine("t.pdf"), 1);
    EXPECT_EQ(Conta(Righe(dir.read("t.txt")), "box 20.00 26.00 22.00 28.00"), 1);
}

TEST_F(PrintCli, RefusalsAndUsageErrors) {
    const std::string ops = " --ops " + q("x.txt");
    EXPECT_EQ(print("listing", " --no-columns --no-forecast" + ops).rc, 1);
    EXPECT_EQ(print("slips", " --to 22" + ops).rc, 1);
    EXPECT_FALSE(dir.exists("x.txt"));
    EXPECT_EQ(print("slips", " --draws 5min,bingo" + ops).rc, 2);
    EXPECT_EQ(print("slips", "").rc, 2);
    EXPECT_EQ(print("slips", " --stake 4" + ops).rc, 2);
    EXPECT_EQ(Cli("print listing " + q("none.dvs") + ops + " --data-dir " + q("dati")).rc, 1);
}

} // namespace
} // namespace dv
