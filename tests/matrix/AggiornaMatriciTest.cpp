#include "matrix/AggiornaMatrici.h"
#include "matrix/SupportoMatrici.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace dv {
namespace {

TEST(AggiornaMatriciTest, HostileNamesAreSkippedAndFailedDownloadsTooWithoutTouchingTheDisk) {
    test::CartellaTemporanea dir("agg");
    Impostazioni imp;
    std::vector<std::string> urls;
    const Scaricatore download = [&](const std::string& url, const std::string& path) {
        urls.push_back(url);
        if (url.find("lista.asp") != std::string::npos) {
            std::ofstream(path)
                << "v10k5.dat\r\n../../evil.DAT\r\nsub/x.DAT\r\n\r\nmanca.dat\r\nok2.DAT\r\nnodat.txt\r\n";
            return true;
        }
        if (url.find("MANCA") != std::string::npos) return false;
        std::ofstream(path) << "body of " << url;
        return true;
    };
    std::ofstream(dir.in("matrici/V10K5.mqvn")) << "old";
    const auto esito = AggiornaMatrici(imp, dir.str(), download);
    ASSERT_TRUE(esito);
    EXPECT_EQ(esito->installate.size(), 2u);
    EXPECT_EQ(esito->saltate,
              (std::vector<std::string>{"../../EVIL.DAT", "SUB/X.DAT", "MANCA.DAT", "NODAT.TXT"}));
    ASSERT_EQ(urls.size(), 4u); // the list, V10K5, MANCA, OK2: nothing asked for the hostile names
    EXPECT_NE(urls[1].find("/public/10elotto/matrici/download.aspx?file=V10K5.DAT"), std::string::npos);
    EXPECT_NE(dir.read("matrici/V10K5.mqvn").find("V10K5.DAT"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(dir.in("matrici/OK2.mqvn")));
    EXPECT_FALSE(std::filesystem::exists(dir.in("evil.DAT")));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(dir.str()).parent_path() / "EVIL.DAT"));

    const Scaricatore nessuno = [](const std::string&, const std::string&) { return false; };
    EXPECT_FALSE(AggiornaMatrici(imp, dir.str(), nessuno));
}

} // namespace
} // namespace dv
