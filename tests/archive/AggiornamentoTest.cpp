// The updates with a downloader that copies local files: a failure leaves the archive as it was,
// and the manual import converts the file picked.
#include "archive/Aggiornamento.h"
#include "core/Cartelle.h"
#include "settings/TempDir.h"
#include "support/FakeUi.h"
#include "tests/archive/LeggiFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace dv {
namespace {

const std::string Dati = DV_ARCHIVE_TEST_DATA;

struct Fixture : ::testing::Test {
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

TEST_F(Fixture, AFailedDownloadShows0049AndAFailedConversionNamesTheLineBothKeepingTheArchive) {
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

TEST_F(Fixture, ManualImportConvertsThePickedFileAndACancelChangesNothing) {
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
