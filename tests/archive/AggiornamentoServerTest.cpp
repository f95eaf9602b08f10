// The three updates against a real dorvanta-server on 127.0.0.1: its demo archives, its files,
// and a server that fails.
#include "archive/Aggiornamento.h"
#include "archive/Archivio.h"
#include "cli/ReteArchivio.h"
#include "core/Cartelle.h"
#include "core/Helpers.h"
#include "server/ServerProcess.h"
#include "settings/TempDir.h"
#include "support/FakeUi.h"
#include "tests/archive/LeggiFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace dv {
namespace {

struct Server : ::testing::Test {
    test::TempDir dir;
    Corpo c;
    test::FakeUi ui;
    cli::SessioneRete rete;
    void SetUp() override { ImpostaAppDir(c, dir.path()); }
    ServerArchivi server(const test::ServerProcess& p) { return {p.base(), rete.scaricatore()}; }
};

// Every draw a real draw could be: twenty distinct numbers 1..90, Oro and Doppio Oro among them.
void ControllaEstrazioni(const ArrayEstrazioni& a) {
    for (int32_t i = 1; i <= UBound(a); ++i) {
        const Estrazione& e = a[static_cast<size_t>(i)];
        const std::set<int> numeri(e.Numeri.begin() + 1, e.Numeri.end());
        ASSERT_EQ(numeri.size(), 20u) << i;
        ASSERT_TRUE(*numeri.begin() >= 1 && *numeri.rbegin() <= 90) << i;
        ASSERT_TRUE(numeri.count(e.NumeroOro) && numeri.count(e.DoppioOro) && e.NumeroOro != e.DoppioOro)
            << i;
    }
}

TEST_F(Server, DemoDrawsFillTheEveningAndFiveMinuteArchivesFromTheirDate) {
    QTemporaryDir vuota;
    test::ServerProcess p(vuota.path(), {QStringLiteral("--demo")});
    ASSERT_TRUE(p.running());
    ASSERT_EQ(AggiornaArchivioSerale(c, ui, server(p)), EsitoAggiornamento::Aggiornato);
    const ArrayEstrazioni sera = LoadArchivioDAT(c.PathArchivioSerale, "", ui);
    EXPECT_GE(UBound(sera), 365 * 3 - 1);
    EXPECT_LE(UBound(sera), 365 * 3);
    ControllaEstrazioni(sera);
    ASSERT_EQ(AggiornaArchivio5Minuti(-30, c, ui, server(p)), EsitoAggiornamento::Aggiornato);
    const ArrayEstrazioni cinque = LoadArchivioDAT(c.PathArchivio5Min, "", ui);
    ASSERT_GE(UBound(cinque), 30 * 288);
    ControllaEstrazioni(cinque);
    const std::string dal = DataToYYYYMMDD(DataOdierna() - 30);
    EXPECT_EQ(cinque[1].dataTesto(), dal.substr(6, 2) + "/" + dal.substr(4, 2) + "/" + dal.substr(0, 4));
    EXPECT_EQ(cinque[1].Concorso, 1);
    EXPECT_EQ(cinque[288].Concorso, 288);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_FALSE(std::filesystem::exists(c.PathArchivioDownload));
}

// The server's own files in the text format, and a refused connection, are fetched by the archive
// window's and the command line's tests; here a server without the archives answers 404.
TEST_F(Server, AServerWithoutTheArchivesLeavesTheArchiveAsItWasAndSaysWhy) {
    std::ofstream(c.PathArchivioSerale, std::ios::binary) << "old";
    QTemporaryDir vuota;
    test::ServerProcess senza(vuota.path());
    EXPECT_EQ(AggiornaArchivioSerale(c, ui, server(senza)), EsitoAggiornamento::DownloadFallito);
    // "0049", then the reason in words: the server's status.
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0049>\n<0250>");
    EXPECT_EQ(test::LeggiFile(c.PathArchivioSerale), "old");
}

} // namespace
} // namespace dv

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
