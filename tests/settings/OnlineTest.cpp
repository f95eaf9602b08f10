#include "settings/Online.h"
#include "settings/Folders.h"
#include "settings/Impostazioni.h"

#include "TempDir.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

#include <map>

using dv::EsitoVersione;
using dv::test::TempDir;

TEST(NomeFileSicuro, AcceptsOnlyPlainNames) {
    for (const char* ok : {"english.txt", "Deutsch_2-b.txt", "a", "x.y.z"})
        EXPECT_TRUE(dv::NomeFileSicuro(ok)) << ok;
    for (const char* bad : {"", ".", "..", "a..txt", "../x.txt", "sub/x.txt", "sub\\x.txt", "/etc/passwd",
                            "C:x.txt", "a b.txt", "x.txt\r", "città.txt", "%2e%2e"})
        EXPECT_FALSE(dv::NomeFileSicuro(bad)) << bad;
}

// Parts compare as numbers, each as its leading digits, and only as many as the local version has.
TEST(ConfrontaVersioni, ComparesPartsAsNumbers) {
    using dv::ConfrontaVersioni;
    EXPECT_EQ(ConfrontaVersioni("1.9.9", "1.10.0"), EsitoVersione::NuovaVersione);
    EXPECT_EQ(ConfrontaVersioni("2.0.0", "1.99.99"), EsitoVersione::Aggiornato);
    EXPECT_EQ(ConfrontaVersioni("1.2.3", "1.2.3.9"), EsitoVersione::Aggiornato);      // only the local parts
    EXPECT_EQ(ConfrontaVersioni("1.2.3", "1.2.4beta"), EsitoVersione::NuovaVersione); // leading digits
    EXPECT_EQ(ConfrontaVersioni("1.2.3", "1.2"), EsitoVersione::NonLeggibile);
    EXPECT_EQ(ConfrontaVersioni("1.2.3", ""), EsitoVersione::NonLeggibile);
}

namespace {

// A downloader that serves files from a map of URL to body and records what it was asked.
struct FakeServer {
    std::map<std::string, std::string> files;
    std::vector<std::string> asked;
    dv::Scaricatore downloader() {
        return [this](const std::string& url, const std::string& path) {
            asked.push_back(url);
            auto it = files.find(url);
            if (it == files.end()) return false;
            std::ofstream(path, std::ios::binary) << it->second;
            return true;
        };
    }
};

const std::string Base = "http://127.0.0.1:8090/public/10elotto/";

} // namespace

// Names are trimmed, blank lines and names other than .txt skipped, unsafe, hidden or option-like
// names never asked for; the list is held to 100 names of at most 4 MB each, and a file missing on
// the server is skipped.
TEST(AggiornaLingue, InstallsSafeNamesOfTheFirst100AndSkipsTheRestWithoutAsking) {
    TempDir dir;
    dir.write("english.lng", "old");
    FakeServer server;
    std::string lista = "english.txt\r\n\r\n../evil.txt\r\nsub/x.txt\r\nreadme.md\r\n  deutsch.txt  \r\n"
                        "missing.txt\r\n.hidden.txt\n-rf.txt\nbig.txt\n";
    for (int i = 0; i < 93; ++i) {
        lista += "l" + std::to_string(i) + ".txt\n";
        server.files[Base + "lingue/l" + std::to_string(i) + ".txt"] = "[Strings]\r\n";
    }
    server.files[Base + "lingue/lista.txt"] = lista;
    server.files[Base + "lingue/english.txt"] = "[Strings]\r\n0001=\"new\"\r\n";
    server.files[Base + "lingue/deutsch.txt"] = "[Strings]\r\n";
    server.files[Base + "lingue/big.txt"] = std::string(dv::MaxByteFileLista + 1, 'x');
    dv::RapportoDownload rapporto;
    const auto installed = dv::AggiornaLingue({}, dir.path(), server.downloader(), &rapporto);
    ASSERT_TRUE(installed.has_value());
    // Of the first 100 names: five never asked, one missing, one too large, 2 + 91 installed.
    EXPECT_EQ(installed->size(), 93u);
    ASSERT_EQ(server.asked.size(), 96u);
    EXPECT_EQ(std::vector<std::string>(server.asked.begin(), server.asked.begin() + 4),
              (std::vector<std::string>{Base + "lingue/lista.txt", Base + "lingue/english.txt",
                                        Base + "lingue/deutsch.txt", Base + "lingue/missing.txt"}));
    EXPECT_EQ(dir.read("english.lng"), "[Strings]\r\n0001=\"new\"\r\n");
    EXPECT_TRUE(dir.exists("deutsch.lng"));
    EXPECT_FALSE(dir.exists("missing.lng"));
    EXPECT_FALSE(dir.exists("big.lng"));
    EXPECT_FALSE(dir.exists("temp/big.txt"));
    EXPECT_TRUE(dir.exists("l90.lng"));
    EXPECT_FALSE(dir.exists("l91.lng"));
    dv::test::FakeUi ui;
    EXPECT_EQ(dv::MessaggioRapporto(rapporto, ui), "<0255>\n<0256>\nmissing.txt: <0253>\nbig.txt: <0247>");
}

TEST(AggiornaLingue, AFailedListChangesNothingAndCreditsAreJoinedByCrLf) {
    TempDir dir;
    FakeServer server;
    EXPECT_FALSE(dv::AggiornaLingue({}, dir.path(), server.downloader()).has_value());
    EXPECT_EQ(server.asked.size(), 1u);
    EXPECT_FALSE(dv::CreditiLingue({}, dir.path(), server.downloader()).has_value());
    server.files[Base + "lingue/thankstolingue.txt"] = "English: Anna\nDeutsch: Bernd\r\n";
    EXPECT_EQ(dv::CreditiLingue({}, dir.path(), server.downloader()), "English: Anna\r\nDeutsch: Bernd");
}

// The shipped languages are copied only into a folder without any; the languages offered are the
// .lng files of any case, by name in upper case, sorted.
TEST(Folders, ShippedLanguagesAreCopiedOnlyIntoAFolderWithoutAnyAndListedInUpperCase) {
    TempDir shipped, app;
    shipped.write("italiano.lng", "[Strings]\r\n");
    shipped.write("English.LNG", "[Strings]\r\n");
    shipped.write("readme.txt", "");
    std::filesystem::create_directory(shipped.file("folder.lng"));
    EXPECT_EQ(dv::CopiaLingueIniziali(shipped.path(), app.path()), 2);
    EXPECT_EQ(dv::ElencoLingue(app.path()), (std::vector<std::string>{"ENGLISH", "ITALIANO"}));
    EXPECT_EQ(dv::ElencoLingue(shipped.path()), (std::vector<std::string>{"ENGLISH", "ITALIANO"}));
    EXPECT_TRUE(dv::ElencoLingue(shipped.file("missing")).empty());
    app.write("italiano.lng", "user's own");
    EXPECT_EQ(dv::CopiaLingueIniziali(shipped.path(), app.path()), 0);
    EXPECT_EQ(app.read("italiano.lng"), "user's own");
}
