// The updates against a real dorvanta-server on 127.0.0.1 (its demo archives and a path it does not
// serve) and with a downloader that copies local files (the failures that leave the archive as it
// was), and the manual import of the file picked.
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
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace dv {
namespace {

const std::string Dati = DV_ARCHIVE_TEST_DATA;

struct Aggiornamento : ::testing::Test {
    test::TempDir dir;
    Corpo c;
    test::FakeUi ui;
    std::string risposta = Dati + "/separatori.txt"; // the file the fake server answers with; empty fails

    void SetUp() override { ImpostaAppDir(c, dir.path()); }
    ServerArchivi server() {
        return {"http://127.0.0.1:1", [this](const std::string&, const std::string& path) {
                    std::error_code ec;
                    return !risposta.empty() &&
                           std::filesystem::copy_file(risposta, path,
                                                      std::filesystem::copy_options::overwrite_existing, ec);
                }};
    }
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

TEST_F(Aggiornamento, DemoDrawsFillTheEveningAndFiveMinuteArchivesFromTheirDateAndA404KeepsThem) {
    cli::SessioneRete rete;
    QTemporaryDir vuota;
    test::ServerProcess p(vuota.path(), {QStringLiteral("--demo")});
    ASSERT_TRUE(p.running());
    const ServerArchivi demo{p.base(), rete.scaricatore()};
    ASSERT_EQ(AggiornaArchivioSerale(c, ui, demo), EsitoAggiornamento::Aggiornato);
    const ArrayEstrazioni sera = LoadArchivioDAT(c.PathArchivioSerale, "", ui);
    EXPECT_GE(UBound(sera), 365 * 3 - 1);
    EXPECT_LE(UBound(sera), 365 * 3);
    ControllaEstrazioni(sera);
    ASSERT_EQ(AggiornaArchivio5Minuti(-30, c, ui, demo), EsitoAggiornamento::Aggiornato);
    const ArrayEstrazioni cinque = LoadArchivioDAT(c.PathArchivio5Min, "", ui);
    ASSERT_GE(UBound(cinque), 30 * 288);
    ControllaEstrazioni(cinque);
    const std::string dal = DataToYYYYMMDD(DataOdierna() - 30);
    EXPECT_EQ(cinque[1].dataTesto(), dal.substr(6, 2) + "/" + dal.substr(4, 2) + "/" + dal.substr(0, 4));
    EXPECT_EQ(cinque[1].Concorso, 1);
    EXPECT_EQ(cinque[288].Concorso, 288);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_FALSE(std::filesystem::exists(c.PathArchivioDownload));

    // Where the server has no archive it answers 404: "0049" and the reason in words, and the archive
    // stays as it was. The server's files in the text format and a refused connection are fetched by
    // the archive window's and the command line's tests.
    const std::string prima = test::LeggiFile(c.PathArchivioSerale);
    const ServerArchivi altrove{p.base() + "/altrove", rete.scaricatore()};
    EXPECT_EQ(AggiornaArchivioSerale(c, ui, altrove), EsitoAggiornamento::DownloadFallito);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0049>\n<0250>");
    EXPECT_EQ(test::LeggiFile(c.PathArchivioSerale), prima);
}

TEST_F(Aggiornamento, AFailedDownloadShows0049AndAFailedConversionNamesTheLineBothKeepingTheArchive) {
    std::ofstream(c.PathArchivioSerale, std::ios::binary) << "old";
    risposta.clear();
    EXPECT_EQ(AggiornaArchivioSerale(c, ui, server()), EsitoAggiornamento::DownloadFallito);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0049>\n<0253>"); // the reason follows: here a plain failure
    EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Critical);

    risposta = Dati + "/campo_non_valido.txt";
    EXPECT_EQ(AggiornaArchivioSerale(c, ui, server()), EsitoAggiornamento::ConversioneFallita);
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_NE(ui.boxes[1].text.find(" 3, "), std::string::npos) << ui.boxes[1].text;
    EXPECT_EQ(test::LeggiFile(c.PathArchivioSerale), "old");
    EXPECT_TRUE(std::filesystem::exists(c.PathArchivioDownload)); // left for a look at what came
}

TEST_F(Aggiornamento, ManualImportConvertsThePickedFileAndACancelChangesNothing) {
    EXPECT_EQ(ImportaArchivioManuale(c, ui, "/desk"), EsitoAggiornamento::Annullato);
    EXPECT_FALSE(std::filesystem::exists(c.PathArchivioManuale));
    const std::string source = dir.write("mine.dat", test::LeggiFile(Dati + "/separatori.txt"));
    ui.setNextFileName(source);
    EXPECT_EQ(ImportaArchivioManuale(c, ui, "/desk"), EsitoAggiornamento::Aggiornato);
    EXPECT_EQ(test::LeggiFile(c.PathArchivioManuale), test::LeggiFile(Dati + "/separatori.dat"));
    EXPECT_TRUE(std::filesystem::exists(source));
}

} // namespace
} // namespace dv

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
